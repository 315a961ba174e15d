// A flared skirt panel, cut in one with its mirror image about the centre front.

#include "Garments.h"

namespace drafting
{

namespace
{

Point image(const Point &p)
{
    return Point(-p.mX, p.mY);
}

} // namespace

Sheet skirtFront(const Measures &m)
{
    constexpr double kLength = 60.0;
    constexpr double kHipDepth = 20.0;
    constexpr double kFlare = 4.5;
    constexpr double kDart = 2.3;

    const Point waistCenter(0.0, kLength - 0.6);
    const Point waistSide(m.waist / 4.0 + 0.5 + kDart, kLength + 1.0);
    const Point hip(m.hip / 4.0 + 0.5, kLength - kHipDepth);
    const Point hem(hip.mX + kFlare, 1.2);
    const Point hemCenter(0.0, 0.0);
    const double dartMiddle = m.waist / 8.0 + 0.8;
    const Point dartTip(dartMiddle, kLength - 11.0);
    const Point dartIn(dartMiddle - kDart / 2.0, kLength - 0.3);
    const Point dartOut(dartMiddle + kDart / 2.0, kLength - 0.3);

    const Point hip1(hip.mX, hip.mY + 8.0);
    const Point hip2(waistSide.mX + 1.2, waistSide.mY - 7.0);
    const Point hem1(hem.mX * 0.66, 0.15);
    const Point hem2(hem.mX * 0.33, 0.0);
    const Point outer1 = between(waistSide, dartOut, 0.35);
    const Point outer2(between(waistSide, dartOut, 0.7).mX, dartOut.mY + 0.1);
    const Point inner1(dartIn.mX * 0.66, waistCenter.mY + 0.1);
    const Point inner2(dartIn.mX * 0.33, waistCenter.mY);

    Sheet sheet(QStringLiteral("Skirt front"));
    sheet.from(hemCenter).allowance(4.0).curve(hem2, hem1, hem);
    sheet.allowance(1.5).line(hip).curve(hip1, hip2, waistSide);
    sheet.allowance(1.0)
        .curve(outer1, outer2, dartOut)
        .dart(dartTip, dartIn)
        .curve(inner1, inner2, waistCenter);
    sheet.curve(image(inner2), image(inner1), image(dartIn)).dart(image(dartTip), image(dartOut));
    sheet.curve(image(outer2), image(outer1), image(waistSide));
    sheet.allowance(1.5).curve(image(hip2), image(hip1), image(hip)).line(image(hem));
    sheet.allowance(4.0).curve(image(hem1), image(hem2), hemCenter);
    sheet.notch(hip).notch(image(hip)).notch(waistCenter).notch(hemCenter);
    sheet.innerLine(image(hip), hip);
    sheet.axis(QStringLiteral("Front"), hemCenter, waistCenter).width(QStringLiteral("Hip"), image(hip), hip);
    sheet.width(QStringLiteral("Waist"), image(waistSide), waistSide)
        .width(QStringLiteral("Hem"), image(hem), hem);
    return sheet.grain(Point(-5.0, 8.0), Point(-5.0, 44.0)).mirrored();
}

} // namespace drafting
