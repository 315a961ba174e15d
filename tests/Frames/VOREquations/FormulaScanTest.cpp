// The preparation of formula text, held against the plain form of its rules.

#include "VOREquations/FormulaScan.h"
#include "FormulaFixture.h"
#include "RandomNumbers.h"

#include <QRegExp>
#include <rapidcheck/gtest.h>

using namespace VorSystem;

namespace
{

const char *const kLocales[] = {"C", "en_US", "de_DE", "fr_FR", "pl_PL", "ar_EG"};

class LocaleForNow
{
public:
    explicit LocaleForNow(const char *name) { QLocale::setDefault(QLocale(QString::fromLatin1(name))); }
    ~LocaleForNow() { QLocale::setDefault(QLocale::c()); }
};

/// The rules one after the other: decimal signs by a pattern, then removal from the end to the start, then
/// each position counted up over what was removed before it.
struct PlainScan {
    explicit PlainScan(const QString &typed) : text(typed), prepared(typed.toLower())
    {
        const QRegExp decimal(QStringLiteral("(\\d*)\\") + QLocale().decimalPoint() +
                              QStringLiteral("(?=\\d+)"));
        prepared.replace(decimal, QStringLiteral("\\1."));
        for (int place = prepared.size() - 1; place >= 0; --place) {
            if (prepared.at(place).isSpace() || prepared.at(place) == QLocale().groupSeparator()) {
                prepared.remove(place, 1);
                removed.prepend(place);
            }
        }
    }
    QString typedText(int start, int end) const
    {
        for (const int place : removed) {
            if (place <= start)
                ++start;
            if (place <= end)
                ++end;
        }
        return text.mid(start, end - start);
    }

    QString text;
    QString prepared;
    QList<int> removed;
};

QString prepared(const FormulaScan &scan)
{
    return QString::fromUtf16(scan.text().data(), static_cast<int>(scan.text().size()));
}

QString typedText(const FormulaScan &scan, int start, int end)
{
    return scan.typedText(scan.text().begin() + start, scan.text().begin() + end);
}

/// Texts of what matters here: digits, signs, separators and blanks of all locales, letters that change their
/// length, and halves of surrogate pairs.
QString randomText()
{
    static const QString kAlphabet =
        QStringLiteral("0123456789,.,. \t\u00a0\u202f\u2009\u066b\u066c\u2019\u0660\u0663\u0966()+-*/%aAeE:"
                       "\u0130\u0131\u00df\u03a3\u4e2d\u0125") +
        QChar(0xd83d) + QChar(0xdc55) + QChar(0);
    QString text;
    const int length = formulas::anyBelow(40);
    for (int i = 0; i < length; ++i)
        text += kAlphabet.at(formulas::anyBelow(kAlphabet.size()));
    return text;
}

RC_GTEST_PROP(FormulaScanProperty, onePassGivesTheTextAndThePositionsOfThePlainRules, ())
{
    const LocaleForNow locale(kLocales[formulas::anyBelow(6)]);
    const QString typed = randomText();
    const FormulaScan scan(typed);
    const PlainScan plain(typed);

    RC_ASSERT(prepared(scan) == plain.prepared);
    const int length = plain.prepared.size();
    for (int start = 0; start <= length; ++start) {
        for (int end = start; end <= length; ++end)
            RC_ASSERT(typedText(scan, start, end) == plain.typedText(start, end));
    }
}

TEST(FormulaScanTest, everyCharacterIsPreparedAsByThePlainRules)
{
    for (const char *name : kLocales) {
        const LocaleForNow locale(name);
        QString all;
        all.reserve(4 * 0x10000);
        for (int unit = 0; unit < 0x10000; ++unit) {
            all += QChar(unit);
            all += QLatin1Char('x');
            all += QLocale().decimalPoint(); // is the unit a digit, by which a decimal sign is known?
            all += QChar(unit);
        }
        EXPECT_EQ(prepared(FormulaScan(all)), PlainScan(all).prepared) << name;
    }
}

TEST(FormulaScanTest, trailingBlanksBelongToTheNameBeforeThem)
{
    const QString typed = QStringLiteral(" a  b  ");
    const FormulaScan scan(typed);

    EXPECT_EQ(formulas::text(prepared(scan)), "ab");
    EXPECT_EQ(formulas::text(typedText(scan, 0, 2)), "a  b  ");
    EXPECT_EQ(formulas::text(typedText(scan, 0, 1)), "a  ");
    EXPECT_EQ(formulas::text(typedText(scan, 2, 2)), "");
}

} // namespace
