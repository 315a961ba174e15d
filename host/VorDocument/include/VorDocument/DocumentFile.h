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
    /// Why it failed, with the path of the key at fault ("pieces[2].contours[0].vectors[7].at: ..."), or with
    /// the names of the element and the set; empty on success.
    QString error;
    /// Sentences for the user, in the order of the text.
    ///
    /// Of a reading: what stood in the text and did not arrive. That is a set that was left out, or a
    /// skeleton that could not be tied, and why; a formula that is none, that its element does not take, or
    /// whose element is not there; a control without vectors; a key or a value that was passed over. At most
    /// twenty sentences tell of one set or skeleton. Of a writing: what the text has no place for, though all
    /// sets and skeletons will be there again, such as the formula of one of two elements of one name.
    QStringList dropped;
};

/// The text of a document: readable, and the same again after it was read and written once. Empty, with
/// report->error, for a document that has no text: one that holds a number that is not finite, a formula
/// nested deeper than a text can be, or a set or skeleton that would not be read again.
VORDOCUMENT_EXPORT QByteArray documentToText(const PatternDocument &document,
                                             DocumentReport *report = nullptr);

/// Reads a text into document in place of everything it held. False for a text that is not the form of a
/// document, and the document is then untouched.
///
/// A set of elements that does not resolve and a skeleton that cannot be tied are kept as they stand in the
/// text and written again. Like all that is told in report->dropped, they are no failure.
VORDOCUMENT_EXPORT bool documentFromText(const QByteArray &text, PatternDocument &document,
                                         DocumentReport *report = nullptr);

/// Writes the text to a file, whole or not at all: what stood there stays until the new text was read back
/// and is complete on the disk. A device is written to directly.
VORDOCUMENT_EXPORT bool saveDocument(const PatternDocument &document, const QString &path,
                                     DocumentReport *report = nullptr);

/// Reads a file of up to 256 MiB; false, and the document untouched, for a file that cannot be read.
VORDOCUMENT_EXPORT bool loadDocument(const QString &path, PatternDocument &document,
                                     DocumentReport *report = nullptr);

} // namespace VorSystem
