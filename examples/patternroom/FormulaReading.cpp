// The text of a formula, as a user types it: numbers of his locale, names that must be known, units that must
// fit.
#include "Commands.h"

#include <VorFrames/Errors.h>

#include <QLocale>

namespace room
{

using namespace VorSystem;

namespace
{

constexpr int kShownLetters = 80; // of a formula in a refusal

QString shortened(const QString &text)
{
    return text.size() <= kShownLetters ? text : text.left(kShownLetters) + QStringLiteral("...");
}

// Does letter belong to a number, in any locale?
bool isOfNumber(QChar letter, const QLocale &locale)
{
    return letter.isDigit() || letter == locale.decimalPoint() || letter == locale.groupSeparator() ||
           letter == QLatin1Char('.') || letter == QLatin1Char(',');
}

QString plainNumber(const QString &number, const QLocale &locale)
{
    bool isFine = false;
    const double value = locale.toDouble(number, &isFine);
    if (isFine && number.back().isDigit())
        return QString::number(value, 'g', 15);
    // A point is a decimal sign wherever it groups no digits.
    const bool isPlain = !number.contains(QLatin1Char(',')) && locale.groupSeparator() != QLatin1Char('.');
    if (isPlain && QLocale::c().toDouble(number, &isFine) >= 0.0 && isFine)
        return number;
    throw Refusal(QStringLiteral("'%1' is no number of the locale %2: decimals are written like %3.")
                      .arg(number, locale.name(), locale.toString(3.5, 'f', 1)));
}

// The library reads over the sign that groups digits, and with it over the decimal sign of locales that group
// by points: it is given plain numbers. Names in brackets stay as they are.
QString withPlainNumbers(const QString &text)
{
    const QLocale locale;
    QString plain;
    for (int i = 0; i < text.size();) {
        const bool isName =
            text.at(i) == QLatin1Char('(') && !plain.trimmed().isEmpty() && plain.trimmed().back().isLetter();
        const bool isNumber = isOfNumber(text.at(i), locale) && !text.at(i).isSpace();
        int end = i + 1;
        if (isName) {
            const int bracket = text.indexOf(QLatin1Char(')'), i);
            end = bracket < 0 ? text.size() : bracket;
        } else if (isNumber) {
            while (end < text.size() && isOfNumber(text.at(end), locale))
                ++end;
        }
        const QString part = text.mid(i, end - i);
        plain += isNumber ? plainNumber(part, locale) : part;
        i = end;
    }
    return plain;
}

// While it lasts the library reads numbers as they are written in programs.
class PlainLocale
{
public:
    PlainLocale() { QLocale::setDefault(QLocale::c()); }
    ~PlainLocale() { QLocale::setDefault(mBefore); }
    PlainLocale(const PlainLocale &) = delete;
    PlainLocale &operator=(const PlainLocale &) = delete;

private:
    QLocale mBefore;
};

std::unique_ptr<TreeEquations> parsed(const QString &text, FrameSet *set)
{
    const QString plain = withPlainNumbers(text);
    const PlainLocale locale;
    return std::unique_ptr<TreeEquations>(TreeEquations::parse(plain, set, false));
}

QString unknownName(const QString &name, const FrameSet &set, const PatternDocument *document)
{
    QStringList known;
    if (document) {
        for (const Element &element : elementsOf(*document)) {
            if (element.set == &set && element.place.kind != Element_Center)
                known << element.fullName();
        }
    }
    return QStringLiteral("The formula names '%1', which is no element of '%2'.%3")
        .arg(name, set.name(), nearest(name, known));
}

// Refuses names that stand for nothing, values that an element does not have, and names outside Measure(...)
// and Level(...).
void requireNames(const ElementEquation *node, const FrameSet &set, const PatternDocument *document)
{
    if (!node)
        return;
    if (node->contents == ElemNone) {
        throw Refusal(QStringLiteral("'%1' stands alone in the formula: write Measure(%1) or Level(%1).")
                          .arg(shortened(node->pendingName.trimmed())));
    }
    if (node->contents == ElemMeasure || node->contents == ElemLevel) {
        BaseFrame *element = node->element;
        if (!element)
            throw Refusal(unknownName(shortened(node->pendingName.trimmed()), set, document));
        const bool isMeasure = node->contents == ElemMeasure;
        if (isMeasure ? !element->getMeasureBySizes() : !element->getLevelBySizes()) {
            throw Refusal(QStringLiteral("The formula asks for the %1 of '%2', but a %3 has none.")
                              .arg(isMeasure ? QStringLiteral("measure") : QStringLiteral("level"),
                                   element->fullName(), kindName(element->elementType())));
        }
    }
    requireNames(node->sonLeft, set, document);
    requireNames(node->sonRight, set, document);
}

// A file keeps no sign of nothing, so "-0" becomes the zero that is read again.
void dropSignOfZero(ElementEquation *node)
{
    if (!node)
        return;
    if (node->contents == ElemValue && node->value == 0.0)
        node->value = 0.0;
    dropSignOfZero(node->sonLeft);
    dropSignOfZero(node->sonRight);
}

// Constants that are lengths become such; false where lengths and plain numbers are mixed.
bool unitsFit(TreeEquations &tree)
{
    if (!tree.verifierImplicitUnits())
        return false;
    try {
        tree.determineImplicitUnits();
    } catch (const AssertionError &) {
        return false; // a mixture that only shows when the units are settled
    }
    return true;
}

} // namespace

std::unique_ptr<TreeEquations> readFormula(const QString &text, FrameSet *set, BaseFrame *holder,
                                           bool isLevel)
{
    std::unique_ptr<TreeEquations> tree = parsed(text, set);
    if (!tree) {
        throw Refusal(
            QStringLiteral("'%1' is no formula: write numbers, Measure(name), Level(name), + - * / and "
                           "brackets.")
                .arg(shortened(text)));
    }
    requireNames(tree->root, *set, dynamic_cast<PatternDocument *>(set->document()));
    dropSignOfZero(tree->root);
    if (!unitsFit(*tree)) {
        throw Refusal(QStringLiteral("The units of '%1' do not fit: lengths are added and subtracted, and "
                                     "multiplied or divided by plain numbers other than 0.")
                          .arg(shortened(text)));
    }
    const bool isCircle = isLevel ? holder->formulaLevelIsRecursive(tree.get())
                                  : holder->formulaMeasurementIsRecursive(tree.get());
    if (isCircle) {
        throw Refusal(
            QStringLiteral("'%1' would depend on itself by '%2'.").arg(holder->fullName(), shortened(text)));
    }
    return tree;
}

} // namespace room
