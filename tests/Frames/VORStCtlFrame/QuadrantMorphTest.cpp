// What lies inside a piece follows a frame.

#include <support/ControlledPiece.h>

#include <gtest/gtest.h>

#include <cmath>
#include <random>

using namespace VorSystem;
using namespace support;

namespace
{

constexpr auto OneSide = FrameCenter::Characteristic_OneSideDoubled;
constexpr auto TwoSides = FrameCenter::Characteristic_TwoSides;
constexpr auto TwoSidesDoubled = FrameCenter::Characteristic_TwoSidesDoubled;

// A 40 x 60 cm rectangle with an upright axis in its middle and chords 20, 30 and 50 cm up.
class QuadrantMorphOnRectangle : public testing::Test
{
protected:
    QuadrantMorphOnRectangle()
        : hip(piece.chord("Hip", 2)), waist(piece.chord("Waist", 3)), chest(piece.chord("Chest", 5))
    {
    }

    CDbPointVOR *hole(double x, double y) { return piece.group()->addOwnVector(GeoPoint2D(x, y)); }
    eMsgConvergence narrow(double by)
    {
        return piece.changeMeasures(waist, plus(piece.measuresOf(waist), -by), ModifyLevel_Nest);
    }

    RectangleUnderControl piece;
    ControlFrame *hip;
    ControlFrame *waist;
    ControlFrame *chest;
};

TEST_F(QuadrantMorphOnRectangle, freeVectorsKeepTheirPlaceInTheirQuadrant)
{
    struct {
        double x, y;
        const char *after;
    } const cases[] = {
        {30.0, 30.0, "29.00 30.00"},                              // halfway along the right half of the chord
        {10.0, 30.0, "11.00 30.00"},                              // and along the left half
        {20.0, 33.0, "20.00 33.00"},                              // on the axis
        {30.0, 10.0, "30.00 10.00"},                              // beyond the neighbours
        {30.0, 55.0, "30.00 55.00"}, {40.0, 25.0, "39.00 25.00"}, // on the contour, without being of it
        {50.0, 30.0, "50.00 30.00"},                              // outside the piece
    };
    std::vector<CDbPointVOR *> holes;
    for (const auto &c : cases)
        holes.push_back(hole(c.x, c.y));
    EXPECT_EQ(narrow(4.0), Msg_Converged);
    for (std::size_t i = 0; i < holes.size(); ++i)
        EXPECT_EQ(str(*holes[i]), cases[i].after) << cases[i].x << ' ' << cases[i].y;
}

TEST_F(QuadrantMorphOnRectangle, aVectorOnTheBorderOfTwoQuadrantsMoves)
{
    CDbPointVOR *onChord = hole(40.0 - 1e-7, 30.0);
    EXPECT_EQ(narrow(4.0), Msg_Converged);
    EXPECT_NEAR(onChord->x(), 38.0, 1e-5);
}

TEST_F(QuadrantMorphOnRectangle, whatControlObjectsRestOnStays)
{
    CDbPointVOR *ofFrame = hole(30.0, 30.0);
    CDbPointVOR *ofSegment = hole(31.0, 30.0);
    ControlFrame inner(ofFrame, nullptr, piece.skeleton(), nullptr);
    ControlSegment segment(ofSegment, nullptr, piece.skeleton(), nullptr);
    EXPECT_EQ(narrow(4.0), Msg_Converged);
    EXPECT_EQ(str(*ofFrame), "30.00 30.00");
    EXPECT_EQ(str(*ofSegment), "31.00 30.00");
}

TEST_F(QuadrantMorphOnRectangle, aMoveThatFailsLeavesTheInsideAlone)
{
    CDbPointVOR *inside = hole(30.0, 30.0);
    waist->getFrameFrame()->getPerimeterMeasurement() = true;
    piece.readBack();
    EXPECT_EQ(narrow(500.0), Msg_MoveFailed);
    EXPECT_EQ(str(*inside), "30.00 30.00");
}

TEST_F(QuadrantMorphOnRectangle, anInnerFrameMovesItsOwnEndAndNothingElse)
{
    CDbPointVOR *end = hole(30.0, 40.0);
    CDbPointVOR *bystander = hole(28.0, 38.0);
    ControlFrame *inner = piece.frame("Inner", end, piece.left(4));
    ASSERT_TRUE(inner->isInternalFrame());
    EXPECT_EQ(piece.changeMeasures(inner, plus(piece.measuresOf(inner), 3.0), ModifyLevel_Nest),
              Msg_Converged);
    EXPECT_NEAR(inner->getMeasures(-1), 33.0, 1e-4);
    EXPECT_GT(end->x(), 30.5);
    EXPECT_EQ(str(*bystander), "28.00 38.00");
}

TEST_F(QuadrantMorphOnRectangle, aFrameOnAnotherContourRaises)
{
    GabaritObject *other = piece.group()->newGabarit();
    for (const auto &[x, y] : {std::pair(60.0, 0.0), std::pair(80.0, 0.0), std::pair(80.0, 20.0)})
        other->addContourVector(GeoPoint2D(x, y));
    ControlFrame *stray =
        piece.frame("Stray", other->gabaritGetContourVector(2), other->gabaritGetContourVector(3));
    EXPECT_THROW(piece.changeMeasures(stray, plus(piece.measuresOf(stray), 3.0)), AssertionError);
    EXPECT_TRUE(standsInTheNest(piece.group()));
}

TEST(QuadrantMorphOneSided, onlyTheSideOfVector1IsCut)
{
    RectangleUnderControl piece(OneSide);
    piece.chord("Hip", 2);
    ControlFrame *waist = piece.chord("Waist", 3);
    piece.chord("Chest", 5);
    CDbPointVOR *onSide = piece.group()->addOwnVector(GeoPoint2D(30.0, 30.0));
    CDbPointVOR *across = piece.group()->addOwnVector(GeoPoint2D(10.0, 30.0));
    const ValuesAccordingSizes wanted = plus(piece.levelsOf(waist), 2.0);
    EXPECT_EQ(piece.changeLevels(waist, wanted, ModifyLevel_Nest), Msg_Converged);
    EXPECT_EQ(str(*piece.left(3)), "0.00 32.00");
    EXPECT_EQ(str(*onSide), "30.00 32.00");
    EXPECT_EQ(str(*across), "10.00 30.00");
}

// A single neighbour, ahead of the frame or behind it: what lies between the two is one field on each side of
// the axis, what lies beyond the frame the other.
TEST(QuadrantMorphOneNeighbor, bothSidesOfTheFrameFollowWhereverTheNeighbourLies)
{
    for (const bool above : {false, true}) {
        RectangleUnderControl piece;
        piece.chord("Neighbour", above ? 5 : 1);
        ControlFrame *frame = piece.chord("Frame", 3);
        CDbPointVOR *between = piece.group()->addOwnVector(GeoPoint2D(40.0, above ? 40.0 : 20.0));
        CDbPointVOR *betweenLeft = piece.group()->addOwnVector(GeoPoint2D(0.0, above ? 40.0 : 20.0));
        CDbPointVOR *beyondNeighbour = piece.group()->addOwnVector(GeoPoint2D(30.0, above ? 55.0 : 5.0));
        CDbPointVOR *onChord = piece.group()->addOwnVector(GeoPoint2D(30.0, 30.0));
        EXPECT_EQ(piece.changeMeasures(frame, plus(piece.measuresOf(frame), -4.0), ModifyLevel_Nest),
                  Msg_Converged);
        EXPECT_EQ(str(*between), above ? "39.00 40.00" : "39.00 20.00");
        EXPECT_EQ(str(*betweenLeft), above ? "1.00 40.00" : "1.00 20.00");
        EXPECT_EQ(str(*beyondNeighbour), above ? "30.00 55.00" : "30.00 5.00");
        EXPECT_EQ(str(*onChord), "29.00 30.00");
    }
}

/// A frame in the middle of what neighbours a case leaves it, on a center of each characteristic, started
/// from either side of the axis.
struct Situation {
    FrameCenter::eCharacteristicType characteristic;
    bool below;    // a neighbour below
    bool above;    // a neighbour above
    bool fromLeft; // vector 1 lies on the left
    bool point;    // the frame is a point
};

class QuadrantMorphSituations : public testing::TestWithParam<Situation>
{
};

// Shares of a move follow the lengths of the contour at that time, which the way there has changed: round a
// corner, and on the far side of a level move, the contour itself does not quite come back.
constexpr double kContourHysteresis = 0.3; // cm, for moves of 2 to 4 cm
constexpr double kExactly = 1e-4;          // cm: what the wishes allow

TEST_P(QuadrantMorphSituations, thereAndBackEverythingInsideReturns)
{
    const Situation &s = GetParam();
    const double measuresReturn = s.below && s.above ? kExactly : kContourHysteresis;
    RectangleUnderControl piece(s.characteristic);
    const auto vector1 = [&](int height) { return s.fromLeft ? piece.left(height) : piece.right(height); };
    const auto vector2 = [&](int height) -> CDbPointVOR * {
        if (s.characteristic == OneSide)
            return nullptr;
        return s.fromLeft ? piece.right(height) : piece.left(height);
    };
    if (s.below)
        piece.frame("Below", vector1(2), vector2(2));
    if (s.above)
        piece.frame("Above", vector1(5), vector2(5));
    ControlFrame *frame = s.point ? piece.frame("Frame", piece.at(15), piece.at(15))
                                  : piece.frame("Frame", vector1(3), vector2(3));

    std::mt19937 random(7);
    std::uniform_real_distribution<double> x(0.0, 40.0);
    std::uniform_real_distribution<double> y(0.0, 60.0);
    for (int i = 0; i < 200; ++i)
        piece.group()->addOwnVector(GeoPoint2D(x(random), y(random)));

    const auto before = placesOf(piece.group(), piece.gradation());
    if (!s.point) {
        const ValuesAccordingSizes measures = piece.measuresOf(frame);
        EXPECT_EQ(piece.changeMeasures(frame, times(measures, 0.9), ModifyLevel_Nest), Msg_Converged);
        EXPECT_GT(largestDistance(before, placesOf(piece.group(), piece.gradation())), 1.0);
        EXPECT_EQ(piece.changeMeasures(frame, measures, ModifyLevel_Nest), Msg_Converged);
        EXPECT_LT(largestDistance(before, placesOf(piece.group(), piece.gradation())), measuresReturn);
    }
    if (!frame->isLevelZero()) {
        const ValuesAccordingSizes levels = piece.levelsOf(frame);
        EXPECT_EQ(piece.changeLevels(frame, plus(levels, 2.0), ModifyLevel_Nest), Msg_Converged);
        EXPECT_GT(largestDistance(before, placesOf(piece.group(), piece.gradation())), 1.0);
        EXPECT_EQ(piece.changeLevels(frame, levels, ModifyLevel_Nest), Msg_Converged);
        EXPECT_LT(largestDistance(before, placesOf(piece.group(), piece.gradation())), kContourHysteresis);
    }
    EXPECT_TRUE(standsInTheNest(piece.group()));
}

std::vector<Situation> allSituations()
{
    std::vector<Situation> all;
    for (const auto characteristic : {OneSide, TwoSides, TwoSidesDoubled})
        for (const bool below : {false, true})
            for (const bool above : {false, true})
                for (const bool fromLeft : {false, true})
                    for (const bool point : {false, true})
                        all.push_back({characteristic, below, above, fromLeft, point});
    return all;
}

std::string nameOf(const testing::TestParamInfo<Situation> &info)
{
    const Situation &s = info.param;
    return std::string("Characteristic") + std::to_string(s.characteristic) + (s.below ? "Below" : "") +
           (s.above ? "Above" : "") + (s.fromLeft ? "FromLeft" : "FromRight") + (s.point ? "Point" : "");
}

INSTANTIATE_TEST_SUITE_P(Every, QuadrantMorphSituations, testing::ValuesIn(allSituations()), nameOf);

} // namespace
