// The walk that every question about the references of a formula takes.
//
// It goes from left to right and keeps what is still to be visited in a list of its own, so that no tree is
// too deep for it.
#pragma once

#include "Preconditions.h"
#include "VOREquations/EquationsUnit.h"

#include <VorFrames/ElementEquation.h>

#include <QVarLengthArray>

namespace VorSystem
{

/// Hands every reference at or below root to visit, until visit answers false. True when visit never did.
///
/// A kind outside 1 to 8 and a missing son raise AssertionError when the walk comes to them, in the name of
/// the operation whose signature is given.
template<class Visit>
bool forEachReference(ElementEquation *root, const char *signature, Visit visit)
{
    QVarLengthArray<ElementEquation *, 64> rest;
    rest.append(root);
    while (!rest.isEmpty()) {
        ElementEquation *const node = rest.last();
        rest.removeLast();
        if (node == nullptr)
            invalidOperation(kSourceUnit, __LINE__, signature);

        switch (node->contents) {
        case ElemValue: break;
        case ElemMeasure:
        case ElemLevel:
            if (!visit(*node))
                return false;
            break;
        case ElemParenthesis: rest.append(node->sonLeft); break;
        case ElemAdd:
        case ElemSubtract:
        case ElemMultiply:
        case ElemDivide:
            rest.append(node->sonRight);
            rest.append(node->sonLeft);
            break;
        case ElemNone:
        default: invalidOperation(kSourceUnit, __LINE__, signature);
        }
    }
    return true;
}

} // namespace VorSystem
