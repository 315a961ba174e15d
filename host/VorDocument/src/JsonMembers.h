// Members of a stored object that may be missing or of another type: both read as nothing.
#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QString>

namespace VorSystem
{

inline QString textIn(const QJsonObject &object, const char *key)
{
    return object.value(QLatin1String(key)).toString();
}

inline QJsonArray listIn(const QJsonObject &object, const char *key)
{
    return object.value(QLatin1String(key)).toArray();
}

} // namespace VorSystem
