// Kinds of vectors, as stored in CDbPointVOR::mVectorKind.
#pragma once

namespace VorSystem
{

/// What a vector is to its piece. Kinds 0 and 1 are anchors, which no rebuild moves; the others follow them.
enum eVectorKind {
    Vector_Corner = 0,    ///< corner of a contour, free vector inside a piece, or pivot of a dart
    Vector_Curve = 1,     ///< point of a curve, on a contour or inside
    Vector_Pleat = 2,     ///< dependent: on a straight edge between two anchors
    Vector_DartCap = 3,   ///< dependent: cap of a dart, outside the outline
    Vector_Handle = 4,    ///< dependent: tangent handle of a curve, never on a contour
    Vector_DartInner = 5, ///< dependent: inner point of a dart leg
};

} // namespace VorSystem
