// Links in their stored form. Each frame names its link, and fills it as it is read.

#include "ValuesJson.h"

#include <VorFrames/FrameLink.h>
#include <VorJson/VorJson.h>

namespace VorSystem
{

XJsonObject FrameLink::toJson() const
{
    XJsonObject object;
    object.insert(QStringLiteral("measure"), valuesToJson(mMeasures, mLevels));
    object.insert(QStringLiteral("type"), int(mMeasureType));
    return object;
}

void FrameLink::fromJson(const XJsonObject &object)
{
    mMeasureType = static_cast<eMeasureType>(object.value(QStringLiteral("type")).toInt(0));
    valuesFromJson(object.value(QStringLiteral("measure")).toObject(), mMeasures, mLevels);
}

} // namespace VorSystem
