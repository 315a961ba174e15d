// A node of a formula: its copies, its value, its text and its references.

#include "FormulaFixture.h"

#include <cmath>
#include <limits>

using namespace formulas;
using namespace VorSystem;

namespace
{

class ElementEquationTest : public FormulaTest
{
};

TEST_F(ElementEquationTest, aNewNodeIsEmpty)
{
    const ElementEquation node;

    EXPECT_EQ(node.sonLeft, nullptr);
    EXPECT_EQ(node.sonRight, nullptr);
    EXPECT_EQ(node.contents, ElemNone);
    EXPECT_EQ(node.value, 0.0);
    EXPECT_EQ(node.element, nullptr);
    EXPECT_EQ(node.implicitUnit, ImplicitNumber);
    EXPECT_TRUE(node.pendingName.isEmpty());
}

TEST_F(ElementEquationTest, aNodeMadeOfKindValueAndElementHasNothingElse)
{
    const ElementEquation node(ElemLevel, 2.5, mA);

    EXPECT_EQ(node.contents, ElemLevel);
    EXPECT_EQ(node.value, 2.5);
    EXPECT_EQ(node.element, mA);
    EXPECT_EQ(node.sonLeft, nullptr);
    EXPECT_EQ(node.sonRight, nullptr);
    EXPECT_EQ(node.implicitUnit, ImplicitNumber);
    EXPECT_TRUE(node.pendingName.isEmpty());
}

TEST_F(ElementEquationTest, kindsAndUnitsAreStoredIn32Bits)
{
    EXPECT_EQ(sizeof(ElementEquation::contents), 4U);
    EXPECT_EQ(sizeof(ElementEquation::implicitUnit), 4U);
}

TEST_F(ElementEquationTest, aPlainCopySharesTheSons)
{
    const Node sum = joined(ElemAdd, constant(1), constant(2));
    sum->pendingName = QStringLiteral("x");

    ElementEquation copy(*sum);
    ElementEquation assigned;
    assigned = *sum;

    for (ElementEquation *node : {&copy, &assigned}) {
        EXPECT_EQ(node->sonLeft, sum->sonLeft);
        EXPECT_EQ(node->sonRight, sum->sonRight);
        EXPECT_EQ(text(node->pendingName), "x");
        node->sonLeft = node->sonRight = nullptr; // only one of them may delete the sons
    }
}

TEST_F(ElementEquationTest, aDeepCopySharesNothingButTheElements)
{
    Probe probe("p");
    const Node source = joined(ElemDivide, joined(ElemParenthesis, measureOf(&probe), nullptr), constant(4));
    source->pendingName = QStringLiteral("typed");
    source->implicitUnit = ImplicitLength;
    source->sonRight->implicitUnit = ImplicitLength;

    const auto copy = std::make_unique<ElementEquation>();
    ElementEquation *target = copy.get();
    source->deepCopy(target);

    EXPECT_EQ(target, copy.get());
    EXPECT_EQ(text(shape(copy.get())), "({M[p]} / 4)");
    EXPECT_NE(copy->sonLeft, source->sonLeft);
    EXPECT_NE(copy->sonRight, source->sonRight);
    EXPECT_EQ(copy->implicitUnit, ImplicitLength);
    EXPECT_EQ(copy->sonRight->implicitUnit, ImplicitLength);
    EXPECT_TRUE(copy->pendingName.isEmpty());
}

TEST_F(ElementEquationTest, aDeepCopyOverwritesTheSonsOfItsTarget)
{
    const Node target = joined(ElemAdd, constant(1), constant(2));
    const Node left(target->sonLeft);
    const Node right(target->sonRight);
    const Node source = constant(9);

    ElementEquation *place = target.get();
    source->deepCopy(place);

    EXPECT_EQ(text(shape(target.get())), "9");
    EXPECT_EQ(target->sonLeft, nullptr);
    EXPECT_EQ(left->value, 1.0); // not deleted
    EXPECT_EQ(right->value, 2.0);
}

TEST_F(ElementEquationTest, aDeepCopyTakesAnyKindAndMissingSons)
{
    const Node source = joined(static_cast<ElemContent>(9), nullptr, constant(2));
    const auto copy = std::make_unique<ElementEquation>();
    ElementEquation *target = copy.get();

    source->deepCopy(target);

    EXPECT_EQ(copy->contents, 9);
    EXPECT_EQ(copy->sonLeft, nullptr);
    EXPECT_EQ(copy->sonRight->value, 2.0);
    ElementEquation *none = nullptr;
    EXPECT_REFUSED(source->deepCopy(none));
}

TEST_F(ElementEquationTest, aReferenceReadsTheStoredValueOfTheSize)
{
    Probe probe("p");
    probe.mMeasures.mValues = {1.5, 2.5, 3.5};
    probe.mMeasures.mNestIndex = 1;
    probe.mLevels.mValues = {10.0, 20.0, 30.0};
    probe.mLevels.mNestIndex = 2;

    EXPECT_EQ(measureOf(&probe)->evaluate(0), 1.5);
    EXPECT_EQ(measureOf(&probe)->evaluate(2), 3.5);
    EXPECT_EQ(measureOf(&probe)->evaluate(-1), 2.5);
    EXPECT_EQ(levelOf(&probe)->evaluate(0), 10.0);
    EXPECT_EQ(levelOf(&probe)->evaluate(-1), 30.0);
}

TEST_F(ElementEquationTest, whatWasNeverEvaluatedCountsZero)
{
    Probe probe("p");

    for (const short size : {short(-1), short(0), short(5)}) {
        EXPECT_EQ(measureOf(&probe)->evaluate(size), 0.0);
        EXPECT_EQ(levelOf(&probe)->evaluate(size), 0.0);
        EXPECT_EQ(measureOf(mFront)->evaluate(size), 0.0); // a center has no lists at all
        EXPECT_EQ(levelOf(mFront)->evaluate(size), 0.0);
    }
}

TEST_F(ElementEquationTest, aListThatIsTooShortEndsTheProgram)
{
    Probe probe("p");
    probe.mMeasures.mValues = {1.0, 2.0};
    probe.mLevels.mValues = {1.0};

    EXPECT_DEATH(measureOf(&probe)->evaluate(2), "index");
    EXPECT_DEATH(levelOf(&probe)->evaluate(1), "index");
}

TEST_F(ElementEquationTest, constantsAreNotConverted)
{
    mApplication.setLengthUnit(LengthUnit::millimetre());
    const Node node = constant(2.5);
    node->implicitUnit = ImplicitLength;

    EXPECT_EQ(node->evaluate(-1), 2.5);
    EXPECT_EQ(text(node->toString()), "25");
    node->implicitUnit = ImplicitInvalid;
    EXPECT_EQ(text(node->toString()), "2.5");
}

TEST_F(ElementEquationTest, aDivisorThatCountsAsZeroGivesZero)
{
    struct {
        double divisor;
        double quotient;
    } const rows[] = {
        // clang-format off
        {0.0, 0.0},       {0.00001, 0.0},         {-0.00001, 0.0},
        {0.000011, 1e5 / 1.1}, {-0.000011, -1e5 / 1.1}, {4.0, 0.25},
        // clang-format on
    };
    for (const auto &row : rows) {
        const Node node = joined(ElemDivide, constant(1), constant(row.divisor));
        EXPECT_NEAR(node->evaluate(0), row.quotient, 1e-9) << row.divisor;
    }
}

TEST_F(ElementEquationTest, aDivisorThatIsNoNumberDivides)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_TRUE(std::isnan(joined(ElemDivide, constant(1), constant(nan))->evaluate(0)));
}

TEST_F(ElementEquationTest, theDividendOfAZeroDivisorIsNotLookedAt)
{
    Probe probe("p");
    probe.mMeasures.mValues = {0.0, 2.0};
    const Node node = joined(ElemDivide, measureOf(nullptr), measureOf(&probe));

    EXPECT_EQ(node->evaluate(0), 0.0);
    EXPECT_EQ(operationRefusing([&] { node->evaluate(1); }), "evaluate");
}

TEST_F(ElementEquationTest, theSonsAreAskedInTheirFixedOrder)
{
    struct {
        ElemContent kind;
        const char *order;
    } const rows[] = {
        {ElemAdd, "rl"},
        {ElemSubtract, "lr"},
        {ElemMultiply, "rl"},
        {ElemDivide, "rl"},
    };
    for (const auto &row : rows) {
        QString log;
        Probe left("l");
        Probe right("r");
        for (Probe *probe : {&left, &right}) {
            probe->mMeasures.mValues = {6.0};
            probe->mLog = &log;
        }
        joined(row.kind, measureOf(&left), measureOf(&right))->evaluate(0);
        EXPECT_EQ(text(log), row.order) << row.kind;
    }
}

TEST_F(ElementEquationTest, kindsOutsideTheListAreRefusedEverywhere)
{
    for (const int kind : {0, 9, -1, 1000000}) {
        const Node node = std::make_unique<ElementEquation>(static_cast<ElemContent>(kind), 1.0, mA);
        QListEx<BaseFrame *> lists[4];
        QListEx<Evaluation> evaluations;

        EXPECT_EQ(operationRefusing([&] { node->evaluate(0); }), "evaluate");
        EXPECT_EQ(operationRefusing([&] { node->toString(); }), "toString");
        EXPECT_EQ(operationRefusing([&] { node->mentionsElement(mA); }), "mentionsElement");
        EXPECT_EQ(operationRefusing([&] { node->setAdapter(&mSet); }), "setAdapter");
        EXPECT_EQ(operationRefusing([&] { node->addedReferencesInList(lists[0]); }), "addedReferencesInList");
        EXPECT_EQ(operationRefusing([&] { node->addsEvaluationsInList(evaluations); }),
                  "addsEvaluationsInList");
        EXPECT_EQ(
            operationRefusing([&] { node->addedReferencesInLists(lists[0], lists[1], lists[2], lists[3]); }),
            "addedReferencesInLists");
        EXPECT_EQ(operationRefusing([&] { node->setImplicitUnit(ImplicitLength); }), "setImplicitUnit");
    }
}

TEST_F(ElementEquationTest, aRefusalNamesItsSourceUnit)
{
    ElementEquation node;
    try {
        node.evaluate(0);
        FAIL();
    } catch (const AssertionError &error) {
        EXPECT_STREQ(*boost::get_error_info<boost::throw_file>(error), R"(src\Frames\VOREquations)");
        EXPECT_GT(*boost::get_error_info<boost::throw_line>(error), 0);
    }
}

TEST_F(ElementEquationTest, aMissingSonIsRefused)
{
    for (const ElemContent kind : {ElemParenthesis, ElemAdd, ElemSubtract, ElemMultiply, ElemDivide}) {
        const Node bare = joined(kind, nullptr, nullptr);
        const Node half = joined(kind, kind == ElemParenthesis ? nullptr : constant(2.0), nullptr);
        for (ElementEquation *node : {bare.get(), half.get()}) {
            QListEx<BaseFrame *> list;
            EXPECT_REFUSED(node->evaluate(0));
            EXPECT_REFUSED(node->toString());
            EXPECT_REFUSED(node->mentionsElement(mA));
            EXPECT_REFUSED(node->setAdapter(&mSet));
            EXPECT_REFUSED(node->addedReferencesInList(list));
            EXPECT_REFUSED(node->determineImplicitUnit(ImplicitLength));
            EXPECT_REFUSED(node->evaluationImplicitUnit(ImplicitLength));
            EXPECT_REFUSED(node->toJson());
        }
    }
}

TEST_F(ElementEquationTest, printsWithTheBracketsOfProductsOnly)
{
    const auto sum = [] { return joined(ElemAdd, constant(1), constant(2)); };
    const auto difference = [] { return joined(ElemSubtract, constant(1), constant(2)); };
    const auto product = [] { return joined(ElemMultiply, constant(1), constant(2)); };
    const auto quotient = [] { return joined(ElemDivide, constant(1), constant(2)); };
    const auto bracket = [](Node inner) { return joined(ElemParenthesis, std::move(inner), nullptr); };

    struct {
        Node node;
        const char *printed;
    } const rows[] = {
        // clang-format off
        // tree                                               text
        {joined(ElemAdd, sum(), constant(3)),                 "1 + 2 + 3"},
        {joined(ElemAdd, constant(3), sum()),                 "3 + 1 + 2"},
        {joined(ElemSubtract, constant(3), difference()),     "3 - 1 - 2"}, // reads back as another formula
        {joined(ElemDivide, constant(3), product()),          "3 / 1 * 2"}, // and so does this
        {joined(ElemDivide, constant(3), quotient()),         "3 / 1 / 2"},
        {joined(ElemMultiply, sum(), constant(3)),            "(1 + 2) * 3"},
        {joined(ElemMultiply, constant(3), difference()),     "3 * (1 - 2)"},
        {joined(ElemDivide, difference(), sum()),             "(1 - 2) / (1 + 2)"},
        {joined(ElemAdd, product(), quotient()),              "1 * 2 + 1 / 2"},
        {bracket(product()),                                  "(1 * 2)"},
        {joined(ElemMultiply, bracket(sum()), constant(3)),   "(1 + 2) * 3"}, // no second pair
        {joined(ElemSubtract, constant(3), bracket(sum())),   "3 - (1 + 2)"},
        {bracket(bracket(constant(1))),                       "((1))"},
        // clang-format on
    };
    for (const auto &row : rows)
        EXPECT_EQ(text(row.node->toString()), row.printed) << text(shape(row.node.get()));
}

TEST_F(ElementEquationTest, aDifferenceOfADifferenceEvaluatesWithItsBrackets)
{
    const Formula formula = parsed("10-(4-1)");

    EXPECT_EQ(formula->evaluate(-1), 7.0);
    EXPECT_EQ(text(formula->toString()), "10 - 4 - 1");
    EXPECT_EQ(parsed("10 - 4 - 1")->evaluate(-1), 5.0);
}

TEST_F(ElementEquationTest, referencesPrintTheirFullName)
{
    EXPECT_EQ(text(measureOf(mWaist)->toString()), "Measure(Front:Waist)");
    EXPECT_EQ(text(levelOf(mWidth)->toString()), "Level(Front Width)");
    EXPECT_EQ(text(measureOf(nullptr)->toString()), "Measure()");
    EXPECT_EQ(text(levelOf(nullptr)->toString()), "Level()");
}

TEST_F(ElementEquationTest, numbersPrintInTheUsersLocale)
{
    QLocale::setDefault(QLocale(QStringLiteral("de_DE")));
    EXPECT_EQ(text(constant(1234.5)->toString()), "1234,5");
    EXPECT_EQ(text(joined(ElemAdd, constant(-0.5), constant(2))->toString()), "-0,5 + 2");
}

TEST_F(ElementEquationTest, mentionsGoByPointer)
{
    Probe twin("a");
    const Node node = joined(ElemAdd, joined(ElemParenthesis, measureOf(mA), nullptr), levelOf(mB));

    EXPECT_TRUE(node->mentionsElement(mA));
    EXPECT_TRUE(node->mentionsElement(mB));
    EXPECT_FALSE(node->mentionsElement(mWidth));
    EXPECT_FALSE(node->mentionsElement(&twin));
    EXPECT_FALSE(node->mentionsElement(nullptr));
    EXPECT_FALSE(constant(1)->mentionsElement(mA));
    EXPECT_TRUE(measureOf(nullptr)->mentionsElement(nullptr));
}

TEST_F(ElementEquationTest, aMentionOnTheLeftEndsTheSearch)
{
    const Node node = joined(ElemAdd, measureOf(mA), std::make_unique<ElementEquation>());

    EXPECT_TRUE(node->mentionsElement(mA));
    EXPECT_REFUSED(node->mentionsElement(mB));
}

TEST_F(ElementEquationTest, anElementIsListedOnceAndItsValuesOnceEach)
{
    const Formula formula = parsed("Measure(a)+Level(a)+Measure(b)*Measure(a)");
    QListEx<BaseFrame *> elements;
    QListEx<Evaluation> evaluations;

    formula->addReferencesInList(elements);
    formula->addEvaluationsInList(evaluations);

    EXPECT_EQ(elements, (QListEx<BaseFrame *>{mA, mB}));
    ASSERT_EQ(evaluations.size(), 3);
    EXPECT_EQ(evaluations.at(0), (Evaluation{mA, Evaluation_Measure}));
    EXPECT_EQ(evaluations.at(1), (Evaluation{mA, Evaluation_Level}));
    EXPECT_EQ(evaluations.at(2), (Evaluation{mB, Evaluation_Measure}));
}

TEST_F(ElementEquationTest, whatTheListHoldsIsKept)
{
    QListEx<BaseFrame *> elements{mB, mB, mA};
    QListEx<Evaluation> evaluations{Evaluation{mA, Evaluation_Level}};
    const Formula formula = parsed("Measure(a)+Measure(b)+Level(a)+Measure(Front:Waist)");

    formula->addReferencesInList(elements);
    formula->addEvaluationsInList(evaluations);

    EXPECT_EQ(elements, (QListEx<BaseFrame *>{mB, mB, mA, mWaist}));
    EXPECT_EQ(evaluations.size(), 4);
}

TEST_F(ElementEquationTest, longListsKeepTheOrderInWhichElementsAreMet)
{
    std::vector<std::unique_ptr<Probe>> probes;
    for (int i = 0; i < 100; ++i)
        probes.push_back(std::make_unique<Probe>("p"));
    Node sum = constant(0);
    for (int round = 0; round < 2; ++round) {
        for (const auto &probe : probes)
            sum = joined(ElemAdd, std::move(sum), measureOf(probe.get()));
    }
    QListEx<BaseFrame *> elements{probes.back().get()};
    QListEx<Evaluation> evaluations;

    sum->addedReferencesInList(elements);
    sum->addsEvaluationsInList(evaluations);

    ASSERT_EQ(elements.size(), 100);
    ASSERT_EQ(evaluations.size(), 100);
    for (int i = 0; i < 99; ++i) {
        EXPECT_EQ(elements.at(i + 1), probes[static_cast<std::size_t>(i)].get());
        EXPECT_EQ(evaluations.at(i).mElement, probes[static_cast<std::size_t>(i)].get());
    }
}

TEST_F(ElementEquationTest, pendingListsLeaveOutWhatIsDoneInTheirKind)
{
    QListEx<BaseFrame *> pendingMeasures{mWaist};
    QListEx<BaseFrame *> doneMeasures{mA};
    QListEx<BaseFrame *> pendingLevels;
    QListEx<BaseFrame *> doneLevels{mB};
    const Formula formula = parsed("Measure(a)+Level(a)+Measure(b)+Level(b)+Measure(b)+Measure(Front:Waist)");

    formula->addReferencesInLists(pendingMeasures, doneMeasures, pendingLevels, doneLevels);

    EXPECT_EQ(pendingMeasures, (QListEx<BaseFrame *>{mWaist, mB}));
    EXPECT_EQ(pendingLevels, (QListEx<BaseFrame *>{mA}));
    EXPECT_EQ(doneMeasures, (QListEx<BaseFrame *>{mA}));
    EXPECT_EQ(doneLevels, (QListEx<BaseFrame *>{mB}));
}

TEST_F(ElementEquationTest, rebindingTakesTheLikeNamedElements)
{
    FrameSet other(QStringLiteral("Blouse"), nullptr);
    FrameLink *const otherA = other.newLink(QStringLiteral(" A "));
    FrameFrame *const otherWaist =
        other.newFrame(QStringLiteral("waist"), other.newCenter(QStringLiteral("FRONT")));
    const Formula formula = parsed("Measure(a) / 2 + Level(Front:Waist)");

    EXPECT_TRUE(formula->setAdapter(&other));

    EXPECT_TRUE(formula->mentions(otherA));
    EXPECT_TRUE(formula->mentions(otherWaist));
    EXPECT_FALSE(formula->mentions(mA));
}

TEST_F(ElementEquationTest, rebindingFindsAnElementOfAnotherKindAndABareFrame)
{
    FrameSet other(QStringLiteral("Blouse"), nullptr);
    FrameCenter *const center = other.newCenter(QStringLiteral("a"));
    other.newLink(QStringLiteral("a"));
    FrameFrame *const frame = other.newFrame(QStringLiteral("b"), center);
    const Formula formula = parsed("Measure(a)+Measure(b)");

    EXPECT_TRUE(formula->setAdapter(&other));

    EXPECT_EQ(formula->root->sonLeft->element, center); // centers come first
    EXPECT_EQ(formula->root->sonRight->element, frame);
}

TEST_F(ElementEquationTest, aFailedRebindingKeepsWhatItHasDone)
{
    FrameSet other(QStringLiteral("Blouse"), nullptr);
    FrameLink *const otherA = other.newLink(QStringLiteral("a"));
    const Formula formula = parsed("Measure(a)+Measure(b)+Measure(a)");

    EXPECT_FALSE(formula->setAdapter(&other));

    EXPECT_EQ(formula->root->sonLeft->sonLeft->element, otherA);
    EXPECT_EQ(formula->root->sonLeft->sonRight->element, mB);
    EXPECT_EQ(formula->root->sonRight->element, mA); // not visited any more
}

TEST_F(ElementEquationTest, rebindingManyReferencesGivesWhatFewGive)
{
    FrameSet other(QStringLiteral("Blouse"), nullptr);
    FrameLink *const otherA = other.newLink(QStringLiteral("a"));
    FrameLink *const otherB = other.newLink(QStringLiteral("B"));
    Node sum = constant(0);
    for (int i = 0; i < 100; ++i)
        sum = joined(ElemAdd, std::move(sum), measureOf(i % 2 == 0 ? mA : mB));

    EXPECT_TRUE(sum->setAdapter(&other));

    QListEx<BaseFrame *> elements;
    sum->addedReferencesInList(elements);
    EXPECT_EQ(elements, (QListEx<BaseFrame *>{otherA, otherB}));
}

TEST_F(ElementEquationTest, rebindingWithoutElementOrSet)
{
    EXPECT_FALSE(measureOf(nullptr)->setAdapter(&mSet));
    EXPECT_TRUE(constant(1)->setAdapter(nullptr)); // nothing to look up
    EXPECT_EQ(operationRefusing([&] { measureOf(mA)->setAdapter(nullptr); }), "setAdapter");
}

} // namespace
