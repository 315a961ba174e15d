// Where pieces lie on a sheet.
#pragma once

#include "SvgSheet.h"

#include <vector>

namespace VorSystem
{

/// Rows of pieces under a heading and over a footing.
struct SheetLayout {
    /// Extents in centimetres, in the order of the pieces.
    explicit SheetLayout(const std::vector<GeoRectangle> &extents);

    double width = 0.0; ///< mm
    double height = 0.0;
    std::vector<SheetPlace> places;

    static constexpr double kMargin = 20.0;
    static constexpr double kHeading = 34.0;
    static constexpr double kFooting = 42.0;
};

/// Ten centimetres, with a tick each; x is its left end.
void drawScaleBar(SvgSheet &sheet, double x, double y);

} // namespace VorSystem
