// GeoRectangle: an upright bounding rectangle.
#pragma once

#include <VorGeo/GeoObject.h>

#include <limits>

namespace VorSystem
{

class GeoPoint2D;

/// An upright rectangle that grows round what it includes, in centimetres.
///
/// A new one is empty, which is less than a single point: it meets nothing.
class VORGEO_EXPORT GeoRectangle : public GeoObject
{
public:
    GeoRectangle() noexcept = default;
    /// The rectangle of a single point, which it holds: not empty, but without area.
    explicit GeoRectangle(const GeoPoint2D &point) noexcept;

    /// True when it holds no point, as before the first include.
    bool isEmpty() const noexcept { return !(mLeft <= mRight && mBottom <= mTop); }

    /// The sides. Those of an empty rectangle are infinite and the wrong way round: left and bottom +inf,
    /// right and top -inf.
    ///@{
    double left() const noexcept { return mLeft; }
    double right() const noexcept { return mRight; }
    double bottom() const noexcept { return mBottom; }
    double top() const noexcept { return mTop; }
    ///@}

    /// Grows as far as needed to hold what is included, and never shrinks. An empty rectangle adds nothing.
    ///@{
    void include(const GeoPoint2D &point) noexcept;
    void include(const GeoRectangle &other) noexcept;
    ///@}

    /// True when the rectangles share a point, be it on their borders.
    ///
    /// With wholly, other must lie inside this rectangle, borders included. False when one of them is empty.
    bool intersect(const GeoRectangle &other, bool wholly) const noexcept;

private:
    double mLeft = std::numeric_limits<double>::infinity();
    double mRight = -std::numeric_limits<double>::infinity();
    double mBottom = std::numeric_limits<double>::infinity();
    double mTop = -std::numeric_limits<double>::infinity();
};

} // namespace VorSystem
