// Pointing formulas at the like-named elements of another set.

#include <VorFrames/FrameSet.h>

#include "VOREquations/ElementNames.h"

#include <VorFrames/ElementEquation.h>
#include <VorFrames/FrameFrame.h>
#include <VorFrames/FrameLink.h>
#include <VorFrames/FrameSegment.h>
#include <VorFrames/TreeEquations.h>

namespace VorSystem
{

namespace
{

// A broken formula is reported under the name of the operation on one formula, however many are rebound.
constexpr char kSetAdapter[] = "bool VorSystem::ElementEquation::setAdapter(VorSystem::FrameSet*)";

bool isRebound(TreeEquations *formula, ElementNames &names)
{
    return formula == nullptr || formula->root == nullptr || rebind(*formula->root, names, kSetAdapter);
}

void rebindFormulas(BaseFrame &element, ElementNames &names)
{
    if (!isRebound(element.measurementFormula(), names))
        element.setFormulaMeasurement(nullptr);
    if (!isRebound(element.formulaLevel(), names))
        element.setFormulaLevel(nullptr);
}

} // namespace

void BaseFrame::adapterFormulaInSet(FrameSet *set)
{
    ElementNames names(set);
    rebindFormulas(*this, names);
}

void FrameSet::adapterFormulaInSet()
{
    ElementNames names(this);
    for (FrameFrame *frame : qAsConst(mFrames))
        rebindFormulas(*frame, names);
    for (FrameLink *link : qAsConst(mFrameLinks))
        rebindFormulas(*link, names);
    for (FrameSegment *segment : qAsConst(mFrameSegments))
        rebindFormulas(*segment, names);
}

} // namespace VorSystem
