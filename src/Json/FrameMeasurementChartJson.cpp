// Charts in their stored form. A chart's formula is not stored: it comes back with its values alone.

#include "ValuesJson.h"

#include <VorFrames/FrameMeasurementChart.h>
#include <VorJson/VorJson.h>

namespace VorSystem
{

XJsonObject FrameMeasurementChart::toJson() const
{
    XJsonObject object;
    object.insert(QStringLiteral("measure"), valuesToJson(mMeasures));
    return object;
}

void FrameMeasurementChart::fromJson(const XJsonObject &object)
{
    valuesFromJson(object.value(QStringLiteral("measure")).toObject(), mMeasures);
}

} // namespace VorSystem
