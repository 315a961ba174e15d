// Frames: their place on a center, their values, and what a link or a formula makes of them.
// Moving other elements' vectors stands in FrameInfluence.cpp.

#include <VorFrames/FrameFrame.h>

#include "Preconditions.h"
#include "VORFrames/Gradation.h"
#include "VORFrames/Messages.h"
#include "ZeroTest.h"

#include <VorFrames/ControlCenter.h>
#include <VorFrames/ControlFrame.h>
#include <VorFrames/ControlSkeleton.h>
#include <VorFrames/FrameCenter.h>
#include <VorFrames/FrameLink.h>
#include <VorFrames/FrameSet.h>
#include <VorFrames/GestFrames.h>
#include <VorFrames/TreeEquations.h>

namespace VorSystem
{

namespace
{

constexpr char kSourceUnit[] = R"(src\Frames\VORFrames)";

} // namespace

FrameFrame::FrameFrame(const QString &name) : BaseFrame(name) {}

FrameFrame::~FrameFrame()
{
    // The set is reached through the center, so it is asked before the frame leaves it.
    FrameSet *const set = getFrameSet();
    removeFromCenter();
    if (set != nullptr)
        set->removeFrame(this);
    delete mFormulaMeasure;
    delete mFormulaLevel;
}

eElementFrameType FrameFrame::elementType()
{
    return Element_Frame;
}

QString FrameFrame::fullName()
{
    return mFrameCenter == nullptr ? mName : mFrameCenter->name() + QLatin1Char(':') + mName;
}

FrameSet *FrameFrame::getFrameSet() const
{
    return mFrameCenter == nullptr ? nullptr : mFrameCenter->getFrameSet();
}

ValuesAccordingSizes *FrameFrame::getMeasureBySizes()
{
    return &mMeasures;
}

ValuesAccordingSizes *FrameFrame::getLevelBySizes()
{
    return &mLevels;
}

ControlFrame *FrameFrame::controlFrameCorresponding()
{
    return dynamic_cast<ControlFrame *>(objectControlCorresponding());
}

ControlBase *FrameFrame::skeletonElementPointedAtUs(ControlSkeleton *skeleton)
{
    return skeleton->framePointingToTheFrameFrame(this);
}

// --- Center ---

void FrameFrame::addFrameCenter(FrameCenter *center, int index)
{
    removeFromCenter();
    mFrameCenter = center;
    if (center != nullptr)
        center->addFrame(this, index);
}

void FrameFrame::removeFromCenter()
{
    if (mFrameCenter != nullptr)
        mFrameCenter->removeFrame(this);
    mFrameCenter = nullptr;
}

bool FrameFrame::isLevelZero() const
{
    return mFrameCenter != nullptr && mFrameCenter->getFrameLevelZero() == this;
}

void FrameFrame::becomeLevelZero()
{
    VOR_REQUIRE(mFrameCenter != nullptr);
    mFrameCenter->setFrameLevelZero(this);
}

std::pair<FrameFrame *, FrameFrame *> FrameFrame::neighbors()
{
    VOR_REQUIRE(mFrameCenter != nullptr);
    VOR_REQUIRE(mFrameCenter->getFrameLevelZero() != nullptr);
    if (isLevelZero())
        return {nullptr, nullptr};

    ControlFrame *const control = controlFrameCorresponding();
    VOR_REQUIRE(control != nullptr);
    GeoPoint2D crossing;
    control->calculateIntersectionOfCenter(&crossing);
    ControlCenter *const axis = mFrameCenter->ControlCenterCorrespondent();
    VOR_REQUIRE(axis != nullptr);
    FrameFrame *const below = axis->getTheClosestFrame(crossing, ControlCenter::Level_Below, this);
    FrameFrame *const above = axis->getTheClosestFrame(crossing, ControlCenter::Level_Above, this);
    return {below, above};
}

bool FrameFrame::isMeasureZero()
{
    if (const ControlFrame *const control = controlFrameCorresponding())
        return control->getVectorContour1() == control->getVectorContour2();
    return !mMeasures.mValues.isEmpty() && mMeasures.mValues.at(mMeasures.mNestIndex) == 0.0;
}

bool FrameFrame::isInternalFrame()
{
    ControlFrame *const control = controlFrameCorresponding();
    return control != nullptr && control->isInternalFrame();
}

// --- Formulas ---

bool FrameFrame::measurementFormulaAvailable()
{
    return true;
}

bool FrameFrame::formulaLevelAvailable()
{
    return true;
}

bool FrameFrame::aFormulaImplicitMeasures()
{
    return mFrameLink != nullptr && mFrameLink->measurementFormula() != nullptr;
}

bool FrameFrame::aFormulaImplicitLevel()
{
    return mFrameLink != nullptr && mFrameLink->formulaLevel() != nullptr;
}

TreeEquations *FrameFrame::measurementFormula()
{
    return mFormulaMeasure;
}

TreeEquations *FrameFrame::formulaLevel()
{
    return mFormulaLevel;
}

void FrameFrame::setFormulaMeasurement(TreeEquations *formula)
{
    setFormula(mFormulaMeasure, formula);
}

void FrameFrame::setFormulaLevel(TreeEquations *formula)
{
    setFormula(mFormulaLevel, formula);
}

void FrameFrame::forgetFormulas()
{
    mFormulaMeasure = nullptr;
    mFormulaLevel = nullptr;
}

void FrameFrame::rememberFormulas(TreeEquations *measure, TreeEquations *level)
{
    mFormulaMeasure = measure;
    mFormulaLevel = level;
}

void FrameFrame::addEvaluationUsedInMeasurement(QListEx<Evaluation> &list)
{
    if (mFormulaMeasure != nullptr) {
        mFormulaMeasure->addEvaluationsInList(list);
        return;
    }
    const Evaluation link{mFrameLink, Evaluation_Measure};
    if (aFormulaImplicitMeasures() && !list.contains(link))
        list.append(link);
}

void FrameFrame::addEvaluationUsedInLevel(QListEx<Evaluation> &list)
{
    if (mFormulaLevel != nullptr) {
        mFormulaLevel->addEvaluationsInList(list);
        return;
    }
    const Evaluation link{mFrameLink, Evaluation_Level};
    if (aFormulaImplicitLevel() && !list.contains(link))
        list.append(link);
}

void FrameFrame::addReferencesImplicitInMeasuresList(QListEx<BaseFrame *> &pending,
                                                     QListEx<BaseFrame *> &done)
{
    if (!done.contains(mFrameLink))
        pending.append(mFrameLink);
}

void FrameFrame::addReferencesImplicitInLevelList(QListEx<BaseFrame *> &pending, QListEx<BaseFrame *> &done)
{
    addReferencesImplicitInMeasuresList(pending, done);
}

bool FrameFrame::containsImplicitReferences(QListEx<BaseFrame *> measures, QListEx<BaseFrame *> levels)
{
    return mFrameLink != nullptr && (measures.contains(mFrameLink) || levels.contains(mFrameLink));
}

// --- Evaluation ---

bool FrameFrame::evaluateMeasurement(short size, double &value)
{
    return mFormulaMeasure == nullptr ? evaluateMeasurementObject(size, value)
                                      : evaluateMeasurementFormula(size, value);
}

bool FrameFrame::evaluateMeasurementObject(short size, double &value)
{
    ControlFrame *const control = controlFrameCorresponding();
    if (control == nullptr)
        return false;
    value = control->getMeasures(size);
    return true;
}

bool FrameFrame::evaluateMeasures(const GradationData *gradation, QListEx<double> &values)
{
    return mFormulaMeasure == nullptr ? evaluateMeasuresObject(gradation, values)
                                      : evaluateMeasuresFormula(values);
}

bool FrameFrame::evaluateMeasuresObject(const GradationData *gradation, QListEx<double> &values)
{
    ControlFrame *const control = controlFrameCorresponding();
    if (control == nullptr)
        return false;
    values = control->getMeasures(gradation);
    return true;
}

bool FrameFrame::evaluateLevel(short size, double &value)
{
    return mFormulaLevel == nullptr ? evaluateLevelObject(size, value) : evaluateLevelFormula(size, value);
}

bool FrameFrame::evaluateLevelObject(short size, double &value)
{
    ControlFrame *const control = controlFrameCorresponding();
    if (control == nullptr)
        return false;
    value = control->getLevel(size);
    return true;
}

bool FrameFrame::evaluateLevels(const GradationData *gradation, QListEx<double> &values)
{
    return mFormulaLevel == nullptr ? evaluateLevelsObject(gradation, values) : evaluateLevelsFormula(values);
}

bool FrameFrame::evaluateLevelsObject(const GradationData *gradation, QListEx<double> &values)
{
    ControlFrame *const control = controlFrameCorresponding();
    if (control == nullptr)
        return false;
    values = control->getLevels(gradation);
    return true;
}

// --- New values ---

bool FrameFrame::testLevelsProposed(const QListEx<double> &levels)
{
    if (!isDefinedInDocument())
        return true;

    const auto [below, above] = neighbors();
    for (int size = 0; size < levels.count(); ++size) {
        // Written so that a NaN is refused.
        if (below != nullptr && !(below->getLevel(static_cast<short>(size)) < levels.at(size)))
            return false;
        if (above != nullptr && !(above->getLevel(static_cast<short>(size)) > levels.at(size)))
            return false;
    }
    return true;
}

bool FrameFrame::testLevelsProposed(double level)
{
    if (countsAsZero(level))
        return true; // the frame takes over as origin
    const double delta = level - getLevel(-1);
    if (countsAsZero(delta))
        return true;

    QListEx<double> shifted = mLevels.mValues;
    for (double &value : shifted)
        value += delta;
    return testLevelsProposed(shifted);
}

bool FrameFrame::applyValues(const double *measure, const double *level, bool *refused)
{
    if (level != nullptr && !testLevelsProposed(*level))
        return refuseLevels(refused);

    const GradationData *const gradation = gradationOf(document());
    ValuesAccordingSizes workMeasures = mMeasures;
    ValuesAccordingSizes workLevels = mLevels;
    if (measure != nullptr)
        workMeasures.mValues[workMeasures.mNestIndex] = *measure;
    if (level != nullptr) {
        if (countsAsZero(*level))
            becomeLevelZero();
        workLevels.mValues[workLevels.mNestIndex] = *level;
    }

    if (!mPerimeterMeasurement) {
        const bool applied = applyMeasuresLevels(workMeasures, workLevels, gradation, ModifyLevel_Nest);
        return applied && (measure != nullptr || level != nullptr);
    }

    if (measure != nullptr) {
        // Deliberate: the nest holds the new value already, and takes the difference once more.
        const double delta = *measure - mMeasures.mValues.at(mMeasures.mNestIndex);
        for (double &value : workMeasures.mValues)
            value += delta;
    }
    if (level != nullptr && !applyLevels(workLevels, gradation, ModifyLevel_Nest))
        return false;
    if (measure != nullptr)
        return applyMeasures(workMeasures, gradation, ModifyLevel_AllSizes);
    return level != nullptr;
}

bool FrameFrame::applyValues(const QListEx<double> *measures, const QListEx<double> *levels, bool *refused)
{
    if (levels != nullptr && !testLevelsProposed(*levels))
        return refuseLevels(refused);
    if (measures == nullptr && levels == nullptr)
        return false;

    ValuesAccordingSizes workMeasures = mMeasures;
    ValuesAccordingSizes workLevels = mLevels;
    if (measures != nullptr)
        workMeasures.mValues = *measures;
    if (levels != nullptr)
        workLevels.mValues = *levels;
    return applyMeasuresLevels(workMeasures, workLevels, gradationOf(document()), ModifyLevel_AllSizes);
}

bool FrameFrame::applyMeasuresLevels(ValuesAccordingSizes &measures, ValuesAccordingSizes &levels,
                                     const GradationData *gradation, eModifyLevelActionType action)
{
    if (ControlFrame *const control = controlFrameCorresponding()) {
        return control->changeMeasureLevel(ControlBase::MeasureLevel_Both, &measures, &levels, gradation,
                                           action) == Msg_Converged;
    }
    mMeasures = measures;
    mLevels = levels;
    return true;
}

bool FrameFrame::applyMeasures(ValuesAccordingSizes &measures, const GradationData *gradation,
                               eModifyLevelActionType action)
{
    ControlFrame *const control = controlFrameCorresponding();
    if (control == nullptr) {
        mMeasures = measures;
        return true;
    }
    if (control->changeMeasureLevel(ControlBase::MeasureLevel_Measure, &measures, nullptr, gradation,
                                    action) == Msg_Converged)
        return true;

    loseMeasureFormula(&FrameFrame::mFormulaMeasure, true);
    return false;
}

bool FrameFrame::applyLevels(ValuesAccordingSizes &levels, const GradationData *gradation,
                             eModifyLevelActionType action)
{
    ControlFrame *const control = controlFrameCorresponding();
    if (control == nullptr) {
        mLevels = levels;
        return true;
    }
    if (control->changeMeasureLevel(ControlBase::MeasureLevel_Level, nullptr, &levels, gradation, action) ==
        Msg_Converged)
        return true;

    // Deliberate: the level formula is the one reported and recorded, the measure formula the one dropped.
    loseMeasureFormula(&FrameFrame::mFormulaLevel, false);
    return false;
}

void FrameFrame::loseMeasureFormula(TreeEquations *FrameFrame::*reported, bool flag)
{
    if (this->*reported == nullptr)
        return;
    reportLostFormula(*this);
    if (this->*reported != nullptr) { // the host heard the message and may have acted on it
        FrameSet *const set = getFrameSet();
        VOR_REQUIRE(set != nullptr);
        set->markRemovedFormula(fullName(), flag, (this->*reported)->toString());
    }
    setFormulaMeasurement(nullptr);
}

// --- Destruction ---

bool FrameFrame::canBeDestroyed(bool report)
{
    if (!BaseFrame::canBeDestroyed(report))
        return false;
    if (mFrameLink != nullptr) {
        if (report)
            showMessage(GestFrames::tr("Cannot delete this frame because it is linked."));
        return false;
    }
    if (mFrameCenter == nullptr)
        return true;
    if (isMentionedInTheSetFormula(mFrameCenter->getFrameSet(), report))
        return false;
    if (!isLevelZero() || mFrameCenter->getFrames().count() < 2)
        return true;
    if (report) {
        showMessage(
            GestFrames::tr("Cannot delete zero-level frame because other frames exist for this center."));
    }
    return false;
}

bool FrameFrame::canBeDestroyedInBatch()
{
    return !isDefinedInDocument() && mFrameLink == nullptr && !isMentionedByElementDefined();
}

} // namespace VorSystem
