// String conversion: code units go over one for one.
#include <QString>
#include <VorCore/VorCore.h>
#include <algorithm>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>
#include <vector>

using namespace VorSystem;

RC_GTEST_PROP(Utility, stringConvertCopiesEveryCodeUnit, (const std::vector<unsigned short> &units))
{
    QString text;
    for (const unsigned short unit : units)
        text.append(QChar(unit));

    std::basic_string<unsigned short> converted(3, 7); // what was there is replaced
    Utility::stringConvert(text, converted);

    RC_ASSERT(converted.size() == units.size());
    RC_ASSERT(std::equal(units.begin(), units.end(), converted.begin()));
}

TEST(Utility, zeroLoneSurrogatesAndEmptyTextsAreNoSpecialCase)
{
    std::basic_string<unsigned short> converted;
    const QChar units[] = {QChar(u'a'), QChar(0), QChar(0xdc00), QChar(0xd800), QChar(0xffff)};
    Utility::stringConvert(QString(units, 5), converted);

    const unsigned short expected[] = {'a', 0, 0xdc00, 0xd800, 0xffff};
    EXPECT_EQ(converted, (std::basic_string<unsigned short>(expected, 5)));
    Utility::stringConvert(QString(), converted);
    EXPECT_TRUE(converted.empty());
}
