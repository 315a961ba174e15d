// LengthUnit: the unit in which a user reads and types lengths.
#pragma once

#include <VorCore/VorCoreExport.h>

#include <QLatin1String>

namespace VorSystem
{

/// A length unit as an exact fraction of the centimetre. The default one is the centimetre.
class VORCORE_EXPORT LengthUnit
{
public:
    constexpr LengthUnit() noexcept = default;

    /// The units that there are; an inch is exactly 2.54 cm.
    ///@{
    static constexpr LengthUnit centimetre() noexcept { return {1, 1, "cm"}; }
    static constexpr LengthUnit millimetre() noexcept { return {1, 10, "mm"}; }
    static constexpr LengthUnit inch() noexcept { return {127, 50, "in"}; }
    ///@}

    /// A length of this unit in centimetres. For the centimetre itself nothing changes, to the last bit.
    double toCentimeter(double length) const noexcept { return length * mNumerator / mDenominator; }

    /// A length in centimetres in this unit: of the numbers that toCentimeter takes back to length, one with
    /// at most 15 digits where there is one. So what a user typed is shown as it was typed.
    double fromCentimeter(double length) const noexcept;

    /// The usual short sign: cm, mm, in.
    QLatin1String symbol() const noexcept { return QLatin1String(mSymbol); }

    /// Equal when one unit is as long as the other.
    ///@{
    bool operator==(const LengthUnit &other) const noexcept
    {
        return mNumerator == other.mNumerator && mDenominator == other.mDenominator;
    }
    bool operator!=(const LengthUnit &other) const noexcept { return !(*this == other); }
    ///@}

private:
    // One unit is numerator / denominator centimetres. Both are small whole numbers, so that a typed length
    // meets a single rounding where its product is exact; 0.1 and 2.54 themselves are no doubles.
    constexpr LengthUnit(int numerator, int denominator, const char *symbol) noexcept
        : mNumerator(numerator), mDenominator(denominator), mSymbol(symbol)
    {
    }

    int mNumerator = 1;
    int mDenominator = 1;
    const char *mSymbol = "cm";
};

} // namespace VorSystem
