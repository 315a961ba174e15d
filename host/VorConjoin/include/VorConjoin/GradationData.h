// The gradation of a document: how many sizes there are and which of them is the nest.
#pragma once

#include <VorConjoin/VorConjoinExport.h>

namespace VorSystem
{

/// Sizes of a document and the nest among them.
///
/// Without a nest there is one implicit size. Most callers hold a pointer that may be null: hasNest(),
/// sizes() and nestNumber() answer for null too, and are the only way to ask then.
class VORCONJOIN_EXPORT GradationData
{
public:
    /// A gradation without nest.
    GradationData() = default;
    /// A gradation of so many sizes; nestNumber counts from 1. Without nest when nestNumber lies
    /// outside 1..sizeCount.
    GradationData(short sizeCount, short nestNumber);

    /// True when a gradation is there and has a nest; null has none.
    static bool hasNest(const GradationData *gradation);
    /// Number of sizes, 1 for null and without a nest.
    static short sizes(const GradationData *gradation);
    /// 1-based number of the size in which positions are held; 1 for null and without a nest.
    static short nestNumber(const GradationData *gradation);

    /// True when the nest is one of the sizes.
    bool isGradationNestDefined() const;
    /// Number of sizes; 1 without a nest.
    short gradationNum() const;
    /// 1-based number of the nest; 0 without a nest.
    short mediumIndex() const { return mMediumIndex; }
    /// Number of sizes below the nest; 0 without a nest.
    short getSmallGradationNum() const;
    /// Number of sizes above the nest; 0 without a nest.
    short getLargeGradationNum() const;

    short mMediumIndex = 0; ///< 1-based number of the nest, 0 when none is defined

private:
    short mSizeCount = 1;
};

} // namespace VorSystem
