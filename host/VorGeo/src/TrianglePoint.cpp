// TrianglePoint: a triangle that finds the coordinates of points in it, and the points of coordinates.
#include <VorGeo/TrianglePoint.h>

#include "PlaneVector.h"

#include <algorithm>
#include <limits>

namespace VorSystem
{

namespace
{

// A triangle no higher than this over its longest side is flat: its points are those of its sides.
constexpr double kFlat = 1e-9; // cm

bool isInReach(double place, double a, double b, double c) noexcept
{
    return place >= std::min({a, b, c}) - TrianglePoint::kReach &&
           place <= std::max({a, b, c}) + TrianglePoint::kReach;
}

// A side and the corner opposite to it, as indices of corners; side i runs along heading i.
struct TriangleSide {
    int start;
    int end;
    int opposite;
};
constexpr TriangleSide kSides[] = {{0, 1, 2}, {1, 2, 0}, {2, 0, 1}};

// Whether point lies inside a triangle that is not flat, and then its weights.
//
// Measured along and across the longest side: so a sliver gives weights that lead back to the point, where
// the quotients of areas would not.
bool findInside(const GeoPoint2D &point, const GeoPoint2D *const corners[3], const Geo::Heading headings[3],
                double weights[3]) noexcept
{
    const auto *const longest =
        std::max_element(headings, headings + 3, [](const Geo::Heading &one, const Geo::Heading &other) {
            return one.length < other.length;
        });
    const TriangleSide &side = kSides[longest - headings];
    const GeoPoint2D &start = *corners[side.start];

    const Geo::Step toApex = Geo::stepBetween(start, *corners[side.opposite]);
    const double height = cross(longest->unit, toApex);
    if (!(std::abs(height) > kFlat))
        return false;

    const Geo::Step toPoint = Geo::stepBetween(start, point);
    const double apex = cross(longest->unit, toPoint) / height;
    const double end = (dot(longest->unit, toPoint) - apex * dot(longest->unit, toApex)) / longest->length;
    const double rest = 1.0 - apex - end;
    if (!(apex >= 0.0 && end >= 0.0 && rest >= 0.0))
        return false;
    // Adding zero turns a negative zero into zero.
    weights[side.opposite] = apex + 0.0;
    weights[side.end] = end + 0.0;
    weights[side.start] = rest + 0.0;
    return true;
}

// The distance from point to the nearest side, and the weights of the nearest point there.
double findNearestOnSides(const GeoPoint2D &point, const GeoPoint2D *const corners[3],
                          const Geo::Heading headings[3], double weights[3]) noexcept
{
    double nearest = std::numeric_limits<double>::infinity();
    for (int i = 0; i < 3; ++i) {
        const TriangleSide &side = kSides[i];
        const Geo::NearestOnSegment found = Geo::nearestOnSegment(point, *corners[side.start], headings[i]);
        if (!(found.distance < nearest))
            continue;
        nearest = found.distance;
        weights[side.opposite] = 0.0;
        weights[side.end] = headings[i].isNowhere() ? 0.0 : found.along / headings[i].length;
        weights[side.start] = 1.0 - weights[side.end];
    }
    return nearest;
}

} // namespace

bool TrianglePoint::contains(const GeoPoint2D &point, TripletReal &coordinates) const noexcept
{
    // Most triangles asked lie elsewhere: their bounds answer first.
    if (!(isInReach(point.mX, mA.mX, mB.mX, mC.mX) && isInReach(point.mY, mA.mY, mB.mY, mC.mY)))
        return false;
    const GeoPoint2D *const corners[3] = {&mA, &mB, &mC};
    const Geo::Heading headings[3] = {Geo::heading(mA, mB), Geo::heading(mB, mC), Geo::heading(mC, mA)};
    double weights[3];
    if (!findInside(point, corners, headings, weights) &&
        !(findNearestOnSides(point, corners, headings, weights) <= kReach))
        return false;
    coordinates = TripletReal(weights[0], weights[1], weights[2]);
    return true;
}

GeoPoint2D TrianglePoint::Calc_Point2D(const TripletReal &coordinates) const noexcept
{
    return {mA.mX * coordinates.mFirst + mB.mX * coordinates.mSecond + mC.mX * coordinates.mThird,
            mA.mY * coordinates.mFirst + mB.mY * coordinates.mSecond + mC.mY * coordinates.mThird};
}

} // namespace VorSystem
