// Documents in files.

#include <VorDocument/DocumentFile.h>

#include <QFile>
#include <QSaveFile>

namespace VorSystem
{

namespace
{

bool refuse(DocumentReport *report, const QString &path, const QString &problem)
{
    if (report)
        *report = {QStringLiteral("%1: %2").arg(path, problem), {}};
    return false;
}

} // namespace

bool saveDocument(const PatternDocument &document, const QString &path, DocumentReport *report)
{
    const QByteArray text = documentToText(document, report);
    if (text.isEmpty())
        return false;
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size() || !file.commit())
        return refuse(report, path, file.errorString());
    return true;
}

bool loadDocument(const QString &path, PatternDocument &document, DocumentReport *report)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return refuse(report, path, file.errorString());
    const QByteArray text = file.readAll();
    if (file.error() != QFileDevice::NoError)
        return refuse(report, path, file.errorString());
    return documentFromText(text, document, report);
}

} // namespace VorSystem
