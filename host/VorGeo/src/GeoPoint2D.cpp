// GeoPoint2D: a place in the plane, in centimetres.
#include <VorGeo/GeoPoint2D.h>

#include <VorGeo/GeoAlgorithms.h>

namespace VorSystem
{

// Constant-initialised: valid before any other static object is made.
const GeoPoint2D GeoPoint2D::Point2D_Nul(0.0, 0.0);

GeoPoint2D GeoPoint2D::projected(const GeoPoint2D &a, const GeoPoint2D &b) const noexcept
{
    return Geo::projection(*this, a, b);
}

bool GeoPoint2D::equalsWithin(const GeoPoint2D &other, double tolerance) const
{
    return std::abs(mX - other.mX) <= tolerance && std::abs(mY - other.mY) <= tolerance;
}

} // namespace VorSystem
