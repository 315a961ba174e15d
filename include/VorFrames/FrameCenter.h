// An axis of a piece, on which frames stand.
#pragma once

#include <VorFrames/BaseFrame.h>

namespace VorSystem
{

class ControlCenter;
class FrameFrame;

/// The axis: an ordered list of frames, one of which is the origin of all levels.
///
/// The set owns the frames. The center's destructor leaves them alone, so frames go first; moving a center to
/// another set does not move its frames.
class VORFRAMES_EXPORT FrameCenter : public BaseFrame
{
public:
    /// Which sides of a frame move, and how its measure reads.
    enum eCharacteristicType : int {
        Characteristic_OneSideDoubled = 1,  ///< one side takes half of a change; the measure is doubled
        Characteristic_TwoSides = 2,        ///< both sides share the whole change; the measure counts once
        Characteristic_TwoSidesDoubled = 3, ///< both sides share half of a change; the measure is doubled
    };

    /// A center of one doubled side, without frames, in no set.
    explicit FrameCenter(const QString &name);
    /// Copy every field as it stands: set, neighbours and formulas are then shared; see BaseFrame.
    ///@{
    FrameCenter(const FrameCenter &other) = default;
    FrameCenter &operator=(const FrameCenter &other) = default;
    ///@}

    XJsonObject toJson() const override;
    void fromJson(const XJsonObject &object) override;
    ~FrameCenter() override;
    eElementFrameType elementType() override;
    /// False: a center has no values.
    bool reevaluate(eFrameReevaluate mode) override;
    /// Not while it is defined or holds frames.
    ///@{
    bool canBeDestroyed(bool report) override;
    bool canBeDestroyedInBatch() override;
    ///@}

    /// What moves and how it reads. A stored document may hold another number: the measures then read doubled
    /// and cannot be changed.
    ///@{
    const eCharacteristicType &Caracteristique() const { return mCharacteristic; }
    eCharacteristicType &Caracteristique() { return mCharacteristic; }
    ///@}
    /// Only stores it: no frame is evaluated anew.
    void setCharacteristic(eCharacteristicType characteristic) { mCharacteristic = characteristic; }

    /// The frames in the user's order, not owned.
    QListEx<FrameFrame *> getFrames() const { return mFrames; }
    /// The frame from which levels count; null when there is none.
    FrameFrame *getFrameLevelZero() const { return mFrameLevelZero; }
    /// The axis that ties the center to a piece, or null; walks the document.
    ControlCenter *ControlCenterCorrespondent();

    /// Enters the frame before index, at the end when index is negative; nothing when it stands here already.
    /// The first frame becomes the zero-level frame. The frame's own pointer is not touched. An index beyond
    /// the end ends the program. Raises AssertionError for null.
    void addFrame(FrameFrame *frame, int index);
    /// Takes the frame off the list; a zero-level frame leaves the center without one.
    void removeFrame(FrameFrame *frame);
    /// The first frame whose bare name matches, or null.
    FrameFrame *foundFrameAccordingName(const QString &name) const;
    /// Makes a frame of this center the origin; any other frame changes nothing. Raises AssertionError for
    /// null.
    void setFrameLevelZero(FrameFrame *frame);
    /// Makes the first defined frame the origin and, with reevaluateSet, stores all levels of the set anew.
    void adjustNewLevelZero(bool reevaluateSet);
    /// True when a piece uses some frame of the center.
    bool containsFrameDefines();
    /// Position i takes the frame that stood at order[i], here and in the set's flat list. Nothing when the
    /// count differs; an index outside the list ends the program. A frame lost by a repeated index loses its
    /// center and its link and belongs to its holder.
    void ChangeFrameFrames(QListEx<int> order);

protected:
    ControlBase *skeletonElementPointedAtUs(ControlSkeleton *skeleton) override;

private:
    friend class ClearingOut;
    friend class FrameFrame;
    friend class FrameSet;

    /// addFrame at the end for a frame that is known not to stand here.
    void appendNewFrame(FrameFrame *frame)
    {
        mFrames.append(frame);
        if (mFrameLevelZero == nullptr)
            mFrameLevelZero = frame;
    }

    QListEx<FrameFrame *> mFrames; ///< in the user's order, not owned
    FrameFrame *mFrameLevelZero = nullptr;
    eCharacteristicType mCharacteristic = Characteristic_OneSideDoubled;
};

} // namespace VorSystem
