// A JSON array.
#pragma once

#include <QJsonArray>
#include <QStringList>
#include <VorJson/XJsonIterator.h>
#include <VorJson/XJsonValue.h>
#include <VorJson/XJsonValueRef.h>
#include <initializer_list>
#include <utility>

namespace VorSystem
{

/// Values in the order of their insertion.
///
/// Implicitly shared: a copy is cheap, the first write to it detaches. A default array has no storage; it is
/// empty and equals an empty array with storage. Undefined is stored as Null.
///
/// An array holds less than 134217727 bytes of storage, nested contents included. A write that would reach
/// this does not happen: the array stays as it is and a warning with the storage, the bytes asked for and the
/// limit goes to Qt's message logger. An index out of range reads as Undefined and writes nothing.
class VORJSON_EXPORT XJsonArray
{
public:
    /// The names that generic code looks for in a container.
    ///@{
    using const_iterator = XJsonIterator<const XJsonArray, XJsonValue>;
    using iterator = XJsonIterator<XJsonArray, XJsonValueRef>;
    using ConstIterator = const_iterator;
    using Iterator = iterator;
    using size_type = int;
    using value_type = XJsonValue;
    using difference_type = int;
    using reference = XJsonValueRef;
    using const_reference = XJsonValue;
    using pointer = iterator::pointer;
    using const_pointer = const_iterator::pointer;
    ///@}

    /// Without storage.
    XJsonArray() = default;
    /// The values in the order given; without storage for none.
    XJsonArray(std::initializer_list<XJsonValue> values);
    /// Shares the contents until one of the two is written to.
    XJsonArray(const XJsonArray &other) = default;
    /// Takes the contents; other is then without storage.
    XJsonArray(XJsonArray &&other) noexcept
        : mArray(std::move(other.mArray)), mStorage(std::exchange(other.mStorage, XJsonValue::kNoStorage)),
          mLevels(std::exchange(other.mLevels, 1))
    {
    }
    ~XJsonArray()
    {
        if (mLevels > XJsonValue::kShallow)
            letGo();
    }
    /// Shares the contents of other in place of its own.
    XJsonArray &operator=(const XJsonArray &other)
    {
        XJsonArray copy(other);
        swap(copy);
        return *this;
    }
    /// Exchanges the contents.
    ///@{
    XJsonArray &operator=(XJsonArray &&other) noexcept
    {
        swap(other);
        return *this;
    }
    void swap(XJsonArray &other) noexcept
    {
        std::swap(mArray, other.mArray);
        std::swap(mStorage, other.mStorage);
        std::swap(mLevels, other.mLevels);
    }
    ///@}

    /// One value per element, in the same order: a text, a variant by XJsonValue::fromVariant, a value by
    /// XJsonValue::fromJsonValue. Without storage for an empty list.
    ///@{
    static XJsonArray fromStringList(const QStringList &texts);
    /// The same as appending the numbers one after another, and faster.
    static XJsonArray fromNumbers(const QList<double> &numbers);
    static XJsonArray fromVariantList(const QVariantList &variants);
    static XJsonArray fromJsonArray(const QJsonArray &array);
    ///@}

    /// Each value by XJsonValue::toString with an empty default.
    QStringList toStringList() const;
    /// Each value by XJsonValue::toVariant.
    QVariantList toVariantList() const;
    /// Each value by XJsonValue::toJsonValue.
    QJsonArray toJsonArray() const;

    /// The text form in UTF-8. Close to JSON, but no JSON: booleans are T and F, the keys of nested objects
    /// stand without quotation marks and each of their members is followed by a comma.
    QByteArray toText(XJsonFormat format = XJsonFormat::Compact) const;

    /// How many values the array holds.
    ///@{
    int size() const { return mArray.size(); }
    int count() const { return size(); }
    ///@}
    /// True for an array of no values, with or without storage.
    ///@{
    bool isEmpty() const { return mArray.isEmpty(); }
    bool empty() const { return isEmpty(); }
    ///@}

    /// The value at the index, or at an end; Undefined where there is none.
    ///@{
    XJsonValue at(int index) const { return XJsonValue(mArray, index, mLevels - 1); }
    XJsonValue first() const { return at(0); }
    XJsonValue last() const { return at(size() - 1); }
    XJsonValue operator[](int index) const { return at(index); }
    ///@}
    /// True when the array holds an equal value; what equal means for NaN is told at XJsonValue.
    bool contains(const XJsonValue &value) const;

    /// The place of the value.
    XJsonValueRef operator[](int index) { return XJsonValueRef(this, index); }

    /// Adds the value at an end.
    ///@{
    void prepend(const XJsonValue &value) { insert(0, value); }
    void append(const XJsonValue &value);
    ///@}
    /// Enters the value before the index; an index of size() appends.
    void insert(int index, const XJsonValue &value);
    /// Puts the value in place of the one at the index.
    void replace(int index, const XJsonValue &value);
    /// Removes the value at the index, or at an end; nothing where there is none.
    ///@{
    void removeAt(int index);
    void removeFirst() { removeAt(0); }
    void removeLast() { removeAt(size() - 1); }
    ///@}

    /// The value at the index, which leaves the array; Undefined out of range.
    XJsonValue takeAt(int index);

    /// Enters the value before the position, which is then the place of the value and is given back.
    iterator insert(iterator before, const XJsonValue &value);
    /// Removes the value and gives the position of the one after it.
    iterator erase(iterator place);
    /// The names of the standard library for append(), prepend(), removeLast() and removeFirst().
    ///@{
    void push_back(const XJsonValue &value) { append(value); }
    void push_front(const XJsonValue &value) { prepend(value); }
    void pop_back() { removeLast(); }
    void pop_front() { removeFirst(); }
    ///@}

    /// A copy with the value appended.
    XJsonArray operator+(const XJsonValue &value) const;
    /// Appends the value; gives the array, for a chain.
    ///@{
    XJsonArray &operator+=(const XJsonValue &value);
    XJsonArray &operator<<(const XJsonValue &value);
    ///@}

    /// The first place, and the one behind the last, for writing. A default array gets its storage by asking.
    ///@{
    iterator begin();
    iterator end();
    ///@}
    /// The first value, and the position behind the last, for reading.
    ///@{
    const_iterator begin() const { return const_iterator(this, 0); }
    const_iterator end() const { return const_iterator(this, size()); }
    const_iterator constBegin() const { return begin(); }
    const_iterator constEnd() const { return end(); }
    const_iterator cbegin() const { return begin(); }
    const_iterator cend() const { return end(); }
    ///@}

    /// True for equal values in equal order, told more closely at XJsonValue.
    bool operator==(const XJsonArray &other) const;
    /// The opposite of ==.
    bool operator!=(const XJsonArray &other) const { return !(*this == other); }

private:
    friend class XJsonValue;
    friend class XJsonValueRef;
    template<class Owner, class Result>
    friend class XJsonIterator;
    friend VORJSON_EXPORT QDebug operator<<(QDebug debug, const XJsonArray &array);

    XJsonArray(const QJsonValue &value, qint64 storage, int levels)
        : mArray(value.toArray()), mStorage(storage), mLevels(levels)
    {
    }

    bool hasStorage() const { return mStorage != XJsonValue::kNoStorage; }
    bool holdsIndex(int index) const { return index >= 0 && index < size(); }
    XJsonValue valueAt(int index) const { return at(index); }
    static const QJsonValue &storedForm(const XJsonValue &value);
    void giveStorage();
    void surround(const XJsonValue &value);
    void letGo();
    bool admit(qint64 asked, qint64 freed = 0);

    QJsonArray mArray;
    qint64 mStorage = XJsonValue::kNoStorage; ///< bytes counted so far, or one of the marks of XJsonValue
    int mLevels = 1;                          ///< at most so many levels of containers, its own included
};

/// Writes "XJsonArray(", the compact text form and ")".
VORJSON_EXPORT QDebug operator<<(QDebug debug, const XJsonArray &array);

} // namespace VorSystem
