// Drawings of documents: SVG at true size, in millimetres.
#pragma once

#include <VorDocument/VorDocumentExport.h>

#include <QByteArray>

#include <vector>

namespace VorSystem
{

class CDbPointVOR;
class PatternDocument;

/// What is drawn beside the pieces.
struct DrawingOptions {
    bool withAllowances = true;              ///< the cut line of the base size; never in an overlay
    bool withSkeletons = true;               ///< axes, frames and segments
    std::vector<const CDbPointVOR *> stacks; ///< marked as the points at which sizes were laid together
};

/// The nest of every piece: a group of class "size" with a title for each size, the base size in bold; cut
/// line, darts open, notches, inner lines and points, grain, fold, axes, names, scale bar and legend.
///
/// Moves no vector. A document without pieces gives an empty sheet.
VORDOCUMENT_EXPORT QByteArray drawDocument(const PatternDocument &document,
                                           const DrawingOptions &options = {});

/// The pieces of two documents on top of each other, matched by name, in one size (counted from 1; 0: the
/// nest): groups of the classes "before" and "after". Skeletons and marked points are those of after.
VORDOCUMENT_EXPORT QByteArray drawOverlay(const PatternDocument &before, const PatternDocument &after,
                                          short sizeNumber = 0, const DrawingOptions &options = {});

} // namespace VorSystem
