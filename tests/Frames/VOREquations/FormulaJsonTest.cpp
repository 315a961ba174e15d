// Formulas as JSON.

#include "FormulaFixture.h"

#include <VorFrames/FormulaLimits.h>

using namespace formulas;
using namespace VorSystem;

namespace
{

class FormulaJsonTest : public FormulaTest
{
public:
    Formula read(const XJsonObject &object)
    {
        auto formula = std::make_unique<TreeEquations>();
        formula->fromJson(object, &mSet);
        return formula;
    }
    static XJsonObject node(int contents) { return {{QStringLiteral("contents"), contents}}; }
    static XJsonObject number(double value)
    {
        return {{QStringLiteral("contents"), 1}, {QStringLiteral("value"), value}};
    }
    static XJsonObject reference(int contents, const char *name)
    {
        return {{QStringLiteral("contents"), contents},
                {QStringLiteral("frame_element"), QString::fromUtf8(name)}};
    }
    static XJsonObject operation(int contents, const XJsonObject &left, const XJsonObject &right)
    {
        return {{QStringLiteral("contents"), contents},
                {QStringLiteral("son_left"), left},
                {QStringLiteral("son_right"), right}};
    }
    static XJsonObject formulaObject(const XJsonObject &root) { return {{QStringLiteral("root"), root}}; }
};

TEST_F(FormulaJsonTest, everyKindIsWrittenWithItsOwnKeys)
{
    struct {
        Node tree;
        XJsonObject object;
    } const rows[] = {
        {constant(2.5), number(2.5)},
        {measureOf(mWaist), reference(2, "Front:Waist")},
        {levelOf(mA), reference(3, "a")},
        {joined(ElemParenthesis, constant(1), nullptr),
         {{QStringLiteral("contents"), 4}, {QStringLiteral("son_left"), number(1)}}},
        {joined(ElemAdd, constant(1), constant(2)), operation(5, number(1), number(2))},
        {joined(ElemSubtract, constant(1), constant(2)), operation(6, number(1), number(2))},
        {joined(ElemMultiply, constant(1), constant(2)), operation(7, number(1), number(2))},
        {joined(ElemDivide, measureOf(mA), constant(2)), operation(8, reference(2, "a"), number(2))},
        {std::make_unique<ElementEquation>(), node(0)},
        {std::make_unique<ElementEquation>(static_cast<ElemContent>(9), 3.0, mA), node(9)},
    };
    for (const auto &row : rows) {
        EXPECT_EQ(row.tree->toJson(), row.object) << row.object.toText().constData();
        ElementEquation back;
        back.fromJson(row.object, &mSet);
        EXPECT_EQ(text(shape(&back)), text(shape(row.tree.get())));
    }
}

TEST_F(FormulaJsonTest, theRootStandsUnderItsKeyAndUnitsAreSettledOnReading)
{
    const Formula formula = parsed("Measure(a) + 2", true);
    const XJsonObject object = formula->toJson();

    EXPECT_EQ(object, formulaObject(operation(5, reference(2, "a"), number(2))));
    const Formula back = read(object);
    EXPECT_EQ(shape(back), "(M[a] + 2)");
    EXPECT_EQ(back->root->sonRight->implicitUnit, ImplicitLength);
    EXPECT_EQ(back->root->implicitUnit, ImplicitLength);
}

// Only the manager's reader works in centimetres: by itself a formula takes its constants to be typed in the
// application's unit.
TEST_F(FormulaJsonTest, constantsAreTakenInTheApplicationsUnit)
{
    mApplication.setLengthUnit(LengthUnit::millimetre());
    EXPECT_EQ(shape(read(formulaObject(number(2.5)))), "0.25");
    const RelayBaton baton = mApplication.resetAppUnitToCentimetre();
    EXPECT_EQ(shape(read(formulaObject(number(2.5)))), "2.5");
}

TEST_F(FormulaJsonTest, missingAndMistypedKeysReadAsDefaults)
{
    EXPECT_EQ(shape(read(XJsonObject())), "<>");
    EXPECT_EQ(shape(read({{QStringLiteral("root"), QStringLiteral("text")}})), "<>");
    EXPECT_EQ(shape(read(formulaObject(node(1)))), "0");
    EXPECT_EQ(shape(read(formulaObject(node(7)))), "(<> * <>)");
    EXPECT_EQ(shape(read(formulaObject({{QStringLiteral("contents"), 1.5}}))), "<>");
    EXPECT_EQ(shape(read(formulaObject({{QStringLiteral("contents"), QStringLiteral("1")}}))), "<>");
    EXPECT_EQ(shape(read(formulaObject(node(5)))), "(<> + <>)");
}

TEST_F(FormulaJsonTest, namesAreSoughtAmongFramesToo)
{
    EXPECT_EQ(shape(read(formulaObject(reference(2, "waist")))), "M[Front:Waist]");
    EXPECT_EQ(shape(read(formulaObject(reference(3, "FRONT : waist")))), "L[Front:Waist]");
}

TEST_F(FormulaJsonTest, aReferenceThatNamesNothingIsKnownByItsLine)
{
    for (const XJsonObject &bad : {reference(2, "nobody"), reference(3, "Front:nobody"), node(2)}) {
        try {
            read(formulaObject(operation(5, number(1), bad)));
            FAIL();
        } catch (const AssertionError &error) {
            EXPECT_STREQ(error.what(), "Invalid Operation");
            EXPECT_STREQ(*boost::get_error_info<boost::throw_file>(error), R"(src\Json\ElementEquationJson)");
            EXPECT_EQ(*boost::get_error_info<boost::throw_line>(error), 99);
            EXPECT_NE(std::string(*boost::get_error_info<boost::throw_function>(error)).find("fromJson"),
                      std::string::npos);
        }
    }
}

TEST_F(FormulaJsonTest, aReferenceWithoutElementIsNotWritten)
{
    EXPECT_EQ(operationRefusing([] { measureOf(nullptr)->toJson(); }), "toJson");
    EXPECT_REFUSED(parsed("Measure(a) + Level(nobody)")->toJson());
}

TEST_F(FormulaJsonTest, withoutASetOnlyConstantsAreRead)
{
    TreeEquations formula;
    formula.fromJson(formulaObject(number(3)), nullptr);
    EXPECT_EQ(formula.root->value, 3.0);
    EXPECT_REFUSED(formula.fromJson(formulaObject(reference(2, "a")), nullptr));
}

TEST_F(FormulaJsonTest, theLeftSonIsReadFirst)
{
    TreeEquations formula;
    EXPECT_REFUSED(
        formula.fromJson(formulaObject(operation(5, operation(6, number(1), reference(2, "nobody")),
                                                 reference(2, "nobody either"))),
                         &mSet));
    EXPECT_EQ(text(shape(formula.root)), "((1 - M[?]) + none)");
}

TEST_F(FormulaJsonTest, readingIntoAFilledNodeFreesItsSons)
{
    const Formula formula = parsed("(1+2)*(3+4)");
    formula->fromJson(formulaObject(number(5)), &mSet);
    EXPECT_EQ(shape(formula), "5");
    EXPECT_EQ(formula->root->sonLeft, nullptr);
    EXPECT_EQ(formula->root->sonRight, nullptr);
}

TEST_F(FormulaJsonTest, manyReferencesFindWhatFewFind)
{
    XJsonObject tree = reference(2, "a");
    for (int i = 0; i < 50; ++i)
        tree = operation(5, tree, reference(2, i % 2 == 0 ? "Front Width" : "front:WAIST"));
    const Formula formula = read(formulaObject(tree));

    QListEx<BaseFrame *> elements;
    formula->addReferencesInList(elements);
    EXPECT_EQ(elements, (QListEx<BaseFrame *>{mA, mWidth, mWaist}));
}

/// depth nodes one below the other, on the side given.
XJsonObject deepObject(int depth, const char *deepSide, const char *otherSide)
{
    XJsonObject object{{QStringLiteral("contents"), 1}, {QStringLiteral("value"), 1}};
    const XJsonObject leaf = object;
    for (int level = 1; level < depth; ++level)
        object = {{QStringLiteral("contents"), 5},
                  {QString::fromLatin1(deepSide), object},
                  {QString::fromLatin1(otherSide), leaf}};
    return object;
}

TEST_F(FormulaJsonTest, treesUpToTheLimitRoundTripOnBothSides)
{
    for (const auto &sides : {std::pair{"son_left", "son_right"}, std::pair{"son_right", "son_left"}}) {
        const XJsonObject object = formulaObject(deepObject(kMaxFormulaDepth, sides.first, sides.second));
        const Formula formula = read(object);
        EXPECT_EQ(formula->evaluate(-1), kMaxFormulaDepth);
        EXPECT_TRUE(formula->verifierImplicitUnits());
        EXPECT_EQ(formula->toJson(), object);
        EXPECT_EQ(TreeEquations(*formula).evaluate(-1), kMaxFormulaDepth);
        EXPECT_EQ(formula->toString().count(QLatin1Char('+')), kMaxFormulaDepth - 1);
    }
}

TEST_F(FormulaJsonTest, deeperTreesAreRefusedAndFreed)
{
    for (const int depth : {kMaxFormulaDepth + 1, 20000}) {
        EXPECT_REFUSED(read(formulaObject(deepObject(depth, "son_left", "son_right"))));
        EXPECT_REFUSED(read(formulaObject(deepObject(depth, "son_right", "son_left"))));
    }
}

} // namespace
