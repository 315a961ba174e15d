// The axis of a piece.
#pragma once

#include <VorFrames/ControlBase.h>

#include <utility>

namespace VorSystem
{

class ControlFrame;
class FrameCenter;
class FrameFrame;
class FrameSet;
class GeoPoint2D;
class GeoRectangle;
class RightRegion;

/// The line through the two vectors of a center. A skeleton has one at a time: a second one takes its place,
/// and the first then belongs to whoever holds it.
class VORFRAMES_EXPORT ControlCenter : public ControlBase
{
public:
    /// Which frame next to a point is sought; other values mean the nearest.
    enum eLevelType : int {
        Level_Above = 1, ///< of the greater levels the smallest
        Level_Below = 2, ///< of the smaller levels the greatest
    };

    /// An axis without vectors and element, selected, to be read into. Enters itself into the skeleton;
    /// raises AssertionError for a null one. So do the three constructors below.
    explicit ControlCenter(ControlSkeleton *skeleton);
    /// The axis of center through two vectors. The first form is selected and computes its sense of travel;
    /// on a mirrored piece both take it from the mirror. Raises AssertionError, leaving the skeleton as it
    /// was, for a mirror that knows no side for the place.
    ///@{
    ControlCenter(CDbPointVOR *vector1, CDbPointVOR *vector2, ControlSkeleton *skeleton, FrameCenter *center);
    ControlCenter(CDbPointVOR *vector1, CDbPointVOR *vector2, ControlSkeleton *skeleton, FrameCenter *center,
                  bool direction1To2);
    ///@}
    /// The axis of source on a copied piece: the element is shared, the right region a copy.
    ControlCenter(ControlCenter *source, ControlSkeleton *target);
    /// A plain copy shares the right region and is not entered into the skeleton.
    ///@{
    ControlCenter(const ControlCenter &other);
    ControlCenter &operator=(const ControlCenter &other);
    ///@}

    /// Leaves the skeleton's pointer to the caller.
    ~ControlCenter() override;
    /// On a mirrored piece, settles the sense of travel by the side of the mirror; does nothing on another.
    void calculateContourDirection1To2() override;

    /// The element, not owned; null for an axis that was read without one.
    FrameCenter *Get_Frame_Centre() const { return mFrameCenter; }
    /// The set of the element; null without one.
    FrameSet *getFrameSet() const;
    /// Which side is the right one: an object of this center and its plain copies, never null.
    RightRegion *getRightRegions() const { return mRightRegions; }
    /// The ends of the axis, pushed out to the extent of the contour; the end by vector 1 first. Raises
    /// AssertionError without vectors or a piece.
    std::pair<GeoPoint2D, GeoPoint2D> calculatePositionEnd() const;
    /// The rectangle between the two ends; raises likewise.
    GeoRectangle getRectBounding() const;
    /// The control object of the center's origin, which may stand on another piece; null when there is none.
    /// Raises AssertionError without an element.
    ControlFrame *getFrameLevelZero() const;
    /// Selects the center when the rectangle meets it; never deselects. Raises AssertionError for null.
    void selectInRectangle(const GeoRectangle *rectangle);
    /// Is the point, give or take the tolerance in centimetres, between the two ends? Raises AssertionError
    /// for null.
    bool isOnCenter(const GeoPoint2D *point, double tolerance) const;
    /// Points the center at the like-named one of set. Raises AssertionError, the pointer already null, when
    /// set has none.
    void adjustsANewFrameSet(FrameSet *set);
    /// May a frame run from the first vector to the second, or with a null second to the axis? Raises
    /// AssertionError without an element.
    bool isClickValidToFrame(CDbPointVOR *first, CDbPointVOR *second);
    /// The frame of this center next to the point in terms of level, or null.
    FrameFrame *getTheClosestFrame(const GeoPoint2D &point, eLevelType type, FrameFrame *excluded);

    /// Vectors and sense of travel, the names of element and set, the right region. Raises AssertionError for
    /// an element without a set.
    XJsonObject toJson() const;
    /// Takes what toJson() wrote and finds the element in manager; without a set's name there is none to
    /// find. Raises AssertionError for a null manager, a name that does not resolve, and as the base does.
    void fromJson(const XJsonObject &object, class GestFrames *manager);

private:
    void enterSkeleton(int region);
    void holdRightRegions();
    void releaseRightRegions();

    FrameCenter *mFrameCenter = nullptr;  ///< not owned
    RightRegion *mRightRegions = nullptr; ///< owned, together with plain copies of this center
};

} // namespace VorSystem
