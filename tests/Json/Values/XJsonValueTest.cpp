#include "JsonTestSupport.h"

#include <QDate>
#include <QJsonObject>
#include <QUrl>
#include <QUuid>
#include <cmath>
#include <cstring>
#include <gtest/gtest.h>
#include <limits>
#include <thread>
#include <type_traits>
#include <vector>

using namespace VorSystem;

namespace
{

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(XJsonValue, typeNumbersAreFixed)
{
    EXPECT_EQ(int(XJsonValue().type()), 0);
    EXPECT_EQ(int(XJsonValue(true).type()), 1);
    EXPECT_EQ(int(XJsonValue(1.5).type()), 2);
    EXPECT_EQ(int(XJsonValue("a"_q).type()), 3);
    EXPECT_EQ(int(XJsonValue(XJsonArray()).type()), 4);
    EXPECT_EQ(int(XJsonValue(XJsonObject()).type()), 5);
    EXPECT_EQ(int(XJsonValue(XJsonValue::Undefined).type()), 128);
}

TEST(XJsonValue, aTypeAloneGivesItsEmptyValue)
{
    EXPECT_TRUE(XJsonValue(XJsonValue::Null).isNull());
    EXPECT_EQ(XJsonValue(XJsonValue::Bool), XJsonValue(false));
    EXPECT_EQ(XJsonValue(XJsonValue::Double), XJsonValue(0.0));
    EXPECT_EQ(XJsonValue(XJsonValue::String), XJsonValue(QString()));
    EXPECT_EQ(debugged(XJsonValue(XJsonValue::Array)), "XJsonValue(array, XJsonArray())");
    EXPECT_EQ(debugged(XJsonValue(XJsonValue::Object)), "XJsonValue(object, XJsonObject())");
}

TEST(XJsonValue, aPointerIsNoBoolean)
{
    EXPECT_FALSE((std::is_constructible<XJsonValue, const void *>::value));
    EXPECT_FALSE((std::is_constructible<XJsonValue, const char *>::value));
    EXPECT_TRUE((std::is_convertible<QLatin1String, XJsonValue>::value));
    EXPECT_EQ(XJsonValue(QLatin1String("a")).toString(), "a"_q);
}

TEST(XJsonValue, accessorsOfOtherTypesGiveTheDefault)
{
    const XJsonValue others[] = {XJsonValue(), XJsonValue(XJsonValue::Undefined)};
    for (const XJsonValue &other : others) {
        EXPECT_TRUE(other.toBool(true));
        EXPECT_EQ(other.toInt(7), 7);
        EXPECT_EQ(other.toDouble(7.5), 7.5);
        EXPECT_EQ(other.toString("default"_q), "default"_q);
        EXPECT_TRUE(other.toString().isNull());
        EXPECT_TRUE(other.toArray().isEmpty());
        EXPECT_TRUE(other.toObject().isEmpty());
        EXPECT_EQ(other.toArray(XJsonArray{1}).size(), 1);
        EXPECT_EQ(other.toObject(XJsonObject{{"a"_q, 1}}).size(), 1);
    }
    EXPECT_EQ(XJsonValue(true).toInt(7), 7);
    EXPECT_EQ(XJsonValue("1"_q).toDouble(7), 7);
    EXPECT_TRUE(XJsonValue(1).toBool(true));
    EXPECT_FALSE(XJsonValue(1).toBool());
}

TEST(XJsonValue, toIntGivesIntegralNumbersOfTheIntRangeOnly)
{
    const struct {
        double number;
        int expected;
    } rows[] = {
        // clang-format off
        { 3.0,            3 },
        { -0.0,           0 },
        { 2.5,            -7 },
        { 2147483647.0,   2147483647 },
        { 2147483648.0,   -7 },
        { -2147483648.0,  std::numeric_limits<int>::min() },
        { -2147483649.0,  -7 },
        { 1e300,          -7 },
        { kNaN,           -7 },
        { kInfinity,      -7 },
        { -kInfinity,     -7 },
        // clang-format on
    };
    for (const auto &row : rows)
        EXPECT_EQ(XJsonValue(row.number).toInt(-7), row.expected) << row.number;
    EXPECT_EQ(XJsonValue(2.5).toInt(0), 0);
}

TEST(XJsonValue, integersAreHeldAsDoubles)
{
    const qint64 beyondDouble = (qint64(1) << 53) + 1;

    EXPECT_EQ(XJsonValue(beyondDouble), XJsonValue(9007199254740992.0));
    EXPECT_EQ(XJsonValue(3).toVariant().userType(), int(QMetaType::Double));
    EXPECT_EQ(XJsonValue(3), XJsonValue(3.0));
    EXPECT_EQ(XJsonValue::fromVariant(beyondDouble), XJsonValue(9007199254740992.0));
    EXPECT_EQ(XJsonValue::fromJsonValue(QJsonValue(beyondDouble)), XJsonValue(9007199254740992.0));
}

TEST(XJsonValue, zeroKeepsItsSign)
{
    const XJsonArray array{-0.0, 0.0};
    XJsonObject object{{"a"_q, -0.0}};

    EXPECT_TRUE(std::signbit(XJsonValue(-0.0).toDouble()));
    EXPECT_TRUE(std::signbit(array.at(0).toDouble()));
    EXPECT_FALSE(std::signbit(array.at(1).toDouble()));
    EXPECT_TRUE(std::signbit(object.value("a"_q).toDouble()));
    EXPECT_TRUE(std::signbit(object["a"_q].toDouble()));
    EXPECT_TRUE(std::signbit(array.toVariantList().first().toDouble()));
    EXPECT_TRUE(std::signbit(XJsonArray::fromVariantList({-0.0}).at(0).toDouble()));
    EXPECT_EQ(XJsonValue(-0.0), XJsonValue(0.0));
    EXPECT_EQ(text(array), "[0,0]");
    EXPECT_EQ(array.toJsonArray().at(0), QJsonValue(0.0));
}

TEST(XJsonValue, everyNaNStaysNaN)
{
    double likeHeldZero; // the bits by which negative zero is held: another NaN to the caller
    const quint64 bits = 0x7ff8566f724e5a30;
    std::memcpy(&likeHeldZero, &bits, sizeof likeHeldZero);

    EXPECT_TRUE(std::isnan(XJsonValue(kNaN).toDouble()));
    EXPECT_TRUE(std::isnan(XJsonValue(likeHeldZero).toDouble()));
    EXPECT_TRUE(XJsonValue(kNaN).isDouble());
    EXPECT_EQ(XJsonValue(kInfinity).toDouble(), kInfinity);
}

TEST(XJsonValue, numbersCompareAsDoublesDo)
{
    const XJsonArray holder{kNaN};
    const XJsonArray same = holder;

    EXPECT_NE(XJsonValue(kNaN), XJsonValue(kNaN));
    EXPECT_NE(holder, XJsonArray{kNaN});
    EXPECT_EQ(holder, same); // one and the same storage
    const XJsonArray outer{holder};
    EXPECT_EQ(outer, XJsonArray{same});
    EXPECT_EQ(XJsonValue(kInfinity), XJsonValue(kInfinity));
}

TEST(XJsonValue, comparingLooksAtTypeAndContents)
{
    EXPECT_EQ(XJsonValue(), XJsonValue());
    EXPECT_NE(XJsonValue(), XJsonValue(XJsonValue::Undefined));
    EXPECT_NE(XJsonValue(0), XJsonValue(false));
    EXPECT_NE(XJsonValue("1"_q), XJsonValue(1));
    EXPECT_EQ(XJsonValue(QString()), XJsonValue(""_q));
    EXPECT_EQ(XJsonValue(XJsonArray()), XJsonValue(XJsonArray::fromVariantList({})));
    EXPECT_NE(XJsonValue(XJsonArray()), XJsonValue(XJsonObject()));
    EXPECT_NE(XJsonValue(XJsonObject{{"a"_q, 1}}), XJsonValue(XJsonObject{{"b"_q, 1}}));
    EXPECT_NE(XJsonValue(XJsonObject{{"a"_q, XJsonArray{1, 2}}}),
              XJsonValue(XJsonObject{{"a"_q, XJsonArray{1}}}));
    EXPECT_EQ(XJsonValue(XJsonObject{{"a"_q, XJsonArray{1, 2}}}),
              XJsonValue(XJsonObject{{"a"_q, XJsonArray{1, 2}}}));
}

TEST(XJsonValue, deepNestingIsComparedAndCountedWithoutRecursion)
{
    const int levels = 10000;
    XJsonArray grown = nestedArrays(levels);

    EXPECT_EQ(grown, nestedArrays(levels));
    EXPECT_NE(grown, nestedArrays(levels - 1));
    XJsonArray inner = grown.at(0).toArray();
    inner.append(1);
    EXPECT_EQ(inner.size(), 2);
}

TEST(XJsonValue, variantsOfElevenTypesKeepTheirKind)
{
    const struct {
        QVariant variant;
        const char *printed;
    } rows[] = {
        // clang-format off
        { true,                                     "XJsonValue(bool, true)" },
        { 3,                                        "XJsonValue(double, 3)" },
        { 3u,                                       "XJsonValue(double, 3)" },
        { qlonglong(-3),                            "XJsonValue(double, -3)" },
        { qulonglong(3),                            "XJsonValue(double, 3)" },
        { 2.5,                                      "XJsonValue(double, 2.5)" },
        { "a"_q,                                    "XJsonValue(string, \"a\")" },
        { ""_q,                                     "XJsonValue(string, \"\")" },
        { QStringList({"a"_q, "b"_q}),              "XJsonValue(array, XJsonArray([\"a\",\"b\"]))" },
        { QVariantList({1, true}),                  "XJsonValue(array, XJsonArray([1,T]))" },
        { QVariantMap({{"k"_q, 1}}),                "XJsonValue(object, XJsonObject({k:1,}))" },
        { QVariantHash({{"k"_q, 1}}),               "XJsonValue(object, XJsonObject({k:1,}))" },
        // clang-format on
    };
    for (const auto &row : rows)
        EXPECT_EQ(debugged(XJsonValue::fromVariant(row.variant)), row.printed);
    EXPECT_TRUE(XJsonValue::fromVariant(kNaN).isDouble());
}

TEST(XJsonValue, otherVariantsGiveTheirTextOrNull)
{
    EXPECT_TRUE(XJsonValue::fromVariant(QVariant()).isNull());
    EXPECT_TRUE(XJsonValue::fromVariant(QVariant(QVariant::Date)).isNull());
    EXPECT_TRUE(XJsonValue::fromVariant(QUrl()).isNull());
    EXPECT_TRUE(XJsonValue::fromVariant(QJsonValue(1)).isNull()); // Qt has no text for it
    EXPECT_EQ(XJsonValue::fromVariant(QJsonValue("a"_q)), XJsonValue("a"_q));
    EXPECT_EQ(XJsonValue::fromVariant(2.5f), XJsonValue("2.5"_q));
    EXPECT_EQ(XJsonValue::fromVariant(QDate(2020, 2, 29)), XJsonValue("2020-02-29"_q));
    EXPECT_EQ(XJsonValue::fromVariant(QUuid()), XJsonValue("{00000000-0000-0000-0000-000000000000}"_q));
    EXPECT_EQ(XJsonValue::fromVariant(QChar(0x61)), XJsonValue("a"_q));
}

TEST(XJsonValue, becomesTheVariantOfItsKind)
{
    EXPECT_FALSE(XJsonValue().toVariant().isValid());
    EXPECT_FALSE(XJsonValue(XJsonValue::Undefined).toVariant().isValid());
    EXPECT_EQ(XJsonValue(true).toVariant(), QVariant(true));
    EXPECT_EQ(XJsonValue("a"_q).toVariant(), QVariant("a"_q));
    EXPECT_EQ(XJsonValue(XJsonArray{1}).toVariant(), QVariant(QVariantList{1.0}));
    EXPECT_EQ(XJsonValue(XJsonObject{{"a"_q, 1}}).toVariant(), QVariant(QVariantMap{{"a"_q, 1.0}}));
}

TEST(XJsonValue, goesToQtsClassesAndBack)
{
    const QJsonObject qt{{"a"_q, QJsonArray{1, 2.5, "x"_q, QJsonValue(), true}}, {"b"_q, QJsonObject()}};

    const XJsonValue value = XJsonValue::fromJsonValue(qt);

    EXPECT_EQ(text(value.toObject()), R"({a:[1,2.5,"x",null,T],b:{},})");
    EXPECT_EQ(value.toJsonValue(), QJsonValue(qt));
    EXPECT_TRUE(XJsonValue::fromJsonValue(QJsonValue::Undefined).isUndefined());
}

TEST(XJsonValue, copiesAreUsedOnSeveralThreads)
{
    const XJsonObject shared{{"list"_q, XJsonArray{1, 2, 3}}, {"text"_q, "a"_q}};
    const auto change = [](XJsonObject copy, int number) {
        for (int turn = 0; turn < 1000; ++turn) {
            XJsonObject changed = copy;
            XJsonArray list = changed.value("list"_q).toArray();
            list.append(number);
            changed.insert("list"_q, list);
            copy.insert("changed"_q, changed);
        }
        return copy;
    };
    XJsonObject changed[3];
    {
        std::vector<std::thread> threads;
        for (int number = 0; number < 3; ++number)
            threads.emplace_back([&, number] { changed[number] = change(shared, number); });
        for (std::thread &thread : threads)
            thread.join();
    }
    EXPECT_EQ(text(shared), R"({list:[1,2,3],text:"a",})");
    for (int number = 0; number < 3; ++number)
        EXPECT_EQ(changed[number], change(shared, number)) << number;
}

TEST(XJsonValue, aCopySharesAndAWriteDetaches)
{
    XJsonArray array{1, 2};
    const XJsonValue value = array;

    array.append(3);

    EXPECT_EQ(text(value.toArray()), "[1,2]");
    EXPECT_EQ(text(array), "[1,2,3]");
}

} // namespace
