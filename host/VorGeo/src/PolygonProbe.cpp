// PolygonProbe: is a point inside an outline? The outline is handed over edge by edge.
#include <VorGeo/PolygonProbe.h>

#include <VorGeo/GeoAlgorithms.h>

#include <algorithm>

namespace VorSystem::Geo
{

namespace
{

// The bounds of an edge answer most points without a square root.
bool isNear(double place, double from, double to) noexcept
{
    return place >= std::min(from, to) - kOnSegment && place <= std::max(from, to) + kOnSegment;
}

} // namespace

void PolygonProbe::addEdge(const GeoPoint2D &from, const GeoPoint2D &to) noexcept
{
    if (mOnBorder)
        return;
    if (isNear(mX, from.mX, to.mX) && isNear(mY, from.mY, to.mY) && isBetween(from, {mX, mY}, to)) {
        mOnBorder = true;
        return;
    }
    // Edges that cross the ray from the point to the right: one end at or below it, the other above. Rounding
    // cannot turn the answer here, since the point is not on the edge.
    const bool upwards = from.mY <= mY && mY < to.mY;
    const bool downwards = to.mY <= mY && mY < from.mY;
    if (!upwards && !downwards)
        return;
    const double side = (to.mX - from.mX) * (mY - from.mY) - (to.mY - from.mY) * (mX - from.mX);
    if (upwards && side > 0.0)
        ++mTurns;
    else if (downwards && side < 0.0)
        --mTurns;
}

} // namespace VorSystem::Geo
