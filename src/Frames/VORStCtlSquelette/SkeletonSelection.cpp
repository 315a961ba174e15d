// What the user does with the control objects of a piece: clicks, selection, drawing, deletion.

#include <VorFrames/ControlSkeleton.h>

#include "Preconditions.h"

#include <VorConjoin/CDbPointVOR.h>
#include <VorFrames/ControlCenter.h>
#include <VorFrames/ControlFrame.h>
#include <VorFrames/ControlSegment.h>
#include <VorFrames/FrameSet.h>
#include <VorGeo/GeoRectangle.h>
#include <VorGeo/GeoSegment2D.h>

#include <algorithm>

namespace VorSystem
{

namespace
{

constexpr char kSourceUnit[] = R"(src\Frames\VORStCtlSquelette)";

// What an answer names, as the host knows it.
constexpr short kCenter = 13;
constexpr short kFrame = 14;
constexpr short kSegment = 15;

template<class Control>
void answer(short kind, Control *control, short *what, Control **place)
{
    VOR_REQUIRE(what && place);
    *what = kind;
    *place = control;
}

template<class Control>
Control *firstSelected(const QListEx<Control *> &controls)
{
    for (Control *control : controls) {
        if (control->getSelection())
            return control;
    }
    return nullptr;
}

template<class Control>
bool hasBothVectors(const QListEx<Control *> &controls, const CDbPointVOR *first, const CDbPointVOR *second)
{
    return std::any_of(controls.begin(), controls.end(), [=](const Control *control) {
        return control->isVectorContour(first) && control->isVectorContour(second);
    });
}

} // namespace

void ControlSkeleton::adjustSelection(bool selected)
{
    if (mCenter)
        mCenter->setSelected(selected);
    for (ControlFrame *frame : qAsConst(mFrames))
        frame->setSelected(selected);
    for (ControlSegment *segment : qAsConst(mSegments))
        segment->setSelected(selected);
}

bool ControlSkeleton::selectAllFrames() const
{
    return std::all_of(mFrames.begin(), mFrames.end(),
                       [](const ControlFrame *frame) { return frame->getSelection(); });
}

void ControlSkeleton::selectAllControlFrames()
{
    for (ControlFrame *frame : qAsConst(mFrames))
        frame->setSelected(true);
}

void ControlSkeleton::selectInRectangle(const GeoRectangle *rectangle)
{
    VOR_REQUIRE(rectangle);
    if (mCenter)
        mCenter->selectInRectangle(rectangle);
    for (ControlFrame *frame : qAsConst(mFrames))
        frame->selectInRectangle(rectangle);
    for (ControlSegment *segment : qAsConst(mSegments))
        segment->selectInRectangle(rectangle);
}

GeoRectangle ControlSkeleton::getRectBounding() const
{
    GeoRectangle bounds;
    if (mCenter)
        bounds.include(mCenter->getRectBounding());
    for (const ControlFrame *frame : mFrames)
        bounds.include(frame->getRectBounding());
    for (const ControlSegment *segment : mSegments)
        bounds.include(segment->getRectBounding());
    return bounds;
}

bool ControlSkeleton::isEmptySkeleton() const
{
    // Frames cannot outlive the center, so they are not asked.
    return !mCenter && mSegments.isEmpty();
}

void ControlSkeleton::clickWhereAndWhat(const GeoPoint2D *point, double tolerance, double pointTolerance,
                                        short *what, ControlCenter **center, ControlFrame **frame,
                                        ControlSegment **segment) const
{
    VOR_REQUIRE(point);
    if (mCenter && mCenter->isOnCenter(point, tolerance))
        answer(kCenter, mCenter, what, center);

    const auto hit = std::find_if(mFrames.begin(), mFrames.end(), [=](const ControlFrame *candidate) {
        return candidate->isOnFrame(point, tolerance, pointTolerance);
    });
    if (hit != mFrames.end())
        answer(kFrame, *hit, what, frame);

    // Deliberate: all segments are asked, and the last one under the click is the answer.
    for (ControlSegment *candidate : mSegments) {
        if (candidate->segmentIsOn(point, tolerance))
            answer(kSegment, candidate, what, segment);
    }
}

void ControlSkeleton::infoSelectionObject(short *what, ControlCenter **center, ControlFrame **frame,
                                          ControlSegment **segment) const
{
    if (mCenter && mCenter->getSelection())
        answer(kCenter, mCenter, what, center);
    else if (ControlFrame *selectedFrame = firstSelected(mFrames))
        answer(kFrame, selectedFrame, what, frame);
    else if (ControlSegment *selectedSegment = firstSelected(mSegments))
        answer(kSegment, selectedSegment, what, segment);
}

bool ControlSkeleton::isValidForNewFrame(CDbPointVOR *first, CDbPointVOR *second) const
{
    VOR_REQUIRE(first);
    GeoPoint2D end;
    if (second) {
        end = *second;
    } else {
        VOR_REQUIRE(mCenter && mCenter->getVectorContour1() && mCenter->getVectorContour2());
        end = first->projected(*mCenter->getVectorContour1(), *mCenter->getVectorContour2());
    }

    const GeoSegment2D chord(*first, end);
    for (const ControlFrame *frame : mFrames) {
        VOR_REQUIRE(frame->getVectorContour1());
        const GeoSegment2D other(*frame->getVectorContour1(), frame->calculateExtremity());
        GeoPoint2D crossing;
        if (GeoSegment2D::intersectEndpoint(chord, other, crossing) != 0)
            return false;
    }
    return true;
}

bool ControlSkeleton::isValidForNewSegment(CDbPointVOR *first, CDbPointVOR *second) const
{
    return !hasBothVectors(mFrames, first, second) && !hasBothVectors(mSegments, first, second);
}

bool ControlSkeleton::backSpaceLinks()
{
    bool done = false;
    for (ControlFrame *frame : qAsConst(mFrames)) {
        if (frame->getSelection() && frame->getAgreesLink() && frame->getFrameLink()) {
            frame->setAgreesLink(false);
            done = true;
        }
    }
    return done;
}

bool ControlSkeleton::backSpaceSegments()
{
    bool done = false;
    for (int i = 0; i < mSegments.size();) {
        if (!mSegments.at(i)->getSelection()) {
            ++i;
            continue;
        }
        delete mSegments.takeAt(i);
        done = true;
        // Deliberate: the segment behind the deleted one leaves the list, selected or not, and now belongs to
        // whoever holds it. It must not look for this skeleton when it dies.
        if (i < mSegments.size()) {
            ControlBase *lost = mSegments.takeAt(i);
            lost->mSkeleton = nullptr;
        }
    }
    return done;
}

bool ControlSkeleton::backSpaceFrames()
{
    const ControlFrame *origin = getFrameLevelZero();
    const bool all = selectAllFrames();
    bool done = false;
    for (int i = 0; i < mFrames.size();) {
        // The origin goes only together with all the others.
        if (!all && (mFrames.at(i) == origin || !mFrames.at(i)->getSelection())) {
            ++i;
            continue;
        }
        delete mFrames.takeAt(i);
        done = true;
    }
    return done;
}

bool ControlSkeleton::backSpaceCenter()
{
    if (!mCenter || !mCenter->getSelection() || !mFrames.isEmpty())
        return false;
    FrameSet *set = mCenter->getFrameSet();
    delete mCenter;
    mCenter = nullptr;
    if (set)
        set->reevaluate(Reevaluate_Store);
    return true;
}

} // namespace VorSystem
