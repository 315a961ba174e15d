// Draws documents: reads each file named and writes its nest as SVG beside the others.

#include <VorDocument/DocumentDrawing.h>
#include <VorDocument/DocumentFile.h>
#include <VorDocument/PatternDocument.h>

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

#include <cstdio>

using namespace VorSystem;

namespace
{

int fail(const QString &words)
{
    std::fprintf(stderr, "%s\n", qUtf8Printable(words));
    return 1;
}

bool write(const QString &path, const QByteArray &bytes)
{
    QSaveFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush() &&
           file.commit();
}

} // namespace

int main(int count, char **words)
{
    if (count < 3) {
        std::fprintf(stderr, "usage: drawing OUTPUT_FOLDER DOCUMENT...\n");
        return 2;
    }
    const QDir folder(QString::fromLocal8Bit(words[1]));
    if (!folder.mkpath(QStringLiteral(".")))
        return fail(
            QStringLiteral("%1 cannot be made; name a folder that can be written to.").arg(folder.path()));

    for (int word = 2; word < count; ++word) {
        const QString path = QString::fromLocal8Bit(words[word]);
        PatternDocument document;
        DocumentReport report;
        if (!loadDocument(path, document, &report))
            return fail(QStringLiteral("%1: %2").arg(path, report.error));
        for (const QString &dropped : report.dropped)
            std::fprintf(stderr, "%s: %s\n", qUtf8Printable(path), qUtf8Printable(dropped));

        const QString name = QFileInfo(path).baseName() + QStringLiteral(".svg");
        if (!write(folder.filePath(name), drawDocument(document)))
            return fail(QStringLiteral("%1 cannot be written.").arg(folder.filePath(name)));
        std::printf("%s\n", qUtf8Printable(folder.filePath(name)));
    }
    return 0;
}
