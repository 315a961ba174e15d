// Moves of a stretch of a contour.
// Dart openings count as no length, so the vectors of one mouth share a distance and move rigidly.

#include "ContourStretch.h"

#include <VorConjoin/CDbGroupObject.h>
#include <VorConjoin/CurveObject.h>
#include <VorConjoin/GabaritObject.h>
#include <VorConjoin/LineObject.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

namespace VorSystem
{

namespace
{

// cm; displacements are floats, and those of no longer stretch leave their range.
constexpr double kLongest = 0.5 * double(std::numeric_limits<float>::max());

void shift(CDbPointVOR &v, double dx, double dy)
{
    v.mX += dx;
    v.mY += dy;
}

// How far a point lies from an axis, with a sign, so that it is linear along an edge.
class AxisDistance
{
public:
    AxisDistance(const GeoPoint2D &a, const GeoPoint2D &b) : mA(a), mDirection(b - a)
    {
        const double length = a.distance(b);
        if (length > 0.0)
            mDirection = GeoPoint2D(mDirection.mX / length, mDirection.mY / length);
    }

    bool hasDirection() const { return mDirection.mX != 0.0 || mDirection.mY != 0.0; }

    double operator()(double x, double y) const
    {
        return mDirection.mX * (y - mA.mY) - mDirection.mY * (x - mA.mX);
    }

private:
    GeoPoint2D mA;
    GeoPoint2D mDirection; // of length 1
};

// Keeps the candidate that lies nearest to a wanted value.
class Nearest
{
public:
    explicit Nearest(double wanted) : mWanted(wanted) {}

    void offer(double candidate)
    {
        if (!mBest || std::abs(candidate - mWanted) < std::abs(*mBest - mWanted))
            mBest = candidate;
    }

    std::optional<double> best() const { return mBest; }

private:
    double mWanted;
    std::optional<double> mBest;
};

// Where on an edge, from t0 to t1 with signed distances d0 and d1, does the distance reach goal?
void offerCrossings(double t0, double d0, double t1, double d1, double goal, Nearest &nearest)
{
    for (const double wanted : {goal, -goal}) {
        const double before = d0 - wanted;
        const double after = d1 - wanted;
        if (before == 0.0)
            nearest.offer(t0);
        if (after == 0.0)
            nearest.offer(t1);
        if ((before < 0.0 && after > 0.0) || (before > 0.0 && after < 0.0))
            nearest.offer(t0 + (t1 - t0) * (before / (before - after)));
    }
}

// The live distance nearest to the stretch's end at which the end would lie goal away from the axis.
std::optional<double> slideTo(const ContourStretch &stretch, const AxisDistance &axis, double goal)
{
    const std::size_t end = stretch.count() - 1;
    const double length = stretch.length();
    const Evolution gap = stretch.gap(end);
    // With the gaps added back: where the end would stand.
    const auto distanceAt = [&](const Evolution &closed) { return axis(closed.x + gap.x, closed.y + gap.y); };

    Nearest nearest(length);
    double before = distanceAt(stretch.closed(0));
    for (std::size_t place = 1; place <= end; ++place) {
        const double here = distanceAt(stretch.closed(place));
        offerCrossings(stretch.live(place - 1), before, stretch.live(place), here, goal, nearest);
        before = here;
    }
    offerCrossings(length, before, 2.0 * length, distanceAt(stretch.at(2.0 * length)), goal, nearest);
    return nearest.best();
}

void clearDisplacement(CDbPointVOR &v)
{
    v.mDisplacementX = 0.0F;
    v.mDisplacementY = 0.0F;
}

} // namespace

void GabaritObject::moveVectorContourBetween(CDbPointVOR *from, CDbPointVOR *to, CDbPointVOR *pivot,
                                             double dx, double dy, bool endHeld)
{
    if (!pivot || (pivot != from && pivot != to) || !std::isfinite(dx) || !std::isfinite(dy))
        return;

    CDbPointVOR *other = pivot == from ? to : from;
    const ContourStretch stretch(*this, from, to, true);
    const double length = stretch.length();
    if (stretch.hasLength()) {
        for (std::size_t place = 0; place < stretch.count(); ++place) {
            CDbPointVOR *v = stretch.vector(place);
            const double live = pivot == from ? stretch.live(place) : length - stretch.live(place);
            const double part = endHeld ? 1.0 - live / length : 1.0;
            if (v != from && v != to)
                shift(*v, part * dx, part * dy);
        }
    }
    shift(*pivot, dx, dy);
    if (other && other != pivot && !endHeld)
        shift(*other, dx, dy);
}

bool GabaritObject::moveVectorAlongContour(CDbPointVOR *from, CDbPointVOR *to, CDbPointVOR *limit,
                                           const GeoPoint2D *axisA, const GeoPoint2D *axisB, double distance)
{
    if (!axisA || !axisB || !limit || from == to || (limit != from && limit != to))
        return false;
    // Seen from the limit, which stays.
    const ContourStretch stretch(*this, limit, limit == from ? to : from, limit == from);
    const AxisDistance axis(*axisA, *axisB);
    if (!stretch.hasLength() || !axis.hasDirection())
        return false;

    const CDbPointVOR *end = stretch.vector(stretch.count() - 1);
    const double goal = std::abs(axis(end->mX, end->mY)) + distance;
    if (!std::isfinite(goal) || goal < 0.0)
        return false;
    if (distance == 0.0)
        return true;
    const std::optional<double> reached = slideTo(stretch, axis, goal);
    if (!reached)
        return false;

    for (std::size_t place = 1; place < stretch.count(); ++place) {
        const Evolution closed = stretch.at(stretch.live(place) * (*reached / stretch.length()));
        const Evolution gap = stretch.gap(place);
        *stretch.vector(place) = GeoPoint2D(closed.x + gap.x, closed.y + gap.y);
    }
    return true;
}

void GabaritObject::setStretchLength(CDbPointVOR *a, CDbPointVOR *b, double length, bool forward,
                                     bool mainStretch)
{
    // What an earlier stretch wrote must not be taken for a displacement of this one.
    if (mainStretch)
        std::for_each(contourVectors().begin(), contourVectors().end(),
                      [](CDbPointVOR *v) { clearDisplacement(*v); });

    const ContourStretch stretch(*this, a, b, forward);
    const bool isPossible = stretch.hasLength() && std::abs(length) <= kLongest;
    for (std::size_t place = 0; place < stretch.count(); ++place) {
        CDbPointVOR *v = stretch.vector(place);
        clearDisplacement(*v);
        if (!isPossible)
            continue;
        const Evolution now = stretch.closed(place);
        const Evolution then = stretch.at(stretch.live(place) * (length / stretch.length()));
        v->mDisplacementX = static_cast<float>(then.x - now.x);
        v->mDisplacementY = static_cast<float>(then.y - now.y);
    }
}

void GabaritObject::recalculateCurves(CDbPointVOR *from, CDbPointVOR *to)
{
    if (!mGroup || !isVectorContour(from) || !isVectorContour(to))
        return;
    for (const LineObject *line : mGroup->lines()) {
        CurveObject *curve = line->getCurveLine();
        if (!curve || curve->contour() != this)
            continue;
        const auto &points = curve->points();
        const bool isConcerned = std::any_of(points.begin(), points.end(), [&](const CDbPointVOR *point) {
            return gabaritVectorBetween2Vectors(point, from, to, true);
        });
        if (isConcerned)
            curve->recalculateHandles();
    }
}

} // namespace VorSystem
