// Darts, curves, pleats, mirrors and marks of known pieces.

#include <support/Pieces.h>

#include <gtest/gtest.h>

#include <cmath>

using namespace VorSystem;
using support::Piece;

namespace
{

std::string str(const GeoPoint2D &p)
{
    char text[80];
    std::snprintf(text, sizeof text, "%.3f %.3f", p.x(), p.y());
    return text;
}

// A small outline for darts: the three vectors of a mouth from (0, 0) to (4, 0), and a point at (2, 20).
std::vector<CDbPointVOR *> mouthAndPoint(GabaritObject &outline)
{
    std::vector<CDbPointVOR *> vectors;
    for (const GeoPoint2D &place :
         {GeoPoint2D(0, 0), GeoPoint2D(2, -0.5), GeoPoint2D(4, 0), GeoPoint2D(2, 20)})
        vectors.push_back(outline.addContourVector(place));
    return vectors;
}

// A 40 x 60 rectangle whose lower edge, 40 long, has a dart mouth from 18 to 22 with its pivot at (20, 15).
class DartedRectangle : public testing::Test
{
protected:
    DartedRectangle() : group(new CDbGroupObject), gabarit(group->newGabarit())
    {
        const double places[][2] = {{0, 0}, {18, 0}, {20, -0.5}, {22, 0}, {40, 0}, {40, 60}, {0, 60}};
        for (const auto &place : places)
            v.push_back(gabarit->addContourVector(GeoPoint2D(place[0], place[1])));
        pivot = group->addOwnVector(GeoPoint2D(20, 15));
        dart = group->addDart(gabarit, v[1], v[2], v[3], pivot);
    }

    std::unique_ptr<CDbGroupObject> group;
    GabaritObject *gabarit;
    std::vector<CDbPointVOR *> v;
    CDbPointVOR *pivot = nullptr;
    DartContour *dart = nullptr;
};

} // namespace

TEST_F(DartedRectangle, legsSewnTogetherAreExactlyZeroApart)
{
    EXPECT_EQ(gabarit->contourLengthWithoutDeadZones(v[1], v[3]), 0.0);
    EXPECT_EQ(gabarit->contourLengthWithoutDeadZones(v[0], v[4]), 36.0);
    EXPECT_EQ(gabarit->getContourLength(v[4], v[0], v[0], false), 36.0);
    EXPECT_EQ(gabarit->getContourLength(v[0], v[5], v[4], true), 36.0);
    EXPECT_EQ(gabarit->getContourLength(v[0], v[5], pivot, true), 96.0); // a third vector off the contour
}

TEST_F(DartedRectangle, aMeasureLeavesTheDartOutAndALevelDoesNot)
{
    CDbPointVOR *left = group->addOwnVector(GeoPoint2D(0, 7.5));
    CDbPointVOR *right = group->addOwnVector(GeoPoint2D(40, 7.5));
    EXPECT_EQ(gabarit->measureBetween(group.get(), left, right, false), 40.0);
    EXPECT_NEAR(gabarit->measureBetween(group.get(), left, right, true), 38.0, 1e-12);
    EXPECT_NEAR(gabarit->measureBetween(group.get(), right, left, true), 38.0, 1e-12);
    EXPECT_NEAR(gabarit->measureBetween(group.get(), v[0], v[5], true), v[0]->distance(*v[5]), 10.0);
    EXPECT_NEAR(gabarit->measureBetween(group.get(), v[1], v[3], true), 4.0, 1e-12);
    EXPECT_NEAR(gabarit->measureBetween(group.get(), pivot, left, true), pivot->distance(*left), 1e-12);
}

TEST_F(DartedRectangle, aMeasureInsideADartIsNothingAndTwoDartsTakeNoPartTwice)
{
    CDbPointVOR *left = group->addOwnVector(GeoPoint2D(19.5, 5));
    CDbPointVOR *right = group->addOwnVector(GeoPoint2D(20.5, 5));
    EXPECT_EQ(gabarit->measureBetween(group.get(), left, right, true), 0.0);
    EXPECT_EQ(gabarit->measureBetween(group.get(), left, right, false), 1.0);

    // A second dart, narrower and longer, over the first.
    CDbPointVOR *one = gabarit->addContourVector(GeoPoint2D(19, 0));
    CDbPointVOR *other = gabarit->addContourVector(GeoPoint2D(21, 0));
    CDbPointVOR *tip = group->addOwnVector(GeoPoint2D(20, 30));
    ASSERT_NE(group->addDart(gabarit, one, nullptr, other, tip), nullptr);
    CDbPointVOR *west = group->addOwnVector(GeoPoint2D(0, 7.5));
    CDbPointVOR *east = group->addOwnVector(GeoPoint2D(40, 7.5));
    EXPECT_NEAR(gabarit->measureBetween(group.get(), west, east, true), 38.0, 1e-12); // 1.5 lies within 2
}

TEST_F(DartedRectangle, aMouthMovesRigidlyAndSharesOneFallOff)
{
    gabarit->moveVectorContourBetween(v[0], v[4], v[4], 3.6, 0.0, true);
    EXPECT_EQ(str(*v[0]), "0.000 0.000");
    EXPECT_EQ(str(*v[1]), "19.800 0.000");
    EXPECT_EQ(str(*v[2]), "21.800 -0.500");
    EXPECT_EQ(str(*v[3]), "23.800 0.000");
    EXPECT_EQ(str(*v[4]), "43.600 0.000");
}

TEST_F(DartedRectangle, slidingClosesTheDartsOnTheWayAndOpensThemAgain)
{
    const GeoPoint2D axisA(0, 0);
    const GeoPoint2D axisB(0, 1);
    ASSERT_TRUE(gabarit->moveVectorAlongContour(v[0], v[4], v[0], &axisA, &axisB, 3.6));
    EXPECT_EQ(str(*v[1]), "19.800 0.000");
    EXPECT_EQ(str(*v[3]), "23.800 0.000");
    EXPECT_EQ(str(*v[4]), "43.600 0.000");
    ASSERT_TRUE(gabarit->moveVectorAlongContour(v[0], v[4], v[0], &axisA, &axisB, -3.6));
    EXPECT_EQ(str(*v[4]), "40.000 0.000");
    EXPECT_FALSE(gabarit->moveVectorAlongContour(v[0], v[4], v[0], &axisA, &axisB, 36.1))
        << "twice is the most";
    EXPECT_FALSE(gabarit->moveVectorAlongContour(v[0], v[4], v[0], &axisA, &axisB, -41.0));
    EXPECT_EQ(str(*v[4]), "40.000 0.000");
}

TEST_F(DartedRectangle, aStretchOfALengthIsWrittenAsDisplacementsAlone)
{
    gabarit->setStretchLength(v[0], v[4], 72.0, true, true);
    EXPECT_FLOAT_EQ(v[1]->mDisplacementX, 18.0F);
    EXPECT_FLOAT_EQ(v[2]->mDisplacementX, 18.0F);
    EXPECT_FLOAT_EQ(v[3]->mDisplacementX, 18.0F);
    EXPECT_FLOAT_EQ(v[4]->mDisplacementX, 36.0F);
    EXPECT_EQ(v[0]->mDisplacementX, 0.0F);
    EXPECT_EQ(str(*v[4]), "40.000 0.000");
    // Behind it, and without clearing what the main stretch wrote.
    gabarit->setStretchLength(v[4], v[5], 30.0, true, false);
    EXPECT_FLOAT_EQ(v[5]->mDisplacementY, -30.0F);
    EXPECT_FLOAT_EQ(v[3]->mDisplacementX, 18.0F);
}

TEST_F(DartedRectangle, aRebuildBringsPivotAndCapToTheMiddleOfTheMouth)
{
    ASSERT_TRUE(dart->mLegsMadeEqual);
    *v[3] = GeoPoint2D(24, 0);
    group->againObjects(false, nullptr);
    EXPECT_EQ(str(*pivot), "21.000 15.000");
    EXPECT_EQ(str(*v[2]), "21.000 -0.500");
    dart->mLegsMadeEqual = false;
    *v[3] = GeoPoint2D(26, 0);
    group->againObjects(false, nullptr);
    EXPECT_EQ(str(*pivot), "21.000 15.000");
    EXPECT_EQ(v[2]->mVectorKind, Vector_DartCap);
}

TEST_F(DartedRectangle, innerLegVectorsKeepTheirShapeInTheLineFromPivotToLegEnd)
{
    CDbGroupObject &other = *group;
    GabaritObject *second = other.newGabarit();
    const std::vector<CDbPointVOR *> w = mouthAndPoint(*second);
    CDbPointVOR *tip = other.addOwnVector(GeoPoint2D(2, 10));
    CDbPointVOR *inner = other.addOwnVector(GeoPoint2D(0.5, 5));
    CDbPointVOR *bend = other.addOwnVector(GeoPoint2D(3.5, 5));
    LineObject *curve = other.addCurve({tip, bend, w[2]});
    LineObject *upper = other.addLine(tip, inner);
    LineObject *lower = other.addLine(inner, w[0]);
    DartContour *bent =
        other.addDart(second, w[0], w[1], w[2], tip, std::vector<LineObject *>{upper, lower}, {curve});
    ASSERT_NE(bent, nullptr);
    EXPECT_EQ(inner->mVectorKind, Vector_DartInner);
    EXPECT_EQ(bend->mVectorKind, Vector_DartInner);
    EXPECT_TRUE(bent->mLegsMadeEqual);

    CDbPointVOR *end = nullptr;
    EXPECT_EQ(other.pICGetLineNext(upper, inner, &end), lower);
    EXPECT_EQ(end, w[0]);
    EXPECT_EQ(other.pICGetLineNext(lower, w[0], &end), nullptr);
    EXPECT_EQ(end, nullptr);
    EXPECT_EQ(other.pICGetLineNext(curve, w[2], &end), nullptr);

    // The pivot only ends its curved leg: it is no point inside a curve.
    EXPECT_FALSE(other.isVectorInGroupCurve(tip, true, true, true, false, nullptr, nullptr, nullptr));
    EXPECT_TRUE(other.isVectorInGroupCurve(bend, true, true, true, false, nullptr, nullptr, nullptr));

    for (CDbPointVOR *v1 : {w[0], w[2], tip}) // twice as large
        *v1 = GeoPoint2D(2.0 * v1->x(), 2.0 * v1->y());
    other.againObjects(false, nullptr);
    EXPECT_EQ(str(*inner), "1.000 10.000");
    EXPECT_EQ(str(*bend), "7.000 10.000");
    EXPECT_NEAR(bent->legLength(0), bent->legLength(1), 1e-9);
}

TEST_F(DartedRectangle, dependentsOfADartTakeTheMeanDisplacementOfItsLegs)
{
    CDbGroupObject other;
    GabaritObject *outline = other.newGabarit();
    const std::vector<CDbPointVOR *> w = mouthAndPoint(*outline);
    CDbPointVOR *tip = other.addOwnVector(GeoPoint2D(2, 10));
    CDbPointVOR *inner = other.addOwnVector(GeoPoint2D(0.5, 5));
    ASSERT_NE(other.addDart(outline, w[0], w[1], w[2], tip, {inner}, {}), nullptr);
    w[0]->mDisplacementX = 2.0F;
    w[2]->mDisplacementX = 4.0F;
    w[2]->mDisplacementY = -1.0F;

    outline->pICCtlGabStandardizeEvolutions();

    for (const CDbPointVOR *dependent : {w[1], tip, inner}) {
        EXPECT_EQ(dependent->mDisplacementX, 3.0F);
        EXPECT_EQ(dependent->mDisplacementY, -0.5F);
    }
    EXPECT_EQ(w[0]->mDisplacementX, 2.0F);
    EXPECT_EQ(w[3]->mDisplacementX, 0.0F);
    EXPECT_EQ(str(*inner), "0.500 5.000"); // nothing moves
}

TEST_F(DartedRectangle, aLegKeepsTheShapeThatItHasInEachSize)
{
    CDbGroupObject other;
    GabaritObject *outline = other.newGabarit();
    const std::vector<CDbPointVOR *> w = mouthAndPoint(*outline);
    CDbPointVOR *tip = other.addOwnVector(GeoPoint2D(2, 10));
    const RegularSteps outwards{{0.25, 0.0}, {-0.25, 0.0}};
    CDbPointVOR *inner = other.addOwnVector(GeoPoint2D(0.5, 5), Vector_Corner, &outwards);
    DartContour *bent = other.addDart(outline, w[0], w[1], w[2], tip, {inner}, {});
    ASSERT_NE(bent, nullptr);
    ASSERT_FALSE(bent->mLegsMadeEqual);
    const GradationData sizes(3, 2);

    for (CDbPointVOR *end : {w[0], tip}) // twice as large in every size
        *end = GeoPoint2D(2.0 * end->x(), 2.0 * end->y());
    other.againObjects(true, &sizes);

    EXPECT_EQ(str(inner->positionInSize(1, &sizes)), "1.500 10.000");
    EXPECT_EQ(str(inner->positionInSize(2, &sizes)), "1.000 10.000");
    EXPECT_EQ(str(inner->positionInSize(3, &sizes)), "0.500 10.000");
}

TEST_F(DartedRectangle, aMouthThatIsNoneIsRefusedAndLeavesNoLineBehind)
{
    const std::size_t lines = group->lines().size();
    EXPECT_EQ(group->addDart(gabarit, v[3], v[2], v[1], pivot), nullptr);
    EXPECT_EQ(group->addDart(gabarit, v[4], v[5], v[0], pivot), nullptr);
    EXPECT_EQ(group->addDart(gabarit, v[4], v[5], pivot, pivot), nullptr);
    EXPECT_EQ(group->addDart(gabarit, v[4], v[5], v[6], nullptr), nullptr);
    EXPECT_EQ(group->addDart(nullptr, v[4], v[5], v[6], pivot), nullptr);
    EXPECT_EQ(group->lines().size(), lines);
}

TEST_F(DartedRectangle, aLegThatMeetsAVectorTwiceOrSharesALineIsNone)
{
    GabaritObject *second = group->newGabarit();
    const std::vector<CDbPointVOR *> w = mouthAndPoint(*second);
    CDbPointVOR *tip = group->addOwnVector(GeoPoint2D(2, 10));
    CDbPointVOR *inner = group->addOwnVector(GeoPoint2D(1, 5));
    using Leg = std::vector<LineObject *>;
    const auto line = [&](CDbPointVOR *a, CDbPointVOR *b) { return group->addLine(a, b); };
    const auto refused = [&](const Leg &first, const Leg &other) {
        return group->addDart(second, w[0], w[1], w[2], tip, first, other) == nullptr;
    };
    LineObject *right = line(tip, w[2]);
    LineObject *shared = line(tip, inner);

    EXPECT_TRUE(refused({line(tip, w[0]), line(w[0], inner), line(inner, w[0])}, {right}));
    EXPECT_TRUE(refused({line(tip, inner), line(inner, tip), line(tip, w[0])}, {right}));
    EXPECT_TRUE(refused({group->addCurve({tip, inner, tip}), line(tip, w[0])}, {right}));
    EXPECT_TRUE(refused({shared, line(inner, w[0])}, {shared, line(inner, w[2])}));
    EXPECT_TRUE(refused({dart->leg(0).front(), line(v[1], w[0])}, {right}));
    LineObject strange(tip, w[0]);
    EXPECT_TRUE(refused({&strange}, {right})) << "no line of the group";
    EXPECT_EQ(second->mFirstDart, nullptr);
    EXPECT_FALSE(refused({shared, line(inner, w[0])}, {right}));
    EXPECT_TRUE(refused({line(tip, w[0])}, {right})) << "a line of this dart already";
}

TEST_F(DartedRectangle, legsEqualInTheNestAloneAreNotKeptEqual)
{
    GabaritObject *second = group->newGabarit();
    const std::vector<CDbPointVOR *> w = mouthAndPoint(*second);
    CDbPointVOR *tip = group->addOwnVector(GeoPoint2D(2, 10));
    const RegularSteps outwards{{0.0, 0.0}, {-1.0, 0.0}};
    CDbPointVOR *bending = group->addOwnVector(GeoPoint2D(0.5, 5), Vector_DartInner, &outwards);
    CDbPointVOR *stiff = group->addOwnVector(GeoPoint2D(3.5, 5), Vector_DartInner);

    const DartContour *bent = group->addDart(second, w[0], w[1], w[2], tip, {bending}, {stiff});

    ASSERT_NE(bent, nullptr);
    EXPECT_EQ(bent->legLength(0), bent->legLength(1));
    EXPECT_FALSE(bent->mLegsMadeEqual);
}

TEST_F(DartedRectangle, aTipOnTheContourIsADartToo)
{
    DartContour *flat = group->addDart(gabarit, v[4], v[5], v[6], v[0]);
    ASSERT_NE(flat, nullptr);
    *v[0] = GeoPoint2D(v[4]->x(), v[4]->y());
    group->againObjects(false, nullptr);
    for (const CDbPointVOR *each : v)
        EXPECT_TRUE(std::isfinite(each->x()) && std::isfinite(each->y()));
}

TEST(Curves, theFlagsChooseBetweenContourAndInsideBetweenInnerPointsAndEnds)
{
    const Piece piece = support::bodiceWithDart();
    CDbGroupObject &group = *piece.group;
    CDbPointVOR *a = group.addOwnVector(GeoPoint2D(5, 20));
    CDbPointVOR *b = group.addOwnVector(GeoPoint2D(8, 24));
    CDbPointVOR *c = group.addOwnVector(GeoPoint2D(12, 25));
    LineObject *inside = group.addCurve({a, b, c});
    const LineObject *armhole = group.lines().front();

    GabaritObject *gabarit = nullptr;
    LineObject *line = nullptr;
    CurveObject *curve = nullptr;
    EXPECT_TRUE(group.isVectorInGroupCurve(piece.at(7), true, true, true, false, &gabarit, &line, &curve));
    EXPECT_EQ(gabarit, piece.gabarit);
    EXPECT_EQ(line, armhole);
    EXPECT_EQ(curve, armhole->getCurveLine());
    EXPECT_FALSE(group.isVectorInGroupCurve(piece.at(7), false, true, true, true, &gabarit, &line, &curve));
    EXPECT_EQ(line, nullptr);
    EXPECT_FALSE(group.isVectorInGroupCurve(piece.at(5), true, true, true, false, nullptr, nullptr, nullptr));
    EXPECT_TRUE(group.isVectorInGroupCurve(piece.at(5), true, true, false, true, nullptr, nullptr, nullptr));
    EXPECT_TRUE(group.isVectorInGroupCurve(b, false, true, true, false, &gabarit, &line, nullptr));
    EXPECT_EQ(gabarit, nullptr);
    EXPECT_EQ(line, inside);
    EXPECT_TRUE(
        group.isVectorInGroupCurve(curve ? curve->firstHandle() : inside->getCurveLine()->firstHandle(), true,
                                   true, true, false, nullptr, nullptr, nullptr));
    EXPECT_FALSE(group.isVectorInGroupCurve(piece.dart->mPivotVector, true, true, true, false, nullptr,
                                            nullptr, nullptr));
}

TEST(Curves, aHandleBelongsToAStretchThatHoldsItsWholeCurve)
{
    const Piece piece = support::bodiceWithDart();
    const CurveObject *armhole = piece.group->lines().front()->getCurveLine();
    const CDbPointVOR *handle = armhole->firstHandle();
    CurveObject *found = nullptr;
    EXPECT_TRUE(piece.gabarit->isControlCurveBetween(handle, piece.at(5), piece.at(9), true, &found));
    EXPECT_EQ(found, armhole);
    EXPECT_TRUE(piece.gabarit->isControlCurveBetween(handle, piece.at(10), piece.at(4), false, &found));
    EXPECT_FALSE(piece.gabarit->isControlCurveBetween(handle, piece.at(6), piece.at(9), true, &found));
    EXPECT_EQ(found, nullptr);
    // All the way round, but leaving through the middle of the curve.
    EXPECT_FALSE(piece.gabarit->isControlCurveBetween(handle, piece.at(7), piece.at(6), true, &found));
    EXPECT_FALSE(piece.gabarit->isControlCurveBetween(piece.at(7), piece.at(5), piece.at(9), true, &found));
}

TEST(Curves, pointsCountFromOneAndHandlesLieOnTheFirstThird)
{
    const Piece piece = support::bodiceWithDart();
    CurveObject *armhole = piece.group->lines().front()->getCurveLine();
    EXPECT_EQ(armhole->pointCount(), 5);
    EXPECT_EQ(armhole->getCurvePointByIndex(1), piece.at(5));
    EXPECT_EQ(armhole->getCurvePointByIndex(5), piece.at(9));
    EXPECT_EQ(armhole->getCurvePointByIndex(0), nullptr);
    EXPECT_EQ(armhole->getCurvePointByIndex(6), nullptr);
    EXPECT_EQ(str(*armhole->firstHandle()), "23.000 20.500");
    *piece.at(6) = GeoPoint2D(24.0, 23.0);
    piece.gabarit->recalculateCurves(piece.at(6), piece.at(6));
    EXPECT_EQ(str(*armhole->firstHandle()), "24.000 21.000");
    piece.at(5)->mDisplacementX = 3.0F;
    piece.at(6)->mDisplacementX = 6.0F;
    piece.group->grStandardizeEvolutions();
    EXPECT_EQ(armhole->firstHandle()->mDisplacementX, 4.0F);
    EXPECT_EQ(armhole->lastHandle()->mDisplacementX, 0.0F);
    const LineObject *line = piece.group->lines().front();
    EXPECT_EQ(line->otherVectorLine(piece.at(5)), piece.at(9));
    EXPECT_EQ(line->otherVectorLine(piece.at(6)), nullptr);
}

TEST(Pleats, aPleatVectorFollowsItsEdgeInEverySize)
{
    const Piece piece = support::rectangle(40, 60, 1, 1.0);
    const GradationData sizes = support::sevenSizes();
    CDbPointVOR *far = piece.group->addPleatVector(piece.at(0), 0.75);
    CDbPointVOR *near = piece.group->addPleatVector(piece.at(0), 0.25);
    ASSERT_NE(near, nullptr);
    EXPECT_EQ(near->mNextVector, far);
    EXPECT_EQ(str(near->positionInSize(7, &sizes)), "10.750 0.000");
    EXPECT_EQ(piece.group->addPleatVector(near, 0.5), nullptr);
    EXPECT_EQ(piece.group->addPleatVector(piece.at(0), 1.5), nullptr);

    *piece.at(1) = GeoPoint2D(80, 0);
    piece.group->againObjects(true, &sizes);
    EXPECT_EQ(str(*near), "20.000 0.000");
    EXPECT_EQ(str(near->positionInSize(7, &sizes)), "20.750 0.000");
    piece.at(0)->mDisplacementX = 4.0F;
    piece.gabarit->PLI_ctlGabStandardizeEvolutions();
    EXPECT_EQ(near->mDisplacementX, 3.0F);
    EXPECT_EQ(far->mDisplacementX, 1.0F);
}

TEST(Pleats, aCurveHasNone)
{
    const Piece piece = support::bodiceWithDart();
    EXPECT_EQ(piece.group->addPleatVector(piece.at(5), 0.5), nullptr);
    EXPECT_EQ(piece.group->addPleatVector(piece.at(8), 0.5), nullptr);
    EXPECT_NE(piece.group->addPleatVector(piece.at(9), 0.5), nullptr); // the shoulder between two curves
}

TEST(MirrorOfAPiece, aMoveOfOneHalfIsSharedByBoth)
{
    const Piece piece = support::mirroredBack();
    CDbPointVOR *right = piece.at(4);
    CDbPointVOR *left = piece.at(14);
    *right = GeoPoint2D(right->x() + 2.0, right->y());
    piece.group->againObjects(false, nullptr);
    EXPECT_EQ(str(*right), "23.000 0.000");
    EXPECT_EQ(str(*left), "-23.000 0.000");
    *piece.at(0) = GeoPoint2D(0.5, 1.0);
    right->mDisplacementX = 2.0F;
    piece.group->grStandardizeEvolutions();
    piece.group->againObjects(false, nullptr);
    EXPECT_EQ(str(*piece.at(0)), "0.000 1.000");
    EXPECT_EQ(right->mDisplacementX, 1.0F);
    EXPECT_EQ(left->mDisplacementX, -1.0F);
}

TEST(MirrorOfAPiece, sidesAreRecordedOrTakenFromThePlace)
{
    const Piece piece = support::mirroredBack();
    Mirror *mirror = piece.group->mMirror;
    EXPECT_EQ(mirror->getTagByID(*piece.at(4)), Mirror::Mirror_Side2);
    EXPECT_EQ(mirror->getTagByID(*piece.at(14)), Mirror::Mirror_Side1);
    EXPECT_EQ(mirror->getTagByID(*piece.at(0)), Mirror::Mirror_Undecided);
    EXPECT_EQ(mirror->getGeometricTag(*piece.at(0)), Mirror::Mirror_Side1);
    EXPECT_EQ(mirror->getGeometricTag(*piece.at(4)), Mirror::Mirror_Side2);
    EXPECT_EQ(mirror->imageOf(piece.at(4)), piece.at(14));
    EXPECT_FALSE(mirror->addPair(piece.at(4), piece.at(5)));
    EXPECT_FALSE(mirror->addPair(nullptr, piece.at(5)));
    const Piece other = support::rectangle();
    CDbPointVOR *single = piece.group->addOwnVector(GeoPoint2D(3, 3));
    EXPECT_FALSE(mirror->addPair(single, other.at(0)));
    EXPECT_FALSE(mirror->addPair(other.at(0), other.at(1)));
    EXPECT_EQ(mirror->imageOf(single), nullptr);
    EXPECT_TRUE(mirror->addPair(single, single));
    // The neighbour of 8 is on the axis: it is passed over.
    EXPECT_EQ(piece.at(8)->gabaritNeighborContourVector(true), piece.at(9));
    EXPECT_EQ(piece.at(8)->gabaritContourVectorNeighborPoint(true), piece.at(10));
    EXPECT_EQ(piece.group->setMirror(GeoPoint2D(1, 1), GeoPoint2D(1, 1)), nullptr);
    EXPECT_EQ(piece.group->mMirror, mirror);
}

TEST(Marks, aMarkHangsOnWhatItCanHangOn)
{
    const Piece piece = support::skirt();
    CDbGroupObject &group = *piece.group;
    CDbPointVOR *inner = group.addOwnVector(GeoPoint2D(3, 3));
    EXPECT_TRUE(group.addNotch(piece.at(1)));
    EXPECT_FALSE(group.addNotch(inner));
    EXPECT_FALSE(group.addNotch(nullptr));
    EXPECT_TRUE(group.addDrillHole(inner));
    EXPECT_FALSE(group.addDrillHole(piece.at(1)));
    EXPECT_FALSE(group.addGrainLine(piece.at(0), GeoPoint2D(0, 0), 5.0));
    EXPECT_FALSE(group.addGrainLine(piece.at(0), GeoPoint2D(0, 1), -5.0));
    EXPECT_TRUE(group.addGrainLine(inner, GeoPoint2D(3, 4), 5.0));
    EXPECT_EQ(str(group.grainLines().back().direction), "0.600 0.800");
    EXPECT_TRUE(group.addSeamAllowance(piece.at(0), 1.0));
    EXPECT_TRUE(group.addSeamAllowance(piece.at(0), 2.0));
    EXPECT_EQ(group.seamAllowances().size(), 1U);
    EXPECT_EQ(group.seamAllowances().front().width, 2.0);
    EXPECT_FALSE(group.addSeamAllowance(inner, 1.0));
    EXPECT_FALSE(group.addSeamAllowance(piece.at(0), std::nan("")));
    EXPECT_FALSE(group.addInnerLine(inner, inner, InnerLine::Inner));
}

TEST(ShortContours, fewerThanThreeVectorsAreAContourWithoutArea)
{
    for (int count = 0; count < 3; ++count) {
        CDbGroupObject group;
        GabaritObject *gabarit = group.newGabarit();
        std::vector<CDbPointVOR *> v;
        for (int place = 0; place < count; ++place)
            v.push_back(gabarit->addContourVector(GeoPoint2D(10.0 * place, 0.0)));
        bool onBorder = true;
        EXPECT_FALSE(gabarit->isInPolygon(GeoPoint2D(5.0, 5.0), &onBorder));
        EXPECT_FALSE(onBorder);
        EXPECT_EQ(gabarit->area(), 0.0);
        group.againObjects(false, nullptr);
        if (count > 0) {
            EXPECT_EQ(v[0]->gabaritNeighborContourVector(true), v.back());
            EXPECT_EQ(gabarit->getContourLength(v[0], v.back(), nullptr, true), 10.0 * (count - 1));
        }
    }
}
