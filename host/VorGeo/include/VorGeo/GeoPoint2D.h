// GeoPoint2D: a place in the plane, in centimetres.
#pragma once

#include <VorGeo/GeoObject.h>

#include <cmath>

namespace VorSystem
{

/// A point of the plane, in centimetres; also used for the difference of two points.
///
/// Finite coordinates up to 1e6 cm give finite results everywhere.
class VORGEO_EXPORT GeoPoint2D : public GeoObject
{
public:
    /// The origin.
    constexpr GeoPoint2D() noexcept = default;
    /// x to the right, y upwards; every double is taken as it is.
    constexpr GeoPoint2D(double x, double y) noexcept : mX(x), mY(y) {}

    /// The coordinates, the same as mX and mY: centimetres, unchecked.
    ///@{
    double x() const noexcept { return mX; }
    double y() const noexcept { return mY; }
    void setX(double x) noexcept { mX = x; }
    void setY(double y) noexcept { mY = y; }
    ///@}

    /// Exact: the same coordinates, without any tolerance. Marks do not count.
    ///@{
    bool operator==(const GeoPoint2D &other) const noexcept { return mX == other.mX && mY == other.mY; }
    bool operator!=(const GeoPoint2D &other) const noexcept { return !(*this == other); }
    ///@}

    /// The step from other to this point.
    GeoPoint2D operator-(const GeoPoint2D &other) const noexcept { return {mX - other.mX, mY - other.mY}; }

    /// Euclidean distance in centimetres.
    double distance(const GeoPoint2D &other) const noexcept
    {
        const double dx = other.mX - mX;
        const double dy = other.mY - mY;
        return std::sqrt(dx * dx + dy * dy);
    }

    /// The foot of this point on the line through a and b; a when a and b are one place.
    GeoPoint2D projected(const GeoPoint2D &a, const GeoPoint2D &b) const noexcept;

    /// True when both coordinates differ by at most tolerance (centimetres).
    virtual bool equalsWithin(const GeoPoint2D &other, double tolerance) const;

    /// The origin.
    static const GeoPoint2D Point2D_Nul;

    double mX = 0.0; ///< centimetres
    double mY = 0.0; ///< centimetres
};

} // namespace VorSystem
