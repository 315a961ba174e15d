// The elements that the names in a formula mean, for the length of one call.

#include "VOREquations/ElementNames.h"

#include "VORFrames/NameIndex.h"

#include <VorFrames/FrameSet.h>

namespace VorSystem
{

namespace
{

// A search passes by the elements at a few nanoseconds each, an index costs a hundred or so for each of them
// once, and as much again for each name that is looked up.
constexpr int kElementsBeforeIndex = 100;
constexpr int kSearchesBeforeIndex = 8;

} // namespace

ElementNames::ElementNames(const FrameSet *set)
    : mSet(set), mIndex(set == nullptr ? nullptr : set->mNamesAtHand)
{
}

ElementNames::~ElementNames() = default;

bool ElementNames::isLarge(const FrameSet &set)
{
    const int count = set.mFrames.size() + set.mFrameCenters.size() + set.mFrameLinks.size() +
                      set.mFrameSegments.size() + set.mFrameSpecs.size() + set.mFrameMeasurementCharts.size();
    return count > kElementsBeforeIndex;
}

BaseFrame *ElementNames::found(const QString &name, bool searchFrames)
{
    if (mIndex == nullptr && ++mSearches > kSearchesBeforeIndex && isLarge(*mSet)) {
        mOwnIndex = std::make_unique<NameIndex>(*mSet);
        mIndex = mOwnIndex.get();
    }
    return mIndex != nullptr ? mIndex->found(name, searchFrames)
                             : mSet->foundElementAccordingName(name, searchFrames);
}

} // namespace VorSystem
