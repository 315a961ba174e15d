// Building and reading JSON objects, each beside the same work on Qt's bare classes.

#include <QJsonArray>
#include <QJsonObject>
#include <VorJson/VorJson.h>
#include <benchmark/benchmark.h>

using namespace VorSystem;

namespace
{

struct Bare {
    using Object = QJsonObject;
    using Array = QJsonArray;
};

struct Counted {
    using Object = XJsonObject;
    using Array = XJsonArray;
};

const QString kName = QStringLiteral("name");
const QString kDescription = QStringLiteral("description");
const QString kKind = QStringLiteral("kind");
const QString kIsVisible = QStringLiteral("isVisible");
const QString kMeasures = QStringLiteral("measures");
const QString kLevels = QStringLiteral("levels");
const QString kFormula = QStringLiteral("formula");
const QString kChest = QStringLiteral("Chest width");
const QString kNote = QStringLiteral("measured over the fullest part");
const QString kFrames = QStringLiteral("frames");

template<class Kind>
typename Kind::Array listOf(double first, int sizes)
{
    typename Kind::Array list;
    for (int size = 0; size < sizes; ++size)
        list.append(first + 1.5 * size);
    return list;
}

/// An element of a pattern with seven members and two lists of five sizes.
template<class Kind>
typename Kind::Object element(int number)
{
    typename Kind::Object formula;
    formula.insert(kKind, 3);
    formula.insert(kName, kChest);

    typename Kind::Object object;
    object.insert(kName, kChest);
    object.insert(kDescription, kNote);
    object.insert(kKind, number);
    object.insert(kIsVisible, true);
    object.insert(kMeasures, listOf<Kind>(38.25, 5));
    object.insert(kLevels, listOf<Kind>(0.25, 5));
    object.insert(kFormula, formula);
    return object;
}

template<class Kind>
typename Kind::Object document(int elements)
{
    typename Kind::Array frames;
    for (int number = 0; number < elements; ++number)
        frames.append(element<Kind>(number));
    typename Kind::Object object;
    object.insert(kFrames, frames);
    return object;
}

template<class Kind>
void buildDocument(benchmark::State &state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(document<Kind>(static_cast<int>(state.range(0))));
}

template<class Kind>
void readDocument(benchmark::State &state)
{
    const typename Kind::Object object = document<Kind>(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        double sum = 0;
        const typename Kind::Array frames = object.value(kFrames).toArray();
        for (int i = 0; i < frames.size(); ++i) {
            const typename Kind::Object frame = frames.at(i).toObject();
            const typename Kind::Array measures = frame.value(kMeasures).toArray();
            for (int size = 0; size < measures.size(); ++size)
                sum += measures.at(size).toDouble();
            sum += frame.value(kName).toString().size() + frame.value(kKind).toInt();
            sum += frame.value(kIsVisible).toBool() ? 1 : 0;
            sum += frame.value(kFormula).toObject().value(kKind).toInt();
        }
        benchmark::DoNotOptimize(sum);
    }
}

/// Members written through references.
template<class Kind>
void writeThroughReferences(benchmark::State &state)
{
    for (auto _ : state) {
        typename Kind::Object object;
        object[kName] = kChest;
        object[kKind] = 3;
        object[kIsVisible] = true;
        object[kKind] = 4;
        benchmark::DoNotOptimize(object);
    }
}

/// One member of many is written over and over.
template<class Kind>
void overwriteMember(benchmark::State &state)
{
    typename Kind::Object object = element<Kind>(1);
    int number = 0;
    for (auto _ : state)
        object.insert(kKind, ++number);
    benchmark::DoNotOptimize(object);
}

BENCHMARK_TEMPLATE(buildDocument, Bare)->Arg(1)->Arg(1000);
BENCHMARK_TEMPLATE(buildDocument, Counted)->Arg(1)->Arg(1000);
BENCHMARK_TEMPLATE(readDocument, Bare)->Arg(1)->Arg(1000);
BENCHMARK_TEMPLATE(readDocument, Counted)->Arg(1)->Arg(1000);
BENCHMARK_TEMPLATE(overwriteMember, Bare);
BENCHMARK_TEMPLATE(overwriteMember, Counted);
BENCHMARK_TEMPLATE(writeThroughReferences, Bare);
BENCHMARK_TEMPLATE(writeThroughReferences, Counted);

} // namespace
