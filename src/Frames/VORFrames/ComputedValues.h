// The reevaluation that specs and charts share: values without geometry.
#pragma once

#include <VorFrames/BaseFrame.h>

#include <functional>

namespace VorSystem
{

/// Computes all values anew, one for -1 without a nest, and tells whether they differ from the stored ones or
/// have another count. Only mode 1 stores them. Raises AssertionError without a gradation.
bool reevaluateComputed(BaseFrame &element, ValuesAccordingSizes &stored,
                        const std::function<double(short size)> &valueAt, eFrameReevaluate mode);

} // namespace VorSystem
