#include <VorJson/XJsonObject.h>

#include "JsonStorage.h"
#include "JsonText.h"

#include <algorithm>

namespace VorSystem
{

namespace
{

// As QString compares, without the cost of a call for keys that differ at their first letters.
bool isLess(const QString &left, const QString &right)
{
    return std::lexicographical_compare(left.begin(), left.end(), right.begin(), right.end());
}

} // namespace

inline bool XJsonObject::admit(qint64 asked, qint64 freed, int replacedIndex)
{
    if (mStorage == XJsonValue::kUncounted)
        mStorage = JsonStorage::ofTree(mObject);
    if (mStorage + asked - freed < JsonStorage::kLimit) {
        mStorage += asked - freed;
        return true;
    }

    // The slot and key of a replaced member are asked for and freed, which only a refusal tells.
    const qint64 keyBytes = holdsIndex(replacedIndex) ? JsonStorage::ofKey(keyAt(replacedIndex)) : 0;
    JsonStorage::warnOfRefusal(mStorage, keyBytes + asked);
    return false;
}

inline int XJsonObject::insertNew(const QString &key, const XJsonValue &value)
{
    giveStorage();
    if (!admit(JsonStorage::ofKey(key) + value.storageInside()))
        return size();
    surround(value);
    return mObject.insert(key, value.mValue) - QJsonObject::iterator(&mObject, 0);
}

XJsonObject::XJsonObject(std::initializer_list<QPair<QString, XJsonValue>> members)
{
    for (const QPair<QString, XJsonValue> &member : members)
        insert(member.first, member.second);
}

XJsonObject XJsonObject::fromVariantMap(const QVariantMap &variants)
{
    XJsonObject object;
    for (auto member = variants.constBegin(); member != variants.constEnd(); ++member)
        object.insert(member.key(), XJsonValue::fromVariant(member.value()));
    return object;
}

XJsonObject XJsonObject::fromVariantHash(const QVariantHash &variants)
{
    XJsonObject object;
    for (auto member = variants.constBegin(); member != variants.constEnd(); ++member)
        object.insert(member.key(), XJsonValue::fromVariant(member.value()));
    return object;
}

XJsonObject XJsonObject::fromJsonObject(const QJsonObject &object)
{
    XJsonObject converted;
    for (auto member = object.constBegin(); member != object.constEnd(); ++member)
        converted.insert(member.key(), XJsonValue::fromJsonValue(member.value()));
    return converted;
}

QVariantMap XJsonObject::toVariantMap() const
{
    QVariantMap variants;
    for (const_iterator member = begin(); member != end(); ++member)
        variants.insert(member.key(), member.value().toVariant());
    return variants;
}

QVariantHash XJsonObject::toVariantHash() const
{
    QVariantHash variants;
    for (const_iterator member = begin(); member != end(); ++member)
        variants.insert(member.key(), member.value().toVariant());
    return variants;
}

QJsonObject XJsonObject::toJsonObject() const
{
    QJsonObject object;
    for (const_iterator member = begin(); member != end(); ++member)
        object.insert(member.key(), member.value().toJsonValue());
    return object;
}

QByteArray XJsonObject::toText(XJsonFormat format) const
{
    return JsonText::of(mObject, format);
}

XJsonValueRef XJsonObject::operator[](const QString &key)
{
    const int index = positionToWrite(key);
    return XJsonValueRef(this, index < size() ? index : insertNew(key, XJsonValue()));
}

XJsonObject::iterator XJsonObject::insert(const QString &key, const XJsonValue &value)
{
    giveStorage();
    if (value.mStorage < 0 && value.isUndefined()) {
        remove(key);
        return end();
    }

    const int count = size();
    const int index = positionToWrite(key);
    if (index == count)
        return iterator(this, insertNew(key, value));
    return iterator(this, writeAt(index, value) ? index : count);
}

void XJsonObject::remove(const QString &key)
{
    take(key);
}

XJsonValue XJsonObject::take(const QString &key)
{
    return takeAt(position(key));
}

XJsonObject::iterator XJsonObject::erase(iterator place)
{
    takeAt(place.mIndex);
    return place;
}

XJsonObject::iterator XJsonObject::begin()
{
    giveStorage();
    return iterator(this, 0);
}

XJsonObject::iterator XJsonObject::end()
{
    giveStorage();
    return iterator(this, size());
}

XJsonObject::iterator XJsonObject::find(const QString &key)
{
    giveStorage();
    return iterator(this, position(key));
}

bool XJsonObject::operator==(const XJsonObject &other) const
{
    return XJsonValue(*this) == XJsonValue(other);
}

QString XJsonObject::keyAt(int index) const
{
    return holdsIndex(index) ? (mObject.constBegin() + index).key() : QString();
}

XJsonValue XJsonObject::valueAt(int index) const
{
    return XJsonValue(mObject, index, mLevels - 1);
}

int XJsonObject::position(const QString &key) const
{
    return mObject.constFind(key) - mObject.constBegin();
}

int XJsonObject::positionToWrite(const QString &key)
{
    // Keys mostly come in ascending order, and one that is greater than all needs no search.
    const int count = size();
    if (count != 0 && (mGreatestKey.isNull() || !isLess(mGreatestKey, key)))
        return position(key);
    mGreatestKey = key;
    return count;
}

void XJsonObject::giveStorage()
{
    if (!hasStorage())
        mStorage = JsonStorage::kEmptyContainer;
}

void XJsonObject::surround(const XJsonValue &value)
{
    mLevels = std::max(mLevels, XJsonValue::levelsAround(value));
}

void XJsonObject::letGo()
{
    QJsonValue value = std::exchange(mObject, QJsonObject());
    XJsonValue::letGo(value);
}

bool XJsonObject::writeAt(int index, const XJsonValue &value)
{
    if (!holdsIndex(index))
        return false;
    if (value.mStorage < 0 && value.isUndefined()) {
        takeAt(index);
        return false;
    }

    const qint64 asked = value.storageInside();
    const XJsonValue old = valueAt(index); // dies when it is out of the object
    if (!admit(asked, old.storageInside(), index))
        return false;
    QJsonValueRef(&mObject, index) = value.mValue;
    surround(value);
    return true;
}

XJsonValue XJsonObject::takeAt(int index)
{
    if (!holdsIndex(index))
        return XJsonValue::Undefined;
    XJsonValue taken = valueAt(index);
    if (mStorage != XJsonValue::kUncounted) {
        taken.mStorage = taken.storageInside();
        mStorage -= JsonStorage::ofKey(keyAt(index)) + taken.mStorage;
    }
    mObject.erase(mObject.begin() + index);
    return taken;
}

} // namespace VorSystem
