// Drafts that make pieces, and drafts that do not.

#include "TestDocument.h"

#include <VorDocument/PieceDraft.h>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <limits>

using namespace VorSystem;
using documents::text;

namespace
{

// The same place in three sizes, the outer ones shifted by a step.
GradedPlace graded(double x, double y, double stepX = 0.0, double stepY = 0.0)
{
    return {GeoPoint2D(x - stepX, y - stepY), GeoPoint2D(x, y), GeoPoint2D(x + stepX, y + stepY)};
}

DraftEdge lineTo(const GradedPlace &to)
{
    DraftEdge edge;
    edge.to = to;
    return edge;
}

DraftEdge curveTo(const GradedPlace &control1, const GradedPlace &control2, const GradedPlace &to)
{
    DraftEdge edge = lineTo(to);
    edge.control1 = control1;
    edge.control2 = control2;
    return edge;
}

// Three sizes; a panel of 20 x 30 cm that grows to the right, with a waist dart at the top and a curved side.
class PieceDraftTest : public testing::Test
{
protected:
    PieceDraftTest()
    {
        document.setSizes({text("S"), text("M"), text("L")}, 2);
        draft.name = text("Panel");
        draft.start = graded(0.0, 0.0);
        draft.edges = {lineTo(graded(20.0, 0.0, 1.0)),
                       curveTo(graded(24.0, 10.0, 1.0), graded(24.0, 20.0, 1.0), graded(20.0, 30.0, 1.0)),
                       lineTo(graded(12.0, 30.0, 0.5)),
                       lineTo(graded(10.0, 20.0, 0.5)),
                       lineTo(graded(8.0, 30.0, 0.5)),
                       lineTo(graded(0.0, 30.0))};
        draft.edges[3].endsInDartTip = true;
    }

    std::string errorOf(const PieceDraft &wrong)
    {
        QString error;
        EXPECT_EQ(buildPiece(document, wrong, &error), nullptr);
        EXPECT_TRUE(document.pieces().empty());
        return error.toStdString();
    }

    PatternDocument document;
    PieceDraft draft;
};

TEST_F(PieceDraftTest, makesAContourWithADartAndACurve)
{
    const CDbGroupObject *piece = buildPiece(document, draft);

    ASSERT_NE(piece, nullptr);
    const GabaritObject *gabarit = piece->firstGabarit();
    const DartContour *dart = gabarit->mFirstDart;
    ASSERT_NE(dart, nullptr);
    EXPECT_EQ(*dart->mPivotVector, GeoPoint2D(10.0, 20.0));
    EXPECT_EQ(*dart->pICGetVector(Dart_FirstLeg), GeoPoint2D(12.0, 30.0));
    EXPECT_EQ(*dart->pICGetVector(Dart_Cap), GeoPoint2D(10.0, 30.5));
    EXPECT_EQ(*dart->pICGetVector(Dart_SecondLeg), GeoPoint2D(8.0, 30.0));
    EXPECT_TRUE(dart->mLegsMadeEqual);
    EXPECT_EQ(piece->lines().front()->getCurveLine()->contour(), gabarit);
}

TEST_F(PieceDraftTest, isRegularWhereTheStepsAllow)
{
    draft.edges[0].to[2].mX += 0.25;
    const CDbGroupObject *piece = buildPiece(document, draft);

    const GabaritObject *gabarit = piece->firstGabarit();
    EXPECT_EQ(gabarit->mFirstVector->mIrregularGradation, nullptr);
    // A step to each side: three sizes are always regular. Five are not.
    EXPECT_EQ(gabarit->gabaritGetContourVector(2)->mIrregularGradation, nullptr);
    EXPECT_DOUBLE_EQ(gabarit->gabaritGetContourVector(2)->regularSteps().large.x, 1.25);
    EXPECT_DOUBLE_EQ(gabarit->gabaritGetContourVector(2)->regularSteps().small.x, -1.0);

    PatternDocument five;
    five.setSizes({text("1"), text("2"), text("3"), text("4"), text("5")}, 3);
    PieceDraft irregular;
    const auto corner = [](double x, double y, double jump) {
        return GradedPlace{{x, y}, {x, y}, {x, y}, {x, y}, {x + jump, y}};
    };
    irregular.start = corner(0.0, 0.0, 0.0);
    irregular.edges = {lineTo(corner(9.0, 0.0, 1.0)), lineTo(corner(9.0, 9.0, 0.0))};
    const GabaritObject *triangle = buildPiece(five, irregular)->firstGabarit();
    EXPECT_NE(triangle->gabaritGetContourVector(2)->mIrregularGradation, nullptr);
    EXPECT_EQ(triangle->gabaritGetContourVector(3)->mIrregularGradation, nullptr);
}

TEST_F(PieceDraftTest, beginsBehindADartThatWasCutByTheStart)
{
    // The same outline from the tip of the dart on.
    PieceDraft turned = draft;
    turned.start = draft.edges[3].to;
    turned.edges = {draft.edges[4], draft.edges[5], lineTo(draft.start), draft.edges[0],
                    draft.edges[1], draft.edges[2], draft.edges[3]};
    const GabaritObject *straight = buildPiece(document, draft)->firstGabarit();
    const GabaritObject *shifted = buildPiece(document, turned)->firstGabarit();

    EXPECT_EQ(shifted->contourCount(), straight->contourCount());
    ASSERT_NE(shifted->mFirstDart, nullptr);
    EXPECT_EQ(*shifted->mFirstDart->pICGetVector(Dart_FirstLeg), GeoPoint2D(12.0, 30.0));
    EXPECT_EQ(
        shifted->contourLengthWithoutDeadZones(shifted->mFirstVector, shifted->gabaritGetContourVector(3)),
        8.0 + 30.0);
}

TEST_F(PieceDraftTest, keepsBothVectorsOfAnEdgeWithoutLength)
{
    draft.edges.insert(draft.edges.begin() + 1, lineTo(draft.edges[0].to));
    const GabaritObject *gabarit = buildPiece(document, draft)->firstGabarit();

    EXPECT_EQ(*gabarit->gabaritGetContourVector(2), *gabarit->gabaritGetContourVector(3));
}

TEST_F(PieceDraftTest, splitsACurveAtANotchInEachSizeAtItsOwnParameter)
{
    // Points of the curve at the parameters 0.4, 0.5 and 0.6 of the three sizes.
    draft.marks = {{GeoPoint2D(21.88, 12.0), GeoPoint2D(23.0, 15.0), GeoPoint2D(23.88, 18.0)}};
    const CDbGroupObject *piece = buildPiece(document, draft);

    ASSERT_EQ(piece->notches().size(), 1U);
    EXPECT_TRUE(piece->drillHoles().empty());
    const CDbPointVOR *notch = piece->notches().front().place;
    for (short size = 1; size <= 3; ++size) {
        EXPECT_LT(notch->positionInSize(size, document.gradationData())
                      .distance(draft.marks[0][static_cast<std::size_t>(size - 1)]),
                  1e-3);
    }
    EXPECT_EQ(piece->lines().size(), 4U); // two curves and two legs
}

TEST_F(PieceDraftTest, saysWhatMakesNoPiece)
{
    const PieceDraft good = draft;
    PieceDraft wrong = good;
    wrong.edges.clear();
    EXPECT_EQ(errorOf(wrong), "Panel: The seam line has no edge.");
    wrong = good;
    wrong.edges.resize(1);
    EXPECT_EQ(errorOf(wrong), "Panel: A contour needs three vectors.");
    wrong = good;
    wrong.edges[1].to.pop_back();
    EXPECT_EQ(errorOf(wrong), "Panel: A place is not given for every size.");
    wrong = good;
    wrong.edges[1].control2.clear();
    EXPECT_EQ(errorOf(wrong), "Panel: A curve needs two control points.");
    for (const double bad :
         {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(), 1e7}) {
        wrong = good;
        wrong.edges[1].control1[0].mX = bad;
        EXPECT_EQ(errorOf(wrong), "Panel: A place is not a finite one within 10 km.");
    }
    wrong = good;
    wrong.edges[4].endsInDartTip = true;
    EXPECT_EQ(errorOf(wrong), "Panel: Two darts share a leg.");
    wrong = good;
    wrong.edges.resize(4);
    wrong.edges.erase(wrong.edges.begin(), wrong.edges.begin() + 2);
    EXPECT_EQ(errorOf(wrong), "Panel: A dart needs a contour around it.");
    wrong = good;
    wrong.marks = {graded(1.0, 1.0)};
    wrong.marks[0].clear();
    EXPECT_EQ(errorOf(wrong), "Panel: A place is not given for every size.");
    wrong = good;
    wrong.chordTolerance = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(errorOf(wrong), "Panel: The tolerances must be positive.");
    wrong = good;
    wrong.edges.assign(40000, lineTo(graded(1.0, 1.0)));
    EXPECT_EQ(errorOf(wrong), "Panel: The contour has too many vectors.");
}

RC_GTEST_FIXTURE_PROP(PieceDraftTest, anyOutlineIsBuiltOrRefusedWithWords, ())
{
    const auto places = [] {
        const auto coordinate = [] { return *rc::gen::inRange(-20, 20) / 2.0; };
        return GradedPlace{
            {coordinate(), coordinate()}, {coordinate(), coordinate()}, {coordinate(), coordinate()}};
    };
    PieceDraft random;
    random.start = places();
    const int count = *rc::gen::inRange(0, 8);
    for (int edge = 0; edge < count; ++edge) {
        random.edges.push_back(*rc::gen::arbitrary<bool>() ? lineTo(places())
                                                           : curveTo(places(), places(), places()));
        random.edges.back().endsInDartTip = *rc::gen::inRange(0, 4) == 0;
    }
    random.marks = {places()};
    random.isMirrored = *rc::gen::arbitrary<bool>();
    random.chordTolerance = 0.01;
    QString error;
    CDbGroupObject *piece = buildPiece(document, random, &error);
    RC_ASSERT((piece == nullptr) == !error.isEmpty());
    if (!piece)
        return;
    piece->againObjects(true, document.gradationData(), true);
    for (const CDbPointVOR *v : support::vectorsOf(piece)) {
        for (short size = 1; size <= 3; ++size) {
            const GeoPoint2D place = v->positionInSize(size, document.gradationData());
            RC_ASSERT(std::isfinite(place.mX) && std::isfinite(place.mY));
        }
    }
    RC_ASSERT(document.removePiece(piece));
}

} // namespace
