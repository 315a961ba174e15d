// The value of a formula in one size.
#pragma once

#include "Preconditions.h"
#include "VOREquations/EquationsUnit.h"
#include "VORFrames/StoredValues.h"
#include "ZeroTest.h"

#include <VorFrames/BaseFrame.h>
#include <VorFrames/ElementEquation.h>
#include <VorFrames/FormulaLimits.h>

namespace VorSystem
{

/// Walks the tree by plain recursion, down to the documented depth. Failures are raised in the name of the
/// operation whose signature is given.
class Evaluator
{
public:
    Evaluator(short size, const char *signature) : mSize(size), mSignature(signature) {}

    double valueOf(const ElementEquation *node, int depth) const
    {
        if (node == nullptr || depth > kMaxFormulaDepth)
            invalidOperation(kSourceUnit, __LINE__, mSignature);

        // The order of the two sons is part of the interface: a host's element may count or raise.
        switch (node->contents) {
        case ElemValue: return node->value;
        case ElemMeasure: return storedMeasure(elementOf(*node), mSize);
        case ElemLevel: return elementOf(*node)->getLevel(mSize);
        case ElemParenthesis: return valueOf(node->sonLeft, depth + 1);
        case ElemAdd: {
            const double right = valueOf(node->sonRight, depth + 1);
            return valueOf(node->sonLeft, depth + 1) + right;
        }
        case ElemSubtract: {
            const double left = valueOf(node->sonLeft, depth + 1);
            return left - valueOf(node->sonRight, depth + 1);
        }
        case ElemMultiply: {
            const double right = valueOf(node->sonRight, depth + 1);
            return valueOf(node->sonLeft, depth + 1) * right;
        }
        case ElemDivide: {
            // Deliberate: a zero divisor gives a silent 0.0, and its dividend is not even looked at.
            const double right = valueOf(node->sonRight, depth + 1);
            return countsAsZero(right) ? 0.0 : valueOf(node->sonLeft, depth + 1) / right;
        }
        case ElemNone:
        default: invalidOperation(kSourceUnit, __LINE__, mSignature);
        }
    }

private:
    BaseFrame *elementOf(const ElementEquation &node) const
    {
        if (node.element == nullptr)
            invalidOperation(kSourceUnit, __LINE__, mSignature);
        return node.element;
    }

    short mSize;
    const char *mSignature;
};

} // namespace VorSystem
