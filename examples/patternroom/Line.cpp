#include "Line.h"

#include "Refusal.h"

#include <QLocale>

namespace room
{

bool Line::parse(int fewest, int most)
{
    value("unit", "UNIT", "Lengths in cm, mm, inch or fraction (of inches); cm by default.");
    value("locale", "NAME", "Numbers and formulas as in a locale, such as de_DE.");
    flag("yes", "Answer questions with yes.");
    flag("no", "Answer questions with no.");
    mParser.addHelpOption();
    if (!mParser.parse(QStringList{QStringLiteral("patternroom")} + placesLast(mWords.mid(1))))
        throw Refusal(mParser.errorText().endsWith(QLatin1Char('.')) ? mParser.errorText()
                                                                     : mParser.errorText() + QLatin1Char('.'),
                      Exit_Usage);
    if (mParser.isSet(QStringLiteral("help"))) {
        mConsole.print(mParser.helpText());
        return false;
    }
    const int count = mParser.positionalArguments().size();
    if (count < fewest || count > most) {
        throw Refusal(QStringLiteral("'%1' was given %2 arguments: 'patternroom %1 --help' shows what it "
                                     "needs.")
                          .arg(mWords.first(), QString::number(count)),
                      Exit_Usage);
    }
    mStyle = lengthStyle(isSet("unit") ? text("unit") : QStringLiteral("cm"));
    settle();
    return true;
}

QStringList Line::placesLast(const QStringList &words)
{
    QStringList kept;
    QStringList places;
    for (int i = 0; i < words.size(); ++i) {
        const QString &word = words.at(i);
        const bool isNegative = word.size() > 1 && word.at(0) == QLatin1Char('-') && word.at(1).isDigit();
        const bool isBehindOption = i > 0 && words.at(i - 1).startsWith(QLatin1Char('-'));
        (isNegative && !isBehindOption ? places : kept) << word;
    }
    return places.isEmpty() ? kept : kept + QStringList{QStringLiteral("--")} + places;
}

void Line::settle()
{
    if (isSet("yes") && isSet("no"))
        throw Refusal(QStringLiteral("Give either --yes or --no, not both."), Exit_Usage);
    mConsole.setAnswer(isSet("yes") ? Answer_Yes : isSet("no") ? Answer_No : Answer_Ask);
    mConsole.setLengthUnit(mStyle.unit);
    QLocale locale = QLocale::c();
    if (isSet("locale")) {
        locale = QLocale(text("locale"));
        if (locale.language() == QLocale::C)
            throw Refusal(QStringLiteral("There is no locale '%1'.").arg(text("locale")), Exit_Usage);
    }
    QLocale::setDefault(locale);
}

} // namespace room
