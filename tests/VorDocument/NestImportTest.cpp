// Imported nests against the figures that come with them, in every size.
//
// The nests are not part of the project: the environment variable VORFRAMES_DATA names the folder that holds
// them, itself or in a folder of it. Without it these tests are skipped.

#include "TestDocument.h"

#include <VorDocument/NestImport.h>

#include <QDirIterator>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <gtest/gtest.h>

#include <cmath>

using namespace VorSystem;
using documents::text;

namespace
{

constexpr double kEdge = 0.001;      // cm: a curve may lose a hundredth of a millimetre by its chords
constexpr double kPerimeter = 0.005; // cm
constexpr double kArea = 1e-4;       // relative

// A piece and its description in the nest, walked side by side.
class ImportedPiece
{
public:
    ImportedPiece(const CDbGroupObject *piece, QJsonObject nest, const GradationData *gradation)
        : mPiece(piece), mNest(std::move(nest)), mGradation(gradation)
    {
    }

    void compareWithItsFigures(short size) const
    {
        const GabaritObject *gabarit = mPiece->firstGabarit();
        const CDbPointVOR *reached = gabarit->mFirstVector;
        const DartContour *dart = nullptr;
        for (const QJsonValue stored : mNest.value(text("edges")).toArray()) {
            const QJsonObject edge = stored.toObject();
            const double length = figure(edge, "length", size) / 10.0;
            const std::string name = edge.value(text("to")).toString().toStdString();
            const CDbPointVOR *cap = gabarit->neighbor(reached, true);
            if (dart) { // the second leg
                EXPECT_NEAR(lengthOfLeg(*dart, 1, size), length, kEdge) << name;
                reached = dart->pICGetVector(Dart_SecondLeg);
                dart = nullptr;
            } else if (cap->mVectorKind == Vector_DartCap) {
                dart = dartOf(gabarit, cap);
                ASSERT_NE(dart, nullptr);
                EXPECT_EQ(name.substr(name.size() - 3), "Tip");
                EXPECT_NEAR(lengthOfLeg(*dart, 0, size), length, kEdge) << name;
            } else {
                double sum = 0.0;
                reached = walkTo(gabarit, reached, edge, size, &sum);
                EXPECT_NEAR(sum, length, kEdge) << name;
            }
        }
        EXPECT_EQ(reached, gabarit->mFirstVector);

        const std::vector<GeoPoint2D> face = faceIn(size);
        EXPECT_NEAR(perimeterOf(face), figure(mNest, "perimeter", size) / 10.0, kPerimeter);
        const double area = std::abs(figure(mNest, "area", size)) / 100.0;
        EXPECT_NEAR(areaOf(face), area, kArea * area);
    }

    int tips() const
    {
        int count = 0;
        for (const QJsonValue edge : mNest.value(text("edges")).toArray())
            count += edge.toObject().value(text("to")).toString().endsWith(text("Tip")) ? 1 : 0;
        return count;
    }

private:
    static double figure(const QJsonObject &object, const char *key, short size)
    {
        return object.value(text(key)).toArray().at(size - 1).toDouble();
    }

    GeoPoint2D placeOf(const CDbPointVOR *v, short size) const { return v->positionInSize(size, mGradation); }

    static const DartContour *dartOf(const GabaritObject *gabarit, const CDbPointVOR *cap)
    {
        DartContour *dart = nullptr;
        short role = 0;
        return gabarit->pICGabIsWhichDart(cap, &dart, &role) ? dart : nullptr;
    }

    // Along the contour to the vector that stands where the edge ends, in every size.
    const CDbPointVOR *walkTo(const GabaritObject *gabarit, const CDbPointVOR *from, const QJsonObject &edge,
                              short size, double *length) const
    {
        for (int steps = gabarit->contourCount(); steps > 0; --steps) {
            const CDbPointVOR *next = gabarit->neighbor(from, true);
            *length += placeOf(from, size).distance(placeOf(next, size));
            from = next;
            bool isEnd = true;
            for (short other = 1; other <= mGradation->gradationNum(); ++other) {
                const QJsonArray xy = edge.value(text("xy")).toArray().at(other - 1).toArray();
                const GeoPoint2D end(xy.at(0).toDouble() / 10.0, -xy.at(1).toDouble() / 10.0);
                isEnd = isEnd && placeOf(from, other).distance(end) < 1e-6;
            }
            if (isEnd)
                return from;
        }
        ADD_FAILURE() << "the end of the edge is not on the contour";
        return from;
    }

    std::vector<const CDbPointVOR *> legOf(const DartContour &dart, int which) const
    {
        std::vector<const CDbPointVOR *> leg = {dart.mPivotVector};
        for (const CDbPointVOR *v : dart.innerLegVectors(which))
            leg.push_back(v);
        leg.push_back(dart.pICGetVector(which == 0 ? Dart_FirstLeg : Dart_SecondLeg));
        return leg;
    }

    double lengthOfLeg(const DartContour &dart, int which, short size) const
    {
        double sum = 0.0;
        const auto leg = legOf(dart, which);
        for (std::size_t i = 0; i + 1 < leg.size(); ++i)
            sum += placeOf(leg[i], size).distance(placeOf(leg[i + 1], size));
        return sum;
    }

    // The contour with the legs of darts in place of their caps.
    std::vector<GeoPoint2D> faceIn(short size) const
    {
        std::vector<GeoPoint2D> face;
        const GabaritObject *gabarit = mPiece->firstGabarit();
        for (const CDbPointVOR *v : gabarit->contourVectors()) {
            if (v->mVectorKind != Vector_DartCap) {
                face.push_back(placeOf(v, size));
                continue;
            }
            const DartContour *dart = dartOf(gabarit, v);
            const auto in = legOf(*dart, 0);
            for (std::size_t i = in.size() - 2; i > 0; --i)
                face.push_back(placeOf(in[i], size));
            for (const CDbPointVOR *point : legOf(*dart, 1))
                face.push_back(placeOf(point, size));
            face.pop_back(); // the end of the leg is on the contour
        }
        return face;
    }

    static double perimeterOf(const std::vector<GeoPoint2D> &face)
    {
        double sum = 0.0;
        for (std::size_t i = 0; i < face.size(); ++i)
            sum += face[i].distance(face[(i + 1) % face.size()]);
        return sum;
    }

    static double areaOf(const std::vector<GeoPoint2D> &face)
    {
        double doubled = 0.0;
        for (std::size_t i = 0; i < face.size(); ++i) {
            const GeoPoint2D &next = face[(i + 1) % face.size()];
            doubled += face[i].mX * next.mY - next.mX * face[i].mY;
        }
        return std::abs(doubled) / 2.0;
    }

    const CDbGroupObject *mPiece;
    QJsonObject mNest;
    const GradationData *mGradation;
};

class ImportedNest : public testing::TestWithParam<const char *>
{
protected:
    void SetUp() override
    {
        const QString folder = qEnvironmentVariable("VORFRAMES_DATA");
        if (folder.isEmpty())
            GTEST_SKIP() << "VORFRAMES_DATA does not name the folder of the nests";
        QDirIterator found(folder, {text(GetParam())}, QDir::Files, QDirIterator::Subdirectories);
        ASSERT_TRUE(found.hasNext()) << "no " << GetParam() << " in " << folder.toStdString();
        QFile file(found.next());
        ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << file.fileName().toStdString();
        const QByteArray words = file.readAll();
        DocumentReport report;
        ASSERT_TRUE(importNest(words, document, &report)) << report.error.toStdString();
        nest = QJsonDocument::fromJson(words).object();
    }

    PatternDocument document;
    QJsonObject nest;
};

TEST_P(ImportedNest, hasTheLengthsPerimetersAndAreasOfItsFigures)
{
    const QJsonArray pieces = nest.value(text("pieces")).toArray();
    ASSERT_EQ(document.pieces().size(), static_cast<std::size_t>(pieces.size()));
    for (int index = 0; index < pieces.size(); ++index) {
        const CDbGroupObject *piece = document.pieces()[static_cast<std::size_t>(index)];
        const ImportedPiece imported(piece, pieces.at(index).toObject(), document.gradationData());
        for (short size = 1; size <= document.gradationData()->gradationNum(); ++size) {
            SCOPED_TRACE(piece->name().toStdString() + ", size " + document.sizeName(size).toStdString());
            imported.compareWithItsFigures(size);
        }
        int darts = 0;
        for (const DartContour *dart = piece->firstGabarit()->mFirstDart; dart; dart = dart->mNextDart)
            ++darts;
        EXPECT_EQ(darts, imported.tips());
    }
}

TEST_P(ImportedNest, standsWhereItStoodAfterARebuild)
{
    for (CDbGroupObject *piece : document.pieces()) {
        std::vector<GeoPoint2D> before;
        const std::vector<CDbPointVOR *> vectors = support::vectorsOf(piece);
        for (const CDbPointVOR *v : vectors) {
            for (short size = 1; size <= document.gradationData()->gradationNum(); ++size)
                before.push_back(v->positionInSize(size, document.gradationData()));
        }
        piece->againObjects(true, document.gradationData(), true);
        std::size_t place = 0;
        for (const CDbPointVOR *v : vectors) {
            for (short size = 1; size <= document.gradationData()->gradationNum(); ++size) {
                const GeoPoint2D after = v->positionInSize(size, document.gradationData());
                EXPECT_LT(after.distance(before[place++]), 1e-6)
                    << piece->name().toStdString() << v->mVectorKind;
            }
        }
    }
}

TEST_P(ImportedNest, isTheSameAfterSaveAndLoad)
{
    const QByteArray saved = documentToText(document);
    PatternDocument loaded;
    ASSERT_TRUE(documentFromText(saved, loaded));
    EXPECT_TRUE(documentToText(loaded) == saved);
}

INSTANTIATE_TEST_SUITE_P(Blocks, ImportedNest,
                         testing::Values("bella-women.nest.json", "titan-women.nest.json"),
                         [](const auto &tested) { return std::string(tested.param, 5); });

// A square of 10 cm in two sizes, the larger 1 cm wider; turned up it runs counterclockwise.
const char kSquare[] =
    R"({"unit": "mm", "axis": "x right, y DOWN", "sizes": ["1", "2"], "base": "1", "pieces": [
{"name": "Square", "start": {"xy": [[0, 0], [0, 0]]}, "edges": [
 {"type": "line", "to": null, "xy": [[100, 0], [110, 0]]},
 {"type": "line", "to": "b", "xy": [[100, -100], [110, -100]]},
 {"type": "line", "to": "c", "xy": [[0, -100], [0, -100]]}],
 "notches": [{"xy": [[50, 0.5], [55, 0.5]]}, {"xy": [[50, -50], [55, -50]]}, {"xy": [[100, -100], [110, -100]]}]}]})";

TEST(NestImport, turnsMillimetresDownwardsIntoCentimetresUpwards)
{
    PatternDocument document;
    DocumentReport report;
    ASSERT_TRUE(importNest(kSquare, document, &report)) << report.error.toStdString();

    const CDbGroupObject *square = document.pieces().front();
    const GabaritObject *gabarit = square->firstGabarit();
    ASSERT_EQ(gabarit->contourCount(), 5); // four corners and the notch that splits the first edge
    EXPECT_EQ(*gabarit->gabaritGetContourVector(3), GeoPoint2D(10, 0));
    EXPECT_EQ(*gabarit->gabaritGetContourVector(4), GeoPoint2D(10, 10));
    EXPECT_EQ(gabarit->gabaritGetContourVector(4)->positionInSize(2, document.gradationData()),
              GeoPoint2D(11, 10));
    EXPECT_EQ(square->notches().size(), 2U); // on the split edge and on a corner
    EXPECT_EQ(square->drillHoles().size(), 1U);
    EXPECT_EQ(*square->drillHoles().front().place, GeoPoint2D(5, 5));
}

struct Mistake {
    const char *from;
    const char *to;
    const char *error;
};

TEST(NestImport, namesTheKeyAtFaultAndLeavesTheDocumentAlone)
{
    const Mistake mistakes[] = {
        {"\"mm\"", "\"inch\"", "unit: is neither mm nor cm"},
        {"\"base\": \"1\"", "\"base\": \"3\"", "base: is none of the sizes"},
        {"[\"1\", \"2\"]", "[\"1\", \"1\"]", "sizes: must differ"},
        {"[100, 0], ", "", "pieces[0].edges[0].xy: is not there for every size"},
        {"[110, 0]", "[110]", "pieces[0].edges[0].xy[1]: is not a pair of numbers"},
        {"\"type\": \"line\"", "\"type\": \"arc\"", "pieces[0].edges[0].type: is neither line nor curve"},
        {"\"type\": \"line\"", "\"type\": \"curve\"", "pieces[0].edges[0].cp1: is missing"},
        {"[110, 0]", "[1e9, 0]", "pieces[0]: Square: A place is not a finite one within 10 km."},
        {"\"to\": \"b\"", "\"to\": \"aTip\"", nullptr}, // a dart without more to it still makes a piece
        {"\"edges\"", "\"edge\"", "pieces[0]: Square: The seam line has no edge."},
    };
    PatternDocument document;
    ASSERT_TRUE(importNest(kSquare, document));
    const QByteArray before = documentToText(document);
    for (const Mistake &mistake : mistakes) {
        QByteArray wrong(kSquare);
        const int place = wrong.indexOf(mistake.from);
        ASSERT_GE(place, 0) << mistake.from;
        wrong.replace(place, static_cast<int>(qstrlen(mistake.from)), mistake.to);
        DocumentReport report;
        PatternDocument tried;
        EXPECT_EQ(importNest(wrong, mistake.error ? document : tried, &report), mistake.error == nullptr);
        EXPECT_EQ(report.error.toStdString(), mistake.error ? mistake.error : "");
    }
    EXPECT_TRUE(documentToText(document) == before);
}

} // namespace
