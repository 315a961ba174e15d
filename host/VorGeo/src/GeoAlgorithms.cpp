// The questions that points, lines and segments of the plane are asked, each answered in one place.
#include <VorGeo/GeoAlgorithms.h>

#include <VorGeo/GeoSegment2D.h>

#include "PlaneVector.h"

namespace VorSystem::Geo
{

bool equalVector(const GeoPoint2D &a, const GeoPoint2D &b) noexcept
{
    return equalVectorDelta(a, b, kSamePlace);
}

bool equalVectorDelta(const GeoPoint2D &a, const GeoPoint2D &b, double delta) noexcept
{
    return std::abs(a.mX - b.mX) <= delta && std::abs(a.mY - b.mY) <= delta;
}

double distanceToSegment(const GeoPoint2D &p, const GeoPoint2D &a, const GeoPoint2D &b) noexcept
{
    return nearestOnSegment(p, a, heading(a, b)).distance;
}

bool isBetween(const GeoPoint2D &a, const GeoPoint2D &p, const GeoPoint2D &b) noexcept
{
    return betweenDelta(a, p, b, kOnSegment);
}

bool betweenDelta(const GeoPoint2D &a, const GeoPoint2D &p, const GeoPoint2D &b, double delta) noexcept
{
    return distanceToSegment(p, a, b) <= delta;
}

GeoPoint2D projection(const GeoPoint2D &p, const GeoPoint2D &a, const GeoPoint2D &b) noexcept
{
    const Heading line = heading(a, b);
    return pointAt(a, line.unit, dot(stepBetween(a, p), line.unit));
}

double scaleProjected(const GeoPoint2D &a, const GeoPoint2D &b, const GeoPoint2D &p) noexcept
{
    const Heading line = heading(a, b);
    if (line.isNowhere())
        return 0.0;
    return dot(stepBetween(a, p), line.unit) / line.length;
}

bool isParallelLine(const GeoPoint2D &a, const GeoPoint2D &b, const GeoPoint2D &c,
                    const GeoPoint2D &d) noexcept
{
    // A line without length has the zero direction, so its sine is 0.
    return std::abs(cross(heading(a, b).unit, heading(c, d).unit)) <= kParallelSine;
}

GeoPoint2D interLine(const GeoPoint2D &a, const GeoPoint2D &b, const GeoPoint2D &c,
                     const GeoPoint2D &d) noexcept
{
    const Step first = heading(a, b).unit;
    const Step second = heading(c, d).unit;
    const double sine = cross(first, second);
    if (std::abs(sine) <= kParallelSine)
        return {a.mX, a.mY};
    return pointAt(a, first, cross(stepBetween(a, c), second) / sine);
}

bool interSegments(const GeoPoint2D &a, const GeoPoint2D &b, const GeoPoint2D &c, const GeoPoint2D &d,
                   GeoPoint2D &out) noexcept
{
    return GeoSegment2D::intersectEndpoint({a, b}, {c, d}, out) != GeoSegment2D::Apart;
}

GeoPoint2D vectorManagementUnitDist(const GeoPoint2D &origin, double dist, const GeoPoint2D &a,
                                    const GeoPoint2D &b) noexcept
{
    return pointAt(origin, heading(b, a).unit, dist);
}

} // namespace VorSystem::Geo
