// The manager: its sets, their names, its texts, and the correspondence of groups.

#include <support/TestDocument.h>

#include <VorCore/VorCore.h>
#include <gtest/gtest.h>

#include <algorithm>

using namespace VorSystem;
using support::name;

namespace
{

class Managers : public testing::Test
{
protected:
    FrameSet *add(const char *text, int index = -1)
    {
        auto *const set = new FrameSet(name(text), &manager);
        manager.addFrameSet(set, index);
        return set;
    }
    std::string validName(const char *text) const
    {
        return manager.getFrameSetValidName(name(text)).toStdString();
    }

    GestFrames manager;
};

TEST_F(Managers, aNewManagerIsEmpty)
{
    EXPECT_EQ(manager.document(), nullptr);
    EXPECT_EQ(manager.numberOfFrameSets(), 0);
    EXPECT_TRUE(manager.name().isEmpty());
    EXPECT_TRUE(manager.getGroupMapping()->empty());
}

TEST_F(Managers, aCallEntersThroughTheDocument)
{
    support::TestDocument document;
    EXPECT_EQ(GestFrames::managerFramesDocument(&document), &document.manager());
    EXPECT_EQ(GestFrames::managerFramesDocument(nullptr), nullptr);
}

TEST_F(Managers, keepsItsTexts)
{
    manager.setName(name("N"));
    manager.setDesc(name("D"));
    manager.setWorkId(name("W"));
    const GestFrames copy = manager;
    EXPECT_EQ(copy.name(), name("N"));
    EXPECT_EQ(copy.desc(), name("D"));
    EXPECT_EQ(copy.workId(), name("W"));
}

TEST_F(Managers, aSetIsEnteredOnce)
{
    FrameSet *const a = add("A");
    FrameSet *const b = add("B", 0);
    EXPECT_EQ(support::names(manager.getFrameSets()), "B A");
    manager.addFrameSet(a, 0);
    EXPECT_EQ(support::names(manager.getFrameSets()), "B A"); // whatever the index
    manager.removeFrameSet(b);
    EXPECT_EQ(b->getGestFrames(), &manager); // it is not told
    EXPECT_EQ(manager.numberOfFrameSets(), 1);
    delete b;
    EXPECT_THROW(manager.addFrameSet(nullptr, -1), AssertionError);
}

TEST_F(Managers, findsTheFirstSetOfAName)
{
    FrameSet *const a = add("Front");
    add("front");
    EXPECT_EQ(manager.getFrameSetAccordingName(name("F RONT")), a);
    EXPECT_EQ(manager.getFrameSetAccordingName(name("Back")), nullptr);
}

TEST_F(Managers, aFreeProposalComesBackUnchanged)
{
    add("Set");
    EXPECT_EQ(validName("Set 2"), "Set 2");
    EXPECT_EQ(validName(""), "");
    EXPECT_EQ(validName("Size 10 b"), "Size 10 b");
}

TEST_F(Managers, aTakenNameGetsTheNextFreeNumber)
{
    struct Row {
        QList<const char *> taken;
        const char *proposed;
        const char *valid;
    };
    const Row rows[] = {
        {{"Set"}, "Set", "Set 1"},
        {{"Set", "Set 1"}, "Set", "Set 2"},
        {{"Set 4"}, "Set 4", "Set 5"},
        {{"Set 1", "Set 2"}, "set  1", "set 3"},     // blanks do not make a name free
        {{"Size 10 b"}, "Size 10 b", "Size 10 b 1"}, // what follows the last blank is no number
        {{"Set 2147483647"}, "Set 2147483647", "Set 2147483648"},
        {{"Set 2147483648"}, "Set 2147483648", "Set 2147483648 1"}, // no int, so the whole name is the stem
        {{"Set -3"}, "Set -3", "Set -2"},
        {{"Set +7"}, "Set +7", "Set 8"},
        {{"Set "}, "Set ", "Set  1"},
        {{""}, "", " 1"},
    };
    for (const Row &row : rows) {
        GestFrames some;
        for (const char *taken : row.taken)
            some.addFrameSet(new FrameSet(name(taken), &some), -1);
        EXPECT_EQ(some.getFrameSetValidName(name(row.proposed)).toStdString(), row.valid);
    }
}

TEST_F(Managers, aThousandTakenNumbersAreSteppedOver)
{
    add("Set");
    for (int i = 1; i <= 1000; ++i)
        manager.addFrameSet(new FrameSet(QStringLiteral("Set %1").arg(i), &manager), -1);
    EXPECT_EQ(validName("Set"), "Set 1001");
}

TEST_F(Managers, aCopyPointsAtTheSameSets)
{
    FrameSet *const a = add("A");
    {
        GestFrames copy = manager;
        EXPECT_EQ(copy.getFrameSets(), manager.getFrameSets());
        copy.removeFrameSet(a); // or it would be deleted twice
    }
    GestFrames assigned;
    assigned = manager;
    EXPECT_EQ(assigned.numberOfFrameSets(), 1);
    assigned.removeFrameSet(a);
}

// A set that tells, when it dies, whether it still has a manager and how many sets its owner then lists.
class MortalSet : public FrameSet
{
public:
    MortalSet(const char *text, GestFrames *manager, QStringList &deaths)
        : FrameSet(support::name(text), manager), mOwner(*manager), mDeaths(deaths)
    {
    }
    ~MortalSet() override
    {
        mDeaths << QStringLiteral("%1 %2 %3")
                       .arg(name(), QLatin1String(getGestFrames() == nullptr ? "free" : "bound"),
                            QString::number(mOwner.numberOfFrameSets()));
    }

private:
    GestFrames &mOwner;
    QStringList &mDeaths;
};

TEST(DyingManagers, letTheirSetsGoOneByOneBeforeTheyDeleteThem)
{
    QStringList deaths;
    auto *const manager = new GestFrames;
    manager->addFrameSet(new MortalSet("A", manager, deaths), -1);
    manager->addFrameSet(new MortalSet("B", manager, deaths), -1);
    delete manager;
    EXPECT_EQ(deaths, (QStringList{name("A free 1"), name("B free 0")}));
}

TEST_F(Managers, clearingOutDeletesSetsWithoutAnythingDefined)
{
    add("Empty");
    FrameSet *const kept = add("Kept");
    kept->newSpec(name("P")); // a spec without a formula counts as defined
    FrameSet *const emptied = add("Emptied");
    emptied->newFrame(name("A"), emptied->newCenter(name("C")));
    manager.destroyAllFramesUndefined();
    EXPECT_EQ(support::names(manager.getFrameSets()), "Kept");
}

TEST_F(Managers, clearingOutEndsWithASetThatNamesNoManager)
{
    FrameSet *const stray = add("Stray");
    stray->setFrameManager(nullptr);
    manager.destroyAllFramesUndefined();
    EXPECT_EQ(manager.numberOfFrameSets(), 0);
}

TEST_F(Managers, tellsWhetherAnySetIsInUse)
{
    FrameSet *const a = add("A");
    EXPECT_FALSE(manager.areSetPartiallyDefined());
    EXPECT_FALSE(manager.areFrameSpecDefined());
    a->newLink(name("L")); // an empty link is defined
    EXPECT_TRUE(manager.areSetPartiallyDefined());
    EXPECT_FALSE(manager.areFrameSpecDefined());
    a->newSpec(name("P"));
    EXPECT_TRUE(manager.areFrameSpecDefined());
}

TEST_F(Managers, adjustsEverySetToTheSizesOfTheDocument)
{
    support::TestDocument document(3, 2);
    FrameSet *const set = document.newSet();
    FrameFrame *const frame = set->newFrame(name("A"), set->newCenter(name("C")));
    *frame->getMeasureBySizes() = support::sizes({5}, 0);
    FrameSpec *const spec = set->newSpec(name("P"));
    FrameLink *const link = set->newLink(name("L"));
    *link->getLevelBySizes() = support::sizes({1, 2}, 1);
    *set->newSegment(name("S"))->getMeasureBySizes() = support::sizes({7}, 0);
    *set->newMeasurementChart(name("H"))->getMeasureBySizes() = support::sizes({9, 8, 7, 6}, 1);
    document.manager().adjustFrameSetsANest();
    EXPECT_EQ(support::text(*link->getMeasureBySizes()), "0 [0] 0");
    EXPECT_EQ(support::text(*link->getLevelBySizes()), "1 [2] 2");
    EXPECT_EQ(support::text(*set->getFrameSegments().first()->getMeasureBySizes()), "7 [7] 7");
    EXPECT_EQ(support::text(*set->getFrameMeasurementCharts().first()->getMeasureBySizes()), "9 [8] 7");
    EXPECT_EQ(support::text(*frame->getMeasureBySizes()), "5 [5] 5");
    EXPECT_EQ(support::text(*frame->getLevelBySizes()), "0 [0] 0");
    EXPECT_EQ(support::text(*spec->getMeasureBySizes()), "0 [0] 0");
    document.setSizes(0, 0);
    document.manager().adjustFrameSetsANest();
    EXPECT_EQ(support::text(*frame->getMeasureBySizes()), "[5]");
}

TEST_F(Managers, reevaluatesEverySetWithoutAShortCut)
{
    support::TestDocument document(2, 1);
    FrameSpec *const first = document.newSet("A")->newSpec(name("P"));
    FrameSpec *const second = document.newSet("B")->newSpec(name("P"));
    EXPECT_TRUE(document.manager().reevaluateFrameSets(Reevaluate_Apply));
    EXPECT_EQ(support::text(*first->getMeasureBySizes()), "[0] 0");
    EXPECT_EQ(support::text(*second->getMeasureBySizes()), "[0] 0");
    EXPECT_FALSE(document.manager().reevaluateFrameSets(Reevaluate_Apply));
}

// --- Correspondence of groups ---

// Three groups, in the order of their addresses.
class GroupMappings : public Managers
{
protected:
    GroupMappings()
    {
        for (std::size_t i = 0; i < 3; ++i)
            g[i] = &mGroups[i];
        std::sort(std::begin(g), std::end(g), std::less<CDbGroupObject *>());
    }

    CDbGroupObject *g[3];

private:
    CDbGroupObject mGroups[3];
};

TEST_F(GroupMappings, holdAsLongAsTheBaton)
{
    {
        const RelayBaton baton = manager.setGroupMapping({{g[0], g[1]}});
        EXPECT_EQ(manager.getMappedGroup(g[0]), g[1]);
        EXPECT_EQ(manager.getMappedGroup(g[1]), nullptr);
        manager.notifyGroupChanged(g[0]);
        const RelayBaton copy = baton;
        EXPECT_EQ(manager.getGroupMapping()->size(), 1u);
    }
    EXPECT_TRUE(manager.getGroupMapping()->empty()); // with its marks, and not null
    EXPECT_FALSE(manager.groupHasChanged(g[0]));
}

TEST_F(GroupMappings, areNotifiedFromEitherSideAndAnswerForTheKeyOnly)
{
    const RelayBaton baton = manager.setGroupMapping({{g[0], g[1]}});
    EXPECT_FALSE(manager.groupHasChanged(g[0]));
    manager.notifyGroupChanged(g[2]);
    EXPECT_FALSE(manager.groupHasChanged(g[0]));
    manager.notifyGroupChanged(g[1]);
    EXPECT_TRUE(manager.groupHasChanged(g[0]));
    EXPECT_FALSE(manager.groupHasChanged(g[1]));
}

TEST_F(GroupMappings, ofTwoKeysWithOneValueTheFirstIsMarked)
{
    const RelayBaton baton = manager.setGroupMapping({{g[0], g[2]}, {g[1], g[2]}});
    manager.notifyGroupChanged(g[2]);
    EXPECT_TRUE(manager.groupHasChanged(g[0]));
    EXPECT_FALSE(manager.groupHasChanged(g[1]));
}

TEST_F(GroupMappings, aKeyComesBeforeAValue)
{
    const RelayBaton baton = manager.setGroupMapping({{g[0], g[1]}, {g[1], g[2]}});
    manager.notifyGroupChanged(g[1]);
    EXPECT_FALSE(manager.groupHasChanged(g[0]));
    EXPECT_TRUE(manager.groupHasChanged(g[1]));
}

TEST_F(GroupMappings, anEmptyMappingClearsAndItsBatonDoesNothing)
{
    const RelayBaton first = manager.setGroupMapping({{g[0], g[1]}});
    {
        const RelayBaton nothing = manager.setGroupMapping({});
        EXPECT_TRUE(manager.getGroupMapping()->empty());
        const RelayBaton second = manager.setGroupMapping({{g[1], g[2]}});
        static_cast<void>(second);
    }
    const RelayBaton third = manager.setGroupMapping({{g[1], g[2]}});
    EXPECT_EQ(manager.getMappedGroup(g[1]), g[2]);
}

TEST_F(GroupMappings, theFirstBatonClearsTheSecondMappingToo)
{
    RelayBaton baton = manager.setGroupMapping({{g[0], g[1]}});
    baton = manager.setGroupMapping({{g[1], g[2]}}); // the new one is set, then the old baton dies
    EXPECT_TRUE(manager.getGroupMapping()->empty());
}

TEST_F(GroupMappings, aBatonMayOutliveItsManager)
{
    auto *const doomed = new GestFrames;
    const RelayBaton baton = doomed->setGroupMapping({{g[0], g[1]}});
    delete doomed;
    SUCCEED();
}

TEST_F(GroupMappings, anAssignedManagerKeepsItsOwnBaton)
{
    GestFrames other;
    {
        const RelayBaton baton = manager.setGroupMapping({{g[0], g[1]}});
        const RelayBaton others = other.setGroupMapping({{g[1], g[2]}});
        manager = other;
        EXPECT_EQ(manager.getMappedGroup(g[1]), g[2]);
    }
    EXPECT_TRUE(manager.getGroupMapping()->empty());
    EXPECT_TRUE(other.getGroupMapping()->empty());
}

TEST_F(GroupMappings, nullIsAGroupLikeAnyOther)
{
    const RelayBaton baton = manager.setGroupMapping({{g[0], nullptr}});
    manager.notifyGroupChanged(nullptr);
    EXPECT_TRUE(manager.groupHasChanged(g[0]));
    EXPECT_EQ(manager.getGroupMapping()->size(), 1u); // no key was made of it
}

TEST_F(GroupMappings, aSetAsksItsManager)
{
    FrameSet *const set = add("A");
    const RelayBaton baton = manager.setGroupMapping({{g[0], g[1]}});
    EXPECT_EQ(set->getGroupMapping(), manager.getGroupMapping());
    EXPECT_EQ(set->getMappedGroup(g[0]), g[1]);
    set->notifyGroupChanged(g[0]);
    EXPECT_TRUE(manager.groupHasChanged(g[0]));
    FrameSet lonely(name("L"), nullptr);
    EXPECT_EQ(lonely.getGroupMapping(), nullptr);
    EXPECT_EQ(lonely.getMappedGroup(g[0]), nullptr);
    lonely.notifyGroupChanged(g[0]);
}

// --- Another manager ---

TEST_F(Managers, aTransferredSetKeepsItsNameEvenWhereItCollides)
{
    GestFrames target;
    target.addFrameSet(new FrameSet(name("A"), &target), -1);
    FrameSet *const set = add("A");
    EXPECT_TRUE(set->aTransferredManager(&target));
    EXPECT_EQ(support::names(target.getFrameSets()), "A A");
    EXPECT_EQ(manager.numberOfFrameSets(), 0);
    EXPECT_EQ(set->getGestFrames(), &target);
}

TEST_F(Managers, aTransferToTheOwnManagerChangesNothing)
{
    auto *const set = new FrameSet(name("A"), &manager); // in no list
    EXPECT_TRUE(set->aTransferredManager(&manager));
    EXPECT_EQ(manager.numberOfFrameSets(), 0);
    EXPECT_THROW(set->aTransferredManager(nullptr), AssertionError);
    delete set;
}

TEST_F(Managers, aTransferredSetIsListedOnce)
{
    GestFrames target;
    auto *const set = new FrameSet(name("A"), nullptr);
    target.addFrameSet(set, -1);
    EXPECT_TRUE(set->aTransferredManager(&target));
    EXPECT_EQ(target.numberOfFrameSets(), 1);
}

} // namespace
