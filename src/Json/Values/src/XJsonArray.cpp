#include <VorJson/XJsonArray.h>

#include "JsonNumber.h"
#include "JsonStorage.h"
#include "JsonText.h"

#include <algorithm>

namespace VorSystem
{

inline const QJsonValue &XJsonArray::storedForm(const XJsonValue &value)
{
    if (value.mStorage >= 0 || !value.isUndefined())
        return value.mValue;
    static const QJsonValue null;
    return null;
}

inline bool XJsonArray::admit(qint64 asked, qint64 freed)
{
    if (mStorage == XJsonValue::kUncounted)
        mStorage = JsonStorage::ofTree(mArray);
    if (mStorage + asked - freed < JsonStorage::kLimit) {
        mStorage += asked - freed;
        return true;
    }
    JsonStorage::warnOfRefusal(mStorage, asked);
    return false;
}

XJsonArray::XJsonArray(std::initializer_list<XJsonValue> values)
{
    for (const XJsonValue &value : values)
        append(value);
}

XJsonArray XJsonArray::fromStringList(const QStringList &texts)
{
    XJsonArray array;
    for (const QString &text : texts)
        array.append(text);
    return array;
}

XJsonArray XJsonArray::fromNumbers(const QList<double> &numbers)
{
    XJsonArray array;
    if (!numbers.isEmpty())
        array.giveStorage();
    for (const double number : numbers) {
        if (array.admit(JsonStorage::kArraySlot + JsonStorage::ofNumber(number)))
            array.mArray.append(JsonNumber::held(number));
    }
    return array;
}

XJsonArray XJsonArray::fromVariantList(const QVariantList &variants)
{
    XJsonArray array;
    for (const QVariant &variant : variants)
        array.append(XJsonValue::fromVariant(variant));
    return array;
}

XJsonArray XJsonArray::fromJsonArray(const QJsonArray &array)
{
    XJsonArray converted;
    for (const QJsonValue value : array)
        converted.append(XJsonValue::fromJsonValue(value));
    return converted;
}

QStringList XJsonArray::toStringList() const
{
    QStringList texts;
    texts.reserve(size());
    for (const XJsonValue value : *this)
        texts.append(value.toString(QString()));
    return texts;
}

QVariantList XJsonArray::toVariantList() const
{
    QVariantList variants;
    variants.reserve(size());
    for (const XJsonValue value : *this)
        variants.append(value.toVariant());
    return variants;
}

QJsonArray XJsonArray::toJsonArray() const
{
    QJsonArray array;
    for (const XJsonValue value : *this)
        array.append(value.toJsonValue());
    return array;
}

QByteArray XJsonArray::toText(XJsonFormat format) const
{
    return JsonText::of(mArray, format);
}

bool XJsonArray::contains(const XJsonValue &value) const
{
    for (const XJsonValue held : *this) {
        if (held == value)
            return true;
    }
    return false;
}

void XJsonArray::append(const XJsonValue &value)
{
    giveStorage();
    if (!admit(JsonStorage::kArraySlot + value.storageInside()))
        return;
    mArray.append(storedForm(value));
    surround(value);
}

void XJsonArray::insert(int index, const XJsonValue &value)
{
    giveStorage();
    if (index < 0 || index > size() || !admit(JsonStorage::kArraySlot + value.storageInside()))
        return;
    mArray.insert(index, storedForm(value));
    surround(value);
}

void XJsonArray::replace(int index, const XJsonValue &value)
{
    if (!holdsIndex(index))
        return;
    const XJsonValue old = at(index); // dies when it is out of the array
    const qint64 freed = JsonStorage::kArraySlot + old.storageInside();
    if (!admit(JsonStorage::kArraySlot + value.storageInside(), freed))
        return;
    mArray.replace(index, storedForm(value));
    surround(value);
}

void XJsonArray::removeAt(int index)
{
    takeAt(index);
}

XJsonValue XJsonArray::takeAt(int index)
{
    if (!holdsIndex(index))
        return XJsonValue::Undefined;
    XJsonValue taken(mArray.takeAt(index), mLevels - 1);
    if (mStorage != XJsonValue::kUncounted) {
        taken.mStorage = taken.storageInside();
        mStorage -= JsonStorage::kArraySlot + taken.mStorage;
    }
    return taken;
}

XJsonArray::iterator XJsonArray::insert(iterator before, const XJsonValue &value)
{
    insert(before.mIndex, value);
    return before;
}

XJsonArray::iterator XJsonArray::erase(iterator place)
{
    removeAt(place.mIndex);
    return place;
}

XJsonArray XJsonArray::operator+(const XJsonValue &value) const
{
    return XJsonArray(*this) += value;
}

XJsonArray &XJsonArray::operator+=(const XJsonValue &value)
{
    append(value);
    return *this;
}

XJsonArray &XJsonArray::operator<<(const XJsonValue &value)
{
    return *this += value;
}

XJsonArray::iterator XJsonArray::begin()
{
    giveStorage();
    return iterator(this, 0);
}

XJsonArray::iterator XJsonArray::end()
{
    giveStorage();
    return iterator(this, size());
}

bool XJsonArray::operator==(const XJsonArray &other) const
{
    return XJsonValue(*this) == XJsonValue(other);
}

void XJsonArray::giveStorage()
{
    if (!hasStorage())
        mStorage = JsonStorage::kEmptyContainer;
}

void XJsonArray::surround(const XJsonValue &value)
{
    mLevels = std::max(mLevels, XJsonValue::levelsAround(value));
}

void XJsonArray::letGo()
{
    QJsonValue value = std::exchange(mArray, QJsonArray());
    XJsonValue::letGo(value);
}

} // namespace VorSystem
