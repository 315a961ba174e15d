// Explicit evolutions of one vector: its displacement from the nest in every size.
#pragma once

#include <VorConjoin/BasedIndex.h>
#include <VorConjoin/VorConjoinExport.h>
#include <VorGeo/GeoPoint2D.h>

#include <memory>

namespace VorSystem
{

/// A displacement in centimetres.
struct Evolution {
    double x = 0.0; ///< to the right
    double y = 0.0; ///< upwards
};

/// The two steps of a regular vector: what one size away from the nest adds.
///
/// Below the nest the step counts downwards: the size next below lies at nest + small.
struct RegularSteps {
    Evolution small; ///< added by each size below the nest
    Evolution large; ///< added by each size above it
};

/// One evolution per size, in centimetres; that of the nest is zero except between the two halves of a nest
/// move.
///
/// Made from regular steps, it holds no table until the first write: reading a whole document size by size
/// allocates nothing per size.
class VORCONJOIN_EXPORT IrregularGradationData
{
public:
    /// Evolutions by the regular rule. sizeCount is at least 1, nestNumber (1-based) within it.
    IrregularGradationData(short sizeCount, short nestNumber, const RegularSteps &steps = {});
    /// A deep copy; without a table where the other has none.
    IrregularGradationData(const IrregularGradationData &other);
    IrregularGradationData &operator=(const IrregularGradationData &) = delete;
    ~IrregularGradationData();

    /// Number of sizes, at least 1.
    short size() const { return mSize; }
    /// 1-based number of the nest.
    short indexMedium() const { return mMedium; }

    /// Evolution of a size; the origin for a size that is not there.
    GeoPoint2D getGradation(const t_0_Based &size) const
    {
        const Evolution found = evolution(size.value());
        return GeoPoint2D(found.x, found.y);
    }
    /// The same without a point around it, by a position that counts from 0.
    Evolution evolution(short position) const
    {
        if (position < 0 || position >= mSize)
            return {};
        return mTable ? mTable[static_cast<std::size_t>(position)] : byRule(position);
    }
    /// Stores the evolution of a size; a size that is not there is passed over.
    ///@{
    void setGradation(const t_0_Based &size, const GeoPoint2D &evolution);
    void setEvolution(short position, const Evolution &evolution);
    ///@}

    /// True while no evolution was written: the steps given at birth hold in every size.
    bool isByRule() const { return !mTable; }
    /// The steps given at birth.
    const RegularSteps &steps() const { return mSteps; }

    /// A new set of evolutions for another gradation: outer sizes that are new continue by the last step,
    /// sizes that are gone are cut. Owned by the caller.
    std::unique_ptr<IrregularGradationData> fitted(short sizeCount, short nestNumber) const;

    /// Finds the two steps that give every evolution within 1e-9 cm; false when there are none.
    ///
    /// A side without sizes leaves its step as it came in.
    bool asRegular(RegularSteps *steps) const;

private:
    Evolution byRule(short position) const;
    void makeTable();

    RegularSteps mSteps;
    std::unique_ptr<Evolution[]> mTable; ///< null while the rule holds
    short mSize;
    short mMedium;
};

} // namespace VorSystem
