// TrianglePoint: a triangle that finds the coordinates of points in it, and the points of coordinates.
#pragma once

#include <VorGeo/GeoPoint2D.h>
#include <VorGeo/TripletReal.h>

namespace VorSystem
{

/// A closed triangle, possibly flat or a single point.
class VORGEO_EXPORT TrianglePoint : public GeoObject
{
public:
    /// A point this near to the triangle counts as in it: twice the reach of a polygon's border, so that the
    /// triangles spanned by an outline miss no point that the outline claims.
    static constexpr double kReach = 2e-6; // cm

    /// All corners at the origin.
    TrianglePoint() noexcept = default;
    /// The corners, turning either way. Their order is that of the weights in a TripletReal.
    TrianglePoint(const GeoPoint2D &a, const GeoPoint2D &b, const GeoPoint2D &c) noexcept
        : mA(a), mB(b), mC(c)
    {
    }

    /// True when point lies within kReach of the triangle.
    ///
    /// Coordinates then holds those of the triangle's point nearest to it: each in [0, 1], together 1. They
    /// are not written on false.
    bool contains(const GeoPoint2D &point, TripletReal &coordinates) const noexcept;

    /// The point of this triangle with these coordinates; a corner's own ones give exactly the corner.
    GeoPoint2D Calc_Point2D(const TripletReal &coordinates) const noexcept;

private:
    GeoPoint2D mA;
    GeoPoint2D mB;
    GeoPoint2D mC;
};

} // namespace VorSystem
