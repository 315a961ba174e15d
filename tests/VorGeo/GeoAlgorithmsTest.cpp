// The questions asked of points, lines and segments.
#include "GeoTestSupport.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

using namespace VorSystem;
using support::anyPoint;
using support::isFinite;

TEST(GeoAlgorithms, equalVectorAllowsAHundredThousandthInEachCoordinate)
{
    const GeoPoint2D origin;

    EXPECT_TRUE(Geo::equalVector(origin, GeoPoint2D(1e-5, -1e-5)));
    EXPECT_FALSE(Geo::equalVector(origin, GeoPoint2D(1.01e-5, 0.0)));
    EXPECT_FALSE(Geo::equalVector(origin, GeoPoint2D(0.0, 1.01e-5)));
    EXPECT_TRUE(Geo::equalVectorDelta(origin, GeoPoint2D(0.5, -0.5), 0.5));
    EXPECT_FALSE(Geo::equalVectorDelta(origin, GeoPoint2D(0.5, -0.51), 0.5));
}

TEST(GeoAlgorithms, isBetweenIncludesTheEndsAndAMillionth)
{
    const GeoPoint2D a(0.0, 0.0), b(10.0, 0.0);
    const struct {
        GeoPoint2D p;
        bool isBetween;
    } cases[] = {
        {{5.0, 0.0}, true},    {{0.0, 0.0}, true},    {{10.0, 0.0}, true}, // inside, ends
        {{-9e-7, 0.0}, true},  {{10.0, 9e-7}, true},  {{5.0, -9e-7}, true},
        {{-2e-6, 0.0}, false}, {{10.0, 2e-6}, false}, {{5.0, 2e-6}, false},
        {{15.0, 0.0}, false},  {{-5.0, 0.0}, false},  {{5.0, 1.0}, false},
    };
    for (const auto &row : cases) {
        EXPECT_EQ(Geo::isBetween(a, row.p, b), row.isBetween) << testing::PrintToString(row.p);
        EXPECT_EQ(Geo::isBetween(b, row.p, a), row.isBetween) << testing::PrintToString(row.p);
    }
    EXPECT_TRUE(Geo::isBetween(a, a, a));
    EXPECT_FALSE(Geo::isBetween(a, b, a));
}

TEST(GeoAlgorithms, betweenDeltaIsTheDistanceToTheSegment)
{
    const GeoPoint2D a(0.0, 0.0), b(10.0, 0.0);

    EXPECT_TRUE(Geo::betweenDelta(a, GeoPoint2D(5.0, 2.0), b, 2.0));
    EXPECT_FALSE(Geo::betweenDelta(a, GeoPoint2D(5.0, 2.1), b, 2.0));
    EXPECT_TRUE(Geo::betweenDelta(a, GeoPoint2D(13.0, 4.0), b, 5.0)); // beyond the end: distance to it
    EXPECT_FALSE(Geo::betweenDelta(a, GeoPoint2D(13.0, 4.1), b, 5.0));
    EXPECT_TRUE(Geo::betweenDelta(a, GeoPoint2D(3.0, 4.0), a, 5.0)); // a single point
    EXPECT_FALSE(Geo::betweenDelta(a, a, b, -1.0));
}

TEST(GeoAlgorithms, projectionOnALineWithoutLengthIsItsPoint)
{
    const GeoPoint2D a(2.0, 3.0);

    EXPECT_EQ(Geo::projection(GeoPoint2D(9.0, 9.0), a, a), a);
    EXPECT_EQ(Geo::projection(GeoPoint2D(-5.0, 9.0), GeoPoint2D(0.0, 0.0), GeoPoint2D(2.0, 0.0)),
              GeoPoint2D(-5.0, 0.0));
}

TEST(GeoAlgorithms, scaleProjectedIsZeroAtAOneAtBAndGoesOnBeyond)
{
    const GeoPoint2D a(1.0, 1.0), b(5.0, 1.0);

    EXPECT_EQ(Geo::scaleProjected(a, b, GeoPoint2D(1.0, 8.0)), 0.0);
    EXPECT_EQ(Geo::scaleProjected(a, b, GeoPoint2D(5.0, -8.0)), 1.0);
    EXPECT_EQ(Geo::scaleProjected(a, b, GeoPoint2D(-3.0, 1.0)), -1.0);
    EXPECT_EQ(Geo::scaleProjected(a, b, GeoPoint2D(13.0, 1.0)), 3.0);
    EXPECT_EQ(Geo::scaleProjected(a, a, b), 0.0);
}

TEST(GeoAlgorithms, linesAreParallelUpToTheSineOfABillionth)
{
    const GeoPoint2D a(0.0, 0.0), b(100.0, 0.0), c(0.0, 5.0);

    EXPECT_TRUE(Geo::isParallelLine(a, b, c, GeoPoint2D(-100.0, 5.0)));
    EXPECT_TRUE(Geo::isParallelLine(a, b, a, GeoPoint2D(1000.0, 0.9e-6)));
    EXPECT_FALSE(Geo::isParallelLine(a, b, a, GeoPoint2D(1000.0, 1.1e-6)));
    EXPECT_FALSE(Geo::isParallelLine(a, b, a, c));
    EXPECT_TRUE(Geo::isParallelLine(a, a, b, c)); // a line without length is parallel to all
    EXPECT_TRUE(Geo::isParallelLine(a, c, b, b));
}

TEST(GeoAlgorithms, interLineIsTheCrossingOrTheFirstPointOfParallels)
{
    const GeoPoint2D a(0.0, 0.0), b(1.0, 0.0);

    EXPECT_EQ(Geo::interLine(a, b, GeoPoint2D(7.0, 5.0), GeoPoint2D(7.0, 9.0)), GeoPoint2D(7.0, 0.0));
    EXPECT_EQ(Geo::interLine(b, a, GeoPoint2D(0.0, 1.0), GeoPoint2D(5.0, 1.0)), b);
    EXPECT_EQ(Geo::interLine(b, b, GeoPoint2D(0.0, 1.0), GeoPoint2D(5.0, 2.0)), b);
}

TEST(GeoAlgorithms, interSegmentsWritesTheMeetingOnly)
{
    const GeoPoint2D a(0.0, 0.0), b(4.0, 4.0);
    GeoPoint2D out(-1.0, -1.0);

    EXPECT_FALSE(Geo::interSegments(a, b, GeoPoint2D(5.0, 0.0), GeoPoint2D(5.0, 9.0), out));
    EXPECT_EQ(out, GeoPoint2D(-1.0, -1.0));
    EXPECT_TRUE(Geo::interSegments(a, b, GeoPoint2D(0.0, 4.0), GeoPoint2D(4.0, 0.0), out));
    EXPECT_TRUE(out.equalsWithin(GeoPoint2D(2.0, 2.0), 1e-12));
    EXPECT_TRUE(Geo::interSegments(a, b, GeoPoint2D(4.0, 4.0), GeoPoint2D(4.0, 0.0), out));
    EXPECT_EQ(out, b);
}

TEST(GeoAlgorithms, interSegmentsMayWriteOverAnArgumentAndLeavesItsMark)
{
    GeoPoint2D a(0.0, 0.0), b(4.0, 4.0), c(0.0, 2.0), d(4.0, 2.0);
    d.setMark(3);

    EXPECT_TRUE(Geo::interSegments(a, b, c, d, d));
    EXPECT_TRUE(d.equalsWithin(GeoPoint2D(2.0, 2.0), 1e-12));
    EXPECT_EQ(d.mark(), 3);
    GeoPoint2D end(4.0, 4.0);
    EXPECT_TRUE(Geo::interSegments(a, end, b, GeoPoint2D(4.0, 0.0), end));
    EXPECT_EQ(end, b);
}

TEST(GeoAlgorithms, unitDistanceGoesFromOriginAlongAMinusB)
{
    const GeoPoint2D origin(1.0, 1.0), a(4.0, 0.0), b(0.0, 0.0);

    EXPECT_EQ(Geo::vectorManagementUnitDist(origin, 2.5, a, b), GeoPoint2D(3.5, 1.0));
    EXPECT_EQ(Geo::vectorManagementUnitDist(origin, -2.5, a, b), GeoPoint2D(-1.5, 1.0));
    EXPECT_EQ(Geo::vectorManagementUnitDist(origin, 0.0, a, b), origin);
    EXPECT_EQ(Geo::vectorManagementUnitDist(origin, 2.5, a, a), origin);
}

RC_GTEST_PROP(GeoAlgorithmsProperties, everyAnswerToFinitePointsIsFinite, ())
{
    const GeoPoint2D a = *anyPoint(), b = *anyPoint(), c = *anyPoint(), d = *anyPoint();
    const double dist = *rc::gen::inRange(-1000000, 1000000);
    GeoPoint2D out;

    RC_ASSERT(std::isfinite(a.distance(b)));
    RC_ASSERT(isFinite(Geo::projection(a, b, c)));
    RC_ASSERT(std::isfinite(Geo::scaleProjected(a, b, c)));
    RC_ASSERT(isFinite(Geo::interLine(a, b, c, d)));
    RC_ASSERT(isFinite(Geo::vectorManagementUnitDist(a, dist, b, c)));
    RC_ASSERT(std::isfinite(Geo::distanceToSegment(a, b, c)));
    Geo::interSegments(a, b, c, d, out);
    RC_ASSERT(isFinite(out));
}

TEST(GeoAlgorithms, pointsHardlyApartGiveFiniteAnswersToo)
{
    const GeoPoint2D far(1e6, -1e6), origin;
    for (double step = 1.0; step > 0.0; step /= 10.0) {
        const GeoPoint2D next(step, step);
        EXPECT_TRUE(std::isfinite(Geo::scaleProjected(origin, next, far))) << step;
        EXPECT_TRUE(isFinite(Geo::projection(far, origin, next))) << step;
        EXPECT_TRUE(isFinite(Geo::interLine(origin, next, far, GeoPoint2D(1e6, 0.0)))) << step;
        EXPECT_TRUE(isFinite(Geo::vectorManagementUnitDist(far, 1e6, next, origin))) << step;
    }
}

RC_GTEST_PROP(GeoAlgorithmsProperties, theFootIsOnTheLineAndSquareToThePoint, ())
{
    const GeoPoint2D p = *support::pointOnGrid(), a = *support::pointOnGrid(), b = *support::pointOnGrid();
    RC_PRE(a != b);

    const GeoPoint2D foot = Geo::projection(p, a, b);
    const GeoPoint2D line = b - a, offset = p - foot;
    RC_ASSERT(std::abs(line.mX * offset.mX + line.mY * offset.mY) <= 1e-9);
    const double t = Geo::scaleProjected(a, b, p);
    RC_ASSERT(foot.equalsWithin(GeoPoint2D(a.mX + t * line.mX, a.mY + t * line.mY), 1e-9));
    // A shift far away changes nothing but the digits that are left.
    const auto moved = [](const GeoPoint2D &q) { return GeoPoint2D(q.mX + 9e5, q.mY - 9e5); };
    RC_ASSERT(Geo::projection(moved(p), moved(a), moved(b)).equalsWithin(moved(foot), 1e-8));
}

RC_GTEST_PROP(GeoAlgorithmsProperties, crossingsLieOnBothLines, ())
{
    const GeoPoint2D a = *support::pointOnGrid(), b = *support::pointOnGrid();
    const GeoPoint2D c = *support::pointOnGrid(), d = *support::pointOnGrid();
    RC_PRE(!Geo::isParallelLine(a, b, c, d));

    const GeoPoint2D crossing = Geo::interLine(a, b, c, d);
    RC_ASSERT(crossing.equalsWithin(Geo::projection(crossing, a, b), 1e-9));
    RC_ASSERT(crossing.equalsWithin(Geo::projection(crossing, c, d), 1e-9));
}

RC_GTEST_PROP(GeoAlgorithmsProperties, betweenDeltaAgreesWithAWalkAlongTheSegment, ())
{
    const GeoPoint2D a = *support::pointOnGrid(), p = *support::pointOnGrid(), b = *support::pointOnGrid();
    double nearest = p.distance(a);
    constexpr int kSteps = 400;
    for (int i = 1; i <= kSteps; ++i) {
        const double t = static_cast<double>(i) / kSteps;
        nearest =
            std::min(nearest, p.distance(GeoPoint2D(a.mX + t * (b.mX - a.mX), a.mY + t * (b.mY - a.mY))));
    }
    const double distance = Geo::distanceToSegment(p, a, b);
    RC_ASSERT(distance <= nearest + 1e-12);
    RC_ASSERT(nearest <= distance + a.distance(b) / kSteps);
    RC_ASSERT(Geo::betweenDelta(a, p, b, distance));
    RC_ASSERT(!Geo::betweenDelta(a, p, b, distance - 1e-9));
}
