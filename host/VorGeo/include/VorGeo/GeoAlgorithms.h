// The questions that points, lines and segments of the plane are asked, each answered in one place.
#pragma once

#include <VorGeo/GeoPoint2D.h>
#include <VorGeo/VorGeoExport.h>

namespace VorSystem::Geo
{

// Lengths in centimetres. Every operation answers for every argument: with finite coordinates up to 1e6 the
// result is finite, and arguments that determine no result get the answer that the operation names.

/// Two points this near in each coordinate are the same place.
constexpr double kSamePlace = 1e-5;
/// A point this near to a segment or a contour edge lies on it.
constexpr double kOnSegment = 1e-6;
/// Lines whose directions differ by at most this sine are parallel.
constexpr double kParallelSine = 1e-9;

/// True when each coordinate agrees within kSamePlace.
VORGEO_EXPORT bool equalVector(const GeoPoint2D &a, const GeoPoint2D &b) noexcept;

/// True when each coordinate agrees within delta.
VORGEO_EXPORT bool equalVectorDelta(const GeoPoint2D &a, const GeoPoint2D &b, double delta) noexcept;

/// Distance from p to the segment from a to b, which may be a single point.
VORGEO_EXPORT double distanceToSegment(const GeoPoint2D &p, const GeoPoint2D &a,
                                       const GeoPoint2D &b) noexcept;

/// True when p lies within kOnSegment of the segment from a to b, ends included.
VORGEO_EXPORT bool isBetween(const GeoPoint2D &a, const GeoPoint2D &p, const GeoPoint2D &b) noexcept;

/// True when p lies within delta of the segment from a to b.
VORGEO_EXPORT bool betweenDelta(const GeoPoint2D &a, const GeoPoint2D &p, const GeoPoint2D &b,
                                double delta) noexcept;

/// The foot of p on the line through a and b; a when a and b are one place.
VORGEO_EXPORT GeoPoint2D projection(const GeoPoint2D &p, const GeoPoint2D &a, const GeoPoint2D &b) noexcept;

/// The parameter of p's foot on the line: 0 at a, 1 at b, beyond them outside that range; 0 when a and b are
/// one place.
VORGEO_EXPORT double scaleProjected(const GeoPoint2D &a, const GeoPoint2D &b, const GeoPoint2D &p) noexcept;

/// True when the lines a b and c d are parallel within kParallelSine, or one of them has no length.
VORGEO_EXPORT bool isParallelLine(const GeoPoint2D &a, const GeoPoint2D &b, const GeoPoint2D &c,
                                  const GeoPoint2D &d) noexcept;

/// Where the lines a b and c d cross; a when they are parallel.
VORGEO_EXPORT GeoPoint2D interLine(const GeoPoint2D &a, const GeoPoint2D &b, const GeoPoint2D &c,
                                   const GeoPoint2D &d) noexcept;

/// True when the segments a b and c d meet, ends included, and then out is a point of both.
///
/// Meets exactly when GeoSegment2D::intersectEndpoint does. Out is written on true only: the crossing, or the
/// first of a, b, c, d that lies on the other segment. It may alias an argument; its mark stays.
VORGEO_EXPORT bool interSegments(const GeoPoint2D &a, const GeoPoint2D &b, const GeoPoint2D &c,
                                 const GeoPoint2D &d, GeoPoint2D &out) noexcept;

/// The point that lies dist from origin in the direction from b to a; origin when a and b are one place.
VORGEO_EXPORT GeoPoint2D vectorManagementUnitDist(const GeoPoint2D &origin, double dist, const GeoPoint2D &a,
                                                  const GeoPoint2D &b) noexcept;

} // namespace VorSystem::Geo
