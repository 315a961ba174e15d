// The list: no sharing, and every index checked in every build. This file is compiled a second time without
// debugging, as an application that is shipped would be.

#include <VorFrames/QListEx.h>

#include <VorFrames/Evaluation.h>

#include <gtest/gtest.h>

using namespace VorSystem;

namespace
{

const QListEx<double> kThree{10.0, 12.0, 14.0};

TEST(QListEx, aCopyIsItsOwnFromTheFirstMoment)
{
    const QListEx<double> source = kThree;
    const QListEx<double> copy = source;
    EXPECT_FALSE(copy.isSharedWith(source));
    EXPECT_EQ(copy, source);
}

TEST(QListEx, anAssignedListIsItsOwnFromTheFirstMoment)
{
    QListEx<double> source = kThree;
    QListEx<double> target{1.0};
    target = source;
    EXPECT_FALSE(target.isSharedWith(source));
    target[0] = 99.0;
    EXPECT_EQ(source, kThree);
    source = *&source;
    EXPECT_EQ(source, kThree);
}

TEST(QListEx, aListReturnedByValueIsItsOwn)
{
    struct Holder {
        QListEx<double> list() const { return values; }
        QListEx<double> values = kThree;
    } const holder;
    EXPECT_FALSE(holder.list().isSharedWith(holder.values));
}

TEST(QListEx, anEmptiedListSharesNothingEither)
{
    QListEx<double> source = kThree;
    source.removeFirst();
    source.removeFirst();
    source.removeFirst();
    QListEx<double> copy = source;
    copy.append(1.0);
    EXPECT_TRUE(source.isEmpty());
}

TEST(QListEx, whatTheBaseReturnsIsTakenAsAnOwnCopy)
{
    QListEx<double> source = kThree;
    const QListEx<double> middle = source.mid(1, 1);
    const QListEx<double> sum = source + source;
    const QListEx<double> all = QList<double>(source);
    EXPECT_EQ(middle, (QListEx<double>{12.0}));
    EXPECT_EQ(sum.count(), 6);
    EXPECT_FALSE(all.isSharedWith(source));
}

TEST(QListEx, anEmptyListThatTakesAWholeListSharesNothing)
{
    const QListEx<double> source = kThree;
    QListEx<double> appended;
    appended.append(source);
    QListEx<double> added;
    added += source;
    QListEx<double> streamed;
    streamed << source << 16.0;
    for (const QListEx<double> *list : {&appended, &added, &streamed})
        EXPECT_FALSE(list->isSharedWith(source));
    EXPECT_EQ(appended, source);
    EXPECT_EQ((added += 16.0), streamed);
}

TEST(QListEx, hasTheWholeInterfaceOfItsBase)
{
    QListEx<double> list(kThree.cbegin(), kThree.cend());
    list.insert(list.begin() + 1, 11.0);
    QListEx<double> other{1.0};
    other.swap(list);
    other.append({16.0, 18.0});
    EXPECT_EQ(list, (QListEx<double>{1.0}));
    EXPECT_EQ(other, (QListEx<double>{10.0, 11.0, 12.0, 14.0, 16.0, 18.0}));
}

TEST(QListEx, movingTakesTheValuesAndLeavesNothingBehind)
{
    QListEx<double> source = kThree;
    QListEx<double> target = std::move(source);
    EXPECT_EQ(target, kThree);
    EXPECT_TRUE(source.isEmpty()); // NOLINT(bugprone-use-after-move): the rule is that nothing is shared
    source = std::move(target);
    EXPECT_EQ(source, kThree);
}

TEST(QListEx, holdsEvaluationsAsAnOrderedSet)
{
    QListEx<Evaluation> list;
    const Evaluation measure{nullptr, Evaluation_Measure};
    const Evaluation level{nullptr, Evaluation_Level};
    list.append(measure);
    EXPECT_TRUE(list.contains(measure));
    EXPECT_FALSE(list.contains(level));
    EXPECT_TRUE(measure != level);
}

TEST(QListEx, takesAndInsertsInTheMiddleAndAtTheEnds)
{
    QListEx<double> list = kThree;
    list.insert(3, 16.0);
    list.insert(0, 8.0);
    EXPECT_EQ(list, (QListEx<double>{8.0, 10.0, 12.0, 14.0, 16.0}));
    list.move(0, 4);
    list.swapItemsAt(0, 1);
    list.replace(2, 15.0);
    EXPECT_EQ(list, (QListEx<double>{12.0, 10.0, 15.0, 16.0, 8.0}));
    EXPECT_EQ(list.takeAt(1), 10.0);
    EXPECT_EQ(list.takeFirst(), 12.0);
    EXPECT_EQ(list.takeLast(), 8.0);
    EXPECT_EQ(list.first(), 15.0);
    EXPECT_EQ(list.last(), 16.0);
}

using QListExDeath = testing::Test;

TEST(QListExDeath, anIndexOutsideTheListEndsTheProgramWithOperationIndexAndSize)
{
    testing::FLAGS_gtest_death_test_style = "fast";
    QListEx<double> list{1.0, 2.0};
    const QListEx<double> &constant = list;
    EXPECT_DEATH(constant.at(7), "QListEx::at: index 7 is outside a list of size 2");
    EXPECT_DEATH(constant.at(-1), "QListEx::at: index -1 is outside a list of size 2");
    EXPECT_DEATH(constant[2], "operator\\[\\]: index 2 is outside a list of size 2");
    EXPECT_DEATH(list[2] = 1.0, "operator\\[\\]: index 2 is outside a list of size 2");
    EXPECT_DEATH(list.insert(3, 1.0), "insert: index 3 is outside a list of size 2");
    EXPECT_DEATH(list.insert(-1, 1.0), "insert: index -1");
    EXPECT_DEATH(list.replace(2, 1.0), "replace: index 2");
    EXPECT_DEATH(list.removeAt(2), "removeAt: index 2");
    EXPECT_DEATH(list.takeAt(-1), "takeAt: index -1");
    EXPECT_DEATH(list.move(0, 2), "move: index 2");
    EXPECT_DEATH(list.swapItemsAt(2, 0), "swapItemsAt: index 2");
    EXPECT_DEATH(list.swap(0, 2), "swapItemsAt: index 2");
}

TEST(QListExDeath, theEndsOfAnEmptyListEndTheProgram)
{
    testing::FLAGS_gtest_death_test_style = "fast";
    QListEx<double> list;
    const QListEx<double> &constant = list;
    EXPECT_DEATH(list.first(), "first: index 0 is outside a list of size 0");
    EXPECT_DEATH(constant.first(), "first: index 0");
    EXPECT_DEATH(list.last(), "last: index -1");
    EXPECT_DEATH(constant.last(), "last: index -1");
    EXPECT_DEATH(list.removeFirst(), "removeFirst: index -1");
    EXPECT_DEATH(list.removeLast(), "removeLast: index -1");
    EXPECT_DEATH(list.takeFirst(), "takeFirst: index -1");
    EXPECT_DEATH(list.takeLast(), "takeLast: index -1");
    EXPECT_DEATH(constant.at(0), "at: index 0");
}

} // namespace
