// Which pieces an element concerns: those whose skeletons hold a control object of it.

#include "ControlPlan.h"

#include <VorConjoin/CDbGroupObject.h>
#include <VorConjoin/GabaritObject.h>
#include <VorFrames/ControlSkeleton.h>
#include <VorFrames/FrameCenter.h>
#include <VorFrames/FrameFrame.h>
#include <VorFrames/FrameLink.h>
#include <VorFrames/FrameSegment.h>

#include <algorithm>

namespace VorSystem
{

namespace
{

enum eLockState { Lock_None = 0, Lock_Piece = 1, Lock_CloneOfPiece = 2 };

bool holdsControlObject(const ControlSkeleton &skeleton, BaseFrame *element)
{
    if (const auto *center = dynamic_cast<FrameCenter *>(element))
        return skeleton.centerPointingToTheFrameCenter(center) != nullptr;
    if (const auto *frame = dynamic_cast<FrameFrame *>(element))
        return skeleton.framePointingToTheFrameFrame(frame) != nullptr;
    if (const auto *segment = dynamic_cast<FrameSegment *>(element))
        return skeleton.segmentPointingToTheFrameSegment(segment) != nullptr;
    if (const auto *link = dynamic_cast<FrameLink *>(element)) {
        const QListEx<FrameFrame *> frames = link->getFrames();
        return std::any_of(frames.begin(), frames.end(), [&](const FrameFrame *frame) {
            return frame && skeleton.framePointingToTheFrameFrame(frame);
        });
    }
    return false;
}

bool isConcerned(const CDbGroupObject &piece, BaseFrame *element)
{
    for (GabaritObject *gabarit = piece.firstGabarit(); gabarit; gabarit = gabarit->mNextGabarit) {
        const ControlSkeleton *skeleton = gabarit->controlSkeleton();
        if (skeleton && holdsControlObject(*skeleton, element))
            return true;
    }
    return false;
}

} // namespace

int ControlPlan::lockState(BaseFrame *element) const
{
    if (!element)
        return Lock_None;
    bool isCloneConcerned = false;
    for (const CDbGroupObject *piece : groups()) {
        const CDbGroupObject *source = piece->isClone() ? groupByName(piece->cloneOf()) : nullptr;
        const bool isCloneOfLocked = source && source->isLocked();
        if ((!piece->isLocked() && !isCloneOfLocked) || !isConcerned(*piece, element))
            continue;
        if (piece->isLocked())
            return Lock_Piece;
        isCloneConcerned = true;
    }
    return isCloneConcerned ? Lock_CloneOfPiece : Lock_None;
}

} // namespace VorSystem
