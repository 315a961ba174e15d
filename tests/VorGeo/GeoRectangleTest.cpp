// Bounding rectangles: growing, meeting, the empty one.
#include "GeoTestSupport.h"

#include <gtest/gtest.h>

using namespace VorSystem;

namespace
{

GeoRectangle bounds(double left, double bottom, double right, double top)
{
    GeoRectangle rectangle{GeoPoint2D(left, bottom)};
    rectangle.include(GeoPoint2D(right, top));
    return rectangle;
}

} // namespace

TEST(GeoRectangle, growsRoundPointsInAnyOrder)
{
    GeoRectangle rectangle;
    rectangle.include(GeoPoint2D(3.0, -1.0));
    rectangle.include(GeoPoint2D(-2.0, 5.0));
    rectangle.include(GeoPoint2D(0.0, 0.0));

    EXPECT_EQ(rectangle.left(), -2.0);
    EXPECT_EQ(rectangle.right(), 3.0);
    EXPECT_EQ(rectangle.bottom(), -1.0);
    EXPECT_EQ(rectangle.top(), 5.0);
}

TEST(GeoRectangle, includingAnEmptyOneChangesNothing)
{
    GeoRectangle rectangle = bounds(0.0, 0.0, 1.0, 1.0);
    rectangle.include(GeoRectangle());

    EXPECT_EQ(rectangle.right(), 1.0);
    EXPECT_FALSE(rectangle.isEmpty());
    GeoRectangle empty;
    empty.include(GeoRectangle());
    EXPECT_TRUE(empty.isEmpty());
}

TEST(GeoRectangle, intersectTakesTouchingForMeeting)
{
    const GeoRectangle square = bounds(0.0, 0.0, 10.0, 10.0);
    const struct {
        const char *what;
        GeoRectangle other;
        bool meets;
        bool isWithin;
    } cases[] = {
        {"inside         ", bounds(2.0, 2.0, 3.0, 3.0), true, true},
        {"itself         ", bounds(0.0, 0.0, 10.0, 10.0), true, true},
        {"overlapping    ", bounds(5.0, 5.0, 15.0, 15.0), true, false},
        {"around         ", bounds(-5.0, -5.0, 15.0, 15.0), true, false},
        {"edge to edge   ", bounds(10.0, 0.0, 20.0, 10.0), true, false},
        {"corner         ", bounds(10.0, 10.0, 20.0, 20.0), true, false},
        {"point on corner", GeoRectangle(GeoPoint2D(10.0, 0.0)), true, true},
        {"flat line      ", bounds(-5.0, 5.0, 15.0, 5.0), true, false},
        {"right of it    ", bounds(10.001, 0.0, 20.0, 10.0), false, false},
        {"left of it     ", bounds(-20.0, 0.0, -0.001, 10.0), false, false},
        {"above it       ", bounds(0.0, 10.001, 10.0, 20.0), false, false},
        {"below it       ", bounds(0.0, -20.0, 10.0, -0.001), false, false},
        {"empty          ", GeoRectangle(), false, false},
    };
    for (const auto &row : cases) {
        EXPECT_EQ(square.intersect(row.other, false), row.meets) << row.what;
        EXPECT_EQ(row.other.intersect(square, false), row.meets) << row.what << " seen from the other side";
        EXPECT_EQ(square.intersect(row.other, true), row.isWithin) << row.what << " wholly";
    }
    EXPECT_FALSE(GeoRectangle().intersect(GeoRectangle(), false));
    EXPECT_FALSE(GeoRectangle().intersect(square, true));
}
