// A vector by itself: its copies, and the questions about plain points that it answers for callers.

#include <support/Pieces.h>

#include <gtest/gtest.h>

using namespace VorSystem;

namespace
{

bool isAt(const GeoPoint2D &point, double x, double y)
{
    return point == GeoPoint2D(x, y);
}

} // namespace

TEST(Vectors, aNewOneIsAtTheOriginAndBelongsToNobody)
{
    CDbPointVOR *v = CDbPointVOR::newVectorObject();

    EXPECT_TRUE(isAt(*v, 0.0, 0.0));
    EXPECT_EQ(v->mVectorKind, 0);
    EXPECT_EQ(v->Num_ID().number(), 0);
    EXPECT_EQ(v->mNextVector, nullptr);
    EXPECT_EQ(v->mIrregularGradation, nullptr);
    EXPECT_EQ(v->mDisplacementX, 0.0F);
    EXPECT_EQ(v->mDisplacementY, 0.0F);
    EXPECT_EQ(v->group(), nullptr);
    EXPECT_EQ(v->gabaritContourVectorNeighborPoint(true), nullptr);
    CDbPointVOR::destroyVectorObject(&v);
    EXPECT_EQ(v, nullptr);
    CDbPointVOR::destroyVectorObject(&v); // nothing left to free
}

TEST(Vectors, aCopyKeepsAllButChainAndOwner)
{
    const support::Piece piece = support::bodiceWithDart();
    CDbPointVOR *source = piece.at(6);
    source->mDisplacementX = 1.5F;
    source->mDisplacementY = -2.5F;
    const GradationData sizes = support::sevenSizes();
    CDbPointVOR::setVectorInIrregular(source, &sizes);

    CDbPointVOR *copy = source->copyTheVector(0);

    EXPECT_TRUE(isAt(*copy, source->x(), source->y()));
    EXPECT_EQ(copy->mVectorKind, Vector_Curve);
    EXPECT_TRUE(copy->Num_ID() == source->Num_ID());
    EXPECT_EQ(copy->mDisplacementX, 1.5F);
    EXPECT_EQ(copy->mDisplacementY, -2.5F);
    EXPECT_EQ(copy->mNextVector, nullptr);
    EXPECT_EQ(copy->gabarit(), nullptr);
    EXPECT_EQ(copy->group(), nullptr);
    ASSERT_NE(copy->mIrregularGradation, nullptr);
    EXPECT_NE(copy->mIrregularGradation, source->mIrregularGradation);
    CDbPointVOR::destroyVectorObject(&copy);
    source->destroyVectorInRegular();
}

TEST(Vectors, copyingIntoAVectorLeavesItsIdentityChainAndOwner)
{
    const support::Piece piece = support::bodiceWithDart();
    const CDbPointVOR *source = piece.at(6);
    CDbPointVOR *target = piece.at(4);
    const CDbPointVOR *next = target->mNextVector;
    const CDbID identity = target->Num_ID();
    target->mDisplacementX = 3.0F;

    source->copyVector(target);
    source->copyVector(nullptr);

    EXPECT_TRUE(isAt(*target, source->x(), source->y()));
    EXPECT_EQ(target->mVectorKind, source->mVectorKind);
    EXPECT_EQ(target->regularSteps().large.x, source->regularSteps().large.x);
    EXPECT_TRUE(target->Num_ID() == identity);
    EXPECT_EQ(target->mNextVector, next);
    EXPECT_EQ(target->gabarit(), piece.gabarit);
    EXPECT_EQ(target->mDisplacementX, 3.0F);
}

TEST(Vectors, aPointGivesAVectorItsPlaceAndNothingElse)
{
    const support::Piece piece = support::bodiceWithDart();
    CDbPointVOR *v = piece.at(6);
    const CDbPointVOR *next = v->mNextVector;

    *v = GeoPoint2D(7.0, 8.0);

    EXPECT_TRUE(isAt(*v, 7.0, 8.0));
    EXPECT_EQ(v->mVectorKind, Vector_Curve);
    EXPECT_EQ(v->mNextVector, next);
    EXPECT_EQ(v->mark(), -1);
}

TEST(Vectors, theQuestionsAboutPlainPointsHaveTheirArgumentsInOrder)
{
    const GeoPoint2D a(0.0, 0.0), b(10.0, 0.0), p(4.0, 3.0), q(4.0, -3.0);
    GeoPoint2D out;

    EXPECT_TRUE(CDbPointVOR::equalVector(p, GeoPoint2D(4.000009, 2.999991)));
    EXPECT_FALSE(CDbPointVOR::equalVector(p, GeoPoint2D(4.00002, 3.0)));
    EXPECT_TRUE(CDbPointVOR::equalVectorDelta(p, q, 6.0));
    EXPECT_FALSE(CDbPointVOR::equalVectorDelta(p, q, 5.0));
    EXPECT_TRUE(CDbPointVOR::IsBetween(a, GeoPoint2D(4.0, 0.0), b));
    EXPECT_FALSE(CDbPointVOR::IsBetween(a, b, GeoPoint2D(4.0, 0.0)));
    EXPECT_TRUE(CDbPointVOR::betweenDelta(a, p, b, 3.0));
    EXPECT_FALSE(CDbPointVOR::betweenDelta(a, p, b, 2.9));
    CDbPointVOR::Projection(p, a, b, out);
    EXPECT_TRUE(isAt(out, 4.0, 0.0));
    CDbPointVOR::Projection(p, q, q, out);
    EXPECT_TRUE(isAt(out, 4.0, -3.0));
    CDbPointVOR::interLine(a, b, p, q, out);
    EXPECT_TRUE(isAt(out, 4.0, 0.0));
    CDbPointVOR::interLine(q, p, GeoPoint2D(1.0, 0.0), GeoPoint2D(1.0, 5.0), out);
    EXPECT_TRUE(isAt(out, 4.0, -3.0)); // parallel: the first point
    EXPECT_TRUE(CDbPointVOR::isParallelLine(a, b, GeoPoint2D(0.0, 1.0), GeoPoint2D(-5.0, 1.0)));
    EXPECT_TRUE(CDbPointVOR::isParallelLine(a, b, p, p));
    EXPECT_FALSE(CDbPointVOR::isParallelLine(a, b, p, q));
    EXPECT_TRUE(CDbPointVOR::interSegments(a, b, p, q, out));
    EXPECT_TRUE(isAt(out, 4.0, 0.0));
    EXPECT_FALSE(CDbPointVOR::interSegments(a, GeoPoint2D(3.0, 0.0), p, q, out));
    EXPECT_EQ(CDbPointVOR::scaleProjeced(a, b, p), 0.4);
    EXPECT_EQ(CDbPointVOR::scaleProjeced(b, a, GeoPoint2D(20.0, 1.0)), -1.0);
    EXPECT_EQ(CDbPointVOR::scaleProjeced(p, p, b), 0.0);
}

TEST(Vectors, theUnitDistanceMayBeWrittenOverAnyOfItsArguments)
{
    const GeoPoint2D a(4.0, 0.0), b(0.0, 0.0), origin(1.0, 1.0);
    GeoPoint2D out;

    CDbPointVOR::vectorManagementUnitDist(origin, 2.5, a, b, out);
    EXPECT_TRUE(isAt(out, 3.5, 1.0));
    CDbPointVOR::vectorManagementUnitDist(origin, 0.0, a, b, out);
    EXPECT_TRUE(isAt(out, 1.0, 1.0));
    CDbPointVOR::vectorManagementUnitDist(origin, 2.5, a, a, out);
    EXPECT_TRUE(isAt(out, 1.0, 1.0));

    GeoPoint2D own = origin;
    CDbPointVOR::vectorManagementUnitDist(own, 2.5, a, b, own);
    EXPECT_TRUE(isAt(own, 3.5, 1.0));
    own = a;
    CDbPointVOR::vectorManagementUnitDist(origin, 2.5, own, b, own);
    EXPECT_TRUE(isAt(own, 3.5, 1.0));
    own = b;
    CDbPointVOR::vectorManagementUnitDist(origin, 2.5, a, own, own);
    EXPECT_TRUE(isAt(own, 3.5, 1.0));
}

TEST(Vectors, aWalkAlongAChainEndsAtItsEnd)
{
    CDbPointVOR *first = CDbPointVOR::newVectorObject();
    CDbPointVOR *second = CDbPointVOR::newVectorObject();
    first->mNextVector = second;

    IteratorVector walk;
    walk.first(first);
    CDbPointVOR *v = nullptr;
    EXPECT_TRUE(walk.next(v));
    EXPECT_EQ(v, first);
    EXPECT_TRUE(walk.next(v));
    EXPECT_EQ(v, second);
    EXPECT_FALSE(walk.next(v));
    EXPECT_EQ(v, nullptr);

    second->mNextVector = second; // a contour of one
    walk.first(second);
    EXPECT_TRUE(walk.next(v));
    EXPECT_FALSE(walk.next(v));
    second->mNextVector = nullptr;
    CDbPointVOR::destroyVectorObject(&first);
    CDbPointVOR::destroyVectorObject(&second);
}
