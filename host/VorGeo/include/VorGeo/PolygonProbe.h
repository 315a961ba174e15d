// PolygonProbe: is a point inside an outline? The outline is handed over edge by edge.
#pragma once

#include <VorGeo/GeoPoint2D.h>

namespace VorSystem::Geo
{

/// Tells whether one point lies inside a closed outline, whatever container holds the outline.
///
/// The caller hands over every edge once, in order, the closing one included. An outline that crosses itself
/// encloses every place that it goes round. A point on the border is also found by the triangles that any
/// point spans with the edges, since TrianglePoint::contains reaches farther than kOnSegment.
class VORGEO_EXPORT PolygonProbe
{
public:
    /// Asks about the place of this point, in centimetres; the point itself may die.
    explicit PolygonProbe(const GeoPoint2D &point) noexcept : mX(point.mX), mY(point.mY) {}

    /// Counts the next edge in; edges without length do no harm.
    void addEdge(const GeoPoint2D &from, const GeoPoint2D &to) noexcept;

    /// True when the point lies within kOnSegment of an edge.
    bool isOnBorder() const noexcept { return mOnBorder; }

    /// True when the point lies inside the outline or on its border; false before the first edge.
    bool isInside() const noexcept { return mOnBorder || mTurns != 0; }

private:
    double mX;
    double mY;
    int mTurns = 0; // how often the outline goes round the point, counted anticlockwise
    bool mOnBorder = false;
};

} // namespace VorSystem::Geo
