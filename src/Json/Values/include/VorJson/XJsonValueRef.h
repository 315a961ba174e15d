// A place in a container: what the writing operator[] and the iterators give.
#pragma once

#include <VorJson/XJsonValue.h>

namespace VorSystem
{

/// A place in an array or object: assigning writes there, reading reads there.
///
/// Remembers container and position, so it is good until the container is next changed otherwise; never
/// store one. A reference without place (index out of range, a key refused for lack of room) reads as
/// Undefined and ignores what is assigned.
class VORJSON_EXPORT XJsonValueRef
{
public:
    /// The place at index, in the object's order of keys. The container, which must be there, is not owned.
    ///@{
    XJsonValueRef(XJsonArray *array, int index) : mArray(array), mIndex(index) {}
    XJsonValueRef(XJsonObject *object, int index) : mObject(object), mIndex(index) {}
    ///@}
    /// Another name of the same place.
    XJsonValueRef(const XJsonValueRef &other) = default;
    ~XJsonValueRef() = default;

    /// Writes the value to the place. Undefined removes a member of an object and is Null in an array.
    /// A value that does not fit is not stored, and the old one stays.
    XJsonValueRef &operator=(const XJsonValue &value);

    /// Writes the value found at the other place; the reference itself stays where it is.
    XJsonValueRef &operator=(const XJsonValueRef &other);

    /// The value that stands at the place now.
    operator XJsonValue() const;

    /// What the operation of the same name in XJsonValue answers for the value that stands at the place now.
    ///@{
    QVariant toVariant() const { return value().toVariant(); }
    XJsonValue::Type type() const { return value().type(); }
    bool isNull() const { return value().isNull(); }
    bool isBool() const { return value().isBool(); }
    bool isDouble() const { return value().isDouble(); }
    bool isString() const { return value().isString(); }
    bool isArray() const { return value().isArray(); }
    bool isObject() const { return value().isObject(); }
    bool isUndefined() const { return value().isUndefined(); }

    bool toBool(bool defaultValue = false) const { return value().toBool(defaultValue); }
    int toInt(int defaultValue = 0) const { return value().toInt(defaultValue); }
    double toDouble(double defaultValue = 0) const { return value().toDouble(defaultValue); }
    QString toString() const { return value().toString(); }
    QString toString(const QString &defaultValue) const { return value().toString(defaultValue); }
    XJsonArray toArray() const;
    XJsonObject toObject() const;
    ///@}

    /// Compares the value that stands at the place now, as XJsonValue does.
    ///@{
    bool operator==(const XJsonValue &other) const { return value() == other; }
    bool operator!=(const XJsonValue &other) const { return value() != other; }
    ///@}

private:
    XJsonValue value() const { return *this; }

    XJsonArray *mArray = nullptr; ///< one of the two is the container
    XJsonObject *mObject = nullptr;
    int mIndex;
};

} // namespace VorSystem
