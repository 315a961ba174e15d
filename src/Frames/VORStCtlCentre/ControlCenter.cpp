// The axis of a piece: its ends, what may be clicked on it, and the frames beside a point.

#include <VorFrames/ControlCenter.h>

#include "Preconditions.h"

#include <VorConjoin/CDbGroupObject.h>
#include <VorConjoin/CDbPointVOR.h>
#include <VorConjoin/GabaritObject.h>
#include <VorConjoin/Mirror.h>
#include <VorFrames/ControlFrame.h>
#include <VorFrames/ControlSkeleton.h>
#include <VorFrames/FrameCenter.h>
#include <VorFrames/FrameFrame.h>
#include <VorFrames/FrameSet.h>
#include <VorFrames/RightRegion.h>
#include <VorGeo/GeoRectangle.h>

#include <limits>

namespace VorSystem
{

namespace
{

constexpr char kSourceUnit[] = R"(src\Frames\VORStCtlCentre)";

constexpr int kEveryRegion = 2;       // no side is named: every vector is on the right one
constexpr int kKindOffTheOutline = 3; // such vectors stick out of the outline and do not extend the axis

/// The level of a frame at the nest, in centimetres; 0 for one that was never evaluated.
double levelAtNest(FrameFrame *frame)
{
    const ValuesAccordingSizes *levels = frame->getLevelBySizes();
    return levels ? levels->mValues.value(levels->mNestIndex, 0.0) : 0.0;
}

} // namespace

ControlCenter::ControlCenter(ControlSkeleton *skeleton) : ControlBase(nullptr, nullptr, skeleton)
{
    VOR_REQUIRE(mSkeleton);
    enterSkeleton(kEveryRegion);
}

ControlCenter::ControlCenter(CDbPointVOR *vector1, CDbPointVOR *vector2, ControlSkeleton *skeleton,
                             FrameCenter *center)
    : ControlBase(vector1, vector2, skeleton), mFrameCenter(center)
{
    VOR_REQUIRE(mSkeleton);
    // Before the center is entered: a rule that raises leaves no trace in the skeleton.
    ControlCenter::calculateContourDirection1To2();
    enterSkeleton(kEveryRegion);
}

ControlCenter::ControlCenter(CDbPointVOR *vector1, CDbPointVOR *vector2, ControlSkeleton *skeleton,
                             FrameCenter *center, bool direction1To2)
    : ControlBase(vector1, vector2, skeleton, direction1To2), mFrameCenter(center)
{
    VOR_REQUIRE(mSkeleton);
    ControlCenter::calculateContourDirection1To2();
    enterSkeleton(kEveryRegion);
}

ControlCenter::ControlCenter(ControlCenter *source, ControlSkeleton *target)
    : ControlBase(source, target), mFrameCenter(source->mFrameCenter)
{
    VOR_REQUIRE(mSkeleton);
    enterSkeleton(source->mRightRegions ? source->mRightRegions->region() : kEveryRegion);
}

ControlCenter::ControlCenter(const ControlCenter &other)
    : ControlBase(other), mFrameCenter(other.mFrameCenter), mRightRegions(other.mRightRegions)
{
    holdRightRegions();
}

ControlCenter &ControlCenter::operator=(const ControlCenter &other)
{
    if (this == &other)
        return *this;
    ControlBase::operator=(other);
    mFrameCenter = other.mFrameCenter;
    releaseRightRegions();
    mRightRegions = other.mRightRegions;
    holdRightRegions();
    return *this;
}

ControlCenter::~ControlCenter()
{
    releaseRightRegions();
}

void ControlCenter::enterSkeleton(int region)
{
    mRightRegions = new RightRegion(region);
    mSkeleton->setControlCenter(this);
}

void ControlCenter::holdRightRegions()
{
    if (mRightRegions)
        ++mRightRegions->mHolders;
}

void ControlCenter::releaseRightRegions()
{
    if (mRightRegions && --mRightRegions->mHolders == 0)
        delete mRightRegions;
    mRightRegions = nullptr;
}

void ControlCenter::calculateContourDirection1To2()
{
    CDbGroupObject *group = mSkeleton ? mSkeleton->getGroupe() : nullptr;
    if (!group || !group->mMirror || !mVectorContour1)
        return;

    const CDbPointVOR *beside = mVectorContour1->gabaritContourVectorNeighborPoint(true);
    VOR_REQUIRE(beside);
    int side = group->mMirror->getTagByID(*beside);
    if (side == 0)
        side = group->mMirror->getGeometricTag(*beside);
    VOR_REQUIRE(side == 1 || side == 2);
    mContourDirection1To2 = side == 2;
}

FrameSet *ControlCenter::getFrameSet() const
{
    return mFrameCenter ? mFrameCenter->getFrameSet() : nullptr;
}

std::pair<GeoPoint2D, GeoPoint2D> ControlCenter::calculatePositionEnd() const
{
    VOR_REQUIRE(mVectorContour1 && mVectorContour2 && mSkeleton && mSkeleton->getGabarit());
    const GeoPoint2D vector1 = *mVectorContour1;
    const GeoPoint2D vector2 = *mVectorContour2;
    std::pair<GeoPoint2D, GeoPoint2D> ends(vector1, vector2);

    GabaritObject *gabarit = mSkeleton->getGabarit();
    CDbPointVOR *const start = gabarit->gabaritFirstContourVector();
    for (CDbPointVOR *vector = start; vector;) {
        if (vector->mVectorKind != kKindOffTheOutline) {
            GeoPoint2D foot;
            CDbPointVOR::Projection(*vector, vector1, vector2, foot);
            if (!CDbPointVOR::IsBetween(vector1, foot, vector2)) {
                const double from1 = vector1.distance(foot);
                const double from2 = vector2.distance(foot);
                if (from2 >= from1) {
                    if (from1 > vector1.distance(ends.first))
                        ends.first = foot;
                } else if (from2 > vector2.distance(ends.second)) {
                    ends.second = foot;
                }
            }
        }
        vector = gabarit->gabaritNextContourVector();
        if (vector == start)
            break;
    }
    return ends;
}

GeoRectangle ControlCenter::getRectBounding() const
{
    const std::pair<GeoPoint2D, GeoPoint2D> ends = calculatePositionEnd();
    GeoRectangle bounds(ends.first);
    bounds.include(ends.second);
    return bounds;
}

ControlFrame *ControlCenter::getFrameLevelZero() const
{
    VOR_REQUIRE(mFrameCenter);
    FrameFrame *origin = mFrameCenter->getFrameLevelZero();
    ControlBase *control = origin ? origin->objectControlCorresponding() : nullptr;
    if (!control)
        return nullptr;
    auto *frame = dynamic_cast<ControlFrame *>(control);
    VOR_REQUIRE(frame);
    return frame;
}

void ControlCenter::selectInRectangle(const GeoRectangle *rectangle)
{
    VOR_REQUIRE(rectangle);
    if (rectangle->intersect(getRectBounding(), false))
        mSelected = true;
}

bool ControlCenter::isOnCenter(const GeoPoint2D *point, double tolerance) const
{
    VOR_REQUIRE(point);
    const std::pair<GeoPoint2D, GeoPoint2D> ends = calculatePositionEnd();
    return CDbPointVOR::betweenDelta(ends.first, *point, ends.second, tolerance);
}

void ControlCenter::adjustsANewFrameSet(FrameSet *set)
{
    VOR_REQUIRE(set && mFrameCenter);
    const QString name = mFrameCenter->name();
    mFrameCenter = nullptr;
    mFrameCenter = dynamic_cast<FrameCenter *>(set->foundElementAccordingName(name, true));
    VOR_REQUIRE(mFrameCenter);
}

bool ControlCenter::isClickValidToFrame(CDbPointVOR *first, CDbPointVOR *second)
{
    VOR_REQUIRE(mFrameCenter);
    const bool oneSided = mFrameCenter->Caracteristique() == FrameCenter::Characteristic_OneSideDoubled;

    if (!second) {
        if (!first || !oneSided)
            return first != nullptr;
        return isVectorContour(first) || !isVectorContourOfControl(first);
    }

    GabaritObject *gabarit = mSkeleton ? mSkeleton->getGabarit() : nullptr;
    const bool endsInside = gabarit && !gabarit->isVectorContour(second);
    if (oneSided || endsInside)
        return !first || isVectorContourOfControl(first);

    if (!first || isVectorContour(first))
        return false;
    return isVectorContourOfControl(first) != isVectorContourOfControl(second);
}

FrameFrame *ControlCenter::getTheClosestFrame(const GeoPoint2D &point, eLevelType type, FrameFrame *excluded)
{
    const GeoPoint2D end1 = calculatePositionEnd().first;
    const ControlFrame *originControl = getFrameLevelZero();
    if (!originControl)
        return nullptr;
    GeoPoint2D origin;
    originControl->calculateIntersectionOfCenter(&origin);
    const double originDepth = origin.distance(end1);
    const bool farSide = point.distance(end1) > originDepth;
    const double pointLevel = point.distance(origin);

    const auto isOnThePointsSide = [&](FrameFrame *frame) {
        const auto *control = dynamic_cast<ControlFrame *>(frame->objectControlCorresponding());
        if (!control)
            return false;
        GeoPoint2D crossing;
        control->calculateIntersectionOfCenter(&crossing);
        return (crossing.distance(end1) > originDepth) == farSide;
    };

    FrameFrame *above = nullptr;
    FrameFrame *below = nullptr;
    double levelAbove = std::numeric_limits<double>::max();
    double levelBelow = -std::numeric_limits<double>::max();
    const QListEx<FrameFrame *> frames = mFrameCenter->getFrames();
    for (FrameFrame *frame : frames) {
        if (frame == excluded)
            continue;
        if (frame != mFrameCenter->getFrameLevelZero() && !isOnThePointsSide(frame))
            continue;
        const double level = levelAtNest(frame);
        if (pointLevel < level && level < levelAbove) {
            above = frame;
            levelAbove = level;
        }
        if (level < pointLevel && level > levelBelow) {
            below = frame;
            levelBelow = level;
        }
    }

    switch (type) {
    case Level_Above: return above;
    case Level_Below: return below;
    }
    return levelAbove - pointLevel < pointLevel - levelBelow ? above : below;
}

} // namespace VorSystem
