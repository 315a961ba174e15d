// Nests of other programs: pieces drafted in every size, as JSON.
#pragma once

#include <VorDocument/DocumentFile.h>
#include <VorDocument/VorDocumentExport.h>

namespace VorSystem
{

/// Reads a nest into document in place of everything it held: "unit" mm or cm; "axis", y upwards or
/// downwards; "sizes" and the "base" one among them; "pieces" with a "start" and "edges" (lines, and cubic
/// curves with "cp1" and "cp2") to points "xy" given for every size; "notches", "grainline" and "fold_mark".
///
/// A point whose name ends in Tip is the tip of a dart, with the edges before and behind it as its legs. What
/// the text holds beside this is passed over. False for a text that is no such nest, with the path of the key
/// at fault in report->error, and the document is then untouched.
VORDOCUMENT_EXPORT bool importNest(const QByteArray &text, PatternDocument &document,
                                   DocumentReport *report = nullptr);

} // namespace VorSystem
