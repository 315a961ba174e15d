// Links: membership, reading, and what depends on them. Handing values out stands in LinkDistribution.cpp.

#include <VorFrames/FrameLink.h>

#include "Preconditions.h"
#include "VORFrames/Definedness.h"
#include "VORFrames/StoredValues.h"

#include <VorFrames/ControlFrame.h>
#include <VorFrames/FrameFrame.h>
#include <VorFrames/FrameSet.h>
#include <VorFrames/TreeEquations.h>

#include <QSet>
#include <algorithm>

namespace VorSystem
{

namespace
{

constexpr char kSourceUnit[] = R"(src\Frames\VORFrames)";

// Marks the frame's control object, where there is one, as following its link or not.
void setInLink(ControlBase *control, bool inLink)
{
    if (auto *const frame = dynamic_cast<ControlFrame *>(control))
        frame->setAgreesLink(inLink);
}

bool anyFrame(const QListEx<FrameFrame *> &frames, TreeEquations *(BaseFrame::*formula)())
{
    return std::any_of(frames.cbegin(), frames.cend(),
                       [formula](FrameFrame *frame) { return (frame->*formula)() != nullptr; });
}

// The evaluations of the frames, each once.
void addFrames(const QListEx<FrameFrame *> &frames, eEvaluationType type, QListEx<Evaluation> &list)
{
    QSet<BaseFrame *> listed;
    for (const Evaluation &evaluation : qAsConst(list)) {
        if (evaluation.mType == type)
            listed.insert(evaluation.mElement);
    }
    for (FrameFrame *frame : frames) {
        if (listed.contains(frame))
            continue;
        listed.insert(frame);
        list.append(Evaluation{frame, type});
    }
}

} // namespace

FrameLink::FrameLink(const QString &name) : BaseFrame(name) {}

FrameLink::~FrameLink()
{
    unlinkFrames();
    if (mFrameSet != nullptr)
        mFrameSet->removeLink(this);
    delete mFormulaMeasure;
    delete mFormulaLevel;
}

eElementFrameType FrameLink::elementType()
{
    return Element_Link;
}

ValuesAccordingSizes *FrameLink::getMeasureBySizes()
{
    return &mMeasures;
}

ValuesAccordingSizes *FrameLink::getLevelBySizes()
{
    return &mLevels;
}

ControlBase *FrameLink::objectControlCorresponding()
{
    return nullptr;
}

ControlBase *FrameLink::skeletonElementPointedAtUs(ControlSkeleton *)
{
    return nullptr;
}

// --- Membership ---

void FrameLink::linkFrame(FrameFrame *frame)
{
    VOR_REQUIRE(frame != nullptr);
    linkFrame(frame, frame->objectControlCorresponding());
}

void FrameLink::linkFrame(FrameFrame *frame, ControlBase *control)
{
    mFrames.append(frame);
    frame->setLink(this);
    setInLink(control, true);
}

void FrameLink::removeFrame(FrameFrame *frame)
{
    VOR_REQUIRE(frame != nullptr);
    mFrames.removeAll(frame);
    frame->setLink(nullptr);
}

void FrameLink::unlinkFrames()
{
    ControlLookup controls;
    unlinkFrames(controls);
}

void FrameLink::unlinkFrames(ControlLookup &controls)
{
    for (FrameFrame *frame : qAsConst(mFrames)) {
        setInLink(controls.of(frame), false);
        frame->setLink(nullptr);
    }
    mFrames.clear();
}

void FrameLink::transformerLinkUndefined()
{
    ControlLookup controls;
    for (FrameFrame *frame : qAsConst(mFrames))
        setInLink(controls.of(frame), false);
}

void FrameLink::relinkingFrames()
{
    ControlLookup controls;
    for (FrameFrame *frame : qAsConst(mFrames)) {
        auto *const control = dynamic_cast<ControlFrame *>(controls.of(frame));
        VOR_REQUIRE(control != nullptr);
        control->setAgreesLink(true);
    }
}

bool FrameLink::isDefinedInDocument()
{
    return Definedness().linkIsDefined(*this);
}

bool FrameLink::framesAreDefined()
{
    Definedness definedness;
    return std::all_of(mFrames.cbegin(), mFrames.cend(),
                       [&](FrameFrame *frame) { return definedness.isDefined(frame); });
}

bool FrameLink::frameLevelZero()
{
    return !mFrames.isEmpty() && mFrames.constFirst()->isLevelZero();
}

bool FrameLink::framesMeasureZero()
{
    return !mFrames.isEmpty() && mFrames.constFirst()->isMeasureZero();
}

bool FrameLink::canBeDestroyed(bool report)
{
    return BaseFrame::canBeDestroyed(report) && !isMentionedInTheSetFormula(mFrameSet, report);
}

bool FrameLink::canBeDestroyedInBatch()
{
    return !isDefinedInDocument() && !isMentionedByElementDefined();
}

// --- Formulas ---

bool FrameLink::measurementFormulaAvailable()
{
    return true;
}

bool FrameLink::formulaLevelAvailable()
{
    return true;
}

bool FrameLink::aFormulaImplicitMeasures()
{
    return mFormulaMeasure != nullptr;
}

bool FrameLink::aFormulaImplicitLevel()
{
    return mFormulaLevel != nullptr;
}

TreeEquations *FrameLink::measurementFormula()
{
    return mFormulaMeasure;
}

TreeEquations *FrameLink::formulaLevel()
{
    return mFormulaLevel;
}

void FrameLink::setFormulaMeasurement(TreeEquations *formula)
{
    setFormula(mFormulaMeasure, formula);
}

void FrameLink::setFormulaLevel(TreeEquations *formula)
{
    setFormula(mFormulaLevel, formula);
}

bool FrameLink::aFramesWithFormulaMeasure()
{
    return anyFrame(mFrames, &BaseFrame::measurementFormula);
}

bool FrameLink::aFramesWithFormulaLevel()
{
    return anyFrame(mFrames, &BaseFrame::formulaLevel);
}

bool FrameLink::aFramesWithFormulaInconsistentMeasure()
{
    return aFramesWithFormulaMeasure();
}

bool FrameLink::aFramesWithFormulaInconsistentLevel()
{
    return aFramesWithFormulaLevel();
}

void FrameLink::addEvaluationUsedInMeasurement(QListEx<Evaluation> &list)
{
    if (mFormulaMeasure == nullptr)
        addFrames(mFrames, Evaluation_Measure, list);
    else
        mFormulaMeasure->addEvaluationsInList(list);
}

void FrameLink::addEvaluationUsedInLevel(QListEx<Evaluation> &list)
{
    if (mFormulaLevel == nullptr)
        addFrames(mFrames, Evaluation_Level, list);
    else
        mFormulaLevel->addEvaluationsInList(list);
}

void FrameLink::addReferencesImplicitInMeasuresList(QListEx<BaseFrame *> &pending, QListEx<BaseFrame *> &done)
{
    const QSet<BaseFrame *> alreadyDone(done.cbegin(), done.cend());
    for (FrameFrame *frame : qAsConst(mFrames)) {
        if (!alreadyDone.contains(frame))
            pending.append(frame);
    }
}

void FrameLink::addReferencesImplicitInLevelList(QListEx<BaseFrame *> &pending, QListEx<BaseFrame *> &done)
{
    addReferencesImplicitInMeasuresList(pending, done);
}

bool FrameLink::containsImplicitReferences(QListEx<BaseFrame *> measures, QListEx<BaseFrame *> levels)
{
    const QSet<BaseFrame *> own(mFrames.cbegin(), mFrames.cend());
    const auto isOwn = [&own](BaseFrame *element) { return own.contains(element); };
    return std::any_of(measures.cbegin(), measures.cend(), isOwn) ||
           std::any_of(levels.cbegin(), levels.cend(), isOwn);
}

// --- Reading ---

bool FrameLink::evaluateMeasurement(short size, double &value)
{
    return mFormulaMeasure == nullptr ? evaluateMeasurementObject(size, value)
                                      : evaluateMeasurementFormula(size, value);
}

bool FrameLink::evaluateMeasurementObject(short size, double &value)
{
    value = 0.0;
    for (FrameFrame *frame : qAsConst(mFrames))
        value += storedMeasure(frame, size);
    return true;
}

bool FrameLink::evaluateMeasures(const GradationData *gradation, QListEx<double> &values)
{
    return mFormulaMeasure == nullptr ? evaluateMeasuresObject(gradation, values)
                                      : evaluateMeasuresFormula(values);
}

bool FrameLink::evaluateMeasuresObject(const GradationData *, QListEx<double> &values)
{
    for (int size = 0; size < values.count(); ++size)
        evaluateMeasurementObject(static_cast<short>(size), values[size]);
    return true;
}

bool FrameLink::evaluateLevel(short size, double &value)
{
    return mFormulaLevel == nullptr ? evaluateLevelObject(size, value) : evaluateLevelFormula(size, value);
}

bool FrameLink::evaluateLevelObject(short size, double &value)
{
    if (mFrames.isEmpty())
        return false;
    double sum = 0.0;
    for (FrameFrame *frame : qAsConst(mFrames))
        sum += frame->getLevel(size);
    value = sum / mFrames.count();
    return true;
}

bool FrameLink::evaluateLevels(const GradationData *gradation, QListEx<double> &values)
{
    return mFormulaLevel == nullptr ? evaluateLevelsObject(gradation, values) : evaluateLevelsFormula(values);
}

bool FrameLink::evaluateLevelsObject(const GradationData *, QListEx<double> &values)
{
    if (mFrames.isEmpty())
        return false;
    for (int size = 0; size < values.count(); ++size)
        evaluateLevelObject(static_cast<short>(size), values[size]);
    return true;
}

} // namespace VorSystem
