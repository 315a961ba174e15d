// Where a name finds room in a piece.

#include "PieceShape.h"

#include <VorConjoin/CDbGroupObject.h>
#include <VorConjoin/CDbPointVOR.h>
#include <VorConjoin/GabaritObject.h>

#include <algorithm>
#include <cmath>

namespace VorSystem
{

namespace
{

constexpr int kSamples = 32;        // rows and columns of places that are tried
constexpr double kLongest = 1000.0; // cm that a single curve is followed with a point for each

} // namespace

void appendPoints(const CubicCurve &curve, std::vector<GeoPoint2D> &points)
{
    const int steps = static_cast<int>(std::min(curve.a.distance(curve.d), kLongest)) + 1;
    for (int step = 0; step <= steps; ++step)
        points.push_back(curve.at(static_cast<double>(step) / steps));
}

void PieceShape::appendTrail(std::vector<GeoPoint2D> &points) const
{
    for (const auto &strands : {seamLines(), dartLegs(), innerCurves()}) {
        for (const Strand &strand : strands) {
            for (const CubicCurve &curve : strand.curves)
                appendPoints(curve, points);
        }
    }
}

GeoPoint2D PieceShape::clearing(const std::vector<GeoPoint2D> &points, double halfWidth,
                                double halfHeight) const
{
    const GabaritObject *gabarit = mPiece.firstGabarit();
    const GeoRectangle bounds = extent();
    GeoPoint2D best = middle();
    double widest = 0.0;
    if (!gabarit || bounds.isEmpty())
        return best;
    for (int sample = 0; sample < kSamples * kSamples; ++sample) {
        const int row = sample / kSamples;
        const int column = sample % kSamples;
        const GeoPoint2D tried(bounds.left() + (column + 0.5) / kSamples * (bounds.right() - bounds.left()),
                               bounds.bottom() + (row + 0.5) / kSamples * (bounds.top() - bounds.bottom()));
        double room = 1e9;
        for (const GeoPoint2D &point : points) {
            room = std::min(room, std::max(std::abs(point.mX - tried.mX) / halfWidth,
                                           std::abs(point.mY - tried.mY) / halfHeight));
            if (room <= widest)
                break;
        }
        bool onBorder = false;
        if (room > widest && gabarit->isInPolygon(tried, &onBorder)) {
            widest = room;
            best = tried;
        }
    }
    return best;
}

} // namespace VorSystem
