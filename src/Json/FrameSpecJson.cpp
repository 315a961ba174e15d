// Specs in their stored form.

#include "ValuesJson.h"

#include <VorFrames/FrameSpec.h>
#include <VorJson/VorJson.h>

namespace VorSystem
{

XJsonObject FrameSpec::toJson() const
{
    XJsonObject object;
    object.insert(QStringLiteral("measure"), valuesToJson(mMeasures));
    return object;
}

void FrameSpec::fromJson(const XJsonObject &object)
{
    valuesFromJson(object.value(QStringLiteral("measure")).toObject(), mMeasures);
}

} // namespace VorSystem
