// The abstract element: neutral answers, stored values, the way to its control object, and who mentions it.
// Reevaluation, the recursion test, rebinding and the question about locked pieces stand in files of their
// own.

#include <VorFrames/BaseFrame.h>

#include "Preconditions.h"
#include "VOREquations/EvaluateSizes.h"
#include "VORFrames/ControlIndex.h"
#include "VORFrames/Messages.h"

#include <VorConjoin/VorConjoin.h>
#include <VorFrames/ControlBase.h>
#include <VorFrames/ControlSkeleton.h>
#include <VorFrames/FrameSet.h>
#include <VorFrames/GestFrames.h>
#include <VorFrames/TreeEquations.h>

namespace VorSystem
{

namespace
{

constexpr char kSourceUnit[] = R"(src\Frames\VORFrames)";

// The value at size, the nest for -1.
double valueAt(const ValuesAccordingSizes &values, short size)
{
    return values.mValues.at(size == -1 ? values.mNestIndex : size);
}

bool mentions(TreeEquations *formula, BaseFrame *element)
{
    return formula != nullptr && formula->mentions(element);
}

// The skeleton that holds the control object; it must have one, and that one a piece.
ControlSkeleton *skeletonOf(const ControlBase &control)
{
    ControlSkeleton *const skeleton = control.getSkeleton();
    VOR_REQUIRE(skeleton != nullptr);
    return skeleton;
}

} // namespace

BaseFrame::BaseFrame(const QString &name) : mName(name) {}
BaseFrame::~BaseFrame() = default;

// --- Neutral answers ---

QString BaseFrame::fullName()
{
    return mName;
}

FrameSet *BaseFrame::getFrameSet() const
{
    return mFrameSet;
}

ValuesAccordingSizes *BaseFrame::getMeasureBySizes()
{
    return nullptr;
}

ValuesAccordingSizes *BaseFrame::getLevelBySizes()
{
    return nullptr;
}

bool BaseFrame::applyValues(const QListEx<double> *, const QListEx<double> *, bool *)
{
    return false;
}

bool BaseFrame::applyValues(const double *, const double *, bool *)
{
    return false;
}

bool BaseFrame::measurementFormulaAvailable()
{
    return false;
}

bool BaseFrame::formulaLevelAvailable()
{
    return false;
}

bool BaseFrame::aFormulaImplicitMeasures()
{
    return false;
}

bool BaseFrame::aFormulaImplicitLevel()
{
    return false;
}

TreeEquations *BaseFrame::measurementFormula()
{
    return nullptr;
}

TreeEquations *BaseFrame::formulaLevel()
{
    return nullptr;
}

TreeEquations *BaseFrame::formulaSpec()
{
    return nullptr;
}

void BaseFrame::setFormulaMeasurement(TreeEquations *) {}
void BaseFrame::setFormulaLevel(TreeEquations *) {}
void BaseFrame::setFormulaSpec(TreeEquations *) {}

bool BaseFrame::adjustFramesSameLevel(eFrameReevaluate)
{
    return false;
}

bool BaseFrame::evaluateMeasurement(short, double &)
{
    return false;
}

bool BaseFrame::evaluateMeasurementObject(short, double &)
{
    return false;
}

bool BaseFrame::evaluateMeasures(const GradationData *, QListEx<double> &)
{
    return false;
}

bool BaseFrame::evaluateMeasuresObject(const GradationData *, QListEx<double> &)
{
    return false;
}

bool BaseFrame::evaluateLevel(short, double &)
{
    return false;
}

bool BaseFrame::evaluateLevelObject(short, double &)
{
    return false;
}

bool BaseFrame::evaluateLevels(const GradationData *, QListEx<double> &)
{
    return false;
}

bool BaseFrame::evaluateLevelsObject(const GradationData *, QListEx<double> &)
{
    return false;
}

bool BaseFrame::applyMeasuresLevels(ValuesAccordingSizes &, ValuesAccordingSizes &, const GradationData *,
                                    eModifyLevelActionType)
{
    return true;
}

bool BaseFrame::applyMeasures(ValuesAccordingSizes &, const GradationData *, eModifyLevelActionType)
{
    return true;
}

bool BaseFrame::applyLevels(ValuesAccordingSizes &, const GradationData *, eModifyLevelActionType)
{
    return true;
}

void BaseFrame::addEvaluationUsedInMeasurement(QListEx<Evaluation> &) {}
void BaseFrame::addEvaluationUsedInLevel(QListEx<Evaluation> &) {}
void BaseFrame::addReferencesImplicitInMeasuresList(QListEx<BaseFrame *> &, QListEx<BaseFrame *> &) {}
void BaseFrame::addReferencesImplicitInLevelList(QListEx<BaseFrame *> &, QListEx<BaseFrame *> &) {}

bool BaseFrame::containsImplicitReferences(QListEx<BaseFrame *>, QListEx<BaseFrame *>)
{
    return false;
}

bool BaseFrame::influenceGeometrically(BaseFrame *)
{
    return false;
}

// --- Formulas ---

bool BaseFrame::evaluateMeasurementFormula(short size, double &value)
{
    TreeEquations *const formula = measurementFormula();
    if (formula == nullptr)
        return false;
    value = formula->evaluate(size);
    return true;
}

bool BaseFrame::evaluateMeasuresFormula(QListEx<double> &values)
{
    TreeEquations *const formula = measurementFormula();
    if (formula == nullptr)
        return false;
    evaluateSizes(*formula, values);
    return true;
}

bool BaseFrame::evaluateLevelFormula(short size, double &value)
{
    TreeEquations *const formula = formulaLevel();
    if (formula == nullptr)
        return false;
    value = formula->evaluate(size);
    return true;
}

bool BaseFrame::evaluateLevelsFormula(QListEx<double> &values)
{
    TreeEquations *const formula = formulaLevel();
    if (formula == nullptr)
        return false;
    evaluateSizes(*formula, values);
    return true;
}

bool BaseFrame::formulaMeasureFullyDefined()
{
    TreeEquations *const formula = measurementFormula();
    return formula != nullptr && formula->fullyDefinedFormula();
}

bool BaseFrame::formulaLevelFullyDefined()
{
    TreeEquations *const formula = formulaLevel();
    return formula != nullptr && formula->fullyDefinedFormula();
}

void BaseFrame::setFormula(TreeEquations *&slot, TreeEquations *formula)
{
    if (slot == formula)
        return;
    delete slot;
    slot = formula;
}

// --- Stored values ---

double BaseFrame::getMeasures(short size)
{
    const ValuesAccordingSizes *values = getMeasureBySizes();
    return values == nullptr ? 0.0 : valueAt(*values, size);
}

void BaseFrame::setMeasures(short size, double value)
{
    if (ValuesAccordingSizes *values = getMeasureBySizes())
        values->mValues[size] = value;
}

double BaseFrame::getLevel(short size)
{
    // Deliberate: unlike a measure, the level of an element that was never evaluated reads 0.
    const ValuesAccordingSizes *values = getLevelBySizes();
    return values == nullptr || values->mValues.isEmpty() ? 0.0 : valueAt(*values, size);
}

void BaseFrame::setLevel(short size, double value)
{
    if (ValuesAccordingSizes *values = getLevelBySizes())
        values->mValues[size] = value;
}

void BaseFrame::adjustMeasuresLevelsAccordingSizesNest(short small, short large)
{
    if (ValuesAccordingSizes *values = getMeasureBySizes())
        adjustValuesAccordingSizeToNest(values, small, large);
    if (ValuesAccordingSizes *values = getLevelBySizes())
        adjustValuesAccordingSizeToNest(values, small, large);
}

// --- The way to the document and to the piece ---

Document *BaseFrame::document() const
{
    const FrameSet *set = getFrameSet();
    return set == nullptr ? nullptr : set->document();
}

ControlBase *BaseFrame::objectControlCorresponding()
{
    const FrameSet *set = getFrameSet();
    const QList<CDbGroupObject *> groups = groupsSearched(set == nullptr ? nullptr : set->getGestFrames());
    for (CDbGroupObject *group : groups) {
        if (ControlBase *const control = objectControlCorrespondingOfGroup(group))
            return control;
    }
    return nullptr;
}

ControlBase *BaseFrame::objectControlCorrespondingOfGroup(CDbGroupObject *group)
{
    const QList<ControlSkeleton *> skeletons = skeletonsOf(group);
    for (ControlSkeleton *skeleton : skeletons) {
        if (ControlBase *const control = skeletonElementPointedAtUs(skeleton))
            return control;
    }
    return nullptr;
}

bool BaseFrame::isDefinedInDocument()
{
    return objectControlCorresponding() != nullptr;
}

CDbGroupObject *BaseFrame::groupCorrespondent()
{
    const ControlBase *const control = objectControlCorresponding();
    if (control == nullptr)
        return nullptr;

    CDbGroupObject *const group = skeletonOf(*control)->getGroupe();
    VOR_REQUIRE(group != nullptr);
    return group;
}

GabaritObject *BaseFrame::gabaritCorrespondent()
{
    const ControlBase *const control = objectControlCorresponding();
    if (control == nullptr)
        return nullptr;

    GabaritObject *const gabarit = skeletonOf(*control)->getGabarit();
    VOR_REQUIRE(gabarit != nullptr);
    return gabarit;
}

bool BaseFrame::isInGroupSelects()
{
    const CDbGroupObject *const group = groupCorrespondent();
    return group != nullptr && group->getSelection();
}

bool BaseFrame::containsVector(const CDbPointVOR *vector)
{
    ControlBase *const control = objectControlCorresponding();
    return control != nullptr && control->containsVector(vector);
}

// --- Who mentions whom ---

bool BaseFrame::canBeDestroyed(bool report)
{
    if (!isDefinedInDocument())
        return true;
    if (report)
        showMessage(GestFrames::tr("Cannot delete this element because it is still defined."));
    return false;
}

bool BaseFrame::isMentionedInTheSetFormula(FrameSet *set, bool report)
{
    VOR_REQUIRE(set != nullptr);

    BaseFrame *holder = nullptr;
    if (!set->elementsMentionedInFormulaOne(this, holder))
        return false;
    if (report) {
        const QString text =
            GestFrames::tr("Cannot delete this element because it is mentioned in a formula of element '%1'");
        showMessage(text.arg(holder->fullName()));
    }
    return true;
}

bool BaseFrame::aFormulaWhichStates(BaseFrame *other)
{
    return mentions(measurementFormula(), other) || mentions(formulaLevel(), other) ||
           mentions(formulaSpec(), other);
}

bool BaseFrame::isMentionedByElementDefined()
{
    FrameSet *const set = getFrameSet();
    VOR_REQUIRE(set != nullptr);
    return set->elementsMentionedByElementDefined(this);
}

} // namespace VorSystem
