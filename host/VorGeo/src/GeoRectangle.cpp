// GeoRectangle: an upright bounding rectangle.
#include <VorGeo/GeoRectangle.h>

#include <VorGeo/GeoPoint2D.h>

#include <algorithm>

namespace VorSystem
{

GeoRectangle::GeoRectangle(const GeoPoint2D &point) noexcept
{
    include(point);
}

void GeoRectangle::include(const GeoPoint2D &point) noexcept
{
    mLeft = std::min(mLeft, point.mX);
    mRight = std::max(mRight, point.mX);
    mBottom = std::min(mBottom, point.mY);
    mTop = std::max(mTop, point.mY);
}

void GeoRectangle::include(const GeoRectangle &other) noexcept
{
    mLeft = std::min(mLeft, other.mLeft);
    mRight = std::max(mRight, other.mRight);
    mBottom = std::min(mBottom, other.mBottom);
    mTop = std::max(mTop, other.mTop);
}

bool GeoRectangle::intersect(const GeoRectangle &other, bool wholly) const noexcept
{
    if (isEmpty() || other.isEmpty())
        return false;
    if (wholly)
        return mLeft <= other.mLeft && other.mRight <= mRight && mBottom <= other.mBottom &&
               other.mTop <= mTop;
    return mLeft <= other.mRight && other.mLeft <= mRight && mBottom <= other.mTop && other.mBottom <= mTop;
}

} // namespace VorSystem
