// Axes, frames and segments of a piece.
#pragma once

#include "SvgSheet.h"

namespace VorSystem
{

/// Draws the skeletons of a piece as it stands in the nest.
void drawSkeletons(SvgSheet &sheet, const SheetPlace &place, const CDbGroupObject &piece,
                   const PieceShape &shape);

/// Axes and frames as straight lines, for what must keep off them.
std::vector<CubicCurve> skeletonLines(const CDbGroupObject &piece);

} // namespace VorSystem
