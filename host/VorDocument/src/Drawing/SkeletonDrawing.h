// Axes, frames and segments of a piece.
#pragma once

#include "SvgSheet.h"

namespace VorSystem
{

/// Draws the skeletons of a piece as it stands in the nest.
void drawSkeletons(SvgSheet &sheet, const SheetPlace &place, const CDbGroupObject &piece,
                   const PieceShape &shape);

} // namespace VorSystem
