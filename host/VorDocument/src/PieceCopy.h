// A piece of one document as a copy that another place may own.
#pragma once

#include <VorConjoin/CDbGroupObject.h>
#include <VorConjoin/GabaritObject.h>
#include <VorFrames/ControlSkeleton.h>

#include <memory>

namespace VorSystem
{

/// A deep copy of a piece with its skeletons, which point at the elements of the source's skeletons.
inline std::unique_ptr<CDbGroupObject> copyWithSkeletons(const CDbGroupObject &source)
{
    std::unique_ptr<CDbGroupObject> copy(source.copy());
    GabaritObject *twin = copy->firstGabarit();
    for (GabaritObject *gabarit = source.firstGabarit(); gabarit; gabarit = gabarit->mNextGabarit) {
        if (ControlSkeleton *skeleton = gabarit->controlSkeleton())
            new ControlSkeleton(copy.get(), twin, skeleton); // the gabarit holds it
        twin = twin->mNextGabarit;
    }
    return copy;
}

} // namespace VorSystem
