// The geometric counterpart of an element on a piece.
#pragma once

#include <VorFrames/Enumerations.h>
#include <VorFrames/VorFramesExport.h>

namespace VorSystem
{

class CDbPointVOR;
class ControlSkeleton;
class GradationData;
class XJsonObject;
struct ValuesAccordingSizes;

/// Two vectors of a piece and a sense of travel between them, owned by the skeleton of one gabarit.
///
/// Vectors and skeleton are not owned; each may be null until it is read from the stored form.
class VORFRAMES_EXPORT ControlBase
{
public:
    /// What a move is asked to change.
    enum eMeasureLevel : int {
        MeasureLevel_Invalid = 0, ///< nothing; a frame raises AssertionError for it
        MeasureLevel_Measure = 1, ///< the width or length
        MeasureLevel_Level = 2,   ///< the distance from the origin
        MeasureLevel_Both = 3,    ///< both in one move
    };

    /// Tolerance of a measure, in centimetres, for the host.
    static const double Epsilon_Changement;

    /// Selected; the sense of travel is computed.
    ControlBase(CDbPointVOR *const vector1, CDbPointVOR *const vector2, ControlSkeleton *skeleton);
    /// Not selected; the sense of travel is given.
    ControlBase(CDbPointVOR *const vector1, CDbPointVOR *const vector2, ControlSkeleton *skeleton,
                bool direction1To2);
    /// The source carried over to the skeleton of a copied piece: each vector becomes the one of the same
    /// index, null where there is none. Raises AssertionError for null and for a skeleton without a piece.
    ControlBase(ControlBase *source, ControlSkeleton *target);
    /// Copy every field as it stands; no skeleton learns of the copy.
    ///@{
    ControlBase(const ControlBase &other) = default;
    ControlBase &operator=(const ControlBase &other) = default;
    ///@}

    virtual ~ControlBase();
    /// Settles the sense of travel: the shorter way to vector 2, or towards the nearer end of the center.
    virtual void calculateContourDirection1To2();
    /// Does a frame have the vector at an end, or a segment on its stretch? A copy that has not moved counts
    /// as the vector. False for a center. Raises AssertionError for null, and for a segment without a piece.
    virtual bool containsVector(const CDbPointVOR *vector);
    /// Moves the piece until its values are those given. The base, and with it a center, moves nothing and
    /// answers Msg_NothingDone.
    virtual eMsgConvergence changeMeasureLevel(eMeasureLevel kind, ValuesAccordingSizes *measures,
                                               ValuesAccordingSizes *levels, const GradationData *gradation,
                                               eModifyLevelActionType action);

    /// Is the object selected in the host's view?
    bool getSelection() const { return mSelected; }
    /// The skeleton that the object belongs to; null for one that a skeleton let go.
    ControlSkeleton *getSkeleton() const { return mSkeleton; }
    /// The sense of travel: true when the way from vector 1 to vector 2 follows the contour's order.
    bool getContourDirection1To2() const { return mContourDirection1To2; }
    /// A second selection for the host's use; the library only clears it on deselecting.
    ///@{
    bool regionSelection() const { return mRegionSelection; }
    void setRegionSelection(bool selected) { mRegionSelection = selected; }
    ///@}
    /// Deselecting clears the region selection too.
    void setSelected(bool selected);
    /// Vector 1 for index 1, vector 2 for any other.
    CDbPointVOR *getVectorContour(short index) const
    {
        return index == 1 ? mVectorContour1 : mVectorContour2;
    }
    /// Only stores the vector, as vector 1 for index 1 and as vector 2 for any other; the sense of travel
    /// stays.
    void setVectorContour(short index, CDbPointVOR *const vector);
    /// The vector, not owned, or null.
    ///@{
    const CDbPointVOR *getVectorContour1() const { return mVectorContour1; }
    const CDbPointVOR *getVectorContour2() const { return mVectorContour2; }
    ///@}
    /// Is vector one of the two, or a copy of one that has not moved? Raises AssertionError for null.
    bool isVectorContour(const CDbPointVOR *const vector) const;
    /// Does vector lie on the stretch between the two, curve handles included? Raises AssertionError for
    /// null.
    bool isVectorContourOfControl(const CDbPointVOR *const vector) const;

    /// The two vectors by identity, none as an empty object, and the sense of travel.
    XJsonObject toJson() const;
    /// Takes vectors and sense of travel as they were written. Raises AssertionError without a skeleton, and
    /// with "Unexpected Data" for an identity that the group does not hold.
    void fromJson(const XJsonObject &object);

protected:
    friend class ControlSkeleton;

    bool mSelected = false;                 ///< see getSelection()
    CDbPointVOR *mVectorContour1 = nullptr; ///< not owned
    CDbPointVOR *mVectorContour2 = nullptr; ///< not owned
    bool mContourDirection1To2 = false;     ///< true: the way from 1 to 2 follows the contour's order
    ControlSkeleton *mSkeleton = nullptr;   ///< not owned
    bool mRegionSelection = false;          ///< see regionSelection()
};

} // namespace VorSystem
