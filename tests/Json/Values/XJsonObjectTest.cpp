#include "JsonTestSupport.h"

#include <gtest/gtest.h>

using namespace VorSystem;

namespace
{

TEST(XJsonObject, membersGoByKeyWhateverTheOrderOfInsertion)
{
    XJsonObject object;
    object.insert("b"_q, 1);
    object.insert("a"_q, true);

    EXPECT_EQ(text(object), "{a:T,b:1,}");
    EXPECT_EQ(object.keys(), QStringList({"a"_q, "b"_q}));
}

TEST(XJsonObject, keysCompareAsTextsDo)
{
    const QString keys[] = {""_q,
                            QString(QChar(0)),
                            "A"_q,
                            "B"_q,
                            "a"_q,
                            "aa"_q,
                            "\u00e9"_q,
                            QString(QChar(0xd800)),
                            QString(QChar(0xdc00)),
                            "\U0001d11e"_q,
                            "\uffee"_q};
    XJsonObject object;
    QStringList sorted;
    for (const QString &key : keys) {
        object.insert(key, key);
        sorted.append(key);
    }
    sorted.sort();

    EXPECT_EQ(object.keys(), sorted);
    for (const QString &key : keys)
        EXPECT_EQ(object.value(key).toString(), key);
}

TEST(XJsonObject, aKeyOccursOnceAndTheLastValueWins)
{
    XJsonObject object{{"a"_q, 1}, {"b"_q, 2}, {"a"_q, 3}};
    object.insert("b"_q, "new"_q);

    EXPECT_EQ(text(object), R"({a:3,b:"new",})");
    EXPECT_EQ(object.size(), 2);
}

TEST(XJsonObject, anAbsentKeyIsUndefinedUntilItIsReadThroughAReference)
{
    XJsonObject object{{"a"_q, 1}};
    const XJsonObject &reading = object;

    EXPECT_TRUE(reading.value("b"_q).isUndefined());
    EXPECT_TRUE(reading["b"_q].isUndefined());
    EXPECT_FALSE(object.contains("b"_q));

    EXPECT_EQ(int(object["b"_q].type()), 0);
    EXPECT_TRUE(object.contains("b"_q));
    EXPECT_EQ(text(object), "{a:1,b:null,}");
}

TEST(XJsonObject, aReferenceWritesThrough)
{
    XJsonObject object;
    object["a"_q] = 1;
    object["b"_q] = XJsonObject{{"k"_q, 2}};
    object["a"_q] = object["b"_q];

    EXPECT_EQ(text(object), "{a:{k:2,},b:{k:2,},}");
    EXPECT_EQ(object["b"_q].toObject().value("k"_q).toInt(), 2);
    EXPECT_TRUE(object["b"_q] == XJsonValue(XJsonObject{{"k"_q, 2}}));
}

TEST(XJsonObject, aReferenceRemembersAPositionNotAKey)
{
    // The reference to "b" is made first; inserting "a" then moves "b" away from its position.
    XJsonObject object{{"b"_q, 1}};
    object["a"_q] = object["b"_q];

    EXPECT_EQ(text(object), "{a:null,b:1,}");
}

TEST(XJsonObject, aReferenceTakenBeforeACopyWritesIntoItsOwnObjectOnly)
{
    XJsonObject object{{"a"_q, 1}};
    XJsonValueRef place = object["a"_q];
    const XJsonObject copy = object;

    place = 9;

    EXPECT_EQ(text(object), "{a:9,}");
    EXPECT_EQ(text(copy), "{a:1,}");
}

TEST(XJsonObject, undefinedRemoves)
{
    const XJsonValue undefined = XJsonValue::Undefined;
    XJsonObject object{{"a"_q, 1}, {"b"_q, 2}, {"c"_q, 3}, {"d"_q, undefined}};

    const XJsonObject::iterator nowhere = object.insert("a"_q, undefined);
    EXPECT_EQ(nowhere, object.end());
    object["b"_q] = undefined;
    *object.find("c"_q) = undefined;

    EXPECT_EQ(debugged(object), "XJsonObject({})");
}

TEST(XJsonObject, insertFindAndEraseGivePlaces)
{
    XJsonObject object;
    EXPECT_EQ(object.insert("b"_q, 2).key(), "b"_q);
    EXPECT_EQ(object.insert("a"_q, 1).key(), "a"_q);
    EXPECT_EQ(object.insert("b"_q, 3).value().toInt(), 3);
    EXPECT_EQ(object.find("b"_q) - object.begin(), 1);
    EXPECT_EQ(object.find("c"_q), object.end());
    EXPECT_EQ(object.constFind("a"_q)->toInt(), 1);
    EXPECT_EQ(object.constFind("c"_q), object.constEnd());
    EXPECT_EQ(object.erase(object.begin()).key(), "b"_q);
    EXPECT_EQ(text(object), "{b:3,}");
}

TEST(XJsonObject, removesAndTakes)
{
    XJsonObject object{{"a"_q, 1}, {"b"_q, XJsonArray{2}}};

    object.remove("absent"_q);
    EXPECT_TRUE(object.take("absent"_q).isUndefined());
    EXPECT_EQ(object.take("b"_q), XJsonValue(XJsonArray{2}));
    object.remove("a"_q);

    EXPECT_TRUE(object.isEmpty());
    EXPECT_EQ(debugged(object), "XJsonObject({})");
}

TEST(XJsonObject, iteratorsWalkAndWrite)
{
    XJsonObject object{{"a"_q, 1}, {"b"_q, 2}};
    const XJsonObject before = object;
    for (XJsonObject::iterator member = object.begin(); member != object.end(); ++member)
        member.value() = member.key();

    EXPECT_EQ(text(object), R"({a:"a",b:"b",})");
    EXPECT_EQ(text(before), "{a:1,b:2,}");
    int sum = 0;
    for (const XJsonValue value : before)
        sum += value.toInt();
    EXPECT_EQ(sum, 3);
}

TEST(XJsonObject, aPositionThatIsGoneIsNoPlace)
{
    XJsonObject object{{"a"_q, 1}};
    XJsonValueRef place = object["a"_q];
    object.remove("a"_q);

    place = 2;

    EXPECT_TRUE(place.isUndefined());
    EXPECT_TRUE(object.isEmpty());
    EXPECT_TRUE(object.end().key().isNull());
}

TEST(XJsonObject, storageComesWithTheFirstWritingAccess)
{
    const XJsonValue undefined = XJsonValue::Undefined;
    XJsonObject walked;
    walked.begin();
    XJsonObject searched;
    EXPECT_EQ(searched.find("a"_q), searched.end());
    XJsonObject undefinedInto;
    undefinedInto.insert("a"_q, undefined);
    XJsonObject removedFrom;
    removedFrom.remove("a"_q);
    removedFrom.take("a"_q);

    EXPECT_EQ(debugged(XJsonObject()), "XJsonObject()");
    EXPECT_EQ(debugged(walked), "XJsonObject({})");
    EXPECT_EQ(debugged(searched), "XJsonObject({})");
    EXPECT_EQ(debugged(undefinedInto), "XJsonObject({})");
    EXPECT_EQ(debugged(removedFrom), "XJsonObject()");
    EXPECT_EQ(walked, XJsonObject());
}

TEST(XJsonObject, aContainerWithoutStorageGetsOneInItsParent)
{
    const XJsonObject object{{"a"_q, XJsonObject()}, {"b"_q, XJsonArray()}};

    EXPECT_EQ(debugged(object.value("a"_q)), "XJsonValue(object, XJsonObject({}))");
    EXPECT_EQ(debugged(object.value("b"_q).toArray()), "XJsonArray([])");
    EXPECT_EQ(debugged(XJsonValue(XJsonObject())), "XJsonValue(object, XJsonObject())");
}

TEST(XJsonObject, becomesVariantsAndBack)
{
    const XJsonObject object{{"a"_q, 1.5}, {"b"_q, XJsonArray{1, "x"_q}}, {"c"_q, XJsonValue()}};

    EXPECT_EQ(XJsonObject::fromVariantMap(object.toVariantMap()), object);
    EXPECT_EQ(XJsonObject::fromVariantHash(object.toVariantHash()), object);
    EXPECT_EQ(XJsonObject::fromJsonObject(object.toJsonObject()), object);
}

} // namespace
