// Grading of single vectors, value by value.

#include <VorConjoin/VorConjoin.h>

#include <gtest/gtest.h>

#include <cmath>
#include <string>

using namespace VorSystem;

namespace
{

struct Free {
    CDbPointVOR *v = CDbPointVOR::newVectorObject();

    Free() = default;
    Free(const Free &) = delete;
    Free &operator=(const Free &) = delete;
    ~Free() { CDbPointVOR::destroyVectorObject(&v); }
};

std::string str(double value)
{
    char text[40];
    std::snprintf(text, sizeof text, "%g", value);
    return text;
}

// x of a vector in every size of a gradation.
std::string readX(const CDbPointVOR *v, const GradationData &gradation)
{
    std::string text;
    for (short size = 1; size <= gradation.gradationNum(); ++size)
        text += (size == 1 ? "" : " ") + str(v->positionInSize(size, &gradation).x());
    return text;
}

std::string readEvolutions(const CDbPointVOR *v)
{
    std::string text;
    for (short size = 0; v->mIrregularGradation && size < v->mIrregularGradation->size(); ++size)
        text += (size == 0 ? "" : " ") + str(v->mIrregularGradation->getGradation(t_0_Based(size)).x());
    return text;
}

std::vector<Evolution> alongX(std::initializer_list<double> values)
{
    std::vector<Evolution> evolutions;
    for (const double value : values)
        evolutions.push_back({value, 0.0});
    return evolutions;
}

// A vector at x = 10 that grows by 2 upwards and shrinks by 1 downwards, five sizes, nest 3.
class Grading : public testing::Test
{
protected:
    Grading()
    {
        *v = GeoPoint2D(10.0, 0.0);
        v->setRegularSteps({{-1.0, 0.0}, {2.0, 0.0}});
    }

    void moveIn(short size, double dx)
    {
        CDbPointVOR::swapEvolutionMedium(v, size);
        *v = GeoPoint2D(v->x() + dx, v->y());
        CDbPointVOR::recalculateEvolution(v, size);
        CDbPointVOR::createEvolutionInOnlyMedium(v, size);
    }

    Free owner;
    CDbPointVOR *v = owner.v;
    const GradationData sizes{5, 3};
};

} // namespace

TEST(GradationData, theNestMayBeAnywhere)
{
    for (short nest = 1; nest <= 60; ++nest) {
        const GradationData gradation(60, nest);
        EXPECT_TRUE(gradation.isGradationNestDefined());
        EXPECT_EQ(gradation.gradationNum(), 60);
        EXPECT_EQ(gradation.mediumIndex(), nest);
        EXPECT_EQ(gradation.mMediumIndex, nest);
        EXPECT_EQ(gradation.getSmallGradationNum(), nest - 1);
        EXPECT_EQ(gradation.getLargeGradationNum(), 60 - nest);
    }
}

TEST(GradationData, withoutANestThereIsOneSizeAndItsNumberIsZero)
{
    for (const GradationData &gradation : {GradationData(), GradationData(5, 0), GradationData(5, 6),
                                           GradationData(0, 1), GradationData(-3, -2)}) {
        EXPECT_FALSE(gradation.isGradationNestDefined());
        EXPECT_EQ(gradation.gradationNum(), 1);
        EXPECT_EQ(gradation.mediumIndex(), 0);
        EXPECT_EQ(gradation.getSmallGradationNum(), 0);
        EXPECT_EQ(gradation.getLargeGradationNum(), 0);
        EXPECT_EQ(GradationData::nestNumber(&gradation), 1);
    }
}

TEST(GradationData, noGradationHasNoNest)
{
    const GradationData three(3, 2);
    EXPECT_FALSE(GradationData::hasNest(nullptr));
    EXPECT_EQ(GradationData::sizes(nullptr), 1);
    EXPECT_EQ(GradationData::nestNumber(nullptr), 1);
    EXPECT_TRUE(GradationData::hasNest(&three));
    EXPECT_EQ(GradationData::sizes(&three), 3);
    EXPECT_EQ(GradationData::nestNumber(&three), 2);
}

TEST(BasedIndex, theSamePlaceIsOneLess)
{
    EXPECT_EQ(t_0_Based(t_1_Based(4)).value(), 3);
    EXPECT_EQ(t_0_Based(4).value(), 4);
}

TEST_F(Grading, regularStepsCountFromTheNest)
{
    EXPECT_EQ(readX(v, sizes), "8 9 10 12 14");
    EXPECT_EQ(v->mIrregularGradation, nullptr);
    CDbPointVOR::setVectorInIrregular(v, &sizes);
    EXPECT_EQ(readEvolutions(v), "-2 -1 0 2 4");
    EXPECT_EQ(v->mIrregularGradation->indexMedium(), 3);
}

TEST_F(Grading, depthCountsSetsAndTheLastDestroyMakesAVectorRegularThatWas)
{
    CDbPointVOR::setVectorInIrregular(v, &sizes);
    CDbPointVOR::setVectorInIrregular(v, &sizes);
    EXPECT_EQ(v->gradingDepth(), 2);
    v->destroyVectorInRegular();
    EXPECT_NE(v->mIrregularGradation, nullptr);
    v->destroyVectorInRegular();
    EXPECT_EQ(v->mIrregularGradation, nullptr);
    v->destroyVectorInRegular();
    EXPECT_EQ(v->gradingDepth(), 0);
    EXPECT_EQ(readX(v, sizes), "8 9 10 12 14");
}

TEST_F(Grading, explicitEvolutionsStayWhenTheLastReaderLeaves)
{
    ASSERT_TRUE(v->setEvolutions(alongX({-5, -1, 0, 1, 7}), 3));
    for (int round = 0; round < 3; ++round) {
        CDbPointVOR::setVectorInIrregular(v, &sizes);
        v->destroyVectorInRegular();
    }
    EXPECT_EQ(readEvolutions(v), "-5 -1 0 1 7");
}

TEST_F(Grading, aMoveInOneSizeIsThatSizesEvolutionAlone)
{
    CDbPointVOR::setVectorInIrregular(v, &sizes);
    moveIn(5, 0.5);
    v->tryResetGradationInRegular(&sizes);
    EXPECT_EQ(readX(v, sizes), "8 9 10 12 14.5");
    EXPECT_NE(v->mIrregularGradation, nullptr);
}

TEST_F(Grading, aMoveOfTheNestLeavesTheOtherSizes)
{
    CDbPointVOR::setVectorInIrregular(v, &sizes);
    moveIn(3, 0.5);
    EXPECT_EQ(v->x(), 10.5);
    EXPECT_EQ(readEvolutions(v), "-2.5 -1.5 0 1.5 3.5");
    v->tryResetGradationInRegular(&sizes);
    EXPECT_EQ(readX(v, sizes), "8 9 10.5 12 14");
}

TEST_F(Grading, stepsThatReproduceEveryEvolutionMakeItRegularAgain)
{
    CDbPointVOR::setVectorInIrregular(v, &sizes);
    moveIn(4, 1.0);
    moveIn(5, 2.0);
    v->tryResetGradationInRegular(&sizes);
    EXPECT_EQ(v->mIrregularGradation, nullptr);
    EXPECT_EQ(v->regularSteps().large.x, 3.0);
    EXPECT_EQ(v->regularSteps().small.x, -1.0);
    EXPECT_EQ(v->gradingDepth(), 0);
}

TEST_F(Grading, oneThousandthOfAMillimetreKeepsItExplicit)
{
    CDbPointVOR::setVectorInIrregular(v, &sizes);
    moveIn(4, 1e-4);
    v->tryResetGradationInRegular(&sizes);
    EXPECT_NE(v->mIrregularGradation, nullptr);
    EXPECT_NEAR(v->positionInSize(4, &sizes).x(), 12.0001, 1e-9);
}

TEST_F(Grading, evolutionsOfAnotherLengthContinueByTheirLastStepOrAreCut)
{
    struct Case {
        GradationData sizes;
        const char *places;
    };
    ASSERT_TRUE(v->setEvolutions(alongX({-5, 0, 1, 7}), 2));
    const Case cases[] = {
        {GradationData(4, 2), "5 10 11 17"}, {GradationData(6, 3), "0 5 10 11 17 23"},
        {GradationData(2, 1), "10 11"},      {GradationData(1, 1), "10"},
        {GradationData(3, 3), "0 5 10"},     {GradationData(), "10"},
    };
    for (const Case &one : cases) {
        EXPECT_EQ(readX(v, one.sizes), one.places);
        CDbPointVOR::setVectorInIrregular(v, &one.sizes);
        EXPECT_EQ(v->mIrregularGradation->size(), one.sizes.gradationNum());
        v->destroyVectorInRegular();
        EXPECT_EQ(readEvolutions(v), "-5 0 1 7") << "a reader leaves the vector's own evolutions";
    }
}

TEST_F(Grading, aWriterWithAnotherGradationKeepsThePlacesOfThatGradation)
{
    ASSERT_TRUE(v->setEvolutions(alongX({-5, 0, 1, 7}), 2));
    CDbPointVOR::setVectorInIrregular(v, &sizes);
    moveIn(5, 0.25);
    v->tryResetGradationInRegular(&sizes);
    EXPECT_EQ(readX(v, sizes), "0 5 10 11 17.25");
}

TEST_F(Grading, aWriterWithoutNestLeavesTheOtherSizesWithIt)
{
    ASSERT_TRUE(v->setEvolutions(alongX({-5, 0, 1, 7}), 2));
    CDbPointVOR::setVectorInIrregular(v, nullptr);
    moveIn(1, 3.0);
    v->tryResetGradationInRegular(nullptr);
    EXPECT_EQ(readX(v, GradationData(4, 2)), "8 13 14 20");
}

TEST_F(Grading, swappingToASizeThatIsNotThereStaysInTheNest)
{
    CDbPointVOR::setVectorInIrregular(v, &sizes);
    for (const short size : {short{0}, short{-1}, short{6}}) {
        CDbPointVOR::swapEvolutionMedium(v, size);
        EXPECT_EQ(v->inSize(), 0);
        EXPECT_EQ(v->x(), 10.0);
        CDbPointVOR::recalculateEvolution(v, size);
    }
    v->destroyVectorInRegular();
}

TEST_F(Grading, gradingCallsOutOfOrderAreHarmless)
{
    CDbPointVOR::swapEvolutionMedium(v, 1);
    CDbPointVOR::recalculateEvolution(v, 1);
    CDbPointVOR::createEvolutionInOnlyMedium(v, 3);
    v->tryResetGradationInRegular(&sizes);
    CDbPointVOR::setVectorInIrregular(v, &sizes);
    CDbPointVOR::swapEvolutionMedium(v, 5);
    v->destroyVectorInRegular(); // still in a size: it goes back to the nest first
    EXPECT_EQ(readX(v, sizes), "8 9 10 12 14");
    EXPECT_EQ(v->x(), 10.0);
}

TEST_F(Grading, wrongEvolutionsAreRefused)
{
    EXPECT_FALSE(v->setEvolutions({}, 1));
    EXPECT_FALSE(v->setEvolutions(alongX({1, 0, 1}), 1));
    EXPECT_FALSE(v->setEvolutions(alongX({1, 0, 1}), 4));
    EXPECT_FALSE(v->setEvolutions(alongX({1, 0, std::nan("")}), 2));
    EXPECT_EQ(readX(v, sizes), "8 9 10 12 14");
}

TEST_F(Grading, aCopyHasItsOwnEvolutions)
{
    CDbPointVOR::setVectorInIrregular(v, &sizes);
    CDbPointVOR *copy = v->copyTheVector(0);
    moveIn(5, 4.0);
    EXPECT_EQ(readX(copy, sizes), "8 9 10 12 14");
    EXPECT_EQ(copy->gradingDepth(), 1);
    v->copyVector(copy);
    EXPECT_EQ(readX(copy, sizes), "8 9 10 12 18");
    CDbPointVOR::destroyVectorObject(&copy);
    EXPECT_EQ(copy, nullptr);
}

TEST_F(Grading, readingAllSizesAllocatesNoTable)
{
    CDbPointVOR::setVectorInIrregular(v, &sizes);
    for (short size = 1; size <= 5; ++size) {
        CDbPointVOR::swapEvolutionMedium(v, size);
        CDbPointVOR::recalculateEvolution(v, size);
    }
    EXPECT_TRUE(v->mIrregularGradation->isByRule());
    moveIn(1, 1.0);
    EXPECT_FALSE(v->mIrregularGradation->isByRule());
}
