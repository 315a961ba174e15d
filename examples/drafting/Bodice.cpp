// A fitted bodice by proportional rules: widths are shares of the bust, ease is added part by part.

#include "Garments.h"

#include <cmath>

namespace drafting
{

namespace
{

struct Cubic {
    Point a, control1, control2, b;

    double length() const { return lengthOfCurve(a, control1, control2, b); }
};

// What front and back share.
struct Frame {
    explicit Frame(const Measures &m)
        : bustLine(m.backLength - (m.bust / 10.0 + 10.5)), armholeWidth(m.bust / 8.0),
          neckWidth(m.bust / 20.0 + 2.2)
    {
    }

    double bustLine;     // height above the waist
    double armholeWidth; // with 1.5 cm ease
    double neckWidth;
};

struct Back {
    explicit Back(const Measures &m) : frame(m)
    {
        const double width = m.bust / 8.0 + 5.5;
        nape = Point(0.0, m.backLength);
        neck = Point(frame.neckWidth, m.backLength + 2.0);
        shoulder = Point(width + 1.5, neck.mY - 4.6);
        underarm = Point(width + 0.8 + frame.armholeWidth / 2.0, frame.bustLine);
        pitch = Point(width, frame.bustLine + 7.5);
        waistSide = Point(underarm.mX - 1.5, 0.0);
        lowerArmhole = {underarm, Point(underarm.mX - 3.8, underarm.mY), Point(width, pitch.mY - 3.8), pitch};
        upperArmhole = {pitch, Point(width, pitch.mY + 3.6), beside(shoulder, neck, shoulder, -4.0),
                        shoulder};
        dartWidth = waistSide.mX - (m.waist / 4.0 + 0.25);
        dartMiddle = width / 2.0;
    }

    Frame frame;
    Point nape, neck, shoulder, underarm, pitch, waistSide;
    Cubic lowerArmhole, upperArmhole;
    double dartWidth, dartMiddle;
};

struct Front {
    explicit Front(const Measures &m) : frame(m)
    {
        const Back back(m);
        const double width = m.bust / 4.0 - 2.5;
        const double length = m.backLength + 2.0 + m.bust / 20.0 - 2.4;
        sideDart = m.bust / 20.0 - 1.4;
        neck = Point(frame.neckWidth - 0.2, length);
        neckCenter = Point(0.0, length - frame.neckWidth - 1.2);

        // The front shoulder slopes more; sewn to the back one it must be as long.
        const double slope = 23.0 * std::acos(-1.0) / 180.0;
        const double shoulderLength = back.neck.distance(back.shoulder);
        shoulder =
            Point(neck.mX + shoulderLength * std::cos(slope), neck.mY - shoulderLength * std::sin(slope));

        underarm = Point(width + frame.armholeWidth / 2.0, frame.bustLine + sideDart);
        // Without its dart the side seam is as long as that of the back.
        const double side = back.underarm.distance(back.waistSide) + sideDart;
        waistSide = Point(underarm.mX - 2.2, underarm.mY - std::sqrt(side * side - 2.2 * 2.2));
        pitch = Point(m.bust / 8.0 + 5.9, underarm.mY + 5.2);
        lowerArmhole = {underarm, Point(underarm.mX - 5.2, underarm.mY - 0.3),
                        Point(pitch.mX, pitch.mY - 3.2), pitch};
        upperArmhole = {pitch, Point(pitch.mX, pitch.mY + 3.4), beside(shoulder, neck, shoulder, -3.6),
                        shoulder};
        bust = Point(m.bust / 10.0 + 0.4, length - m.bust / 4.0 - 4.2);
        waistDart = waistSide.mX - (m.waist / 4.0 + 1.25);
    }

    Frame frame;
    Point neck, neckCenter, shoulder, underarm, pitch, waistSide, bust;
    Cubic lowerArmhole, upperArmhole;
    double sideDart, waistDart;
};

} // namespace

Sheet bodiceBack(const Measures &m)
{
    const Back b(m);
    const Point legLeft(b.dartMiddle - b.dartWidth / 2.0, 0.0);
    const Point legRight(b.dartMiddle + b.dartWidth / 2.0, 0.0);
    Sheet sheet(QStringLiteral("Bodice back"));
    sheet.from(b.nape).allowance(1.5).line(Point(0.0, 0.0)).allowance(1.0).line(legLeft);
    sheet.dart(Point(b.dartMiddle, b.frame.bustLine - 1.5), legRight);
    sheet.line(b.waistSide).allowance(1.5).line(b.underarm).allowance(1.0);
    sheet.curve(b.lowerArmhole.control1, b.lowerArmhole.control2, b.pitch);
    sheet.curve(b.upperArmhole.control1, b.upperArmhole.control2, b.shoulder);
    sheet.line(b.neck);
    sheet.curve(beside(b.neck, b.shoulder, b.neck, 1.2), Point(b.neck.mX * 0.5, b.nape.mY), b.nape);
    sheet.notch(b.pitch);
    sheet.innerLine(Point(0.0, b.frame.bustLine), b.underarm);
    sheet.axis(QStringLiteral("Back"), Point(0.0, 0.0), b.nape)
        .halfWidth(QStringLiteral("Waist"), b.waistSide);
    sheet.halfWidth(QStringLiteral("Bust"), b.underarm).halfWidth(QStringLiteral("Back width"), b.pitch);
    sheet.length(QStringLiteral("Back side seam"), b.waistSide, b.underarm);
    return sheet.grain(Point(4.0, 6.0), Point(4.0, 32.0));
}

Sheet bodiceFront(const Measures &m)
{
    const Front f(m);
    const Point hemCenter(0.0, 0.0);
    const Point legLeft(f.bust.mX - f.waistDart / 2.0, 0.0);
    const Point legRight(f.bust.mX + f.waistDart / 2.0, 0.0);
    Sheet sheet(QStringLiteral("Bodice front"));
    sheet.from(f.neckCenter).line(hemCenter).allowance(1.0).line(legLeft);
    sheet.dart(Point(f.bust.mX, f.bust.mY - 2.5), legRight);
    sheet.curve(between(legRight, Point(f.waistSide.mX, 0.0), 0.4), between(legRight, f.waistSide, 0.75),
                f.waistSide);

    // The side dart points at the bust and stands square to the side seam: its legs are equal.
    const Point tip(f.bust.mX + 2.5, f.bust.mY + 0.3);
    const Point foot = tip.projected(f.waistSide, f.underarm);
    const double share = f.waistSide.distance(foot) / f.waistSide.distance(f.underarm);
    sheet.allowance(1.5).dartAcross(f.waistSide, f.underarm, share, f.sideDart, foot.distance(tip));
    sheet.line(f.underarm).allowance(1.0);
    sheet.curve(f.lowerArmhole.control1, f.lowerArmhole.control2, f.pitch);
    sheet.curve(f.upperArmhole.control1, f.upperArmhole.control2, f.shoulder);
    sheet.line(f.neck);
    const double depth = f.neck.mY - f.neckCenter.mY;
    sheet.curve(Point(f.neck.mX - 0.5, f.neck.mY - 0.55 * depth), Point(0.55 * f.neck.mX, f.neckCenter.mY),
                f.neckCenter);
    sheet.notch(f.pitch).drillHole(f.bust).fold(hemCenter, f.neckCenter);
    sheet.axis(QStringLiteral("Front"), hemCenter, f.neckCenter)
        .halfWidth(QStringLiteral("Waist"), f.waistSide);
    sheet.halfWidth(QStringLiteral("Bust"), f.underarm).halfWidth(QStringLiteral("Chest width"), f.pitch);
    sheet.length(QStringLiteral("Front side seam"), f.waistSide, f.underarm);
    return sheet.grain(Point(4.0, 6.0), Point(4.0, 30.0));
}

Point frontUnderarm(const Measures &m)
{
    return Front(m).underarm;
}

Point frontWaistSide(const Measures &m)
{
    return Front(m).waistSide;
}

Point backUnderarm(const Measures &m)
{
    return Back(m).underarm;
}

Point backWaistSide(const Measures &m)
{
    return Back(m).waistSide;
}

double armholeLength(const Measures &m)
{
    const Back b(m);
    const Front f(m);
    return b.lowerArmhole.length() + b.upperArmhole.length() + f.lowerArmhole.length() +
           f.upperArmhole.length();
}

} // namespace drafting
