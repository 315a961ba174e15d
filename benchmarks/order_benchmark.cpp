// Ordering and reevaluating large sets, beside a topological sort of Boost.Graph and beside the bare reading
// and writing of the same lists.
//
// Two yardsticks for the order: *asked* builds the graph from the set (every element is asked what its values
// hang on, values are numbered through a hash) and sorts it, which is the same task without rounds; *given*
// starts from ready pairs of numbers.

#include "OrderShapes.h"

#include <benchmark/benchmark.h>
#include <boost/graph/adjacency_list.hpp>
#include <boost/graph/topological_sort.hpp>

#include <QHash>

#include <utility>
#include <vector>

using namespace VorSystem;

namespace
{

using Graph = boost::adjacency_list<boost::vecS, boost::vecS, boost::directedS>;
using Edges = std::vector<std::pair<std::size_t, std::size_t>>;

template<class Visit>
void forEachValue(FrameSet &set, Visit visit)
{
    for (FrameFrame *frame : set.getFrames()) {
        visit(Evaluation{frame, Evaluation_Measure});
        visit(Evaluation{frame, Evaluation_Level});
    }
    for (FrameLink *link : set.getFrameLinks()) {
        visit(Evaluation{link, Evaluation_Measure});
        visit(Evaluation{link, Evaluation_Level});
    }
    for (FrameSegment *segment : set.getFrameSegments())
        visit(Evaluation{segment, Evaluation_Measure});
}

// What hangs on what, by number; the count of values comes back in count.
Edges askedEdges(FrameSet &set, std::size_t &count)
{
    QHash<Evaluation, std::size_t> numbers;
    std::vector<Evaluation> values;
    forEachValue(set, [&](const Evaluation &value) {
        numbers.insert(value, values.size());
        values.push_back(value);
    });
    count = values.size();

    Edges edges;
    QListEx<Evaluation> dependencies;
    for (std::size_t number = 0; number < count; ++number) {
        dependencies.clear();
        BaseFrame *const element = values[number].mElement;
        if (values[number].mType == Evaluation_Measure)
            element->addEvaluationUsedInMeasurement(dependencies);
        else
            element->addEvaluationUsedInLevel(dependencies);
        for (const Evaluation &dependency : dependencies)
            edges.emplace_back(number, numbers.value(dependency));
    }
    return edges;
}

std::vector<std::size_t> sorted(const Edges &edges, std::size_t count)
{
    Graph graph(count);
    for (const auto &edge : edges)
        boost::add_edge(edge.first, edge.second, graph);
    std::vector<std::size_t> order;
    order.reserve(count);
    boost::topological_sort(graph, std::back_inserter(order));
    return order;
}

void calculateOrder(benchmark::State &state, const char *shape)
{
    const shapes::LargeSet made(shape, static_cast<int>(state.range(0)));
    OrderEvaluation order;
    FrameSegment *culprit = nullptr;
    for (auto _ : state)
        benchmark::DoNotOptimize(order.calculateOrder(made.set(), culprit));
}

void topologicalSortAsked(benchmark::State &state, const char *shape)
{
    const shapes::LargeSet made(shape, static_cast<int>(state.range(0)));
    for (auto _ : state) {
        std::size_t count = 0;
        const Edges edges = askedEdges(*made.set(), count);
        benchmark::DoNotOptimize(sorted(edges, count));
    }
}

void topologicalSortGiven(benchmark::State &state, const char *shape)
{
    const shapes::LargeSet made(shape, static_cast<int>(state.range(0)));
    std::size_t count = 0;
    const Edges edges = askedEdges(*made.set(), count);
    for (auto _ : state)
        benchmark::DoNotOptimize(sorted(edges, count));
}

void reevaluateRounds(benchmark::State &state, const char *shape, eFrameReevaluate mode)
{
    shapes::LargeSet made(shape, static_cast<int>(state.range(0)));
    made.fillSizes();
    OrderEvaluation order;
    FrameSegment *culprit = nullptr;
    order.calculateOrder(made.set(), culprit);
    for (auto _ : state)
        benchmark::DoNotOptimize(order.reevaluate(mode));
}

void reevaluateSet(benchmark::State &state, const char *shape, eFrameReevaluate mode)
{
    shapes::LargeSet made(shape, static_cast<int>(state.range(0)));
    made.fillSizes();
    for (auto _ : state)
        benchmark::DoNotOptimize(made.set()->reevaluate(mode));
}

// Every value of every list is read and written back, in the same order.
void bareReadingAndWriting(benchmark::State &state, const char *shape)
{
    shapes::LargeSet made(shape, static_cast<int>(state.range(0)));
    made.fillSizes();
    OrderEvaluation order;
    FrameSegment *culprit = nullptr;
    order.calculateOrder(made.set(), culprit);
    for (auto _ : state) {
        for (const QListEx<Evaluation> *round : order.rounds()) {
            for (const Evaluation &evaluation : *round) {
                BaseFrame *const element = evaluation.mElement;
                for (short size = 0; size < 10; ++size) {
                    if (evaluation.mType == Evaluation_Measure)
                        element->setMeasures(size, element->getMeasures(size));
                    else
                        element->setLevel(size, element->getLevel(size));
                }
            }
        }
    }
}

void destroySet(benchmark::State &state)
{
    for (auto _ : state) {
        state.PauseTiming();
        auto *const made = new shapes::LargeSet("random", static_cast<int>(state.range(0)));
        state.ResumeTiming();
        delete made;
    }
}

void sizes(benchmark::internal::Benchmark *benchmark)
{
    benchmark->Arg(100)->Arg(1000)->Arg(10000)->Unit(benchmark::kMicrosecond);
}

} // namespace

BENCHMARK_CAPTURE(calculateOrder, wide, "wide")->Apply(sizes);
BENCHMARK_CAPTURE(topologicalSortAsked, wide, "wide")->Apply(sizes);
BENCHMARK_CAPTURE(topologicalSortGiven, wide, "wide")->Apply(sizes);
BENCHMARK_CAPTURE(calculateOrder, random, "random")->Apply(sizes);
BENCHMARK_CAPTURE(topologicalSortAsked, random, "random")->Apply(sizes);
BENCHMARK_CAPTURE(topologicalSortGiven, random, "random")->Apply(sizes);
BENCHMARK_CAPTURE(calculateOrder, chain, "chain")->Apply(sizes);
BENCHMARK_CAPTURE(topologicalSortAsked, chain, "chain")->Apply(sizes);
BENCHMARK_CAPTURE(calculateOrder, followers, "followers")->Apply(sizes);
BENCHMARK_CAPTURE(calculateOrder, links, "links")->Apply(sizes);
BENCHMARK_CAPTURE(calculateOrder, pieces, "pieces")->Apply(sizes);

BENCHMARK_CAPTURE(reevaluateRounds, storeWide, "wide", Reevaluate_Store)->Apply(sizes);
BENCHMARK_CAPTURE(bareReadingAndWriting, wide, "wide")->Apply(sizes);
BENCHMARK_CAPTURE(reevaluateRounds, storeRandom, "random", Reevaluate_Store)->Apply(sizes);
BENCHMARK_CAPTURE(bareReadingAndWriting, random, "random")->Apply(sizes);
BENCHMARK_CAPTURE(reevaluateRounds, askRandom, "random", Reevaluate_Ask)->Apply(sizes);
BENCHMARK_CAPTURE(reevaluateSet, storeWide, "wide", Reevaluate_Store)->Apply(sizes);
BENCHMARK_CAPTURE(reevaluateSet, storeRandom, "random", Reevaluate_Store)->Apply(sizes);
BENCHMARK_CAPTURE(reevaluateSet, storeChain, "chain", Reevaluate_Store)->Apply(sizes);
BENCHMARK(destroySet)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMicrosecond);
