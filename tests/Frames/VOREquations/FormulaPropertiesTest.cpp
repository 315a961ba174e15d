// What holds for every formula: printing and reading, settling units, and the value of the written form.

#include "FormulaFixture.h"
#include "RandomNumbers.h"

#include <cmath>
#include <rapidcheck/gtest.h>

using namespace formulas;
using namespace VorSystem;

namespace
{

// A constant passes through the text twice: the shortest digits, then the grammar's own reading of them,
// which may be off by a unit or two in the last place.
constexpr double kTextTolerance = 1e-14;

class FormulaProperties : public FormulaTest
{
public:
    void TestBody() override {}

    BaseFrame *anyElement() { return *rc::gen::element<BaseFrame *>(mA, mB, mWidth, mWaist); }

    /// A tree such as the grammar builds: no explicit brackets, no right son of its parent's own precedence,
    /// constants without a sign.
    Node printableTree(int depth)
    {
        const int kind = anyBelow(depth > 0 ? 12 : 4);
        if (kind < 2)
            return constant(anyBelow(100000) / *rc::gen::element(1.0, 4.0, 7.0, 1000.0));
        if (kind == 2)
            return measureOf(anyElement());
        if (kind == 3)
            return levelOf(anyElement());
        const ElemContent operation = *rc::gen::element(ElemAdd, ElemSubtract, ElemMultiply, ElemDivide);
        Node left = printableTree(depth - 1);
        Node right = printableTree(depth - 1);
        while (precedence(right->contents) == precedence(operation))
            right = Node(takeLeft(*right));
        return joined(operation, std::move(left), std::move(right));
    }

    static int precedence(ElemContent kind)
    {
        return kind == ElemAdd || kind == ElemSubtract      ? 1
               : kind == ElemMultiply || kind == ElemDivide ? 2
                                                            : 3;
    }
    static ElementEquation *takeLeft(ElementEquation &node) { return std::exchange(node.sonLeft, nullptr); }
};

void expectSameTree(const ElementEquation &a, const ElementEquation &b)
{
    RC_ASSERT(a.contents == b.contents);
    RC_ASSERT(a.element == b.element);
    RC_ASSERT(std::abs(a.value - b.value) <= kTextTolerance * std::abs(a.value));
    RC_ASSERT((a.sonLeft == nullptr) == (b.sonLeft == nullptr));
    RC_ASSERT((a.sonRight == nullptr) == (b.sonRight == nullptr));
    if (a.sonLeft != nullptr)
        expectSameTree(*a.sonLeft, *b.sonLeft);
    if (a.sonRight != nullptr)
        expectSameTree(*a.sonRight, *b.sonRight);
}

RC_GTEST_PROP(FormulaProperty, whatIsPrintedReadsBackAsTheSameTree, ())
{
    FormulaProperties scene;
    QLocale::setDefault(QLocale(*rc::gen::element<QString>(QStringLiteral("C"), QStringLiteral("en_US"),
                                                           QStringLiteral("fr_FR"), QStringLiteral("pl_PL"),
                                                           QStringLiteral("ar_EG"))));
    scene.mApplication.setLengthUnit(
        *rc::gen::element(LengthUnit::centimetre(), LengthUnit::millimetre(), LengthUnit::inch()));
    const Formula formula = formulaOf(scene.printableTree(6));

    const Formula back = scene.parsed(formula->toString());

    RC_ASSERT(back != nullptr);
    expectSameTree(*formula->root, *back->root);
    // However it is settled: all of its references are lengths, and so no forcing is refused for their sake
    // alone.
    RC_ASSERT(formula->verifierImplicitUnits() == back->verifierImplicitUnits());
}

/// Was a constant below a product or quotient made a length?
bool isForcedInsideProduct(const ElementEquation *node, bool inside)
{
    if (node == nullptr)
        return false;
    if (node->contents == ElemValue)
        return inside && node->implicitUnit == ImplicitLength;
    inside = inside || node->contents == ElemMultiply || node->contents == ElemDivide;
    return isForcedInsideProduct(node->sonLeft, inside) || isForcedInsideProduct(node->sonRight, inside);
}

void expectSameUnits(const ElementEquation &a, const ElementEquation &b)
{
    RC_ASSERT(a.implicitUnit == b.implicitUnit);
    RC_ASSERT(a.value == b.value);
    if (a.sonLeft != nullptr)
        expectSameUnits(*a.sonLeft, *b.sonLeft);
    if (a.sonRight != nullptr)
        expectSameUnits(*a.sonRight, *b.sonRight);
}

RC_GTEST_PROP(FormulaProperty, settlingTheUnitsTwiceChangesNothingMore, ())
{
    FormulaProperties scene;
    scene.mApplication.setLengthUnit(LengthUnit::millimetre());
    const Formula formula = formulaOf(scene.printableTree(6));
    // The unit of the square of a length is what it was before, and so may differ in a second run.
    RC_PRE(formula->verifierImplicitUnits());
    formula->determineImplicitUnits();
    RC_PRE(!isForcedInsideProduct(formula->root, false));
    TreeEquations again(*formula);

    again.determineImplicitUnits();

    expectSameUnits(*formula->root, *again.root);
}

/// The formula with every bracket written, references replaced by their values.
QString bracketed(const ElementEquation &node)
{
    const auto number = [](double value) { return QString::number(value, 'g', 17); };
    switch (node.contents) {
    case ElemValue: return number(node.value);
    case ElemMeasure: return number(node.element->getMeasures(-1));
    case ElemLevel: return number(node.element->getLevel(-1));
    case ElemAdd: return QStringLiteral("(%1+%2)").arg(bracketed(*node.sonLeft), bracketed(*node.sonRight));
    case ElemSubtract:
        return QStringLiteral("(%1-%2)").arg(bracketed(*node.sonLeft), bracketed(*node.sonRight));
    case ElemMultiply:
        return QStringLiteral("(%1*%2)").arg(bracketed(*node.sonLeft), bracketed(*node.sonRight));
    default: return QStringLiteral("(%1/%2)").arg(bracketed(*node.sonLeft), bracketed(*node.sonRight));
    }
}

/// Reads and computes such a text without making a tree of it.
class Calculator
{
public:
    explicit Calculator(const QString &written) : mWritten(written.toLatin1()) {}
    double value()
    {
        if (mWritten.at(mPlace) != '(') {
            int end = mPlace;
            while (end < mWritten.size() && (std::isalnum(mWritten.at(end)) || mWritten.at(end) == '.' ||
                                             (mWritten.at(end - (end > 0)) == 'e' && end > mPlace)))
                ++end;
            const double number = mWritten.mid(mPlace, end - mPlace).toDouble();
            mPlace = end;
            return number;
        }
        ++mPlace;
        const double left = value();
        const char sign = mWritten.at(mPlace++);
        const double right = value();
        ++mPlace;
        switch (sign) {
        case '+': return left + right;
        case '-': return left - right;
        case '*': return left * right;
        default: return std::abs(right) <= 0.00001 ? 0.0 : left / right;
        }
    }

private:
    QByteArray mWritten;
    int mPlace = 0;
};

RC_GTEST_PROP(FormulaProperty, theValueIsThatOfTheFullyBracketedText, ())
{
    FormulaProperties scene;
    const Formula formula = formulaOf(scene.printableTree(6));
    const double expected = Calculator(bracketed(*formula->root)).value();
    const double value = formula->evaluate(-1);

    RC_ASSERT(value == expected || (std::isnan(value) && std::isnan(expected)));
}

RC_GTEST_PROP(FormulaProperty, aCopyIsTheSameTree, ())
{
    FormulaProperties scene;
    const Formula formula = formulaOf(scene.printableTree(6));
    const TreeEquations copy(*formula);

    expectSameTree(*formula->root, *copy.root);
    RC_ASSERT(copy.toString() == formula->toString());
}

RC_GTEST_PROP(FormulaProperty, jsonGivesTheTreeBack, ())
{
    FormulaProperties scene;
    const Formula formula = formulaOf(scene.printableTree(6));
    ElementEquation back;

    back.fromJson(formula->root->toJson(), &scene.mSet);

    expectSameTree(*formula->root, back);
}

} // namespace
