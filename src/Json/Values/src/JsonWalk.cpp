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

} // namespace VorSystem
