// Pointing formulas at the like-named elements of another set.

#include <VorFrames/FrameSet.h>

#include "VORFrames/NameIndex.h"

#include <VorFrames/ElementEquation.h>
#include <VorFrames/FrameFrame.h>
#include <VorFrames/FrameLink.h>
#include <VorFrames/FrameSegment.h>
#include <VorFrames/TreeEquations.h>

#include <optional>

namespace VorSystem
{

namespace
{

// False when a name is missing in set. A formula without a root has none.
bool isRebound(TreeEquations *formula, FrameSet *set)
{
    return formula == nullptr || formula->root == nullptr || formula->root->setAdapter(set);
}

} // namespace

void BaseFrame::adapterFormulaInSet(FrameSet *set)
{
    if (!isRebound(measurementFormula(), set))
        setFormulaMeasurement(nullptr);
    if (!isRebound(formulaLevel(), set))
        setFormulaLevel(nullptr);
}

void FrameSet::adapterFormulaInSet()
{
    // One index for all formulas, unless the caller has one at hand.
    std::optional<NameIndex> names;
    std::optional<NamesAtHand> namesAtHand;
    if (mNamesAtHand == nullptr)
        namesAtHand.emplace(*this, names.emplace(*this));

    for (FrameFrame *frame : qAsConst(mFrames))
        frame->adapterFormulaInSet(this);
    for (FrameLink *link : qAsConst(mFrameLinks))
        link->adapterFormulaInSet(this);
    for (FrameSegment *segment : qAsConst(mFrameSegments))
        segment->adapterFormulaInSet(this);
}

} // namespace VorSystem
