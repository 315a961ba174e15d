// A set-in sleeve: the cap is a third of the armhole high and as wide as makes its seam the armhole plus
// ease.

#include "Garments.h"

namespace drafting
{

namespace
{

constexpr double kCapEase = 2.5; // cm, worked in when the sleeve is set in

// Four curves over the cap, front to back; the front is hollowed more.
struct Cap {
    Cap(double wide, double high) : width(wide), height(high)
    {
        frontHollow = Point(-0.055 * width, 0.24 * height);
        backHollow = Point(0.065 * width, 0.22 * height);
    }

    Point frontEnd() const { return Point(0.5 * width, 0.0); }
    Point front() const { return Point(0.275 * width, 0.47 * height); }
    Point top() const { return Point(0.01 * width, height); }
    Point back() const { return Point(-0.275 * width, 0.52 * height); }
    Point backEnd() const { return Point(-0.5 * width, 0.0); }
    Point frontControl1() const { return Point(0.40 * width, 0.0); }
    Point frontControl2() const { return front() - frontHollow; }
    Point frontControl3() const { return front() - Point(-frontHollow.mX, -frontHollow.mY); }
    Point frontControl4() const { return Point(0.14 * width, height); }
    Point backControl1() const { return Point(-0.12 * width, height); }
    Point backControl2() const { return back() - Point(-backHollow.mX, -backHollow.mY); }
    Point backControl3() const { return back() - backHollow; }
    Point backControl4() const { return Point(-0.385 * width, 0.03 * height); }

    double length() const
    {
        return lengthOfCurve(frontEnd(), frontControl1(), frontControl2(), front()) +
               lengthOfCurve(front(), frontControl3(), frontControl4(), top()) +
               lengthOfCurve(top(), backControl1(), backControl2(), back()) +
               lengthOfCurve(back(), backControl3(), backControl4(), backEnd());
    }

    double width;
    double height;
    Point frontHollow; // from the point below to the one above the middle of the front
    Point backHollow;
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
    sheet.allowance(1.0).curve(cap.frontControl1(), cap.frontControl2(), cap.front());
    sheet.curve(cap.frontControl3(), cap.frontControl4(), cap.top());
    sheet.curve(cap.backControl1(), cap.backControl2(), cap.back());
    sheet.curve(cap.backControl3(), cap.backControl4(), cap.backEnd());
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
