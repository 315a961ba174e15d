// A whole set: the order of its lists, what names mean, and what a reading that fails leaves behind.

#include "JsonTexts.h"

using namespace VorSystem;
using jsontest::object;
using jsontest::str;
using jsontest::text;

namespace
{

class FrameSetJson : public testing::Test
{
protected:
    FrameSet mSet{QStringLiteral("old"), nullptr};

    void read(const char *stored) { mSet.fromJson(object(stored)); }
    std::string failure(const char *stored)
    {
        return jsontest::thrown([&] { read(stored); });
    }
    BaseFrame *element(const char *name)
    {
        return mSet.foundElementAccordingName(QString::fromUtf8(name), true);
    }
    FrameFrame *frame(const char *fullName) { return dynamic_cast<FrameFrame *>(element(fullName)); }
};

TEST_F(FrameSetJson, emptySetWritesEightKeys)
{
    EXPECT_EQ(text(FrameSet(QStringLiteral("T"), nullptr).toJson()),
              "{'centers':[],'formulars':[],'frames':[],'links':[],'measurementCharts':[],'segments':[],"
              "'set_name':'T','specs':[]}");
}

TEST_F(FrameSetJson, emptyObjectReadsAsAnUnnamedEmptySet)
{
    mSet.fromJson(XJsonObject());
    EXPECT_EQ(mSet.name(), QString());
    EXPECT_TRUE(mSet.getFrameCenters().isEmpty());
}

TEST_F(FrameSetJson, listsKeepTheirOrderAndTheirNames)
{
    read("{'set_name':'T','centers':[{'name':'B'},{'name':'A'}],'specs':[{'name':'Z'},{'name':'Y'}],"
         "'frames':[{'name':'F2','center_name':'B'},{'name':'F1','center_name':'A'},"
         "{'name':'F0','center_name':'B'}]}");
    EXPECT_EQ(mSet.name(), QStringLiteral("T"));
    EXPECT_EQ(mSet.getFrameCenters().at(0)->name(), QStringLiteral("B"));
    EXPECT_EQ(mSet.getFrameSpecs().at(1)->name(), QStringLiteral("Y"));
    EXPECT_EQ(mSet.getFrames().at(2)->fullName(), QStringLiteral("B:F0"));
    EXPECT_EQ(mSet.getFrameCenters().at(0)->getFrames().at(1)->name(), QStringLiteral("F0"));
}

TEST_F(FrameSetJson, everyElementKnowsItsSetAfterwards)
{
    read("{'centers':[{'name':'K'}],'segments':[{'name':'S'}],'specs':[{'name':'P'}],'links':[{'name':'L'}],"
         "'measurementCharts':[{'name':'C'}],'frames':[{'name':'F','center_name':'K','link_name':'L'}]}");
    for (const char *name : {"K", "S", "P", "L", "C", "K:F"})
        EXPECT_EQ(element(name)->getFrameSet(), &mSet) << name;
    // A frame asks its center: its own field is empty again.
    EXPECT_EQ(frame("K:F")->setOrGetFrameSet(), nullptr);
    EXPECT_EQ(frame("K:F")->getLink(), element("L"));
}

TEST_F(FrameSetJson, firstFrameOfACenterIsItsOriginUntilAnotherClaimsThePlace)
{
    const struct {
        const char *first, *second, *third;
        const char *origin;
    } rows[] = {
        {"false", "false", "false", "F1"},
        {"false", "true", "false", "F2"},
        {"true", "true", "false", "F2"}, // the later of two
        {"true", "false", "true", "F3"},
    };
    for (const auto &row : rows) {
        FrameSet set(QString(), nullptr);
        const auto frameText = [](const char *name, const char *levelZero) {
            return std::string("{'center_name':'K','name':'") + name + "','level_zero':" + levelZero + "}";
        };
        set.fromJson(object(("{'centers':[{'name':'K'}],'frames':[" + frameText("F1", row.first) + "," +
                             frameText("F2", row.second) + "," + frameText("F3", row.third) + "]}")
                                .c_str()));
        EXPECT_EQ(set.getFrameCenters().at(0)->getFrameLevelZero()->name().toStdString(), row.origin);
    }
}

TEST_F(FrameSetJson, itemsThatAreNoObjectsReadAsUnnamedElements)
{
    read("{'specs':[1,null,'P',[]],'centers':'none'}");
    ASSERT_EQ(mSet.getFrameSpecs().count(), 4);
    EXPECT_EQ(mSet.getFrameSpecs().at(2)->name(), QString());
    EXPECT_TRUE(mSet.getFrameCenters().isEmpty());
}

TEST_F(FrameSetJson, namesUsedTwiceAreTaken)
{
    read("{'centers':[{'name':'K'},{'name':'k'}],'specs':[{'name':'K'}],"
         "'frames':[{'name':'F','center_name':'K'},{'name':'F','center_name':'K'}]}");
    EXPECT_EQ(mSet.getFrameCenters().count(), 2);
    EXPECT_EQ(mSet.getFrameCenters().at(0)->getFrames().count(), 2); // both on the first of the name
    EXPECT_TRUE(mSet.getFrameCenters().at(1)->getFrames().isEmpty());
}

// Texts that a set can write and that do not read back, since a name means its first bearer.
TEST_F(FrameSetJson, namesThatMeanAnotherElementCostTheSet)
{
    const char *const center = "Invalid Operation | src\\Json\\FrameFrameJson | 123";
    const char *const link = "Invalid Operation | src\\Json\\FrameFrameJson | 130";
    const char *const reference = "Invalid Operation | src\\Json\\ElementEquationJson | 99";
    const std::pair<const char *, const char *> rows[] = {
        {"{'centers':[{'name':'A:B'}],'frames':[{'name':'F','center_name':'A:B'}]}", center},
        {"{'centers':[{'name':'K'}],'links':[{'name':'A:B'}],"
         "'frames':[{'name':'F','center_name':'K','link_name':'A:B'}]}",
         link},
        {"{'centers':[{'name':'K'},{'name':'L'}],'links':[{'name':'L'}],"
         "'frames':[{'name':'F','center_name':'K','link_name':'L'}]}",
         link},
        {"{'links':[{'name':'L'}],'frames':[{'name':'F','center_name':'L'}]}", center},
        {"{'specs':[{'name':'A:B'},{'name':'P'}],'formulars':[{'name':'P','formular_spec':"
         "{'root':{'contents':2,'frame_element':'A:B'}}}]}",
         reference},
        {"{'segments':[{'name':'A:B'}],'specs':[{'name':'P'}],'formulars':[{'name':'P',"
         "'formular_spec':{'root':{'contents':2,'frame_element':'A:B'}}}]}",
         reference},
        {"{'links':[{'name':'A:B'}],'specs':[{'name':'P'}],'formulars':[{'name':'P',"
         "'formular_spec':{'root':{'contents':2,'frame_element':'A:B'}}}]}",
         reference},
        {"{'centers':[{'name':'A:B'}],'specs':[{'name':'P'}],'formulars':[{'name':'P',"
         "'formular_spec':{'root':{'contents':2,'frame_element':'A:B'}}}]}",
         reference},
        {"{'measurementCharts':[{'name':'A:B'}],'specs':[{'name':'P'}],'formulars':[{'name':'P',"
         "'formular_spec':{'root':{'contents':2,'frame_element':'A:B'}}}]}",
         reference},
        {"{'specs':[{'name':'P'}],'formulars':[{'name':'P','formular_spec':"
         "{'root':{'contents':2,'frame_element':'elsewhere'}}}]}",
         reference},
        {"{'specs':[{'name':'P'}],'formulars':[{'name':'P','formular_spec':{'root':{'contents':3}}}]}",
         reference},
    };
    for (const auto &row : rows) {
        FrameSet set(QString(), nullptr);
        const std::string failure = jsontest::thrown([&] { set.fromJson(object(row.first)); });
        EXPECT_EQ(failure.substr(0, std::string(row.second).size()), row.second) << row.first;
    }
}

TEST_F(FrameSetJson, firstColonPartsCenterAndFrame)
{
    read("{'centers':[{'name':'A'}],'frames':[{'name':'B:C','center_name':'A'}],'specs':[{'name':'P'}],"
         "'formulars':[{'name':'P','formular_spec':{'root':{'contents':2,'frame_element':'A:B:C'}}}]}");
    EXPECT_EQ(str(mSet.getFrameSpecs().at(0)->formulaSpec()), "A:B:C.m");
    FrameSet again(QString(), nullptr);
    again.fromJson(mSet.toJson());
    EXPECT_EQ(text(again.toJson()), text(mSet.toJson()));
}

TEST_F(FrameSetJson, unresolvedReferenceOfAFormulaSaysWhere)
{
    const std::string said = failure("{'specs':[{'name':'P'}],'formulars':[{'name':'P','formular_spec':"
                                     "{'root':{'contents':2,'frame_element':'elsewhere'}}}]}");
    EXPECT_EQ(said,
              "Invalid Operation | src\\Json\\ElementEquationJson | 99 | void "
              "VorSystem::ElementEquation::fromJson(const VorSystem::XJsonObject&, VorSystem::FrameSet*)");
}

TEST_F(FrameSetJson, halfReadSetIsSoundForTheOneWhoHoldsIt)
{
    EXPECT_NE(failure("{'set_name':'T','centers':[{'name':'K'}],'links':[{'name':'L'}],"
                      "'frames':[{'name':'F','center_name':'K','link_name':'L'},"
                      "{'name':'G','center_name':'K','link_name':'none'},{'name':'H','center_name':'K'}]}"),
              "");
    // The frame that failed is gone from its center as from the set; what came after it was not read.
    EXPECT_EQ(mSet.name(), QStringLiteral("T"));
    EXPECT_EQ(mSet.getFrames().count(), 1);
    EXPECT_EQ(mSet.getFrameCenters().at(0)->getFrames().count(), 1);
    EXPECT_EQ(mSet.getFrameLinks().at(0)->getFrames().count(), 1);
    EXPECT_EQ(mSet.newFrame(QStringLiteral("G"), mSet.getFrameCenters().at(0))->fullName(),
              QStringLiteral("K:G"));
}

TEST_F(FrameSetJson, originThatFailsLeavesItsCenterWithoutOne)
{
    EXPECT_NE(failure("{'centers':[{'name':'K'}],'frames':[{'name':'F','center_name':'K','link_name':''}]}"),
              "");
    EXPECT_EQ(mSet.getFrameCenters().at(0)->getFrameLevelZero(), nullptr);
}

TEST_F(FrameSetJson, readingIntoAFilledSetAbandonsItsElements)
{
    FrameCenter *const center = mSet.newCenter(QStringLiteral("K"));
    FrameFrame *const frame = mSet.newFrame(QStringLiteral("F"), center);
    FrameLink *const link = mSet.newLink(QStringLiteral("L"));
    link->linkFrame(frame);
    FrameSpec *const spec = mSet.newSpec(QStringLiteral("P"));

    read("{'set_name':'T','centers':[{'name':'K'}],'frames':[{'name':'F','center_name':'K'}]}");

    EXPECT_EQ(mSet.getFrameCenters().count(), 1);
    EXPECT_NE(mSet.getFrameCenters().at(0), center);
    EXPECT_EQ(frame->getFrameCenter(), center); // neither deleted nor unlinked: they belong to their holder
    EXPECT_EQ(frame->getLink(), link);
    EXPECT_TRUE(mSet.getFrameSpecs().isEmpty());
    delete link;
    delete frame;
    delete center;
    delete spec;
    EXPECT_EQ(mSet.getFrames().count(), 1);
}

// A host's own elements store what they please.
TEST_F(FrameSetJson, elementsAreAskedForTheirStoredForm)
{
    class SignedSpec : public FrameSpec
    {
    public:
        using FrameSpec::FrameSpec;
        XJsonObject toJson() const override
        {
            XJsonObject stored = FrameSpec::toJson();
            stored.insert(QStringLiteral("name"), QStringLiteral("overwritten"));
            stored.insert(QStringLiteral("signed"), true);
            return stored;
        }
    };
    mSet.addSpec(new SignedSpec(QStringLiteral("P")), -1);
    EXPECT_EQ(text(mSet.toJson().value(QStringLiteral("specs")).toArray().at(0).toObject()),
              "{'measure':{'index_medium':0,'measures':[]},'name':'P','signed':true}");
}

TEST_F(FrameSetJson, mistypedNamesReadAsEmptyOnes)
{
    for (const char *wrong : {"null", "7", "true", "['T']", "{'name':'T'}"}) {
        FrameSet set(QStringLiteral("old"), nullptr);
        const std::string value = wrong;
        set.fromJson(object(("{'set_name':" + value + ",'centers':[{'name':" + value + "}]}").c_str()));
        EXPECT_EQ(set.name(), QString()) << wrong;
        EXPECT_EQ(set.getFrameCenters().at(0)->name(), QString()) << wrong;
    }
}

TEST_F(FrameSetJson, setsInsideASetAreFramesWithoutACenter)
{
    // A manager's object handed to a set by mistake: its sets read as frames that name no center.
    EXPECT_NE(failure("{'frames':[{'set_name':'T'}]}"), "");
}

// --- Losses that the stored form is known for ---

TEST_F(FrameSetJson, chartLosesItsFormula)
{
    FrameMeasurementChart *const chart = mSet.newMeasurementChart(QStringLiteral("C"));
    chart->setFormulaMeasurementChart(TreeEquations::parse(QStringLiteral("1+1"), &mSet, false));
    EXPECT_EQ(mSet.toJson().value(QStringLiteral("formulars")).toArray().size(), 0);
    FrameSet again(QString(), nullptr);
    again.fromJson(mSet.toJson());
    EXPECT_EQ(again.getFrameMeasurementCharts().at(0)->formulaMeasurementChart(), nullptr);
}

TEST_F(FrameSetJson, formulasGivenUpAreForgotten)
{
    mSet.markRemovedFormula(QStringLiteral("L"), true, QStringLiteral("1+1"));
    const FrameSet unmarked(QStringLiteral("old"), nullptr);
    EXPECT_EQ(text(mSet.toJson()), text(unmarked.toJson()));
    FrameSet again(QString(), nullptr);
    again.fromJson(mSet.toJson());
    EXPECT_TRUE(again.removedFormulas().isEmpty());
}

TEST_F(FrameSetJson, twinsLoseTheirFormulasToTheFirstOfTheName)
{
    for (const char *center : {"K1", "K2"}) {
        FrameFrame *const frame =
            mSet.newFrame(QStringLiteral("F"), mSet.newCenter(QString::fromUtf8(center)));
        frame->setFormulaMeasurement(
            TreeEquations::parse(QString::fromUtf8(center).mid(1), &mSet, true)); // "1" and "2"
    }
    FrameSet again(QString(), nullptr);
    again.fromJson(mSet.toJson());
    EXPECT_EQ(str(again.getFrames().at(0)->measurementFormula()), "2");
    EXPECT_EQ(str(again.getFrames().at(1)->measurementFormula()), "none");
}

TEST_F(FrameSetJson, levelsTakeTheNestOfTheMeasures)
{
    FrameLink *const link = mSet.newLink(QStringLiteral("L"));
    link->getMeasureBySizes()->mValues = QListEx<double>{1, 2, 3};
    link->getMeasureBySizes()->mNestIndex = 1;
    link->getLevelBySizes()->mValues = QListEx<double>{4, 5, 6};
    link->getLevelBySizes()->mNestIndex = 2;
    FrameSet again(QString(), nullptr);
    again.fromJson(mSet.toJson());
    EXPECT_EQ(str(*again.getFrameLinks().at(0)->getLevelBySizes()), "4 [5] 6");
}

TEST_F(FrameSetJson, centerWithoutAnOriginGetsItsFirstFrame)
{
    FrameCenter *const center = mSet.newCenter(QStringLiteral("K"));
    FrameFrame *const first = mSet.newFrame(QStringLiteral("F"), center);
    mSet.newFrame(QStringLiteral("G"), center);
    center->removeFrame(first);
    ASSERT_EQ(center->getFrameLevelZero(), nullptr);
    FrameSet again(QString(), nullptr);
    again.fromJson(mSet.toJson());
    EXPECT_EQ(again.getFrameCenters().at(0)->getFrameLevelZero()->name(), QStringLiteral("F"));
}

TEST_F(FrameSetJson, ordersOfCentersAndLinksBecomeTheFlatOrder)
{
    FrameCenter *const center = mSet.newCenter(QStringLiteral("K"));
    FrameLink *const link = mSet.newLink(QStringLiteral("L"));
    FrameFrame *const f = mSet.newFrame(QStringLiteral("F"), center);
    FrameFrame *const g = mSet.newFrame(QStringLiteral("G"), center);
    link->linkFrame(g);
    link->linkFrame(f);
    FrameSet again(QString(), nullptr);
    again.fromJson(mSet.toJson());
    EXPECT_EQ(again.getFrameLinks().at(0)->getFrames().at(0)->name(), QStringLiteral("F"));
}

} // namespace
