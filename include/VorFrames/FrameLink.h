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

    /// A proportional link of no frames, in no set, without values.
    explicit FrameLink(const QString &name);
    /// Copy every field as it stands: set, neighbours and formulas are then shared; see BaseFrame.
    ///@{
    FrameLink(const FrameLink &other) = default;
    FrameLink &operator=(const FrameLink &other) = default;
    ///@}

    XJsonObject toJson() const override;
    void fromJson(const XJsonObject &object) override;
    ~FrameLink() override;
    eElementFrameType elementType() override;
    ValuesAccordingSizes *getMeasureBySizes() override;
    ValuesAccordingSizes *getLevelBySizes() override;
    /// Refuses, with a message, levels that would take a frame to or past a neighbour.
    bool applyValues(const QListEx<double> *measures, const QListEx<double> *levels, bool *refused) override;
    /// A level that counts as zero makes every frame the origin of its center. A link that was never
    /// evaluated has no nest value to replace: giving it one ends the program. Raises AssertionError, at the
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
    /// The sum of the stored measures of the frames, 0.0 for none; a frame without values adds 0.0. Always
    /// true.
    bool evaluateMeasurementObject(short size, double &value) override;
    bool evaluateMeasures(const GradationData *gradation, QListEx<double> &values) override;
    /// The sums, one per place of a list that the caller has given its length. Always true.
    bool evaluateMeasuresObject(const GradationData *gradation, QListEx<double> &values) override;
    bool evaluateLevel(short size, double &value) override;
    /// The mean of the stored levels of the frames; false for none.
    bool evaluateLevelObject(short size, double &value) override;
    bool evaluateLevels(const GradationData *gradation, QListEx<double> &values) override;
    /// The means, one per place of a list that the caller has given its length; false without frames.
    bool evaluateLevelsObject(const GradationData *gradation, QListEx<double> &values) override;
    /// Null: a link has no geometry of its own.
    ControlBase *objectControlCorresponding() override;
    /// Hands out, as applyMeasures() and applyLevels() do, what the link drives by a formula and stores the
    /// rest. Always true: whether the pieces obeyed is not told.
    bool applyMeasuresLevels(ValuesAccordingSizes &measures, ValuesAccordingSizes &levels,
                             const GradationData *gradation, eModifyLevelActionType action) override;
    /// Without a formula of its own the link stores the list; with one it hands the values out among its
    /// frames and reevaluates itself in mode 0. Always true: whether the pieces obeyed is not told.
    ///@{
    bool applyMeasures(ValuesAccordingSizes &measures, const GradationData *gradation,
                       eModifyLevelActionType action) override;
    bool applyLevels(ValuesAccordingSizes &levels, const GradationData *gradation,
                     eModifyLevelActionType action) override;
    ///@}
    /// True when every frame is defined and its control object carries the in-link flag; an empty link is
    /// defined.
    bool isDefinedInDocument() override;
    /// Not while it is defined or named by a formula of the set. Raises AssertionError, where this comes to
    /// the formulas, without a set.
    bool canBeDestroyed(bool report) override;
    /// Not while it is defined or named by a formula of a defined element; raises likewise.
    bool canBeDestroyedInBatch() override;
    void addEvaluationUsedInMeasurement(QListEx<Evaluation> &list) override;
    void addEvaluationUsedInLevel(QListEx<Evaluation> &list) override;
    void addReferencesImplicitInMeasuresList(QListEx<BaseFrame *> &pending,
                                             QListEx<BaseFrame *> &done) override;
    void addReferencesImplicitInLevelList(QListEx<BaseFrame *> &pending, QListEx<BaseFrame *> &done) override;
    bool containsImplicitReferences(QListEx<BaseFrame *> measures, QListEx<BaseFrame *> levels) override;

    /// The frames in the order of linking, not owned.
    QListEx<FrameFrame *> getFrames() const { return mFrames; }
    /// The rule by which a new total is shared; setting it moves nothing.
    ///@{
    eMeasureType getMeasureType() const { return mMeasureType; }
    void setMeasureType(eMeasureType type) { mMeasureType = type; }
    ///@}

    /// Appends the frame and flags its control object. Entering a frame twice counts it twice: the caller
    /// sees to that, and to another link that lists it. Raises AssertionError for null.
    void linkFrame(FrameFrame *frame);
    /// Takes the frame off the list and clears its pointer, whichever link that names; the flag of its
    /// control object stays. Raises AssertionError for null.
    void removeFrame(FrameFrame *frame);
    /// Lets all frames go, flags included.
    void unlinkFrames();
    /// Clears the flags and keeps the list: the link is no longer defined.
    void transformerLinkUndefined();
    /// The way back. Raises AssertionError at a frame without a control object.
    void relinkingFrames();
    /// What FrameFrame::isLevelZero() answers for the first frame; false for an empty link.
    bool frameLevelZero();
    /// What FrameFrame::isMeasureZero() answers for the first frame; false for an empty link.
    bool framesMeasureZero();
    /// True when a piece uses every frame, whatever their in-link flags; an empty link's are.
    bool framesAreDefined();
    /// Has any frame such a formula of its own? Then values that a user gives the link reach none of them.
    ///@{
    bool aFramesWithFormulaMeasure();
    bool aFramesWithFormulaLevel();
    ///@}
    /// Hands out what the formulas of the frames leave open, and stores what came of it.
    bool applyMeasuresLevelsDirectly(ValuesAccordingSizes &measures, ValuesAccordingSizes &levels,
                                     const GradationData *gradation, eModifyLevelActionType action);

protected:
    ControlBase *skeletonElementPointedAtUs(ControlSkeleton *skeleton) override;

    /// Any formula of a frame stands against the link's: the same as aFramesWithFormulaMeasure() and
    /// aFramesWithFormulaLevel().
    ///@{
    bool aFramesWithFormulaInconsistentMeasure();
    bool aFramesWithFormulaInconsistentLevel();
    ///@}
    /// Hands the values out and reevaluates the list in mode 0, unless a frame has such a formula: true then,
    /// with nothing done. False, without the reevaluation, when a frame did not obey.
    ///@{
    bool applyMeasuresDirectly(ValuesAccordingSizes &measures, const GradationData *gradation,
                               eModifyLevelActionType action);
    bool applyLevelsDirectly(ValuesAccordingSizes &levels, const GradationData *gradation,
                             eModifyLevelActionType action);
    ///@}
    /// Hands a new total to the frames; a frame that fails does not keep the others from moving. True, with
    /// nothing done, for a link that is not defined; so are the two below.
    bool leaveMeasures(ValuesAccordingSizes &measures, const GradationData *gradation,
                       eModifyLevelActionType action);
    /// Moves all frames by the same change of level; the first that fails ends the walk.
    bool leaveLevels(ValuesAccordingSizes &levels, const GradationData *gradation,
                     eModifyLevelActionType action);
    /// Both in one move of each frame; the first that fails ends the walk.
    bool leaveMeasuresAndLevels(ValuesAccordingSizes &measures, ValuesAccordingSizes &levels,
                                const GradationData *gradation, eModifyLevelActionType action);
    /// May all frames take this change of level, at the nest or in every size, without one reaching a
    /// neighbour? No change may always be, nor is a nest level that counts as zero looked at. Raises
    /// AssertionError for a frame without a center, an origin or a control object.
    ///@{
    bool testLevelsProposed(double level);
    bool testLevelsProposed(const QListEx<double> &levels);
    ///@}

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
