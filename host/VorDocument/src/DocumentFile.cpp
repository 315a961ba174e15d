// Documents in files.

#include <VorDocument/DocumentFile.h>

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace VorSystem
{

namespace
{

constexpr qint64 kPart = 1024LL * 1024;        // bytes read at a time
constexpr qint64 kLargestFile = 256LL * kPart; // a device may have no end

bool refuse(DocumentReport *report, const QString &path, const QString &problem)
{
    if (report)
        *report = {QStringLiteral("%1: %2").arg(path, problem), {}};
    return false;
}

// A device takes the text directly: nothing can stand beside it until the text is complete.
bool writeToDevice(const QString &path, const QByteArray &text, DocumentReport *report)
{
    QFile device(path);
    if (!device.open(QIODevice::WriteOnly | QIODevice::Unbuffered) || device.write(text) != text.size())
        return refuse(report, path, device.errorString());
    return true;
}

} // namespace

bool saveDocument(const PatternDocument &document, const QString &path, DocumentReport *report)
{
    const QByteArray text = documentToText(document, report);
    if (text.isEmpty())
        return false;
    const QFileInfo place(path);
    if (place.isDir())
        return refuse(report, path, QStringLiteral("is a folder"));
    if (place.exists() && !place.isFile())
        return writeToDevice(path, text, report);
    // Flushed by hand: a short text is still in the buffer when it is committed, and commit() does not notice
    // that the disk does not take it.
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size() || !file.flush() ||
        !file.commit())
        return refuse(report, path, file.errorString());
    return true;
}

bool loadDocument(const QString &path, PatternDocument &document, DocumentReport *report)
{
    if (QFileInfo(path).isDir())
        return refuse(report, path, QStringLiteral("is a folder"));
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return refuse(report, path, file.errorString());
    QByteArray text;
    for (QByteArray part = file.read(kPart); !part.isEmpty() && text.size() <= kLargestFile;
         part = file.read(kPart))
        text += part;
    if (file.error() != QFileDevice::NoError)
        return refuse(report, path, file.errorString());
    if (text.size() > kLargestFile)
        return refuse(report, path, QStringLiteral("is larger than a document may be"));
    return documentFromText(text, document, report);
}

} // namespace VorSystem
