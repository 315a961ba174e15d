// Stretches and moves at their borders: one vector, no length, ends that lie elsewhere.

#include <support/Pieces.h>

#include <gtest/gtest.h>

using namespace VorSystem;
using support::Piece;

namespace
{

std::string str(const GeoPoint2D &p)
{
    char text[80];
    std::snprintf(text, sizeof text, "%.3f %.3f", p.x(), p.y());
    return text;
}

// A 40 x 60 rectangle, every edge in two parts: corners at 0, 2, 4, 6.
class HalvedRectangle : public testing::Test
{
protected:
    Piece piece = support::rectangle(40.0, 60.0, 2);
    GabaritObject &gabarit = *piece.gabarit;
};

} // namespace

TEST_F(HalvedRectangle, aStretchFromAVectorToItselfIsThatVectorAlone)
{
    for (const bool forward : {true, false}) {
        EXPECT_TRUE(gabarit.gabaritVectorBetween2Vectors(piece.at(3), piece.at(3), piece.at(3), forward));
        EXPECT_FALSE(gabarit.gabaritVectorBetween2Vectors(piece.at(4), piece.at(3), piece.at(3), forward));
        EXPECT_EQ(gabarit.getContourLength(piece.at(3), piece.at(3), piece.at(3), forward), 0.0);
        EXPECT_EQ(gabarit.getContourLength(piece.at(3), piece.at(5), piece.at(3), forward), 0.0);
    }
    piece.at(3)->mDisplacementX = 9.0F;
    piece.at(4)->mDisplacementX = 9.0F;
    gabarit.setStretchLength(piece.at(3), piece.at(3), 50.0, true, false);
    EXPECT_EQ(piece.at(3)->mDisplacementX, 0.0F);
    EXPECT_EQ(piece.at(4)->mDisplacementX, 9.0F);
}

TEST_F(HalvedRectangle, oppositeCornersAreEquallyFarAndTheWayGoesForward)
{
    bool forward = false;
    double length = 0.0;
    for (int corner = 0; corner < 8; corner += 2) {
        gabarit.contourDirection(piece.at(corner), piece.at((corner + 4) % 8), &forward, &length);
        EXPECT_TRUE(forward);
        EXPECT_EQ(length, 100.0);
    }
    gabarit.contourDirection(piece.at(1), piece.at(0), &forward, &length);
    EXPECT_FALSE(forward);
    EXPECT_EQ(length, 20.0);
    gabarit.contourDirection(piece.at(1), piece.at(0), nullptr, nullptr);
}

TEST_F(HalvedRectangle, thePivotAtTheEndOfTheStretchMovesAndItsStartIsHeld)
{
    gabarit.moveVectorContourBetween(piece.at(0), piece.at(2), piece.at(2), 0.7, -1.3, true);
    EXPECT_EQ(str(*piece.at(0)), "0.000 0.000");
    EXPECT_EQ(str(*piece.at(1)), "20.350 -0.650");
    EXPECT_EQ(str(*piece.at(2)), "40.700 -1.300");
}

TEST_F(HalvedRectangle, anEndElsewhereMovesWithThePivotUnlessItIsHeld)
{
    CDbPointVOR *elsewhere = piece.group->addOwnVector(GeoPoint2D(5.0, 5.0));
    gabarit.moveVectorContourBetween(piece.at(0), elsewhere, piece.at(0), 1.0, 2.0, true);
    EXPECT_EQ(str(*piece.at(0)), "1.000 2.000");
    EXPECT_EQ(str(*elsewhere), "5.000 5.000");
    gabarit.moveVectorContourBetween(elsewhere, piece.at(0), piece.at(0), 1.0, 2.0, false);
    EXPECT_EQ(str(*piece.at(0)), "2.000 4.000");
    EXPECT_EQ(str(*elsewhere), "6.000 7.000");
    EXPECT_EQ(str(*piece.at(1)), "20.000 0.000");
    EXPECT_EQ(str(*piece.at(7)), "0.000 30.000");
    gabarit.moveVectorContourBetween(piece.at(1), piece.at(1), piece.at(1), 1.0, 0.0, false);
    EXPECT_EQ(str(*piece.at(1)), "21.000 0.000");
}

TEST_F(HalvedRectangle, aPivotThatIsNoEndMovesNothing)
{
    gabarit.moveVectorContourBetween(piece.at(0), piece.at(2), piece.at(1), 1.0, 1.0, false);
    gabarit.moveVectorContourBetween(piece.at(0), piece.at(2), nullptr, 1.0, 1.0, false);
    EXPECT_EQ(str(*piece.at(0)), "0.000 0.000");
    EXPECT_EQ(str(*piece.at(1)), "20.000 0.000");
    EXPECT_EQ(str(*piece.at(2)), "40.000 0.000");
}

TEST_F(HalvedRectangle, aStretchWithoutLengthMovesItsEndsOnly)
{
    for (const int place : {0, 1, 2})
        *piece.at(place) = GeoPoint2D(3.0, 4.0);
    gabarit.moveVectorContourBetween(piece.at(0), piece.at(2), piece.at(2), 1.0, 1.0, true);
    EXPECT_EQ(str(*piece.at(0)), "3.000 4.000");
    EXPECT_EQ(str(*piece.at(1)), "3.000 4.000");
    EXPECT_EQ(str(*piece.at(2)), "4.000 5.000");
    *piece.at(2) = GeoPoint2D(3.0, 4.0);
    gabarit.moveVectorContourBetween(piece.at(0), piece.at(2), piece.at(0), 1.0, 1.0, false);
    EXPECT_EQ(str(*piece.at(0)), "4.000 5.000");
    EXPECT_EQ(str(*piece.at(1)), "3.000 4.000");
    EXPECT_EQ(str(*piece.at(2)), "4.000 5.000");
}

TEST_F(HalvedRectangle, aSlideNeedsTwoEndsALimitAndAnAxis)
{
    const GeoPoint2D a(0.0, 0.0);
    const GeoPoint2D b(0.0, 1.0);
    CDbPointVOR *own = piece.group->addOwnVector(GeoPoint2D(5.0, 5.0));
    EXPECT_FALSE(gabarit.moveVectorAlongContour(piece.at(0), piece.at(0), piece.at(0), &a, &b, 1.0));
    EXPECT_FALSE(gabarit.moveVectorAlongContour(piece.at(0), piece.at(2), piece.at(1), &a, &b, 1.0));
    EXPECT_FALSE(gabarit.moveVectorAlongContour(piece.at(0), piece.at(2), nullptr, &a, &b, 1.0));
    EXPECT_FALSE(gabarit.moveVectorAlongContour(piece.at(0), own, piece.at(0), &a, &b, 1.0));
    EXPECT_FALSE(gabarit.moveVectorAlongContour(piece.at(0), piece.at(2), piece.at(0), nullptr, &b, 1.0));
    EXPECT_FALSE(gabarit.moveVectorAlongContour(piece.at(0), piece.at(2), piece.at(0), &a, nullptr, 1.0));
    EXPECT_EQ(str(*piece.at(2)), "40.000 0.000");
    EXPECT_EQ(str(*own), "5.000 5.000");
}

TEST_F(HalvedRectangle, aSlideByNothingSucceedsAndTheNearestPlaceIsTaken)
{
    const GeoPoint2D a(0.0, 0.0);
    const GeoPoint2D b(0.0, 1.0);
    EXPECT_TRUE(gabarit.moveVectorAlongContour(piece.at(0), piece.at(4), piece.at(0), &a, &b, 0.0));
    EXPECT_EQ(str(*piece.at(4)), "40.000 60.000");
    // Up the side all places are 40 away from the axis: 30 away lies back on the lower edge.
    ASSERT_TRUE(gabarit.moveVectorAlongContour(piece.at(0), piece.at(4), piece.at(0), &a, &b, -10.0));
    EXPECT_EQ(str(*piece.at(4)), "30.000 0.000");
    EXPECT_EQ(str(*piece.at(2)), "12.000 0.000");
    EXPECT_EQ(str(*piece.at(0)), "0.000 0.000");
}

TEST_F(HalvedRectangle, aStretchWithoutLengthGetsNone)
{
    for (const int place : {0, 1, 2})
        *piece.at(place) = GeoPoint2D(3.0, 4.0);
    piece.at(2)->mDisplacementX = 9.0F;
    gabarit.setStretchLength(piece.at(0), piece.at(2), 50.0, true, false);
    for (const int place : {0, 1, 2})
        EXPECT_EQ(piece.at(place)->mDisplacementX, 0.0F);
    EXPECT_EQ(str(*piece.at(2)), "3.000 4.000");
}

TEST(Moves, imagesDoNotMoveAlong)
{
    const Piece piece = support::mirroredBack();
    const std::string image = str(*piece.at(14));
    piece.gabarit->moveVectorContourBetween(piece.at(0), piece.at(4), piece.at(4), 2.0, 0.0, true);
    EXPECT_EQ(piece.group->mMirror->imageOf(piece.at(4)), piece.at(14));
    EXPECT_EQ(str(*piece.at(14)), image);
}
