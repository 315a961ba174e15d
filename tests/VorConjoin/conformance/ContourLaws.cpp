// Contours: the circle, indices, lengths, and the moves of a stretch.

#include "HostUnderTest.h"

#include <VorGeo/VorGeo.h>
#include <VorJson/VorJson.h>

#include <algorithm>
#include <cmath>

namespace conformance
{

using namespace VorSystem;

namespace
{

class Contour : public PieceLaw
{
protected:
    // Pairs of different anchors that lie some live way apart.
    std::vector<std::pair<CDbPointVOR *, CDbPointVOR *>> stretches() const
    {
        std::vector<std::pair<CDbPointVOR *, CDbPointVOR *>> found;
        const Vectors all = anchors();
        for (std::size_t from = 0; from < all.size(); ++from) {
            for (std::size_t to = 0; to < all.size(); ++to) {
                if (from != to && gabarit->contourLengthWithoutDeadZones(all[from], all[to]) > 1.0)
                    found.emplace_back(all[from], all[to]);
            }
        }
        return found;
    }

    Places contourPlaces() const
    {
        Places found;
        for (const CDbPointVOR *v : contour())
            found.emplace_back(v->x(), v->y());
        return found;
    }

    void restore(const Places &places) const
    {
        const Vectors all = contour();
        for (std::size_t place = 0; place < all.size(); ++place)
            *all[place] = places[place];
    }
};

double axisDistance(const GeoPoint2D &p, const GeoPoint2D &a, const GeoPoint2D &b)
{
    const GeoPoint2D along = b - a;
    const GeoPoint2D off = p - a;
    return std::abs(along.x() * off.y() - along.y() * off.x()) / a.distance(b);
}

} // namespace

TEST_P(Contour, lengthsComeFromCoordinates)
{
    const Vectors all = anchors();
    const double whole = gabarit->contourLengthWithoutDeadZones(all[0], all[1]);
    for (CDbPointVOR *v : contour())
        *v = GeoPoint2D(2.0 * v->x(), 2.0 * v->y());
    EXPECT_NEAR(gabarit->contourLengthWithoutDeadZones(all[0], all[1]), 2.0 * whole, 1e-9);
    EXPECT_EQ(gabarit->measureBetween(group, all[0], all[1], false), all[0]->distance(*all[1]));
    bool onBorder = false;
    EXPECT_TRUE(gabarit->isInPolygon(*all[0], &onBorder));
    EXPECT_TRUE(onBorder);
}

TEST_P(Contour, nStepsEitherSenseReturnToTheStart)
{
    const Vectors all = contour();
    for (CDbPointVOR *start : all) {
        for (const bool forward : {true, false}) {
            CDbPointVOR *seen = start;
            for (std::size_t step = 0; step < all.size(); ++step)
                seen = seen->gabaritNeighborContourVector(forward);
            EXPECT_EQ(seen, start);
        }
    }
    CDbPointVOR *stranger = CDbPointVOR::newVectorObject();
    EXPECT_EQ(stranger->gabaritNeighborContourVector(true), nullptr);
    CDbPointVOR::destroyVectorObject(&stranger);
}

TEST_P(Contour, indicesCountFromOneAndLeadBack)
{
    short index = 0;
    for (CDbPointVOR *v : contour()) {
        EXPECT_EQ(gabarit->gabaritGetContourIndex(v), ++index);
        EXPECT_EQ(gabarit->gabaritGetContourVector(index), v);
    }
    EXPECT_EQ(gabarit->gabaritGetContourVector(0), nullptr);
    EXPECT_EQ(gabarit->gabaritGetContourVector(static_cast<short>(index + 1)), nullptr);
    EXPECT_EQ(gabarit->gabaritGetContourIndex(nullptr), 0);
}

TEST_P(Contour, copiesAreStrangers)
{
    for (CDbPointVOR *v : contour()) {
        CDbPointVOR *copy = v->copyTheVector(0);
        EXPECT_TRUE(copy->Num_ID().toJson() == v->Num_ID().toJson());
        EXPECT_FALSE(gabarit->isVectorContour(copy));
        EXPECT_FALSE(group->isVectorContour(copy, nullptr));
        EXPECT_FALSE(group->isGroupVector(copy));
        EXPECT_EQ(gabarit->gabaritGetContourIndex(copy), 0);
        EXPECT_EQ(gabarit->vectorEquivalentOf(gabarit, copy), nullptr);
        EXPECT_EQ(copy->mNextVector, nullptr);
        CDbPointVOR *found = nullptr;
        EXPECT_TRUE(SeekingObjectVOR::objectAccordingID(group, copy->Num_ID(), &found, true));
        EXPECT_EQ(found, v);
        CDbPointVOR::destroyVectorObject(&copy);
    }
}

TEST_P(Contour, aCopiedPieceKeepsOrderIndicesAndIdentities)
{
    CDbGroupObject *copy = keep(hostUnderTest().copyPiece(group));
    for (const CDbPointVOR *v : vectors()) {
        CDbPointVOR *twin = nullptr;
        ASSERT_TRUE(SeekingObjectVOR::objectAccordingID(copy, v->Num_ID(), &twin, true));
        EXPECT_NE(twin, v);
        EXPECT_TRUE(static_cast<const GeoPoint2D &>(*twin) == static_cast<const GeoPoint2D &>(*v));
        EXPECT_EQ(copy->groupGetVectorIndex(twin), group->groupGetVectorIndex(v));
        GabaritObject *twinGabarit = nullptr;
        if (copy->isVectorContour(twin, &twinGabarit)) {
            EXPECT_EQ(twinGabarit->gabaritGetContourIndex(twin), gabarit->gabaritGetContourIndex(v));
            EXPECT_EQ(gabarit->vectorEquivalentOf(twinGabarit, v), twin);
        }
    }
}

TEST_P(Contour, everyVectorIsWalkedOnceAndAnchorsAloneWithTypeOne)
{
    Vectors all = vectors();
    for (const CDbPointVOR *v : vectors(kAnchorsOnly))
        EXPECT_TRUE(v->mVectorKind == 0 || v->mVectorKind == 1);
    std::sort(all.begin(), all.end());
    EXPECT_EQ(std::adjacent_find(all.begin(), all.end()), all.end());
}

TEST_P(Contour, lengthToBEqualsTheLengthWithoutDeadZonesWhenTheThirdVectorIsB)
{
    for (const auto &[a, b] : stretches())
        EXPECT_EQ(gabarit->getContourLength(a, b, b, true), gabarit->contourLengthWithoutDeadZones(a, b));
}

TEST_P(Contour, aStretchIncludesBothEndsAndTheTwoSensesShareNothingElse)
{
    for (const auto &[a, b] : stretches()) {
        for (const CDbPointVOR *v : contour()) {
            const bool there = gabarit->gabaritVectorBetween2Vectors(v, a, b, true);
            const bool back = gabarit->gabaritVectorBetween2Vectors(v, a, b, false);
            EXPECT_EQ(there && back, v == a || v == b);
            EXPECT_TRUE(there || back);
            EXPECT_EQ(gabarit->isVectorsBetweenTwoPointOfContours(v, a, b, true), there);
        }
    }
}

TEST_P(Contour, theShorterLiveWayIsTheDirection)
{
    for (const auto &[a, b] : stretches()) {
        bool forward = false;
        double length = -1.0;
        gabarit->contourDirection(a, b, &forward, &length);
        const double there = gabarit->getContourLength(a, b, b, true);
        const double back = gabarit->getContourLength(a, b, b, false);
        EXPECT_EQ(forward, there <= back);
        EXPECT_EQ(length, std::min(there, back));
    }
}

TEST_P(Contour, theMeasureIsContinuousWhileTheVectorsMoveAndNeverNegative)
{
    for (const auto &[a, b] : stretches()) {
        const GeoPoint2D start(a->x(), a->y());
        const GeoPoint2D goal(b->x(), b->y());
        const double step = start.distance(goal) / 200.0;
        double before = gabarit->measureBetween(group, a, b, true);
        for (int part = 1; part <= 200; ++part) {
            const double u = part / 200.0;
            *a = GeoPoint2D(start.x() + u * (goal.x() - start.x()), start.y() + u * (goal.y() - start.y()));
            const double now = gabarit->measureBetween(group, a, b, true);
            EXPECT_GE(now, 0.0);
            EXPECT_LE(std::abs(now - before), step + 1e-9);
            before = now;
        }
        *a = start;
    }
}

TEST_P(Contour, aHeldEndKeepsEveryBitAndThePivotMovesByExactlyTheStep)
{
    const Places before = contourPlaces();
    for (const auto &[from, to] : stretches()) {
        for (CDbPointVOR *pivot : {from, to}) {
            CDbPointVOR *other = pivot == from ? to : from;
            const GeoPoint2D pivotPlace(pivot->x(), pivot->y());
            const GeoPoint2D otherPlace(other->x(), other->y());
            gabarit->moveVectorContourBetween(from, to, pivot, 0.7, -1.3, true);
            EXPECT_EQ(pivot->x(), pivotPlace.x() + 0.7);
            EXPECT_EQ(pivot->y(), pivotPlace.y() - 1.3);
            EXPECT_TRUE(static_cast<const GeoPoint2D &>(*other) == otherPlace);
            restore(before);
            gabarit->moveVectorContourBetween(from, to, pivot, 0.7, -1.3, false);
            EXPECT_EQ(other->x(), otherPlace.x() + 0.7);
            restore(before);
        }
    }
}

TEST_P(Contour, vectorsOffTheStretchStayAndThoseOnItFallOffTowardsTheHeldEnd)
{
    const Places before = contourPlaces();
    for (const auto &[from, to] : stretches()) {
        gabarit->moveVectorContourBetween(from, to, from, 2.0, 0.0, true);
        double last = 2.0;
        for (CDbPointVOR *v = from; v != to; v = v->gabaritNeighborContourVector(true)) {
            const double moved =
                v->x() - before[static_cast<std::size_t>(gabarit->gabaritGetContourIndex(v) - 1)].x();
            EXPECT_LE(moved, last + 1e-9);
            EXPECT_GE(moved, -1e-9);
            last = moved;
        }
        for (const CDbPointVOR *v : contour()) {
            if (!gabarit->gabaritVectorBetween2Vectors(v, from, to, true)) {
                EXPECT_TRUE(static_cast<const GeoPoint2D &>(*v) ==
                            before[static_cast<std::size_t>(gabarit->gabaritGetContourIndex(v) - 1)]);
            }
        }
        restore(before);
    }
}

TEST_P(Contour, slidingChangesTheAxisDistanceByTheDistanceAndTheLimitStays)
{
    const GeoPoint2D axisA(0.0, 0.0);
    const GeoPoint2D axisB(0.0, 10.0);
    const Places before = contourPlaces();
    int slid = 0;
    for (const auto &[from, to] : stretches()) {
        for (CDbPointVOR *limit : {from, to}) {
            const CDbPointVOR *end = limit == from ? to : from;
            const GeoPoint2D limitPlace(limit->x(), limit->y());
            for (const double distance : {0.5, -0.5, 3.0, -3.0}) {
                const double was = axisDistance(*end, axisA, axisB);
                if (gabarit->moveVectorAlongContour(from, to, limit, &axisA, &axisB, distance)) {
                    ++slid;
                    EXPECT_NEAR(axisDistance(*end, axisA, axisB), was + distance, 1e-9);
                    EXPECT_TRUE(static_cast<const GeoPoint2D &>(*limit) == limitPlace);
                } else {
                    const Places after = contourPlaces();
                    EXPECT_TRUE(std::equal(after.begin(), after.end(), before.begin()));
                }
                restore(before);
            }
        }
    }
    EXPECT_GT(slid, 0);
}

TEST_P(Contour, aStretchBroughtToALengthConvergesAndAStraightOneArrivesAtOnce)
{
    const Places before = contourPlaces();
    for (const auto &[a, b] : stretches()) {
        bool forward = false;
        double shorter = 0.0;
        gabarit->contourDirection(a, b, &forward, &shorter);
        if (!forward)
            continue; // a stretch goes the shorter way
        const double wanted = 1.1 * gabarit->contourLengthWithoutDeadZones(a, b);
        const bool isStraight = a->gabaritNeighborContourVector(true) == b;
        const int passes = isStraight ? 1 : 100;
        for (int pass = 0; pass < passes; ++pass) {
            gabarit->setStretchLength(a, b, wanted, true, true);
            EXPECT_EQ(a->mDisplacementX, 0.0F);
            EXPECT_EQ(a->mDisplacementY, 0.0F);
            for (CDbPointVOR *v : contour())
                *v = GeoPoint2D(v->x() + double(v->mDisplacementX), v->y() + double(v->mDisplacementY));
        }
        const double tolerance = isStraight ? 1e-7 : 1e-6;
        EXPECT_NEAR(gabarit->contourLengthWithoutDeadZones(a, b), wanted, tolerance * wanted);
        restore(before);
    }
}

TEST_P(Contour, aMainStretchLeavesNoStaleDisplacement)
{
    for (CDbPointVOR *v : contour())
        v->mDisplacementX = v->mDisplacementY = 9.0F;
    const auto [a, b] = stretches().front();
    gabarit->setStretchLength(a, b, gabarit->contourLengthWithoutDeadZones(a, b), true, true);
    for (const CDbPointVOR *v : contour()) {
        EXPECT_NEAR(double(v->mDisplacementX), 0.0, 1e-5);
        EXPECT_NEAR(double(v->mDisplacementY), 0.0, 1e-5);
    }
}

TEST_P(Contour, recalculatingCurvesMovesHandlesAloneAndTwiceEqualsOnce)
{
    disturb(0.4);
    const auto before = bits();
    const Vectors all = vectors();
    gabarit->recalculateCurves(anchors().front(), anchors().back());
    CurveObject::recalculateCurvesControl(group, nullptr);
    const auto once = bits();
    for (std::size_t place = 0; place < all.size(); ++place) {
        if (all[place]->mVectorKind != 4) {
            EXPECT_EQ(once[place], before[place]);
        }
    }
    gabarit->recalculateCurves(anchors().front(), anchors().back());
    CurveObject::recalculateCurvesControl(group, nullptr);
    EXPECT_EQ(bits(), once);
}

TEST_P(Contour, everyPointInsideIsInATriangleOfAnyPointWithTheEdges)
{
    const Vectors all = contour();
    for (int column = -6; column <= 6; ++column) {
        for (int row = -2; row <= 12; ++row) {
            // Corners and points on edges too: borders are where two tolerances could differ.
            const CDbPointVOR *near = all[static_cast<std::size_t>(std::abs(31 * column + row)) % all.size()];
            for (const GeoPoint2D &point :
                 {GeoPoint2D(4.0 * column, 5.0 * row), GeoPoint2D(near->x(), near->y())}) {
                bool onBorder = false;
                if (!gabarit->isInPolygon(point, &onBorder))
                    continue;
                const GeoPoint2D hub(3.0 * row, -2.0 * column);
                bool isCovered = false;
                for (std::size_t place = 0; place < all.size(); ++place) {
                    TripletReal triplet(0, 0, 1);
                    const TrianglePoint triangle(hub, *all[place], *all[(place + 1) % all.size()]);
                    isCovered = isCovered || triangle.contains(point, triplet);
                }
                EXPECT_TRUE(isCovered) << point.x() << ' ' << point.y();
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Host, Contour, testing::ValuesIn(hostUnderTest().pieces()),
                         [](const auto &piece) { return piece.param; });

} // namespace conformance
