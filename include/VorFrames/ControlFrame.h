// A chord of the piece across its axis.
#pragma once

#include <VorFrames/ControlBase.h>
#include <VorFrames/QListEx.h>

namespace VorSystem
{

class CDbGroupObject;
class ControlLookup;
class FrameCenter;
class FrameFrame;
class FrameLink;
class FrameSet;
class GabaritObject;
class GeoPoint2D;
class GeoRectangle;
class GestFrames;
class QuadrantGrid;

/// The body of a frame: vector 1 on one side of the axis, vector 2 on the other; a null vector 2 means that
/// the chord ends at the axis, one vector in both places that it is a single point.
///
/// The constructors enter the object into the skeleton, which owns it from then on; the destructor takes it
/// out.
class VORFRAMES_EXPORT ControlFrame : public ControlBase
{
public:
    /// A chord without vectors and element, selected, to be read into. Raises AssertionError for a null
    /// skeleton, as the other constructors do.
    explicit ControlFrame(ControlSkeleton *skeleton);
    /// The chord of frame between two vectors, exchanged as recoverRatingAttaches() says. The first form is
    /// selected and computes its sense of travel.
    ///@{
    ControlFrame(CDbPointVOR *vector1, CDbPointVOR *vector2, ControlSkeleton *skeleton, FrameFrame *frame);
    ControlFrame(CDbPointVOR *vector1, CDbPointVOR *vector2, ControlSkeleton *skeleton, FrameFrame *frame,
                 bool direction1To2);
    ///@}
    /// The chord of source on a copied piece; the element is shared.
    ControlFrame(ControlFrame *source, ControlSkeleton *target);
    /// Copy every field as it stands; the skeleton does not learn of the copy.
    ///@{
    ControlFrame(const ControlFrame &other) = default;
    ControlFrame &operator=(const ControlFrame &other) = default;
    ///@}

    ~ControlFrame() override;
    bool containsVector(const CDbPointVOR *vector) override;
    /// Moves the contour until the values read back agree: up to 25 passes, each of which rebuilds the group.
    ///
    /// With action 1 the nest alone moves, with action 3 every size takes the value given; action 2 first
    /// shifts the wanted lists to the present nest. A wanted 0.0 is no wish. Nothing is rolled back. The
    /// lists may be changed. Raises AssertionError for a null group, kind 0 and a list that the kind needs.
    eMsgConvergence changeMeasureLevel(eMeasureLevel kind, ValuesAccordingSizes *measures,
                                       ValuesAccordingSizes *levels, const GradationData *gradation,
                                       eModifyLevelActionType action) override;

    /// The element, not owned; null for a chord that was read without one.
    FrameFrame *getFrameFrame() const { return mFrameFrame; }
    /// The in-link flag: does the chord follow the element's link? Kept also without a link.
    ///@{
    bool getAgreesLink() const { return mAgreesLink; }
    void setAgreesLink(bool agrees) { mAgreesLink = agrees; }
    ///@}
    /// Is the chord a single point? True as well before it has vectors.
    bool isMeasureZero() const { return mVectorContour1 == mVectorContour2; }
    /// Is the element the origin of its center? False without one.
    bool isLevelZero() const;
    /// Does the element belong to a link that is defined?
    bool isInFrameLink() const;
    /// The link of the element, defined or not, or null.
    FrameLink *getFrameLink() const;
    /// True when an end lies on no contour of the group; false without a group.
    bool isInternalFrame() const;
    /// The point where the chord crosses the axis, the middle of the axis for a chord that runs along it.
    /// Raises AssertionError for null, without vector 1 and where an axis is needed and missing.
    void calculateIntersectionOfCenter(GeoPoint2D *out) const;
    /// Vector 2, or else the projection of vector 1 on the axis. Raises AssertionError where this needs
    /// vector 1 or an axis and there is none.
    GeoPoint2D calculateExtremity() const;
    /// The rectangle between vector 1 and vector 2, or else the crossing with the axis. Raises AssertionError
    /// without vector 1.
    GeoRectangle getRectBounding() const;
    /// Is the chord within tolerance of the point; for a single point, within pointTolerance? In centimetres.
    /// Raises AssertionError for null and without vector 1.
    bool isOnFrame(const GeoPoint2D *point, double tolerance, double pointTolerance) const;
    /// Puts vector 1 on the side of the axis on which the first frame of the skeleton has it; nothing on a
    /// one-sided center. Raises AssertionError where there is a first frame but no axis with an element.
    void recoverRatingAttaches();
    /// Selects all frames of the link with their groups, or deselects the frames alone. Raises AssertionError
    /// without a defined link.
    void setSelectionLink(bool selected);
    /// Selects the chord when the rectangle meets its own, and then all frames of a defined link too; never
    /// deselects. Raises AssertionError for null.
    void selectInRectangle(const GeoRectangle *rectangle);
    /// Points the chord at the element of the same full name in set. Raises AssertionError, with the element
    /// kept, when set has none.
    void adjustsANewFrameSet(FrameSet *set);

    /// The width of the piece in a size, -1 as it stands, in centimetres.
    double getMeasures(short size);
    /// One measure per size, smallest first; one without a nest.
    QListEx<double> getMeasures(const GradationData *gradation);
    /// The distance from the origin in a size, -1 as it stands. Without an origin 0.0, and the vectors then
    /// stay in that size.
    double getLevel(short size);
    /// One level per size, smallest first; one without a nest. Without an origin all are 0.0.
    QListEx<double> getLevels(const GradationData *gradation);
    /// One move in one size. Raises AssertionError for a null group.
    eMsgConvergence adjustMeasureLevel(eMeasureLevel kind, double measure, double level,
                                       const GradationData *gradation, bool irregularAlready, short size);

    /// Vectors and sense of travel, the names of element and set, the in-link flag. Raises AssertionError for
    /// an element without a center or a set.
    XJsonObject toJson() const;
    /// Takes what toJson() wrote and finds the element on the skeleton's center, which is read before;
    /// without a set's name there is none to find. Raises AssertionError for a null manager, a name that does
    /// not resolve, and as the base does.
    void fromJson(const XJsonObject &object, GestFrames *manager);

private:
    friend class ElementReading;
    friend class FrameLink;

    /// The two vectors of the center.
    struct Axis {
        CDbPointVOR *center1;
        CDbPointVOR *center2;
    };
    /// How a change of the measure is split between the sides, in centimetres.
    struct Shares {
        double side1 = 0.0;
        double side2 = 0.0;
    };
    /// What a change wants in which sizes; a list is null when the change does not hold it.
    struct Change {
        const ValuesAccordingSizes *measures;
        const ValuesAccordingSizes *levels;
        const GradationData *gradation; ///< null when the nest alone moves
        bool nestAlone;
        bool everySize; ///< with evolutions: a nest is defined, and not it alone moves
        int firstSize;
        int endSize;
    };

    void enterSkeleton();
    CDbGroupObject *group() const;
    FrameCenter *frameCenter() const;
    Axis axis() const;
    double measureAsItStands() const;
    double levelAsItStands(const ControlFrame *origin) const;
    /// Levels with the origin found in controls, or where that is null from a walk over the document.
    double level(short size, ControlLookup *controls);
    QListEx<double> levels(const GradationData *gradation, ControlLookup *controls);
    const ControlFrame *originIfAny(ControlLookup *controls) const;
    const GradationData *ownGradation() const;
    Shares sharesOf(double rest, const CDbPointVOR *crossing) const;
    bool moveSide(double distance, short side);
    void setMeasureOnGabarit(double target, short *status);
    void adjustMeasureAxis(double distance, short side);
    bool adjustMeasureContour(double distance, short side);
    void setLevelOnGabarit(double target, short *status);
    bool setMeasureLevel(eMeasureLevel kind, double measure, double level);
    void morphTheInside(QuadrantGrid &grid, GabaritObject *before);
    bool isHeld(CDbPointVOR *vector) const;
    eMsgConvergence moveEachSize(const Change &change, bool &moved);
    void rebuildAndReadBack(bool everySize, const GradationData *gradation);
    void notifyManager();
    ControlFrame *getFrameLevelZero(ControlLookup *controls = nullptr) const;

    FrameFrame *mFrameFrame = nullptr; ///< not owned
    bool mAgreesLink = true;           ///< the frame follows its link
};

} // namespace VorSystem
