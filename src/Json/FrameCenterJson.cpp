// Centers in their stored form. Their frames come back as the frames are read.

#include <VorFrames/FrameCenter.h>
#include <VorJson/VorJson.h>

namespace VorSystem
{

XJsonObject FrameCenter::toJson() const
{
    XJsonObject object;
    object.insert(QStringLiteral("characteristic"), int(mCharacteristic));
    return object;
}

void FrameCenter::fromJson(const XJsonObject &object)
{
    const int characteristic = object.value(QStringLiteral("characteristic")).toInt(0);
    mCharacteristic = static_cast<eCharacteristicType>(characteristic);
}

} // namespace VorSystem
