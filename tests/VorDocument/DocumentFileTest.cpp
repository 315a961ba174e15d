// The file form: what is written is read back, and what is wrong is named by its path.

#include "TestDocument.h"

#include <VorDocument/DocumentFile.h>

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <limits>
#include <random>

using namespace VorSystem;
using documents::Elements;
using documents::enter;
using documents::str;
using documents::text;

namespace
{

// Four corners, one of them explicit, in three sizes; small enough to be read in a failure.
const char kSmall[] = R"({
"format": "VorDocument 1", "name": "Small", "sizes": {"names": ["S", "M", "L"], "nest": 2},
"pieces": [{"name": "Front", "contours": [{"vectors": [
    {"id": 1, "at": [0, 0]},
    {"id": 2, "at": [10, 0], "large": [1, 0], "small": [-1, 0]},
    {"id": 3, "at": [10, 20], "evolutions": [[-1, -1], [0, 0], [1, 1.5]]},
    {"id": 4, "at": [0, 20]}]}],
    "vectors": [{"id": 7, "at": [5, 10]}],
    "lines": [{"from": 1, "to": 7}],
    "mirror": {"axis": [[5, 0], [5, 1]], "pairs": [[1, 2]]},
    "notches": [2], "drillHoles": [7],
    "grainLines": [{"anchor": 7, "direction": [0, 1], "length": 8}],
    "innerLines": [{"from": 1, "to": 4, "use": "fold"}],
    "seamAllowances": [{"edge": 2, "width": 1.5}]}]})";

// All garment pieces of the tests in seven sizes; the skirt carries a skeleton.
class FullDocument : public testing::Test
{
protected:
    FullDocument()
    {
        document.setName(text("Everything"));
        document.setSizes(documents::sevenNames(), 4);
        enter(document, support::bodiceWithDart(), "Bodice");
        enter(document, support::sleeve(), "Sleeve");
        enter(document, support::trouserLeg(), "Trousers");
        skirt = enter(document, support::skirt(), "Skirt");
        enter(document, support::mirroredBack(), "Back");
        enter(document, support::randomPiece(7, 40), "Random");
        document.pieces()[1]->setLocked(true);
        document.clonePiece(document.pieces()[1], text("Sleeve, a clone"));
        elements.tieTo(document, skirt);
    }

    PatternDocument document;
    Elements elements{document};
    CDbGroupObject *skirt = nullptr;
};

TEST_F(FullDocument, isTheSameTextAfterLoadAndSave)
{
    DocumentReport report;
    const QByteArray first = documentToText(document, &report);
    ASSERT_EQ(str(report.error), "");

    PatternDocument loaded;
    ASSERT_TRUE(documentFromText(first, loaded, &report)) << str(report.error);
    EXPECT_TRUE(report.dropped.isEmpty()) << str(report.dropped.join(text(" ")));
    const QByteArray second = documentToText(loaded);
    PatternDocument again;
    ASSERT_TRUE(documentFromText(second, again));

    EXPECT_EQ(str(second), str(first));
    EXPECT_EQ(str(documentToText(again)), str(second));
}

TEST_F(FullDocument, standsInEverySizeWhereItStood)
{
    PatternDocument loaded;
    ASSERT_TRUE(documentFromText(documentToText(document), loaded));

    ASSERT_EQ(loaded.pieces().size(), document.pieces().size());
    for (std::size_t place = 0; place < document.pieces().size(); ++place) {
        const CDbGroupObject *before = document.pieces()[place];
        const CDbGroupObject *after = loaded.pieces()[place];
        EXPECT_EQ(str(after->name()), str(before->name()));
        EXPECT_EQ(after->isLocked(), before->isLocked());
        EXPECT_EQ(str(after->cloneOf()), str(before->cloneOf()));
        EXPECT_EQ(after->isMirror(), before->isMirror());
        const auto was = support::vectorsOf(before);
        const auto is = support::vectorsOf(after);
        ASSERT_EQ(is.size(), was.size());
        for (std::size_t v = 0; v < was.size(); ++v) {
            EXPECT_EQ(is[v]->Num_ID(), was[v]->Num_ID());
            EXPECT_EQ(is[v]->mVectorKind, was[v]->mVectorKind);
            for (short size = 1; size <= 7; ++size) {
                EXPECT_EQ(is[v]->positionInSize(size, loaded.gradationData()),
                          was[v]->positionInSize(size, document.gradationData()));
            }
        }
    }
}

TEST_F(FullDocument, bringsElementsAndSkeletonsBack)
{
    PatternDocument loaded;
    ASSERT_TRUE(documentFromText(documentToText(document), loaded));

    FrameSet *set = loaded.framesManager()->getFrameSetAccordingName(text("Garment"));
    ASSERT_NE(set, nullptr);
    EXPECT_TRUE(set->foundElementAccordingName(text("Front:Chest"), true)->objectControlCorresponding());
    EXPECT_FALSE(set->foundElementAccordingName(text("Front:Waist"), true)->objectControlCorresponding());
    EXPECT_EQ(set->getFrameLinks().first()->getFrames().size(), 2);
}

TEST_F(FullDocument, keepsASkeletonThatCannotBeTied)
{
    const QByteArray whole = documentToText(document);
    QByteArray renamed = whole;
    renamed.replace("\"segment_name\": \"Side\"", "\"segment_name\": \"Nobody\"");
    ASSERT_NE(str(renamed), str(whole));

    PatternDocument loaded;
    DocumentReport report;
    ASSERT_TRUE(documentFromText(renamed, loaded, &report));
    EXPECT_EQ(str(report.dropped.join(text("|"))),
              "The skeleton of \"Skirt\" could not be tied: the segment \"Nobody\" is not in the set "
              "\"Garment\".");
    EXPECT_EQ(loaded.pieces()[3]->firstGabarit()->controlSkeleton(), nullptr);
    EXPECT_EQ(str(documentToText(loaded)), str(renamed));
}

TEST_F(FullDocument, keepsASetThatDoesNotResolve)
{
    QByteArray whole = documentToText(document);
    const QByteArray linked = "\"link_name\": \"Girth\"";
    whole.replace(whole.indexOf(linked), linked.size(), "\"link_name\": \"Nobody\"");

    PatternDocument loaded;
    DocumentReport report;
    ASSERT_TRUE(documentFromText(whole, loaded, &report)) << str(report.error);
    EXPECT_EQ(loaded.framesManager()->numberOfFrameSets(), 0);
    EXPECT_EQ(report.dropped.size(), 2); // the set, and the skeleton that needs it
    EXPECT_EQ(str(documentToText(loaded)), str(whole));
}

TEST_F(FullDocument, isNotSavedWhenItCouldNotBeReadBack)
{
    QTemporaryDir folder;
    const QString path = folder.filePath(text("document.json"));
    ASSERT_TRUE(saveDocument(document, path));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray before = file.readAll();
    file.close();

    skirt->firstGabarit()->mFirstVector->setX(std::numeric_limits<double>::quiet_NaN());
    DocumentReport report;
    EXPECT_FALSE(saveDocument(document, path, &report));

    EXPECT_EQ(str(report.error), "The document could not be read back, so it is not saved. "
                                 "pieces[3].contours[0].vectors[0].at[0]: is not a number");
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(str(file.readAll()), str(before));
}

TEST_F(FullDocument, refusesFormulasTooDeepForItsTextInsteadOfLosingThem)
{
    QString sum = text("1");
    for (int term = 0; term < 2000; ++term)
        sum += text("+1");
    TreeEquations *formula = TreeEquations::parse(sum, elements.set, false);
    ASSERT_NE(formula, nullptr);
    elements.spec->setFormulaSpec(formula);

    DocumentReport report;
    EXPECT_TRUE(documentToText(document, &report).isEmpty());
    EXPECT_EQ(str(report.error), "The document could not be read back, so it is not saved. The formula of "
                                 "\"Ease\" in the set \"Garment\" is nested more than 1017 deep.");
}

TEST(DocumentFile, readsWhatAPersonWrote)
{
    PatternDocument document;
    DocumentReport report;
    ASSERT_TRUE(documentFromText(kSmall, document, &report)) << str(report.error);

    EXPECT_EQ(str(document.name()), "Small");
    const CDbGroupObject *front = document.pieces().front();
    EXPECT_EQ(front->vectorOfIdentity(3)->positionInSize(3, document.gradationData()), GeoPoint2D(11, 21.5));
    EXPECT_EQ(front->vectorOfIdentity(2)->positionInSize(1, document.gradationData()), GeoPoint2D(9, 0));
    EXPECT_EQ(front->notches().size(), 1U);
    EXPECT_EQ(front->innerLines().front().use, InnerLine::Fold);

    const QByteArray saved = documentToText(document);
    ASSERT_TRUE(documentFromText(saved, document));
    EXPECT_EQ(str(documentToText(document)), str(saved));
}

// What replaces what in the small document, and the words about it.
struct Mistake {
    const char *from;
    const char *to;
    const char *error;
};

const Mistake kMistakes[] = {
    // clang-format off
    {"VorDocument 1",           "VorDocument 99",   "format: is no format that can be read"},
    {"\"format\"",              "\"form\"",         "format: is missing"},
    {"\"M\"",                   "\"S\"",            "sizes: are no sizes: names must differ, and the nest be one of them"},
    {"\"nest\": 2",             "\"nest\": 4",      "sizes: are no sizes: names must differ, and the nest be one of them"},
    {"\"nest\": 2",             "\"nest\": 2.5",    "sizes.nest: is not a whole number"},
    {"\"nest\": 2",             "\"nest\": -1",     "sizes.nest: is out of range"},
    {"\"contours\"",            "\"contour\"",      "pieces[0].contour: is no key of this form"},
    {"\"name\": \"Front\", ",   "",                 "pieces[0].name: is missing"},
    {"\"id\": 2",               "\"id\": 1",        "pieces[0].contours[0].vectors[1].id: is the identity of two vectors"},
    {"\"id\": 7",               "\"id\": 1",        "pieces[0].vectors[0].id: is the identity of two vectors"},
    {"\"id\": 7",               "\"id\": 7, \"id\": 7", "The key \"id\" stands twice in one object."},
    {"\"id\": 7",               "\"id\": 7, \"\\u0069d\": 7", "The key \"id\" stands twice in one object."},
    {"\"id\": 7",               "\"id\": 0",        "pieces[0].vectors[0].id: is out of range"},
    {"[10, 0]",                 "[10]",             "pieces[0].contours[0].vectors[1].at: is not a pair of numbers"},
    {"[10, 0]",                 "[10, \"0\"]",      "pieces[0].contours[0].vectors[1].at[1]: is not a number"},
    {"[10, 0]",                 "[10, null]",       "pieces[0].contours[0].vectors[1].at[1]: is not a number"},
    {"[10, 0]",                 "[10, 1e7]",        "pieces[0].contours[0].vectors[1].at: lies too far out"},
    {"[0, 0], [1, 1.5]",        "[0, 1], [1, 1.5]", "pieces[0].contours[0].vectors[2].evolutions: are no evolutions: that of the nest must be there, and zero"},
    {"\"evolutions\": [[-1, -1], [0, 0], [1, 1.5]]", "\"evolutions\": []",
                                                    "pieces[0].contours[0].vectors[2].evolutions: are no evolutions: that of the nest must be there, and zero"},
    {"\"from\": 1, \"to\": 7",  "\"from\": 1, \"to\": 8", "pieces[0].lines[0].to: names no vector of the piece"},
    {"\"from\": 1, \"to\": 7",  "\"from\": 1, \"to\": 1", "pieces[0].lines[0]: is no line"},
    {"\"from\": 1, \"to\": 7",  "\"curve\": [1], \"handles\": [0, 0]", "pieces[0].lines[0]: is no curve"},
    {"[[5, 0], [5, 1]]",        "[[5, 0], [5, 0]]", "pieces[0].mirror.axis: has no direction"},
    {"[[1, 2]]",                "[[1, 2], [1, 3]]", "pieces[0].mirror.pairs[1]: is not a pair of vectors, each of one pair"},
    {"\"notches\": [2]",        "\"notches\": [7]", "pieces[0].notches[0]: is no anchor of a contour"},
    {"\"drillHoles\": [7]",     "\"drillHoles\": [1]", "pieces[0].drillHoles[0]: is no vector inside the piece"},
    {"\"length\": 8",           "\"length\": -8",   "pieces[0].grainLines[0]: is no grain line"},
    {"\"fold\"",                "\"folded\"",       "pieces[0].innerLines[0].use: is neither fold nor inner"},
    {"\"width\": 1.5",          "\"width\": true",  "pieces[0].seamAllowances[0].width: is not a number"},
    {"\"pieces\": [{",          "\"pieces\": {\"a\": [{", "Line 14: unterminated object."},
    // clang-format on
};

TEST(DocumentFile, namesTheKeyAtFaultAndLeavesTheDocumentAlone)
{
    PatternDocument document;
    ASSERT_TRUE(documentFromText(kSmall, document));
    const CDbGroupObject *piece = document.pieces().front();
    const QByteArray before = documentToText(document);

    for (const Mistake &mistake : kMistakes) {
        QByteArray wrong(kSmall);
        const int place = wrong.indexOf(mistake.from);
        ASSERT_GE(place, 0) << mistake.from;
        wrong.replace(place, static_cast<int>(qstrlen(mistake.from)), mistake.to);
        DocumentReport report;
        EXPECT_FALSE(documentFromText(wrong, document, &report)) << mistake.to;
        EXPECT_EQ(str(report.error), mistake.error);
    }
    EXPECT_EQ(document.pieces().front(), piece);
    EXPECT_EQ(str(documentToText(document)), str(before));
}

TEST(DocumentFile, survivesTextsThatAreNoDocument)
{
    PatternDocument document;
    for (const char *words : {"", "[]", "null", "{}", "[[[", "{\"format\": 1}", "\xff\xfe"})
        EXPECT_FALSE(documentFromText(words, document)) << words;
    EXPECT_FALSE(documentFromText(QByteArray(100000, '['), document));
    EXPECT_FALSE(loadDocument(text("/nowhere/document.json"), document));
    EXPECT_FALSE(saveDocument(document, text("/nowhere/document.json")));
}

TEST(DocumentFile, anyPrefixOfADocumentIsRefused)
{
    PatternDocument document;
    const QByteArray whole(kSmall);
    for (int length = 0; length < whole.size(); ++length)
        EXPECT_FALSE(documentFromText(whole.left(length), document)) << length;
}

TEST(DocumentFile, anyDamageIsRefusedOrReadAsADocument)
{
    std::mt19937 random(20);
    const QByteArray whole(kSmall);
    for (int round = 0; round < 3000; ++round) {
        QByteArray damaged = whole;
        for (unsigned count = 1 + random() % 4; count > 0; --count) {
            const int place = static_cast<int>(random() % static_cast<unsigned>(damaged.size()));
            const int from = static_cast<int>(random() % static_cast<unsigned>(damaged.size()));
            switch (random() % 3) {
            case 0: damaged[place] = static_cast<char>(random() % 128); break;
            case 1: damaged.remove(place, 1 + static_cast<int>(random() % 8)); break;
            default: damaged.insert(place, damaged.mid(from, 1 + static_cast<int>(random() % 20))); break;
            }
        }
        PatternDocument document;
        DocumentReport report;
        const bool isRead = documentFromText(damaged, document, &report);
        EXPECT_EQ(isRead, report.error.isEmpty());
        if (!isRead) {
            EXPECT_TRUE(document.pieces().empty());
            continue;
        }
        // What was read can be used and saved.
        for (CDbGroupObject *piece : document.pieces())
            piece->againObjects(true, document.gradationData(), true);
        PatternDocument again;
        EXPECT_TRUE(documentFromText(documentToText(document), again)) << str(damaged);
    }
}

// Names and nest of a document, and how many sizes it then counts.
struct Sizes {
    int names;
    short nest;
    short counted;
};

TEST(DocumentFile, keepsAnyNumberOfSizes)
{
    for (const Sizes &sizes :
         {Sizes{0, 0, 1}, Sizes{1, 1, 1}, Sizes{5, 0, 1}, Sizes{5, 5, 5}, Sizes{60, 1, 60}}) {
        PatternDocument document;
        QStringList names;
        for (int name = 0; name < sizes.names; ++name)
            names << QString::number(name);
        ASSERT_TRUE(document.setSizes(names, sizes.nest));
        enter(document, support::bodiceWithDart(), "Bodice");
        enter(document, support::mirroredBack(), "Back"); // with evolutions for seven sizes

        const QByteArray saved = documentToText(document);
        PatternDocument loaded;
        DocumentReport report;
        ASSERT_TRUE(documentFromText(saved, loaded, &report)) << str(report.error);
        EXPECT_EQ(GradationData::sizes(loaded.gradationData()), sizes.counted);
        EXPECT_EQ(loaded.gradationData() == nullptr, sizes.names == 0);
        EXPECT_EQ(str(documentToText(loaded)), str(saved));
    }
}

} // namespace
