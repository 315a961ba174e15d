// A stretch of contour: its length, clicks, and its element.

#include <support/ControlledPiece.h>

#include <VorGeo/GeoRectangle.h>

#include <gtest/gtest.h>

#include <cmath>

using namespace VorSystem;
using namespace support;

namespace
{

constexpr auto AlongX = FrameSegment::Displace_AlongX;
constexpr auto AlongY = FrameSegment::Displace_AlongY;
constexpr auto AlongLine = FrameSegment::Displace_AlongLine;

// A 40 x 60 cm rectangle in seven sizes, every edge in six parts.
class ControlSegmentOnRectangle : public testing::Test
{
protected:
    ControlSegmentOnRectangle() : piece(rectangle(40.0, 60.0, 6, 1.0)) {}

    ControlSegment *between(int from, int to)
    {
        return piece.segment("Segment", piece.at(from), piece.at(to), AlongLine);
    }

    ControlledPiece piece;
};

TEST_F(ControlSegmentOnRectangle, aSegmentWithinTenDegreesOfAnAxisMovesAlongIt)
{
    EXPECT_EQ(ControlSegment::mTestShifts, std::tan(0.17453292519943295));
    EXPECT_NEAR(ControlSegment::mTestShifts, 0.17632698070846498, 1e-15);
    struct {
        double dx, dy;
        FrameSegment::eDisplaceType type;
    } const cases[] = {
        {10.0, 0.0, AlongX},     {-10.0, 0.0, AlongX},    {0.0, 10.0, AlongY},   {0.0, 0.0, AlongY},
        {1e-05, 10.0, AlongY},   {1e-05, 0.0, AlongY},    {10.0, 1e-05, AlongX}, {10.0, 1.75, AlongX},
        {10.0, -1.75, AlongX},   {10.0, 1.77, AlongLine}, {1.75, 10.0, AlongY},  {-1.75, 10.0, AlongY},
        {1.77, 10.0, AlongLine}, {10.0, 10.0, AlongLine},
    };
    ControlSegment *segment = between(0, 6);
    for (const auto &c : cases) {
        *piece.at(6) = GeoPoint2D(c.dx, c.dy);
        EXPECT_EQ(segment->defectMovesAlong(), c.type) << c.dx << ' ' << c.dy;
    }
    EXPECT_THROW((void)ControlSegment(piece.skeleton()).defectMovesAlong(), AssertionError);
}

TEST_F(ControlSegmentOnRectangle, aMeasureIsTheLengthOfTheStretchInEverySize)
{
    EXPECT_EQ(str(piece.measuresOf(between(6, 12))), "54.00 56.00 58.00 [60.00] 62.00 64.00 66.00");
    EXPECT_EQ(between(3, 9)->getMeasures(-1), 50.0); // round the corner
    EXPECT_EQ(between(9, 3)->getMeasures(-1), 50.0); // and back
    ControlSegment bare(piece.skeleton());
    EXPECT_EQ(bare.getMeasures(-1), 0.0);
    EXPECT_EQ(bare.getMeasures(2), 0.0);
    EXPECT_EQ(bare.getMeasures(piece.gradation()).size(), 7);
}

TEST_F(ControlSegmentOnRectangle, oneSizeAgreesWithTheListAndNothingChanges)
{
    ControlSegment *segment = between(3, 9);
    const auto before = placesOf(piece.group(), piece.gradation());
    const ValuesAccordingSizes all = piece.measuresOf(segment);
    for (short size = 0; size < 7; ++size)
        EXPECT_EQ(segment->getMeasures(size), all.mValues.at(size)) << size;
    EXPECT_EQ(segment->getMeasures(-1), all.mValues.at(3));
    EXPECT_EQ(largestDistance(before, placesOf(piece.group(), piece.gradation())), 0.0);
    EXPECT_TRUE(standsInTheNest(piece.group()));
    EXPECT_EQ(segment->getMeasures(static_cast<const GradationData *>(nullptr)), QListEx<double>{50.0});
}

TEST_F(ControlSegmentOnRectangle, aReadingTouchesTheContourAlone)
{
    CDbPointVOR *inside = piece.group()->addOwnVector(GeoPoint2D(10.0, 10.0));
    inside->mDisplacementX = 7.0F;
    ControlSegment *segment = between(3, 9);
    CDbPointVOR::setVectorInIrregular(inside, piece.gradation());
    CDbPointVOR::swapEvolutionMedium(inside, 2);
    segment->getMeasures(5);
    segment->getMeasures(piece.gradation());
    EXPECT_EQ(inside->inSize(), 2);
    CDbPointVOR::recalculateEvolution(inside, 2);
    inside->destroyVectorInRegular();
}

TEST_F(ControlSegmentOnRectangle, holdsWhatLiesOnItsStretch)
{
    ControlSegment *segment = between(3, 9);
    for (int place = 0; place < 24; ++place)
        EXPECT_EQ(segment->containsVector(piece.at(place)), place >= 3 && place <= 9) << place;
    EXPECT_THROW((void)segment->containsVector(nullptr), AssertionError);
}

TEST_F(ControlSegmentOnRectangle, isHitAlongItsStretchInItsSense)
{
    for (ControlSegment *segment : {between(3, 9), between(9, 3)}) {
        const GeoPoint2D onBottom(30.0, 0.2);
        const GeoPoint2D onSide(39.8, 25.0);
        const GeoPoint2D beyond(10.0, 0.0);
        EXPECT_TRUE(segment->segmentIsOn(&onBottom, 0.3));
        EXPECT_TRUE(segment->segmentIsOn(&onSide, 0.3));
        EXPECT_FALSE(segment->segmentIsOn(&onSide, 0.1));
        EXPECT_FALSE(segment->segmentIsOn(&beyond, 0.3));
        EXPECT_THROW((void)segment->segmentIsOn(nullptr, 0.3), AssertionError);
    }
    const GeoPoint2D corner(40.0, 0.0);
    EXPECT_FALSE(between(6, 6)->segmentIsOn(&corner, 1.0));
    EXPECT_THROW((void)ControlSegment(piece.skeleton()).segmentIsOn(&corner, 1.0), AssertionError);
}

TEST_F(ControlSegmentOnRectangle, aSegmentWhoseEndsShareNoContourIsHitNowhereAndWalkedOnce)
{
    CDbPointVOR *inside = piece.group()->addOwnVector(GeoPoint2D(10.0, 10.0));
    const ControlSegment toInside(piece.at(3), inside, piece.skeleton(), nullptr);
    const ControlSegment fromInside(inside, piece.at(3), piece.skeleton(), nullptr);
    const GeoPoint2D away(70.0, 70.0);
    EXPECT_FALSE(toInside.segmentIsOn(&away, 1.0));
    EXPECT_FALSE(fromInside.segmentIsOn(&away, 1.0));
    EXPECT_EQ(toInside.getRectBounding().right(), 40.0);
    EXPECT_EQ(fromInside.getRectBounding().left(), 10.0);
    EXPECT_EQ(toInside.getAttachedNext(), nullptr);
    EXPECT_EQ(fromInside.getAttachedNext(), nullptr); // once round, and nothing held
}

TEST_F(ControlSegmentOnRectangle, boundsEncloseTheStretchAndRectanglesSelectIt)
{
    ControlSegment *segment = between(3, 9);
    const GeoRectangle bounds = segment->getRectBounding();
    EXPECT_EQ(str(GeoPoint2D(bounds.left(), bounds.bottom())), "20.00 0.00");
    EXPECT_EQ(str(GeoPoint2D(bounds.right(), bounds.top())), "40.00 30.00");

    segment->setSelected(false);
    const GeoRectangle away(GeoPoint2D(10.0, 10.0));
    const GeoRectangle inBounds(GeoPoint2D(25.0, 20.0));
    segment->selectInRectangle(&away);
    EXPECT_FALSE(segment->getSelection());
    segment->selectInRectangle(&inBounds);
    EXPECT_TRUE(segment->getSelection());
    EXPECT_THROW(segment->selectInRectangle(nullptr), AssertionError);
}

TEST_F(ControlSegmentOnRectangle, turningExchangesTheEndsAndAsksForTheSenseAnew)
{
    ControlSegment *segment = between(3, 9);
    segment->changeSegmentOrientation();
    EXPECT_EQ(segment->getVectorContour1(), piece.at(9));
    EXPECT_EQ(segment->getVectorContour2(), piece.at(3));
    EXPECT_FALSE(segment->getContourDirection1To2());
    segment->changeSegmentOrientation();
    EXPECT_TRUE(segment->getContourDirection1To2());
    ControlSegment bare(piece.skeleton());
    bare.changeSegmentOrientation();
    EXPECT_FALSE(bare.getContourDirection1To2());
}

TEST_F(ControlSegmentOnRectangle, constructorsEnterTheSkeletonAndDestructorsLeaveIt)
{
    ControlSegment *segment = between(3, 9);
    {
        ControlSegment bare(piece.skeleton());
        EXPECT_EQ(bare.getFrameSegment(), nullptr);
        bare.Set_mFrameSegment(segment->getFrameSegment());
        EXPECT_EQ(bare.Get_mFrameSegment(), segment->getFrameSegment());
        const ControlSegment carried(segment, piece.skeleton());
        EXPECT_EQ(carried.getFrameSegment(), segment->getFrameSegment());
        const ControlSegment copy(*segment);
        EXPECT_EQ(piece.skeleton()->getSegmentLists().size(), 3);
    }
    EXPECT_EQ(piece.skeleton()->getSegmentLists(), QListEx<ControlSegment *>{segment});
    EXPECT_THROW(ControlSegment(static_cast<ControlSkeleton *>(nullptr)), AssertionError);
}

TEST_F(ControlSegmentOnRectangle, aNewSetIsSoughtByName)
{
    ControlSegment *segment = between(3, 9);
    FrameSegment *own = segment->getFrameSegment();
    FrameSet other(QStringLiteral("Other"), nullptr);
    EXPECT_THROW(segment->adjustsANewFrameSet(&other), AssertionError);
    EXPECT_EQ(segment->getFrameSegment(), own);
    FrameSegment *namesake = other.newSegment(QStringLiteral("SEGMENT"));
    segment->adjustsANewFrameSet(&other);
    EXPECT_EQ(segment->getFrameSegment(), namesake);
    // A center of that name is found first, and is no segment.
    other.newCenter(QStringLiteral("Segment"));
    EXPECT_THROW(segment->adjustsANewFrameSet(&other), AssertionError);
    EXPECT_THROW(segment->adjustsANewFrameSet(nullptr), AssertionError);
}

} // namespace
