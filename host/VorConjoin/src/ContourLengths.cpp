// Lengths along a contour and across it.
// Every length is summed at the call from the present places. Dart openings are skipped, never subtracted:
// the two legs of a dart are exactly 0.0 apart.

#include <VorConjoin/CDbPointVOR.h>
#include <VorConjoin/DartContour.h>
#include <VorConjoin/GabaritObject.h>

#include <algorithm>
#include <vector>

namespace VorSystem
{

namespace
{

// Part of the segment a to b, as parameters from 0 to 1.
struct Span {
    double from;
    double to;
};

double cross(const GeoPoint2D &a, const GeoPoint2D &b)
{
    return a.mX * b.mY - a.mY * b.mX;
}

// The part of a to b inside a triangle; empty (from not below to) when there is none.
Span clipToTriangle(const GeoPoint2D &a, const GeoPoint2D &b, const GeoPoint2D (&corners)[3])
{
    const double turn = cross(corners[1] - corners[0], corners[2] - corners[0]);
    if (turn == 0.0)
        return {0.0, 0.0};
    const double sign = turn > 0.0 ? 1.0 : -1.0;

    Span inside{0.0, 1.0};
    for (int side = 0; side < 3; ++side) {
        const GeoPoint2D &corner = corners[side];
        const GeoPoint2D edge = corners[(side + 1) % 3] - corner;
        // Not negative on the inner side of this edge.
        const double atA = sign * cross(edge, a - corner);
        const double atB = sign * cross(edge, b - corner);
        if (atA < 0.0 && atB < 0.0)
            return {0.0, 0.0};
        if (atA < 0.0)
            inside.from = std::max(inside.from, atA / (atA - atB));
        else if (atB < 0.0)
            inside.to = std::min(inside.to, atA / (atA - atB));
    }
    return inside;
}

// Total of the spans, what several cover counted once.
double covered(std::vector<Span> spans)
{
    std::sort(spans.begin(), spans.end(), [](const Span &a, const Span &b) { return a.from < b.from; });
    double sum = 0.0;
    double reached = 0.0;
    for (const Span &span : spans) {
        const double from = std::max(span.from, reached);
        if (span.to > from) {
            sum += span.to - from;
            reached = span.to;
        }
    }
    return sum;
}

} // namespace

double GabaritObject::getContourLength(const CDbPointVOR *a, const CDbPointVOR *b, const CDbPointVOR *c,
                                       bool forward) const
{
    int steps = stepsBetween(a, b, forward);
    if (steps < 0)
        return 0.0;
    if (const int toThird = stepsBetween(a, c, forward); toThird >= 0)
        steps = std::min(steps, toThird);

    const auto &vectors = mContour.vectors();
    const std::size_t count = vectors.size();
    auto place = static_cast<std::size_t>(mContour.indexOf(a) - 1);
    double length = 0.0;
    for (int step = 0; step < steps; ++step) {
        std::size_t next = 0;
        if (forward)
            next = place + 1 == count ? 0 : place + 1;
        else
            next = place == 0 ? count - 1 : place - 1;
        if (!isDeadEdge(vectors[place], vectors[next]))
            length += vectors[place]->distance(*vectors[next]);
        place = next;
    }
    return length;
}

double GabaritObject::contourLengthWithoutDeadZones(const CDbPointVOR *a, const CDbPointVOR *b) const
{
    return getContourLength(a, b, b, true);
}

void GabaritObject::contourDirection(const CDbPointVOR *a, const CDbPointVOR *b, bool *forward,
                                     double *length)
{
    const bool isOnContour = isVectorContour(a) && isVectorContour(b);
    const double there = getContourLength(a, b, b, true);
    const double back = getContourLength(a, b, b, false);
    if (forward)
        *forward = isOnContour && there <= back;
    if (length)
        *length = std::min(there, back);
}

double GabaritObject::measureBetween(CDbGroupObject *, const CDbPointVOR *a, const CDbPointVOR *b,
                                     bool forMeasure)
{
    if (!a || !b)
        return 0.0;
    const double distance = a->distance(*b);
    if (!forMeasure)
        return distance;

    std::vector<Span> inDarts;
    for (const DartContour *dart = mFirstDart; dart; dart = dart->mNextDart) {
        const CDbPointVOR *first = dart->pICGetVector(Dart_FirstLeg);
        const CDbPointVOR *second = dart->pICGetVector(Dart_SecondLeg);
        const CDbPointVOR *pivot = dart->mPivotVector;
        // A frame that ends on a dart measures across it: the dart is closed beside the frame, not under it.
        if (!first || !second || !pivot || dart->roleOf(a) != 0 || dart->roleOf(b) != 0)
            continue;
        inDarts.push_back(clipToTriangle(*a, *b, {*first, *pivot, *second}));
    }
    return distance * std::max(0.0, 1.0 - covered(std::move(inDarts)));
}

} // namespace VorSystem
