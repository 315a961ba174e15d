// Merging sets into a manager that already holds the names.

#include <gtest/gtest.h>

#include "TransferWorld.h"

using namespace VorSystem;
using namespace transfers;
using support::formula;
using support::name;
using support::names;

namespace
{

class SetMerge : public Transfer
{
protected:
    /// Merges the source and gives the set that received it, or null.
    template<class Predicate>
    FrameSet *merge(Predicate select, bool renameSource = false, bool withValues = true)
    {
        source->mergeElements(&to.manager(), select, withValues, equivalences, renameSource);
        const auto entry = equivalences.find(source);
        return entry == equivalences.end() ? nullptr : entry->second;
    }
    /// A set "Set" in the target with a center Front that has a frame Chest.
    FrameSet *oldSet()
    {
        FrameSet *const set = to.newSet();
        set->newFrame(name("Chest"), set->newCenter(name("Front")));
        return set;
    }
};

// --- The destination ---

TEST_F(SetMerge, withoutASetOfThatNameANewOneIsMade)
{
    to.newSet("Other");
    FrameSet *const result = merge(everything);
    EXPECT_EQ(names(to.manager().getFrameSets()), "Other Set");
    EXPECT_EQ(to.manager().getFrameSets().at(1), result);
    EXPECT_EQ(names(result->getFrames()), "Front:Chest Front:Waist Front:Hip Back:Chest");
    EXPECT_EQ(names(result->getFrameLinks()), "Girth");
}

TEST_F(SetMerge, aSetOfThatNameReceivesTheElements)
{
    FrameSet *const old = to.newSet("S E T");
    EXPECT_EQ(merge(everything), old);
    EXPECT_EQ(names(to.manager().getFrameSets()), "S E T");
    EXPECT_EQ(names(old->getFrameCenters()), "Front Back");
}

TEST_F(SetMerge, anEntryComesBeforeTheSetOfThatName)
{
    to.newSet();
    FrameSet *const preset = to.newSet("Preset");
    equivalences[source] = preset;
    EXPECT_EQ(merge(everything), preset);
    EXPECT_EQ(names(preset->getFrameCenters()), "Front Back");
}

TEST_F(SetMerge, aSourceThatContributesNothingDeletesTheSetOfItsName)
{
    oldSet();
    to.newSet("Other");
    EXPECT_EQ(merge(nothing), nullptr);
    EXPECT_EQ(names(to.manager().getFrameSets()), "Other");
    EXPECT_TRUE(equivalences.empty());
}

TEST_F(SetMerge, theSecondSourceOfANameMayDeleteWhatTheFirstBrought)
{
    from.newSet("set");
    from.manager().MergeFrameSetsInManager(&to.manager(), everything, true, equivalences, false);
    EXPECT_EQ(to.manager().numberOfFrameSets(), 0);
    EXPECT_TRUE(equivalences.empty());
}

TEST_F(SetMerge, twoSourcesOfANameMeetInOneSet)
{
    from.newSet("set")->newCenter(name("Front"));
    from.manager().MergeFrameSetsInManager(&to.manager(), everything, true, equivalences, false);
    ASSERT_EQ(to.manager().numberOfFrameSets(), 1);
    EXPECT_EQ(names(to.manager().getFrameSets().at(0)->getFrameCenters()), "Front Back Front1");
    EXPECT_EQ(equivalences.size(), 2u);
}

TEST_F(SetMerge, refusesNullAndTheSetOfAnotherManager)
{
    EXPECT_THROW(source->mergeElements(nullptr, everything, true, equivalences, true), AssertionError);
    support::TestDocument elsewhere;
    equivalences[source] = elsewhere.newSet();
    EXPECT_THROW(merge(everything), AssertionError);
}

// --- Names that are taken ---

TEST_F(SetMerge, aTakenNameGetsTheFirstFreeNumber)
{
    struct Row {
        QList<const char *> taken;
        const char *name, *result;
    };
    const Row rows[] = {
        {{}, "Alpha", "Alpha"},
        {{"Alpha"}, "Alpha", "Alpha1"},
        {{"Alpha", "Alpha1"}, "Alpha", "Alpha2"},
        {{"a l p h a", "Alpha 1"}, "Alpha", "Alpha2"}, // blanks and case do not count
        {{"Alpha1"}, "Alpha1", "Alpha11"},             // numbers stack
        {{"W%2"}, "W%2", "W%21"},                      // the name is no format
        {{"50%1"}, "50%1", "50%11"},
        {{"%1%2"}, "%1%2", "%1%21"},
        {{""}, "", "1"},
        {{"Alpha2"}, "Alpha", "Alpha"},
    };
    for (const Row &row : rows) {
        support::TestDocument document;
        FrameSet *const old = document.newSet();
        for (const char *taken : row.taken)
            old->newCenter(name(taken));
        support::TestDocument other;
        FrameSet *const set = other.newSet();
        set->newCenter(name(row.name));
        EquivalenceSets sets;
        set->mergeElements(&document.manager(), everything, true, sets, false);
        EXPECT_EQ(old->getFrameCenters().constLast()->name().toStdString(), row.result);
        EXPECT_EQ(set->getFrameCenters().at(0)->name().toStdString(), row.name);
    }
}

TEST_F(SetMerge, everyKindIsNumberedInItsOwnPlace)
{
    setSpec(source->getFrameSpecs().at(0), "5");
    FrameSet *const old = oldSet();
    old->newSegment(name("Side"));
    old->newSpec(name("Ease"));
    old->newMeasurementChart(name("Bust"));
    merge(everything, true);
    EXPECT_EQ(names(old->getFrameCenters()), "Front Front1 Back");
    EXPECT_EQ(names(old->getFrameSegments()), "Side Side1");
    EXPECT_EQ(names(old->getFrameSpecs()), "Ease Ease1");
    EXPECT_EQ(names(old->getFrameMeasurementCharts()), "Bust Bust1");
    // The source took the names too; its frames, alone in their new center, kept theirs.
    EXPECT_EQ(names(source->getFrameCenters()), "Front1 Back");
    EXPECT_EQ(names(source->getFrames()), "Front1:Chest Front1:Waist Front1:Hip Back:Chest");
    EXPECT_EQ(names(source->getFrameSegments()), "Side1");
    EXPECT_EQ(names(source->getFrameSpecs()), "Ease1");
    EXPECT_EQ(names(source->getFrameMeasurementCharts()), "Bust1");
}

TEST_F(SetMerge, theSourceKeepsItsNamesUnlessItIsToTakeTheNewOnes)
{
    FrameSet *const old = oldSet();
    const std::string before = describe(*source);
    merge(everything, false);
    EXPECT_EQ(names(old->getFrameCenters()), "Front Front1 Back");
    EXPECT_EQ(describe(*source), before);
}

TEST_F(SetMerge, theSourceMayEndWithTwins)
{
    oldSet();
    source->newCenter(name("Front1"));
    merge(Answers(std::vector<bool>{true, true, true, true, false, false}), true);
    EXPECT_EQ(names(source->getFrameCenters()), "Front1 Back Front1");
}

TEST_F(SetMerge, framesCollideWithinOneCenterOnly)
{
    frame(source, "Front:Hip")->setName(name("chest"));
    FrameSet *const result = merge(everything, true);
    EXPECT_EQ(names(result->getFrames()), "Front:Chest Front:Waist Front:chest1 Back:Chest");
    EXPECT_EQ(names(source->getFrames()), "Front:Chest Front:Waist Front:chest1 Back:Chest");
}

TEST_F(SetMerge, mergingAgainAndAgainGivesTheNamesOneExpects)
{
    FrameSet *const old = to.newSet();
    for (int i = 0; i < 3; ++i)
        merge(everything);
    EXPECT_EQ(names(old->getFrameCenters()), "Front Back Front1 Back1 Front2 Back2");
    EXPECT_EQ(names(old->getFrameSegments()), "Side Side1 Side2");
    EXPECT_EQ(names(old->getFrameLinks()), "Girth");
    EXPECT_EQ(names(old->getFrameMeasurementCharts()), "Bust Bust1 Bust2");
}

TEST_F(SetMerge, mergingAgainWithRenamingStacksTheNumbers)
{
    FrameSet *const old = to.newSet();
    for (int i = 0; i < 3; ++i)
        merge(everything, true);
    EXPECT_EQ(names(old->getFrameCenters()), "Front Back Front1 Back1 Front11 Back11");
    EXPECT_EQ(names(source->getFrameCenters()), "Front11 Back11");
}

// --- Formulas ---

TEST_F(SetMerge, aReferenceFollowsARenamedSource)
{
    setMeasure(frame(source, "Back:Chest"), "Measure(Front:Chest) + Measure(Front:Waist)");
    FrameSet *const old = oldSet();
    merge(everything, true);
    FrameFrame *const back = frame(old, "Back:Chest");
    EXPECT_EQ(text(back->measurementFormula()), "Measure(Front1:Chest) + Measure(Front1:Waist)");
    EXPECT_EQ(text(frame(source, "Back:Chest")->measurementFormula()),
              "Measure(Front1:Chest) + Measure(Front1:Waist)");
    EXPECT_TRUE(namesOwnElementsOnly(*old));
}

TEST_F(SetMerge, withoutRenamingAReferenceFindsTheOldElementOrIsDropped)
{
    setMeasure(frame(source, "Back:Chest"), "Measure(Front:Chest)");
    setLevel(frame(source, "Back:Chest"), "Level(Front:Waist)");
    FrameSet *const old = oldSet();
    merge(everything, false);
    FrameFrame *const back = frame(old, "Back:Chest");
    ASSERT_NE(back->measurementFormula(), nullptr);
    EXPECT_EQ(back->measurementFormula()->root->element, old->getFrames().at(0)); // the one that was there
    EXPECT_EQ(back->formulaLevel(), nullptr);                                     // no Waist was there
}

TEST_F(SetMerge, aSpecIsRenamedBeforeItIsFoundUnfit)
{
    FrameSpec *const ease = source->getFrameSpecs().at(0);
    FrameSpec *const twin = source->newSpec(name("Twin"));
    twin->setName(name("Ease"));
    FrameSpec *const formulaless = source->newSpec(name("Formulaless"));
    formulaless->setName(name("Ease"));
    setSpec(ease, "Measure(Front:Hip)");
    setSpec(twin, "5");
    FrameSet *const old = oldSet();
    old->newSpec(name("Ease"));
    // Hip is refused, so the first spec stays behind, with the name that the second one gets as well.
    merge(Answers(std::vector<bool>{true, true, true, false}), true);
    EXPECT_EQ(names(old->getFrameSpecs()), "Ease Ease1");
    EXPECT_EQ(names(source->getFrameSpecs()), "Ease1 Ease1 Ease");
}

TEST_F(SetMerge, formulasOfTheDestinationAreReboundAsWell)
{
    FrameSet *const old = oldSet();
    FrameFrame *const chest = frame(old, "Front:Chest");
    auto *const foreign = new TreeEquations;
    foreign->root->contents = ElemMeasure;
    foreign->root->element = frame(source, "Back:Chest"); // an element of another set
    chest->setFormulaMeasurement(foreign);
    merge(everything, false);
    EXPECT_EQ(foreign->root->element, frame(old, "Back:Chest"));
}

// --- Links ---

TEST_F(SetMerge, aLinkFollowsARenamedSource)
{
    FrameSet *const old = oldSet();
    merge(everything, true);
    EXPECT_EQ(names(old->getFrameLinks()), "Girth");
    EXPECT_EQ(names(old->getFrameLinks().at(0)->getFrames()), "Front1:Chest Back:Chest");
}

TEST_F(SetMerge, withoutRenamingALinkTakesTheOldFrame)
{
    FrameSet *const old = oldSet();
    FrameFrame *const chest = frame(old, "Front:Chest");
    FrameLink *const oldLink = old->newLink(name("OldLink"));
    oldLink->linkFrame(chest);
    merge(everything, false);
    FrameLink *const girth = old->findFrameLinkAccordingName(name("Girth"));
    ASSERT_NE(girth, nullptr);
    EXPECT_EQ(names(girth->getFrames()), "Front:Chest Back:Chest");
    EXPECT_EQ(girth->getFrames().at(0), chest);
    EXPECT_EQ(chest->getLink(), girth);
    EXPECT_EQ(names(oldLink->getFrames()), ""); // it let the frame go first
    EXPECT_EQ(frame(old, "Front1:Chest")->getLink(), nullptr);
}

TEST_F(SetMerge, withoutRenamingALinkMayFindNoFrame)
{
    FrameSet *const old = to.newSet();
    old->newCenter(name("Front")); // without a Chest
    merge(everything, false);
    EXPECT_EQ(names(old->getFrameLinks()), "");
}

TEST_F(SetMerge, aTakenLinkIsLeftOutBeforeItTakesAFrame)
{
    FrameSet *const old = oldSet();
    FrameLink *const oldLink = old->newLink(name("Girth"));
    setMeasure(source->getFrameLinks().at(0), "5");
    merge(everything, true);
    EXPECT_EQ(old->getFrameLinks(), QListEx<FrameLink *>({oldLink}));
    EXPECT_EQ(names(oldLink->getFrames()), "");
    EXPECT_EQ(oldLink->measurementFormula(), nullptr);
    EXPECT_EQ(frame(old, "Front1:Chest")->getLink(), nullptr);
}

TEST_F(SetMerge, howALinkSharesATotalStaysBehind)
{
    source->getFrameLinks().at(0)->setMeasureType(FrameLink::Measure_Equal);
    EXPECT_EQ(merge(everything)->getFrameLinks().at(0)->getMeasureType(), FrameLink::Measure_Proportional);
}

// --- Charts, values, odd calls ---

TEST_F(SetMerge, anUndefinedChartGoesAlong)
{
    FrameMeasurementChart *const bust = source->getFrameMeasurementCharts().at(0);
    bust->setFormulaMeasurementChart(formula("Measure(Front:Hip)", source)); // which is on no piece
    FrameSet *const result = merge(everything, false, false);
    ASSERT_EQ(names(result->getFrameMeasurementCharts()), "Bust");
    EXPECT_EQ(support::text(*result->getFrameMeasurementCharts().at(0)->getMeasureBySizes()), "88 [92] 96");
    EXPECT_EQ(result->getFrameMeasurementCharts().at(0)->formulaMeasurementChart(), nullptr);
    EXPECT_EQ(support::text(*frame(result, "Front:Hip")->getMeasureBySizes()), "empty nest 0");
}

TEST_F(SetMerge, aDoomedDestinationIsWorkedOnAllTheSame)
{
    setSpec(source->getFrameSpecs().at(0), "5");
    FrameSet *const old = oldSet();
    old->newSpec(name("Ease"));
    merge(nothing, true);
    EXPECT_EQ(names(source->getFrameSpecs()), "Ease1"); // renamed for a set that is gone
    EXPECT_EQ(to.manager().numberOfFrameSets(), 0);
}

TEST_F(SetMerge, aManagerMergedIntoItselfEndsWithTwins)
{
    setMeasure(frame(source, "Back:Chest"), "Measure(Front:Chest)");
    from.manager().MergeFrameSetsInManager(&from.manager(), everything, true, equivalences, false);
    EXPECT_EQ(from.manager().numberOfFrameSets(), 1);
    EXPECT_EQ(names(source->getFrameCenters()), "Front Back Front1 Back1");
    EXPECT_EQ(names(source->getFrameLinks()), "Girth");
    EXPECT_TRUE(namesOwnElementsOnly(*source));
}

TEST_F(SetMerge, aManagerMergedIntoItselfWithRenamingEndsWithTwinsOfOneName)
{
    from.manager().MergeFrameSetsInManager(&from.manager(), everything, true, equivalences, true);
    EXPECT_EQ(names(source->getFrameCenters()), "Front1 Back1 Front1 Back1");
    EXPECT_TRUE(namesOwnElementsOnly(*source));
}

TEST_F(SetMerge, aManagerMergedIntoItselfWithNothingSelectedIsEmpty)
{
    from.newSet("Other");
    from.manager().MergeFrameSetsInManager(&from.manager(), nothing, true, equivalences, false);
    EXPECT_EQ(from.manager().numberOfFrameSets(), 0);
}

} // namespace
