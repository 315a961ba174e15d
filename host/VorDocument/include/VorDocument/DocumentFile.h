// The file form of a document: one JSON text in UTF-8.
#pragma once

#include <VorDocument/VorDocumentExport.h>

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace VorSystem
{

class PatternDocument;

/// What a reading or a writing had to say.
struct DocumentReport {
    /// Why it failed, with the path of the key at fault ("pieces[2].contours[0].vectors[7].at: ..."); empty
    /// on success.
    QString error;
    /// What was read but could not be kept: sets that do not resolve, skeletons that could not be tied.
    QStringList dropped;
};

/// The text of a document: readable, and the same again after it was read and written once. Empty, with
/// report->error, for a document that could not be read back.
VORDOCUMENT_EXPORT QByteArray documentToText(const PatternDocument &document,
                                             DocumentReport *report = nullptr);

/// Reads a text into document in place of everything it held. False for a text that is not the form of a
/// document, and the document is then untouched.
///
/// A set of elements that does not resolve is left out, and a skeleton that cannot be tied is kept as it
/// stands in the text and written again: both are told in report->dropped and are no failure.
VORDOCUMENT_EXPORT bool documentFromText(const QByteArray &text, PatternDocument &document,
                                         DocumentReport *report = nullptr);

/// Writes the text to a file, whole or not at all: what stood there stays until the new text is complete.
VORDOCUMENT_EXPORT bool saveDocument(const PatternDocument &document, const QString &path,
                                     DocumentReport *report = nullptr);

/// Reads a file; false, and the document untouched, for a file that cannot be read.
VORDOCUMENT_EXPORT bool loadDocument(const QString &path, PatternDocument &document,
                                     DocumentReport *report = nullptr);

} // namespace VorSystem
