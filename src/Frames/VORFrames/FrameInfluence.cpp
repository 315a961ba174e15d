// Which elements a formula moves along: the stretch of contour between a frame's neighbours, and the vectors
// that a segment displaces.

#include <VorFrames/FrameFrame.h>
#include <VorFrames/FrameSegment.h>

#include "Preconditions.h"
#include "VORFrames/GeometricReach.h"

#include <VorConjoin/VorConjoin.h>
#include <VorFrames/ControlFrame.h>
#include <VorFrames/ControlSegment.h>
#include <VorFrames/ControlSkeleton.h>
#include <VorFrames/FrameCenter.h>

#include <algorithm>
#include <vector>

namespace VorSystem
{

namespace
{

constexpr char kSourceUnit[] = R"(src\Frames\VORFrames)";

} // namespace

bool FrameFrame::influenceGeometrically(BaseFrame *other)
{
    if (other == this || (mFormulaMeasure == nullptr && mFormulaLevel == nullptr))
        return false;
    if (other == nullptr || !isDefinedInDocument() || !other->isDefinedInDocument())
        return false;

    ControlFrame *const control = controlFrameCorresponding();
    VOR_REQUIRE(control != nullptr);
    VOR_REQUIRE(control->getSkeleton() != nullptr);
    VOR_REQUIRE(mFrameCenter != nullptr);
    const std::vector<CDbPointVOR *> reach = reachOfFrame(*this, *control);

    // Links, specs and charts count as defined without a place on a piece: they hold no vector.
    ControlBase *const touched = other->objectControlCorresponding();
    return touched != nullptr && std::any_of(reach.begin(), reach.end(), [touched](CDbPointVOR *vector) {
               return touched->containsVector(vector);
           });
}

bool FrameSegment::influenceGeometrically(BaseFrame *other)
{
    if (other == this || mFormulaMeasure == nullptr)
        return false;
    if (other == nullptr || !other->isDefinedInDocument())
        return false;
    const ControlSegment *const control = controlSegmentCorrespondent();
    if (control == nullptr)
        return false;

    CDbGroupObject *const group = groupCorrespondent();
    VOR_REQUIRE(group != nullptr);
    GabaritObject *const gabarit = gabaritCorrespondent();
    VOR_REQUIRE(gabarit != nullptr);
    ControlBase *const touched = other->objectControlCorresponding();
    if (touched == nullptr)
        return false;

    // What lies beyond the segment is the same for every vector.
    CDbPointVOR *const attachment = control->getAttachedNext();
    const auto displaces = [&](CDbPointVOR *vector) {
        return touched->containsVector(vector) && control->displacementFactor(vector, attachment) > 0.0;
    };
    CDbPointVOR *vector = nullptr;
    IteratorVectorGabarit contour;
    contour.first(gabarit, static_cast<IteratorVectorG::eTypeIterator>(0));
    while (contour.next(vector)) {
        if (displaces(vector))
            return true;
    }
    if (group->mFirstVector == nullptr)
        return false;
    IteratorVector own;
    own.first(group->mFirstVector);
    while (own.next(vector)) {
        if (displaces(vector))
            return true;
    }
    return false;
}

} // namespace VorSystem
