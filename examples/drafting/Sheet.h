// A sheet of drafting paper: the outline of one piece in one size, drawn edge by edge.
#pragma once

#include <VorDocument/PieceDraft.h>

namespace drafting
{

using Point = VorSystem::GeoPoint2D;

Point between(const Point &a, const Point &b, double share);
/// The point at a distance from `from` towards `to`.
Point towards(const Point &from, const Point &to, double distance);
/// Off the line from a to b at p, to its left for a positive distance.
Point beside(const Point &p, const Point &a, const Point &b, double distance);
double lengthOfCurve(const Point &a, const Point &control1, const Point &control2, const Point &b);

/// What shall control a piece; the points are vectors of its contour.
struct Control {
    enum eKind { Axis, Width, HalfWidth, Length };

    eKind kind;
    QString name;
    Point a;
    Point b;
};

/// Draws counterclockwise; every piece is closed at the point where it began.
class Sheet
{
public:
    explicit Sheet(const QString &name) { mDraft.name = name; }

    Sheet &from(const Point &start);
    /// Edges drawn from now on have this seam allowance, cm.
    Sheet &allowance(double width);
    Sheet &line(const Point &to);
    Sheet &curve(const Point &control1, const Point &control2, const Point &to);
    /// A dart that begins where the outline stands.
    Sheet &dart(const Point &tip, const Point &secondLeg);
    /// A dart across the line between two points, in the order of the outline: its middle stands at a share
    /// of the way, its legs are equally long.
    Sheet &dartAcross(const Point &a, const Point &b, double share, double width, double depth);
    Sheet &notch(const Point &place);
    Sheet &drillHole(const Point &place) { return notch(place); }
    Sheet &grain(const Point &a, const Point &b);
    Sheet &fold(const Point &a, const Point &b);
    Sheet &innerLine(const Point &a, const Point &b);
    Sheet &mirrored();

    /// The axis, the widths across it and the lengths along the seam that the piece is controlled by. A width
    /// with one point ends at the axis; the first width is the origin of levels.
    Sheet &axis(const QString &name, const Point &a, const Point &b);
    Sheet &width(const QString &name, const Point &a, const Point &b);
    Sheet &halfWidth(const QString &name, const Point &a);
    Sheet &length(const QString &name, const Point &a, const Point &b);

    const VorSystem::PieceDraft &draft() const { return mDraft; }
    const std::vector<Control> &controls() const { return mControls; }

private:
    VorSystem::PieceDraft mDraft;
    std::vector<Control> mControls;
    double mAllowance = 0.0;
};

/// One draft of the same piece in every size.
VorSystem::PieceDraft nested(const std::vector<Sheet> &sizes);

} // namespace drafting
