// Measurement charts: values as typed, or computed by a formula that the virtual accessors do not show.

#include <VorFrames/FrameMeasurementChart.h>

#include "VORFrames/ComputedValues.h"
#include "VORFrames/Definedness.h"
#include "VORFrames/Messages.h"

#include <VorFrames/FrameSet.h>
#include <VorFrames/GestFrames.h>
#include <VorFrames/TreeEquations.h>

namespace VorSystem
{

FrameMeasurementChart::FrameMeasurementChart(const QString &name) : BaseFrame(name) {}

FrameMeasurementChart::~FrameMeasurementChart()
{
    if (mFrameSet != nullptr)
        mFrameSet->removeMeasurementChart(this);
    delete mFormula;
}

eElementFrameType FrameMeasurementChart::elementType()
{
    return Element_MeasurementChart;
}

ValuesAccordingSizes *FrameMeasurementChart::getMeasureBySizes()
{
    return &mMeasures;
}

void FrameMeasurementChart::setFormulaMeasurementChart(TreeEquations *formula)
{
    setFormula(mFormula, formula);
}

ControlBase *FrameMeasurementChart::objectControlCorresponding()
{
    return nullptr;
}

ControlBase *FrameMeasurementChart::skeletonElementPointedAtUs(ControlSkeleton *)
{
    return nullptr;
}

bool FrameMeasurementChart::evaluateMeasuresObject(const GradationData *, QListEx<double> &)
{
    return false;
}

bool FrameMeasurementChart::evaluatesMeasurementChart(short size, double &value)
{
    value = mFormula == nullptr ? mMeasures.mValues.at(size) : mFormula->evaluate(size);
    return true;
}

bool FrameMeasurementChart::reevaluate(eFrameReevaluate mode)
{
    // Without a formula the chart keeps what it holds; a size that it does not hold yet reads 0.
    const auto valueAt = [this](short size) {
        return mFormula == nullptr ? mMeasures.mValues.value(size == -1 ? mMeasures.mNestIndex : size, 0.0)
                                   : mFormula->evaluate(size);
    };
    return reevaluateComputed(*this, mMeasures, valueAt, mode);
}

bool FrameMeasurementChart::isDefinedInDocument()
{
    return Definedness().computedIsDefined(this);
}

bool FrameMeasurementChart::canBeDestroyed(bool)
{
    return true;
}

bool FrameMeasurementChart::canBeDestroyedInBatch()
{
    return true;
}

bool FrameMeasurementChart::applyValues(const double *measure, const double *level, bool *refused)
{
    if (level != nullptr)
        return refuseLevels(refused); // the frame's text, used as it stands
    if (measure == nullptr)
        return false;
    mMeasures.mValues[mMeasures.mNestIndex] = *measure;
    return true;
}

bool FrameMeasurementChart::applyValues(const QListEx<double> *measures, const QListEx<double> *levels,
                                        bool *refused)
{
    if (levels != nullptr)
        return refuseLevels(refused);
    if (measures != nullptr) {
        mMeasures.mValues = *measures;
        if (mFrameSet != nullptr)
            mFrameSet->notifyGroupChanged(groupCorrespondent());
    }
    return true;
}

} // namespace VorSystem
