// Documents with a million of anything: what is sound arrives whole, what is not costs no more than its set.
//
// The storage of one container bounds what can be tried: a stored manager of a million elements is mostly
// centers, the smallest of all.

#include "JsonTexts.h"

#include <VorFrames/FormulaLimits.h>

using namespace VorSystem;
using jsontest::object;

namespace
{

constexpr int kMillion = 1000000;

const QString kName = QStringLiteral("name");
const QString kMeasure = QStringLiteral("measure");
const QString kFrames = QStringLiteral("frames");
const QString kFormulas = QStringLiteral("formulars");

/// A name of few characters, another for each kind and index.
QString name(char kind, int index)
{
    return QLatin1Char(kind) + QString::number(index, 36);
}

/// count values, each made by make(index).
template<class Make>
XJsonArray items(int count, Make make)
{
    XJsonArray array;
    for (int index = 0; index < count; ++index)
        array.append(make(index));
    return array;
}

XJsonObject values(int index, bool haveLevels)
{
    XJsonObject object{{QStringLiteral("index_medium"), 0}, {QStringLiteral("measures"), XJsonArray{index}}};
    if (haveLevels)
        object.insert(QStringLiteral("levels"), XJsonArray());
    return object;
}

XJsonObject managerOf(const XJsonArray &sets)
{
    return {{kFrames, sets}};
}

// --- A million elements of all kinds ---

constexpr int kSegments = 60000, kSpecs = 60000, kCharts = 50000, kLinks = 40000, kFrameCount = 40000;
constexpr int kCenters = kMillion - kSegments - kSpecs - kCharts - kLinks - kFrameCount;

QString centerOfFrame(int index)
{
    return name('K', kCenters - 1 - index);
}

XJsonObject center(int index)
{
    return {{QStringLiteral("characteristic"), index % 4}, {kName, name('K', index)}};
}

XJsonObject segment(int index)
{
    return {{QStringLiteral("displace"), 1 + index % 4},
            {QStringLiteral("influence_area_percent"), index % 100},
            {kMeasure, values(index, false)},
            {kName, name('S', index)}};
}

XJsonObject spec(int index)
{
    return {{kMeasure, values(index, false)}, {kName, name('P', index)}};
}

XJsonObject chart(int index)
{
    return {{kMeasure, values(index, false)}, {kName, name('C', index)}};
}

XJsonObject link(int index)
{
    return {{kMeasure, values(index, true)}, {kName, name('L', index)}, {QStringLiteral("type"), index % 3}};
}

XJsonObject frame(int index)
{
    return {{QStringLiteral("center_name"), centerOfFrame(index)},
            {QStringLiteral("level_zero"), true},
            {QStringLiteral("link_name"), name('L', index / 2)},
            {kMeasure, values(index, true)},
            {QStringLiteral("measure_type"), index % 2},
            {kName, name('F', index)},
            {QStringLiteral("percentage_measure_rating"), index % 100},
            {QStringLiteral("perimeter_measurement"), index % 2 == 0},
            {QStringLiteral("ratio"), index % 10}};
}

// The measure of a frame, for a spec.
XJsonObject record(int index)
{
    const QString frameName = centerOfFrame(index) + QLatin1Char(':') + name('F', index);
    const XJsonObject root{{QStringLiteral("contents"), int(ElemMeasure)},
                           {QStringLiteral("frame_element"), frameName}};
    return {{QStringLiteral("formular_spec"), XJsonObject{{QStringLiteral("root"), root}}},
            {kName, name('P', index)}};
}

TEST(LargeJson, aMillionElementsArriveWhole)
{
    const XJsonObject set{{QStringLiteral("centers"), items(kCenters, center)},
                          {kFormulas, items(kFrameCount, record)},
                          {kFrames, items(kFrameCount, frame)},
                          {QStringLiteral("links"), items(kLinks, link)},
                          {QStringLiteral("measurementCharts"), items(kCharts, chart)},
                          {QStringLiteral("segments"), items(kSegments, segment)},
                          {QStringLiteral("set_name"), QStringLiteral("Large")},
                          {QStringLiteral("specs"), items(kSpecs, spec)}};
    const XJsonObject stored = managerOf({set, FrameSet(QStringLiteral("Small"), nullptr).toJson()});
    ASSERT_EQ(stored.value(kFrames).toArray().size(), 2);

    GestFrames manager;
    manager.fromJson(stored, false);
    ASSERT_EQ(jsontest::setNames(manager), "Large Small ");
    const FrameSet &read = *manager.getFrameSets().at(0);
    EXPECT_EQ(read.getFrameCenters().count() + read.getFrameSegments().count() +
                  read.getFrameSpecs().count() + read.getFrameMeasurementCharts().count() +
                  read.getFrameLinks().count() + read.getFrames().count(),
              kMillion);
    EXPECT_TRUE(manager.toJson() == stored);
}

TEST(LargeJson, allFramesOfOneCenterAndOneLinkArrive)
{
    const int count = 150000;
    XJsonObject set = object("{'centers':[{'name':'K'}],'links':[{'name':'L'}]}");
    set.insert(kFrames, items(count, [](int index) -> XJsonObject {
                   return {{QStringLiteral("center_name"), QStringLiteral("K")},
                           {QStringLiteral("level_zero"), true},
                           {QStringLiteral("link_name"), QStringLiteral("L")},
                           {kName, name('F', index)}};
               }));
    FrameSet read(QString(), nullptr);
    read.fromJson(set);
    EXPECT_EQ(read.getFrameCenters().at(0)->getFrames().count(), count);
    EXPECT_EQ(read.getFrameCenters().at(0)->getFrameLevelZero(), read.getFrames().last());
    EXPECT_EQ(read.getFrameLinks().at(0)->getFrames().count(), count);
    EXPECT_EQ(read.toJson().value(kFrames).toArray().size(), count);
}

// --- A million of one thing ---

TEST(LargeJson, aMillionSetsAreReadAndTheDamagedOnesDropped)
{
    const XJsonObject damaged = object("{'frames':[{}]}");
    const int every = 100;
    GestFrames manager;
    manager.fromJson(managerOf(items(kMillion,
                                     [&](int index) {
                                         return index % every == 0 ? XJsonValue(damaged) : XJsonValue(index);
                                     })),
                     false);
    EXPECT_EQ(manager.getFrameSets().count(), kMillion - kMillion / every);
}

TEST(LargeJson, aMillionNumbersComeBack)
{
    FrameSet set(QStringLiteral("T"), nullptr);
    FrameLink *const numbers = set.newLink(QStringLiteral("L"));
    for (int index = 0; index < kMillion; ++index) {
        numbers->getMeasureBySizes()->mValues.append(index / 8.0);
        numbers->getLevelBySizes()->mValues.append(-index);
    }
    numbers->getMeasureBySizes()->mNestIndex = 32767;
    FrameSet again(QString(), nullptr);
    again.fromJson(set.toJson());
    FrameLink *const read = again.getFrameLinks().at(0);
    EXPECT_EQ(read->getMeasureBySizes()->mValues, numbers->getMeasureBySizes()->mValues);
    EXPECT_EQ(read->getLevelBySizes()->mValues, numbers->getLevelBySizes()->mValues);
    EXPECT_EQ(read->getMeasureBySizes()->mNestIndex, 32767);
}

TEST(LargeJson, aMillionFormulasOfAFewElementsReplaceEachOther)
{
    XJsonObject set = object("{'specs':[{'name':'P'},{'name':'Q'}],'centers':[{'name':'K'}]}");
    const XJsonObject empty;
    const char *const names[] = {"P", "Q", "K", "nobody"};
    set.insert(
        kFormulas, items(kMillion, [&](int index) -> XJsonObject {
            return {{QStringLiteral("formular_spec"), empty}, {kName, QLatin1String(names[index % 4])}};
        }));
    FrameSet read(QString(), nullptr);
    read.fromJson(set);
    EXPECT_EQ(jsontest::str(read.getFrameSpecs().at(0)->formulaSpec()), "kind 0");
    EXPECT_EQ(jsontest::str(read.getFrameSpecs().at(1)->formulaSpec()), "kind 0");
}

TEST(LargeJson, aMillionElementsOfOneNameArriveAndTheFirstBearsIt)
{
    XJsonObject set = object("{'frames':[{'name':'F','center_name':'k'}]}");
    set.insert(QStringLiteral("centers"), items(kMillion, [](int) -> XJsonObject {
                   return {{kName, QStringLiteral("K")}};
               }));
    FrameSet read(QString(), nullptr);
    read.fromJson(set);
    EXPECT_EQ(read.getFrameCenters().count(), kMillion);
    EXPECT_EQ(read.getFrameCenters().at(0)->getFrames().count(), 1);
}

// Nothing is raised: whoever saves has to see whether everything is there.
TEST(LargeJson, setsBeyondTheRoomOfAContainerAreLeftOutWithAWarning)
{
    static int warnings;
    warnings = 0;
    const auto count = [](QtMsgType, const QMessageLogContext &, const QString &) { ++warnings; };
    const QtMessageHandler previous = qInstallMessageHandler(count);
    GestFrames manager;
    for (const char letter : {'a', 'b', 'c'}) {
        const int letters = letter == 'c' ? 10 : 40 * kMillion; // two bytes each, of 134 million
        manager.addFrameSet(new FrameSet(QString(letters, QLatin1Char(letter)), &manager), -1);
    }
    const XJsonArray sets = manager.toJson().value(kFrames).toArray();
    qInstallMessageHandler(previous);
    EXPECT_EQ(warnings, 1);
    ASSERT_EQ(sets.size(), 2);
    EXPECT_EQ(sets.at(1).toObject().value(QStringLiteral("set_name")).toString(),
              QStringLiteral("cccccccccc"));
}

// --- A million levels ---

/// Nodes of one kind, each the son of the next.
XJsonObject nestedNodes(int levels, ElemContent contents, const char *son)
{
    const QString sonKey = QString::fromLatin1(son);
    XJsonObject node = object("{'contents':1,'value':1}");
    for (int level = 1; level < levels; ++level) {
        XJsonObject parent;
        parent.insert(QStringLiteral("contents"), int(contents));
        parent.insert(sonKey, node);
        node = std::move(parent);
    }
    return node;
}

XJsonObject setWithFormula(const char *place, const XJsonObject &root)
{
    XJsonObject formulas = object("{'name':'L'}");
    formulas.insert(QString::fromLatin1(place), XJsonObject{{QStringLiteral("root"), root}});
    XJsonObject set = object("{'set_name':'Deep','links':[{'name':'L'}]}");
    set.insert(kFormulas, XJsonArray{formulas});
    return set;
}

TEST(LargeJson, formulaAMillionLevelsDeepCostsItsSet)
{
    const XJsonObject deep =
        setWithFormula("formular_level", nestedNodes(kMillion, ElemParenthesis, "son_left"));
    FrameSet alone(QString(), nullptr);
    EXPECT_EQ(jsontest::thrown([&] { alone.fromJson(deep); }).substr(0, 17), "Invalid Operation");
    EXPECT_EQ(alone.getFrameLinks().at(0)->formulaLevel(), nullptr);

    GestFrames manager;
    manager.fromJson(managerOf({object("{'set_name':'First'}"), deep, object("{'set_name':'Last'}")}), true);
    EXPECT_EQ(jsontest::setNames(manager), "First Last ");
}

TEST(LargeJson, deepFormulasCostTheirSetsOnEitherSideAndUnderEveryKind)
{
    for (const ElemContent contents : {ElemAdd, ElemSubtract, ElemMultiply, ElemDivide}) {
        for (const char *son : {"son_left", "son_right"}) {
            GestFrames manager;
            manager.fromJson(managerOf({setWithFormula("formular_measure",
                                                       nestedNodes(kMaxFormulaDepth * 4, contents, son)),
                                        object("{'set_name':'Last'}")}),
                             false);
            EXPECT_EQ(jsontest::setNames(manager), "Last ") << contents << " " << son;
        }
    }
}

// Whatever nests elsewhere is passed over.
TEST(LargeJson, nestingThatNobodyReadsCostsNothing)
{
    XJsonObject set = object("{'set_name':'T','specs':[{'name':'P'}]}");
    const XJsonObject deep = nestedNodes(kMillion / 4, ElemAdd, "son_left");
    for (const char *key : {"unknown", "centers", "frames"})
        set.insert(QString::fromLatin1(key), deep);
    set.insert(kFormulas, XJsonArray{XJsonObject{{kName, QStringLiteral("P")}, {kMeasure, deep}}});
    GestFrames manager;
    manager.fromJson(managerOf({set}), false);
    EXPECT_EQ(jsontest::setNames(manager), "T ");
    EXPECT_TRUE(manager.getFrameSets().at(0)->getFrames().isEmpty());
}

} // namespace
