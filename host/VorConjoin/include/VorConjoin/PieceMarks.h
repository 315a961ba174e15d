// What is drawn on a piece beside its vectors and lines: marks that hang on vectors and are never walked.
#pragma once

#include <VorGeo/GeoPoint2D.h>

namespace VorSystem
{

class CDbPointVOR;

/// A notch on an anchor of a contour: it stays on the line because the anchor does.
struct Notch {
    const CDbPointVOR *place = nullptr;
};

/// The grain: starts at an anchor, with a direction and a length (cm) that no change of the piece touches.
struct GrainLine {
    const CDbPointVOR *anchor = nullptr;
    GeoPoint2D direction; ///< of length 1
    double length = 0.0;
};

/// A line that is drawn inside the piece.
struct InnerLine {
    enum eUse { Fold, Inner };

    const CDbPointVOR *from = nullptr;
    const CDbPointVOR *to = nullptr;
    eUse use = Inner;
};

/// Seam allowance of the contour's edge that begins at a vector, drawn outside the seam line.
struct SeamAllowance {
    const CDbPointVOR *edge = nullptr;
    double width = 0.0; ///< cm
};

/// A drill hole at a vector inside the piece.
struct DrillHole {
    const CDbPointVOR *place = nullptr;
};

} // namespace VorSystem
