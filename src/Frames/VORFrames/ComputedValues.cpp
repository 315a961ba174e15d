// The reevaluation that specs and charts share.

#include "VORFrames/ComputedValues.h"

#include "Preconditions.h"
#include "VORFrames/Gradation.h"
#include "ZeroTest.h"

namespace VorSystem
{

namespace
{

constexpr char kSourceUnit[] = R"(src\Frames\VORFrames)";

} // namespace

bool reevaluateComputed(BaseFrame &element, ValuesAccordingSizes &stored,
                        const std::function<double(short size)> &valueAt, eFrameReevaluate mode)
{
    const GradationData *const gradation = gradationOf(element.document());
    VOR_REQUIRE(gradation != nullptr);

    const bool hasNest = gradation->isGradationNestDefined();
    const int count = hasNest ? gradation->gradationNum() : 1;
    ValuesAccordingSizes work;
    work.mNestIndex = hasNest ? static_cast<short>(gradation->mediumIndex() - 1) : short{0};
    for (int size = 0; size < count; ++size)
        work.mValues.append(valueAt(hasNest ? static_cast<short>(size) : short{-1}));

    // Without a nest only the first stored value counts; with one, another count of sizes is a change.
    bool changed = stored.mValues.isEmpty() || (hasNest && stored.mValues.count() != count);
    for (int size = 0; !changed && size < count; ++size)
        changed = !countsAsZero(stored.mValues.at(size) - work.mValues.at(size));

    // Deliberate: unlike an element with geometry, mode 0 stores nothing.
    if (mode == Reevaluate_Apply)
        stored = work;
    return changed;
}

} // namespace VorSystem
