// The control objects of one piece: their life, who is where on the contour, and which elements they stand
// for.

#include <VorFrames/ControlSkeleton.h>

#include "Preconditions.h"

#include <VorConjoin/CDbGroupObject.h>
#include <VorConjoin/CDbPointVOR.h>
#include <VorConjoin/GabaritObject.h>
#include <VorFrames/ControlCenter.h>
#include <VorFrames/ControlFrame.h>
#include <VorFrames/ControlSegment.h>
#include <VorFrames/FrameCenter.h>
#include <VorFrames/FrameFrame.h>
#include <VorFrames/FrameLink.h>
#include <VorFrames/FrameSegment.h>
#include <VorFrames/FrameSet.h>
#include <VorFrames/GestFrames.h>

#include <QSet>

namespace VorSystem
{

namespace
{

constexpr char kSourceUnit[] = R"(src\Frames\VORStCtlSquelette)";

/// Deletes what a list owns, each object once although a host may have entered it twice.
template<class Control>
void deleteAll(QListEx<Control *> &owned)
{
    QListEx<Control *> controls;
    controls.swap(owned);
    QSet<Control *> deleted;
    for (Control *control : qAsConst(controls)) {
        if (deleted.contains(control))
            continue;
        deleted.insert(control);
        delete control;
    }
}

} // namespace

ControlSkeleton::ControlSkeleton(CDbGroupObject *group, GabaritObject *gabarit)
    : mGabarit(gabarit), mGroup(group)
{
    VOR_REQUIRE(group && gabarit && !gabarit->controlSkeleton());
    gabarit->setControlSkeleton(this);
}

ControlSkeleton::ControlSkeleton(CDbGroupObject *group, GabaritObject *gabarit, ControlSkeleton *source)
    : mGabarit(gabarit), mGroup(group)
{
    VOR_REQUIRE(group && gabarit && source);
    // Deliberate: an older skeleton of the gabarit is not refused here.
    ControlSkeleton *const older = gabarit->controlSkeleton();
    gabarit->setControlSkeleton(this);
    try {
        if (source->mCenter)
            new ControlCenter(source->mCenter, this);
        const QListEx<ControlFrame *> frames = source->mFrames;
        for (ControlFrame *frame : frames)
            new ControlFrame(frame, this);
        const QListEx<ControlSegment *> segments = source->mSegments;
        for (ControlSegment *segment : segments)
            new ControlSegment(segment, this);
    } catch (...) {
        deleteControls();
        gabarit->setControlSkeleton(older);
        throw;
    }
}

ControlSkeleton::~ControlSkeleton()
{
    deleteControls();
    mGabarit->setControlSkeleton(nullptr);
}

void ControlSkeleton::deleteControls()
{
    delete mCenter;
    mCenter = nullptr;
    deleteAll(mFrames);
    deleteAll(mSegments);
}

void ControlSkeleton::addFrame(ControlFrame *frame)
{
    VOR_REQUIRE(frame);
    mFrames.append(frame);
}

void ControlSkeleton::addControlSegment(ControlSegment *segment)
{
    VOR_REQUIRE(segment);
    mSegments.append(segment);
}

void ControlSkeleton::removeFrame(ControlFrame *frame)
{
    mFrames.removeOne(frame);
}

bool ControlSkeleton::Remove(ControlSegment *segment)
{
    return mSegments.removeOne(segment);
}

ControlCenter *ControlSkeleton::centerPointingToTheFrameCenter(const FrameCenter *center) const
{
    return mCenter && mCenter->Get_Frame_Centre() == center ? mCenter : nullptr;
}

ControlFrame *ControlSkeleton::framePointingToTheFrameFrame(const FrameFrame *frame) const
{
    for (ControlFrame *control : mFrames) {
        if (control->getFrameFrame() == frame)
            return control;
    }
    return nullptr;
}

ControlSegment *ControlSkeleton::segmentPointingToTheFrameSegment(const FrameSegment *segment) const
{
    for (ControlSegment *control : mSegments) {
        if (control->getFrameSegment() == segment)
            return control;
    }
    return nullptr;
}

ControlFrame *ControlSkeleton::controlFrameisVectorContour(CDbPointVOR *const vector) const
{
    for (ControlFrame *frame : mFrames) {
        if (frame->isVectorContour(vector))
            return frame;
    }
    return nullptr;
}

ControlSegment *ControlSkeleton::controlSegmentisVectorContour(CDbPointVOR *const vector) const
{
    for (ControlSegment *segment : mSegments) {
        if (segment->isVectorContour(vector))
            return segment;
    }
    return nullptr;
}

ControlFrame *ControlSkeleton::getControlFrameNeighbor(CDbPointVOR *const vector, bool forward,
                                                       CDbPointVOR **found, CDbPointVOR **last) const
{
    VOR_REQUIRE(found && last);
    *found = nullptr;
    *last = nullptr;
    VOR_REQUIRE(vector && mCenter);
    if (mGroup->isGroupVector(vector)) {
        *last = vector;
        return nullptr;
    }

    const CDbPointVOR *center1 = mCenter->getVectorContour1();
    const CDbPointVOR *center2 = mCenter->getVectorContour2();
    ControlFrame *neighbor = nullptr;
    for (CDbPointVOR *at = vector->gabaritNeighborContourVector(forward);;
         at = at->gabaritNeighborContourVector(forward)) {
        VOR_REQUIRE(at);
        // The vector of the center on which the walk lands is asked too.
        ControlFrame *frame = neighbor ? nullptr : controlFrameisVectorContour(at);
        if (frame && !frame->isVectorContour(vector)) {
            neighbor = frame;
            *found = at;
        }
        if (at == center1 || at == center2) {
            *last = at;
            return neighbor;
        }
        // A contour that comes round without the center would be walked for ever.
        VOR_REQUIRE(at != vector);
    }
}

ControlFrame *ControlSkeleton::getFrameLevelZero() const
{
    return mCenter ? mCenter->getFrameLevelZero() : nullptr;
}

FrameSet *ControlSkeleton::getFrameSet() const
{
    if (mCenter) {
        VOR_REQUIRE(mCenter->Get_Frame_Centre());
        return mCenter->getFrameSet();
    }
    if (mSegments.isEmpty())
        return nullptr;
    FrameSegment *segment = mSegments.first()->getFrameSegment();
    VOR_REQUIRE(segment);
    return segment->getFrameSet();
}

void ControlSkeleton::adjustsANewFrameSets(GestFrames *manager)
{
    FrameSet *present = getFrameSet();
    if (!present)
        return;
    VOR_REQUIRE(manager);
    FrameSet *set = manager->getFrameSetAccordingName(present->name());
    VOR_REQUIRE(set);
    adjustsANewFrameSet(set);
}

void ControlSkeleton::adjustsANewFrameSet(FrameSet *set)
{
    VOR_REQUIRE(set);
    if (mCenter)
        mCenter->adjustsANewFrameSet(set);
    for (ControlFrame *frame : qAsConst(mFrames))
        frame->adjustsANewFrameSet(set);
    for (ControlSegment *segment : qAsConst(mSegments))
        segment->adjustsANewFrameSet(set);
}

void ControlSkeleton::adjustNewLevelZero(bool reevaluateSet)
{
    VOR_REQUIRE(mCenter && mCenter->Get_Frame_Centre());
    mCenter->Get_Frame_Centre()->adjustNewLevelZero(reevaluateSet);
}

void ControlSkeleton::fitAfterRemovalVectorContour(CDbPointVOR *vector)
{
    VOR_REQUIRE(vector);
    const bool centerGoes = mCenter && mCenter->isVectorContour(vector);
    const ControlFrame *origin = centerGoes ? nullptr : getFrameLevelZero();
    const bool everyFrameGoes = centerGoes || (origin && origin->isVectorContour(vector));

    for (int i = 0; i < mFrames.size();) {
        if (everyFrameGoes || mFrames.at(i)->isVectorContour(vector))
            delete mFrames.takeAt(i);
        else
            ++i;
    }
    for (int i = 0; i < mSegments.size();) {
        if (mSegments.at(i)->isVectorContour(vector))
            delete mSegments.takeAt(i);
        else
            ++i;
    }
    if (centerGoes) {
        delete mCenter;
        mCenter = nullptr;
    }
}

bool ControlSkeleton::areSkeletonsLinkes(ControlSkeleton *a, ControlSkeleton *b)
{
    VOR_REQUIRE(a && b);
    if (a == b)
        return false;

    QSet<const FrameLink *> linksOfA;
    for (const ControlFrame *frame : qAsConst(a->mFrames)) {
        if (frame->isInFrameLink())
            linksOfA.insert(frame->getFrameLink());
    }
    for (const ControlFrame *frame : qAsConst(b->mFrames)) {
        if (linksOfA.contains(frame->getFrameLink()) && frame->isInFrameLink())
            return true;
    }
    return false;
}

} // namespace VorSystem
