// Values per size: comparing, shifting, growing, shrinking, and fitting to a gradation.

#include <support/TestDocument.h>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <limits>

using namespace VorSystem;
using support::sizes;
using support::text;

namespace
{

std::string fitted(ValuesAccordingSizes values, short small, short large)
{
    adjustValuesAccordingSizeToNest(&values, small, large);
    return text(values);
}

TEST(ValuesAccordingSizes, fittingContinuesTheGradingInAStraightLine)
{
    struct Row {
        ValuesAccordingSizes values;
        short small;
        short large;
        const char *result;
    };
    const Row rows[] = {
        {sizes({}, 0), 2, 1, "0 0 [0] 0"},                 // an empty list becomes zeros
        {sizes({}, 7), 0, 0, "[0]"},                       // whatever its index says
        {sizes({10, 12, 14}, 1), 2, 2, "8 10 [12] 14 16"}, // one more on either side
        {sizes({5}, 0), 1, 1, "5 [5] 5"},                  // a single value repeats itself
        {sizes({8, 10, 12, 14, 16}, 2), 0, 1, "[12] 14"},  // shrinking keeps the nest
        {sizes({10, 12, 14}, 1), 1, 1, "10 [12] 14"},      // a list that fits stays
        {sizes({10, 13, 14}, 1), 3, 0, "4 7 10 [13]"},     // each side by its own outermost step
        {sizes({3, 4}, 0), 2, 3, "3 3 [3] 4 5 6"},         // nothing below the nest: repeated there
        {sizes({3, 4}, 1), 3, 2, "1 2 3 [4] 4 4"},         // nothing above the nest: repeated there
        {sizes({10, 12, 14}, 7), 0, 0, "[14]"},            // an index beyond the list: the nearest value
        {sizes({10, 12, 14}, -3), 0, 1, "[10] 12"},
    };
    for (const Row &row : rows)
        EXPECT_EQ(fitted(row.values, row.small, row.large), row.result) << text(row.values);
}

TEST(ValuesAccordingSizes, fittingNothingIsAnError)
{
    const support::Thrown thrown =
        support::thrownBy<AssertionError>([] { adjustValuesAccordingSizeToNest(nullptr, 1, 1); });
    EXPECT_EQ(thrown.what, "Invalid Operation");
    EXPECT_EQ(thrown.file, R"(src\Frames\VORFrames)");
    EXPECT_NE(thrown.function.find("adjustValuesAccordingSizeToNest"), std::string::npos);
    EXPECT_GT(thrown.line, 0);
}

TEST(ValuesAccordingSizes, aListLongerThanAShortCountsIsFittedWithoutHarm)
{
    ValuesAccordingSizes values;
    for (int i = 0; i < 70000; ++i)
        values.mValues.append(i);
    values.mNestIndex = 2;
    adjustValuesAccordingSizeToNest(&values, 0, 0);
    EXPECT_EQ(values.mValues.at(values.mNestIndex), 2.0);
    adjustValuesAccordingSizeToNest(&values, 32767, 32767);
    EXPECT_EQ(values.mValues.at(values.mNestIndex), 2.0);
}

TEST(ValuesAccordingSizes, equalityDividesTheDifferenceByThreeFirst)
{
    struct Row {
        ValuesAccordingSizes a;
        ValuesAccordingSizes b;
        bool same;
    };
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const Row rows[] = {
        {sizes({1.00002}, 0), sizes({1.0}, 0), true}, // the zero test alone would tell them apart
        {sizes({0.00003}, 0), sizes({0.0}, 0), true},
        {sizes({0.000031}, 0), sizes({0.0}, 0), false},
        {sizes({1.0, 2.0}, 0), sizes({1.0}, 0), false},
        {sizes({1.0, 2.0}, 0), sizes({1.0, 2.0}, 1), true}, // the nest plays no part
        {sizes({}, 0), sizes({}, 3), true},
        {sizes({nan}, 0), sizes({nan}, 0), false},
    };
    for (const Row &row : rows)
        EXPECT_EQ(row.a.isSameAs(row.b), row.same) << text(row.a) << " and " << text(row.b);
}

TEST(ValuesAccordingSizes, shiftingBringsTheNestToTheOthersNest)
{
    ValuesAccordingSizes values = sizes({10, 12, 14}, 1);
    values.shiftTo(sizes({1, 2, 3, 4}, 3));
    EXPECT_EQ(text(values), "2 [4] 6");
}

TEST(ValuesAccordingSizes, growsAndShrinksAtEitherEnd)
{
    ValuesAccordingSizes values = sizes({10, 12, 14}, 1);
    values.addSmallerSizes(2);
    EXPECT_EQ(text(values), "6 8 10 [12] 14");
    values.addLargerSizes(1);
    EXPECT_EQ(text(values), "6 8 10 [12] 14 16");
    values.removeSmallerSizes(3);
    EXPECT_EQ(text(values), "[12] 14 16");
    values.removeLargerSizes(2);
    EXPECT_EQ(text(values), "[12]");
    values.addSmallerSizes(0);
    values.addLargerSizes(-1);
    EXPECT_EQ(text(values), "[12]");
}

TEST(ValuesAccordingSizesDeath, removingMoreThanThereIsEndsTheProgram)
{
    testing::FLAGS_gtest_death_test_style = "fast";
    ValuesAccordingSizes values = sizes({10, 12}, 0);
    EXPECT_DEATH(values.removeSmallerSizes(3), "removeFirst");
    EXPECT_DEATH(values.removeLargerSizes(3), "removeLast");
    ValuesAccordingSizes empty;
    EXPECT_DEATH(empty.shiftTo(values), "at: index 0 is outside a list of size 0");
}

// A list of 1 to 12 values with its nest somewhere in it.
rc::Gen<ValuesAccordingSizes> lists()
{
    return rc::gen::mapcat(rc::gen::inRange(1, 13), [](int count) {
        return rc::gen::map(
            rc::gen::pair(rc::gen::container<std::vector<int>>(count, rc::gen::inRange(-1000, 1000)),
                          rc::gen::inRange(0, count)),
            [](const std::pair<std::vector<int>, int> &drawn) {
                ValuesAccordingSizes values;
                for (const int value : drawn.first)
                    values.mValues.append(value / 4.0);
                values.mNestIndex = static_cast<short>(drawn.second);
                return values;
            });
    });
}

RC_GTEST_PROP(ValuesAccordingSizes, fittingNeverChangesTheNest, ())
{
    ValuesAccordingSizes values = *lists();
    const double nest = values.mValues.at(values.mNestIndex);
    const short small = *rc::gen::inRange<short>(0, 20);
    const short large = *rc::gen::inRange<short>(0, 20);
    adjustValuesAccordingSizeToNest(&values, small, large);
    RC_ASSERT(values.mNestIndex == small);
    RC_ASSERT(values.mValues.count() == small + large + 1);
    RC_ASSERT(values.mValues.at(values.mNestIndex) == nest);
}

RC_GTEST_PROP(ValuesAccordingSizes, shrinkingAfterGrowingRestoresTheList, ())
{
    const ValuesAccordingSizes before = *lists();
    ValuesAccordingSizes values = before;
    const short more = *rc::gen::inRange<short>(0, 9);
    const auto small = before.mNestIndex;
    const auto large = static_cast<short>(before.mValues.count() - before.mNestIndex - 1);
    adjustValuesAccordingSizeToNest(&values, static_cast<short>(small + more),
                                    static_cast<short>(large + more));
    adjustValuesAccordingSizeToNest(&values, small, large);
    RC_ASSERT(values.mNestIndex == before.mNestIndex);
    RC_ASSERT(values.mValues == before.mValues);
}

} // namespace
