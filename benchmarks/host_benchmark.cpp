// The pattern database, each operation beside its yardstick.
//
// A whole document is read size by size: swapping every vector into a size and back must cost little more per
// vector than walking the same vectors and doing nothing but a sum. The yardsticks walk the same lists in the
// same order.

#include <VorConjoin/VorConjoin.h>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <memory>
#include <random>
#include <unordered_map>
#include <vector>

using namespace VorSystem;

namespace
{

constexpr int kPerGabarit = 10000;
constexpr short kSizes = 30;
constexpr short kNest = 12;

// A document of so many regular vectors, in gabarits of ten thousand.
class BigPiece
{
public:
    explicit BigPiece(std::int64_t vectors) : mGroup(std::make_unique<CDbGroupObject>())
    {
        const RegularSteps steps{{-0.5, -0.25}, {0.5, 0.25}};
        for (std::int64_t made = 0; made < vectors;) {
            GabaritObject *gabarit = mGroup->newGabarit();
            for (int place = 0; place < kPerGabarit && made < vectors; ++place, ++made)
                gabarit->addContourVector(GeoPoint2D(double(place), double(made % 100)), Vector_Corner,
                                          &steps);
        }
    }

    CDbGroupObject *group() const { return mGroup.get(); }

    template<class Act>
    void walk(Act act) const
    {
        IteratorVectorGroup iterator;
        iterator.first(mGroup.get(), IteratorVectorG::Iterator_All);
        for (CDbPointVOR *v = nullptr; iterator.next(v);)
            act(v);
    }

    void setIrregular() const
    {
        walk([this](CDbPointVOR *v) { CDbPointVOR::setVectorInIrregular(v, &sizes); });
    }

    void destroyIrregular() const
    {
        walk([](CDbPointVOR *v) { v->destroyVectorInRegular(); });
    }

    // Makes every evolution a written one, as after a move.
    void writeEvolutions() const
    {
        walk([](CDbPointVOR *v) {
            for (short size = 0; size < kSizes; ++size)
                v->mIrregularGradation->setGradation(t_0_Based(size), GeoPoint2D(0.01 * size * size, 0.0));
            v->mIrregularGradation->setGradation(t_0_Based(kNest - 1), GeoPoint2D());
        });
    }

    GradationData sizes{kSizes, kNest};

private:
    std::unique_ptr<CDbGroupObject> mGroup;
};

void plainWalk(benchmark::State &state)
{
    const BigPiece piece(state.range(0));
    for (auto _ : state) {
        double sum = 0.0;
        piece.walk([&](const CDbPointVOR *v) { sum += v->x() + v->y(); });
        benchmark::DoNotOptimize(sum);
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

// Two walks that write the position, as a swap and its way back must.
void twoWritingWalks(benchmark::State &state)
{
    const BigPiece piece(state.range(0));
    for (auto _ : state) {
        piece.walk([](CDbPointVOR *v) { v->setX(v->x() + 1.0); });
        piece.walk([](CDbPointVOR *v) { v->setX(v->x() - 1.0); });
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void swapAndRestoreOneSize(benchmark::State &state)
{
    const BigPiece piece(state.range(0));
    piece.setIrregular();
    short size = 1;
    for (auto _ : state) {
        piece.walk([&](CDbPointVOR *v) { CDbPointVOR::swapEvolutionMedium(v, size); });
        piece.walk([&](CDbPointVOR *v) { CDbPointVOR::recalculateEvolution(v, size); });
        size = size == kSizes ? short{1} : static_cast<short>(size + 1);
    }
    piece.destroyIrregular();
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void swapAndRestoreOneWrittenSize(benchmark::State &state)
{
    const BigPiece piece(state.range(0));
    piece.setIrregular();
    piece.writeEvolutions();
    short size = 1;
    for (auto _ : state) {
        piece.walk([&](CDbPointVOR *v) { CDbPointVOR::swapEvolutionMedium(v, size); });
        piece.walk([&](CDbPointVOR *v) { CDbPointVOR::recalculateEvolution(v, size); });
        size = size == kSizes ? short{1} : static_cast<short>(size + 1);
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

// The whole read of a document: all sizes, set and destroyed.
void readAllSizes(benchmark::State &state)
{
    const BigPiece piece(state.range(0));
    for (auto _ : state) {
        piece.setIrregular();
        for (short size = 1; size <= kSizes; ++size) {
            piece.walk([&](CDbPointVOR *v) { CDbPointVOR::swapEvolutionMedium(v, size); });
            piece.walk([&](CDbPointVOR *v) { CDbPointVOR::recalculateEvolution(v, size); });
        }
        piece.destroyIrregular();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0) * kSizes);
}

void findByIdentity(benchmark::State &state)
{
    const BigPiece piece(state.range(0));
    std::mt19937 random(1);
    std::uniform_int_distribution<int> identity(1, static_cast<int>(state.range(0)));
    for (auto _ : state) {
        CDbPointVOR *found = nullptr;
        SeekingObjectVOR::objectAccordingID(piece.group(), CDbID(identity(random)), &found, true);
        benchmark::DoNotOptimize(found);
    }
}

void findInAHash(benchmark::State &state)
{
    const BigPiece piece(state.range(0));
    std::unordered_map<int, CDbPointVOR *> table;
    piece.walk([&](CDbPointVOR *v) { table.emplace(v->Num_ID().number(), v); });
    std::mt19937 random(1);
    std::uniform_int_distribution<int> identity(1, static_cast<int>(state.range(0)));
    for (auto _ : state) {
        CDbPointVOR *found = table.find(identity(random))->second;
        benchmark::DoNotOptimize(found);
    }
}

void contourIndexAndBack(benchmark::State &state)
{
    const BigPiece piece(state.range(0));
    GabaritObject *gabarit = piece.group()->firstGabarit();
    std::vector<CDbPointVOR *> all = gabarit->contourVectors();
    std::shuffle(all.begin(), all.end(), std::mt19937(1));
    std::size_t next = 0;
    for (auto _ : state) {
        const short index = gabarit->gabaritGetContourIndex(all[next]);
        benchmark::DoNotOptimize(gabarit->gabaritGetContourVector(index));
        next = next + 1 == all.size() ? 0 : next + 1;
    }
}

void lengthOfAContour(benchmark::State &state)
{
    const BigPiece piece(kPerGabarit);
    GabaritObject *gabarit = piece.group()->firstGabarit();
    const CDbPointVOR *last = gabarit->contourVectors().back();
    for (auto _ : state)
        benchmark::DoNotOptimize(gabarit->contourLengthWithoutDeadZones(gabarit->mFirstVector, last));
    state.SetItemsProcessed(state.iterations() * kPerGabarit);
}

void lengthOfAList(benchmark::State &state)
{
    const BigPiece piece(kPerGabarit);
    const auto &all = piece.group()->firstGabarit()->contourVectors();
    for (auto _ : state) {
        double length = 0.0;
        for (std::size_t place = 1; place < all.size(); ++place)
            length += all[place - 1]->distance(*all[place]);
        benchmark::DoNotOptimize(length);
    }
    state.SetItemsProcessed(state.iterations() * kPerGabarit);
}

void copyAPiece(benchmark::State &state)
{
    const BigPiece piece(state.range(0));
    for (auto _ : state)
        delete piece.group()->copy();
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

} // namespace

BENCHMARK(plainWalk)->Arg(10000)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(twoWritingWalks)->Arg(10000)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(swapAndRestoreOneSize)->Arg(10000)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(swapAndRestoreOneWrittenSize)->Arg(10000)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(readAllSizes)->Arg(10000)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(findByIdentity)->Arg(10000)->Arg(1000000);
BENCHMARK(findInAHash)->Arg(10000)->Arg(1000000);
BENCHMARK(contourIndexAndBack)->Arg(10000);
BENCHMARK(lengthOfAContour);
BENCHMARK(lengthOfAList);
BENCHMARK(copyAPiece)->Arg(10000);
