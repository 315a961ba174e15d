// A change of measure and level: one move with all that follows it, the same in one size, and the loop over
// all sizes until the values read back agree.

#include <VorFrames/ControlFrame.h>

#include "Preconditions.h"
#include "VORStCtlBase/Rebuild.h"
#include "VORStCtlBase/Sizes.h"
#include "VORStCtlFrame/DartTips.h"
#include "VORStCtlFrame/FrameStatus.h"
#include "VORStCtlFrame/QuadrantMorph.h"
#include "ZeroTest.h"

#include <VorConjoin/DartContour.h>
#include <VorFrames/ControlSkeleton.h>
#include <VorFrames/FrameCenter.h>
#include <VorFrames/FrameFrame.h>
#include <VorFrames/FrameSet.h>
#include <VorFrames/GestFrames.h>

#include <optional>

namespace VorSystem
{

namespace
{

constexpr char kSourceUnit[] = R"(src\Frames\VORStCtlFrame)";

constexpr int kMaxPasses = 25;     // passes over the sizes, then Msg_NotConverged
constexpr double kWishScale = 5.0; // a wish that differs by up to 5e-05 cm needs no move

using ExplicitGradingOfGroup = ExplicitGrading<VectorsOfGroup>;
using StayOfGroup = StayInSize<VectorsOfGroup>;

bool holdsMeasure(ControlBase::eMeasureLevel kind)
{
    return kind == ControlBase::MeasureLevel_Measure || kind == ControlBase::MeasureLevel_Both;
}

bool holdsLevel(ControlBase::eMeasureLevel kind)
{
    return kind == ControlBase::MeasureLevel_Level || kind == ControlBase::MeasureLevel_Both;
}

ControlBase::eMeasureLevel kindOf(bool measure, bool level)
{
    if (measure && level)
        return ControlBase::MeasureLevel_Both;
    if (measure)
        return ControlBase::MeasureLevel_Measure;
    return level ? ControlBase::MeasureLevel_Level : ControlBase::MeasureLevel_Invalid;
}

/// Adds what brings the wish for the nest to the value there.
void rebase(ValuesAccordingSizes &wanted, const ValuesAccordingSizes &current, int nest)
{
    const double delta = current.mValues[nest] - wanted.mValues[nest];
    for (double &value : wanted.mValues)
        value += delta;
}

/// Does a value need a move? A wish of exactly 0.0 is none where zeroIsNoWish; a list that was never filled
/// agrees with nothing.
bool differs(double wanted, const QListEx<double> &current, int size, bool zeroIsNoWish)
{
    if (wanted == 0.0 && zeroIsNoWish)
        return false;
    return current.isEmpty() || !countsAsZero((wanted - current[size]) / kWishScale);
}

/// The dart that holds the vector makes the copies from which it will see how its tip has moved.
void prepareDartOf(const CDbPointVOR *vector, GabaritObject *gabarit)
{
    DartContour *dart = nullptr;
    short place = 0;
    if (vector && gabarit->pICGabIsWhichDart(vector, &dart, &place) && dart)
        dart->pICAdjustTheCopyVectors();
}

} // namespace

bool ControlFrame::setMeasureLevel(eMeasureLevel kind, double measure, double level)
{
    VOR_REQUIRE(group() && mSkeleton->getGabarit());
    GabaritObject *gabarit = mSkeleton->getGabarit();
    TemporaryGabarit before;
    IteratorVector contour;
    contour.first(gabarit->mFirstVector);
    CDbPointVOR *vector = nullptr;
    while (contour.next(vector))
        VOR_REQUIRE(before.appendCopyOf(vector));
    prepareDartOf(mVectorContour1, gabarit);
    prepareDartOf(mVectorContour2, gabarit);

    QuadrantGrid grid;
    grid.fillQuadrantGrid(this);
    grid.keepOldAxis();

    short status = Status_Start;
    if (holdsLevel(kind))
        setLevelOnGabarit(level, &status);
    if (holdsMeasure(kind))
        setMeasureOnGabarit(measure, &status);
    // The contour stays where the attempt left it, and nothing inside follows.
    if (status == Status_Failed)
        return false;

    morphTheInside(grid, before.get());
    followDartTips(group(), gabarit);
    return true;
}

// Free vectors follow, unless the frame itself ends inside the piece.
void ControlFrame::morphTheInside(QuadrantGrid &grid, GabaritObject *before)
{
    if (group()->isGroupVector(mVectorContour1) || group()->isGroupVector(mVectorContour2))
        return;
    GabaritObject *gabarit = mSkeleton->getGabarit();
    grid.fillQuadrantGrid(this);
    const QuadrantMorph morph(gabarit, before, frameCenter()->Caracteristique(), grid);

    IteratorVectorGroup walk;
    walk.first(group(), kIndependentVectors);
    CDbPointVOR *vector = nullptr;
    while (walk.next(vector)) {
        if (!isHeld(vector))
            morph.carryAlong(vector);
    }
}

// Vectors that the morph leaves alone: the contour, curved dart legs, what control objects rest on.
bool ControlFrame::isHeld(CDbPointVOR *vector) const
{
    if (mSkeleton->getGabarit()->isVectorContour(vector))
        return true;
    GabaritObject *owner = nullptr;
    LineObject *line = nullptr;
    CurveObject *curve = nullptr;
    DartContour *dart = nullptr;
    if (group()->isVectorInGroupCurve(vector, true, true, true, false, &owner, &line, &curve) && line &&
        group()->pICIsLine(line, &dart))
        return true;
    return mSkeleton->controlFrameisVectorContour(vector) || mSkeleton->controlSegmentisVectorContour(vector);
}

eMsgConvergence ControlFrame::adjustMeasureLevel(eMeasureLevel kind, double measure, double level,
                                                 const GradationData *gradation, bool irregularAlready,
                                                 short size)
{
    VOR_REQUIRE(group());
    if (!nestDefined(gradation))
        return setMeasureLevel(kind, measure, level) ? Msg_Moved : Msg_MoveFailed;

    const VectorsOfGroup vectors(group());
    std::optional<ExplicitGradingOfGroup> grading;
    if (!irregularAlready)
        grading.emplace(vectors, gradation);
    const short number = sizeNumber(size);
    const StayOfGroup stay(vectors, number, number == gradation->mediumIndex());
    return setMeasureLevel(kind, measure, level) ? Msg_Moved : Msg_MoveFailed;
}

eMsgConvergence ControlFrame::changeMeasureLevel(eMeasureLevel kind, ValuesAccordingSizes *measures,
                                                 ValuesAccordingSizes *levels, const GradationData *gradation,
                                                 eModifyLevelActionType action)
{
    VOR_REQUIRE(mFrameFrame);
    if (action == ModifyLevel_Nothing) {
        notifyManager();
        return Msg_Converged;
    }
    VOR_REQUIRE(group() && kind != MeasureLevel_Invalid);
    VOR_REQUIRE(!holdsMeasure(kind) || measures);
    VOR_REQUIRE(!holdsLevel(kind) || levels);

    const bool hasNest = nestDefined(gradation);
    const int nest = hasNest ? gradation->mediumIndex() - 1 : 0;
    if (action == ModifyLevel_ShiftedSizes) {
        if (holdsMeasure(kind))
            rebase(*measures, *mFrameFrame->getMeasureBySizes(), nest);
        if (holdsLevel(kind))
            rebase(*levels, *mFrameFrame->getLevelBySizes(), nest);
    }

    Change change;
    change.measures = holdsMeasure(kind) ? measures : nullptr;
    change.levels = holdsLevel(kind) ? levels : nullptr;
    change.nestAlone = action == ModifyLevel_Nest;
    change.everySize = hasNest && !change.nestAlone;
    change.gradation = change.nestAlone ? nullptr : gradation;
    change.firstSize = change.nestAlone ? nest : 0;
    change.endSize = change.nestAlone ? nest + 1 : countOfSizes(gradation);

    eMsgConvergence result = Msg_Moved;
    int passes = 0;
    for (; passes < kMaxPasses; ++passes) {
        bool moved = false;
        result = moveEachSize(change, moved);
        if (moved)
            rebuildAndReadBack(change.everySize, gradation);
        if (!moved || result != Msg_Moved)
            break;
    }
    if (result == Msg_Moved)
        result = passes < kMaxPasses ? Msg_Converged : Msg_NotConverged;
    if (result == Msg_Converged)
        notifyManager();
    return result;
}

// One pass: moves the sizes that differ from the wish, up to the first that fails.
eMsgConvergence ControlFrame::moveEachSize(const Change &change, bool &moved)
{
    const QListEx<double> *currentMeasures = &mFrameFrame->getMeasureBySizes()->mValues;
    const QListEx<double> *currentLevels = &mFrameFrame->getLevelBySizes()->mValues;
    std::optional<ExplicitGradingOfGroup> grading;
    if (change.everySize)
        grading.emplace(VectorsOfGroup(group()), change.gradation);

    eMsgConvergence result = Msg_Moved;
    for (int size = change.firstSize; size < change.endSize && result == Msg_Moved; ++size) {
        const double measure = change.measures ? change.measures->mValues[size] : 0.0;
        const double level = change.levels ? change.levels->mValues[size] : 0.0;
        const bool moveMeasure =
            change.measures && differs(measure, *currentMeasures, size, !isMeasureZero());
        const bool moveLevel = change.levels && differs(level, *currentLevels, size, !isLevelZero());
        if (!moveMeasure && !moveLevel)
            continue;
        moved = true;
        result = adjustMeasureLevel(kindOf(moveMeasure, moveLevel), measure, level, change.gradation, true,
                                    static_cast<short>(size));
    }
    return result;
}

void ControlFrame::rebuildAndReadBack(bool everySize, const GradationData *gradation)
{
    rebuildFromFrames(group(), everySize, gradation);
    VOR_REQUIRE(mFrameFrame);
    mFrameFrame->reevaluateElementObject(Evaluation_Measure);
    mFrameFrame->reevaluateElementObject(Evaluation_Level);
}

void ControlFrame::notifyManager()
{
    FrameSet *set = mFrameFrame->getFrameSet();
    if (set && set->getGestFrames())
        set->getGestFrames()->notifyGroupChanged(group());
}

} // namespace VorSystem
