// Each element in its stored form, key by key, and what a missing or mistyped key reads as.

#include "JsonTexts.h"

#include <limits>
#include <support/RecordingApplication.h>

using namespace VorSystem;
using jsontest::object;
using jsontest::str;
using jsontest::text;

namespace
{

// A set with the center K, on which the frames of the tests stand.
class ElementJson : public testing::Test
{
protected:
    FrameSet mSet{QStringLiteral("T"), nullptr};
    FrameCenter *mCenter = mSet.newCenter(QStringLiteral("K"));

    // A frame as the set's reading makes it: told its set, without a center.
    std::unique_ptr<FrameFrame> unreadFrame()
    {
        auto frame = std::make_unique<FrameFrame>(QStringLiteral("F"));
        frame->setOrGetFrameSet() = &mSet;
        return frame;
    }
};

ValuesAccordingSizes values(std::initializer_list<double> numbers, short nest)
{
    ValuesAccordingSizes result;
    result.mValues = QListEx<double>(numbers);
    result.mNestIndex = nest;
    return result;
}

TEST_F(ElementJson, centerStoresItsCharacteristicAndNotItsFrames)
{
    mSet.newFrame(QStringLiteral("F"), mCenter);
    mCenter->setCharacteristic(FrameCenter::Characteristic_TwoSidesDoubled);
    EXPECT_EQ(text(mCenter->toJson()), "{'characteristic':3}");
}

TEST_F(ElementJson, frameStoresItsPlaceItsSharesAndItsValues)
{
    FrameFrame *const frame = mSet.newFrame(QStringLiteral("F"), mCenter);
    frame->getPerimeterMeasurement() = true;
    frame->setMeasureType(FrameFrame::Measure_ByPercentage);
    frame->setPercentageMeasureRating(62.5);
    frame->setRatio(0.25);
    *frame->getMeasureBySizes() = values({38, 41, 44}, 1);
    *frame->getLevelBySizes() = values({1, 2, 3}, 2);

    EXPECT_EQ(text(frame->toJson()),
              "{'center_name':'K','level_zero':true,"
              "'measure':{'index_medium':1,'levels':[1,2,3],'measures':[38,41,44]},"
              "'measure_type':1,'percentage_measure_rating':62.5,'perimeter_measurement':true,'ratio':0.25}");
}

TEST_F(ElementJson, frameNamesItsLinkOnlyWhenItHasOne)
{
    FrameFrame *const frame = mSet.newFrame(QStringLiteral("F"), mCenter);
    EXPECT_FALSE(frame->toJson().contains(QStringLiteral("link_name")));
    mSet.newLink(QStringLiteral("L"))->linkFrame(frame);
    EXPECT_EQ(frame->toJson().value(QStringLiteral("link_name")).toString(), QStringLiteral("L"));
}

TEST_F(ElementJson, frameBesideTheOriginSaysSo)
{
    mSet.newFrame(QStringLiteral("F"), mCenter);
    FrameFrame *const second = mSet.newFrame(QStringLiteral("G"), mCenter);
    EXPECT_FALSE(second->toJson().value(QStringLiteral("level_zero")).toBool(true));
}

TEST_F(ElementJson, frameWithoutCenterCannotBeStored)
{
    const FrameFrame lonely(QStringLiteral("F"));
    EXPECT_THROW(lonely.toJson(), AssertionError);
}

TEST_F(ElementJson, frameWithoutSetAndCenterCannotBeRead)
{
    FrameFrame lonely(QStringLiteral("F"));
    EXPECT_THROW(lonely.fromJson(object("{'center_name':'K'}")), AssertionError);
}

TEST_F(ElementJson, linkStoresItsSharingAndItsValues)
{
    FrameLink link(QStringLiteral("L"));
    link.setMeasureType(FrameLink::Measure_Fixed);
    *link.getMeasureBySizes() = values({10}, 0);
    EXPECT_EQ(text(link.toJson()), "{'measure':{'index_medium':0,'levels':[],'measures':[10]},'type':2}");
}

TEST_F(ElementJson, segmentStoresItsInfluenceItsDisplacementAndItsMeasures)
{
    FrameSegment segment(QStringLiteral("S"));
    segment.getInfluenceAreaPercent() = 40.0;
    segment.getDisplace() = FrameSegment::Displace_AlongContour;
    *segment.getMeasureBySizes() = values({7, 8}, 1);
    EXPECT_EQ(text(segment.toJson()),
              "{'displace':4,'influence_area_percent':40,'measure':{'index_medium':1,'measures':[7,8]}}");
}

TEST_F(ElementJson, specAndChartStoreTheirMeasures)
{
    FrameSpec spec(QStringLiteral("S"));
    *spec.getMeasureBySizes() = values({10, 12}, 0);
    EXPECT_EQ(text(spec.toJson()), "{'measure':{'index_medium':0,'measures':[10,12]}}");

    FrameMeasurementChart chart(QStringLiteral("C"));
    *chart.getMeasureBySizes() = values({1}, 0);
    chart.setFormulaMeasurementChart(TreeEquations::parse(QStringLiteral("1+1"), nullptr, false));
    EXPECT_EQ(text(chart.toJson()), "{'measure':{'index_medium':0,'measures':[1]}}");
}

TEST_F(ElementJson, nameIsNotAnElementsOwnAffair)
{
    EXPECT_FALSE(mCenter->toJson().contains(QStringLiteral("name")));
    mCenter->fromJson(object("{'name':'Other'}"));
    EXPECT_EQ(mCenter->name(), QStringLiteral("K"));
}

// A missing key reads as zero, false or empty, and not as the default of a new element.
TEST_F(ElementJson, missingKeysReadAsZero)
{
    mCenter->fromJson(XJsonObject());
    EXPECT_EQ(int(mCenter->Caracteristique()), 0);

    FrameSegment segment(QStringLiteral("S"));
    segment.fromJson(XJsonObject());
    EXPECT_EQ(segment.getInfluenceAreaPercent(), 0.0);
    EXPECT_EQ(int(segment.getDisplace()), 0);

    FrameLink link(QStringLiteral("L"));
    link.setMeasureType(FrameLink::Measure_Fixed);
    link.fromJson(XJsonObject());
    EXPECT_EQ(int(link.getMeasureType()), 0);

    const auto frame = unreadFrame();
    frame->getPerimeterMeasurement() = true;
    frame->setMeasureType(FrameFrame::Measure_ByPercentage);
    frame->fromJson(object("{'center_name':'K'}"));
    EXPECT_FALSE(frame->getPerimeterMeasurement());
    EXPECT_EQ(int(frame->getMeasureType()), 0);
    EXPECT_EQ(frame->getPercentageMeasureRating1(), 0.0);
    EXPECT_EQ(frame->getRatio(), 0.0);
    EXPECT_EQ(str(*frame->getMeasureBySizes()), "(0)");
}

TEST_F(ElementJson, numbersThatAreNoWholeNumbersReadAsZero)
{
    // stored                                   displace
    const std::pair<const char *, int> rows[] = {
        {"{'displace':2}", 2},     {"{'displace':77}", 77}, // an unknown kind is kept
        {"{'displace':-1}", -1},   {"{'displace':2.5}", 0}, {"{'displace':4294967301}", 0},
        {"{'displace':1e300}", 0}, {"{'displace':'2'}", 0}, {"{'displace':true}", 0},
        {"{'displace':null}", 0},  {"{'displace':[2]}", 0}, {"{'displace':{}}", 0},
    };
    for (const auto &row : rows) {
        FrameSegment segment(QStringLiteral("S"));
        segment.fromJson(object(row.first));
        EXPECT_EQ(int(segment.getDisplace()), row.second) << row.first;
        const XJsonObject again = segment.toJson();
        EXPECT_EQ(again.value(QStringLiteral("displace")).toInt(99), row.second) << row.first;
    }
}

// Every key that holds a whole number, not this one alone.
TEST_F(ElementJson, everyKindAndNestReadsAsZeroFromAnythingElse)
{
    const double infinity = std::numeric_limits<double>::infinity();
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const XJsonValue wrong[] = {
        XJsonValue(),
        true,
        2.5,
        -0.5,
        nan,
        infinity,
        -infinity,
        2147483648.0,
        QStringLiteral("2"),
        XJsonArray{2},
        XJsonObject{{QStringLiteral("contents"), 2}},
    };
    for (const XJsonValue &value : wrong) {
        mCenter->setCharacteristic(FrameCenter::Characteristic_TwoSidesDoubled);
        mCenter->fromJson({{QStringLiteral("characteristic"), value}});
        EXPECT_EQ(int(mCenter->Caracteristique()), 0);

        FrameLink link(QStringLiteral("L"));
        link.setMeasureType(FrameLink::Measure_Fixed);
        link.fromJson({{QStringLiteral("type"), value}});
        EXPECT_EQ(int(link.getMeasureType()), 0);

        FrameSegment segment(QStringLiteral("S"));
        segment.fromJson({{QStringLiteral("displace"), value}});
        EXPECT_EQ(int(segment.getDisplace()), 0);

        const auto frame = unreadFrame();
        frame->setMeasureType(FrameFrame::Measure_ByPercentage);
        frame->fromJson(
            {{QStringLiteral("center_name"), QStringLiteral("K")}, {QStringLiteral("measure_type"), value}});
        EXPECT_EQ(int(frame->getMeasureType()), 0);

        FrameSpec spec(QStringLiteral("P"));
        const XJsonObject values{{QStringLiteral("index_medium"), value},
                                 {QStringLiteral("measures"), XJsonArray{1, 2}}};
        spec.fromJson({{QStringLiteral("measure"), values}});
        EXPECT_EQ(str(*spec.getMeasureBySizes()), "[1] 2");

        ElementEquation node(ElemValue, 3.0, nullptr);
        node.fromJson({{QStringLiteral("contents"), value}}, &mSet);
        EXPECT_EQ(int(node.contents), 0);
    }
}

TEST_F(ElementJson, nodeReadsTheKeysOfItsKindAndNoOthers)
{
    for (int contents = -1; contents <= 9; ++contents) {
        SCOPED_TRACE(contents);
        const bool isReference = contents == 2 || contents == 3;
        XJsonObject stored = object("{'value':5,'son_left':{'contents':1,'value':6},"
                                    "'son_right':{'contents':1,'value':7}}");
        stored.insert(QStringLiteral("contents"), contents);
        stored.insert(QStringLiteral("frame_element"),
                      isReference ? QStringLiteral("K") : QStringLiteral("nobody"));
        ElementEquation node;
        node.fromJson(stored, &mSet);
        EXPECT_EQ(int(node.contents), contents);
        EXPECT_EQ(node.value, contents == 1 ? 5.0 : 0.0);
        EXPECT_EQ(node.element, isReference ? mCenter : nullptr);
        EXPECT_EQ(node.sonLeft == nullptr ? 0.0 : node.sonLeft->value,
                  contents >= 4 && contents <= 8 ? 6 : 0);
        EXPECT_EQ(node.sonRight == nullptr ? 0.0 : node.sonRight->value,
                  contents >= 5 && contents <= 8 ? 7 : 0);
    }
}

TEST_F(ElementJson, numbersReadAsZeroFromAnythingElse)
{
    for (const char *wrong : {"null", "true", "'7'", "[7]", "{}"}) {
        const std::string value = wrong;
        FrameSegment segment(QStringLiteral("S"));
        segment.fromJson(object(("{'influence_area_percent':" + value + "}").c_str()));
        EXPECT_EQ(segment.getInfluenceAreaPercent(), 0.0) << wrong;

        const auto frame = unreadFrame();
        frame->fromJson(object(
            ("{'center_name':'K','percentage_measure_rating':" + value + ",'ratio':" + value + "}").c_str()));
        EXPECT_EQ(frame->getPercentageMeasureRating1(), 0.0) << wrong;
        EXPECT_EQ(frame->getRatio(), 0.0) << wrong;
    }
}

TEST_F(ElementJson, flagsReadAsFalseFromAnythingElse)
{
    for (const char *wrong : {"null", "1", "'true'", "[true]", "{}"}) {
        const std::string value = wrong;
        FrameFrame *const origin = mSet.newFrame(QStringLiteral("Origin"), mCenter);
        const auto frame = unreadFrame();
        frame->getPerimeterMeasurement() = true;
        frame->fromJson(
            object(("{'center_name':'K','perimeter_measurement':" + value + ",'level_zero':" + value + "}")
                       .c_str()));
        EXPECT_FALSE(frame->getPerimeterMeasurement()) << wrong;
        EXPECT_EQ(mCenter->getFrameLevelZero(), origin) << wrong;
        delete origin;
    }
}

// Stored values are in centimetres, whatever the user's unit is.
TEST_F(ElementJson, valuesAreStoredAndReadWithoutConversion)
{
    support::RecordingApplication application;
    application.setLengthUnit(LengthUnit::millimetre());
    FrameSegment segment(QStringLiteral("S"));
    *segment.getMeasureBySizes() = values({12.5}, 0);
    const std::string stored =
        "{'displace':1,'influence_area_percent':100,'measure':{'index_medium':0,'measures':[12.5]}}";
    EXPECT_EQ(text(segment.toJson()), stored);

    FrameSegment again(QStringLiteral("S"));
    again.fromJson(object(stored.c_str()));
    EXPECT_EQ(again.getMeasures(0), 12.5);
}

TEST_F(ElementJson, unknownKindsAreKeptAndWrittenBack)
{
    mCenter->fromJson(object("{'characteristic':77}"));
    EXPECT_EQ(text(mCenter->toJson()), "{'characteristic':77}");

    FrameLink link(QStringLiteral("L"));
    link.fromJson(object("{'type':-1}"));
    EXPECT_EQ(link.toJson().value(QStringLiteral("type")).toInt(0), -1);

    FrameFrame *const frame = mSet.newFrame(QStringLiteral("F"), mCenter);
    frame->fromJson(object("{'center_name':'K','measure_type':77}"));
    EXPECT_EQ(frame->toJson().value(QStringLiteral("measure_type")).toInt(0), 77);
}

TEST_F(ElementJson, valuesAreReadWithTheirNest)
{
    // stored                                                   measures         levels
    const struct {
        const char *stored;
        const char *measures;
        const char *levels;
    } rows[] = {
        {"{'index_medium':1,'measures':[1,2],'levels':[3,4]}", "1 [2]", "3 [4]"},
        {"{'index_medium':2}", "(7)", "(8)"}, // both lists stay as they were, their nests too
        {"{'index_medium':2,'measures':[]}", "(2)", "(8)"},
        {"{'index_medium':1,'levels':[3,4]}", "(7)", "3 [4]"},
        {"{'measures':[1,2]}", "[1] 2", "(8)"},
        {"{'index_medium':5,'measures':[1,2]}", "1 2", "(8)"}, // beyond the list: as stored
        {"{'index_medium':-3,'measures':[1]}", "1", "(8)"},
        {"{'index_medium':40000,'measures':[1]}", "[1]", "(8)"}, // beyond a short: 0
        {"{'index_medium':-40000,'measures':[1]}", "[1]", "(8)"},
        {"{'index_medium':32767,'measures':[]}", "(32767)", "(8)"},
        {"{'index_medium':-32768,'measures':[]}", "(-32768)", "(8)"},
        {"{'measures':[1,'2',null,true,[],{},3.5]}", "[1] 0 0 0 0 0 3.5", "(8)"},
        {"{'measures':'none','index_medium':1}", "(1)", "(8)"}, // there, and no list
        {"{'measures':null,'levels':null}", "(0)", "(0)"},
        {"[]", "(7)", "(8)"},
        {"null", "(7)", "(8)"},
    };
    for (const auto &row : rows) {
        FrameLink link(QStringLiteral("L"));
        link.getMeasureBySizes()->mNestIndex = 7;
        link.getLevelBySizes()->mNestIndex = 8;
        link.fromJson(object(("{'measure':" + std::string(row.stored) + "}").c_str()));
        EXPECT_EQ(str(*link.getMeasureBySizes()), row.measures) << row.stored;
        EXPECT_EQ(str(*link.getLevelBySizes()), row.levels) << row.stored;
    }
}

TEST_F(ElementJson, valuesAreAppendedToWhatTheElementHolds)
{
    FrameSpec spec(QStringLiteral("S"));
    const XJsonObject stored = object("{'measure':{'index_medium':1,'measures':[1,2]}}");
    spec.fromJson(stored);
    spec.fromJson(stored);
    EXPECT_EQ(str(*spec.getMeasureBySizes()), "1 [2] 1 2");
}

TEST_F(ElementJson, levelsOfASpecAreNotRead)
{
    FrameSpec spec(QStringLiteral("S"));
    spec.fromJson(object("{'measure':{'measures':[1],'levels':[2]}}"));
    EXPECT_EQ(spec.getLevelBySizes(), nullptr);
    EXPECT_EQ(text(spec.toJson()), "{'measure':{'index_medium':0,'measures':[1]}}");
}

TEST_F(ElementJson, notANumberPassesThrough)
{
    FrameSpec spec(QStringLiteral("S"));
    *spec.getMeasureBySizes() = values({std::numeric_limits<double>::quiet_NaN(), 1}, 0);
    FrameSpec again(QStringLiteral("S"));
    again.fromJson(spec.toJson());
    ASSERT_EQ(again.getMeasureBySizes()->mValues.count(), 2);
    EXPECT_TRUE(std::isnan(again.getMeasures(0)));
    EXPECT_EQ(again.getMeasures(1), 1.0);
}

TEST_F(ElementJson, frameReadAgainMovesToTheCenterNamed)
{
    FrameCenter *const other = mSet.newCenter(QStringLiteral("Other"));
    FrameFrame *const frame = mSet.newFrame(QStringLiteral("F"), mCenter);
    frame->fromJson(object("{'center_name':' o t h e R '}")); // case and blanks do not count
    EXPECT_EQ(frame->getFrameCenter(), other);
    EXPECT_TRUE(mCenter->getFrames().isEmpty());
    EXPECT_EQ(mCenter->getFrameLevelZero(), nullptr);
    EXPECT_EQ(other->getFrameLevelZero(), frame);
    EXPECT_EQ(mSet.getFrames().count(), 1);
}

TEST_F(ElementJson, frameReadTwiceIsLinkedTwice)
{
    FrameFrame *const frame = mSet.newFrame(QStringLiteral("F"), mCenter);
    FrameLink *const link = mSet.newLink(QStringLiteral("L"));
    frame->fromJson(object("{'center_name':'K','link_name':'L'}"));
    frame->fromJson(object("{'center_name':'K','link_name':'L'}"));
    EXPECT_EQ(link->getFrames().count(), 2);
    EXPECT_EQ(mCenter->getFrames().count(), 1);
    link->unlinkFrames();
}

TEST_F(ElementJson, frameThatFailsAtItsCenterStaysWhereItWas)
{
    FrameFrame *const frame = mSet.newFrame(QStringLiteral("F"), mCenter);
    frame->setRatio(0.25);
    EXPECT_THROW(frame->fromJson(object("{'center_name':'none','ratio':2}")), AssertionError);
    EXPECT_EQ(frame->getFrameCenter(), mCenter);
    EXPECT_EQ(mCenter->getFrameLevelZero(), frame);
    EXPECT_EQ(frame->getRatio(), 0.25);
}

TEST_F(ElementJson, frameThatFailsAtItsLinkStandsOnItsCenterAndHasReadNoMore)
{
    FrameCenter *const other = mSet.newCenter(QStringLiteral("Other"));
    mSet.newFrame(QStringLiteral("Origin"), other);
    FrameFrame *const frame = mSet.newFrame(QStringLiteral("F"), mCenter);
    frame->setRatio(0.25);
    EXPECT_THROW(
        frame->fromJson(object("{'center_name':'Other','link_name':'none','level_zero':true,"
                               "'perimeter_measurement':true,'ratio':2,'measure':{'measures':[1]}}")),
        AssertionError);
    EXPECT_EQ(frame->getFrameCenter(), other);
    EXPECT_EQ(other->getFrames().last(), frame);
    EXPECT_NE(other->getFrameLevelZero(), frame);
    EXPECT_FALSE(frame->getPerimeterMeasurement());
    EXPECT_EQ(frame->getRatio(), 0.25);
    EXPECT_TRUE(frame->getMeasureBySizes()->mValues.isEmpty());
}

// Three errors are known to hosts by function, unit and line.
TEST_F(ElementJson, unresolvedReferencesOfAFrameSayWhere)
{
    mSet.newLink(QStringLiteral("L"));
    mSet.newSpec(QStringLiteral("S"));
    mSet.newFrame(QStringLiteral("G"), mCenter);
    const std::string center = "Invalid Operation | src\\Json\\FrameFrameJson | 123 | "
                               "virtual void VorSystem::FrameFrame::fromJson(const VorSystem::XJsonObject&)";
    const std::string link = "Invalid Operation | src\\Json\\FrameFrameJson | 130 | "
                             "virtual void VorSystem::FrameFrame::fromJson(const VorSystem::XJsonObject&)";
    const std::pair<const char *, std::string> rows[] = {
        {"{}", center},
        {"{'center_name':''}", center},
        {"{'center_name':7}", center},
        {"{'center_name':'none'}", center},
        {"{'center_name':'L'}", center},   // a link
        {"{'center_name':'S'}", center},   // a spec
        {"{'center_name':'K:G'}", center}, // a frame
        {"{'center_name':'G'}", center},
        {"{'center_name':'K','link_name':'none'}", link},
        {"{'center_name':'K','link_name':null}", link}, // there, and no name
        {"{'center_name':'K','link_name':'K'}", link},
        {"{'center_name':'K','link_name':'S'}", link},
        {"{'center_name':'K'}", ""},
        {"{'center_name':'K','link_name':'L'}", ""},
    };
    for (const auto &row : rows) {
        const auto frame = unreadFrame();
        EXPECT_EQ(jsontest::thrown([&] { frame->fromJson(object(row.first)); }), row.second) << row.first;
        if (FrameLink *const entered = frame->getLink())
            entered->removeFrame(frame.get());
    }
    EXPECT_EQ(mCenter->getFrames().count(), 1);
}

} // namespace
