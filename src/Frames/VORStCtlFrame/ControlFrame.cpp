// A chord of the piece: where it crosses the axis, what is clicked on it, and its element.

#include <VorFrames/ControlFrame.h>

#include "Preconditions.h"
#include "VORFrames/ControlIndex.h"

#include <VorConjoin/CDbGroupObject.h>
#include <VorConjoin/CDbPointVOR.h>
#include <VorConjoin/GabaritObject.h>
#include <VorFrames/ControlCenter.h>
#include <VorFrames/ControlSkeleton.h>
#include <VorFrames/FrameCenter.h>
#include <VorFrames/FrameFrame.h>
#include <VorFrames/FrameLink.h>
#include <VorFrames/FrameSet.h>
#include <VorGeo/GeoRectangle.h>

#include <utility>

namespace VorSystem
{

namespace
{

constexpr char kSourceUnit[] = R"(src\Frames\VORStCtlFrame)";

} // namespace

ControlFrame::ControlFrame(ControlSkeleton *skeleton) : ControlBase(nullptr, nullptr, skeleton)
{
    enterSkeleton();
}

ControlFrame::ControlFrame(CDbPointVOR *vector1, CDbPointVOR *vector2, ControlSkeleton *skeleton,
                           FrameFrame *frame)
    : ControlBase(vector1, vector2, skeleton), mFrameFrame(frame)
{
    recoverRatingAttaches();
    enterSkeleton();
}

ControlFrame::ControlFrame(CDbPointVOR *vector1, CDbPointVOR *vector2, ControlSkeleton *skeleton,
                           FrameFrame *frame, bool direction1To2)
    : ControlBase(vector1, vector2, skeleton, direction1To2), mFrameFrame(frame)
{
    recoverRatingAttaches();
    enterSkeleton();
}

ControlFrame::ControlFrame(ControlFrame *source, ControlSkeleton *target)
    : ControlBase(source, target), mFrameFrame(source->mFrameFrame), mAgreesLink(source->mAgreesLink)
{
    enterSkeleton();
}

ControlFrame::~ControlFrame()
{
    if (mSkeleton)
        mSkeleton->removeFrame(this);
}

// The last thing a constructor does: one that raises before leaves nothing in the skeleton.
void ControlFrame::enterSkeleton()
{
    VOR_REQUIRE(mSkeleton);
    mSkeleton->addFrame(this);
}

CDbGroupObject *ControlFrame::group() const
{
    return mSkeleton ? mSkeleton->getGroupe() : nullptr;
}

FrameCenter *ControlFrame::frameCenter() const
{
    VOR_REQUIRE(mFrameFrame && mFrameFrame->getFrameCenter());
    return mFrameFrame->getFrameCenter();
}

ControlFrame::Axis ControlFrame::axis() const
{
    const ControlCenter *center = mSkeleton ? mSkeleton->getFrameCenter() : nullptr;
    VOR_REQUIRE(center && center->getVectorContour(1) && center->getVectorContour(2));
    return {center->getVectorContour(1), center->getVectorContour(2)};
}

bool ControlFrame::containsVector(const CDbPointVOR *vector)
{
    return isVectorContour(vector);
}

bool ControlFrame::isLevelZero() const
{
    return mFrameFrame && mFrameFrame->isLevelZero();
}

FrameLink *ControlFrame::getFrameLink() const
{
    return mFrameFrame ? mFrameFrame->getLink() : nullptr;
}

bool ControlFrame::isInFrameLink() const
{
    FrameLink *link = getFrameLink();
    return link && link->isDefinedInDocument();
}

bool ControlFrame::isInternalFrame() const
{
    const CDbGroupObject *piece = group();
    if (!piece)
        return false;
    const auto isInside = [piece](const CDbPointVOR *vector) {
        GabaritObject *gabarit = nullptr;
        return vector && !piece->isVectorContour(vector, &gabarit);
    };
    return isInside(mVectorContour1) || isInside(mVectorContour2);
}

void ControlFrame::calculateIntersectionOfCenter(GeoPoint2D *out) const
{
    VOR_REQUIRE(out && mVectorContour1);
    if (isMeasureZero()) {
        *out = GeoPoint2D(mVectorContour1->x(), mVectorContour1->y());
        return;
    }

    const auto [center1, center2] = axis();
    if (!mVectorContour2) {
        CDbPointVOR::Projection(*mVectorContour1, *center1, *center2, *out);
    } else if (!CDbPointVOR::isParallelLine(*center1, *center2, *mVectorContour1, *mVectorContour2)) {
        CDbPointVOR::interLine(*center1, *center2, *mVectorContour1, *mVectorContour2, *out);
    } else {
        // A chord along the axis has no crossing of its own; it takes the middle of the axis.
        const double half = center1->distance(*center2) * 0.5;
        CDbPointVOR::vectorManagementUnitDist(*center1, half, *center2, *center1, *out);
    }
}

GeoPoint2D ControlFrame::calculateExtremity() const
{
    if (mVectorContour2)
        return GeoPoint2D(mVectorContour2->x(), mVectorContour2->y());
    VOR_REQUIRE(mVectorContour1);
    const auto [center1, center2] = axis();
    return mVectorContour1->projected(*center1, *center2);
}

GeoRectangle ControlFrame::getRectBounding() const
{
    VOR_REQUIRE(mVectorContour1);
    GeoRectangle bounds(*mVectorContour1);
    if (mVectorContour2) {
        bounds.include(*mVectorContour2);
    } else {
        GeoPoint2D crossing;
        calculateIntersectionOfCenter(&crossing);
        bounds.include(crossing);
    }
    return bounds;
}

bool ControlFrame::isOnFrame(const GeoPoint2D *point, double tolerance, double pointTolerance) const
{
    VOR_REQUIRE(point && mVectorContour1);
    if (isMeasureZero())
        return CDbPointVOR::equalVectorDelta(*mVectorContour1, *point, pointTolerance);
    if (mVectorContour2)
        return CDbPointVOR::betweenDelta(*mVectorContour1, *point, *mVectorContour2, tolerance);
    GeoPoint2D crossing;
    calculateIntersectionOfCenter(&crossing);
    return CDbPointVOR::betweenDelta(*mVectorContour1, *point, crossing, tolerance);
}

void ControlFrame::recoverRatingAttaches()
{
    VOR_REQUIRE(mSkeleton);
    if (mSkeleton->mFrames.isEmpty())
        return;
    const ControlFrame *first = mSkeleton->mFrames.first();
    if (first == this)
        return;

    const ControlCenter *center = mSkeleton->getFrameCenter();
    VOR_REQUIRE(center && center->Get_Frame_Centre());
    if (center->Get_Frame_Centre()->Caracteristique() == FrameCenter::Characteristic_OneSideDoubled)
        return;

    const bool firstOnStretch = center->isVectorContourOfControl(first->mVectorContour1);
    const bool onStretch = center->isVectorContourOfControl(mVectorContour1);
    GabaritObject *gabarit = mSkeleton->getGabarit();
    if (firstOnStretch != onStretch && gabarit && gabarit->isVectorContour(mVectorContour1)) {
        std::swap(mVectorContour1, mVectorContour2);
        mContourDirection1To2 = !mContourDirection1To2;
    }
}

void ControlFrame::setSelectionLink(bool selected)
{
    VOR_REQUIRE(isInFrameLink());
    const QListEx<FrameFrame *> frames = getFrameLink()->getFrames();
    for (FrameFrame *frame : frames) {
        ControlBase *control = frame->objectControlCorresponding();
        VOR_REQUIRE(control);
        control->setSelected(selected);
        // A link may span pieces, so other pieces light up too.
        if (selected && control->getSkeleton() && control->getSkeleton()->getGroupe())
            control->getSkeleton()->getGroupe()->setSelected(true);
    }
}

void ControlFrame::selectInRectangle(const GeoRectangle *rectangle)
{
    VOR_REQUIRE(rectangle);
    if (!rectangle->intersect(getRectBounding(), false))
        return;
    mSelected = true;
    if (isInFrameLink())
        setSelectionLink(true);
}

void ControlFrame::adjustsANewFrameSet(FrameSet *set)
{
    VOR_REQUIRE(set && mFrameFrame);
    auto *frame = dynamic_cast<FrameFrame *>(set->foundElementAccordingName(mFrameFrame->fullName(), true));
    VOR_REQUIRE(frame);
    mFrameFrame = frame;
}

ControlFrame *ControlFrame::getFrameLevelZero(ControlLookup *controls) const
{
    FrameFrame *origin = frameCenter()->getFrameLevelZero();
    VOR_REQUIRE(origin);
    ControlBase *control = controls ? controls->of(origin) : origin->objectControlCorresponding();
    if (!control)
        return nullptr;
    auto *frame = dynamic_cast<ControlFrame *>(control);
    VOR_REQUIRE(frame);
    return frame;
}

} // namespace VorSystem
