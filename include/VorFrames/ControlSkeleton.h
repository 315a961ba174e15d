// What ties the elements to one piece.
#pragma once

#include <VorFrames/QListEx.h>
#include <VorFrames/VorFramesExport.h>

namespace VorSystem
{

class CDbGroupObject;
class CDbPointVOR;
class ControlCenter;
class ControlFrame;
class ControlSegment;
class FrameCenter;
class FrameFrame;
class FrameSegment;
class FrameSet;
class GabaritObject;
class GeoPoint2D;
class GeoRectangle;
class GestFrames;
class XJsonObject;

/// The control objects of one gabarit: at most one center, frames and segments in the order of creation, all
/// owned.
///
/// Made by the host, which deletes it before the piece dies.
class VORFRAMES_EXPORT ControlSkeleton
{
public:
    /// Enters itself into the gabarit. Raises AssertionError for null and for a gabarit that has a skeleton.
    ControlSkeleton(CDbGroupObject *group, GabaritObject *gabarit);
    /// The skeleton of source on a copy of its piece; the elements stay shared. A skeleton that the gabarit
    /// has is not refused: it is the caller's.
    ControlSkeleton(CDbGroupObject *group, GabaritObject *gabarit, ControlSkeleton *source);
    /// A plain copy points at the same objects: it must not die with them.
    ControlSkeleton(const ControlSkeleton &other) = default;
    ControlSkeleton &operator=(const ControlSkeleton &other) = default;
    ~ControlSkeleton();

    ControlCenter *getFrameCenter() const { return mCenter; }
    bool possessControlCenter() const { return mCenter != nullptr; }
    void setControlCenter(ControlCenter *center) { mCenter = center; }
    GabaritObject *getGabarit() const { return mGabarit; }
    CDbGroupObject *getGroupe() const { return mGroup; }
    void setGroup(CDbGroupObject *group) { mGroup = group; }
    QListEx<ControlFrame *> getFrameLists() const { return mFrames; }
    QListEx<ControlSegment *> getSegmentLists() const { return mSegments; }

    /// Called by the objects' constructors. Raise AssertionError for null.
    void addFrame(ControlFrame *frame);
    void addControlSegment(ControlSegment *segment);
    void removeFrame(ControlFrame *frame);
    bool Remove(ControlSegment *segment);

    /// The control object that points at the element, or null.
    ControlCenter *centerPointingToTheFrameCenter(const FrameCenter *center) const;
    ControlFrame *framePointingToTheFrameFrame(const FrameFrame *frame) const;
    ControlSegment *segmentPointingToTheFrameSegment(const FrameSegment *segment) const;
    /// The first control object that has the vector at an end, or null.
    ControlFrame *controlFrameisVectorContour(CDbPointVOR *const vector) const;
    ControlSegment *controlSegmentisVectorContour(CDbPointVOR *const vector) const;
    /// The next frame on the contour from vector towards the center. *found is its vector, or null; *last is
    /// the vector of the center at which the walk ended. Raises AssertionError for null, without a center,
    /// and when the contour comes round without meeting it.
    ControlFrame *getControlFrameNeighbor(CDbPointVOR *const vector, bool forward, CDbPointVOR **found,
                                          CDbPointVOR **last) const;
    ControlFrame *getFrameLevelZero() const;
    FrameSet *getFrameSet() const;
    /// Points all control objects at the like-named elements of the like-named set of manager, or of set.
    void adjustsANewFrameSets(GestFrames *manager);
    void adjustsANewFrameSet(FrameSet *set);

    void adjustSelection(bool selected);
    /// True when every frame is selected, also when there is none; selects nothing.
    bool selectAllFrames() const;
    void selectAllControlFrames();
    void selectInRectangle(const GeoRectangle *rectangle);
    GeoRectangle getRectBounding() const;
    bool isEmptySkeleton() const;
    /// What lies under a click: 13 the center, 14 the first frame, 15 the last segment; each is handed back,
    /// and what tells the most specific. Untouched when nothing is hit.
    void clickWhereAndWhat(const GeoPoint2D *point, double tolerance, double pointTolerance, short *what,
                           ControlCenter **center, ControlFrame **frame, ControlSegment **segment) const;
    /// The selected object: the center, else the first frame, else the first segment.
    void infoSelectionObject(short *what, ControlCenter **center, ControlFrame **frame,
                             ControlSegment **segment) const;
    bool isValidForNewFrame(CDbPointVOR *first, CDbPointVOR *second) const;
    bool isValidForNewSegment(CDbPointVOR *first, CDbPointVOR *second) const;
    void adjustNewLevelZero(bool reevaluateSet);

    /// Deletion of the selected objects; true when anything was done.
    bool backSpaceLinks();
    /// Deletes the selected segments; the one behind a deleted segment leaves the list undeleted.
    bool backSpaceSegments();
    bool backSpaceFrames();
    bool backSpaceCenter();
    /// The vector leaves the contour: whatever rests on it goes.
    void fitAfterRemovalVectorContour(CDbPointVOR *vector);
    static bool areSkeletonsLinkes(ControlSkeleton *a, ControlSkeleton *b);

    XJsonObject toJson() const;
    /// Reads into a skeleton just made. What was read before an error stays.
    void fromJson(const XJsonObject &object, GestFrames *manager);

private:
    friend class ControlFrame;

    void deleteControls();

    ControlCenter *mCenter = nullptr;    ///< owned
    QListEx<ControlFrame *> mFrames;     ///< owned
    QListEx<ControlSegment *> mSegments; ///< owned
    GabaritObject *mGabarit = nullptr;
    CDbGroupObject *mGroup = nullptr;
};

} // namespace VorSystem
