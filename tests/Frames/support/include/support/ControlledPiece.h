// A pattern piece in a document, with one frame set and a skeleton: what every test of control objects needs.
#pragma once

#include <VorConjoin/VorConjoin.h>
#include <VorFrames/VorFrames.h>
#include <support/Pieces.h>

#include <initializer_list>
#include <memory>
#include <string>

namespace support
{

/// A document of a few pieces. Skeletons are deleted by the tests before it.
class PieceDocument : public VorSystem::Document
{
public:
    explicit PieceDocument(const VorSystem::GradationData &gradation);

    const VorSystem::GradationData *gradationData() const override
    {
        return mHasGradation ? &mGradation : nullptr;
    }
    VorSystem::GestFrames *framesManager() const override { return mManager.get(); }
    const VorSystem::t_Plan *plan() const override { return &mPlan; }

    VorSystem::GradationData mGradation;
    bool mHasGradation = true;
    VorSystem::t_Plan mPlan;
    std::unique_ptr<VorSystem::GestFrames> mManager;
};

/// A piece under control. Frames and segments get elements of the set "Set", frames on the center "Center".
class ControlledPiece
{
public:
    explicit ControlledPiece(Piece piece, const VorSystem::GradationData &gradation = sevenSizes());
    ControlledPiece(const ControlledPiece &) = delete;
    ControlledPiece &operator=(const ControlledPiece &) = delete;
    ~ControlledPiece();

    /// Makes element and control object.
    VorSystem::ControlCenter *center(VorSystem::CDbPointVOR *vector1, VorSystem::CDbPointVOR *vector2,
                                     VorSystem::FrameCenter::eCharacteristicType characteristic =
                                         VorSystem::FrameCenter::Characteristic_TwoSides);
    VorSystem::ControlFrame *frame(const char *name, VorSystem::CDbPointVOR *vector1,
                                   VorSystem::CDbPointVOR *vector2);
    /// A name that is taken gets a number.
    VorSystem::ControlSegment *segment(const char *name, VorSystem::CDbPointVOR *vector1,
                                       VorSystem::CDbPointVOR *vector2,
                                       VorSystem::FrameSegment::eDisplaceType displace);

    /// Reads all stored values from the piece.
    void readBack();
    /// The values of a control object's element, as they stand on the piece.
    VorSystem::ValuesAccordingSizes measuresOf(VorSystem::ControlFrame *frame) const;
    VorSystem::ValuesAccordingSizes levelsOf(VorSystem::ControlFrame *frame) const;
    VorSystem::ValuesAccordingSizes measuresOf(VorSystem::ControlSegment *segment) const;

    VorSystem::eMsgConvergence changeMeasures(VorSystem::ControlFrame *frame,
                                              VorSystem::ValuesAccordingSizes wanted,
                                              eModifyLevelActionType action = ModifyLevel_AllSizes);
    VorSystem::eMsgConvergence changeLevels(VorSystem::ControlFrame *frame,
                                            VorSystem::ValuesAccordingSizes wanted,
                                            eModifyLevelActionType action = ModifyLevel_AllSizes);
    VorSystem::eMsgConvergence changeMeasures(VorSystem::ControlSegment *segment,
                                              VorSystem::ValuesAccordingSizes wanted,
                                              eModifyLevelActionType action = ModifyLevel_AllSizes);

    VorSystem::CDbPointVOR *at(int place) const { return mContour.at(static_cast<std::size_t>(place)); }
    VorSystem::GabaritObject *gabarit() const { return mGabarit; }
    VorSystem::CDbGroupObject *group() const { return mGroup; }
    VorSystem::ControlSkeleton *skeleton() const { return mSkeleton.get(); }
    VorSystem::FrameSet *set() const { return mSet; }
    VorSystem::FrameCenter *frameCenter() const { return mCenter; }
    const VorSystem::GradationData *gradation() const { return mDocument.gradationData(); }
    PieceDocument &document() { return mDocument; }
    VorSystem::DartContour *dart() const { return mDart; }

    /// How often the piece was rebuilt since the last call.
    int rebuilds();

private:
    PieceDocument mDocument;
    VorSystem::FrameSet *mSet = nullptr;
    VorSystem::FrameCenter *mCenter = nullptr;
    VorSystem::CDbGroupObject *mGroup = nullptr;
    VorSystem::GabaritObject *mGabarit = nullptr;
    VorSystem::DartContour *mDart = nullptr;
    std::vector<VorSystem::CDbPointVOR *> mContour;
    std::unique_ptr<VorSystem::ControlSkeleton> mSkeleton;
    int mRebuilds = 0;
};

/// The 40 x 60 rectangle with every edge in six parts and an upright axis from the middle of the bottom
/// (place 3) to the middle of the top (place 15). Place 6 is the lower right corner, 12 the upper right one.
/// In seven sizes, each 1 cm wider and 2 cm higher than the one before.
class RectangleUnderControl : public ControlledPiece
{
public:
    explicit RectangleUnderControl(VorSystem::FrameCenter::eCharacteristicType characteristic =
                                       VorSystem::FrameCenter::Characteristic_TwoSides,
                                   const VorSystem::GradationData &gradation = sevenSizes());

    /// The vector of the right side at a height of so many tenths, and its counterpart on the left.
    VorSystem::CDbPointVOR *right(int tenCentimetres) const { return at(6 + tenCentimetres); }
    VorSystem::CDbPointVOR *left(int tenCentimetres) const { return at((24 - tenCentimetres) % 24); }
    /// A chord straight across the piece.
    VorSystem::ControlFrame *chord(const char *name, int tenCentimetres);
    /// The right half of it.
    VorSystem::ControlFrame *halfChord(const char *name, int tenCentimetres);

    VorSystem::ControlCenter *axis = nullptr;
};

/// A value list as a reader sees it: two decimals, the nest in brackets.
std::string str(const VorSystem::ValuesAccordingSizes &values);
/// A place, two decimals.
std::string str(const VorSystem::GeoPoint2D &point);

/// Places of all vectors in all sizes, read without moving anything.
std::vector<VorSystem::GeoPoint2D> placesOf(const VorSystem::CDbGroupObject *group,
                                            const VorSystem::GradationData *gradation);
/// The largest distance between two such lists of places, cm.
double largestDistance(const std::vector<VorSystem::GeoPoint2D> &a,
                       const std::vector<VorSystem::GeoPoint2D> &b);
/// True when every vector of the group stands in the nest and no reading or move is left open.
bool standsInTheNest(const VorSystem::CDbGroupObject *group);

/// Every value times factor.
VorSystem::ValuesAccordingSizes times(VorSystem::ValuesAccordingSizes values, double factor);
/// Every value plus delta.
VorSystem::ValuesAccordingSizes plus(VorSystem::ValuesAccordingSizes values, double delta);

} // namespace support
