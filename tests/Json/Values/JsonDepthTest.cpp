// Nesting so deep that a recursion over it would not come back: a value of it can be built, changed, and
// dies.

#include "JsonTestSupport.h"

#include <gtest/gtest.h>

using namespace VorSystem;

namespace
{

constexpr int kMillion = 1000000;
constexpr int kDeep = 200000;

/// A text, in an object in an object in ..., of as many levels.
XJsonObject nestedObjects(int levels)
{
    XJsonObject object{{"text"_q, "innermost"_q}};
    for (int level = 1; level < levels; ++level) {
        XJsonObject parent;
        parent.insert("a"_q, XJsonArray{1, 2}); // neighbours, so that not each level is a list of one
        parent.insert("o"_q, object);
        object = std::move(parent);
    }
    return object;
}

/// How many levels a value has on the way by "o" or by the first place.
int levelsOf(XJsonValue value)
{
    int levels = 0;
    while (value.isObject() || (value.isArray() && !value.toArray().isEmpty())) {
        value = value.isObject() ? value.toObject().value("o"_q) : value.toArray().at(0);
        ++levels;
    }
    return levels;
}

TEST(JsonDepth, aMillionLevelsAreBuiltAndDie)
{
    EXPECT_EQ(levelsOf(nestedObjects(kMillion)), kMillion);
    EXPECT_EQ(levelsOf(nestedArrays(kDeep)), kDeep - 1); // the innermost is empty
}

TEST(JsonDepth, membersWrittenOverOrTakenOutDie)
{
    XJsonObject object;
    object.insert("a"_q, nestedArrays(kDeep));
    object.insert("a"_q, 1);
    object["b"_q] = nestedArrays(kDeep);
    object["b"_q] = nestedArrays(kDeep);
    object.remove("b"_q);
    EXPECT_EQ(text(object), "{a:1,}");
    object = nestedObjects(kDeep);
    object = XJsonObject();
    EXPECT_TRUE(object.isEmpty());
}

TEST(JsonDepth, valuesWrittenOverOrTakenOutDie)
{
    XJsonArray array{1};
    array.replace(0, nestedArrays(kDeep));
    array[0] = 2;
    array.append(nestedArrays(kDeep));
    array.removeLast();
    EXPECT_EQ(text(array), "[2]");
    array = nestedArrays(kDeep);
    array = XJsonArray();
    EXPECT_TRUE(array.isEmpty());
    XJsonValue value = nestedArrays(kDeep);
    value = 1;
    EXPECT_EQ(value, XJsonValue(1));
}

TEST(JsonDepth, whatIsReadOutOutlivesItsContainer)
{
    XJsonValue inner;
    XJsonArray list;
    {
        const XJsonArray outer{nestedObjects(kDeep), XJsonArray{nestedArrays(kDeep)}};
        inner = outer.at(0).toObject().value("o"_q);
        list = outer.at(1).toArray();
    }
    EXPECT_EQ(levelsOf(inner), kDeep - 1);
    EXPECT_EQ(levelsOf(list), kDeep);
}

TEST(JsonDepth, whatOthersHoldStaysWhole)
{
    const int levels = 50000;
    const XJsonObject shared = nestedObjects(levels);
    {
        const XJsonArray twice{shared, shared};
        const XJsonObject changed = [&shared] {
            XJsonObject copy = shared;
            copy.insert("p"_q, true);
            return copy;
        }();
        XJsonValue moved = twice.at(1);
        const XJsonValue target = std::move(moved);
        EXPECT_EQ(levelsOf(target), levels);
        EXPECT_EQ(levelsOf(changed), levels);
    }
    EXPECT_EQ(levelsOf(shared), levels);
    EXPECT_EQ(shared, nestedObjects(levels));
}

TEST(JsonDepth, emptyingAndFillingAgainCostsNoDepth)
{
    XJsonArray array{1};
    for (int turn = 0; turn < 50000; ++turn) {
        array = XJsonArray{array};
        array.replace(0, 1);
    }
    EXPECT_EQ(text(array), "[1]");
}

} // namespace
