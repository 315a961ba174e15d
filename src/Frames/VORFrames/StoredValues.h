// Reading a stored value where an element that was never evaluated counts 0.0 instead of ending the program.
#pragma once

#include <VorFrames/BaseFrame.h>

namespace VorSystem
{

/// The stored measure at size (-1: the nest); 0.0 without a list and for an empty one. A list that is not
/// empty but too short ends the program, as everywhere.
inline double storedMeasure(BaseFrame *element, short size)
{
    const ValuesAccordingSizes *values = element->getMeasureBySizes();
    if (values == nullptr || values->mValues.isEmpty())
        return 0.0;
    return values->mValues.at(size == -1 ? values->mNestIndex : size);
}

} // namespace VorSystem
