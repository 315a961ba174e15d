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
    ///@{
    ControlSkeleton(const ControlSkeleton &other) = default;
    ControlSkeleton &operator=(const ControlSkeleton &other) = default;
    ///@}
    /// Deletes the control objects and leaves the gabarit without a skeleton, also where it has got another
    /// one since.
    ~ControlSkeleton();

    /// The axis, owned, or null.
    ControlCenter *getFrameCenter() const { return mCenter; }
    /// Is there an axis?
    bool possessControlCenter() const { return mCenter != nullptr; }
    /// Only stores the pointer; the axis that stood here is not deleted.
    void setControlCenter(ControlCenter *center) { mCenter = center; }
    /// The outline, not owned, never null.
    GabaritObject *getGabarit() const { return mGabarit; }
    /// The group of the outline, not owned.
    CDbGroupObject *getGroupe() const { return mGroup; }
    /// Only stores the pointer.
    void setGroup(CDbGroupObject *group) { mGroup = group; }
    /// The objects in the order of creation, owned by the skeleton.
    ///@{
    QListEx<ControlFrame *> getFrameLists() const { return mFrames; }
    QListEx<ControlSegment *> getSegmentLists() const { return mSegments; }
    ///@}

    /// Called by the objects' constructors. Raise AssertionError for null.
    ///@{
    void addFrame(ControlFrame *frame);
    void addControlSegment(ControlSegment *segment);
    ///@}
    /// Takes the object off the list without deleting it, as its destructor does; nothing when it is not
    /// there.
    void removeFrame(ControlFrame *frame);
    /// The same for a segment; true when it was on the list.
    bool Remove(ControlSegment *segment);

    /// The control object that points at the element, or null. Asked for null, one that has no element.
    ///@{
    ControlCenter *centerPointingToTheFrameCenter(const FrameCenter *center) const;
    ControlFrame *framePointingToTheFrameFrame(const FrameFrame *frame) const;
    ControlSegment *segmentPointingToTheFrameSegment(const FrameSegment *segment) const;
    ///@}
    /// The first control object that has the vector, or a copy of it that has not moved, at an end, or null.
    /// Raises AssertionError for null where there is an object to ask.
    ///@{
    ControlFrame *controlFrameisVectorContour(CDbPointVOR *const vector) const;
    ControlSegment *controlSegmentisVectorContour(CDbPointVOR *const vector) const;
    ///@}
    /// The next frame on the contour from vector towards the center. *found is its vector, or null; *last is
    /// the vector of the center at which the walk ended, or for one of the group's own vectors, which has no
    /// neighbour, that vector. Raises AssertionError for null, without a center, and when the contour comes
    /// round without meeting it.
    ControlFrame *getControlFrameNeighbor(CDbPointVOR *const vector, bool forward, CDbPointVOR **found,
                                          CDbPointVOR **last) const;
    /// The chord of the origin, which may stand on another piece; null without an axis or an origin. Raises
    /// AssertionError for an axis without an element.
    ControlFrame *getFrameLevelZero() const;
    /// The set of the axis' element, without an axis that of the first segment's; null when there is neither.
    /// Raises AssertionError for an object without an element.
    FrameSet *getFrameSet() const;
    /// Points all control objects at the like-named elements of the like-named set of manager; nothing where
    /// there is no set now. Raises AssertionError when manager is null or lacks the set, and as below.
    void adjustsANewFrameSets(GestFrames *manager);
    /// Points all control objects at the like-named elements of set. Raises AssertionError for null and for
    /// the first name that set lacks, with the objects before it already changed.
    void adjustsANewFrameSet(FrameSet *set);

    /// Selects or deselects every control object.
    void adjustSelection(bool selected);
    /// True when every frame is selected, also when there is none; selects nothing.
    bool selectAllFrames() const;
    /// Selects every frame.
    void selectAllControlFrames();
    /// Selects what the rectangle meets; never deselects. Raises AssertionError for null.
    void selectInRectangle(const GeoRectangle *rectangle);
    /// The rectangle round all control objects; an empty one for none.
    GeoRectangle getRectBounding() const;
    /// True without an axis and segments. Frames are not asked: they do not outlive the axis.
    bool isEmptySkeleton() const;
    /// What lies under a click: 13 the center, 14 the first frame, 15 the last segment; each is handed back,
    /// and what tells the most specific. Untouched when nothing is hit. Tolerances in centimetres, as in
    /// ControlFrame::isOnFrame(). Raises AssertionError for a null point and for a null place to answer to.
    void clickWhereAndWhat(const GeoPoint2D *point, double tolerance, double pointTolerance, short *what,
                           ControlCenter **center, ControlFrame **frame, ControlSegment **segment) const;
    /// The selected object, numbered likewise: the center, else the first frame, else the first segment.
    /// Untouched when nothing is selected. Raises AssertionError for a null place to answer to.
    void infoSelectionObject(short *what, ControlCenter **center, ControlFrame **frame,
                             ControlSegment **segment) const;
    /// True when a chord from first to second, or with a null second to the axis, meets no chord of the
    /// skeleton. Raises AssertionError for a null first, and for a null second without an axis.
    bool isValidForNewFrame(CDbPointVOR *first, CDbPointVOR *second) const;
    /// True when neither a frame nor a segment has both vectors at its ends. Raises AssertionError for null
    /// where there is an object to ask.
    bool isValidForNewSegment(CDbPointVOR *first, CDbPointVOR *second) const;
    /// FrameCenter::adjustNewLevelZero() of the axis' element. Raises AssertionError when there is none.
    void adjustNewLevelZero(bool reevaluateSet);

    /// Clears the in-link flag of the selected frames that belong to a link, which is then no longer defined;
    /// true when one had it.
    bool backSpaceLinks();
    /// Deletes the selected segments; the one behind a deleted segment leaves the list undeleted, selected or
    /// not, and belongs to whoever holds it. True when one was deleted.
    bool backSpaceSegments();
    /// Deletes the selected frames, the origin only when all frames are selected; true when one was deleted.
    bool backSpaceFrames();
    /// Deletes the selected axis once there are no frames, and stores the values of its set anew; true when
    /// it did. Raises AssertionError, with the axis gone, when there is no gradation to reevaluate with.
    bool backSpaceCenter();
    /// The vector leaves the contour: whatever has it at an end is deleted, and every frame with the axis or
    /// the origin. Raises AssertionError for null.
    void fitAfterRemovalVectorContour(CDbPointVOR *vector);
    /// True when frames of both belong to one link that is defined; false for a skeleton and itself. Raises
    /// AssertionError for null.
    static bool areSkeletonsLinkes(ControlSkeleton *a, ControlSkeleton *b);

    /// The axis, if any, the frames and the segments, each as its own toJson() writes it.
    XJsonObject toJson() const;
    /// Reads into a skeleton just made; the sets must be there. A frame without any vector and a segment that
    /// lacks one are left out. Raises AssertionError for a skeleton that holds anything and for what its
    /// objects raise; what was read before stays.
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
