// Moving a frame on the piece as it stands: its sides along the chord or along the contour, and the whole
// chord along the axis.

#include <VorFrames/ControlFrame.h>

#include "Preconditions.h"
#include "VORStCtlBase/Temporaries.h"
#include "VORStCtlFrame/FrameStatus.h"
#include "VORStCtlFrame/OppositeVector.h"
#include "ZeroTest.h"

#include <VorConjoin/CDbGroupObject.h>
#include <VorConjoin/GabaritObject.h>
#include <VorFrames/ControlCenter.h>
#include <VorFrames/ControlSkeleton.h>
#include <VorFrames/FrameCenter.h>
#include <VorFrames/FrameFrame.h>
#include <VorFrames/RightRegion.h>

#include <cmath>

namespace VorSystem
{

namespace
{

constexpr char kSourceUnit[] = R"(src\Frames\VORStCtlFrame)";

constexpr double kRestScale = 2.5;                  // a rest up to 2.5e-05 cm counts as reached
constexpr double kStalled = 1.0000000000000002e-06; // cm: a pass that gains less ends the loop
constexpr int kMaxMovePasses = 100000; // a rest that swings for ever; no run that ends comes near

bool isReached(double rest)
{
    return countsAsZero(rest / kRestScale);
}

/// A step of a vector, in centimetres.
struct Step {
    double dx = 0.0;
    double dy = 0.0;
};

/// Two moves that meet in a vector move it twice, so one of them is taken back.
void takeBack(CDbPointVOR *vector, const Step &step)
{
    *vector = GeoPoint2D(vector->x() - step.dx, vector->y() - step.dy);
}

Step stepBetween(const GeoPoint2D &from, const GeoPoint2D &to)
{
    return {to.x() - from.x(), to.y() - from.y()};
}

/// What a walk to the next frame found: the frame and the vector at which it was met, and the end of the
/// walk.
struct Neighbor {
    ControlFrame *frame = nullptr;
    CDbPointVOR *met = nullptr;
    CDbPointVOR *end = nullptr;

    CDbPointVOR *metOrEnd() const { return frame ? met : end; }
    /// The vector of the frame on a side, which a half frame does not have; without a frame, the end.
    CDbPointVOR *sideOrEnd(short side) const { return frame ? frame->getVectorContour(side) : end; }
};

Neighbor neighborOf(const ControlSkeleton *skeleton, CDbPointVOR *vector, bool forward)
{
    Neighbor neighbor;
    neighbor.frame = skeleton->getControlFrameNeighbor(vector, forward, &neighbor.met, &neighbor.end);
    return neighbor;
}

/// Moves vector by step and the contour on both sides of it, as far as from and to, by a part that falls off.
/// An end that is not held goes along.
void moveBothStretches(GabaritObject *gabarit, CDbPointVOR *from, CDbPointVOR *vector, CDbPointVOR *to,
                       const Step &step, bool fromHeld, bool toHeld)
{
    gabarit->moveVectorContourBetween(from, vector, vector, step.dx, step.dy, fromHeld);
    takeBack(vector, step);
    gabarit->moveVectorContourBetween(vector, to, vector, step.dx, step.dy, toHeld);
    gabarit->recalculateCurves(from, to);
}

/// The same for the side of a frame beyond the axis, where either end may be missing and an end that is not
/// held has been moved by the near side already: here it is put back.
void moveFarSide(GabaritObject *gabarit, CDbPointVOR *from, CDbPointVOR *vector, CDbPointVOR *to,
                 const Step &step, bool fromHeld, bool toHeld)
{
    if (from) {
        gabarit->moveVectorContourBetween(from, vector, vector, step.dx, step.dy, fromHeld);
        if (!fromHeld)
            takeBack(from, step);
    }
    if (to) {
        gabarit->moveVectorContourBetween(vector, to, vector, step.dx, step.dy, toHeld);
        if (!toHeld)
            takeBack(to, step);
    }
    if (from && to)
        takeBack(vector, step);
    else if (!from && !to)
        *vector = GeoPoint2D(vector->x() + step.dx, vector->y() + step.dy);

    if (from)
        gabarit->recalculateCurves(from, vector);
    if (to)
        gabarit->recalculateCurves(vector, to);
}

} // namespace

void ControlFrame::setMeasureOnGabarit(double target, short *status)
{
    VOR_REQUIRE(status && mSkeleton);
    *status = Status_Start;
    if (isMeasureZero() && target != 0.0) {
        *status = Status_Failed;
        return;
    }

    // Deliberate: the crossing is that of the start, also when a pass shifts it.
    const TemporaryVector crossing;
    calculateIntersectionOfCenter(crossing.get());
    double measure = getMeasures(-1);
    double rest = target - measure;
    for (int pass = 0; pass < kMaxMovePasses; ++pass) {
        const Shares shares = sharesOf(rest, crossing.get());
        // Nothing to go by: an impossible wish, or two sides without length.
        if (!std::isfinite(rest) || !std::isfinite(shares.side1) || !std::isfinite(shares.side2))
            break;

        // Deliberate: the last side that moves decides, so a failure of side 1 may be forgotten.
        bool failed = false;
        if (!countsAsZero(shares.side1))
            failed = !moveSide(shares.side1, 1);
        if (!countsAsZero(shares.side2))
            failed = !moveSide(shares.side2, 2);

        const double moved = getMeasures(-1);
        rest = target - moved;
        const bool stalled = std::abs(moved - measure) < kStalled;
        measure = moved;
        if (isReached(rest) || stalled || failed)
            break;
    }
    // The status speaks of the rest alone: a failed move that came close is a good one.
    if (isReached(rest))
        *status = Status_Reached;
    else
        *status = std::abs(rest) < Epsilon_Changement ? Status_Close : Status_Failed;
}

ControlFrame::Shares ControlFrame::sharesOf(double rest, const CDbPointVOR *crossing) const
{
    const FrameCenter::eCharacteristicType characteristic = frameCenter()->Caracteristique();
    if (characteristic == FrameCenter::Characteristic_OneSideDoubled)
        return {rest * 0.5, 0.0};
    if (characteristic != FrameCenter::Characteristic_TwoSides &&
        characteristic != FrameCenter::Characteristic_TwoSidesDoubled)
        return {};

    const double all = characteristic == FrameCenter::Characteristic_TwoSidesDoubled ? rest * 0.5 : rest;
    GabaritObject *gabarit = mSkeleton->getGabarit();
    if (mFrameFrame->getMeasureType() == FrameFrame::Measure_InProportion) {
        const auto lengthOf = [&](const CDbPointVOR *vector) {
            return vector ? gabarit->measureBetween(group(), vector, crossing, true) : 0.0;
        };
        const double length1 = lengthOf(mVectorContour1);
        const double length2 = lengthOf(mVectorContour2);
        return {length1 / (length1 + length2) * all, length2 / (length1 + length2) * all};
    }

    const auto [center1, center2] = axis();
    const RightRegion *regions = mSkeleton->getFrameCenter()->getRightRegions();
    VOR_REQUIRE(regions);
    const short region = regions->getIdentifierByRegion(gabarit, center1, center2, mVectorContour1);
    const double percentage = mFrameFrame->getPercentageMeasureRating1();
    const double percentage1 = region == 1 ? percentage : 100.0 - percentage;
    return {percentage1 / 100.0 * all, (100.0 - percentage1) / 100.0 * all};
}

bool ControlFrame::moveSide(double distance, short side)
{
    if (mFrameFrame->getPerimeterMeasurement())
        return adjustMeasureContour(distance, side);
    adjustMeasureAxis(distance, side);
    return true;
}

void ControlFrame::adjustMeasureAxis(double distance, short side)
{
    VOR_REQUIRE(mSkeleton);
    CDbPointVOR *const vector = getVectorContour(side);
    GeoPoint2D crossing;
    calculateIntersectionOfCenter(&crossing);
    CDbPointVOR *const from = neighborOf(mSkeleton, vector, false).sideOrEnd(side);
    CDbPointVOR *const to = neighborOf(mSkeleton, vector, true).sideOrEnd(side);

    GeoPoint2D goal;
    CDbPointVOR::vectorManagementUnitDist(*vector, distance, *vector, crossing, goal);
    moveBothStretches(mSkeleton->getGabarit(), from, vector, to, stepBetween(*vector, goal), true, true);
}

bool ControlFrame::adjustMeasureContour(double distance, short side)
{
    VOR_REQUIRE(mSkeleton);
    CDbPointVOR *const vector = getVectorContour(side);
    const bool sense = side == 1 ? mContourDirection1To2 : !mContourDirection1To2;
    CDbPointVOR *const limit = neighborOf(mSkeleton, vector, sense).end;
    const auto [center1, center2] = axis();
    const TemporaryVector before(vector->copyTheVector(0));

    GabaritObject *gabarit = mSkeleton->getGabarit();
    const bool slid = sense
                          ? gabarit->moveVectorAlongContour(vector, limit, limit, center1, center2, distance)
                          : gabarit->moveVectorAlongContour(limit, vector, limit, center1, center2, distance);
    if (!slid)
        return false;

    CDbPointVOR *const other = neighborOf(mSkeleton, vector, !sense).sideOrEnd(side);
    const Step step = stepBetween(*before, *vector);
    *vector = GeoPoint2D(before->x(), before->y());
    if (sense) {
        gabarit->moveVectorContourBetween(other, vector, vector, step.dx, step.dy, true);
        gabarit->recalculateCurves(other, limit);
    } else {
        gabarit->moveVectorContourBetween(vector, other, vector, step.dx, step.dy, true);
        gabarit->recalculateCurves(limit, other);
    }
    return true;
}

void ControlFrame::setLevelOnGabarit(double target, short *status)
{
    VOR_REQUIRE(status && mSkeleton);
    const FrameCenter::eCharacteristicType characteristic = frameCenter()->Caracteristique();
    const double current = getLevel(-1);
    const double delta = target - current;

    const TemporaryVector crossing;
    calculateIntersectionOfCenter(crossing.get());
    CDbPointVOR *farVector = mVectorContour2;
    if (characteristic == FrameCenter::Characteristic_OneSideDoubled) {
        // The far half of a one-sided piece goes along, also where the frame itself ends at the axis.
        CDbPointVOR *opposite = findOppositeContourVector(mVectorContour1, crossing.get(), mSkeleton);
        if (opposite && (!farVector || CDbPointVOR::equalVector(*farVector, *crossing)))
            farVector = opposite;
    }
    const Neighbor behind = neighborOf(mSkeleton, mVectorContour1, false);
    const Neighbor ahead = neighborOf(mSkeleton, mVectorContour1, true);

    const ControlFrame *origin = getFrameLevelZero();
    Step step;
    // A frame on the level of the origin has no direction to go.
    if (!countsAsZero(current)) {
        VOR_REQUIRE(origin);
        GeoPoint2D originCrossing;
        origin->calculateIntersectionOfCenter(&originCrossing);
        GeoPoint2D goal;
        CDbPointVOR::vectorManagementUnitDist(GeoPoint2D::Point2D_Nul, delta, *crossing, originCrossing,
                                              goal);
        step = stepBetween(GeoPoint2D::Point2D_Nul, goal);
    }

    // A wish that is no number must not reach the contour.
    if (origin != this && !isReached(delta) && std::isfinite(step.dx) && std::isfinite(step.dy)) {
        GabaritObject *gabarit = mSkeleton->getGabarit();
        const bool heldBehind = behind.frame != nullptr;
        const bool heldAhead = ahead.frame != nullptr;
        if (isMeasureZero()) {
            moveBothStretches(gabarit, behind.metOrEnd(), mVectorContour1, ahead.metOrEnd(), step, true,
                              true);
        } else {
            moveBothStretches(gabarit, behind.sideOrEnd(1), mVectorContour1, ahead.sideOrEnd(1), step,
                              heldBehind, heldAhead);
            // The far side runs the other way along the contour, so the ends swap.
            if (farVector)
                moveFarSide(gabarit, ahead.sideOrEnd(2), farVector, behind.sideOrEnd(2), step, heldAhead,
                            heldBehind);
        }
    }
    *status = Status_LevelDone;
}

} // namespace VorSystem
