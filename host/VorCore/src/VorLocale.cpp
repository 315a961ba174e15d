// VorLocale: how numbers and lengths look to the user.
#include <VorCore/VorLocale.h>

#include <VorCore/VorCoreApplication.h>

#include <charconv>
#include <cmath>

namespace VorSystem
{

namespace
{

// Between these magnitudes people expect plain digits, and all of the digits in front carry meaning.
constexpr double kSmallestPlain = 1e-5;
constexpr double kPlainEnd = 1e15;

constexpr int kLongestNumber = 32; // characters of any double in the form chosen, with room to spare

bool isPlain(double value)
{
    const double magnitude = std::abs(value);
    return magnitude == 0.0 || (magnitude >= kSmallestPlain && magnitude < kPlainEnd);
}

// Puts separator between the thousands of the whole part, whose digits end before wholeEnd.
void groupDigits(QString &text, int wholeEnd, QChar separator)
{
    const int firstDigit = text.startsWith(QLatin1Char('-')) ? 1 : 0;
    for (int position = wholeEnd - 3; position > firstDigit; position -= 3)
        text.insert(position, separator);
}

} // namespace

VorLocale::VorLocale() = default;

VorLocale::~VorLocale() = default;

LengthUnit VorLocale::lengthUnit() const
{
    return VorCoreApplication::instance().lengthUnit();
}

QString VorLocale::formatNumber(double value, QFlags<VorLocale::Option> options) const
{
    char digits[kLongestNumber];
    const std::chars_format form = isPlain(value) ? std::chars_format::fixed : std::chars_format::scientific;
    const std::to_chars_result written = std::to_chars(digits, digits + kLongestNumber, value, form);
    QString text = QString::fromLatin1(digits, static_cast<int>(written.ptr - digits));

    const int sign = text.indexOf(QLatin1Char('.'));
    if (sign >= 0)
        text[sign] = mLocale.decimalPoint();
    if (options.testFlag(GroupDigits) && isPlain(value))
        groupDigits(text, sign >= 0 ? sign : text.size(), mLocale.groupSeparator());
    return text;
}

} // namespace VorSystem
