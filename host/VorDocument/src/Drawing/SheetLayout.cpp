#include "SheetLayout.h"

#include <algorithm>
#include <cmath>

namespace VorSystem
{

namespace
{

constexpr double kGap = 36.0;           // mm between pieces
constexpr double kWidthToHeight = 1.35; // of the sheet, about
constexpr double kLeastWidth = 340.0;   // heading, legend and scale bar need this

double widthOf(const GeoRectangle &extent)
{
    return extent.isEmpty() ? 0.0 : 10.0 * (extent.right() - extent.left());
}

double heightOf(const GeoRectangle &extent)
{
    return extent.isEmpty() ? 0.0 : 10.0 * (extent.top() - extent.bottom());
}

} // namespace

SheetLayout::SheetLayout(const std::vector<GeoRectangle> &extents)
{
    double area = 0.0;
    double widest = kLeastWidth;
    for (const GeoRectangle &extent : extents) {
        area += (widthOf(extent) + kGap) * (heightOf(extent) + kGap);
        widest = std::max(widest, widthOf(extent));
    }
    const double rowWidth = std::max(widest, std::sqrt(area * kWidthToHeight));

    double x = 0.0;
    double rowTop = kHeading + kMargin;
    double rowHeight = 0.0;
    double used = kLeastWidth;
    for (const GeoRectangle &extent : extents) {
        if (x > 0.0 && x + widthOf(extent) > rowWidth) {
            rowTop += rowHeight + kGap;
            rowHeight = 0.0;
            x = 0.0;
        }
        const double left = extent.isEmpty() ? 0.0 : extent.left();
        const double top = extent.isEmpty() ? 0.0 : extent.top();
        places.push_back({kMargin + x - 10.0 * left, rowTop + 10.0 * top});
        x += widthOf(extent);
        used = std::max(used, x);
        x += kGap;
        rowHeight = std::max(rowHeight, heightOf(extent));
    }
    width = used + 2.0 * kMargin;
    height = rowTop + rowHeight + kFooting + kMargin;
}

void drawScaleBar(SvgSheet &sheet, double x, double y)
{
    sheet.beginGroup(QStringLiteral("scale"), QStringLiteral("Scale bar, 10 cm"));
    sheet.line(QStringLiteral("mark"), GeoPoint2D(x, y), GeoPoint2D(x + 100.0, y));
    for (int tick = 0; tick <= 10; ++tick) {
        const double length = tick % 5 == 0 ? 5.0 : 2.5;
        sheet.line(QStringLiteral("mark"), GeoPoint2D(x + 10.0 * tick, y),
                   GeoPoint2D(x + 10.0 * tick, y - length));
    }
    sheet.text(QStringLiteral("small"), GeoPoint2D(x, y + 6.0), 5.0, QStringLiteral("0"));
    sheet.text(QStringLiteral("small"), GeoPoint2D(x + 50.0, y + 6.0), 5.0, QStringLiteral("5"));
    sheet.text(QStringLiteral("small"), GeoPoint2D(x + 100.0, y + 6.0), 5.0, QStringLiteral("10 cm"));
    sheet.endGroup();
}

} // namespace VorSystem
