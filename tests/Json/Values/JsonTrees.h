// Values for the tests of the storage: the sizes they ought to have, and random trees.
#pragma once

#include "JsonTestSupport.h"

#include <QJsonDocument>

/// An array whose storage is as near to the limit as doubling gets; its memory is small, since all is shared.
inline VorSystem::XJsonValue largestValue()
{
    VorSystem::XJsonArray array = VorSystem::XJsonArray::fromVariantList({});
    for (int doubling = 0; doubling < 22; ++doubling)
        array = VorSystem::XJsonArray({VorSystem::XJsonValue(array), VorSystem::XJsonValue(array)});
    return array;
}

/// 32 * 2^22 - 20: each doubling makes 2n + 20 of n bytes, starting with the 12 of an empty array.
constexpr qint64 largestStorage()
{
    return 134217708;
}

/// The storage as the container has counted it, read off the warning of a write that cannot fit.
template<class Container>
qint64 countedOf(Container container)
{
    static const VorSystem::XJsonValue tooMuch = largestValue();
    const CaughtWarnings warnings;
    if constexpr (std::is_same<Container, VorSystem::XJsonArray>::value) {
        container.append(tooMuch);
        if (warnings.count() == 0) // fits into an empty array, by three bytes
            return container.size() == 1 ? 12 : -1;
    } else {
        container.insert(QString(), tooMuch);
    }
    return QString::fromStdString(warnings.last()).section(QChar(0x20), -3, -3).toLongLong();
}

inline qint64 countedStorage(const VorSystem::XJsonValue &value)
{
    return value.isArray() ? countedOf(value.toArray()) : countedOf(value.toObject());
}

/// The bytes that Qt's former binary form of the container takes, without the eight of its header.
inline qint64 binarySize(const VorSystem::XJsonValue &value)
{
    QT_WARNING_PUSH
    QT_WARNING_DISABLE_DEPRECATED
    const QJsonDocument document = value.isArray() ? QJsonDocument(value.toArray().toJsonArray())
                                                   : QJsonDocument(value.toObject().toJsonObject());
    const int bytes = document.toBinaryData().size();
    return bytes == 0 ? 12 : bytes - 8; // Qt gives nothing for a container without storage
    QT_WARNING_POP
}
