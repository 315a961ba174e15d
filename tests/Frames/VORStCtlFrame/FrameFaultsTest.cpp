// A host that fails or throws in the middle of a frame's change.

#include <support/FaultyPiece.h>

#include <gtest/gtest.h>

using namespace VorSystem;
using namespace support;

namespace
{

// The rectangle with an axis and three chords; the waist may measure along the contour.
class FaultyFrame
{
public:
    explicit FaultyFrame(bool perimeter) : piece(faultyRectangle(&faults))
    {
        piece.center(piece.at(3), piece.at(15));
        piece.frame("Hip", piece.at(7), piece.at(23));
        waist = piece.frame("Waist", piece.at(9), piece.at(21));
        piece.frame("Chest", piece.at(11), piece.at(19));
        waist->getFrameFrame()->getPerimeterMeasurement() = perimeter;
        piece.readBack();
    }

    /// Both values in all sizes.
    eMsgConvergence change(eModifyLevelActionType action)
    {
        ValuesAccordingSizes measures = plus(*waist->getFrameFrame()->getMeasureBySizes(), -2.0);
        ValuesAccordingSizes levels = plus(*waist->getFrameFrame()->getLevelBySizes(), 1.0);
        return waist->changeMeasureLevel(ControlBase::MeasureLevel_Both, &measures, &levels,
                                         piece.gradation(), action);
    }

    Faults faults;
    ControlledPiece piece;
    ControlFrame *waist = nullptr;
};

/// Runs the change with a fault at the first call, at the second, and so on until none is left to strike.
int faultsPossible(bool perimeter, Faults::eManner manner, eModifyLevelActionType action)
{
    for (int call = 1;; ++call) {
        FaultyFrame frame(perimeter);
        const QListEx<ControlFrame *> frames = frame.piece.skeleton()->getFrameLists();
        frame.faults.strikeAt(call, manner);
        bool thrown = false;
        try {
            frame.change(action);
        } catch (const std::runtime_error &) {
            thrown = true;
        }
        const bool struck = frame.faults.hasStruck();
        frame.faults.rest();
        if (!struck)
            return call - 1;

        EXPECT_EQ(thrown, manner == Faults::Throw) << call;
        EXPECT_TRUE(standsInTheNest(frame.piece.group())) << call;
        EXPECT_EQ(frame.piece.group()->mRebuildingFromFrames, 0) << call;
        EXPECT_EQ(frame.piece.skeleton()->getFrameLists(), frames) << call;
        // The piece is as usable as ever.
        frame.piece.readBack();
        EXPECT_EQ(frame.change(action), Msg_Converged) << call;
    }
}

TEST(FrameFaults, everyCallMayThrow)
{
    EXPECT_GT(faultsPossible(false, Faults::Throw, ModifyLevel_AllSizes), 40);
    EXPECT_GT(faultsPossible(true, Faults::Throw, ModifyLevel_AllSizes), 40);
    EXPECT_GT(faultsPossible(false, Faults::Throw, ModifyLevel_Nest), 5);
}

TEST(FrameFaults, everyCallMayFail)
{
    EXPECT_GT(faultsPossible(false, Faults::Fail, ModifyLevel_AllSizes), 40);
    EXPECT_GT(faultsPossible(true, Faults::Fail, ModifyLevel_AllSizes), 40);
    EXPECT_GT(faultsPossible(false, Faults::Fail, ModifyLevel_Nest), 5);
}

TEST(FrameFaults, aReadingThatThrowsPutsTheNestBack)
{
    for (int call = 1; call <= 7; ++call) {
        FaultyFrame frame(false);
        frame.faults.strikeAt(call, Faults::Throw);
        EXPECT_THROW(frame.waist->getMeasures(frame.piece.gradation()), std::runtime_error);
        EXPECT_TRUE(standsInTheNest(frame.piece.group()));
        frame.faults.strikeAt(call, Faults::Throw);
        EXPECT_THROW(frame.waist->getLevels(frame.piece.gradation()), std::runtime_error);
        EXPECT_TRUE(standsInTheNest(frame.piece.group()));
    }
    FaultyFrame frame(false);
    frame.faults.strikeAt(1, Faults::Throw);
    EXPECT_THROW(frame.waist->getMeasures(short(6)), std::runtime_error);
    EXPECT_TRUE(standsInTheNest(frame.piece.group()));
}

TEST(FrameFaults, aSideThatFailsIsForgottenWhenTheLastOneMoves)
{
    FaultyFrame frame(true);
    ValuesAccordingSizes measures = plus(*frame.waist->getFrameFrame()->getMeasureBySizes(), -2.0);
    // Calls of the first pass: two lengths for the shares, then the slide of side 1.
    frame.faults.strikeAt(3, Faults::Fail);
    EXPECT_EQ(frame.waist->changeMeasureLevel(ControlBase::MeasureLevel_Measure, &measures, nullptr,
                                              frame.piece.gradation(), ModifyLevel_Nest),
              Msg_Converged);
    EXPECT_TRUE(frame.faults.hasStruck());
}

TEST(FrameFaults, aLastSideThatFailsIsForgivenWhereTheRestIsSmall)
{
    FaultyFrame frame(true);
    // The sides run slanted towards the top, along which the waist measures, so that a slide changes the
    // measure by little more than asked.
    for (const int step : {0, 1, 2, 3}) {
        *frame.piece.at(9 + step) = GeoPoint2D(40.0 - 5.0 * step, 51.0 + 3.0 * step);
        *frame.piece.at(21 - step) = GeoPoint2D(5.0 * step, 51.0 + 3.0 * step);
    }
    for (const int place : {13, 14, 16, 17})
        *frame.piece.at(place) = GeoPoint2D(20.0 + 2.0 * (15 - place), 60.0);
    frame.piece.readBack();
    frame.piece.rebuilds();
    ValuesAccordingSizes measures = plus(*frame.waist->getFrameFrame()->getMeasureBySizes(), -0.015);
    // Side 1 leaves a rest below 0.01 cm, which the next pass moves.
    frame.faults.strikeAt(5, Faults::Fail);
    EXPECT_EQ(frame.waist->changeMeasureLevel(ControlBase::MeasureLevel_Measure, &measures, nullptr,
                                              frame.piece.gradation(), ModifyLevel_Nest),
              Msg_Converged);
    EXPECT_TRUE(frame.faults.hasStruck());
    EXPECT_EQ(frame.piece.rebuilds(), 2);
}

TEST(FrameFaults, aLastSideThatFailsEndsTheMove)
{
    FaultyFrame frame(true);
    ValuesAccordingSizes measures = plus(*frame.waist->getFrameFrame()->getMeasureBySizes(), -2.0);
    // The slide of side 1 and the curves behind it go before the slide of side 2.
    frame.faults.strikeAt(5, Faults::Fail);
    EXPECT_EQ(frame.waist->changeMeasureLevel(ControlBase::MeasureLevel_Measure, &measures, nullptr,
                                              frame.piece.gradation(), ModifyLevel_Nest),
              Msg_MoveFailed);
}

} // namespace
