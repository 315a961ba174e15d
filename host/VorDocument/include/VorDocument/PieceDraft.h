// The draft of a piece: its seam line with curves, darts and marks, in every size.
#pragma once

#include <VorConjoin/PieceMarks.h>
#include <VorDocument/VorDocumentExport.h>
#include <VorGeo/GeoPoint2D.h>

#include <QString>

#include <vector>

namespace VorSystem
{

class CDbGroupObject;
class PatternDocument;

/// A place in every size, smallest first; centimetres, y upwards.
using GradedPlace = std::vector<GeoPoint2D>;

/// An edge of the seam line, from the end of the edge before it.
struct DraftEdge {
    GradedPlace to; ///< where it ends

    /// Control points of a cubic curve, from its start; both empty for a straight edge.
    ///@{
    GradedPlace control1;
    GradedPlace control2;
    ///@}
    /// The edge ends in the tip of a dart: it is one leg, the next edge the other one.
    bool endsInDartTip = false;
    double seamAllowance = 0.0; ///< cm; legs of darts have none

    /// True with control points.
    bool isCurve() const { return !control1.empty(); }
};

/// What buildPiece makes a piece of.
struct PieceDraft {
    /// A straight mark from place to place.
    struct Line {
        GradedPlace from;                       ///< where it begins
        GradedPlace to;                         ///< where it ends
        InnerLine::eUse use = InnerLine::Inner; ///< means nothing for the grain
    };

    QString name;                 ///< of the piece, any text
    GradedPlace start;            ///< where the first edge begins
    std::vector<DraftEdge> edges; ///< closed by a straight edge when the last one does not end at the start
    /// Marks: a notch within 1 mm of the seam in every size, else a vector inside with a drill hole.
    std::vector<GradedPlace> marks;
    /// Grain lines: the first end graded; direction and length are those of the nest.
    std::vector<Line> grainLines;
    std::vector<Line> innerLines; ///< folds and the like; an end on an anchor of the seam shares its vector
    bool isMirrored = false;      ///< about the line x = 0: all vectors are paired

    /// Length that a curve may lose by its chords, per edge and size, cm. At most 128 chords are made. The
    /// default is finer than any length needs: it keeps the area of a leg's long curves to 1e-4 as well.
    double chordTolerance = 0.00005;
    /// Places are rounded to multiples of this, and steps that agree within it count as equal; 0: not at all.
    double grid = 0.0;
};

/// Adds the piece to the document: chords of equal parameter for curves, the same number in every size; a cap
/// for the mouth of each dart; vectors regular where their steps allow.
///
/// Null, with words in *error and the document as it was, when the draft makes no piece: places that are not
/// there for every size or not finite, a contour of fewer than three vectors or of too many, a dart tip
/// without two legs.
VORDOCUMENT_EXPORT CDbGroupObject *buildPiece(PatternDocument &document, const PieceDraft &draft,
                                              QString *error = nullptr);

} // namespace VorSystem
