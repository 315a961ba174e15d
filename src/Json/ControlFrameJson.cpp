// A chord of a piece in its stored form. Its element is sought on the center of the skeleton, which is read
// before.

#include "ControlElementJson.h"
#include "Preconditions.h"

#include <VorFrames/ControlCenter.h>
#include <VorFrames/ControlFrame.h>
#include <VorFrames/ControlSkeleton.h>
#include <VorFrames/FrameCenter.h>
#include <VorFrames/FrameFrame.h>
#include <VorFrames/GestFrames.h>
#include <VorJson/VorJson.h>

namespace VorSystem
{

namespace
{

constexpr char kSourceUnit[] = R"(src\Json\ControlFrameJson)";

} // namespace

XJsonObject ControlFrame::toJson() const
{
    XJsonObject object;
    object.insert(QStringLiteral("base"), ControlBase::toJson());
    if (mFrameFrame != nullptr) {
        const FrameCenter *const center = mFrameFrame->getFrameCenter();
        VOR_REQUIRE(center != nullptr);
        const FrameSet *const set = center->getFrameSet();
        VOR_REQUIRE(set != nullptr);
        object.insert(QStringLiteral("frame_name"), mFrameFrame->name());
        object.insert(QStringLiteral("set_name"), set->name());
    }
    object.insert(QStringLiteral("is_agrees_link"), mAgreesLink);
    return object;
}

void ControlFrame::fromJson(const XJsonObject &object, GestFrames *manager)
{
    VOR_REQUIRE(manager != nullptr);

    ControlBase::fromJson(object.value(QStringLiteral("base")).toObject());
    const QString setName = object.value(QStringLiteral("set_name")).toString();
    if (!setName.isEmpty()) {
        const FrameSet *const set = manager->getFrameSetAccordingName(setName);
        VOR_REQUIRE(set != nullptr);
        const ControlCenter *const axis = mSkeleton->getFrameCenter();
        VOR_REQUIRE(axis != nullptr && axis->Get_Frame_Centre() != nullptr);
        const QString name = object.value(QStringLiteral("frame_name")).toString();
        const QString fullName = axis->Get_Frame_Centre()->name() + QLatin1Char(':') + name;
        FrameFrame *const frame = elementOfKind<FrameFrame>(*set, fullName, Element_Frame);
        VOR_REQUIRE(frame != nullptr);
        mFrameFrame = frame;
    }
    mAgreesLink = object.value(QStringLiteral("is_agrees_link")).toBool(false);
}

} // namespace VorSystem
