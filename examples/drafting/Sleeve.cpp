// A set-in sleeve: the cap is a third of the armhole high and as wide as makes its seam the armhole plus
// ease.

#include "Garments.h"

#include <array>

namespace drafting
{

namespace
{

constexpr double kCapEase = 2.5; // cm, worked in when the sleeve is set in

// A cubic curve: its ends and its controls between them.
using Cubic = std::array<Point, 4>;

// Four curves over the cap, from the front underarm to the back one; the front is hollowed more.
struct Cap {
    Cap(double width, double high) : height(high)
    {
        const auto at = [&](double across, double up) { return Point(across * width, up * height); };
        curves = {Cubic{at(0.5, 0.0), at(0.4, 0.0), at(0.33, 0.23), at(0.275, 0.47)},
                  Cubic{at(0.275, 0.47), at(0.22, 0.71), at(0.14, 1.0), at(0.01, 1.0)},
                  Cubic{at(0.01, 1.0), at(-0.12, 1.0), at(-0.21, 0.74), at(-0.275, 0.52)},
                  Cubic{at(-0.275, 0.52), at(-0.34, 0.3), at(-0.385, 0.03), at(-0.5, 0.0)}};
    }

    Point frontEnd() const { return curves[0][0]; }
    Point front() const { return curves[1][0]; }
    Point top() const { return curves[2][0]; }
    Point back() const { return curves[3][0]; }
    Point backEnd() const { return curves[3][3]; }

    double length() const
    {
        double sum = 0.0;
        for (const Cubic &curve : curves)
            sum += lengthOfCurve(curve[0], curve[1], curve[2], curve[3]);
        return sum;
    }

    double height;
    std::array<Cubic, 4> curves;
};

Cap capOf(const Measures &m)
{
    const double armhole = armholeLength(m);
    const double height = armhole / 3.0 - 0.5;
    double narrow = 20.0;
    double wide = 60.0;
    for (int halving = 0; halving < 60; ++halving) {
        const double width = 0.5 * (narrow + wide);
        (Cap(width, height).length() < armhole + kCapEase ? narrow : wide) = width;
    }
    return Cap(narrow, height);
}

} // namespace

Sheet sleeve(const Measures &m)
{
    const Cap cap = capOf(m);
    const double hem = cap.height - m.armLength;
    const double halfHem = m.bust / 20.0 + 7.2;
    const Point backHem(-halfHem, hem);
    const Point frontHem(halfHem, hem);
    const Point hemMiddle(cap.top().mX, hem);
    const Point backElbow = between(cap.backEnd(), backHem, 0.45);
    const Point frontElbow = between(cap.frontEnd(), frontHem, 0.45);

    Sheet sheet(QStringLiteral("Sleeve"));
    sheet.from(cap.backEnd()).allowance(1.5).line(backElbow).line(backHem);
    sheet.allowance(4.0).line(hemMiddle).line(frontHem).allowance(1.5).line(frontElbow).line(cap.frontEnd());
    sheet.allowance(1.0);
    for (const Cubic &curve : cap.curves)
        sheet.curve(curve[1], curve[2], curve[3]);
    sheet.notch(cap.front()).notch(cap.top()).notch(cap.back()).notch(backElbow).notch(frontElbow);
    sheet.innerLine(cap.backEnd(), cap.frontEnd()).innerLine(backElbow, frontElbow);
    sheet.axis(QStringLiteral("Sleeve"), hemMiddle, cap.top())
        .width(QStringLiteral("Hem"), backHem, frontHem);
    sheet.width(QStringLiteral("Elbow"), backElbow, frontElbow);
    sheet.width(QStringLiteral("Biceps"), cap.backEnd(), cap.frontEnd());
    return sheet.grain(Point(5.0, hem + 5.0), Point(5.0, cap.height - 8.0));
}

double sleeveCapLength(const Measures &m)
{
    return capOf(m).length();
}

} // namespace drafting
