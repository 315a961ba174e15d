// A chord of the piece: its crossing with the axis, clicks, sides and links.

#include <support/ControlledPiece.h>

#include <VorGeo/GeoRectangle.h>

#include <gtest/gtest.h>

using namespace VorSystem;
using namespace support;

namespace
{

// A 40 x 60 cm rectangle with an upright axis in its middle, sides shared.
class ControlFrameOnRectangle : public testing::Test
{
protected:
    static std::string crossing(const ControlFrame *frame)
    {
        GeoPoint2D out;
        frame->calculateIntersectionOfCenter(&out);
        return str(out);
    }
    static std::string bounds(const GeoRectangle &rectangle)
    {
        return str(GeoPoint2D(rectangle.left(), rectangle.bottom())) + " to " +
               str(GeoPoint2D(rectangle.right(), rectangle.top()));
    }

    RectangleUnderControl piece;
};

TEST_F(ControlFrameOnRectangle, aChordCrossesTheAxisWhereTheLinesMeet)
{
    EXPECT_EQ(crossing(piece.frame("Level", piece.right(3), piece.left(3))), "20.00 30.00");
    EXPECT_EQ(crossing(piece.frame("Slanted", piece.right(2), piece.left(4))), "20.00 30.00");
}

TEST_F(ControlFrameOnRectangle, aHalfChordEndsAtTheProjectionOfVector1)
{
    ControlFrame *half = piece.halfChord("Half", 3);
    EXPECT_EQ(crossing(half), "20.00 30.00");
    EXPECT_EQ(str(half->calculateExtremity()), "20.00 30.00");
    EXPECT_EQ(bounds(half->getRectBounding()), "20.00 30.00 to 40.00 30.00");
}

TEST_F(ControlFrameOnRectangle, aChordAlongTheAxisCrossesItInTheMiddle)
{
    EXPECT_EQ(crossing(piece.frame("Along", piece.right(1), piece.right(3))), "20.00 30.00");
    // Two vectors at one place span no line either.
    *piece.left(2) = GeoPoint2D(40.0, 10.0);
    EXPECT_EQ(crossing(piece.frame("Nowhere", piece.right(1), piece.left(2))), "20.00 30.00");
}

TEST_F(ControlFrameOnRectangle, aPointIsItsOwnCrossing)
{
    ControlFrame *point = piece.frame("Point", piece.right(2), piece.right(2));
    EXPECT_TRUE(point->isMeasureZero());
    EXPECT_EQ(crossing(point), "40.00 20.00");
    EXPECT_EQ(str(point->calculateExtremity()), "40.00 20.00");
}

TEST_F(ControlFrameOnRectangle, aPointIsHitWithinThePointToleranceAlone)
{
    ControlFrame *point = piece.frame("Point", piece.right(2), piece.right(2));
    const GeoPoint2D near(39.5, 20.0);
    EXPECT_TRUE(point->isOnFrame(&near, 0.0, 0.6));
    EXPECT_FALSE(point->isOnFrame(&near, 5.0, 0.4));
}

TEST_F(ControlFrameOnRectangle, aChordIsHitFromEndToEnd)
{
    ControlFrame *chord = piece.chord("Chord", 3);
    ControlFrame *half = piece.halfChord("Half", 4);
    const GeoPoint2D onLeft(5.0, 30.2);
    const GeoPoint2D onLeftOfHalf(5.0, 40.0);
    const GeoPoint2D onRightOfHalf(25.0, 40.0);
    EXPECT_TRUE(chord->isOnFrame(&onLeft, 0.3, 0.0));
    EXPECT_FALSE(chord->isOnFrame(&onLeft, 0.1, 5.0));
    EXPECT_FALSE(half->isOnFrame(&onLeftOfHalf, 0.3, 0.3));
    EXPECT_TRUE(half->isOnFrame(&onRightOfHalf, 0.3, 0.3));
    EXPECT_THROW((void)chord->isOnFrame(nullptr, 1.0, 1.0), AssertionError);
    EXPECT_THROW(chord->calculateIntersectionOfCenter(nullptr), AssertionError);
}

TEST_F(ControlFrameOnRectangle, vector1OfAllFramesLiesOnTheSideOfTheFirst)
{
    ControlFrame *first = piece.chord("First", 1);
    EXPECT_EQ(first->getVectorContour1(), piece.right(1));
    ControlFrame turned(piece.left(3), piece.right(3), piece.skeleton(), nullptr, true);
    EXPECT_EQ(turned.getVectorContour1(), piece.right(3));
    EXPECT_EQ(turned.getVectorContour2(), piece.left(3));
    EXPECT_FALSE(turned.getContourDirection1To2());
    ControlFrame kept(piece.right(4), piece.left(4), piece.skeleton(), nullptr, true);
    EXPECT_EQ(kept.getVectorContour1(), piece.right(4));
    EXPECT_TRUE(kept.getContourDirection1To2());
}

TEST_F(ControlFrameOnRectangle, aVectorInsideThePieceIsNotExchanged)
{
    piece.chord("First", 1);
    CDbPointVOR *inside = piece.group()->addOwnVector(GeoPoint2D(10.0, 30.0));
    ControlFrame frame(inside, piece.right(3), piece.skeleton(), nullptr);
    EXPECT_EQ(frame.getVectorContour1(), inside);
    EXPECT_TRUE(frame.isInternalFrame());
    EXPECT_FALSE(piece.skeleton()->getFrameLists().first()->isInternalFrame());
}

TEST(ControlFrameOneSided, sidesStayAsTheyWereClicked)
{
    RectangleUnderControl piece(FrameCenter::Characteristic_OneSideDoubled);
    piece.halfChord("First", 1);
    ControlFrame frame(piece.left(3), nullptr, piece.skeleton(), nullptr);
    EXPECT_EQ(frame.getVectorContour1(), piece.left(3));
}

TEST_F(ControlFrameOnRectangle, constructorsEnterTheSkeletonAndDestructorsLeaveIt)
{
    ControlFrame *chord = piece.chord("Chord", 1);
    {
        ControlFrame bare(piece.skeleton());
        EXPECT_TRUE(bare.getSelection());
        EXPECT_TRUE(bare.getAgreesLink());
        ControlFrame given(piece.right(2), piece.left(2), piece.skeleton(), nullptr, false);
        EXPECT_FALSE(given.getSelection());
        chord->setAgreesLink(false);
        ControlFrame carried(chord, piece.skeleton());
        EXPECT_FALSE(carried.getAgreesLink());
        EXPECT_EQ(carried.getFrameFrame(), chord->getFrameFrame());
        EXPECT_EQ(piece.skeleton()->getFrameLists().size(), 4);
        // A plain copy is not entered.
        const ControlFrame copy(*chord);
        EXPECT_EQ(piece.skeleton()->getFrameLists().size(), 4);
    }
    EXPECT_EQ(piece.skeleton()->getFrameLists(), QListEx<ControlFrame *>{chord});
}

TEST_F(ControlFrameOnRectangle, aConstructorThatRaisesLeavesNothingInTheSkeleton)
{
    piece.chord("First", 1);
    EXPECT_THROW(ControlFrame(nullptr, piece.left(3), piece.skeleton(), nullptr), AssertionError);
    EXPECT_THROW(ControlFrame(static_cast<ControlSkeleton *>(nullptr)), AssertionError);
    EXPECT_THROW(ControlFrame(piece.right(1), nullptr, nullptr, nullptr), AssertionError);
    EXPECT_EQ(piece.skeleton()->getFrameLists().size(), 1);
}

TEST_F(ControlFrameOnRectangle, aFrameHoldsItsTwoVectors)
{
    ControlFrame *chord = piece.chord("Chord", 3);
    EXPECT_TRUE(chord->containsVector(piece.right(3)));
    EXPECT_TRUE(chord->containsVector(piece.left(3)));
    EXPECT_FALSE(chord->containsVector(piece.right(2)));
    EXPECT_THROW((void)chord->containsVector(nullptr), AssertionError);
}

TEST_F(ControlFrameOnRectangle, theFirstFrameIsTheOrigin)
{
    EXPECT_TRUE(piece.chord("Origin", 1)->isLevelZero());
    EXPECT_FALSE(piece.chord("Other", 3)->isLevelZero());
    const ControlFrame withoutElement(piece.skeleton());
    EXPECT_FALSE(withoutElement.isLevelZero());
    EXPECT_EQ(withoutElement.getFrameLink(), nullptr);
    EXPECT_FALSE(withoutElement.isInFrameLink());
}

TEST_F(ControlFrameOnRectangle, aRectangleSelectsTheWholeLinkOnEveryPiece)
{
    ControlFrame *one = piece.chord("One", 1);
    ControlFrame *two = piece.chord("Two", 4);
    ControlFrame *alone = piece.chord("Alone", 5);
    FrameLink *link = piece.set()->newLink(QStringLiteral("Link"));
    link->linkFrame(one->getFrameFrame());
    link->linkFrame(two->getFrameFrame());
    piece.skeleton()->adjustSelection(false);
    EXPECT_TRUE(one->isInFrameLink());
    EXPECT_EQ(one->getFrameLink(), link);

    GeoRectangle lower(GeoPoint2D(0.0, 5.0));
    lower.include(GeoPoint2D(5.0, 15.0));
    one->selectInRectangle(&lower);
    two->selectInRectangle(&lower);
    alone->selectInRectangle(&lower);
    EXPECT_TRUE(one->getSelection());
    EXPECT_TRUE(two->getSelection());
    EXPECT_FALSE(alone->getSelection());
    EXPECT_TRUE(piece.group()->getSelection());

    two->setRegionSelection(true);
    one->setSelectionLink(false);
    EXPECT_FALSE(two->getSelection());
    EXPECT_FALSE(two->regionSelection());

    EXPECT_THROW(alone->setSelectionLink(true), AssertionError);
    EXPECT_THROW(one->selectInRectangle(nullptr), AssertionError);
    two->setAgreesLink(false);
    EXPECT_FALSE(one->isInFrameLink());
    EXPECT_THROW(one->setSelectionLink(true), AssertionError);
}

TEST_F(ControlFrameOnRectangle, aNewSetIsSoughtByTheFullName)
{
    ControlFrame *chord = piece.chord("Chest", 3);
    FrameFrame *own = chord->getFrameFrame();
    FrameSet other(QStringLiteral("Other"), nullptr);
    EXPECT_THROW(chord->adjustsANewFrameSet(&other), AssertionError);
    EXPECT_EQ(chord->getFrameFrame(), own);
    FrameFrame *namesake = other.newFrame(QStringLiteral("chest"), other.newCenter(QStringLiteral("Center")));
    chord->adjustsANewFrameSet(&other);
    EXPECT_EQ(chord->getFrameFrame(), namesake);
    EXPECT_THROW(chord->adjustsANewFrameSet(nullptr), AssertionError);
}

TEST(ControlFrameWithoutCenter, whatNeedsTheAxisRaises)
{
    ControlledPiece piece(rectangle());
    ControlFrame frame(piece.at(1), nullptr, piece.skeleton(), nullptr);
    GeoPoint2D out;
    EXPECT_THROW(frame.calculateIntersectionOfCenter(&out), AssertionError);
    EXPECT_THROW((void)frame.calculateExtremity(), AssertionError);
    EXPECT_THROW((void)frame.getRectBounding(), AssertionError);
    const ControlFrame bare(piece.skeleton());
    EXPECT_THROW(bare.calculateIntersectionOfCenter(&out), AssertionError);
    EXPECT_THROW((void)bare.isOnFrame(&out, 1.0, 1.0), AssertionError);
}

} // namespace
