#include "JsonStorage.h"
#include "JsonNumber.h"
#include "JsonWalk.h"

#include <QtDebug>
#include <algorithm>
#include <cstring>
#include <limits>
#include <vector>

namespace VorSystem
{
namespace JsonStorage
{

namespace
{

constexpr int kLongText = 0x8000; // characters from which a text takes two bytes each

qint64 roundedToFour(qint64 bytes)
{
    return (bytes + 3) & ~qint64(3);
}

// Four characters at a time: every key that is written is asked.
bool isLatin1(const QString &text)
{
    constexpr int group = 4;
    constexpr quint64 highBytes = 0xff00ff00ff00ff00;
    const QChar *rest = text.constData();
    int count = text.size();
    for (; count >= group; count -= group, rest += group) {
        quint64 characters;
        std::memcpy(&characters, rest, sizeof characters);
        if ((characters & highBytes) != 0)
            return false;
    }
    return std::all_of(rest, rest + count, [](QChar character) { return character.unicode() <= 0xff; });
}

int asMessageNumber(qint64 bytes)
{
    return static_cast<int>(std::min<qint64>(bytes, std::numeric_limits<int>::max()));
}

} // namespace

qint64 ofText(const QString &text)
{
    const qint64 characters = text.size();
    const bool isNarrow = characters < kLongText && isLatin1(text);
    return roundedToFour(isNarrow ? 2 + characters : 4 + 2 * characters);
}

qint64 ofKey(const QString &key)
{
    return kMemberSlot + ofText(key);
}

qint64 ofTree(const QJsonValue &value)
{
    qint64 bytes = 0;
    std::vector<JsonCursor> open;
    const auto enter = [&](const QJsonValue &entered) {
        if (JsonCursor::isContainer(entered)) {
            bytes += kEmptyContainer;
            open.emplace_back(entered);
        } else if (entered.isString()) {
            bytes += ofText(entered.toString());
        } else if (entered.isDouble()) {
            bytes += ofNumber(JsonNumber::of(entered));
        }
    };

    enter(value);
    while (!open.empty()) {
        JsonCursor &cursor = open.back();
        if (cursor.atEnd()) {
            open.pop_back();
            continue;
        }
        bytes += cursor.isObject() ? ofKey(cursor.key()) : kArraySlot;
        const QJsonValue next = cursor.value();
        cursor.advance(); // before entering, which may move the cursors
        enter(next);
    }
    return bytes;
}

void warnOfRefusal(qint64 storage, qint64 asked)
{
    qWarning("QJson: Document too large to store in data structure %d %d %d", asMessageNumber(storage),
             asMessageNumber(asked), asMessageNumber(kLimit));
}

} // namespace JsonStorage
} // namespace VorSystem
