// How two segments meet.
#include "GeoTestSupport.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>
#include <type_traits>

using namespace VorSystem;
using support::anyPoint;

namespace
{

GeoSegment2D segment(double x1, double y1, double x2, double y2)
{
    return {GeoPoint2D(x1, y1), GeoPoint2D(x2, y2)};
}

} // namespace

TEST(GeoSegment2D, aNewOneIsThePointAtTheOriginAndMayBeMovedInto)
{
    GeoSegment2D moved;
    EXPECT_EQ(moved.start(), moved.end());

    moved = segment(1.0, 2.0, 3.0, 4.0);

    EXPECT_EQ(moved.start(), GeoPoint2D(1.0, 2.0));
    EXPECT_EQ(moved.end(), GeoPoint2D(3.0, 4.0));
    static_assert(std::is_nothrow_move_assignable<GeoSegment2D>::value, "");
}

TEST(GeoSegment2D, intersectEndpointTellsTheFourKinds)
{
    const GeoSegment2D flat = segment(0.0, 0.0, 10.0, 0.0);
    const GeoPoint2D notWritten(-7.0, -7.0);
    const struct {
        const char *what;
        GeoSegment2D other;
        int kind;
        GeoPoint2D out;
    } cases[] = {
        {"crossing in the middle       ", segment(5.0, -1.0, 5.0, 1.0), 1, {5.0, 0.0}},
        {"crossing askew               ", segment(2.0, -2.0, 6.0, 2.0), 1, {4.0, 0.0}},
        {"its end on the flat one      ", segment(3.0, 0.0, 3.0, 9.0), 2, {3.0, 0.0}},
        {"the flat one's end on it     ", segment(10.0, -5.0, 10.0, 5.0), 2, {10.0, 0.0}},
        {"end to end at an angle       ", segment(10.0, 0.0, 12.0, 3.0), 2, {10.0, 0.0}},
        {"end to end on one line       ", segment(10.0, 0.0, 20.0, 0.0), 2, {10.0, 0.0}},
        {"a point on it                ", segment(4.0, 0.0, 4.0, 0.0), 2, {4.0, 0.0}},
        {"a millionth above            ", segment(4.0, 9e-7, 4.0, 5.0), 2, {4.0, 9e-7}},
        {"overlapping in part          ", segment(5.0, 0.0, 15.0, 0.0), 3, {10.0, 0.0}},
        {"lying within                 ", segment(2.0, 0.0, 3.0, 0.0), 3, {2.0, 0.0}},
        {"the same, turned round       ", segment(10.0, 0.0, 0.0, 0.0), 3, {0.0, 0.0}},
        {"apart on one line            ", segment(10.1, 0.0, 15.0, 0.0), 0, notWritten},
        {"parallel                     ", segment(0.0, 1.0, 10.0, 1.0), 0, notWritten},
        {"a line that would cross later", segment(5.0, 1.0, 5.0, 9.0), 0, notWritten},
        {"two millionths above         ", segment(4.0, 2e-6, 4.0, 5.0), 0, notWritten},
        {"a point beside it            ", segment(4.0, 1.0, 4.0, 1.0), 0, notWritten},
    };
    for (const auto &row : cases) {
        GeoPoint2D out = notWritten;
        EXPECT_EQ(GeoSegment2D::intersectEndpoint(flat, row.other, out), row.kind) << row.what;
        EXPECT_TRUE(out.equalsWithin(row.out, 1e-12)) << row.what << testing::PrintToString(out);

        GeoPoint2D swapped;
        EXPECT_EQ(GeoSegment2D::intersectEndpoint(row.other, flat, swapped), row.kind)
            << row.what << " with the two exchanged";
    }
}

TEST(GeoSegment2D, twoPointsMeetOnlyAtOnePlace)
{
    const GeoSegment2D point = segment(1.0, 1.0, 1.0, 1.0);
    GeoPoint2D out;

    EXPECT_EQ(GeoSegment2D::intersectEndpoint(point, point, out), GeoSegment2D::TouchingEnd);
    EXPECT_EQ(GeoSegment2D::intersectEndpoint(point, segment(1.0, 1.1, 1.0, 1.1), out), GeoSegment2D::Apart);
}

// Rounding puts the four ends on either side of the common line by turns.
TEST(GeoSegment2D, segmentsApartOnOneObliqueLineDoNotMeet)
{
    int apart = 0;
    for (int i = 1; i <= 2000; ++i) {
        const double angle = 0.00314 * i;
        const auto at = [angle](double t) {
            return GeoPoint2D(1e4 + t * std::cos(angle), -3e4 + t * std::sin(angle));
        };
        GeoPoint2D out;
        apart += GeoSegment2D::intersectEndpoint({at(0.0), at(10.0)}, {at(10.5), at(70.0)}, out) ==
                 GeoSegment2D::Apart;
    }
    EXPECT_EQ(apart, 2000);
}

RC_GTEST_PROP(GeoSegment2DProperties, theMeetingIsAPointOfBothAndTheSameFromEverySide, ())
{
    const GeoPoint2D a = *anyPoint(), b = *anyPoint(), c = *anyPoint(), d = *anyPoint();
    GeoPoint2D out;
    const auto kind = GeoSegment2D::intersectEndpoint({a, b}, {c, d}, out);
    RC_TAG(static_cast<int>(kind));

    GeoPoint2D again;
    RC_ASSERT(GeoSegment2D::intersectEndpoint({b, a}, {c, d}, again) == kind);
    RC_ASSERT(GeoSegment2D::intersectEndpoint({d, c}, {a, b}, again) == kind);
    if (kind == GeoSegment2D::Apart)
        return;
    // A crossing at 1e6 cm is known to about 1e-10 of it, more coarsely at a flat angle.
    RC_ASSERT(Geo::distanceToSegment(out, a, b) <= 2.0 * Geo::kOnSegment);
    RC_ASSERT(Geo::distanceToSegment(out, c, d) <= 2.0 * Geo::kOnSegment);
}

// A second opinion: turns of exact arithmetic.
RC_GTEST_PROP(GeoSegment2DProperties, onTheGridTheAnswerIsThatOfExactArithmetic, ())
{
    const GeoPoint2D a = *support::pointOnGrid(8), b = *support::pointOnGrid(8);
    const GeoPoint2D c = *support::pointOnGrid(8), d = *support::pointOnGrid(8);
    // Quarters: every product below is exact.
    const auto side = [](const GeoPoint2D &p, const GeoPoint2D &q, const GeoPoint2D &r) {
        const double turn = (q.mX - p.mX) * (r.mY - p.mY) - (q.mY - p.mY) * (r.mX - p.mX);
        return (turn > 0.0) - (turn < 0.0);
    };
    const auto isOn = [&](const GeoPoint2D &p, const GeoPoint2D &q, const GeoPoint2D &r) {
        return side(p, q, r) == 0 && std::min(p.mX, q.mX) <= r.mX && r.mX <= std::max(p.mX, q.mX) &&
               std::min(p.mY, q.mY) <= r.mY && r.mY <= std::max(p.mY, q.mY);
    };
    const bool isTouching = isOn(a, b, c) || isOn(a, b, d) || isOn(c, d, a) || isOn(c, d, b);
    const bool isCrossing = side(a, b, c) * side(a, b, d) < 0 && side(c, d, a) * side(c, d, b) < 0;

    GeoPoint2D out;
    const auto kind = GeoSegment2D::intersectEndpoint({a, b}, {c, d}, out);
    RC_ASSERT((kind == GeoSegment2D::Crossing) == isCrossing);
    RC_ASSERT((kind != GeoSegment2D::Apart) == (isCrossing || isTouching));
    RC_ASSERT((kind == GeoSegment2D::Overlapping) <= (side(a, b, c) == 0 && side(a, b, d) == 0));
}
