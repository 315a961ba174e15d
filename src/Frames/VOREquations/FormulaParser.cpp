// The grammar of formulas, and how a tree grows while it matches.
//
// The only file that sees the parser generator.

#include <VorFrames/TreeEquations.h>

#include "Preconditions.h"
#include "VOREquations/ElementNames.h"
#include "VOREquations/EquationsUnit.h"
#include "VOREquations/FormulaKeywords.h"
#include "VOREquations/FormulaScan.h"

#include <VorFrames/ElementEquation.h>
#include <VorFrames/FormulaLimits.h>

#include <boost/spirit/include/classic_core.hpp>
#include <memory>
#include <vector>

namespace spirit = boost::spirit::classic;

// The number parser would ask the C library about characters for which its tables have no entry: whether they
// are digits, and in lower case whether they are the letter of an exponent.
template<>
inline bool boost::spirit::classic::impl::isdigit_<unsigned short>(unsigned short character)
{
    return character >= '0' && character <= '9';
}
template<>
inline unsigned short boost::spirit::classic::impl::tolower_<unsigned short>(unsigned short character)
{
    return character; // the text is in lower case already
}

namespace VorSystem
{

namespace
{

using Place = FormulaScan::Place;

/// The nodes built so far. What is left when a text turns out to be no formula dies with the stack.
class NodeStack
{
public:
    NodeStack(const FormulaScan &scan, ElementNames &names) : mScan(scan), mNames(names)
    {
        mNodes.reserve(16);
    }

    void pushNumber(double value)
    {
        if (isOperandAllowed())
            mNodes.push_back(std::make_unique<ElementEquation>(ElemValue, value, nullptr));
    }
    void pushName(Place first, Place last)
    {
        if (!isOperandAllowed())
            return;
        mNodes.push_back(std::make_unique<ElementEquation>());
        mNodes.back()->pendingName = mScan.typedText(first, last);
    }
    void resolveName(ElemContent kind)
    {
        if (isTooLong() || mNodes.empty() || mNodes.back()->contents != ElemNone)
            return;
        VOR_REQUIRE(mNames.haveSet());
        ElementEquation &node = *mNodes.back();
        node.contents = kind;
        // An unknown name is no failure: the caller sees a reference without an element.
        node.element = mNames.found(node.pendingName, false);
    }
    void pushBinary(ElemContent kind)
    {
        if (isTooLong())
            return;
        auto node = std::make_unique<ElementEquation>(kind, 0.0, nullptr);
        node->sonRight = pop().release();
        node->sonLeft = pop().release();
        mNodes.push_back(std::move(node));
    }
    void pushNegation()
    {
        if (isTooLong())
            return;
        auto node = std::make_unique<ElementEquation>(ElemSubtract, 0.0, nullptr);
        node->sonLeft = new ElementEquation(ElemValue, 0.0, nullptr);
        node->sonRight = pop().release();
        mNodes.push_back(std::move(node));
    }

    /// The one node that a whole formula leaves; null when there are more, or when operands were refused.
    std::unique_ptr<ElementEquation> takeFormula()
    {
        return mNodes.size() == 1 && !isTooLong() ? pop() : nullptr;
    }

private:
    /// Past the limit nothing more is built, whatever still matches: the text is no formula.
    bool isOperandAllowed() { return ++mOperands <= kMaxFormulaOperands; }
    bool isTooLong() const { return mOperands > kMaxFormulaOperands; }

    std::unique_ptr<ElementEquation> pop()
    {
        std::unique_ptr<ElementEquation> node = std::move(mNodes.back());
        mNodes.pop_back();
        return node;
    }

    const FormulaScan &mScan;
    ElementNames &mNames;
    std::vector<std::unique_ptr<ElementEquation>> mNodes;
    int mOperands = 0;
};

// What runs when a part of the grammar has matched. It is never taken back: an alternative that fails later
// leaves its nodes on the stack, and their number then tells that the text is no formula.

struct PushNumber {
    NodeStack &stack;
    void operator()(double value) const { stack.pushNumber(value); }
};
struct PushName {
    NodeStack &stack;
    void operator()(Place first, Place last) const { stack.pushName(first, last); }
};
struct ResolveName {
    NodeStack &stack;
    ElemContent kind;
    void operator()(Place, Place) const { stack.resolveName(kind); }
};
struct PushBinary {
    NodeStack &stack;
    ElemContent kind;
    void operator()(Place, Place) const { stack.pushBinary(kind); }
};
struct PushNegation {
    NodeStack &stack;
    void operator()(Place, Place) const { stack.pushNegation(); }
};

/// Any character that may stand in a name, in whatever script.
struct NameCharacter : spirit::char_parser<NameCharacter> {
    using self_t = NameCharacter;

    bool test(unsigned short character) const
    {
        switch (character) {
        case '%':
        case '(':
        case ')':
        case '*':
        case '+':
        case '-':
        case '/': return false;
        default: return true;
        }
    }
};

/// A rule one level further inside; no match past the limit of nesting.
template<class Rule>
struct Nested : spirit::parser<Nested<Rule>> {
    using self_t = Nested<Rule>;

    Nested(const Rule &inner, int &level) : mInner(inner), mLevel(level) {}

    template<class Scanner>
    struct result {
        using type = typename spirit::match_result<Scanner, spirit::nil_t>::type;
    };

    template<class Scanner>
    typename spirit::parser_result<self_t, Scanner>::type parse(const Scanner &scanner) const
    {
        if (mLevel == kMaxFormulaNesting)
            return scanner.no_match();
        ++mLevel;
        const auto match = mInner.parse(scanner);
        --mLevel;
        return match;
    }

private:
    const Rule &mInner;
    int &mLevel;
};

template<class Rule>
Nested<Rule> nested(const Rule &inner, int &level)
{
    return Nested<Rule>(inner, level);
}

/// True when the whole text is a formula; its nodes then lie on the stack. Every rule reads each character a
/// bounded number of times, so the time is linear in the text.
bool matchFormula(const FormulaScan &scan, NodeStack &stack)
{
    using Rule = spirit::rule<spirit::scanner<Place>>;

    const FormulaScan::Text measureWord = FormulaScan::keyword(measureKeyword());
    const FormulaScan::Text levelWord = FormulaScan::keyword(levelKeyword());
    int level = 0;

    Rule formula;
    Rule term;
    Rule factor;
    Rule elementName;
    const spirit::chlit<unsigned short> open('('), close(')');
    const spirit::chlit<unsigned short> plus('+'), minus('-'), times('*'), over('/');
    const spirit::real_parser<double, spirit::real_parser_policies<double>> number;
    const spirit::strlit<Place> measure(measureWord.begin(), measureWord.end());
    const spirit::strlit<Place> levelOf(levelWord.begin(), levelWord.end());

    // clang-format off
    formula = term >> *(  (plus  >> term)[PushBinary{stack, ElemAdd}]
                        | (minus >> term)[PushBinary{stack, ElemSubtract}]);

    term = factor >> *(  (times >> factor)[PushBinary{stack, ElemMultiply}]
                       | (over  >> factor)[PushBinary{stack, ElemDivide}]);

    factor =  number[PushNumber{stack}]
            | (measure >> open >> elementName >> close)[ResolveName{stack, ElemMeasure}]
            | (levelOf >> open >> elementName >> close)[ResolveName{stack, ElemLevel}]
            | elementName
            | open >> nested(formula, level) >> close
            | (minus >> nested(factor, level))[PushNegation{stack}]
            | plus >> nested(factor, level);

    elementName = (+NameCharacter())[PushName{stack}];
    // clang-format on

    return spirit::parse(scan.text().begin(), scan.text().end(), formula).full;
}

} // namespace

TreeEquations *TreeEquations::parse(const QString &text, FrameSet *frameSet, bool implicitUnits)
{
    ElementNames names(frameSet);
    const FormulaScan scan(text);
    NodeStack stack(scan, names);
    if (!matchFormula(scan, stack))
        return nullptr;
    std::unique_ptr<ElementEquation> finished = stack.takeFormula();
    if (finished == nullptr)
        return nullptr;

    std::unique_ptr<TreeEquations> formula(new TreeEquations(finished.get()));
    finished.release(); // NOLINT(bugprone-unused-return-value): the formula owns it from here on
    if (implicitUnits)
        formula->determineImplicitUnits();
    return formula.release();
}

} // namespace VorSystem
