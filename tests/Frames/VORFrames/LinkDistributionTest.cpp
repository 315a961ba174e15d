// Links on a piece: handing new values out among the frames.

#include "OpenLink.h"

#include <support/ControlledPiece.h>
#include <support/TestDocument.h>

#include <gtest/gtest.h>

#include <limits>

using namespace VorSystem;
using support::formula;
using support::name;

namespace
{

// Two chords linked, above the origin.
class LinksOnAPiece : public testing::Test
{
protected:
    LinksOnAPiece()
    {
        piece.chord("Origin", 1);
        a = piece.chord("A", 3);
        b = piece.chord("B", 5);
        piece.set()->addLink(link, -1);
        link->linkFrame(a->getFrameFrame());
        link->linkFrame(b->getFrameFrame());
        link->reevaluate(Reevaluate_Store);
    }
    std::string totals() const { return support::str(*link->getMeasureBySizes()); }

    support::RecordingApplication application;
    support::RectangleUnderControl piece;
    ControlFrame *a = nullptr;
    ControlFrame *b = nullptr;
    OpenLink *link = new OpenLink(name("L"));
};

TEST_F(LinksOnAPiece, areDefinedWhileTheFlagsOfTheirFramesAreSet)
{
    EXPECT_EQ(totals(), "74.00 76.00 78.00 [80.00] 82.00 84.00 86.00");
    EXPECT_TRUE(link->isDefinedInDocument() && link->framesAreDefined());
    EXPECT_TRUE(a->isInFrameLink());
    EXPECT_FALSE(link->canBeDestroyedInBatch());
    link->transformerLinkUndefined();
    EXPECT_TRUE(link->canBeDestroyedInBatch());
    EXPECT_FALSE(link->isDefinedInDocument());
    EXPECT_TRUE(link->framesAreDefined());
    EXPECT_EQ(link->getFrames().count(), 2);
    link->relinkingFrames();
    EXPECT_TRUE(link->isDefinedInDocument());
    link->removeFrame(a->getFrameFrame());
    EXPECT_TRUE(a->getAgreesLink()); // the flag stays behind
    link->unlinkFrames();
    EXPECT_FALSE(b->getAgreesLink());
    link->linkFrame(b->getFrameFrame());
    EXPECT_TRUE(b->getAgreesLink());
}

TEST_F(LinksOnAPiece, aNewTotalIsSharedByTheRuleOfTheLink)
{
    struct Row {
        FrameLink::eMeasureType type;
        double ratioOfA;
        const char *measuresOfA;
    };
    const Row rows[] = {
        {FrameLink::Measure_Proportional, 1.0, "38.50 39.50 40.50 [41.50] 42.50 43.50 44.50"},
        {FrameLink::Measure_Equal, 1.0, "40.00 41.00 42.00 [43.00] 44.00 45.00 46.00"},
        {FrameLink::Measure_Fixed, 3.0, "42.25 43.25 44.25 [45.25] 46.25 47.25 48.25"},
    };
    for (const Row &row : rows) {
        link->setMeasureType(row.type);
        a->getFrameFrame()->setRatio(row.ratioOfA);
        ValuesAccordingSizes wanted = support::plus(*link->getMeasureBySizes(), 3.0);
        const QListEx<double> list = wanted.mValues;
        EXPECT_TRUE(link->applyValues(&list, static_cast<const QListEx<double> *>(nullptr), nullptr));
        EXPECT_EQ(totals(), support::str(wanted));
        EXPECT_EQ(support::str(piece.measuresOf(a)), row.measuresOfA) << row.type;
    }
}

TEST_F(LinksOnAPiece, aMeasureForTheNestMovesTheNest)
{
    const double measure = 84.0;
    EXPECT_TRUE(link->applyValues(&measure, static_cast<const double *>(nullptr), nullptr));
    EXPECT_NEAR(link->getMeasures(-1), 84.0, 1e-4);
    EXPECT_NEAR(a->getMeasures(-1), 42.0, 1e-4);
}

TEST_F(LinksOnAPiece, aShareWithoutBoundEndsAndIsTold)
{
    // The zero test looks at the smallest size, the division at the nest: every frame is wished infinite.
    link->getMeasureBySizes()->mValues[3] = 0.0;
    ValuesAccordingSizes wanted = *link->getMeasureBySizes();
    wanted.mValues[3] = 84.0;
    EXPECT_FALSE(link->leaveMeasures(wanted, piece.gradation(), ModifyLevel_Nest));
    wanted.mValues[3] = 0.0; // no number at all
    link->reevaluate(Reevaluate_Store);
    link->getMeasureBySizes()->mValues[3] = 0.0;
    EXPECT_FALSE(link->leaveMeasures(wanted, piece.gradation(), ModifyLevel_Nest));
}

TEST_F(LinksOnAPiece, aFrameThatFailsDoesNotKeepTheOthersFromTheirMeasure)
{
    link->unlinkFrames();
    ControlFrame *const point = piece.frame("Point", piece.right(4), piece.right(4)); // cannot become wide
    link->setMeasureType(FrameLink::Measure_Equal);
    link->linkFrame(a->getFrameFrame());
    link->linkFrame(point->getFrameFrame());
    link->linkFrame(b->getFrameFrame());
    link->reevaluate(Reevaluate_Store);
    ValuesAccordingSizes wanted = support::plus(*link->getMeasureBySizes(), 3.0);
    EXPECT_FALSE(link->leaveMeasures(wanted, piece.gradation(), ModifyLevel_AllSizes));
    EXPECT_NEAR(a->getMeasures(-1), 41.0, 1e-4);
    EXPECT_NEAR(b->getMeasures(-1), 41.0, 1e-4);
    // With a formula of the link's own the failure is not even told.
    link->setFormulaMeasurement(formula("90", piece.set()));
    EXPECT_TRUE(link->applyMeasures(wanted, piece.gradation(), ModifyLevel_AllSizes));
}

TEST_F(LinksOnAPiece, aFrameThatFailsEndsTheWalkOverTheLevels)
{
    link->unlinkFrames();
    FrameFrame *const origin = piece.frameCenter()->getFrameLevelZero(); // the origin never moves
    link->linkFrame(origin);
    link->linkFrame(b->getFrameFrame());
    link->reevaluate(Reevaluate_Store);
    const double before = b->getLevel(-1);
    ValuesAccordingSizes levels = support::plus(*link->getLevelBySizes(), 2.0);
    EXPECT_FALSE(link->leaveLevels(levels, piece.gradation(), ModifyLevel_AllSizes));
    EXPECT_NEAR(b->getLevel(-1), before, 1e-6);
    ValuesAccordingSizes measures = *link->getMeasureBySizes();
    EXPECT_FALSE(link->leaveMeasuresAndLevels(measures, levels, piece.gradation(), ModifyLevel_AllSizes));
    EXPECT_NEAR(b->getLevel(-1), before, 1e-6);
    EXPECT_FALSE(
        link->applyMeasuresLevelsDirectly(measures, levels, piece.gradation(), ModifyLevel_AllSizes));
}

TEST_F(LinksOnAPiece, levelsMoveAllFramesByTheSameChange)
{
    ValuesAccordingSizes levels = support::plus(*link->getLevelBySizes(), 2.0);
    EXPECT_TRUE(link->leaveLevels(levels, piece.gradation(), ModifyLevel_AllSizes));
    EXPECT_NEAR(a->getLevel(-1), 22.0, 1e-4);
    EXPECT_NEAR(b->getLevel(-1), 42.0, 1e-4);
}

TEST_F(LinksOnAPiece, theCountOfTheMeasuresBoundsTheWalkOverTheLevels)
{
    // One measure is known, so only the first size's level may change; the others keep their place.
    *link->getMeasureBySizes() = support::sizes({74}, 0);
    ValuesAccordingSizes measures = support::sizes({74}, 0);
    ValuesAccordingSizes levels = support::plus(*link->getLevelBySizes(), 1.0);
    link->setMeasureType(FrameLink::Measure_Equal);
    EXPECT_TRUE(link->leaveMeasuresAndLevels(measures, levels, piece.gradation(), ModifyLevel_AllSizes));
    EXPECT_NEAR(a->getLevel(-1), 20.0, 1e-4);
    const ValuesAccordingSizes after = piece.levelsOf(a);
    EXPECT_NEAR(after.mValues.at(0), 19.0, 1e-4); // 18 cm before
    EXPECT_NEAR(after.mValues.at(6), 22.0, 1e-4); // as before
}

TEST_F(LinksOnAPiece, formulasOfTheFramesAreNotOverruled)
{
    const std::string before = support::str(piece.measuresOf(a));
    a->getFrameFrame()->setFormulaMeasurement(formula("40", piece.set()));
    ValuesAccordingSizes measures = support::plus(*link->getMeasureBySizes(), 3.0);
    ValuesAccordingSizes levels = support::plus(*link->getLevelBySizes(), 2.0);
    EXPECT_TRUE(link->applyMeasuresLevelsDirectly(measures, levels, piece.gradation(), ModifyLevel_AllSizes));
    EXPECT_EQ(support::str(piece.measuresOf(a)), before);
    EXPECT_NEAR(a->getLevel(-1), 22.0, 1e-4);
    b->getFrameFrame()->setFormulaLevel(formula("30", piece.set()));
    levels = support::plus(*link->getLevelBySizes(), 2.0);
    EXPECT_TRUE(link->applyMeasuresLevelsDirectly(measures, levels, piece.gradation(), ModifyLevel_AllSizes));
    EXPECT_TRUE(link->applyMeasuresDirectly(measures, piece.gradation(), ModifyLevel_AllSizes));
    EXPECT_TRUE(link->applyLevelsDirectly(levels, piece.gradation(), ModifyLevel_AllSizes));
    EXPECT_EQ(support::str(piece.measuresOf(a)), before);
    EXPECT_NEAR(a->getLevel(-1), 22.0, 1e-4); // nothing at all moves
    a->getFrameFrame()->setFormulaMeasurement(nullptr);
    measures = support::plus(*link->getMeasureBySizes(), 4.0);
    EXPECT_TRUE(link->applyMeasuresLevelsDirectly(measures, levels, piece.gradation(), ModifyLevel_AllSizes));
    EXPECT_NEAR(a->getMeasures(-1), 42.0, 1e-4);
    EXPECT_NEAR(a->getLevel(-1), 22.0, 1e-4);
}

TEST_F(LinksOnAPiece, aProposedLevelMustStayBetweenTheNeighboursOfEveryFrame)
{
    ControlFrame *const between = piece.chord("Between", 4);
    QListEx<double> levels = link->getLevelBySizes()->mValues; // 30 cm in the nest
    EXPECT_TRUE(link->testLevelsProposed(levels));             // no change, no look at the neighbours
    for (double &level : levels)
        level += 5.0; // A to 25 cm in the nest, Between stands at 30
    EXPECT_TRUE(link->testLevelsProposed(levels));
    levels[6] += 100.0;
    EXPECT_FALSE(link->testLevelsProposed(levels));
    EXPECT_TRUE(link->testLevelsProposed(35.0));
    EXPECT_FALSE(link->testLevelsProposed(40.0)); // A exactly at Between
    EXPECT_FALSE(link->testLevelsProposed(10.0)); // A exactly at the origin
    EXPECT_TRUE(link->testLevelsProposed(0.0));   // going to the origin is another matter
    bool refused = false;
    const double level = 40.0;
    EXPECT_FALSE(link->applyValues(static_cast<const double *>(nullptr), &level, &refused));
    EXPECT_TRUE(refused);
    EXPECT_EQ(application.mMessages,
              QStringList{name("Cannot apply levels: a frame would move past a neighboring frame.")});
    EXPECT_FALSE(link->applyValues(nullptr, &levels, nullptr));
    static_cast<void>(between);
}

TEST_F(LinksOnAPiece, aLevelThatIsNoNumberIsRefusedByTheNeighbourBelowAlone)
{
    QListEx<double> levels = link->getLevelBySizes()->mValues;
    levels[3] = std::numeric_limits<double>::quiet_NaN();
    EXPECT_FALSE(link->testLevelsProposed(levels));
    link->unlinkFrames();
    ControlFrame *const level = piece.chord("Level", 1); // as high as the origin: neighbours above only
    link->linkFrame(level->getFrameFrame());
    link->reevaluate(Reevaluate_Store);
    levels = link->getLevelBySizes()->mValues;
    levels[3] = std::numeric_limits<double>::quiet_NaN();
    EXPECT_TRUE(link->testLevelsProposed(levels));
}

TEST_F(LinksOnAPiece, levelZeroMakesEachFrameTheOriginOfItsCenterAndTakesTheMeasureAlong)
{
    link->removeFrame(b->getFrameFrame());
    link->reevaluate(Reevaluate_Store);
    const double measure = 42.0;
    const double zero = 0.0;
    EXPECT_TRUE(link->applyValues(&measure, &zero, nullptr));
    EXPECT_EQ(piece.frameCenter()->getFrameLevelZero(), a->getFrameFrame());
    EXPECT_NEAR(a->getMeasures(-1), 42.0, 1e-4);
    EXPECT_EQ(link->getLevel(-1), 0.0);
    EXPECT_NEAR(link->getMeasures(-1), 42.0, 1e-4);
}

TEST_F(LinksOnAPiece, levelZeroIsNotRolledBackWhereTheFramesCannotAllStandThere)
{
    const double zero = 0.0;
    EXPECT_FALSE(link->applyValues(static_cast<const double *>(nullptr), &zero, nullptr));
    EXPECT_EQ(piece.frameCenter()->getFrameLevelZero(), b->getFrameFrame()); // the last of them
}

TEST_F(LinksOnAPiece, formulasOfItsOwnHandMeasuresAndLevelsOut)
{
    ValuesAccordingSizes measures = support::plus(*link->getMeasureBySizes(), 4.0);
    ValuesAccordingSizes levels = support::plus(*link->getLevelBySizes(), 2.0);
    link->setFormulaLevel(formula("32", piece.set()));
    EXPECT_TRUE(link->applyLevels(levels, piece.gradation(), ModifyLevel_AllSizes));
    EXPECT_NEAR(a->getLevel(-1), 22.0, 1e-4);
    EXPECT_NEAR(a->getMeasures(-1), 40.0, 1e-4);

    levels = support::plus(*link->getLevelBySizes(), 1.0);
    link->setFormulaMeasurement(formula("84", piece.set()));
    EXPECT_TRUE(link->applyMeasuresLevels(measures, levels, piece.gradation(), ModifyLevel_AllSizes));
    EXPECT_NEAR(a->getLevel(-1), 23.0, 1e-4);
    EXPECT_NEAR(b->getLevel(-1), 43.0, 1e-4);
    EXPECT_NEAR(a->getMeasures(-1), 42.0, 1e-4);
}

TEST_F(LinksOnAPiece, aLevelFormulaDoesNotTellThatAFrameFailed)
{
    link->unlinkFrames();
    link->linkFrame(piece.frameCenter()->getFrameLevelZero()); // the origin never moves
    link->reevaluate(Reevaluate_Store);
    link->setFormulaLevel(formula("2", piece.set()));
    ValuesAccordingSizes measures = *link->getMeasureBySizes();
    ValuesAccordingSizes levels = support::plus(*link->getLevelBySizes(), 2.0);
    EXPECT_FALSE(link->leaveLevels(levels, piece.gradation(), ModifyLevel_AllSizes));
    EXPECT_TRUE(link->applyLevels(levels, piece.gradation(), ModifyLevel_AllSizes));
    levels = support::plus(*link->getLevelBySizes(), 2.0);
    EXPECT_TRUE(link->applyMeasuresLevels(measures, levels, piece.gradation(), ModifyLevel_AllSizes));
}

TEST_F(LinksOnAPiece, framesAreBroughtToTheLinksLevelInModeOneAlone)
{
    for (const eFrameReevaluate mode : {Reevaluate_Store, Reevaluate_Ask}) {
        EXPECT_TRUE(link->adjustFramesSameLevel(mode));
        EXPECT_NEAR(a->getLevel(-1), 20.0, 1e-6);
        EXPECT_NEAR(b->getLevel(-1), 40.0, 1e-6);
    }
    link->removeFrame(b->getFrameFrame());
    link->setFormulaLevel(formula("25", piece.set()));
    EXPECT_TRUE(link->adjustFramesSameLevel(Reevaluate_Apply));
    EXPECT_EQ(support::str(piece.levelsOf(a)), "25.00 25.00 25.00 [25.00] 25.00 25.00 25.00");
}

TEST_F(LinksOnAPiece, aLinkThatWasNeverEvaluatedHasNoLevelToBringItsFramesTo)
{
    *link->getLevelBySizes() = ValuesAccordingSizes();
    for (const eFrameReevaluate mode : {Reevaluate_Store, Reevaluate_Apply, Reevaluate_Ask})
        EXPECT_TRUE(link->adjustFramesSameLevel(mode));
    EXPECT_NEAR(a->getLevel(-1), 20.0, 1e-6);
}

TEST_F(LinksOnAPiece, theFirstReevaluationOfASetMayBeOfAnyModeAndGradation)
{
    const auto forgetAll = [this] {
        const QListEx<FrameFrame *> frames = piece.set()->getFrames();
        for (FrameFrame *frame : frames) {
            *frame->getMeasureBySizes() = ValuesAccordingSizes();
            *frame->getLevelBySizes() = ValuesAccordingSizes();
        }
        *link->getMeasureBySizes() = ValuesAccordingSizes();
        *link->getLevelBySizes() = ValuesAccordingSizes();
    };
    for (const bool hasNest : {true, false}) {
        if (!hasNest)
            piece.document().mGradation = GradationData();
        for (const bool isDriven : {false, true}) {
            link->setFormulaMeasurement(isDriven ? formula("84", piece.set()) : nullptr);
            link->setFormulaLevel(isDriven ? formula("31", piece.set()) : nullptr);
            for (const eFrameReevaluate mode : {Reevaluate_Ask, Reevaluate_Apply, Reevaluate_Store}) {
                forgetAll();
                EXPECT_TRUE(piece.set()->reevaluate(mode)) << hasNest << isDriven << int(mode);
                const int stored = mode == Reevaluate_Ask ? 0 : hasNest ? 7 : 1;
                EXPECT_EQ(b->getFrameFrame()->getMeasureBySizes()->mValues.count(), stored);
                EXPECT_EQ(b->getFrameFrame()->getLevelBySizes()->mValues.count(), stored);
            }
        }
    }
}

TEST_F(LinksOnAPiece, aFrameThatWasNeverEvaluatedGetsItsShareOnTopOfWhatItsPieceShows)
{
    link->setMeasureType(FrameLink::Measure_Equal);
    ValuesAccordingSizes measures = support::plus(*link->getMeasureBySizes(), 4.0);
    ValuesAccordingSizes levels = support::plus(*link->getLevelBySizes(), 1.0);
    const auto forgetB = [this] {
        *b->getFrameFrame()->getMeasureBySizes() = ValuesAccordingSizes();
        *b->getFrameFrame()->getLevelBySizes() = ValuesAccordingSizes();
    };
    forgetB();
    EXPECT_TRUE(link->leaveMeasures(measures, piece.gradation(), ModifyLevel_AllSizes));
    EXPECT_NEAR(b->getMeasures(-1), 42.0, 1e-4);
    forgetB();
    EXPECT_TRUE(link->leaveLevels(levels, piece.gradation(), ModifyLevel_AllSizes));
    EXPECT_NEAR(b->getLevel(-1), 41.0, 1e-4);
    forgetB();
    EXPECT_TRUE(link->leaveMeasuresAndLevels(measures, levels, piece.gradation(), ModifyLevel_AllSizes));
    EXPECT_NEAR(b->getMeasures(-1), 44.0, 1e-4);
    EXPECT_NEAR(b->getLevel(-1), 42.0, 1e-4);
}

TEST_F(LinksOnAPiece, zeroOfTheFirstFrameIsTheLinks)
{
    EXPECT_FALSE(link->frameLevelZero());
    EXPECT_FALSE(link->framesMeasureZero());
    a->getFrameFrame()->becomeLevelZero();
    EXPECT_TRUE(link->frameLevelZero());
    link->unlinkFrames();
    link->linkFrame(piece.frame("Point", piece.right(4), piece.right(4))->getFrameFrame());
    EXPECT_TRUE(link->framesMeasureZero());
    FrameFrame stray(name("Stray")); // of no center
    link->unlinkFrames();
    link->linkFrame(&stray);
    EXPECT_FALSE(link->frameLevelZero());
    link->unlinkFrames();
}

} // namespace
