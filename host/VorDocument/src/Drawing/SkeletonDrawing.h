// Axes, frames and segments of a piece.
#pragma once

#include "SvgSheet.h"

namespace VorSystem
{

/// Styles of what drawSkeletons draws.
extern const char kSkeletonStyle[];

/// Draws the skeletons of a piece in the size of its shape.
void drawSkeletons(SvgSheet &sheet, const SheetPlace &place, const CDbGroupObject &piece,
                   const PieceShape &shape);

/// Which kinds of control objects pieces have.
struct SkeletonKinds {
    bool centers = false;
    bool frames = false;
    bool segments = false;

    void include(const CDbGroupObject &piece);
};

/// Axes and frames as straight lines, for what must keep off them.
std::vector<CubicCurve> skeletonLines(const CDbGroupObject &piece, const PieceShape &shape);

} // namespace VorSystem
