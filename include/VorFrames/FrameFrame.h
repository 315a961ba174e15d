// A cross line on a center, with a measure and a level per size.
#pragma once

#include <VorFrames/BaseFrame.h>

#include <utility>

namespace VorSystem
{

class ControlFrame;
class FrameCenter;
class FrameLink;

/// A frame: the width of the piece (measure) at a distance from the origin of its center (level).
///
/// Its set is its center's set. It may belong to one link, which may drive it. The stored lists hold the
/// values while no control object exists, and what was last read back when one does.
class VORFRAMES_EXPORT FrameFrame : public BaseFrame
{
public:
    /// How a change of the measure is shared between the two sides.
    enum eMeasureType : int {
        Measure_InProportion = 0, ///< by the present lengths of the sides
        Measure_ByPercentage = 1, ///< by getPercentageMeasureRating1()
    };

    /// A frame on no center: 50 percent for each side, a ratio of 1.0, no values.
    explicit FrameFrame(const QString &name);
    /// Copy every field as it stands: set, neighbours and formulas are then shared; see BaseFrame.
    ///@{
    FrameFrame(const FrameFrame &other) = default;
    FrameFrame &operator=(const FrameFrame &other) = default;
    ///@}

    /// Names center and link. Raises AssertionError without a center.
    XJsonObject toJson() const override;
    /// Enters the center and the link that object names. Raises AssertionError without a set and for a name
    /// that the set has not got.
    void fromJson(const XJsonObject &object) override;
    ~FrameFrame() override;
    eElementFrameType elementType() override;
    /// The center's name, ":" and the own name; the own name alone without a center.
    QString fullName() override;
    FrameSet *getFrameSet() const override;
    ValuesAccordingSizes *getMeasureBySizes() override;
    ValuesAccordingSizes *getLevelBySizes() override;
    /// Refuses, with a message, levels that would pass a neighbouring frame.
    bool applyValues(const QListEx<double> *measures, const QListEx<double> *levels, bool *refused) override;
    /// A level that counts as zero makes this frame the origin. With a perimeter measurement the difference
    /// of the measure is added to every size, once more in the nest. A frame that was never evaluated has no
    /// nest value to replace: giving it one ends the program.
    bool applyValues(const double *measure, const double *level, bool *refused) override;
    bool measurementFormulaAvailable() override;
    bool formulaLevelAvailable() override;
    bool aFormulaImplicitMeasures() override;
    bool aFormulaImplicitLevel() override;
    TreeEquations *measurementFormula() override;
    TreeEquations *formulaLevel() override;
    void setFormulaMeasurement(TreeEquations *formula) override;
    void setFormulaLevel(TreeEquations *formula) override;
    bool evaluateMeasurement(short size, double &value) override;
    bool evaluateMeasurementObject(short size, double &value) override;
    bool evaluateMeasures(const GradationData *gradation, QListEx<double> &values) override;
    bool evaluateMeasuresObject(const GradationData *gradation, QListEx<double> &values) override;
    bool evaluateLevel(short size, double &value) override;
    bool evaluateLevelObject(short size, double &value) override;
    bool evaluateLevels(const GradationData *gradation, QListEx<double> &values) override;
    bool evaluateLevelsObject(const GradationData *gradation, QListEx<double> &values) override;
    bool applyMeasuresLevels(ValuesAccordingSizes &measures, ValuesAccordingSizes &levels,
                             const GradationData *gradation, eModifyLevelActionType action) override;
    /// A piece that does not obey costs the measure formula: reported, recorded by the set, dropped.
    bool applyMeasures(ValuesAccordingSizes &measures, const GradationData *gradation,
                       eModifyLevelActionType action) override;
    /// A piece that does not obey, where a level formula exists, is reported and recorded with the level
    /// formula; what is dropped is the measure formula.
    bool applyLevels(ValuesAccordingSizes &levels, const GradationData *gradation,
                     eModifyLevelActionType action) override;
    /// Not while it is defined, linked, named by a formula of the set, or the origin of other frames. Raises
    /// AssertionError for a center without a set.
    bool canBeDestroyed(bool report) override;
    /// Not while it is defined, linked or named by a formula of a defined element. Raises AssertionError,
    /// where this comes to the formulas, without a set.
    bool canBeDestroyedInBatch() override;
    void addEvaluationUsedInMeasurement(QListEx<Evaluation> &list) override;
    void addEvaluationUsedInLevel(QListEx<Evaluation> &list) override;
    void addReferencesImplicitInMeasuresList(QListEx<BaseFrame *> &pending,
                                             QListEx<BaseFrame *> &done) override;
    void addReferencesImplicitInLevelList(QListEx<BaseFrame *> &pending, QListEx<BaseFrame *> &done) override;
    bool containsImplicitReferences(QListEx<BaseFrame *> measures, QListEx<BaseFrame *> levels) override;
    bool influenceGeometrically(BaseFrame *other) override;

    /// The link that the frame belongs to, or null.
    FrameLink *getLink() const { return mFrameLink; }
    /// Only stores the pointer; use FrameLink::linkFrame.
    void setLink(FrameLink *link) { mFrameLink = link; }
    /// The center that the frame stands on, or null.
    FrameCenter *getFrameCenter() const { return mFrameCenter; }
    /// Only stores the pointer; the old center still lists the frame. Use addFrameCenter.
    void setFrameCenter(FrameCenter *center) { mFrameCenter = center; }
    /// Leaves the present center for center, entered before index, at the end when index is negative; null
    /// leaves the frame without one.
    void addFrameCenter(FrameCenter *center, int index);
    /// Leaves the center, through which the frame reaches its set; the set's list keeps it. Nothing without a
    /// center.
    void removeFromCenter();

    /// True when the measure runs along the contour instead of along the chord.
    ///@{
    bool &getPerimeterMeasurement() { return mPerimeterMeasurement; }
    bool getPerimeterMeasurement() const { return mPerimeterMeasurement; }
    ///@}
    /// The percentage of a change that side 1 takes under Measure_ByPercentage where RightRegion names it
    /// right, and that side 2 takes elsewhere. Any number is taken.
    ///@{
    double getPercentageMeasureRating1() const { return mPercentageMeasureRating; }
    void setPercentageMeasureRating(double percentage) { mPercentageMeasureRating = percentage; }
    ///@}
    /// The frame's share when its link hands a change out by fixed ratios; any number is taken.
    ///@{
    double getRatio() const { return mRatio; }
    void setRatio(double ratio) { mRatio = ratio; }
    ///@}
    /// How a change is shared between the sides; setting it moves nothing.
    ///@{
    eMeasureType getMeasureType() const { return mMeasureType; }
    void setMeasureType(eMeasureType type) { mMeasureType = type; }
    ///@}

    /// The chord that ties the frame to a piece, or null; walks the document.
    ControlFrame *controlFrameCorresponding();
    /// Is the frame the origin of its center? False without a center.
    bool isLevelZero() const;
    /// Makes the frame the origin of its center. Raises AssertionError without a center.
    void becomeLevelZero();
    /// True for a frame that is a single point; without a control object, when the stored nest measure is
    /// exactly 0.0.
    bool isMeasureZero();
    /// True when an end of the frame lies on no contour of its piece.
    bool isInternalFrame();
    /// The frames next below and next above on the center, either of which may be null; two nulls for the
    /// origin. Raises AssertionError without a center, an origin, a control object or a control center.
    std::pair<FrameFrame *, FrameFrame *> neighbors();

    /// Lets go of both formulas without deleting them: they belong to the caller.
    void forgetFormulas();
    /// Stores both formulas; what stood there is not deleted.
    void rememberFormulas(TreeEquations *measure, TreeEquations *level);

protected:
    ControlBase *skeletonElementPointedAtUs(ControlSkeleton *skeleton) override;
    /// May the nest take this level without passing a neighbour?
    bool testLevelsProposed(double level);
    /// May the sizes take these levels without passing a neighbour? An undefined frame may.
    bool testLevelsProposed(const QListEx<double> &levels);

private:
    /// Reports and records the formula in the slot reported, where there is one, and drops the measure
    /// formula.
    void loseMeasureFormula(TreeEquations *FrameFrame::*reported, bool flag);

    TreeEquations *mFormulaMeasure = nullptr; ///< owned
    TreeEquations *mFormulaLevel = nullptr;   ///< owned
    FrameCenter *mFrameCenter = nullptr;
    FrameLink *mFrameLink = nullptr;
    bool mPerimeterMeasurement = false;
    ValuesAccordingSizes mMeasures;
    ValuesAccordingSizes mLevels;
    eMeasureType mMeasureType = Measure_InProportion;
    double mPercentageMeasureRating = 50.0; ///< percent
    double mRatio = 1.0;
};

} // namespace VorSystem
