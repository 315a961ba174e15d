// The host under test itself: its sizes and pieces give every law something to hold of.

#include "HostUnderTest.h"

#include <cmath>

namespace conformance
{

using namespace VorSystem;

namespace
{

// What at least one piece of a host has to show.
struct Shown {
    bool equalLegs = false;
    bool mirror = false;
    bool curve = false;
};

bool hasDartWithEqualLegs(const GabaritObject *gabarit)
{
    IteratorClipContour walk;
    walk.first(gabarit->mFirstDart);
    for (DartContour *dart = nullptr; walk.next(dart);) {
        const double first = dart->mPivotVector->distance(*dart->pICGetVector(1));
        const double second = dart->mPivotVector->distance(*dart->pICGetVector(3));
        if (std::abs(first - second) <= 1e-6)
            return true;
    }
    return false;
}

// Adds what the piece shows; fails for a contour too short to be stretched.
void look(const CDbGroupObject *piece, Shown &shown)
{
    GabaritObject *gabarit = nullptr;
    IteratorGabarit gabarits(piece);
    ASSERT_TRUE(gabarits.next(gabarit));

    int anchors = 0;
    IteratorVectorGabarit walk;
    walk.first(gabarit, kAnchorsOnly);
    for (CDbPointVOR *v = nullptr; walk.next(v); ++anchors) {
        if (piece->isVectorInGroupCurve(v, true, false, true, true, nullptr, nullptr, nullptr))
            shown.curve = true;
    }
    EXPECT_GE(anchors, 3);
    shown.equalLegs = shown.equalLegs || hasDartWithEqualLegs(gabarit);
    shown.mirror = shown.mirror || piece->isMirror();
}

} // namespace

TEST(Host, gradesItsPiecesInSizesOnBothSidesOfTheNest)
{
    const GradationData *gradation = hostUnderTest().gradation();
    ASSERT_NE(gradation, nullptr);
    EXPECT_GT(gradation->getSmallGradationNum(), 0);
    EXPECT_GT(gradation->getLargeGradationNum(), 0);
}

TEST(Host, makesPiecesWithAllThatTheLawsAreAbout)
{
    Shown shown;
    for (const std::string &name : hostUnderTest().pieces()) {
        SCOPED_TRACE(name);
        CDbGroupObject *piece = hostUnderTest().makePiece(name);
        ASSERT_NE(piece, nullptr);
        look(piece, shown);
        hostUnderTest().destroyPiece(piece);
    }
    EXPECT_TRUE(shown.equalLegs) << "a dart with legs of equal length";
    EXPECT_TRUE(shown.mirror) << "a mirrored piece";
    EXPECT_TRUE(shown.curve) << "a curve on a contour";
}

} // namespace conformance
