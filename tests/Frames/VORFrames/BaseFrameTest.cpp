// The abstract element: stored values, the way to its control object, circles of references, and who mentions
// it.

#include <support/ControlledPiece.h>
#include <support/TestDocument.h>

#include <VorCore/VorCore.h>
#include <gtest/gtest.h>

#include <cstring>

using namespace VorSystem;
using support::formula;
using support::name;

namespace
{

// --- The interface itself ---

// The place of a virtual operation in the table of its class, as the platform's calling convention numbers
// it.
template<class Member>
std::ptrdiff_t slot(Member member)
{
    std::ptrdiff_t words[2];
    static_assert(sizeof(member) == sizeof(words), "a pointer to member is a pair of words here");
    std::memcpy(words, &member, sizeof(words));
    return (words[0] - 1) / static_cast<std::ptrdiff_t>(sizeof(void *));
}

// Shows the protected operation, which stands last.
struct Opened : BaseFrame {
    using BaseFrame::skeletonElementPointedAtUs;
};

TEST(BaseFrameInterface, virtualOperationsStandInTheOrderHostsWereBuiltAgainst)
{
    using B = BaseFrame;
    using Lists = bool (B::*)(const QListEx<double> *, const QListEx<double> *, bool *);
    using Values = bool (B::*)(const double *, const double *, bool *);
    const std::ptrdiff_t slots[] = {
        slot(&B::toJson),
        slot(&B::fromJson), // the destructor's two places follow
        slot(&B::elementType) - 2,
        slot(&B::fullName) - 2,
        slot(&B::getFrameSet) - 2,
        slot(&B::getMeasureBySizes) - 2,
        slot(&B::getLevelBySizes) - 2,
        slot(static_cast<Lists>(&B::applyValues)) - 2,
        slot(static_cast<Values>(&B::applyValues)) - 2,
        slot(&B::measurementFormulaAvailable) - 2,
        slot(&B::formulaLevelAvailable) - 2,
        slot(&B::aFormulaImplicitMeasures) - 2,
        slot(&B::aFormulaImplicitLevel) - 2,
        slot(&B::measurementFormula) - 2,
        slot(&B::formulaLevel) - 2,
        slot(&B::formulaSpec) - 2,
        slot(&B::setFormulaMeasurement) - 2,
        slot(&B::setFormulaLevel) - 2,
        slot(&B::setFormulaSpec) - 2,
        slot(&B::adjustFramesSameLevel) - 2,
        slot(&B::evaluateMeasurement) - 2,
        slot(&B::evaluateMeasurementObject) - 2,
        slot(&B::evaluateMeasurementFormula) - 2,
        slot(&B::evaluateMeasures) - 2,
        slot(&B::evaluateMeasuresObject) - 2,
        slot(&B::evaluateMeasuresFormula) - 2,
        slot(&B::evaluateLevel) - 2,
        slot(&B::evaluateLevelObject) - 2,
        slot(&B::evaluateLevelFormula) - 2,
        slot(&B::evaluateLevels) - 2,
        slot(&B::evaluateLevelsObject) - 2,
        slot(&B::evaluateLevelsFormula) - 2,
        slot(&B::objectControlCorresponding) - 2,
        slot(&B::objectControlCorrespondingOfGroup) - 2,
        slot(&B::reevaluate) - 2,
        slot(&B::reevaluateUnder) - 2,
        slot(&B::reevaluateElement) - 2,
        slot(&B::applyMeasuresLevels) - 2,
        slot(&B::applyMeasures) - 2,
        slot(&B::applyLevels) - 2,
        slot(&B::isDefinedInDocument) - 2,
        slot(&B::canBeDestroyed) - 2,
        slot(&B::canBeDestroyedInBatch) - 2,
        slot(&B::addEvaluationUsedInMeasurement) - 2,
        slot(&B::addEvaluationUsedInLevel) - 2,
        slot(&B::addReferencesImplicitInMeasuresList) - 2,
        slot(&B::addReferencesImplicitInLevelList) - 2,
        slot(&B::containsImplicitReferences) - 2,
        slot(&B::influenceGeometrically) - 2,
        slot(&Opened::skeletonElementPointedAtUs) - 2,
    };
    for (std::size_t i = 0; i < std::size(slots); ++i)
        EXPECT_EQ(slots[i], static_cast<std::ptrdiff_t>(i)) << "operation " << i;
}

// An element of no kind that the library knows.
class Stranger : public BaseFrame
{
public:
    Stranger() : BaseFrame(QStringLiteral("X")) {}
    XJsonObject toJson() const override { return XJsonObject(); }
    void fromJson(const XJsonObject &) override {}
    eElementFrameType elementType() override { return Element_Spec; }
    bool canBeDestroyedInBatch() override { return true; }
    using BaseFrame::setFormula;

protected:
    ControlBase *skeletonElementPointedAtUs(ControlSkeleton *) override { return nullptr; }
};

TEST(BaseFrame, answersNeutrally)
{
    Stranger element;
    double value = 7.0;
    QListEx<double> values{7.0};
    ValuesAccordingSizes lists;
    QListEx<Evaluation> evaluations;
    QListEx<BaseFrame *> pending;
    QListEx<BaseFrame *> done;
    EXPECT_EQ(element.fullName(), name("X"));
    EXPECT_EQ(element.getMeasureBySizes(), nullptr);
    EXPECT_EQ(element.getLevelBySizes(), nullptr);
    EXPECT_FALSE(element.applyValues(&value, &value, nullptr));
    EXPECT_FALSE(element.applyValues(&values, &values, nullptr));
    EXPECT_FALSE(element.measurementFormulaAvailable() || element.formulaLevelAvailable());
    EXPECT_FALSE(element.aFormulaImplicitMeasures() || element.aFormulaImplicitLevel());
    EXPECT_FALSE(element.evaluateMeasurement(0, value) || element.evaluateMeasurementObject(0, value) ||
                 element.evaluateMeasurementFormula(0, value));
    EXPECT_FALSE(element.evaluateLevel(0, value) || element.evaluateLevelObject(0, value) ||
                 element.evaluateLevelFormula(0, value));
    EXPECT_FALSE(element.evaluateMeasures(nullptr, values) ||
                 element.evaluateMeasuresObject(nullptr, values) || element.evaluateMeasuresFormula(values));
    EXPECT_FALSE(element.evaluateLevels(nullptr, values) || element.evaluateLevelsObject(nullptr, values) ||
                 element.evaluateLevelsFormula(values));
    EXPECT_EQ(value, 7.0);
    EXPECT_TRUE(element.applyMeasuresLevels(lists, lists, nullptr, ModifyLevel_AllSizes));
    EXPECT_TRUE(element.applyMeasures(lists, nullptr, ModifyLevel_AllSizes));
    EXPECT_TRUE(element.applyLevels(lists, nullptr, ModifyLevel_AllSizes));
    EXPECT_FALSE(element.adjustFramesSameLevel(Reevaluate_Apply));
    EXPECT_FALSE(element.reevaluateUnder(&element, Reevaluate_Store));
    EXPECT_FALSE(element.influenceGeometrically(&element));
    EXPECT_FALSE(element.containsImplicitReferences({&element}, {&element}));
    element.addEvaluationUsedInMeasurement(evaluations);
    element.addEvaluationUsedInLevel(evaluations);
    element.addReferencesImplicitInMeasuresList(pending, done);
    element.addReferencesImplicitInLevelList(pending, done);
    EXPECT_TRUE(evaluations.isEmpty() && pending.isEmpty());
    EXPECT_EQ(element.getMeasures(5), 0.0);
    EXPECT_EQ(element.getLevel(5), 0.0);
    element.setMeasures(5, 1.0);
    element.setLevel(5, 1.0);
    EXPECT_FALSE(element.formulaMeasureFullyDefined() || element.formulaLevelFullyDefined());
    EXPECT_FALSE(element.containsVector(nullptr));
    EXPECT_EQ(element.groupCorrespondent(), nullptr);
    EXPECT_EQ(element.gabaritCorrespondent(), nullptr);
    EXPECT_FALSE(element.isInGroupSelects());
    TreeEquations tree;
    element.setFormulaMeasurement(&tree); // not taken: it stays the caller's
    element.setFormulaLevel(&tree);
    element.setFormulaSpec(&tree);
    EXPECT_EQ(element.measurementFormula(), nullptr);
}

TEST(BaseFrame, aSlotDeletesTheFormulaItLosesAndNotTheOneItKeeps)
{
    Stranger element;
    TreeEquations *slot = nullptr;
    auto *const first = new TreeEquations;
    element.setFormula(slot, first);
    element.setFormula(slot, first);
    EXPECT_EQ(slot, first);
    element.setFormula(slot, new TreeEquations);
    EXPECT_NE(slot, nullptr);
    element.setFormula(slot, nullptr);
    EXPECT_EQ(slot, nullptr);
}

TEST(BaseFrame, operationsThatNeedASetRaiseWithoutOne)
{
    Stranger element;
    QListEx<Evaluation> list;
    EXPECT_THROW(element.isMentionedInTheSetFormula(nullptr, false), AssertionError);
    EXPECT_THROW(element.isMentionedByElementDefined(), AssertionError);
    EXPECT_THROW(element.evaluationInfluencesGeometrically(list), AssertionError);
    EXPECT_THROW(element.evaluationsInfluencedGeometrically(list), AssertionError);
}

// --- Stored values ---

TEST(BaseFrame, aStoredValueIsReadByItsSizeOrAtTheNest)
{
    FrameFrame frame(name("A"));
    EXPECT_EQ(frame.getLevel(-1), 0.0); // never evaluated
    *frame.getMeasureBySizes() = support::sizes({10, 12, 14}, 1);
    *frame.getLevelBySizes() = support::sizes({1, 2, 3}, 2);
    EXPECT_EQ(frame.getMeasures(-1), 12.0);
    EXPECT_EQ(frame.getMeasures(0), 10.0);
    EXPECT_EQ(frame.getLevel(-1), 3.0);
    frame.setMeasures(2, 15.0);
    frame.setLevel(0, 9.0);
    EXPECT_EQ(support::text(*frame.getMeasureBySizes()), "10 [12] 15");
    EXPECT_EQ(support::text(*frame.getLevelBySizes()), "9 2 [3]");
    FrameCenter center(name("C"));
    EXPECT_EQ(center.getMeasures(-1), 0.0);
}

TEST(BaseFrameDeath, aSizeOutsideTheListEndsTheProgram)
{
    testing::FLAGS_gtest_death_test_style = "fast";
    FrameFrame frame(name("A"));
    EXPECT_DEATH(frame.getMeasures(-1), "at: index 0 is outside a list of size 0"); // unlike the level
    *frame.getMeasureBySizes() = support::sizes({10}, 0);
    *frame.getLevelBySizes() = support::sizes({10}, 0);
    EXPECT_DEATH(frame.getMeasures(1), "at: index 1");
    EXPECT_DEATH(frame.setMeasures(-1, 1.0), "index -1");
    EXPECT_DEATH(frame.setLevel(-1, 1.0), "index -1");
    EXPECT_DEATH(frame.getLevel(1), "at: index 1");
}

// --- The control object ---

TEST(ControlObjects, areFoundOnThePieceThatPointsAtTheElement)
{
    support::RectangleUnderControl piece;
    ControlFrame *const control = piece.chord("A", 2);
    FrameFrame *const frame = control->getFrameFrame();
    EXPECT_EQ(frame->objectControlCorresponding(), control);
    EXPECT_EQ(frame->objectControlCorrespondingOfGroup(piece.group()), control);
    EXPECT_EQ(frame->objectControlCorrespondingOfGroup(nullptr), nullptr);
    EXPECT_TRUE(frame->isDefinedInDocument());
    EXPECT_EQ(frame->groupCorrespondent(), piece.group());
    EXPECT_EQ(frame->gabaritCorrespondent(), piece.gabarit());
    EXPECT_TRUE(frame->containsVector(piece.right(2)));
    EXPECT_FALSE(frame->containsVector(piece.right(3)));
    EXPECT_EQ(piece.frameCenter()->objectControlCorresponding(), piece.axis);
    EXPECT_FALSE(frame->isInGroupSelects());
    piece.group()->setSelected(true);
    EXPECT_TRUE(frame->isInGroupSelects());
    delete control;
    EXPECT_FALSE(frame->isDefinedInDocument()); // never stored
}

TEST(ControlObjects, areLookedForInTheMappedGroupsOnlyWhileAMappingHolds)
{
    support::RectangleUnderControl piece;
    FrameFrame *const frame = piece.chord("A", 2)->getFrameFrame();
    CDbGroupObject other;
    GestFrames &manager = *piece.document().mManager;
    {
        const RelayBaton baton = manager.setGroupMapping({{piece.group(), &other}});
        EXPECT_FALSE(frame->isDefinedInDocument());
    }
    {
        const RelayBaton baton = manager.setGroupMapping({{&other, piece.group()}, {piece.group(), nullptr}});
        EXPECT_TRUE(frame->isDefinedInDocument());
    }
    EXPECT_TRUE(frame->isDefinedInDocument());
}

TEST(ControlObjects, needADocumentWithAPlan)
{
    support::TestDocument document;
    FrameSegment *const segment = document.newSet()->newSegment(name("S"));
    EXPECT_EQ(segment->objectControlCorresponding(), nullptr);
    document.mHasPlan = false;
    EXPECT_EQ(segment->objectControlCorresponding(), nullptr);
}

TEST(ControlObjects, ofTwoPiecesTheFirstOfThePlanAnswers)
{
    support::RectangleUnderControl piece;
    FrameFrame *const frame = piece.chord("A", 2)->getFrameFrame();
    support::Piece second = support::rectangle();
    CDbGroupObject *const group = second.group.get();
    GabaritObject *const gabarit = second.gabarit;
    piece.document().mPlan.addGroup(second.release());
    ControlSkeleton skeleton(group, gabarit);
    new ControlCenter(gabarit->contourVectors()[0], gabarit->contourVectors()[2], &skeleton,
                      piece.frameCenter());
    auto *const control =
        new ControlFrame(gabarit->contourVectors()[1], gabarit->contourVectors()[3], &skeleton, frame);
    EXPECT_EQ(frame->groupCorrespondent(), piece.group());
    EXPECT_EQ(frame->objectControlCorrespondingOfGroup(group), control);
}

TEST(ControlObjects, withoutASkeletonAreAnErrorForWhoeverAsksForThePiece)
{
    class Placed : public Stranger
    {
    public:
        ControlBase *objectControlCorresponding() override { return &mLoose; }

    private:
        ControlBase mLoose{nullptr, nullptr, nullptr, true};
    } element;
    EXPECT_TRUE(element.isDefinedInDocument());
    EXPECT_THROW(element.groupCorrespondent(), AssertionError);
    EXPECT_THROW(element.gabaritCorrespondent(), AssertionError);
    EXPECT_THROW(element.isInGroupSelects(), AssertionError);
}

// --- Circles of references ---

// A set of elements named A, B ... on one center; formulas are texts.
class Recursion : public testing::Test
{
protected:
    FrameFrame *frame(const char *text) { return set->newFrame(name(text), center); }

    bool measureOf(BaseFrame *element, const char *text)
    {
        const std::unique_ptr<TreeEquations> proposed(formula(text, set));
        return element->formulaMeasurementIsRecursive(proposed.get());
    }
    bool levelOf(BaseFrame *element, const char *text)
    {
        const std::unique_ptr<TreeEquations> proposed(formula(text, set));
        return element->formulaLevelIsRecursive(proposed.get());
    }

    support::TestDocument document{3, 2};
    FrameSet *set = document.newSet();
    FrameCenter *center = set->newCenter(name("C"));
};

TEST_F(Recursion, anElementMustNotNameItsOwnValueInTheSameRole)
{
    FrameFrame *const a = frame("A");
    EXPECT_TRUE(measureOf(a, "Measure(C:A) + 1"));
    EXPECT_FALSE(measureOf(a, "Level(C:A) + 1"));
    EXPECT_TRUE(levelOf(a, "Level(C:A) + 1"));
    EXPECT_FALSE(levelOf(a, "Measure(C:A) + 1"));
    EXPECT_FALSE(measureOf(a, "1 + 2"));
}

TEST_F(Recursion, aCircleMayRunThroughMeasuresAndLevels)
{
    FrameFrame *const a = frame("A");
    FrameFrame *const x = frame("X");
    x->setFormulaLevel(formula("Measure(C:A)", set));
    EXPECT_TRUE(measureOf(a, "Level(C:X)"));
    EXPECT_FALSE(levelOf(a, "Level(C:X)"));
    x->setFormulaMeasurement(formula("Level(C:X)", set));
    EXPECT_TRUE(measureOf(a, "Measure(C:X)"));
}

TEST_F(Recursion, aMeasureThatBringsInTheElementIsSeenBeforeTheElementIsExpanded)
{
    // The measure expanded last in a turn adds the own level; expanding a level in the same turn would retire
    // it.
    FrameFrame *const a = frame("A");
    FrameFrame *const x = frame("X");
    x->setFormulaMeasurement(formula("Level(C:A)", set));
    EXPECT_TRUE(levelOf(a, "Measure(C:X)"));
}

TEST_F(Recursion, aLinkStandsForItsFrames)
{
    FrameFrame *const a = frame("A");
    FrameFrame *const b = frame("B");
    FrameLink *const link = set->newLink(name("L"));
    link->linkFrame(a);
    link->linkFrame(b);
    EXPECT_TRUE(measureOf(a, "Measure(L) / 2"));
    EXPECT_TRUE(levelOf(b, "Measure(L) / 2"));
    EXPECT_TRUE(measureOf(link, "Measure(C:A)"));
    EXPECT_TRUE(measureOf(link, "Level(C:B)"));
    FrameFrame *const outside = frame("O");
    EXPECT_FALSE(measureOf(outside, "Measure(L)"));
}

TEST_F(Recursion, aFrameWithoutFormulaFollowsItsLinksFormula)
{
    FrameFrame *const a = frame("A");
    FrameFrame *const b = frame("B");
    FrameLink *const link = set->newLink(name("L"));
    link->linkFrame(b);
    link->setFormulaMeasurement(formula("Measure(C:A)", set));
    EXPECT_TRUE(measureOf(a, "Measure(C:B)"));
    EXPECT_FALSE(measureOf(a, "Level(C:B)"));
    b->setFormulaMeasurement(formula("3", set)); // its own formula comes first
    EXPECT_FALSE(measureOf(a, "Measure(C:B)"));
    link->setFormulaLevel(formula("Level(C:A)", set));
    EXPECT_TRUE(levelOf(a, "Level(C:B)"));
}

TEST_F(Recursion, aLinkWithoutFormulaIsNotLookedThrough)
{
    FrameFrame *const a = frame("A");
    FrameFrame *const b = frame("B");
    FrameLink *const link = set->newLink(name("L"));
    link->linkFrame(b);
    b->setFormulaMeasurement(formula("Measure(C:A)", set));
    EXPECT_FALSE(measureOf(a, "Measure(L)")); // the circle A, L, B, A stays undiscovered
}

TEST_F(Recursion, aMissingOrEmptyFormulaAndAnUnknownNameAreToldApart)
{
    FrameFrame *const a = frame("A");
    EXPECT_THROW(a->formulaMeasurementIsRecursive(nullptr), AssertionError);
    EXPECT_THROW(a->formulaLevelIsRecursive(nullptr), AssertionError);
    TreeEquations empty;
    delete empty.root;
    empty.root = nullptr;
    EXPECT_FALSE(a->formulaMeasurementIsRecursive(&empty));
    EXPECT_THROW(measureOf(a, "Measure(nobody)"), AssertionError);
    const TreeEquations unfinished; // a root without a kind
    EXPECT_THROW(a->formulaMeasurementIsRecursive(const_cast<TreeEquations *>(&unfinished)), AssertionError);
}

TEST_F(Recursion, aLongChainAndADeepDiamondAreWalkedOnce)
{
    FrameFrame *last = frame("A");
    FrameFrame *const first = last;
    for (int i = 0; i < 3000; ++i) { // each layer names the one before twice
        auto *const next = new FrameFrame(QString::number(i));
        next->addFrameCenter(center, -1);
        set->getFramesPtr()->append(next);
        auto *const tree = new TreeEquations;
        tree->root->contents = ElemAdd;
        tree->root->sonLeft = new ElementEquation(ElemMeasure, 0.0, last);
        tree->root->sonRight = new ElementEquation(ElemMeasure, 0.0, last);
        next->setFormulaMeasurement(tree);
        last = next;
    }
    TreeEquations proposed;
    proposed.root->contents = ElemMeasure;
    proposed.root->element = last;
    EXPECT_TRUE(first->formulaMeasurementIsRecursive(&proposed));
    EXPECT_FALSE(first->formulaLevelIsRecursive(&proposed));
}

// An element of a host's own class decides for itself what stands for it.
class Follower : public FrameFrame
{
public:
    Follower() : FrameFrame(QStringLiteral("F")) {}
    bool containsImplicitReferences(QListEx<BaseFrame *> measures, QListEx<BaseFrame *> levels) override
    {
        ++asked;
        return measures.contains(leader) || levels.contains(leader);
    }
    BaseFrame *leader = nullptr;
    int asked = 0;
};

TEST_F(Recursion, anElementOfAHostsOwnClassIsAsked)
{
    Follower follower;
    follower.leader = frame("A");
    EXPECT_TRUE(measureOf(&follower, "Measure(C:A)"));
    follower.leader = nullptr;
    follower.asked = 0;
    EXPECT_FALSE(measureOf(&follower, "Measure(C:A) + 1"));
    EXPECT_EQ(follower.asked, 1);
}

// --- Mentions ---

TEST_F(Recursion, anElementThatIsMentionedTellsItsHolder)
{
    support::RecordingApplication application;
    FrameFrame *const a = frame("A");
    FrameFrame *const b = frame("B");
    EXPECT_FALSE(a->isMentionedInTheSetFormula(set, true));
    b->setFormulaLevel(formula("Measure(C:A)", set));
    EXPECT_TRUE(a->isMentionedInTheSetFormula(set, false));
    EXPECT_TRUE(application.mMessages.isEmpty());
    EXPECT_TRUE(a->isMentionedInTheSetFormula(set, true));
    ASSERT_EQ(application.mMessages.count(), 1);
    EXPECT_EQ(application.mMessages.first(),
              name("Cannot delete this element because it is mentioned in a formula of element 'C:B'"));
    EXPECT_TRUE(b->aFormulaWhichStates(a));
    EXPECT_FALSE(a->aFormulaWhichStates(b));
    EXPECT_FALSE(a->isMentionedByElementDefined()); // B is not defined
}

TEST_F(Recursion, aMentionMayStandInEachOfTheThreeFormulas)
{
    FrameFrame *const a = frame("A");
    FrameFrame *const b = frame("B");
    FrameSpec *const spec = set->newSpec(name("P"));
    EXPECT_FALSE(b->aFormulaWhichStates(a) || spec->aFormulaWhichStates(a));
    b->setFormulaMeasurement(formula("Level(C:A)", set));
    spec->setFormulaSpec(formula("Measure(C:A)", set));
    EXPECT_TRUE(b->aFormulaWhichStates(a));
    EXPECT_TRUE(spec->aFormulaWhichStates(a));
    b->setFormulaMeasurement(nullptr);
    b->setFormulaLevel(formula("Measure(C:A)", set));
    EXPECT_TRUE(b->aFormulaWhichStates(a));
}

TEST_F(Recursion, aFormulaWithAnEmptyTreeIsNotRebound)
{
    FrameFrame *const a = frame("A");
    for (TreeEquations *empty : {new TreeEquations, new TreeEquations}) {
        delete empty->root;
        empty->root = nullptr;
        if (a->measurementFormula() == nullptr)
            a->setFormulaMeasurement(empty);
        else
            a->setFormulaLevel(empty);
    }
    a->adapterFormulaInSet(set);
    EXPECT_NE(a->measurementFormula(), nullptr);
    EXPECT_NE(a->formulaLevel(), nullptr);
}

TEST_F(Recursion, aCopyPointsAtTheSameSetNeighboursAndFormulas)
{
    const FrameCenter copiedCenter(*center);
    EXPECT_EQ(copiedCenter.name(), name("C"));
    EXPECT_EQ(copiedCenter.getFrameSet(), set);
    FrameFrame *const a = frame("A");
    a->setFormulaLevel(formula("1", set));
    FrameFrame assigned(name("X"));
    assigned = *a;
    EXPECT_EQ(assigned.fullName(), name("C:A"));
    EXPECT_EQ(assigned.getFrameCenter(), center);
    EXPECT_EQ(assigned.formulaLevel(), a->formulaLevel());
    assigned.forgetFormulas(); // or they would be deleted twice
    assigned.setFrameCenter(nullptr);
}

TEST_F(Recursion, formulasAreBoundToTheLikeNamedElementsOfAnotherSetOrDropped)
{
    FrameFrame *const a = frame("A");
    frame("B");
    FrameSet *const other = document.newSet("Other");
    FrameCenter *const otherCenter = other->newCenter(name("c"));
    FrameFrame *const otherB = other->newFrame(name("b"), otherCenter);
    a->setFormulaMeasurement(formula("Measure(C:B)", set));
    a->setFormulaLevel(formula("Level(C:B) + Level(C:A)", set)); // other has no A
    a->adapterFormulaInSet(other);
    EXPECT_TRUE(a->aFormulaWhichStates(otherB));
    EXPECT_EQ(a->formulaLevel(), nullptr);
    FrameSpec *const spec = set->newSpec(name("P"));
    spec->setFormulaSpec(formula("Measure(C:A)", set));
    spec->adapterFormulaInSet(other);
    EXPECT_NE(spec->formulaSpec(), nullptr); // a spec's formula is not touched
}

} // namespace
