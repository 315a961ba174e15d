// Reads the skeleton of a contour from its stored form, and tells what of it did not arrive.
#pragma once

#include "JsonPlace.h"

namespace VorSystem
{

class GabaritObject;
class PatternDocument;

/// Ties a contour of the document's pieces by its stored skeleton. The sets must be there.
///
/// told receives a sentence for each control or value that was passed over. A skeleton that cannot be tied is
/// kept by the document as it stands in the text, and the answer is a sentence that says why; it is empty for
/// one that arrived and where there is none. Raises JsonFault for what is no object.
QString skeletonFromJson(const JsonPlace &stored, GabaritObject *gabarit, PatternDocument &document,
                         QStringList &told);

} // namespace VorSystem
