// Reads a set of elements from its stored form, and tells what of it did not arrive.
#pragma once

#include <QStringList>

class QJsonValue;

namespace VorSystem
{

class PatternDocument;

/// Reads one set into the manager of a document, as its last one; the library's reader decides what is taken.
///
/// told receives a sentence for each value, formula or record that was passed over. Where the set is left out
/// instead, the answer is a sentence that says why; it is empty for a set that arrived.
QString setFromJson(const QJsonValue &stored, PatternDocument &document, QStringList &told);

} // namespace VorSystem
