// A stretch of contour on a piece.
#pragma once

#include <VorFrames/ControlBase.h>
#include <VorFrames/FrameSegment.h>
#include <VorFrames/QListEx.h>

#include <vector>

namespace VorSystem
{

class ControlCenter;
class FrameSet;
class GeoPoint2D;
class GeoRectangle;
class GestFrames;

/// The body of a segment: the contour from vector 1 to vector 2 in its sense of travel.
///
/// The constructors enter the object into the skeleton, which owns it from then on; the destructor takes it
/// out. A segment that ControlSkeleton::backSpaceSegments took off the list belongs to whoever holds it and
/// may be deleted before or after the skeleton.
class VORFRAMES_EXPORT ControlSegment : public ControlBase
{
public:
    /// The tangent of 10 degrees: how close to an axis a segment counts as lying along it.
    static const double mTestShifts;

    /// A stretch without vectors and element, selected, to be read into. Raises AssertionError for a null
    /// skeleton, as the other constructors do.
    explicit ControlSegment(ControlSkeleton *skeleton);
    /// The shorter of the two ways from vector 1 to vector 2, selected.
    ControlSegment(CDbPointVOR *vector1, CDbPointVOR *vector2, ControlSkeleton *skeleton,
                   FrameSegment *segment);
    /// The stretch of source on a copied piece; the element is shared.
    ControlSegment(ControlSegment *source, ControlSkeleton *target);
    /// Copy every field as it stands; the skeleton does not learn of the copy.
    ///@{
    ControlSegment(const ControlSegment &other) = default;
    ControlSegment &operator=(const ControlSegment &other) = default;
    ///@}

    ~ControlSegment() override;
    bool containsVector(const CDbPointVOR *vector) override;
    /// Moves the contour until the length read back agrees: up to 100 passes, each of which rebuilds the
    /// group; kind and levels play no part. Nothing is rolled back. With action 2 measures is changed in
    /// place. Raises AssertionError for a null gradation, a null group, an element without measures and
    /// action 0.
    eMsgConvergence changeMeasureLevel(eMeasureLevel kind, ValuesAccordingSizes *measures,
                                       ValuesAccordingSizes *levels, const GradationData *gradation,
                                       eModifyLevelActionType action) override;

    /// The element, not owned; null for a stretch that was read without one.
    ///@{
    FrameSegment *getFrameSegment() const { return mFrameSegment; }
    FrameSegment *Get_mFrameSegment() const { return mFrameSegment; }
    ///@}
    /// Only stores the pointer.
    void Set_mFrameSegment(FrameSegment *segment) { mFrameSegment = segment; }
    /// The displacement proposed for a new segment: along an axis that it lies along, else along its line.
    /// Raises AssertionError without two vectors.
    FrameSegment::eDisplaceType defectMovesAlong() const;
    /// The rectangle round the vectors of the stretch. Raises AssertionError without vector 2.
    GeoRectangle getRectBounding() const;
    /// Selects the stretch when the rectangle meets its own; never deselects. Raises AssertionError for null.
    void selectInRectangle(const GeoRectangle *rectangle);
    /// Points the stretch at the segment of the same name in set. Raises AssertionError, with the element
    /// kept, when set has none.
    void adjustsANewFrameSet(FrameSet *set);
    /// Is the point within tolerance, in centimetres, of a straight line between neighbouring vectors of the
    /// stretch? Raises AssertionError for null and without vector 2.
    bool segmentIsOn(const GeoPoint2D *point, double tolerance) const;
    /// The length in a size, -1 as the piece stands, in centimetres; 0 without two vectors.
    double getMeasures(short size);
    /// One length per size, smallest first; one without a nest.
    QListEx<double> getMeasures(const GradationData *gradation);
    /// The first vector beyond vector 2 that a frame, a segment or the center holds, or null.
    CDbPointVOR *getAttachedNext() const;
    /// The displacement of vector 2 along the contour that gives the target length; 6 when the stretch behind
    /// it would have no length left. Raises AssertionError for null and, with a center, without an
    /// attachment.
    eMsgConvergence calculateDisplacementContourLine(double target, GeoPoint2D *out);
    /// The part of the displacement that a vector takes; -1.0: it keeps its own working displacement.
    double getDisplacementFactor(CDbPointVOR *const vector) const;
    /// Exchanges the two vectors and settles the sense of travel anew.
    void changeSegmentOrientation();

    /// Vectors and sense of travel, the names of element and set. Raises AssertionError for an element
    /// without a set.
    XJsonObject toJson() const;
    /// Takes what toJson() wrote and finds the element in manager; without a set's name there is none to
    /// find. Raises AssertionError for a null manager, a name that does not resolve, and as the base does.
    void fromJson(const XJsonObject &object, GestFrames *manager);

private:
    friend class FrameSegment;
    friend std::vector<CDbPointVOR *> reachOfSegment(const ControlSegment &control);

    void enterSkeleton();
    CDbGroupObject *group() const;
    GabaritObject *gabarit() const;
    const ControlCenter *center() const;
    double lengthAsItStands() const;
    double lengthAlongSense(const CDbPointVOR *a, const CDbPointVOR *b) const;
    static void keepOtherSizes(CDbPointVOR *vector);
    double displacementFactor(CDbPointVOR *vector, CDbPointVOR *attachment) const;
    eMsgConvergence calculateMaximumDisplacement(double target, GeoPoint2D *out);
    void moveVectorsInTheMediumNoGrade(const GeoPoint2D &displacement, bool shiftSizes);
    eMsgConvergence changeMeasureMediumNoGrade(double target, bool shiftSizes);
    eMsgConvergence changeMeasuresallsizes(ValuesAccordingSizes &values, const GradationData *gradation);

    FrameSegment *mFrameSegment = nullptr; ///< not owned
};

} // namespace VorSystem
