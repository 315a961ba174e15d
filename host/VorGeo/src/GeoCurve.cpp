// GeoCurve: a line through points.
#include <VorGeo/GeoCurve.h>

#include <utility>

namespace VorSystem
{

GeoCurve::GeoCurve(std::vector<GeoPoint2D> points) : mPoints(std::move(points)) {}

double GeoCurve::length() const noexcept
{
    double total = 0.0;
    for (std::size_t i = 1; i < mPoints.size(); ++i)
        total += mPoints[i - 1].distance(mPoints[i]);
    return total;
}

} // namespace VorSystem
