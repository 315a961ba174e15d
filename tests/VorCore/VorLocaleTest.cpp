// Numbers as the user sees them, and the unit they are in.
#include <QRegularExpression>
#include <VorCore/VorCore.h>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

using namespace VorSystem;

namespace
{

// Sets Qt's default locale and puts the C locale of the tests back.
class VorLocaleTest : public testing::Test
{
protected:
    ~VorLocaleTest() override { QLocale::setDefault(QLocale::c()); }

    static std::string format(double value, VorLocale::Options options = VorLocale::NoOption)
    {
        return VorLocale().formatNumber(value, options).toStdString();
    }
};

} // namespace

TEST_F(VorLocaleTest, writesTheShortestDigitsThatReadBack)
{
    const struct {
        double value;
        const char *text;
    } cases[] = {
        {0.0, "0"},
        {-0.0, "-0"},
        {3.0, "3"},
        {-2.5, "-2.5"},
        {0.1, "0.1"},
        {0.1 + 0.2, "0.30000000000000004"},
        {1.0 / 3.0, "0.3333333333333333"},
        {100000.0, "100000"},
        {1234567.5, "1234567.5"},
        {123456789012345.0, "123456789012345"},
        {0.00001, "0.00001"},
        {-0.0000099, "-9.9e-06"}, // from here on an exponent
        {1e15, "1e+15"},
        {1.7976931348623157e308, "1.7976931348623157e+308"},
        {5e-324, "5e-324"},
        {INFINITY, "inf"},
        {-INFINITY, "-inf"},
        {std::nan(""), "nan"},
    };
    for (const auto &row : cases)
        EXPECT_EQ(format(row.value), row.text);
}

TEST_F(VorLocaleTest, onlyTheDecimalSignIsTheLocales)
{
    const struct {
        const char *locale;
        const char *plain;
        const char *grouped;
    } cases[] = {
        {"C", "-1234567.25", "-1,234,567.25"},
        {"en_US", "-1234567.25", "-1,234,567.25"},
        {"de_DE", "-1234567,25", "-1.234.567,25"},
        {"de_CH", "-1234567.25", "-1\u2019234\u2019567.25"},
        {"fr_FR", "-1234567,25", "-1\u202f234\u202f567,25"},
        {"sv_SE", "-1234567,25", "-1\u00a0234\u00a0567,25"}, // where Qt itself writes a minus U+2212
        {"ar_EG", "-1234567\u066b25", "-1\u066c234\u066c567\u066b25"},
    };
    for (const auto &row : cases) {
        QLocale::setDefault(QLocale(QString::fromLatin1(row.locale)));
        EXPECT_EQ(format(-1234567.25), row.plain) << row.locale;
        EXPECT_EQ(format(-1234567.25, VorLocale::GroupDigits), row.grouped) << row.locale;
    }
}

TEST_F(VorLocaleTest, groupsFromTheFourthDigitOn)
{
    EXPECT_EQ(format(999.0, VorLocale::GroupDigits), "999");
    EXPECT_EQ(format(-999.5, VorLocale::GroupDigits), "-999.5");
    EXPECT_EQ(format(1000.0, VorLocale::GroupDigits), "1,000");
    EXPECT_EQ(format(-123456.0, VorLocale::GroupDigits), "-123,456");
    EXPECT_EQ(format(0.12345, VorLocale::GroupDigits), "0.12345");
    EXPECT_EQ(format(1e20, VorLocale::GroupDigits), "1e+20");
    EXPECT_EQ(format(-INFINITY, VorLocale::GroupDigits), "-inf");
}

TEST_F(VorLocaleTest, aLocaleKeepsTheDecimalSignOfItsConstruction)
{
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    const VorLocale german;
    QLocale::setDefault(QLocale::c());

    EXPECT_EQ(german.formatNumber(2.5, VorLocale::NoOption), QStringLiteral("2,5"));
    EXPECT_EQ(VorLocale().formatNumber(2.5, VorLocale::NoOption), QStringLiteral("2.5"));
}

RC_GTEST_PROP(VorLocaleProperties, everyDoubleReadsBackBitForBit, ())
{
    const auto bits = *rc::gen::arbitrary<std::uint64_t>();
    const auto typed = *rc::gen::map(rc::gen::inRange(-10000000, 10000000), [](int n) { return n / 1000.0; });
    const QRegularExpression trailingZeros(QStringLiteral("0*$"));
    double anything = 0.0;
    std::memcpy(&anything, &bits, sizeof anything);
    for (const double value : {anything, typed, 1.0 / typed}) {
        if (std::isnan(value))
            continue;
        const QString text = VorLocale().formatNumber(value, VorLocale::NoOption);
        bool isNumber = false;
        const double back = QLocale::c().toDouble(text, &isNumber);
        RC_ASSERT(isNumber);
        RC_ASSERT(std::memcmp(&back, &value, sizeof value) == 0);
        // One digit less would be another double.
        const QString digits = QString(text).remove(QRegularExpression(QStringLiteral("e.*|^-?[0.]*|[.]")));
        const int count = std::isinf(value) ? 0 : QString(digits).remove(trailingZeros).size();
        RC_ASSERT(count < 2 || QString::number(value, 'e', count - 2).toDouble() != value);
    }
}

TEST_F(VorLocaleTest, lengthUnitIsTheApplicationsAtTheMomentOfTheCall)
{
    class Program : public VorCoreApplication
    {
    };
    const VorLocale locale;
    EXPECT_EQ(locale.lengthUnit(), LengthUnit::centimetre());

    Program program;
    program.setLengthUnit(LengthUnit::inch());
    EXPECT_EQ(locale.lengthUnit(), LengthUnit::inch());
    const RelayBaton baton = program.resetAppUnitToCentimetre();
    EXPECT_EQ(locale.lengthUnit(), LengthUnit::centimetre());
}
