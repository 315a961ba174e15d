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
    explicit GeoCurve(std::vector<GeoPoint2D> points);

    const std::vector<GeoPoint2D> &points() const noexcept { return mPoints; }

    /// Length along the points; 0 with fewer than two.
    double length() const noexcept;

private:
    std::vector<GeoPoint2D> mPoints;
};

} // namespace VorSystem
