// Plain pairs of doubles for the inside of the geometry: no virtual table, no mark, all inline.
#pragma once

#include <VorGeo/GeoPoint2D.h>

#include <cmath>

namespace VorSystem::Geo
{

/// A step in the plane, in centimetres.
struct Step {
    double x;
    double y;
};

inline Step stepBetween(const GeoPoint2D &from, const GeoPoint2D &to) noexcept
{
    return {to.mX - from.mX, to.mY - from.mY};
}

inline double dot(Step s, Step t) noexcept
{
    return s.x * t.x + s.y * t.y;
}

/// Positive when t points to the left of s.
inline double cross(Step s, Step t) noexcept
{
    return s.x * t.y - s.y * t.x;
}

inline double length(Step s) noexcept
{
    return std::sqrt(dot(s, s));
}

inline GeoPoint2D pointAt(const GeoPoint2D &start, Step direction, double distance) noexcept
{
    return {start.mX + direction.x * distance, start.mY + direction.y * distance};
}

/// Points nearer than this are one place: squares of longer steps neither vanish nor lose digits.
constexpr double kOnePlace = 1e-150; // cm

/// A step as unit direction and length; without a length both are zero.
struct Heading {
    Step unit{0.0, 0.0};
    double length = 0.0;

    bool isNowhere() const noexcept { return length == 0.0; }
};

inline Heading heading(const GeoPoint2D &from, const GeoPoint2D &to) noexcept
{
    const Step step = stepBetween(from, to);
    const double distance = length(step);
    if (!(distance > kOnePlace))
        return {};
    return {{step.x / distance, step.y / distance}, distance};
}

/// Where on the segment from a to b the point nearest to p lies: the distance from a, and that from p to it.
struct NearestOnSegment {
    double along;
    double distance;
};

inline NearestOnSegment nearestOnSegment(const GeoPoint2D &p, const GeoPoint2D &a,
                                         const Heading &aToB) noexcept
{
    const Step aToP = stepBetween(a, p);
    const double foot = dot(aToP, aToB.unit);
    const double along = foot <= 0.0 ? 0.0 : (foot >= aToB.length ? aToB.length : foot);
    return {along, length({aToP.x - aToB.unit.x * along, aToP.y - aToB.unit.y * along})};
}

} // namespace VorSystem::Geo
