// Frames: place, values, formulas, neighbours, and what becomes of a change that a piece does not obey.

#include <support/ControlledPiece.h>
#include <support/TestDocument.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace VorSystem;
using support::formula;
using support::name;
using support::names;

namespace
{

constexpr char kPassesNeighbour[] = "Cannot apply levels: a frame would move past a neighboring frame.";

// A frame whose applied lists can be seen, and whose piece obeys or not.
class WatchedFrame : public FrameFrame
{
public:
    using FrameFrame::FrameFrame;
    using FrameFrame::testLevelsProposed;

    bool applyMeasures(ValuesAccordingSizes &values, const GradationData *,
                       eModifyLevelActionType action) override
    {
        applied = support::text(values) + " action " + std::to_string(action);
        return obeys;
    }
    bool applyLevels(ValuesAccordingSizes &values, const GradationData *,
                     eModifyLevelActionType action) override
    {
        appliedLevels = support::text(values) + " action " + std::to_string(action);
        return obeysLevels;
    }

    std::string applied;
    std::string appliedLevels;
    bool obeys = true;
    bool obeysLevels = true;
};

// Frames without a piece.
class Frames : public testing::Test
{
protected:
    FrameFrame *frame(const char *text) { return set->newFrame(name(text), center); }

    support::RecordingApplication application;
    support::TestDocument document{3, 2};
    FrameSet *set = document.newSet();
    FrameCenter *center = set->newCenter(name("C"));
};

TEST_F(Frames, startWithTheirDefaults)
{
    FrameFrame fresh(name("A"));
    EXPECT_EQ(fresh.elementType(), 4);
    EXPECT_EQ(fresh.fullName(), name("A"));
    EXPECT_EQ(fresh.getFrameSet(), nullptr);
    EXPECT_FALSE(fresh.getPerimeterMeasurement());
    EXPECT_EQ(fresh.getMeasureType(), 0);
    EXPECT_EQ(fresh.getPercentageMeasureRating1(), 50.0);
    EXPECT_EQ(fresh.getRatio(), 1.0);
    EXPECT_TRUE(fresh.measurementFormulaAvailable() && fresh.formulaLevelAvailable());
    EXPECT_FALSE(fresh.isLevelZero() || fresh.isMeasureZero() || fresh.isInternalFrame());
    EXPECT_THROW(fresh.becomeLevelZero(), AssertionError);
    EXPECT_THROW(fresh.neighbors(), AssertionError);
}

TEST_F(Frames, changeTheirCenterWholeOrLeaveIt)
{
    FrameFrame *const a = frame("A");
    FrameFrame *const b = frame("B");
    FrameCenter *const other = set->newCenter(name("D"));
    b->addFrameCenter(other, -1);
    EXPECT_EQ(b->fullName(), name("D:B"));
    EXPECT_EQ(names(center->getFrames()), "C:A");
    a->addFrameCenter(other, 0);
    EXPECT_EQ(names(other->getFrames()), "D:A D:B");
    a->addFrameCenter(nullptr, -1);
    EXPECT_EQ(a->getFrameCenter(), nullptr);
    EXPECT_EQ(names(other->getFrames()), "D:B");
    a->addFrameCenter(center, -1);
}

TEST_F(Frames, replaceAFormulaAndLetGoOfOneWithoutDeletingIt)
{
    FrameFrame *const a = frame("A");
    a->setFormulaMeasurement(formula("1", set));
    TreeEquations *const kept = formula("2", set);
    a->setFormulaMeasurement(kept);
    a->setFormulaMeasurement(kept);
    EXPECT_EQ(a->measurementFormula(), kept);
    a->setFormulaLevel(formula("3", set));
    TreeEquations *const level = a->formulaLevel();
    a->forgetFormulas();
    EXPECT_EQ(a->measurementFormula(), nullptr);
    EXPECT_EQ(a->formulaLevel(), nullptr);
    a->rememberFormulas(kept, level);
    EXPECT_EQ(a->measurementFormula(), kept);
    EXPECT_EQ(a->formulaLevel(), level);
}

TEST_F(Frames, readTheirLinksFormulaWhereTheyHaveNone)
{
    FrameFrame *const a = frame("A");
    FrameLink *const link = set->newLink(name("L"));
    link->linkFrame(a);
    EXPECT_FALSE(a->aFormulaImplicitMeasures() || a->aFormulaImplicitLevel());
    QListEx<Evaluation> list;
    a->addEvaluationUsedInMeasurement(list);
    a->addEvaluationUsedInLevel(list);
    EXPECT_TRUE(list.isEmpty());

    link->setFormulaMeasurement(formula("1", set));
    link->setFormulaLevel(formula("1", set));
    EXPECT_TRUE(a->aFormulaImplicitMeasures() && a->aFormulaImplicitLevel());
    a->addEvaluationUsedInMeasurement(list);
    a->addEvaluationUsedInMeasurement(list);
    a->addEvaluationUsedInLevel(list);
    ASSERT_EQ(list.count(), 2);
    EXPECT_EQ(list.at(0), (Evaluation{link, Evaluation_Measure}));
    EXPECT_EQ(list.at(1), (Evaluation{link, Evaluation_Level}));

    QListEx<BaseFrame *> pending;
    QListEx<BaseFrame *> done;
    a->addReferencesImplicitInMeasuresList(pending, done);
    a->addReferencesImplicitInLevelList(pending, done);
    EXPECT_EQ(names(pending), "L L");
    done.append(link);
    pending.clear();
    a->addReferencesImplicitInMeasuresList(pending, done);
    EXPECT_TRUE(pending.isEmpty());
    EXPECT_TRUE(a->containsImplicitReferences({link}, {}) && a->containsImplicitReferences({}, {link}));
    EXPECT_FALSE(a->containsImplicitReferences({a}, {a}));
}

TEST_F(Frames, ownFormulaComesBeforeTheLinks)
{
    FrameFrame *const a = frame("A");
    FrameFrame *const b = frame("B");
    FrameLink *const link = set->newLink(name("L"));
    link->linkFrame(a);
    link->setFormulaMeasurement(formula("1", set));
    a->setFormulaMeasurement(formula("Measure(C:B) + Level(C:B)", set));
    QListEx<Evaluation> list;
    a->addEvaluationUsedInMeasurement(list);
    ASSERT_EQ(list.count(), 2);
    EXPECT_EQ(list.at(0), (Evaluation{b, Evaluation_Measure}));
    double value = 0.0;
    *b->getMeasureBySizes() = support::sizes({4, 5, 6}, 1);
    EXPECT_TRUE(a->evaluateMeasurement(-1, value));
    EXPECT_EQ(value, 5.0);
    QListEx<double> values = support::doubles({0, 0, 0});
    EXPECT_TRUE(a->evaluateMeasures(nullptr, values));
    EXPECT_EQ(values, support::doubles({4, 5, 6}));
    EXPECT_FALSE(a->evaluateLevel(-1, value)); // neither formula nor piece
    EXPECT_FALSE(a->evaluateLevels(nullptr, values));
    EXPECT_FALSE(a->evaluateMeasurementObject(-1, value));
}

TEST_F(Frames, withoutAPieceNewValuesAreStored)
{
    FrameFrame *const a = frame("A");
    *a->getMeasureBySizes() = support::sizes({10, 12, 14}, 1);
    *a->getLevelBySizes() = support::sizes({0, 0, 0}, 1);
    const double measure = 13.0;
    const double level = 5.0;
    EXPECT_TRUE(a->applyValues(&measure, &level, nullptr));
    EXPECT_EQ(support::text(*a->getMeasureBySizes()), "10 [13] 14");
    EXPECT_EQ(support::text(*a->getLevelBySizes()), "0 [5] 0");
    const QListEx<double> list{1, 2, 3};
    EXPECT_TRUE(a->applyValues(&list, nullptr, nullptr));
    EXPECT_EQ(support::text(*a->getMeasureBySizes()), "1 [2] 3");
    const double *noValue = nullptr;
    const QListEx<double> *noList = nullptr;
    EXPECT_FALSE(a->applyValues(noValue, noValue, nullptr));
    EXPECT_FALSE(a->applyValues(noList, noList, nullptr));
    EXPECT_EQ(support::text(*a->getLevelBySizes()), "0 [5] 0");
}

TEST_F(Frames, aLevelThatCountsAsZeroMakesTheFrameTheOrigin)
{
    frame("A");
    FrameFrame *const b = frame("B");
    *b->getLevelBySizes() = support::sizes({4, 5, 6}, 1);
    const double level = 0.00001;
    EXPECT_TRUE(b->applyValues(nullptr, &level, nullptr));
    EXPECT_TRUE(b->isLevelZero());
    EXPECT_EQ(support::text(*b->getLevelBySizes()), "4 [1e-05] 6");
}

TEST_F(Frames, aPerimeterMeasureTakesTheDifferenceInEverySizeAndTwiceInTheNest)
{
    auto *const a = new WatchedFrame(name("A"));
    a->addFrameCenter(center, -1);
    set->addFrame(a, -1);
    a->getPerimeterMeasurement() = true;
    *a->getMeasureBySizes() = support::sizes({10, 20, 30}, 1);
    *a->getLevelBySizes() = support::sizes({1, 2, 3}, 1);
    const double measure = 25.0;
    const double level = 4.0;
    EXPECT_TRUE(a->applyValues(&measure, static_cast<const double *>(nullptr), nullptr));
    EXPECT_EQ(a->applied, "15 [30] 35 action 3");
    EXPECT_EQ(a->appliedLevels, "");
    EXPECT_TRUE(a->applyValues(&measure, &level, nullptr));
    EXPECT_EQ(a->appliedLevels, "1 [4] 3 action 1");
    EXPECT_TRUE(a->applyValues(static_cast<const double *>(nullptr), &level, nullptr));
    EXPECT_FALSE(a->applyValues(static_cast<const double *>(nullptr), nullptr, nullptr));
    a->applied.clear();
    a->obeysLevels = false;
    EXPECT_FALSE(a->applyValues(&measure, &level, nullptr));
    EXPECT_EQ(a->applied, ""); // a level that fails ends the change
    a->obeysLevels = true;
    a->obeys = false;
    EXPECT_FALSE(a->applyValues(&measure, &level, nullptr));
}

TEST_F(Frames, givingAFrameThatWasNeverEvaluatedAValueEndsTheProgram)
{
    testing::FLAGS_gtest_death_test_style = "fast";
    FrameFrame *const a = frame("A");
    const double measure = 1.0;
    EXPECT_DEATH(a->applyValues(&measure, static_cast<const double *>(nullptr), nullptr), "index 0");
}

TEST_F(Frames, anUndefinedFrameMayTakeAnyLevel)
{
    auto *const a = new WatchedFrame(name("A"));
    a->addFrameCenter(center, -1);
    set->addFrame(a, -1);
    *a->getLevelBySizes() = support::sizes({1, 2, 3}, 1);
    EXPECT_TRUE(a->testLevelsProposed(support::doubles({-100, 0, 1000})));
    EXPECT_TRUE(a->testLevelsProposed(99.0));
}

TEST_F(Frames, measureZeroWithoutAPieceIsExactlyZeroInTheNest)
{
    FrameFrame *const a = frame("A");
    EXPECT_FALSE(a->isMeasureZero());
    *a->getMeasureBySizes() = support::sizes({5, 0.0, 5}, 1);
    EXPECT_TRUE(a->isMeasureZero());
    *a->getMeasureBySizes() = support::sizes({5, 1e-9, 5}, 1);
    EXPECT_FALSE(a->isMeasureZero());
}

// --- Destruction ---

TEST_F(Frames, refuseToDieForTheFirstReasonThatHolds)
{
    FrameFrame *const a = frame("A");
    FrameFrame *const b = frame("B");
    EXPECT_FALSE(a->canBeDestroyed(true));
    EXPECT_EQ(application.mMessages.takeLast(),
              name("Cannot delete zero-level frame because other frames exist for this center."));
    EXPECT_TRUE(b->canBeDestroyed(true));
    a->setFormulaMeasurement(formula("Measure(C:B)", set));
    EXPECT_FALSE(b->canBeDestroyed(true));
    EXPECT_TRUE(application.mMessages.takeLast().contains(name("in a formula of element 'C:A'")));
    FrameLink *const link = set->newLink(name("L"));
    link->linkFrame(b);
    EXPECT_FALSE(b->canBeDestroyed(true));
    EXPECT_EQ(application.mMessages.takeLast(), name("Cannot delete this frame because it is linked."));
    EXPECT_FALSE(b->canBeDestroyed(false));
    EXPECT_TRUE(application.mMessages.isEmpty());
    EXPECT_FALSE(b->canBeDestroyedInBatch());
    link->unlinkFrames();
    EXPECT_TRUE(b->canBeDestroyedInBatch()); // the mention is by an undefined frame
    delete b;
    EXPECT_TRUE(a->canBeDestroyed(false)); // the last of its center
    FrameFrame alone(name("X"));
    EXPECT_TRUE(alone.canBeDestroyed(true));
    EXPECT_THROW(alone.canBeDestroyedInBatch(), AssertionError); // it has no set to ask
}

TEST_F(Frames, aFrameOnACenterWithoutASetCannotBeAskedForMentions)
{
    FrameCenter lonely(name("L"));
    FrameFrame a(name("A"));
    a.addFrameCenter(&lonely, -1);
    EXPECT_THROW(a.canBeDestroyed(false), AssertionError);
    a.removeFromCenter();
}

// --- On a piece: three chords, the lowest is the origin, levels 0, 20 and 40 cm in the nest ---

class FramesOnAPiece : public testing::Test
{
protected:
    FrameFrame *low() const { return mLow->getFrameFrame(); }
    FrameFrame *mid() const { return mMid->getFrameFrame(); }
    FrameFrame *high() const { return mHigh->getFrameFrame(); }

    support::RecordingApplication application;
    support::RectangleUnderControl piece;
    ControlFrame *mLow = piece.chord("Low", 1);
    ControlFrame *mMid = piece.chord("Mid", 3);
    ControlFrame *mHigh = piece.chord("High", 5);
};

TEST_F(FramesOnAPiece, readTheirValuesFromIt)
{
    double value = 0.0;
    EXPECT_TRUE(mid()->evaluateMeasurement(-1, value));
    EXPECT_NEAR(value, 40.0, 1e-9);
    EXPECT_TRUE(mid()->evaluateLevel(-1, value));
    EXPECT_NEAR(value, 20.0, 1e-9);
    QListEx<double> values;
    EXPECT_TRUE(mid()->evaluateMeasures(piece.gradation(), values));
    EXPECT_EQ(values.count(), 7);
    EXPECT_NEAR(values.at(0), 37.0, 1e-9);
    EXPECT_TRUE(mid()->evaluateLevels(piece.gradation(), values));
    EXPECT_NEAR(values.at(6), 22.0, 1e-9);
    EXPECT_EQ(mid()->controlFrameCorresponding(), mMid);
    EXPECT_FALSE(mid()->isMeasureZero());
    EXPECT_FALSE(mid()->isInternalFrame());
}

TEST_F(FramesOnAPiece, knowTheirNeighbours)
{
    EXPECT_EQ(low()->neighbors(),
              std::make_pair(static_cast<FrameFrame *>(nullptr), static_cast<FrameFrame *>(nullptr)));
    EXPECT_EQ(mid()->neighbors(), std::make_pair(low(), high()));
    EXPECT_EQ(high()->neighbors(), std::make_pair(mid(), static_cast<FrameFrame *>(nullptr)));
}

TEST_F(FramesOnAPiece, neighboursNeedAnOriginAPlaceAndAnAxis)
{
    FrameFrame *const undefined = piece.set()->newFrame(name("U"), piece.frameCenter());
    EXPECT_THROW(undefined->neighbors(), AssertionError);
    FrameFrame *const origin = low();
    piece.frameCenter()->removeFrame(origin);
    EXPECT_THROW(mid()->neighbors(), AssertionError);
    piece.frameCenter()->addFrame(origin, 0);
}

TEST_F(FramesOnAPiece, aLevelAtOrPastANeighbourIsRefusedInAnySize)
{
    bool refused = false;
    QListEx<double> levels = mid()->getLevelBySizes()->mValues;
    const QListEx<double> highLevels = high()->getLevelBySizes()->mValues;
    levels[6] = highLevels.at(6); // equal, in one size
    EXPECT_FALSE(mid()->applyValues(nullptr, &levels, &refused));
    EXPECT_TRUE(refused);
    EXPECT_EQ(application.mMessages, QStringList{name(kPassesNeighbour)});
    levels = mid()->getLevelBySizes()->mValues;
    levels[0] = 0.0;                                             // the origin's level
    EXPECT_FALSE(mid()->applyValues(nullptr, &levels, nullptr)); // refused may be null
    levels[0] = std::numeric_limits<double>::quiet_NaN();
    EXPECT_FALSE(mid()->applyValues(nullptr, &levels, &refused));
    const double past = 45.0;
    EXPECT_FALSE(mid()->applyValues(nullptr, &past, &refused));
    const double same = mid()->getLevel(-1);
    refused = false;
    EXPECT_TRUE(mid()->applyValues(nullptr, &same, &refused)); // no difference, no test
    EXPECT_FALSE(refused);
}

TEST_F(FramesOnAPiece, aNeighbourThatWasNeverEvaluatedStandsAtZero)
{
    testing::FLAGS_gtest_death_test_style = "fast";
    QListEx<double> levels = mid()->getLevelBySizes()->mValues;
    low()->getLevelBySizes()->mValues.clear();
    EXPECT_TRUE(mid()->applyValues(nullptr, &levels, nullptr));
    levels[2] = 0.0;
    EXPECT_FALSE(mid()->applyValues(nullptr, &levels, nullptr));
    EXPECT_EQ(application.mMessages, QStringList{name(kPassesNeighbour)});
    *low()->getLevelBySizes() = support::sizes({0}, 0); // too short is another matter
    levels[2] = levels.at(1);
    EXPECT_DEATH(mid()->applyValues(nullptr, &levels, nullptr), "at: index 1 is outside a list of size 1");
}

TEST_F(FramesOnAPiece, aLevelThatCountsAsZeroPassesNoTest)
{
    const double zero = 0.00001; // where the origin stands
    bool refused = false;
    mid()->applyValues(nullptr, &zero, &refused);
    EXPECT_TRUE(mid()->isLevelZero());
    EXPECT_FALSE(refused);
    EXPECT_FALSE(application.mMessages.contains(name(kPassesNeighbour)));
}

TEST_F(FramesOnAPiece, theSecondSideCountsWhereBothSidesMove)
{
    ControlSegment *const left =
        piece.segment("Left", piece.left(4), piece.left(2), FrameSegment::Displace_AlongY);
    mid()->setFormulaLevel(formula("20", piece.set()));
    const struct {
        FrameCenter::eCharacteristicType characteristic;
        bool moves;
    } rows[] = {{FrameCenter::Characteristic_OneSideDoubled, false},
                {FrameCenter::Characteristic_TwoSides, true},
                {FrameCenter::Characteristic_TwoSidesDoubled, true}};
    for (const auto &row : rows) {
        piece.frameCenter()->setCharacteristic(row.characteristic);
        EXPECT_EQ(mid()->influenceGeometrically(left->getFrameSegment()), row.moves) << row.characteristic;
    }
}

TEST_F(FramesOnAPiece, obeyAMeasureAndALevelForTheNestAlone)
{
    const double measure = 44.0;
    const double level = 25.0;
    EXPECT_TRUE(mid()->applyValues(&measure, &level, nullptr));
    EXPECT_NEAR(mid()->getMeasures(-1), 44.0, 1e-4);
    EXPECT_NEAR(mid()->getLevel(-1), 25.0, 1e-4);
    EXPECT_TRUE(application.mMessages.isEmpty());
}

TEST_F(FramesOnAPiece, aMeasureThatCannotBeAppliedCostsItsFormula)
{
    // A single point cannot become wide.
    auto *const point = piece.frame("Point", piece.right(2), piece.right(2));
    FrameFrame *const frame = point->getFrameFrame();
    EXPECT_TRUE(frame->isMeasureZero());
    frame->setFormulaMeasurement(formula("Measure(Center:Mid)", piece.set()));
    frame->setFormulaLevel(formula("Level(Center:Mid)", piece.set()));
    ValuesAccordingSizes wanted = *mid()->getMeasureBySizes();
    EXPECT_FALSE(frame->applyMeasures(wanted, piece.gradation(), ModifyLevel_AllSizes));
    EXPECT_EQ(frame->measurementFormula(), nullptr);
    EXPECT_NE(frame->formulaLevel(), nullptr);
    EXPECT_EQ(
        application.mMessages,
        QStringList{name("Cannot apply formula for element 'Center:Point'. The formula has been deleted.")});
    const auto removed = piece.set()->removedFormulas();
    ASSERT_EQ(removed.count(), 1);
    EXPECT_EQ(removed.at(0).get<0>(), name("Center:Point"));
    EXPECT_TRUE(removed.at(0).get<1>());
    EXPECT_EQ(removed.at(0).get<2>(), name("Measure(Center:Mid)"));
    EXPECT_FALSE(
        frame->applyMeasures(wanted, piece.gradation(), ModifyLevel_AllSizes)); // nothing left to lose
    EXPECT_EQ(application.mMessages.count(), 1);
}

TEST_F(FramesOnAPiece, aLevelThatCannotBeAppliedDropsTheMeasureFormulaAndRecordsTheLevels)
{
    low()->setFormulaMeasurement(formula("Measure(Center:Mid)", piece.set()));
    low()->setFormulaLevel(formula("Level(Center:High)", piece.set()));
    ValuesAccordingSizes wanted = *high()->getLevelBySizes(); // the origin never moves
    EXPECT_FALSE(low()->applyLevels(wanted, piece.gradation(), ModifyLevel_AllSizes));
    EXPECT_EQ(low()->measurementFormula(), nullptr);
    ASSERT_NE(low()->formulaLevel(), nullptr);
    const auto removed = piece.set()->removedFormulas();
    ASSERT_EQ(removed.count(), 1);
    EXPECT_FALSE(removed.at(0).get<1>());
    EXPECT_EQ(removed.at(0).get<2>(), name("Level(Center:High)"));
}

TEST_F(FramesOnAPiece, withoutALevelFormulaAFailedLevelCostsNothing)
{
    low()->setFormulaMeasurement(formula("Measure(Center:Mid)", piece.set()));
    ValuesAccordingSizes wanted = *high()->getLevelBySizes();
    EXPECT_FALSE(low()->applyLevels(wanted, piece.gradation(), ModifyLevel_AllSizes));
    EXPECT_NE(low()->measurementFormula(), nullptr);
    EXPECT_TRUE(application.mMessages.isEmpty());
    EXPECT_TRUE(piece.set()->removedFormulas().isEmpty());
}

TEST_F(FramesOnAPiece, aHostThatDropsTheFormulaWhileItIsToldLosesNoOther)
{
    class Dropping : public support::RecordingApplication
    {
    public:
        void showMessage(const QString &text, const QString &title, int number) override
        {
            support::RecordingApplication::showMessage(text, title, number);
            frame->setFormulaMeasurement(nullptr);
        }
        FrameFrame *frame = nullptr;
    } host;
    auto *const point = piece.frame("Point", piece.right(2), piece.right(2));
    host.frame = point->getFrameFrame();
    host.frame->setFormulaMeasurement(formula("Measure(Center:Mid)", piece.set()));
    ValuesAccordingSizes wanted = *mid()->getMeasureBySizes();
    EXPECT_FALSE(host.frame->applyMeasures(wanted, piece.gradation(), ModifyLevel_AllSizes));
    EXPECT_TRUE(piece.set()->removedFormulas().isEmpty());
}

TEST_F(FramesOnAPiece, aDefinedFrameRefusesToDie)
{
    EXPECT_FALSE(mid()->canBeDestroyed(true));
    EXPECT_EQ(application.mMessages,
              QStringList{name("Cannot delete this element because it is still defined.")});
    EXPECT_FALSE(mid()->canBeDestroyedInBatch());
}

TEST_F(FramesOnAPiece, aFormulaMovesWhatRestsBetweenTheNeighbours)
{
    ControlSegment *const beside =
        piece.segment("Beside", piece.right(2), piece.right(4), FrameSegment::Displace_AlongY);
    ControlSegment *const beyond =
        piece.segment("Beyond", piece.at(13), piece.at(14), FrameSegment::Displace_AlongX);
    EXPECT_FALSE(mid()->influenceGeometrically(beside->getFrameSegment())); // no formula
    mid()->setFormulaMeasurement(formula("40", piece.set()));
    EXPECT_TRUE(mid()->influenceGeometrically(beside->getFrameSegment()));
    EXPECT_FALSE(mid()->influenceGeometrically(beyond->getFrameSegment()));
    EXPECT_FALSE(mid()->influenceGeometrically(mid()));
    EXPECT_FALSE(mid()->influenceGeometrically(high())); // the bounds themselves stay
    EXPECT_FALSE(mid()->influenceGeometrically(nullptr));
    FrameFrame *const undefined = piece.set()->newFrame(name("U"), piece.frameCenter());
    EXPECT_FALSE(mid()->influenceGeometrically(undefined));
    undefined->setFormulaMeasurement(formula("40", piece.set()));
    EXPECT_FALSE(undefined->influenceGeometrically(beside->getFrameSegment()));
    FrameLink *const link = piece.set()->newLink(name("L"));
    EXPECT_FALSE(mid()->influenceGeometrically(link)); // defined, but without a vector
}

} // namespace
