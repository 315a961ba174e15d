// What moves with a segment, and how far.

#include <support/ControlledPiece.h>

#include <gtest/gtest.h>

#include <cmath>

using namespace VorSystem;
using namespace support;

namespace
{

constexpr auto AlongX = FrameSegment::Displace_AlongX;
constexpr auto AlongY = FrameSegment::Displace_AlongY;
constexpr auto AlongLine = FrameSegment::Displace_AlongLine;
constexpr auto AlongContour = FrameSegment::Displace_AlongContour;

// A 40 x 60 cm rectangle without a center. The segment is the right side.
class SegmentFactors : public testing::Test
{
protected:
    SegmentFactors() : piece(rectangle(40.0, 60.0, 6, 1.0)) {}

    ControlledPiece piece;
};

TEST_F(SegmentFactors, withoutCenterEverythingTakesItsPartByItsPlaceAlongTheSegment)
{
    ControlSegment *side = piece.segment("Side", piece.at(6), piece.at(12), AlongY);
    CDbPointVOR *inside = piece.group()->addOwnVector(GeoPoint2D(10.0, 15.0));
    CDbPointVOR *outside = piece.group()->addOwnVector(GeoPoint2D(60.0, 15.0));
    EXPECT_EQ(side->getDisplacementFactor(piece.at(6)), 0.0);
    EXPECT_EQ(side->getDisplacementFactor(piece.at(12)), 1.0);
    EXPECT_NEAR(side->getDisplacementFactor(piece.at(9)), 0.5, 1e-12);
    EXPECT_NEAR(side->getDisplacementFactor(piece.at(21)), 0.5, 1e-12); // the other side, off the stretch
    EXPECT_NEAR(side->getDisplacementFactor(inside), 0.25, 1e-12);
    EXPECT_EQ(side->getDisplacementFactor(outside), 0.0);
    EXPECT_THROW((void)side->getDisplacementFactor(nullptr), AssertionError);
}

TEST_F(SegmentFactors, beyondTheInfluenceLimitThePieceMovesAsABlock)
{
    ControlSegment *side = piece.segment("Side", piece.at(6), piece.at(12), AlongY);
    side->getFrameSegment()->getInfluenceAreaPercent() = 60.0;
    CDbPointVOR *inside = piece.group()->addOwnVector(GeoPoint2D(10.0, 40.0));
    EXPECT_NEAR(side->getDisplacementFactor(piece.at(21)), 0.5, 1e-12);
    EXPECT_EQ(side->getDisplacementFactor(piece.at(20)), 1.0); // two thirds up
    EXPECT_EQ(side->getDisplacementFactor(inside), 1.0);
    EXPECT_NEAR(side->getDisplacementFactor(piece.at(10)), 2.0 / 3.0, 1e-12); // its own stretch does not
}

TEST_F(SegmentFactors, whatLiesBeforeTheSegmentTakesANegativePart)
{
    ControlSegment *upper = piece.segment("Upper", piece.at(8), piece.at(12), AlongY);
    EXPECT_NEAR(upper->getDisplacementFactor(piece.at(6)), -0.5, 1e-12);
}

TEST_F(SegmentFactors, nearlyZeroAndNearlyOneAreExact)
{
    ControlSegment *side = piece.segment("Side", piece.at(6), piece.at(12), AlongY);
    *piece.at(0) = GeoPoint2D(0.0, 5e-04);
    *piece.at(18) = GeoPoint2D(0.0, 60.0 - 5e-04);
    EXPECT_EQ(side->getDisplacementFactor(piece.at(0)), 0.0);
    EXPECT_EQ(side->getDisplacementFactor(piece.at(18)), 1.0);
}

TEST_F(SegmentFactors, anotherContourStaysWhereItIs)
{
    GabaritObject *other = piece.group()->newGabarit();
    for (const auto &[x, y] : {std::pair(10.0, 10.0), std::pair(20.0, 10.0), std::pair(20.0, 40.0)})
        other->addContourVector(GeoPoint2D(x, y));
    ControlSegment *side = piece.segment("Side", piece.at(6), piece.at(12), AlongY);
    EXPECT_EQ(side->getDisplacementFactor(other->gabaritGetContourVector(3)), 0.0);
}

TEST_F(SegmentFactors, alongTheContourTheStretchKeepsItsOwnDisplacement)
{
    ControlSegment *side = piece.segment("Side", piece.at(6), piece.at(12), AlongContour);
    EXPECT_EQ(side->getDisplacementFactor(piece.at(9)), -1.0);
    EXPECT_EQ(side->getDisplacementFactor(piece.at(13)), 1.0);
}

TEST_F(SegmentFactors, withACenterOnlyTheStretchAndWhatLiesBehindItMove)
{
    piece.center(piece.at(3), piece.at(15));
    CDbPointVOR *inside = piece.group()->addOwnVector(GeoPoint2D(10.0, 15.0));
    ControlSegment *side = piece.segment("Side", piece.at(6), piece.at(9), AlongY);
    EXPECT_NEAR(side->getDisplacementFactor(piece.at(8)), 2.0 / 3.0, 1e-12);
    EXPECT_EQ(side->getDisplacementFactor(piece.at(10)), 0.0);
    EXPECT_EQ(side->getDisplacementFactor(inside), 0.0);

    side->getFrameSegment()->getDisplace() = AlongContour;
    EXPECT_EQ(side->getDisplacementFactor(piece.at(8)), -1.0);
    for (int place = 10; place <= 15; ++place)
        EXPECT_EQ(side->getDisplacementFactor(piece.at(place)), -1.0) << place; // as far as the axis
    EXPECT_EQ(side->getDisplacementFactor(piece.at(16)), 0.0);
    EXPECT_EQ(side->getDisplacementFactor(inside), 0.0);
}

TEST_F(SegmentFactors, theNextAttachmentIsWhatHoldsAVectorBeyondTheEnd)
{
    ControlSegment *side = piece.segment("Side", piece.at(6), piece.at(8), AlongContour);
    EXPECT_EQ(side->getAttachedNext(), nullptr);
    piece.center(piece.at(3), piece.at(15));
    EXPECT_EQ(side->getAttachedNext(), piece.at(15));
    piece.segment("Shoulder", piece.at(12), piece.at(14), AlongContour);
    EXPECT_EQ(side->getAttachedNext(), piece.at(12));
    piece.frame("Chest", piece.at(11), piece.at(19));
    EXPECT_EQ(side->getAttachedNext(), piece.at(11));
    // Something at the place of the end holds nothing behind it.
    *piece.at(9) = GeoPoint2D(40.0, 20.0);
    piece.frame("Here", piece.at(9), nullptr);
    EXPECT_EQ(side->getAttachedNext(), piece.at(11));
    side->changeSegmentOrientation();
    EXPECT_EQ(side->getAttachedNext(), piece.at(3));
}

TEST_F(SegmentFactors, alongTheContourTheStretchBehindGivesWayInProportion)
{
    piece.center(piece.at(3), piece.at(15));
    ControlSegment *side = piece.segment("Side", piece.at(6), piece.at(9), AlongContour);
    piece.frame("Chest", piece.at(12), piece.at(18));
    GeoPoint2D out;
    EXPECT_EQ(side->calculateDisplacementContourLine(33.0, &out), Msg_Converged);
    EXPECT_EQ(str(out), "0.00 3.00");
    EXPECT_NEAR(piece.at(10)->mDisplacementY, 2.0F, 1e-5F);
    EXPECT_NEAR(piece.at(11)->mDisplacementY, 1.0F, 1e-5F);
    EXPECT_EQ(piece.at(12)->mDisplacementY, 0.0F);
    out = GeoPoint2D(7.0, 7.0);
    EXPECT_EQ(side->calculateDisplacementContourLine(60.0, &out), Msg_Impossible); // nothing left, exactly
    EXPECT_EQ(str(out), "7.00 7.00");
    EXPECT_EQ(side->calculateDisplacementContourLine(75.0, &out), Msg_Impossible);
    EXPECT_THROW(side->calculateDisplacementContourLine(33.0, nullptr), AssertionError);
}

TEST_F(SegmentFactors, anAttachmentRightBehindTheEndIsNotMoved)
{
    piece.center(piece.at(3), piece.at(15));
    ControlSegment *side = piece.segment("Side", piece.at(6), piece.at(9), AlongContour);
    piece.frame("Chest", piece.at(10), piece.at(20));
    piece.at(10)->mDisplacementY = 5.0F;
    GeoPoint2D out;
    EXPECT_EQ(side->calculateDisplacementContourLine(33.0, &out), Msg_Converged);
    EXPECT_EQ(piece.at(10)->mDisplacementY, 0.0F);
}

TEST_F(SegmentFactors, alongTheContourWithACenterAnAttachmentIsNeeded)
{
    ControlSegment *half = piece.segment("Half", piece.at(3), piece.at(15), AlongContour);
    GeoPoint2D out;
    EXPECT_EQ(half->calculateDisplacementContourLine(110.0, &out), Msg_Converged);
    // The ends of the axis are the ends of the segment, and nothing else holds the contour.
    piece.center(piece.at(3), piece.at(15));
    EXPECT_THROW(half->calculateDisplacementContourLine(110.0, &out), AssertionError);
    EXPECT_THROW(piece.changeMeasures(half, plus(piece.measuresOf(half), 1.0)), AssertionError);
    EXPECT_TRUE(standsInTheNest(piece.group()));
    // The other displacements never ask for it.
    half->getFrameSegment()->getDisplace() = AlongLine;
    EXPECT_NE(piece.changeMeasures(half, plus(piece.measuresOf(half), 1.0), ModifyLevel_Nest),
              Msg_Impossible);
}

TEST_F(SegmentFactors, aLongerSegmentGoesOnInTheDirectionItHas)
{
    ControlSegment *rightwards = piece.segment("Rightwards", piece.at(0), piece.at(6), AlongX);
    EXPECT_EQ(piece.changeMeasures(rightwards, plus(piece.measuresOf(rightwards), 4.0), ModifyLevel_Nest),
              Msg_Converged);
    EXPECT_EQ(str(*piece.at(6)), "44.00 0.00");
    ControlSegment *leftwards = piece.segment("Leftwards", piece.at(12), piece.at(18), AlongX);
    EXPECT_EQ(piece.changeMeasures(leftwards, plus(piece.measuresOf(leftwards), 4.0), ModifyLevel_Nest),
              Msg_Converged);
    EXPECT_EQ(str(*piece.at(18)), "-4.00 60.00");
    ControlSegment *downwards = piece.segment("Downwards", piece.at(18), piece.at(0), AlongY);
    EXPECT_EQ(piece.changeMeasures(downwards, plus(piece.measuresOf(downwards), 4.0), ModifyLevel_Nest),
              Msg_Converged);
    EXPECT_EQ(str(*piece.at(0)), "-4.00 -4.00");
}

// One segment length before vector 1 the factor is the mark: the vector keeps an old displacement.
TEST_F(SegmentFactors, aVectorExactlyOneLengthBeforeTheSegmentKeepsItsOldDisplacement)
{
    ControlSegment *upper = piece.segment("Upper", piece.at(9), piece.at(12), AlongY);
    ASSERT_EQ(upper->getDisplacementFactor(piece.at(6)), -1.0);
    piece.at(6)->mDisplacementX = 2.0F;
    piece.at(6)->mDisplacementY = 0.0F;
    EXPECT_EQ(piece.changeMeasures(upper, plus(piece.measuresOf(upper), 3.0), ModifyLevel_Nest),
              Msg_Converged);
    EXPECT_EQ(str(*piece.at(6)), "42.00 0.00");
    EXPECT_EQ(str(*piece.at(7)), "40.00 8.00");
}

TEST_F(SegmentFactors, notchesAndInnerPointsFollowThePiece)
{
    piece.group()->addNotch(piece.at(9));
    CDbPointVOR *inside = piece.group()->addOwnVector(GeoPoint2D(10.0, 30.0));
    ControlSegment *side = piece.segment("Side", piece.at(6), piece.at(12), AlongY);
    EXPECT_EQ(piece.changeMeasures(side, plus(piece.measuresOf(side), 6.0)), Msg_Converged);
    EXPECT_EQ(str(*piece.at(9)), "40.00 33.00");
    EXPECT_EQ(str(*inside), "10.00 33.00");
    EXPECT_EQ(str(*piece.at(18)), "0.00 66.00");
}

} // namespace
