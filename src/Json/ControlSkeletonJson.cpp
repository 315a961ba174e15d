// The control objects of one gabarit in their stored form. The frame sets must be there when they are read.

#include "Preconditions.h"

#include <VorFrames/ControlCenter.h>
#include <VorFrames/ControlFrame.h>
#include <VorFrames/ControlSegment.h>
#include <VorFrames/ControlSkeleton.h>
#include <VorJson/VorJson.h>

namespace VorSystem
{

namespace
{

constexpr char kSourceUnit[] = R"(src\Json\ControlSkeletonJson)";

template<class Control>
XJsonArray controlsToJson(const QListEx<Control *> &controls)
{
    XJsonArray array;
    for (const Control *control : controls)
        array.append(control->toJson());
    return array;
}

} // namespace

XJsonObject ControlSkeleton::toJson() const
{
    XJsonObject object;
    if (mCenter != nullptr)
        object.insert(QStringLiteral("center"), mCenter->toJson());
    object.insert(QStringLiteral("frames"), controlsToJson(mFrames));
    object.insert(QStringLiteral("segments"), controlsToJson(mSegments));
    return object;
}

void ControlSkeleton::fromJson(const XJsonObject &object, GestFrames *manager)
{
    VOR_REQUIRE(mCenter == nullptr && mFrames.isEmpty() && mSegments.isEmpty());

    // Each control object enters the skeleton as it is made, and stays there when its reading fails.
    if (object.contains(QStringLiteral("center"))) {
        auto *const center = new ControlCenter(this);
        center->fromJson(object.value(QStringLiteral("center")).toObject(), manager);
    }

    const bool haveAxis = mCenter != nullptr && mCenter->Get_Frame_Centre() != nullptr;
    const XJsonArray frames = object.value(QStringLiteral("frames")).toArray();
    for (const XJsonValue &item : frames) {
        auto *const frame = new ControlFrame(this);
        frame->fromJson(item.toObject(), manager);
        if (frame->getVectorContour1() == nullptr && frame->getVectorContour2() == nullptr) {
            removeFrame(frame); // it lost its piece
            delete frame;
            continue;
        }
        if (haveAxis) // without one there is no side for vector 1 to be on
            frame->recoverRatingAttaches();
    }

    const XJsonArray segments = object.value(QStringLiteral("segments")).toArray();
    for (const XJsonValue &item : segments) {
        auto *const segment = new ControlSegment(this);
        segment->fromJson(item.toObject(), manager);
        if (segment->getVectorContour1() == nullptr || segment->getVectorContour2() == nullptr) {
            Remove(segment);
            delete segment;
        }
    }
}

} // namespace VorSystem
