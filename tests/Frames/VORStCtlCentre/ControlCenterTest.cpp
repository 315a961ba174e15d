// The axis of a piece: its ends, its sense, clicks, and the frames beside a point.

#include <support/ControlledPiece.h>

#include <VorFrames/RightRegion.h>
#include <VorGeo/GeoRectangle.h>

#include <gtest/gtest.h>

using namespace VorSystem;
using namespace support;

namespace
{

// A 40 x 60 cm rectangle with an upright axis in its middle, sides shared.
class ControlCenterOnRectangle : public testing::Test
{
protected:
    RectangleUnderControl piece;
};

TEST_F(ControlCenterOnRectangle, aNewCenterEntersItsSkeletonAndIsSelected)
{
    EXPECT_EQ(piece.skeleton()->getFrameCenter(), piece.axis);
    EXPECT_TRUE(piece.axis->getSelection());
    EXPECT_EQ(piece.axis->Get_Frame_Centre(), piece.frameCenter());
    EXPECT_EQ(piece.axis->getFrameSet(), piece.set());
    EXPECT_TRUE(piece.axis->getContourDirection1To2());
}

TEST_F(ControlCenterOnRectangle, aSecondCenterTakesThePlaceOfTheFirstWhichTheCallerKeeps)
{
    const std::unique_ptr<ControlCenter> first(piece.axis);
    auto *second = new ControlCenter(piece.skeleton());
    EXPECT_EQ(piece.skeleton()->getFrameCenter(), second);
    EXPECT_EQ(second->Get_Frame_Centre(), nullptr);
    EXPECT_EQ(second->getFrameSet(), nullptr);
    EXPECT_TRUE(second->getSelection());
}

TEST_F(ControlCenterOnRectangle, withoutSkeletonThereIsNoCenter)
{
    EXPECT_THROW(ControlCenter(static_cast<ControlSkeleton *>(nullptr)), AssertionError);
    EXPECT_THROW(ControlCenter(piece.at(3), piece.at(15), nullptr, piece.frameCenter()), AssertionError);
    EXPECT_THROW(ControlCenter(piece.at(3), piece.at(15), nullptr, piece.frameCenter(), true),
                 AssertionError);
    EXPECT_THROW(ControlCenter(piece.axis, static_cast<ControlSkeleton *>(nullptr)), AssertionError);
}

TEST_F(ControlCenterOnRectangle, withoutMirrorAGivenDirectionIsKeptAndTheCenterNotSelected)
{
    const std::unique_ptr<ControlCenter> first(piece.axis);
    for (const bool direction : {true, false}) {
        const ControlCenter given(piece.at(3), piece.at(15), piece.skeleton(), piece.frameCenter(),
                                  direction);
        EXPECT_EQ(given.getContourDirection1To2(), direction);
        EXPECT_FALSE(given.getSelection());
    }
    piece.skeleton()->setControlCenter(nullptr);
}

TEST_F(ControlCenterOnRectangle, aCenterMovesAndHoldsNothing)
{
    ValuesAccordingSizes values;
    EXPECT_EQ(piece.axis->changeMeasureLevel(ControlBase::MeasureLevel_Both, &values, &values,
                                             piece.gradation(), ModifyLevel_AllSizes),
              Msg_NothingDone);
    EXPECT_FALSE(piece.axis->containsVector(piece.at(3)));
}

TEST_F(ControlCenterOnRectangle, plainCopiesShareTheRightRegionWhoeverDiesFirst)
{
    RightRegion *region = piece.axis->getRightRegions();
    auto copy = std::make_unique<ControlCenter>(*piece.axis);
    EXPECT_EQ(copy->getRightRegions(), region);
    EXPECT_EQ(piece.skeleton()->getFrameCenter(), piece.axis);
    ControlCenter assigned(piece.skeleton());
    piece.skeleton()->setControlCenter(piece.axis);
    assigned = *copy;
    assigned = assigned;
    EXPECT_EQ(assigned.getRightRegions(), region);
    copy.reset();
    region->setRegion(1);
    EXPECT_EQ(assigned.getRightRegions()->region(), 1);
}

TEST_F(ControlCenterOnRectangle, aCenterCarriedOverHasARegionOfItsOwn)
{
    piece.axis->getRightRegions()->setRegion(1);
    const std::unique_ptr<CDbGroupObject> copy(piece.group()->copy());
    {
        ControlSkeleton target(copy.get(), copy->firstGabarit());
        auto *carried = new ControlCenter(piece.axis, &target);
        EXPECT_EQ(target.getFrameCenter(), carried);
        EXPECT_NE(carried->getRightRegions(), piece.axis->getRightRegions());
        EXPECT_EQ(carried->getRightRegions()->region(), 1);
        EXPECT_EQ(carried->Get_Frame_Centre(), piece.frameCenter());
    }
}

TEST_F(ControlCenterOnRectangle, endsAreTheVectorsWhereNothingLiesBeyondThem)
{
    const auto ends = piece.axis->calculatePositionEnd();
    EXPECT_EQ(str(ends.first), "20.00 0.00");
    EXPECT_EQ(str(ends.second), "20.00 60.00");
}

TEST_F(ControlCenterOnRectangle, endsReachToTheExtentOfTheContourAlongTheAxis)
{
    *piece.at(12) = GeoPoint2D(40.0, 70.0);
    *piece.at(18) = GeoPoint2D(0.0, 65.0);
    *piece.at(1) = GeoPoint2D(5.0, -4.0);
    const auto ends = piece.axis->calculatePositionEnd();
    EXPECT_EQ(str(ends.first), "20.00 -4.00");
    EXPECT_EQ(str(ends.second), "20.00 70.00");
}

TEST_F(ControlCenterOnRectangle, vectorsOutsideTheOutlineDoNotExtendTheAxis)
{
    *piece.at(1) = GeoPoint2D(5.0, -4.0);
    piece.at(1)->mVectorKind = 3;
    EXPECT_EQ(str(piece.axis->calculatePositionEnd().first), "20.00 0.00");
}

TEST_F(ControlCenterOnRectangle, clickAndRectangleMeetTheAxisFromEndToEnd)
{
    const GeoPoint2D beside(20.4, 30.0);
    EXPECT_TRUE(piece.axis->isOnCenter(&beside, 0.5));
    EXPECT_FALSE(piece.axis->isOnCenter(&beside, 0.3));
    EXPECT_THROW((void)piece.axis->isOnCenter(nullptr, 0.5), AssertionError);

    GeoRectangle away(GeoPoint2D(0.0, 0.0));
    away.include(GeoPoint2D(10.0, 10.0));
    GeoRectangle across(GeoPoint2D(15.0, 10.0));
    across.include(GeoPoint2D(25.0, 12.0));
    piece.axis->setSelected(false);
    piece.axis->selectInRectangle(&away);
    EXPECT_FALSE(piece.axis->getSelection());
    piece.axis->selectInRectangle(&across);
    EXPECT_TRUE(piece.axis->getSelection());
    piece.axis->selectInRectangle(&away);
    EXPECT_TRUE(piece.axis->getSelection());
    EXPECT_THROW(piece.axis->selectInRectangle(nullptr), AssertionError);
}

TEST_F(ControlCenterOnRectangle, theOriginIsTheControlObjectOfTheLevelZeroFrame)
{
    EXPECT_EQ(piece.axis->getFrameLevelZero(), nullptr);
    ControlFrame *hip = piece.chord("Hip", 2);
    EXPECT_EQ(piece.axis->getFrameLevelZero(), hip);
    // An origin that no piece knows is no control object.
    piece.set()->newFrame(QStringLiteral("Elsewhere"), piece.frameCenter())->becomeLevelZero();
    EXPECT_EQ(piece.axis->getFrameLevelZero(), nullptr);

    const std::unique_ptr<ControlCenter> first(piece.axis);
    ControlCenter *without = new ControlCenter(piece.skeleton());
    EXPECT_THROW((void)without->getFrameLevelZero(), AssertionError);
}

TEST_F(ControlCenterOnRectangle, aNewSetIsSoughtByNameAndAMissLeavesNoElement)
{
    FrameSet other(QStringLiteral("Other"), nullptr);
    FrameCenter *namesake = other.newCenter(QStringLiteral("cen ter"));
    piece.axis->adjustsANewFrameSet(&other);
    EXPECT_EQ(piece.axis->Get_Frame_Centre(), namesake);

    FrameSet empty(QStringLiteral("Empty"), nullptr);
    EXPECT_THROW(piece.axis->adjustsANewFrameSet(&empty), AssertionError);
    EXPECT_EQ(piece.axis->Get_Frame_Centre(), nullptr);
    EXPECT_THROW(piece.axis->adjustsANewFrameSet(&other), AssertionError);
}

TEST_F(ControlCenterOnRectangle, aFrameOfASharedCenterRunsFromOneSideToTheOther)
{
    CDbPointVOR *inside = piece.group()->addOwnVector(GeoPoint2D(30.0, 30.0));
    struct {
        const char *what;
        CDbPointVOR *first;
        CDbPointVOR *second;
        bool valid;
    } const cases[] = {
        {"nothing", nullptr, nullptr, false},
        {"a start anywhere", piece.at(3), nullptr, true},
        {"across", piece.right(3), piece.left(3), true},
        {"across, the other way", piece.left(3), piece.right(3), true},
        {"on one side", piece.right(3), piece.right(4), false},
        {"no start", nullptr, piece.left(3), false},
        {"from the axis", piece.at(15), piece.left(3), false},
        {"to the inside from the stretch", piece.right(3), inside, true},
        {"to the inside from off it", piece.left(3), inside, false},
        {"to the inside from nowhere", nullptr, inside, true},
    };
    for (const auto &c : cases)
        EXPECT_EQ(piece.axis->isClickValidToFrame(c.first, c.second), c.valid) << c.what;
}

TEST(ControlCenterOneSided, aFrameMayStartOnTheAxisAndGoesOut)
{
    RectangleUnderControl piece(FrameCenter::Characteristic_OneSideDoubled);
    struct {
        const char *what;
        CDbPointVOR *first;
        CDbPointVOR *second;
        bool valid;
    } const cases[] = {
        {"nothing", nullptr, nullptr, false},
        {"on the axis", piece.at(15), nullptr, true},
        {"off the stretch", piece.left(3), nullptr, true},
        {"on the stretch", piece.right(3), nullptr, false},
        {"from nowhere", nullptr, piece.left(3), true},
        {"from the stretch", piece.right(3), piece.left(3), true},
        {"from the axis", piece.at(3), piece.left(3), true},
        {"from off the stretch", piece.left(3), piece.left(4), false},
    };
    for (const auto &c : cases)
        EXPECT_EQ(piece.axis->isClickValidToFrame(c.first, c.second), c.valid) << c.what;
}

TEST(ControlCenterWithoutElement, aClickCannotBeJudged)
{
    ControlledPiece piece(rectangle());
    ControlCenter *center = new ControlCenter(piece.skeleton());
    EXPECT_THROW((void)center->isClickValidToFrame(nullptr, nullptr), AssertionError);
    EXPECT_THROW((void)center->calculatePositionEnd(), AssertionError);
}

// Origin 20 cm up; frames 10 cm below, 10 and 20 cm above it.
class ClosestFrame : public testing::Test
{
protected:
    ClosestFrame()
    {
        origin = piece.chord("Origin", 2);
        piece.chord("Below", 1);
        piece.chord("Near", 3);
        piece.chord("Far", 4);
    }

    std::string closest(double y, int type, FrameFrame *excluded = nullptr)
    {
        FrameFrame *frame =
            piece.axis->getTheClosestFrame(GeoPoint2D(20.0, y), ControlCenter::eLevelType(type), excluded);
        return frame ? frame->name().toStdString() : "none";
    }

    RectangleUnderControl piece;
    ControlFrame *origin = nullptr;
};

TEST_F(ClosestFrame, isSoughtOnThePointsSideOfTheOrigin)
{
    struct {
        double y;
        int type;
        const char *name;
    } const cases[] = {
        {33.0, 1, "Far"},    {33.0, 2, "Near"},  {33.0, 0, "Near"}, {37.0, 3, "Far"},    {45.0, 1, "none"},
        {45.0, 2, "Far"},    {45.0, 0, "Far"},   {22.0, 1, "Near"}, {22.0, 2, "Origin"}, {14.0, 1, "Below"},
        {14.0, 2, "Origin"}, {14.0, 0, "Below"}, {5.0, 1, "none"},  {5.0, 2, "Below"},
    };
    for (const auto &c : cases)
        EXPECT_EQ(closest(c.y, c.type), c.name) << c.y << ' ' << c.type;
}

TEST_F(ClosestFrame, aFrameLevelWithThePointIsNeitherAboveNorBelow)
{
    EXPECT_EQ(closest(30.0, 1), "Far");
    EXPECT_EQ(closest(30.0, 2), "Origin");
}

TEST_F(ClosestFrame, halfwayTheFrameBelowIsNearer)
{
    EXPECT_EQ(closest(35.0, 0), "Near");
}

TEST_F(ClosestFrame, anExcludedFrameDoesNotCount)
{
    FrameFrame *near = piece.set()->getFrames()[2];
    EXPECT_EQ(closest(33.0, 2, near), "Origin");
    EXPECT_EQ(closest(22.0, 2, origin->getFrameFrame()), "none");
}

TEST_F(ClosestFrame, aFrameWithoutControlObjectDoesNotCount)
{
    FrameFrame *free = piece.set()->newFrame(QStringLiteral("Free"), piece.frameCenter());
    free->getLevelBySizes()->mValues = QListEx<double>{12.0};
    EXPECT_EQ(closest(33.0, 2), "Near");
}

TEST_F(ClosestFrame, ofTwoFramesOnOneLevelTheFirstIsTheAnswer)
{
    piece.halfChord("Twin", 3);
    EXPECT_EQ(closest(33.0, 2), "Near");
}

TEST_F(ClosestFrame, aFrameThatWasNeverEvaluatedLiesOnTheLevelOfTheOrigin)
{
    FrameFrame *near = piece.set()->getFrames()[2];
    near->getLevelBySizes()->mValues.clear();
    EXPECT_EQ(closest(33.0, 2), "Origin");
    EXPECT_EQ(closest(33.0, 2, origin->getFrameFrame()), "Near");
}

TEST_F(ClosestFrame, withoutOriginThereIsNone)
{
    piece.frameCenter()->removeFrame(origin->getFrameFrame());
    EXPECT_EQ(closest(33.0, 0), "none");
    piece.frameCenter()->addFrame(origin->getFrameFrame(), 0);
}

// A back that is symmetric to the y axis.
TEST(ControlCenterOnMirror, directionIsSettledByTheSideOfTheNextVector)
{
    ControlledPiece piece(mirroredBack());
    ControlCenter *axis = piece.center(piece.at(0), piece.at(9));
    // The vector next to the middle of the waist is on the right, side 2.
    EXPECT_TRUE(axis->getContourDirection1To2());
    // From the neck on, the contour runs on the left, side 1.
    const std::unique_ptr<ControlCenter> first(axis);
    const std::unique_ptr<ControlCenter> down(
        new ControlCenter(piece.at(9), piece.at(0), piece.skeleton(), piece.frameCenter(), true));
    EXPECT_FALSE(down->getContourDirection1To2());
    piece.skeleton()->setControlCenter(nullptr);
}

TEST(ControlCenterOnMirror, withoutRecordThePlaceDecides)
{
    ControlledPiece piece(mirroredBack());
    piece.group()->mMirror->forget(piece.at(1));
    EXPECT_TRUE(piece.center(piece.at(0), piece.at(9))->getContourDirection1To2());
}

TEST(ControlCenterOnMirror, theRecordGoesBeforeThePlace)
{
    ControlledPiece piece(mirroredBack());
    // Recorded the other way round: the vector on the right is side 1.
    piece.group()->mMirror->forget(piece.at(1));
    piece.group()->mMirror->forget(piece.at(17));
    ASSERT_TRUE(piece.group()->mMirror->addPair(piece.at(1), piece.at(17)));
    EXPECT_FALSE(piece.center(piece.at(0), piece.at(9))->getContourDirection1To2());
}

TEST(ControlCenterOnMirror, withoutVector1ThereIsNoSideToAskFor)
{
    ControlledPiece piece(mirroredBack());
    FrameCenter *element = piece.set()->newCenter(QStringLiteral("C"));
    const auto *center = new ControlCenter(nullptr, piece.at(9), piece.skeleton(), element, true);
    EXPECT_TRUE(center->getContourDirection1To2());
}

TEST(ControlCenterOnMirror, aVectorOffTheContourLeavesNoCenterBehind)
{
    ControlledPiece piece(mirroredBack());
    FrameCenter *element = piece.set()->newCenter(QStringLiteral("C"));
    CDbPointVOR *inside = piece.group()->addOwnVector(GeoPoint2D(1.0, 5.0));
    EXPECT_THROW(ControlCenter(inside, piece.at(9), piece.skeleton(), element), AssertionError);
    EXPECT_EQ(piece.skeleton()->getFrameCenter(), nullptr);
}

} // namespace
