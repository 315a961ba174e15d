// Reading and moving a piece through its control objects, beside the bare calls of the host that such a
// reading or move is made of. Vectors on the contour by ten sizes.

#include <support/ControlledPiece.h>

#include <benchmark/benchmark.h>

#include <utility>

using namespace VorSystem;
using namespace support;

namespace
{

const GradationData kTenSizes(10, 5);

/// A rectangle of so many vectors with an upright axis and three chords.
class Piece10
{
public:
    explicit Piece10(int vectors)
        : piece(rectangle(40.0, 60.0, vectors / 4, 1.0), kTenSizes), parts(vectors / 4)
    {
        piece.center(piece.at(parts / 2), piece.at(2 * parts + parts / 2));
        piece.frame("Low", right(0.2), left(0.2));
        chord = piece.frame("Middle", right(0.5), left(0.5));
        piece.frame("High", right(0.8), left(0.8));
        side = piece.segment("Side", piece.at(parts), piece.at(2 * parts), FrameSegment::Displace_AlongLine);
    }

    CDbPointVOR *right(double share) const { return piece.at(parts + int(share * parts)); }
    CDbPointVOR *left(double share) const { return piece.at(4 * parts - int(share * parts)); }
    template<class Act>
    void each(Act act) const
    {
        IteratorVectorGroup walk;
        walk.first(piece.group(), IteratorVectorG::Iterator_All);
        for (CDbPointVOR *vector = nullptr; walk.next(vector);)
            act(vector);
    }

    ControlledPiece piece;
    int parts;
    ControlFrame *chord = nullptr;
    ControlSegment *side = nullptr;
};

/// The host calls of a reading over all sizes; read is what is asked in each.
template<class Read>
double bareReading(const Piece10 &on, Read read)
{
    double sum = 0.0;
    on.each([](CDbPointVOR *vector) { CDbPointVOR::setVectorInIrregular(vector, &kTenSizes); });
    for (short number = 1; number <= kTenSizes.gradationNum(); ++number) {
        on.each([=](CDbPointVOR *vector) { CDbPointVOR::swapEvolutionMedium(vector, number); });
        sum += read();
        on.each([=](CDbPointVOR *vector) { CDbPointVOR::recalculateEvolution(vector, number); });
    }
    on.each([](CDbPointVOR *vector) { vector->destroyVectorInRegular(); });
    return sum;
}

double bareMeasure(const Piece10 &on)
{
    return on.piece.gabarit()->measureBetween(on.piece.group(), on.right(0.5), on.left(0.5), true);
}

void measuresOfAFrame(benchmark::State &state)
{
    Piece10 on(static_cast<int>(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(on.chord->getMeasures(&kTenSizes));
}
BENCHMARK(measuresOfAFrame)->Arg(100)->Arg(10000);

void levelsOfAFrame(benchmark::State &state)
{
    Piece10 on(static_cast<int>(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(on.chord->getLevels(&kTenSizes));
}
BENCHMARK(levelsOfAFrame)->Arg(100)->Arg(10000);

void bareReadingOfAFrame(benchmark::State &state)
{
    const Piece10 on(static_cast<int>(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(bareReading(on, [&] { return bareMeasure(on); }));
}
BENCHMARK(bareReadingOfAFrame)->Arg(100)->Arg(10000);

/// One pass: each change of all sizes takes exactly one, there and back.
void changeOfAFrame(benchmark::State &state)
{
    Piece10 on(static_cast<int>(state.range(0)));
    const ValuesAccordingSizes there = plus(on.piece.measuresOf(on.chord), -2.0);
    const ValuesAccordingSizes back = on.piece.measuresOf(on.chord);
    bool forth = true;
    on.piece.rebuilds();
    int changes = 0;
    for (auto _ : state) {
        if (on.piece.changeMeasures(on.chord, forth ? there : back) != Msg_Converged)
            state.SkipWithError("the piece does not obey");
        forth = !forth;
        ++changes;
    }
    state.counters["passes"] = changes ? double(on.piece.rebuilds()) / changes : 0.0;
}
BENCHMARK(changeOfAFrame)->Arg(100)->Arg(1000)->Arg(10000);

/// The host calls of such a pass: grading, the copy of the contour, walks to the neighbours, moves, outlines
/// of the quadrants, the walk over what may be free, the rebuild, and both values read back.
void bareChangeOfAFrame(benchmark::State &state)
{
    const Piece10 on(static_cast<int>(state.range(0)));
    GabaritObject *gabarit = on.piece.gabarit();
    const CDbPointVOR *ends[] = {on.piece.at(on.parts / 2), on.piece.at(2 * on.parts + on.parts / 2)};
    const auto walkToAxis = [&](CDbPointVOR *vector, bool forward) {
        do {
            vector = vector->gabaritNeighborContourVector(forward);
        } while (vector != ends[0] && vector != ends[1]);
        benchmark::DoNotOptimize(vector);
    };
    double distance = -1.0;
    for (auto _ : state) {
        on.each([](CDbPointVOR *vector) { CDbPointVOR::setVectorInIrregular(vector, &kTenSizes); });
        for (short number = 1; number <= kTenSizes.gradationNum(); ++number) {
            on.each([=](CDbPointVOR *vector) { CDbPointVOR::swapEvolutionMedium(vector, number); });
            GabaritObject *before = GabaritObject::create();
            for (CDbPointVOR *vector : gabarit->contourVectors())
                before->gabaritAddContourVector(vector->copyTheVector(0), nullptr);
            for (int fill = 0; fill < 2; ++fill) {
                walkToAxis(on.right(0.5), true);
                walkToAxis(on.right(0.5), false);
            }
            const auto moveSide = [&](CDbPointVOR *vector, CDbPointVOR *from, CDbPointVOR *to, double dx) {
                walkToAxis(vector, false);
                walkToAxis(vector, true);
                gabarit->moveVectorContourBetween(from, vector, vector, dx, 0.0, true);
                *vector = GeoPoint2D(vector->x() - dx, vector->y());
                gabarit->moveVectorContourBetween(vector, to, vector, dx, 0.0, true);
                gabarit->recalculateCurves(from, to);
            };
            moveSide(on.right(0.5), on.right(0.2), on.right(0.8), distance);
            moveSide(on.left(0.5), on.left(0.8), on.left(0.2), -distance);
            // Four quadrants before the move and after it.
            GabaritObject *polygons = nullptr;
            const auto outline = [&](CDbPointVOR *from, CDbPointVOR *to) {
                for (CDbPointVOR *first : {from, gabarit->vectorEquivalentOf(before, from)}) {
                    const CDbPointVOR *last = first == from ? to : gabarit->vectorEquivalentOf(before, to);
                    GabaritObject *polygon = GabaritObject::create();
                    polygon->gabaritAddContourVector(CDbPointVOR::newVectorObject(), nullptr);
                    polygon->gabaritAddContourVector(CDbPointVOR::newVectorObject(), nullptr);
                    CDbPointVOR *vector = first;
                    polygon->gabaritAddContourVector(vector->copyTheVector(0), nullptr);
                    do {
                        vector = vector->mNextVector;
                        polygon->gabaritAddContourVector(vector->copyTheVector(0), nullptr);
                    } while (vector != last);
                    polygon->mNextGabarit = polygons;
                    polygons = polygon;
                }
            };
            outline(on.right(0.2), on.right(0.5));
            outline(on.right(0.5), on.right(0.8));
            outline(on.left(0.8), on.left(0.5));
            outline(on.left(0.5), on.left(0.2));
            IteratorVectorGroup walk;
            walk.first(on.piece.group(), IteratorVectorG::Iterator_Anchors);
            for (CDbPointVOR *vector = nullptr; walk.next(vector);)
                benchmark::DoNotOptimize(gabarit->isVectorContour(vector));
            CurveObject::recalculateCurvesControl(on.piece.group(), nullptr);
            while (polygons) {
                GabaritObject *polygon = polygons;
                polygons = std::exchange(polygon->mNextGabarit, nullptr);
                GabaritObject::removeAGabarit(nullptr, &polygon);
            }
            GabaritObject::removeAGabarit(nullptr, &before);
            const bool isNest = number == kTenSizes.mediumIndex();
            on.each([=](CDbPointVOR *vector) {
                CDbPointVOR::recalculateEvolution(vector, number);
                if (isNest)
                    CDbPointVOR::createEvolutionInOnlyMedium(vector, number);
            });
        }
        on.each([](CDbPointVOR *vector) { vector->tryResetGradationInRegular(&kTenSizes); });
        on.piece.group()->againObjects(true, &kTenSizes, true);
        benchmark::DoNotOptimize(bareReading(on, [&] { return bareMeasure(on); }));
        benchmark::DoNotOptimize(bareReading(on, [&] { return bareMeasure(on); }));
        distance = -distance;
    }
}
BENCHMARK(bareChangeOfAFrame)->Arg(100)->Arg(1000)->Arg(10000);

void lengthsOfASegment(benchmark::State &state)
{
    Piece10 on(static_cast<int>(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(on.side->getMeasures(&kTenSizes));
}
BENCHMARK(lengthsOfASegment)->Arg(100)->Arg(10000);

void bareLengthsOfASegment(benchmark::State &state)
{
    const Piece10 on(static_cast<int>(state.range(0)));
    CDbPointVOR *a = on.piece.at(on.parts);
    CDbPointVOR *b = on.piece.at(2 * on.parts);
    for (auto _ : state)
        benchmark::DoNotOptimize(
            bareReading(on, [&] { return on.piece.gabarit()->getContourLength(a, b, b, true); }));
}
BENCHMARK(bareLengthsOfASegment)->Arg(100)->Arg(10000);

/// A segment's move is linear in the vectors: what lies behind it is asked once.
void changeOfASegment(benchmark::State &state)
{
    Piece10 on(static_cast<int>(state.range(0)));
    const ValuesAccordingSizes there = plus(on.piece.measuresOf(on.side), 2.0);
    const ValuesAccordingSizes back = on.piece.measuresOf(on.side);
    bool forth = true;
    for (auto _ : state) {
        if (on.piece.changeMeasures(on.side, forth ? there : back) != Msg_Converged)
            state.SkipWithError("the piece does not obey");
        forth = !forth;
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(changeOfASegment)->Arg(100)->Arg(1000)->Arg(10000)->Complexity(benchmark::oN);

} // namespace
