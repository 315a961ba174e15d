// A formula as a whole: its root, its copies, and whether all it depends on is defined.

#include "FormulaFixture.h"

using namespace formulas;
using namespace VorSystem;

namespace
{

class TreeEquationsTest : public FormulaTest
{
};

struct RootlessFormula {
    RootlessFormula()
    {
        delete formula.root;
        formula.root = nullptr;
    }
    TreeEquations formula;
};

TEST_F(TreeEquationsTest, aNewFormulaHasARootWithoutTextAndValue)
{
    TreeEquations formula;

    ASSERT_NE(formula.root, nullptr);
    EXPECT_EQ(formula.root->contents, ElemNone);
    EXPECT_EQ(operationRefusing([&] { formula.evaluate(0); }), "evaluate");
    EXPECT_EQ(operationRefusing([&] { formula.toString(); }), "toString");
    EXPECT_REFUSED(formula.mentions(mA));
    EXPECT_FALSE(formula.verifierImplicitUnits());
    EXPECT_NO_THROW(formula.determineImplicitUnits());
}

TEST_F(TreeEquationsTest, aCopyHasNodesOfItsOwn)
{
    const Formula source = parsed("Measure(a) + 2", true);
    TreeEquations copy(*source);

    EXPECT_NE(copy.root, source->root);
    EXPECT_EQ(text(copy.toString()), "Measure(a) + 2");
    EXPECT_EQ(copy.root->sonRight->implicitUnit, ImplicitLength);
    EXPECT_TRUE(copy.root->sonLeft->pendingName.isEmpty());
    EXPECT_EQ(text(source->root->sonLeft->pendingName), "a");
}

TEST_F(TreeEquationsTest, anAssignmentSharesTheRoot)
{
    const Formula source = parsed("1+2");
    TreeEquations target;
    const Node before(target.root);

    target = *source;

    EXPECT_EQ(target.root, source->root);
    target.root = nullptr; // or else it would be deleted twice
}

TEST_F(TreeEquationsTest, withoutARoot)
{
    RootlessFormula rootless;
    TreeEquations &formula = rootless.formula;
    QListEx<BaseFrame *> list;
    QListEx<Evaluation> evaluations;

    formula.addReferencesInList(list);
    formula.addReferencesInLists(list, list, list, list);
    formula.addEvaluationsInList(evaluations);
    EXPECT_TRUE(list.isEmpty());
    EXPECT_TRUE(evaluations.isEmpty());
    EXPECT_TRUE(formula.setAdapter(&mSet));
    EXPECT_TRUE(formula.setAdapter(nullptr));
    EXPECT_FALSE(formula.mentions(mA));
    EXPECT_TRUE(formula.fullyDefinedFormula());

    EXPECT_EQ(operationRefusing([&] { formula.evaluate(0); }), "evaluate");
    EXPECT_EQ(operationRefusing([&] { formula.toString(); }), "toString");
    EXPECT_EQ(operationRefusing([&] { formula.verifierImplicitUnits(); }), "verifierImplicitUnits");
    EXPECT_EQ(operationRefusing([&] { formula.determineImplicitUnits(); }), "determineImplicitUnits");
    EXPECT_REFUSED(formula.toJson());
    EXPECT_REFUSED(formula.fromJson(XJsonObject(), &mSet));
    EXPECT_EQ(operationRefusing([&] { TreeEquations copy(formula); }), "TreeEquations");
}

TEST_F(TreeEquationsTest, definedWhenAllItNamesIs)
{
    Probe first("first");
    Probe second("second");
    const Formula formula = formulaOf(joined(ElemAdd, measureOf(&first), levelOf(&second)));

    EXPECT_TRUE(formula->fullyDefinedFormula());
    EXPECT_TRUE(formulaOf(constant(1))->fullyDefinedFormula());
    second.mDefined = false;
    EXPECT_FALSE(formula->fullyDefinedFormula());
}

TEST_F(TreeEquationsTest, definedWhenTheFormulasOfWhatItNamesAre)
{
    Probe first("first");
    Probe second("second");
    second.mDefined = false;
    const Formula onMeasure = formulaOf(measureOf(&first));
    const Formula onLevel = formulaOf(levelOf(&first));

    first.mFormulaMeasure = formulaOf(measureOf(&second));
    EXPECT_FALSE(onMeasure->fullyDefinedFormula());
    EXPECT_TRUE(onLevel->fullyDefinedFormula()); // only the formula of the value that is named counts

    first.mFormulaLevel = formulaOf(levelOf(&second));
    EXPECT_FALSE(onLevel->fullyDefinedFormula());
    second.mDefined = true;
    EXPECT_TRUE(onLevel->fullyDefinedFormula());
}

TEST_F(TreeEquationsTest, theFirstUndefinedElementEndsTheQuestion)
{
    Probe undefined("u");
    undefined.mDefined = false;
    Probe after("after");
    const Formula formula = formulaOf(joined(ElemAdd, measureOf(&undefined), measureOf(&after)));

    EXPECT_FALSE(formula->fullyDefinedFormula());
    EXPECT_EQ(after.mAskedDefined, 0);
    const Formula unresolved = formulaOf(joined(ElemAdd, measureOf(&undefined), measureOf(nullptr)));
    EXPECT_FALSE(unresolved->fullyDefinedFormula());
}

TEST_F(TreeEquationsTest, anUnresolvedReferenceCannotBeAskedWhetherItIsDefined)
{
    const Formula formula = formulaOf(measureOf(nullptr));

    EXPECT_EQ(operationRefusing([&] { formula->fullyDefinedFormula(); }), "fullyDefinedFormula");
}

// Two elements a layer, both of whose formulas name both elements of the layer below.
TEST_F(TreeEquationsTest, layersThatShareWhatTheyDependOnAreAskedOnce)
{
    std::vector<std::unique_ptr<Probe>> probes;
    for (int layer = 0; layer < 60; ++layer) {
        auto left = std::make_unique<Probe>("l");
        auto right = std::make_unique<Probe>("r");
        if (layer > 0) {
            Probe *const below[] = {probes[probes.size() - 2].get(), probes.back().get()};
            for (Probe *probe : {left.get(), right.get()})
                probe->mFormulaMeasure = formulaOf(joined(ElemAdd, measureOf(below[0]), measureOf(below[1])));
        }
        probes.push_back(std::move(left));
        probes.push_back(std::move(right));
    }
    const Formula top = formulaOf(measureOf(probes.back().get()));

    EXPECT_TRUE(top->fullyDefinedFormula());
    EXPECT_EQ(probes.front()->mAskedDefined, 1);
    probes.front()->mDefined = false;
    EXPECT_FALSE(top->fullyDefinedFormula());
}

TEST_F(TreeEquationsTest, aCircleOfFormulasHasAnAnswer)
{
    Probe first("first");
    Probe second("second");
    first.mFormulaMeasure = formulaOf(measureOf(&second));
    second.mFormulaMeasure = formulaOf(joined(ElemAdd, measureOf(&first), measureOf(&second)));

    EXPECT_TRUE(first.mFormulaMeasure->fullyDefinedFormula());
    second.mDefined = false;
    EXPECT_FALSE(first.mFormulaMeasure->fullyDefinedFormula());
}

TEST_F(TreeEquationsTest, aChainOfFormulasMayBeAnyLength)
{
    constexpr int kLinks = 100000;
    std::vector<std::unique_ptr<Probe>> probes;
    for (int i = 0; i < kLinks; ++i) {
        probes.push_back(std::make_unique<Probe>("p"));
        if (i > 0)
            probes.back()->mFormulaLevel = formulaOf(levelOf(probes[probes.size() - 2].get()));
    }
    const Formula top = formulaOf(levelOf(probes.back().get()));

    EXPECT_TRUE(top->fullyDefinedFormula());
    probes.front()->mDefined = false;
    EXPECT_FALSE(top->fullyDefinedFormula());
}

TEST_F(TreeEquationsTest, elementsOfASetAreAskedThroughTheirOwnRules)
{
    EXPECT_TRUE(parsed("Measure(a)")->fullyDefinedFormula()); // an empty link
    EXPECT_FALSE(parsed("Measure(Front:Waist)")->fullyDefinedFormula());
    EXPECT_FALSE(mA->formulaMeasureFullyDefined());
    mA->setFormulaMeasurement(parsed("Measure(Front Width)").release());
    EXPECT_TRUE(mA->formulaMeasureFullyDefined());
}

TEST_F(TreeEquationsTest, aFormulaThatNamesItsOwnValueIsRecursive)
{
    const Formula onMeasure = parsed("Measure(Front:Waist)");
    const Formula onLevel = parsed("Level(Front:Waist)");

    EXPECT_TRUE(mWaist->formulaMeasurementIsRecursive(onMeasure.get()));
    EXPECT_FALSE(mWaist->formulaLevelIsRecursive(onMeasure.get()));
    EXPECT_FALSE(mWaist->formulaMeasurementIsRecursive(onLevel.get()));
    EXPECT_TRUE(mWaist->formulaLevelIsRecursive(onLevel.get()));
    EXPECT_REFUSED(mWaist->formulaLevelIsRecursive(nullptr));
}

} // namespace
