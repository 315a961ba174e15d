// How many bytes a value takes in the storage of its container, and the limit to it.
#pragma once

#include <QJsonValue>
#include <QString>

namespace VorSystem
{
namespace JsonStorage
{

constexpr qint64 kLimit = 134217727;     // 2^27 - 1 bytes: the storage of one container stays below
constexpr qint64 kEmptyContainer = 12;   // what an array or object takes before its first value
constexpr qint64 kArraySlot = 4;         // of each value of an array, beside the value
constexpr qint64 kMemberSlot = 8;        // of each member of an object, beside key and value
constexpr qint64 kNumber = 8;            // of a number that does not fit into its slot
constexpr double kSlotNumbers = 1 << 26; // integral numbers nearer to zero fit, zero itself does not

/// Bytes of a text: one per character while it is short and Latin-1, else two.
qint64 ofText(const QString &text);

/// Bytes of a member's slot and key.
qint64 ofKey(const QString &key);

/// Bytes of a number.
inline qint64 ofNumber(double number)
{
    const bool isNear = number > -kSlotNumbers && number < kSlotNumbers && number != 0;
    return isNear && static_cast<int>(number) == number ? 0 : kNumber;
}

/// Bytes of a value with all that is in it. Walks the whole of a container, without recursion.
qint64 ofTree(const QJsonValue &value);

/// Warns that a write was refused: the storage at present, the bytes asked for and the limit.
void warnOfRefusal(qint64 storage, qint64 asked);

} // namespace JsonStorage
} // namespace VorSystem
