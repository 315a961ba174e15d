// The elements that the names in a formula mean, for the length of one call.

#include "VOREquations/ElementNames.h"

#include "VORFrames/NameIndex.h"

#include <VorFrames/FrameSet.h>

namespace VorSystem
{

namespace
{

constexpr int kSearchesBeforeIndex = 8; // an index costs about as much as this many searches of the set

} // namespace

ElementNames::ElementNames(const FrameSet *set)
    : mSet(set), mIndex(set == nullptr ? nullptr : set->mNamesWhileRead)
{
}

ElementNames::ElementNames(const NameIndex &index) : mIndex(&index) {}
ElementNames::~ElementNames() = default;

BaseFrame *ElementNames::found(const QString &name, bool searchFrames)
{
    if (mIndex == nullptr && ++mSearches > kSearchesBeforeIndex) {
        mOwnIndex = std::make_unique<NameIndex>(*mSet);
        mIndex = mOwnIndex.get();
    }
    return mIndex != nullptr ? mIndex->found(name, searchFrames)
                             : mSet->foundElementAccordingName(name, searchFrames);
}

} // namespace VorSystem
