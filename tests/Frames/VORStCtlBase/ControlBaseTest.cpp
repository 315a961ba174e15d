// Two vectors and a sense of travel.

#include <support/ControlledPiece.h>

#include <boost/exception/get_error_info.hpp>
#include <gtest/gtest.h>

using namespace VorSystem;
using namespace support;

namespace
{

// A 40 x 60 cm rectangle with an upright axis in its middle.
class ControlBaseOnRectangle : public testing::Test
{
protected:
    ControlBase between(CDbPointVOR *vector1, CDbPointVOR *vector2)
    {
        return ControlBase(vector1, vector2, piece.skeleton());
    }

    RectangleUnderControl piece;
};

TEST_F(ControlBaseOnRectangle, directionFollowsTheShorterWay)
{
    EXPECT_TRUE(between(piece.at(3), piece.at(9)).getContourDirection1To2());
    EXPECT_FALSE(between(piece.at(9), piece.at(3)).getContourDirection1To2());
}

TEST_F(ControlBaseOnRectangle, withoutVector2DirectionLeadsToTheNearerEndOfTheCenter)
{
    struct {
        int tenCentimetres;
        bool inContourOrder;
    } const cases[] = {
        {1, false}, // nearer to the lower end
        {5, true},  // nearer to the upper end
        {3, true},  // as near to both: the way to vector 2, asked last, stands
    };
    for (const auto &c : cases)
        EXPECT_EQ(between(piece.right(c.tenCentimetres), nullptr).getContourDirection1To2(), c.inContourOrder)
            << c.tenCentimetres;
}

TEST_F(ControlBaseOnRectangle, directionIsFalseWhereThereIsNothingToMeasure)
{
    EXPECT_FALSE(between(piece.at(9), piece.at(9)).getContourDirection1To2());
    EXPECT_FALSE(between(nullptr, piece.at(9)).getContourDirection1To2());
    EXPECT_FALSE(ControlBase(piece.at(3), piece.at(9), nullptr).getContourDirection1To2());

    ControlledPiece bare(rectangle(40.0, 60.0, 6));
    EXPECT_FALSE(ControlBase(bare.at(9), nullptr, bare.skeleton()).getContourDirection1To2());
}

TEST_F(ControlBaseOnRectangle, givenDirectionIsKeptAndTheObjectNotSelected)
{
    const ControlBase control(piece.at(9), piece.at(3), piece.skeleton(), true);
    EXPECT_TRUE(control.getContourDirection1To2());
    EXPECT_FALSE(control.getSelection());
    EXPECT_TRUE(between(piece.at(9), piece.at(3)).getSelection());
}

TEST_F(ControlBaseOnRectangle, deselectingClearsTheRegionSelectionToo)
{
    ControlBase control = between(piece.at(3), piece.at(9));
    EXPECT_FALSE(control.regionSelection());
    control.setRegionSelection(true);
    control.setSelected(true);
    EXPECT_TRUE(control.regionSelection());
    control.setSelected(false);
    EXPECT_FALSE(control.regionSelection());
    EXPECT_FALSE(control.getSelection());
}

TEST_F(ControlBaseOnRectangle, everyIndexButOneIsVector2)
{
    ControlBase control = between(piece.at(3), piece.at(9));
    EXPECT_EQ(control.getVectorContour(1), piece.at(3));
    for (const short index : {short(2), short(0), short(-1), short(7)})
        EXPECT_EQ(control.getVectorContour(index), piece.at(9)) << index;
    control.setVectorContour(1, piece.at(4));
    control.setVectorContour(9, piece.at(5));
    EXPECT_EQ(control.getVectorContour1(), piece.at(4));
    EXPECT_EQ(control.getVectorContour2(), piece.at(5));
}

TEST_F(ControlBaseOnRectangle, anUnmovedCopyOfAVectorCountsAsTheVector)
{
    const ControlBase control = between(piece.at(3), piece.at(9));
    EXPECT_TRUE(control.isVectorContour(piece.at(3)));
    EXPECT_TRUE(control.isVectorContour(piece.at(9)));
    EXPECT_FALSE(control.isVectorContour(piece.at(4)));

    CDbPointVOR *copy = piece.at(9)->copyTheVector(0);
    EXPECT_TRUE(control.isVectorContour(copy));
    copy->setX(copy->x() + 1e-9);
    EXPECT_FALSE(control.isVectorContour(copy));
    CDbPointVOR::destroyVectorObject(&copy);
    EXPECT_THROW((void)control.isVectorContour(nullptr), AssertionError);
    EXPECT_FALSE(between(nullptr, nullptr).isVectorContour(piece.at(3)));
}

TEST_F(ControlBaseOnRectangle, theStretchHoldsItsEndsAndWhatLiesBetweenThem)
{
    const ControlBase control = between(piece.at(3), piece.at(9));
    for (int place = 0; place < 24; ++place)
        EXPECT_EQ(control.isVectorContourOfControl(piece.at(place)), place >= 3 && place <= 9) << place;
    EXPECT_THROW((void)control.isVectorContourOfControl(nullptr), AssertionError);
}

TEST_F(ControlBaseOnRectangle, twoEqualVectorsHaveNoStretchNotEvenTheirOwnPlace)
{
    EXPECT_FALSE(between(piece.at(3), piece.at(3)).isVectorContourOfControl(piece.at(3)));
    EXPECT_FALSE(between(piece.at(3), nullptr).isVectorContourOfControl(piece.at(3)));
    EXPECT_FALSE(ControlBase(piece.at(3), piece.at(9), nullptr).isVectorContourOfControl(piece.at(3)));
}

TEST(ControlBaseOnBodice, handlesOfACurveOnTheStretchBelongToIt)
{
    ControlledPiece piece(bodiceWithDart());
    // The armhole runs from place 5 to place 9.
    const ControlBase armhole(piece.at(5), piece.at(9), piece.skeleton());
    const ControlBase half(piece.at(5), piece.at(7), piece.skeleton());
    CurveObject *curve = piece.group()->lines().front()->getCurveLine();
    ASSERT_NE(curve, nullptr);
    EXPECT_TRUE(armhole.isVectorContourOfControl(curve->firstHandle()));
    EXPECT_FALSE(half.isVectorContourOfControl(curve->firstHandle()));
}

TEST_F(ControlBaseOnRectangle, aCopiedPieceGetsTheVectorsOfTheSameIndex)
{
    CDbPointVOR *own = piece.group()->addOwnVector(GeoPoint2D(10.0, 10.0));
    ControlBase source(piece.at(9), own, piece.skeleton(), true);
    source.setSelected(true);
    source.setRegionSelection(true);
    const std::unique_ptr<CDbGroupObject> copy(piece.group()->copy());
    {
        ControlSkeleton target(copy.get(), copy->firstGabarit());
        const ControlBase carried(&source, &target);
        EXPECT_EQ(carried.getVectorContour1(), copy->firstGabarit()->gabaritGetContourVector(10));
        EXPECT_EQ(carried.getVectorContour2(), copy->groupGetVectorByIndex(1));
        EXPECT_TRUE(carried.getContourDirection1To2());
        EXPECT_TRUE(carried.getSelection());
        EXPECT_FALSE(carried.regionSelection());
        EXPECT_EQ(carried.getSkeleton(), &target);

        ControlBase empty(nullptr, nullptr, piece.skeleton());
        EXPECT_EQ(ControlBase(&empty, &target).getVectorContour1(), nullptr);
        EXPECT_THROW(ControlBase(nullptr, &target), AssertionError);
    }
}

TEST_F(ControlBaseOnRectangle, theBaseMovesAndHoldsNothing)
{
    ControlBase control = between(piece.at(3), piece.at(9));
    EXPECT_FALSE(control.containsVector(piece.at(3)));
    ValuesAccordingSizes values;
    EXPECT_EQ(control.changeMeasureLevel(ControlBase::MeasureLevel_Both, &values, &values, piece.gradation(),
                                         ModifyLevel_AllSizes),
              Msg_NothingDone);
    EXPECT_EQ(ControlBase::Epsilon_Changement, 0.01);
}

TEST_F(ControlBaseOnRectangle, aBrokenPreconditionNamesItsUnit)
{
    try {
        (void)between(piece.at(3), piece.at(9)).isVectorContour(nullptr);
        FAIL() << "no error";
    } catch (const AssertionError &error) {
        EXPECT_STREQ(error.what(), "Invalid Operation");
        const char *const *unit = boost::get_error_info<boost::throw_file>(error);
        ASSERT_NE(unit, nullptr);
        EXPECT_STREQ(*unit, R"(src\Frames\VORStCtlBase)");
    }
}

} // namespace
