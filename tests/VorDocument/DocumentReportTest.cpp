// What a reading tells: which of the things in the text did not arrive, and why.

#include "TestDocument.h"

#include <VorDocument/DocumentFile.h>

#include <QJsonDocument>
#include <gtest/gtest.h>

using namespace VorSystem;
using documents::str;
using documents::text;

namespace
{

// A piece tied to a set of every kind of element, and a second set; ' stands for ".
const char kTied[] = R"({'format': 'VorDocument 1', 'sizes': {'names': ['S', 'M'], 'nest': 1},
'pieces': [{'name': 'Front', 'contours': [{'vectors': [
    {'id': 1, 'at': [0, 0]}, {'id': 2, 'at': [10, 0]}, {'id': 3, 'at': [10, 20]}, {'id': 4, 'at': [0, 20]}],
    'skeleton': {
        'center': {'base': {'direction': true, 'points': [{'id': 1}, {'id': 4}]},
                   'set_name': 'Garment', 'center_name': 'Axis', 'right_regions': {'region': 2}},
        'frames': [{'base': {'direction': true, 'points': [{'id': 2}, {}]},
                    'set_name': 'Garment', 'frame_name': 'Hem', 'is_agrees_link': true}],
        'segments': [{'base': {'direction': true, 'points': [{'id': 2}, {'id': 3}]},
                      'set_name': 'Garment', 'segment_name': 'Side'}]}}]}],
'frameSets': {'frames': [{'set_name': 'Garment',
    'segments': [{'name': 'Side', 'displace': 1, 'influence_area_percent': 100,
                  'measure': {'index_medium': 0, 'measures': [20, 20]}}],
    'specs': [{'name': 'Ease', 'measure': {'index_medium': 0, 'measures': [2, 3]}}],
    'measurementCharts': [{'name': 'Chart', 'measure': {'index_medium': 0, 'measures': [1, 1]}}],
    'centers': [{'name': 'Axis', 'characteristic': 1}, {'name': 'Back', 'characteristic': 1}],
    'links': [{'name': 'Girth', 'type': 1, 'measure': {'index_medium': 0, 'measures': [], 'levels': []}}],
    'frames': [{'name': 'Hem', 'center_name': 'Axis', 'perimeter_measurement': false, 'level_zero': true,
                'measure_type': 1, 'percentage_measure_rating': 50, 'ratio': 1,
                'measure': {'index_medium': 0, 'measures': [10, 11], 'levels': [0, 0]}},
               {'name': 'Hem', 'center_name': 'Back', 'link_name': 'Girth'}],
    'formulars': [{'name': 'Hem', 'formular_measure': {'root': {'contents': 2, 'frame_element': 'Ease'}}},
                  {'name': 'Ease', 'formular_spec': '1 + 1'}]},
  {'set_name': 'Other', 'specs': [{'name': 'Spec'}]}]}})";

QByteArray tied()
{
    return QByteArray(kTied).replace('\'', '"');
}

QByteArray tiedWith(const char *from, const char *to)
{
    const QByteArray oldWords = QByteArray(from).replace('\'', '"');
    const QByteArray newWords = QByteArray(to).replace('\'', '"');
    QByteArray words = tied();
    const int place = words.indexOf(oldWords);
    EXPECT_GE(place, 0) << from;
    return words.replace(place, oldWords.size(), newWords);
}

std::string toldOf(const QByteArray &words, PatternDocument &document)
{
    DocumentReport report;
    EXPECT_TRUE(documentFromText(words, document, &report)) << str(report.error);
    return str(report.dropped.join(text("\n")));
}

struct Damage {
    const char *from;
    const char *to;
    const char *told;
};

TEST(DocumentReport, saysNothingOfASoundDocument)
{
    PatternDocument document;
    EXPECT_EQ(toldOf(tied(), document), "");
    EXPECT_EQ(document.framesManager()->getFrameSets().count(), 2);
    EXPECT_NE(document.pieces().front()->firstGabarit()->controlSkeleton(), nullptr);
}

// What stands there of the set is not of this world: the set stays away and says why.
const Damage kLostSets[] = {
    // clang-format off
    {"'center_name': 'Back'", "'center_name': 'Gone'",
     "The set \"Garment\" was left out: the frame \"Hem\" stands on the center \"Gone\", which is not there."},
    {"'center_name': 'Back'", "'center_name': 'Girth'",
     "The set \"Garment\" was left out: the frame \"Hem\" stands on the center \"Girth\", a name that means another element."},
    {"'center_name': 'Back'", "'no_center': 1",
     "The set \"Garment\" was left out: the frame \"Hem\" stands on the center \"\", which is not there."},
    {"'link_name': 'Girth'", "'link_name': 'Gone'",
     "The set \"Garment\" was left out: the frame \"Hem\" belongs to the link \"Gone\", which is not there."},
    {"'link_name': 'Girth'", "'link_name': 'Axis'",
     "The set \"Garment\" was left out: the frame \"Hem\" belongs to the link \"Axis\", a name that means another element."},
    {"'link_name': 'Girth'", "'link_name': 'A:B'",
     "The set \"Garment\" was left out: the frame \"Hem\" belongs to the link \"A:B\", a name that means a frame because of its colon."},
    {"'frame_element': 'Ease'", "'frame_element': 'Gone'",
     "The set \"Garment\" was left out: the formula of \"Hem\" names \"Gone\", which is not there."},
    {"'frame_element': 'Ease'", "'frame_element': 'Axis:Gone'",
     "The set \"Garment\" was left out: the formula of \"Hem\" names \"Axis:Gone\", which is no frame of a center."},
    {"{'contents': 2, 'frame_element': 'Ease'}",
     "{'contents': 5, 'son_left': {}, 'son_right': {'contents': 2, 'frame_element': 'Ease'}}",
     "The set \"Garment\" was left out: the formula of \"Hem\" cannot be worked out."},
    // clang-format on
};

TEST(DocumentReport, namesTheReferenceThatCostASet)
{
    for (const Damage &damage : kLostSets) {
        PatternDocument document;
        const QByteArray words = tiedWith(damage.from, damage.to);
        const std::string skeleton = "\nThe skeleton of \"Front\" could not be tied: the center \"Axis\" "
                                     "belongs to the set \"Garment\", which is not there.";
        EXPECT_EQ(toldOf(words, document), damage.told + skeleton);
        EXPECT_EQ(document.framesManager()->getFrameSets().count(), 1);
        EXPECT_EQ(str(document.framesManager()->getFrameSets().first()->name()), "Other");
    }
}

TEST(DocumentReport, namesTheFirstFormulaOfManyThatCostsASet)
{
    for (const int first : {0, 1, 30, 62, 63}) {
        QByteArray specs = "{'name': 'Ease'}";
        QByteArray records;
        for (int number = 0; number < 64; ++number) {
            const QByteArray name = "'P" + QByteArray::number(number) + "'";
            specs += ", {'name': " + name + "}";
            records += "{'name': " + name + ", 'formular_spec': {'root': {'contents': 2, 'frame_element': " +
                       (number < first    ? "'Ease'"
                        : name == "'P63'" ? "'Last'"
                                          : "'Gone'") +
                       "}}}, ";
        }
        QByteArray words = tied();
        words.replace("{\"name\": \"Ease\", \"measure\": {\"index_medium\": 0, \"measures\": [2, 3]}}",
                      specs.replace('\'', '"'));
        words.replace("{\"name\": \"Hem\", \"formular",
                      records.replace('\'', '"') + "{\"name\": \"Hem\", \"formular");
        PatternDocument document;
        const std::string told = toldOf(words, document);
        EXPECT_EQ(told.substr(0, told.find('\n')),
                  "The set \"Garment\" was left out: the formula of \"P" + std::to_string(first) +
                      "\" names \"" + (first == 63 ? "Last" : "Gone") + "\", which is not there.");
    }
}

TEST(DocumentReport, takesASetThatIsNoObjectForALostOne)
{
    PatternDocument document;
    const QByteArray words = tiedWith("{'set_name': 'Other', 'specs': [{'name': 'Spec'}]}", "7");
    EXPECT_EQ(toldOf(words, document), "A set was left out: it is not an object.");
    EXPECT_EQ(document.framesManager()->getFrameSets().count(), 1);
    EXPECT_EQ(document.lostSets().first(), QJsonValue(7));
}

// The set is there, but a formula is not where the text has it.
const Damage kLostFormulas[] = {
    // clang-format off
    {"'formular_spec': '1 + 1'", "'formular_spec': '1 +'",
     "The set \"Garment\": the formula of \"Ease\" was left out: \"1 +\" is no formula."},
    {"'formular_spec': '1 + 1'", "'formular_spec': 7",
     "The set \"Garment\": the formula of \"Ease\" was left out: it is neither a text nor a formula."},
    {"'formular_spec': '1 + 1'", "'formular_spec': [1]",
     "The set \"Garment\": the formula of \"Ease\" was left out: it is neither a text nor a formula."},
    {"'formular_spec': '1 + 1'", "'formular_spec': null", ""},
    {"'formular_spec': '1 + 1'", "'formular_spec': 'Measure(Gone)'",
     "The set \"Garment\": the formula of \"Ease\" was left out: it names \"Gone\", which is not there."},
    {"{'name': 'Ease', 'formular", "{'name': 'Gone', 'formular",
     "The set \"Garment\": a record of formulas is for \"Gone\", which is not there."},
    {"{'name': 'Ease', 'formular", "{'formular",
     "The set \"Garment\": a record of formulas is for \"\", which is not there."},
    {"{'name': 'Ease', 'formular", "{'name': 'Axis:Hem', 'formular",
     "The set \"Garment\": the formula of \"Axis:Hem\" was left out: such an element takes none."},
    {"{'name': 'Ease', 'formular", "{'name': 'Axis', 'formular",
     "The set \"Garment\": the formula of \"Axis\" was left out: such an element takes none."},
    {"{'name': 'Ease', 'formular", "{'name': 'Chart', 'formular",
     "The set \"Garment\": the formula of \"Chart\" was left out: such an element takes none."},
    {"{'name': 'Ease', 'formular_spec'", "{'name': 'Side', 'formular_level'",
     "The set \"Garment\": the level formula of \"Side\" was left out: such an element takes none."},
    {"{'name': 'Ease', 'formular_spec'", "{'name': 'hem', 'formular_measure'",
     "The set \"Garment\": the measure formula of \"Axis:Hem\" stands there more than once: the last one was taken."},
    {"{'name': 'Ease', 'formular_spec': '1 + 1'}", "{'name': 'Gone'}",
     "The set \"Garment\": a record of formulas is for \"Gone\", which is not there."},
    {"{'name': 'Ease', 'formular_spec': '1 + 1'}", "{'name': 'Ease'}", ""},
    {"{'name': 'Ease', 'formular_spec': '1 + 1'}", "7",
     "The set \"Garment\": formulars[1] \"\" is not an object, and was read as an empty one.\n"
     "The set \"Garment\": a record of formulas is for \"\", which is not there."},
    // clang-format on
};

TEST(DocumentReport, namesTheFormulasThatDidNotArrive)
{
    for (const Damage &damage : kLostFormulas) {
        PatternDocument document;
        EXPECT_EQ(toldOf(tiedWith(damage.from, damage.to), document), damage.told) << damage.to;
        EXPECT_EQ(document.framesManager()->getFrameSets().count(), 2);
        // What is left can be saved.
        DocumentReport report;
        EXPECT_FALSE(documentToText(document, &report).isEmpty()) << str(report.error);
        EXPECT_EQ(str(report.dropped.join(text("\n"))), "");
    }
}

// Keys and values that are passed over, by their path.
const Damage kPassedOver[] = {
    // clang-format off
    {"'displace': 1", "'displace': 1.5",
     "The set \"Garment\": segments[0] \"Side\".displace is not a whole number, and was read as 0."},
    {"'displace': 1", "'displace': 4294967297",
     "The set \"Garment\": segments[0] \"Side\".displace is not a whole number, and was read as 0."},
    {"'displace': 1", "'displaced': 1",
     "The set \"Garment\": segments[0] \"Side\".displaced is no key of this form, and was passed over."},
    {"'influence_area_percent': 100", "'influence_area_percent': '100'",
     "The set \"Garment\": segments[0] \"Side\".influence_area_percent is not a number, and was read as 0."},
    {"'measures': [10, 11]", "'measures': [10, null]",
     "The set \"Garment\": frames[0] \"Hem\".measure.measures[1] is not a number, and was read as 0."},
    {"'measures': [10, 11]", "'measures': {}",
     "The set \"Garment\": frames[0] \"Hem\".measure.measures is not a list, and was read as an empty one."},
    {"'index_medium': 0, 'measures': [10, 11]", "'index_medium': 40000, 'measures': [10, 11]",
     "The set \"Garment\": frames[0] \"Hem\".measure.index_medium is not a place in a list, and was read as 0."},
    {"'level_zero': true", "'level_zero': 1",
     "The set \"Garment\": frames[0] \"Hem\".level_zero is neither true nor false, and was read as false."},
    {"{'name': 'Chart', 'measure': {'index_medium': 0, 'measures': [1, 1]}}", "{'name': 'Chart', 'measure': 1}",
     "The set \"Garment\": measurementCharts[0] \"Chart\".measure is not an object, and was read as an empty one."},
    {"'specs': [{'name': 'Spec'}]", "'specs': 'none'",
     "The set \"Other\": specs is not a list, and was read as an empty one."},
    {"'specs': [{'name': 'Spec'}]", "'specs': [{'name': 7}]",
     "The set \"Other\": specs[0] \"\".name is not a text, and was read as an empty one."},
    {"'specs': [{'name': 'Spec'}]", "'works': []",
     "The set \"Other\": works is no key of this form, and was passed over."},
    {"'direction': true, 'points': [{'id': 1}", "'direction': 1, 'points': [{'id': 1}",
     "The skeleton of \"Front\": center.base.direction is neither true nor false, and was read as false."},
    {"{'region': 2}", "{'region': '2'}",
     "The skeleton of \"Front\": center.right_regions.region is not a whole number, and was read as 0."},
    {"'is_agrees_link': true", "'agrees': true",
     "The skeleton of \"Front\": frames[0] \"Hem\".agrees is no key of this form, and was passed over."},
    {"[{'id': 2}, {}]", "[{'id': 2}, null]",
     "The skeleton of \"Front\": frames[0] \"Hem\".base.points[1] is not an object, and was read as an empty one."},
    // clang-format on
};

TEST(DocumentReport, namesTheValuesThatWerePassedOver)
{
    for (const Damage &damage : kPassedOver) {
        PatternDocument document;
        EXPECT_EQ(toldOf(tiedWith(damage.from, damage.to), document), damage.told) << damage.to;
        EXPECT_EQ(document.framesManager()->getFrameSets().count(), 2);
        EXPECT_NE(document.pieces().front()->firstGabarit()->controlSkeleton(), nullptr);
    }
}

const Damage kUntied[] = {
    // clang-format off
    {"'points': [{'id': 1}, {'id': 4}]", "'points': [{'id': 1}, {'id': 9}]",
     "the center \"Axis\" names the vector 9, which the piece does not have."},
    {"[{'id': 2}, {}]", "[{'no': 2}, {}]",
     "the frame \"Hem\" names the vector 0, which the piece does not have."},
    {"'set_name': 'Garment', 'center_name'", "'set_name': 'Gone', 'center_name'",
     "the center \"Axis\" belongs to the set \"Gone\", which is not there."},
    {"'center_name': 'Axis', 'right", "'center_name': 'Gone', 'right",
     "the center \"Gone\" is not in the set \"Garment\"."},
    {"'center_name': 'Axis', 'right", "'center_name': 'Girth', 'right",
     "in the set \"Garment\" the name \"Girth\" means another element than the center \"Girth\"."},
    {"'frame_name': 'Hem'", "'frame_name': 'Waist'",
     "the frame \"Axis:Waist\" is not in the set \"Garment\"."},
    {"'set_name': 'Garment', 'center_name': 'Axis'", "'set_name': ''",
     "the frame \"Hem\" needs a center that names its element."},
    {"'segment_name': 'Side'", "'segment_name': 'Ease'",
     "in the set \"Garment\" the name \"Ease\" means another element than the segment \"Ease\"."},
    {"{'base': {'direction': true, 'points': [{'id': 2}, {}]}",
     "{'base': {'points': [{'id': 2}]}}, {'base': {'points': [{}, {'id': 3}]}",
     "the frame \"Hem\" has no first vector."},
    // clang-format on
};

TEST(DocumentReport, namesWhatKeepsASkeletonFromBeingTied)
{
    for (const Damage &damage : kUntied) {
        QByteArray words = tiedWith(damage.from, damage.to);
        if (QByteArray(damage.told)
                .contains("first vector")) // such a question is not asked of a doubled half
            words.replace("\"characteristic\": 1", "\"characteristic\": 2");
        PatternDocument document;
        EXPECT_EQ(toldOf(words, document),
                  std::string("The skeleton of \"Front\" could not be tied: ") + damage.told);
        const GabaritObject *contour = document.pieces().front()->firstGabarit();
        EXPECT_EQ(contour->mFirstVector->Num_ID().number(), 1);
        EXPECT_FALSE(document.lostSkeleton(contour).isUndefined());
        // Written again as it stands, and told again.
        PatternDocument again;
        EXPECT_EQ(toldOf(documentToText(document), again),
                  std::string("The skeleton of \"Front\" could not be tied: ") + damage.told);
        EXPECT_EQ(again.lostSkeleton(again.pieces().front()->firstGabarit()), document.lostSkeleton(contour));
    }
}

TEST(DocumentReport, namesTheControlsWithoutVectors)
{
    const Damage rows[] = {
        {"[{'id': 2}, {}]", "[{}, {}]", "the frame \"Hem\" was left out: it has no vectors."},
        {"[{'id': 2}, {}]", "[]", "the frame \"Hem\" was left out: it has no vectors."},
        {"[{'id': 2}, {'id': 3}]", "[{'id': 2}, {}]",
         "the segment \"Side\" was left out: it has not two vectors."},
        {"[{'id': 2}, {'id': 3}]", "[{}, {'id': 3}]",
         "the segment \"Side\" was left out: it has not two vectors."},
        {"[{'id': 2}, {'id': 3}]", "[]", "the segment \"Side\" was left out: it has not two vectors."},
    };
    for (const Damage &damage : rows) {
        PatternDocument document;
        EXPECT_EQ(toldOf(tiedWith(damage.from, damage.to), document),
                  std::string("The skeleton of \"Front\": ") + damage.told);
        EXPECT_NE(document.pieces().front()->firstGabarit()->controlSkeleton(), nullptr);
    }
}

TEST(DocumentReport, endsAfterTwentySentencesAboutOneSet)
{
    QByteArray specs = "\"specs\": [1";
    for (int number = 1; number < 1000; ++number)
        specs += ", 1";
    PatternDocument document;
    DocumentReport report;
    ASSERT_TRUE(
        documentFromText(tied().replace("\"specs\": [{\"name\": \"Spec\"}", specs), document, &report));
    EXPECT_EQ(report.dropped.size(), 21);
    EXPECT_EQ(str(report.dropped.last()), "The set \"Other\": and 980 more.");
    EXPECT_EQ(document.framesManager()->getFrameSets().at(1)->getFrameSpecs().count(), 1000);
}

// The library is silent about all of this; what it takes is the same with and without the report.
TEST(DocumentReport, changesNothingOfWhatTheManagerReads)
{
    for (const Damage &damage : kPassedOver) {
        const QByteArray words = tiedWith(damage.from, damage.to);
        PatternDocument document;
        ASSERT_TRUE(documentFromText(words, document));
        PatternDocument bare;
        bare.setSizes(document.sizeNames(), 1);
        bare.framesManager()->fromJson(
            XJsonObject::fromJsonObject(
                QJsonDocument::fromJson(words).object().value(text("frameSets")).toObject()),
            true);
        EXPECT_EQ(bare.framesManager()->toJson().toJsonObject(),
                  document.framesManager()->toJson().toJsonObject());
    }
}

} // namespace
