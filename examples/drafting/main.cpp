// Writes the bundled documents into a folder.

#include "BundledDocuments.h"

#include <VorDocument/DocumentFile.h>
#include <VorDocument/PatternDocument.h>

#include <QDir>

#include <cstdio>

int main(int count, char **words)
{
    if (count != 2) {
        std::fprintf(stderr, "usage: drafting FOLDER\n");
        return 2;
    }
    const QDir folder(QString::fromLocal8Bit(words[1]));
    for (const drafting::BundledDocument &bundled : drafting::bundledDocuments()) {
        VorSystem::DocumentReport report;
        if (!VorSystem::saveDocument(*bundled.document, folder.filePath(bundled.fileName), &report)) {
            std::fprintf(stderr, "%s\n", qUtf8Printable(report.error));
            return 1;
        }
    }
    return 0;
}
