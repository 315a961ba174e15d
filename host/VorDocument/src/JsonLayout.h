// JSON as text for people: what fits stands on one line.
#pragma once

#include <QByteArray>

class QJsonValue;

namespace VorSystem
{

/// The text of a value, members sorted by key, doubles as short as they read back the same; ended by a
/// newline.
QByteArray jsonLayout(const QJsonValue &value);

} // namespace VorSystem
