// A cubic Bezier curve in the plane.
#pragma once

#include <VorGeo/GeoPoint2D.h>

#include <utility>

namespace VorSystem
{

/// From a to d, with control points b and c. A straight edge is the curve with its controls at the thirds.
struct CubicCurve {
    GeoPoint2D a;
    GeoPoint2D b;
    GeoPoint2D c;
    GeoPoint2D d;

    static CubicCurve straight(const GeoPoint2D &from, const GeoPoint2D &to);

    GeoPoint2D at(double t) const;
    std::pair<CubicCurve, CubicCurve> split(double t) const;
    double length() const;
    /// Length of count chords of equal parameter.
    double chordLength(int count) const;
    /// Parameter of the point of the curve that lies nearest.
    double nearest(const GeoPoint2D &place) const;
};

} // namespace VorSystem
