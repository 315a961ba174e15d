// Length units: exact factors, and typed numbers that read back as typed.
#include <VorCore/VorCore.h>
#include <cmath>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

using namespace VorSystem;

namespace
{

const LengthUnit kUnits[] = {LengthUnit::centimetre(), LengthUnit::millimetre(), LengthUnit::inch()};

} // namespace

TEST(LengthUnit, aNewUnitIsTheCentimetre)
{
    EXPECT_EQ(LengthUnit(), LengthUnit::centimetre());
    EXPECT_NE(LengthUnit::millimetre(), LengthUnit::inch());
    EXPECT_EQ(LengthUnit().symbol(), QLatin1String("cm"));
    EXPECT_EQ(LengthUnit::millimetre().symbol(), QLatin1String("mm"));
    EXPECT_EQ(LengthUnit::inch().symbol(), QLatin1String("in"));
}

TEST(LengthUnit, convertsBothWays)
{
    const struct {
        LengthUnit unit;
        double typed;
        double centimetres;
    } cases[] = {
        {LengthUnit::centimetre(), 12.3, 12.3}, {LengthUnit::millimetre(), 12.3, 1.23},
        {LengthUnit::millimetre(), 3.0, 0.3},   {LengthUnit::inch(), 1.0, 2.54},
        {LengthUnit::inch(), 0.125, 0.3175},    {LengthUnit::inch(), -100.0, -254.0},
        {LengthUnit::inch(), 0.0, 0.0},
    };
    for (const auto &row : cases) {
        EXPECT_EQ(row.unit.toCentimeter(row.typed), row.centimetres) << row.typed;
        EXPECT_EQ(row.unit.fromCentimeter(row.centimetres), row.typed) << row.centimetres;
    }
}

TEST(LengthUnit, theCentimetreChangesNoBit)
{
    for (const double value : {0.1, -0.0, 1e-320, 1e300, 1.0 / 3.0}) {
        EXPECT_EQ(LengthUnit().toCentimeter(value), value);
        EXPECT_EQ(LengthUnit().fromCentimeter(value), value);
        EXPECT_EQ(std::signbit(LengthUnit().fromCentimeter(value)), std::signbit(value));
    }
}

TEST(LengthUnit, whatIsNotFiniteStaysSo)
{
    for (const LengthUnit &unit : kUnits) {
        EXPECT_TRUE(std::isnan(unit.fromCentimeter(std::nan(""))));
        EXPECT_TRUE(std::isinf(unit.fromCentimeter(-INFINITY)));
        EXPECT_TRUE(std::isinf(unit.toCentimeter(INFINITY)));
    }
}

// Without care, three numbers in twenty would come back as 12.299999999999999 or the like.
TEST(LengthUnit, everyTypedThousandthReadsBackAsTyped)
{
    for (const LengthUnit &unit : kUnits) {
        int different = 0;
        for (int i = 0; i <= 300000; ++i)
            different += unit.fromCentimeter(unit.toCentimeter(i / 1000.0)) != i / 1000.0;
        EXPECT_EQ(different, 0) << unit.symbol().data();
    }
}

RC_GTEST_PROP(LengthUnitProperties, conversionsAreInverseWithinRounding, (double value))
{
    for (const LengthUnit &unit : kUnits) {
        const double back = unit.toCentimeter(unit.fromCentimeter(value));
        RC_ASSERT(std::abs(back - value) <= 4e-16 * std::abs(value) + 1e-300);
    }
}
