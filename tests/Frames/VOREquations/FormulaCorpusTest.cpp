// The texts that the fuzzer found worth keeping, read again as an ordinary test.

#include "formula_checks.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

namespace
{

TEST(FormulaCorpusTest, everyTextOfTheCorpusIsAnswered)
{
    const QDir corpus(QStringLiteral(FORMULA_CORPUS));
    const QStringList names = corpus.entryList(QDir::Files);
    ASSERT_GT(names.size(), 20);

    int formulas = 0;
    for (const QString &name : names) {
        QFile file(corpus.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
        formulas += formula_checks::check(file.readAll()) ? 1 : 0;
    }
    EXPECT_GT(formulas, 10);
    EXPECT_LT(formulas, names.size());
}

} // namespace
