// GeoSegment2D: the straight stretch between two points.
#pragma once

#include <VorGeo/GeoPoint2D.h>

namespace VorSystem
{

/// A straight segment, ends included; both ends may be one place.
class VORGEO_EXPORT GeoSegment2D : public GeoObject
{
public:
    /// How two segments meet.
    enum TypeIntersection : int {
        Apart = 0,       ///< no common point
        Crossing = 1,    ///< one common point, inside both
        TouchingEnd = 2, ///< an end of one lies on the other
        Overlapping = 3, ///< a common stretch on one line
    };

    /// Both ends at the origin.
    GeoSegment2D() noexcept = default;
    /// Copies both ends, with their marks.
    GeoSegment2D(const GeoPoint2D &start, const GeoPoint2D &end) noexcept : mStart(start), mEnd(end) {}

    /// Moving is copying: the source keeps its ends and its mark.
    ///@{
    GeoSegment2D(const GeoSegment2D &) noexcept = default;
    GeoSegment2D(GeoSegment2D &&) noexcept = default;
    GeoSegment2D &operator=(const GeoSegment2D &) noexcept = default;
    GeoSegment2D &operator=(GeoSegment2D &&) noexcept = default;
    ///@}

    /// The ends, in centimetres; valid while the segment lives.
    ///@{
    const GeoPoint2D &start() const noexcept { return mStart; }
    const GeoPoint2D &end() const noexcept { return mEnd; }
    ///@}

    /// How a and b meet, and a common point in out.
    ///
    /// An end lies on the other segment from kOnSegment on; two such ends at one place (kSamePlace) touch,
    /// farther apart they bound an overlap. Out is the crossing, or the first end that lies on the other
    /// segment (of a before b, start before end); apart, it is not written. Its mark stays.
    static TypeIntersection intersectEndpoint(const GeoSegment2D &a, const GeoSegment2D &b,
                                              GeoPoint2D &out) noexcept;

private:
    GeoPoint2D mStart;
    GeoPoint2D mEnd;
};

} // namespace VorSystem
