// Links without a piece: membership, reading, and what they store.

#include "OpenLink.h"

#include <support/TestDocument.h>

#include <gtest/gtest.h>

using namespace VorSystem;
using support::formula;
using support::name;
using support::names;

namespace
{

class Links : public testing::Test
{
protected:
    Links() { set->addLink(link, -1); }

    FrameFrame *frame(const char *text) { return set->newFrame(name(text), center); }
    FrameFrame *linked(const char *text)
    {
        FrameFrame *const made = frame(text);
        link->linkFrame(made);
        return made;
    }

    support::RecordingApplication application;
    support::TestDocument document{3, 2};
    FrameSet *set = document.newSet();
    FrameCenter *center = set->newCenter(name("C"));
    OpenLink *link = new OpenLink(name("L"));
};

TEST_F(Links, startEmptyAndProportional)
{
    EXPECT_EQ(link->elementType(), 3);
    EXPECT_EQ(link->getMeasureType(), 0);
    EXPECT_TRUE(link->getFrames().isEmpty());
    EXPECT_TRUE(link->measurementFormulaAvailable() && link->formulaLevelAvailable());
    EXPECT_EQ(link->objectControlCorresponding(), nullptr);
    link->setMeasureType(FrameLink::Measure_Fixed);
    EXPECT_EQ(link->getMeasureType(), 2);
}

TEST_F(Links, anEmptyLinkIsDefinedSumsToNothingAndHasNoLevel)
{
    double value = 7.0;
    EXPECT_TRUE(link->isDefinedInDocument());
    EXPECT_TRUE(link->framesAreDefined());
    EXPECT_FALSE(link->frameLevelZero());
    EXPECT_FALSE(link->framesMeasureZero());
    EXPECT_FALSE(link->evaluateLevelObject(0, value));
    EXPECT_EQ(value, 7.0);
    EXPECT_TRUE(link->evaluateMeasurementObject(0, value));
    EXPECT_EQ(value, 0.0);
    QListEx<double> values{5, 5};
    EXPECT_FALSE(link->evaluateLevelsObject(nullptr, values));
    EXPECT_EQ(values, support::doubles({5, 5}));
    EXPECT_TRUE(link->evaluateMeasuresObject(nullptr, values));
    EXPECT_EQ(values, support::doubles({0, 0}));
    EXPECT_FALSE(link->canBeDestroyed(false)); // what is defined does not go
}

TEST_F(Links, theSumOfMeasuresAndTheMeanOfLevelsAreReadPerSize)
{
    FrameFrame *const a = linked("A");
    FrameFrame *const b = linked("B");
    *a->getMeasureBySizes() = support::sizes({10, 11, 12}, 1);
    *b->getMeasureBySizes() = support::sizes({1, 2, 3}, 2);
    *a->getLevelBySizes() = support::sizes({4, 5, 6}, 1);
    double value = 0.0;
    EXPECT_TRUE(link->evaluateMeasurement(0, value));
    EXPECT_EQ(value, 11.0);
    EXPECT_TRUE(link->evaluateMeasurement(-1, value));
    EXPECT_EQ(value, 14.0); // each frame's own nest
    EXPECT_TRUE(link->evaluateLevel(2, value));
    EXPECT_EQ(value, 3.0); // an empty list counts 0
    QListEx<double> values{0, 0, 0};
    EXPECT_TRUE(link->evaluateMeasures(nullptr, values));
    EXPECT_EQ(values, support::doubles({11, 13, 15}));
    EXPECT_TRUE(link->evaluateLevels(nullptr, values));
    EXPECT_EQ(values, support::doubles({2, 2.5, 3}));
}

TEST_F(Links, aFrameThatWasNeverEvaluatedCountsNothingInTheSums)
{
    linked("A");
    double value = 7.0;
    EXPECT_TRUE(link->evaluateMeasurementObject(-1, value));
    EXPECT_EQ(value, 0.0);
    set->revalued(Reevaluate_Ask); // the first call on a fresh set ends well, in every mode
    set->revalued(Reevaluate_Apply);
    set->revalued(Reevaluate_Store);
    EXPECT_EQ(support::text(*link->getMeasureBySizes()), "0 [0] 0");
}

TEST_F(Links, aFrameListThatIsTooShortEndsTheProgram)
{
    testing::FLAGS_gtest_death_test_style = "fast";
    *linked("A")->getMeasureBySizes() = support::sizes({1}, 0);
    double value = 0.0;
    EXPECT_DEATH(link->evaluateMeasurementObject(1, value), "at: index 1 is outside a list of size 1");
}

TEST_F(Links, anOwnFormulaComesBeforeTheFrames)
{
    linked("A");
    link->setFormulaMeasurement(formula("7", set));
    link->setFormulaLevel(formula("3", set));
    TreeEquations *const level = link->formulaLevel();
    link->setFormulaLevel(level);
    double value = 0.0;
    EXPECT_TRUE(link->evaluateMeasurement(0, value));
    EXPECT_EQ(value, 7.0);
    EXPECT_TRUE(link->evaluateLevel(0, value));
    EXPECT_EQ(value, 3.0);
    QListEx<double> values{0, 0};
    EXPECT_TRUE(link->evaluateMeasures(nullptr, values));
    EXPECT_EQ(values, support::doubles({7, 7}));
    EXPECT_TRUE(link->evaluateLevels(nullptr, values));
    EXPECT_EQ(values, support::doubles({3, 3}));
}

TEST_F(Links, membershipIsKeptOnBothSides)
{
    FrameFrame *const a = linked("A");
    FrameFrame *const b = linked("B");
    EXPECT_EQ(names(link->getFrames()), "C:A C:B");
    EXPECT_EQ(a->getLink(), link);
    link->removeFrame(a);
    EXPECT_EQ(a->getLink(), nullptr);
    EXPECT_EQ(names(link->getFrames()), "C:B");
    link->linkFrame(b); // nobody keeps a frame from being counted twice
    EXPECT_EQ(link->getFrames().count(), 2);
    link->removeFrame(b);
    EXPECT_TRUE(link->getFrames().isEmpty());
    link->linkFrame(a);
    link->unlinkFrames();
    EXPECT_EQ(a->getLink(), nullptr);
    EXPECT_THROW(link->linkFrame(nullptr), AssertionError);
    EXPECT_THROW(link->removeFrame(nullptr), AssertionError);
    link->linkFrame(a);
    EXPECT_THROW(link->relinkingFrames(), AssertionError); // A stands on no piece
    delete link;
    EXPECT_EQ(a->getLink(), nullptr);
}

TEST_F(Links, dependOnTheirFramesOrOnTheirFormula)
{
    FrameFrame *const a = linked("A");
    FrameFrame *const b = linked("B");
    QListEx<Evaluation> list;
    link->addEvaluationUsedInMeasurement(list);
    link->addEvaluationUsedInMeasurement(list);
    link->addEvaluationUsedInLevel(list);
    ASSERT_EQ(list.count(), 4);
    EXPECT_EQ(list.at(1), (Evaluation{b, Evaluation_Measure}));
    EXPECT_EQ(list.at(2), (Evaluation{a, Evaluation_Level}));
    EXPECT_FALSE(link->aFormulaImplicitMeasures() || link->aFormulaImplicitLevel());

    FrameFrame *const outside = frame("O");
    link->setFormulaMeasurement(formula("Measure(C:O)", set));
    link->setFormulaLevel(formula("Level(C:O)", set));
    EXPECT_TRUE(link->aFormulaImplicitMeasures() && link->aFormulaImplicitLevel());
    list.clear();
    link->addEvaluationUsedInMeasurement(list);
    link->addEvaluationUsedInLevel(list);
    ASSERT_EQ(list.count(), 2);
    EXPECT_EQ(list.at(0), (Evaluation{outside, Evaluation_Measure}));

    QListEx<BaseFrame *> pending{a};
    QListEx<BaseFrame *> done{b};
    link->addReferencesImplicitInMeasuresList(pending, done);
    link->addReferencesImplicitInLevelList(pending, done);
    EXPECT_EQ(names(pending), "C:A C:A C:A"); // the same frame more than once does no harm
    EXPECT_TRUE(link->containsImplicitReferences({a}, {}) && link->containsImplicitReferences({}, {b}));
    EXPECT_FALSE(link->containsImplicitReferences({outside}, {link}));
}

TEST_F(Links, tellWhichFramesAreDriven)
{
    FrameFrame *const a = linked("A");
    EXPECT_FALSE(link->aFramesWithFormulaMeasure() || link->aFramesWithFormulaLevel());
    a->setFormulaMeasurement(formula("1", set));
    EXPECT_TRUE(link->aFramesWithFormulaMeasure() && link->aFramesWithFormulaInconsistentMeasure());
    EXPECT_FALSE(link->aFramesWithFormulaInconsistentLevel());
    a->setFormulaLevel(formula("1", set));
    EXPECT_TRUE(link->aFramesWithFormulaLevel() && link->aFramesWithFormulaInconsistentLevel());
}

TEST_F(Links, valuesHandedToAnUndefinedLinkAreLostWithATrueAnswer)
{
    FrameFrame *const a = linked("A");
    *a->getMeasureBySizes() = support::sizes({10, 11, 12}, 1);
    *link->getMeasureBySizes() = support::sizes({10, 11, 12}, 1);
    *link->getLevelBySizes() = support::sizes({0, 0, 0}, 1);
    ValuesAccordingSizes wanted = support::sizes({20, 22, 24}, 1);
    ValuesAccordingSizes levels = support::sizes({1, 1, 1}, 1);
    EXPECT_TRUE(link->leaveMeasures(wanted, nullptr, ModifyLevel_AllSizes));
    EXPECT_TRUE(link->leaveLevels(levels, nullptr, ModifyLevel_AllSizes));
    EXPECT_TRUE(link->leaveMeasuresAndLevels(wanted, levels, nullptr, ModifyLevel_ShiftedSizes));
    EXPECT_EQ(support::text(*a->getMeasureBySizes()), "10 [11] 12");
    const double measure = 30.0;
    EXPECT_TRUE(link->applyValues(&measure, static_cast<const double *>(nullptr), nullptr));
    EXPECT_EQ(support::text(*link->getMeasureBySizes()), "10 [11] 12");
}

TEST_F(Links, withoutValuesNothingIsApplied)
{
    const double *noValue = nullptr;
    const QListEx<double> *noList = nullptr;
    EXPECT_FALSE(link->applyValues(noValue, noValue, nullptr));
    EXPECT_FALSE(link->applyValues(noList, noList, nullptr));
}

TEST_F(Links, levelZeroIsRefusedInSilenceWhereAFrameHasALevelFormula)
{
    FrameFrame *const a = linked("A");
    FrameFrame *const b = frame("B");
    center->setFrameLevelZero(b);
    a->setFormulaLevel(formula("1", set));
    *link->getMeasureBySizes() = support::sizes({1, 1, 1}, 1);
    *link->getLevelBySizes() = support::sizes({1, 1, 1}, 1);
    const double zero = 0.0;
    bool refused = false;
    EXPECT_FALSE(link->applyValues(static_cast<const double *>(nullptr), &zero, &refused));
    EXPECT_FALSE(refused);
    EXPECT_TRUE(application.mMessages.isEmpty());
    EXPECT_FALSE(a->isLevelZero());
    a->setFormulaLevel(nullptr);
    EXPECT_TRUE(link->applyValues(static_cast<const double *>(nullptr), &zero, &refused));
    EXPECT_TRUE(a->isLevelZero());
}

TEST_F(Links, theOwnFormulaDecidesWhatAReevaluationStores)
{
    FrameFrame *const a = linked("A");
    *a->getMeasureBySizes() = support::sizes({1, 2, 3}, 1);
    *a->getLevelBySizes() = support::sizes({4, 5, 6}, 1);
    ValuesAccordingSizes measures = support::sizes({10, 20, 30}, 1);
    ValuesAccordingSizes levels = support::sizes({7, 8, 9}, 1);
    EXPECT_TRUE(link->applyMeasures(measures, document.gradationData(), ModifyLevel_AllSizes));
    EXPECT_TRUE(link->applyLevels(levels, document.gradationData(), ModifyLevel_AllSizes));
    EXPECT_EQ(support::text(*link->getMeasureBySizes()), "10 [20] 30");
    EXPECT_EQ(support::text(*link->getLevelBySizes()), "7 [8] 9");

    // With a formula the values go to the frames, and what came of it is stored: here the formula's own
    // value.
    link->setFormulaMeasurement(formula("50", set));
    *link->getMeasureBySizes() = ValuesAccordingSizes();
    EXPECT_TRUE(link->applyMeasures(measures, document.gradationData(), ModifyLevel_AllSizes));
    EXPECT_EQ(support::text(*link->getMeasureBySizes()), "50 [50] 50");
    link->setFormulaLevel(formula("60", set));
    *link->getLevelBySizes() = ValuesAccordingSizes();
    EXPECT_TRUE(link->applyMeasuresLevels(measures, levels, document.gradationData(), ModifyLevel_AllSizes));
    EXPECT_EQ(support::text(*link->getLevelBySizes()), "60 [60] 60");
}

TEST_F(Links, aLevelFormulaOrAMeasureFormulaAloneStoresTheOtherList)
{
    linked("A");
    ValuesAccordingSizes measures = support::sizes({10, 20, 30}, 1);
    ValuesAccordingSizes levels = support::sizes({7, 8, 9}, 1);
    link->setFormulaLevel(formula("60", set));
    EXPECT_TRUE(link->applyMeasuresLevels(measures, levels, document.gradationData(), ModifyLevel_AllSizes));
    EXPECT_EQ(support::text(*link->getMeasureBySizes()), "10 [20] 30"); // undefined: kept as stored
    link->setFormulaLevel(nullptr);
    link->setFormulaMeasurement(formula("50", set));
    EXPECT_TRUE(link->applyMeasuresLevels(measures, levels, document.gradationData(), ModifyLevel_AllSizes));
    EXPECT_EQ(support::text(*link->getLevelBySizes()), "7 [8] 9");
    EXPECT_EQ(support::text(*link->getMeasureBySizes()), "50 [50] 50");
    link->setFormulaMeasurement(nullptr);
    measures = support::sizes({1, 2, 3}, 1);
    EXPECT_TRUE(link->applyMeasuresLevels(measures, levels, document.gradationData(), ModifyLevel_AllSizes));
    EXPECT_EQ(support::text(*link->getMeasureBySizes()), "1 [2] 3");
}

TEST_F(Links, bringingFramesToOneLevelIsAQuestionOutsideModeOne)
{
    FrameFrame *const a = linked("A");
    *link->getLevelBySizes() = support::sizes({1, 2, 3}, 1);
    *a->getLevelBySizes() = support::sizes({1, 2, 3}, 1);
    EXPECT_TRUE(link->adjustFramesSameLevel(Reevaluate_Ask));
    EXPECT_TRUE(link->adjustFramesSameLevel(Reevaluate_Store));
    *a->getLevelBySizes() = support::sizes({1, 0.0, 3}, 1);
    EXPECT_FALSE(link->adjustFramesSameLevel(Reevaluate_Ask)); // exactly 0.0 in one size
    *a->getLevelBySizes() = support::sizes({1, 1e-9, 3}, 1);
    EXPECT_TRUE(link->adjustFramesSameLevel(Reevaluate_Ask));
    a->setFormulaLevel(formula("1", set));
    EXPECT_FALSE(link->adjustFramesSameLevel(Reevaluate_Ask));
    link->unlinkFrames();
    EXPECT_FALSE(link->adjustFramesSameLevel(Reevaluate_Ask)); // no level without frames
}

TEST_F(Links, withoutADocumentTheClosingReevaluationRaises)
{
    FrameSet lonely(name("X"), nullptr);
    FrameLink *const loose = lonely.newLink(name("L"));
    *loose->getMeasureBySizes() = support::sizes({1}, 0);
    *loose->getLevelBySizes() = support::sizes({1}, 0);
    const double measure = 2.0;
    EXPECT_THROW(loose->applyValues(&measure, static_cast<const double *>(nullptr), nullptr), AssertionError);
}

TEST_F(Links, refuseToDieWhileMentioned)
{
    linked("A");
    EXPECT_TRUE(link->canBeDestroyed(true));
    EXPECT_TRUE(link->canBeDestroyedInBatch());
    frame("B")->setFormulaMeasurement(formula("Measure(L)", set));
    EXPECT_FALSE(link->canBeDestroyed(true));
    EXPECT_TRUE(application.mMessages.takeLast().contains(name("element 'C:B'")));
    EXPECT_TRUE(link->canBeDestroyedInBatch()); // B is undefined
}

} // namespace
