// Frame sets as containers: making, entering, finding, reordering and deleting elements.

#include <support/TestDocument.h>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

using namespace VorSystem;
using support::name;
using support::names;

namespace
{

// A set in the manager of a document without pieces.
class Sets : public testing::Test
{
protected:
    FrameFrame *frame(FrameCenter *center, const char *text) { return set->newFrame(name(text), center); }

    support::TestDocument document;
    FrameSet *set = document.newSet();
};

// --- Making ---

TEST_F(Sets, aNewSetHasItsNameAndManagerAndIsInNoList)
{
    GestFrames manager;
    FrameSet fresh(name("T1"), &manager);
    EXPECT_EQ(fresh.name(), name("T1"));
    EXPECT_EQ(fresh.getGestFrames(), &manager);
    EXPECT_EQ(fresh.elementType(), 5);
    EXPECT_EQ(manager.numberOfFrameSets(), 0);
    EXPECT_TRUE(fresh.getFrameCenters().isEmpty());
}

TEST_F(Sets, aTakenNameMakesNoNewElement)
{
    EXPECT_NE(set->newCenter(name("front")), nullptr);
    EXPECT_EQ(set->newCenter(name("Front ")), nullptr);
    EXPECT_EQ(set->getFrameCenters().count(), 1);
    EXPECT_NE(set->newLink(name("Front")), nullptr); // another kind may bear the name
    EXPECT_EQ(set->newLink(name("FRONT")), nullptr);
    EXPECT_NE(set->newSegment(name("Front")), nullptr);
    EXPECT_EQ(set->newSegment(name("f ront")), nullptr);
    EXPECT_NE(set->newSpec(name("Front")), nullptr);
    EXPECT_EQ(set->newSpec(name("front")), nullptr);
}

TEST_F(Sets, newElementsKnowTheirSetAndComeLast)
{
    FrameCenter *const center = set->newCenter(name("C"));
    EXPECT_EQ(center->getFrameSet(), set);
    EXPECT_EQ(set->newLink(name("L"))->getFrameSet(), set);
    EXPECT_EQ(set->newSegment(name("S"))->getFrameSet(), set);
    EXPECT_EQ(set->newSpec(name("P"))->getFrameSet(), set);
    EXPECT_EQ(set->newMeasurementChart(name("H"))->getFrameSet(), set);
    set->newCenter(name("D"));
    EXPECT_EQ(names(set->getFrameCenters()), "C D");
}

TEST_F(Sets, aFramesNameIsUniqueWithinItsCenterOnly)
{
    FrameCenter *const first = set->newCenter(name("C1"));
    FrameCenter *const second = set->newCenter(name("C2"));
    EXPECT_NE(frame(first, "A"), nullptr);
    EXPECT_NE(frame(second, "a"), nullptr);
    EXPECT_EQ(frame(first, "A"), nullptr);
    EXPECT_EQ(names(set->getFrames()), "C1:A C2:a");
}

TEST_F(Sets, aFramesNameIsAskedForByTheComposedName)
{
    FrameCenter *const first = set->newCenter(name("C"));
    auto *const twin = new FrameCenter(name("c"));
    set->addCenter(twin, -1);
    frame(first, "A");
    EXPECT_EQ(frame(twin, "A"), nullptr); // the first center of the name decides
    EXPECT_NE(frame(twin, "B"), nullptr);
    EXPECT_NE(frame(twin, "B"), nullptr); // and knows nothing of the frames of its twin
    FrameCenter *const colon = set->newCenter(name("D:E"));
    EXPECT_NE(frame(colon, "A"), nullptr);
    EXPECT_NE(frame(colon, "A"), nullptr); // sought as a frame of a center D
}

TEST_F(Sets, aNewFrameReachesItsSetThroughItsCenterAlone)
{
    FrameCenter *const center = set->newCenter(name("C"));
    FrameFrame *const made = frame(center, "A");
    EXPECT_EQ(made->setOrGetFrameSet(), nullptr);
    EXPECT_EQ(made->getFrameSet(), set);
    EXPECT_EQ(made->getFrameCenter(), center);
    EXPECT_EQ(center->getFrameLevelZero(), made);
}

TEST_F(Sets, aFrameNeedsACenter)
{
    EXPECT_THROW(set->newFrame(name("A"), nullptr), AssertionError);
    EXPECT_TRUE(set->getFrames().isEmpty());
}

TEST_F(Sets, chartsAreTestedAgainstTheNamesOfSpecs)
{
    EXPECT_NE(set->newMeasurementChart(name("X")), nullptr);
    EXPECT_NE(set->newMeasurementChart(name("X")), nullptr);
    EXPECT_EQ(set->getFrameMeasurementCharts().count(), 2);
    set->newSpec(name("Y"));
    EXPECT_EQ(set->newMeasurementChart(name("Y")), nullptr);
    EXPECT_NE(set->newSpec(name("X")), nullptr); // and specs not against charts
}

// --- Entering and leaving ---

TEST_F(Sets, anElementIsTakenOverFromItsOldSet)
{
    FrameSet *const other = document.newSet("Other");
    FrameLink *const link = set->newLink(name("L"));
    other->newLink(name("M"));
    other->addLink(link, 0);
    EXPECT_TRUE(set->getFrameLinks().isEmpty());
    EXPECT_EQ(names(other->getFrameLinks()), "L M");
    EXPECT_EQ(link->getFrameSet(), other);
}

TEST_F(Sets, everyKindIsTakenOverAtItsPlace)
{
    FrameSet *const other = document.newSet("Other");
    FrameCenter *const center = set->newCenter(name("C"));
    FrameFrame *const moved = frame(center, "A");
    FrameSegment *const segment = set->newSegment(name("S"));
    FrameSpec *const spec = set->newSpec(name("P"));
    FrameMeasurementChart *const chart = set->newMeasurementChart(name("H"));
    other->newFrame(name("B"), other->newCenter(name("D")));
    other->newSegment(name("T"));
    other->newSpec(name("Q"));
    other->newMeasurementChart(name("I"));

    other->addFrame(moved, 0); // as long as its center still stands in the old set
    other->addCenter(center, 0);
    other->addSegment(segment, 0);
    other->addSpec(spec, 0);
    other->addMeasurementChart(chart, 0);
    EXPECT_EQ(names(other->getFrameCenters()), "C D");
    EXPECT_EQ(names(other->getFrames()), "C:A D:B");
    EXPECT_EQ(names(other->getFrameSegments()), "S T");
    EXPECT_EQ(names(other->getFrameSpecs()), "P Q");
    EXPECT_EQ(names(other->getFrameMeasurementCharts()), "H I");
    EXPECT_TRUE(set->getFrameCenters().isEmpty() && set->getFrames().isEmpty() &&
                set->getFrameSegments().isEmpty() && set->getFrameSpecs().isEmpty() &&
                set->getFrameMeasurementCharts().isEmpty());
    for (BaseFrame *element : std::initializer_list<BaseFrame *>{center, moved, segment, spec, chart})
        EXPECT_EQ(element->getFrameSet(), other);
}

TEST_F(Sets, enteringTestsNoName)
{
    set->newSegment(name("S"));
    set->addSegment(new FrameSegment(name("S")), -1);
    EXPECT_EQ(names(set->getFrameSegments()), "S S");
}

TEST_F(Sets, anElementEnteredInItsOwnSetMoves)
{
    FrameSpec *const first = set->newSpec(name("P"));
    set->newSpec(name("Q"));
    set->newSpec(name("R"));
    set->addSpec(first, 1); // counted when it has left
    EXPECT_EQ(names(set->getFrameSpecs()), "Q P R");
    set->addSpec(first, -1);
    EXPECT_EQ(names(set->getFrameSpecs()), "Q R P");
}

TEST_F(Sets, centersAndChartsAreEnteredLikewise)
{
    set->newCenter(name("C"));
    set->addCenter(new FrameCenter(name("D")), 0);
    EXPECT_EQ(names(set->getFrameCenters()), "D C");
    set->newMeasurementChart(name("H"));
    set->addMeasurementChart(new FrameMeasurementChart(name("G")), 0);
    EXPECT_EQ(names(set->getFrameMeasurementCharts()), "G H");
}

TEST_F(Sets, aFrameIsTakenOverByItsCentersSet)
{
    FrameCenter *const center = set->newCenter(name("C"));
    FrameFrame *const a = frame(center, "A");
    frame(center, "B");
    set->addFrame(a, -1);
    EXPECT_EQ(names(set->getFrames()), "C:B C:A");
    EXPECT_EQ(names(center->getFrames()), "C:A C:B"); // the center is left alone

    auto *const guest = new FrameFrame(name("G"));
    guest->addFrameCenter(center, 0);
    set->addFrame(guest, 1);
    EXPECT_EQ(names(set->getFrames()), "C:B C:G C:A");
}

TEST_F(Sets, aRemovedElementBelongsToTheCaller)
{
    FrameCenter *const center = set->newCenter(name("C"));
    FrameFrame *const taken = frame(center, "A");
    set->removeFrame(taken);
    EXPECT_TRUE(set->getFrames().isEmpty());
    EXPECT_EQ(taken->getFrameCenter(), center);

    FrameLink *const link = set->newLink(name("L"));
    set->removeLink(link);
    EXPECT_EQ(link->getFrameSet(), nullptr);
    EXPECT_TRUE(set->getFrameLinks().isEmpty());
    FrameSegment *const segment = set->newSegment(name("S"));
    set->removeSegment(segment);
    FrameSpec *const spec = set->newSpec(name("P"));
    set->removeSpec(spec);
    FrameMeasurementChart *const chart = set->newMeasurementChart(name("H"));
    set->removeMeasurementChart(chart);
    EXPECT_EQ(segment->getFrameSet(), nullptr);
    EXPECT_EQ(spec->getFrameSet(), nullptr);
    EXPECT_EQ(chart->getFrameSet(), nullptr);
    delete taken;
    delete link;
    delete segment;
    delete spec;
    delete chart;
    set->removeCenter(center);
    EXPECT_EQ(center->getFrameSet(), nullptr);
    delete center;
}

TEST_F(Sets, enteringNothingIsAnError)
{
    EXPECT_THROW(set->addCenter(nullptr, -1), AssertionError);
    EXPECT_THROW(set->addLink(nullptr, -1), AssertionError);
    EXPECT_THROW(set->addSegment(nullptr, 0), AssertionError);
    EXPECT_THROW(set->addSpec(nullptr, 0), AssertionError);
    EXPECT_THROW(set->addMeasurementChart(nullptr, 0), AssertionError);
    EXPECT_THROW(set->addFrame(nullptr, 0), AssertionError);
}

TEST_F(Sets, aPlaceBeyondTheEndEndsTheProgram)
{
    testing::FLAGS_gtest_death_test_style = "fast";
    set->newCenter(name("C"));
    FrameCenter center(name("D"));
    EXPECT_DEATH(set->addCenter(&center, 2), "insert: index 2 is outside a list of size 1");
}

// --- Finding ---

TEST_F(Sets, aFrameIsFoundByItsFullNameOrOnRequestByItsBareOne)
{
    FrameFrame *const a = frame(set->newCenter(name("C1")), "A");
    EXPECT_EQ(set->foundElementAccordingName(name("C1:A"), false), a);
    EXPECT_EQ(set->foundElementAccordingName(name(" c1 : a"), false), a);
    EXPECT_EQ(set->foundElementAccordingName(name("A"), false), nullptr);
    EXPECT_EQ(set->foundElementAccordingName(name("A"), true), a);
}

TEST_F(Sets, everyOtherKindHidesABareFrameName)
{
    frame(set->newCenter(name("C1")), "A");
    FrameMeasurementChart *const chart = set->newMeasurementChart(name("A"));
    EXPECT_EQ(set->foundElementAccordingName(name("a"), true), chart);
    FrameSpec *const spec = set->newSpec(name("A"));
    EXPECT_EQ(set->foundElementAccordingName(name("a"), true), spec);
    FrameSegment *const segment = set->newSegment(name("A"));
    EXPECT_EQ(set->foundElementAccordingName(name("a"), true), segment);
    FrameLink *const link = set->newLink(name("A"));
    EXPECT_EQ(set->foundElementAccordingName(name("a"), true), link);
    FrameCenter *const center = set->newCenter(name("A"));
    EXPECT_EQ(set->foundElementAccordingName(name("a"), true), center);
}

TEST_F(Sets, aNameWithAColonMeansAFrameAndNothingElse)
{
    set->newLink(name("C:L"));
    EXPECT_EQ(set->foundElementAccordingName(name("C:L"), true), nullptr);
    FrameCenter *const center = set->newCenter(name("C"));
    FrameFrame *const odd = new FrameFrame(name("A:B"));
    odd->addFrameCenter(center, -1);
    set->addFrame(odd, -1);
    EXPECT_EQ(set->foundElementAccordingName(name("C:A:B"), false), odd); // the first colon splits
}

TEST_F(Sets, ofTwinsTheFirstInTheListIsFound)
{
    FrameSpec *const first = set->newSpec(name("P"));
    set->addSpec(new FrameSpec(name("P")), -1);
    EXPECT_EQ(set->findFrameSpecAccordingName(name("p")), first);
    EXPECT_EQ(set->findFrameCenterAccordingName(name("p")), nullptr);
    EXPECT_EQ(set->findFrameLinkAccordingName(name("p")), nullptr);
    EXPECT_EQ(set->findFrameSegmentAccordingName(name("p")), nullptr);
    EXPECT_EQ(set->findFrameMeasurementChartAccordingName(name("p")), nullptr);
}

// --- Reordering ---

TEST_F(Sets, positionsTakeTheElementsThatTheOrderNames)
{
    for (const char *text : {"P", "Q", "R"})
        set->newLink(name(text));
    set->ChangeFrameLinks({0, 1});
    EXPECT_EQ(names(set->getFrameLinks()), "P Q R"); // one entry short: nothing
    set->ChangeFrameLinks({2, 0, 1});
    EXPECT_EQ(names(set->getFrameLinks()), "R P Q");
}

TEST_F(Sets, everyKindIsReordered)
{
    set->newCenter(name("C"));
    set->newCenter(name("D"));
    set->ChangeFrameCenters({1, 0});
    EXPECT_EQ(names(set->getFrameCenters()), "D C");
    set->newSegment(name("S"));
    set->newSegment(name("T"));
    set->ChangeFrameSegments({1, 0});
    EXPECT_EQ(names(set->getFrameSegments()), "T S");
    set->newSpec(name("P"));
    set->newSpec(name("Q"));
    set->ChangeFrameSpecs({1, 0});
    EXPECT_EQ(names(set->getFrameSpecs()), "Q P");
    set->newMeasurementChart(name("G"));
    set->newMeasurementChart(name("H"));
    set->ChangeFrameMeasurementCharts({1, 0});
    EXPECT_EQ(names(set->getFrameMeasurementCharts()), "H G");
}

TEST_F(Sets, aRepeatedPlaceRepeatsAnElementAndLosesAnotherToItsHolder)
{
    set->newLink(name("P"));
    FrameLink *const lost = set->newLink(name("Q"));
    set->ChangeFrameLinks({0, 0});
    EXPECT_EQ(names(set->getFrameLinks()), "P P");
    EXPECT_EQ(lost->getFrameSet(), nullptr);
    delete lost; // and the set deletes P once
}

TEST_F(Sets, anOrderBeyondTheListEndsTheProgram)
{
    testing::FLAGS_gtest_death_test_style = "fast";
    set->newLink(name("P"));
    EXPECT_DEATH(set->ChangeFrameLinks({1}), "at: index 1 is outside a list of size 1");
}

TEST_F(Sets, framesAreReorderedThroughTheCenterOfExactlyThatName)
{
    FrameCenter *const center = set->newCenter(name("Front"));
    frame(center, "A");
    frame(center, "B");
    set->ChangeFrameFrames({1, 0}, name("front")); // no match: the name must be equal
    EXPECT_EQ(names(center->getFrames()), "Front:A Front:B");
    set->ChangeFrameFrames({1, 0}, name("Front"));
    EXPECT_EQ(names(center->getFrames()), "Front:B Front:A");
    EXPECT_EQ(names(set->getFrames()), "Front:B Front:A");
}

RC_GTEST_FIXTURE_PROP(Sets, aPermutationReorders, ())
{
    const int count = *rc::gen::inRange(0, 12);
    std::vector<int> order(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        order[static_cast<std::size_t>(i)] = i;
        set->newSegment(QString::number(i));
    }
    for (int i = count - 1; i > 0; --i)
        std::swap(order[static_cast<std::size_t>(i)],
                  order[static_cast<std::size_t>(*rc::gen::inRange(0, i + 1))]);
    QListEx<int> places;
    for (const int place : order)
        places.append(place);
    const QListEx<FrameSegment *> before = set->getFrameSegments();
    set->ChangeFrameSegments(places);
    const QListEx<FrameSegment *> after = set->getFrameSegments();
    for (int i = 0; i < count; ++i)
        RC_ASSERT(after.at(i) == before.at(places.at(i)));
}

// --- Life ---

TEST_F(Sets, throughTheBaseASetHasNoSetAndNoDocument)
{
    BaseFrame *const base = set;
    EXPECT_EQ(set->getFrameSet(), set);
    EXPECT_EQ(set->document(), &document);
    EXPECT_EQ(base->getFrameSet(), nullptr);
    EXPECT_EQ(base->document(), nullptr);
}

TEST_F(Sets, aSetWithoutManagerHasNoDocument)
{
    FrameSet lonely(name("T"), nullptr);
    EXPECT_EQ(lonely.document(), nullptr);
    FrameSegment *const segment = lonely.newSegment(name("S"));
    EXPECT_EQ(segment->document(), nullptr);
    EXPECT_EQ(segment->objectControlCorresponding(), nullptr);
    EXPECT_FALSE(segment->isDefinedInDocument());
    lonely.setFrameManager(&document.manager());
    EXPECT_EQ(segment->document(), &document);
}

TEST_F(Sets, aDeletedSetLeavesItsManager)
{
    delete set;
    EXPECT_EQ(document.manager().numberOfFrameSets(), 0);
}

TEST_F(Sets, aDeletedElementLeavesItsSet)
{
    FrameCenter *const center = set->newCenter(name("C"));
    FrameFrame *const a = frame(center, "A");
    delete a;
    EXPECT_TRUE(set->getFrames().isEmpty());
    EXPECT_TRUE(center->getFrames().isEmpty());
    EXPECT_EQ(center->getFrameLevelZero(), nullptr);
    delete center;
    delete set->newLink(name("L"));
    delete set->newSegment(name("S"));
    delete set->newSpec(name("P"));
    delete set->newMeasurementChart(name("H"));
    EXPECT_TRUE(set->getFrameCenters().isEmpty());
    EXPECT_TRUE(set->getFrameLinks().isEmpty());
    EXPECT_TRUE(set->getFrameSegments().isEmpty());
    EXPECT_TRUE(set->getFrameSpecs().isEmpty());
    EXPECT_TRUE(set->getFrameMeasurementCharts().isEmpty());
}

TEST_F(Sets, aFrameWithoutACenterDiesWithItsSet)
{
    FrameFrame *const a = frame(set->newCenter(name("C")), "A");
    a->removeFromCenter();
    EXPECT_EQ(a->getFrameSet(), nullptr);
    delete set; // it still lists the frame
    SUCCEED();
}

TEST_F(Sets, linksDieBeforeTheirFramesAndFramesBeforeTheirCenters)
{
    FrameCenter *const center = set->newCenter(name("C"));
    FrameLink *const link = set->newLink(name("L"));
    link->linkFrame(frame(center, "A"));
    link->linkFrame(frame(center, "B"));
    delete set;
    SUCCEED();
}

// An element that tells when it dies.
template<class Element>
class Mortal : public Element
{
public:
    Mortal(const char *text, QStringList &deaths) : Element(name(text)), mDeaths(deaths) {}
    ~Mortal() override { mDeaths << this->name(); }

private:
    QStringList &mDeaths;
};

TEST_F(Sets, theKindsDieInAFixedOrder)
{
    QStringList deaths;
    auto *const center = new Mortal<FrameCenter>("center", deaths);
    auto *const frame = new Mortal<FrameFrame>("frame", deaths);
    set->addMeasurementChart(new Mortal<FrameMeasurementChart>("chart", deaths), -1);
    set->addSpec(new Mortal<FrameSpec>("spec", deaths), -1);
    set->addSegment(new Mortal<FrameSegment>("segment", deaths), -1);
    set->addCenter(center, -1);
    frame->addFrameCenter(center, -1);
    set->addFrame(frame, -1);
    set->addLink(new Mortal<FrameLink>("link", deaths), -1);
    delete set;
    EXPECT_EQ(deaths.join(QLatin1Char(' ')), name("link frame center segment spec chart"));
}

TEST_F(Sets, aLinkTakenOffItsListMayBeDeletedBeforeOrAfterTheSet)
{
    FrameCenter *const center = set->newCenter(name("C"));
    FrameLink *const before = set->newLink(name("K"));
    FrameLink *const after = set->newLink(name("L"));
    FrameLink *const lost = set->newLink(name("M"));
    FrameFrame *const freed = frame(center, "A");
    before->linkFrame(freed);
    after->linkFrame(frame(center, "B"));
    lost->linkFrame(frame(center, "D"));
    set->removeLink(before);
    set->removeLink(after);
    set->newLink(name("N"));
    set->ChangeFrameLinks({1, 1});
    EXPECT_EQ(names(after->getFrames()), "C:B"); // it keeps its frames
    delete before;
    EXPECT_EQ(freed->getLink(), nullptr);
    delete set;
    EXPECT_TRUE(after->getFrames().isEmpty());
    EXPECT_TRUE(lost->getFrames().isEmpty());
    delete after;
    delete lost;
}

TEST_F(Sets, aCenterMovedToAnotherSetLeavesItsFramesBehind)
{
    FrameSet *const other = document.newSet("Other");
    FrameCenter *const center = set->newCenter(name("C"));
    frame(center, "A");
    other->addCenter(center, -1);
    EXPECT_EQ(names(set->getFrames()), "C:A");
    delete set; // deletes the frame, which takes itself out of its center
    EXPECT_TRUE(center->getFrames().isEmpty());
}

TEST_F(Sets, aCopyOfASetPointsAtTheSameElementsAndHasNoOrder)
{
    set->newSegment(name("S"));
    set->revalued(Reevaluate_Store);
    FrameSet copy(*set);
    EXPECT_EQ(copy.getFrameSegments(), set->getFrameSegments());
    for (FrameSegment *segment : copy.getFrameSegments())
        segment->setOrGetFrameSet() = &copy;
    copy.removeSegment(copy.getFrameSegments().first()); // emptied before it dies
    set->getFrameSegments().first()->setOrGetFrameSet() = set;
    copy.setFrameManager(nullptr);
}

TEST_F(Sets, aHundredThousandElementsAreDeletedInOneGo)
{
    FrameCenter *const center = set->newCenter(name("C"));
    for (int i = 0; i < 100000; ++i) {
        auto *const made = new FrameFrame(QString::number(i));
        set->getFramesPtr()->append(made);
        made->setFrameCenter(center);
    }
    delete set;
    EXPECT_EQ(document.manager().numberOfFrameSets(), 0);
}

} // namespace
