// A change of a segment's length in all sizes, and the loop until the lengths read back agree or diverge.

#include <VorFrames/ControlSegment.h>

#include "Preconditions.h"
#include "VORStCtlBase/Rebuild.h"
#include "VORStCtlBase/Sizes.h"
#include "ZeroTest.h"

#include <VorFrames/ControlSkeleton.h>
#include <VorFrames/FrameSet.h>
#include <VorFrames/GestFrames.h>

#include <algorithm>
#include <optional>

namespace VorSystem
{

namespace
{

constexpr char kSourceUnit[] = R"(src\Frames\VORStCtlSegment)";

constexpr int kMaxPasses = 100;       // passes, then Msg_NotConverged
constexpr int kFirstComparedPass = 2; // two passes must lie behind before a third can diverge
constexpr double kReachedScale = 3.0; // a length off by up to 3e-05 cm counts as reached
constexpr double kGapScale = 50.0;    // a gap up to 5e-04 cm is too small to diverge

/// Has the gap to the wish grown, from a gap that is worth speaking of?
bool hasDiverged(double now, double previous, double wanted)
{
    return (now - wanted) / (previous - wanted) > 1.0 && !countsAsZero((previous - wanted) / kGapScale);
}

/// The same over the sizes. Deliberate: here a gap that stays as it was has diverged too, a NaN likewise.
bool hasDiverged(const QListEx<double> &now, const QListEx<double> &previous, const QListEx<double> &wanted)
{
    const int count = std::min({now.size(), previous.size(), wanted.size()});
    for (int size = 0; size < count; ++size) {
        const double gap = previous[size] - wanted[size];
        if (!countsAsZero(gap) && !((now[size] - wanted[size]) / gap < 1.0) && !countsAsZero(gap / kGapScale))
            return true;
    }
    return false;
}

} // namespace

eMsgConvergence ControlSegment::changeMeasureMediumNoGrade(double target, bool shiftSizes)
{
    GeoPoint2D displacement;
    const eMsgConvergence result = calculateMaximumDisplacement(target, &displacement);
    if (result == Msg_Moved)
        moveVectorsInTheMediumNoGrade(displacement, shiftSizes);
    return result;
}

eMsgConvergence ControlSegment::changeMeasuresallsizes(ValuesAccordingSizes &values,
                                                       const GradationData *gradation)
{
    VOR_REQUIRE(group());
    const VectorsOfGroup vectors(group());
    const ExplicitGrading<VectorsOfGroup> grading(vectors, gradation);
    eMsgConvergence result = Msg_Moved;
    for (int size = 0; size < values.mValues.size() && result == Msg_Moved; ++size) {
        const bool isNest = size == values.mNestIndex;
        std::optional<StayInSize<VectorsOfGroup>> stay;
        if (!isNest)
            stay.emplace(vectors, sizeNumber(size), false);
        result = changeMeasureMediumNoGrade(values.mValues[size], isNest);
        // A size that needs nothing does not keep the others from moving.
        if (result == Msg_Converged)
            result = Msg_Moved;
    }
    return result;
}

eMsgConvergence ControlSegment::changeMeasureLevel(eMeasureLevel /*kind*/, ValuesAccordingSizes *measures,
                                                   ValuesAccordingSizes * /*levels*/,
                                                   const GradationData *gradation,
                                                   eModifyLevelActionType action)
{
    VOR_REQUIRE(gradation && group() && measures && mFrameSegment && mFrameSegment->getMeasureBySizes());
    VOR_REQUIRE(action == ModifyLevel_Nest || action == ModifyLevel_ShiftedSizes ||
                action == ModifyLevel_AllSizes);
    const bool nestAlone = action == ModifyLevel_Nest;
    // Deliberate: read before the list is shifted.
    const double wanted = measures->mValues[measures->mNestIndex];
    if (action == ModifyLevel_ShiftedSizes)
        measures->shiftTo(*mFrameSegment->getMeasureBySizes());

    eMsgConvergence result = Msg_Moved;
    double previous = 0.0;
    ValuesAccordingSizes previousList;
    int passes = 0;
    for (bool reached = false, diverged = false; passes < kMaxPasses && !reached && !diverged; ++passes) {
        result = nestAlone ? changeMeasureMediumNoGrade(wanted, false)
                           : changeMeasuresallsizes(*measures, gradation);
        rebuildFromFrames(group(), true, gradation);
        VOR_REQUIRE(mFrameSegment && mFrameSegment->getMeasureBySizes());
        mFrameSegment->reevaluateElementObject(Evaluation_Measure);
        if (result == Msg_Diverged || result == Msg_Impossible)
            break;

        const ValuesAccordingSizes &current = *mFrameSegment->getMeasureBySizes();
        if (nestAlone) {
            const double now = current.mValues[current.mNestIndex];
            reached = countsAsZero((now - wanted) / kReachedScale);
            diverged = passes >= kFirstComparedPass && hasDiverged(now, previous, wanted);
            previous = now;
        } else {
            reached = current.isSameAs(*measures);
            diverged = passes >= kFirstComparedPass &&
                       hasDiverged(current.mValues, previousList.mValues, measures->mValues);
            previousList = current;
        }
        if (diverged)
            result = Msg_Diverged;
    }

    // Deliberate: the hundredth pass comes too late, also when it has reached the lengths.
    if (result == Msg_Moved)
        result = passes < kMaxPasses ? Msg_Converged : Msg_NotConverged;
    if (result == Msg_Converged) {
        FrameSet *set = mFrameSegment->getFrameSet();
        if (set && set->getGestFrames())
            set->getGestFrames()->notifyGroupChanged(group());
    }
    return result;
}

} // namespace VorSystem
