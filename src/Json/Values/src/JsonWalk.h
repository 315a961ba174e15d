// Reading a container of any depth without recursion: a walker keeps one cursor per open container.
#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>

namespace VorSystem
{

/// A position in one container, an array or an object.
class JsonCursor
{
public:
    explicit JsonCursor(const QJsonValue &container)
        : mIsObject(container.isObject()), mArray(container.toArray()), mObject(container.toObject())
    {
    }

    static bool isContainer(const QJsonValue &value) { return value.isArray() || value.isObject(); }

    bool isObject() const { return mIsObject; }
    int size() const { return mIsObject ? mObject.size() : mArray.size(); }
    bool atEnd() const { return mNext == size(); }
    QString key() const { return (mObject.constBegin() + mNext).key(); }
    QJsonValue value() const { return mIsObject ? (mObject.constBegin() + mNext).value() : mArray.at(mNext); }
    void advance() { ++mNext; }

    /// True when both stand in one and the same storage: their contents need no comparing.
    bool sharesStorageWith(const JsonCursor &other) const;

    /// True when others hold the container too; the cursor then stands in a copy of its own.
    bool isShared();

private:
    bool mIsObject;
    int mNext = 0;
    QJsonArray mArray; // the one of the two that is not meant stays without storage
    QJsonObject mObject;
};

} // namespace VorSystem
