// Segments: a length, a formula that must fit into the order of the set, and a control object that may be
// lost.

#include <support/ControlledPiece.h>
#include <support/TestDocument.h>

#include <gtest/gtest.h>

using namespace VorSystem;
using support::formula;
using support::name;

namespace
{

constexpr char kInterferes[] =
    "This element cannot have a formula, because it directly interferes with another element.";

class Segments : public testing::Test
{
protected:
    support::RecordingApplication application;
    support::TestDocument document{3, 2};
    FrameSet *set = document.newSet();
    FrameSegment *segment = set->newSegment(name("S"));
};

TEST_F(Segments, startWithTheirDefaults)
{
    EXPECT_EQ(segment->elementType(), 2);
    EXPECT_EQ(segment->getInfluenceAreaPercent(), 100.0);
    EXPECT_EQ(segment->getDisplace(), 1);
    EXPECT_TRUE(segment->measurementFormulaAvailable());
    EXPECT_FALSE(segment->formulaLevelAvailable());
    EXPECT_EQ(segment->getLevelBySizes(), nullptr);
    segment->getInfluenceAreaPercent() = 60.0;
    segment->getDisplace() = FrameSegment::Displace_AlongContour;
    EXPECT_EQ(const_cast<const FrameSegment *>(segment)->getInfluenceAreaPercent(), 60.0);
    EXPECT_EQ(segment->controlSegmentCorrespondent(), nullptr);
    segment->removeControlSegmentCorrespondent(); // nothing to remove
}

TEST_F(Segments, dropAFormulaThatIsNotThereWithoutAnything)
{
    FrameSegment lonely(name("L")); // a test of the order would raise
    lonely.setFormulaMeasurement(nullptr);
    EXPECT_EQ(lonely.measurementFormula(), nullptr);
}

TEST_F(Segments, takeAFormulaThatCanBeOrderedAndDeleteTheOldOne)
{
    segment->setFormulaMeasurement(formula("1", set));
    TreeEquations *const second = formula("2", set);
    segment->setFormulaMeasurement(second);
    segment->setFormulaMeasurement(second); // the same one again
    EXPECT_EQ(segment->measurementFormula(), second);
    EXPECT_TRUE(application.mMessages.isEmpty());
    segment->forgetFormula();
    EXPECT_EQ(segment->measurementFormula(), nullptr);
    segment->rememberFormula(second);
    EXPECT_EQ(segment->measurementFormula(), second);
    segment->setFormulaMeasurement(nullptr);
    EXPECT_EQ(segment->measurementFormula(), nullptr);
}

TEST_F(Segments, withoutASetTheNewFormulaStaysAndTheOldOneIsItsHolders)
{
    FrameSegment lonely(name("L"));
    TreeEquations *const old = formula("1", set);
    lonely.rememberFormula(old);
    TreeEquations *const proposed = formula("2", set);
    EXPECT_THROW(lonely.setFormulaMeasurement(proposed), AssertionError);
    EXPECT_EQ(lonely.measurementFormula(), proposed);
    delete old;
}

TEST_F(Segments, addWhatTheirFormulaNames)
{
    QListEx<Evaluation> list;
    segment->addEvaluationUsedInMeasurement(list);
    EXPECT_TRUE(list.isEmpty());
    FrameSegment *const other = set->newSegment(name("T"));
    segment->setFormulaMeasurement(formula("Measure(T)", set));
    segment->addEvaluationUsedInMeasurement(list);
    ASSERT_EQ(list.count(), 1);
    EXPECT_EQ(list.at(0), (Evaluation{other, Evaluation_Measure}));
    *other->getMeasureBySizes() = support::sizes({1, 2, 3}, 1);
    double value = 0.0;
    EXPECT_TRUE(segment->evaluateMeasurement(2, value));
    EXPECT_EQ(value, 3.0);
    QListEx<double> values = support::doubles({0, 0, 0});
    EXPECT_TRUE(segment->evaluateMeasures(nullptr, values));
    EXPECT_EQ(values, support::doubles({1, 2, 3}));
    EXPECT_FALSE(other->evaluateMeasurement(2, value));
    EXPECT_FALSE(other->evaluateMeasures(nullptr, values));
}

TEST_F(Segments, refuseALengthThatCountsAsZero)
{
    *segment->getMeasureBySizes() = support::sizes({10, 12, 14}, 1);
    const double tiny = 0.000001;
    EXPECT_FALSE(segment->applyValues(&tiny, static_cast<const double *>(nullptr), nullptr));
    const double *nothing = nullptr;
    EXPECT_FALSE(segment->applyValues(nothing, nothing, nullptr));
    QListEx<double> list{9, 0.0, 9};
    EXPECT_FALSE(segment->applyValues(&list, static_cast<const QListEx<double> *>(nullptr), nullptr));
    const QListEx<double> *noList = nullptr;
    EXPECT_FALSE(segment->applyValues(noList, noList, nullptr));
    EXPECT_EQ(support::text(*segment->getMeasureBySizes()), "10 [12] 14"); // refused before anything changed
}

TEST_F(Segments, withoutAPieceNewValuesAreStoredZerosIncluded)
{
    *segment->getMeasureBySizes() = support::sizes({10, 12, 14}, 1);
    const double measure = 13.0;
    EXPECT_TRUE(segment->applyValues(&measure, &measure, nullptr));
    EXPECT_EQ(support::text(*segment->getMeasureBySizes()), "10 [13] 14");
    ValuesAccordingSizes zeros = support::sizes({0, 0}, 0);
    ValuesAccordingSizes levels;
    EXPECT_TRUE(segment->applyMeasuresLevels(zeros, levels, nullptr, ModifyLevel_AllSizes));
    EXPECT_EQ(support::text(*segment->getMeasureBySizes()), "[0] 0");
}

TEST_F(Segments, refuseToDieWhileMentioned)
{
    EXPECT_TRUE(segment->canBeDestroyed(true));
    FrameSpec *const spec = set->newSpec(name("P"));
    spec->setFormulaSpec(formula("Measure(S)", set));
    EXPECT_FALSE(segment->canBeDestroyed(true));
    EXPECT_TRUE(application.mMessages.takeLast().contains(name("element 'P'")));
    EXPECT_TRUE(segment->canBeDestroyedInBatch()); // the spec hangs on it and is undefined too
}

// --- On a piece without a center: everything on it moves ---

class SegmentsOnAPiece : public testing::Test
{
protected:
    SegmentsOnAPiece()
    {
        first = piece.segment("First", piece.at(6), piece.at(9), FrameSegment::Displace_AlongY)
                    ->getFrameSegment();
        second = piece.segment("Second", piece.at(8), piece.at(11), FrameSegment::Displace_AlongY)
                     ->getFrameSegment();
    }

    support::RecordingApplication application;
    support::ControlledPiece piece{support::rectangle(40.0, 60.0, 6)};
    FrameSegment *first = nullptr;
    FrameSegment *second = nullptr;
};

TEST_F(SegmentsOnAPiece, readTheirLength)
{
    double value = 0.0;
    EXPECT_TRUE(first->evaluateMeasurement(-1, value));
    EXPECT_NEAR(value, 30.0, 1e-9);
    EXPECT_EQ(support::str(*first->getMeasureBySizes()), "27.00 28.00 29.00 [30.00] 31.00 32.00 33.00");
    QListEx<double> values; // replaced, whatever its length
    EXPECT_TRUE(first->evaluateMeasures(piece.gradation(), values));
    EXPECT_EQ(support::str(ValuesAccordingSizes{values, 3}), "27.00 28.00 29.00 [30.00] 31.00 32.00 33.00");
    EXPECT_FALSE(first->canBeDestroyedInBatch());
}

TEST_F(SegmentsOnAPiece, obeyANewLengthInAllSizes)
{
    const QListEx<double> wanted{29, 30, 31, 32, 33, 34, 35};
    EXPECT_TRUE(first->applyValues(&wanted, static_cast<const QListEx<double> *>(nullptr), nullptr));
    EXPECT_EQ(support::str(*first->getMeasureBySizes()), "29.00 30.00 31.00 [32.00] 33.00 34.00 35.00");
}

TEST_F(SegmentsOnAPiece, theFirstReevaluationMayBeOfAnyModeAndGradation)
{
    for (const bool hasNest : {true, false}) {
        if (!hasNest)
            piece.document().mGradation = GradationData();
        for (const bool isDriven : {false, true}) {
            first->setFormulaMeasurement(isDriven ? formula("31", piece.set()) : nullptr);
            for (const eFrameReevaluate mode : {Reevaluate_Ask, Reevaluate_Apply, Reevaluate_Store}) {
                *first->getMeasureBySizes() = ValuesAccordingSizes();
                piece.set()->reevaluate(mode);
                const bool isStored = isDriven || mode != Reevaluate_Ask;
                EXPECT_EQ(first->getMeasureBySizes()->mValues.count(), isStored ? (hasNest ? 7 : 1) : 0)
                    << hasNest << isDriven << int(mode);
            }
        }
    }
    EXPECT_TRUE(application.mMessages.isEmpty());
}

TEST_F(SegmentsOnAPiece, withoutANestShiftedSizesAreNoWish)
{
    piece.document().mGradation = GradationData();
    ValuesAccordingSizes wanted = support::sizes({99}, 0);
    EXPECT_TRUE(first->applyMeasures(wanted, piece.gradation(), ModifyLevel_ShiftedSizes));
    EXPECT_TRUE(first->applyMeasures(wanted, piece.gradation(), ModifyLevel_Nothing));
    double value = 0.0;
    first->evaluateMeasurementObject(-1, value);
    EXPECT_NEAR(value, 30.0, 1e-9);
    EXPECT_TRUE(first->applyMeasures(wanted, piece.gradation(), ModifyLevel_AllSizes)); // the nest alone
    first->evaluateMeasurementObject(-1, value);
    EXPECT_NEAR(value, 99.0, 1e-4);
}

TEST_F(SegmentsOnAPiece, withANestOnlyTheActionThatDoesNothingIsNoWish)
{
    ValuesAccordingSizes wanted = support::plus(*first->getMeasureBySizes(), 2.0);
    EXPECT_TRUE(first->applyMeasures(wanted, piece.gradation(), ModifyLevel_Nothing));
    double value = 0.0;
    first->evaluateMeasurementObject(-1, value);
    EXPECT_NEAR(value, 30.0, 1e-9);
    wanted.mValues[0] += 1.0; // shifted to the present nest, the smallest size alone differs
    EXPECT_TRUE(first->applyMeasures(wanted, piece.gradation(), ModifyLevel_ShiftedSizes));
    EXPECT_EQ(support::str(*first->getMeasureBySizes()), "28.00 28.00 29.00 [30.00] 31.00 32.00 33.00");
}

TEST_F(SegmentsOnAPiece, oneValueIsALengthForTheNest)
{
    const double measure = 32.0;
    EXPECT_TRUE(first->applyValues(&measure, &measure, nullptr)); // the level plays no part
    double value = 0.0;
    first->evaluateMeasurementObject(-1, value);
    EXPECT_NEAR(value, 32.0, 1e-4);
}

TEST_F(SegmentsOnAPiece, anInnerVectorThatTheSegmentTakesAlongIsMovedByItsFormula)
{
    CDbPointVOR *const inner = piece.group()->addOwnVector({20.0, 30.0});
    FrameSegment *const marker =
        piece.segment("Marker", inner, inner, FrameSegment::Displace_AlongY)->getFrameSegment();
    EXPECT_FALSE(first->influenceGeometrically(marker));
    first->setFormulaMeasurement(formula("30", piece.set()));
    EXPECT_TRUE(first->influenceGeometrically(marker));
}

TEST_F(SegmentsOnAPiece, aFormulaThatMovesTheOtherSegmentIsKnownToDoSo)
{
    EXPECT_FALSE(first->influenceGeometrically(second));
    first->setFormulaMeasurement(formula("30", piece.set()));
    EXPECT_TRUE(first->influenceGeometrically(second));
    EXPECT_FALSE(first->influenceGeometrically(first));
    EXPECT_FALSE(first->influenceGeometrically(nullptr));
    EXPECT_FALSE(first->influenceGeometrically(piece.set()->newSpec(name("P")))); // defined without a place
    EXPECT_FALSE(first->influenceGeometrically(piece.set()->newSegment(name("U"))));
}

TEST_F(SegmentsOnAPiece, aFormulaThatCannotBeOrderedStaysAndCostsTheControlObject)
{
    first->setFormulaMeasurement(formula("30", piece.set()));
    TreeEquations *const old = formula("29", piece.set());
    second->rememberFormula(old);
    TreeEquations *const proposed = formula("31", piece.set());
    const int changes = piece.group()->changedCount();
    second->setFormulaMeasurement(proposed);
    EXPECT_EQ(second->measurementFormula(), proposed);
    EXPECT_EQ(application.mMessages, QStringList{name(kInterferes)});
    EXPECT_EQ(second->controlSegmentCorrespondent(), nullptr);
    EXPECT_FALSE(second->isDefinedInDocument());
    EXPECT_EQ(piece.group()->changedCount(), changes + 1);
    EXPECT_NE(first->controlSegmentCorrespondent(), nullptr);
    delete old; // neither restored nor deleted: its holder's
}

TEST_F(SegmentsOnAPiece, theMessageComesWhenTheControlObjectIsGone)
{
    class AskingApplication : public support::RecordingApplication
    {
    public:
        void showMessage(const QString &text, const QString &title, int icon) override
        {
            RecordingApplication::showMessage(text, title, icon);
            titles << title;
            wasDefined << segment->isDefinedInDocument();
        }
        FrameSegment *segment = nullptr;
        QStringList titles;
        QList<bool> wasDefined;
    };
    AskingApplication asking;
    asking.segment = second;
    first->setFormulaMeasurement(formula("30", piece.set()));
    second->setFormulaMeasurement(formula("31", piece.set()));
    EXPECT_EQ(asking.mMessages, QStringList{name(kInterferes)});
    EXPECT_EQ(asking.titles, QStringList{QString()});
    EXPECT_EQ(asking.wasDefined, QList<bool>{false});
}

TEST_F(SegmentsOnAPiece, aHostThatRemovesTheControlObjectWhileToldOfTheChangeDoesNoHarm)
{
    class RemovingGroup : public CDbGroupObject
    {
    public:
        void emitChanged() override { delete segment->controlSegmentCorrespondent(); }
        FrameSegment *segment = nullptr;
    };
    auto *const group = new RemovingGroup;
    GabaritObject *const gabarit = group->newGabarit();
    for (const GeoPoint2D &corner :
         {GeoPoint2D(0, 0), GeoPoint2D(10, 0), GeoPoint2D(10, 10), GeoPoint2D(0, 10)})
        gabarit->addContourVector(corner);
    piece.document().mPlan.addGroup(group);
    ControlSkeleton skeleton(group, gabarit);
    group->segment = piece.set()->newSegment(name("X"));
    new ControlSegment(gabarit->contourVectors()[0], gabarit->contourVectors()[1], &skeleton, group->segment);
    ASSERT_TRUE(group->segment->isDefinedInDocument());
    group->segment->removeControlSegmentCorrespondent();
    EXPECT_FALSE(group->segment->isDefinedInDocument());
}

TEST_F(SegmentsOnAPiece, oneLengthThatCannotBeAppliedIsNotStored)
{
    first->getDisplace() = static_cast<FrameSegment::eDisplaceType>(9); // moves nothing
    const std::string before = support::str(*first->getMeasureBySizes());
    const double measure = 32.0;
    EXPECT_FALSE(first->applyValues(&measure, static_cast<const double *>(nullptr), nullptr));
    EXPECT_EQ(support::str(*first->getMeasureBySizes()), before);
    EXPECT_TRUE(application.mMessages.isEmpty()); // no formula, nothing lost
    EXPECT_TRUE(piece.set()->removedFormulas().isEmpty());
}

TEST_F(SegmentsOnAPiece, aListIsStoredBeforeThePieceIsAsked)
{
    piece.document().mHasGradation = false; // nothing can be moved without one
    const QListEx<double> wanted{29, 30, 31, 32, 33, 34, 35};
    EXPECT_THROW(first->applyValues(&wanted, static_cast<const QListEx<double> *>(nullptr), nullptr),
                 AssertionError);
    EXPECT_EQ(support::str(*first->getMeasureBySizes()), "29.00 30.00 31.00 [32.00] 33.00 34.00 35.00");
}

TEST_F(SegmentsOnAPiece, aLengthThatCannotBeAppliedCostsTheFormula)
{
    // A displacement of no known kind moves nothing, so the length is never reached.
    first->setFormulaMeasurement(formula("31", piece.set()));
    first->getDisplace() = static_cast<FrameSegment::eDisplaceType>(9);
    QListEx<double> wanted{29, 30, 31, 32, 33, 34, 35};
    EXPECT_FALSE(first->applyValues(&wanted, static_cast<const QListEx<double> *>(nullptr), nullptr));
    EXPECT_EQ(first->measurementFormula(), nullptr);
    EXPECT_EQ(application.mMessages,
              QStringList{name("Cannot apply formula for element 'First'. The formula has been deleted.")});
    const auto removed = piece.set()->removedFormulas();
    ASSERT_EQ(removed.count(), 1);
    EXPECT_EQ(removed.at(0).get<0>(), name("First"));
    EXPECT_TRUE(removed.at(0).get<1>());
    EXPECT_EQ(removed.at(0).get<2>(), name("31"));
}

} // namespace
