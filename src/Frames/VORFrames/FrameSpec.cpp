// Specs: values that come from a formula alone.

#include <VorFrames/FrameSpec.h>

#include "VORFrames/ComputedValues.h"
#include "VORFrames/Definedness.h"

#include <VorFrames/FrameSet.h>
#include <VorFrames/TreeEquations.h>

namespace VorSystem
{

FrameSpec::FrameSpec(const QString &name) : BaseFrame(name) {}

FrameSpec::~FrameSpec()
{
    if (mFrameSet != nullptr)
        mFrameSet->removeSpec(this);
    delete mFormula;
}

eElementFrameType FrameSpec::elementType()
{
    return Element_Spec;
}

ValuesAccordingSizes *FrameSpec::getMeasureBySizes()
{
    return &mMeasures;
}

TreeEquations *FrameSpec::formulaSpec()
{
    return mFormula;
}

void FrameSpec::setFormulaSpec(TreeEquations *formula)
{
    setFormula(mFormula, formula);
}

ControlBase *FrameSpec::objectControlCorresponding()
{
    return nullptr;
}

ControlBase *FrameSpec::skeletonElementPointedAtUs(ControlSkeleton *)
{
    return nullptr;
}

bool FrameSpec::evaluatesSpec(short size, double &value)
{
    value = mFormula == nullptr ? 0.0 : mFormula->evaluate(size);
    return true;
}

bool FrameSpec::reevaluate(eFrameReevaluate mode)
{
    const auto valueAt = [this](short size) {
        double value = 0.0;
        evaluatesSpec(size, value);
        return value;
    };
    return reevaluateComputed(*this, mMeasures, valueAt, mode);
}

bool FrameSpec::isDefinedInDocument()
{
    return Definedness().computedIsDefined(this);
}

bool FrameSpec::canBeDestroyed(bool)
{
    return true;
}

bool FrameSpec::canBeDestroyedInBatch()
{
    return true;
}

} // namespace VorSystem
