// GeoSegment2D: the straight stretch between two points.
#include <VorGeo/GeoSegment2D.h>

#include <VorGeo/GeoAlgorithms.h>

#include "PlaneVector.h"

namespace VorSystem
{

namespace
{

// Where no end lies on the other segment, each end of two crossing segments is farther than kOnSegment from
// the other's line. Half of it thus tells a crossing from rounding, such as that of two segments apart on one
// line.
constexpr double kClearOfLine = 0.5 * Geo::kOnSegment; // cm

void place(GeoPoint2D &out, const GeoPoint2D &point) noexcept
{
    out.mX = point.mX;
    out.mY = point.mY;
}

bool areOnBothSides(double side, double otherSide) noexcept
{
    return (side > kClearOfLine && otherSide < -kClearOfLine) ||
           (side < -kClearOfLine && otherSide > kClearOfLine);
}

} // namespace

GeoSegment2D::TypeIntersection GeoSegment2D::intersectEndpoint(const GeoSegment2D &a, const GeoSegment2D &b,
                                                               GeoPoint2D &out) noexcept
{
    const Geo::Heading alongA = Geo::heading(a.mStart, a.mEnd);
    const Geo::Heading alongB = Geo::heading(b.mStart, b.mEnd);
    const auto isOn = [](const GeoPoint2D &end, const GeoSegment2D &segment, const Geo::Heading &along) {
        return Geo::nearestOnSegment(end, segment.mStart, along).distance <= Geo::kOnSegment;
    };

    const GeoPoint2D *contact = nullptr;
    const struct {
        const GeoPoint2D &end;
        bool isContact;
    } ends[] = {{a.mStart, isOn(a.mStart, b, alongB)},
                {a.mEnd, isOn(a.mEnd, b, alongB)},
                {b.mStart, isOn(b.mStart, a, alongA)},
                {b.mEnd, isOn(b.mEnd, a, alongA)}};
    TypeIntersection meeting = Apart;
    for (const auto &candidate : ends) {
        if (!candidate.isContact)
            continue;
        if (contact == nullptr) {
            contact = &candidate.end;
            meeting = TouchingEnd;
        } else if (!Geo::equalVector(*contact, candidate.end)) {
            meeting = Overlapping;
        }
    }
    if (contact != nullptr) {
        place(out, *contact);
        return meeting;
    }

    const double startOfB = cross(alongA.unit, Geo::stepBetween(a.mStart, b.mStart));
    const double endOfB = cross(alongA.unit, Geo::stepBetween(a.mStart, b.mEnd));
    const double startOfA = cross(alongB.unit, Geo::stepBetween(b.mStart, a.mStart));
    const double endOfA = cross(alongB.unit, Geo::stepBetween(b.mStart, a.mEnd));
    if (!areOnBothSides(startOfB, endOfB) || !areOnBothSides(startOfA, endOfA))
        return Apart;
    place(out, Geo::pointAt(b.mStart, alongB.unit, alongB.length * (startOfB / (startOfB - endOfB))));
    return Crossing;
}

} // namespace VorSystem
