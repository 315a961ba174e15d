// Reads the sets of elements from their stored form, and tells what of it did not arrive.
#pragma once

#include <QStringList>

class QJsonArray;

namespace VorSystem
{

class PatternDocument;

/// Reads sets into the manager of a document; the library's reader decides what is taken. A set that it
/// leaves out is kept by the document as it stands in the text.
///
/// told receives a sentence for each set that was left out, and for each value, formula or record of another
/// one that was passed over. The answer holds, set by set, why it was left out; empty for one that arrived.
QStringList setsFromJson(const QJsonArray &stored, PatternDocument &document, QStringList &told);

} // namespace VorSystem
