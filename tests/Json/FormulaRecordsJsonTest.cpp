// The formulas of a set: on whom they arrive, in which forms they are read, and who owns what on the way.

#include "JsonTexts.h"

#include <QJsonArray>
#include <QJsonObject>
#include <iterator>
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

TEST_F(FormulaRecordsJson, everyPlaceTakesTextsAndObjectsAndNothingElse)
{
    const struct {
        const char *name, *key;
        TreeEquations *(BaseFrame::*formula)();
    } places[] = {
        {"S", "formular_measure", &BaseFrame::measurementFormula},
        {"K2:F", "formular_measure", &BaseFrame::measurementFormula},
        {"K2:F", "formular_level", &BaseFrame::formulaLevel},
        {"L", "formular_level", &BaseFrame::formulaLevel},
        {"Q", "formular_spec", &BaseFrame::formulaSpec},
    };
    const std::pair<const char *, const char *> forms[] = {{"'2*Measure(P)'", "(2*P.m)"},
                                                           {kTwo, "2"},
                                                           {"null", "none"},
                                                           {"2", "none"},
                                                           {"false", "none"},
                                                           {"[]", "none"},
                                                           {"'2)'", "none"}};
    for (const auto &place : places) {
        for (const auto &form : forms) {
            read(record(place.name, place.key, form.first));
            EXPECT_EQ(str((element(place.name)->*place.formula)()), form.second)
                << place.name << " " << place.key << " " << form.first;
        }
    }
}

TEST_F(FormulaRecordsJson, textsNameFramesByTheirFullNamesOnly)
{
    const std::pair<const char *, const char *> rows[] = {
        {"'Measure(K2:F)'", "K2:F.m"},
        {"'level( k2 : f )'", "K2:F.l"},
        {"'Measure(F)'", "?.m"}, // unlike a reference in an object
    };
    for (const auto &row : rows) {
        read(record("L", "formular_measure", row.first));
        EXPECT_EQ(str(element("L")->measurementFormula()), row.second) << row.first;
    }
}

TEST_F(FormulaRecordsJson, textThatNamesNobodyIsReadAndCannotBeWritten)
{
    // The reference without element stands in nobody's way: the segment that comes later orders the set.
    read(record("L", "formular_measure", "'Measure(nobody)'") + "," + record("S", "formular_measure", kTwo));
    EXPECT_EQ(str(element("L")->measurementFormula()), "?.m");
    EXPECT_EQ(str(element("S")->measurementFormula()), "2");
    EXPECT_THROW(mSet->toJson(), AssertionError);
}

TEST_F(FormulaRecordsJson, bareNameInASumWithALengthCostsTheSet)
{
    EXPECT_NO_THROW(read(record("L", "formular_measure", "'P'")));
    EXPECT_EQ(str(element("L")->measurementFormula()), "kind 0");
    EXPECT_THROW(read(record("L", "formular_measure", "'P+1'")), AssertionError);
}

TEST_F(FormulaRecordsJson, recordHoldsAllFormulasOfItsElement)
{
    read("{'name':'L','formular_measure':'Measure(K2:F)','formular_level':'-Level(K2:F)'}");
    EXPECT_EQ(text(records().at(0).toObject()),
              "{'formular_level':{'root':{'contents':6,'son_left':{'contents':1,'value':0},"
              "'son_right':{'contents':3,'frame_element':'K2:F'}}},"
              "'formular_measure':{'root':{'contents':2,'frame_element':'K2:F'}},'name':'L'}");
    EXPECT_EQ(records().size(), 1);
}

// A frame is called by its plain name, and what it refers to by the full one.
TEST_F(FormulaRecordsJson, recordOfAFrameBearsItsPlainName)
{
    read(record("K2:F", "formular_measure", "'Measure(K1:F)'"));
    EXPECT_EQ(text(records().at(0).toObject()),
              "{'formular_measure':{'root':{'contents':2,'frame_element':'K1:F'}},'name':'F'}");
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

// Where elements of several kinds bear one name, the first kind has it: for records and for references.
TEST_F(FormulaRecordsJson, nameMeansTheFirstKindThatBearsIt)
{
    struct Kind {
        const char *list;
        const char *place; // that an element of the kind has, null for none
        TreeEquations *(BaseFrame::*formula)();
    };
    const Kind kinds[] = {
        {"centers", nullptr, nullptr},
        {"links", "formular_measure", &BaseFrame::measurementFormula},
        {"segments", "formular_measure", &BaseFrame::measurementFormula},
        {"specs", "formular_spec", &BaseFrame::formulaSpec},
        {"measurementCharts", nullptr, nullptr},
        {"frames", "formular_measure", &BaseFrame::measurementFormula},
    };
    const auto firstOf = [](const FrameSet &set, const std::string &list) -> BaseFrame * {
        return list == "centers"             ? static_cast<BaseFrame *>(set.getFrameCenters().last())
               : list == "links"             ? static_cast<BaseFrame *>(set.getFrameLinks().at(0))
               : list == "segments"          ? static_cast<BaseFrame *>(set.getFrameSegments().at(0))
               : list == "specs"             ? static_cast<BaseFrame *>(set.getFrameSpecs().at(0))
               : list == "measurementCharts" ? static_cast<BaseFrame *>(set.getFrameMeasurementCharts().at(0))
                                             : static_cast<BaseFrame *>(set.getFrames().at(0));
    };
    for (std::size_t first = 0; first < std::size(kinds); ++first) {
        for (std::size_t second = first + 1; second < std::size(kinds); ++second) {
            SCOPED_TRACE(std::string(kinds[first].list) + " before " + kinds[second].list);
            // The origin of the frames comes first, the bearer of the name last.
            QJsonObject stored = object("{'centers':[{'name':'Z'}]}").toJsonObject();
            for (const Kind &kind : {kinds[second], kinds[first]}) {
                QJsonArray list = stored.value(QLatin1String(kind.list)).toArray();
                list.append(QJsonObject{{QStringLiteral("name"), QStringLiteral("N")},
                                        {QStringLiteral("center_name"), QStringLiteral("Z")}});
                stored.insert(QLatin1String(kind.list), list);
            }
            const char *const root = "{'root':{'contents':2,'frame_element':'n'}}";
            stored.insert(QStringLiteral("formulars"),
                          QJsonArray{object((std::string("{'name':'n','formular_measure':") + root +
                                             ",'formular_level':" + root + ",'formular_spec':" + root + "}")
                                                .c_str())
                                         .toJsonObject()});
            FrameSet set(QString(), nullptr);
            set.fromJson(XJsonObject::fromJsonObject(stored));

            BaseFrame *const bearer = firstOf(set, kinds[first].list);
            BaseFrame *const twin = firstOf(set, kinds[second].list);
            EXPECT_EQ(twin->measurementFormula(), nullptr);
            EXPECT_EQ(twin->formulaLevel(), nullptr);
            EXPECT_EQ(twin->formulaSpec(), nullptr);
            if (kinds[first].place == nullptr)
                continue;
            TreeEquations *const formula = (bearer->*kinds[first].formula)();
            ASSERT_NE(formula, nullptr);
            EXPECT_EQ(formula->root->element, bearer);
        }
    }
}

TEST_F(FormulaRecordsJson, referenceToATwinOfACenterMeansTheCenterAndCountsNothing)
{
    mSet = std::make_unique<FrameSet>(QString(), nullptr);
    mSet->fromJson(object("{'centers':[{'name':'N'}],'links':[{'name':'N','measure':{'measures':[7]}}],"
                          "'specs':[{'name':'P'}],'formulars':[{'name':'P','formular_spec':"
                          "{'root':{'contents':2,'frame_element':'N'}}}]}"));
    TreeEquations *const formula = mSet->getFrameSpecs().at(0)->formulaSpec();
    EXPECT_EQ(formula->root->element, mSet->getFrameCenters().at(0));
    EXPECT_EQ(formula->evaluate(0), 0.0);
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

// A node without a kind has no unit: alone or as a factor it needs none, beside a length it would.
TEST_F(FormulaRecordsJson, nodesWithoutAKindAreKeptWhereNoUnitIsAskedOfThem)
{
    const std::pair<const char *, const char *> holders[] = {
        {"F", "formular_measure"}, {"F", "formular_level"}, {"L", "formular_measure"},
        {"L", "formular_level"},   {"P", "formular_spec"},
    };
    const auto node = [](int contents, const std::string &left, const std::string &right) {
        return "{'root':{'contents':" + std::to_string(contents) + ",'son_left':" + left +
               ",'son_right':" + right + "}}";
    };
    const std::string two = "{'contents':1,'value':2}";
    for (const auto &holder : holders) {
        for (const char *kindless : {"{'contents':0}", "{'contents':9}", "{'contents':-1}"}) {
            SCOPED_TRACE(std::string(holder.first) + " " + holder.second + " " + kindless);
            const auto reading = [&](const std::string &formula) {
                return jsontest::thrown([&] { read(record(holder.first, holder.second, formula)); });
            };
            const std::string alone = std::string("{'root':") + kindless + "}";
            for (const std::string &kept :
                 {alone, node(4, kindless, "null"), node(7, kindless, two), node(7, two, kindless),
                  node(8, kindless, two), node(8, two, kindless), node(5, kindless, kindless)}) {
                EXPECT_EQ(reading(kept), "") << kept;
                const XJsonObject written = records().at(0).toObject();
                EXPECT_TRUE(text(written).find(kindless) != std::string::npos) << text(written);
            }
            for (const std::string &refused : {node(5, kindless, two), node(5, two, kindless),
                                               node(6, kindless, two), node(6, two, kindless)})
                EXPECT_NE(reading(refused), "") << refused;
        }
    }
}

// Measure, level and spec are read in this order, and records one after the other.
TEST_F(FormulaRecordsJson, formulasBeforeTheOneThatFailsStay)
{
    const std::string failing = "{'root':{'contents':2,'frame_element':'nobody'}}";
    EXPECT_THROW(read(record("S", "formular_measure", kTwo) + ",{'name':'L','formular_level':" + failing +
                      ",'formular_measure':" + kTwo + "}," + record("P", "formular_spec", kTwo)),
                 AssertionError);
    EXPECT_EQ(str(element("S")->measurementFormula()), "2");
    EXPECT_EQ(str(element("L")->measurementFormula()), "2");
    EXPECT_EQ(str(element("L")->formulaLevel()), "none");
    EXPECT_EQ(str(element("P")->formulaSpec()), "none");
    EXPECT_EQ(mSet->getFrames().count(), 2); // every element had come before
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
