// Segments: a length, a formula that must fit into the order of the set, and a control object that may be
// lost. Moving other elements' vectors stands in FrameInfluence.cpp.

#include <VorFrames/FrameSegment.h>

#include "Preconditions.h"
#include "VORFrames/Gradation.h"
#include "VORFrames/Messages.h"
#include "ZeroTest.h"

#include <VorFrames/ControlSegment.h>
#include <VorFrames/ControlSkeleton.h>
#include <VorFrames/FrameSet.h>
#include <VorFrames/GestFrames.h>
#include <VorFrames/OrderEvaluation.h>
#include <VorFrames/TreeEquations.h>

#include <algorithm>

namespace VorSystem
{

namespace
{

constexpr char kSourceUnit[] = R"(src\Frames\VORFrames)";

} // namespace

FrameSegment::FrameSegment(const QString &name) : BaseFrame(name) {}

FrameSegment::~FrameSegment()
{
    if (mFrameSet != nullptr)
        mFrameSet->removeSegment(this);
    delete mFormulaMeasure;
}

eElementFrameType FrameSegment::elementType()
{
    return Element_Segment;
}

ValuesAccordingSizes *FrameSegment::getMeasureBySizes()
{
    return &mMeasures;
}

ControlSegment *FrameSegment::controlSegmentCorrespondent()
{
    return dynamic_cast<ControlSegment *>(objectControlCorresponding());
}

ControlBase *FrameSegment::skeletonElementPointedAtUs(ControlSkeleton *skeleton)
{
    return skeleton->segmentPointingToTheFrameSegment(this);
}

void FrameSegment::removeControlSegmentCorrespondent()
{
    if (controlSegmentCorrespondent() == nullptr)
        return;
    CDbGroupObject *const group = groupCorrespondent();
    VOR_REQUIRE(group != nullptr);
    group->emitChanged();
    delete controlSegmentCorrespondent(); // the host heard of the change and may have removed it already
}

// --- Formula ---

bool FrameSegment::measurementFormulaAvailable()
{
    return true;
}

TreeEquations *FrameSegment::measurementFormula()
{
    return mFormulaMeasure;
}

void FrameSegment::setFormulaMeasurement(TreeEquations *formula)
{
    if (formula == nullptr) {
        setFormula(mFormulaMeasure, nullptr);
        return;
    }

    TreeEquations *const old = mFormulaMeasure;
    mFormulaMeasure = formula;
    VOR_REQUIRE(mFrameSet != nullptr);
    FrameSegment *culprit = nullptr;
    if (mFrameSet->mOrderEvaluation.calculateOrder(mFrameSet, culprit)) {
        if (old != formula)
            delete old;
        return;
    }

    // Deliberate: the new formula stays, and the old one is left to whoever holds it.
    removeControlSegmentCorrespondent();
    showMessage(GestFrames::tr(
        "This element cannot have a formula, because it directly interferes with another element."));
}

void FrameSegment::forgetFormula()
{
    mFormulaMeasure = nullptr;
}

void FrameSegment::rememberFormula(TreeEquations *formula)
{
    mFormulaMeasure = formula;
}

void FrameSegment::addEvaluationUsedInMeasurement(QListEx<Evaluation> &list)
{
    if (mFormulaMeasure != nullptr)
        mFormulaMeasure->addEvaluationsInList(list);
}

// --- Evaluation ---

bool FrameSegment::evaluateMeasurement(short size, double &value)
{
    return mFormulaMeasure == nullptr ? evaluateMeasurementObject(size, value)
                                      : evaluateMeasurementFormula(size, value);
}

bool FrameSegment::evaluateMeasurementObject(short size, double &value)
{
    ControlSegment *const control = controlSegmentCorrespondent();
    if (control == nullptr)
        return false;
    value = control->getMeasures(size);
    return true;
}

bool FrameSegment::evaluateMeasures(const GradationData *gradation, QListEx<double> &values)
{
    return mFormulaMeasure == nullptr ? evaluateMeasuresObject(gradation, values)
                                      : evaluateMeasuresFormula(values);
}

bool FrameSegment::evaluateMeasuresObject(const GradationData *gradation, QListEx<double> &values)
{
    ControlSegment *const control = controlSegmentCorrespondent();
    if (control == nullptr)
        return false;
    values = control->getMeasures(gradation);
    return true;
}

// --- New values ---

bool FrameSegment::applyValues(const double *measure, const double *, bool *)
{
    if (measure == nullptr || countsAsZero(*measure))
        return false; // a segment cannot get a length of zero

    ValuesAccordingSizes work = mMeasures;
    work.mValues[work.mNestIndex] = *measure;
    return applyMeasures(work, gradationOf(document()), ModifyLevel_Nest);
}

bool FrameSegment::applyValues(const QListEx<double> *measures, const QListEx<double> *, bool *)
{
    if (measures == nullptr || std::any_of(measures->cbegin(), measures->cend(), countsAsZero))
        return false;

    mMeasures.mValues = *measures; // at once, before the geometry is asked
    ValuesAccordingSizes work = mMeasures;
    return applyMeasures(work, gradationOf(document()), ModifyLevel_AllSizes);
}

bool FrameSegment::applyMeasuresLevels(ValuesAccordingSizes &measures, ValuesAccordingSizes &,
                                       const GradationData *gradation, eModifyLevelActionType action)
{
    return applyMeasures(measures, gradation, action);
}

bool FrameSegment::applyMeasures(ValuesAccordingSizes &measures, const GradationData *gradation,
                                 eModifyLevelActionType action)
{
    ControlSegment *const control = controlSegmentCorrespondent();
    if (control == nullptr) {
        mMeasures = measures;
        return true;
    }

    if (!nestDefined(gradation) && action != ModifyLevel_Nest) {
        if (action != ModifyLevel_AllSizes)
            return true;
        action = ModifyLevel_Nest;
    }
    if (action == ModifyLevel_Nothing)
        return true;
    if (control->changeMeasureLevel(ControlBase::MeasureLevel_Measure, &measures, nullptr, gradation,
                                    action) == Msg_Converged)
        return true;

    if (mFormulaMeasure != nullptr) {
        reportLostFormula(*this);
        if (mFormulaMeasure != nullptr) { // the host heard the message and may have acted on it
            VOR_REQUIRE(mFrameSet != nullptr);
            mFrameSet->markRemovedFormula(fullName(), true, mFormulaMeasure->toString());
        }
        setFormulaMeasurement(nullptr);
    }
    return false;
}

// --- Destruction ---

bool FrameSegment::canBeDestroyed(bool report)
{
    return BaseFrame::canBeDestroyed(report) && !isMentionedInTheSetFormula(mFrameSet, report);
}

bool FrameSegment::canBeDestroyedInBatch()
{
    return !isDefinedInDocument() && !isMentionedByElementDefined();
}

} // namespace VorSystem
