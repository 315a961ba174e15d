// Centers: the order of their frames and the origin of their levels.

#include <VorFrames/FrameCenter.h>

#include "Preconditions.h"
#include "VORFrames/Messages.h"
#include "VORFrames/Names.h"

#include <VorFrames/ControlCenter.h>
#include <VorFrames/ControlSkeleton.h>
#include <VorFrames/FrameFrame.h>
#include <VorFrames/FrameLink.h>
#include <VorFrames/FrameSet.h>
#include <VorFrames/GestFrames.h>

#include <QHash>
#include <QSet>

namespace VorSystem
{

namespace
{

constexpr char kSourceUnit[] = R"(src\Frames\VORFrames)";

} // namespace

FrameCenter::FrameCenter(const QString &name) : BaseFrame(name) {}

FrameCenter::~FrameCenter()
{
    if (mFrameSet != nullptr)
        mFrameSet->removeCenter(this);
}

eElementFrameType FrameCenter::elementType()
{
    return Element_Center;
}

bool FrameCenter::reevaluate(eFrameReevaluate)
{
    return false; // a center has no values
}

ControlCenter *FrameCenter::ControlCenterCorrespondent()
{
    return dynamic_cast<ControlCenter *>(objectControlCorresponding());
}

ControlBase *FrameCenter::skeletonElementPointedAtUs(ControlSkeleton *skeleton)
{
    return skeleton->centerPointingToTheFrameCenter(this);
}

void FrameCenter::addFrame(FrameFrame *frame, int index)
{
    VOR_REQUIRE(frame != nullptr);
    if (mFrames.contains(frame))
        return;

    if (index < 0) {
        appendNewFrame(frame);
        return;
    }
    mFrames.insert(index, frame);
    if (mFrameLevelZero == nullptr)
        mFrameLevelZero = frame;
}

void FrameCenter::removeFrame(FrameFrame *frame)
{
    if (mFrames.removeAll(frame) == 0) // all of them: a reordering may have repeated the frame
        return;
    if (mFrameLevelZero == frame)
        mFrameLevelZero = nullptr;
}

FrameFrame *FrameCenter::foundFrameAccordingName(const QString &name) const
{
    const NameMatcher wanted(name);
    for (FrameFrame *frame : mFrames) {
        if (wanted.matches(frame->name()))
            return frame;
    }
    return nullptr;
}

void FrameCenter::setFrameLevelZero(FrameFrame *frame)
{
    VOR_REQUIRE(frame != nullptr);
    if (mFrames.lastIndexOf(frame) >= 0) // from the end, where a frame that is just read stands
        mFrameLevelZero = frame;
}

void FrameCenter::adjustNewLevelZero(bool reevaluateSet)
{
    const QListEx<FrameFrame *> frames = mFrames;
    for (FrameFrame *frame : frames) {
        if (!frame->isDefinedInDocument())
            continue;
        mFrameLevelZero = frame;
        if (reevaluateSet) {
            VOR_REQUIRE(mFrameSet != nullptr);
            mFrameSet->reevaluate(Reevaluate_Store);
        }
        return;
    }
}

bool FrameCenter::containsFrameDefines()
{
    for (FrameFrame *frame : qAsConst(mFrames)) {
        if (frame->isDefinedInDocument())
            return true;
    }
    return false;
}

bool FrameCenter::canBeDestroyed(bool report)
{
    if (!BaseFrame::canBeDestroyed(report))
        return false;
    if (mFrames.isEmpty())
        return true;
    if (report)
        showMessage(GestFrames::tr("Cannot delete this center because it still contains frames."));
    return false;
}

bool FrameCenter::canBeDestroyedInBatch()
{
    return canBeDestroyed(false);
}

void FrameCenter::ChangeFrameFrames(QListEx<int> order)
{
    const int count = mFrames.count();
    if (order.count() != count)
        return;

    const QListEx<FrameFrame *> old = mFrames;
    for (const int position : qAsConst(order))
        static_cast<void>(
            old.at(position)); // an index outside the list ends the program before anything changed

    // Where each frame of this center first stands in the set's flat list.
    QHash<FrameFrame *, int> flatPositions;
    QListEx<FrameFrame *> *const flat = mFrameSet == nullptr ? nullptr : mFrameSet->getFramesPtr();
    if (flat != nullptr) {
        for (int position = flat->count() - 1; position >= 0; --position)
            flatPositions.insert(qAsConst(*flat).at(position), position);
    }

    QHash<int, FrameFrame *> replacements; // by flat position; the first one found counts
    for (int i = 0; i < count; ++i) {
        const int from = order.at(i);
        if (from == i)
            continue;
        const int position = flatPositions.value(old.at(i), -1);
        if (position >= 0 && !replacements.contains(position))
            replacements.insert(position, old.at(from));
        mFrames[i] = old.at(from);
    }
    for (auto change = replacements.constBegin(); change != replacements.constEnd(); ++change)
        (*flat)[change.key()] = change.value();

    // A frame lost by a repeated index belongs to whoever holds it.
    const QSet<FrameFrame *> kept(mFrames.constBegin(), mFrames.constEnd());
    for (FrameFrame *frame : old) {
        if (kept.contains(frame) || frame->getFrameCenter() != this)
            continue;
        if (mFrameLevelZero == frame)
            mFrameLevelZero = nullptr;
        if (FrameLink *const link = frame->getLink())
            link->removeFrame(frame);
        frame->setFrameCenter(nullptr);
    }
}

} // namespace VorSystem
