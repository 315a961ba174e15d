// What of a set is in use: defined elements, mentions, and clearing out what no piece uses.

#include <support/ControlledPiece.h>
#include <support/TestDocument.h>

#include <gtest/gtest.h>

using namespace VorSystem;
using support::formula;
using support::name;
using support::names;

namespace
{

// One defined frame on a piece; whatever a test adds is undefined.
class Use : public testing::Test
{
protected:
    FrameFrame *undefined(const char *text) { return set->newFrame(name(text), center()); }
    FrameCenter *center() const { return piece.frameCenter(); }

    support::RecordingApplication application;
    support::RectangleUnderControl piece;
    FrameSet *set = piece.set();
    FrameFrame *defined = piece.chord("Defined", 2)->getFrameFrame();
};

TEST_F(Use, anEmptySetIsDefinedAndNotPartlySo)
{
    FrameSet empty(name("E"), nullptr);
    EXPECT_TRUE(empty.isDefinedInDocument());
    EXPECT_FALSE(empty.Au_Moins_Partiellement_Defini());
    EXPECT_TRUE(empty.canBeDestroyed(true));
    EXPECT_TRUE(empty.canBeDestroyedInBatch());
}

TEST_F(Use, oneUndefinedElementMakesASetOnlyPartlyDefined)
{
    EXPECT_TRUE(set->isDefinedInDocument());
    undefined("U");
    EXPECT_FALSE(set->isDefinedInDocument());
    EXPECT_TRUE(set->Au_Moins_Partiellement_Defini());
    EXPECT_TRUE(set->containsFrameDefines());
    EXPECT_FALSE(set->containsSpecDefined());
    EXPECT_FALSE(set->containsMeasurementChartDefined());
    EXPECT_FALSE(set->canBeDestroyedInBatch());
    EXPECT_TRUE(application.mMessages.isEmpty());
    EXPECT_FALSE(set->canBeDestroyed(true));
    EXPECT_EQ(application.mMessages,
              QStringList{name("Cannot delete this set because some of its elements are still defined.")});
}

TEST_F(Use, anUndefinedElementOfAnyKindLeavesTheSetOnlyPartlyDefined)
{
    const auto isWhollyDefinedWithout = [this](BaseFrame *element) {
        const bool wholly = set->isDefinedInDocument();
        delete element;
        return wholly;
    };
    EXPECT_FALSE(isWhollyDefinedWithout(set->newCenter(name("C"))));
    EXPECT_FALSE(isWhollyDefinedWithout(set->newSegment(name("S"))));
    EXPECT_FALSE(isWhollyDefinedWithout(undefined("U")));
    EXPECT_TRUE(isWhollyDefinedWithout(set->newLink(name("L"))));
    EXPECT_TRUE(isWhollyDefinedWithout(set->newSpec(name("P"))));
    FrameMeasurementChart *const chart = set->newMeasurementChart(name("H"));
    EXPECT_TRUE(set->isDefinedInDocument());
    EXPECT_TRUE(set->containsMeasurementChartDefined());
    EXPECT_FALSE(set->containsSpecDefined());
    FrameFrame *const u = undefined("U");
    chart->setFormulaMeasurementChart(formula("Measure(Center:U)", set));
    EXPECT_FALSE(set->containsMeasurementChartDefined());
    delete chart;
    delete u;
    EXPECT_TRUE(set->isDefinedInDocument());
}

TEST_F(Use, withoutADocumentEmptyLinksAndFreeSpecsAreStillDefined)
{
    FrameSet lonely(name("E"), nullptr);
    lonely.newLink(name("L"));
    EXPECT_TRUE(lonely.Au_Moins_Partiellement_Defini());
    EXPECT_FALSE(lonely.canBeDestroyed(false));
}

TEST_F(Use, theFirstHolderOfAMentionIsNamedInTheOrderOfKinds)
{
    BaseFrame *holder = defined;
    EXPECT_FALSE(set->elementsMentionedInFormulaOne(defined, holder));
    EXPECT_EQ(holder, nullptr);
    FrameMeasurementChart *const chart = set->newMeasurementChart(name("H"));
    chart->setFormulaMeasurementChart(formula("Measure(Center:Defined)", set));
    EXPECT_TRUE(set->elementsMentionedInFormulaOne(defined, holder));
    EXPECT_EQ(holder, chart);
    FrameSpec *const spec = set->newSpec(name("P"));
    spec->setFormulaSpec(formula("Measure(Center:Defined)", set));
    set->elementsMentionedInFormulaOne(defined, holder);
    EXPECT_EQ(holder, spec);
    FrameFrame *const frame = undefined("U");
    frame->setFormulaLevel(formula("Level(Center:Defined)", set));
    set->elementsMentionedInFormulaOne(defined, holder);
    EXPECT_EQ(holder, frame);
    FrameSegment *const segment = set->newSegment(name("S"));
    segment->rememberFormula(formula("Measure(Center:Defined)", set));
    set->elementsMentionedInFormulaOne(defined, holder);
    EXPECT_EQ(holder, segment);
    FrameLink *const link = set->newLink(name("L"));
    link->setFormulaLevel(formula("Level(Center:Defined)", set));
    set->elementsMentionedInFormulaOne(defined, holder);
    EXPECT_EQ(holder, link);
}

TEST_F(Use, onlyDefinedHoldersCountAndChartsNever)
{
    FrameFrame *const u = undefined("U");
    set->newMeasurementChart(name("H"))->setFormulaMeasurementChart(formula("Measure(Center:U)", set));
    undefined("V")->setFormulaMeasurement(formula("Measure(Center:U)", set));
    EXPECT_FALSE(set->elementsMentionedByElementDefined(u));
    defined->setFormulaLevel(formula("Level(Center:U)", set));
    EXPECT_TRUE(set->elementsMentionedByElementDefined(u));
    EXPECT_TRUE(u->isMentionedByElementDefined());
    EXPECT_FALSE(u->canBeDestroyedInBatch());
}

TEST_F(Use, definedSegmentsLinksAndSpecsMentionToo)
{
    FrameFrame *const u = undefined("U");
    EXPECT_FALSE(set->elementsMentionedByElementDefined(u));
    FrameLink *const link = set->newLink(name("L")); // an empty link is defined
    link->setFormulaLevel(formula("Level(Center:U)", set));
    EXPECT_TRUE(set->elementsMentionedByElementDefined(u));
    link->setFormulaLevel(nullptr);
    FrameSegment *const segment =
        piece.segment("S", piece.right(0), piece.right(1), FrameSegment::Displace_AlongY)->getFrameSegment();
    segment->rememberFormula(formula("Measure(Center:U)", set));
    EXPECT_TRUE(set->elementsMentionedByElementDefined(u));
    segment->setFormulaMeasurement(nullptr);
    FrameSpec *const spec = set->newSpec(name("P"));
    spec->setFormulaSpec(formula("Measure(Center:U)", set));
    EXPECT_FALSE(set->elementsMentionedByElementDefined(u)); // a spec over U is as undefined as U
    spec->setFormulaSpec(formula("Measure(Center:Defined)", set));
    EXPECT_TRUE(set->elementsMentionedByElementDefined(defined));
}

TEST_F(Use, rebindingASetDropsWhatItDoesNotHold)
{
    FrameFrame *const u = undefined("U");
    FrameFrame foreign(name("X"));
    u->setFormulaMeasurement(formula("Measure(Center:Defined) + Measure(Center:U)", set));
    u->measurementFormula()->root->sonRight->element = &foreign;
    u->setFormulaLevel(formula("Level(Center:Defined)", set));
    FrameLink *const link = set->newLink(name("L"));
    link->setFormulaMeasurement(formula("Measure(Center:U)", set));
    link->measurementFormula()->root->element = nullptr; // a name that was never resolved
    FrameSpec *const spec = set->newSpec(name("P"));
    spec->setFormulaSpec(formula("Measure(Center:U)", set));
    spec->formulaSpec()->root->element = &foreign;
    FrameSegment *const segment = set->newSegment(name("S"));
    segment->rememberFormula(formula("Measure(Center:U)", set));
    segment->measurementFormula()->root->element = &foreign;
    set->adapterFormulaInSet();
    EXPECT_EQ(segment->measurementFormula(), nullptr);
    EXPECT_EQ(u->measurementFormula(), nullptr); // as a whole, though its first name resolved
    EXPECT_NE(u->formulaLevel(), nullptr);
    EXPECT_EQ(link->measurementFormula(), nullptr);
    EXPECT_NE(spec->formulaSpec(), nullptr); // specs are left alone
}

// --- Clearing out ---

TEST_F(Use, clearingOutTakesAnUndefinedCenterTogetherWithItsFrame)
{
    set->newFrame(name("F"), set->newCenter(name("Other")));
    set->newSegment(name("S"));
    set->destroyFramesUndefined();
    EXPECT_EQ(names(set->getFrames()), "Center:Defined");
    EXPECT_EQ(names(set->getFrameCenters()), "Center");
    EXPECT_TRUE(set->getFrameSegments().isEmpty());
}

TEST_F(Use, clearingOutKeepsSpecsWithoutFormulaAndEmptyLinks)
{
    set->newSpec(name("P"));
    set->newMeasurementChart(name("H"));
    set->newLink(name("L"));
    set->destroyFramesUndefined();
    EXPECT_EQ(names(set->getFrameSpecs()), "P");
    EXPECT_EQ(names(set->getFrameMeasurementCharts()), "H");
    EXPECT_EQ(names(set->getFrameLinks()), "L");
}

TEST_F(Use, aLinkedFrameStaysUnlessItsLinkWentFirst)
{
    FrameLink *const kept = set->newLink(name("Kept"));
    kept->linkFrame(undefined("U"));
    defined->setFormulaMeasurement(formula("Measure(Kept)", set)); // a defined element mentions the link
    FrameLink *const gone = set->newLink(name("Gone"));
    gone->linkFrame(undefined("V"));
    set->destroyFramesUndefined();
    EXPECT_EQ(names(set->getFrames()), "Center:Defined Center:U");
    EXPECT_EQ(names(set->getFrameLinks()), "Kept");
}

TEST_F(Use, aFrameThatADefinedElementMentionsStays)
{
    undefined("U");
    defined->setFormulaMeasurement(formula("Measure(Center:U)", set));
    set->destroyFramesUndefined();
    EXPECT_EQ(names(set->getFrames()), "Center:Defined Center:U");
    EXPECT_TRUE(set->removedFormulas().isEmpty());
}

TEST_F(Use, aSegmentThatADefinedElementMentionsStaysAndAChartOverAnUndefinedElementGoes)
{
    set->newSegment(name("S"));
    set->newSegment(name("T"));
    defined->setFormulaMeasurement(formula("Measure(S)", set));
    set->newMeasurementChart(name("H"))->setFormulaMeasurementChart(formula("Measure(S)", set));
    set->destroyFramesUndefined();
    EXPECT_EQ(names(set->getFrameSegments()), "S");
    EXPECT_TRUE(set->getFrameMeasurementCharts().isEmpty());
}

TEST_F(Use, formulasThatStayLetGoOfWhatIsDeleted)
{
    undefined("U");
    FrameSpec *const gone = set->newSpec(name("Gone"));
    gone->setFormulaSpec(formula("Measure(Center:U)", set)); // hangs on U, so it goes
    FrameSpec *const alsoGone = set->newSpec(name("AlsoGone"));
    alsoGone->setFormulaSpec(formula("Measure(Gone)", set)); // and so does what hangs on it
    defined->setFormulaMeasurement(formula("Measure(Gone) + Measure(Center:U)", set));
    defined->setFormulaLevel(formula("Level(Gone)", set));
    set->destroyFramesUndefined();
    EXPECT_TRUE(set->getFrameSpecs().isEmpty());
    EXPECT_EQ(names(set->getFrames()), "Center:Defined"); // with the formula given up, nobody mentions U
    EXPECT_EQ(defined->measurementFormula(), nullptr);
    EXPECT_EQ(defined->formulaLevel(), nullptr);
    const auto removed = set->removedFormulas();
    ASSERT_EQ(removed.count(), 2);
    EXPECT_EQ(removed.at(0).get<0>(), name("Center:Defined"));
    EXPECT_TRUE(removed.at(0).get<1>());
    EXPECT_EQ(removed.at(0).get<2>(), name("Measure(Gone) + Measure(Center:U)"));
    EXPECT_FALSE(removed.at(1).get<1>());
    EXPECT_EQ(removed.at(1).get<2>(), name("Level(Gone)"));
}

TEST_F(Use, aFrameWithoutACenterEndsTheClearingOutWithPartOfItDone)
{
    set->newSegment(name("S"));
    FrameFrame *const stray = undefined("U");
    stray->removeFromCenter();
    EXPECT_THROW(set->destroyFramesUndefined(), AssertionError);
    EXPECT_TRUE(set->getFrameSegments().isEmpty());
    EXPECT_EQ(set->getFrames().count(), 2);
}

TEST_F(Use, anUnknownNameInASpecEndsTheClearingOutWithPartOfItDone)
{
    set->newSegment(name("T"));
    set->newSpec(name("First"))->setFormulaSpec(formula("Measure(T)", set));
    set->newSpec(name("Second"))->setFormulaSpec(formula("Measure(nobody)", set));
    EXPECT_THROW(set->destroyFramesUndefined(), AssertionError);
    EXPECT_EQ(names(set->getFrameSpecs()), "Second");
}

TEST_F(Use, aBrokenFormulaOfADefinedElementIsAnErrorAndLosesNothing)
{
    undefined("U");
    defined->setFormulaMeasurement(new TreeEquations); // a root without a kind
    EXPECT_THROW(set->destroyFramesUndefined(), AssertionError);
    EXPECT_EQ(names(set->getFrames()), "Center:Defined Center:U");
}

TEST_F(Use, aHundredThousandUndefinedElementsGoInOneSweep)
{
    auto *const other = new FrameCenter(name("Other"));
    set->addCenter(other, -1);
    FrameFrame *last = nullptr;
    for (int i = 0; i < 100000; ++i) {
        auto *const frame = new FrameFrame(QString::number(i));
        set->getFramesPtr()->append(frame);
        frame->setFrameCenter(other);
        if (last != nullptr) {
            auto *const tree = new TreeEquations;
            tree->root->contents = ElemMeasure;
            tree->root->element = last;
            frame->setFormulaMeasurement(tree);
        }
        last = frame;
    }
    set->destroyFramesUndefined();
    EXPECT_EQ(names(set->getFrames()), "Center:Defined");
    EXPECT_EQ(names(set->getFrameCenters()), "Center");
    EXPECT_TRUE(set->removedFormulas().isEmpty());
}

} // namespace
