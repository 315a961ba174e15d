// Frames on real pieces: darts, curves, perimeters, mirrors, ends of the piece, and moves that never end.

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
constexpr double kReadBack = 5e-05; // cm: a wish that differs by no more needs no move

double largestGap(const ValuesAccordingSizes &a, const ValuesAccordingSizes &b)
{
    double gap = 0.0;
    for (int size = 0; size < a.mValues.size(); ++size)
        gap = std::max(gap, std::abs(a.mValues.at(size) - b.mValues.at(size)));
    return gap;
}

/// Asks every change of -10 to +10 percent of a frame and holds the answer against the piece.
void expectObedience(ControlledPiece &piece, ControlFrame *frame, int mostRebuilds)
{
    for (const double factor : {0.9, 1.05, 1.1}) {
        const ValuesAccordingSizes wanted = times(piece.measuresOf(frame), factor);
        piece.rebuilds();
        EXPECT_EQ(piece.changeMeasures(frame, wanted), Msg_Converged) << factor;
        EXPECT_LE(largestGap(piece.measuresOf(frame), wanted), kReadBack) << factor;
        EXPECT_LE(piece.rebuilds(), mostRebuilds);
        if (frame->isLevelZero())
            continue;
        const ValuesAccordingSizes level = plus(piece.levelsOf(frame), 5.0 * (factor - 1.0));
        piece.rebuilds();
        EXPECT_EQ(piece.changeLevels(frame, level), Msg_Converged) << factor;
        EXPECT_LE(largestGap(piece.levelsOf(frame), level), kReadBack) << factor;
        EXPECT_LE(piece.rebuilds(), mostRebuilds);
    }
    EXPECT_TRUE(standsInTheNest(piece.group()));
}

double legDifference(const ControlledPiece &piece)
{
    double largest = 0.0;
    for (short size = 1; size <= 7; ++size) {
        const InSize stay(piece.group(), size, piece.gradation());
        largest = std::max(largest, std::abs(piece.dart()->legLength(0) - piece.dart()->legLength(1)));
    }
    return largest;
}

TEST(FrameMoves, aBodiceObeysAndItsDartStaysSewable)
{
    ControlledPiece piece(bodiceWithDart());
    piece.center(piece.at(0), piece.at(13), OneSide);
    ControlFrame *chest = piece.frame("Chest", piece.at(5), nullptr);
    ControlFrame *across = piece.frame("Across", piece.at(8), nullptr);
    expectObedience(piece, chest, 3);
    expectObedience(piece, across, 3);
    EXPECT_LT(legDifference(piece), 1e-6);
}

TEST(FrameMoves, aSleeveObeys)
{
    ControlledPiece piece(sleeve());
    // Contour: 0, 1, pleat, then the cap from the front underarm on.
    piece.center(piece.gabarit()->gabaritGetContourVector(1), piece.at(6), TwoSides);
    ControlFrame *biceps = piece.frame("Biceps", piece.at(3), piece.at(9));
    expectObedience(piece, biceps, 3);
}

TEST(FrameMoves, aTrouserLegObeysWithExplicitEvolutions)
{
    ControlledPiece piece(trouserLeg());
    piece.center(piece.at(0), piece.at(6), TwoSides);
    ControlFrame *knee = piece.frame("Knee", piece.at(2), piece.at(10));
    ControlFrame *hip = piece.frame("Hip", piece.at(3), piece.at(8));
    expectObedience(piece, knee, 3);
    expectObedience(piece, hip, 3);
}

TEST(FrameMoves, aSkirtObeysAndItsDrillHoleFollows)
{
    ControlledPiece piece(skirt());
    piece.center(piece.at(0), piece.at(6), OneSide);
    ControlFrame *hem = piece.frame("Hem", piece.at(2), nullptr);
    ControlFrame *hip = piece.frame("Hip", piece.at(3), nullptr);
    const GeoPoint2D hole = *piece.group()->ownVectors().front();
    expectObedience(piece, hip, 3);
    expectObedience(piece, hem, 3);
    EXPECT_GT(hole.distance(*piece.group()->ownVectors().front()), 0.1);
}

TEST(FrameMoves, aMirroredPieceObeysOnBothSidesAtOnceAndOnOne)
{
    ControlledPiece piece(mirroredBack());
    piece.center(piece.at(0), piece.at(9), TwoSides);
    ControlFrame *waist = piece.frame("Waist", piece.at(4), piece.at(14));
    ControlFrame *chest = piece.frame("Chest", piece.at(5), piece.at(13));
    expectObedience(piece, waist, 3);
    expectObedience(piece, chest, 3);
    // One side alone: the mirror halves what is left from pass to pass.
    chest->getFrameFrame()->setMeasureType(FrameFrame::Measure_ByPercentage);
    for (const double percentage : {0.0, 10.0, 100.0}) {
        chest->getFrameFrame()->setPercentageMeasureRating(percentage);
        expectObedience(piece, chest, 20);
    }
    for (int place = 1; place <= 8; ++place) {
        EXPECT_NEAR(piece.at(place)->x(), -piece.at(18 - place)->x(), 1e-9);
        EXPECT_NEAR(piece.at(place)->y(), piece.at(18 - place)->y(), 1e-9);
    }
}

TEST(FrameMoves, aPerimeterFrameObeys)
{
    RectangleUnderControl piece;
    piece.chord("Origin", 4);
    ControlFrame *hem = piece.chord("Hem", 1);
    hem->getFrameFrame()->getPerimeterMeasurement() = true;
    piece.readBack();
    expectObedience(piece, hem, 3);

    RectangleUnderControl oneSide(OneSide);
    oneSide.halfChord("Origin", 4);
    ControlFrame *half = oneSide.halfChord("Hem", 1);
    half->getFrameFrame()->getPerimeterMeasurement() = true;
    oneSide.readBack();
    expectObedience(oneSide, half, 3);
}

TEST(FrameMoves, manyRandomWishesAreObeyed)
{
    RectangleUnderControl piece;
    piece.chord("Hip", 1);
    ControlFrame *waist = piece.chord("Waist", 3);
    piece.chord("Chest", 5);
    std::mt19937 random(11);
    std::uniform_real_distribution<double> measure(30.0, 50.0);
    std::uniform_real_distribution<double> level(14.0, 26.0);
    for (int i = 0; i < 60; ++i) {
        ValuesAccordingSizes measures = piece.measuresOf(waist);
        ValuesAccordingSizes levels = piece.levelsOf(waist);
        for (int size = 0; size < 7; ++size) {
            measures.mValues[size] = measure(random);
            levels.mValues[size] = level(random);
        }
        const ValuesAccordingSizes wantedMeasures = measures;
        const ValuesAccordingSizes wantedLevels = levels;
        ASSERT_EQ(waist->changeMeasureLevel(ControlBase::MeasureLevel_Both, &measures, &levels,
                                            piece.gradation(), ModifyLevel_AllSizes),
                  Msg_Converged);
        EXPECT_LE(largestGap(piece.measuresOf(waist), wantedMeasures), kReadBack);
        EXPECT_LE(largestGap(piece.levelsOf(waist), wantedLevels), kReadBack);
    }
}

// The frame ends on the first leg's side of a dart; its tip is role 3.
TEST(FrameMoves, aDartWhoseTipMovesTakesItsPivotAlong)
{
    ControlledPiece piece(bodiceWithDart());
    piece.center(piece.at(0), piece.at(13), OneSide);
    piece.frame("Origin", piece.at(9), nullptr);
    ControlFrame *atDart = piece.frame("Dart", piece.at(3), nullptr);
    const GeoPoint2D tip = *piece.dart()->pICGetVector(3);
    const GeoPoint2D pivot = *piece.dart()->mPivotVector;
    EXPECT_EQ(piece.changeLevels(atDart, plus(piece.levelsOf(atDart), 2.0), ModifyLevel_Nest), Msg_Converged);
    const GeoPoint2D tipMoved = *piece.dart()->pICGetVector(3) - tip;
    const GeoPoint2D pivotMoved = *piece.dart()->mPivotVector - pivot;
    EXPECT_NEAR(tipMoved.y(), -2.0, 1e-4);
    EXPECT_NEAR(pivotMoved.y(), -2.0, 0.1); // and on to where both legs are equally long
    EXPECT_LT(legDifference(piece), 1e-6);
    // The copies died with the rebuild: the next change sees none.
    EXPECT_EQ(piece.dart()->mPivotCopy, nullptr);
    EXPECT_EQ(piece.dart()->mTipCopy, nullptr);
}

/// The right half of a front, with a dart in the waist whose legs are curves of one inner point each.
Piece frontWithCurvedDart()
{
    Piece made;
    made.group = std::make_unique<CDbGroupObject>();
    made.gabarit = made.group->newGabarit();
    for (const GeoPoint2D &place :
         {GeoPoint2D(0.0, 0.0), GeoPoint2D(9.0, 0.0), GeoPoint2D(10.5, -0.5), GeoPoint2D(12.0, 0.0),
          GeoPoint2D(23.0, 0.0), GeoPoint2D(24.0, 20.0), GeoPoint2D(12.0, 40.0), GeoPoint2D(0.0, 40.0)})
        made.contour.push_back(made.gabarit->addContourVector(place));
    CDbPointVOR *pivot = made.group->addOwnVector(GeoPoint2D(10.5, 18.0));
    const auto leg = [&](double x, CDbPointVOR *end) {
        return made.group->addCurve({pivot, made.group->addOwnVector(GeoPoint2D(x, 9.0)), end});
    };
    LineObject *const first = leg(9.9, made.at(1));
    LineObject *const second = leg(11.1, made.at(3));
    made.dart = made.group->addDart(made.gabarit, made.at(1), made.at(2), made.at(3), pivot,
                                    std::vector<LineObject *>{first}, std::vector<LineObject *>{second});
    return made;
}

TEST(FrameMoves, pivotAndCurvedLegsFollowTheTipAsOne)
{
    ControlledPiece piece(frontWithCurvedDart());
    piece.center(piece.at(0), piece.at(7), OneSide);
    piece.frame("Origin", piece.at(5), nullptr);
    ControlFrame *atDart = piece.frame("Dart", piece.at(3), nullptr);
    const DartContour *dart = piece.dart();
    std::vector<CDbPointVOR *> followers = {dart->mPivotVector};
    for (const int leg : {0, 1}) {
        for (CDbPointVOR *inner : dart->innerLegVectors(leg))
            followers.push_back(inner);
    }
    ASSERT_EQ(followers.size(), 3u);
    const std::vector<GeoPoint2D> before = {*followers[0], *followers[1], *followers[2]};
    // One move, without the rebuild that would restore the shape of the legs.
    EXPECT_EQ(atDart->adjustMeasureLevel(ControlBase::MeasureLevel_Level, 0.0, atDart->getLevel(-1) + 2.0,
                                         nullptr, false, -1),
              Msg_Moved);
    EXPECT_EQ(str(*piece.at(3)), "12.00 -2.00");
    for (std::size_t i = 0; i < followers.size(); ++i)
        EXPECT_LT((*followers[i] - before[i]).distance(GeoPoint2D(0.0, -2.0)), 1e-9) << i;
}

TEST(FrameMoves, aTipThatHardlyMovesIsNotFollowed)
{
    struct {
        double step; // cm
        bool followed;
    } const cases[] = {{5e-05, false}, {1e-04, true}};
    for (const auto &c : cases) {
        ControlledPiece piece(frontWithCurvedDart());
        piece.center(piece.at(0), piece.at(7), OneSide);
        piece.frame("Origin", piece.at(5), nullptr);
        ControlFrame *atDart = piece.frame("Dart", piece.at(3), nullptr);
        (void)atDart->adjustMeasureLevel(ControlBase::MeasureLevel_Level, 0.0, atDart->getLevel(-1) + c.step,
                                         nullptr, false, -1);
        EXPECT_NEAR(piece.at(3)->y(), -c.step, 1e-9);
        EXPECT_NEAR(piece.dart()->innerLegVectors(0).front()->y(), c.followed ? 9.0 - c.step : 9.0, 1e-9);
    }
}

TEST(FrameMoves, curvedDartLegsAreNotMorphedWithTheInside)
{
    ControlledPiece piece(frontWithCurvedDart());
    CDbPointVOR *hole = piece.group()->addOwnVector(GeoPoint2D(11.1, 9.5));
    piece.center(piece.at(0), piece.at(7), OneSide);
    piece.frame("Origin", piece.at(6), nullptr);
    piece.frame("Dart", piece.at(3), nullptr);
    ControlFrame *side = piece.frame("Side", piece.at(5), nullptr);
    EXPECT_EQ(side->adjustMeasureLevel(ControlBase::MeasureLevel_Measure, side->getMeasures(-1) + 4.0, 0.0,
                                       nullptr, false, -1),
              Msg_Moved);
    EXPECT_EQ(str(*piece.at(5)), "26.00 20.00");
    EXPECT_GT(hole->x(), 11.2);
    EXPECT_EQ(str(*piece.dart()->innerLegVectors(0).front()), "9.90 9.00");
    EXPECT_EQ(str(*piece.dart()->innerLegVectors(1).front()), "11.10 9.00");
}

TEST(FrameMoves, aNextChangeLeavesThePivotsOfOtherSizesAlone)
{
    ControlledPiece piece(bodiceWithDart());
    piece.center(piece.at(0), piece.at(13), OneSide);
    piece.frame("Origin", piece.at(9), nullptr);
    ControlFrame *atDart = piece.frame("Dart", piece.at(3), nullptr);
    ControlFrame *chest = piece.frame("Chest", piece.at(5), nullptr);
    ASSERT_EQ(piece.changeLevels(atDart, plus(piece.levelsOf(atDart), 1.0)), Msg_Converged);
    const CDbPointVOR *pivot = piece.dart()->mPivotVector;
    const GeoPoint2D smallest = pivot->positionInSize(1, piece.gradation());
    const GeoPoint2D largest = pivot->positionInSize(7, piece.gradation());
    ASSERT_GT(smallest.distance(largest), 0.5);
    ASSERT_EQ(piece.changeMeasures(chest, plus(piece.measuresOf(chest), 0.1)), Msg_Converged);
    EXPECT_LT(smallest.distance(pivot->positionInSize(1, piece.gradation())), 0.1);
    EXPECT_LT(largest.distance(pivot->positionInSize(7, piece.gradation())), 0.1);
}

TEST(FrameMoves, theFarHalfOfAOneSidedPieceGoesAlongWithALevel)
{
    RectangleUnderControl piece(OneSide);
    piece.halfChord("Origin", 1);
    ControlFrame *waist = piece.halfChord("Waist", 3);
    EXPECT_EQ(piece.changeLevels(waist, plus(piece.levelsOf(waist), 2.0), ModifyLevel_Nest), Msg_Converged);
    EXPECT_EQ(str(*piece.right(3)), "40.00 32.00");
    EXPECT_EQ(str(*piece.left(3)), "0.00 32.00"); // straight across from vector 1
}

TEST(FrameMoves, vector2OfAOneSidedFrameGoesAlongUnlessItLiesOnTheAxis)
{
    RectangleUnderControl piece(OneSide);
    piece.chord("Origin", 1);
    ControlFrame *slanted = piece.frame("Slanted", piece.right(3), piece.left(4));
    CDbPointVOR *onAxis = piece.group()->addOwnVector(GeoPoint2D(20.0, 50.0));
    ControlFrame *half = piece.frame("Half", piece.right(5), onAxis);
    // Straight on from vector 1 through the crossing lies vector 2 itself.
    EXPECT_EQ(piece.changeLevels(slanted, plus(piece.levelsOf(slanted), 2.0), ModifyLevel_Nest),
              Msg_Converged);
    EXPECT_EQ(str(*piece.right(3)), "40.00 32.00");
    EXPECT_EQ(str(*piece.left(4)), "0.00 42.00");
    // A vector 2 on the axis hands its part to the contour across, and stays.
    (void)half->adjustMeasureLevel(ControlBase::MeasureLevel_Level, 0.0, half->getLevel(-1) + 2.0, nullptr,
                                   false, -1);
    EXPECT_EQ(str(*piece.right(5)), "40.00 52.00");
    EXPECT_EQ(str(*piece.left(5)), "0.00 52.00");
    EXPECT_EQ(str(*onAxis), "20.00 50.00");
}

TEST(FrameMoves, vector2OffTheAxisGoesAlongThoughTheContourLiesStraightBehindIt)
{
    RectangleUnderControl piece(OneSide);
    piece.chord("Origin", 1);
    CDbPointVOR *inside = piece.group()->addOwnVector(GeoPoint2D(10.0, 37.5));
    ControlFrame *frame = piece.frame("Frame", piece.right(3), inside);
    EXPECT_EQ(frame->adjustMeasureLevel(ControlBase::MeasureLevel_Level, 0.0, frame->getLevel(-1) + 2.0,
                                        nullptr, false, -1),
              Msg_Moved);
    EXPECT_EQ(str(*piece.right(3)), "40.00 32.00");
    EXPECT_EQ(str(*inside), "10.00 39.50");
    EXPECT_EQ(str(*piece.left(4)), "0.00 40.00");
}

TEST(FrameMoves, ofTwoVectorsStraightAcrossTheFartherIsTheOpposite)
{
    for (const int nearer : {4, 2}) {
        RectangleUnderControl piece(OneSide);
        piece.chord("Origin", 1);
        ControlFrame *waist = piece.halfChord("Waist", 3);
        piece.chord("Chest", 5);
        *piece.left(nearer) = GeoPoint2D(10.0, 30.0);
        (void)waist->adjustMeasureLevel(ControlBase::MeasureLevel_Level, 0.0, waist->getLevel(-1) + 2.0,
                                        nullptr, false, -1);
        EXPECT_EQ(str(*piece.left(3)), "0.00 32.00") << nearer;
        EXPECT_NE(str(*piece.left(nearer)), "10.00 32.00") << nearer;
    }
}

TEST(FrameMoves, aVectorAcrossThatFacesAnotherPlaceOfTheAxisIsNoOpposite)
{
    struct {
        double height; // cm, of the vector across; the frame lies 30 cm up
        const char *after;
    } const cases[] = {{30.15, "0.00 32.15"}, {30.25, "0.00 30.25"}};
    for (const auto &c : cases) {
        RectangleUnderControl piece(OneSide);
        piece.chord("Origin", 1);
        ControlFrame *waist = piece.halfChord("Waist", 3);
        piece.chord("Chest", 5);
        *piece.left(3) = GeoPoint2D(0.0, c.height);
        (void)waist->adjustMeasureLevel(ControlBase::MeasureLevel_Level, 0.0, waist->getLevel(-1) + 2.0,
                                        nullptr, false, -1);
        EXPECT_EQ(str(*piece.right(3)), "40.00 32.00");
        EXPECT_EQ(str(*piece.left(3)), c.after);
    }
}

TEST(FrameMoves, withoutANeighbourTheEndOfThePieceTravelsWithVector1AlsoWhereTheFarSideIsHeld)
{
    RectangleUnderControl piece;
    piece.chord("Origin", 1);
    ControlFrame *chest = piece.chord("Chest", 5);
    ASSERT_EQ(piece.changeLevels(chest, plus(piece.levelsOf(chest), 2.0), ModifyLevel_Nest), Msg_Converged);
    // The side of vector 1 moves the upper end for good; the far side puts back only its own part.
    EXPECT_EQ(str(*piece.right(5)), "40.00 52.00");
    EXPECT_EQ(str(*piece.left(5)), "0.00 52.00");
    EXPECT_EQ(str(*piece.at(15)), "20.00 62.00");
    EXPECT_EQ(str(*piece.right(6)), "40.00 62.00");
}

// Diamond whose sides leave the upright axis at an angle, with a chord whose measure runs along the lower
// sides.
class PerimeterAtAngle
{
public:
    explicit PerimeterAtAngle(double degrees) : piece(diamond(degrees), GradationData())
    {
        piece.center(piece.at(0), piece.at(4), TwoSides);
        frame = piece.frame("Hem", piece.at(2), piece.at(6));
        frame->getFrameFrame()->getPerimeterMeasurement() = true;
        piece.readBack();
    }

    static Piece diamond(double degrees)
    {
        Piece made;
        made.group = std::make_unique<CDbGroupObject>();
        made.gabarit = made.group->newGabarit();
        const double angle = degrees * 3.14159265358979323846 / 180.0;
        const double x = 30.0 * std::sin(angle);
        const double y = 30.0 * std::cos(angle);
        for (const GeoPoint2D &place :
             {GeoPoint2D(0, 0), GeoPoint2D(x / 2, y / 2), GeoPoint2D(x, y), GeoPoint2D(x, y + 20.0),
              GeoPoint2D(0, y + 60.0), GeoPoint2D(-x, y + 20.0), GeoPoint2D(-x, y),
              GeoPoint2D(-x / 2, y / 2)})
            made.contour.push_back(made.gabarit->addContourVector(place));
        return made;
    }

    ControlledPiece piece;
    ControlFrame *frame = nullptr;
};

TEST(FrameMovesThatNeverEnd, aContourThatLeavesTheAxisAtThirtyDegreesFailsInsteadOfHanging)
{
    PerimeterAtAngle steep(60.0);
    EXPECT_EQ(steep.piece.changeMeasures(steep.frame, plus(steep.piece.measuresOf(steep.frame), 3.0)),
              Msg_Converged);
    PerimeterAtAngle thirty(30.0);
    EXPECT_EQ(thirty.piece.changeMeasures(thirty.frame, plus(thirty.piece.measuresOf(thirty.frame), 3.0)),
              Msg_MoveFailed);
    PerimeterAtAngle flat(20.0);
    EXPECT_EQ(flat.piece.changeMeasures(flat.frame, plus(flat.piece.measuresOf(flat.frame), 3.0)),
              Msg_MoveFailed);
}

TEST(FrameMovesThatNeverEnd, aCenterOffTheContourRaisesInsteadOfHanging)
{
    RectangleUnderControl piece;
    piece.chord("Hip", 2);
    ControlFrame *chord = piece.chord("Chord", 3);
    CDbPointVOR *off[] = {piece.group()->addOwnVector(GeoPoint2D(20.0, 1.0)),
                          piece.group()->addOwnVector(GeoPoint2D(20.0, 59.0))};
    piece.axis->setVectorContour(1, off[0]);
    piece.axis->setVectorContour(2, off[1]);
    CDbPointVOR *found = nullptr;
    CDbPointVOR *last = nullptr;
    EXPECT_THROW(piece.skeleton()->getControlFrameNeighbor(piece.right(3), true, &found, &last),
                 AssertionError);
    EXPECT_THROW(piece.changeMeasures(chord, plus(piece.measuresOf(chord), 3.0)), AssertionError);
    EXPECT_TRUE(standsInTheNest(piece.group()));
}

} // namespace
