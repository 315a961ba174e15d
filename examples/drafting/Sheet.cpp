#include "Sheet.h"

#include <cmath>

namespace drafting
{

using VorSystem::DraftEdge;
using VorSystem::GradedPlace;
using VorSystem::InnerLine;
using VorSystem::PieceDraft;

Point between(const Point &a, const Point &b, double share)
{
    return Point(a.mX + share * (b.mX - a.mX), a.mY + share * (b.mY - a.mY));
}

Point towards(const Point &from, const Point &to, double distance)
{
    return between(from, to, distance / from.distance(to));
}

Point beside(const Point &p, const Point &a, const Point &b, double distance)
{
    const double share = distance / a.distance(b);
    return Point(p.mX - share * (b.mY - a.mY), p.mY + share * (b.mX - a.mX));
}

double lengthOfCurve(const Point &a, const Point &control1, const Point &control2, const Point &b)
{
    constexpr int kChords = 500;
    double length = 0.0;
    Point reached = a;
    for (int chord = 1; chord <= kChords; ++chord) {
        const double t = static_cast<double>(chord) / kChords;
        const Point middle = between(control1, control2, t);
        const Point first = between(between(a, control1, t), middle, t);
        const Point second = between(middle, between(control2, b, t), t);
        const Point next = between(first, second, t);
        length += reached.distance(next);
        reached = next;
    }
    return length;
}

Sheet &Sheet::from(const Point &start)
{
    mDraft.start = {start};
    return *this;
}

Sheet &Sheet::allowance(double width)
{
    mAllowance = width;
    return *this;
}

Sheet &Sheet::line(const Point &to)
{
    DraftEdge edge;
    edge.to = {to};
    edge.seamAllowance = mAllowance;
    mDraft.edges.push_back(edge);
    return *this;
}

Sheet &Sheet::curve(const Point &control1, const Point &control2, const Point &to)
{
    line(to);
    mDraft.edges.back().control1 = {control1};
    mDraft.edges.back().control2 = {control2};
    return *this;
}

Sheet &Sheet::dart(const Point &tip, const Point &secondLeg)
{
    line(tip);
    mDraft.edges.back().endsInDartTip = true;
    return line(secondLeg);
}

Sheet &Sheet::dartAcross(const Point &a, const Point &b, double share, double width, double depth)
{
    const Point middle = between(a, b, share);
    line(towards(middle, a, 0.5 * width));
    return dart(beside(middle, a, b, depth), towards(middle, b, 0.5 * width));
}

Sheet &Sheet::notch(const Point &place)
{
    mDraft.marks.push_back({place});
    return *this;
}

Sheet &Sheet::grain(const Point &a, const Point &b)
{
    mDraft.grainLines.push_back({{a}, {b}, InnerLine::Inner});
    return *this;
}

Sheet &Sheet::fold(const Point &a, const Point &b)
{
    mDraft.innerLines.push_back({{a}, {b}, InnerLine::Fold});
    return *this;
}

Sheet &Sheet::innerLine(const Point &a, const Point &b)
{
    mDraft.innerLines.push_back({{a}, {b}, InnerLine::Inner});
    return *this;
}

Sheet &Sheet::mirrored()
{
    mDraft.isMirrored = true;
    return *this;
}

Sheet &Sheet::axis(const QString &name, const Point &a, const Point &b)
{
    mControls.push_back({Control::Axis, name, a, b});
    return *this;
}

Sheet &Sheet::width(const QString &name, const Point &a, const Point &b)
{
    mControls.push_back({Control::Width, name, a, b});
    return *this;
}

Sheet &Sheet::halfWidth(const QString &name, const Point &a)
{
    mControls.push_back({Control::HalfWidth, name, a, a});
    return *this;
}

Sheet &Sheet::length(const QString &name, const Point &a, const Point &b)
{
    mControls.push_back({Control::Length, name, a, b});
    return *this;
}

PieceDraft nested(const std::vector<Sheet> &sizes)
{
    PieceDraft nest = sizes.front().draft();
    const auto add = [](GradedPlace &places, const GradedPlace &more) {
        places.insert(places.end(), more.begin(), more.end());
    };
    for (std::size_t size = 1; size < sizes.size(); ++size) {
        const PieceDraft &next = sizes[size].draft();
        add(nest.start, next.start);
        for (std::size_t edge = 0; edge < nest.edges.size(); ++edge) {
            add(nest.edges[edge].to, next.edges[edge].to);
            add(nest.edges[edge].control1, next.edges[edge].control1);
            add(nest.edges[edge].control2, next.edges[edge].control2);
        }
        for (std::size_t mark = 0; mark < nest.marks.size(); ++mark)
            add(nest.marks[mark], next.marks[mark]);
        for (std::size_t grain = 0; grain < nest.grainLines.size(); ++grain) {
            add(nest.grainLines[grain].from, next.grainLines[grain].from);
            add(nest.grainLines[grain].to, next.grainLines[grain].to);
        }
        for (std::size_t line = 0; line < nest.innerLines.size(); ++line) {
            add(nest.innerLines[line].from, next.innerLines[line].from);
            add(nest.innerLines[line].to, next.innerLines[line].to);
        }
    }
    nest.chordTolerance = 0.005; // 0.05 mm: a dozen chords for an armhole
    nest.grid = 1e-7;
    return nest;
}

} // namespace drafting
