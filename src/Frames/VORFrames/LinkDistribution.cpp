// Links: handing new totals and levels out among the frames.
//
// Every move calls the host, which may call back: the frames are walked over a copy of the list.

#include <VorFrames/FrameLink.h>

#include "VORFrames/Gradation.h"
#include "VORFrames/Messages.h"
#include "ZeroTest.h"

#include <VorFrames/CDbFrameModifyMeasure.h>
#include <VorFrames/ControlFrame.h>
#include <VorFrames/FrameFrame.h>

#include <algorithm>

namespace VorSystem
{

namespace
{

// Moves the frame, if it stands on a piece; true unless the piece did not obey.
bool moved(FrameFrame &frame, ControlBase::eMeasureLevel kind, ValuesAccordingSizes *measures,
           ValuesAccordingSizes *levels, const GradationData *gradation, eModifyLevelActionType action)
{
    ControlFrame *const control = frame.controlFrameCorresponding();
    return control == nullptr ||
           control->changeMeasureLevel(kind, measures, levels, gradation, action) == Msg_Converged;
}

// What is to be added to each level; the count of sizes is the caller's.
QListEx<double> changeOfLevels(const ValuesAccordingSizes &levels, const ValuesAccordingSizes &current,
                               int count)
{
    QListEx<double> delta;
    delta.reserve(count);
    for (int size = 0; size < count; ++size)
        delta.append(levels.mValues.at(size) - current.mValues.at(size));
    return delta;
}

// A frame that was never evaluated has no list to be changed: before anything moves it takes what its piece
// shows.
void readMissingMeasures(const QListEx<FrameFrame *> &frames)
{
    for (FrameFrame *frame : frames) {
        if (frame->getMeasureBySizes()->mValues.isEmpty())
            frame->reevaluateElementObject(Evaluation_Measure);
    }
}

void readMissingLevels(const QListEx<FrameFrame *> &frames)
{
    for (FrameFrame *frame : frames) {
        if (frame->getLevelBySizes()->mValues.isEmpty())
            frame->reevaluateElementObject(Evaluation_Level);
    }
}

ValuesAccordingSizes raised(const ValuesAccordingSizes &levels, const QListEx<double> &delta)
{
    ValuesAccordingSizes result = levels;
    for (int size = 0; size < delta.count(); ++size)
        result.mValues[size] += delta.at(size);
    return result;
}

} // namespace

// --- A level without passing a neighbour ---

bool FrameLink::testLevelsProposed(const QListEx<double> &levels)
{
    QListEx<double> delta;
    for (int size = 0; size < levels.count(); ++size)
        delta.append(levels.at(size) - getLevel(static_cast<short>(size)));
    if (std::all_of(delta.cbegin(), delta.cend(), countsAsZero))
        return true;

    const QListEx<FrameFrame *> frames = mFrames;
    for (FrameFrame *frame : frames) {
        const auto [below, above] = frame->neighbors();
        for (int i = 0; i < delta.count(); ++i) {
            const auto size = static_cast<short>(i);
            const double proposed = frame->getLevel(size) + delta.at(i);
            if (below != nullptr && !(below->getLevel(size) < proposed))
                return false;
            if (above != nullptr && above->getLevel(size) <= proposed)
                return false;
        }
    }
    return true;
}

bool FrameLink::testLevelsProposed(double level)
{
    if (countsAsZero(level))
        return true; // going to the origin is a case of its own
    const double delta = level - getLevel(-1);
    if (countsAsZero(delta))
        return true;

    QListEx<double> shifted = mLevels.mValues;
    for (double &value : shifted)
        value += delta;
    return testLevelsProposed(shifted);
}

// --- Values entered by the user ---

bool FrameLink::applyValues(const double *measure, const double *level, bool *refused)
{
    if (level != nullptr && !testLevelsProposed(*level))
        return refuseLevels(refused);

    const GradationData *const gradation = gradationOf(document());
    ValuesAccordingSizes workMeasures = mMeasures;
    ValuesAccordingSizes workLevels = mLevels;
    if (measure != nullptr)
        workMeasures.mValues[workMeasures.mNestIndex] = *measure;

    if (level != nullptr && countsAsZero(*level)) {
        if (aFramesWithFormulaLevel())
            return false;
        if (!aFramesWithFormulaMeasure()) {
            if (!leaveMeasures(workMeasures, gradation, ModifyLevel_Nest))
                return false;
            reevaluateElement(Evaluation_Measure, Reevaluate_Store);
        }
        const QListEx<FrameFrame *> frames = mFrames;
        for (FrameFrame *frame : frames)
            frame->becomeLevelZero();
        workLevels.mValues[workLevels.mNestIndex] = 0.0;
        if (!leaveLevels(workLevels, gradation, ModifyLevel_Nest))
            return false;
        reevaluateElement(Evaluation_Level, Reevaluate_Store);
        return true;
    }

    if (level != nullptr)
        workLevels.mValues[workLevels.mNestIndex] = *level;
    if (measure == nullptr && level == nullptr)
        return false;
    return applyMeasuresLevelsDirectly(workMeasures, workLevels, gradation, ModifyLevel_Nest);
}

bool FrameLink::applyValues(const QListEx<double> *measures, const QListEx<double> *levels, bool *refused)
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
    return applyMeasuresLevelsDirectly(workMeasures, workLevels, gradationOf(document()),
                                       ModifyLevel_AllSizes);
}

bool FrameLink::applyMeasuresLevelsDirectly(ValuesAccordingSizes &measures, ValuesAccordingSizes &levels,
                                            const GradationData *gradation, eModifyLevelActionType action)
{
    const bool measuresAreDriven = aFramesWithFormulaMeasure();
    const bool levelsAreDriven = aFramesWithFormulaLevel();
    if (measuresAreDriven && levelsAreDriven)
        return true;
    if (levelsAreDriven)
        return applyMeasuresDirectly(measures, gradation, action);
    if (measuresAreDriven)
        return applyLevelsDirectly(levels, gradation, action);

    if (!leaveMeasuresAndLevels(measures, levels, gradation, action))
        return false;
    reevaluate(Reevaluate_Store);
    return true;
}

bool FrameLink::applyMeasuresDirectly(ValuesAccordingSizes &measures, const GradationData *gradation,
                                      eModifyLevelActionType action)
{
    if (aFramesWithFormulaMeasure())
        return true;
    if (!leaveMeasures(measures, gradation, action))
        return false;
    reevaluateElement(Evaluation_Measure, Reevaluate_Store);
    return true;
}

bool FrameLink::applyLevelsDirectly(ValuesAccordingSizes &levels, const GradationData *gradation,
                                    eModifyLevelActionType action)
{
    if (aFramesWithFormulaLevel())
        return true;
    if (!leaveLevels(levels, gradation, action))
        return false;
    reevaluateElement(Evaluation_Level, Reevaluate_Store);
    return true;
}

// --- Values pushed by a reevaluation: the answer of the pieces is not asked for ---

bool FrameLink::applyMeasures(ValuesAccordingSizes &measures, const GradationData *gradation,
                              eModifyLevelActionType action)
{
    if (mFormulaMeasure == nullptr) {
        mMeasures = measures;
        return true;
    }
    leaveMeasures(measures, gradation, action);
    reevaluate(Reevaluate_Store);
    return true;
}

bool FrameLink::applyLevels(ValuesAccordingSizes &levels, const GradationData *gradation,
                            eModifyLevelActionType action)
{
    if (mFormulaLevel == nullptr) {
        mLevels = levels;
        return true;
    }
    leaveLevels(levels, gradation, action);
    reevaluate(Reevaluate_Store);
    return true;
}

bool FrameLink::applyMeasuresLevels(ValuesAccordingSizes &measures, ValuesAccordingSizes &levels,
                                    const GradationData *gradation, eModifyLevelActionType action)
{
    if (mFormulaMeasure != nullptr && mFormulaLevel != nullptr) {
        leaveMeasuresAndLevels(measures, levels, gradation, action);
    } else if (mFormulaMeasure != nullptr) {
        mLevels = levels;
        leaveMeasures(measures, gradation, action);
    } else if (mFormulaLevel != nullptr) {
        mMeasures = measures;
        leaveLevels(levels, gradation, action);
    } else {
        mMeasures = measures;
        mLevels = levels;
    }
    reevaluate(Reevaluate_Store);
    return true;
}

// --- Handing out ---

bool FrameLink::leaveMeasures(ValuesAccordingSizes &measures, const GradationData *gradation,
                              eModifyLevelActionType action)
{
    if (!isDefinedInDocument())
        return true;

    CDbFrameModifyMeasure strategy(*this, measures, mMeasures, action);
    bool all = true;
    const QListEx<FrameFrame *> frames = mFrames;
    readMissingMeasures(frames);
    for (FrameFrame *frame : frames) {
        ValuesAccordingSizes share = *frame->getMeasureBySizes();
        strategy.calculateNewMeasure(*frame, &share);
        if (!moved(*frame, ControlBase::MeasureLevel_Measure, &share, nullptr, gradation, action))
            all = false; // the other frames still move
    }
    return all;
}

bool FrameLink::leaveLevels(ValuesAccordingSizes &levels, const GradationData *gradation,
                            eModifyLevelActionType action)
{
    if (!isDefinedInDocument())
        return true;

    const QListEx<double> delta = changeOfLevels(levels, mLevels, mLevels.mValues.count());
    const QListEx<FrameFrame *> frames = mFrames;
    readMissingLevels(frames);
    for (FrameFrame *frame : frames) {
        ValuesAccordingSizes raisedLevels = raised(*frame->getLevelBySizes(), delta);
        if (!moved(*frame, ControlBase::MeasureLevel_Level, nullptr, &raisedLevels, gradation, action))
            return false;
    }
    return true;
}

bool FrameLink::leaveMeasuresAndLevels(ValuesAccordingSizes &measures, ValuesAccordingSizes &levels,
                                       const GradationData *gradation, eModifyLevelActionType action)
{
    if (!isDefinedInDocument())
        return true;

    // Deliberate: the count of the measures bounds the walk over the levels.
    const QListEx<double> delta = changeOfLevels(levels, mLevels, mMeasures.mValues.count());
    CDbFrameModifyMeasure strategy(*this, measures, mMeasures, action);
    const QListEx<FrameFrame *> frames = mFrames;
    readMissingMeasures(frames);
    readMissingLevels(frames);
    for (FrameFrame *frame : frames) {
        ValuesAccordingSizes raisedLevels = raised(*frame->getLevelBySizes(), delta);
        ValuesAccordingSizes share = *frame->getMeasureBySizes();
        strategy.calculateNewMeasure(*frame, &share);
        if (!moved(*frame, ControlBase::MeasureLevel_Both, &share, &raisedLevels, gradation, action))
            return false;
    }
    return true;
}

bool FrameLink::adjustFramesSameLevel(eFrameReevaluate mode)
{
    if (aFramesWithFormulaLevel())
        return false;

    ValuesAccordingSizes common;
    common.mNestIndex = mLevels.mNestIndex;
    for (int size = 0; size < mLevels.mValues.count(); ++size) {
        double level = 0.0;
        // Exactly 0.0: a level that merely counts as zero is brought in line like any other.
        if (!evaluateLevel(static_cast<short>(size), level) || level == 0.0)
            return false;
        common.mValues.append(level);
    }
    if (mode != Reevaluate_Apply || common.mValues.isEmpty())
        return true; // a link that was never evaluated has no level to bring its frames to

    const GradationData *const gradation = gradationOf(document());
    const QListEx<FrameFrame *> frames = mFrames;
    for (FrameFrame *frame : frames) {
        ValuesAccordingSizes wanted = common; // a move may change its list
        moved(*frame, ControlBase::MeasureLevel_Level, nullptr, &wanted, gradation, ModifyLevel_AllSizes);
    }
    return true;
}

} // namespace VorSystem
