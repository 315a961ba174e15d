// A whole manager: what a document holds, what a damaged set costs, and the unit in which texts are read.

#include "JsonTexts.h"

#include <VorConjoin/VorConjoin.h>
#include <functional>
#include <stdexcept>
#include <support/RecordingApplication.h>

using namespace VorSystem;
using jsontest::managerObject;
using jsontest::object;
using jsontest::setNames;
using jsontest::str;
using jsontest::text;

namespace
{

const char *const kGood = "{'set_name':'Good','specs':[{'name':'P','measure':{'measures':[1,2,3],"
                          "'index_medium':1}}]}";
const char *const kBad = "{'set_name':'Bad','links':[{'name':'L'}],'centers':[{'name':'K'}],"
                         "'frames':[{'name':'F','center_name':'K','link_name':'L'},"
                         "{'name':'G','center_name':'L'}]}";

// A document with a gradation of its own, and something that happens whenever it is asked for it.
class GradedDocument : public Document
{
public:
    GradedDocument(short sizes, short nest) : mGradation(sizes, nest) {}
    const GradationData *gradationData() const override
    {
        mWhenAsked();
        return &mGradation;
    }
    GestFrames *framesManager() const override { return nullptr; }
    const t_Plan *plan() const override { return nullptr; }

    std::function<void()> mWhenAsked = [] {};

private:
    GradationData mGradation;
};

TEST(GestFramesJson, managerWithoutSetsIsOneEmptyList)
{
    EXPECT_EQ(text(GestFrames().toJson()), "{'frames':[]}");
    GestFrames manager;
    manager.fromJson(GestFrames().toJson(), true);
    EXPECT_EQ(setNames(manager), "");
}

TEST(GestFramesJson, objectWithoutSetsAddsNothing)
{
    for (const char *stored : {"{}", "{'frames':null}", "{'frames':'none'}", "{'frames':{}}"}) {
        GestFrames manager;
        manager.fromJson(object(stored), false);
        EXPECT_EQ(setNames(manager), "") << stored;
    }
}

// One set T1: the center K1 with the frame F1 at level zero, the spec S1, and on F1 the measure of S1 plus 2.
TEST(GestFramesJson, smallDocumentKeyByKey)
{
    GestFrames manager;
    auto *const set = new FrameSet(QStringLiteral("T1"), &manager);
    manager.addFrameSet(set, -1);
    FrameSpec *const spec = set->newSpec(QStringLiteral("S1"));
    spec->getMeasureBySizes()->mValues = QListEx<double>{10, 12};
    FrameFrame *const frame = set->newFrame(QStringLiteral("F1"), set->newCenter(QStringLiteral("K1")));
    frame->setFormulaMeasurement(TreeEquations::parse(QStringLiteral("Measure(S1)+2"), set, true));

    const std::string expected =
        "{'frames':[{"
        "'centers':[{'characteristic':1,'name':'K1'}],"
        "'formulars':[{'formular_measure':{'root':{'contents':5,"
        "'son_left':{'contents':2,'frame_element':'S1'},'son_right':{'contents':1,'value':2}}},"
        "'name':'F1'}],"
        "'frames':[{'center_name':'K1','level_zero':true,"
        "'measure':{'index_medium':0,'levels':[],'measures':[]},'measure_type':0,'name':'F1',"
        "'percentage_measure_rating':50,'perimeter_measurement':false,'ratio':1}],"
        "'links':[],'measurementCharts':[],'segments':[],'set_name':'T1',"
        "'specs':[{'measure':{'index_medium':0,'measures':[10,12]},'name':'S1'}]}]}";
    EXPECT_EQ(text(manager.toJson()), expected);

    GestFrames again;
    again.fromJson(object(expected.c_str()), false);
    EXPECT_EQ(text(again.toJson()), expected);
    EXPECT_DOUBLE_EQ(again.getFrameSets().at(0)->getFrames().at(0)->measurementFormula()->evaluate(1), 14.0);
}

TEST(GestFramesJson, readingAddsToWhatIsThere)
{
    GestFrames manager;
    manager.addFrameSet(new FrameSet(QStringLiteral("Here"), &manager), -1);
    manager.fromJson(managerObject({kGood, "{'set_name':'Here'}"}), false);
    EXPECT_EQ(setNames(manager), "Here Good Here ");
    for (FrameSet *set : manager.getFrameSets())
        EXPECT_EQ(set->getGestFrames(), &manager);
}

TEST(GestFramesJson, damagedSetCostsNoMoreThanItself)
{
    GestFrames manager;
    manager.fromJson(managerObject({kGood, kBad, "{'set_name':'Last'}"}), false);
    EXPECT_EQ(setNames(manager), "Good Last ");
}

TEST(GestFramesJson, itemsThatAreNoObjectsAreUnnamedSets)
{
    GestFrames manager;
    manager.fromJson(object("{'frames':[1,null,'Good']}"), false);
    EXPECT_EQ(manager.getFrameSets().count(), 3);
}

TEST(GestFramesJson, setHandedOverByMistakeTurnsItsFramesIntoSets)
{
    GestFrames manager;
    manager.fromJson(object("{'set_name':'T','frames':[{'name':'F','center_name':'K'}]}"), false);
    EXPECT_EQ(setNames(manager), " ");
}

TEST(GestFramesJson, formulaOverAnElementOfAnotherSetCostsTheSet)
{
    GestFrames manager;
    manager.fromJson(
        managerObject({kGood, "{'set_name':'Other','specs':[{'name':'Q'}],'formulars':[{'name':"
                              "'Q','formular_spec':{'root':{'contents':2,'frame_element':'P'}}}]}"}),
        false);
    EXPECT_EQ(setNames(manager), "Good ");
}

TEST(GestFramesJson, textsOfTheManagerAreNotStored)
{
    GestFrames manager;
    manager.setName(QStringLiteral("name"));
    manager.setDesc(QStringLiteral("description"));
    manager.setWorkId(QStringLiteral("work"));
    EXPECT_EQ(text(manager.toJson()), "{'frames':[]}");
    GestFrames again;
    again.fromJson(manager.toJson(), false);
    EXPECT_EQ(again.name() + again.desc() + again.workId(), QString());
}

TEST(GestFramesJson, setsAreStoredInTheOrderOfTheManager)
{
    GestFrames manager;
    for (const char *name : {"B", "A", "B"})
        manager.addFrameSet(new FrameSet(QString::fromUtf8(name), &manager), -1);
    manager.addFrameSet(new FrameSet(QStringLiteral("First"), &manager), 0);
    QStringList names;
    for (const XJsonValue &set : manager.toJson().value(QStringLiteral("frames")).toArray())
        names << set.toObject().value(QStringLiteral("set_name")).toString();
    EXPECT_EQ(names.join(QLatin1Char(' ')), QStringLiteral("First B A B"));
}

TEST(GestFramesJson, setsAreAskedForTheirStoredForm)
{
    class SignedSet : public FrameSet
    {
    public:
        using FrameSet::FrameSet;
        XJsonObject toJson() const override { return {{QStringLiteral("signed"), true}}; }
    };
    GestFrames manager;
    manager.addFrameSet(new SignedSet(QStringLiteral("T"), &manager), -1);
    EXPECT_EQ(text(manager.toJson()), "{'frames':[{'signed':true}]}");
}

TEST(GestFramesJson, groupMappingIsNotStored)
{
    CDbGroupObject from;
    CDbGroupObject to;
    GestFrames manager;
    const RelayBaton baton = manager.setGroupMapping({{&from, &to}});
    EXPECT_EQ(text(manager.toJson()), "{'frames':[]}");
    manager.fromJson(managerObject({kGood}), false);
    EXPECT_EQ(manager.getMappedGroup(&from), &to); // and reading leaves it alone
}

TEST(GestFramesJson, adjustingFitsTheListsToTheDocument)
{
    GradedDocument document(5, 3);
    GestFrames manager;
    manager.setDocument(&document);
    manager.fromJson(managerObject({kGood}), true);
    EXPECT_EQ(str(*manager.getFrameSets().at(0)->getFrameSpecs().at(0)->getMeasureBySizes()), "0 1 [2] 3 4");
}

TEST(GestFramesJson, withoutAdjustingTheListsStayAsStored)
{
    GradedDocument document(5, 3);
    GestFrames manager;
    manager.setDocument(&document);
    manager.fromJson(managerObject({kGood}), false);
    EXPECT_EQ(str(*manager.getFrameSets().at(0)->getFrameSpecs().at(0)->getMeasureBySizes()), "1 [2] 3");
}

TEST(GestFramesJson, adjustingWithoutADocumentLeavesTheNestAlone)
{
    GestFrames manager;
    manager.fromJson(managerObject({kGood}), true);
    EXPECT_EQ(str(*manager.getFrameSets().at(0)->getFrameSpecs().at(0)->getMeasureBySizes()), "[2]");
}

TEST(GestFramesJson, setIsAdjustedInCentimetresAndBeforeItEntersTheManager)
{
    support::RecordingApplication application;
    application.setLengthUnit(LengthUnit::millimetre());
    GradedDocument document(5, 3);
    GestFrames manager;
    manager.setDocument(&document);
    QStringList seen;
    document.mWhenAsked = [&] {
        EXPECT_TRUE(application.lengthUnit() == LengthUnit::centimetre());
        seen << QString::fromStdString(setNames(manager));
    };
    manager.fromJson(managerObject({kGood, "{'set_name':'Last'}"}), true);
    seen.removeDuplicates();
    EXPECT_EQ(seen, QStringList({QString(), QStringLiteral("Good ")}));
    EXPECT_EQ(setNames(manager), "Good Last ");
}

TEST(GestFramesJson, setThatCannotBeAdjustedIsDroppedLikeOneThatCannotBeRead)
{
    GradedDocument document(5, 3);
    GestFrames manager;
    manager.setDocument(&document);
    int asked = 0;
    document.mWhenAsked = [&asked] {
        if (++asked == 1)
            throw AssertionError(QStringLiteral("not now"));
    };
    manager.fromJson(managerObject({kGood, "{'set_name':'Last'}"}), true);
    EXPECT_EQ(setNames(manager), "Last ");
}

TEST(GestFramesJson, anyOtherErrorPassesThroughAndLeavesTheUnitAsItWas)
{
    support::RecordingApplication application;
    application.setLengthUnit(LengthUnit::millimetre());
    GradedDocument document(5, 3);
    document.mWhenAsked = [] { throw std::runtime_error("no gradation"); };
    GestFrames manager;
    manager.setDocument(&document);
    EXPECT_THROW(manager.fromJson(managerObject({kGood, kGood}), true), std::runtime_error);
    EXPECT_EQ(setNames(manager), "");
    EXPECT_TRUE(application.lengthUnit() == LengthUnit::millimetre());
}

TEST(GestFramesJson, lengthsInTextsAreCentimetresWhateverTheUnit)
{
    support::RecordingApplication application;
    application.setLengthUnit(LengthUnit::millimetre());
    GestFrames manager;
    manager.fromJson(
        managerObject(
            {"{'links':[{'name':'L'},{'name':'M'}],'formulars':[{'name':'L','formular_measure':'20'},"
             "{'name':'M','formular_measure':{'root':{'contents':1,'value':20}}}]}"}),
        false);
    for (FrameLink *link : manager.getFrameSets().at(0)->getFrameLinks())
        EXPECT_DOUBLE_EQ(link->measurementFormula()->evaluate(-1), 20.0);
    EXPECT_TRUE(application.lengthUnit() == LengthUnit::millimetre());
}

TEST(GestFramesJson, unitReturnsAlsoWithoutSets)
{
    support::RecordingApplication application;
    application.setLengthUnit(LengthUnit::millimetre());
    GestFrames().fromJson(XJsonObject(), true);
    EXPECT_TRUE(application.lengthUnit() == LengthUnit::millimetre());
}

TEST(GestFramesJson, setThatWasDroppedHalfReadIsNeverSeen)
{
    // Its frames are linked when it goes; nobody is asked or told.
    support::RecordingApplication application;
    GestFrames manager;
    manager.fromJson(managerObject({kBad, kBad}), true);
    EXPECT_EQ(setNames(manager), "");
    EXPECT_TRUE(application.mMessages.isEmpty() && application.mQuestions.isEmpty());
}

} // namespace
