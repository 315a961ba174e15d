// A stretch of contour with a length per size.
#pragma once

#include <VorFrames/BaseFrame.h>

namespace VorSystem
{

class ControlSegment;

/// A segment: the length of the contour between two vectors is its measure; it has no level.
class VORFRAMES_EXPORT FrameSegment : public BaseFrame
{
public:
    /// How the end of the segment moves when its length changes.
    enum eDisplaceType : int {
        Displace_AlongX = 1,       ///< horizontally
        Displace_AlongY = 2,       ///< vertically
        Displace_AlongLine = 3,    ///< along the straight line through the two vectors
        Displace_AlongContour = 4, ///< along the contour: what it gains, the stretch behind it loses
    };

    /// A segment in no set: displacement along X, the whole length as influence, no values.
    explicit FrameSegment(const QString &name);
    /// Copy every field as it stands: set, neighbours and formulas are then shared; see BaseFrame.
    ///@{
    FrameSegment(const FrameSegment &other) = default;
    FrameSegment &operator=(const FrameSegment &other) = default;
    ///@}

    XJsonObject toJson() const override;
    void fromJson(const XJsonObject &object) override;
    ~FrameSegment() override;
    eElementFrameType elementType() override;
    ValuesAccordingSizes *getMeasureBySizes() override;
    /// Refused where any value counts as zero; otherwise the list is stored before the geometry is asked.
    bool applyValues(const QListEx<double> *measures, const QListEx<double> *levels, bool *refused) override;
    /// Refused for no measure and for one that counts as zero. A segment that was never evaluated has no nest
    /// value to replace: giving it one ends the program.
    bool applyValues(const double *measure, const double *level, bool *refused) override;
    bool measurementFormulaAvailable() override;
    TreeEquations *measurementFormula() override;
    /// Takes ownership and tries whether the set can still be ordered. When it cannot, the control object of
    /// the segment is removed and the user is told; the new formula stays, and the one it replaced now
    /// belongs to whoever holds it. The same goes when an exception leaves the call. Raises AssertionError
    /// without a set.
    void setFormulaMeasurement(TreeEquations *formula) override;
    bool evaluateMeasurement(short size, double &value) override;
    bool evaluateMeasurementObject(short size, double &value) override;
    bool evaluateMeasures(const GradationData *gradation, QListEx<double> &values) override;
    bool evaluateMeasuresObject(const GradationData *gradation, QListEx<double> &values) override;
    bool applyMeasuresLevels(ValuesAccordingSizes &measures, ValuesAccordingSizes &levels,
                             const GradationData *gradation, eModifyLevelActionType action) override;
    /// A piece that does not obey costs the formula: reported, recorded by the set, dropped. Without a nest
    /// action 3 moves the nest alone and action 2 nothing; where nothing is to move the answer is true.
    bool applyMeasures(ValuesAccordingSizes &measures, const GradationData *gradation,
                       eModifyLevelActionType action) override;
    /// Not while it is defined or named by a formula of the set. Raises AssertionError, where this comes to
    /// the formulas, without a set.
    bool canBeDestroyed(bool report) override;
    /// Not while it is defined or named by a formula of a defined element; raises likewise.
    bool canBeDestroyedInBatch() override;
    void addEvaluationUsedInMeasurement(QListEx<Evaluation> &list) override;
    bool influenceGeometrically(BaseFrame *other) override;

    /// Percent of the segment's length beyond which a piece without a center moves as a block.
    ///@{
    double getInfluenceAreaPercent() const { return mInfluenceAreaPercent; }
    double &getInfluenceAreaPercent() { return mInfluenceAreaPercent; }
    ///@}
    /// How the end moves. A stored document may hold another number.
    ///@{
    eDisplaceType &getDisplace() { return mDisplace; }
    eDisplaceType getDisplace() const { return mDisplace; }
    ///@}

    /// The stretch of contour that ties the segment to a piece, or null; walks the document.
    ControlSegment *controlSegmentCorrespondent();
    /// Tells the group that it changed and deletes the control object; nothing without one.
    void removeControlSegmentCorrespondent();

    /// Lets go of the formula without deleting it: it belongs to the caller.
    void forgetFormula();
    /// Stores the formula without any test; what stood there is not deleted.
    void rememberFormula(TreeEquations *formula);

protected:
    ControlBase *skeletonElementPointedAtUs(ControlSkeleton *skeleton) override;

private:
    TreeEquations *mFormulaMeasure = nullptr; ///< owned
    double mInfluenceAreaPercent = 100.0;     ///< percent
    eDisplaceType mDisplace = Displace_AlongX;
    ValuesAccordingSizes mMeasures;
};

} // namespace VorSystem
