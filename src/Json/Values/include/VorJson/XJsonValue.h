// One JSON value. Containers are told in XJsonArray.h and XJsonObject.h.
#pragma once

#include <QJsonValue>
#include <QString>
#include <QVariant>
#include <VorJson/VorJsonExport.h>
#include <utility>

class QDebug;

namespace VorSystem
{

class XJsonArray;
class XJsonObject;
class XJsonValueRef;

/// The two layouts of the text form of a container.
enum class XJsonFormat {
    Compact,  ///< no white space at all
    Indented, ///< one member or value a line, four blanks per level; grows with the square of the depth
};

/// A JSON value: null, a boolean, a number, a text, an array, an object, or nothing (Undefined).
///
/// A small object to be passed by value; a copy of a text or container shares the contents. Every number is
/// held as a double, the sign of zero included. An accessor never fails: a value of another type gives the
/// default handed in.
class VORJSON_EXPORT XJsonValue
{
public:
    /// The numbers are fixed; readers of stored documents test them.
    enum Type {
        Null = 0,        ///< the value null
        Bool = 1,        ///< true or false
        Double = 2,      ///< every number
        String = 3,      ///< a text
        Array = 4,       ///< an XJsonArray
        Object = 5,      ///< an XJsonObject
        Undefined = 128, ///< what an absent key or index gives; never a part of a container
    };

    /// The empty value of a type: false, 0, no text, a container without storage.
    XJsonValue(Type type = Null);
    /// A value of type Bool.
    XJsonValue(bool value) : mValue(value), mStorage(0) {}
    /// A value of type Double; a 64-bit integer beyond 2^53 in size is rounded.
    ///@{
    XJsonValue(int number) : XJsonValue(static_cast<double>(number)) {}
    XJsonValue(qint64 number) : XJsonValue(static_cast<double>(number)) {}
    XJsonValue(double number);
    ///@}
    /// A value of type String.
    ///@{
    XJsonValue(const QString &text);
    XJsonValue(QLatin1String text) : XJsonValue(QString(text)) {}
#ifndef QT_NO_CAST_FROM_ASCII
    XJsonValue(const char *utf8) : XJsonValue(QString::fromUtf8(utf8)) {}
#endif
    ///@}
    XJsonValue(const void *) = delete; // or else a pointer would quietly become a boolean
    /// A value that shares the contents of the container; one without storage stays without.
    ///@{
    XJsonValue(const XJsonArray &array);
    XJsonValue(const XJsonObject &object);
    ///@}

    /// The same type and contents; a text or container is shared.
    XJsonValue(const XJsonValue &other) = default;
    /// Takes the contents; other may then only be assigned to or destroyed.
    XJsonValue(XJsonValue &&other) noexcept = default;
    ~XJsonValue()
    {
        if (mLevels > kShallow)
            letGo(mValue);
    }
    /// Shares the contents of other in place of its own.
    XJsonValue &operator=(const XJsonValue &other)
    {
        XJsonValue copy(other);
        swap(copy);
        return *this;
    }
    /// Exchanges the contents.
    ///@{
    XJsonValue &operator=(XJsonValue &&other) noexcept
    {
        swap(other);
        return *this;
    }
    void swap(XJsonValue &other) noexcept
    {
        mValue.swap(other.mValue);
        std::swap(mStorage, other.mStorage);
        std::swap(mLevels, other.mLevels);
    }
    ///@}

    /// The value for a variant: booleans, int, unsigned, 64-bit integers and double, QString, QStringList,
    /// QVariantList, QVariantMap and QVariantHash by their kind. Any other variant gives the text of
    /// QVariant::toString, or Null when that is empty.
    static XJsonValue fromVariant(const QVariant &variant);

    /// The variant for the value; a number is always a double, Null and Undefined are the invalid variant.
    QVariant toVariant() const;

    /// The value for one of Qt's, taken over part by part as if each part were inserted here.
    static XJsonValue fromJsonValue(const QJsonValue &value);

    /// The same value in Qt's own classes. Qt keeps no sign of zero.
    QJsonValue toJsonValue() const;

    /// The type; Null for a default value.
    Type type() const
    {
        return static_cast<Type>(mValue.type());
    }
    /// Is the value of this type? Undefined is not Null.
    ///@{
    bool isNull() const
    {
        return type() == Null;
    }
    bool isBool() const
    {
        return type() == Bool;
    }
    bool isDouble() const
    {
        return type() == Double;
    }
    bool isString() const
    {
        return type() == String;
    }
    bool isArray() const
    {
        return type() == Array;
    }
    bool isObject() const
    {
        return type() == Object;
    }
    bool isUndefined() const
    {
        return type() == Undefined;
    }
    ///@}

    /// The boolean; the default for other types, a number included.
    bool toBool(bool defaultValue = false) const
    {
        return mValue.toBool(defaultValue);
    }

    /// The number as an int; the default also when the number is not integral or beyond the int range.
    int toInt(int defaultValue = 0) const;

    /// The number, NaN and infinities included; the default for other types.
    double toDouble(double defaultValue = 0) const
    {
        const double number = mValue.toDouble(defaultValue);
        return number == number ? number : shownForm(number);
    }

    /// The text; a null QString for other types.
    QString toString() const
    {
        return mValue.toString();
    }
    /// The text; the default for other types.
    QString toString(const QString &defaultValue) const
    {
        return mValue.toString(defaultValue);
    }

    /// The container; one without storage for other types.
    ///@{
    XJsonArray toArray() const;
    XJsonObject toObject() const;
    ///@}

    /// The container; the default for other types, and also where the value holds a container without
    /// storage.
    ///@{
    XJsonArray toArray(const XJsonArray &defaultValue) const;
    XJsonObject toObject(const XJsonObject &defaultValue) const;
    ///@}

    /// True for the same type and contents. Numbers compare as doubles do, so that a value holding NaN equals
    /// nothing but itself inside shared storage. A container without storage equals an empty one.
    bool operator==(const XJsonValue &other) const;
    /// The opposite of ==.
    bool operator!=(const XJsonValue &other) const
    {
        return !(*this == other);
    }

private:
    friend class XJsonArray;
    friend class XJsonObject;
    friend class XJsonValueRef;

    /// Marks where a storage is no number of bytes.
    enum : qint64 {
        kUncounted = -1, ///< not counted yet: Undefined, and what was read out of a container
        kNoStorage = -2, ///< an array or object without storage
    };

    static constexpr int kShallow = 20000;      ///< levels that Qt's own recursion may let go of
    static constexpr int kManyLevels = 1 << 30; ///< where counting them ends
    /// The levels of a container that holds the value.
    static int levelsAround(const XJsonValue &inner)
    {
        return inner.mLevels < kManyLevels ? inner.mLevels + 1 : kManyLevels;
    }
    /// Empties the value level by level. What others hold too stays theirs.
    static void letGo(QJsonValue &value);

    // The forms with parameters of Qt's values read in place, which is cheaper than moving a value.
    explicit XJsonValue(const QJsonValue &value) : mValue(value) {}
    XJsonValue(const QJsonValue &value, int levels) : mValue(value), mLevels(levels) {}
    XJsonValue(const QJsonArray &array, int index, int levels);
    XJsonValue(const QJsonObject &object, int index, int levels);
    XJsonValue(const QJsonObject &object, const QString &key, int levels);

    static double shownForm(double number);

    /// Bytes that the value takes inside a container, beside its slot.
    qint64 storageInside() const
    {
        return mStorage >= 0 ? mStorage : countedStorage();
    }
    qint64 countedStorage() const;

    QJsonValue mValue;
    qint64 mStorage = kUncounted; ///< bytes inside a container, or a mark
    int mLevels = 0;              ///< at most so many levels of containers inside each other
};

/// Writes "XJsonValue(kind, contents)"; containers in their compact text form.
VORJSON_EXPORT QDebug operator<<(QDebug debug, const XJsonValue &value);

} // namespace VorSystem
