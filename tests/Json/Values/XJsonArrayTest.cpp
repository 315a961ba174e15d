#include "JsonTestSupport.h"

#include <algorithm>
#include <gtest/gtest.h>

using namespace VorSystem;

namespace
{

TEST(XJsonArray, keepsTheOrderOfInsertion)
{
    XJsonArray array;
    array.append(2);
    array.prepend(1);
    array << 4 << "x"_q;
    array.insert(2, 3);
    array += true;

    EXPECT_EQ(text(array), R"([1,2,3,4,"x",T])");
    EXPECT_EQ(text(array + XJsonValue()), R"([1,2,3,4,"x",T,null])");
    EXPECT_EQ(array.first(), XJsonValue(1));
    EXPECT_EQ(array.last(), XJsonValue(true));
    EXPECT_EQ(array.size(), 6);
    EXPECT_FALSE(array.isEmpty());
}

TEST(XJsonArray, replacesRemovesAndTakes)
{
    XJsonArray array{1, 2, 3, 4, 5};
    array.replace(0, "one"_q);
    array.removeAt(1);
    EXPECT_EQ(array.takeAt(1), XJsonValue(3));
    EXPECT_EQ(text(array), R"(["one",4,5])");
    array.removeFirst();
    array.removeLast();
    EXPECT_EQ(text(array), "[4]");
    array.pop_back();
    EXPECT_TRUE(array.isEmpty());
}

TEST(XJsonArray, anIndexOutOfRangeReadsUndefinedAndWritesNothing)
{
    XJsonArray array{1, 2};
    for (const int index : {-1, 2, 3, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
        EXPECT_TRUE(array.at(index).isUndefined());
        EXPECT_TRUE(array[index].isUndefined());
        EXPECT_TRUE(array.takeAt(index).isUndefined());
        array[index] = 9;
        array.replace(index, 9);
        array.removeAt(index);
        if (index != 2)
            array.insert(index, 9);
        EXPECT_EQ(text(array), "[1,2]") << index;
    }
    XJsonArray empty;
    EXPECT_TRUE(empty.first().isUndefined());
    EXPECT_TRUE(empty.last().isUndefined());
    empty.removeFirst();
    empty.removeLast();
    EXPECT_EQ(debugged(empty), "XJsonArray()");
}

TEST(XJsonArray, undefinedIsStoredAsNull)
{
    const XJsonValue undefined = XJsonValue::Undefined;
    XJsonArray array{undefined, 1, 2, 3};
    array.append(undefined);
    array.insert(1, undefined);
    array.replace(2, undefined);
    array[3] = undefined;
    *(array.begin() + 4) = undefined;

    EXPECT_EQ(text(array), "[null,null,null,null,null,null]");
    for (const XJsonValue value : array)
        EXPECT_EQ(int(value.type()), 0);
    EXPECT_FALSE(array.contains(undefined));
    EXPECT_TRUE(array.contains(XJsonValue()));
}

TEST(XJsonArray, aReferenceWritesThrough)
{
    XJsonArray array{1, 2};
    const XJsonArray before = array;

    array[0] = "x"_q;
    array[1] = array[0];

    EXPECT_EQ(text(array), R"(["x","x"])");
    EXPECT_EQ(text(before), "[1,2]");
    EXPECT_EQ(array[0], XJsonValue("x"_q));
    EXPECT_EQ(array[1].toString(), "x"_q);
    EXPECT_EQ(array[1].toVariant(), QVariant("x"_q));
    EXPECT_TRUE(array[1].isString());
}

TEST(XJsonArray, aReferenceTakenBeforeACopyWritesIntoItsOwnArrayOnly)
{
    XJsonArray array{1, 2};
    XJsonValueRef second = array[1];
    const XJsonArray copy = array;

    second = 9;

    EXPECT_EQ(text(array), "[1,9]");
    EXPECT_EQ(text(copy), "[1,2]");
}

TEST(XJsonArray, iteratorsWalkReadAndWrite)
{
    const XJsonArray source{1, 2, 3};
    XJsonArray target;
    for (XJsonArray::const_iterator it = source.begin(); it != source.end(); ++it)
        target.append(*it);
    for (XJsonValueRef place : target)
        place = place.toInt() * 10;

    EXPECT_EQ(text(target), "[10,20,30]");
    EXPECT_EQ(text(source), "[1,2,3]");
    EXPECT_EQ(target.begin()->toInt(), 10);
    EXPECT_EQ(target.begin()[2].toInt(), 30);
    EXPECT_EQ(target.end() - target.begin(), 3);
    EXPECT_TRUE(target.begin() < target.end());
    const XJsonArray::const_iterator reading = target.begin();
    EXPECT_TRUE(reading == target.begin());
    EXPECT_EQ((reading + 1)->toInt(), 20);
    EXPECT_EQ(std::count_if(source.begin(), source.end(), [](const XJsonValue &v) { return v.toInt() > 1; }),
              2);

    EXPECT_EQ((*target.erase(target.begin())).toInt(), 20);
    EXPECT_EQ((*target.insert(target.end(), 5)).toInt(), 5);
    EXPECT_EQ(text(target), "[20,30,5]");
}

TEST(XJsonArray, storageComesWithTheFirstWritingAccess)
{
    XJsonArray emptied{1};
    emptied.removeAt(0);
    XJsonArray walked;
    walked.begin();
    XJsonArray removedFrom;
    removedFrom.removeAt(0);
    XJsonArray moved{1};
    const XJsonArray target = std::move(moved);

    EXPECT_EQ(debugged(XJsonArray()), "XJsonArray()");
    EXPECT_EQ(debugged(emptied), "XJsonArray([])");
    EXPECT_EQ(debugged(walked), "XJsonArray([])");
    EXPECT_EQ(debugged(removedFrom), "XJsonArray()");
    EXPECT_EQ(debugged(moved), "XJsonArray()"); // NOLINT(bugprone-use-after-move): an empty array, for sure
    EXPECT_EQ(debugged(XJsonArray{XJsonArray()}.at(0)), "XJsonValue(array, XJsonArray([]))");
    EXPECT_EQ(emptied, XJsonArray());
}

TEST(XJsonArray, anArrayAsItsOwnValueIsACopy)
{
    XJsonArray array{1};
    array.append(array);
    array.append(array);

    EXPECT_EQ(text(array), "[1,[1],[1,[1]]]");
}

TEST(XJsonArray, becomesAListOfTexts)
{
    const XJsonArray array{"a"_q, 1, true, XJsonValue(), XJsonArray{"b"_q}, ""_q};

    EXPECT_EQ(array.toStringList(), QStringList({"a"_q, ""_q, ""_q, ""_q, ""_q, ""_q}));
    EXPECT_EQ(XJsonArray::fromStringList({"a"_q, "b"_q}).toStringList(), QStringList({"a"_q, "b"_q}));
    EXPECT_TRUE(XJsonArray().toStringList().isEmpty());
}

TEST(XJsonArray, becomesAListOfVariantsAndBack)
{
    const XJsonArray array{1.5, "a"_q, false, XJsonArray{2}, XJsonObject{{"k"_q, 3}}, XJsonValue()};

    EXPECT_EQ(XJsonArray::fromVariantList(array.toVariantList()), array);
    EXPECT_EQ(XJsonArray::fromJsonArray(array.toJsonArray()), array);
}

} // namespace
