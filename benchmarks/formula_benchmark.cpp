// Formulas beside what their cost can be judged by, in one run.
//
// Reading: a general expression parser over variables of the same names, and the bare form of the work: the
// same grammar with its rules built per call, the text prepared in one pass, names compared in place.
// Evaluating: a plain walk over the same nodes, and the expression parser with bound variables.

#include <VorCore/VorCore.h>
#include <VorFrames/VorFrames.h>

#include <QCoreApplication>
#include <QLocale>
#include <benchmark/benchmark.h>
#include <boost/spirit/include/classic_core.hpp>
#include <cmath>
#include <memory>
#include <muParser.h>
#include <string>
#include <vector>

namespace spirit = boost::spirit::classic;
using namespace VorSystem;

namespace
{

constexpr int kElements = 40;
constexpr int kMostSizes = 30;

/// A set of 40 elements: four centers with eight frames each, and four links.
class Room
{
public:
    Room()
    {
        for (int center = 0; center < 4; ++center) {
            FrameCenter *const axis = mSet.newCenter(QStringLiteral("Center %1").arg(center));
            for (int frame = 0; frame < 8; ++frame)
                addElement(mSet.newFrame(QStringLiteral("Waist %1").arg(frame), axis));
            addElement(mSet.newLink(QStringLiteral("Belt %1").arg(center)));
        }
    }

    FrameSet &set() { return mSet; }
    const std::vector<BaseFrame *> &elements() const { return mElements; }

    /// References added and subtracted, each times or by a constant.
    QString formulaText(int operands) const
    {
        QString text;
        visitOperands(operands, [&](const char *sign, int element, double constant) {
            text += QLatin1String(sign);
            if (element < 0)
                text += QString::number(constant);
            else
                text += QStringLiteral("Measure(%1)")
                            .arg(mElements[static_cast<std::size_t>(element)]->fullName());
        });
        return text;
    }

    /// The same for the expression parser, with one variable for each element.
    std::string parserText(int operands) const
    {
        std::string text;
        visitOperands(operands, [&](const char *sign, int element, double constant) {
            text += sign;
            text += element < 0 ? QString::number(constant).toStdString()
                                : variableName(static_cast<std::size_t>(element));
        });
        return text;
    }

    std::string variableName(std::size_t element) const
    {
        std::string name = "Measure_" + mElements[element]->fullName().toStdString() + "_";
        for (char &character : name) {
            if (character == ' ' || character == ':')
                character = '_';
        }
        return name;
    }

private:
    void addElement(BaseFrame *element)
    {
        ValuesAccordingSizes &values = *element->getMeasureBySizes();
        for (int size = 0; size < kMostSizes; ++size)
            values.mValues.append(10.0 + static_cast<double>(mElements.size()) + size / 4.0);
        mElements.push_back(element);
    }

    template<class Visit>
    void visitOperands(int operands, Visit visit) const
    {
        static const char *const signs[] = {" - ", " * ", " + ", " / "};
        for (int operand = 0; operand < operands; ++operand) {
            const char *const sign = operand == 0 ? "" : signs[operand % 4];
            if (operand % 2 == 1)
                visit(sign, -1, 1.5 + operand);
            else
                visit(sign, operand * 7 % static_cast<int>(mElements.size()), 0.0);
        }
    }

    FrameSet mSet{QStringLiteral("Room"), nullptr};
    std::vector<BaseFrame *> mElements;
};

// --- The bare form of reading ---

using Text = std::basic_string<unsigned short>;
using Place = Text::const_iterator;

struct NameCharacter : spirit::char_parser<NameCharacter> {
    using self_t = NameCharacter;
    bool test(unsigned short character) const
    {
        return character != '%' && character != '(' && character != ')' && character != '*' &&
               character != '+' && character != '-' && character != '/';
    }
};

class BareReader
{
public:
    explicit BareReader(const std::vector<BaseFrame *> &elements)
    {
        for (BaseFrame *element : elements)
            mNames.emplace_back(prepared(element->fullName()), element);
    }

    std::unique_ptr<ElementEquation> read(const QString &typed)
    {
        using Rule = spirit::rule<spirit::scanner<Place>>;
        const Text text = prepared(typed);
        const Text measure = prepared(QCoreApplication::translate("VorSystem::Frames", "Measure"));
        const Text level = prepared(QCoreApplication::translate("VorSystem::Frames", "Level"));
        std::vector<std::unique_ptr<ElementEquation>> nodes;
        Place nameFirst;
        Place nameLast;

        const auto binary = [&nodes](ElemContent kind) {
            return [&nodes, kind](Place, Place) {
                auto node = std::make_unique<ElementEquation>(kind, 0.0, nullptr);
                node->sonRight = nodes.back().release();
                nodes.pop_back();
                node->sonLeft = nodes.back().release();
                nodes.back() = std::move(node);
            };
        };
        const auto reference = [&](ElemContent kind) {
            return [&, kind](Place, Place) {
                nodes.push_back(std::make_unique<ElementEquation>(kind, 0.0, found(nameFirst, nameLast)));
            };
        };
        const auto number = [&nodes](double value) {
            nodes.push_back(std::make_unique<ElementEquation>(ElemValue, value, nullptr));
        };
        const auto named = [&](Place first, Place last) {
            nameFirst = first;
            nameLast = last;
        };
        const auto negation = [&nodes](Place, Place) {
            auto node = std::make_unique<ElementEquation>(ElemSubtract, 0.0, nullptr);
            node->sonLeft = new ElementEquation(ElemValue, 0.0, nullptr);
            node->sonRight = nodes.back().release();
            nodes.back() = std::move(node);
        };
        const auto sign = [](char character) { return spirit::chlit<unsigned short>(character); };

        Rule formula;
        Rule term;
        Rule factor;
        Rule name;
        formula = term >> *((sign('+') >> term)[binary(ElemAdd)] | (sign('-') >> term)[binary(ElemSubtract)]);
        term = factor >>
               *((sign('*') >> factor)[binary(ElemMultiply)] | (sign('/') >> factor)[binary(ElemDivide)]);
        factor = spirit::real_parser<double>()[number] |
                 (spirit::strlit<Place>(measure.begin(), measure.end()) >> sign('(') >> name >>
                  sign(')'))[reference(ElemMeasure)] |
                 (spirit::strlit<Place>(level.begin(), level.end()) >> sign('(') >> name >>
                  sign(')'))[reference(ElemLevel)] |
                 name | (sign('(') >> formula >> sign(')')) | (sign('-') >> factor)[negation] |
                 (sign('+') >> factor);
        name = (+NameCharacter())[named];
        const bool full = spirit::parse(text.begin(), text.end(), formula).full;
        return full && nodes.size() == 1 ? std::move(nodes.back()) : nullptr;
    }

private:
    static Text prepared(const QString &typed)
    {
        const QLocale locale;
        const QChar decimal = locale.decimalPoint();
        const QChar group = locale.groupSeparator();
        const QString lowered = typed.toLower();
        Text text;
        text.reserve(static_cast<std::size_t>(lowered.size()));
        for (int place = 0; place < lowered.size(); ++place) {
            QChar character = lowered.at(place);
            if (character == decimal && place + 1 < lowered.size() && lowered.at(place + 1).isDigit())
                character = QLatin1Char('.');
            if (!character.isSpace() && character != group)
                text += character.unicode();
        }
        return text;
    }

    BaseFrame *found(Place first, Place last) const
    {
        const auto length = static_cast<std::size_t>(last - first);
        for (const auto &name : mNames) {
            if (name.first.size() == length && std::equal(first, last, name.first.begin()))
                return name.second;
        }
        return nullptr;
    }

    std::vector<std::pair<Text, BaseFrame *>> mNames;
};

// --- Reading ---

void readFormula(benchmark::State &state)
{
    Room room;
    const QString text = room.formulaText(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        const std::unique_ptr<TreeEquations> formula(TreeEquations::parse(text, &room.set(), true));
        if (formula == nullptr)
            state.SkipWithError("no formula");
    }
}

void readBare(benchmark::State &state)
{
    Room room;
    const QString text = room.formulaText(static_cast<int>(state.range(0)));
    BareReader reader(room.elements());
    for (auto _ : state) {
        const std::unique_ptr<ElementEquation> formula = reader.read(text);
        if (formula == nullptr)
            state.SkipWithError("no formula");
    }
}

void readWithExpressionParser(benchmark::State &state)
{
    Room room;
    std::vector<double> variables(room.elements().size(), 2.0);
    mu::Parser parser;
    for (std::size_t element = 0; element < variables.size(); ++element)
        parser.DefineVar(room.variableName(element), &variables[element]);
    const std::string text = room.parserText(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        parser.SetExpr(text);
        benchmark::DoNotOptimize(parser.Eval());
    }
}

// --- Evaluating ---

/// The least that a walk over the nodes has to do.
double plainWalk(const ElementEquation *node, short size)
{
    switch (node->contents) {
    case ElemValue: return node->value;
    case ElemMeasure: {
        const ValuesAccordingSizes *values = node->element->getMeasureBySizes();
        return values->mValues.at(size);
    }
    case ElemLevel: {
        const ValuesAccordingSizes *values = node->element->getLevelBySizes();
        return values->mValues.at(size);
    }
    case ElemParenthesis: return plainWalk(node->sonLeft, size);
    case ElemAdd: return plainWalk(node->sonLeft, size) + plainWalk(node->sonRight, size);
    case ElemSubtract: return plainWalk(node->sonLeft, size) - plainWalk(node->sonRight, size);
    case ElemMultiply: return plainWalk(node->sonLeft, size) * plainWalk(node->sonRight, size);
    case ElemDivide: {
        const double right = plainWalk(node->sonRight, size);
        return std::abs(right) <= 1e-05 ? 0.0 : plainWalk(node->sonLeft, size) / right;
    }
    case ElemNone: break;
    }
    return 0.0;
}

void evaluate(benchmark::State &state)
{
    Room room;
    const std::unique_ptr<TreeEquations> formula(
        TreeEquations::parse(room.formulaText(static_cast<int>(state.range(0))), &room.set(), true));
    for (auto _ : state)
        benchmark::DoNotOptimize(formula->evaluate(3));
}

void evaluateByPlainWalk(benchmark::State &state)
{
    Room room;
    const std::unique_ptr<TreeEquations> formula(
        TreeEquations::parse(room.formulaText(static_cast<int>(state.range(0))), &room.set(), true));
    for (auto _ : state)
        benchmark::DoNotOptimize(plainWalk(formula->root, 3));
}

void evaluateSizes(benchmark::State &state)
{
    Room room;
    FrameFrame driven(QStringLiteral("driven"));
    driven.setFormulaMeasurement(
        TreeEquations::parse(room.formulaText(static_cast<int>(state.range(0))), &room.set(), true));
    QListEx<double> values;
    for (std::int64_t size = 0; size < state.range(1); ++size)
        values.append(0.0);
    for (auto _ : state) {
        driven.evaluateMeasuresFormula(values);
        benchmark::ClobberMemory();
    }
}

void evaluateSizesWithExpressionParser(benchmark::State &state)
{
    Room room;
    std::vector<double> variables(room.elements().size(), 2.0);
    mu::Parser parser;
    for (std::size_t element = 0; element < variables.size(); ++element)
        parser.DefineVar(room.variableName(element), &variables[element]);
    parser.SetExpr(room.parserText(static_cast<int>(state.range(0))));
    std::vector<std::size_t> used;
    for (std::size_t element = 0; element < variables.size(); ++element) {
        if (parser.GetUsedVar().count(room.variableName(element)) != 0)
            used.push_back(element);
    }
    std::vector<double> values(static_cast<std::size_t>(state.range(1)));
    for (auto _ : state) {
        for (std::size_t size = 0; size < values.size(); ++size) {
            // The variables that the formula names take the values of the size.
            for (const std::size_t element : used)
                variables[element] =
                    room.elements()[element]->getMeasureBySizes()->mValues.at(static_cast<int>(size));
            values[size] = parser.Eval();
        }
        benchmark::ClobberMemory();
    }
}

BENCHMARK(readFormula)->Arg(1)->Arg(8)->Arg(200)->Arg(2000)->Arg(8000);
BENCHMARK(readBare)->Arg(1)->Arg(8)->Arg(200);
BENCHMARK(readWithExpressionParser)->Arg(1)->Arg(8)->Arg(200);
BENCHMARK(evaluate)->Arg(1)->Arg(8)->Arg(200);
BENCHMARK(evaluateByPlainWalk)->Arg(1)->Arg(8)->Arg(200);
BENCHMARK(evaluateSizes)->ArgsProduct({{1, 8, 200}, {10, 30}});
BENCHMARK(evaluateSizesWithExpressionParser)->ArgsProduct({{1, 8, 200}, {10, 30}});

} // namespace
