// Is a value in a list? Asked once or twice it is a plain search; asked often it builds a hash.
#pragma once

#include <VorFrames/QListEx.h>

#include <QSet>

namespace VorSystem
{

/// The contents of a list for the length of one call, in which only this object may append to it.
template<class T>
class ListMembership
{
public:
    explicit ListMembership(QListEx<T> &list) : mList(list) {}

    bool contains(const T &value)
    {
        if (mHashed)
            return mValues.contains(value);
        if (mList.size() <= kShortList || ++mLongSearches <= kLongSearches)
            return mList.contains(value);

        mValues.reserve(2 * mList.size());
        for (const T &present : std::as_const(mList))
            mValues.insert(present);
        mHashed = true;
        return mValues.contains(value);
    }

    void append(const T &value)
    {
        mList.append(value);
        if (mHashed)
            mValues.insert(value);
    }

private:
    static constexpr int kShortList = 16;   // values up to which a plain search is the faster one
    static constexpr int kLongSearches = 8; // about what building the hash costs

    QListEx<T> &mList;
    QSet<T> mValues;
    int mLongSearches = 0;
    bool mHashed = false;
};

} // namespace VorSystem
