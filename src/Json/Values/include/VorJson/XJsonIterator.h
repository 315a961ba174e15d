// The iterators of arrays and objects.
#pragma once

#include <VorJson/XJsonValue.h>
#include <iterator>
#include <type_traits>

namespace VorSystem
{

/// A position in an array or object.
///
/// Dereferences to a Result: an XJsonValueRef that writes through, or an XJsonValue. Good until the container
/// is next changed by other means. Moving it checks nothing; outside the container it reads as Undefined. A
/// default iterator belongs to no container: it may be compared and assigned, nothing else.
template<class Owner, class Result>
class XJsonIterator
{
public:
    /// What the algorithms of the standard library ask for.
    ///@{
    using iterator_category = std::random_access_iterator_tag;
    using difference_type = int;
    using value_type = XJsonValue;
    using reference = Result;
    ///@}

    /// Keeps the result of a dereference alive for the length of the expression.
    class pointer
    {
    public:
        /// Keeps a copy of result.
        explicit pointer(const Result &result) : mResult(result) {}
        /// The result kept, good as long as this object.
        ///@{
        Result &operator*() { return mResult; }
        Result *operator->() { return &mResult; }
        ///@}

    private:
        Result mResult;
    };

    XJsonIterator() = default;

    /// From the writing iterator of the same container to the reading one.
    template<class OtherOwner, class OtherResult,
             class = std::enable_if_t<std::is_same<const OtherOwner, Owner>::value &&
                                      !std::is_same<OtherOwner, Owner>::value>>
    XJsonIterator(const XJsonIterator<OtherOwner, OtherResult> &other)
        : mOwner(other.mOwner), mIndex(other.mIndex)
    {
    }

    /// The key of the member, a null text outside the object; of objects only.
    QString key() const { return mOwner->keyAt(mIndex); }

    /// The value here, or the place to write it to.
    ///@{
    Result value() const { return **this; }

    Result operator*() const
    {
        if constexpr (std::is_const<Owner>::value)
            return mOwner->valueAt(mIndex);
        else
            return Result(mOwner, mIndex);
    }
    pointer operator->() const { return pointer(**this); }
    ///@}
    /// The value so many steps on.
    Result operator[](int steps) const { return *(*this + steps); }

    /// Moves on, or back for a negative number of steps; the forms with a trailing int give the position
    /// left.
    ///@{
    XJsonIterator &operator++() { return *this += 1; }
    XJsonIterator &operator--() { return *this -= 1; }
    XJsonIterator operator++(int)
    {
        const XJsonIterator before = *this;
        ++*this;
        return before;
    }
    XJsonIterator operator--(int)
    {
        const XJsonIterator before = *this;
        --*this;
        return before;
    }
    XJsonIterator &operator+=(int steps)
    {
        mIndex += steps;
        return *this;
    }
    XJsonIterator &operator-=(int steps) { return *this += -steps; }
    ///@}
    /// The position so many steps on or back.
    ///@{
    XJsonIterator operator+(int steps) const { return XJsonIterator(mOwner, mIndex + steps); }
    XJsonIterator operator-(int steps) const { return XJsonIterator(mOwner, mIndex - steps); }
    ///@}
    /// The steps from other to here; both must belong to the same container.
    int operator-(const XJsonIterator &other) const { return mIndex - other.mIndex; }

    /// Compare positions alone: which container they belong to is not looked at.
    ///@{
    friend bool operator==(const XJsonIterator &left, const XJsonIterator &right)
    {
        return left.mIndex == right.mIndex;
    }
    friend bool operator!=(const XJsonIterator &left, const XJsonIterator &right) { return !(left == right); }
    friend bool operator<(const XJsonIterator &left, const XJsonIterator &right)
    {
        return left.mIndex < right.mIndex;
    }
    friend bool operator>(const XJsonIterator &left, const XJsonIterator &right) { return right < left; }
    friend bool operator<=(const XJsonIterator &left, const XJsonIterator &right) { return !(right < left); }
    friend bool operator>=(const XJsonIterator &left, const XJsonIterator &right) { return !(left < right); }
    ///@}

private:
    friend class XJsonArray;
    friend class XJsonObject;
    template<class OtherOwner, class OtherResult>
    friend class XJsonIterator;

    XJsonIterator(Owner *owner, int index) : mOwner(owner), mIndex(index) {}

    Owner *mOwner = nullptr;
    int mIndex = 0;
};

} // namespace VorSystem
