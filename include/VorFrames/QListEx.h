// The library's list: a QList that never shares storage and that checks every index.
#pragma once

#include <VorFrames/Errors.h>

#include <QList>
#include <initializer_list>
#include <utility>

namespace VorSystem
{

/// A QList whose copies own their storage from the first moment, so that no write through one holder can be
/// seen by another.
///
/// Access by index is checked in every build type: an index outside the list ends the program (qFatal) with
/// operation, index and size. The checks are not virtual: pass lists as QListEx, never as QList.
/// Moving shares nothing and costs nothing; copying costs one pass over the values.
template<class T>
class QListEx : public QList<T>
{
public:
    using QList<T>::QList;
    QListEx() = default;
    /// The values in the order given.
    QListEx(std::initializer_list<T> values) : QList<T>(values) {}
    /// A copy with storage of its own.
    QListEx(const QListEx &other) : QList<T>() { takeCopy(other); }
    /// Takes the storage; other is then empty.
    QListEx(QListEx &&other) noexcept : QList<T>(std::move(static_cast<QList<T> &>(other))) {}
    /// Takes what an operation of the base returned, such as mid() or operator+.
    QListEx(const QList<T> &other) : QList<T>() { takeCopy(other); }
    ~QListEx() = default;

    /// The values of other in storage of its own.
    QListEx &operator=(const QListEx &other)
    {
        if (this != &other)
            takeCopy(other);
        return *this;
    }
    /// Takes the storage; other is then empty.
    QListEx &operator=(QListEx &&other) noexcept
    {
        QList<T>::operator=(std::move(static_cast<QList<T> &>(other)));
        return *this;
    }
    /// Replaces the values by the given ones.
    ///@{
    QListEx &operator=(std::initializer_list<T> values)
    {
        QList<T>::operator=(QList<T>(values));
        return *this;
    }
    QListEx &operator=(const QList<T> &other)
    {
        takeCopy(other);
        return *this;
    }
    ///@}

    using QList<T>::append;
    /// Appends values; a list given to an empty one is copied too, where a QList would share it.
    ///@{
    void append(const QList<T> &values)
    {
        QList<T>::append(values);
        this->detach();
    }
    QListEx &operator+=(const QList<T> &values)
    {
        append(values);
        return *this;
    }
    QListEx &operator+=(const T &value)
    {
        QList<T>::append(value);
        return *this;
    }
    QListEx &operator<<(const QList<T> &values) { return *this += values; }
    QListEx &operator<<(const T &value) { return *this += value; }
    ///@}

    /// The value at index; the program ends where there is none.
    ///@{
    const T &at(int index) const
    {
        require("at", index);
        return QList<T>::at(index);
    }
    const T &operator[](int index) const
    {
        require("operator[]", index);
        return QList<T>::at(index);
    }
    T &operator[](int index)
    {
        require("operator[]", index);
        return QList<T>::operator[](index);
    }
    ///@}

    /// The value at an end; the program ends when the list is empty.
    ///@{
    T &first()
    {
        require("first", 0);
        return QList<T>::first();
    }
    const T &first() const { return constFirst(); }
    const T &constFirst() const
    {
        require("first", 0);
        return QList<T>::at(0);
    }
    T &last()
    {
        requireAny("last");
        return QList<T>::last();
    }
    const T &last() const { return constLast(); }
    const T &constLast() const
    {
        requireAny("last");
        return QList<T>::at(this->size() - 1);
    }
    T &front() { return first(); }
    const T &front() const { return constFirst(); }
    T &back() { return last(); }
    const T &back() const { return constLast(); }
    ///@}

    using QList<T>::insert;
    /// Inserts before index; an index of size() appends, any other outside the list ends the program.
    void insert(int index, const T &value)
    {
        if (index < 0 || index > this->size())
            indexOutOfRange("insert", index, this->size());
        QList<T>::insert(index, value);
    }
    /// Puts value in place of the one at index; the program ends where there is none.
    void replace(int index, const T &value)
    {
        require("replace", index);
        QList<T>::replace(index, value);
    }
    /// Takes the value at from out and enters it so that it stands at to; both must lie in the list.
    void move(int from, int to)
    {
        require("move", from);
        require("move", to);
        QList<T>::move(from, to);
    }
    /// Exchanges two values; the program ends where either index lies outside the list.
    ///@{
    void swapItemsAt(int i, int j)
    {
        require("swapItemsAt", i);
        require("swapItemsAt", j);
        QList<T>::swapItemsAt(i, j);
    }

    using QList<T>::swap;
    void swap(int i, int j) { swapItemsAt(i, j); }
    ///@}

    /// Removes, or takes out and gives, the value at index or at an end; the program ends where there is
    /// none.
    ///@{
    void removeAt(int index)
    {
        require("removeAt", index);
        QList<T>::removeAt(index);
    }
    void removeFirst()
    {
        requireAny("removeFirst");
        QList<T>::removeFirst();
    }
    void removeLast()
    {
        requireAny("removeLast");
        QList<T>::removeLast();
    }
    void pop_front() { removeFirst(); }
    void pop_back() { removeLast(); }
    T takeAt(int index)
    {
        require("takeAt", index);
        return QList<T>::takeAt(index);
    }
    T takeFirst()
    {
        requireAny("takeFirst");
        return QList<T>::takeFirst();
    }
    T takeLast()
    {
        requireAny("takeLast");
        return QList<T>::takeLast();
    }
    ///@}

private:
    void takeCopy(const QList<T> &other)
    {
        // An emptied list still has a block of its own: the copy does not take part in it.
        if (other.isEmpty()) {
            QList<T>::operator=(QList<T>());
            return;
        }
        QList<T>::operator=(other);
        this->detach();
    }
    void require(const char *operation, int index) const
    {
        if (index < 0 || index >= this->size())
            indexOutOfRange(operation, index, this->size());
    }
    void requireAny(const char *operation) const
    {
        if (this->isEmpty())
            indexOutOfRange(operation, -1, 0);
    }
};

} // namespace VorSystem
