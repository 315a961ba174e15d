// Copying sets into another manager.

#include <gtest/gtest.h>

#include "TransferWorld.h"

#include <boost/function.hpp>

using namespace VorSystem;
using namespace transfers;
using support::formula;
using support::name;
using support::names;
using support::sizes;
using support::thrownBy;

namespace
{

class SetCopy : public Transfer
{
protected:
    /// Copies the source and gives the set that received it, or null.
    template<class Predicate>
    FrameSet *copy(Predicate select, bool withValues = true)
    {
        source->copyElements(&to.manager(), select, withValues, equivalences);
        const auto entry = equivalences.find(source);
        return entry == equivalences.end() ? nullptr : entry->second;
    }
    /// A set of the target that the source is sent to.
    FrameSet *preset()
    {
        FrameSet *const destination = to.newSet("Destination");
        equivalences[source] = destination;
        return destination;
    }
};

// Questions in order: Front, Chest, Waist, Hip, Back, Chest, Side.
constexpr bool Yes = true;
constexpr bool No = false;

// --- What goes along ---

TEST_F(SetCopy, takesEverythingThatIsSelected)
{
    const std::string before = describe(*source);
    FrameSet *const result = copy(everything);
    ASSERT_NE(result, nullptr);
    EXPECT_EQ(result->getGestFrames(), &to.manager());
    EXPECT_EQ(names(to.manager().getFrameSets()), "Set");
    EXPECT_EQ(names(result->getFrameCenters()), "Front Back");
    EXPECT_EQ(names(result->getFrames()), "Front:Chest Front:Waist Front:Hip Back:Chest");
    EXPECT_EQ(names(result->getFrameSegments()), "Side");
    EXPECT_EQ(names(result->getFrameLinks()), "Girth");
    EXPECT_EQ(names(result->getFrameLinks().at(0)->getFrames()), "Front:Chest Back:Chest");
    EXPECT_EQ(result->getFrameLinks().at(0)->getFrames().at(0)->getLink(), result->getFrameLinks().at(0));
    EXPECT_EQ(result->getFrameCenters().at(0)->getFrameLevelZero(), frame(result, "Front:Waist"));
    EXPECT_EQ(names(result->getFrameMeasurementCharts()), "Bust");
    EXPECT_EQ(describe(*source), before);
}

TEST_F(SetCopy, refusingEverythingGivesNoSetAndNoEntry)
{
    EXPECT_EQ(copy(nothing), nullptr);
    EXPECT_TRUE(equivalences.empty());
    EXPECT_EQ(to.manager().numberOfFrameSets(), 0);
}

TEST_F(SetCopy, aCenterAllOfWhoseFramesFailIsKeptWithoutFrames)
{
    FrameSet *const result = copy(Answers({Yes, No, No, No, No, No}));
    ASSERT_NE(result, nullptr);
    EXPECT_EQ(names(result->getFrameCenters()), "Front");
    EXPECT_EQ(names(result->getFrames()), "");
    EXPECT_EQ(result->getFrameCenters().at(0)->getFrameLevelZero(), nullptr);
}

TEST_F(SetCopy, aSegmentAloneKeepsTheSet)
{
    FrameSet *const result = copy(Answers({No, No, Yes}));
    ASSERT_NE(result, nullptr);
    EXPECT_EQ(names(result->getFrameCenters()), "");
    EXPECT_EQ(names(result->getFrameSegments()), "Side");
    EXPECT_EQ(names(result->getFrameLinks()), "");
}

TEST_F(SetCopy, theNameOfTheNewSetIsAValidOne)
{
    to.newSet("set");
    FrameSet *const result = copy(everything);
    EXPECT_EQ(result->name(), name("Set 1"));
    EXPECT_EQ(names(to.manager().getFrameSets()), "set Set 1");
}

TEST_F(SetCopy, withoutItsOriginTheNewCenterCountsFromItsFirstFrame)
{
    FrameSet *const result = copy(Answers({Yes, Yes, No, Yes}));
    EXPECT_EQ(names(result->getFrameCenters().at(0)->getFrames()), "Front:Chest Front:Hip");
    EXPECT_EQ(result->getFrameCenters().at(0)->getFrameLevelZero(), frame(result, "Front:Chest"));
}

TEST_F(SetCopy, aLinkOfWhichOneFrameDidNotPassStaysBehind)
{
    FrameSet *const result = copy(Answers({Yes, Yes, Yes, Yes, Yes, No}));
    EXPECT_EQ(names(result->getFrameLinks()), "");
    EXPECT_EQ(frame(result, "Front:Chest")->getLink(), nullptr);
}

TEST_F(SetCopy, anEmptyLinkAlwaysGoesAlong)
{
    source->newLink(name("Empty"));
    FrameSet *const result = copy(Answers({No, No, Yes}));
    EXPECT_EQ(names(result->getFrameLinks()), "Empty");
}

TEST_F(SetCopy, takesTheSettingsOfAnElementButNotHowATotalIsShared)
{
    source->getFrameCenters().at(0)->setCharacteristic(FrameCenter::Characteristic_TwoSides);
    FrameFrame *const hip = frame(source, "Front:Hip");
    hip->getPerimeterMeasurement() = true;
    hip->setMeasureType(FrameFrame::Measure_ByPercentage);
    hip->setPercentageMeasureRating(30);
    hip->setRatio(4);
    FrameSegment *const side = source->getFrameSegments().at(0);
    side->getInfluenceAreaPercent() = 25;
    side->getDisplace() = FrameSegment::Displace_AlongContour;
    source->getFrameLinks().at(0)->setMeasureType(FrameLink::Measure_Fixed);

    FrameSet *const result = copy(everything, false);
    EXPECT_EQ(result->getFrameCenters().at(0)->Caracteristique(), FrameCenter::Characteristic_TwoSides);
    const FrameFrame *const copied = frame(result, "Front:Hip");
    EXPECT_TRUE(copied->getPerimeterMeasurement());
    EXPECT_EQ(copied->getMeasureType(), FrameFrame::Measure_ByPercentage);
    EXPECT_EQ(copied->getPercentageMeasureRating1(), 30);
    EXPECT_EQ(copied->getRatio(), 1.0);
    EXPECT_EQ(result->getFrameSegments().at(0)->getInfluenceAreaPercent(), 25);
    EXPECT_EQ(result->getFrameSegments().at(0)->getDisplace(), FrameSegment::Displace_AlongContour);
    EXPECT_EQ(result->getFrameLinks().at(0)->getMeasureType(), FrameLink::Measure_Proportional);
}

TEST_F(SetCopy, valuesComeAlongOnlyWhenAskedForButThoseOfSpecsAndChartsAlways)
{
    setSpec(source->getFrameSpecs().at(0), "5");
    struct Row {
        bool withValues;
        const char *measure, *level, *segment, *link, *linkLevel;
    };
    const Row rows[] = {
        {true, "19 [20] 21", "[20.5]", "1 [2] 3", "58 [60] 62", "[7]"},
        {false, "empty nest 0", "empty nest 0", "empty nest 0", "empty nest 0", "empty nest 0"},
    };
    for (const Row &row : rows) {
        equivalences.clear();
        FrameSet *const result = copy(everything, row.withValues);
        EXPECT_EQ(support::text(*frame(result, "Front:Waist")->getMeasureBySizes()), row.measure);
        EXPECT_EQ(support::text(*frame(result, "Front:Waist")->getLevelBySizes()), row.level);
        EXPECT_EQ(support::text(*result->getFrameSegments().at(0)->getMeasureBySizes()), row.segment);
        EXPECT_EQ(support::text(*result->getFrameLinks().at(0)->getMeasureBySizes()), row.link);
        EXPECT_EQ(support::text(*result->getFrameLinks().at(0)->getLevelBySizes()), row.linkLevel);
        EXPECT_EQ(support::text(*result->getFrameSpecs().at(0)->getMeasureBySizes()), "4 5 [6]");
        EXPECT_EQ(support::text(*result->getFrameMeasurementCharts().at(0)->getMeasureBySizes()),
                  "88 [92] 96");
    }
}

TEST_F(SetCopy, nothingIsSharedWithTheSource)
{
    setMeasure(frame(source, "Front:Hip"), "Measure(Front:Waist) * 2");
    FrameSet *const result = copy(everything);
    *frame(result, "Front:Waist")->getMeasureBySizes() = sizes({1}, 0);
    frame(result, "Front:Hip")->setFormulaMeasurement(nullptr);
    EXPECT_EQ(support::text(*frame(source, "Front:Waist")->getMeasureBySizes()), "19 [20] 21");
    EXPECT_EQ(text(frame(source, "Front:Hip")->measurementFormula()), "Measure(Front:Waist) * 2");
}

// --- Formulas ---

TEST_F(SetCopy, formulasAreBoundToTheCopies)
{
    setMeasure(frame(source, "Front:Hip"), "Measure(Front:Waist) * 2");
    setLevel(frame(source, "Front:Hip"), "Level(Back:Chest) + Measure(Side)");
    setMeasure(source->getFrameLinks().at(0), "Measure(Front:Hip)");
    setLevel(source->getFrameLinks().at(0), "Level(Front:Hip)");
    setSpec(source->getFrameSpecs().at(0), "Measure(Girth)");
    source->getFrameSegments().at(0)->rememberFormula(formula("Measure(Ease) + Measure(Bust)", source));
    const std::string before = describe(*source);

    FrameSet *const result = copy(everything);
    EXPECT_TRUE(namesOwnElementsOnly(*result));
    EXPECT_EQ(text(frame(result, "Front:Hip")->measurementFormula()), "Measure(Front:Waist) * 2");
    EXPECT_EQ(text(frame(result, "Front:Hip")->formulaLevel()), "Level(Back:Chest) + Measure(Side)");
    EXPECT_EQ(text(result->getFrameLinks().at(0)->measurementFormula()), "Measure(Front:Hip)");
    EXPECT_EQ(text(result->getFrameLinks().at(0)->formulaLevel()), "Level(Front:Hip)");
    EXPECT_EQ(text(result->getFrameSpecs().at(0)->formulaSpec()), "Measure(Girth)");
    EXPECT_EQ(text(result->getFrameSegments().at(0)->measurementFormula()), "Measure(Ease) + Measure(Bust)");
    EXPECT_EQ(describe(*source), before);
}

TEST_F(SetCopy, aFormulaThatNamesWhatStayedBehindIsDroppedAndTheValuesStay)
{
    const support::RecordingApplication application;
    setMeasure(frame(source, "Front:Hip"), "Measure(Front:Chest) + Measure(Front:Waist)");
    setLevel(frame(source, "Front:Hip"), "Level(Front:Chest)");
    FrameSet *const result = copy(Answers({Yes, Yes, No, Yes}));
    EXPECT_EQ(frame(result, "Front:Hip")->measurementFormula(), nullptr);
    EXPECT_EQ(text(frame(result, "Front:Hip")->formulaLevel()), "Level(Front:Chest)");
    EXPECT_EQ(support::text(*frame(result, "Front:Hip")->getMeasureBySizes()), "29 [30] 31");
    EXPECT_TRUE(result->removedFormulas().isEmpty());
    EXPECT_TRUE(application.mMessages.isEmpty());
}

TEST_F(SetCopy, aSpecIsBoundAtOnceSoThatLaterSpecsAndChartsAreUnknownToIt)
{
    FrameSpec *const first = source->getFrameSpecs().at(0);
    FrameSpec *const second = source->newSpec(name("Second"));
    FrameSpec *const third = source->newSpec(name("Third"));
    setSpec(second, "Measure(Front:Hip)");
    setSpec(third, "Measure(Second)");
    setSpec(first, "Measure(Second)");
    FrameSpec *const fourth = source->newSpec(name("Fourth"));
    setSpec(fourth, "Measure(Bust)");
    source->newSpec(name("Formulaless"));
    setMeasure(frame(source, "Front:Hip"), "Measure(Third) + Measure(Bust)");

    FrameSet *const result = copy(everything);
    EXPECT_EQ(names(result->getFrameSpecs()), "Second Third");
    EXPECT_EQ(text(frame(result, "Front:Hip")->measurementFormula()), "Measure(Third) + Measure(Bust)");
    EXPECT_TRUE(namesOwnElementsOnly(*result));
}

TEST_F(SetCopy, theFormulaOfAChartStaysBehindAndAnUndefinedChartAltogether)
{
    FrameMeasurementChart *const bust = source->getFrameMeasurementCharts().at(0);
    FrameMeasurementChart *const undefined = source->newMeasurementChart(name("Undefined"));
    bust->setFormulaMeasurementChart(formula("92", source));
    undefined->setFormulaMeasurementChart(formula("Measure(Front:Hip)", source)); // which is on no piece
    FrameSet *const result = copy(everything);
    EXPECT_EQ(names(result->getFrameMeasurementCharts()), "Bust");
    EXPECT_EQ(result->getFrameMeasurementCharts().at(0)->formulaMeasurementChart(), nullptr);
}

TEST_F(SetCopy, aCenterHidesTheLinkOfItsNameFromFormulas)
{
    source->getFrameLinks().at(0)->setName(name("Front"));
    auto *const formulaOnLink = new TreeEquations;
    formulaOnLink->root->contents = ElemMeasure;
    formulaOnLink->root->element = source->getFrameLinks().at(0);
    frame(source, "Front:Hip")->setFormulaMeasurement(formulaOnLink);
    FrameSet *const result = copy(everything);
    TreeEquations *const copied = frame(result, "Front:Hip")->measurementFormula();
    EXPECT_EQ(copied->root->element, result->getFrameCenters().at(0));
    EXPECT_EQ(copied->evaluate(0), 0.0);
}

TEST_F(SetCopy, aFormulaWithoutARootIsKeptAsItIs)
{
    auto *const rootless = new TreeEquations;
    delete rootless->root;
    rootless->root = nullptr;
    frame(source, "Front:Hip")->setFormulaMeasurement(rootless);
    FrameSet *const result = copy(everything);
    ASSERT_NE(frame(result, "Front:Hip")->measurementFormula(), nullptr);
    EXPECT_EQ(frame(result, "Front:Hip")->measurementFormula()->root, nullptr);
}

// --- What is asked ---

TEST_F(SetCopy, asksCentersWithTheirFramesAndThenSegments)
{
    int asked = 0;
    int nulls = 0;
    const auto select = [&](CDbGroupObject *group) {
        nulls += group == nullptr ? 1 : 0;
        return ++asked != 1; // the first center is refused, and its frames are not asked
    };
    FrameSet *const result = copy(boost::function<bool(CDbGroupObject *)>(select));
    EXPECT_EQ(asked, 4); // Front, Back, Back:Chest, Side
    EXPECT_EQ(nulls, 4); // on no piece
    EXPECT_EQ(names(result->getFrames()), "Back:Chest");
}

TEST_F(SetCopy, everySetStartsWithACopyOfThePredicate)
{
    FrameSet *const other = from.newSet("Other");
    other->newCenter(name("C"));
    from.manager().CopyFrameSetsInManager(&to.manager(), Answers({No, Yes, No, No}), true, equivalences);
    // "Front" and then "C" are each the first question, and both get the first answer.
    EXPECT_EQ(names(to.manager().getFrameSets()), "Set");
    EXPECT_EQ(equivalences.count(other), 0u);
    EXPECT_EQ(names(equivalences.at(source)->getFrameCenters()), "Back");
}

TEST_F(SetCopy, anEmptyPredicateRaisesOnlyWhenItIsCalled)
{
    const boost::function<bool(CDbGroupObject *)> empty;
    try {
        source->copyElements(&to.manager(), empty, true, equivalences);
        FAIL() << "nothing was raised";
    } catch (const boost::bad_function_call &error) {
        EXPECT_STREQ(error.what(), "call to empty boost::function");
    }
    EXPECT_TRUE(equivalences.empty());
    EXPECT_EQ(to.manager().numberOfFrameSets(), 0);

    FrameSet *const bare = from.newSet("Bare");
    bare->newSpec(name("P"));
    bare->copyElements(&to.manager(), empty, true, equivalences);
    EXPECT_EQ(to.manager().numberOfFrameSets(), 0);
}

TEST_F(SetCopy, asksBeforeAnythingIsMade)
{
    FrameSet *const destination = preset();
    int asked = 0;
    const auto select = [&](CDbGroupObject *) {
        if (++asked == 7)
            throw std::runtime_error("the host gave up");
        return true;
    };
    EXPECT_THROW(copy(boost::function<bool(CDbGroupObject *)>(select)), std::runtime_error);
    EXPECT_EQ(names(destination->getFrameCenters()), "");
    EXPECT_EQ(equivalences.at(source), destination);
}

// --- The destination ---

TEST_F(SetCopy, anEntryDirectsTheSourceIntoItsSet)
{
    FrameSet *const destination = preset();
    destination->newCenter(name("Old"));
    EXPECT_EQ(copy(everything), destination);
    EXPECT_EQ(names(to.manager().getFrameSets()), "Destination");
    EXPECT_EQ(names(destination->getFrameCenters()), "Old Front Back");
}

TEST_F(SetCopy, aDestinationInNoListIsEntered)
{
    auto *const stray = new FrameSet(name("Stray"), &to.manager());
    equivalences[source] = stray;
    EXPECT_EQ(copy(everything), stray);
    EXPECT_EQ(names(to.manager().getFrameSets()), "Stray");
}

TEST_F(SetCopy, anEntryWithoutASetCountsAsNone)
{
    equivalences[source] = nullptr;
    EXPECT_NE(copy(everything), nullptr);
    EXPECT_EQ(names(to.manager().getFrameSets()), "Set");
}

TEST_F(SetCopy, aDestinationToWhichNothingComesIsDeletedWithAllItHeld)
{
    FrameSet *const destination = preset();
    destination->newFrame(name("A"), destination->newCenter(name("Old")));
    EXPECT_EQ(copy(nothing), nullptr);
    EXPECT_TRUE(equivalences.empty());
    EXPECT_EQ(to.manager().numberOfFrameSets(), 0);
}

TEST_F(SetCopy, noEntryLeadsToADeletedDestination)
{
    FrameSet *const empty = from.newSet("Empty");
    FrameSet *const third = from.newSet("Third");
    third->newCenter(name("T"));
    FrameSet *const destination = preset();
    equivalences[empty] = destination;
    from.manager().CopyFrameSetsInManager(&to.manager(), everything, true, equivalences);
    // "Set" came first, then "Empty" had nothing to give and took the destination away.
    EXPECT_EQ(names(to.manager().getFrameSets()), "Third");
    ASSERT_EQ(equivalences.size(), 1u);
    EXPECT_EQ(equivalences.begin()->first, third);
}

TEST_F(SetCopy, aThirdSourceSentToADeletedDestinationGetsASetOfItsOwn)
{
    FrameSet *const empty = from.newSet("Empty");
    FrameSet *const third = from.newSet("Third");
    third->newCenter(name("T"));
    FrameSet *const destination = preset();
    equivalences[empty] = destination;
    equivalences[third] = destination;
    from.manager().CopyFrameSetsInManager(&to.manager(), everything, true, equivalences);
    EXPECT_EQ(names(to.manager().getFrameSets()), "Third");
    EXPECT_EQ(equivalences.at(third), to.manager().getFrameSets().at(0));
}

TEST_F(SetCopy, refusesNullAndTheSetOfAnotherManager)
{
    EXPECT_THROW(source->copyElements(nullptr, everything, true, equivalences), AssertionError);
    EXPECT_THROW(from.manager().CopyFrameSetsInManager(nullptr, everything, true, equivalences),
                 AssertionError);
    support::TestDocument elsewhere;
    equivalences[source] = elsewhere.newSet();
    int asked = 0;
    const auto select = [&](CDbGroupObject *) { return ++asked > 0; };
    EXPECT_THROW(copy(boost::function<bool(CDbGroupObject *)>(select)), AssertionError);
    EXPECT_EQ(asked, 0);
}

TEST_F(SetCopy, anEmptyManagerStillRefusesNull)
{
    GestFrames none;
    EXPECT_THROW(none.CopyFrameSetsInManager(nullptr, everything, true, equivalences), AssertionError);
    EXPECT_THROW(none.MergeFrameSetsInManager(nullptr, everything, true, equivalences, true), AssertionError);
}

TEST_F(SetCopy, aManagerCopiedIntoItselfDoublesItsSetsOnce)
{
    from.newSet("Other")->newCenter(name("C"));
    from.manager().CopyFrameSetsInManager(&from.manager(), everything, true, equivalences);
    EXPECT_EQ(names(from.manager().getFrameSets()), "Set Other Set 1 Other 1");
}

TEST_F(SetCopy, aSetCopiedIntoItselfGetsWhatNoNameForbids)
{
    setSpec(source->getFrameSpecs().at(0), "Measure(Side)");
    equivalences[source] = source;
    source->copyElements(&from.manager(), everything, true, equivalences);
    EXPECT_EQ(names(source->getFrameCenters()), "Front Back");
    EXPECT_EQ(names(source->getFrameLinks()), "Girth");
    EXPECT_EQ(names(source->getFrameSpecs()), "Ease Ease"); // no name is asked of specs and charts
    EXPECT_EQ(names(source->getFrameMeasurementCharts()), "Bust Bust");
}

TEST_F(SetCopy, aSetCopiedIntoItselfMayDeleteItself)
{
    equivalences[source] = source;
    from.manager().CopyFrameSetsInManager(&from.manager(), nothing, true, equivalences);
    EXPECT_EQ(from.manager().numberOfFrameSets(), 0);
    EXPECT_TRUE(equivalences.empty());
}

TEST_F(SetCopy, aSourceThatDiedAsADestinationIsPassedOver)
{
    FrameSet *const second = from.newSet("Second");
    second->newCenter(name("C"));
    equivalences[source] = second;
    int asked = 0;
    const auto select = [&](CDbGroupObject *) {
        ++asked;
        return false;
    };
    from.manager().CopyFrameSetsInManager(&from.manager(), boost::function<bool(CDbGroupObject *)>(select),
                                          true, equivalences);
    EXPECT_EQ(names(from.manager().getFrameSets()), "Set");
    EXPECT_EQ(asked, 3); // Front, Back and Side; nobody asked for C any more
}

// --- Names that are taken ---

TEST_F(SetCopy, aTakenCenterIsLeftOutWithAllThatHangsOnIt)
{
    FrameSet *const destination = preset();
    FrameCenter *const old = destination->newCenter(name("f r o n t"));
    destination->newFrame(name("Chest"), old);
    FrameSegment *const oldSide = destination->newSegment(name("side"));
    EXPECT_EQ(copy(everything), destination);
    EXPECT_EQ(names(destination->getFrameCenters()), "f r o n t Back");
    EXPECT_EQ(names(old->getFrames()), "f r o n t:Chest");
    EXPECT_EQ(names(destination->getFrameLinks()), ""); // Girth hangs on a frame of Front
    EXPECT_EQ(destination->getFrameSegments(), QListEx<FrameSegment *>({oldSide}));
}

TEST_F(SetCopy, aTakenCenterStillCountsAsSelected)
{
    FrameSet *const destination = preset();
    destination->newCenter(name("Front"));
    EXPECT_EQ(copy(Answers({Yes, Yes, Yes, Yes, No, No})), destination);
    EXPECT_EQ(names(destination->getFrameCenters()), "Front");
}

TEST_F(SetCopy, aTakenLinkIsLeftOutBeforeItTakesAFrame)
{
    FrameSet *const destination = preset();
    FrameLink *const old = destination->newLink(name("Girth"));
    copy(everything);
    EXPECT_EQ(destination->getFrameLinks(), QListEx<FrameLink *>({old}));
    EXPECT_EQ(names(old->getFrames()), "");
    EXPECT_EQ(frame(destination, "Front:Chest")->getLink(), nullptr);
}

TEST_F(SetCopy, twinsInTheSourceAreLeftOutAfterTheFirst)
{
    frame(source, "Front:Hip")->setName(name("CHEST"));
    source->getFrameLinks().at(0)->linkFrame(source->getFrames().at(2)); // the twin
    source->newLink(name("Other"))->setName(name("girth"));
    FrameSet *const result = copy(everything);
    EXPECT_EQ(names(result->getFrames()), "Front:Chest Front:Waist Back:Chest");
    EXPECT_EQ(names(result->getFrameLinks()),
              "girth"); // Girth hangs on the twin; the empty one took its name
}

TEST_F(SetCopy, aFrameLeavesTheLinkThatHeldIt)
{
    FrameSet *const destination = preset();
    FrameCenter *const old = destination->newCenter(name("Old"));
    FrameFrame *const taken = destination->newFrame(name("Chest"), old);
    FrameFrame *const kept = destination->newFrame(name("Hip"), old);
    FrameLink *const oldLink = destination->newLink(name("OldLink"));
    oldLink->linkFrame(taken);
    oldLink->linkFrame(kept);
    // A frame of another set with a full name that the destination knows.
    FrameSet *const stranger = from.newSet("Stranger");
    source->getFrameLinks().at(0)->linkFrame(
        stranger->newFrame(name("Chest"), stranger->newCenter(name("Old"))));

    copy(everything);
    EXPECT_EQ(names(oldLink->getFrames()), "Old:Hip");
    FrameLink *const copied = destination->findFrameLinkAccordingName(name("Girth"));
    EXPECT_EQ(names(copied->getFrames()), "Front:Chest Back:Chest Old:Chest");
    EXPECT_EQ(taken->getLink(), copied);
    delete copied;
    delete taken;
    EXPECT_EQ(names(oldLink->getFrames()), "Old:Hip"); // and no freed memory
    source->getFrameLinks().at(0)->removeFrame(stranger->getFrames().at(0));
}

TEST_F(SetCopy, aFrameThatALinkListsTwiceIsListedTwiceInTheCopy)
{
    source->getFrameLinks().at(0)->linkFrame(frame(source, "Front:Chest"));
    FrameSet *const result = copy(everything);
    EXPECT_EQ(names(result->getFrameLinks().at(0)->getFrames()), "Front:Chest Back:Chest Front:Chest");
}

TEST_F(SetCopy, anElementOfAnotherKindIsNoFrameOfALink)
{
    // A frame without a center bears its bare name, which the segment hides.
    auto *const loose = new FrameFrame(name("Side"));
    source->getFrameLinks().at(0)->linkFrame(loose);
    FrameSet *const result = copy(everything);
    EXPECT_EQ(names(result->getFrameLinks()), "");
    source->getFrameLinks().at(0)->removeFrame(loose);
    delete loose;
}

TEST_F(SetCopy, aCenterNamedLikeAFrameLosesTheFramesThatSeemTaken)
{
    source->getFrameCenters().at(1)->setName(name("Front:Chest")); // "Front:Chest" + ":" + "Chest"
    FrameCenter *const front = source->getFrameCenters().at(0);
    frame(source, "Front:Hip")->setName(name("Chest:Chest"));
    FrameSet *const result = copy(everything);
    EXPECT_EQ(names(result->getFrameCenters()), "Front Front:Chest");
    EXPECT_EQ(names(result->getFrames()), "Front:Chest Front:Waist Front:Chest:Chest");
    EXPECT_EQ(names(result->getFrameLinks()), ""); // it hangs on the frame that was left out
    EXPECT_EQ(front->getFrames().count(), 3);
}

// --- Exceptions on the way ---

// A formula that cannot be bound: a root of kind 0.
class BrokenFormula : public SetCopy
{
protected:
    BrokenFormula()
    {
        setMeasure(frame(source, "Front:Chest"), "Measure(Front:Waist)");
        setMeasure(frame(source, "Back:Chest"), "Measure(Front:Waist)");
        frame(source, "Front:Hip")->setFormulaMeasurement(new TreeEquations);
    }
};

TEST_F(BrokenFormula, takesTheNewSetDownWithIt)
{
    EXPECT_THROW(copy(everything), AssertionError);
    EXPECT_TRUE(equivalences.empty());
    EXPECT_EQ(to.manager().numberOfFrameSets(), 0);
}

TEST_F(BrokenFormula, leavesAnOldSetWithoutFormulasOnTheSource)
{
    FrameSet *const destination = preset();
    EXPECT_THROW(copy(everything), AssertionError);
    EXPECT_EQ(equivalences.at(source), destination);
    EXPECT_EQ(names(destination->getFrameCenters()), "Front Back");
    EXPECT_TRUE(namesOwnElementsOnly(*destination));
    delete source;
    EXPECT_EQ(frame(destination, "Back:Chest")->measurementFormula(), nullptr);
}

TEST_F(BrokenFormula, ofASpecTakesTheNewSetDownToo)
{
    frame(source, "Front:Hip")->setFormulaMeasurement(nullptr);
    source->getFrameSpecs().at(0)->setFormulaSpec(new TreeEquations);
    EXPECT_THROW(copy(everything), AssertionError);
    EXPECT_TRUE(equivalences.empty());
}

// --- Rebinding by itself ---

TEST_F(BrokenFormula, stopsTheRebindingOfItsSetMidway)
{
    FrameSet *const other = from.newSet("Other");
    FrameCenter *const front = other->newCenter(name("Front"));
    other->addFrame(other->newFrame(name("Waist"), front), -1);
    const support::Thrown whole = thrownBy<AssertionError>([&] { source->adapterFormulaInSet(); });
    const support::Thrown single = thrownBy<AssertionError>(
        [&] { frame(source, "Front:Hip")->measurementFormula()->root->setAdapter(source); });
    EXPECT_EQ(whole.what, "Invalid Operation");
    EXPECT_EQ(whole.function, single.function);
    EXPECT_EQ(whole.file, single.file);
    EXPECT_EQ(whole.line, single.line);
}

TEST_F(SetCopy, anElementIsReboundToTheSetThatIsNamed)
{
    FrameFrame *const hip = frame(source, "Front:Hip");
    setMeasure(hip, "Measure(Front:Waist)");
    setLevel(hip, "Level(Front:Waist) + Level(Front:Chest)");
    FrameSet *const other = to.newSet("Other");
    FrameFrame *const waist = other->newFrame(name("WAIST"), other->newCenter(name("front")));
    hip->adapterFormulaInSet(other);
    ASSERT_NE(hip->measurementFormula(), nullptr);
    EXPECT_EQ(hip->measurementFormula()->root->element, waist);
    EXPECT_EQ(hip->formulaLevel(), nullptr); // Chest is missing, so all of it goes
    hip->setFormulaMeasurement(nullptr);
}

TEST_F(SetCopy, aReferenceToNothingIsDroppedInRebinding)
{
    FrameFrame *const hip = frame(source, "Front:Hip");
    auto *const unresolved = new TreeEquations;
    unresolved->root->contents = ElemMeasure;
    hip->setFormulaMeasurement(unresolved);
    source->adapterFormulaInSet();
    EXPECT_EQ(hip->measurementFormula(), nullptr);
}

TEST_F(SetCopy, rebindingNeedsASetOnlyWhereAnElementIsNamed)
{
    FrameFrame *const hip = frame(source, "Front:Hip");
    EXPECT_NO_THROW(hip->adapterFormulaInSet(nullptr));
    setMeasure(hip, "5");
    EXPECT_NO_THROW(hip->adapterFormulaInSet(nullptr));
    EXPECT_EQ(text(hip->measurementFormula()), "5");
    setMeasure(hip, "Measure(Side)");
    EXPECT_THROW(hip->adapterFormulaInSet(nullptr), AssertionError);
}

TEST_F(SetCopy, rebindingLeavesSpecsAlone)
{
    FrameSpec *const ease = source->getFrameSpecs().at(0);
    FrameSet *const other = from.newSet("Other");
    FrameSegment *const segment = other->newSegment(name("Other"));
    auto *const foreign = new TreeEquations;
    foreign->root->contents = ElemMeasure;
    foreign->root->element = segment;
    ease->setFormulaSpec(foreign);
    source->adapterFormulaInSet();
    ASSERT_EQ(ease->formulaSpec(), foreign);
    EXPECT_EQ(foreign->root->element, segment);
}

} // namespace
