// What the text of a document would lose: looked for before the text takes the place of another.
#pragma once

#include <QStringList>

namespace VorSystem
{

class PatternDocument;

/// What of a document has no stored form, in a sentence that names it; empty when everything has one. Vectors
/// are not looked at: a reading of the text names them by their path.
QString whatHasNoForm(const PatternDocument &document);

/// Compares a document with the one that was read back from its text, whose sets are all there.
///
/// The answer names the first control object that is tied to another element than before, or no more; it is
/// empty when each holds on to its own. told receives a sentence for each formula that moved or got lost and
/// for each control object that vanished: the stored form has no place for those.
QString whatChanged(const PatternDocument &document, const PatternDocument &readBack, QStringList &told);

} // namespace VorSystem
