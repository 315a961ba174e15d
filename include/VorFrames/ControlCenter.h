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
        Level_Above = 1,
        Level_Below = 2,
    };

    /// These enter the center into the skeleton and raise AssertionError for a null one.
    explicit ControlCenter(ControlSkeleton *skeleton);
    ControlCenter(CDbPointVOR *vector1, CDbPointVOR *vector2, ControlSkeleton *skeleton, FrameCenter *center);
    ControlCenter(CDbPointVOR *vector1, CDbPointVOR *vector2, ControlSkeleton *skeleton, FrameCenter *center,
                  bool direction1To2);
    ControlCenter(ControlCenter *source, ControlSkeleton *target);
    /// A plain copy shares the right region and is not entered into the skeleton.
    ControlCenter(const ControlCenter &other);
    ControlCenter &operator=(const ControlCenter &other);

    /// Leaves the skeleton's pointer to the caller.
    ~ControlCenter() override;
    /// On a mirrored piece, settles the sense of travel by the side of the mirror; does nothing on another.
    void calculateContourDirection1To2() override;

    FrameCenter *Get_Frame_Centre() const { return mFrameCenter; }
    FrameSet *getFrameSet() const;
    RightRegion *getRightRegions() const { return mRightRegions; }
    /// The ends of the axis, pushed out to the extent of the contour.
    std::pair<GeoPoint2D, GeoPoint2D> calculatePositionEnd() const;
    GeoRectangle getRectBounding() const;
    /// The control object of the center's origin; null when there is none.
    ControlFrame *getFrameLevelZero() const;
    /// Selects the center when the rectangle meets it; never deselects. Raises AssertionError for null.
    void selectInRectangle(const GeoRectangle *rectangle);
    bool isOnCenter(const GeoPoint2D *point, double tolerance) const;
    /// Points the center at the like-named one of set. Raises AssertionError, the pointer already null, when
    /// set has none.
    void adjustsANewFrameSet(FrameSet *set);
    /// May a frame run from the first vector to the second?
    bool isClickValidToFrame(CDbPointVOR *first, CDbPointVOR *second);
    /// The frame of this center next to the point in terms of level, or null.
    FrameFrame *getTheClosestFrame(const GeoPoint2D &point, eLevelType type, FrameFrame *excluded);

    XJsonObject toJson() const;
    void fromJson(const XJsonObject &object, class GestFrames *manager);

private:
    void enterSkeleton(int region);
    void holdRightRegions();
    void releaseRightRegions();

    FrameCenter *mFrameCenter = nullptr;  ///< not owned
    RightRegion *mRightRegions = nullptr; ///< owned, together with plain copies of this center
};

} // namespace VorSystem
