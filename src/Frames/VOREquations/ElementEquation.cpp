// A node of a formula: its life, its value and its references.
//
// The text form stands in FormulaText.cpp, the units in ImplicitUnits.cpp.

#include <VorFrames/ElementEquation.h>

#include "VOREquations/ElementNames.h"
#include "VOREquations/Evaluator.h"
#include "VOREquations/ListMembership.h"
#include "VOREquations/ReferenceWalk.h"

#include <VorFrames/BaseFrame.h>

#include <QVarLengthArray>

namespace VorSystem
{

ElementEquation::ElementEquation() = default;

ElementEquation::ElementEquation(ElemContent kind, double constant, BaseFrame *reference)
    : contents(kind), value(constant), element(reference)
{
}

ElementEquation::ElementEquation(const ElementEquation &other) = default;
ElementEquation &ElementEquation::operator=(const ElementEquation &other) = default;

ElementEquation::~ElementEquation()
{
    // However deep the trees below: a left son is turned up above its parent until the node on top has a
    // right son at most and can go. No node is turned up twice, and nothing is allocated.
    for (ElementEquation *top : {sonLeft, sonRight}) {
        while (top != nullptr) {
            if (ElementEquation *const left = top->sonLeft) {
                top->sonLeft = left->sonRight;
                left->sonRight = top;
                top = left;
            } else {
                ElementEquation *const next = top->sonRight;
                top->sonRight = nullptr;
                delete top;
                top = next;
            }
        }
    }
}

void ElementEquation::deepCopy(ElementEquation *&target)
{
    VOR_REQUIRE(target != nullptr);

    struct Pair {
        const ElementEquation *source;
        ElementEquation *copy;
    };
    QVarLengthArray<Pair, 64> rest;
    rest.append({this, target});
    while (!rest.isEmpty()) {
        const Pair pair = rest.last();
        rest.removeLast();
        const ElementEquation &source = *pair.source;
        ElementEquation &copy = *pair.copy;

        // A new node hangs on the tree before the next one is made, so that a failure leaks nothing.
        copy.sonLeft = source.sonLeft != nullptr ? new ElementEquation : nullptr;
        copy.sonRight = nullptr;
        copy.sonRight = source.sonRight != nullptr ? new ElementEquation : nullptr;
        copy.contents = source.contents;
        copy.value = source.value;
        copy.element = source.element;
        copy.implicitUnit = source.implicitUnit;
        if (source.sonRight != nullptr)
            rest.append({source.sonRight, copy.sonRight});
        if (source.sonLeft != nullptr)
            rest.append({source.sonLeft, copy.sonLeft});
    }
}

double ElementEquation::evaluate(short size)
{
    return Evaluator(size, BOOST_CURRENT_FUNCTION).valueOf(this, 1);
}

bool ElementEquation::setAdapter(FrameSet *set)
{
    ElementNames names(set);
    const char *const signature = BOOST_CURRENT_FUNCTION;
    return forEachReference(this, signature, [&names, signature](ElementEquation &node) {
        // A name that was unknown when the formula was read names nothing here either.
        if (node.element == nullptr)
            return false;
        if (!names.haveSet())
            invalidOperation(kSourceUnit, __LINE__, signature);
        BaseFrame *const found = names.found(node.element->fullName(), true);
        if (found == nullptr)
            return false;
        node.element = found;
        return true;
    });
}

bool ElementEquation::mentionsElement(BaseFrame *wanted)
{
    return !forEachReference(this, BOOST_CURRENT_FUNCTION,
                             [wanted](const ElementEquation &node) { return node.element != wanted; });
}

void ElementEquation::addedReferencesInLists(QListEx<BaseFrame *> &pendingMeasures,
                                             QListEx<BaseFrame *> &doneMeasures,
                                             QListEx<BaseFrame *> &pendingLevels,
                                             QListEx<BaseFrame *> &doneLevels)
{
    struct Kind {
        ListMembership<BaseFrame *> pending;
        ListMembership<BaseFrame *> done;
    };
    Kind measures{ListMembership<BaseFrame *>(pendingMeasures), ListMembership<BaseFrame *>(doneMeasures)};
    Kind levels{ListMembership<BaseFrame *>(pendingLevels), ListMembership<BaseFrame *>(doneLevels)};

    forEachReference(this, BOOST_CURRENT_FUNCTION, [&](const ElementEquation &node) {
        Kind &kind = node.contents == ElemMeasure ? measures : levels;
        if (!kind.done.contains(node.element) && !kind.pending.contains(node.element))
            kind.pending.append(node.element);
        return true;
    });
}

void ElementEquation::addedReferencesInList(QListEx<BaseFrame *> &list)
{
    ListMembership<BaseFrame *> met(list);
    forEachReference(this, BOOST_CURRENT_FUNCTION, [&met](const ElementEquation &node) {
        if (!met.contains(node.element))
            met.append(node.element);
        return true;
    });
}

void ElementEquation::addsEvaluationsInList(QListEx<Evaluation> &list)
{
    ListMembership<Evaluation> met(list);
    forEachReference(this, BOOST_CURRENT_FUNCTION, [&met](const ElementEquation &node) {
        Evaluation evaluation;
        evaluation.mElement = node.element;
        evaluation.mType = node.contents == ElemMeasure ? Evaluation_Measure : Evaluation_Level;
        if (!met.contains(evaluation))
            met.append(evaluation);
        return true;
    });
}

} // namespace VorSystem
