// What stands in the stored form of a set or a skeleton and is not taken over.
//
// The library reads these two forms, and passes over what it does not know: a key of another version, a text
// where a number belongs. This looks for what it passes over, and changes nothing.
#pragma once

class QJsonObject;

namespace VorSystem
{

class Told;

void tellUnreadOfSet(const QJsonObject &stored, Told &told);
void tellUnreadOfSkeleton(const QJsonObject &stored, Told &told);

} // namespace VorSystem
