// Clicks, selection, drawing and deletion on a piece.

#include <support/ControlledPiece.h>

#include <VorGeo/GeoRectangle.h>

#include <gtest/gtest.h>

using namespace VorSystem;
using namespace support;

namespace
{

// A 40 x 60 cm rectangle with an upright axis in its middle, chords 20, 30 and 50 cm up and two segments on
// the right side, all deselected.
class SkeletonSelection : public testing::Test
{
protected:
    SkeletonSelection()
        : hip(piece.chord("Hip", 2)), waist(piece.chord("Waist", 3)), chest(piece.chord("Chest", 5)),
          lower(piece.segment("Lower", piece.at(6), piece.at(9), FrameSegment::Displace_AlongY)),
          whole(piece.segment("Whole", piece.at(6), piece.at(12), FrameSegment::Displace_AlongY))
    {
        piece.skeleton()->adjustSelection(false);
    }

    std::string click(double x, double y)
    {
        const GeoPoint2D point(x, y);
        short what = -1;
        ControlCenter *center = nullptr;
        ControlFrame *frame = nullptr;
        ControlSegment *segment = nullptr;
        piece.skeleton()->clickWhereAndWhat(&point, 0.3, 0.3, &what, &center, &frame, &segment);
        return told(what, center, frame, segment);
    }
    std::string selected()
    {
        short what = -1;
        ControlCenter *center = nullptr;
        ControlFrame *frame = nullptr;
        ControlSegment *segment = nullptr;
        piece.skeleton()->infoSelectionObject(&what, &center, &frame, &segment);
        return told(what, center, frame, segment);
    }
    static std::string told(short what, ControlCenter *center, ControlFrame *frame, ControlSegment *segment)
    {
        std::string text = std::to_string(what);
        if (center)
            text += " Center";
        if (frame)
            text += ' ' + frame->getFrameFrame()->name().toStdString();
        if (segment)
            text += ' ' + segment->getFrameSegment()->name().toStdString();
        return text;
    }
    std::string left() const
    {
        std::string text;
        const auto frames = piece.skeleton()->getFrameLists();
        for (ControlFrame *frame : frames)
            text += frame->getFrameFrame()->name().toStdString() + ' ';
        const auto segments = piece.skeleton()->getSegmentLists();
        for (ControlSegment *segment : segments)
            text += segment->getFrameSegment()->name().toStdString() + ' ';
        return text;
    }

    RectangleUnderControl piece;
    ControlFrame *hip;
    ControlFrame *waist;
    ControlFrame *chest;
    ControlSegment *lower;
    ControlSegment *whole;
};

TEST_F(SkeletonSelection, aClickTellsTheMostSpecificAndHandsBackAll)
{
    EXPECT_EQ(click(10.0, 12.0), "-1");
    EXPECT_EQ(click(20.0, 12.0), "13 Center");
    EXPECT_EQ(click(10.0, 30.0), "14 Waist");
    EXPECT_EQ(click(20.0, 30.0), "14 Center Waist");
    EXPECT_EQ(click(40.0, 45.0), "15 Whole");
    EXPECT_EQ(click(40.0, 25.0), "15 Whole"); // both segments lie here: the last one wins
    EXPECT_EQ(click(40.0, 30.0), "15 Waist Whole");
    EXPECT_EQ(click(40.0, 20.0), "15 Hip Whole");
}

TEST_F(SkeletonSelection, ofTwoFramesUnderAClickTheFirstWins)
{
    piece.frame("Slanted", piece.right(2), piece.left(4));
    EXPECT_EQ(click(20.0, 30.0), "14 Center Waist");
}

TEST_F(SkeletonSelection, aMissTouchesNothingAndNeedsNoPlaceForAnAnswer)
{
    const GeoPoint2D away(10.0, 12.0);
    piece.skeleton()->clickWhereAndWhat(&away, 0.3, 0.3, nullptr, nullptr, nullptr, nullptr);
    EXPECT_THROW(piece.skeleton()->clickWhereAndWhat(nullptr, 0.3, 0.3, nullptr, nullptr, nullptr, nullptr),
                 AssertionError);
    const GeoPoint2D onWaist(10.0, 30.0);
    EXPECT_THROW(piece.skeleton()->clickWhereAndWhat(&onWaist, 0.3, 0.3, nullptr, nullptr, nullptr, nullptr),
                 AssertionError);
}

TEST_F(SkeletonSelection, onlyOneSelectedObjectIsTold)
{
    EXPECT_EQ(selected(), "-1");
    lower->setSelected(true);
    whole->setSelected(true);
    EXPECT_EQ(selected(), "15 Lower");
    chest->setSelected(true);
    waist->setSelected(true);
    EXPECT_EQ(selected(), "14 Waist");
    piece.axis->setSelected(true);
    EXPECT_EQ(selected(), "13 Center");
}

TEST_F(SkeletonSelection, selectingAllFramesAsksAndTheOtherActs)
{
    EXPECT_FALSE(piece.skeleton()->selectAllFrames());
    EXPECT_FALSE(waist->getSelection());
    piece.skeleton()->selectAllControlFrames();
    EXPECT_TRUE(piece.skeleton()->selectAllFrames());
    EXPECT_FALSE(lower->getSelection());
    EXPECT_TRUE(ControlledPiece(rectangle()).skeleton()->selectAllFrames());
}

TEST_F(SkeletonSelection, aRectangleSelectsWhatItMeets)
{
    GeoRectangle rectangle(GeoPoint2D(35.0, 25.0));
    rectangle.include(GeoPoint2D(45.0, 35.0));
    piece.skeleton()->selectInRectangle(&rectangle);
    EXPECT_FALSE(piece.axis->getSelection());
    EXPECT_FALSE(hip->getSelection());
    EXPECT_TRUE(waist->getSelection());
    EXPECT_TRUE(lower->getSelection());
    EXPECT_TRUE(whole->getSelection());
    EXPECT_THROW(piece.skeleton()->selectInRectangle(nullptr), AssertionError);
    const GeoRectangle bounds = piece.skeleton()->getRectBounding();
    EXPECT_EQ(str(GeoPoint2D(bounds.left(), bounds.bottom())), "0.00 0.00");
    EXPECT_EQ(str(GeoPoint2D(bounds.right(), bounds.top())), "40.00 60.00");
    EXPECT_TRUE(ControlledPiece(support::rectangle()).skeleton()->getRectBounding().isEmpty());
}

TEST_F(SkeletonSelection, aNewFrameMustNotMeetAnother)
{
    ControlSkeleton *skeleton = piece.skeleton();
    EXPECT_TRUE(skeleton->isValidForNewFrame(piece.right(4), piece.left(4)));
    EXPECT_TRUE(skeleton->isValidForNewFrame(piece.right(4), nullptr));
    EXPECT_FALSE(skeleton->isValidForNewFrame(piece.right(4), piece.left(2))); // across the waist
    EXPECT_FALSE(skeleton->isValidForNewFrame(piece.right(3), piece.left(4))); // at its end point
    EXPECT_THROW((void)skeleton->isValidForNewFrame(nullptr, piece.left(4)), AssertionError);

    ControlledPiece bare(rectangle());
    EXPECT_TRUE(bare.skeleton()->isValidForNewFrame(bare.at(0), bare.at(2)));
    EXPECT_THROW((void)bare.skeleton()->isValidForNewFrame(bare.at(0), nullptr), AssertionError);
}

TEST_F(SkeletonSelection, aHalfFrameIsMetOnItsHalfAlone)
{
    piece.halfChord("Half", 4);
    const auto inside = [this](double x, double y) { return piece.group()->addOwnVector(GeoPoint2D(x, y)); };
    EXPECT_FALSE(piece.skeleton()->isValidForNewFrame(inside(25.0, 35.0), inside(35.0, 45.0)));
    EXPECT_TRUE(piece.skeleton()->isValidForNewFrame(inside(5.0, 35.0), inside(15.0, 45.0)));
    // A new half frame ends at the axis too: there it meets the half, and on the left it does not.
    EXPECT_FALSE(piece.skeleton()->isValidForNewFrame(inside(5.0, 40.0), nullptr));
    EXPECT_TRUE(piece.skeleton()->isValidForNewFrame(inside(5.0, 45.0), nullptr));
}

TEST_F(SkeletonSelection, aNewSegmentMustNotHaveBothVectorsOfAnother)
{
    ControlSkeleton *skeleton = piece.skeleton();
    EXPECT_TRUE(skeleton->isValidForNewSegment(piece.at(0), piece.at(3)));
    EXPECT_TRUE(skeleton->isValidForNewSegment(piece.at(6), piece.at(11)));
    EXPECT_FALSE(skeleton->isValidForNewSegment(piece.at(9), piece.at(6)));      // Lower, the other way
    EXPECT_FALSE(skeleton->isValidForNewSegment(piece.right(3), piece.left(3))); // Waist
}

TEST_F(SkeletonSelection, leavingALinkDeletesNothing)
{
    FrameLink *link = piece.set()->newLink(QStringLiteral("Link"));
    link->linkFrame(waist->getFrameFrame());
    EXPECT_FALSE(piece.skeleton()->backSpaceLinks());
    hip->setSelected(true); // in no link
    EXPECT_FALSE(piece.skeleton()->backSpaceLinks());
    waist->setSelected(true);
    EXPECT_TRUE(piece.skeleton()->backSpaceLinks());
    EXPECT_FALSE(waist->getAgreesLink());
    EXPECT_FALSE(piece.skeleton()->backSpaceLinks());
    EXPECT_EQ(left(), "Hip Waist Chest Lower Whole ");
}

TEST_F(SkeletonSelection, theSegmentBehindADeletedOneIsLostAndBelongsToItsHolder)
{
    EXPECT_FALSE(piece.skeleton()->backSpaceSegments());
    ControlSegment *third = piece.segment("Third", piece.at(0), piece.at(3), FrameSegment::Displace_AlongX);
    third->setSelected(false);
    lower->setSelected(true);
    EXPECT_TRUE(piece.skeleton()->backSpaceSegments());
    EXPECT_EQ(left(), "Hip Waist Chest Third ");
    EXPECT_EQ(whole->getSkeleton(), nullptr);
    delete whole;
    third->setSelected(true);
    EXPECT_TRUE(piece.skeleton()->backSpaceSegments());
    EXPECT_EQ(left(), "Hip Waist Chest ");
}

TEST(SkeletonDeletion, aLostSegmentMayOutliveItsSkeleton)
{
    std::unique_ptr<ControlSegment> lost;
    const Piece made = rectangle();
    {
        ControlSkeleton skeleton(made.group.get(), made.gabarit);
        new ControlSegment(&skeleton);
        lost.reset(new ControlSegment(&skeleton));
        lost->setSelected(false);
        EXPECT_TRUE(skeleton.backSpaceSegments());
        EXPECT_TRUE(skeleton.isEmptySkeleton());
    }
    EXPECT_EQ(lost->getMeasures(-1), 0.0);
    EXPECT_EQ(lost->getAttachedNext(), nullptr);
}

TEST_F(SkeletonSelection, theOriginGoesOnlyTogetherWithAllOthers)
{
    EXPECT_FALSE(piece.skeleton()->backSpaceFrames());
    hip->setSelected(true);
    waist->setSelected(true);
    EXPECT_TRUE(piece.skeleton()->backSpaceFrames());
    EXPECT_EQ(left(), "Hip Chest Lower Whole ");
    chest->setSelected(true);
    EXPECT_TRUE(piece.skeleton()->backSpaceFrames());
    EXPECT_EQ(left(), "Lower Whole ");
    EXPECT_FALSE(piece.skeleton()->backSpaceFrames());
}

TEST_F(SkeletonSelection, theCenterGoesOnlyWithoutFrames)
{
    piece.axis->setSelected(true);
    EXPECT_FALSE(piece.skeleton()->backSpaceCenter());
    piece.skeleton()->selectAllControlFrames();
    EXPECT_TRUE(piece.skeleton()->backSpaceFrames());
    piece.axis->setSelected(false);
    EXPECT_FALSE(piece.skeleton()->backSpaceCenter());
    piece.axis->setSelected(true);
    lower->getFrameSegment()->getMeasureBySizes()->mValues[3] = 99.0;
    EXPECT_TRUE(piece.skeleton()->backSpaceCenter());
    EXPECT_EQ(lower->getFrameSegment()->getMeasureBySizes()->mValues[3], 30.0); // the set was evaluated anew
    EXPECT_FALSE(piece.skeleton()->possessControlCenter());
    EXPECT_FALSE(piece.skeleton()->backSpaceCenter());
    EXPECT_FALSE(piece.skeleton()->isEmptySkeleton());
    lower->setSelected(true);
    EXPECT_TRUE(piece.skeleton()->backSpaceSegments());
    EXPECT_TRUE(piece.skeleton()->isEmptySkeleton());
    delete whole;
}

TEST_F(SkeletonSelection, aSkeletonWithFramesAloneCountsAsEmpty)
{
    const std::unique_ptr<ControlCenter> axis(piece.axis);
    piece.skeleton()->setControlCenter(nullptr);
    delete lower;
    delete whole;
    EXPECT_TRUE(piece.skeleton()->isEmptySkeleton());
}

} // namespace
