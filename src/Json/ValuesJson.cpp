// Values per size in their stored form.

#include "ValuesJson.h"

#include <VorFrames/ValuesAccordingSizes.h>
#include <VorJson/VorJson.h>

#include <limits>

namespace VorSystem
{

namespace
{

// In the order of the keys, which spares the object from moving members.
XJsonObject valuesToJson(const ValuesAccordingSizes &measures, const ValuesAccordingSizes *levels)
{
    XJsonObject object;
    object.insert(QStringLiteral("index_medium"), int(measures.mNestIndex));
    if (levels != nullptr)
        object.insert(QStringLiteral("levels"), XJsonArray::fromNumbers(levels->mValues));
    object.insert(QStringLiteral("measures"), XJsonArray::fromNumbers(measures.mValues));
    return object;
}

// A cast would turn a position that is far too large into one that looks sound.
short nestFromJson(const XJsonValue &value)
{
    const int nest = value.toInt(0);
    using Limits = std::numeric_limits<short>;
    return nest < Limits::min() || nest > Limits::max() ? short(0) : static_cast<short>(nest);
}

// Appends the numbers under key, if there is such a list.
void appendValues(const XJsonObject &object, const QString &key, short nest, ValuesAccordingSizes &values)
{
    const XJsonValue stored = object.value(key);
    if (stored.isUndefined())
        return;
    const XJsonArray numbers = stored.toArray();
    const int count = numbers.size();
    values.mValues.reserve(values.mValues.count() + count);
    for (int size = 0; size < count; ++size)
        values.mValues.append(numbers.at(size).toDouble(0.0));
    values.mNestIndex = nest;
}

void valuesFromJson(const XJsonObject &object, ValuesAccordingSizes &measures, ValuesAccordingSizes *levels)
{
    const short nest = nestFromJson(object.value(QStringLiteral("index_medium")));
    appendValues(object, QStringLiteral("measures"), nest, measures);
    if (levels != nullptr)
        appendValues(object, QStringLiteral("levels"), nest, *levels);
}

} // namespace

XJsonObject valuesToJson(const ValuesAccordingSizes &measures)
{
    return valuesToJson(measures, nullptr);
}

XJsonObject valuesToJson(const ValuesAccordingSizes &measures, const ValuesAccordingSizes &levels)
{
    return valuesToJson(measures, &levels);
}

void valuesFromJson(const XJsonObject &object, ValuesAccordingSizes &measures)
{
    valuesFromJson(object, measures, nullptr);
}

void valuesFromJson(const XJsonObject &object, ValuesAccordingSizes &measures, ValuesAccordingSizes &levels)
{
    valuesFromJson(object, measures, &levels);
}

} // namespace VorSystem
