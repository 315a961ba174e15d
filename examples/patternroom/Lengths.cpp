#include "Lengths.h"

#include "Refusal.h"

#include <QLocale>
#include <QStringList>

#include <cmath>

namespace room
{

using VorSystem::LengthUnit;

namespace
{

constexpr double kLongest = 1e5; // cm: a kilometre of cloth is a slip of the finger
constexpr int kFinestPart = 16;  // of an inch

int decimalsOf(const LengthUnit &unit)
{
    if (unit == LengthUnit::millimetre())
        return 1;
    return unit == LengthUnit::inch() ? 3 : 2;
}

QString inFractions(double inches)
{
    const qint64 parts = std::llround(std::abs(inches) * kFinestPart);
    qint64 numerator = parts % kFinestPart;
    qint64 denominator = kFinestPart;
    while (numerator != 0 && numerator % 2 == 0) {
        numerator /= 2;
        denominator /= 2;
    }
    const qint64 whole = parts / kFinestPart;
    QString text = inches < 0.0 && parts != 0 ? QStringLiteral("-") : QString();
    if (whole != 0 || numerator == 0)
        text += QString::number(whole);
    if (numerator != 0) {
        text += whole != 0 ? QStringLiteral(" ") : QString();
        text += QStringLiteral("%1/%2").arg(numerator).arg(denominator);
    }
    return text;
}

bool readPlain(const QString &text, double &number)
{
    bool fine = false;
    number = QLocale().toDouble(text, &fine);
    return fine && std::isfinite(number);
}

// "1/2" or "15 1/2".
bool readFraction(const QString &text, double &number)
{
    const int slash = text.indexOf(QLatin1Char('/'));
    if (slash < 0)
        return false;
    const int blank = text.lastIndexOf(QLatin1Char(' '), slash);
    double whole = 0.0;
    if (blank >= 0 && !readPlain(text.left(blank).trimmed(), whole))
        return false;
    bool isNumerator = false;
    bool isDenominator = false;
    const int numerator = text.mid(blank + 1, slash - blank - 1).toInt(&isNumerator);
    const int denominator = text.mid(slash + 1).toInt(&isDenominator);
    if (!isNumerator || !isDenominator || denominator <= 0)
        return false;
    const double part = double(numerator) / denominator;
    number = text.startsWith(QLatin1Char('-')) && blank >= 0 ? whole - part : whole + part;
    return true;
}

// Takes a unit off the end of text.
LengthUnit takeUnit(QString &text, const LengthUnit &usual)
{
    static const struct {
        QLatin1String sign;
        LengthUnit unit;
    } kSigns[] = {
        {QLatin1String("cm"), LengthUnit::centimetre()}, {QLatin1String("mm"), LengthUnit::millimetre()},
        {QLatin1String("inch"), LengthUnit::inch()},     {QLatin1String("in"), LengthUnit::inch()},
        {QLatin1String("\""), LengthUnit::inch()},
    };
    for (const auto &known : kSigns) {
        if (text.endsWith(known.sign, Qt::CaseInsensitive)) {
            text = text.left(text.size() - known.sign.size()).trimmed();
            return known.unit;
        }
    }
    return usual;
}

} // namespace

QString LengthStyle::show(double centimetres) const
{
    const double length = unit.fromCentimeter(centimetres);
    if (fractions)
        return inFractions(length);
    QLocale locale;
    locale.setNumberOptions(QLocale::OmitGroupSeparator);
    const int decimals = decimalsOf(unit);
    const double half = 0.5 * std::pow(10.0, -decimals);
    return locale.toString(std::abs(length) < half ? 0.0 : length, 'f', decimals);
}

QString LengthStyle::showDifference(double centimetres) const
{
    const QString text = show(centimetres);
    const bool isNothing = text == show(0.0);
    return isNothing || text.startsWith(QLatin1Char('-')) ? text : QLatin1Char('+') + text;
}

double LengthStyle::typed(double length, double present) const
{
    const double step = fractions ? 1.0 / kFinestPart : std::pow(10.0, -decimalsOf(unit));
    const double steps = unit.fromCentimeter(length) / step;
    constexpr double kSlack = 1e-6; // of a step: what arithmetic leaves
    const double whole = length > present ? std::floor(steps + kSlack) : std::ceil(steps - kSlack);
    return unit.toCentimeter(whole * step);
}

QString LengthStyle::sign() const
{
    return QString(unit.symbol());
}

LengthStyle lengthStyle(const QString &name)
{
    if (name == QLatin1String("cm"))
        return {LengthUnit::centimetre(), false};
    if (name == QLatin1String("mm"))
        return {LengthUnit::millimetre(), false};
    if (name == QLatin1String("inch") || name == QLatin1String("in"))
        return {LengthUnit::inch(), false};
    if (name == QLatin1String("fraction"))
        return {LengthUnit::inch(), true};
    throw Refusal(QStringLiteral("There is no unit '%1': choose cm, mm, inch or fraction.").arg(name),
                  Exit_Usage);
}

double lengthOf(const QString &text, const LengthStyle &style, const QString &what)
{
    QString digits = text.trimmed();
    const LengthUnit unit = takeUnit(digits, style.unit);
    double number = 0.0;
    if (!readPlain(digits, number) && !readFraction(digits, number)) {
        throw Refusal(QStringLiteral("'%1' is no length for %2: write a number such as %3, with cm, mm or in "
                                     "behind it if it is not in %4.")
                          .arg(text, what, style.show(style.unit.toCentimeter(38.5)), style.sign()));
    }
    const double length = unit.toCentimeter(number);
    if (!(std::abs(length) <= kLongest))
        throw Refusal(QStringLiteral("%1 is out of range for %2: at most 1 km.").arg(text.trimmed(), what));
    return length;
}

double toleranceOf(const QString &text, const LengthStyle &style)
{
    const double tolerance = lengthOf(text, style, QStringLiteral("--tolerance"));
    if (tolerance < 0.0)
        throw Refusal(
            QStringLiteral("%1 is out of range for --tolerance: it cannot be negative.").arg(text.trimmed()));
    return tolerance;
}

VorSystem::QListEx<double> lengthsOf(const QString &text, const LengthStyle &style, int expected,
                                     const QString &what)
{
    const QStringList parts = text.split(QLatin1Char(';'));
    if (parts.size() != expected) {
        throw Refusal(QStringLiteral("A value for each size is needed for %1, with semicolons between: %2 "
                                     "given, %3 needed.")
                          .arg(what, QString::number(parts.size()), QString::number(expected)));
    }
    VorSystem::QListEx<double> lengths;
    for (const QString &part : parts)
        lengths.append(lengthOf(part, style, what));
    return lengths;
}

double numberOf(const QString &text, const QString &what)
{
    double number = 0.0;
    if (!readPlain(text.trimmed(), number))
        throw Refusal(QStringLiteral("'%1' is no number for %2.").arg(text, what));
    return number;
}

} // namespace room
