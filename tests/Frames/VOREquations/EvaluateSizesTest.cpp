// All sizes of a formula at once, held against one walk for each.

#include "FormulaFixture.h"
#include "RandomNumbers.h"

#include <cmath>
#include <cstring>
#include <rapidcheck/gtest.h>

using namespace formulas;
using namespace VorSystem;

namespace
{

/// An element whose only value is a formula.
class Driven : public Probe
{
public:
    Driven(const char *name, Node root) : Probe(name)
    {
        mFormulaMeasure = formulaOf(std::move(root));
        mFormulaLevel = std::make_unique<TreeEquations>(*mFormulaMeasure);
    }
};

bool sameBits(double a, double b)
{
    return std::memcmp(&a, &b, sizeof a) == 0 || (std::isnan(a) && std::isnan(b));
}

class EvaluateSizesTest : public FormulaTest
{
public:
    EvaluateSizesTest()
    {
        mX.mMeasures.mValues = {1.0, 0.0, 3.0, 1e-05};
        mX.mLevels.mValues = {10.0, 20.0, 30.0, 40.0, 50.0};
        mY.mMeasures.mValues = {-2.0, 0.5, 1e-06, 8.0};
    }

    Probe mX{"x"};
    Probe mY{"y"};
};

TEST_F(EvaluateSizesTest, everyPositionHoldsTheValueOfItsSize)
{
    Driven driven("d", joined(ElemAdd, joined(ElemMultiply, measureOf(&mX), constant(2)), levelOf(&mX)));
    QListEx<double> measures{9.0, 9.0, 9.0, 9.0};
    QListEx<double> levels{9.0, 9.0};

    EXPECT_TRUE(driven.evaluateMeasuresFormula(measures));
    EXPECT_TRUE(driven.evaluateLevelsFormula(levels));

    EXPECT_EQ(measures, (QListEx<double>{12.0, 20.0, 36.0, 40.00002}));
    EXPECT_EQ(levels, (QListEx<double>{12.0, 20.0}));
}

TEST_F(EvaluateSizesTest, withoutFormulaNothingIsWritten)
{
    QListEx<double> values{9.0, 9.0};

    EXPECT_FALSE(mX.evaluateMeasuresFormula(values));
    EXPECT_FALSE(mX.evaluateLevelsFormula(values));
    EXPECT_EQ(values, (QListEx<double>{9.0, 9.0}));
}

TEST_F(EvaluateSizesTest, aZeroDivisorShieldsItsDividendInItsSizeOnly)
{
    Driven driven("d", joined(ElemDivide, measureOf(&mY), measureOf(&mX)));
    QListEx<double> values{9.0, 9.0, 9.0, 9.0};

    EXPECT_TRUE(driven.evaluateMeasuresFormula(values));

    EXPECT_EQ(values, (QListEx<double>{-2.0, 0.0, 1e-06 / 3.0, 0.0}));
}

TEST_F(EvaluateSizesTest, anUnresolvedDividendIsRefusedInTheFirstSizeThatAsksForIt)
{
    mX.mMeasures.mValues = {0.0, 0.0, 3.0};
    Driven driven("d", joined(ElemDivide, measureOf(nullptr), measureOf(&mX)));
    QListEx<double> values{9.0, 9.0, 9.0};

    EXPECT_REFUSED(driven.evaluateMeasuresFormula(values));
    EXPECT_EQ(values, (QListEx<double>{0.0, 0.0, 9.0})); // as a loop over the sizes leaves them

    mX.mMeasures.mValues = {0.0, 0.0, 0.0};
    EXPECT_TRUE(driven.evaluateMeasuresFormula(values));
    EXPECT_EQ(values, (QListEx<double>{0.0, 0.0, 0.0}));
}

TEST_F(EvaluateSizesTest, aShortListMayBeShielded)
{
    mX.mMeasures.mValues = {1.0, 0.0};
    mY.mMeasures.mValues = {5.0};
    Driven driven("d", joined(ElemDivide, measureOf(&mY), measureOf(&mX)));
    QListEx<double> values{9.0, 9.0};

    EXPECT_TRUE(driven.evaluateMeasuresFormula(values));
    EXPECT_EQ(values, (QListEx<double>{5.0, 0.0}));
    mX.mMeasures.mValues = {1.0, 1.0};
    EXPECT_DEATH(driven.evaluateMeasuresFormula(values), "index");
}

TEST_F(EvaluateSizesTest, emptyListsCountZeroInEverySize)
{
    Probe fresh("fresh");
    Driven driven("d",
                  joined(ElemSubtract, measureOf(&fresh), joined(ElemAdd, levelOf(mFront), constant(1))));
    QListEx<double> values{9.0, 9.0, 9.0};

    EXPECT_TRUE(driven.evaluateMeasuresFormula(values));
    EXPECT_EQ(values, (QListEx<double>{-1.0, -1.0, -1.0}));
}

TEST_F(EvaluateSizesTest, anEmptyListIsLeftEmpty)
{
    Driven driven("d", std::make_unique<ElementEquation>());
    QListEx<double> none;

    EXPECT_TRUE(driven.evaluateMeasuresFormula(none)); // not even the root is looked at
    QListEx<double> some{1.0, 2.0};
    EXPECT_REFUSED(driven.evaluateMeasuresFormula(some));
}

TEST_F(EvaluateSizesTest, aFormulaMayReadTheListItIsWrittenTo)
{
    Driven driven("d", joined(ElemAdd, measureOf(&mX), joined(ElemMultiply, measureOf(&mX), constant(10))));

    EXPECT_TRUE(driven.evaluateMeasuresFormula(mX.mMeasures.mValues));
    EXPECT_EQ(mX.mMeasures.mValues, (QListEx<double>{11.0, 0.0, 33.0, 1e-05 + 1e-04}));
}

/// A random tree over elements whose lists may be empty, and constants that may be zero.
Node randomTree(const std::vector<std::unique_ptr<Probe>> &probes, int depth)
{
    const int kind = anyBelow(depth > 0 ? 14 : 3);
    Probe *const probe = probes[static_cast<std::size_t>(anyBelow(static_cast<int>(probes.size())))].get();
    if (kind == 0)
        return constant(*rc::gen::element(0.0, 1.0, -2.5, 1e-05, 3e-06, 7.25));
    if (kind == 1)
        return measureOf(probe);
    if (kind == 2)
        return levelOf(probe);
    if (kind == 3)
        return joined(ElemParenthesis, randomTree(probes, depth - 1), nullptr);
    const ElemContent operation = *rc::gen::element(ElemAdd, ElemSubtract, ElemMultiply, ElemDivide);
    Node left = randomTree(probes, depth - 1);
    Node right = randomTree(probes, depth - 1);
    return joined(operation, std::move(left), std::move(right));
}

RC_GTEST_PROP(EvaluateSizesProperty, oneWalkForAllSizesGivesTheBitsOfOneWalkForEach, ())
{
    const int sizes = anyBelow(12);
    std::vector<std::unique_ptr<Probe>> probes;
    for (const char *name : {"p", "q", "r"}) {
        probes.push_back(std::make_unique<Probe>(name));
        for (QListEx<double> *list : {&probes.back()->mMeasures.mValues, &probes.back()->mLevels.mValues}) {
            const bool filled = anyBelow(4) != 0;
            for (int size = 0; filled && size < sizes + anyBelow(2); ++size)
                list->append(*rc::gen::element(0.0, 1e-05, -1e-06, 2.0, -3.5, 1e9));
            while (filled && list->size() < sizes)
                list->append(4.0);
        }
    }
    Driven driven("d", randomTree(probes, 6));
    QListEx<double> values;
    for (int size = 0; size < sizes; ++size)
        values.append(99.0);

    RC_ASSERT(driven.evaluateMeasuresFormula(values));

    for (int size = 0; size < sizes; ++size)
        RC_ASSERT(sameBits(values.at(size), driven.mFormulaMeasure->evaluate(static_cast<short>(size))));
}

} // namespace
