// Grading: reading changes nothing, writing keeps every size where it was put.

#include "HostUnderTest.h"

#include <cmath>

namespace conformance
{

using namespace VorSystem;

namespace
{

constexpr double kExact = 1e-9; // cm; what conversions of grading may lose

class Grading : public PieceLaw
{
};

} // namespace

TEST_P(Grading, conversionsAreExactInEverySize)
{
    const auto before = placesInEverySize();
    for (CDbPointVOR *v : vectors())
        CDbPointVOR::setVectorInIrregular(v, gradation);
    endWriting();
    expectNear(placesInEverySize(), before, kExact);
}

TEST_P(Grading, setSwapRecalculateDestroyOverAllSizesLeavesEveryBitAndTheRepresentation)
{
    const auto before = bits();
    inEverySize([](short) {});
    endReading();
    EXPECT_EQ(bits(), before);
}

TEST_P(Grading, nestedInsideAnotherSetAlso)
{
    for (CDbPointVOR *v : vectors())
        CDbPointVOR::setVectorInIrregular(v, gradation);
    const auto before = bits();
    inEverySize([](short) {});
    endReading();
    EXPECT_EQ(bits(), before);
    endReading();
}

TEST_P(Grading, setAndResetAfterAMoveKeepThePositionInEverySize)
{
    // Small moves too: a conversion that rounds evolutions to steps would take them back.
    for (const double amount : {0.1, 1e-5}) {
        std::vector<Places> wanted;
        inEverySize([&](short size) {
            disturb(amount * size);
            Places places;
            for (const CDbPointVOR *v : vectors())
                places.emplace_back(v->x(), v->y());
            wanted.push_back(places);
        });
        endWriting();
        expectNear(placesInEverySize(), wanted, kExact);
    }
}

TEST_P(Grading, afterANestMoveTheOtherSizesStandWhereTheyStood)
{
    auto wanted = placesInEverySize();
    for (CDbPointVOR *v : vectors()) {
        CDbPointVOR::setVectorInIrregular(v, gradation);
        CDbPointVOR::swapEvolutionMedium(v, nest);
        *v = GeoPoint2D(v->x() + 1.25, v->y() - 0.75);
        CDbPointVOR::recalculateEvolution(v, nest);
        CDbPointVOR::createEvolutionInOnlyMedium(v, nest);
        v->tryResetGradationInRegular(gradation);
    }
    for (GeoPoint2D &place : wanted[static_cast<std::size_t>(nest - 1)])
        place = GeoPoint2D(place.x() + 1.25, place.y() - 0.75);
    expectNear(placesInEverySize(), wanted, kExact);
}

TEST_P(Grading, aNestMoveWithoutEvolutionsCarriesTheOtherSizesAlong)
{
    auto wanted = placesInEverySize();
    for (CDbPointVOR *v : vectors())
        *v = GeoPoint2D(v->x() + 1.25, v->y() - 0.75);
    for (Places &places : wanted) {
        for (GeoPoint2D &place : places)
            place = GeoPoint2D(place.x() + 1.25, place.y() - 0.75);
    }
    expectNear(placesInEverySize(), wanted, kExact);
}

TEST_P(Grading, vectorsLeftSwappedHealAtTheNextSwapAndRecalculate)
{
    const auto before = placesInEverySize();
    for (CDbPointVOR *v : vectors()) {
        CDbPointVOR::setVectorInIrregular(v, gradation);
        CDbPointVOR::swapEvolutionMedium(v, 1); // and nobody brings them back
    }
    expectNear(placesInEverySize(), before, 0.0);
}

TEST_P(Grading, theNestIsNeverLostWhateverWasDoneInTheSizeLeft)
{
    Places nestPlaces;
    for (const CDbPointVOR *v : vectors())
        nestPlaces.emplace_back(v->x(), v->y());
    for (CDbPointVOR *v : vectors()) {
        CDbPointVOR::setVectorInIrregular(v, gradation);
        CDbPointVOR::swapEvolutionMedium(v, sizes);
        *v = GeoPoint2D(1e5, -1e5);
        CDbPointVOR::swapEvolutionMedium(v, nest);
        CDbPointVOR::recalculateEvolution(v, nest);
    }
    const Vectors all = vectors();
    for (std::size_t place = 0; place < all.size(); ++place)
        EXPECT_TRUE(static_cast<const GeoPoint2D &>(*all[place]) == nestPlaces[place]);
    endReading();
}

TEST_P(Grading, evolutionsAreDoublesOnlyTheWorkingDisplacementIsFloat)
{
    const double fine = 1.0 + 1e-12;
    CDbPointVOR *v = vectors().front();
    CDbPointVOR::setVectorInIrregular(v, gradation);
    v->mIrregularGradation->setGradation(t_0_Based(0), GeoPoint2D(fine, -fine));
    EXPECT_EQ(v->mIrregularGradation->getGradation(t_0_Based(0)).x(), fine);
    static_assert(std::is_same<decltype(v->mDisplacementX), float>::value,
                  "the working displacement is float");
    v->tryResetGradationInRegular(gradation);
}

TEST_P(Grading, anEvolutionIsStoredOnlyInTheSizeTheVectorStandsIn)
{
    CDbPointVOR *v = vectors().front();
    const auto before = placesInEverySize();
    CDbPointVOR::setVectorInIrregular(v, gradation);
    CDbPointVOR::swapEvolutionMedium(v, 1);
    *v = GeoPoint2D(v->x() + 5.0, v->y());
    CDbPointVOR::recalculateEvolution(v, 2);
    CDbPointVOR::swapEvolutionMedium(v, 2);
    CDbPointVOR::recalculateEvolution(v, 2);
    v->destroyVectorInRegular();
    expectNear(placesInEverySize(), before, 0.0);
}

TEST_P(Grading, withoutANestThereIsOneSizeAndReadingItChangesNothing)
{
    const auto before = bits();
    for (CDbPointVOR *v : vectors()) {
        const GeoPoint2D place(v->x(), v->y());
        CDbPointVOR::setVectorInIrregular(v, nullptr);
        ASSERT_EQ(v->mIrregularGradation->size(), 1);
        CDbPointVOR::swapEvolutionMedium(v, 1);
        EXPECT_TRUE(static_cast<const GeoPoint2D &>(*v) == place);
        CDbPointVOR::recalculateEvolution(v, 1);
        v->destroyVectorInRegular();
    }
    EXPECT_EQ(bits(), before);
}

INSTANTIATE_TEST_SUITE_P(Host, Grading, testing::ValuesIn(hostUnderTest().pieces()),
                         [](const auto &piece) { return piece.param; });

} // namespace conformance
