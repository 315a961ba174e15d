// Which constants are lengths, in millimetres: ten to the centimetre.

#include "FormulaFixture.h"

using namespace formulas;
using namespace VorSystem;

namespace
{

class ImplicitUnitsTest : public FormulaTest
{
public:
    ImplicitUnitsTest() { mApplication.setLengthUnit(LengthUnit::millimetre()); }
};

/// The tree with the unit of every node: n for a number, l for a length, the number itself for others.
QString units(const ElementEquation *node)
{
    const QString unit = node->implicitUnit == ImplicitNumber   ? QStringLiteral("n")
                         : node->implicitUnit == ImplicitLength ? QStringLiteral("l")
                                                                : QString::number(node->implicitUnit);
    if (node->contents == ElemValue)
        return QString::number(node->value, 'g', 12) + unit;
    if (node->sonLeft == nullptr)
        return unit;
    if (node->sonRight == nullptr)
        return QStringLiteral("{%1}%2").arg(units(node->sonLeft), unit);
    return QStringLiteral("(%1 %2)%3").arg(units(node->sonLeft), units(node->sonRight), unit);
}

TEST_F(ImplicitUnitsTest, constantsBecomeLengthsWhereTheSurroundingIsOne)
{
    struct {
        const char *typed;
        const char *settled;
        bool sound;
        const char *printed;
    } const rows[] = {
        // clang-format off
        // typed                          settled                   sound  printed
        {"25",                            "2.5l",                   true,  "25"},
        {"Measure(a) + 25",               "(l 2.5l)l",              true,  "Measure(a) + 25"},
        {"25 - Measure(a)",               "(2.5l l)l",              true,  "25 - Measure(a)"},
        {"Measure(a) * 2",                "(l 2n)l",                true,  "Measure(a) * 2"},
        {"2 * Measure(a)",                "(2n l)l",                true,  "2 * Measure(a)"},
        {"Measure(a) / 2",                "(l 2n)l",                true,  "Measure(a) / 2"},
        {"2 * 3",                         "(2n 3n)n",               true,  "2 * 3"},
        {"6 / 3",                         "(6n 3n)n",               true,  "6 / 3"},
        {"Measure(a) + 2 * 3",            "(l (2n 0.3l)l)l",        true,  "Measure(a) + 2 * 3"},
        {"Measure(a) + 6 / 3",            "(l (0.6l 3n)l)l",        true,  "Measure(a) + 6 / 3"},
        {"Measure(a) + (2 * 3) * 4",      "(l ((2n 3n)n 0.4l)l)l",  true,  "Measure(a) + 2 * 3 * 4"},
        {"Measure(a) + 2 * (3 + 4)",      "(l (2n (0.3l 0.4l)l)l)l", true, "Measure(a) + 2 * (3 + 4)"},
        {"1 + 2",                         "(0.1l 0.2l)l",           true,  "1 + 2"},
        {"(1 + 2) * 3",                   "((1n 2n)n 3n)n",         true,  "(1 + 2) * 3"},
        {"(Measure(a) + 2) * 3",          "((l 0.2l)l 3n)l",        true,  "(Measure(a) + 2) * 3"},
        {"Measure(a) * Measure(b)",       "(l l)n",                 false, "Measure(a) * Measure(b)"},
        {"Measure(a) / Measure(b)",       "(l l)n",                 false, "Measure(a) / Measure(b)"},
        {"Measure(a) / 0",                "(l 0n)l",                false, "Measure(a) / 0"},
        {"Measure(a) / 0.00001",          "(l 1e-05n)l",            false, "Measure(a) / 0.00001"},
        {"Measure(a) / 0.000011",         "(l 1.1e-05n)l",          true,  "Measure(a) / 0.000011"},
        {"Measure(a) / (1 - 1)",          "(l (1n 1n)n)l",          true,  "Measure(a) / (1 - 1)"},
        {"1 / 0",                         "(1n 0n)n",               false, "1 / 0"},
        {"2 / Measure(a)",                "(2n l)n",                false, "2 / Measure(a)"},
        {"-Measure(a)",                   "(0l l)l",                true,  "0 - Measure(a)"},
        {"2 * -3",                        "(2n -3n)n",              true,  "2 * -3"},
        // clang-format on
    };
    for (const auto &row : rows) {
        const Formula formula = parsed(row.typed, true);
        ASSERT_NE(formula, nullptr) << row.typed;
        EXPECT_EQ(text(units(formula->root)), row.settled) << row.typed;
        EXPECT_EQ(formula->verifierImplicitUnits(), row.sound) << row.typed;
        EXPECT_EQ(text(formula->toString()), row.printed) << row.typed;
        // The judge comes to the same verdict before the units are settled.
        EXPECT_EQ(parsed(row.typed)->verifierImplicitUnits(), row.sound) << row.typed;
    }
}

TEST_F(ImplicitUnitsTest, aDivisorThatOnlyEvaluatesToZeroGivesZero)
{
    EXPECT_EQ(parsed("Measure(a) / (1 - 1)", true)->evaluate(-1), 0.0);
}

TEST_F(ImplicitUnitsTest, inchesAreConvertedBothWays)
{
    mApplication.setLengthUnit(LengthUnit::inch());
    const Formula formula = parsed("Measure(a) + 2", true);

    EXPECT_DOUBLE_EQ(formula->root->sonRight->value, 5.08);
    EXPECT_EQ(text(formula->toString()), "Measure(a) + 2");
    EXPECT_DOUBLE_EQ(formula->evaluate(-1), 12.08);
    mApplication.setLengthUnit(LengthUnit::centimetre());
    EXPECT_EQ(text(formula->toString()), "Measure(a) + 5.08");
}

TEST_F(ImplicitUnitsTest, aSecondRunConvertsConstantsOfSumsNoMore)
{
    for (const char *typed : {"25", "Measure(a) + 25", "1 + 2 - 3", "Measure(a) * 2"}) {
        const Formula formula = parsed(typed, true);
        const QString once = units(formula->root);
        formula->determineImplicitUnits();
        EXPECT_EQ(text(units(formula->root)), text(once)) << typed;
    }
}

// Below a product the walk makes the constant a number again, value kept, before the sum forces it once more.
TEST_F(ImplicitUnitsTest, aSecondRunConvertsAConstantForcedBelowAProductAgain)
{
    const Formula product = parsed("Measure(a) + 2*3", true);
    product->determineImplicitUnits();
    EXPECT_DOUBLE_EQ(product->root->sonRight->sonRight->value, 0.03);
    product->determineImplicitUnits();
    EXPECT_DOUBLE_EQ(product->root->sonRight->sonRight->value, 0.003);

    const Formula quotient = parsed("Measure(a) + 6/3", true);
    quotient->determineImplicitUnits();
    EXPECT_DOUBLE_EQ(quotient->root->sonRight->sonLeft->value, 0.06);

    const Formula sum = parsed("(Measure(a) + 2) * 3", true);
    sum->determineImplicitUnits();
    EXPECT_DOUBLE_EQ(sum->root->sonLeft->sonRight->value, 0.02);
}

TEST_F(ImplicitUnitsTest, aConstantIsConvertedOnlyOnItsWayToALength)
{
    const Node node = constant(25);

    node->setImplicitUnit(ImplicitLength);
    EXPECT_EQ(text(units(node.get())), "2.5l");
    node->setImplicitUnit(ImplicitLength);
    EXPECT_EQ(text(units(node.get())), "2.5l");
    node->determineImplicitUnit(ImplicitNumber);
    EXPECT_EQ(text(units(node.get())), "2.5n"); // stays in centimetres
    node->setImplicitUnit(ImplicitInvalid);
    EXPECT_EQ(text(units(node.get())), "2.52");
}

TEST_F(ImplicitUnitsTest, explicitBracketsDropTheExpectationOfTheJudgeOnly)
{
    const Node node = joined(ElemParenthesis, constant(25), nullptr);

    EXPECT_EQ(node->evaluationImplicitUnit(ImplicitLength), ImplicitNumber);
    EXPECT_EQ(node->sonLeft->evaluationImplicitUnit(ImplicitLength), ImplicitLength);
    node->determineImplicitUnit(ImplicitLength);
    EXPECT_EQ(text(units(node.get())), "{2.5l}l");
    node->setImplicitUnit(ImplicitNumber);
    EXPECT_EQ(text(units(node.get())), "{2.5n}n");
}

/// A leaf whose unit is given by hand and kept by every walk: an empty node.
Node leafOf(int unit)
{
    auto node = std::make_unique<ElementEquation>();
    node->implicitUnit = static_cast<eImplicitUnite>(unit);
    return node;
}

TEST_F(ImplicitUnitsTest, unitsOfProductsAndQuotients)
{
    constexpr int kKept = 7; // a unit that no rule gives
    struct {
        ElemContent kind;
        int left, right, result;
    } const rows[] = {
        // clang-format off
        // kind        left right result
        {ElemMultiply, 0,   0,    0},
        {ElemMultiply, 0,   1,    1},
        {ElemMultiply, 0,   2,    1},
        {ElemMultiply, 1,   0,    1},
        {ElemMultiply, 1,   2,    1},
        {ElemMultiply, 1,   1,    kKept},
        {ElemMultiply, 2,   0,    1},
        {ElemMultiply, 2,   1,    1},
        {ElemMultiply, 5,   5,    1},
        {ElemDivide,   0,   0,    0},
        {ElemDivide,   1,   1,    0},
        {ElemDivide,   1,   0,    1},
        {ElemDivide,   0,   1,    kKept},
        {ElemDivide,   0,   2,    kKept},
        {ElemDivide,   1,   2,    kKept},
        {ElemDivide,   2,   0,    kKept},
        {ElemDivide,   2,   2,    kKept},
        // clang-format on
    };
    for (const auto &row : rows) {
        const Node node = joined(row.kind, leafOf(row.left), leafOf(row.right));
        node->implicitUnit = static_cast<eImplicitUnite>(kKept);
        node->determineImplicitUnit(ImplicitLength);
        EXPECT_EQ(node->implicitUnit, row.result) << row.kind << ' ' << row.left << ' ' << row.right;
    }
}

TEST_F(ImplicitUnitsTest, verdictsOnProductsQuotientsAndSums)
{
    const auto leaf = [this](int unit) {
        return unit == 0 ? constant(3) : unit == 1 ? measureOf(mA) : std::make_unique<ElementEquation>();
    };
    for (int left = 0; left <= 2; ++left) {
        for (int right = 0; right <= 2; ++right) {
            const bool broken = left == 2 || right == 2;
            const int product = broken || left + right == 2 ? 2 : left + right;
            const int quotient = broken || right == 1 ? 2 : left;
            const int sum = broken ? 2 : left == right ? left : 1;
            const auto judged = [&](ElemContent kind) {
                return joined(kind, leaf(left), leaf(right))->evaluationImplicitUnit(ImplicitNumber);
            };
            EXPECT_EQ(judged(ElemMultiply), product) << left << right;
            EXPECT_EQ(judged(ElemDivide), quotient) << left << right;
            EXPECT_EQ(judged(ElemAdd), sum) << left << right;
            EXPECT_EQ(judged(ElemSubtract), sum) << left << right;
        }
    }
}

TEST_F(ImplicitUnitsTest, theVerdictChangesNothing)
{
    for (const char *typed : {"Measure(a) + 25", "Measure(a) * Measure(b)", "x + 1", "1/0"}) {
        const Formula formula = parsed(typed);
        const QString before = units(formula->root);
        formula->verifierImplicitUnits();
        EXPECT_EQ(text(units(formula->root)), text(before)) << typed;
    }
}

TEST_F(ImplicitUnitsTest, whatCanBeForcedToAUnit)
{
    const auto node = [](int unit, Node made) {
        made->implicitUnit = static_cast<eImplicitUnite>(unit);
        return made;
    };
    struct {
        Node tree;
        int unit;
        const char *result; // "refused" for an error
    } const rows[] = {
        // clang-format off
        {measureOf(mA),                                               1, "l"},
        {levelOf(mA),                                                 0, "refused"},
        {measureOf(mA),                                               2, "refused"},
        {joined(ElemAdd, constant(10), constant(20)),                 1, "(1l 2l)l"},
        {joined(ElemSubtract, node(1, constant(1)), constant(20)),    1, "(1l 2l)l"},
        {joined(ElemMultiply, constant(10), constant(20)),            1, "(10n 2l)l"},
        {joined(ElemMultiply, constant(10), constant(20)),            0, "(10n 20n)n"},
        {joined(ElemMultiply, constant(10), constant(20)),            2, "(10n 20n)n"},
        {node(1, joined(ElemMultiply, constant(1), constant(2))),     1, "(1n 2n)l"},
        {node(1, joined(ElemMultiply, constant(1), constant(2))),     0, "refused"},
        {node(2, joined(ElemMultiply, constant(1), constant(2))),     1, "refused"},
        {joined(ElemDivide, constant(10), constant(20)),              1, "(1l 20n)l"},
        {joined(ElemDivide, constant(10), constant(20)),              0, "(10n 20n)n"},
        {joined(ElemDivide, node(1, constant(1)), constant(2)),       1, "refused"},
        {joined(ElemDivide, node(2, constant(1)), constant(2)),       1, "refused"},
        {node(1, joined(ElemDivide, constant(1), constant(2))),       1, "(1n 2n)l"},
        {node(1, joined(ElemDivide, constant(1), constant(2))),       0, "refused"},
        {node(2, joined(ElemDivide, constant(1), constant(2))),       1, "refused"},
        {std::make_unique<ElementEquation>(),                         1, "refused"},
        // clang-format on
    };
    for (const auto &row : rows) {
        std::string result = "refused";
        try {
            row.tree->setImplicitUnit(static_cast<eImplicitUnite>(row.unit));
            result = text(units(row.tree.get()));
        } catch (const AssertionError &) {
        }
        EXPECT_EQ(result, row.result) << text(shape(row.tree.get())) << " to " << row.unit;
    }
}

TEST_F(ImplicitUnitsTest, aRefusalInTheMiddleKeepsWhatWasConverted)
{
    const Node sum = joined(ElemAdd, constant(10), std::make_unique<ElementEquation>());

    EXPECT_EQ(operationRefusing([&] { sum->setImplicitUnit(ImplicitLength); }), "setImplicitUnit");
    EXPECT_EQ(text(units(sum->sonLeft)), "1l");
    EXPECT_EQ(sum->implicitUnit, ImplicitNumber);
}

} // namespace
