// Lines of a piece in a size. Curve points are joined smoothly, not by their chords.

#include "PieceShape.h"

#include <VorConjoin/CDbGroupObject.h>
#include <VorConjoin/CDbPointVOR.h>
#include <VorConjoin/CurveObject.h>
#include <VorConjoin/DartContour.h>
#include <VorConjoin/GabaritObject.h>
#include <VorConjoin/GradationData.h>
#include <VorConjoin/LineObject.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <tuple>
#include <unordered_map>

namespace VorSystem
{

namespace
{

constexpr double kMitre = 3.0; // corners of the cut line reach this many widths out, then they are cut off

GeoPoint2D plus(const GeoPoint2D &place, const GeoPoint2D &step, double times = 1.0)
{
    return GeoPoint2D(place.mX + times * step.mX, place.mY + times * step.mY);
}

double norm(const GeoPoint2D &step)
{
    return std::hypot(step.mX, step.mY);
}

GeoPoint2D unit(const GeoPoint2D &step)
{
    const double length = norm(step);
    return length > 0.0 ? GeoPoint2D(step.mX / length, step.mY / length) : GeoPoint2D(0.0, 0.0);
}

// Cubic edges through points, with the tangents of the parabolas through each three.
std::vector<CubicCurve> smoothEdges(std::vector<GeoPoint2D> points)
{
    const std::size_t count = points.size();
    std::vector<GeoPoint2D> speeds(count);
    std::vector<double> lengths;
    for (std::size_t i = 0; i + 1 < count; ++i)
        lengths.push_back(points[i].distance(points[i + 1]));
    const auto chord = [&](std::size_t i) { return unit(points[i + 1] - points[i]); };
    for (std::size_t i = 1; i + 1 < count; ++i) {
        const double sum = lengths[i - 1] + lengths[i];
        const double share = sum > 0.0 ? lengths[i] / sum : 0.5;
        speeds[i] = plus(GeoPoint2D(share * chord(i - 1).mX, share * chord(i - 1).mY), chord(i), 1.0 - share);
    }
    if (count == 2)
        speeds[0] = speeds[1] = chord(0);
    else {
        speeds[0] = plus(plus(chord(0), chord(0)), speeds[1], -1.0);
        speeds[count - 1] = plus(plus(chord(count - 2), chord(count - 2)), speeds[count - 2], -1.0);
    }

    std::vector<CubicCurve> edges;
    for (std::size_t i = 0; i + 1 < count; ++i) {
        edges.push_back({points[i], plus(points[i], speeds[i], lengths[i] / 3.0),
                         plus(points[i + 1], speeds[i + 1], -lengths[i] / 3.0), points[i + 1]});
    }
    return edges;
}

Strand closed(std::vector<CubicCurve> curves)
{
    return {std::move(curves), true};
}

} // namespace

PieceShape::PieceShape(const CDbGroupObject &piece, short sizeNumber, const GradationData *gradation)
    : mPiece(piece), mSize(sizeNumber), mGradation(gradation)
{
    for (const LineObject *line : piece.lines()) {
        const CurveObject *curve = line->getCurveLine();
        if (!curve)
            continue;
        const std::vector<CDbPointVOR *> &points = curve->points();
        std::vector<GeoPoint2D> places;
        for (const CDbPointVOR *v : points)
            places.push_back(placeOf(v));
        const std::vector<CubicCurve> edges = smoothEdges(places);
        for (std::size_t i = 0; i < edges.size(); ++i) {
            const CubicCurve &way = edges[i];
            mCurved.push_back({points[i], points[i + 1], way});
            mCurved.push_back({points[i + 1], points[i], {way.d, way.c, way.b, way.a}});
        }
    }
    std::sort(mCurved.begin(), mCurved.end(), [](const CurvedEdge &a, const CurvedEdge &b) {
        return std::make_pair(a.from, a.to) < std::make_pair(b.from, b.to);
    });
}

GeoPoint2D PieceShape::placeOf(const CDbPointVOR *v) const
{
    return v->positionInSize(mSize, mGradation);
}

CubicCurve PieceShape::edge(const CDbPointVOR *from, const CDbPointVOR *to) const
{
    const auto place = std::lower_bound(mCurved.begin(), mCurved.end(), std::make_pair(from, to),
                                        [](const CurvedEdge &curved, const auto &ends) {
                                            return std::make_pair(curved.from, curved.to) < ends;
                                        });
    if (place != mCurved.end() && place->from == from && place->to == to)
        return place->curve;
    return CubicCurve::straight(placeOf(from), placeOf(to));
}

std::vector<Strand> PieceShape::seamLines() const
{
    std::vector<Strand> strands;
    for (const GabaritObject *gabarit = mPiece.firstGabarit(); gabarit; gabarit = gabarit->mNextGabarit) {
        const std::vector<CDbPointVOR *> &vectors = gabarit->contourVectors();
        const std::size_t count = vectors.size();
        // From behind a mouth, so that no stretch is cut by the start of the contour.
        std::size_t start = 0;
        while (start < count && !gabarit->isDeadEdge(vectors[(start + count - 1) % count], vectors[start]))
            ++start;
        const bool isWhole = start == count;
        Strand strand;
        for (std::size_t step = 0; step < count; ++step) {
            const CDbPointVOR *from = vectors[(start + step) % count];
            const CDbPointVOR *to = vectors[(start + step + 1) % count];
            if (!gabarit->isDeadEdge(from, to)) {
                strand.curves.push_back(edge(from, to));
            } else if (!strand.curves.empty()) {
                strands.push_back(strand);
                strand.curves.clear();
            }
        }
        strand.isClosed = isWhole;
        if (!strand.curves.empty())
            strands.push_back(strand);
    }
    return strands;
}

Strand PieceShape::leg(const std::vector<CDbPointVOR *> &vectors) const
{
    Strand strand;
    for (std::size_t i = 0; i + 1 < vectors.size(); ++i)
        strand.curves.push_back(edge(vectors[i], vectors[i + 1]));
    return strand;
}

namespace
{

// From the contour to the pivot.
std::vector<CDbPointVOR *> wayIn(const DartContour &dart, int which)
{
    std::vector<CDbPointVOR *> way = dart.innerLegVectors(which);
    way.insert(way.begin(), dart.mPivotVector);
    way.push_back(dart.pICGetVector(which == 0 ? Dart_FirstLeg : Dart_SecondLeg));
    std::reverse(way.begin(), way.end());
    return way;
}

bool isDrawn(const DartContour &dart)
{
    return dart.mPivotVector && dart.pICGetVector(Dart_FirstLeg) && dart.pICGetVector(Dart_SecondLeg);
}

} // namespace

std::vector<Strand> PieceShape::faces() const
{
    std::vector<Strand> strands;
    for (const GabaritObject *gabarit = mPiece.firstGabarit(); gabarit; gabarit = gabarit->mNextGabarit) {
        Strand strand = closed({});
        for (const CDbPointVOR *v : gabarit->contourVectors()) {
            const CDbPointVOR *next = gabarit->neighbor(v, true);
            if (!gabarit->isDeadEdge(v, next)) {
                strand.curves.push_back(edge(v, next));
                continue;
            }
            DartContour *dart = nullptr;
            short role = 0;
            gabarit->pICGabIsWhichDart(v, &dart, &role);
            if (role != Dart_FirstLeg || !isDrawn(*dart))
                continue;
            std::vector<CDbPointVOR *> way = wayIn(*dart, 0);
            std::vector<CDbPointVOR *> out = wayIn(*dart, 1);
            way.insert(way.end(), out.rbegin() + 1, out.rend());
            for (const CubicCurve &curve : leg(way).curves)
                strand.curves.push_back(curve);
        }
        if (!strand.curves.empty())
            strands.push_back(strand);
    }
    return strands;
}

std::vector<Strand> PieceShape::dartLegs() const
{
    std::vector<Strand> strands;
    for (const GabaritObject *gabarit = mPiece.firstGabarit(); gabarit; gabarit = gabarit->mNextGabarit) {
        for (const DartContour *dart = gabarit->mFirstDart; dart; dart = dart->mNextDart) {
            if (!isDrawn(*dart))
                continue;
            strands.push_back(leg(wayIn(*dart, 0)));
            strands.push_back(leg(wayIn(*dart, 1)));
        }
    }
    return strands;
}

std::vector<Strand> PieceShape::dartCaps() const
{
    std::vector<Strand> strands;
    for (const GabaritObject *gabarit = mPiece.firstGabarit(); gabarit; gabarit = gabarit->mNextGabarit) {
        for (const DartContour *dart = gabarit->mFirstDart; dart; dart = dart->mNextDart) {
            if (!isDrawn(*dart))
                continue;
            std::vector<CDbPointVOR *> mouth = {dart->pICGetVector(Dart_FirstLeg),
                                                dart->pICGetVector(Dart_SecondLeg)};
            if (CDbPointVOR *cap = dart->pICGetVector(Dart_Cap))
                mouth.insert(mouth.begin() + 1, cap);
            strands.push_back(leg(mouth));
        }
    }
    return strands;
}

std::vector<Strand> PieceShape::innerCurves() const
{
    std::vector<Strand> strands;
    for (const LineObject *line : mPiece.lines()) {
        const CurveObject *curve = line->getCurveLine();
        if (mPiece.pICIsLine(line, nullptr) || (curve && curve->contour()))
            continue;
        strands.push_back(
            leg(curve ? curve->points() : std::vector<CDbPointVOR *>{line->begin(), line->end()}));
    }
    return strands;
}

std::vector<Strand> PieceShape::stretch(const GabaritObject *gabarit, const CDbPointVOR *from,
                                        const CDbPointVOR *to, bool forward) const
{
    std::vector<Strand> strands;
    bool isInterrupted = true;
    for (int steps = gabarit->contourCount(); from && from != to && steps > 0; --steps) {
        const CDbPointVOR *next = gabarit->neighbor(from, forward);
        if (!next || gabarit->isDeadEdge(from, next)) {
            isInterrupted = true;
        } else {
            if (isInterrupted)
                strands.emplace_back();
            strands.back().curves.push_back(edge(from, next));
            isInterrupted = false;
        }
        from = next;
    }
    return strands;
}

double PieceShape::turning(const GabaritObject *gabarit) const
{
    double doubled = 0.0;
    for (const CDbPointVOR *v : gabarit->contourVectors()) {
        const GeoPoint2D a = placeOf(v);
        const GeoPoint2D b = placeOf(gabarit->neighbor(v, true));
        doubled += a.mX * b.mY - b.mX * a.mY;
    }
    return doubled < 0.0 ? -1.0 : 1.0;
}

namespace
{

struct OffsetEdge {
    GeoPoint2D from;
    GeoPoint2D to;
    double width;
    GeoPoint2D outwards;

    GeoPoint2D begin() const { return plus(from, outwards, width); }
    GeoPoint2D end() const { return plus(to, outwards, width); }
};

// Where two neighbouring offset edges meet; both ends when that is nowhere near.
std::vector<GeoPoint2D> corner(const OffsetEdge &edge, const OffsetEdge &next)
{
    const GeoPoint2D a = unit(edge.to - edge.from);
    const GeoPoint2D b = unit(next.to - next.from);
    const double sine = a.mX * b.mY - a.mY * b.mX;
    const GeoPoint2D gap = next.begin() - edge.end();
    if (std::abs(sine) > 1e-3) {
        const double along = (gap.mX * b.mY - gap.mY * b.mX) / sine;
        const GeoPoint2D meeting = plus(edge.end(), a, along);
        if (meeting.distance(edge.to) <= kMitre * std::max(edge.width, next.width))
            return {meeting};
    }
    if (norm(gap) < 1e-3)
        return {edge.end()};
    return {edge.end(), next.begin()};
}

} // namespace

std::vector<Strand> PieceShape::cutLines() const
{
    std::unordered_map<const CDbPointVOR *, double> widths;
    for (const SeamAllowance &allowance : mPiece.seamAllowances())
        widths[allowance.edge] = allowance.width;

    std::vector<Strand> strands;
    for (const GabaritObject *gabarit = mPiece.firstGabarit(); gabarit; gabarit = gabarit->mNextGabarit) {
        const double sign = turning(gabarit);
        std::vector<OffsetEdge> edges;
        double width = 0.0;
        double widest = 0.0;
        for (const CDbPointVOR *v : gabarit->contourVectors()) {
            const CDbPointVOR *next = gabarit->neighbor(v, true);
            // A folded dart keeps the allowance of the edge before it.
            if (!gabarit->isDeadEdge(v, next))
                width = widths.count(v) > 0 ? widths.at(v) : 0.0;
            widest = std::max(widest, width);
            const CubicCurve way = edge(v, next);
            constexpr int kParts = 3;
            for (int part = 0; part < kParts; ++part) {
                const GeoPoint2D from = way.at(static_cast<double>(part) / kParts);
                const GeoPoint2D to = way.at((part + 1.0) / kParts);
                const GeoPoint2D along = unit(to - from);
                if (from.distance(to) > 1e-6)
                    edges.push_back({from, to, width, GeoPoint2D(sign * along.mY, -sign * along.mX)});
            }
        }
        if (widest == 0.0)
            continue;
        std::vector<GeoPoint2D> points;
        for (std::size_t i = 0; i < edges.size(); ++i) {
            for (const GeoPoint2D &point : corner(edges[i], edges[(i + 1) % edges.size()]))
                points.push_back(point);
        }
        Strand strand = closed({});
        for (std::size_t i = 0; i < points.size(); ++i)
            strand.curves.push_back(CubicCurve::straight(points[i], points[(i + 1) % points.size()]));
        strands.push_back(strand);
    }
    return strands;
}

GeoPoint2D PieceShape::outwardsAt(const CDbPointVOR *v) const
{
    const GabaritObject *gabarit = v->gabarit();
    if (!gabarit)
        return GeoPoint2D(0.0, 0.0);
    const GeoPoint2D in = unit(placeOf(v) - placeOf(gabarit->neighbor(v, false)));
    const GeoPoint2D out = unit(placeOf(gabarit->neighbor(v, true)) - placeOf(v));
    const GeoPoint2D along = unit(plus(in, out));
    const double sign = turning(gabarit);
    return GeoPoint2D(sign * along.mY, -sign * along.mX);
}

std::vector<NotchTick> PieceShape::notches() const
{
    std::vector<NotchTick> ticks;
    for (const Notch &notch : mPiece.notches())
        ticks.push_back({placeOf(notch.place), outwardsAt(notch.place)});
    return ticks;
}

GeoRectangle PieceShape::extent() const
{
    GeoRectangle extent;
    const auto include = [&](const std::vector<Strand> &strands) {
        for (const Strand &strand : strands) {
            for (const CubicCurve &curve : strand.curves) {
                for (const GeoPoint2D &point : {curve.a, curve.at(0.5), curve.d})
                    extent.include(point);
            }
        }
    };
    include(faces());
    include(dartCaps());
    include(cutLines());
    for (const CDbPointVOR *v : mPiece.ownVectors()) {
        if (v->mVectorKind != Vector_Handle)
            extent.include(placeOf(v));
    }
    return extent;
}

std::pair<double, double> PieceShape::reachAlong(const GeoPoint2D &a, const GeoPoint2D &b) const
{
    double least = 0.0;
    double most = 0.0;
    bool isFirst = true;
    for (const GabaritObject *gabarit = mPiece.firstGabarit(); gabarit; gabarit = gabarit->mNextGabarit) {
        for (const CDbPointVOR *v : gabarit->contourVectors()) {
            const double t = CDbPointVOR::scaleProjeced(a, b, placeOf(v));
            least = isFirst ? t : std::min(least, t);
            most = isFirst ? t : std::max(most, t);
            isFirst = false;
        }
    }
    return {least, most};
}

GeoPoint2D PieceShape::middle() const
{
    double doubled = 0.0;
    double x = 0.0;
    double y = 0.0;
    const GabaritObject *gabarit = mPiece.firstGabarit();
    if (!gabarit || gabarit->contourCount() == 0)
        return GeoPoint2D(0.0, 0.0);
    const GeoPoint2D origin = placeOf(gabarit->mFirstVector);
    for (const CDbPointVOR *v : gabarit->contourVectors()) {
        const GeoPoint2D a = placeOf(v) - origin;
        const GeoPoint2D b = placeOf(gabarit->neighbor(v, true)) - origin;
        const double cross = a.mX * b.mY - b.mX * a.mY;
        doubled += cross;
        x += cross * (a.mX + b.mX) / 3.0;
        y += cross * (a.mY + b.mY) / 3.0;
    }
    if (std::abs(doubled) < 1e-9)
        return origin;
    return plus(origin, GeoPoint2D(x / doubled, y / doubled));
}

} // namespace VorSystem
