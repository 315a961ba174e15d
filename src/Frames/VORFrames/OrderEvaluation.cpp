// Evaluation order: which value of a frame set is recomputed in which round, and the walk over the rounds.
//
// What a value depends on is gathered by DependencyGraph, the sorting is done by Rounds; what recomputing
// does is the element's affair.

#include <VorFrames/OrderEvaluation.h>

#include "Preconditions.h"
#include "VORFrames/Dependencies.h"
#include "VORFrames/Reevaluation.h"
#include "VORFrames/Rounds.h"

#include <VorFrames/FrameFrame.h>
#include <VorFrames/FrameLink.h>
#include <VorFrames/FrameMeasurementChart.h>
#include <VorFrames/FrameSegment.h>
#include <VorFrames/FrameSet.h>

#include <QSet>

#include <memory>
#include <optional>
#include <vector>

namespace VorSystem
{

namespace
{

constexpr char kSourceUnit[] = R"(src\Frames\VORFrames)";

bool isMeasureOrLevel(eEvaluationType type)
{
    return type == Evaluation_Measure || type == Evaluation_Level;
}

// The evaluations of a walk. A copy of its own: a move may lead the host back into the set, which then builds
// the rounds anew and may lose elements.
class Walk
{
public:
    explicit Walk(const QListEx<QListEx<Evaluation> *> &rounds)
    {
        for (const QListEx<Evaluation> *round : rounds) {
            for (const Evaluation &evaluation : *round)
                mEvaluations.push_back(evaluation);
        }
        for (const Evaluation &evaluation : mEvaluations) {
            if (mSets.empty() || mSets.back() != evaluation.mElement->getFrameSet())
                mSets.push_back(evaluation.mElement->getFrameSet());
        }
    }

    bool next(Evaluation &evaluation)
    {
        while (mNext < mEvaluations.size()) {
            evaluation = mEvaluations[mNext++];
            if (isStillThere(evaluation.mElement))
                return true;
        }
        return false;
    }

    // Something moved, so the host was told: from here on elements may be missing.
    void hostWasCalled()
    {
        mHostWasCalled = true;
        mPresent.reset();
    }

private:
    bool isStillThere(BaseFrame *element)
    {
        if (!mHostWasCalled)
            return true;
        if (!mPresent)
            collectPresent();
        return mPresent->contains(element);
    }

    void collectPresent()
    {
        mPresent.emplace();
        const auto enter = [this](const auto &elements) {
            for (BaseFrame *element : elements)
                mPresent->insert(element);
        };
        for (FrameSet *set : mSets) {
            if (set == nullptr)
                continue;
            enter(set->getFrames());
            enter(set->getFrameLinks());
            enter(set->getFrameSegments());
            enter(set->getFrameMeasurementCharts());
        }
    }

    std::vector<Evaluation> mEvaluations;
    std::size_t mNext = 0;
    std::vector<FrameSet *> mSets;
    bool mHostWasCalled = false;
    std::optional<QSet<BaseFrame *>> mPresent;
};

// Does the value just taken depend on one of those that changed? A link stands for itself alone here.
bool dependsOnAny(const Dependencies &dependencies, const QSet<Evaluation> &changed)
{
    for (const Evaluation &dependency : dependencies.fromFormulas()) {
        if (changed.contains(dependency))
            return true;
    }
    for (BaseFrame *mover : dependencies.movers()) {
        if (changed.contains({mover, Evaluation_Measure}))
            return true;
        if (mover->elementType() != Element_Segment && changed.contains({mover, Evaluation_Level}))
            return true;
    }
    return false;
}

} // namespace

OrderEvaluation::OrderEvaluation(const OrderEvaluation &other)
{
    Q_UNUSED(other)
}

OrderEvaluation &OrderEvaluation::operator=(const OrderEvaluation &other)
{
    if (this != &other)
        clear();
    return *this;
}

OrderEvaluation::~OrderEvaluation()
{
    clear();
}

void OrderEvaluation::clear()
{
    qDeleteAll(mRounds);
    mRounds.clear();
}

bool OrderEvaluation::calculateOrder(FrameSet *set, FrameSegment *&culprit)
{
    VOR_REQUIRE(set != nullptr);
    culprit = nullptr;
    clear();

    const DependencyGraph graph(*set);
    Rounds rounds(graph);
    while (!rounds.isFinished()) {
        auto round = std::make_unique<QListEx<Evaluation>>();
        mRounds.append(round.get());
        QListEx<Evaluation> &evaluations = *round.release();

        const std::vector<Rounds::Record> &placed = rounds.next();
        evaluations.reserve(static_cast<int>(placed.size()));
        for (Rounds::Record record : placed)
            evaluations.append(graph.evaluation(record));
        if (placed.empty()) {
            culprit = graph.findCulprit([&](Rounds::Record record) { return rounds.isPending(record); });
            return culprit == nullptr;
        }
    }
    return true;
}

bool OrderEvaluation::reevaluate(eFrameReevaluate mode)
{
    Walk walk(mRounds);
    Reevaluation reevaluation(mode);
    bool changed = false;
    Evaluation evaluation;
    while (walk.next(evaluation)) {
        if (!isMeasureOrLevel(evaluation.mType) || !reevaluation.run(*evaluation.mElement, evaluation.mType))
            continue;
        changed = true;
        if (mode == Reevaluate_Apply)
            walk.hostWasCalled();
    }
    return changed;
}

bool OrderEvaluation::reevaluateUnder(BaseFrame *start, bool measure, bool level, eFrameReevaluate mode)
{
    if (!measure && !level)
        return false;

    QSet<Evaluation> touched;
    if (measure)
        touched.insert({start, Evaluation_Measure});
    if (level)
        touched.insert({start, Evaluation_Level});

    Walk walk(mRounds);
    Reevaluation reevaluation(mode);
    std::optional<Dependencies> dependencies(std::in_place);
    bool changed = false;
    Evaluation evaluation;
    while (walk.next(evaluation)) {
        dependencies->take(evaluation);
        if (!dependsOnAny(*dependencies, touched))
            continue;
        touched.insert(evaluation);
        if (!reevaluation.run(*evaluation.mElement, evaluation.mType))
            continue;
        changed = true;
        if (mode == Reevaluate_Apply) {
            walk.hostWasCalled();
            dependencies.emplace(); // the contour moved: who moves whom is asked anew
        }
    }
    return changed;
}

} // namespace VorSystem
