// GeoCurve: a line through points.
#pragma once

#include <VorGeo/GeoPoint2D.h>

#include <vector>

namespace VorSystem
{

/// A curve as the polyline through its points, in centimetres.
class VORGEO_EXPORT GeoCurve : public GeoObject
{
public:
    GeoCurve() = default;
    /// Takes the points over, in order. One alone or none is a curve without length.
    explicit GeoCurve(std::vector<GeoPoint2D> points);

    /// The points as they were given; valid while the curve lives.
    const std::vector<GeoPoint2D> &points() const noexcept { return mPoints; }

    /// Length along the points; 0 with fewer than two.
    double length() const noexcept;

private:
    std::vector<GeoPoint2D> mPoints;
};

} // namespace VorSystem
