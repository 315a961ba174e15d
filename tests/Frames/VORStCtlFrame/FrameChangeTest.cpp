// A frame's wishes, and the piece that obeys them.

#include <support/ControlledPiece.h>

#include <VorFrames/RightRegion.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace VorSystem;
using namespace support;

namespace
{

constexpr auto OneSide = FrameCenter::Characteristic_OneSideDoubled;
constexpr auto TwoSides = FrameCenter::Characteristic_TwoSides;
constexpr auto TwoSidesDoubled = FrameCenter::Characteristic_TwoSidesDoubled;

// A 40 x 60 cm rectangle in seven sizes with chords 20, 30 and 50 cm up; the lowest is the origin.
class FrameChange : public testing::Test
{
protected:
    FrameChange() { build(TwoSides); }

    void build(FrameCenter::eCharacteristicType characteristic, const GradationData &gradation = sevenSizes())
    {
        piece = std::make_unique<RectangleUnderControl>(characteristic, gradation);
        if (characteristic == OneSide) {
            hip = piece->halfChord("Hip", 2);
            waist = piece->halfChord("Waist", 3);
            chest = piece->halfChord("Chest", 5);
        } else {
            hip = piece->chord("Hip", 2);
            waist = piece->chord("Waist", 3);
            chest = piece->chord("Chest", 5);
        }
        piece->rebuilds();
    }
    bool changed() const { return piece->document().mManager->groupHasChanged(piece->group()); }

    std::unique_ptr<RectangleUnderControl> piece;
    ControlFrame *hip = nullptr;
    ControlFrame *waist = nullptr;
    ControlFrame *chest = nullptr;
};

TEST_F(FrameChange, wantedMeasureIsReadBackInEverySize)
{
    for (const auto characteristic : {OneSide, TwoSides, TwoSidesDoubled}) {
        build(characteristic);
        const ValuesAccordingSizes wanted = times(piece->measuresOf(waist), 0.9);
        EXPECT_EQ(piece->changeMeasures(waist, wanted), Msg_Converged);
        EXPECT_EQ(str(piece->measuresOf(waist)), str(wanted));
        EXPECT_EQ(str(*waist->getFrameFrame()->getMeasureBySizes()), str(wanted));
        EXPECT_LE(piece->rebuilds(), 2);
        EXPECT_TRUE(standsInTheNest(piece->group()));
    }
}

TEST_F(FrameChange, wantedLevelIsReadBackInEverySize)
{
    for (const auto characteristic : {OneSide, TwoSides, TwoSidesDoubled}) {
        build(characteristic);
        const ValuesAccordingSizes wanted = plus(piece->levelsOf(waist), 3.5);
        EXPECT_EQ(piece->changeLevels(waist, wanted), Msg_Converged);
        EXPECT_EQ(str(piece->levelsOf(waist)), str(wanted));
        EXPECT_LE(piece->rebuilds(), 2);
    }
}

TEST_F(FrameChange, measureAndLevelChangeTogether)
{
    ValuesAccordingSizes measures = plus(piece->measuresOf(waist), -4.0);
    ValuesAccordingSizes levels = plus(piece->levelsOf(waist), -2.0);
    const ValuesAccordingSizes wantedMeasures = measures;
    const ValuesAccordingSizes wantedLevels = levels;
    EXPECT_EQ(waist->changeMeasureLevel(ControlBase::MeasureLevel_Both, &measures, &levels,
                                        piece->gradation(), ModifyLevel_AllSizes),
              Msg_Converged);
    EXPECT_EQ(str(piece->measuresOf(waist)), str(wantedMeasures));
    EXPECT_EQ(str(piece->levelsOf(waist)), str(wantedLevels));
}

TEST_F(FrameChange, theContourBetweenTheNeighboursGoesAlongAndNoFurther)
{
    const GeoPoint2D hipBefore = *piece->right(2);
    const GeoPoint2D chestBefore = *piece->right(5);
    EXPECT_EQ(piece->changeMeasures(waist, plus(piece->measuresOf(waist), -4.0)), Msg_Converged);
    EXPECT_EQ(str(*piece->right(3)), "38.00 30.00");
    EXPECT_EQ(str(*piece->left(3)), "2.00 30.00");
    EXPECT_EQ(str(*piece->right(4)), "39.00 40.00"); // halfway to the next frame
    EXPECT_EQ(str(*piece->left(4)), "1.00 40.00");
    EXPECT_TRUE(*piece->right(2) == hipBefore);
    EXPECT_TRUE(*piece->right(5) == chestBefore);
}

TEST_F(FrameChange, theNestAloneTakesTheOtherSizesAlong)
{
    EXPECT_EQ(piece->changeMeasures(waist, plus(piece->measuresOf(waist), -4.0), ModifyLevel_Nest),
              Msg_Converged);
    EXPECT_EQ(str(piece->measuresOf(waist)), "33.00 34.00 35.00 [36.00] 37.00 38.00 39.00");
    EXPECT_EQ(piece->right(3)->mIrregularGradation, nullptr);
}

TEST_F(FrameChange, shiftedSizesKeepTheNestAndTakeTheDifferences)
{
    // The same step everywhere is rebased away.
    EXPECT_EQ(piece->changeMeasures(waist, plus(piece->measuresOf(waist), 1.0), ModifyLevel_ShiftedSizes),
              Msg_Converged);
    EXPECT_EQ(piece->rebuilds(), 0);
    EXPECT_EQ(str(piece->measuresOf(waist)), "37.00 38.00 39.00 [40.00] 41.00 42.00 43.00");

    ValuesAccordingSizes steeper = piece->measuresOf(waist);
    for (int size = 0; size < 7; ++size)
        steeper.mValues[size] = 50.0 + 2.0 * (size - 3);
    EXPECT_EQ(piece->changeMeasures(waist, steeper, ModifyLevel_ShiftedSizes), Msg_Converged);
    EXPECT_EQ(str(piece->measuresOf(waist)), "34.00 36.00 38.00 [40.00] 42.00 44.00 46.00");
    EXPECT_EQ(str(*piece->right(3)), "40.00 30.00");

    ValuesAccordingSizes levels = piece->levelsOf(waist);
    for (int size = 0; size < 7; ++size)
        levels.mValues[size] = 5.0 + size;
    EXPECT_EQ(piece->changeLevels(waist, levels, ModifyLevel_ShiftedSizes), Msg_Converged);
    EXPECT_EQ(str(piece->levelsOf(waist)), "7.00 8.00 9.00 [10.00] 11.00 12.00 13.00");
}

TEST_F(FrameChange, noActionMovesNothingAndCountsAsDone)
{
    const auto baton = piece->document().mManager->setGroupMapping({{piece->group(), piece->group()}});
    const auto before = placesOf(piece->group(), piece->gradation());
    // Nothing is asked of the lists or of the kind.
    EXPECT_EQ(waist->changeMeasureLevel(ControlBase::MeasureLevel_Invalid, nullptr, nullptr, nullptr,
                                        ModifyLevel_Nothing),
              Msg_Converged);
    EXPECT_EQ(largestDistance(before, placesOf(piece->group(), piece->gradation())), 0.0);
    EXPECT_EQ(piece->rebuilds(), 0);
    EXPECT_TRUE(changed());
}

TEST_F(FrameChange, aWishThatIsMetMovesNothing)
{
    EXPECT_EQ(piece->changeMeasures(waist, plus(piece->measuresOf(waist), 4e-05)), Msg_Converged);
    EXPECT_EQ(piece->rebuilds(), 0);
    EXPECT_EQ(piece->changeMeasures(waist, plus(piece->measuresOf(waist), 6e-05)), Msg_Converged);
    EXPECT_EQ(piece->rebuilds(), 1);
}

TEST_F(FrameChange, aWishOfExactlyZeroIsNone)
{
    EXPECT_EQ(piece->changeMeasures(waist, times(piece->measuresOf(waist), 0.0)), Msg_Converged);
    EXPECT_EQ(piece->changeLevels(waist, times(piece->levelsOf(waist), 0.0)), Msg_Converged);
    EXPECT_EQ(piece->rebuilds(), 0);
}

TEST_F(FrameChange, onlyWhatNeedsAMoveIsMoved)
{
    // Both are asked for; no wish for the measure, so the level moves alone, and the other way round.
    ValuesAccordingSizes noWish = times(piece->measuresOf(waist), 0.0);
    ValuesAccordingSizes levels = plus(piece->levelsOf(waist), 2.0);
    EXPECT_EQ(waist->changeMeasureLevel(ControlBase::MeasureLevel_Both, &noWish, &levels, piece->gradation(),
                                        ModifyLevel_Nest),
              Msg_Converged);
    EXPECT_EQ(str(*piece->right(3)), "40.00 32.00");
    ValuesAccordingSizes measures = plus(piece->measuresOf(waist), -4.0);
    EXPECT_EQ(waist->changeMeasureLevel(ControlBase::MeasureLevel_Both, &measures, &noWish,
                                        piece->gradation(), ModifyLevel_Nest),
              Msg_Converged);
    EXPECT_EQ(str(*piece->right(3)), "38.00 32.00");
}

TEST_F(FrameChange, aZeroIsAWishWhereOnlyZeroIsPossible)
{
    // The level of the origin, and below the measure of a point: what is stored wrongly is read anew.
    for (double &level : hip->getFrameFrame()->getLevelBySizes()->mValues)
        level = 5.0;
    const ValuesAccordingSizes zero = times(piece->levelsOf(hip), 0.0);
    EXPECT_EQ(piece->changeLevels(hip, zero), Msg_Converged);
    EXPECT_EQ(piece->rebuilds(), 1);
    EXPECT_EQ(str(*hip->getFrameFrame()->getLevelBySizes()), str(zero));

    ControlFrame *point = piece->frame("Point", piece->at(14), piece->at(14));
    for (double &measure : point->getFrameFrame()->getMeasureBySizes()->mValues)
        measure = 5.0;
    EXPECT_EQ(piece->changeMeasures(point, zero), Msg_Converged);
    EXPECT_EQ(piece->rebuilds(), 1);
    EXPECT_EQ(str(*point->getFrameFrame()->getMeasureBySizes()), str(zero));
}

TEST_F(FrameChange, anEmptyListOfValuesNeedsAMoveInEverySize)
{
    waist->getFrameFrame()->getMeasureBySizes()->mValues.clear();
    EXPECT_EQ(piece->changeMeasures(waist, piece->measuresOf(waist)), Msg_Converged);
    EXPECT_EQ(piece->rebuilds(), 1);
    EXPECT_EQ(str(*waist->getFrameFrame()->getMeasureBySizes()),
              "37.00 38.00 39.00 [40.00] 41.00 42.00 43.00");
}

TEST_F(FrameChange, onlyTheSizesThatDifferMove)
{
    ValuesAccordingSizes wanted = piece->measuresOf(waist);
    wanted.mValues[6] += 2.0;
    EXPECT_EQ(piece->changeMeasures(waist, wanted), Msg_Converged);
    EXPECT_EQ(str(piece->measuresOf(waist)), "37.00 38.00 39.00 [40.00] 41.00 42.00 45.00");
    EXPECT_EQ(str(*piece->right(3)), "40.00 30.00");
    EXPECT_NE(piece->right(3)->mIrregularGradation, nullptr);
    // What stays regular is regular again.
    EXPECT_EQ(piece->right(2)->mIrregularGradation, nullptr);
}

TEST_F(FrameChange, theOriginDoesNotMoveAlongTheAxis)
{
    const auto before = placesOf(piece->group(), piece->gradation());
    EXPECT_EQ(hip->adjustMeasureLevel(ControlBase::MeasureLevel_Level, 0.0, 5.0, nullptr, false, -1),
              Msg_Moved);
    EXPECT_EQ(largestDistance(before, placesOf(piece->group(), piece->gradation())), 0.0);
    // It never gets there either.
    EXPECT_EQ(piece->changeLevels(hip, plus(piece->levelsOf(hip), 5.0)), Msg_NotConverged);
    EXPECT_EQ(piece->rebuilds(), 25);
    EXPECT_EQ(largestDistance(before, placesOf(piece->group(), piece->gradation())), 0.0);
}

TEST_F(FrameChange, aFrameOnTheLevelOfTheOriginHasNoWayToGo)
{
    ControlFrame *twin = piece->frame("Twin", piece->right(3), piece->left(1));
    EXPECT_EQ(piece->changeLevels(twin, plus(piece->levelsOf(twin), 5.0)), Msg_NotConverged);
}

TEST_F(FrameChange, aPointIsWidenedByNothing)
{
    ControlFrame *point = piece->frame("Point", piece->at(14), piece->at(14));
    const auto before = placesOf(piece->group(), piece->gradation());
    piece->rebuilds();
    EXPECT_EQ(piece->changeMeasures(point, plus(piece->measuresOf(point), 1.0)), Msg_MoveFailed);
    EXPECT_EQ(piece->rebuilds(), 1);
    EXPECT_EQ(largestDistance(before, placesOf(piece->group(), piece->gradation())), 0.0);
    // A wish of zero is met, also with nothing stored yet.
    point->getFrameFrame()->getMeasureBySizes()->mValues.clear();
    EXPECT_EQ(piece->changeMeasures(point, piece->measuresOf(point)), Msg_Converged);
    EXPECT_EQ(largestDistance(before, placesOf(piece->group(), piece->gradation())), 0.0);
}

TEST_F(FrameChange, aPointMovesAlongTheAxisWithTheContourBesideIt)
{
    ControlFrame *point = piece->frame("Point", piece->right(4), piece->right(4));
    EXPECT_EQ(point->getLevel(-1), std::hypot(20.0, 20.0));
    const ValuesAccordingSizes wanted = plus(piece->levelsOf(point), 1.0);
    EXPECT_EQ(piece->changeLevels(point, wanted), Msg_Converged);
    EXPECT_EQ(str(piece->levelsOf(point)), str(wanted));
    EXPECT_EQ(str(*piece->right(3)), "40.00 30.00");
    EXPECT_EQ(str(*piece->right(5)), "40.00 50.00");
}

TEST_F(FrameChange, percentageGivesVector1ItsPartWhileNoRegionIsNamed)
{
    waist->getFrameFrame()->setMeasureType(FrameFrame::Measure_ByPercentage);
    waist->getFrameFrame()->setPercentageMeasureRating(75.0);
    EXPECT_EQ(piece->changeMeasures(waist, plus(piece->measuresOf(waist), -4.0)), Msg_Converged);
    EXPECT_EQ(str(*piece->right(3)), "37.00 30.00");
    EXPECT_EQ(str(*piece->left(3)), "1.00 30.00");
}

TEST_F(FrameChange, percentageBelongsToTheRegionNamedAsRight)
{
    piece->axis->getRightRegions()->setRegion(1); // off the stretch: the left half
    waist->getFrameFrame()->setMeasureType(FrameFrame::Measure_ByPercentage);
    waist->getFrameFrame()->setPercentageMeasureRating(75.0);
    EXPECT_EQ(piece->changeMeasures(waist, plus(piece->measuresOf(waist), -4.0)), Msg_Converged);
    EXPECT_EQ(str(*piece->right(3)), "39.00 30.00");
    EXPECT_EQ(str(*piece->left(3)), "3.00 30.00");
}

TEST_F(FrameChange, proportionFollowsThePresentLengthsOfTheSides)
{
    for (CDbPointVOR *vector : {piece->left(3), piece->left(4)})
        *vector = GeoPoint2D(10.0, vector->y()); // 20 cm on the right, 10 cm on the left
    piece->readBack();
    EXPECT_EQ(piece->changeMeasures(waist, plus(piece->measuresOf(waist), 3.0), ModifyLevel_Nest),
              Msg_Converged);
    EXPECT_EQ(str(*piece->right(3)), "42.00 30.00");
    EXPECT_EQ(str(*piece->left(3)), "9.00 30.00");
}

TEST_F(FrameChange, aSharedHalfByPercentageHasNoSecondSide)
{
    ControlFrame *half = piece->halfChord("Half", 4);
    half->getFrameFrame()->setMeasureType(FrameFrame::Measure_ByPercentage);
    EXPECT_THROW(piece->changeMeasures(half, plus(piece->measuresOf(half), -4.0)), AssertionError);
    EXPECT_TRUE(standsInTheNest(piece->group()));
}

TEST_F(FrameChange, aSharedHalfMovesButItsFarQuadrantsCannotBeCut)
{
    ControlFrame *half = piece->halfChord("Half", 4);
    EXPECT_THROW(piece->changeMeasures(half, plus(piece->measuresOf(half), -4.0), ModifyLevel_Nest),
                 AssertionError);
    EXPECT_EQ(str(*piece->right(4)), "36.00 40.00");
    EXPECT_THROW(piece->changeMeasures(half, plus(piece->measuresOf(half), -4.0)), AssertionError);
    EXPECT_TRUE(standsInTheNest(piece->group()));
    EXPECT_EQ(piece->group()->mRebuildingFromFrames, 0);
}

TEST_F(FrameChange, aNestWithoutSizesMovesToo)
{
    build(TwoSides, GradationData());
    EXPECT_EQ(piece->changeMeasures(waist, plus(piece->measuresOf(waist), -4.0)), Msg_Converged);
    EXPECT_EQ(str(piece->measuresOf(waist)), "[36.00]");
    EXPECT_EQ(piece->changeLevels(waist, plus(piece->levelsOf(waist), 2.0), ModifyLevel_Nest), Msg_Converged);
    EXPECT_EQ(str(piece->levelsOf(waist)), "[12.00]");
}

TEST_F(FrameChange, withoutAnyGradationThereIsOneSize)
{
    build(TwoSides, GradationData());
    piece->document().mHasGradation = false;
    piece->readBack();
    EXPECT_EQ(piece->changeMeasures(waist, plus(piece->measuresOf(waist), -4.0)), Msg_Converged);
    EXPECT_EQ(str(piece->measuresOf(waist)), "[36.00]");
}

TEST_F(FrameChange, successIsToldToTheGroupMapping)
{
    const auto baton = piece->document().mManager->setGroupMapping({{piece->group(), piece->group()}});
    EXPECT_EQ(piece->changeLevels(hip, plus(piece->levelsOf(hip), 5.0)), Msg_NotConverged);
    EXPECT_FALSE(changed());
    EXPECT_EQ(piece->changeMeasures(waist, plus(piece->measuresOf(waist), -4.0)), Msg_Converged);
    EXPECT_TRUE(changed());
}

TEST_F(FrameChange, badArgumentsRaise)
{
    ValuesAccordingSizes values = piece->measuresOf(waist);
    const GradationData *sizes = piece->gradation();
    const auto change = [&](ControlFrame *frame, int kind, ValuesAccordingSizes *m, ValuesAccordingSizes *l) {
        return frame->changeMeasureLevel(ControlBase::eMeasureLevel(kind), m, l, sizes, ModifyLevel_AllSizes);
    };
    EXPECT_THROW(change(waist, 0, &values, &values), AssertionError);
    EXPECT_THROW(change(waist, 1, nullptr, &values), AssertionError);
    EXPECT_THROW(change(waist, 2, &values, nullptr), AssertionError);
    EXPECT_THROW(change(waist, 3, &values, nullptr), AssertionError);
    ControlFrame bare(piece->right(1), piece->left(1), piece->skeleton(), nullptr);
    EXPECT_THROW(change(&bare, 1, &values, &values), AssertionError);
    EXPECT_EQ(piece->rebuilds(), 0);
}

TEST_F(FrameChange, aWishThatIsNoNumberMovesNothing)
{
    const auto before = placesOf(piece->group(), piece->gradation());
    for (const double wish :
         {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(),
          -std::numeric_limits<double>::infinity()}) {
        EXPECT_EQ(piece->changeMeasures(waist, plus(piece->measuresOf(waist), wish)), Msg_MoveFailed) << wish;
        EXPECT_EQ(piece->changeLevels(waist, plus(piece->levelsOf(waist), wish)), Msg_NotConverged) << wish;
    }
    EXPECT_EQ(largestDistance(before, placesOf(piece->group(), piece->gradation())), 0.0);
}

TEST_F(FrameChange, aFailureKeepsTheSizesAlreadyMovedAndStillRebuilds)
{
    const auto baton = piece->document().mManager->setGroupMapping({{piece->group(), piece->group()}});
    const ValuesAccordingSizes before = piece->measuresOf(waist);
    ValuesAccordingSizes wanted = before;
    wanted.mValues[0] += 2.0;
    wanted.mValues[2] = std::numeric_limits<double>::infinity();
    wanted.mValues[6] += 2.0;
    EXPECT_EQ(piece->changeMeasures(waist, wanted), Msg_MoveFailed);
    EXPECT_EQ(piece->rebuilds(), 1);
    EXPECT_FALSE(changed());
    EXPECT_TRUE(standsInTheNest(piece->group()));
    const ValuesAccordingSizes after = piece->measuresOf(waist);
    EXPECT_NEAR(after.mValues[0], wanted.mValues[0], 1e-4);
    EXPECT_NEAR(after.mValues[6], before.mValues[6], 1e-4); // behind the failure nothing is tried
}

} // namespace
