// Evaluation order: what stands in which round, what stands in the way, and what a change touches.

#include "OrderWorld.h"

#include <boost/exception/get_error_info.hpp>
#include <gtest/gtest.h>

namespace VorSystem
{

namespace
{

// A set without pieces; who moves whom is said where it matters.
class Order : public testing::Test, public OrderWorld
{
public:
    // "A.m A.l | B.m", with "culprit ..." behind it when the answer is false.
    QString order()
    {
        FrameSegment *culprit = nullptr;
        const bool answer = evaluation.calculateOrder(set(), culprit);
        EXPECT_EQ(answer, culprit == nullptr);
        const QString rounds = str(evaluation.rounds());
        return answer ? rounds : rounds + QStringLiteral(" culprit ") + culprit->name();
    }

    OrderEvaluation evaluation;
};

#define EXPECT_TEXT(actual, expected) EXPECT_EQ((actual).toStdString(), std::string(expected))

TEST_F(Order, emptySetHasNoRounds)
{
    EXPECT_TEXT(order(), "");
    EXPECT_TRUE(set()->isOrderEvaluation());
}

TEST_F(Order, valuesThatHangOnNothingStandInOneRoundByKind)
{
    chart("Chart");
    segment("Seam");
    link("Link");
    frame("Chest");
    frame("Waist");
    spec("Spec");

    EXPECT_TEXT(order(), "Chest.m Chest.l Waist.m Waist.l Link.m Link.l Seam.m Chart.m Chart.l");
}

TEST_F(Order, frameWaitsForTheSegmentThatItsFormulaNames)
{
    FrameFrame *const chest = frame("Chest");
    chest->setFormulaMeasurement(sumOf({measureOf(segment("Seam"))}));

    EXPECT_TEXT(order(), "Chest.l Seam.m | Chest.m");
}

TEST_F(Order, measureAndLevelAreTwoThings)
{
    FrameFrame *const chest = frame("Chest");
    FrameFrame *const waist = frame("Waist");
    chest->setFormulaMeasurement(sumOf({levelOf(waist)}));
    chest->setFormulaLevel(sumOf({measureOf(chest)}));

    EXPECT_TEXT(order(), "Waist.m Waist.l | Chest.m | Chest.l");
}

TEST_F(Order, chainStandsInAsManyRoundsAsItHasLinks)
{
    FrameFrame *const first = frame("A");
    FrameFrame *const second = frame("B");
    FrameFrame *const third = frame("C");
    first->setFormulaMeasurement(sumOf({measureOf(second)}));
    second->setFormulaMeasurement(sumOf({measureOf(third)}));

    EXPECT_TEXT(order(), "A.l B.l C.m C.l | B.m | A.m");
}

TEST_F(Order, linkWithoutFormulaWaitsForItsFrames)
{
    link("Link", {frame("A"), frame("B")});

    EXPECT_TEXT(order(), "A.m A.l B.m B.l | Link.m Link.l");
}

TEST_F(Order, framesThatFollowOneLinkStandInSuccessiveRounds)
{
    FrameLink *const follows = link("Link", {frame("A"), frame("B"), frame("C")});
    follows->setFormulaMeasurement(constant(30));

    EXPECT_TEXT(order(), "A.m A.l B.l C.l Link.m | B.m Link.l | C.m");
}

TEST_F(Order, framesFollowTheirLinkInListOrderNotInLinkOrder)
{
    FrameFrame *const first = frame("A");
    FrameFrame *const second = frame("B");
    FrameLink *const follows = link("Link", {second, first});
    follows->setFormulaLevel(constant(3));

    EXPECT_TEXT(order(), "A.m A.l B.m Link.l | B.l Link.m");
}

TEST_F(Order, readerListedAheadOfTheFramesOfALinkGoesBeforeThem)
{
    FrameFrame *const reader = frame("Reader");
    FrameLink *const summed = link("Link", {frame("A"), frame("B")});
    reader->setFormulaMeasurement(sumOf({measureOf(summed)}));

    EXPECT_TEXT(order(), "Reader.m Reader.l A.m A.l B.m B.l | Link.m Link.l");
}

TEST_F(Order, readerListedBehindTheFramesOfALinkGivesWayToThoseInItsRound)
{
    FrameLink *const summed = link("Link", {frame("A"), frame("B")});
    FrameFrame *const reader = frame("Reader");
    reader->setFormulaMeasurement(sumOf({measureOf(summed)}));

    // It does not wait for the link itself: both stand in the second round.
    EXPECT_TEXT(order(), "A.m A.l B.m B.l Reader.l | Reader.m Link.m Link.l");
}

TEST_F(Order, readerOfALinkMayGoBeforeFramesThatWaitThemselves)
{
    FrameSegment *const seam = segment("Seam");
    FrameFrame *const waiting = frame("A");
    waiting->setFormulaMeasurement(sumOf({measureOf(seam)}));
    FrameLink *const summed = link("Link", {waiting});
    FrameFrame *const reader = frame("Reader");
    reader->setFormulaMeasurement(sumOf({measureOf(summed)}));

    EXPECT_TEXT(order(), "A.l Reader.m Reader.l Seam.m | A.m Link.l | Link.m");
}

TEST_F(Order, dependencyOnALinkCountsItsFramesInTheSameKindOfValueOnly)
{
    FrameLink *const summed = link("Link", {frame("A")});
    FrameFrame *const reader = frame("Reader");
    reader->setFormulaMeasurement(sumOf({levelOf(summed)}));
    segment("Seam")->rememberFormula(sumOf({measureOf(summed)}));

    EXPECT_TEXT(order(), "A.m A.l Reader.l | Reader.m Link.m Link.l Seam.m");
}

TEST_F(Order, linkOfAnotherSetIsNothingToWaitFor)
{
    OrderWorld other;
    FrameLink *const stranger = other.link("Link", {other.frame("B")});
    FrameFrame *const reader = frame("Reader");
    reader->setFormulaMeasurement(sumOf({measureOf(stranger), measureOf(other.frame("C"))}));

    EXPECT_TEXT(order(), "Reader.m Reader.l");
    reader->setFormulaMeasurement(nullptr);
}

TEST_F(Order, centersAndSpecsStandInNoRoundAndHoldNobodyUp)
{
    FrameFrame *const chest = frame("Chest");
    chest->setFormulaMeasurement(sumOf({measureOf(spec("Spec")), measureOf(center())}));

    EXPECT_TEXT(order(), "Chest.m Chest.l");
}

TEST_F(Order, chartFormulaIsNotSeen)
{
    chart("Chart")->setFormulaMeasurementChart(sumOf({measureOf(segment("Seam"))}));

    EXPECT_TEXT(order(), "Seam.m Chart.m Chart.l");
}

TEST_F(Order, chartIsWaitedFor)
{
    FrameFrame *const chest = frame("Chest");
    chest->setFormulaMeasurement(sumOf({measureOf(chart("Chart"))}));

    EXPECT_TEXT(order(), "Chest.l Chart.m Chart.l | Chest.m");
}

TEST_F(Order, unresolvedNameHoldsNobodyUp)
{
    frame("Chest")->setFormulaMeasurement(sumOf({measureOf(nullptr)}));

    EXPECT_TEXT(order(), "Chest.m Chest.l");
}

TEST_F(Order, valueThatNamesItselfIsNeverPlaced)
{
    FrameFrame *const chest = frame("Chest");
    chest->setFormulaMeasurement(sumOf({measureOf(chest)}));

    EXPECT_TEXT(order(), "Chest.l | (none)");
}

TEST_F(Order, deadlockAmongFramesIsNoFailure)
{
    FrameFrame *const first = frame("A");
    FrameFrame *const second = frame("B");
    first->setFormulaMeasurement(sumOf({measureOf(second)}));
    second->setFormulaMeasurement(sumOf({measureOf(first)}));
    FrameFrame *const behind = frame("C");
    behind->setFormulaLevel(sumOf({measureOf(first)}));

    EXPECT_TEXT(order(), "A.l B.l C.m | (none)");
    EXPECT_TRUE(set()->isOrderEvaluation());
}

TEST_F(Order, elementWaitsForWhoMovesItAndNotForWhomItMoves)
{
    ScriptedFrame *const moved = scriptedFrame("Moved");
    ScriptedFrame *const mover = scriptedFrame("Mover");
    script.moves[mover] = {moved};

    EXPECT_TEXT(order(), "Mover.m Mover.l | Moved.m Moved.l");
}

TEST_F(Order, moversAndMovedAreToldApart)
{
    ScriptedFrame *const moved = scriptedFrame("Moved");
    ScriptedFrame *const mover = scriptedFrame("Mover");
    ScriptedSegment *const seam = scriptedSegment("Seam");
    script.moves[mover] = {moved, seam};
    script.moves[seam] = {moved};

    QListEx<Evaluation> whoMoves;
    moved->evaluationInfluencesGeometrically(whoMoves);
    EXPECT_TEXT(str(whoMoves), "Mover.m Mover.l Seam.m");
    QListEx<Evaluation> whomItMoves;
    mover->evaluationsInfluencedGeometrically(whomItMoves);
    EXPECT_TEXT(str(whomItMoves), "Moved.m Moved.l Seam.m");

    // Already there: not a second time.
    set()->accumulateEvaluationsInfluencesGeometrically(moved, whoMoves);
    EXPECT_TEXT(str(whoMoves), "Mover.m Mover.l Seam.m");
    QListEx<Evaluation> nobody;
    moved->evaluationsInfluencedGeometrically(nobody);
    EXPECT_TRUE(nobody.isEmpty());
}

TEST_F(Order, whoeverMovesALinkIsAskedAboutItToo)
{
    FrameLink *const summed = link("Link");
    ScriptedSegment *const seam = scriptedSegment("Seam");
    script.moves[seam] = {summed};

    QListEx<Evaluation> whomItMoves;
    seam->evaluationsInfluencedGeometrically(whomItMoves);
    EXPECT_TEXT(str(whomItMoves), "Link.m Link.l");
    EXPECT_TEXT(order(), "Seam.m | Link.m Link.l");
}

TEST_F(Order, firstOfTwoSegmentsThatMoveEachOtherIsTheCulprit)
{
    ScriptedSegment *const left = scriptedSegment("Left");
    ScriptedSegment *const right = scriptedSegment("Right");
    left->rememberFormula(constant(10));
    right->rememberFormula(constant(20));
    script.moves[left] = {right};
    script.moves[right] = {left};

    EXPECT_TEXT(order(), "(none) culprit Left");
    EXPECT_FALSE(set()->isOrderEvaluation());
}

TEST_F(Order, culpritNeedsAFormulaAndSomethingThatIsStillPending)
{
    ScriptedFrame *const chest = scriptedFrame("Chest");
    ScriptedSegment *const free = scriptedSegment("Free"); // moves nobody that is left
    ScriptedSegment *const bare = scriptedSegment("Bare"); // has no formula
    ScriptedSegment *const guilty = scriptedSegment("Guilty");
    free->rememberFormula(sumOf({measureOf(guilty)}));
    guilty->rememberFormula(sumOf({measureOf(chest)}));
    script.moves[free] = {chart("Chart")};
    script.moves[bare] = {chest};
    script.moves[guilty] = {chest};

    EXPECT_TEXT(order(), "Bare.m | (none) culprit Guilty");
}

TEST_F(Order, cycleOfASegmentWithoutPieceEnds)
{
    ScriptedSegment *const seam = scriptedSegment("Seam");
    seam->rememberFormula(constant(10));
    script.moves[seam] = {seam};

    set()->calculateOrderEvaluation(); // has no control object to lose
    EXPECT_FALSE(set()->isOrderEvaluation());
    EXPECT_FALSE(set()->reevaluate(Reevaluate_Ask));
}

TEST_F(Order, segmentListedTwiceIsPlacedTwice)
{
    FrameSegment *const seam = segment("Seam");
    FrameSegment *const lost = segment("Lost");
    FrameFrame *const chest = frame("Chest");
    chest->setFormulaMeasurement(sumOf({measureOf(seam)}));
    set()->ChangeFrameSegments({0, 0});

    EXPECT_TEXT(order(), "Chest.l Seam.m Seam.m | Chest.m");
    delete lost;
}

TEST_F(Order, orderFollowsTheListsOfTheSet)
{
    FrameLink *const follows = link("Link", {frame("A"), frame("B")});
    follows->setFormulaMeasurement(constant(30));
    EXPECT_TEXT(order(), "A.m A.l B.l Link.m | B.m Link.l");

    set()->ChangeFrameFrames({1, 0}, QStringLiteral("Center"));
    EXPECT_TEXT(order(), "B.m B.l A.l Link.m | A.m Link.l");
}

TEST_F(Order, orderIsTheSameEachTime)
{
    FrameLink *const follows = link("Link", {frame("A"), frame("B"), frame("C")});
    follows->setFormulaMeasurement(sumOf({measureOf(segment("Seam"))}));

    const QString once = order();
    EXPECT_TEXT(order(), once.toStdString());
}

TEST_F(Order, copyStartsWithoutRounds)
{
    frame("A");
    ASSERT_FALSE(order().isEmpty());

    const OrderEvaluation copy(evaluation);
    EXPECT_TRUE(copy.rounds().isEmpty());
    OrderEvaluation assigned;
    FrameSegment *culprit = nullptr;
    ASSERT_TRUE(assigned.calculateOrder(set(), culprit));
    assigned = evaluation;
    EXPECT_TRUE(assigned.rounds().isEmpty());
    EXPECT_FALSE(evaluation.rounds().isEmpty());
}

TEST_F(Order, nullSetIsTheCallersMistake)
{
    FrameSegment *culprit = nullptr;
    try {
        evaluation.calculateOrder(nullptr, culprit);
        FAIL() << "no exception";
    } catch (const AssertionError &error) {
        EXPECT_STREQ(error.what(), "Invalid Operation");
        const char *const *const file = boost::get_error_info<boost::throw_file>(error);
        ASSERT_NE(file, nullptr);
        EXPECT_STREQ(*file, R"(src\Frames\VORFrames)");
        const char *const *const function = boost::get_error_info<boost::throw_function>(error);
        ASSERT_NE(function, nullptr);
        EXPECT_NE(std::string(*function).find("calculateOrder"), std::string::npos);
        EXPECT_NE(boost::get_error_info<boost::throw_line>(error), nullptr);
    }
}

TEST_F(Order, elementWithoutASetCannotBeAskedWhoMovesIt)
{
    FrameFrame lonely(QStringLiteral("Lonely"));
    QListEx<Evaluation> list;

    EXPECT_THROW(lonely.evaluationInfluencesGeometrically(list), AssertionError);
    EXPECT_THROW(lonely.evaluationsInfluencedGeometrically(list), AssertionError);
    EXPECT_THROW(set()->accumulateEvaluationsInfluencesGeometrically(nullptr, list), AssertionError);
    EXPECT_THROW(set()->accumulateEvaluationsInfluencedGeometrically(nullptr, list), AssertionError);
}

TEST_F(Order, frameWithoutACenterCannotBeOrdered)
{
    FrameFrame *const chest = frame("Chest");
    chest->setFrameCenter(nullptr);
    FrameSegment *culprit = nullptr;

    EXPECT_THROW(evaluation.calculateOrder(set(), culprit), AssertionError);
    EXPECT_TRUE(evaluation.rounds().isEmpty());
    chest->setFrameCenter(center());
}

// What a change touches
// ------------------------------------------------------------------------------------------------------------

class Under : public Order
{
public:
    QStringList callsUnder(BaseFrame *start, bool measure, bool level)
    {
        order();
        script.calls.clear();
        changed = evaluation.reevaluateUnder(start, measure, level, Reevaluate_Store);
        return script.calls;
    }

    bool changed = false;
};

TEST_F(Under, nothingHangsOnIt)
{
    ScriptedFrame *const chest = scriptedFrame("Chest");
    scriptedFrame("Waist");

    EXPECT_TRUE(callsUnder(chest, true, true).isEmpty());
    EXPECT_FALSE(changed);
}

TEST_F(Under, neitherMeasureNorLevel)
{
    ScriptedFrame *const chest = scriptedFrame("Chest");
    scriptedFrame("Waist")->setFormulaMeasurement(sumOf({measureOf(chest)}));

    EXPECT_TRUE(callsUnder(chest, false, false).isEmpty());
    EXPECT_FALSE(changed);
}

TEST_F(Under, changeRunsDownAChain)
{
    ScriptedFrame *const first = scriptedFrame("A");
    ScriptedFrame *const second = scriptedFrame("B");
    ScriptedFrame *const third = scriptedFrame("C");
    second->setFormulaMeasurement(sumOf({measureOf(first)}));
    third->setFormulaLevel(sumOf({measureOf(second)}));

    EXPECT_TEXT(callsUnder(first, true, false).join(QStringLiteral(", ")), "B.1 mode 0, C.2 mode 0");
    EXPECT_TRUE(changed);
    EXPECT_TRUE(callsUnder(first, false, true).isEmpty());
}

TEST_F(Under, linkStandsForItselfAlone)
{
    ScriptedFrame *const chest = scriptedFrame("Chest");
    ScriptedFrame *const reader = scriptedFrame("Reader");
    FrameLink *const summed = scriptedLink("Link", {chest});
    reader->setFormulaMeasurement(sumOf({measureOf(summed)}));

    // The reader names the link, not its frames, and stands in the same round as the link, ahead of it.
    EXPECT_TEXT(callsUnder(chest, true, false).join(QStringLiteral(", ")), "Link.1 mode 0");
    EXPECT_TEXT(callsUnder(summed, true, false).join(QStringLiteral(", ")), "Reader.1 mode 0");
}

TEST_F(Under, whoIsMovedIsTouched)
{
    ScriptedFrame *const moved = scriptedFrame("Moved");
    ScriptedSegment *const seam = scriptedSegment("Seam");
    script.moves[seam] = {moved};

    EXPECT_TEXT(callsUnder(seam, true, false).join(QStringLiteral(", ")), "Moved.1 mode 0, Moved.2 mode 0");
}

} // namespace

} // namespace VorSystem
