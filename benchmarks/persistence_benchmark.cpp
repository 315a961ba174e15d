// Writing and reading a manager, beside the same work in Qt's own JSON classes.
//
// toJson stands beside a walk that builds the same tree of QJsonObjects. fromJson stands beside Qt's parser
// on the text of the same document, and beside a walk over Qt's classes that makes the same objects with one
// hash of names.

#include "SampleDocument.h"

#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <VorFrames/VorFrames.h>
#include <VorJson/VorJson.h>
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <memory>

using namespace VorSystem;

namespace
{

// --- The same tree from the objects, by Qt's classes ---

QJsonArray numbersOf(const QListEx<double> &values)
{
    QJsonArray array;
    for (const double value : values)
        array.append(value);
    return array;
}

QJsonObject measureOf(BaseFrame *element, bool withLevels)
{
    QJsonObject object;
    object.insert(QStringLiteral("index_medium"), element->getMeasureBySizes()->mNestIndex);
    object.insert(QStringLiteral("measures"), numbersOf(element->getMeasureBySizes()->mValues));
    if (withLevels)
        object.insert(QStringLiteral("levels"), numbersOf(element->getLevelBySizes()->mValues));
    return object;
}

QJsonObject nodeOf(const ElementEquation *node)
{
    QJsonObject object;
    object.insert(QStringLiteral("contents"), int(node->contents));
    if (node->contents == ElemValue)
        object.insert(QStringLiteral("value"), node->value);
    if (node->contents == ElemMeasure || node->contents == ElemLevel)
        object.insert(QStringLiteral("frame_element"), node->element->fullName());
    if (node->sonLeft != nullptr)
        object.insert(QStringLiteral("son_left"), nodeOf(node->sonLeft));
    if (node->sonRight != nullptr)
        object.insert(QStringLiteral("son_right"), nodeOf(node->sonRight));
    return object;
}

void appendRecord(QJsonArray &records, BaseFrame *element)
{
    QJsonObject object;
    const std::pair<QString, TreeEquations *> formulas[] = {
        {QStringLiteral("formular_measure"), element->measurementFormula()},
        {QStringLiteral("formular_level"), element->formulaLevel()},
        {QStringLiteral("formular_spec"), element->formulaSpec()},
    };
    for (const auto &formula : formulas) {
        if (formula.second != nullptr)
            object.insert(formula.first, QJsonObject{{QStringLiteral("root"), nodeOf(formula.second->root)}});
    }
    if (object.isEmpty())
        return;
    object.insert(QStringLiteral("name"), element->name());
    records.append(object);
}

template<class Element, class Fill>
QJsonArray arrayOf(const QListEx<Element *> &elements, QJsonArray &records, Fill fill)
{
    QJsonArray array;
    for (Element *element : elements) {
        QJsonObject object;
        fill(object, element);
        object.insert(QStringLiteral("name"), element->name());
        array.append(object);
        appendRecord(records, element);
    }
    return array;
}

QJsonObject bareTree(const FrameSet &set)
{
    QJsonObject object;
    QJsonArray records;
    object.insert(QStringLiteral("set_name"), set.name());
    object.insert(QStringLiteral("segments"),
                  arrayOf(set.getFrameSegments(), records, [](QJsonObject &out, FrameSegment *segment) {
                      out.insert(QStringLiteral("influence_area_percent"),
                                 segment->getInfluenceAreaPercent());
                      out.insert(QStringLiteral("displace"), int(segment->getDisplace()));
                      out.insert(QStringLiteral("measure"), measureOf(segment, false));
                  }));
    const auto measuresAlone = [](QJsonObject &out, BaseFrame *element) {
        out.insert(QStringLiteral("measure"), measureOf(element, false));
    };
    object.insert(QStringLiteral("specs"), arrayOf(set.getFrameSpecs(), records, measuresAlone));
    object.insert(QStringLiteral("measurementCharts"),
                  arrayOf(set.getFrameMeasurementCharts(), records, measuresAlone));
    object.insert(QStringLiteral("centers"),
                  arrayOf(set.getFrameCenters(), records, [](QJsonObject &out, FrameCenter *center) {
                      out.insert(QStringLiteral("characteristic"), int(center->Caracteristique()));
                  }));
    object.insert(QStringLiteral("links"),
                  arrayOf(set.getFrameLinks(), records, [](QJsonObject &out, FrameLink *link) {
                      out.insert(QStringLiteral("type"), int(link->getMeasureType()));
                      out.insert(QStringLiteral("measure"), measureOf(link, true));
                  }));
    object.insert(
        QStringLiteral("frames"), arrayOf(set.getFrames(), records, [](QJsonObject &out, FrameFrame *frame) {
            out.insert(QStringLiteral("center_name"), frame->getFrameCenter()->name());
            if (frame->getLink() != nullptr)
                out.insert(QStringLiteral("link_name"), frame->getLink()->name());
            out.insert(QStringLiteral("perimeter_measurement"),
                       static_cast<const FrameFrame *>(frame)->getPerimeterMeasurement());
            out.insert(QStringLiteral("level_zero"), frame->getFrameCenter()->getFrameLevelZero() == frame);
            out.insert(QStringLiteral("measure_type"), int(frame->getMeasureType()));
            out.insert(QStringLiteral("percentage_measure_rating"), frame->getPercentageMeasureRating1());
            out.insert(QStringLiteral("ratio"), frame->getRatio());
            out.insert(QStringLiteral("measure"), measureOf(frame, true));
        }));
    object.insert(QStringLiteral("formulars"), records);
    return object;
}

QJsonObject bareTree(const GestFrames &manager)
{
    QJsonArray sets;
    for (const FrameSet *set : manager.getFrameSets())
        sets.append(bareTree(*set));
    return {{QStringLiteral("frames"), sets}};
}

// --- The same objects from Qt's classes, through one hash of names ---

using Names = QHash<QString, BaseFrame *>;

void readValues(const QJsonObject &object, BaseFrame *element)
{
    const short nest = static_cast<short>(object.value(QStringLiteral("index_medium")).toInt());
    const auto read = [nest](const QJsonArray &array, ValuesAccordingSizes *values) {
        values->mValues.reserve(array.size());
        for (int i = 0; i < array.size(); ++i)
            values->mValues.append(array.at(i).toDouble());
        values->mNestIndex = nest;
    };
    read(object.value(QStringLiteral("measures")).toArray(), element->getMeasureBySizes());
    if (object.contains(QStringLiteral("levels")))
        read(object.value(QStringLiteral("levels")).toArray(), element->getLevelBySizes());
}

void readNode(const QJsonObject &object, ElementEquation *node, const Names &names)
{
    node->contents = static_cast<ElemContent>(object.value(QStringLiteral("contents")).toInt());
    if (node->contents == ElemValue)
        node->value = object.value(QStringLiteral("value")).toDouble();
    if (node->contents == ElemMeasure || node->contents == ElemLevel)
        node->element = names.value(object.value(QStringLiteral("frame_element")).toString().toCaseFolded());
    if (node->contents >= ElemParenthesis) {
        node->sonLeft = new ElementEquation;
        readNode(object.value(QStringLiteral("son_left")).toObject(), node->sonLeft, names);
    }
    if (node->contents >= ElemAdd) {
        node->sonRight = new ElementEquation;
        readNode(object.value(QStringLiteral("son_right")).toObject(), node->sonRight, names);
    }
}

template<class Element, class Fill>
void readAll(const QJsonObject &set, const QString &key, Names &names, Fill fill)
{
    const QJsonArray array = set.value(key).toArray();
    for (int i = 0; i < array.size(); ++i) {
        const QJsonObject object = array.at(i).toObject();
        const QString name = object.value(QStringLiteral("name")).toString();
        auto *const element = new Element(name);
        fill(object, element);
        names.insert(name.toCaseFolded(), element);
    }
}

std::unique_ptr<FrameSet> bareRead(const QJsonObject &object)
{
    auto set = std::make_unique<FrameSet>(object.value(QStringLiteral("set_name")).toString(), nullptr);
    Names names;
    readAll<FrameSegment>(
        object, QStringLiteral("segments"), names, [&](const QJsonObject &in, FrameSegment *segment) {
            segment->getInfluenceAreaPercent() =
                in.value(QStringLiteral("influence_area_percent")).toDouble();
            segment->getDisplace() =
                static_cast<FrameSegment::eDisplaceType>(in.value(QStringLiteral("displace")).toInt());
            readValues(in.value(QStringLiteral("measure")).toObject(), segment);
            set->addSegment(segment, -1);
        });
    readAll<FrameSpec>(object, QStringLiteral("specs"), names, [&](const QJsonObject &in, FrameSpec *spec) {
        readValues(in.value(QStringLiteral("measure")).toObject(), spec);
        set->addSpec(spec, -1);
    });
    readAll<FrameCenter>(object, QStringLiteral("centers"), names,
                         [&](const QJsonObject &in, FrameCenter *center) {
                             center->setCharacteristic(static_cast<FrameCenter::eCharacteristicType>(
                                 in.value(QStringLiteral("characteristic")).toInt()));
                             set->addCenter(center, -1);
                         });
    readAll<FrameLink>(object, QStringLiteral("links"), names, [&](const QJsonObject &in, FrameLink *link) {
        link->setMeasureType(static_cast<FrameLink::eMeasureType>(in.value(QStringLiteral("type")).toInt()));
        readValues(in.value(QStringLiteral("measure")).toObject(), link);
        set->addLink(link, -1);
    });
    readAll<FrameFrame>(
        object, QStringLiteral("frames"), names, [&](const QJsonObject &in, FrameFrame *frame) {
            auto *const center = static_cast<FrameCenter *>(
                names.value(in.value(QStringLiteral("center_name")).toString().toCaseFolded()));
            frame->addFrameCenter(center, -1);
            if (in.contains(QStringLiteral("link_name")))
                static_cast<FrameLink *>(
                    names.value(in.value(QStringLiteral("link_name")).toString().toCaseFolded()))
                    ->linkFrame(frame);
            frame->getPerimeterMeasurement() = in.value(QStringLiteral("perimeter_measurement")).toBool();
            if (in.value(QStringLiteral("level_zero")).toBool())
                center->setFrameLevelZero(frame);
            frame->setMeasureType(
                static_cast<FrameFrame::eMeasureType>(in.value(QStringLiteral("measure_type")).toInt()));
            frame->setPercentageMeasureRating(
                in.value(QStringLiteral("percentage_measure_rating")).toDouble());
            frame->setRatio(in.value(QStringLiteral("ratio")).toDouble());
            readValues(in.value(QStringLiteral("measure")).toObject(), frame);
            set->getFramesPtr()->append(frame);
        });
    const QJsonArray records = object.value(QStringLiteral("formulars")).toArray();
    for (int i = 0; i < records.size(); ++i) {
        const QJsonObject record = records.at(i).toObject();
        BaseFrame *const element =
            names.value(record.value(QStringLiteral("name")).toString().toCaseFolded());
        const auto formula = [&](const QString &key) -> TreeEquations * {
            if (!record.contains(key))
                return nullptr;
            auto *const tree = new TreeEquations;
            readNode(record.value(key).toObject().value(QStringLiteral("root")).toObject(), tree->root,
                     names);
            tree->determineImplicitUnits();
            return tree;
        };
        if (TreeEquations *const tree = formula(QStringLiteral("formular_measure")))
            element->setFormulaMeasurement(tree);
        if (TreeEquations *const tree = formula(QStringLiteral("formular_level")))
            element->setFormulaLevel(tree);
        if (TreeEquations *const tree = formula(QStringLiteral("formular_spec")))
            element->setFormulaSpec(tree);
    }
    return set;
}

// --- Measuring ---

// One document of a size, in all its shapes; all of them say the same, or the benchmark ends.
struct Sample {
    explicit Sample(int elements)
        : tree(sampleDocument("usual", elements)), text(QJsonDocument(tree).toJson(QJsonDocument::Compact)),
          object(XJsonObject::fromJsonObject(tree))
    {
        manager.fromJson(object, false);
        const bool same = manager.toJson().toJsonObject() == tree && bareTree(manager) == tree &&
                          bareTree(*bareRead(set())) == set();
        if (!same)
            std::abort();
    }
    QJsonObject set() const { return tree.value(QStringLiteral("frames")).toArray().at(0).toObject(); }

    QJsonObject tree;
    QByteArray text;
    XJsonObject object;
    GestFrames manager;
};

void writes(benchmark::State &state)
{
    const Sample sample(static_cast<int>(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(sample.manager.toJson());
}

void writesBareTree(benchmark::State &state)
{
    const Sample sample(static_cast<int>(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(bareTree(sample.manager));
}

void reads(benchmark::State &state)
{
    const Sample sample(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        auto manager = std::make_unique<GestFrames>();
        manager->fromJson(sample.object, false);
        state.PauseTiming();
        manager.reset();
        state.ResumeTiming();
    }
}

void readsByBareWalk(benchmark::State &state)
{
    const Sample sample(static_cast<int>(state.range(0)));
    const QJsonObject set = sample.set();
    for (auto _ : state) {
        auto read = bareRead(set);
        state.PauseTiming();
        read.reset();
        state.ResumeTiming();
    }
}

void parsesText(benchmark::State &state)
{
    const Sample sample(static_cast<int>(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(QJsonDocument::fromJson(sample.text));
}

void documentSizes(benchmark::internal::Benchmark *benchmark)
{
    benchmark->Arg(10)->Arg(1000)->Arg(20000)->Unit(benchmark::kMicrosecond);
}

BENCHMARK(writes)->Apply(documentSizes);
BENCHMARK(writesBareTree)->Apply(documentSizes);
BENCHMARK(reads)->Apply(documentSizes);
BENCHMARK(readsByBareWalk)->Apply(documentSizes);
BENCHMARK(parsesText)->Apply(documentSizes);

} // namespace
