// LengthUnit: the unit in which a user reads and types lengths.
#include <VorCore/LengthUnit.h>

#include <charconv>

namespace VorSystem
{

namespace
{

// The digits that every double keeps of a typed number; two conversions disturb only those behind them.
constexpr int kTypedDigits = 15;

double roundedToTypedDigits(double value) noexcept
{
    char digits[32]; // sign, 15 digits, decimal point and exponent, with room to spare
    const std::to_chars_result written =
        std::to_chars(digits, digits + sizeof digits, value, std::chars_format::scientific, kTypedDigits - 1);
    double rounded = value;
    std::from_chars(digits, written.ptr, rounded, std::chars_format::scientific);
    return rounded;
}

} // namespace

double LengthUnit::fromCentimeter(double length) const noexcept
{
    const double converted = length * mDenominator / mNumerator;
    if (mNumerator == mDenominator)
        return converted;
    const double typed = roundedToTypedDigits(converted);
    return toCentimeter(typed) == length ? typed : converted;
}

} // namespace VorSystem
