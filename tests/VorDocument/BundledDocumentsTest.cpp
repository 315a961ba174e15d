// The documents in the repository: they are what the drafting program makes, and garments that can be sewn.

#include "TestDocument.h"

#include <BundledDocuments.h>
#include <Garments.h>
#include <VorDocument/DocumentFile.h>

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

using namespace VorSystem;
using documents::text;

namespace
{

constexpr double kSewn = 1e-5; // cm: seams that are sewn together

QString pathOf(const QString &fileName)
{
    return QDir(text(VOR_DOCUMENTS_DIR)).filePath(fileName);
}

double stretchLength(const GabaritObject *gabarit, short from, short to)
{
    return gabarit->contourLengthWithoutDeadZones(gabarit->gabaritGetContourVector(from),
                                                  gabarit->gabaritGetContourVector(to));
}

// Index of the contour vector that stands at a place of the nest.
short indexAt(const GabaritObject *gabarit, const GeoPoint2D &place)
{
    for (const CDbPointVOR *v : gabarit->contourVectors()) {
        if (v->distance(place) < 1e-6)
            return gabarit->gabaritGetContourIndex(v);
    }
    return 0;
}

TEST(BundledDocuments, areWhatTheDraftingProgramMakes)
{
    int committed = 0;
    for (const drafting::BundledDocument &bundled : drafting::bundledDocuments()) {
        QFile file(pathOf(bundled.fileName));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << file.fileName().toStdString();
        EXPECT_EQ(file.readAll().toStdString(), documentToText(*bundled.document).toStdString())
            << "run the program `drafting` on the folder documents and look at what it changes";
        ++committed;
    }
    EXPECT_EQ(QDir(pathOf(QString())).entryList({text("*.json")}).size(), committed);
}

TEST(BundledDocuments, haveSevenSizesAndStandStillInARebuild)
{
    for (const drafting::BundledDocument &bundled : drafting::bundledDocuments()) {
        PatternDocument document;
        DocumentReport report;
        ASSERT_TRUE(loadDocument(pathOf(bundled.fileName), document, &report)) << report.error.toStdString();
        EXPECT_TRUE(report.dropped.isEmpty());
        EXPECT_EQ(document.gradationData()->gradationNum(), 7);
        for (CDbGroupObject *piece : document.pieces()) {
            std::vector<GeoPoint2D> before;
            for (const CDbPointVOR *v : support::vectorsOf(piece)) {
                for (short size = 1; size <= 7; ++size)
                    before.push_back(v->positionInSize(size, document.gradationData()));
            }
            piece->againObjects(true, document.gradationData(), true);
            std::size_t place = 0;
            for (const CDbPointVOR *v : support::vectorsOf(piece)) {
                for (short size = 1; size <= 7; ++size)
                    EXPECT_LT(v->positionInSize(size, document.gradationData()).distance(before[place++]),
                              1e-6);
            }
        }
    }
}

TEST(BundledDocuments, haveDartsWithEqualLegs)
{
    int darts = 0;
    for (const drafting::BundledDocument &bundled : drafting::bundledDocuments()) {
        for (const CDbGroupObject *piece : bundled.document->pieces()) {
            for (const DartContour *dart = piece->firstGabarit()->mFirstDart; dart; dart = dart->mNextDart) {
                EXPECT_TRUE(dart->mLegsMadeEqual) << piece->name().toStdString();
                ++darts;
            }
        }
    }
    EXPECT_EQ(darts, 2 + 1 + 2 + 2); // bodice front and back, trousers, skirt
}

TEST(BundledDocuments, theSkirtIsItsOwnMirrorImage)
{
    const auto bundled = drafting::bundledDocuments();
    const CDbGroupObject *skirt = bundled.back().document->pieces().front();
    ASSERT_TRUE(skirt->isMirror());
    for (const CDbPointVOR *v : support::vectorsOf(skirt)) {
        const bool isGrain = skirt->grainLines().front().anchor == v;
        EXPECT_EQ(skirt->Miroir()->imageOf(v) != nullptr, !isGrain);
    }
}

TEST(BundledDocuments, seamsThatAreSewnTogetherAreEquallyLongInEverySize)
{
    const auto bundled = drafting::bundledDocuments();
    const PatternDocument &document = *bundled.front().document;
    const CDbGroupObject *front = document.pieces()[0];
    const CDbGroupObject *back = document.pieces()[1];
    const GabaritObject *f = front->firstGabarit();
    const GabaritObject *b = back->firstGabarit();
    const drafting::Measures nest = drafting::sizes()[drafting::kNest - 1];
    const short frontUnderarm = indexAt(f, drafting::frontUnderarm(nest));
    const short frontWaist = indexAt(f, drafting::frontWaistSide(nest));
    const short backUnderarm = indexAt(b, drafting::backUnderarm(nest));
    const short backWaist = indexAt(b, drafting::backWaistSide(nest));
    for (short size = 1; size <= 7; ++size) {
        const support::InSize frontInSize(front, size, document.gradationData());
        const support::InSize backInSize(back, size, document.gradationData());
        EXPECT_NEAR(stretchLength(f, frontWaist, frontUnderarm), stretchLength(b, backWaist, backUnderarm),
                    kSewn);
    }
}

TEST(BundledDocuments, theSleeveCapIsTheArmholePlusEaseInEverySize)
{
    for (const drafting::Measures &m : drafting::sizes())
        EXPECT_NEAR(drafting::sleeveCapLength(m), drafting::armholeLength(m) + 2.5, kSewn);
}

} // namespace
