// The text form of containers.
#pragma once

#include <QByteArray>
#include <QJsonValue>
#include <VorJson/XJsonValue.h>

namespace VorSystem
{
namespace JsonText
{

/// The text of an array or object in UTF-8. Any depth: the writer does not recurse.
QByteArray of(const QJsonValue &container, XJsonFormat format);

} // namespace JsonText
} // namespace VorSystem
