// Formulas of any size: an answer, in time, without the end of the stack.

#include "FormulaFixture.h"

#include <VorFrames/FormulaLimits.h>

using namespace formulas;
using namespace VorSystem;

namespace
{

class FormulaLimitsTest : public FormulaTest
{
public:
    static QString repeated(const char *part, int times) { return QString::fromLatin1(part).repeated(times); }
    static QString nested(const char *open, int times, const char *close)
    {
        return repeated(open, times) + QLatin1Char('7') + repeated(close, times);
    }
    /// 1+1+ ... of so many operands.
    static QString sum(const char *sign, int operands, const char *operand = "1")
    {
        return QString::fromLatin1(operand) + repeated((std::string(sign) + operand).c_str(), operands - 1);
    }
    bool isFormula(const QString &typed) { return parsed(typed) != nullptr; }
};

TEST_F(FormulaLimitsTest, theLimitsAreAtLeastThoseOfTheDocumentation)
{
    static_assert(kMaxFormulaNesting >= 200);
    static_assert(kMaxFormulaOperands >= 10000);
    static_assert(kMaxFormulaDepth >= kMaxFormulaOperands + kMaxFormulaNesting);
}

TEST_F(FormulaLimitsTest, bracketsAndSignsNestUpToTheLimit)
{
    const int limit = kMaxFormulaNesting;
    struct {
        const char *open;
        const char *close;
        int levels; // that one open part stands for
    } const rows[] = {{"(", ")", 1},  {"-(", ")", 2},  {"+", "", 1},
                      {"+(", ")", 2}, {"1+(", ")", 1}, {"2*-(", ")", 2}};
    for (const auto &row : rows) {
        EXPECT_TRUE(isFormula(nested(row.open, limit / row.levels, row.close))) << row.open;
        EXPECT_FALSE(isFormula(nested(row.open, limit / row.levels + 2, row.close))) << row.open;
    }
    EXPECT_TRUE(isFormula(nested("(", limit, ")")));
    EXPECT_FALSE(isFormula(nested("(", limit + 1, ")")));
    // The last sign belongs to the number.
    EXPECT_TRUE(isFormula(repeated("-", limit + 1) + QLatin1Char('7')));
    EXPECT_FALSE(isFormula(repeated("-", limit + 2) + QLatin1Char('7')));
}

TEST_F(FormulaLimitsTest, theDeepestReferenceIsStillOne)
{
    const int limit = kMaxFormulaNesting;
    EXPECT_EQ(shape(parsed(repeated("(", limit) + QStringLiteral("Measure(a)") + repeated(")", limit))),
              "M[a]");
}

TEST_F(FormulaLimitsTest, bracketsSideBySideDoNotNest)
{
    EXPECT_TRUE(isFormula(sum("+", 1000, "(1)")));
    EXPECT_TRUE(isFormula(sum("*", 1000, "-x")));
}

TEST_F(FormulaLimitsTest, operandsUpToTheLimit)
{
    for (const char *sign : {"+", "-", "*", "/"}) {
        EXPECT_TRUE(isFormula(sum(sign, kMaxFormulaOperands))) << sign;
        EXPECT_FALSE(isFormula(sum(sign, kMaxFormulaOperands + 1))) << sign;
    }
    EXPECT_TRUE(isFormula(sum("+", kMaxFormulaOperands, "Measure(a)")));
    EXPECT_FALSE(isFormula(sum("+", kMaxFormulaOperands + 1, "Measure(a)")));
    EXPECT_TRUE(isFormula(sum("+", kMaxFormulaOperands, "x")));
    EXPECT_FALSE(isFormula(sum("+", kMaxFormulaOperands + 1, "x")));
}

TEST_F(FormulaLimitsTest, theLargestFormulaWorksThroughout)
{
    const QString typed = repeated("-(", kMaxFormulaNesting / 2) +
                          sum(" + ", kMaxFormulaOperands, "Measure(a)") +
                          repeated(")", kMaxFormulaNesting / 2);
    const Formula formula = parsed(typed, true);
    ASSERT_NE(formula, nullptr);

    EXPECT_EQ(formula->evaluate(-1), 7.0 * kMaxFormulaOperands);
    EXPECT_TRUE(formula->verifierImplicitUnits());
    EXPECT_TRUE(formula->fullyDefinedFormula());
    EXPECT_TRUE(formula->mentions(mA));
    EXPECT_FALSE(formula->mentions(mB));
    EXPECT_TRUE(formula->setAdapter(&mSet));
    QListEx<Evaluation> evaluations;
    formula->addEvaluationsInList(evaluations);
    EXPECT_EQ(evaluations.size(), 1);
    const TreeEquations copy(*formula);
    EXPECT_EQ(copy.toString(), formula->toString());
    TreeEquations back;
    back.fromJson(formula->toJson(), &mSet);
    EXPECT_EQ(back.evaluate(-1), 7.0 * kMaxFormulaOperands);
}

TEST_F(FormulaLimitsTest, theTextOfTheLargestSumReadsBack)
{
    const Formula formula = parsed(sum("+", kMaxFormulaOperands, "Measure(a)"));
    const Formula back = parsed(formula->toString());

    ASSERT_NE(back, nullptr);
    EXPECT_EQ(back->toString(), formula->toString());
}

TEST_F(FormulaLimitsTest, hugeTextsHaveAnAnswer)
{
    struct {
        QString typed;
        const char *answer;
    } const rows[] = {
        {repeated("(", 1000000), "null"},
        {repeated(")", 1000000), "null"},
        {nested("(", 1000000, ")"), "null"},
        {nested("Measure(", 300000, ")"), "null"},
        {repeated("-", 1000000) + QLatin1Char('1'), "null"},
        {repeated("+", 1000000) + QLatin1Char('x'), "null"},
        {repeated("+-", 500000), "null"},
        {sum("+", 1000000), "null"},
        {sum("*", 1000000, "x"), "null"},
        {sum("-", 200000, "Level(b)"), "null"},
        {repeated(" ", 10000000), "null"},
        {repeated("%", 1000000), "null"},
        {repeated("1", 10000000) + QLatin1Char('%'), "null"},
        {repeated("9,", 1000000) + QLatin1Char('('), "null"},
        {QStringLiteral("0.") + repeated("1", 1000000), "null"},
        {repeated("1e", 1000000), "null"},
        {QString(1000000, QChar(0xd800)) + QLatin1Char('('), "null"},
        {QString(1000000, QChar(0)) + QLatin1Char(')'), "null"},
    };
    for (const auto &row : rows)
        EXPECT_EQ(shape(parsed(row.typed, true)), row.answer) << text(row.typed.left(20));
}

TEST_F(FormulaLimitsTest, aHugeNameIsAName)
{
    const QString name = repeated("ab ", 3000000) + QChar(0) + QChar(0xdc00) + repeated("1", 1000000);
    const Formula bare = parsed(name);
    ASSERT_NE(bare, nullptr);
    EXPECT_TRUE(bare->root->pendingName == name);
    const Formula reference = parsed(QStringLiteral("Measure(%1)").arg(name));
    ASSERT_NE(reference, nullptr);
    EXPECT_EQ(reference->root->element, nullptr);
}

TEST_F(FormulaLimitsTest, aTreeBuiltPastTheDepthIsRefusedWhereStackIsNeeded)
{
    constexpr int kDepth = 300000;
    for (const bool leftDeep : {true, false}) {
        Node root = measureOf(mA);
        for (int level = 1; level < kDepth; ++level)
            root = leftDeep ? joined(ElemAdd, std::move(root), constant(1))
                            : joined(ElemAdd, constant(1), std::move(root));
        const Formula formula = formulaOf(std::move(root));

        EXPECT_REFUSED(formula->evaluate(-1));
        EXPECT_REFUSED(formula->determineImplicitUnits());
        EXPECT_REFUSED(formula->verifierImplicitUnits());
        EXPECT_REFUSED(formula->toJson());
        EXPECT_TRUE(formula->mentions(mA));
        EXPECT_TRUE(formula->setAdapter(&mSet));
        EXPECT_TRUE(formula->fullyDefinedFormula());
        EXPECT_EQ(TreeEquations(*formula).toString().size(), formula->toString().size());
    }
}

TEST_F(FormulaLimitsTest, aZigzagOfAnyDepthIsCopiedAndDeleted)
{
    Node root = measureOf(mA);
    for (int level = 1; level < 1000000; ++level)
        root = level % 2 == 0 ? joined(ElemMultiply, std::move(root), constant(1))
                              : joined(ElemDivide, constant(1), std::move(root));
    auto copy = std::make_unique<ElementEquation>();
    ElementEquation *target = copy.get();
    root->deepCopy(target);

    root.reset();

    EXPECT_TRUE(copy->mentionsElement(mA));
}

} // namespace
