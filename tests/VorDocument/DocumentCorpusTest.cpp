// Every input that the fuzzer kept is taken.

#include <document_checks.h>

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

namespace
{

TEST(DocumentCorpus, everyInputKeptIsTaken)
{
    const QDir corpus(QStringLiteral(DOCUMENT_CORPUS));
    const QStringList names = corpus.entryList(QDir::Files);
    ASSERT_FALSE(names.isEmpty());
    for (const QString &name : names) {
        SCOPED_TRACE(name.toStdString());
        QFile file(corpus.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        document_checks::check(file.readAll());
    }
}

// Sound bytes choose no damage: without this law the fuzzer would check refusals alone.
TEST(DocumentCorpus, theUndamagedDocumentIsReadWhole)
{
    VorSystem::PatternDocument document;
    VorSystem::DocumentReport report;
    ASSERT_TRUE(documentFromText(document_checks::Damager(QByteArray()).text(), document, &report));
    EXPECT_TRUE(report.dropped.isEmpty());
    EXPECT_EQ(document.pieces().size(), 2U);
    EXPECT_EQ(document.framesManager()->numberOfFrameSets(), 1);
}

} // namespace
