// What a frame reads from the piece.

#include <support/ControlledPiece.h>

#include <gtest/gtest.h>

using namespace VorSystem;
using namespace support;

namespace
{

constexpr auto OneSide = FrameCenter::Characteristic_OneSideDoubled;
constexpr auto TwoSides = FrameCenter::Characteristic_TwoSides;
constexpr auto TwoSidesDoubled = FrameCenter::Characteristic_TwoSidesDoubled;

// A 40 x 60 cm rectangle in seven sizes, each 1 cm wider and 2 cm higher than the one before.
TEST(FrameReading, aMeasureIsTheWidthInEverySize)
{
    RectangleUnderControl piece;
    EXPECT_EQ(str(piece.measuresOf(piece.chord("Chord", 3))), "37.00 38.00 39.00 [40.00] 41.00 42.00 43.00");
    EXPECT_EQ(str(piece.measuresOf(piece.halfChord("Half", 4))),
              "18.50 19.00 19.50 [20.00] 20.50 21.00 21.50");
}

TEST(FrameReading, allButSharedSidesAreDoubled)
{
    RectangleUnderControl doubled(TwoSidesDoubled);
    EXPECT_EQ(doubled.chord("Chord", 3)->getMeasures(-1), 80.0);
    RectangleUnderControl oneSide(OneSide);
    EXPECT_EQ(oneSide.halfChord("Half", 3)->getMeasures(-1), 40.0);
}

TEST(FrameReading, aPerimeterMeasureRunsAlongTheContour)
{
    RectangleUnderControl shared;
    ControlFrame *chord = shared.chord("Chord", 1);
    chord->getFrameFrame()->getPerimeterMeasurement() = true;
    EXPECT_EQ(chord->getMeasures(-1), 60.0); // down 10, across 40, up 10

    RectangleUnderControl oneSide(OneSide);
    ControlFrame *half = oneSide.halfChord("Half", 1);
    half->getFrameFrame()->getPerimeterMeasurement() = true;
    EXPECT_EQ(half->getMeasures(-1), 60.0); // down 10, to the axis 20, twice
}

TEST(FrameReading, aPointMeasuresZero)
{
    RectangleUnderControl piece;
    EXPECT_EQ(piece.frame("Point", piece.right(3), piece.right(3))->getMeasures(-1), 0.0);
}

TEST(FrameReading, aLevelIsTheDistanceFromTheOriginOnEitherSide)
{
    RectangleUnderControl piece;
    ControlFrame *origin = piece.chord("Origin", 2);
    ControlFrame *above = piece.chord("Above", 5);
    ControlFrame *below = piece.chord("Below", 1);
    EXPECT_EQ(str(piece.levelsOf(origin)), "0.00 0.00 0.00 [0.00] 0.00 0.00 0.00");
    EXPECT_EQ(str(piece.levelsOf(above)), "27.00 28.00 29.00 [30.00] 31.00 32.00 33.00");
    EXPECT_EQ(str(piece.levelsOf(below)), "9.00 9.33 9.67 [10.00] 10.33 10.67 11.00");
    EXPECT_EQ(above->getLevel(-1), 30.0);
    EXPECT_NEAR(above->getLevel(0), 27.0, 1e-9);
}

TEST(FrameReading, leavesEveryBitAndTheGradingAsTheyWere)
{
    for (Piece &made : garmentPieces()) {
        ControlledPiece piece(std::move(made));
        const int count = static_cast<int>(piece.gabarit()->contourVectors().size());
        piece.center(piece.at(0), piece.at(count / 2));
        ControlFrame *frame = piece.frame("Frame", piece.at(count / 4), piece.at(3 * count / 4));
        const std::vector<GeoPoint2D> before = placesOf(piece.group(), piece.gradation());
        const bool explicitBefore = piece.at(count / 4)->mIrregularGradation != nullptr;
        frame->getMeasures(piece.gradation());
        frame->getLevels(piece.gradation());
        for (short size = -1; size < 7; ++size) {
            frame->getMeasures(size);
            frame->getLevel(size);
        }
        EXPECT_EQ(largestDistance(before, placesOf(piece.group(), piece.gradation())), 0.0);
        EXPECT_EQ(piece.at(count / 4)->mIrregularGradation != nullptr, explicitBefore);
        EXPECT_TRUE(standsInTheNest(piece.group()));
    }
}

TEST(FrameReading, oneSizeAgreesWithTheList)
{
    ControlledPiece piece(trouserLeg());
    piece.center(piece.at(0), piece.at(6));
    ControlFrame *hip = piece.frame("Hip", piece.at(3), piece.at(8));
    const ValuesAccordingSizes all = piece.measuresOf(hip);
    for (short size = 0; size < 7; ++size)
        EXPECT_EQ(hip->getMeasures(size), all.mValues.at(size)) << size;
    EXPECT_EQ(hip->getMeasures(-1), all.mValues.at(3));
}

TEST(FrameReading, withoutOriginALevelIsZeroAndTheVectorsStayInTheSize)
{
    RectangleUnderControl piece;
    ControlFrame *chord = piece.chord("Chord", 3);
    piece.frameCenter()->removeFrame(chord->getFrameFrame());
    piece.frameCenter()->addFrame(chord->getFrameFrame(), -1);
    ASSERT_EQ(piece.frameCenter()->getFrameLevelZero(), chord->getFrameFrame());
    ControlFrame *other = piece.chord("Other", 4);
    piece.frameCenter()->removeFrame(chord->getFrameFrame());
    ASSERT_EQ(piece.frameCenter()->getFrameLevelZero(), nullptr);

    EXPECT_EQ(other->getLevel(-1), 0.0);
    EXPECT_TRUE(standsInTheNest(piece.group()));
    EXPECT_EQ(other->getLevel(6), 0.0);
    EXPECT_EQ(piece.at(12)->inSize(), 7);
    EXPECT_EQ(str(*piece.at(12)), "43.00 66.00");
    for (CDbPointVOR *vector : vectorsOf(piece.group())) {
        CDbPointVOR::recalculateEvolution(vector, 7);
        vector->destroyVectorInRegular();
    }
    EXPECT_TRUE(standsInTheNest(piece.group()));
    piece.frameCenter()->addFrame(chord->getFrameFrame(), -1);
}

TEST(FrameReading, withoutANestThereIsOneValue)
{
    RectangleUnderControl piece(TwoSides, GradationData());
    ControlFrame *chord = piece.chord("Chord", 3);
    EXPECT_EQ(chord->getMeasures(piece.gradation()), QListEx<double>{40.0});
    EXPECT_EQ(chord->getMeasures(static_cast<const GradationData *>(nullptr)), QListEx<double>{40.0});
    EXPECT_EQ(chord->getLevels(nullptr), QListEx<double>{0.0});
    EXPECT_TRUE(standsInTheNest(piece.group()));
}

TEST(FrameReading, withoutElementThereIsNothingToRead)
{
    RectangleUnderControl piece;
    ControlFrame bare(piece.right(1), piece.left(1), piece.skeleton(), nullptr);
    EXPECT_THROW(bare.getMeasures(short(2)), AssertionError);
    EXPECT_THROW(bare.getLevel(2), AssertionError);
    EXPECT_THROW(bare.getMeasures(piece.gradation()), AssertionError);
    EXPECT_THROW(bare.getLevels(piece.gradation()), AssertionError);
    EXPECT_TRUE(standsInTheNest(piece.group()));
}

} // namespace
