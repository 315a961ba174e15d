// Which side of a center is the right one.

#include <support/ControlledPiece.h>

#include <VorFrames/RightRegion.h>

#include <gtest/gtest.h>

using namespace VorSystem;
using namespace support;

namespace
{

// The rectangle: the stretch from the lower to the upper end of the axis is its right half.
class RightRegionOnRectangle : public testing::Test
{
protected:
    short identify(int region, CDbPointVOR *vector)
    {
        return RightRegion(region).getIdentifierByRegion(piece.gabarit(), piece.at(3), piece.at(15), vector);
    }

    RectangleUnderControl piece;
};

TEST_F(RightRegionOnRectangle, theOtherSideOfANamedRegionIsTheWrongOne)
{
    struct {
        int region;
        short onStretch;
        short offStretch;
    } const cases[] = {
        {0, 1, 2}, {1, 2, 1}, {2, 1, 1}, {7, 1, 1}, {-1, 1, 1},
    };
    for (const auto &c : cases) {
        EXPECT_EQ(identify(c.region, piece.right(3)), c.onStretch) << c.region;
        EXPECT_EQ(identify(c.region, piece.left(3)), c.offStretch) << c.region;
    }
}

TEST_F(RightRegionOnRectangle, aFreshRegionMakesEveryVectorRight)
{
    const RightRegion *fresh = piece.axis->getRightRegions();
    ASSERT_NE(fresh, nullptr);
    for (CDbPointVOR *vector : {piece.right(3), piece.left(3)})
        EXPECT_EQ(fresh->getIdentifierByRegion(piece.gabarit(), piece.at(3), piece.at(15), vector), 1);
}

TEST_F(RightRegionOnRectangle, statusTellsTheStretchFromTheRest)
{
    const RightRegion region;
    EXPECT_EQ(region.identifierRegionVector(piece.gabarit(), piece.at(3), piece.at(15), piece.right(3)),
              RightRegion::Status_OnStretch);
    EXPECT_EQ(region.identifierRegionVector(piece.gabarit(), piece.at(3), piece.at(15), piece.left(3)),
              RightRegion::Status_OffStretch);
}

TEST_F(RightRegionOnRectangle, everyArgumentIsNeeded)
{
    const RightRegion region;
    CDbPointVOR *a = piece.at(3);
    EXPECT_THROW((void)region.identifierRegionVector(nullptr, a, a, a), AssertionError);
    EXPECT_THROW((void)region.identifierRegionVector(piece.gabarit(), nullptr, a, a), AssertionError);
    EXPECT_THROW((void)region.identifierRegionVector(piece.gabarit(), a, nullptr, a), AssertionError);
    EXPECT_THROW((void)region.getIdentifierByRegion(piece.gabarit(), a, a, nullptr), AssertionError);
}

} // namespace
