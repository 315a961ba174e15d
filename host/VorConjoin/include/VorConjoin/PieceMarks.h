// What is drawn on a piece beside its vectors and lines: marks that hang on vectors and are never walked.
#pragma once

#include <VorGeo/GeoPoint2D.h>

namespace VorSystem
{

class CDbPointVOR;

/// A notch on an anchor of a contour: it stays on the line because the anchor does.
struct Notch {
    const CDbPointVOR *place = nullptr; ///< the anchor
};

/// The grain: starts at an anchor, with a direction and a length (cm) that no change of the piece touches.
struct GrainLine {
    const CDbPointVOR *anchor = nullptr; ///< its first end
    GeoPoint2D direction;                ///< of length 1
    double length = 0.0;                 ///< cm, the same in every size
};

/// A line that is drawn inside the piece.
struct InnerLine {
    /// What the line says to whoever cuts.
    enum eUse {
        Fold,  ///< lay this edge on a fold of the cloth
        Inner, ///< any other line
    };

    const CDbPointVOR *from = nullptr; ///< its first end
    const CDbPointVOR *to = nullptr;   ///< its other end
    eUse use = Inner;                  ///< how it is drawn
};

/// Seam allowance of the contour's edge that begins at a vector, drawn outside the seam line.
struct SeamAllowance {
    const CDbPointVOR *edge = nullptr; ///< where the edge begins in contour order
    double width = 0.0;                ///< cm
};

/// A drill hole at a vector inside the piece.
struct DrillHole {
    const CDbPointVOR *place = nullptr; ///< the middle of the hole
};

} // namespace VorSystem
