// Triangles: which points they contain, and the way there and back through coordinates.
#include "GeoTestSupport.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>
#include <sstream>

using namespace VorSystem;

namespace
{

void PrintTo(const TripletReal &triplet, std::ostream *stream)
{
    *stream << triplet.mFirst << " " << triplet.mSecond << " " << triplet.mThird;
}

std::string str(const TripletReal &triplet)
{
    std::ostringstream stream;
    PrintTo(triplet, &stream);
    return stream.str();
}

double distanceToTriangle(const GeoPoint2D &p, const GeoPoint2D &a, const GeoPoint2D &b, const GeoPoint2D &c)
{
    const auto turn = [&p](const GeoPoint2D &from, const GeoPoint2D &to) {
        return (to.mX - from.mX) * (p.mY - from.mY) - (to.mY - from.mY) * (p.mX - from.mX);
    };
    const double sides[] = {turn(a, b), turn(b, c), turn(c, a)};
    const bool isLeft = sides[0] > 0.0 && sides[1] > 0.0 && sides[2] > 0.0;
    const bool isRight = sides[0] < 0.0 && sides[1] < 0.0 && sides[2] < 0.0;
    if (isLeft || isRight)
        return 0.0;
    return std::min(
        {Geo::distanceToSegment(p, a, b), Geo::distanceToSegment(p, b, c), Geo::distanceToSegment(p, c, a)});
}

bool isWeight(double value)
{
    return value >= 0.0 && value <= 1.0;
}

} // namespace

TEST(TrianglePoint, cornersSidesAndInsideHaveTheirCoordinates)
{
    const TrianglePoint triangle({0.0, 0.0}, {4.0, 0.0}, {0.0, 4.0});
    const struct {
        GeoPoint2D p;
        const char *coordinates;
    } cases[] = {
        {{0.0, 0.0}, "1 0 0"},     {{4.0, 0.0}, "0 1 0"},     {{0.0, 4.0}, "0 0 1"},
        {{2.0, 0.0}, "0.5 0.5 0"}, {{2.0, 2.0}, "0 0.5 0.5"}, {{1.0, 1.0}, "0.5 0.25 0.25"},
    };
    for (const auto &row : cases) {
        TripletReal coordinates(0.0, 0.0, 1.0);
        EXPECT_TRUE(triangle.contains(row.p, coordinates));
        EXPECT_EQ(
            str({std::round(coordinates.mFirst * 1e9) / 1e9, std::round(coordinates.mSecond * 1e9) / 1e9,
                 std::round(coordinates.mThird * 1e9) / 1e9}),
            row.coordinates);
    }
}

TEST(TrianglePoint, reachesTwoMillionthsBeyondItsSides)
{
    const TrianglePoint triangle({0.0, 0.0}, {4.0, 0.0}, {0.0, 4.0});
    TripletReal coordinates(0.0, 0.0, 1.0);

    EXPECT_TRUE(triangle.contains({2.0, -1.9e-6}, coordinates));
    EXPECT_EQ(str(coordinates), "0.5 0.5 0"); // those of the nearest point of the side
    EXPECT_TRUE(triangle.contains({-1.3e-6, -1.3e-6}, coordinates));
    EXPECT_EQ(str(coordinates), "1 0 0");
}

TEST(TrianglePoint, writesNoCoordinatesOfAPointOutside)
{
    const TrianglePoint triangle({0.0, 0.0}, {4.0, 0.0}, {0.0, 4.0});
    TripletReal coordinates(0.25, 0.25, 0.5);

    EXPECT_FALSE(triangle.contains({2.0, -2.1e-6}, coordinates));
    EXPECT_FALSE(triangle.contains({-1.9e-6, -1.9e-6}, coordinates)); // within reach in each coordinate only
    EXPECT_FALSE(triangle.contains({3.0, 3.0}, coordinates));
    EXPECT_FALSE(triangle.contains({std::nan(""), 1.0}, coordinates));
    EXPECT_EQ(str(coordinates), "0.25 0.25 0.5");
}

TEST(TrianglePoint, flatTrianglesContainTheirLineAndPointsTheirPlace)
{
    TripletReal coordinates(0.0, 0.0, 1.0);

    const TrianglePoint flat({0.0, 0.0}, {4.0, 0.0}, {10.0, 0.0});
    EXPECT_TRUE(flat.contains({2.0, 1e-6}, coordinates));
    EXPECT_TRUE(flat.Calc_Point2D(coordinates).equalsWithin({2.0, 0.0}, 1e-12));
    EXPECT_TRUE(flat.contains({7.0, 0.0}, coordinates));
    EXPECT_TRUE(flat.Calc_Point2D(coordinates).equalsWithin({7.0, 0.0}, 1e-12));
    EXPECT_FALSE(flat.contains({10.1, 0.0}, coordinates));

    const TrianglePoint point({3.0, 3.0}, {3.0, 3.0}, {3.0, 3.0});
    EXPECT_TRUE(point.contains({3.0, 3.0 - 1e-6}, coordinates));
    EXPECT_EQ(str(coordinates), "1 0 0");
    EXPECT_FALSE(point.contains({3.0, 2.9}, coordinates));
}

TEST(TrianglePoint, coordinatesLeadBackInASliver)
{
    // Quotients of areas would put such a point up to centimetres along the side.
    for (double height = 1.0; height > 1e-16; height /= 10.0) {
        const TrianglePoint sliver({0.1, 0.3}, {100.1, 7.3}, {37.1, 0.3 + 0.07 * 37.0 + height});
        for (int i = 1; i < 100; ++i) {
            const GeoPoint2D point(0.1 + i, 0.3 + 0.07 * i + 0.5 * height * (1.0 - i / 100.0) * i / 100.0);
            TripletReal coordinates(0.0, 0.0, 1.0);
            ASSERT_TRUE(sliver.contains(point, coordinates)) << height << " " << i;
            EXPECT_TRUE(sliver.Calc_Point2D(coordinates).equalsWithin(point, 1e-8)) << height << " " << i;
        }
    }
}

TEST(TrianglePoint, cornersOwnCoordinatesGiveExactlyTheCorner)
{
    const GeoPoint2D a(0.1, 0.7), b(123456.789, -0.3), c(1.0 / 3.0, 1e6);
    TrianglePoint triangle;
    triangle = TrianglePoint(a, b, c);

    EXPECT_EQ(triangle.Calc_Point2D({1.0, 0.0, 0.0}), a);
    EXPECT_EQ(triangle.Calc_Point2D({0.0, 1.0, 0.0}), b);
    EXPECT_EQ(triangle.Calc_Point2D({0.0, 0.0, 1.0}), c);
}

RC_GTEST_PROP(TrianglePointProperties, containsIsTheDistanceToTheClosedTriangle, ())
{
    const GeoPoint2D a = *support::anyPoint(), b = *support::anyPoint(), c = *support::anyPoint();
    const GeoPoint2D near = *rc::gen::element(a, b, c, GeoPoint2D((a.mX + b.mX) / 2, (a.mY + b.mY) / 2));
    const double aside = *rc::gen::element(0.0, 1e-9, 1.5e-6, 2.5e-6, 0.1);
    const GeoPoint2D p = *rc::gen::element(near, GeoPoint2D(near.mX + aside, near.mY), *support::anyPoint());

    TripletReal coordinates(0.0, 0.0, 1.0);
    const bool isContained = TrianglePoint(a, b, c).contains(p, coordinates);
    const double distance = distanceToTriangle(p, a, b, c);
    if (std::abs(distance - TrianglePoint::kReach) > 1e-8) // nearer the limit rounding at 1e6 cm decides
        RC_ASSERT(isContained == (distance < TrianglePoint::kReach));
    if (!isContained)
        return;
    RC_ASSERT(isWeight(coordinates.mFirst) && isWeight(coordinates.mSecond) && isWeight(coordinates.mThird));
    RC_ASSERT(std::abs(coordinates.mFirst + coordinates.mSecond + coordinates.mThird - 1.0) <= 1e-15);
    RC_ASSERT(TrianglePoint(a, b, c).Calc_Point2D(coordinates).equalsWithin(p, distance + 1e-8));
}

RC_GTEST_PROP(TrianglePointProperties, aPointKeepsItsPlaceInATriangleThatMoves, ())
{
    const GeoPoint2D a = *support::pointOnGrid(), b = *support::pointOnGrid(), c = *support::pointOnGrid();
    const int u = *rc::gen::inRange(0, 17), v = *rc::gen::inRange(0, 17 - u);
    const auto at = [u, v](const GeoPoint2D &p, const GeoPoint2D &q, const GeoPoint2D &r) {
        return GeoPoint2D(p.mX + (u * (q.mX - p.mX) + v * (r.mX - p.mX)) / 16.0,
                          p.mY + (u * (q.mY - p.mY) + v * (r.mY - p.mY)) / 16.0);
    };
    // Sheared and shifted: linear, so that flat triangles agree as well.
    const auto moved = [](const GeoPoint2D &p) {
        return GeoPoint2D(p.mX + 0.5 * p.mY + 30.0, 2.0 * p.mY - 7.0);
    };

    TripletReal coordinates(0.0, 0.0, 1.0);
    RC_ASSERT(TrianglePoint(a, b, c).contains(at(a, b, c), coordinates));
    const GeoPoint2D there = TrianglePoint(moved(a), moved(b), moved(c)).Calc_Point2D(coordinates);
    RC_ASSERT(there.equalsWithin(moved(at(a, b, c)), 1e-9));
}
