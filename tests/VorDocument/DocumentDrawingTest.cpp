// Drawings: well-formed, complete, finite, and without a trace left in the document.

#include "TestDocument.h"

#include <VorDocument/DocumentDrawing.h>
#include <VorDocument/DocumentFile.h>
#include <VorDocument/PieceDraft.h>

#include <QXmlStreamReader>
#include <gtest/gtest.h>

#include <map>

using namespace VorSystem;
using documents::Elements;
using documents::enter;
using documents::text;

namespace
{

// What a drawing holds: how often each class of group and path occurs, and all titles and texts.
struct Seen {
    explicit Seen(const QByteArray &svg)
    {
        QXmlStreamReader xml(svg);
        while (!xml.atEnd()) {
            if (xml.readNext() != QXmlStreamReader::StartElement)
                continue;
            const QString name = xml.name().toString();
            for (const QXmlStreamAttribute &attribute : xml.attributes()) {
                const QString value = attribute.value().toString();
                EXPECT_FALSE(value.contains(text("nan")) || value.contains(text("inf")))
                    << value.toStdString();
            }
            ++classes[(name + text(".") + xml.attributes().value(text("class")).toString()).toStdString()];
            if (name == text("title") || name == text("text"))
                ++texts[xml.readElementText().toStdString()];
        }
        EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
    }

    int count(const std::string &key) const
    {
        const auto found = classes.find(key);
        return found == classes.end() ? 0 : found->second;
    }

    std::map<std::string, int> classes;
    std::map<std::string, int> texts;
};

// Bodice, skirt with a skeleton, mirrored back; seven sizes.
class DocumentDrawingTest : public testing::Test
{
protected:
    DocumentDrawingTest()
    {
        document.setName(text("Drawn <&>"));
        document.setSizes(documents::sevenNames(), 4);
        enter(document, support::bodiceWithDart(), "Bodice");
        elements.tieTo(document, enter(document, support::skirt(), "Skirt"));
        enter(document, support::mirroredBack(), "Back");
    }

    PatternDocument document;
    Elements elements{document};
};

TEST_F(DocumentDrawingTest, hasAGroupWithATitleForEverySizeOfEveryPiece)
{
    const Seen seen(drawDocument(document));

    EXPECT_EQ(seen.count("g.piece"), 3);
    EXPECT_EQ(seen.count("g.size size-1"), 4); // three pieces and the legend
    EXPECT_EQ(seen.count("g.size size-4 base"), 4);
    EXPECT_EQ(seen.texts.at("Size 34"), 3);
    EXPECT_EQ(seen.texts.at("Size 40 (base)"), 3);
    EXPECT_EQ(seen.texts.at("Bodice"), 2); // title and name
    EXPECT_EQ(seen.texts.at("Drawn <&>"), 2);
}

TEST_F(DocumentDrawingTest, showsDartsMarksMirrorAndSkeleton)
{
    const Seen seen(drawDocument(document));

    EXPECT_EQ(seen.count("path.leg"), 2 * 7); // bodice and back, one path a size
    EXPECT_EQ(seen.count("path.notch"), 7);
    EXPECT_GE(seen.count("path.cut"), 1);
    EXPECT_EQ(seen.count("path.mirror"), 1);
    EXPECT_GE(seen.count("path.grain"), 1);
    EXPECT_EQ(seen.count("g.axis"), 1);
    EXPECT_EQ(seen.count("g.frame"), 1);
    EXPECT_EQ(seen.count("g.segment"), 1);
    EXPECT_EQ(seen.count("g.scale"), 1);
    EXPECT_EQ(seen.texts.at("Chest"), 2);
}

TEST_F(DocumentDrawingTest, leavesOutWhatIsNotWanted)
{
    DrawingOptions options;
    options.withAllowances = false;
    options.withSkeletons = false;
    const Seen seen(drawDocument(document, options));

    EXPECT_EQ(seen.count("path.cut"), 0);
    EXPECT_EQ(seen.count("g.skeleton"), 0);
    EXPECT_EQ(seen.count("g.sample"), 0);
}

TEST_F(DocumentDrawingTest, theLegendNamesWhatIsDrawnAndNothingElse)
{
    const Seen seen(drawDocument(document));
    EXPECT_EQ(seen.texts.at("40 base"), 1);
    EXPECT_EQ(seen.texts.at("cut line"), 1);
    EXPECT_EQ(seen.count("g.sample axis"), 1);
    EXPECT_EQ(seen.count("g.sample frame"), 1);
    EXPECT_EQ(seen.count("g.sample segment"), 1);

    document.removePiece(document.pieces()[1]); // the one with a skeleton
    document.removePiece(document.pieces()[0]); // the one with a seam allowance
    const Seen bare(drawDocument(document));
    EXPECT_EQ(bare.texts.count("cut line"), 0U);
    EXPECT_EQ(bare.count("g.sample axis") + bare.count("g.sample frame") + bare.count("g.sample segment"), 0);
}

TEST_F(DocumentDrawingTest, noTwoSizesLookAlike)
{
    QStringList names;
    for (int size = 1; size <= 37; ++size)
        names << QString::number(size);
    ASSERT_TRUE(document.setSizes(names, 19));

    const QString style = QString::fromUtf8(drawDocument(document)).section(text("</style>"), 0, 0);
    QStringList looks;
    for (const QString &line : style.split(QLatin1Char('\n'))) {
        if (line.startsWith(text(" .size-")) && line.contains(text(" path ")))
            looks << line.section(text(" path "), 1);
    }
    EXPECT_EQ(looks.size(), 36);
    EXPECT_EQ(looks.removeDuplicates(), 0);
}

TEST_F(DocumentDrawingTest, marksThePointsAtWhichSizesWereLaidTogether)
{
    DrawingOptions options;
    options.stacks = {document.pieces()[0]->firstGabarit()->mFirstVector,
                      document.pieces()[2]->firstGabarit()->mFirstVector};

    EXPECT_EQ(Seen(drawDocument(document, options)).count("g.stack"), 2);
    PatternDocument before;
    ASSERT_TRUE(documentFromText(documentToText(document), before));
    options.withSkeletons = false;
    const Seen seen(drawOverlay(before, document, 0, options));
    EXPECT_EQ(seen.count("g.stack"), 2);
    EXPECT_EQ(seen.count("g.skeleton"), 0);
}

TEST_F(DocumentDrawingTest, changesNothing)
{
    const QByteArray before = documentToText(document);
    drawDocument(document);
    drawOverlay(document, document);
    EXPECT_TRUE(documentToText(document) == before);
}

TEST_F(DocumentDrawingTest, anOverlayMatchesPiecesByName)
{
    PatternDocument after;
    ASSERT_TRUE(documentFromText(documentToText(document), after));
    after.pieces()[0]->setName(text("Bodice, longer"));

    const Seen seen(drawOverlay(document, after, 7));

    EXPECT_EQ(seen.count("g.piece"), 4);
    EXPECT_EQ(seen.count("g.before"), 4); // three pieces and the legend
    EXPECT_EQ(seen.count("g.after"), 4);
    EXPECT_EQ(seen.texts.at("Drawn <&>, size 46"), 2);
}

TEST_F(DocumentDrawingTest, anOverlayShowsMarksOfBothAndTheSkeletonAfter)
{
    PatternDocument after;
    ASSERT_TRUE(documentFromText(documentToText(document), after));
    const Seen seen(drawOverlay(document, after, 7));

    EXPECT_EQ(seen.count("path.notch"), 2); // of the bodice
    EXPECT_EQ(seen.count("path.leg"), 4);   // bodice and back
    EXPECT_EQ(seen.count("circle.mark"), 2);
    EXPECT_EQ(seen.count("g.axis"), 1);
    EXPECT_EQ(seen.count("g.frame"), 1);
    EXPECT_EQ(seen.count("g.segment"), 1);
}

TEST_F(DocumentDrawingTest, aSegmentIsInterruptedAtAMouth)
{
    GabaritObject *gabarit = document.pieces()[0]->firstGabarit();
    const DartContour *dart = gabarit->mFirstDart;
    auto *segment =
        new ControlSegment(gabarit->neighbor(dart->pICGetVector(Dart_FirstLeg), false),
                           gabarit->neighbor(dart->pICGetVector(Dart_SecondLeg), true),
                           document.newSkeleton(gabarit), elements.set->newSegment(text("Across")));
    ASSERT_TRUE(segment->getContourDirection1To2());

    const QString drawing = QString::fromUtf8(drawDocument(document));
    const int start = drawing.indexOf(text("class=\"segment\" d="));
    ASSERT_GE(start, 0);
    EXPECT_EQ(drawing.mid(start, drawing.indexOf(text("/>"), start) - start).count(QLatin1Char('M')), 2);
}

TEST_F(DocumentDrawingTest, aLongHeadingIsWrittenSmaller)
{
    PatternDocument named;
    named.setName(text("Bodice"));
    EXPECT_TRUE(drawDocument(named).contains("font-size=\"16\""));
    named.setName(QString(100, QLatin1Char('B')));
    EXPECT_FALSE(drawDocument(named).contains("font-size=\"16\""));
}

TEST_F(DocumentDrawingTest, passesOverControlObjectsThatHaveNoPlace)
{
    CDbGroupObject *bare = document.copyPiece(document.pieces()[0], text("Bare"));
    ControlSkeleton *skeleton = document.newSkeleton(bare->firstGabarit());
    new ControlFrame(bare->firstGabarit()->mFirstVector, nullptr, skeleton, nullptr, true); // and no axis
    new ControlFrame(skeleton);
    new ControlSegment(skeleton);
    const Seen seen(drawDocument(document));

    EXPECT_EQ(seen.count("g.skeleton"), 2);
    EXPECT_EQ(seen.count("g.frame"), 1);
    EXPECT_EQ(seen.count("g.segment"), 1);
}

TEST(DocumentDrawing, takesWhateverADocumentMayHold)
{
    PatternDocument document;
    EXPECT_EQ(Seen(drawDocument(document)).count("g.piece"), 0);

    document.newPiece(QString()); // no contour
    CDbGroupObject *few = document.newPiece(text("Few"));
    GabaritObject *gabarit = few->newGabarit();
    for (int count = 0; count < 3; ++count) {
        EXPECT_EQ(Seen(drawDocument(document)).count("g.piece"), 2);
        gabarit->addContourVector(GeoPoint2D(3.0, 4.0)); // all at one place
        few->addSeamAllowance(gabarit->mFirstVector, 1.0);
    }
    few->addCurve(gabarit->contourVectors());
    few->addNotch(gabarit->mFirstVector);
    few->addInnerLine(gabarit->mFirstVector, gabarit->contourVectors()[1], InnerLine::Fold);
    EXPECT_EQ(Seen(drawDocument(document)).count("g.piece"), 2);
    EXPECT_EQ(Seen(drawOverlay(document, document, 99)).count("g.piece"), 2);

    for (unsigned seed = 0; seed < 30; ++seed)
        enter(document, support::randomPiece(seed, 3 + static_cast<int>(seed)), "Random");
    QStringList names;
    for (int size = 0; size < 60; ++size)
        names << QString::number(size);
    ASSERT_TRUE(document.setSizes(names, 1));
    EXPECT_EQ(Seen(drawDocument(document)).count("g.piece"), 32);
}

} // namespace
