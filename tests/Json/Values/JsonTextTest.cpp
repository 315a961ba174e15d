#include "JsonTestSupport.h"

#include <gtest/gtest.h>
#include <limits>

using namespace VorSystem;

namespace
{

constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(JsonText, compactHasNoWhiteSpace)
{
    EXPECT_EQ(text(XJsonObject{{"b"_q, 1}, {"a"_q, true}}), "{a:T,b:1,}");
    EXPECT_EQ(text(XJsonArray{true, false}), "[T,F]");
    EXPECT_EQ(text(XJsonObject()), "{}");
    EXPECT_EQ(text(XJsonArray()), "[]");
    EXPECT_EQ(text(XJsonObject{{"o"_q, XJsonObject()}, {"a"_q, XJsonArray{XJsonArray(), XJsonValue()}}}),
              "{a:[[],null],o:{},}");
}

TEST(JsonText, indentedHasOneLineForEach)
{
    const XJsonObject object{{"list"_q, XJsonArray{1, XJsonObject{{"k"_q, false}}, XJsonArray()}},
                             {"none"_q, XJsonObject()},
                             {"x"_q, 2}};

    EXPECT_EQ(indented(object), "{\n"
                                "    list: [\n"
                                "        1,\n"
                                "        {\n"
                                "            k: F,\n"
                                "        },\n"
                                "        [\n"
                                "        ]\n"
                                "    ],\n"
                                "    none: {\n"
                                "    },\n"
                                "    x: 2,\n"
                                "}\n");
    EXPECT_EQ(indented(XJsonArray{1, 2}), "[\n    1,\n    2\n]\n");
    EXPECT_EQ(indented(XJsonObject()), "{\n}\n");
    EXPECT_EQ(indented(XJsonArray()), "[\n]\n");
}

TEST(JsonText, numbersHaveSeventeenDigits)
{
    const struct {
        double number;
        const char *printed;
    } rows[] = {
        // clang-format off
        { 0.1,                       "[0.10000000000000001]" },
        { 1e300,                     "[1.0000000000000001e+300]" },
        { 123456789012.0,            "[123456789012]" },
        { -0.0,                      "[0]" },
        { kInfinity,                 "[null]" },
        { -kInfinity,                "[null]" },
        { std::numeric_limits<double>::quiet_NaN(), "[null]" },
        // clang-format on
    };
    for (const auto &row : rows)
        EXPECT_EQ(text(XJsonArray{row.number}), row.printed);
}

TEST(JsonText, textsAndKeysAreEscapedAlike)
{
    QString all;
    for (char16_t code = 0; code < 0x20; ++code)
        all.append(QChar(code));
    all.append("\"\\/\x7f \u00e9\u20ac\U0001d11e"_q);
    const std::string escaped =
        "\\u0000\\u0001\\u0002\\u0003\\u0004\\u0005\\u0006\\u0007\\b\\t\\n\\u000b\\f\\r"
        "\\u000e\\u000f\\u0010\\u0011\\u0012\\u0013\\u0014\\u0015\\u0016\\u0017\\u0018"
        "\\u0019\\u001a\\u001b\\u001c\\u001d\\u001e\\u001f\\\"\\\\/\x7f \u00e9\u20ac\U0001d11e";

    EXPECT_EQ(text(XJsonArray{all}), "[\"" + escaped + "\"]");
    EXPECT_EQ(text(XJsonObject{{all, 1}}), "{" + escaped + ":1,}");
    EXPECT_EQ(text(XJsonObject{{"a:T,b"_q, 1}}), "{a:T,b:1,}");
}

TEST(JsonText, aLoneSurrogateIsOneQuestionMark)
{
    const QChar high(0xd800), low(0xdc00), letter(0x78);

    EXPECT_EQ(text(XJsonArray{QString(high)}), "[\"?\"]");
    EXPECT_EQ(text(XJsonArray{QString(low)}), "[\"?\"]");
    EXPECT_EQ(text(XJsonArray{QString(high) + letter}), "[\"?x\"]");
    EXPECT_EQ(text(XJsonArray{QString(high) + high + low}), "[\"?\U00010000\"]");
    EXPECT_EQ(text(XJsonObject{{QString(high), 1}}), "{?:1,}");
}

TEST(JsonText, deepNestingIsWrittenWithoutRecursion)
{
    const int levels = 10000;
    XJsonObject object;
    for (int level = 0; level < levels; ++level)
        object = XJsonObject{{"o"_q, object}};

    EXPECT_EQ(text(nestedArrays(levels)), std::string(levels, '[') + std::string(levels, ']'));
    EXPECT_EQ(text(object).size(), std::size_t(levels) * 5 + 2); // "{o:" and ",}" around each
    EXPECT_EQ(indented(nestedArrays(3)), "[\n    [\n        [\n        ]\n    ]\n]\n");
}

TEST(JsonText, debugStreamNamesTheKind)
{
    EXPECT_EQ(debugged(XJsonValue(XJsonValue::Undefined)), "XJsonValue(undefined)");
    EXPECT_EQ(debugged(XJsonValue()), "XJsonValue(null)");
    EXPECT_EQ(debugged(XJsonValue(true)), "XJsonValue(bool, true)");
    EXPECT_EQ(debugged(XJsonValue(1234567.0)), "XJsonValue(double, 1.23457e+06)");
    EXPECT_EQ(debugged(XJsonValue(std::numeric_limits<double>::quiet_NaN())), "XJsonValue(double, nan)");
    EXPECT_EQ(debugged(XJsonValue("a\"b"_q)), "XJsonValue(string, \"a\\\"b\")");
    EXPECT_EQ(debugged(XJsonValue(XJsonArray{1})), "XJsonValue(array, XJsonArray([1]))");
    EXPECT_EQ(debugged(XJsonValue(XJsonObject{{"a"_q, 1}})), "XJsonValue(object, XJsonObject({a:1,}))");
    EXPECT_EQ(debugged(XJsonArray{"a\nb"_q}), "XJsonArray([\"a\\nb\"])");
    EXPECT_EQ(debugged(XJsonObject()), "XJsonObject()");
}

TEST(JsonText, debugStreamKeepsItsSettings)
{
    QString printed;
    {
        QDebug debug(&printed);
        debug << XJsonObject() << 1 << XJsonArray{true} << 2 << XJsonValue(false) << 3;
    }
    EXPECT_EQ(printed.trimmed(), "XJsonObject() 1 XJsonArray([T]) 2 XJsonValue(bool, false) 3"_q);

    printed.clear();
    QDebug(&printed).noquote().nospace() << XJsonValue("a b"_q);
    EXPECT_EQ(printed, "XJsonValue(string, a b)"_q);
}

} // namespace
