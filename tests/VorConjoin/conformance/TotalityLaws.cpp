// Everything is total: null and misplaced arguments get false, null or 0, and change nothing.

#include "HostUnderTest.h"

#include <cmath>
#include <limits>

namespace conformance
{

using namespace VorSystem;

namespace
{

class Totality : public PieceLaw
{
};

} // namespace

TEST_P(Totality, nullAndMisplacedArgumentsGetFalseNullOrZero)
{
    const auto before = bits();
    CDbPointVOR *stranger = CDbPointVOR::newVectorObject();
    const Vectors all = contour();
    const GeoPoint2D axis(0.0, 1.0);
    for (CDbPointVOR *odd : {static_cast<CDbPointVOR *>(nullptr), stranger}) {
        EXPECT_EQ(gabarit->gabaritGetContourIndex(odd), 0);
        EXPECT_FALSE(gabarit->isVectorContour(odd));
        EXPECT_EQ(gabarit->vectorEquivalentOf(gabarit, odd), nullptr);
        EXPECT_FALSE(gabarit->gabaritVectorBetween2Vectors(odd, all[0], all[1], true));
        EXPECT_FALSE(gabarit->gabaritVectorBetween2Vectors(all[0], odd, all[1], true));
        EXPECT_FALSE(gabarit->gabaritVectorBetween2Vectors(all[0], all[1], odd, true));
        EXPECT_FALSE(gabarit->isControlCurveBetween(odd, all[0], all[1], true, nullptr));
        EXPECT_EQ(gabarit->getContourLength(odd, all[0], all[1], true), 0.0);
        EXPECT_EQ(gabarit->getContourLength(all[0], odd, all[1], true), 0.0);
        EXPECT_EQ(gabarit->contourLengthWithoutDeadZones(odd, all[1]), 0.0);
        EXPECT_FALSE(
            gabarit->moveVectorAlongContour(all[0], odd, all[0], &axis, &GeoPoint2D::Point2D_Nul, 1.0));
        gabarit->setStretchLength(all[0], odd, 3.0, true, false);
        gabarit->recalculateCurves(odd, all[0]);
        EXPECT_FALSE(group->isGroupVector(odd));
        EXPECT_EQ(group->groupGetVectorIndex(odd), 0);
        EXPECT_FALSE(group->isVectorContour(odd, nullptr));
        EXPECT_FALSE(group->isVectorInGroupCurve(odd, true, true, true, true, nullptr, nullptr, nullptr));
        EXPECT_EQ(group->pICGetLineNext(nullptr, odd, nullptr), nullptr);
        EXPECT_FALSE(GabaritObject::groupIsVectorInWhichGabarit(group, odd, nullptr));
        EXPECT_FALSE(GabaritObject::groupIsVectorInWhichGabarit(nullptr, all[0], nullptr));
        bool forward = true;
        double length = 7.0;
        gabarit->contourDirection(odd, all[0], &forward, &length);
        EXPECT_FALSE(forward);
        EXPECT_EQ(length, 0.0);
        CDbPointVOR::swapEvolutionMedium(odd, 1);
        CDbPointVOR::recalculateEvolution(odd, 1);
        CDbPointVOR::createEvolutionInOnlyMedium(odd, 1);
    }
    EXPECT_EQ(gabarit->measureBetween(group, nullptr, all[0], true), 0.0);
    gabarit->moveVectorContourBetween(nullptr, nullptr, nullptr, 1.0, 1.0, false);
    CDbPointVOR::destroyVectorObject(nullptr);
    CDbPointVOR::destroyVectorObject(&stranger);
    EXPECT_EQ(bits(), before);
}

TEST_P(Totality, anEndThatIsNotOnTheContourLeavesThePivotToMoveAlone)
{
    const Vectors all = anchors();
    const auto before = placesInEverySize()[static_cast<std::size_t>(nest - 1)];
    CDbPointVOR *pivot = all[1];
    const GeoPoint2D place(pivot->x(), pivot->y());
    gabarit->moveVectorContourBetween(nullptr, pivot, pivot, 1.0, 2.0, false);
    EXPECT_EQ(pivot->x(), place.x() + 1.0);
    gabarit->moveVectorContourBetween(pivot, pivot, pivot, -1.0, -2.0, false);
    const auto after = placesInEverySize()[static_cast<std::size_t>(nest - 1)];
    for (std::size_t at = 0; at < after.size(); ++at)
        EXPECT_NEAR(after[at].distance(before[at]), 0.0, 1e-12);
}

TEST_P(Totality, goalsThatAreNoNumbersMoveNothing)
{
    const auto before = bits();
    const Vectors all = anchors();
    const GeoPoint2D a(0.0, 0.0);
    const GeoPoint2D b(0.0, 1.0);
    for (const double odd : {std::nan(""), std::numeric_limits<double>::infinity(), -1e300}) {
        EXPECT_FALSE(gabarit->moveVectorAlongContour(all[0], all[2], all[0], &a, &b, odd));
        EXPECT_FALSE(gabarit->moveVectorAlongContour(all[0], all[2], all[0], &a, &a, 1.0));
        if (!std::isfinite(odd)) {
            gabarit->setStretchLength(all[0], all[2], odd, true, true);
            EXPECT_EQ(all[2]->mDisplacementX, 0.0F);
            EXPECT_EQ(all[2]->mDisplacementY, 0.0F);
        }
    }
    EXPECT_EQ(bits(), before);
}

TEST_P(Totality, lengthsBeyondWhatADisplacementHoldsGiveNone)
{
    const Vectors all = anchors();
    for (const double length : {1e300, -1e300, 1e39, -1e39, 1e30}) {
        gabarit->setStretchLength(all[0], all[2], length, true, true);
        for (const CDbPointVOR *v : contour())
            EXPECT_TRUE(std::isfinite(v->mDisplacementX) && std::isfinite(v->mDisplacementY)) << length;
        EXPECT_EQ(all[2]->mDisplacementX == 0.0F && all[2]->mDisplacementY == 0.0F, std::abs(length) > 1e38);
    }
}

TEST_P(Totality, aPieceShrunkToOnePointStaysFiniteInEveryOperation)
{
    for (CDbPointVOR *v : vectors())
        *v = GeoPoint2D(1e6, -1e6);
    const Vectors all = anchors();
    const GeoPoint2D a(0.0, 0.0);
    const GeoPoint2D b(0.0, 1.0);
    gabarit->moveVectorContourBetween(all[0], all[2], all[0], 0.0, 0.0, true);
    EXPECT_FALSE(gabarit->moveVectorAlongContour(all[0], all[2], all[0], &a, &b, 1.0));
    gabarit->setStretchLength(all[0], all[2], 50.0, true, true);
    bool onBorder = false;
    gabarit->isInPolygon(a, &onBorder);
    EXPECT_TRUE(std::isfinite(gabarit->measureBetween(group, all[0], all[1], true)));
    rebuild();
    for (const Places &places : placesInEverySize()) {
        for (const GeoPoint2D &place : places)
            EXPECT_TRUE(std::isfinite(place.x()) && std::isfinite(place.y()));
    }
    for (const CDbPointVOR *v : vectors())
        EXPECT_TRUE(std::isfinite(v->mDisplacementX) && std::isfinite(v->mDisplacementY));
}

TEST_P(Totality, temporariesMadeWithoutAGroupBelongToTheCallerAndAreUnknownToThePiece)
{
    const auto walked = vectors();
    GabaritObject *temporary = GabaritObject::create();
    CDbPointVOR *first = CDbPointVOR::newVectorObject();
    temporary->gabaritAddContourVector(first, nullptr);
    EXPECT_EQ(first->mNextVector, first);
    EXPECT_EQ(temporary->mFirstVector, first);
    for (int more = 0; more < 3; ++more) {
        CDbPointVOR *v = contour()[static_cast<std::size_t>(more)]->copyTheVector(0);
        temporary->gabaritAddContourVector(v, nullptr);
        EXPECT_EQ(v->mNextVector, first);
        EXPECT_FALSE(group->isVectorContour(v, nullptr));
    }
    EXPECT_EQ(vectors(), walked);
    GabaritObject::removeAGabarit(nullptr, &temporary);
    EXPECT_EQ(temporary, nullptr);
}

INSTANTIATE_TEST_SUITE_P(Host, Totality, testing::ValuesIn(hostUnderTest().pieces()),
                         [](const auto &piece) { return piece.param; });

} // namespace conformance
