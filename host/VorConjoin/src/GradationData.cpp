// The gradation of a document.

#include <VorConjoin/GradationData.h>

namespace VorSystem
{

GradationData::GradationData(short sizeCount, short nestNumber)
{
    if (sizeCount < 1 || nestNumber < 1 || nestNumber > sizeCount)
        return;
    mSizeCount = sizeCount;
    mMediumIndex = nestNumber;
}

bool GradationData::hasNest(const GradationData *gradation)
{
    return gradation && gradation->isGradationNestDefined();
}

short GradationData::sizes(const GradationData *gradation)
{
    return gradation ? gradation->gradationNum() : short{1};
}

short GradationData::nestNumber(const GradationData *gradation)
{
    return hasNest(gradation) ? gradation->mMediumIndex : short{1};
}

bool GradationData::isGradationNestDefined() const
{
    // The number is a public field: one outside the sizes is no nest.
    return mMediumIndex >= 1 && mMediumIndex <= mSizeCount;
}

short GradationData::gradationNum() const
{
    return isGradationNestDefined() ? mSizeCount : short{1};
}

short GradationData::getSmallGradationNum() const
{
    return isGradationNestDefined() ? static_cast<short>(mMediumIndex - 1) : short{0};
}

short GradationData::getLargeGradationNum() const
{
    return isGradationNestDefined() ? static_cast<short>(mSizeCount - mMediumIndex) : short{0};
}

} // namespace VorSystem
