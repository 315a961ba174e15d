// Segments in their stored form.

#include "ValuesJson.h"

#include <VorFrames/FrameSegment.h>
#include <VorJson/VorJson.h>

namespace VorSystem
{

XJsonObject FrameSegment::toJson() const
{
    XJsonObject object;
    object.insert(QStringLiteral("displace"), int(mDisplace));
    object.insert(QStringLiteral("influence_area_percent"), mInfluenceAreaPercent);
    object.insert(QStringLiteral("measure"), valuesToJson(mMeasures));
    return object;
}

void FrameSegment::fromJson(const XJsonObject &object)
{
    mInfluenceAreaPercent = object.value(QStringLiteral("influence_area_percent")).toDouble(0.0);
    mDisplace = static_cast<eDisplaceType>(object.value(QStringLiteral("displace")).toInt(0));
    valuesFromJson(object.value(QStringLiteral("measure")).toObject(), mMeasures);
}

} // namespace VorSystem
