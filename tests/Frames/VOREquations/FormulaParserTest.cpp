// Formulas as they are typed: what reads as which tree, and what is no formula.

#include "FormulaFixture.h"

#include <cmath>

using namespace formulas;
using namespace VorSystem;

namespace
{

class FormulaParserTest : public FormulaTest
{
};

struct Row {
    const char *typed;
    const char *tree; // "null" for no formula
};

TEST_F(FormulaParserTest, operatorsBindAsUsual)
{
    const Row rows[] = {
        // clang-format off
        // typed           tree
        {"1+2*3",          "(1 + (2 * 3))"},
        {"1*2+3",          "((1 * 2) + 3)"},
        {"1-2-3",          "((1 - 2) - 3)"},
        {"1-2+3",          "((1 - 2) + 3)"},
        {"8/4/2",          "((8 / 4) / 2)"},
        {"8/4*2",          "((8 / 4) * 2)"},
        {"(1+2)*3",        "((1 + 2) * 3)"},
        {"1-(2-3)",        "(1 - (2 - 3))"},
        {"((((7))))",      "7"},
        {"+5",             "5"},
        {"-5",             "-5"},
        {"--5",            "(0 - -5)"},
        {"+-5",            "-5"}, // the plus leaves no node, the number takes its sign
        {"-(1)",           "(0 - 1)"},
        {"-(1+2)",         "(0 - (1 + 2))"},
        {"+x",             "<x>"},
        {"-x",             "(0 - <x>)"},
        {"2*-3",           "(2 * -3)"},
        {"2*-x",           "(2 * (0 - <x>))"},
        {"2--3",           "(2 - -3)"},
        {"2+-+-3",         "(2 + (0 - -3))"},
        {"-x*2",           "((0 - <x>) * 2)"}, // a sign binds tighter than a product
        {"-x-y",           "((0 - <x>) - <y>)"},
        {"Measure(a)/2",   "(M[a] / 2)"},
        {"Measure(a)+Level(a)", "(M[a] + L[a])"},
        // clang-format on
    };
    for (const Row &row : rows)
        EXPECT_EQ(shape(parsed(row.typed)), row.tree) << row.typed;
}

TEST_F(FormulaParserTest, theTextOfAProductKeepsTheBracketsOfItsSum)
{
    const Formula formula = parsed("(1+2)*3");

    EXPECT_NE(formula->root->sonLeft->contents, ElemParenthesis);
    EXPECT_EQ(text(formula->toString()), "(1 + 2) * 3");
    EXPECT_EQ(text(parsed("-x")->root->sonLeft->toString()), "0");
}

TEST_F(FormulaParserTest, whatIsNoFormula)
{
    const char *const rows[] = {
        // clang-format off
        "",           " ",       "\t\n ",       ",",       ",,",        " , ",   // nothing, group separators
        "2 3x",       "1)",      "Measure(a)b", "1 2 +",   "(1)(2)",    "a(b)",  // goes on after a formula
        "2(3)",       "Level(a)Level(a)",       "1(",      "Measure(a)(",
        "1+",         "*2",      "/2",          "1*",      "1**2",      "1//2",  // an operand is missing
        "+",          "-",       "--",          "()",      "(+)",       "1+()",
        "(1",         "1))",     "((1)",        ")",       "(",         ")1(",   // unbalanced
        "Measure(a",  "Measure(","Measure()",   "Level(-)","Measure(a+b)", "Measure((a))",
        "%",          "1%",      "a%b",         "Measure(a%b)", "Measure(a)%", "50%*2",
        // clang-format on
    };
    for (const char *typed : rows)
        EXPECT_EQ(shape(parsed(typed)), "null") << typed;
}

TEST_F(FormulaParserTest, numbersAsTheGrammarReadsThem)
{
    const Row rows[] = {
        // clang-format off
        // typed     tree
        {"5.",       "5"},
        {".5",       "0.5"},
        {"1e3",      "1000"},
        {"1E3",      "1000"},
        {"1e-3",     "0.001"},
        {"1e+3",     "1000"},
        {"2.5e2",    "250"},
        {"007",      "7"},
        {"1e400",    "inf"},
        {"1e99999999999", "inf"},
        {"0e400",    "nan"}, // nothing times a power that has no number
        {"1 000",    "1000"},
        {"1 . 5",    "1.5"},
        {"- 5",      "-5"},
        // An exponent letter without digits is no number, and the text goes on as a name.
        {"2e",       "<2e>"},
        {"3each",    "<3each>"},
        {"2em",      "<2em>"},
        {"2e+x",     "(<2e> + <x>)"},
        {".",        "<.>"},
        {"inf",      "<inf>"},
        {"nan",      "<nan>"},
        {"2e3x",     "null"},
        {"0x10",     "null"},
        {"3a",       "null"},
        {"1.2.3",    "null"},
        {"1e5.5",    "null"},
        {"Measure(3a)", "M[?]"}, // here the name is asked for directly
        // clang-format on
    };
    for (const Row &row : rows)
        EXPECT_EQ(shape(parsed(row.typed)), row.tree) << row.typed;
}

TEST_F(FormulaParserTest, numbersBeyondTheRange)
{
    const QString nines(400, QLatin1Char('9'));

    EXPECT_EQ(shape(parsed(nines)), text(QStringLiteral("<%1>").arg(nines))); // no number: it reads as a name
    EXPECT_EQ(shape(parsed(QStringLiteral("0.") + nines)), "null");
}

TEST_F(FormulaParserTest, digitsOfOtherScriptsAreNoDigits)
{
    for (const char *typed : {"\u0663", "\u3342", "\u0be7", "\uff11"})
        EXPECT_EQ(shape(parsed(typed)), std::string("<") + typed + ">");
}

TEST_F(FormulaParserTest, namesOfEveryScriptAreRead)
{
    for (const char *name : {"\u0125\u012b\u012f\u0128", "\u4e2d\u5428", "\U0001f455",
                             "\u0645\u0642\u0627\u0633", "a.b:c;d,e", "\"'!$&=<>?@[]^_`{|}~\\"}) {
        FrameLink *const link = mSet.newLink(QString::fromUtf8(name).remove(QLatin1Char(':')));
        const Formula formula =
            parsed(QStringLiteral("Level(%1)").arg(QString::fromUtf8(name).remove(QLatin1Char(':'))));
        ASSERT_NE(formula, nullptr) << name;
        EXPECT_EQ(formula->root->element, link) << name;
        EXPECT_EQ(formula->root->contents, ElemLevel) << name;
    }
}

TEST_F(FormulaParserTest, aReferenceIgnoresCaseAndWhiteSpace)
{
    for (const char *typed : {"MEASURE( Front Width )", "measure(frontwidth)", "Mea sure (FRONT\tWIDTH)",
                              "\nMeasure(Front Width)\n"}) {
        const Formula formula = parsed(typed);
        ASSERT_NE(formula, nullptr) << typed;
        EXPECT_EQ(formula->root->element, mWidth) << typed;
    }
    EXPECT_EQ(text(parsed("MEASURE( Front Width )")->root->pendingName), "Front Width ");
    EXPECT_EQ(text(parsed("1 + measure( frontWIDTH)")->root->sonRight->pendingName), "frontWIDTH");
    EXPECT_EQ(text(parsed(" A b + c  ")->root->sonRight->pendingName), "c  ");
    EXPECT_EQ(text(parsed(" A b + c  ")->root->sonLeft->pendingName), "A b ");
}

TEST_F(FormulaParserTest, aFrameIsFoundByItsFullNameOnly)
{
    EXPECT_EQ(shape(parsed("Measure(Front:Waist)")), "M[Front:Waist]");
    EXPECT_EQ(shape(parsed("Measure( front : waist )")), "M[Front:Waist]");
    EXPECT_EQ(shape(parsed("Measure(Waist)")), "M[?]");
    EXPECT_EQ(shape(parsed("Level(nobody) + Measure(a)")), "(L[?] + M[a])");
    EXPECT_EQ(text(parsed("Level(nobody)")->toString()), "Level()");
}

TEST_F(FormulaParserTest, aBareNameIsATreeWithoutValueAndText)
{
    const Row rows[] = {{"a", "<a>"},
                        {"a*2", "(<a> * 2)"},
                        {"a+1", "(<a> + 1)"},
                        {"Measurement", "<Measurement>"},
                        {"measure", "<measure>"}};
    for (const Row &row : rows) {
        const Formula formula = parsed(row.typed);
        EXPECT_EQ(shape(formula), row.tree) << row.typed;
        EXPECT_FALSE(formula->verifierImplicitUnits()) << row.typed;
        EXPECT_REFUSED(formula->evaluate(0)) << row.typed;
        EXPECT_REFUSED(formula->toString()) << row.typed;
    }
}

TEST_F(FormulaParserTest, someMixturesOfUnitsLeaveByAnError)
{
    for (const char *typed :
         {"a+1", "1-a", "2*a + 1", "-a", "5 + Measure(a) / Measure(b)", "Measure(a) + Measure(b)/Measure(b)",
          "Measure(a) + 2*(Measure(b)/Measure(b))", "a + Measure(a)"}) {
        EXPECT_REFUSED(parsed(typed, true)) << typed;
        EXPECT_NE(parsed(typed, false), nullptr) << typed;
    }
    for (const char *typed : {"a", "a*2", "a*2 + 1", "a + a", "a/a"})
        EXPECT_NO_THROW(EXPECT_NE(parsed(typed, true), nullptr)) << typed;
}

TEST_F(FormulaParserTest, withoutUnitsConstantsStayAsTyped)
{
    mApplication.setLengthUnit(LengthUnit::inch());
    const Formula formula = parsed("Measure(a) + 25", false);

    EXPECT_EQ(formula->root->sonRight->value, 25.0);
    EXPECT_EQ(formula->root->sonRight->implicitUnit, ImplicitNumber);
    EXPECT_EQ(formula->root->sonLeft->implicitUnit, ImplicitNumber);
}

TEST_F(FormulaParserTest, aSetIsNeededOnlyForReferences)
{
    EXPECT_EQ(shape(Formula(TreeEquations::parse(QStringLiteral("1+x"), nullptr, false))), "(1 + <x>)");
    EXPECT_REFUSED(TreeEquations::parse(QStringLiteral("1+Measure(a)"), nullptr, false));
    EXPECT_REFUSED(TreeEquations::parse(QStringLiteral("Level(x)+"), nullptr, true));
}

struct LocaleRow {
    const char *locale;
    const char *typed;
    const char *tree;
};

TEST_F(FormulaParserTest, numbersFollowTheUsersLocale)
{
    const LocaleRow rows[] = {
        // clang-format off
        // locale   typed                     tree
        {"C",       "3.5",                    "3.5"},
        {"C",       "3,5",                    "35"}, // the comma groups digits and vanishes
        {"C",       "1,234.5",                "1234.5"},
        {"en_US",   "1,234.5",                "1234.5"},
        {"en_US",   "3,5",                    "35"},
        {"de_DE",   "3,5",                    "35"}, // becomes a point, and the point groups digits
        {"de_DE",   "3.5",                    "35"},
        {"de_DE",   "1.234",                  "1234"},
        {"de_DE",   "3,",                     "null"},
        {"fr_FR",   "3,5",                    "3.5"},
        {"fr_FR",   "1\u202f234,5",           "1234.5"}, // narrow no-break blank
        {"fr_FR",   "1 234,5",                "1234.5"},
        {"fr_FR",   "3.5",                    "3.5"}, // the grammar's own sign is always the point
        {"fr_FR",   "3,",                     "null"},
        {"fr_FR",   ",5",                     "0.5"},
        {"fr_FR",   "1,5*2,25",               "(1.5 * 2.25)"},
        {"fr_FR",   "1,2,3",                  "null"},
        {"pl_PL",   "1\u00a0234,5",           "1234.5"}, // no-break blank
        {"pl_PL",   "3.5",                    "3.5"},
        {"pl_PL",   "3,",                     "null"},
        {"ar_EG",   "3\u066b5",               "3.5"},
        {"ar_EG",   "1\u066c234\u066b5",      "1234.5"},
        {"ar_EG",   "3.5",                    "3.5"},
        {"C",       "3,",                     "3"},
        // clang-format on
    };
    for (const LocaleRow &row : rows) {
        QLocale::setDefault(QLocale(QString::fromLatin1(row.locale)));
        EXPECT_EQ(shape(parsed(row.typed)), row.tree) << row.locale << ' ' << row.typed;
    }
}

TEST_F(FormulaParserTest, aSeparatorInsideANameIsCutOutOfTheTypedText)
{
    mSet.newLink(QStringLiteral("x1.5"));
    QLocale::setDefault(QLocale(QStringLiteral("fr_FR")));
    const Formula formula = parsed("Measure(X1,5) + 0,5");

    // The grammar saw a point, the lookup goes by what was typed.
    EXPECT_EQ(text(formula->root->sonLeft->pendingName), "X1,5");
    EXPECT_EQ(formula->root->sonLeft->element, nullptr);
    EXPECT_EQ(formula->root->sonRight->value, 0.5);

    // A group separator is lost to the grammar, but not to the name.
    FrameLink *const link = mSet.newLink(QStringLiteral("v.2"));
    QLocale::setDefault(QLocale(QStringLiteral("de_DE")));
    const Formula grouped = parsed("Measure(V.2) * 1.000");
    EXPECT_EQ(text(grouped->root->sonLeft->pendingName), "V.2");
    EXPECT_EQ(grouped->root->sonLeft->element, link);
    EXPECT_EQ(grouped->root->sonRight->value, 1000.0);
}

TEST_F(FormulaParserTest, lettersThatGrowInLowerCaseShiftTheNamesBehindThem)
{
    // U+0130 is two characters in lower case.
    EXPECT_EQ(text(parsed(u8"\u0130a")->root->pendingName), text(QString::fromUtf8(u8"\u0130a")));
    EXPECT_EQ(text(parsed(u8"Measure(\u0130a)")->root->pendingName), text(QString::fromUtf8(u8"\u0130a)")));
    EXPECT_EQ(text(parsed(u8"\u0130\u0130+b")->root->sonRight->pendingName), "");
}

TEST_F(FormulaParserTest, wordsFollowTheUsersLanguage)
{
    const Language german(QStringLiteral("Ma\u00df"), QStringLiteral("H\u00f6he"));

    const Formula formula = parsed(u8"MA\u00df(a) + h\u00f6he(b)");
    EXPECT_EQ(shape(formula), "(M[a] + L[b])");
    EXPECT_EQ(text(formula->toString()), u8"Ma\u00df(a) + H\u00f6he(b)");
    EXPECT_EQ(shape(parsed("Measure(a)")), "null"); // the word of another language is a name
    EXPECT_EQ(shape(parsed("Measure")), "<Measure>");
}

TEST_F(FormulaParserTest, wordsInCapitalLettersOfOtherScripts)
{
    const Language greek(QStringLiteral("\u039c\u03ad\u03c4\u03c1\u03bf"), QStringLiteral("\u0394\u03c4"));
    EXPECT_EQ(shape(parsed(u8"\u039c\u0388\u03a4\u03a1\u039f(a)")), "M[a]");
    EXPECT_EQ(shape(parsed(u8"\u03b4\u03c4(a)")), "L[a]");
}

TEST_F(FormulaParserTest, aWordWithABlankNeverMatches)
{
    const Language words(QStringLiteral("Body measure"), QStringLiteral("Level"));
    EXPECT_EQ(shape(parsed("Body measure(a)")), "null");
    EXPECT_EQ(shape(parsed("Level(a)")), "L[a]");
}

TEST_F(FormulaParserTest, oneWordForBothMeansTheMeasure)
{
    const Language words(QStringLiteral("Value"), QStringLiteral("Value"));
    EXPECT_EQ(shape(parsed("value(a)")), "M[a]");
}

TEST_F(FormulaParserTest, anEmptyWordMakesEveryBracketedNameAReference)
{
    class Silent : public QTranslator
    {
    public:
        Silent() { QCoreApplication::installTranslator(this); }
        ~Silent() override { QCoreApplication::removeTranslator(this); }
        bool isEmpty() const override { return false; }
        QString translate(const char *, const char *source, const char *, int) const override
        {
            return qstrcmp(source, "Measure") == 0 ? QString::fromLatin1("") : QString();
        }
    };
    const Silent silent;
    EXPECT_EQ(shape(parsed("(a)")), "M[a]");
    EXPECT_EQ(shape(parsed("2*(b)")), "(2 * M[b])");
    EXPECT_EQ(shape(parsed("(a+b)")), "null"); // the name of the first attempt is left over
}

TEST_F(FormulaParserTest, theResultBelongsToTheCaller)
{
    TreeEquations *const formula = TreeEquations::parse(QStringLiteral("1 + 2"), &mSet, true);
    ASSERT_NE(formula, nullptr);
    EXPECT_EQ(formula->evaluate(-1), 3.0);
    delete formula;
}

} // namespace
