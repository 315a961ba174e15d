// Straight trousers: front and back stand on their crease, widths are shares of the hip.

#include "Garments.h"

namespace drafting
{

namespace
{

// Heights above the floor.
struct Levels {
    explicit Levels(const Measures &m)
        : crotch(m.insideLeg), waist(crotch + m.hip / 4.0 + 1.5), hip(crotch + (waist - crotch) / 3.0),
          knee(crotch / 2.0 + 6.0)
    {
    }

    double crotch, waist, hip, knee;
};

// A panel, drawn with the inside leg to the left and the side seam to the right.
struct Leg {
    Point waistCenter, hipCenter, fork, waistSide, hipSide;
    double forkHollow; // share of the fork's width that its curve keeps low
    double halfHem, halfKnee, dartWidth, dartDepth;
};

Sheet drawn(const QString &name, const Leg &leg, const Levels &levels)
{
    const double crease = 0.5 * (leg.fork.mX + leg.hipSide.mX);
    const Point hemIn(crease - leg.halfHem, 0.0);
    const Point hemOut(crease + leg.halfHem, 0.0);
    const Point kneeIn(crease - leg.halfKnee, levels.knee);
    const Point kneeOut(crease + leg.halfKnee, levels.knee);
    const double thigh = leg.fork.mY - levels.knee;

    Sheet sheet(name);
    sheet.from(leg.waistCenter).allowance(1.5).line(leg.hipCenter);
    sheet.curve(between(leg.hipCenter, leg.waistCenter, -0.38),
                Point(leg.fork.mX + leg.forkHollow * (leg.hipCenter.mX - leg.fork.mX), leg.fork.mY + 0.2),
                leg.fork);
    sheet.curve(Point(leg.fork.mX + 0.35 * (kneeIn.mX - leg.fork.mX), leg.fork.mY - 0.2 * thigh),
                Point(kneeIn.mX - 0.1 * (hemIn.mX - kneeIn.mX), levels.knee + 0.38 * thigh), kneeIn);
    sheet.line(hemIn).allowance(4.0).line(hemOut).allowance(1.5).line(kneeOut);
    sheet.curve(Point(kneeOut.mX - 0.1 * (hemOut.mX - kneeOut.mX), levels.knee + 0.4 * thigh),
                Point(leg.hipSide.mX, leg.hipSide.mY - 0.4 * thigh), leg.hipSide);
    sheet.curve(Point(leg.hipSide.mX, leg.hipSide.mY + 0.35 * (levels.waist - levels.hip)),
                between(leg.waistSide, Point(leg.hipSide.mX, leg.hipSide.mY), 0.35), leg.waistSide);
    sheet.allowance(1.0).dartAcross(leg.waistSide, leg.waistCenter, 0.5, leg.dartWidth, leg.dartDepth);
    sheet.line(leg.waistCenter);
    sheet.notch(kneeIn).notch(kneeOut).notch(leg.hipSide);
    sheet.innerLine(kneeIn, kneeOut).innerLine(leg.hipCenter, leg.hipSide);
    sheet.length(name + QStringLiteral(", inside leg"), hemIn, leg.fork);
    sheet.length(name + QStringLiteral(", side seam"), hemOut, leg.hipSide);
    return sheet.grain(Point(crease, 8.0), Point(crease, levels.waist - 14.0));
}

} // namespace

Sheet trouserFront(const Measures &m)
{
    const Levels levels(m);
    Leg leg;
    leg.dartWidth = 2.0;
    leg.dartDepth = 9.5;
    leg.hipCenter = Point(0.0, levels.hip);
    leg.hipSide = Point(m.hip / 4.0, levels.hip);
    leg.fork = Point(-(m.hip / 20.0 + 0.3), levels.crotch);
    leg.forkHollow = 0.42;
    leg.waistCenter = Point(0.8, levels.waist - 0.4);
    leg.waistSide = Point(leg.waistCenter.mX + m.waist / 4.0 + 0.4 + leg.dartWidth, levels.waist + 0.6);
    leg.halfHem = m.hip / 40.0 + 8.0;
    leg.halfKnee = leg.halfHem + 0.9;
    return drawn(QStringLiteral("Trouser front"), leg, levels);
}

Sheet trouserBack(const Measures &m)
{
    const Levels levels(m);
    Leg leg;
    leg.dartWidth = 2.6;
    leg.dartDepth = 12.0;
    leg.hipCenter = Point(0.9, levels.hip + 1.0);
    leg.hipSide = Point(m.hip / 4.0 + 1.4, levels.hip);
    leg.fork = Point(-(m.hip / 10.0 + 1.0), levels.crotch - 0.8);
    leg.forkHollow = 0.5;
    leg.waistCenter = Point(3.4, levels.waist + 2.6);
    leg.waistSide = Point(leg.waistCenter.mX + m.waist / 4.0 - 0.4 + leg.dartWidth, levels.waist + 0.6);
    leg.halfHem = m.hip / 40.0 + 9.0;
    leg.halfKnee = leg.halfHem + 1.3;
    return drawn(QStringLiteral("Trouser back"), leg, levels);
}

} // namespace drafting
