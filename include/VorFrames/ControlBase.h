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
        MeasureLevel_Invalid = 0,
        MeasureLevel_Measure = 1,
        MeasureLevel_Level = 2,
        MeasureLevel_Both = 3,
    };

    /// Tolerance of a measure, in centimetres, for the host.
    static const double Epsilon_Changement;

    /// Selected; the sense of travel is computed.
    ControlBase(CDbPointVOR *const vector1, CDbPointVOR *const vector2, ControlSkeleton *skeleton);
    /// Not selected; the sense of travel is given.
    ControlBase(CDbPointVOR *const vector1, CDbPointVOR *const vector2, ControlSkeleton *skeleton,
                bool direction1To2);
    /// The source carried over to the skeleton of a copied piece: each vector becomes the one of the same
    /// index.
    ControlBase(ControlBase *source, ControlSkeleton *target);
    ControlBase(const ControlBase &other) = default;
    ControlBase &operator=(const ControlBase &other) = default;

    virtual ~ControlBase();
    /// Settles the sense of travel: the shorter way to vector 2, or towards the nearer end of the center.
    virtual void calculateContourDirection1To2();
    virtual bool containsVector(const CDbPointVOR *vector);
    /// Moves the piece until its values are those given; the base moves nothing.
    virtual eMsgConvergence changeMeasureLevel(eMeasureLevel kind, ValuesAccordingSizes *measures,
                                               ValuesAccordingSizes *levels, const GradationData *gradation,
                                               eModifyLevelActionType action);

    bool getSelection() const { return mSelected; }
    ControlSkeleton *getSkeleton() const { return mSkeleton; }
    bool getContourDirection1To2() const { return mContourDirection1To2; }
    bool regionSelection() const { return mRegionSelection; }
    void setRegionSelection(bool selected) { mRegionSelection = selected; }
    /// Deselecting clears the region selection too.
    void setSelected(bool selected);
    /// Vector 1 for index 1, vector 2 for any other.
    CDbPointVOR *getVectorContour(short index) const
    {
        return index == 1 ? mVectorContour1 : mVectorContour2;
    }
    void setVectorContour(short index, CDbPointVOR *const vector);
    const CDbPointVOR *getVectorContour1() const { return mVectorContour1; }
    const CDbPointVOR *getVectorContour2() const { return mVectorContour2; }
    /// Is vector one of the two, or a copy of one that has not moved? Raises AssertionError for null.
    bool isVectorContour(const CDbPointVOR *const vector) const;
    /// Does vector lie on the stretch between the two, curve handles included? Raises AssertionError for
    /// null.
    bool isVectorContourOfControl(const CDbPointVOR *const vector) const;

    XJsonObject toJson() const;
    /// Raises AssertionError with "Unexpected Data" for an identity that the group does not hold.
    void fromJson(const XJsonObject &object);

protected:
    friend class ControlSkeleton;

    bool mSelected = false;
    CDbPointVOR *mVectorContour1 = nullptr;
    CDbPointVOR *mVectorContour2 = nullptr;
    bool mContourDirection1To2 = false; ///< true: the way from 1 to 2 follows the contour's order
    ControlSkeleton *mSkeleton = nullptr;
    bool mRegionSelection = false;
};

} // namespace VorSystem
