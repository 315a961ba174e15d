#include <VorJson/XJsonArray.h>
#include <VorJson/XJsonObject.h>
#include <VorJson/XJsonValue.h>

#include "JsonNumber.h"
#include "JsonStorage.h"
#include "JsonWalk.h"

#include <limits>
#include <vector>

namespace VorSystem
{

namespace
{

bool sameScalar(const QJsonValue &left, const QJsonValue &right)
{
    switch (left.type()) {
    case QJsonValue::Bool: return left.toBool() == right.toBool();
    case QJsonValue::Double: return JsonNumber::of(left) == JsonNumber::of(right);
    case QJsonValue::String: return left.toString() == right.toString();
    case QJsonValue::Null:
    case QJsonValue::Undefined:
    case QJsonValue::Array:
    case QJsonValue::Object: break;
    }
    return true;
}

} // namespace

XJsonValue::XJsonValue(Type type) : mValue(static_cast<QJsonValue::Type>(type))
{
    if (JsonCursor::isContainer(mValue)) {
        mStorage = kNoStorage;
        mLevels = 1;
    }
}

XJsonValue::XJsonValue(double number)
    : mValue(JsonNumber::held(number)), mStorage(JsonStorage::ofNumber(number))
{
}

XJsonValue::XJsonValue(const QString &text) : mValue(text), mStorage(JsonStorage::ofText(text)) {}

XJsonValue::XJsonValue(const XJsonArray &array)
    : mValue(array.mArray), mStorage(array.mStorage), mLevels(array.mLevels)
{
}

XJsonValue::XJsonValue(const XJsonObject &object)
    : mValue(object.mObject), mStorage(object.mStorage), mLevels(object.mLevels)
{
}

XJsonValue::XJsonValue(const QJsonArray &array, int index, int levels)
    : mValue(array.at(index)), mLevels(levels)
{
}

XJsonValue::XJsonValue(const QJsonObject &object, int index, int levels)
    : mValue(index >= 0 && index < object.size() ? (object.constBegin() + index).value()
                                                 : QJsonValue(QJsonValue::Undefined)),
      mLevels(levels)
{
}

XJsonValue::XJsonValue(const QJsonObject &object, const QString &key, int levels)
    : mValue(object.value(key)), mLevels(levels)
{
}

double XJsonValue::shownForm(double number)
{
    return JsonNumber::shown(number);
}

XJsonValue XJsonValue::fromVariant(const QVariant &variant)
{
    switch (variant.userType()) {
    case QMetaType::Bool: return variant.toBool();
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Double: return variant.toDouble();
    case QMetaType::QString: return variant.toString();
    case QMetaType::QStringList: return XJsonArray::fromStringList(variant.toStringList());
    case QMetaType::QVariantList: return XJsonArray::fromVariantList(variant.toList());
    case QMetaType::QVariantMap: return XJsonObject::fromVariantMap(variant.toMap());
    case QMetaType::QVariantHash: return XJsonObject::fromVariantHash(variant.toHash());
    default: break;
    }
    const QString text = variant.toString();
    return text.isEmpty() ? XJsonValue() : XJsonValue(text);
}

QVariant XJsonValue::toVariant() const
{
    switch (type()) {
    case Bool: return toBool();
    case Double: return toDouble();
    case String: return toString();
    case Array: return toArray().toVariantList();
    case Object: return toObject().toVariantMap();
    case Null:
    case Undefined: break;
    }
    return QVariant();
}

XJsonValue XJsonValue::fromJsonValue(const QJsonValue &value)
{
    switch (value.type()) {
    case QJsonValue::Double: return value.toDouble();
    case QJsonValue::Array: return XJsonArray::fromJsonArray(value.toArray());
    case QJsonValue::Object: return XJsonObject::fromJsonObject(value.toObject());
    case QJsonValue::Null:
    case QJsonValue::Bool:
    case QJsonValue::String:
    case QJsonValue::Undefined: break;
    }
    return XJsonValue(value);
}

QJsonValue XJsonValue::toJsonValue() const
{
    switch (type()) {
    case Double: return toDouble();
    case Array: return toArray().toJsonArray();
    case Object: return toObject().toJsonObject();
    case Null:
    case Bool:
    case String:
    case Undefined: break;
    }
    return mValue;
}

int XJsonValue::toInt(int defaultValue) const
{
    // Outside the range the cast below would be undefined; NaN, also of another type, fails both comparisons.
    const double number = toDouble(std::numeric_limits<double>::quiet_NaN());
    if (!(number >= std::numeric_limits<int>::min() && number <= std::numeric_limits<int>::max()))
        return defaultValue;
    const int integral = static_cast<int>(number);
    return integral == number ? integral : defaultValue;
}

XJsonArray XJsonValue::toArray() const
{
    return XJsonArray(mValue, isArray() ? mStorage : kNoStorage, mLevels);
}

XJsonObject XJsonValue::toObject() const
{
    return XJsonObject(mValue, isObject() ? mStorage : kNoStorage, mLevels);
}

XJsonArray XJsonValue::toArray(const XJsonArray &defaultValue) const
{
    return isArray() && mStorage != kNoStorage ? toArray() : defaultValue;
}

XJsonObject XJsonValue::toObject(const XJsonObject &defaultValue) const
{
    return isObject() && mStorage != kNoStorage ? toObject() : defaultValue;
}

bool XJsonValue::operator==(const XJsonValue &other) const
{
    struct Pair {
        JsonCursor left;
        JsonCursor right;
    };
    std::vector<Pair> open;
    // False when the two differ as far as can be told without looking into containers, which are opened.
    const auto agree = [&open](const QJsonValue &left, const QJsonValue &right) {
        if (left.type() != right.type())
            return false;
        if (!JsonCursor::isContainer(left))
            return sameScalar(left, right);

        Pair pair{JsonCursor(left), JsonCursor(right)};
        if (pair.left.sharesStorageWith(pair.right))
            return true;
        if (pair.left.size() != pair.right.size())
            return false;
        open.push_back(std::move(pair));
        return true;
    };

    if (!agree(mValue, other.mValue))
        return false;
    while (!open.empty()) {
        Pair &pair = open.back();
        if (pair.left.atEnd()) {
            open.pop_back();
            continue;
        }
        if (pair.left.isObject() && pair.left.key() != pair.right.key())
            return false;
        const QJsonValue left = pair.left.value();
        const QJsonValue right = pair.right.value();
        pair.left.advance(); // before agreeing, which may move the pairs
        pair.right.advance();
        if (!agree(left, right))
            return false;
    }
    return true;
}

void XJsonValue::letGo(QJsonValue &value)
{
    // A container dies after what is in it was put aside, so each death takes one level and no more.
    std::vector<QJsonValue> rest;
    rest.push_back(std::exchange(value, QJsonValue()));
    while (!rest.empty()) {
        JsonCursor cursor(std::exchange(rest.back(), QJsonValue()));
        rest.pop_back();
        if (cursor.isShared())
            continue;
        for (; !cursor.atEnd(); cursor.advance()) {
            QJsonValue inner = cursor.value();
            if (JsonCursor::isContainer(inner))
                rest.push_back(std::move(inner));
        }
    }
}

qint64 XJsonValue::countedStorage() const
{
    // A container without storage outside gets an empty one inside.
    return mStorage == kNoStorage ? JsonStorage::kEmptyContainer : JsonStorage::ofTree(mValue);
}

} // namespace VorSystem
