// A segment's wishes, and the piece that obeys them, or says why it does not.

#include <support/FaultyPiece.h>

#include <gtest/gtest.h>

#include <cmath>

using namespace VorSystem;
using namespace support;

namespace
{

constexpr auto AlongX = FrameSegment::Displace_AlongX;
constexpr auto AlongY = FrameSegment::Displace_AlongY;
constexpr auto AlongLine = FrameSegment::Displace_AlongLine;
constexpr auto AlongContour = FrameSegment::Displace_AlongContour;
constexpr double kReadBack = 3e-05; // cm: a length that differs by no more counts as reached

double largestGap(const ValuesAccordingSizes &a, const ValuesAccordingSizes &b)
{
    double gap = 0.0;
    for (int size = 0; size < a.mValues.size(); ++size)
        gap = std::max(gap, std::abs(a.mValues.at(size) - b.mValues.at(size)));
    return gap;
}

void expectObedience(ControlledPiece &piece, ControlSegment *segment, int mostPasses)
{
    for (const double factor : {0.92, 1.05, 1.1}) {
        const ValuesAccordingSizes wanted = times(piece.measuresOf(segment), factor);
        piece.rebuilds();
        EXPECT_EQ(piece.changeMeasures(segment, wanted), Msg_Converged) << factor;
        EXPECT_LE(largestGap(piece.measuresOf(segment), wanted), kReadBack) << factor;
        EXPECT_LE(piece.rebuilds(), mostPasses) << factor;
    }
    EXPECT_TRUE(standsInTheNest(piece.group()));
}

// A 40 x 60 cm rectangle in seven sizes, each 1 cm wider and 2 cm higher than the one before.
class SegmentChange : public testing::Test
{
protected:
    SegmentChange() : piece(rectangle(40.0, 60.0, 6, 1.0)) {}

    ControlSegment *side(FrameSegment::eDisplaceType type)
    {
        ControlSegment *segment = piece.segment("Side", piece.at(6), piece.at(12), type);
        piece.rebuilds();
        return segment;
    }

    ControlledPiece piece;
};

TEST_F(SegmentChange, wantedLengthIsReadBackInEverySize)
{
    for (const auto type : {AlongY, AlongLine, AlongContour}) {
        ControlSegment *segment = side(type);
        const ValuesAccordingSizes wanted = times(piece.measuresOf(segment), 1.1);
        EXPECT_EQ(piece.changeMeasures(segment, wanted), Msg_Converged);
        EXPECT_EQ(str(piece.measuresOf(segment)), str(wanted));
        EXPECT_EQ(str(*segment->getFrameSegment()->getMeasureBySizes()), str(wanted));
        EXPECT_TRUE(standsInTheNest(piece.group()));
        delete segment;
    }
}

TEST_F(SegmentChange, onRealPiecesToo)
{
    ControlledPiece skirtPiece(skirt());
    expectObedience(skirtPiece, skirtPiece.segment("Side", skirtPiece.at(3), skirtPiece.at(4), AlongLine),
                    17);
    expectObedience(skirtPiece, skirtPiece.segment("Seam", skirtPiece.at(2), skirtPiece.at(4), AlongContour),
                    17);
    ControlledPiece leg(trouserLeg());
    expectObedience(leg, leg.segment("Inside", leg.at(9), leg.at(0), AlongContour), 17);
    ControlledPiece bodice(bodiceWithDart());
    expectObedience(bodice, bodice.segment("Armhole", bodice.at(5), bodice.at(9), AlongContour), 17);
    expectObedience(bodice, bodice.segment("Waist", bodice.at(0), bodice.at(4), AlongContour), 17);
}

TEST_F(SegmentChange, onAMirroredPieceTheImageFollows)
{
    ControlledPiece back(mirroredBack());
    back.center(back.at(0), back.at(9));
    back.frame("Waist", back.at(4), back.at(14));
    back.frame("Chest", back.at(5), back.at(13));
    expectObedience(back, back.segment("Shoulder", back.at(7), back.at(8), AlongContour), 17);
    for (int place = 1; place <= 8; ++place)
        EXPECT_NEAR(back.at(place)->x(), -back.at(18 - place)->x(), 1e-9);
}

TEST_F(SegmentChange, withACenterTheStretchBehindGivesWay)
{
    piece.center(piece.at(3), piece.at(15));
    piece.frame("Chest", piece.at(12), piece.at(18));
    ControlSegment *lower = piece.segment("Lower", piece.at(6), piece.at(9), AlongContour);
    const auto wanted = plus(piece.measuresOf(lower), 3.0);
    EXPECT_EQ(piece.changeMeasures(lower, wanted), Msg_Converged);
    EXPECT_EQ(str(*piece.at(9)), "40.00 33.00");
    EXPECT_EQ(str(*piece.at(10)), "40.00 42.00");
    EXPECT_EQ(str(*piece.at(12)), "40.00 60.00");
    EXPECT_EQ(str(*piece.at(21)), "0.00 30.00");
}

TEST_F(SegmentChange, theNestAloneTakesTheOtherSizesAlong)
{
    ControlSegment *segment = side(AlongY);
    EXPECT_EQ(piece.changeMeasures(segment, plus(piece.measuresOf(segment), 6.0), ModifyLevel_Nest),
              Msg_Converged);
    EXPECT_EQ(str(piece.measuresOf(segment)), "60.00 62.00 64.00 [66.00] 68.00 70.00 72.00");
}

TEST_F(SegmentChange, theNestMovesUnderTheOtherSizesWhenTheyAreAskedToStay)
{
    ControlSegment *segment = side(AlongY);
    ValuesAccordingSizes wanted = piece.measuresOf(segment);
    wanted.mValues[3] += 1.0;
    EXPECT_EQ(piece.changeMeasures(segment, wanted), Msg_Converged);
    EXPECT_EQ(str(piece.measuresOf(segment)), "54.00 56.00 58.00 [61.00] 62.00 64.00 66.00");
    EXPECT_LT(piece.at(12)->positionInSize(7, piece.gradation()).distance(GeoPoint2D(43.0, 66.0)), 1e-5);
}

TEST_F(SegmentChange, shiftedSizesKeepTheNestAndTheCallersListIsChanged)
{
    ControlSegment *segment = side(AlongY);
    ValuesAccordingSizes wanted = piece.measuresOf(segment);
    for (int size = 0; size < 7; ++size)
        wanted.mValues[size] = 80.0 + size - 3;
    EXPECT_EQ(segment->changeMeasureLevel(ControlBase::MeasureLevel_Invalid, &wanted, nullptr,
                                          piece.gradation(), ModifyLevel_ShiftedSizes),
              Msg_Converged);
    EXPECT_EQ(str(wanted), "57.00 58.00 59.00 [60.00] 61.00 62.00 63.00");
    EXPECT_EQ(str(piece.measuresOf(segment)), "57.00 58.00 59.00 [60.00] 61.00 62.00 63.00");
}

TEST_F(SegmentChange, aLengthThatIsMetMovesNothingButStillRebuilds)
{
    ControlSegment *segment = side(AlongY);
    const auto before = placesOf(piece.group(), piece.gradation());
    for (const auto action : {ModifyLevel_Nest, ModifyLevel_AllSizes}) {
        piece.rebuilds();
        EXPECT_EQ(piece.changeMeasures(segment, plus(piece.measuresOf(segment), 9e-06), action),
                  Msg_Converged);
        EXPECT_EQ(piece.rebuilds(), 1);
        EXPECT_EQ(largestDistance(before, placesOf(piece.group(), piece.gradation())), 0.0);
    }
}

TEST_F(SegmentChange, aSegmentAcrossItsDirectionCannotShrink)
{
    for (const auto action : {ModifyLevel_Nest, ModifyLevel_AllSizes}) {
        ControlledPiece fresh(rectangle(40.0, 60.0, 6, 1.0));
        ControlSegment *segment = fresh.segment("Side", fresh.at(6), fresh.at(12), AlongX);
        EXPECT_EQ(fresh.changeMeasures(segment, times(fresh.measuresOf(segment), 0.9), action), Msg_Diverged);
        EXPECT_EQ(fresh.rebuilds(), 3); // seen in the third pass, not before
        EXPECT_TRUE(standsInTheNest(fresh.group()));
    }
}

TEST_F(SegmentChange, aTinyGapThatGrowsIsNoDivergence)
{
    struct {
        double wish; // cm
        eMsgConvergence result;
        int rebuilds;
    } const cases[] = {{-4e-04, Msg_NotConverged, 100}, {-6e-04, Msg_Diverged, 3}};
    for (const auto &c : cases) {
        ControlledPiece fresh(rectangle(40.0, 60.0, 6, 1.0), GradationData());
        ControlSegment *segment = fresh.segment("Side", fresh.at(6), fresh.at(12), AlongX);
        EXPECT_EQ(fresh.changeMeasures(segment, plus(fresh.measuresOf(segment), c.wish), ModifyLevel_Nest),
                  c.result)
            << c.wish;
        EXPECT_EQ(fresh.rebuilds(), c.rebuilds) << c.wish;
    }
}

TEST_F(SegmentChange, aStretchBehindWithoutLengthLeftIsImpossible)
{
    piece.center(piece.at(3), piece.at(15));
    piece.frame("Chest", piece.at(12), piece.at(18));
    ControlSegment *lower = piece.segment("Lower", piece.at(6), piece.at(9), AlongContour);
    const auto baton = piece.document().mManager->setGroupMapping({{piece.group(), piece.group()}});
    piece.rebuilds();
    EXPECT_EQ(piece.changeMeasures(lower, plus(piece.measuresOf(lower), 40.0)), Msg_Impossible);
    EXPECT_EQ(piece.rebuilds(), 1);
    EXPECT_FALSE(piece.document().mManager->groupHasChanged(piece.group()));
    EXPECT_TRUE(standsInTheNest(piece.group()));
    EXPECT_EQ(piece.changeMeasures(lower, plus(piece.measuresOf(lower), 4.0)), Msg_Converged);
    EXPECT_TRUE(piece.document().mManager->groupHasChanged(piece.group()));
}

TEST_F(SegmentChange, anUnknownDisplacementMovesNothing)
{
    ControlSegment *segment = side(FrameSegment::eDisplaceType(7));
    EXPECT_EQ(piece.changeMeasures(segment, plus(piece.measuresOf(segment), 1.0), ModifyLevel_Nest),
              Msg_NotConverged);
    EXPECT_EQ(piece.rebuilds(), 100);
    EXPECT_EQ(piece.changeMeasures(segment, plus(piece.measuresOf(segment), 1.0)), Msg_Diverged);
    EXPECT_EQ(piece.rebuilds(), 3);
    EXPECT_EQ(str(*piece.at(12)), "40.00 60.00");
}

TEST_F(SegmentChange, badArgumentsRaise)
{
    ControlSegment *segment = side(AlongY);
    ValuesAccordingSizes values = piece.measuresOf(segment);
    const auto change = [&](ControlSegment *control, ValuesAccordingSizes *wanted, const GradationData *sizes,
                            int action) {
        return control->changeMeasureLevel(ControlBase::MeasureLevel_Measure, wanted, nullptr, sizes,
                                           eModifyLevelActionType(action));
    };
    EXPECT_THROW(change(segment, &values, nullptr, 3), AssertionError);
    EXPECT_THROW(change(segment, nullptr, piece.gradation(), 3), AssertionError);
    EXPECT_THROW(change(segment, &values, piece.gradation(), 0), AssertionError);
    EXPECT_THROW(change(segment, &values, piece.gradation(), 9), AssertionError);
    ControlSegment bare(piece.at(0), piece.at(3), piece.skeleton(), nullptr);
    EXPECT_THROW(change(&bare, &values, piece.gradation(), 3), AssertionError);
    EXPECT_EQ(piece.rebuilds(), 0);
}

/// Undoes every move until a rebuild, counted from 1, from which on moves stay.
class StubbornGroup final : public CDbGroupObject
{
public:
    explicit StubbornGroup(int yieldsAt) : mYieldsAt(yieldsAt) {}
    void againObjects(bool gradationDefined, const GradationData *gradation, bool all) override
    {
        CDbGroupObject::againObjects(gradationDefined, gradation, all);
        if (rebuildCount() < mYieldsAt)
            *mHeld = mPlace;
    }
    CDbPointVOR *mHeld = nullptr;
    GeoPoint2D mPlace;

private:
    int mYieldsAt;
};

Piece stubbornRectangle(int yieldsAt)
{
    Piece made;
    auto *group = new StubbornGroup(yieldsAt);
    made.group.reset(group);
    made.gabarit = group->newGabarit();
    for (const auto &[x, y] :
         {std::pair(0.0, 0.0), std::pair(40.0, 0.0), std::pair(40.0, 60.0), std::pair(0.0, 60.0)})
        made.contour.push_back(made.gabarit->addContourVector(GeoPoint2D(x, y)));
    group->mHeld = made.contour[2];
    group->mPlace = GeoPoint2D(40.0, 60.0);
    return made;
}

eMsgConvergence changeOnStubbornPiece(int yieldsAt)
{
    ControlledPiece piece(stubbornRectangle(yieldsAt));
    ControlSegment *side = piece.segment("Side", piece.at(1), piece.at(2), AlongY);
    const eMsgConvergence result =
        piece.changeMeasures(side, plus(piece.measuresOf(side), 3.0), ModifyLevel_Nest);
    EXPECT_EQ(piece.rebuilds(), yieldsAt);
    EXPECT_NEAR(side->getMeasures(-1), 63.0, 1e-5);
    return result;
}

TEST(SegmentChangeOnStubbornPiece, theHundredthPassComesTooLateAlsoWhenItArrives)
{
    EXPECT_EQ(changeOnStubbornPiece(99), Msg_Converged);
    EXPECT_EQ(changeOnStubbornPiece(100), Msg_NotConverged);
}

// The piece never yields, so the gap stays what it was in the beginning.
TEST(SegmentChangeOnStubbornPiece, aGapIsMetOrTooSmallToDivergeByItsSize)
{
    struct {
        double gap; // cm
        eModifyLevelActionType action;
        eMsgConvergence result;
        int rebuilds;
    } const cases[] = {
        {2e-05, ModifyLevel_Nest, Msg_Converged, 1},
        {4e-05, ModifyLevel_Nest, Msg_NotConverged, 100},
        {2e-05, ModifyLevel_AllSizes, Msg_Converged, 1},
        {4e-04, ModifyLevel_AllSizes, Msg_NotConverged, 100},
        {6e-04, ModifyLevel_AllSizes, Msg_Diverged, 3},
        {6e-04, ModifyLevel_Nest, Msg_NotConverged, 100}, // in the nest alone it has to grow
    };
    for (const auto &c : cases) {
        ControlledPiece piece(stubbornRectangle(1000), GradationData());
        ControlSegment *side = piece.segment("Side", piece.at(1), piece.at(2), AlongY);
        EXPECT_EQ(piece.changeMeasures(side, plus(piece.measuresOf(side), c.gap), c.action), c.result)
            << c.gap;
        EXPECT_EQ(piece.rebuilds(), c.rebuilds) << c.gap;
    }
}

TEST(SegmentFaults, everyCallMayFailOrThrow)
{
    for (const auto manner : {Faults::Throw, Faults::Fail}) {
        int call = 1;
        for (bool struck = true; struck; ++call) {
            Faults faults;
            ControlledPiece piece(faultyRectangle(&faults));
            piece.center(piece.at(3), piece.at(15));
            ControlSegment *lower = piece.segment("Lower", piece.at(6), piece.at(9), AlongContour);
            const ValuesAccordingSizes wanted = plus(piece.measuresOf(lower), 3.0);
            faults.strikeAt(call, manner);
            bool thrown = false;
            try {
                piece.changeMeasures(lower, wanted);
            } catch (const std::runtime_error &) {
                thrown = true;
            }
            struck = faults.hasStruck();
            faults.rest();
            EXPECT_EQ(thrown, struck && manner == Faults::Throw) << call;
            EXPECT_TRUE(standsInTheNest(piece.group())) << call;
            EXPECT_EQ(piece.group()->mRebuildingFromFrames, 0) << call;
            EXPECT_EQ(piece.skeleton()->getSegmentLists(), QListEx<ControlSegment *>{lower}) << call;
            piece.readBack();
            EXPECT_EQ(piece.changeMeasures(lower, wanted), Msg_Converged) << call;
        }
        EXPECT_GT(call, 15);
    }
}

} // namespace
