// The storage of a container is counted while it is built. What was counted shows in the warning of a refused
// write, so the tests hand every container a value that never fits.

#include "JsonTestSupport.h"
#include "JsonTrees.h"

#include <cmath>
#include <gtest/gtest.h>

using namespace VorSystem;

namespace
{

constexpr int kLimit = 134217727;
constexpr int kLongText = 1 << 20;

std::string tooLarge(qint64 storage, qint64 asked)
{
    return QStringLiteral("QJson: Document too large to store in data structure %1 %2 %3")
        .arg(storage)
        .arg(asked)
        .arg(kLimit)
        .toStdString();
}

TEST(JsonStorage, isCountedAsTheFormerBinaryFormWould)
{
    const XJsonArray rows{
        // clang-format off
        XJsonArray{XJsonValue()}, XJsonArray{true},       XJsonArray{0},               XJsonArray{1},
        XJsonArray{-1},           XJsonArray{0.5},        XJsonArray{67108863},        XJsonArray{67108864},
        XJsonArray{-67108863},    XJsonArray{-67108864},  XJsonArray{1e300},           XJsonArray{""_q},
        XJsonArray{"a"_q},        XJsonArray{"abc"_q},    XJsonArray{"\u00ff"_q},      XJsonArray{"\u0100"_q},
        XJsonArray{"ab\u20ac"_q}, XJsonArray{XJsonArray()}, XJsonArray{XJsonObject()}, XJsonArray{1, 2, 3},
        XJsonArray{QString(32767, QChar(0x61))}, XJsonArray{QString(32768, QChar(0x61))},
        XJsonObject{{""_q, 1}},   XJsonObject{{"abc"_q, 0}}, XJsonObject{{"\u20ac"_q, "x"_q}},
        XJsonObject{{"a"_q, XJsonArray{1.5, XJsonObject{{"k"_q, XJsonValue()}}}}, {"b"_q, "text"_q}},
        // clang-format on
    };
    for (const XJsonValue row : rows)
        EXPECT_EQ(countedStorage(row), binarySize(row)) << debugged(row);
}

TEST(JsonStorage, isTheSameHoweverTheContentsCameIn)
{
    const XJsonObject inner{{"k"_q, XJsonArray{1, 2.5, "text"_q}}};
    XJsonObject byInsert;
    byInsert.insert("a"_q, inner);
    XJsonObject byReference;
    byReference["a"_q] = inner;
    XJsonObject overwritten{{"a"_q, "a long text that goes away again"_q}, {"b"_q, inner}};
    overwritten.insert("a"_q, inner);
    overwritten.remove("b"_q);
    const XJsonObject readOut = XJsonArray{byInsert}.at(0).toObject();
    const XJsonObject converted = XJsonObject::fromVariantMap(byInsert.toVariantMap());

    for (const XJsonObject &object : {byInsert, byReference, overwritten, readOut, converted})
        EXPECT_EQ(countedStorage(object), binarySize(byInsert));
}

TEST(JsonStorage, ofNumbersIsThatOfTheSameNumbersOneByOne)
{
    const QList<double> numbers{0.0, -0.0, 1, -1, 2.5, 67108863, 67108864, 1e300, qQNaN(), qInf()};
    XJsonArray oneByOne;
    for (const double number : numbers)
        oneByOne.append(number);

    const XJsonArray atOnce = XJsonArray::fromNumbers(numbers);

    EXPECT_EQ(debugged(atOnce), debugged(oneByOne));
    EXPECT_TRUE(std::signbit(atOnce.at(1).toDouble()));
    EXPECT_EQ(countedStorage(atOnce), countedStorage(oneByOne));
    EXPECT_EQ(debugged(XJsonArray::fromNumbers({})), "XJsonArray()");
}

TEST(JsonStorage, countsAKeyOnceInWhateverOrderKeysCome)
{
    const QStringList orders[] = {
        {"a"_q, "b"_q, "c"_q},
        {"c"_q, "b"_q, "a"_q},
        {"b"_q, "c"_q, "a"_q, "c"_q},
        {"a"_q, "a"_q, "b"_q, "c"_q},
        {"a"_q, "b"_q, "b"_q, "c"_q},
        {"a"_q, "b"_q, "c"_q, "c"_q},
        {""_q, "a"_q, ""_q, "c"_q, "b"_q},
    };
    for (const QStringList &order : orders) {
        XJsonObject object;
        for (const QString &key : order) {
            if (key == "c"_q)
                object[key] = 0.5;
            else
                object.insert(key, 0.5);
        }
        object.remove(""_q);
        EXPECT_EQ(object.keys(), QStringList({"a"_q, "b"_q, "c"_q}));
        EXPECT_EQ(countedStorage(object), binarySize(object)) << debugged(object);

        XJsonObject shorter = object;
        shorter.remove("c"_q);
        shorter.insert("c"_q, 1.5); // beyond all keys that are left
        shorter.insert("b"_q, 1.5);
        EXPECT_EQ(shorter.size(), 3);
        EXPECT_EQ(countedStorage(shorter), binarySize(shorter));

        XJsonObject moved = std::move(shorter);
        moved.insert("d"_q, 0.5);
        moved.insert("c"_q, 0.5);
        EXPECT_EQ(countedStorage(moved), binarySize(moved));
        shorter.insert("a"_q, 0.5); // starts anew
        EXPECT_EQ(debugged(shorter), "XJsonObject({a:0.5,})");
    }
}

TEST(JsonStorage, ofAContainerReadOutIsCountedAtItsFirstWrite)
{
    const XJsonObject object{{"list"_q, XJsonArray{"text"_q, 1.5}}};
    XJsonArray list = object.value("list"_q).toArray();
    list.append(2.5);
    EXPECT_EQ(countedStorage(list), binarySize(list));

    XJsonArray shortened = object.value("list"_q).toArray();
    shortened.removeAt(0);
    shortened.append(XJsonValue());
    EXPECT_EQ(countedStorage(shortened), binarySize(shortened));
}

TEST(JsonStorage, takesSixtyThreeLongTextsAndNoMore)
{
    const XJsonValue longText = QString(kLongText, QChar(0x61)); // 2 * 2^20 + 4 bytes, and 4 for its slot
    const qint64 textBytes = 2 * kLongText + 4 + 4;
    XJsonArray array;
    const CaughtWarnings warnings;
    for (int i = 0; i < 63; ++i)
        array.append(longText);
    EXPECT_EQ(warnings.count(), 0);

    array.append(longText);

    EXPECT_EQ(array.size(), 63);
    EXPECT_EQ(warnings.count(), 1);
    EXPECT_EQ(warnings.last(), tooLarge(12 + 63 * textBytes, textBytes));
    array.append(1); // what fits is stored as before
    EXPECT_EQ(array.size(), 64);
}

TEST(JsonStorage, theLimitItselfIsRefused)
{
    // With one text of n characters of two bytes, an array takes 12 + 4 + (4 + 2n rounded up to 4) bytes, so
    // the largest below the limit has 134217724.
    const int most = (134217724 - 20) / 2;
    const CaughtWarnings warnings;
    XJsonArray array{QString(most, QChar(0x20ac))};
    EXPECT_EQ(array.size(), 1);
    XJsonArray refused{QString(most + 2, QChar(0x20ac))};
    EXPECT_EQ(refused.size(), 0);
    EXPECT_EQ(warnings.count(), 1);
    EXPECT_EQ(warnings.last(), tooLarge(12, 134217728 - 12));
    EXPECT_EQ(debugged(refused), "XJsonArray([])"); // a refused write too gives storage

    array[0] = QString(most, QChar(0x20ad)); // what is replaced makes room
    EXPECT_EQ(warnings.count(), 1);
    EXPECT_EQ(array.at(0).toString().at(0), QChar(0x20ad));
}

TEST(JsonStorage, aRefusedMemberLeavesTheObjectAsItWas)
{
    XJsonObject object{{"a"_q, "old"_q}};
    const CaughtWarnings warnings;

    EXPECT_EQ(object.insert("a"_q, largestValue()) - object.begin(), object.size());
    EXPECT_EQ(object.insert("b"_q, largestValue()) - object.begin(), object.size());
    EXPECT_EQ(warnings.last(), tooLarge(12 + 8 + 4 + 8, 8 + 4 + largestStorage()));
    object["a"_q] = largestValue();
    EXPECT_EQ(text(object), R"({a:"old",})");

    object["b"_q] = largestValue(); // the place was made before the value was refused
    EXPECT_EQ(text(object), R"({a:"old",b:null,})");
    EXPECT_EQ(warnings.count(), 4);
}

TEST(JsonStorage, aReferenceToARefusedKeyHasNoPlace)
{
    XJsonObject object;
    const CaughtWarnings warnings;
    const QString key((kLimit - 12 - 8 - 4) / 2 + 2, QChar(0x20ac));

    object[key] = 1;

    EXPECT_TRUE(object[key].isUndefined());
    EXPECT_TRUE(object.isEmpty());
    EXPECT_EQ(warnings.count(), 2);
}

TEST(JsonStorage, boundsWhatSharingCouldGrow)
{
    XJsonObject object;
    int doublings = 0;
    const CaughtWarnings warnings;
    while (warnings.count() == 0 && doublings < 60) {
        XJsonObject parent;
        parent.insert("a"_q, object);
        parent.insert("b"_q, object);
        object = parent;
        ++doublings;
    }

    EXPECT_EQ(warnings.count(), 1);
    EXPECT_EQ(doublings, 22); // 48 * 2^22 - 36 bytes would be above the limit
    EXPECT_EQ(object.size(), 1);
}

} // namespace
