#include "Line.h"

#include "Refusal.h"

#include <QLocale>

namespace room
{

namespace
{

constexpr int kWidth = 79; // columns, as in Qt's list of options

QString wrapped(const QString &text)
{
    QString lines;
    for (const QString &paragraph : text.split(QLatin1Char('\n'))) {
        QString line;
        for (const QString &word : paragraph.split(QLatin1Char(' '))) {
            if (!line.isEmpty() && line.size() + 1 + word.size() > kWidth) {
                lines += line + QLatin1Char('\n');
                line.clear();
            }
            line += line.isEmpty() ? word : QLatin1Char(' ') + word;
        }
        lines += line + QLatin1Char('\n');
    }
    return lines;
}

QString countInWords(int count)
{
    return count == 0   ? QStringLiteral("nothing")
           : count == 1 ? QStringLiteral("one argument")
                        : QStringLiteral("%1 arguments").arg(count);
}

} // namespace

bool Line::parse(int fewest, int most)
{
    value("unit", "UNIT", "Lengths in cm, mm, inch or fraction (of inches); cm by default.");
    value("locale", "NAME", "Numbers and formulas as in a locale, such as de_DE.");
    flag("yes", "Answer questions with yes.");
    flag("no", "Answer questions with no.");
    mParser.addOption({{QStringLiteral("h"), QStringLiteral("help")}, QStringLiteral("Show this.")});
    if (!mParser.parse(QStringList{QStringLiteral("patternroom")} + placesLast(mWords.mid(1))))
        throw Refusal(mParser.errorText().endsWith(QLatin1Char('.')) ? mParser.errorText()
                                                                     : mParser.errorText() + QLatin1Char('.'),
                      Exit_Usage);
    if (mParser.isSet(QStringLiteral("help"))) {
        mConsole.print(help());
        return false;
    }
    const int count = mParser.positionalArguments().size();
    if (count < fewest || count > most) {
        throw Refusal(QStringLiteral("'%1' takes %2, but was given %3: 'patternroom %1 --help' tells more.")
                          .arg(mWords.first(), mArguments, countInWords(count)),
                      Exit_Usage);
    }
    mStyle = lengthStyle(isSet("unit") ? text("unit") : QStringLiteral("cm"));
    settle();
    return true;
}

QString Line::help() const
{
    return QStringLiteral("Usage: patternroom %1 %2 [options]\n\n%3\nExample:\n  patternroom %4\n\n%5")
        .arg(mWords.first(), mArguments, wrapped(mWhat), mExample,
             mParser.helpText().section(QStringLiteral("\n\n"), 1));
}

QStringList Line::placesLast(const QStringList &words) const
{
    QStringList kept;
    QStringList places;
    for (int i = 0; i < words.size(); ++i) {
        const QString &word = words.at(i);
        if (word == QLatin1String("--"))
            return kept + words.mid(i) + places;
        const bool isNegative = word.startsWith(QLatin1Char('-')) && word.size() > 1 &&
                                (word.at(1).isDigit() || word.contains(QLatin1Char('(')));
        const QString before = words.value(i - 1);
        const bool isValue = before.startsWith(QLatin1Char('-')) && !mFlags.contains(before) &&
                             !before.contains(QLatin1Char('='));
        (isNegative && !isValue ? places : kept) << word;
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
        if (locale.language() == QLocale::C && text("locale") != QLatin1String("C"))
            throw Refusal(QStringLiteral("There is no locale '%1'.").arg(text("locale")), Exit_Usage);
    }
    QLocale::setDefault(locale);
}

} // namespace room
