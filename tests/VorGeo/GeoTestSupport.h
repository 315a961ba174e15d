// What the tests of the plane geometry share: points by chance, polygons as lists, printed points.
#pragma once

#include <VorGeo/VorGeo.h>
#include <cmath>
#include <ostream>
#include <rapidcheck.h>
#include <vector>

namespace VorSystem
{

inline void PrintTo(const GeoPoint2D &point, std::ostream *stream)
{
    *stream << "(" << point.mX << ", " << point.mY << ")";
}

} // namespace VorSystem

namespace support
{

using VorSystem::GeoPoint2D;

/// Points on a grid of a quarter centimetre, so that places coincide and lines overlap now and then.
inline rc::Gen<GeoPoint2D> pointOnGrid(int extent = 24)
{
    const auto coordinate =
        rc::gen::map(rc::gen::inRange(-extent, extent + 1), [](int n) { return 0.25 * n; });
    return rc::gen::construct<GeoPoint2D>(coordinate, coordinate);
}

/// Points anywhere up to 1e6 cm from the origin, with digits down to 1e-12 cm.
inline rc::Gen<GeoPoint2D> pointAnywhere()
{
    const auto coordinate = rc::gen::map(
        rc::gen::pair(rc::gen::inRange(-1000000, 1000001), rc::gen::inRange(0, 19)),
        [](const std::pair<int, int> &drawn) { return drawn.first * std::pow(10.0, -drawn.second); });
    return rc::gen::construct<GeoPoint2D>(coordinate, coordinate);
}

/// Either of both, in equal parts.
inline rc::Gen<GeoPoint2D> anyPoint()
{
    return rc::gen::oneOf(pointOnGrid(), pointAnywhere());
}

inline bool isFinite(const GeoPoint2D &point)
{
    return std::isfinite(point.mX) && std::isfinite(point.mY);
}

inline VorSystem::Geo::PolygonProbe probe(const GeoPoint2D &point, const std::vector<GeoPoint2D> &polygon)
{
    VorSystem::Geo::PolygonProbe found(point);
    for (std::size_t i = 0; i < polygon.size(); ++i)
        found.addEdge(polygon[i], polygon[(i + 1) % polygon.size()]);
    return found;
}

} // namespace support
