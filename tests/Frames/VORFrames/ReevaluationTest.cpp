// Reevaluation: what is stored, what is pushed into the geometry and what is only told.

#include "OrderWorld.h"

#include <boost/exception/get_error_info.hpp>
#include <gtest/gtest.h>

#include <limits>

namespace VorSystem
{

namespace
{

// Five sizes, the second of them the nest; no pieces.
class Reevaluate : public testing::Test, public OrderWorld
{
public:
    Reevaluate() { setGradation(5, 2); }

    static void store(BaseFrame *element, std::initializer_list<double> values, short nest)
    {
        element->getMeasureBySizes()->mValues = doubles(values);
        element->getMeasureBySizes()->mNestIndex = nest;
    }
    static QString measures(BaseFrame *element) { return str(*element->getMeasureBySizes()); }
    static QString levels(BaseFrame *element) { return str(*element->getLevelBySizes()); }
};

#define EXPECT_TEXT(actual, expected) EXPECT_EQ((actual).toStdString(), std::string(expected))

constexpr eFrameReevaluate kModes[] = {Reevaluate_Store, Reevaluate_Apply, Reevaluate_Ask};

// One value of one element
// ------------------------------------------------------------------------------------------------------------

TEST_F(Reevaluate, formulaFillsAFreshList)
{
    FrameFrame *const chest = frame("Chest");
    chest->setFormulaMeasurement(constant(12));

    EXPECT_TRUE(chest->reevaluateElement(Evaluation_Measure, Reevaluate_Ask));
    EXPECT_TEXT(measures(chest), "");
    EXPECT_TRUE(chest->reevaluateElement(Evaluation_Measure, Reevaluate_Store));
    EXPECT_TEXT(measures(chest), "12 [12] 12 12 12");
    EXPECT_FALSE(chest->reevaluateElement(Evaluation_Measure, Reevaluate_Store));
}

TEST_F(Reevaluate, modeOnePushesAFreshListThroughTheElement)
{
    ScriptedFrame *const chest = scriptedFrame("Chest");
    chest->setFormulaMeasurement(constant(12));

    EXPECT_TRUE(chest->reevaluateElement(Evaluation_Measure, Reevaluate_Apply));
    EXPECT_EQ(chest->applied, 1);
    EXPECT_TEXT(measures(chest), "12 [12] 12 12 12"); // without a piece the element stores what it is given
}

TEST_F(Reevaluate, undefinedElementWithoutFormulaKeepsWhatItHas)
{
    for (eFrameReevaluate mode : kModes) {
        FrameFrame *const chest = frame(("Chest" + QByteArray::number(int(mode))).constData());
        store(chest, {1, 2, 3}, 2);
        EXPECT_FALSE(chest->reevaluateElement(Evaluation_Measure, mode));
        EXPECT_TEXT(measures(chest), "1 2 [3]");
    }
}

TEST_F(Reevaluate, undefinedElementWithoutFormulaGetsZerosWhereItHasNothing)
{
    FrameFrame *const chest = frame("Chest");

    EXPECT_FALSE(chest->reevaluateElement(Evaluation_Level, Reevaluate_Ask));
    EXPECT_TEXT(levels(chest), "");
    EXPECT_FALSE(chest->reevaluateElement(Evaluation_Level, Reevaluate_Store));
    EXPECT_TEXT(levels(chest), "0 [0] 0 0 0");
}

TEST_F(Reevaluate, withoutNestAnEmptyListThatCannotBeEvaluatedStaysEmpty)
{
    setGradation(5, 0);
    FrameFrame *const chest = frame("Chest");

    EXPECT_FALSE(chest->reevaluateElement(Evaluation_Measure, Reevaluate_Store));
    EXPECT_TEXT(measures(chest), "");
}

TEST_F(Reevaluate, withoutNestOneValueIsBroughtIntoLine)
{
    setGradation(5, 0);
    FrameFrame *const chest = frame("Chest");
    chest->setFormulaMeasurement(constant(12));

    EXPECT_TRUE(chest->reevaluateElement(Evaluation_Measure, Reevaluate_Store));
    EXPECT_TEXT(measures(chest), "[12]");
    store(chest, {11}, 0);
    EXPECT_TRUE(chest->reevaluateElement(Evaluation_Measure, Reevaluate_Store));
    EXPECT_TEXT(measures(chest), "[12]");
    EXPECT_FALSE(chest->reevaluateElement(Evaluation_Measure, Reevaluate_Store));
}

TEST_F(Reevaluate, withoutNestTwoValuesAreLeftAlone)
{
    setGradation(5, 0);
    FrameFrame *const chest = frame("Chest");
    chest->setFormulaMeasurement(constant(12));
    store(chest, {1, 2}, 1);

    for (eFrameReevaluate mode : {Reevaluate_Ask, Reevaluate_Apply}) {
        EXPECT_FALSE(chest->reevaluateElement(Evaluation_Measure, mode));
        EXPECT_TEXT(measures(chest), "1 [2]");
    }
    EXPECT_FALSE(chest->reevaluateElement(Evaluation_Measure, Reevaluate_Store));
    EXPECT_TEXT(measures(chest), "[1] 2"); // the values; the nest goes with the gradation
}

TEST_F(Reevaluate, listOfAnotherLengthKeepsItsValuesAndTakesTheNest)
{
    FrameFrame *const chest = frame("Chest");
    chest->setFormulaMeasurement(constant(12));
    store(chest, {1, 2, 3}, 0);

    EXPECT_FALSE(chest->reevaluateElement(Evaluation_Measure, Reevaluate_Ask));
    EXPECT_TEXT(measures(chest), "[1] 2 3");
    EXPECT_FALSE(chest->reevaluateElement(Evaluation_Measure, Reevaluate_Store));
    EXPECT_TEXT(measures(chest), "1 [2] 3");
}

TEST_F(Reevaluate, differenceOfTheZeroTestIsNoChangeAndIsStoredAllTheSame)
{
    setGradation(1, 1);
    ScriptedFrame *const chest = scriptedFrame("Chest");
    chest->setFormulaMeasurement(constant(0.00001));
    store(chest, {0.0}, 0);

    EXPECT_FALSE(chest->reevaluateElement(Evaluation_Measure, Reevaluate_Ask));
    EXPECT_FALSE(chest->reevaluateElement(Evaluation_Measure, Reevaluate_Apply));
    EXPECT_EQ(chest->applied, 0);
    EXPECT_TEXT(measures(chest), "[0]");
    EXPECT_FALSE(chest->reevaluateElement(Evaluation_Measure, Reevaluate_Store));
    EXPECT_TEXT(measures(chest), "[1e-05]");
}

TEST_F(Reevaluate, differenceJustAboveTheZeroTestIsAChange)
{
    setGradation(1, 1);
    ScriptedFrame *const chest = scriptedFrame("Chest");
    chest->setFormulaMeasurement(constant(0.0000101));
    store(chest, {0.0}, 0);

    EXPECT_TRUE(chest->reevaluateElement(Evaluation_Measure, Reevaluate_Apply));
    EXPECT_EQ(chest->applied, 1);
}

TEST_F(Reevaluate, valueThatIsNotANumberIsAlwaysAChange)
{
    setGradation(1, 1);
    FrameFrame *const chest = frame("Chest");
    chest->setFormulaMeasurement(constant(std::numeric_limits<double>::quiet_NaN()));

    EXPECT_TRUE(chest->reevaluateElement(Evaluation_Measure, Reevaluate_Store));
    EXPECT_TRUE(chest->reevaluateElement(Evaluation_Measure, Reevaluate_Store));
}

TEST_F(Reevaluate, dryRunTakesTheStoredValuesFromThePieceAndLeavesOutTheFormula)
{
    ScriptedFrame *const chest = scriptedFrame("Chest");
    chest->setFormulaMeasurement(constant(12));
    chest->shown = doubles({1, 2, 3, 4, 5});
    store(chest, {12, 12, 12, 12, 12}, 1);

    EXPECT_TRUE(chest->reevaluateElement(Evaluation_Measure, Reevaluate_Ask));
    EXPECT_TEXT(measures(chest), "1 [2] 3 4 5");
}

TEST_F(Reevaluate, storingDoesNotReadThePieceWhereAFormulaStands)
{
    ScriptedFrame *const chest = scriptedFrame("Chest");
    chest->setFormulaMeasurement(constant(12));
    chest->shown = doubles({1, 2, 3, 4, 5});
    store(chest, {12, 12, 12, 12, 12}, 1);

    EXPECT_FALSE(chest->reevaluateElement(Evaluation_Measure, Reevaluate_Store));
}

TEST_F(Reevaluate, answerIsTrueAlsoWhenThePieceDoesNotObey)
{
    ScriptedFrame *const chest = scriptedFrame("Chest");
    chest->setFormulaMeasurement(constant(12));
    script.onApply = [](BaseFrame *, eEvaluationType) {}; // answers that it failed

    EXPECT_TRUE(chest->reevaluateElement(Evaluation_Measure, Reevaluate_Apply));
    EXPECT_TEXT(measures(chest), ""); // and nothing is stored here
}

TEST_F(Reevaluate, formulaMayBeDroppedWhileItsValueIsPushed)
{
    ScriptedFrame *const chest = scriptedFrame("Chest");
    chest->setFormulaMeasurement(constant(12));
    script.onApply = [](BaseFrame *element, eEvaluationType) { element->setFormulaMeasurement(nullptr); };

    EXPECT_TRUE(chest->reevaluateElement(Evaluation_Measure, Reevaluate_Apply));
    EXPECT_EQ(chest->measurementFormula(), nullptr);
}

TEST_F(Reevaluate, missingGradationIsReportedBeforeAnythingElse)
{
    FrameSegment *const seam = segment("Seam");
    document().gradation = nullptr;

    for (eFrameReevaluate mode : kModes) {
        try {
            seam->reevaluateElement(Evaluation_Level, mode); // a segment has no levels
            FAIL() << "no exception";
        } catch (const AssertionError &error) {
            const char *const *const file = boost::get_error_info<boost::throw_file>(error);
            ASSERT_NE(file, nullptr);
            EXPECT_STREQ(*file, R"(src\Frames\VORFrames)");
        }
        EXPECT_THROW(set()->reevaluate(mode), AssertionError);
    }
    FrameFrame lonely(QStringLiteral("Lonely"));
    EXPECT_THROW(lonely.reevaluate(Reevaluate_Store), AssertionError);
}

TEST_F(Reevaluate, elementWithoutTheListAnswersFalse)
{
    EXPECT_FALSE(segment("Seam")->reevaluateElement(Evaluation_Level, Reevaluate_Store));
    EXPECT_FALSE(chart("Chart")->reevaluateElement(Evaluation_Level, Reevaluate_Store));
}

TEST_F(Reevaluate, measureAndLevelAreBothReevaluated)
{
    FrameFrame *const chest = frame("Chest");
    chest->setFormulaMeasurement(constant(12));
    chest->setFormulaLevel(constant(3));

    EXPECT_TRUE(chest->reevaluate(Reevaluate_Store));
    EXPECT_TEXT(measures(chest), "12 [12] 12 12 12");
    EXPECT_TEXT(levels(chest), "3 [3] 3 3 3");
}

TEST_F(Reevaluate, objectIsReadIntoTheStoredList)
{
    ScriptedFrame *const chest = scriptedFrame("Chest");
    store(chest, {9, 9}, 0);
    chest->reevaluateElementObject(Evaluation_Measure);
    EXPECT_TEXT(measures(chest), "[9] 9"); // nothing to read

    chest->shown = doubles({1, 2, 3, 4, 5});
    chest->reevaluateElementObject(Evaluation_Measure);
    EXPECT_TEXT(measures(chest), "1 [2] 3 4 5");

    setGradation(5, 0);
    chest->reevaluateElementObject(Evaluation_Measure);
    EXPECT_TEXT(measures(chest), "[1] 2 3 4 5"); // longer than one: only the nest
    store(chest, {9}, 0);
    chest->reevaluateElementObject(Evaluation_Measure);
    EXPECT_TEXT(measures(chest), "[1]");
    segment("Seam")->reevaluateElementObject(Evaluation_Level);
}

// A whole set
// ------------------------------------------------------------------------------------------------------------

TEST_F(Reevaluate, chartDrivesFramesAndAChainInOneCall)
{
    FrameFrame *const last = frame("Last");
    FrameFrame *const middle = frame("Middle");
    FrameMeasurementChart *const typed = chart("Typed");
    store(typed, {88, 92, 96, 100, 104}, 1);
    middle->setFormulaMeasurement(sumOf({measureOf(typed), measureOf(typed)}));
    last->setFormulaMeasurement(sumOf({measureOf(middle), measureOf(typed)}));

    EXPECT_TRUE(set()->reevaluate(Reevaluate_Store));
    EXPECT_TEXT(measures(middle), "176 [184] 192 200 208");
    EXPECT_TEXT(measures(last), "264 [276] 288 300 312");
    EXPECT_FALSE(set()->reevaluate(Reevaluate_Store));
}

TEST_F(Reevaluate, dryRunOfAChainSeesItsFirstLinkOnly)
{
    FrameMeasurementChart *const typed = chart("Typed");
    FrameFrame *const first = frame("A");
    FrameFrame *const second = frame("B");
    first->setFormulaMeasurement(sumOf({measureOf(typed)}));
    second->setFormulaMeasurement(sumOf({measureOf(first)}));
    store(typed, {1, 1, 1, 1, 1}, 1);
    ASSERT_TRUE(set()->reevaluate(Reevaluate_Store));
    store(typed, {2, 2, 2, 2, 2}, 1);

    EXPECT_TRUE(set()->reevaluate(Reevaluate_Ask));
    EXPECT_FALSE(second->reevaluateElement(Evaluation_Measure, Reevaluate_Ask));
    EXPECT_TEXT(measures(first), "1 [1] 1 1 1");
}

TEST_F(Reevaluate, specsAndChartsAreStoredInModeOneAlone)
{
    FrameSpec *const doubled = spec("Doubled");
    FrameMeasurementChart *const tripled = chart("Tripled");
    doubled->setFormulaSpec(constant(2));
    tripled->setFormulaMeasurementChart(constant(3));

    for (eFrameReevaluate mode : {Reevaluate_Ask, Reevaluate_Store}) {
        EXPECT_TRUE(set()->reevaluate(mode));
        EXPECT_TEXT(measures(doubled), "");
    }
    EXPECT_TRUE(set()->reevaluate(Reevaluate_Apply));
    EXPECT_TEXT(measures(doubled), "2 [2] 2 2 2");
    EXPECT_TEXT(measures(tripled), "3 [3] 3 3 3");
    EXPECT_FALSE(set()->reevaluate(Reevaluate_Store));
}

TEST_F(Reevaluate, orderVisitsAChartTooAndStoresItsNestThere)
{
    FrameMeasurementChart *const typed = chart("Typed");

    EXPECT_FALSE(typed->reevaluateElement(Evaluation_Measure, Reevaluate_Store));
    EXPECT_TEXT(measures(typed), "0 [0] 0 0 0");
    setGradation(5, 4);
    set()->reevaluate(Reevaluate_Store);
    EXPECT_TEXT(measures(typed), "0 0 0 [0] 0");
}

TEST_F(Reevaluate, emptySetNeedsNoDocumentAndASpecDoes)
{
    manager().setDocument(nullptr);
    for (eFrameReevaluate mode : kModes)
        EXPECT_FALSE(set()->reevaluate(mode));

    spec("Spec");
    EXPECT_THROW(set()->reevaluate(Reevaluate_Store), AssertionError);
}

TEST_F(Reevaluate, noneIsSkippedBecauseAnotherChanged)
{
    ScriptedFrame *const first = scriptedFrame("A");
    ScriptedFrame *const second = scriptedFrame("B");
    first->setFormulaMeasurement(constant(1));
    second->setFormulaMeasurement(constant(2));

    EXPECT_TRUE(set()->revalued(Reevaluate_Store));
    EXPECT_TEXT(script.calls.join(QStringLiteral(", ")), "A.1 mode 0, A.2 mode 0, B.1 mode 0, B.2 mode 0");
    EXPECT_TEXT(measures(second), "2 [2] 2 2 2");
}

TEST_F(Reevaluate, deadlockedValuesAreNotEvaluated)
{
    FrameFrame *const first = frame("A");
    FrameFrame *const second = frame("B");
    first->setFormulaMeasurement(sumOf({measureOf(second)}));
    second->setFormulaMeasurement(sumOf({measureOf(first)}));

    EXPECT_FALSE(set()->reevaluate(Reevaluate_Store));
    EXPECT_TEXT(measures(first), "");
}

// Under an element
// ------------------------------------------------------------------------------------------------------------

TEST_F(Reevaluate, underACenterASetOrAChartIsTheCallersMistake)
{
    for (BaseFrame *element : QList<BaseFrame *>{center(), set(), chart("Chart"), nullptr})
        EXPECT_THROW(set()->reevaluateUnder(element, Reevaluate_Store), AssertionError);
}

TEST_F(Reevaluate, underIsFalseForAnythingButASet)
{
    EXPECT_FALSE(frame("Chest")->reevaluateUnder(frame("Waist"), Reevaluate_Apply));
}

// Elements that say when they are asked: "name:mode" as a whole, "name.type:mode" by the order.
class ToldSpec : public FrameSpec
{
public:
    ToldSpec(const QString &specName, QStringList *calls) : FrameSpec(specName), mCalls(calls) {}
    bool reevaluate(eFrameReevaluate mode) override
    {
        *mCalls << QStringLiteral("%1:%2").arg(name()).arg(int(mode));
        return true;
    }

private:
    QStringList *mCalls;
};

class ToldChart : public FrameMeasurementChart
{
public:
    ToldChart(const QString &chartName, QStringList *calls) : FrameMeasurementChart(chartName), mCalls(calls)
    {
    }
    bool reevaluate(eFrameReevaluate mode) override
    {
        *mCalls << QStringLiteral("%1:%2").arg(name()).arg(int(mode));
        return false;
    }
    bool reevaluateElement(eEvaluationType type, eFrameReevaluate mode) override
    {
        *mCalls << QStringLiteral("%1.%2:%3").arg(name()).arg(int(type)).arg(int(mode));
        return false;
    }

private:
    QStringList *mCalls;
};

void addToldElements(FrameSet &set, QStringList &calls)
{
    for (const char *name : {"C1", "C2"})
        set.addMeasurementChart(new ToldChart(QLatin1String(name), &calls), -1);
    for (const char *name : {"S1", "S2"})
        set.addSpec(new ToldSpec(QLatin1String(name), &calls), -1);
}

TEST_F(Reevaluate, underASpecRunsTheSpecInModeZeroWhateverTheModeAndNothingElse)
{
    QStringList calls;
    addToldElements(*set(), calls);

    for (eFrameReevaluate mode : kModes) {
        calls.clear();
        EXPECT_TRUE(set()->reevaluateUnder(set()->getFrameSpecs().at(1), mode));
        EXPECT_TEXT(calls.join(QLatin1Char(' ')), "S2:0");
    }
}

TEST_F(Reevaluate, underAFrameRunsSpecsAndChartsInModeZeroWhateverTheMode)
{
    QStringList calls;
    addToldElements(*set(), calls);
    FrameFrame *const chest = frame("Chest");

    for (eFrameReevaluate mode : kModes) {
        calls.clear();
        EXPECT_TRUE(set()->reevaluateUnder(chest, mode));
        EXPECT_TEXT(calls.join(QLatin1Char(' ')), "S1:0 S2:0 C1:0 C2:0");
    }
}

TEST_F(Reevaluate, specsAndThenChartsFollowTheOrderAndNoneIsSkipped)
{
    QStringList calls;
    addToldElements(*set(), calls);

    EXPECT_TRUE(set()->reevaluate(Reevaluate_Apply));
    EXPECT_TEXT(calls.join(QLatin1Char(' ')), "C1.1:1 C1.2:1 C2.1:1 C2.2:1 S1:1 S2:1 C1:1 C2:1");
}

TEST_F(Reevaluate, underALinkTouchesWhatNamesItInEitherKindOfValue)
{
    ScriptedFrame *const byMeasure = scriptedFrame("A");
    ScriptedFrame *const byLevel = scriptedFrame("B");
    FrameLink *const summed = link("Link");
    byMeasure->setFormulaMeasurement(sumOf({measureOf(summed)}));
    byLevel->setFormulaMeasurement(sumOf({levelOf(summed)}));

    set()->reevaluateUnder(summed, Reevaluate_Store);
    EXPECT_TEXT(script.calls.join(QStringLiteral(", ")), "A.1 mode 0, B.1 mode 0");
}

TEST_F(Reevaluate, underASegmentFollowsItsMeasureAlone)
{
    FrameSegment *const seam = segment("Seam");
    scriptedFrame("A")->setFormulaMeasurement(sumOf({levelOf(seam)}));
    scriptedFrame("B")->setFormulaMeasurement(sumOf({measureOf(seam)}));
    store(seam, {1, 1, 1, 1, 1}, 1);

    set()->reevaluateUnder(seam, Reevaluate_Store);
    EXPECT_TEXT(script.calls.join(QStringLiteral(", ")), "B.1 mode 0");
}

// The host calls back
// ------------------------------------------------------------------------------------------------------------

TEST_F(Reevaluate, hostMayReevaluateTheSetWhileItIsBeingReevaluated)
{
    QList<ScriptedFrame *> frames;
    for (int i = 0; i < 20; ++i) {
        frames << scriptedFrame(("F" + QByteArray::number(i)).constData());
        frames.last()->setFormulaMeasurement(i == 0 ? constant(7) : sumOf({measureOf(frames.at(i - 1))}));
    }
    int depth = 0;
    script.onApply = [&](BaseFrame *element, eEvaluationType) {
        element->getMeasureBySizes()->mValues = doubles({7, 7, 7, 7, 7});
        if (++depth < 5)
            set()->reevaluate(Reevaluate_Apply);
        --depth;
    };

    EXPECT_TRUE(set()->reevaluate(Reevaluate_Apply));
    EXPECT_TEXT(measures(frames.last()), "[7] 7 7 7 7");
}

TEST_F(Reevaluate, hostMayDeleteAnElementThatIsStillToCome)
{
    ScriptedFrame *const first = scriptedFrame("A");
    ScriptedFrame *doomed = scriptedFrame("B");
    ScriptedFrame *const last = scriptedFrame("C");
    for (ScriptedFrame *frame : {first, doomed, last})
        frame->setFormulaMeasurement(constant(7));
    script.onApply = [&](BaseFrame *, eEvaluationType) {
        delete doomed;
        doomed = nullptr;
    };

    EXPECT_TRUE(set()->reevaluate(Reevaluate_Apply));
    EXPECT_EQ(last->applied, 1);
    EXPECT_FALSE(script.calls.contains(QStringLiteral("B.1 mode 1")));

    // The same under an element.
    doomed = scriptedFrame("D");
    doomed->setFormulaMeasurement(sumOf({measureOf(first)}));
    last->setFormulaMeasurement(sumOf({measureOf(first)}));
    set()->ChangeFrameFrames({0, 1, 2}, QStringLiteral("Center"));
    store(first, {1, 1, 1, 1, 1}, 1);
    EXPECT_TRUE(set()->reevaluateUnder(first, Reevaluate_Apply));
    EXPECT_EQ(doomed, nullptr);
}

// Shape of the lists
// ------------------------------------------------------------------------------------------------------------

TEST_F(Reevaluate, listsOfAllElementsTakeTheShapeOfTheGradation)
{
    FrameFrame *const chest = frame("Chest");
    FrameLink *const summed = link("Link");
    FrameSegment *const seam = segment("Seam");
    FrameSpec *const made = spec("Spec");
    FrameMeasurementChart *const typed = chart("Chart");
    store(chest, {10, 12}, 0);
    store(typed, {1, 2, 3, 4, 5, 6, 7}, 3);

    set()->adjustMeasuresLevels();
    EXPECT_TEXT(measures(chest), "10 [10] 12 14 16");
    EXPECT_TEXT(levels(chest), "0 [0] 0 0 0");
    EXPECT_TEXT(measures(summed), "0 [0] 0 0 0");
    EXPECT_TEXT(measures(seam), "0 [0] 0 0 0");
    EXPECT_TEXT(measures(made), "0 [0] 0 0 0");
    EXPECT_TEXT(measures(typed), "3 [4] 5 6 7");
}

TEST_F(Reevaluate, withoutNestEveryListKeepsOneValue)
{
    FrameFrame *const chest = frame("Chest");
    store(chest, {10, 12, 14}, 1);
    setGradation(5, 0);
    set()->adjustMeasuresLevels();
    EXPECT_TEXT(measures(chest), "[12]");
    EXPECT_TEXT(levels(chest), "[0]");

    // No gradation, or no document, counts as no nest.
    store(chest, {10, 12, 14}, 2);
    document().gradation = nullptr;
    set()->adjustMeasuresLevels();
    EXPECT_TEXT(measures(chest), "[14]");
    store(chest, {10, 12, 14}, 0);
    manager().setDocument(nullptr);
    set()->adjustMeasuresLevels();
    EXPECT_TEXT(measures(chest), "[10]");
}

} // namespace

} // namespace VorSystem
