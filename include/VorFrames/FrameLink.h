// Several frames read and written as one value.
#pragma once

#include <VorFrames/BaseFrame.h>

namespace VorSystem
{

class ControlLookup;
class FrameFrame;

/// A link: its measure is the sum of its frames' measures, its level the mean of their levels; a new total is
/// handed out among the frames. It has no geometry of its own.
///
/// Each listed frame points back at the link. A frame belongs to one link: take it out of the old one first.
/// A frame must not be deleted while it is linked. Destroying a copy of a link unlinks the frames of its
/// source.
class VORFRAMES_EXPORT FrameLink : public BaseFrame
{
public:
    /// How a new total is shared among the frames.
    enum eMeasureType : int {
        Measure_Proportional = 0, ///< the frames keep their shares
        Measure_Equal = 1,        ///< each frame takes the same change
        Measure_Fixed = 2,        ///< each frame takes a part by its ratio
    };

    explicit FrameLink(const QString &name);
    FrameLink(const FrameLink &other) = default;
    FrameLink &operator=(const FrameLink &other) = default;

    XJsonObject toJson() const override;
    void fromJson(const XJsonObject &object) override;
    ~FrameLink() override;
    eElementFrameType elementType() override;
    ValuesAccordingSizes *getMeasureBySizes() override;
    ValuesAccordingSizes *getLevelBySizes() override;
    /// Refuses, with a message, levels that would take a frame to or past a neighbour.
    bool applyValues(const QListEx<double> *measures, const QListEx<double> *levels, bool *refused) override;
    /// A level that counts as zero makes every frame the origin of its center. Raises AssertionError, at the
    /// end, when there is no gradation to reevaluate with.
    bool applyValues(const double *measure, const double *level, bool *refused) override;
    bool measurementFormulaAvailable() override;
    bool formulaLevelAvailable() override;
    bool aFormulaImplicitMeasures() override;
    bool aFormulaImplicitLevel() override;
    TreeEquations *measurementFormula() override;
    TreeEquations *formulaLevel() override;
    void setFormulaMeasurement(TreeEquations *formula) override;
    void setFormulaLevel(TreeEquations *formula) override;
    /// Brings all frames to the link's level, which moves them only in mode 1. False when a frame has a level
    /// formula or a level of the link is exactly 0.0.
    bool adjustFramesSameLevel(eFrameReevaluate mode) override;
    bool evaluateMeasurement(short size, double &value) override;
    bool evaluateMeasurementObject(short size, double &value) override;
    bool evaluateMeasures(const GradationData *gradation, QListEx<double> &values) override;
    bool evaluateMeasuresObject(const GradationData *gradation, QListEx<double> &values) override;
    bool evaluateLevel(short size, double &value) override;
    bool evaluateLevelObject(short size, double &value) override;
    bool evaluateLevels(const GradationData *gradation, QListEx<double> &values) override;
    bool evaluateLevelsObject(const GradationData *gradation, QListEx<double> &values) override;
    ControlBase *objectControlCorresponding() override;
    bool applyMeasuresLevels(ValuesAccordingSizes &measures, ValuesAccordingSizes &levels,
                             const GradationData *gradation, eModifyLevelActionType action) override;
    bool applyMeasures(ValuesAccordingSizes &measures, const GradationData *gradation,
                       eModifyLevelActionType action) override;
    bool applyLevels(ValuesAccordingSizes &levels, const GradationData *gradation,
                     eModifyLevelActionType action) override;
    /// True when every frame is defined and its control object carries the in-link flag; an empty link is
    /// defined.
    bool isDefinedInDocument() override;
    bool canBeDestroyed(bool report) override;
    bool canBeDestroyedInBatch() override;
    void addEvaluationUsedInMeasurement(QListEx<Evaluation> &list) override;
    void addEvaluationUsedInLevel(QListEx<Evaluation> &list) override;
    void addReferencesImplicitInMeasuresList(QListEx<BaseFrame *> &pending,
                                             QListEx<BaseFrame *> &done) override;
    void addReferencesImplicitInLevelList(QListEx<BaseFrame *> &pending, QListEx<BaseFrame *> &done) override;
    bool containsImplicitReferences(QListEx<BaseFrame *> measures, QListEx<BaseFrame *> levels) override;

    QListEx<FrameFrame *> getFrames() const { return mFrames; }
    eMeasureType getMeasureType() const { return mMeasureType; }
    void setMeasureType(eMeasureType type) { mMeasureType = type; }

    /// Appends the frame and flags its control object. Entering a frame twice counts it twice: the caller
    /// sees to that, and to another link that lists it. Raises AssertionError for null.
    void linkFrame(FrameFrame *frame);
    /// Takes the frame off the list and clears its pointer; the flag of its control object stays.
    void removeFrame(FrameFrame *frame);
    /// Lets all frames go, flags included.
    void unlinkFrames();
    /// Clears the flags and keeps the list: the link is no longer defined.
    void transformerLinkUndefined();
    /// The way back. Raises AssertionError at a frame without a control object.
    void relinkingFrames();
    bool frameLevelZero();
    bool framesMeasureZero();
    bool framesAreDefined();
    bool aFramesWithFormulaMeasure();
    bool aFramesWithFormulaLevel();
    /// Hands out what the formulas of the frames leave open, and stores what came of it.
    bool applyMeasuresLevelsDirectly(ValuesAccordingSizes &measures, ValuesAccordingSizes &levels,
                                     const GradationData *gradation, eModifyLevelActionType action);

protected:
    ControlBase *skeletonElementPointedAtUs(ControlSkeleton *skeleton) override;

    bool aFramesWithFormulaInconsistentMeasure();
    bool aFramesWithFormulaInconsistentLevel();
    bool applyMeasuresDirectly(ValuesAccordingSizes &measures, const GradationData *gradation,
                               eModifyLevelActionType action);
    bool applyLevelsDirectly(ValuesAccordingSizes &levels, const GradationData *gradation,
                             eModifyLevelActionType action);
    /// Hands a new total to the frames; a frame that fails does not keep the others from moving.
    bool leaveMeasures(ValuesAccordingSizes &measures, const GradationData *gradation,
                       eModifyLevelActionType action);
    /// Moves all frames by the same change of level; the first that fails ends the walk.
    bool leaveLevels(ValuesAccordingSizes &levels, const GradationData *gradation,
                     eModifyLevelActionType action);
    bool leaveMeasuresAndLevels(ValuesAccordingSizes &measures, ValuesAccordingSizes &levels,
                                const GradationData *gradation, eModifyLevelActionType action);
    bool testLevelsProposed(double level);
    bool testLevelsProposed(const QListEx<double> &levels);

private:
    friend class ClearingOut;
    friend class FrameSet;
    friend class SetTransfer;
    void linkFrame(FrameFrame *frame, ControlBase *control);
    void unlinkFrames(ControlLookup &controls);

    TreeEquations *mFormulaMeasure = nullptr; ///< owned
    TreeEquations *mFormulaLevel = nullptr;   ///< owned
    QListEx<FrameFrame *> mFrames;            ///< in the order of linking, not owned
    ValuesAccordingSizes mMeasures;
    ValuesAccordingSizes mLevels;
    eMeasureType mMeasureType = Measure_Proportional;
};

} // namespace VorSystem
