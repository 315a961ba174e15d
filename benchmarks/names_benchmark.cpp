// Names: one comparison, and finding an element by name in sets of growing size.
//
// Yardsticks: QString's own comparison without case for one pair, and a hash lookup of a key that is ready
// made.

#include <VorFrames/VorFrames.h>

#include <QHash>
#include <benchmark/benchmark.h>

using namespace VorSystem;

namespace
{

const QString kTyped = QStringLiteral("Front Waist 12");
const QString kStored = QStringLiteral("front  waist12");
const QString kAccented = QStringLiteral("Vorderärmel Länge");

void comparingNames(benchmark::State &state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(Noms_Identiques(kTyped, kStored));
}
BENCHMARK(comparingNames);

void comparingAccentedNames(benchmark::State &state)
{
    const QString upper = kAccented.toUpper();
    for (auto _ : state)
        benchmark::DoNotOptimize(Noms_Identiques(kAccented, upper));
}
BENCHMARK(comparingAccentedNames);

void yardstickComparingStrings(benchmark::State &state)
{
    const QString upper = kTyped.toUpper();
    for (auto _ : state)
        benchmark::DoNotOptimize(QString::compare(kTyped, upper, Qt::CaseInsensitive));
}
BENCHMARK(yardstickComparingStrings);

// Names of equal length and beginning, as a document of many sizes has them.
QString nameOf(int number)
{
    return QStringLiteral("Segment %1").arg(number, 6, 10, QLatin1Char('0'));
}

void findingTheLastElement(benchmark::State &state)
{
    const int count = static_cast<int>(state.range(0));
    FrameSet set(QStringLiteral("S"), nullptr);
    for (int i = 0; i < count; ++i)
        set.addSegment(new FrameSegment(nameOf(i)), -1);
    const QString wanted = nameOf(count - 1).toUpper();
    for (auto _ : state)
        benchmark::DoNotOptimize(set.foundElementAccordingName(wanted, true));
    state.SetItemsProcessed(state.iterations() * count);
}
BENCHMARK(findingTheLastElement)->RangeMultiplier(10)->Range(10, 10000)->Arg(20000);

void yardstickScanningStrings(benchmark::State &state)
{
    const int count = static_cast<int>(state.range(0));
    QList<QString> names;
    for (int i = 0; i < count; ++i)
        names.append(nameOf(i));
    const QString wanted = nameOf(count - 1).toUpper();
    for (auto _ : state) {
        for (const QString &name : qAsConst(names)) {
            if (QString::compare(name, wanted, Qt::CaseInsensitive) == 0) {
                benchmark::DoNotOptimize(&name);
                break;
            }
        }
    }
    state.SetItemsProcessed(state.iterations() * count);
}
BENCHMARK(yardstickScanningStrings)->RangeMultiplier(10)->Range(10, 10000)->Arg(20000);

void yardstickHashLookup(benchmark::State &state)
{
    const int count = static_cast<int>(state.range(0));
    QHash<QString, int> names;
    for (int i = 0; i < count; ++i)
        names.insert(nameOf(i).toCaseFolded(), i);
    const QString wanted = nameOf(count - 1).toCaseFolded();
    for (auto _ : state)
        benchmark::DoNotOptimize(names.value(wanted));
}
BENCHMARK(yardstickHashLookup)->RangeMultiplier(10)->Range(10, 10000)->Arg(20000);

// Entering a set costs what leaving it costs: nothing is searched.
void fillingAndDeletingASet(benchmark::State &state)
{
    const int count = static_cast<int>(state.range(0));
    for (auto _ : state) {
        FrameSet set(QStringLiteral("S"), nullptr);
        for (int i = 0; i < count; ++i)
            set.addSegment(new FrameSegment(nameOf(i)), -1);
    }
    state.SetItemsProcessed(state.iterations() * count);
}
BENCHMARK(fillingAndDeletingASet)->RangeMultiplier(10)->Range(10, 100000);

} // namespace
