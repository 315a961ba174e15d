// Cubic Bezier curves: points, lengths, splitting.

#include "CubicCurve.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace VorSystem
{

namespace
{

GeoPoint2D between(const GeoPoint2D &a, const GeoPoint2D &b, double t)
{
    return GeoPoint2D((1.0 - t) * a.mX + t * b.mX, (1.0 - t) * a.mY + t * b.mY);
}

GeoPoint2D derivative(const CubicCurve &curve, double t)
{
    const double u = 1.0 - t;
    const auto part = [&](double a, double b, double c, double d) {
        return 3.0 * (u * u * (b - a) + 2.0 * u * t * (c - b) + t * t * (d - c));
    };
    return GeoPoint2D(part(curve.a.mX, curve.b.mX, curve.c.mX, curve.d.mX),
                      part(curve.a.mY, curve.b.mY, curve.c.mY, curve.d.mY));
}

} // namespace

CubicCurve CubicCurve::straight(const GeoPoint2D &from, const GeoPoint2D &to)
{
    return {from, between(from, to, 1.0 / 3.0), between(from, to, 2.0 / 3.0), to};
}

GeoPoint2D CubicCurve::at(double t) const
{
    // The ends are met to the last bit.
    if (t <= 0.0)
        return a;
    if (t >= 1.0)
        return d;
    const GeoPoint2D ab = between(a, b, t);
    const GeoPoint2D bc = between(b, c, t);
    const GeoPoint2D cd = between(c, d, t);
    return between(between(ab, bc, t), between(bc, cd, t), t);
}

std::pair<CubicCurve, CubicCurve> CubicCurve::split(double t) const
{
    const GeoPoint2D ab = between(a, b, t);
    const GeoPoint2D bc = between(b, c, t);
    const GeoPoint2D cd = between(c, d, t);
    const GeoPoint2D abc = between(ab, bc, t);
    const GeoPoint2D bcd = between(bc, cd, t);
    const GeoPoint2D middle = between(abc, bcd, t);
    return {{a, ab, abc, middle}, {middle, bcd, cd, d}};
}

double CubicCurve::length() const
{
    // Gauss with five points on short parts: exact far below the rounding of any pattern.
    constexpr int kParts = 64;
    constexpr std::array<double, 5> kPlaces = {-0.9061798459386640, -0.5384693101056831, 0.0,
                                               0.5384693101056831, 0.9061798459386640};
    constexpr std::array<double, 5> kWeights = {0.2369268850561891, 0.4786286704993665, 0.5688888888888889,
                                                0.4786286704993665, 0.2369268850561891};
    double sum = 0.0;
    for (int part = 0; part < kParts; ++part) {
        for (std::size_t place = 0; place < kPlaces.size(); ++place) {
            const GeoPoint2D speed = derivative(*this, (part + 0.5 + 0.5 * kPlaces[place]) / kParts);
            sum += kWeights[place] * std::hypot(speed.mX, speed.mY);
        }
    }
    return sum * 0.5 / kParts;
}

double CubicCurve::chordLength(int count) const
{
    double sum = 0.0;
    GeoPoint2D reached = a;
    for (int chord = 1; chord <= count; ++chord) {
        const GeoPoint2D next = at(static_cast<double>(chord) / count);
        sum += reached.distance(next);
        reached = next;
    }
    return sum;
}

double CubicCurve::nearest(const GeoPoint2D &place) const
{
    // The best of evenly spread samples, then ever smaller steps around it.
    constexpr int kSamples = 128;
    double best = 0.0;
    for (int sample = 1; sample <= kSamples; ++sample) {
        const double t = static_cast<double>(sample) / kSamples;
        if (at(t).distance(place) < at(best).distance(place))
            best = t;
    }
    for (double step = 0.5 / kSamples; step > 1e-13; step *= 0.5) {
        for (const double t : {std::max(best - step, 0.0), std::min(best + step, 1.0)}) {
            if (at(t).distance(place) < at(best).distance(place))
                best = t;
        }
    }
    return best;
}

} // namespace VorSystem
