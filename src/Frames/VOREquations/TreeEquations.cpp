// A formula as a whole. Reading one from text stands in FormulaParser.cpp.

#include <VorFrames/TreeEquations.h>

#include "Preconditions.h"
#include "VOREquations/EquationsUnit.h"

#include <VorFrames/BaseFrame.h>
#include <VorFrames/ElementEquation.h>

#include <QSet>
#include <memory>
#include <vector>

namespace VorSystem
{

TreeEquations::TreeEquations() : root(new ElementEquation) {}

TreeEquations::TreeEquations(const TreeEquations &other)
{
    VOR_REQUIRE(other.root != nullptr);

    auto copy = std::make_unique<ElementEquation>();
    ElementEquation *target = copy.get();
    other.root->deepCopy(target);
    root = copy.release();
}

TreeEquations &TreeEquations::operator=(const TreeEquations &other) = default;

TreeEquations::~TreeEquations()
{
    delete root;
}

QString TreeEquations::toString() const
{
    VOR_REQUIRE(root != nullptr);
    return root->toString();
}

double TreeEquations::evaluate(short size)
{
    VOR_REQUIRE(root != nullptr);
    return root->evaluate(size);
}

void TreeEquations::addReferencesInLists(QListEx<BaseFrame *> &pendingMeasures,
                                         QListEx<BaseFrame *> &doneMeasures,
                                         QListEx<BaseFrame *> &pendingLevels,
                                         QListEx<BaseFrame *> &doneLevels)
{
    if (root != nullptr)
        root->addedReferencesInLists(pendingMeasures, doneMeasures, pendingLevels, doneLevels);
}

void TreeEquations::addReferencesInList(QListEx<BaseFrame *> &list)
{
    if (root != nullptr)
        root->addedReferencesInList(list);
}

void TreeEquations::addEvaluationsInList(QListEx<Evaluation> &list)
{
    if (root != nullptr)
        root->addsEvaluationsInList(list);
}

bool TreeEquations::setAdapter(FrameSet *set)
{
    return root == nullptr || root->setAdapter(set);
}

bool TreeEquations::mentions(BaseFrame *element)
{
    return root != nullptr && root->mentionsElement(element);
}

bool TreeEquations::verifierImplicitUnits()
{
    VOR_REQUIRE(root != nullptr);
    return root->evaluationImplicitUnit(ImplicitLength) != ImplicitInvalid;
}

void TreeEquations::determineImplicitUnits()
{
    VOR_REQUIRE(root != nullptr);
    root->determineImplicitUnit(ImplicitLength);
}

bool TreeEquations::fullyDefinedFormula()
{
    // What one formula asks for, and how far the answers have come. The walk goes into the formula of an
    // evaluation before it takes the next one.
    struct Demand {
        QListEx<Evaluation> evaluations;
        int next = 0;
    };
    std::vector<Demand> open(1);
    addEvaluationsInList(open.back().evaluations);

    // Each evaluation is asked about once: formulas that share what they depend on would double the work
    // layer by layer, and a circle of formulas would never end. One that is still being asked about stands in
    // the way of nothing.
    QSet<Evaluation> asked;
    while (!open.empty()) {
        Demand &demand = open.back();
        if (demand.next == demand.evaluations.size()) {
            open.pop_back();
            continue;
        }
        const Evaluation evaluation = demand.evaluations.at(demand.next++);
        if (asked.contains(evaluation))
            continue;
        asked.insert(evaluation);

        BaseFrame *const element = evaluation.mElement;
        VOR_REQUIRE(element != nullptr);
        if (!element->isDefinedInDocument())
            return false;
        TreeEquations *const formula =
            evaluation.mType == Evaluation_Measure ? element->measurementFormula() : element->formulaLevel();
        if (formula != nullptr) {
            open.emplace_back();
            formula->addEvaluationsInList(open.back().evaluations);
        }
    }
    return true;
}

} // namespace VorSystem
