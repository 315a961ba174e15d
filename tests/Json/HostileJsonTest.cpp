// What a stored text may hold when nobody meant well: depth, size, names and numbers beyond all reason.

#include "JsonTexts.h"

#include <VorFrames/FormulaLimits.h>
#include <support/RecordingApplication.h>

using namespace VorSystem;
using jsontest::managerObject;
using jsontest::object;
using jsontest::setNames;
using jsontest::str;

namespace
{

// A node of which the left sons go down depth levels.
XJsonObject nestedNode(int depth)
{
    XJsonObject node = object("{'contents':1,'value':1}");
    for (int level = 1; level < depth; ++level) {
        XJsonObject parent;
        parent.insert(QStringLiteral("contents"), int(ElemParenthesis));
        parent.insert(QStringLiteral("son_left"), node);
        node = parent;
    }
    return node;
}

XJsonObject setWithFormula(const XJsonObject &root)
{
    XJsonObject formula;
    formula.insert(QStringLiteral("root"), root);
    XJsonObject record = object("{'name':'L'}");
    record.insert(QStringLiteral("formular_measure"), formula);
    XJsonArray records;
    records.append(record);
    XJsonObject set = object("{'set_name':'Deep','links':[{'name':'L'}]}");
    set.insert(QStringLiteral("formulars"), records);
    return set;
}

TEST(HostileJson, formulaOfTheLargestDepthIsReadAndWritten)
{
    FrameSet set(QString(), nullptr);
    set.fromJson(setWithFormula(nestedNode(kMaxFormulaDepth)));
    EXPECT_DOUBLE_EQ(set.getFrameLinks().at(0)->measurementFormula()->evaluate(-1), 1.0);
    FrameSet again(QString(), nullptr);
    again.fromJson(set.toJson());
    EXPECT_DOUBLE_EQ(again.getFrameLinks().at(0)->measurementFormula()->evaluate(-1), 1.0);
}

TEST(HostileJson, deeperFormulaCostsItsSet)
{
    XJsonArray sets;
    sets.append(setWithFormula(nestedNode(kMaxFormulaDepth + 1)));
    sets.append(object("{'set_name':'Sound'}"));
    XJsonObject stored;
    stored.insert(QStringLiteral("frames"), sets);
    GestFrames manager;
    manager.fromJson(stored, false);
    EXPECT_EQ(setNames(manager), "Sound ");
}

TEST(HostileJson, manyElementsOfOneNameAreTaken)
{
    XJsonArray centers;
    XJsonArray specs;
    for (int i = 0; i < 100000; ++i) {
        centers.append(object("{'name':'K'}"));
        specs.append(XJsonValue());
    }
    XJsonObject stored = object("{'set_name':'T','frames':[{'name':'F','center_name':'k'}]}");
    stored.insert(QStringLiteral("centers"), centers);
    stored.insert(QStringLiteral("specs"), specs);
    FrameSet set(QString(), nullptr);
    set.fromJson(stored);
    EXPECT_EQ(set.getFrameCenters().count(), 100000);
    EXPECT_EQ(set.getFrameSpecs().count(), 100000);
    EXPECT_EQ(set.getFrameCenters().at(0)->getFrames().count(), 1);
}

TEST(HostileJson, hugeListOfValuesIsRead)
{
    XJsonArray numbers;
    for (int i = 0; i < 200000; ++i)
        numbers.append(XJsonValue());
    XJsonObject values;
    values.insert(QStringLiteral("measures"), numbers);
    XJsonObject stored;
    stored.insert(QStringLiteral("measure"), values);
    FrameSpec spec(QStringLiteral("P"));
    spec.fromJson(stored);
    EXPECT_EQ(spec.getMeasureBySizes()->mValues.count(), 200000);
}

TEST(HostileJson, listsLongerThanAShortAreFittedToTheDocument)
{
    XJsonArray numbers;
    for (int i = 0; i < 70000; ++i)
        numbers.append(double(i));
    XJsonObject values = object("{'index_medium':32767}");
    values.insert(QStringLiteral("measures"), numbers);
    XJsonObject spec = object("{'name':'P'}");
    spec.insert(QStringLiteral("measure"), values);
    XJsonArray specs;
    specs.append(spec);
    XJsonObject set = object("{'set_name':'T'}");
    set.insert(QStringLiteral("specs"), specs);
    XJsonArray sets;
    sets.append(set);
    XJsonObject stored;
    stored.insert(QStringLiteral("frames"), sets);
    GestFrames manager;
    manager.fromJson(stored, true);
    ASSERT_EQ(setNames(manager), "T ");
    const ValuesAccordingSizes &fitted =
        *manager.getFrameSets().at(0)->getFrameSpecs().at(0)->getMeasureBySizes();
    // 37232 sizes above the nest count as -28304: as many are added, and the 32767 below the nest go.
    EXPECT_EQ(fitted.mValues.count(), 70000 + 28304 - 32767);
    EXPECT_EQ(fitted.mNestIndex, 0);
    EXPECT_EQ(fitted.mValues.first(), 32767.0);
    EXPECT_EQ(fitted.mValues.last(), 69999.0 + 28304.0);
}

TEST(HostileJson, nestOutsideItsListIsBroughtBackWhenListsAreFitted)
{
    for (const char *nest : {"-1", "-32768", "3", "32767"}) {
        GestFrames manager;
        const std::string set =
            std::string("{'set_name':'T','specs':[{'name':'P','measure':{'measures':[4,5,6],"
                        "'index_medium':") +
            nest + "}}]}";
        manager.fromJson(managerObject({set.c_str()}), true);
        const std::string expected = nest[0] == '-' ? "[4]" : "[6]";
        EXPECT_EQ(str(*manager.getFrameSets().at(0)->getFrameSpecs().at(0)->getMeasureBySizes()), expected)
            << nest;
    }
}

TEST(HostileJson, formulasThatGoRoundAreReadWithoutHanging)
{
    support::RecordingApplication application;
    const auto measureOf = [](const std::string &holder, const std::string &element) {
        return "{'name':'" + holder + "','formular_measure':{'root':{'contents':2,'frame_element':'" +
               element + "'}}}";
    };
    const std::string set =
        "{'set_name':'T','centers':[{'name':'K'}],'links':[{'name':'L'},{'name':'M'}],"
        "'segments':[{'name':'S'},{'name':'R'}],'frames':[{'name':'F','center_name':'K','link_name':'L'},"
        "{'name':'G','center_name':'K','link_name':'L'}],'formulars':[" +
        measureOf("F", "K:G") + "," + measureOf("G", "K:F") + "," + measureOf("L", "L") + "," +
        measureOf("M", "L") + "," + measureOf("S", "R") + "," + measureOf("R", "S") + "]}";
    GestFrames manager;
    manager.fromJson(managerObject({set.c_str()}), true);
    EXPECT_EQ(setNames(manager), "T ");
}

TEST(HostileJson, namesWithoutReasonAreTaken)
{
    const QString names[] = {QString(),
                             QStringLiteral("  \t"),
                             QString(100000, QLatin1Char('x')),
                             QString(1000, QChar(0xd800)),
                             QString(1000, QChar(0xdc00)),
                             QString(QChar(0)),
                             QStringLiteral("%1 %2"),
                             QStringLiteral("\u00a0")};
    for (const QString &name : names) {
        XJsonObject center;
        center.insert(QStringLiteral("name"), name);
        XJsonObject frame;
        frame.insert(QStringLiteral("name"), name);
        frame.insert(QStringLiteral("center_name"), name);
        XJsonArray centers;
        centers.append(center);
        XJsonArray frames;
        frames.append(frame);
        XJsonObject stored;
        stored.insert(QStringLiteral("set_name"), name);
        stored.insert(QStringLiteral("centers"), centers);
        stored.insert(QStringLiteral("frames"), frames);
        FrameSet set(QString(), nullptr);
        set.fromJson(stored);
        EXPECT_EQ(set.getFrames().at(0)->getFrameCenter(), set.getFrameCenters().at(0));
        EXPECT_TRUE(set.toJson() == set.toJson());
    }
}

} // namespace
