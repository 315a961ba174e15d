// The axis of a piece in its stored form.

#include "ControlElementJson.h"
#include "Preconditions.h"

#include <VorFrames/ControlCenter.h>
#include <VorFrames/FrameCenter.h>
#include <VorFrames/GestFrames.h>
#include <VorFrames/RightRegion.h>
#include <VorJson/VorJson.h>

namespace VorSystem
{

namespace
{

constexpr char kSourceUnit[] = R"(src\Json\ControlCenterJson)";

} // namespace

XJsonObject ControlCenter::toJson() const
{
    XJsonObject object;
    object.insert(QStringLiteral("base"), ControlBase::toJson());
    if (mFrameCenter == nullptr)
        return object;

    const FrameSet *const set = mFrameCenter->getFrameSet();
    VOR_REQUIRE(set != nullptr);
    VOR_REQUIRE(mRightRegions != nullptr);
    XJsonObject rightRegions;
    rightRegions.insert(QStringLiteral("region"), mRightRegions->region());
    object.insert(QStringLiteral("center_name"), mFrameCenter->name());
    object.insert(QStringLiteral("right_regions"), rightRegions);
    object.insert(QStringLiteral("set_name"), set->name());
    return object;
}

void ControlCenter::fromJson(const XJsonObject &object, GestFrames *manager)
{
    VOR_REQUIRE(manager != nullptr);

    ControlBase::fromJson(object.value(QStringLiteral("base")).toObject());
    const QString setName = object.value(QStringLiteral("set_name")).toString();
    if (setName.isEmpty())
        return; // a center without an element

    const FrameSet *const set = manager->getFrameSetAccordingName(setName);
    VOR_REQUIRE(set != nullptr);
    const QString name = object.value(QStringLiteral("center_name")).toString();
    FrameCenter *const center = elementOfKind<FrameCenter>(*set, name, Element_Center);
    VOR_REQUIRE(center != nullptr);
    mFrameCenter = center;

    VOR_REQUIRE(mRightRegions != nullptr);
    const XJsonObject rightRegions = object.value(QStringLiteral("right_regions")).toObject();
    mRightRegions->setRegion(rightRegions.value(QStringLiteral("region")).toInt(0));
}

} // namespace VorSystem
