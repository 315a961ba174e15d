// Copying and merging large sets, beside saving and reading the same set, which makes as many elements and
// resolves as many names.

#include <VorFrames/VorFrames.h>
#include <VorJson/VorJson.h>

#include <benchmark/benchmark.h>

#include <memory>

using namespace VorSystem;

namespace
{

constexpr int kFramesPerCenter = 10;

// So many frames, each with a measure formula over the frame before it, and a link over every tenth pair.
std::unique_ptr<FrameSet> largeSet(int frames, GestFrames &manager)
{
    auto set = std::make_unique<FrameSet>(QStringLiteral("Set"), &manager);
    FrameCenter *center = nullptr;
    FrameFrame *previous = nullptr;
    for (int i = 0; i < frames; ++i) {
        if (i % kFramesPerCenter == 0) {
            center = new FrameCenter(QStringLiteral("Center %1").arg(i));
            set->addCenter(center, -1);
        }
        // Without the test of its name, which would take longer than what is measured.
        auto *const frame = new FrameFrame(QStringLiteral("Frame %1").arg(i));
        set->addFrame(frame, -1);
        frame->addFrameCenter(center, -1);
        frame->getMeasureBySizes()->mValues = QListEx<double>({1.0, 2.0, 3.0});
        if (previous != nullptr) {
            auto *const formula = new TreeEquations;
            formula->root->contents = ElemMeasure;
            formula->root->element = previous;
            frame->setFormulaMeasurement(formula);
        }
        if (previous != nullptr && i % kFramesPerCenter == 1) {
            auto *const link = new FrameLink(QStringLiteral("Link %1").arg(i));
            set->addLink(link, -1);
            link->linkFrame(previous);
            link->linkFrame(frame);
        }
        previous = frame;
    }
    return set;
}

bool everything(CDbGroupObject *)
{
    return true;
}

void copySet(benchmark::State &state)
{
    GestFrames manager;
    const std::unique_ptr<FrameSet> set = largeSet(static_cast<int>(state.range(0)), manager);
    for (auto _ : state) {
        auto target = std::make_unique<GestFrames>();
        EquivalenceSets equivalences;
        set->copyElements(target.get(), everything, true, equivalences);
        benchmark::DoNotOptimize(target->getFrameSets());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

// Into a set that holds every name already.
void mergeSet(benchmark::State &state)
{
    GestFrames manager;
    const std::unique_ptr<FrameSet> set = largeSet(static_cast<int>(state.range(0)), manager);
    for (auto _ : state) {
        auto target = std::make_unique<GestFrames>();
        EquivalenceSets equivalences;
        set->copyElements(target.get(), everything, true, equivalences);
        set->mergeElements(target.get(), everything, true, equivalences, false);
        benchmark::DoNotOptimize(target->getFrameSets());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0) * 2);
}

void saveAndReadSet(benchmark::State &state)
{
    GestFrames manager;
    FrameSet *const set = largeSet(static_cast<int>(state.range(0)), manager).release();
    manager.addFrameSet(set, -1);
    for (auto _ : state) {
        GestFrames target;
        target.fromJson(manager.toJson(), false);
        benchmark::DoNotOptimize(target.getFrameSets());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

BENCHMARK(copySet)->RangeMultiplier(10)->Range(100, 10000)->Unit(benchmark::kMillisecond);
BENCHMARK(mergeSet)->RangeMultiplier(10)->Range(100, 10000)->Unit(benchmark::kMillisecond);
BENCHMARK(saveAndReadSet)->RangeMultiplier(10)->Range(100, 10000)->Unit(benchmark::kMillisecond);

} // namespace
