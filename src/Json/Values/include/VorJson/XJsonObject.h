// A JSON object.
#pragma once

#include <QJsonObject>
#include <QPair>
#include <QStringList>
#include <VorJson/XJsonIterator.h>
#include <VorJson/XJsonValue.h>
#include <VorJson/XJsonValueRef.h>
#include <initializer_list>
#include <utility>

namespace VorSystem
{

/// Members sorted by key as QString compares; each key occurs once.
///
/// Implicitly shared: a copy is cheap, the first write to it detaches. A default object has no storage; it is
/// empty and equals an empty object with storage. Undefined is never stored: inserting it removes the key.
///
/// An object holds less than 134217727 bytes of storage, nested contents included. A write that would reach
/// this does not happen: the object stays as it is and a warning with the storage, the bytes asked for and
/// the limit goes to Qt's message logger.
class VORJSON_EXPORT XJsonObject
{
public:
    /// The names that generic code looks for in a container.
    ///@{
    using const_iterator = XJsonIterator<const XJsonObject, XJsonValue>;
    using iterator = XJsonIterator<XJsonObject, XJsonValueRef>;
    using ConstIterator = const_iterator;
    using Iterator = iterator;
    using size_type = int;
    using key_type = QString;
    using mapped_type = XJsonValue;
    ///@}

    /// Without storage.
    XJsonObject() = default;

    /// A key that occurs more than once has the last of its values.
    XJsonObject(std::initializer_list<QPair<QString, XJsonValue>> members);
    /// Shares the contents until one of the two is written to.
    XJsonObject(const XJsonObject &other) = default;
    /// Takes the contents; other is then without storage.
    XJsonObject(XJsonObject &&other) noexcept
        : mObject(std::move(other.mObject)), mStorage(std::exchange(other.mStorage, XJsonValue::kNoStorage)),
          mLevels(std::exchange(other.mLevels, 1)), mGreatestKey(std::move(other.mGreatestKey))
    {
    }
    ~XJsonObject()
    {
        if (mLevels > XJsonValue::kShallow)
            letGo();
    }
    /// Shares the contents of other in place of its own.
    XJsonObject &operator=(const XJsonObject &other)
    {
        XJsonObject copy(other);
        swap(copy);
        return *this;
    }
    /// Exchanges the contents.
    ///@{
    XJsonObject &operator=(XJsonObject &&other) noexcept
    {
        swap(other);
        return *this;
    }
    void swap(XJsonObject &other) noexcept
    {
        std::swap(mObject, other.mObject);
        std::swap(mStorage, other.mStorage);
        std::swap(mLevels, other.mLevels);
        mGreatestKey.swap(other.mGreatestKey);
    }
    ///@}

    /// One member per entry: a variant by XJsonValue::fromVariant, a value by XJsonValue::fromJsonValue.
    /// Without storage where there is none.
    ///@{
    static XJsonObject fromVariantMap(const QVariantMap &variants);
    static XJsonObject fromVariantHash(const QVariantHash &variants);
    static XJsonObject fromJsonObject(const QJsonObject &object);
    ///@}

    /// One entry per member: by XJsonValue::toVariant, the last by XJsonValue::toJsonValue.
    ///@{
    QVariantMap toVariantMap() const;
    QVariantHash toVariantHash() const;
    QJsonObject toJsonObject() const;
    ///@}

    /// The text form in UTF-8. Close to JSON, but no JSON: keys stand without quotation marks, each member is
    /// followed by a comma, booleans are T and F.
    QByteArray toText(XJsonFormat format = XJsonFormat::Compact) const;

    /// The keys in ascending order.
    QStringList keys() const { return mObject.keys(); }
    /// How many members the object holds.
    ///@{
    int size() const { return mObject.size(); }
    int count() const { return size(); }
    int length() const { return size(); }
    ///@}
    /// True for an object of no members, with or without storage.
    ///@{
    bool isEmpty() const { return mObject.isEmpty(); }
    bool empty() const { return isEmpty(); }
    ///@}
    /// True when the key is there, whatever its value; also for a key with the value Null.
    bool contains(const QString &key) const { return mObject.contains(key); }

    /// The value of the key; Undefined when the key is absent.
    ///@{
    XJsonValue value(const QString &key) const { return XJsonValue(mObject, key, mLevels - 1); }
    XJsonValue operator[](const QString &key) const { return value(key); }
    ///@}

    /// The place of the key, which is inserted with Null when absent: so reading this way changes the object.
    XJsonValueRef operator[](const QString &key);

    /// Stores the value, in place of the one the key had. Gives the place of the member, or end() when the
    /// value was refused or is Undefined, which removes the key.
    iterator insert(const QString &key, const XJsonValue &value);
    /// Removes the member of the key; nothing when the key is absent.
    void remove(const QString &key);

    /// The value of the key, which leaves the object; Undefined when the key is absent.
    XJsonValue take(const QString &key);

    /// Removes the member and gives the one after it.
    iterator erase(iterator place);

    /// The first place, the one behind the last, and that of the key (end() when absent), for writing. A
    /// default object gets its storage by asking.
    ///@{
    iterator begin();
    iterator end();
    iterator find(const QString &key);
    ///@}
    /// The first member, the position behind the last, and that of the key (end() when absent), for reading.
    ///@{
    const_iterator begin() const { return const_iterator(this, 0); }
    const_iterator end() const { return const_iterator(this, size()); }
    const_iterator find(const QString &key) const { return const_iterator(this, position(key)); }
    const_iterator constBegin() const { return begin(); }
    const_iterator constEnd() const { return end(); }
    const_iterator constFind(const QString &key) const { return find(key); }
    const_iterator cbegin() const { return begin(); }
    const_iterator cend() const { return end(); }
    ///@}

    /// True for equal keys with equal values, told more closely at XJsonValue.
    bool operator==(const XJsonObject &other) const;
    /// The opposite of ==.
    bool operator!=(const XJsonObject &other) const { return !(*this == other); }

private:
    friend class XJsonValue;
    friend class XJsonValueRef;
    template<class Owner, class Result>
    friend class XJsonIterator;
    friend VORJSON_EXPORT QDebug operator<<(QDebug debug, const XJsonObject &object);

    XJsonObject(const QJsonValue &value, qint64 storage, int levels)
        : mObject(value.toObject()), mStorage(storage), mLevels(levels)
    {
    }

    bool hasStorage() const { return mStorage != XJsonValue::kNoStorage; }
    bool holdsIndex(int index) const { return index >= 0 && index < size(); }
    QString keyAt(int index) const;
    XJsonValue valueAt(int index) const;
    int position(const QString &key) const;  ///< size() when the key is absent
    int positionToWrite(const QString &key); ///< the same, and remembers a key greater than all others

    void giveStorage();
    void surround(const XJsonValue &value);
    void letGo();
    bool admit(qint64 asked, qint64 freed = 0, int replacedIndex = -1);
    int insertNew(const QString &key, const XJsonValue &value);
    bool writeAt(int index, const XJsonValue &value);
    XJsonValue takeAt(int index);

    QJsonObject mObject;
    qint64 mStorage = XJsonValue::kNoStorage; ///< bytes counted so far, or one of the marks of XJsonValue
    int mLevels = 1;                          ///< at most so many levels of containers, its own included
    QString mGreatestKey;                     ///< no key is greater; null when that is not known
};

/// Writes "XJsonObject(", the compact text form and ")".
VORJSON_EXPORT QDebug operator<<(QDebug debug, const XJsonObject &object);

} // namespace VorSystem
