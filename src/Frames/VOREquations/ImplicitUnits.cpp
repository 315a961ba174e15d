// Which constants of a formula are lengths and which are plain numbers.
//
// Three walks. determineImplicitUnit settles the units and brings length constants into centimetres;
// setImplicitUnit forces a part of the tree; evaluationImplicitUnit only judges. The last does not agree with
// the first everywhere, and is not meant to: a ratio of two lengths is a number to the first and an error to
// the judge, and so is a division by a constant zero, which evaluates to 0.0.

#include "Preconditions.h"
#include "VOREquations/EquationsUnit.h"
#include "ZeroTest.h"

#include <VorCore/VorCore.h>
#include <VorFrames/ElementEquation.h>
#include <VorFrames/FormulaLimits.h>

namespace VorSystem
{

namespace
{

/// The three walks by plain recursion, down to the documented depth. Failures are raised in the name of the
/// operation whose signature is given.
class UnitWalk
{
public:
    explicit UnitWalk(const char *signature) : mSignature(signature) {}

    void determine(ElementEquation *node, eImplicitUnite expected, int depth) const;
    eImplicitUnite judge(const ElementEquation *node, eImplicitUnite expected, int depth) const;
    void force(ElementEquation *node, eImplicitUnite unit, int depth) const;

private:
    void require(bool condition, int line) const
    {
        if (!condition)
            invalidOperation(kSourceUnit, line, mSignature);
    }
    void requireNode(const ElementEquation *node, int depth) const
    {
        require(node != nullptr && depth <= kMaxFormulaDepth, __LINE__);
    }

    void determineProduct(ElementEquation &node) const;
    void determineQuotient(ElementEquation &node) const;
    void forceProduct(ElementEquation &node, eImplicitUnite unit, int depth) const;
    void forceQuotient(ElementEquation &node, eImplicitUnite unit, int depth) const;

    const char *mSignature;
};

/// A constant is converted only on its way to a length; back at a number it stays in centimetres.
void giveUnit(ElementEquation &constant, eImplicitUnite unit)
{
    if (constant.implicitUnit != unit && unit == ImplicitLength)
        constant.value = VorLocale().lengthUnit().toCentimeter(constant.value);
    constant.implicitUnit = unit;
}

bool isZeroConstant(const ElementEquation &node)
{
    return node.contents == ElemValue && countsAsZero(node.value);
}

void UnitWalk::determine(ElementEquation *node, eImplicitUnite expected, int depth) const
{
    requireNode(node, depth);

    switch (node->contents) {
    case ElemValue: giveUnit(*node, expected); return;
    case ElemMeasure:
    case ElemLevel: node->implicitUnit = ImplicitLength; return;
    case ElemParenthesis:
        determine(node->sonLeft, expected, depth + 1);
        node->implicitUnit = node->sonLeft->implicitUnit;
        return;
    case ElemAdd:
    case ElemSubtract:
        determine(node->sonLeft, expected, depth + 1);
        determine(node->sonRight, expected, depth + 1);
        if (node->sonLeft->implicitUnit == node->sonRight->implicitUnit)
            node->implicitUnit = node->sonRight->implicitUnit;
        else
            force(node, ImplicitLength, depth); // the side that is a plain number becomes a length
        return;
    case ElemMultiply:
        determine(node->sonLeft, ImplicitNumber, depth + 1);
        determine(node->sonRight, ImplicitNumber, depth + 1);
        determineProduct(*node);
        return;
    case ElemDivide:
        determine(node->sonLeft, ImplicitNumber, depth + 1);
        determine(node->sonRight, ImplicitNumber, depth + 1);
        determineQuotient(*node);
        return;
    case ElemNone:
    default: return; // a bare name has no unit, and that is no error here
    }
}

void UnitWalk::determineProduct(ElementEquation &node) const
{
    const eImplicitUnite left = node.sonLeft->implicitUnit;
    const eImplicitUnite right = node.sonRight->implicitUnit;
    if (left == ImplicitNumber && right == ImplicitNumber)
        node.implicitUnit = ImplicitNumber;
    else if (left != ImplicitLength || right != ImplicitLength)
        node.implicitUnit = ImplicitLength;
    // Deliberate: the square of a length leaves the unit as it was.
}

void UnitWalk::determineQuotient(ElementEquation &node) const
{
    const eImplicitUnite left = node.sonLeft->implicitUnit;
    const eImplicitUnite right = node.sonRight->implicitUnit;
    if ((left == ImplicitNumber && right == ImplicitNumber) ||
        (left == ImplicitLength && right == ImplicitLength))
        node.implicitUnit = ImplicitNumber;
    else if (left == ImplicitLength && right == ImplicitNumber)
        node.implicitUnit = ImplicitLength;
    // Deliberate: any other pair leaves the unit as it was.
}

eImplicitUnite UnitWalk::judge(const ElementEquation *node, eImplicitUnite expected, int depth) const
{
    requireNode(node, depth);

    switch (node->contents) {
    case ElemValue: return expected; // a constant can be whatever is wanted of it
    case ElemMeasure:
    case ElemLevel: return ImplicitLength;
    case ElemParenthesis:
        // Deliberate: explicit brackets drop the expectation.
        return judge(node->sonLeft, ImplicitNumber, depth + 1);
    case ElemAdd:
    case ElemSubtract: {
        const eImplicitUnite left = judge(node->sonLeft, expected, depth + 1);
        const eImplicitUnite right = judge(node->sonRight, expected, depth + 1);
        if (left == ImplicitInvalid || right == ImplicitInvalid)
            return ImplicitInvalid;
        return left == right ? left : ImplicitLength;
    }
    case ElemMultiply: {
        const eImplicitUnite left = judge(node->sonLeft, ImplicitNumber, depth + 1);
        const eImplicitUnite right = judge(node->sonRight, ImplicitNumber, depth + 1);
        if (left == ImplicitInvalid || right == ImplicitInvalid)
            return ImplicitInvalid;
        if (left == ImplicitLength && right == ImplicitLength)
            return ImplicitInvalid;
        return left == ImplicitLength ? left : right;
    }
    case ElemDivide: {
        const eImplicitUnite left = judge(node->sonLeft, ImplicitNumber, depth + 1);
        const eImplicitUnite right = judge(node->sonRight, ImplicitNumber, depth + 1);
        if (left == ImplicitInvalid || right != ImplicitNumber || isZeroConstant(*node->sonRight))
            return ImplicitInvalid;
        return left;
    }
    case ElemNone:
    default: return ImplicitInvalid;
    }
}

void UnitWalk::force(ElementEquation *node, eImplicitUnite unit, int depth) const
{
    requireNode(node, depth);

    switch (node->contents) {
    case ElemValue: giveUnit(*node, unit); return;
    case ElemMeasure:
    case ElemLevel:
        require(unit == ImplicitLength, __LINE__); // a reference is a length
        node->implicitUnit = ImplicitLength;
        return;
    case ElemParenthesis:
        force(node->sonLeft, unit, depth + 1);
        node->implicitUnit = unit;
        return;
    case ElemAdd:
    case ElemSubtract:
        for (ElementEquation *son : {node->sonLeft, node->sonRight}) {
            requireNode(son, depth + 1);
            if (son->implicitUnit != unit)
                force(son, unit, depth + 1);
        }
        node->implicitUnit = unit;
        return;
    case ElemMultiply: forceProduct(*node, unit, depth); return;
    case ElemDivide: forceQuotient(*node, unit, depth); return;
    case ElemNone:
    default: require(false, __LINE__);
    }
}

void UnitWalk::forceProduct(ElementEquation &node, eImplicitUnite unit, int depth) const
{
    if (node.implicitUnit == ImplicitNumber) {
        if (unit != ImplicitLength)
            return;
        force(node.sonRight, ImplicitLength, depth + 1); // one factor is enough: the right one
        node.implicitUnit = ImplicitLength;
        return;
    }
    require(node.implicitUnit == ImplicitLength && unit == ImplicitLength, __LINE__);
}

void UnitWalk::forceQuotient(ElementEquation &node, eImplicitUnite unit, int depth) const
{
    if (node.implicitUnit == ImplicitNumber) {
        if (unit != ImplicitLength)
            return;
        requireNode(node.sonLeft, depth + 1);
        require(node.sonLeft->implicitUnit == ImplicitNumber, __LINE__);
        force(node.sonLeft, ImplicitLength, depth + 1); // a length comes in through the dividend
        node.implicitUnit = ImplicitLength;
        return;
    }
    require(node.implicitUnit == ImplicitLength && unit == ImplicitLength, __LINE__);
}

} // namespace

void ElementEquation::determineImplicitUnit(eImplicitUnite expected)
{
    UnitWalk(BOOST_CURRENT_FUNCTION).determine(this, expected, 1);
}

eImplicitUnite ElementEquation::evaluationImplicitUnit(eImplicitUnite expected)
{
    return UnitWalk(BOOST_CURRENT_FUNCTION).judge(this, expected, 1);
}

void ElementEquation::setImplicitUnit(eImplicitUnite unit)
{
    UnitWalk(BOOST_CURRENT_FUNCTION).force(this, unit, 1);
}

} // namespace VorSystem
