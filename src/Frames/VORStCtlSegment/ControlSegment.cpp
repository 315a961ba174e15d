// A stretch of contour: its length, its place under a click, and its element.

#include <VorFrames/ControlSegment.h>

#include "Preconditions.h"
#include "VORStCtlBase/Sizes.h"
#include "ZeroTest.h"

#include <VorConjoin/CDbPointVOR.h>
#include <VorConjoin/GabaritObject.h>
#include <VorFrames/ControlCenter.h>
#include <VorFrames/ControlSkeleton.h>
#include <VorFrames/FrameSet.h>
#include <VorGeo/GeoRectangle.h>

#include <cmath>
#include <optional>
#include <utility>

namespace VorSystem
{

namespace
{

constexpr char kSourceUnit[] = R"(src\Frames\VORStCtlSegment)";

constexpr double kAxisAngle = 0.17453292519943295; // radians: 10 degrees off an axis still lies along it

} // namespace

const double ControlSegment::mTestShifts = std::tan(kAxisAngle);

ControlSegment::ControlSegment(ControlSkeleton *skeleton) : ControlBase(nullptr, nullptr, skeleton)
{
    enterSkeleton();
}

ControlSegment::ControlSegment(CDbPointVOR *vector1, CDbPointVOR *vector2, ControlSkeleton *skeleton,
                               FrameSegment *segment)
    : ControlBase(vector1, vector2, skeleton), mFrameSegment(segment)
{
    enterSkeleton();
}

ControlSegment::ControlSegment(ControlSegment *source, ControlSkeleton *target)
    : ControlBase(source, target), mFrameSegment(source->mFrameSegment)
{
    enterSkeleton();
}

ControlSegment::~ControlSegment()
{
    if (mSkeleton)
        mSkeleton->Remove(this);
}

void ControlSegment::enterSkeleton()
{
    VOR_REQUIRE(mSkeleton);
    mSkeleton->addControlSegment(this);
}

CDbGroupObject *ControlSegment::group() const
{
    return mSkeleton ? mSkeleton->getGroupe() : nullptr;
}

GabaritObject *ControlSegment::gabarit() const
{
    return mSkeleton ? mSkeleton->getGabarit() : nullptr;
}

const ControlCenter *ControlSegment::center() const
{
    return mSkeleton ? mSkeleton->getFrameCenter() : nullptr;
}

FrameSegment::eDisplaceType ControlSegment::defectMovesAlong() const
{
    VOR_REQUIRE(mVectorContour1 && mVectorContour2);
    const double dx = mVectorContour2->x() - mVectorContour1->x();
    const double dy = mVectorContour2->y() - mVectorContour1->y();
    if (countsAsZero(dx))
        return FrameSegment::Displace_AlongY;
    if (countsAsZero(dy))
        return FrameSegment::Displace_AlongX;
    if (std::abs(dx / dy) < mTestShifts)
        return FrameSegment::Displace_AlongY;
    if (std::abs(dy / dx) < mTestShifts)
        return FrameSegment::Displace_AlongX;
    return FrameSegment::Displace_AlongLine;
}

GeoRectangle ControlSegment::getRectBounding() const
{
    VOR_REQUIRE(mVectorContour2);
    GeoRectangle bounds(*mVectorContour2);
    const CDbPointVOR *vector = mVectorContour1;
    while (vector && vector != mVectorContour2) {
        bounds.include(*vector);
        vector = vector->gabaritNeighborContourVector(mContourDirection1To2);
        // A contour without vector 2 is walked once.
        if (vector == mVectorContour1)
            break;
    }
    return bounds;
}

void ControlSegment::selectInRectangle(const GeoRectangle *rectangle)
{
    VOR_REQUIRE(rectangle);
    if (rectangle->intersect(getRectBounding(), false))
        mSelected = true;
}

bool ControlSegment::containsVector(const CDbPointVOR *vector)
{
    if (isVectorContour(vector))
        return true;
    VOR_REQUIRE(gabarit());
    return gabarit()->gabaritVectorBetween2Vectors(vector, mVectorContour1, mVectorContour2,
                                                   mContourDirection1To2);
}

void ControlSegment::adjustsANewFrameSet(FrameSet *set)
{
    VOR_REQUIRE(set && mFrameSegment);
    auto *segment = dynamic_cast<FrameSegment *>(set->foundElementAccordingName(mFrameSegment->name(), true));
    VOR_REQUIRE(segment);
    mFrameSegment = segment;
}

bool ControlSegment::segmentIsOn(const GeoPoint2D *point, double tolerance) const
{
    VOR_REQUIRE(point && mVectorContour2);
    const CDbPointVOR *vector = mVectorContour1;
    while (vector && vector != mVectorContour2) {
        const CDbPointVOR *next = vector->gabaritNeighborContourVector(mContourDirection1To2);
        if (!next)
            return false;
        if (CDbPointVOR::betweenDelta(*vector, *point, *next, tolerance))
            return true;
        vector = next;
        if (vector == mVectorContour1)
            return false;
    }
    return false;
}

double ControlSegment::getMeasures(short size)
{
    if (!mVectorContour1 || !mVectorContour2)
        return 0.0;
    VOR_REQUIRE(gabarit());
    const GradationData *gradation = mFrameSegment ? gradationOf(mFrameSegment->document()) : nullptr;
    const int nest = gradation ? gradation->mediumIndex() - 1 : -1;
    std::optional<ReadingOfSize<VectorsOfGabarit>> reading;
    if (size >= 0 && size != nest)
        reading.emplace(VectorsOfGabarit(gabarit()), gradation, sizeNumber(size));
    return lengthAsItStands();
}

QListEx<double> ControlSegment::getMeasures(const GradationData *gradation)
{
    VOR_REQUIRE(gabarit());
    return readEverySize(VectorsOfGabarit(gabarit()), gradation, [this] { return lengthAsItStands(); });
}

double ControlSegment::lengthAsItStands() const
{
    if (!mVectorContour1 || !mVectorContour2)
        return 0.0;
    return gabarit()->getContourLength(mVectorContour1, mVectorContour2, mVectorContour2,
                                       mContourDirection1To2);
}

void ControlSegment::changeSegmentOrientation()
{
    std::swap(mVectorContour1, mVectorContour2);
    mContourDirection1To2 = false;
    if (gabarit() && mVectorContour1 && mVectorContour2 && mVectorContour1 != mVectorContour2) {
        double length = 0.0;
        gabarit()->contourDirection(mVectorContour1, mVectorContour2, &mContourDirection1To2, &length);
    }
}

} // namespace VorSystem
