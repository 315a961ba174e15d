// Saving: a document that would not come back is refused in words that name what is in the way, and the file
// that stood there stays.

#include "TestDocument.h"

#include <VorDocument/DocumentFile.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <csignal>
#include <functional>
#include <limits>
#include <sys/resource.h>
#include <sys/stat.h>

using namespace VorSystem;
using documents::Elements;
using documents::enter;
using documents::str;
using documents::text;

namespace
{

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinite = std::numeric_limits<double>::infinity();
const char kRefused[] = "The document could not be read back, so it is not saved. ";

// A skirt that is tied to the elements, and saved once.
class DocumentSaving : public testing::Test
{
protected:
    DocumentSaving()
    {
        document.setSizes(documents::sevenNames(), 4);
        skirt = enter(document, support::skirt(), "Skirt");
        elements.tieTo(document, skirt);
        elements.set->revalued(Reevaluate_Store);
        path = folder.filePath(text("document.json"));
        EXPECT_TRUE(saveDocument(document, path));
        before = bytesAt(path);
    }

    static QByteArray bytesAt(const QString &place)
    {
        QFile file(place);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }

    // The reason without the words that stand before each; the file is the old one and alone.
    std::string refusal()
    {
        DocumentReport report;
        EXPECT_FALSE(saveDocument(document, path, &report));
        EXPECT_TRUE(report.dropped.isEmpty());
        EXPECT_EQ(str(bytesAt(path)), str(before));
        EXPECT_EQ(str(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden).join(text("|"))),
                  "document.json");
        const std::string error = str(report.error);
        EXPECT_EQ(error.substr(0, sizeof(kRefused) - 1), kRefused);
        return error.substr(std::min(error.size(), sizeof(kRefused) - 1));
    }

    TreeEquations *sumOf(int terms) const
    {
        QString sum = text("1");
        for (int term = 1; term < terms; ++term)
            sum += text("+1");
        return TreeEquations::parse(sum, elements.set, false);
    }

    QTemporaryDir folder;
    QString path;
    QByteArray before;
    PatternDocument document;
    Elements elements{document};
    CDbGroupObject *skirt = nullptr;
};

// A formula is refused when and only when Qt's parser could not follow it.
TEST_F(DocumentSaving, takesFormulasAsDeepAsTheirTextMayBe)
{
    elements.spec->setFormulaSpec(sumOf(1017));
    DocumentReport report;
    EXPECT_TRUE(saveDocument(document, path, &report)) << str(report.error);
    PatternDocument loaded;
    EXPECT_TRUE(loadDocument(path, loaded, &report)) << str(report.error);
    EXPECT_EQ(str(report.dropped.join(text("|"))), "");
    const FrameSpec *spec = loaded.framesManager()->getFrameSets().first()->getFrameSpecs().first();
    EXPECT_EQ(const_cast<FrameSpec *>(spec)->formulaSpec()->evaluate(0), 1017.0);

    before = bytesAt(path);
    elements.spec->setFormulaSpec(sumOf(1018));
    EXPECT_EQ(refusal(), "The formula of \"Ease\" in the set \"Garment\" is nested more than 1017 deep.");
    elements.spec->setFormulaSpec(nullptr);
    elements.chest->setFormulaMeasurement(sumOf(10000));
    EXPECT_EQ(refusal(), "The measure formula of \"Front:Chest\" in the set \"Garment\" is nested more than "
                         "1017 deep.");
}

TEST_F(DocumentSaving, refusesNumbersThatHaveNoText)
{
    const std::pair<std::function<void(double)>, std::string> rows[] = {
        {[&](double bad) { elements.chest->setMeasures(2, bad); },
         "In \"Front:Chest\" in the set \"Garment\", measure.measures[2] is not a finite number."},
        {[&](double bad) { elements.chest->setLevel(6, bad); },
         "In \"Front:Chest\" in the set \"Garment\", measure.levels[6] is not a finite number."},
        {[&](double bad) { elements.chest->setRatio(bad); },
         "In \"Front:Chest\" in the set \"Garment\", ratio is not a finite number."},
        {[&](double bad) { elements.segment->getInfluenceAreaPercent() = bad; },
         "In \"Side\" in the set \"Garment\", influence_area_percent is not a finite number."},
        {[&](double bad) {
             elements.spec->setFormulaSpec(sumOf(3)),
                 elements.spec->formulaSpec()->root->sonRight->value = bad;
         },
         "The formula of \"Ease\" in the set \"Garment\" holds a constant that is not a finite number."},
        {[&](double bad) { skirt->firstGabarit()->mFirstVector->setX(bad); },
         "pieces[0].contours[0].vectors[0].at[0]: is not a number"},
    };
    for (const auto &row : rows) {
        for (const double bad : {kNaN, kInfinite, -kInfinite}) {
            row.first(bad);
            EXPECT_EQ(refusal(), row.second);
        }
        row.first(1.0);
        EXPECT_FALSE(documentToText(document).isEmpty()) << row.second;
    }
}

// What a set can hold and its text cannot give back.
TEST_F(DocumentSaving, refusesASetThatWouldNotComeBack)
{
    FrameSet *const other = new FrameSet(text("Other"), document.framesManager());
    document.framesManager()->addFrameSet(other, -1);
    FrameSpec *const stranger = other->newSpec(text("Stranger"));
    const auto give = [&](const char *formula) {
        elements.spec->setFormulaSpec(TreeEquations::parse(text(formula), elements.set, false));
    };
    struct {
        std::function<void()> make, mend;
        const char *error;
    } const rows[] = {
        {[&] { elements.link->setName(text("A:B")); }, [&] { elements.link->setName(text("Girth")); },
         "The set \"Garment\" was left out: the frame \"Chest\" belongs to the link \"A:B\", a name that "
         "means "
         "a frame because of its colon."},
        {[&] { elements.link->setName(text("front")); }, [&] { elements.link->setName(text("Girth")); },
         "The set \"Garment\" was left out: the frame \"Chest\" belongs to the link \"front\", a name that "
         "means another element."},
        {[&] { elements.center->setName(text("Front:")); }, [&] { elements.center->setName(text("Front")); },
         "The set \"Garment\" was left out: the frame \"Chest\" stands on the center \"Front:\", a name that "
         "means a frame because of its colon."},
        {[&] {
             elements.segment->setName(text("a:b"));
             give("1 + 1");
             elements.spec->formulaSpec()->root->sonLeft->contents = ElemMeasure;
             elements.spec->formulaSpec()->root->sonLeft->element = elements.segment;
         },
         [&] {
             elements.segment->setName(text("Side"));
             give("1");
         },
         "The set \"Garment\" was left out: the formula of \"Ease\" names \"a:b\", which is no frame of a "
         "center."},
        {[&] {
             give("1 + 1");
             elements.spec->formulaSpec()->root->sonLeft->contents = ElemMeasure;
             elements.spec->formulaSpec()->root->sonLeft->element = stranger;
         },
         [&] { give("1"); },
         "The set \"Garment\" was left out: the formula of \"Ease\" names \"Stranger\", which is not there."},
        {[&] {
             give("1 + Measure(Side)");
             elements.spec->formulaSpec()->root->sonLeft->contents = ElemNone;
         },
         [&] { give("1"); },
         "The set \"Garment\" was left out: the formula of \"Ease\" cannot be worked out."},
        {[&] { give("Measure(Nobody)"); }, [&] { give("1"); },
         "The formula of \"Ease\" in the set \"Garment\" names an element that is not there."},
        {[&] {
             give("1 + 1");
             delete elements.spec->formulaSpec()->root->sonLeft;
             elements.spec->formulaSpec()->root->sonLeft = nullptr;
         },
         [&] { give("1"); }, "The formula of \"Ease\" in the set \"Garment\" has a part missing."},
        {[&] { elements.waist->setFrameCenter(nullptr); },
         [&] { elements.waist->setFrameCenter(elements.center); },
         "The frame \"Waist\" in the set \"Garment\" stands on no center."},
    };
    for (const auto &row : rows) {
        row.make();
        EXPECT_EQ(refusal(), row.error);
        row.mend();
        DocumentReport report;
        EXPECT_FALSE(documentToText(document, &report).isEmpty()) << str(report.error);
    }
}

TEST_F(DocumentSaving, refusesASkeletonThatWouldNotComeBack)
{
    elements.segment->setName(text("Front")); // as the center
    EXPECT_EQ(refusal(),
              "The skeleton of \"Skirt\" could not be tied: in the set \"Garment\" the name \"Front\" "
              "means another element than the segment \"Front\".");
    elements.segment->setName(text("Side"));

    elements.set->removeSegment(elements.segment);
    EXPECT_EQ(refusal(), "The skeleton of \"Skirt\" is tied to \"Side\", which belongs to no set.");
    elements.set->addSegment(elements.segment, -1);
    EXPECT_FALSE(documentToText(document).isEmpty());
}

// The reader is silent about these two, and the ties would be lost all the same.
TEST_F(DocumentSaving, refusesTiesThatWouldLoseTheirElement)
{
    elements.set->setName(QString());
    EXPECT_EQ(refusal(),
              "The center \"Front\" of \"Skirt\" would not find its element again: the names of sets "
              "and elements do not tell it from others.");
    elements.set->setName(text("Garment"));

    FrameSet *const twin = new FrameSet(text("garment"), document.framesManager());
    document.framesManager()->addFrameSet(twin, 0);
    FrameCenter *const center = twin->newCenter(text("Front"));
    twin->newFrame(text("Chest"), center);
    twin->newSegment(text("Side"));
    EXPECT_EQ(refusal(),
              "The center \"Front\" of \"Skirt\" would not find its element again: the names of sets "
              "and elements do not tell it from others.");
    twin->setName(text("Twin"));
    EXPECT_FALSE(documentToText(document).isEmpty());
}

// A loss of now must not hide behind one of then that is found again.
TEST_F(DocumentSaving, doesNotCountOldLossesAgainstNewOnes)
{
    QByteArray words = before;
    words.replace("\"segment_name\": \"Side\"", "\"segment_name\": \"Late\"");
    ASSERT_TRUE(documentFromText(words, document));
    FrameSet *const set = document.framesManager()->getFrameSets().first();
    set->newSegment(text("Late")); // the lost skeleton could be tied now
    set->getFrameLinks().first()->setName(text("A:B"));
    EXPECT_EQ(refusal(),
              "The set \"Garment\" was left out: the frame \"Chest\" belongs to the link \"A:B\", a "
              "name that means a frame because of its colon.");
}

// What the text has no place for is told, and does not keep a document from being saved.
TEST_F(DocumentSaving, tellsOfFormulasThatWillNotBeWhereTheyAre)
{
    FrameCenter *const back = elements.set->newCenter(text("Back"));
    FrameFrame *const twin = elements.set->newFrame(text("Chest"), back);
    twin->setFormulaMeasurement(sumOf(2));
    FrameMeasurementChart *const chart = elements.set->newMeasurementChart(text("Chart"));
    chart->setFormulaMeasurementChart(sumOf(2));
    DocumentReport report;
    EXPECT_TRUE(saveDocument(document, path, &report)) << str(report.error);
    EXPECT_EQ(
        str(report.dropped.join(text("\n"))),
        "The measure formula of \"Front:Chest\" in the set \"Garment\" is not read back as it is: in a text "
        "formulas go by bare names, and another element bears the name \"Chest\".\n"
        "The measure formula of \"Back:Chest\" in the set \"Garment\" is not read back as it is: in a text "
        "formulas go by bare names, and another element bears the name \"Chest\".\n"
        "The formula of the chart \"Chart\" in the set \"Garment\" is not stored.");
}

TEST_F(DocumentSaving, tellsOfControlsWithoutVectors)
{
    ControlSkeleton *const skeleton = skirt->firstGabarit()->controlSkeleton();
    skeleton->getFrameLists().first()->setVectorContour(1, nullptr);
    skeleton->getFrameLists().first()->setVectorContour(2, nullptr);
    skeleton->getSegmentLists().first()->setVectorContour(2, nullptr);
    DocumentReport report;
    EXPECT_TRUE(saveDocument(document, path, &report)) << str(report.error);
    EXPECT_EQ(str(report.dropped.join(text("\n"))),
              "The frame \"Chest\" of \"Skirt\" is not stored: a vector is missing.\n"
              "The segment \"Side\" of \"Skirt\" is not stored: a vector is missing.");
}

TEST_F(DocumentSaving, takesTheUnitOfTheProgramForNoPartOfADocument)
{
    elements.spec->setFormulaSpec(TreeEquations::parse(text("2 + Measure(Side)"), elements.set, true));
    elements.chest->setFormulaMeasurement(
        TreeEquations::parse(text("40 + Measure(Side)"), elements.set, true));
    const QByteArray inCentimetres = documentToText(document);
    VorCoreApplication &application = VorCoreApplication::instance();
    const LengthUnit unit = application.lengthUnit();
    application.setLengthUnit(LengthUnit::millimetre());
    PatternDocument loaded;
    EXPECT_TRUE(documentFromText(inCentimetres, loaded));
    EXPECT_EQ(str(documentToText(loaded)), str(inCentimetres));
    EXPECT_EQ(str(documentToText(document)), str(inCentimetres));
    application.setLengthUnit(unit);
}

// Places that take nothing, or not everything
// ------------------------------------------------------------------------------------------------------

std::string wordsOfRefusedPlace(const PatternDocument &document, const QString &path)
{
    DocumentReport report;
    EXPECT_FALSE(saveDocument(document, path, &report)) << str(path);
    EXPECT_EQ(str(report.error).substr(0, str(path).size() + 2), str(path) + ": ");
    return str(report.error).substr(str(path).size() + 2);
}

TEST_F(DocumentSaving, namesThePlaceThatTakesNoDocument)
{
    EXPECT_EQ(wordsOfRefusedPlace(document, folder.path()), "is a folder");
    EXPECT_NE(wordsOfRefusedPlace(document, folder.filePath(text("no/folder/here.json"))), "");
    EXPECT_NE(wordsOfRefusedPlace(document, path + text("/below")), "");
    EXPECT_NE(wordsOfRefusedPlace(document, QString()), "");
}

TEST_F(DocumentSaving, isToldThatADeviceIsFull)
{
    if (!QFile::exists(text("/dev/full")))
        GTEST_SKIP() << "no such device here";
    EXPECT_EQ(wordsOfRefusedPlace(document, text("/dev/full")), "No space left on device");
    // The device is still one: nothing was put in its place.
    struct stat place {
    };
    ASSERT_EQ(stat("/dev/full", &place), 0);
    EXPECT_TRUE(S_ISCHR(place.st_mode));
    EXPECT_TRUE(saveDocument(document, text("/dev/null")));
}

TEST_F(DocumentSaving, keepsTheOldFileWhereTheDiskTakesNoMore)
{
    ASSERT_GT(before.size(), 1024);
    document.setName(text("Changed"));
    const auto saveWithin = [&](rlim_t limit) {
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit bytes{limit, limit};
        if (setrlimit(RLIMIT_FSIZE, &bytes) != 0)
            std::_Exit(10);
        DocumentReport report;
        const bool isSaved = saveDocument(document, path, &report);
        std::_Exit(!isSaved && report.error.contains(path) ? 0 : 1);
    };
    for (const rlim_t limit : {rlim_t(0), rlim_t(1), rlim_t(1024)}) {
        EXPECT_EXIT(saveWithin(limit), testing::ExitedWithCode(0), "");
        EXPECT_EQ(str(bytesAt(path)), str(before));
        EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden).size(), 1);
    }
}

TEST_F(DocumentSaving, replacesWhatStoodThereAndFollowsALink)
{
    const QString link = folder.filePath(text("link.json"));
    ASSERT_TRUE(QFile::link(path, link));
    document.setName(text("Changed"));
    EXPECT_TRUE(saveDocument(document, link));
    EXPECT_EQ(str(bytesAt(path)), str(documentToText(document)));
    EXPECT_TRUE(QFileInfo(link).isSymLink());
}

TEST_F(DocumentSaving, readsNeitherFoldersNorDevicesWithoutAnEnd)
{
    DocumentReport report;
    PatternDocument loaded;
    EXPECT_FALSE(loadDocument(folder.path(), loaded, &report));
    EXPECT_EQ(str(report.error), str(folder.path()) + ": is a folder");
    EXPECT_FALSE(loadDocument(text("/dev/null"), loaded, &report));
    EXPECT_NE(str(report.error), "");
    if (!QFile::exists(text("/dev/zero")))
        GTEST_SKIP() << "no such device here";
    EXPECT_FALSE(loadDocument(text("/dev/zero"), loaded, &report));
    EXPECT_EQ(str(report.error), "/dev/zero: is larger than a document may be");
}

} // namespace
