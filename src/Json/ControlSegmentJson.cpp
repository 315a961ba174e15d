// A stretch of contour in its stored form.

#include "ControlElementJson.h"
#include "Preconditions.h"

#include <VorFrames/ControlSegment.h>
#include <VorFrames/GestFrames.h>
#include <VorJson/VorJson.h>

namespace VorSystem
{

namespace
{

constexpr char kSourceUnit[] = R"(src\Json\ControlSegmentJson)";

} // namespace

XJsonObject ControlSegment::toJson() const
{
    XJsonObject object;
    object.insert(QStringLiteral("base"), ControlBase::toJson());
    if (mFrameSegment == nullptr)
        return object;

    const FrameSet *const set = mFrameSegment->getFrameSet();
    VOR_REQUIRE(set != nullptr);
    object.insert(QStringLiteral("segment_name"), mFrameSegment->name());
    object.insert(QStringLiteral("set_name"), set->name());
    return object;
}

void ControlSegment::fromJson(const XJsonObject &object, GestFrames *manager)
{
    VOR_REQUIRE(manager != nullptr);

    ControlBase::fromJson(object.value(QStringLiteral("base")).toObject());
    const QString setName = object.value(QStringLiteral("set_name")).toString();
    if (setName.isEmpty())
        return; // a segment without an element

    const FrameSet *const set = manager->getFrameSetAccordingName(setName);
    VOR_REQUIRE(set != nullptr);
    const QString name = object.value(QStringLiteral("segment_name")).toString();
    FrameSegment *const segment = elementOfKind<FrameSegment>(*set, name, Element_Segment);
    VOR_REQUIRE(segment != nullptr);
    mFrameSegment = segment;
}

} // namespace VorSystem
