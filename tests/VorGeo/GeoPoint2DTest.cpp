// Points: coordinates, the exact comparison and the one with tolerance, the mark.
#include "GeoTestSupport.h"

#include <gtest/gtest.h>

using namespace VorSystem;

namespace
{

// Seen by a static object of another file before main begins.
const GeoPoint2D originSeenEarly = GeoPoint2D::Point2D_Nul;

} // namespace

TEST(GeoPoint2D, aNewPointIsTheOrigin)
{
    EXPECT_EQ(GeoPoint2D(), GeoPoint2D::Point2D_Nul);
    EXPECT_EQ(GeoPoint2D::Point2D_Nul, GeoPoint2D(0.0, 0.0));
    EXPECT_EQ(originSeenEarly, GeoPoint2D(0.0, 0.0));
}

TEST(GeoPoint2D, fieldsAndAccessorsAreTheSameCoordinates)
{
    GeoPoint2D point(1.5, -2.0);
    point.mX += 1.0;
    point.setY(4.0);

    EXPECT_EQ(point.x(), 2.5);
    EXPECT_EQ(point.mY, 4.0);
    point.setX(7.0);
    EXPECT_EQ(point.mX, 7.0);
}

TEST(GeoPoint2D, equalMeansTheSameBits)
{
    const GeoPoint2D point(1.0, 2.0);

    EXPECT_TRUE(point == GeoPoint2D(1.0, 2.0));
    EXPECT_FALSE(point == GeoPoint2D(std::nextafter(1.0, 2.0), 2.0));
    EXPECT_TRUE(point != GeoPoint2D(1.0, std::nextafter(2.0, 3.0)));
}

TEST(GeoPoint2D, differenceIsTheStepFromTheOtherPoint)
{
    EXPECT_EQ(GeoPoint2D(5.0, 1.0) - GeoPoint2D(2.0, 3.0), GeoPoint2D(3.0, -2.0));
}

TEST(GeoPoint2D, distanceIsEuclidean)
{
    EXPECT_EQ(GeoPoint2D(1.0, 1.0).distance(GeoPoint2D(4.0, 5.0)), 5.0);
    EXPECT_EQ(GeoPoint2D(1.0, 1.0).distance(GeoPoint2D(1.0, 1.0)), 0.0);
}

TEST(GeoPoint2D, equalsWithinAsksEachCoordinate)
{
    const GeoPoint2D origin;

    EXPECT_TRUE(
        GeoPoint2D(6e-05, -6e-05).equalsWithin(origin, 6e-05)); // farther than 6e-05, yet both are within
    EXPECT_FALSE(GeoPoint2D(6.1e-05, 0.0).equalsWithin(origin, 6e-05));
    EXPECT_FALSE(GeoPoint2D(0.0, -6.1e-05).equalsWithin(origin, 6e-05));
    EXPECT_FALSE(GeoPoint2D(std::nan(""), 0.0).equalsWithin(origin, 6e-05));
}

TEST(GeoPoint2D, equalsWithinMayBeOverridden)
{
    struct Everywhere : GeoPoint2D {
        bool equalsWithin(const GeoPoint2D &, double) const override { return true; }
    };
    const Everywhere place;
    const GeoPoint2D &point = place;

    EXPECT_TRUE(point.equalsWithin(GeoPoint2D(100.0, 0.0), 0.0));
}

TEST(GeoPoint2D, projectedIsTheFootOnTheLine)
{
    const GeoPoint2D foot = GeoPoint2D(3.0, 7.0).projected(GeoPoint2D(0.0, 1.0), GeoPoint2D(2.0, 1.0));
    EXPECT_EQ(foot, GeoPoint2D(3.0, 1.0));
}

TEST(GeoObject, markIsMinusOneInANewObjectAndCopiedWithTheObject)
{
    GeoPoint2D point(1.0, 2.0);
    EXPECT_EQ(point.mark(), -1);
    EXPECT_EQ(GeoRectangle().mark(), -1);
    EXPECT_EQ(TrianglePoint().mark(), -1);

    point.setMark(12);
    const GeoPoint2D copy = point;
    EXPECT_EQ(copy.mark(), 12);
    GeoPoint2D assigned;
    assigned = point;
    EXPECT_EQ(assigned.mark(), 12);
    EXPECT_EQ((point - copy).mark(), -1);
}

TEST(GeoCurve, aCopyHasPointsOfItsOwn)
{
    GeoCurve curve({GeoPoint2D(0.0, 0.0), GeoPoint2D(3.0, 4.0), GeoPoint2D(3.0, 10.0)});
    GeoCurve copy;
    copy = curve;
    curve = GeoCurve();

    EXPECT_EQ(copy.length(), 11.0);
    EXPECT_EQ(copy.points().size(), 3u);
    EXPECT_EQ(curve.length(), 0.0);
    EXPECT_EQ(GeoCurve({GeoPoint2D(5.0, 5.0)}).length(), 0.0);
}
