#include "JsonWalk.h"

#include <cstring>

namespace VorSystem
{

bool JsonCursor::sharesStorageWith(const JsonCursor &other) const
{
    // Qt has no question for this. Its containers consist of nothing but a pointer to their storage, so equal
    // bytes mean the same storage; should a later Qt put more into them, less is recognised and all is
    // compared.
    // NOLINTBEGIN(bugprone-suspicious-memory-comparison)
    return mIsObject == other.mIsObject && std::memcmp(&mArray, &other.mArray, sizeof mArray) == 0 &&
           std::memcmp(&mObject, &other.mObject, sizeof mObject) == 0;
    // NOLINTEND(bugprone-suspicious-memory-comparison)
}

bool JsonCursor::isShared()
{
    // Nor for this one: a writing access leaves a container alone exactly when nobody else holds it.
    unsigned char before[sizeof mArray + sizeof mObject];
    std::memcpy(before, &mArray, sizeof mArray);
    std::memcpy(before + sizeof mArray, &mObject, sizeof mObject);
    if (mIsObject)
        mObject.begin();
    else
        mArray.begin();
    return std::memcmp(before, &mArray, sizeof mArray) != 0 ||
           std::memcmp(before + sizeof mArray, &mObject, sizeof mObject) != 0;
}

} // namespace VorSystem
