// Specs and charts: values without geometry.

#include <support/ControlledPiece.h>
#include <support/TestDocument.h>

#include <gtest/gtest.h>

using namespace VorSystem;
using support::formula;
using support::name;
using support::text;

namespace
{

class Computed : public testing::Test
{
protected:
    support::RecordingApplication application;
    support::TestDocument document{3, 2};
    FrameSet *set = document.newSet();
    FrameSpec *spec = set->newSpec(name("P"));
    FrameMeasurementChart *chart = set->newMeasurementChart(name("H"));
};

TEST_F(Computed, haveMeasuresAndNoPlace)
{
    EXPECT_EQ(spec->elementType(), 6);
    EXPECT_EQ(chart->elementType(), 7);
    for (BaseFrame *element : {static_cast<BaseFrame *>(spec), static_cast<BaseFrame *>(chart)}) {
        EXPECT_NE(element->getMeasureBySizes(), nullptr);
        EXPECT_EQ(element->getLevelBySizes(), nullptr);
        EXPECT_EQ(element->objectControlCorresponding(), nullptr);
        EXPECT_FALSE(element->measurementFormulaAvailable());
        EXPECT_TRUE(element->canBeDestroyed(true) && element->canBeDestroyedInBatch());
        QListEx<double> values{1.0};
        EXPECT_FALSE(element->evaluateMeasuresObject(nullptr, values));
    }
    const double value = 1.0;
    EXPECT_FALSE(spec->applyValues(&value, static_cast<const double *>(nullptr), nullptr));
    EXPECT_TRUE(application.mMessages.isEmpty());
}

TEST_F(Computed, keepTheirFormulasBehindDifferentDoors)
{
    TreeEquations *const first = formula("1", set);
    spec->setFormulaSpec(first);
    spec->setFormulaSpec(first);
    EXPECT_EQ(spec->formulaSpec(), first);
    spec->setFormulaSpec(formula("2", set));
    spec->setFormulaSpec(nullptr);
    EXPECT_EQ(spec->formulaSpec(), nullptr);

    TreeEquations *const second = formula("1", set);
    chart->setFormulaMeasurementChart(second);
    chart->setFormulaMeasurementChart(second);
    EXPECT_EQ(chart->formulaMeasurementChart(), second);
    EXPECT_EQ(chart->formulaSpec(), nullptr);
    EXPECT_EQ(chart->measurementFormula(), nullptr); // the virtual accessors do not see it
    TreeEquations refused;
    chart->setFormulaSpec(&refused);
    chart->setFormulaMeasurement(&refused);
    EXPECT_EQ(chart->formulaSpec(), nullptr);
    chart->setFormulaMeasurementChart(nullptr);
    EXPECT_EQ(chart->formulaMeasurementChart(), nullptr);
}

TEST_F(Computed, aSpecWithoutAFormulaIsZeroInEverySizeAndDefined)
{
    double value = 7.0;
    EXPECT_TRUE(spec->evaluatesSpec(5, value));
    EXPECT_EQ(value, 0.0);
    EXPECT_TRUE(spec->reevaluate(Reevaluate_Apply));
    EXPECT_EQ(text(*spec->getMeasureBySizes()), "0 [0] 0");
    EXPECT_TRUE(spec->isDefinedInDocument());
}

TEST_F(Computed, onlyModeOneStores)
{
    spec->setFormulaSpec(formula("5", set));
    chart->setFormulaMeasurementChart(formula("6", set));
    for (BaseFrame *element : {static_cast<BaseFrame *>(spec), static_cast<BaseFrame *>(chart)}) {
        EXPECT_TRUE(element->reevaluate(Reevaluate_Store)); // it would change
        EXPECT_TRUE(element->reevaluate(Reevaluate_Ask));
        EXPECT_TRUE(element->getMeasureBySizes()->mValues.isEmpty());
        EXPECT_TRUE(element->reevaluate(Reevaluate_Apply));
        EXPECT_FALSE(element->reevaluate(Reevaluate_Apply));
    }
    EXPECT_EQ(text(*spec->getMeasureBySizes()), "5 [5] 5");
    EXPECT_EQ(text(*chart->getMeasureBySizes()), "6 [6] 6");
}

TEST_F(Computed, aListOfAnotherCountIsRebuiltAndCountsAsChanged)
{
    document.setSizes(5, 3);
    chart->setFormulaMeasurementChart(formula("4", set));
    *chart->getMeasureBySizes() = support::sizes({4, 4, 4}, 1);
    EXPECT_TRUE(chart->reevaluate(Reevaluate_Apply));
    EXPECT_EQ(text(*chart->getMeasureBySizes()), "4 4 [4] 4 4");
}

TEST_F(Computed, aChangeOfTheNestAloneIsNoneAndIsStoredInModeOneOnly)
{
    spec->setFormulaSpec(formula("4", set));
    *spec->getMeasureBySizes() = support::sizes({4, 4, 4}, 0);
    EXPECT_FALSE(spec->reevaluate(Reevaluate_Store));
    EXPECT_EQ(text(*spec->getMeasureBySizes()), "[4] 4 4");
    EXPECT_FALSE(spec->reevaluate(Reevaluate_Apply));
    EXPECT_EQ(text(*spec->getMeasureBySizes()), "4 [4] 4");
}

TEST_F(Computed, aDifferenceThatCountsAsZeroIsNoChange)
{
    *spec->getMeasureBySizes() = support::sizes({0.00001, 0, 0}, 1);
    EXPECT_FALSE(spec->reevaluate(Reevaluate_Ask));
    *spec->getMeasureBySizes() = support::sizes({0.000011, 0, 0}, 1);
    EXPECT_TRUE(spec->reevaluate(Reevaluate_Ask));
}

TEST_F(Computed, withoutANestThereIsOneValue)
{
    document.setSizes(0, 0);
    spec->setFormulaSpec(formula("4", set));
    EXPECT_TRUE(spec->reevaluate(Reevaluate_Apply));
    EXPECT_EQ(text(*spec->getMeasureBySizes()), "[4]");
    *spec->getMeasureBySizes() = support::sizes({4, 9, 9}, 2);
    EXPECT_FALSE(spec->reevaluate(Reevaluate_Apply)); // only the first value is compared
    EXPECT_EQ(text(*spec->getMeasureBySizes()), "[4]");
}

TEST_F(Computed, withoutAGradationTheyRaise)
{
    document.mHasGradation = false;
    EXPECT_THROW(spec->reevaluate(Reevaluate_Ask), AssertionError);
    EXPECT_THROW(chart->reevaluate(Reevaluate_Ask), AssertionError);
    FrameSpec lonely(name("X"));
    EXPECT_THROW(lonely.reevaluate(Reevaluate_Ask), AssertionError);
}

TEST_F(Computed, aTypedChartKeepsWhatItHoldsAndReadsZeroWhereItHoldsNothing)
{
    EXPECT_TRUE(chart->reevaluate(Reevaluate_Apply)); // fresh from the set
    EXPECT_EQ(text(*chart->getMeasureBySizes()), "0 [0] 0");
    *chart->getMeasureBySizes() = support::sizes({80, 84, 88}, 1);
    EXPECT_FALSE(chart->reevaluate(Reevaluate_Apply));
    document.setSizes(5, 2); // two sizes more
    EXPECT_TRUE(chart->reevaluate(Reevaluate_Apply));
    EXPECT_EQ(text(*chart->getMeasureBySizes()), "80 [84] 88 0 0");
    document.setSizes(0, 0);
    EXPECT_TRUE(chart->reevaluate(Reevaluate_Apply)); // the stored nest takes the place of the first value
    EXPECT_EQ(text(*chart->getMeasureBySizes()), "[84]");
}

TEST_F(Computed, aChartWithoutFormulaIsReadAtItsStoredSizeAlone)
{
    *chart->getMeasureBySizes() = support::sizes({80, 84, 88}, 1);
    double value = 0.0;
    EXPECT_TRUE(chart->evaluatesMeasurementChart(2, value));
    EXPECT_EQ(value, 88.0);
    testing::FLAGS_gtest_death_test_style = "fast";
    EXPECT_DEATH(chart->evaluatesMeasurementChart(-1, value), "at: index -1");
    chart->setFormulaMeasurementChart(formula("5", set));
    EXPECT_TRUE(chart->evaluatesMeasurementChart(-1, value));
    EXPECT_EQ(value, 5.0);
}

TEST_F(Computed, aChartRefusesLevelsInTheWordsOfAFrame)
{
    *chart->getMeasureBySizes() = support::sizes({80, 84, 88}, 1);
    const double value = 1.0;
    const QListEx<double> list{1, 2, 3};
    bool refused = false;
    EXPECT_FALSE(chart->applyValues(&value, &value, &refused));
    EXPECT_TRUE(refused);
    refused = false;
    EXPECT_FALSE(chart->applyValues(&list, &list, &refused));
    EXPECT_TRUE(refused);
    EXPECT_FALSE(chart->applyValues(&list, &list, nullptr));
    const QString refusal = name("Cannot apply levels: a frame would move past a neighboring frame.");
    EXPECT_EQ(application.mMessages, (QStringList{refusal, refusal, refusal}));
    EXPECT_EQ(text(*chart->getMeasureBySizes()), "80 [84] 88");
}

TEST_F(Computed, aChartTakesOneValueForTheNestOrAWholeList)
{
    *chart->getMeasureBySizes() = support::sizes({80, 84, 88}, 1);
    const double value = 85.0;
    const double *noValue = nullptr;
    EXPECT_TRUE(chart->applyValues(&value, noValue, nullptr));
    EXPECT_EQ(text(*chart->getMeasureBySizes()), "80 [85] 88");
    EXPECT_FALSE(chart->applyValues(noValue, noValue, nullptr));
    const QListEx<double> list{1, 2};
    const QListEx<double> *noList = nullptr;
    EXPECT_TRUE(chart->applyValues(&list, noList, nullptr));
    EXPECT_EQ(text(*chart->getMeasureBySizes()), "1 [2]");
    EXPECT_TRUE(chart->applyValues(noList, noList, nullptr));
    EXPECT_EQ(text(*chart->getMeasureBySizes()), "1 [2]");
    FrameMeasurementChart lonely(name("X")); // in no set: nobody to notify
    EXPECT_TRUE(lonely.applyValues(&list, noList, nullptr));
}

TEST_F(Computed, aNewListNotifiesTheMappingOfNoGroup)
{
    CDbGroupObject group;
    const RelayBaton baton = document.manager().setGroupMapping({{&group, nullptr}});
    const QListEx<double> list{1, 2, 3};
    chart->applyValues(static_cast<const QListEx<double> *>(nullptr), nullptr, nullptr);
    EXPECT_FALSE(document.manager().groupHasChanged(&group));
    chart->applyValues(&list, static_cast<const QListEx<double> *>(nullptr), nullptr);
    EXPECT_TRUE(document.manager().groupHasChanged(&group));
}

TEST_F(Computed, givingAnEmptyChartOneValueEndsTheProgram)
{
    testing::FLAGS_gtest_death_test_style = "fast";
    const double value = 85.0;
    EXPECT_DEATH(chart->applyValues(&value, static_cast<const double *>(nullptr), nullptr), "index 0");
}

// --- Defined ---

TEST_F(Computed, hangOnWhatTheirFormulasName)
{
    FrameSegment *const segment = set->newSegment(name("S"));
    spec->setFormulaSpec(formula("Measure(S)", set));
    chart->setFormulaMeasurementChart(formula("Measure(P) + 1", set));
    EXPECT_FALSE(spec->isDefinedInDocument());
    EXPECT_FALSE(chart->isDefinedInDocument());
    spec->setFormulaSpec(formula("2 * 3", set)); // names nothing
    EXPECT_TRUE(spec->isDefinedInDocument());
    EXPECT_TRUE(chart->isDefinedInDocument());
    FrameLink *const link = set->newLink(name("L"));
    spec->setFormulaSpec(formula("Measure(L) + Measure(S)", set));
    EXPECT_FALSE(spec->isDefinedInDocument());
    spec->setFormulaSpec(formula("Measure(L)", set)); // an empty link is defined
    EXPECT_TRUE(spec->isDefinedInDocument());
    static_cast<void>(segment);
    static_cast<void>(link);
}

TEST(ComputedOnAPiece, areDefinedWhenTheNamedFrameIs)
{
    support::RectangleUnderControl piece;
    piece.chord("A", 2);
    FrameSpec *const spec = piece.set()->newSpec(name("P"));
    spec->setFormulaSpec(formula("Measure(Center:A)", piece.set()));
    EXPECT_TRUE(spec->isDefinedInDocument());
    EXPECT_TRUE(piece.set()->containsSpecDefined());
}

TEST_F(Computed, mayHangOnThemselvesWithoutEnd)
{
    spec->setFormulaSpec(formula("Measure(P) + 1", set));
    EXPECT_TRUE(spec->isDefinedInDocument());
    FrameSpec *const other = set->newSpec(name("Q"));
    spec->setFormulaSpec(formula("Measure(Q)", set));
    other->setFormulaSpec(formula("Measure(P)", set));
    EXPECT_TRUE(spec->isDefinedInDocument() && other->isDefinedInDocument());
    set->newSegment(name("S"));
    other->setFormulaSpec(formula("Measure(P) + Measure(S)", set));
    EXPECT_FALSE(spec->isDefinedInDocument() || other->isDefinedInDocument());
    double value = 1.0;
    EXPECT_TRUE(spec->evaluatesSpec(0, value)); // a list that is empty still reads 0
    EXPECT_EQ(value, 0.0);
}

TEST_F(Computed, anUnknownNameIsAnErrorAndNotUndefined)
{
    spec->setFormulaSpec(formula("Measure(nobody)", set));
    EXPECT_THROW(spec->isDefinedInDocument(), AssertionError);
}

TEST_F(Computed, longChainsAndDiamondsOfSpecsAreWalkedOnce)
{
    FrameSpec *last = spec;
    for (int i = 0; i < 20000; ++i) {
        auto *const next = new FrameSpec(QString::number(i));
        set->addSpec(next, -1);
        auto *const tree = new TreeEquations;
        tree->root->contents = ElemAdd;
        tree->root->sonLeft = new ElementEquation(ElemMeasure, 0.0, last);
        tree->root->sonRight = new ElementEquation(ElemMeasure, 0.0, last);
        next->setFormulaSpec(tree);
        last = next;
    }
    EXPECT_TRUE(last->isDefinedInDocument());
    EXPECT_TRUE(set->isDefinedInDocument());
    spec->setFormulaSpec(formula("Measure(S)", (set->newSegment(name("S")), set)));
    EXPECT_FALSE(last->isDefinedInDocument());
    EXPECT_TRUE(set->containsMeasurementChartDefined());
    EXPECT_FALSE(set->containsSpecDefined());
    set->destroyFramesUndefined();
    EXPECT_TRUE(set->getFrameSpecs().isEmpty());
}

} // namespace
