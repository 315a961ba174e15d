#include "Circles.h"

#include <algorithm>
#include <map>
#include <set>

namespace room
{

using namespace VorSystem;

namespace
{

using Value = std::pair<BaseFrame *, eEvaluationType>;

Value valueOf(const Evaluation &evaluation)
{
    return {evaluation.mElement, evaluation.mType};
}

QString nameOf(const Value &value)
{
    return (value.second == Evaluation_Level ? QStringLiteral("Level(%1)") : QStringLiteral("Measure(%1)"))
        .arg(value.first->fullName());
}

// What a value is computed from.
std::vector<Value> sourcesOf(const Value &value)
{
    QListEx<Evaluation> list;
    if (value.second == Evaluation_Level)
        value.first->addEvaluationUsedInLevel(list);
    else
        value.first->addEvaluationUsedInMeasurement(list);
    const bool isComputed =
        value.first->elementType() == Element_Spec || value.first->elementType() == Element_MeasurementChart;
    if (TreeEquations *formula = isComputed ? valueFormula(value.first) : nullptr)
        formula->addEvaluationsInList(list);
    std::vector<Value> sources;
    for (const Evaluation &source : list)
        sources.push_back(valueOf(source));
    return sources;
}

// The values among which circles lie: specs and charts, which are computed in no order, and what has found
// no place in the order of the others.
std::vector<Value> unordered(const PatternDocument &document, const FrameSet *set,
                             const OrderEvaluation &order)
{
    std::set<Value> ordered;
    for (const QListEx<Evaluation> *round : order.rounds()) {
        for (const Evaluation &evaluation : *round)
            ordered.insert(valueOf(evaluation));
    }
    std::vector<Value> values;
    for (const Element &element : elementsOf(document)) {
        if (element.set != set || element.place.kind == Element_Center)
            continue;
        for (const eEvaluationType type : {Evaluation_Measure, Evaluation_Level}) {
            const bool isThere = type == Evaluation_Measure || element.element->getLevelBySizes() != nullptr;
            if (isThere && ordered.count({element.element, type}) == 0)
                values.push_back({element.element, type});
        }
    }
    return values;
}

// A walk from each value to what it is computed from, and on. A value that is met again while its own walk
// is not over closes a circle.
class Walk
{
public:
    explicit Walk(const std::vector<Value> &values) : mValues(values)
    {
        for (const Value &value : values)
            mVisits[value] = Visit_None;
    }

    QStringList circles()
    {
        for (const Value &value : mValues) {
            if (mVisits[value] == Visit_None)
                walkFrom(value);
        }
        return mCircles;
    }

    bool isInCircle(const Value &value) const { return mInCircles.count(value) != 0; }
    bool isUnordered(const Value &value) const { return mVisits.count(value) != 0; }

private:
    enum eVisit {
        Visit_None,
        Visit_Open,
        Visit_Done,
    };
    struct Step {
        Value value;
        std::vector<Value> sources;
        std::size_t next;
    };

    void open(const Value &value)
    {
        mVisits[value] = Visit_Open;
        mSteps.push_back({value, sourcesOf(value), 0});
    }

    // With a list of steps: chains of formulas are longer than a stack is deep.
    void walkFrom(const Value &start)
    {
        open(start);
        while (!mSteps.empty()) {
            Step &step = mSteps.back();
            if (step.next == step.sources.size()) {
                mVisits[step.value] = Visit_Done;
                mSteps.pop_back();
                continue;
            }
            const Value source = step.sources[step.next++];
            const auto visit = mVisits.find(source);
            if (visit == mVisits.end() || visit->second == Visit_Done)
                continue;
            if (visit->second == Visit_Open)
                close(source);
            else
                open(source);
        }
    }

    void close(const Value &met)
    {
        const auto first =
            std::find_if(mSteps.begin(), mSteps.end(), [&](const Step &step) { return step.value == met; });
        QStringList names;
        for (auto step = first; step != mSteps.end(); ++step) {
            names << nameOf(step->value);
            mInCircles.insert(step->value);
        }
        names << nameOf(met);
        mCircles << names.join(QStringLiteral(" <- "));
    }

    const std::vector<Value> &mValues;
    std::map<Value, eVisit> mVisits;
    std::vector<Step> mSteps;
    std::set<Value> mInCircles;
    QStringList mCircles;
};

} // namespace

Disorder disorderOf(const PatternDocument &document, FrameSet *set)
{
    Disorder disorder;
    OrderEvaluation order;
    FrameSegment *culprit = nullptr;
    if (!order.calculateOrder(set, culprit) && culprit)
        disorder.culprit = culprit->fullName();

    const std::vector<Value> values = unordered(document, set, order);
    Walk walk(values);
    disorder.circles = walk.circles();
    for (const Value &value : values) {
        const bool isComputed = value.first->elementType() == Element_Spec ||
                                value.first->elementType() == Element_MeasurementChart;
        if (isComputed || walk.isInCircle(value))
            continue;
        QStringList awaited;
        for (const Value &source : sourcesOf(value)) {
            if (walk.isUnordered(source))
                awaited << nameOf(source);
        }
        disorder.deadlocks << nameOf(value) + (awaited.isEmpty()
                                                   ? QStringLiteral(" waits for what moves its piece")
                                                   : QStringLiteral(" waits for ") +
                                                         awaited.join(QStringLiteral(" and ")));
    }
    return disorder;
}

} // namespace room
