// The formulas of a set: on whom they arrive, in which forms they are read, and who owns what on the way.

#include "JsonTexts.h"

#include <memory>
#include <support/RecordingApplication.h>

using namespace VorSystem;
using jsontest::object;
using jsontest::str;
using jsontest::text;

namespace
{

// Two centers with a frame F each, a link L, a segment S, the specs P and Q and a chart C.
class FormulaRecordsJson : public testing::Test
{
protected:
    std::unique_ptr<FrameSet> mSet;

    // Reads the elements and these records into a new set.
    void read(const std::string &records)
    {
        mSet = std::make_unique<FrameSet>(QString(), nullptr);
        mSet->fromJson(object(("{'set_name':'T','centers':[{'name':'K1'},{'name':'K2'}],"
                               "'links':[{'name':'L'}],'segments':[{'name':'S'}],"
                               "'specs':[{'name':'P'},{'name':'Q'}],'measurementCharts':[{'name':'C'}],"
                               "'frames':[{'name':'F','center_name':'K1'},{'name':'F','center_name':'K2'}],"
                               "'formulars':[" +
                               records + "]}")
                                  .c_str()));
    }
    BaseFrame *element(const char *name)
    {
        return mSet->foundElementAccordingName(QString::fromUtf8(name), true);
    }
    XJsonArray records() { return mSet->toJson().value(QStringLiteral("formulars")).toArray(); }
};

const char *const kTwo = "{'root':{'contents':1,'value':2}}";

std::string record(const std::string &name, const std::string &key, const std::string &formula)
{
    return "{'name':'" + name + "','" + key + "':" + formula + "}";
}

TEST_F(FormulaRecordsJson, eachFormulaFindsItsPlace)
{
    read(record("L", "formular_measure", kTwo) + "," + record("L", "formular_level", kTwo) + "," +
         record("P", "formular_spec", kTwo) + "," + record("S", "formular_measure", kTwo) + "," +
         record("F", "formular_level", "{'root':{'contents':3,'frame_element':'K2:F'}}"));
    EXPECT_EQ(str(element("L")->measurementFormula()), "2");
    EXPECT_EQ(str(element("L")->formulaLevel()), "2");
    EXPECT_EQ(str(element("P")->formulaSpec()), "2");
    EXPECT_EQ(str(element("S")->measurementFormula()), "2");
    EXPECT_EQ(str(element("K1:F")->formulaLevel()), "K2:F.l");
    EXPECT_EQ(str(element("K2:F")->formulaLevel()), "none");
}

TEST_F(FormulaRecordsJson, recordsStandInTheOrderOfTheLists)
{
    read(record("F", "formular_measure", kTwo) + "," + record("L", "formular_measure", kTwo) + "," +
         record("P", "formular_spec", kTwo) + "," + record("S", "formular_measure", kTwo));
    QStringList names;
    const XJsonArray written = records();
    for (const XJsonValue &item : written)
        names << item.toObject().value(QStringLiteral("name")).toString();
    EXPECT_EQ(names.join(QLatin1Char(' ')), QStringLiteral("S P L F"));
}

TEST_F(FormulaRecordsJson, formsOfAFormula)
{
    // stored                                        the link's measure formula
    const std::pair<const char *, const char *> rows[] = {
        {"null", "none"},
        {"7", "none"},
        {"true", "none"},
        {"[]", "none"},
        {"'2+Measure(P)'", "(2+P.m)"}, // text is read and never written
        {"'2+'", "none"},              // no formula
        {"''", "none"},
        {"{}", "kind 0"},
        {"{'root':null}", "kind 0"},
        {"{'root':{'contents':9,'value':5,'son_left':{'contents':1}}}", "kind 9"},
        {"{'root':{'contents':2.5}}", "kind 0"},
        {"{'root':{'contents':4294967301}}", "kind 0"},
        {"{'root':{'contents':1}}", "0"},
        {"{'root':{'contents':4,'son_left':{'contents':1,'value':3}}}", "[3]"},
        {"{'root':{'contents':7,'son_left':{'contents':1,'value':3},'son_right':{}}}", "(3*kind 0)"},
        {"{'root':{'contents':2,'frame_element':' k 1 : f '}}", "K1:F.m"},
    };
    for (const auto &row : rows) {
        read(record("L", "formular_measure", row.first));
        EXPECT_EQ(str(element("L")->measurementFormula()), row.second) << row.first;
    }
}

TEST_F(FormulaRecordsJson, textIsWrittenBackAsAnObject)
{
    read(record("P", "formular_spec", "'Measure(L)*2'"));
    EXPECT_EQ(text(records().at(0).toObject()),
              "{'formular_spec':{'root':{'contents':7,'son_left':{'contents':2,'frame_element':'L'},"
              "'son_right':{'contents':1,'value':2}}},'name':'P'}");
}

TEST_F(FormulaRecordsJson, unknownKindIsWrittenBackAlone)
{
    read(record("P", "formular_spec", "{'root':{'contents':9,'value':5}}"));
    EXPECT_EQ(text(records().at(0).toObject()), "{'formular_spec':{'root':{'contents':9}},'name':'P'}");
}

TEST_F(FormulaRecordsJson, recordOfAnUnknownNameIsPassedOver)
{
    read(record("nobody", "formular_measure", kTwo) + ",7,{}," +
         record("nobody", "formular_measure", "{'root':{'contents':2,'frame_element':'nobody'}}") + "," +
         record("L", "formular_measure", kTwo));
    EXPECT_EQ(str(element("L")->measurementFormula()), "2");
}

// A formula whose place the element lacks is read, and then let go.
TEST_F(FormulaRecordsJson, placeThatAnElementLacksTakesNothing)
{
    const std::string everything = ",'formular_measure':" + std::string(kTwo) + ",'formular_level':" + kTwo +
                                   ",'formular_spec':" + kTwo + "}";
    // element   measure, level, spec
    const std::pair<const char *, const char *> rows[] = {
        {"K1", "none none none"}, {"C", "none none none"}, {"P", "none none 2"},
        {"S", "2 none none"},     {"L", "2 2 none"},       {"F", "2 2 none"},
    };
    for (const auto &row : rows) {
        read("{'name':'" + std::string(row.first) + "'" + everything);
        BaseFrame *const holder = element(row.first);
        EXPECT_EQ(str(holder->measurementFormula()) + " " + str(holder->formulaLevel()) + " " +
                      str(holder->formulaSpec()),
                  row.second)
            << row.first;
    }
}

TEST_F(FormulaRecordsJson, formulasOfTwinsGoToTheFirstTheLastWins)
{
    read(record("F", "formular_measure", kTwo) + "," +
         record("F", "formular_measure", "{'root':{'contents':1,'value':3}}") + "," +
         record("S", "formular_measure", kTwo) + "," +
         record("S", "formular_measure", "{'root':{'contents':1,'value':3}}"));
    EXPECT_EQ(str(element("K1:F")->measurementFormula()), "3");
    EXPECT_EQ(str(element("K2:F")->measurementFormula()), "none");
    EXPECT_EQ(str(element("S")->measurementFormula()), "3");
}

TEST_F(FormulaRecordsJson, recordReachesAFrameByItsFullNameToo)
{
    read(record("K2:F", "formular_measure", kTwo));
    EXPECT_EQ(str(element("K2:F")->measurementFormula()), "2");
}

TEST_F(FormulaRecordsJson, constantsAreInTheUnitOfTheApplicationWhenASetIsReadAlone)
{
    support::RecordingApplication application;
    application.setLengthUnit(LengthUnit::millimetre());
    read(record("L", "formular_measure", "{'root':{'contents':1,'value':20}}"));
    EXPECT_DOUBLE_EQ(element("L")->measurementFormula()->evaluate(-1), 2.0);
}

TEST_F(FormulaRecordsJson, sumOfAnEmptyNodeAndALengthCostsTheSet)
{
    EXPECT_THROW(read(record("L", "formular_measure",
                             "{'root':{'contents':5,'son_left':{},'son_right':{'contents':1,'value':2}}}")),
                 AssertionError);
}

TEST_F(FormulaRecordsJson, segmentWithAFormulaOfAnUnknownKindCostsTheSet)
{
    // A segment has its set ordered at once, and the order wants to know what a formula refers to.
    EXPECT_THROW(read(record("S", "formular_measure", kTwo) + "," +
                      record("S", "formular_measure", "{'root':{'contents':9}}")),
                 AssertionError);
}

TEST_F(FormulaRecordsJson, frameWithAFormulaOfAnUnknownKindCostsTheSetOnceASegmentHasOne)
{
    const std::string frame = record("F", "formular_measure", "{'root':{'contents':9}}");
    EXPECT_NO_THROW(read(frame));
    EXPECT_THROW(read(frame + "," + record("S", "formular_measure", kTwo)), AssertionError);
}

TEST_F(FormulaRecordsJson, segmentOfACycleIsReadWithoutAWord)
{
    // Nothing that was just read is tied to a piece, so nothing stands in the way of an order.
    support::RecordingApplication application;
    read(record("S", "formular_measure", "{'root':{'contents':2,'frame_element':'S'}}"));
    EXPECT_TRUE(application.mMessages.isEmpty());
    EXPECT_EQ(str(element("S")->measurementFormula()), "S.m");
}

} // namespace
