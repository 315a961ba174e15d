// Inside, outside and on the border of an outline, and the fan of triangles that shares its tolerance.
#include "GeoTestSupport.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

using namespace VorSystem;
using support::probe;

namespace
{

using Polygon = std::vector<GeoPoint2D>;

const Polygon square = {{0.0, 0.0}, {10.0, 0.0}, {10.0, 10.0}, {0.0, 10.0}};

bool isInSomeFanTriangle(const GeoPoint2D &point, const GeoPoint2D &middle, const Polygon &polygon)
{
    for (std::size_t i = 0; i < polygon.size(); ++i) {
        TripletReal coordinates(0.0, 0.0, 1.0);
        if (TrianglePoint(middle, polygon[i], polygon[(i + 1) % polygon.size()]).contains(point, coordinates))
            return true;
    }
    return false;
}

// Points where an answer is likely to tremble: on vertices, on edges, and a hair beside both.
GeoPoint2D delicatePoint(const Polygon &polygon)
{
    const auto index = *rc::gen::inRange<std::size_t>(0, polygon.size());
    const GeoPoint2D &from = polygon[index];
    const GeoPoint2D &to = polygon[(index + 1) % polygon.size()];
    const double t = *rc::gen::inRange(0, 9) / 8.0;
    const double aside = *rc::gen::element(0.0, 1e-16, 1e-12, 1e-9, 9.9e-7, 1e-6, 1.1e-6, 1e-5);
    const int quarter = *rc::gen::inRange(0, 8);
    return {from.mX + t * (to.mX - from.mX) + aside * std::cos(0.785398 * quarter),
            from.mY + t * (to.mY - from.mY) + aside * std::sin(0.785398 * quarter)};
}

} // namespace

TEST(PolygonProbe, tellsInsideOutsideAndBorder)
{
    const struct {
        GeoPoint2D p;
        bool isInside;
        bool isOnBorder;
    } cases[] = {
        {{5.0, 5.0}, true, false},          {{0.0, 5.0}, true, true},
        {{10.0, 10.0}, true, true},         {{5.0, 10.0 + 9e-7}, true, true},
        {{5.0, 10.0 - 9e-7}, true, true},   {{5.0, 10.0 - 2e-6}, true, false},
        {{5.0, 10.0 + 2e-6}, false, false}, {{-1.0, 0.0}, false, false},
        {{-1.0, 10.0}, false, false},       {{11.0, 5.0}, false, false},
        {{5.0, -1.0}, false, false},
    };
    for (const auto &row : cases) {
        const Geo::PolygonProbe found = probe(row.p, square);
        EXPECT_EQ(found.isInside(), row.isInside) << testing::PrintToString(row.p);
        EXPECT_EQ(found.isOnBorder(), row.isOnBorder) << testing::PrintToString(row.p);
        const Geo::PolygonProbe backwards = probe(row.p, Polygon(square.rbegin(), square.rend()));
        EXPECT_EQ(backwards.isInside(), row.isInside) << "clockwise " << testing::PrintToString(row.p);
    }
}

TEST(PolygonProbe, outlinesWithoutAnInsideHaveABorderAtMost)
{
    EXPECT_FALSE(probe(GeoPoint2D(1.0, 1.0), {}).isInside());
    EXPECT_TRUE(probe(GeoPoint2D(1.0, 1.0), {{1.0, 1.0}}).isOnBorder());
    EXPECT_FALSE(probe(GeoPoint2D(1.0, 1.1), {{1.0, 1.0}}).isInside());
    EXPECT_TRUE(probe(GeoPoint2D(1.0, 1.0), {{0.0, 0.0}, {2.0, 2.0}}).isOnBorder());
    EXPECT_FALSE(probe(GeoPoint2D(1.0, 1.1), {{0.0, 0.0}, {2.0, 2.0}}).isInside());
}

TEST(PolygonProbe, whatAnOutlineGoesRoundTwiceIsInside)
{
    const Polygon twice = {{0.0, 0.0},  {9.0, 0.0}, {9.0, 9.0}, {-3.0, 9.0},
                           {-3.0, 3.0}, {6.0, 3.0}, {6.0, 6.0}, {0.0, 6.0}};
    EXPECT_TRUE(probe(GeoPoint2D(3.0, 4.5), twice).isInside());
    EXPECT_TRUE(probe(GeoPoint2D(3.0, 1.0), twice).isInside());
    EXPECT_FALSE(probe(GeoPoint2D(-1.0, 1.0), twice).isInside());
}

RC_GTEST_PROP(PolygonProbeProperties, everyPointInsideIsInSomeTriangleOfTheFan, ())
{
    const auto polygon =
        *rc::gen::resize(12, rc::gen::nonEmpty(rc::gen::container<Polygon>(support::pointOnGrid(12))));
    const GeoPoint2D middle = *support::pointOnGrid(16);
    for (int i = 0; i < 20; ++i) {
        const GeoPoint2D point =
            *rc::gen::inRange(0, 4) == 0 ? *support::pointOnGrid(12) : delicatePoint(polygon);
        if (probe(point, polygon).isInside())
            RC_ASSERT(isInSomeFanTriangle(point, middle, polygon));
    }
}

RC_GTEST_PROP(PolygonProbeProperties, theFanHoldsFarFromTheOriginToo, ())
{
    const auto polygon =
        *rc::gen::resize(8, rc::gen::nonEmpty(rc::gen::container<Polygon>(support::anyPoint())));
    const GeoPoint2D middle = *support::anyPoint();
    const GeoPoint2D point = delicatePoint(polygon);
    if (probe(point, polygon).isInside())
        RC_ASSERT(isInSomeFanTriangle(point, middle, polygon));
}
