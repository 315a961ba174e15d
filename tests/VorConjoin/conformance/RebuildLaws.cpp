// Rebuilds, darts and mirrors: dependents follow, anchors stay.

#include "HostUnderTest.h"

#include <cmath>

namespace conformance
{

using namespace VorSystem;

namespace
{

constexpr double kExact = 1e-9; // cm
constexpr double kEqual = 1e-6; // cm, legs of equal length

class Rebuild : public PieceLaw
{
protected:
    // From pivot to contour, along straight and curved lines.
    double legLength(DartContour *dart, bool second) const
    {
        LineObject *first = nullptr;
        LineObject *line = nullptr;
        if (second)
            dart->pICAvoirLes2LiensDuPivot(group, &first, &line);
        else
            dart->pICAvoirLes2LiensDuPivot(group, &line, &first);
        CDbPointVOR *at = dart->mPivotVector;
        double sum = 0.0;
        while (line) {
            CDbPointVOR *end = line->otherVectorLine(at);
            if (CurveObject *curve = line->linkIsCurve() ? line->getCurveLine() : nullptr) {
                for (short point = 2; point <= curve->pointCount(); ++point) {
                    const auto before = static_cast<short>(point - 1);
                    sum += curve->getCurvePointByIndex(before)->distance(*curve->getCurvePointByIndex(point));
                }
            } else {
                sum += at->distance(*end);
            }
            at = end;
            line = group->pICGetLineNext(line, end, &end);
        }
        return sum;
    }

    void moveEverySize()
    {
        inEverySize([&](short size) { disturb(0.05 * size); });
        endWriting();
    }

    std::vector<std::pair<float, float>> displacements() const
    {
        std::vector<std::pair<float, float>> found;
        for (const CDbPointVOR *v : vectors())
            found.emplace_back(v->mDisplacementX, v->mDisplacementY);
        return found;
    }

    void standardize() const
    {
        gabarit->PLI_ctlGabStandardizeEvolutions();
        gabarit->pICCtlGabStandardizeEvolutions();
        group->grStandardizeEvolutions();
    }
};

} // namespace

TEST_P(Rebuild, aConsistentPieceIsLeftAlone)
{
    const auto before = placesInEverySize();
    rebuild();
    expectNear(placesInEverySize(), before, kExact);
}

TEST_P(Rebuild, twiceEqualsOnce)
{
    moveEverySize();
    rebuild();
    const auto once = placesInEverySize();
    rebuild();
    expectNear(placesInEverySize(), once, kExact);
}

TEST_P(Rebuild, anchorsKeepEveryBitInTheNestAndTheirPlaceInTheOtherSizes)
{
    moveEverySize();
    const Vectors all = vectors();
    const auto places = placesInEverySize();
    Places nestPlaces;
    for (const CDbPointVOR *v : all)
        nestPlaces.emplace_back(v->x(), v->y());
    rebuild();
    const auto after = placesInEverySize();
    for (std::size_t place = 0; place < all.size(); ++place) {
        if (mayBeRebuilt(all[place]))
            continue;
        EXPECT_TRUE(static_cast<const GeoPoint2D &>(*all[place]) == nestPlaces[place]);
        for (std::size_t size = 0; size < after.size(); ++size)
            EXPECT_NEAR(after[size][place].distance(places[size][place]), 0.0, kExact);
    }
}

TEST_P(Rebuild, withTheFlagFalseEvolutionsStayAndAllSizesStayConsistent)
{
    const auto before = bits();
    const auto places = placesInEverySize();
    rebuild(false);
    EXPECT_EQ(bits(), before);
    expectNear(placesInEverySize(), places, 0.0);
}

TEST_P(Rebuild, theLegsOfAnEqualLeggedDartHaveTheSameLengthInEverySize)
{
    std::vector<DartContour *> equal;
    for (DartContour *dart : darts()) {
        if (std::abs(legLength(dart, false) - legLength(dart, true)) <= kEqual)
            equal.push_back(dart);
    }
    moveEverySize();
    rebuild();
    inEverySize([&](short size) {
        for (DartContour *dart : equal)
            EXPECT_NEAR(legLength(dart, false), legLength(dart, true), kEqual) << "size " << size;
    });
    endReading();
}

TEST_P(Rebuild, aDartWithEqualLegsIsNotMoved)
{
    std::vector<GeoPoint2D> pivots;
    for (const DartContour *dart : darts())
        pivots.emplace_back(dart->mPivotVector->x(), dart->mPivotVector->y());
    rebuild();
    std::size_t place = 0;
    for (const DartContour *dart : darts())
        EXPECT_TRUE(static_cast<const GeoPoint2D &>(*dart->mPivotVector) == pivots[place++]);
}

TEST_P(Rebuild, rightAfterTheCopiesAreAdjustedBothDifferencesAreExactlyZero)
{
    for (DartContour *dart : darts()) {
        dart->pICAdjustTheCopyVectors();
        ASSERT_NE(dart->mPivotCopy, nullptr);
        ASSERT_NE(dart->mTipCopy, nullptr);
        EXPECT_TRUE(*dart->mPivotCopy - *dart->mPivotVector == GeoPoint2D());
        EXPECT_TRUE(*dart->mTipCopy - *dart->pICGetVector(3) == GeoPoint2D());
    }
}

TEST_P(Rebuild, aLaterMoveFindsTheDartCopiesNull)
{
    for (DartContour *dart : darts())
        dart->pICAdjustTheCopyVectors();
    const auto walked = vectors().size();
    rebuild();
    EXPECT_EQ(vectors().size(), walked);
    for (const DartContour *dart : darts()) {
        EXPECT_EQ(dart->mPivotCopy, nullptr);
        EXPECT_EQ(dart->mTipCopy, nullptr);
    }
}

TEST_P(Rebuild, aLegOfKLinesEndsAfterKCalls)
{
    for (DartContour *dart : darts()) {
        LineObject *legs[2] = {nullptr, nullptr};
        dart->pICAvoirLes2LiensDuPivot(group, &legs[0], &legs[1]);
        for (int which = 0; which < 2; ++which) {
            ASSERT_NE(legs[which], nullptr);
            CDbPointVOR *end = legs[which]->otherVectorLine(dart->mPivotVector);
            CDbPointVOR *last = end;
            int calls = 0;
            for (LineObject *line = legs[which]; line; ++calls) {
                DartContour *owner = nullptr;
                EXPECT_TRUE(group->pICIsLine(line, &owner));
                EXPECT_EQ(owner, dart);
                last = end;
                line = group->pICGetLineNext(line, end, &end);
                ASSERT_LT(calls, 1000);
            }
            EXPECT_EQ(last, dart->pICGetVector(which == 0 ? 1 : 3));
        }
    }
}

TEST_P(Rebuild, theMouthOfADartHasItsRolesAndCountsInNoLength)
{
    for (DartContour *dart : darts()) {
        for (short role = 1; role <= 3; ++role) {
            DartContour *found = nullptr;
            short which = 0;
            EXPECT_TRUE(gabarit->pICGabIsWhichDart(dart->pICGetVector(role), &found, &which));
            EXPECT_EQ(found, dart);
            EXPECT_EQ(which, role);
        }
        EXPECT_EQ(dart->pICGetVector(4), dart->mPivotVector);
        EXPECT_FALSE(gabarit->pICGabIsWhichDart(dart->mPivotVector, nullptr, nullptr));
        EXPECT_EQ(gabarit->contourLengthWithoutDeadZones(dart->pICGetVector(1), dart->pICGetVector(3)), 0.0);
        EXPECT_GT(gabarit->measureBetween(group, dart->pICGetVector(1), dart->pICGetVector(3), true), 0.0);
    }
}

TEST_P(Rebuild, standardizingDisplacementsInThisOrderIsIdempotentWithinRounding)
{
    int turn = 0;
    for (CDbPointVOR *v : anchors()) {
        v->mDisplacementX = static_cast<float>(std::sin(++turn));
        v->mDisplacementY = static_cast<float>(std::cos(3 * turn));
    }
    const auto before = bits();
    standardize();
    const auto once = displacements();
    standardize();
    const auto twice = displacements();
    for (std::size_t place = 0; place < once.size(); ++place) {
        EXPECT_NEAR(once[place].first, twice[place].first, 1e-6);
        EXPECT_NEAR(once[place].second, twice[place].second, 1e-6);
    }
    EXPECT_EQ(bits(), before); // working displacements only
}

TEST_P(Rebuild, theSidesOfAMirrorAreNeverUndecidedByPlace)
{
    Mirror *mirror = group->Miroir();
    ASSERT_EQ(mirror, group->mMirror);
    ASSERT_EQ(group->isMirror(), mirror != nullptr);
    for (CDbPointVOR *v : contour()) {
        if (!mirror) {
            EXPECT_EQ(v->gabaritContourVectorNeighborPoint(true), v->gabaritNeighborContourVector(true));
            continue;
        }
        const int place = static_cast<int>(mirror->getGeometricTag(*v));
        const int record = static_cast<int>(mirror->getTagByID(*v));
        EXPECT_TRUE(place == 1 || place == 2);
        EXPECT_TRUE(record == 0 || record == place);
        CDbPointVOR *next = v->gabaritContourVectorNeighborPoint(true);
        ASSERT_NE(next, nullptr);
        EXPECT_NE(static_cast<int>(mirror->getGeometricTag(*next)), 0);
    }
}

TEST_P(Rebuild, neitherHalfOfAMirrorIsMaster)
{
    if (!group->isMirror())
        return;
    for (CDbPointVOR *v : anchors()) {
        if (static_cast<int>(group->Miroir()->getTagByID(*v)) == 0)
            continue;
        // Both halves share the move of one: it gets half of it, whichever it is.
        const GeoPoint2D was(v->x(), v->y());
        *v = GeoPoint2D(was.x() + 2.0, was.y() - 1.0);
        group->againObjects(false, gradation, true);
        EXPECT_NEAR(v->x(), was.x() + 1.0, kExact);
        EXPECT_NEAR(v->y(), was.y() - 0.5, kExact);
    }
}

INSTANTIATE_TEST_SUITE_P(Host, Rebuild, testing::ValuesIn(hostUnderTest().pieces()),
                         [](const auto &piece) { return piece.param; });

} // namespace conformance
