// The control objects of one piece: their life, their elements, and who is beside whom on the contour.

#include <support/ControlledPiece.h>

#include <VorFrames/RightRegion.h>

#include <gtest/gtest.h>

using namespace VorSystem;
using namespace support;

namespace
{

// A 40 x 60 cm rectangle with an upright axis in its middle and chords 20, 30 and 50 cm up.
class ControlSkeletonOnRectangle : public testing::Test
{
protected:
    ControlSkeletonOnRectangle()
        : hip(piece.chord("Hip", 2)), waist(piece.chord("Waist", 3)), chest(piece.chord("Chest", 5))
    {
    }

    RectangleUnderControl piece;
    ControlFrame *hip;
    ControlFrame *waist;
    ControlFrame *chest;
};

TEST(ControlSkeletonLife, aGabaritHasOneSkeleton)
{
    ControlledPiece piece(rectangle());
    EXPECT_EQ(piece.gabarit()->controlSkeleton(), piece.skeleton());
    EXPECT_THROW(ControlSkeleton(piece.group(), piece.gabarit()), AssertionError);
    EXPECT_EQ(piece.gabarit()->controlSkeleton(), piece.skeleton());
    EXPECT_THROW(ControlSkeleton(nullptr, piece.gabarit()), AssertionError);
    EXPECT_THROW(ControlSkeleton(piece.group(), nullptr), AssertionError);
    EXPECT_THROW(ControlSkeleton(nullptr, piece.gabarit(), piece.skeleton()), AssertionError);
    EXPECT_THROW(ControlSkeleton(piece.group(), piece.gabarit(), nullptr), AssertionError);
}

TEST(ControlSkeletonLife, aDyingSkeletonLeavesItsGabarit)
{
    const Piece made = rectangle();
    {
        const ControlSkeleton skeleton(made.group.get(), made.gabarit);
        EXPECT_EQ(skeleton.getGroupe(), made.group.get());
        EXPECT_EQ(skeleton.getGabarit(), made.gabarit);
        EXPECT_TRUE(skeleton.isEmptySkeleton());
    }
    EXPECT_EQ(made.gabarit->controlSkeleton(), nullptr);
}

TEST(ControlSkeletonLife, anObjectEnteredTwiceDiesOnce)
{
    const Piece made = rectangle();
    ControlSkeleton skeleton(made.group.get(), made.gabarit);
    skeleton.addFrame(new ControlFrame(&skeleton));
    skeleton.addFrame(skeleton.getFrameLists().first());
    skeleton.addControlSegment(new ControlSegment(&skeleton));
    skeleton.addControlSegment(skeleton.getSegmentLists().first());
    EXPECT_EQ(skeleton.getFrameLists().size(), 3);
}

TEST_F(ControlSkeletonOnRectangle, aCopiedPieceGetsACopiedSkeleton)
{
    ControlSegment *side = piece.segment("Side", piece.at(6), piece.at(12), FrameSegment::Displace_AlongY);
    piece.axis->getRightRegions()->setRegion(1);
    waist->setAgreesLink(false);
    chest->setSelected(false);
    const std::unique_ptr<CDbGroupObject> group(piece.group()->copy());
    GabaritObject *gabarit = group->firstGabarit();
    auto older = std::make_unique<ControlSkeleton>(group.get(), gabarit);
    {
        // A skeleton that is there already is not refused: it belongs to whoever made it.
        const ControlSkeleton copy(group.get(), gabarit, piece.skeleton());
        EXPECT_EQ(gabarit->controlSkeleton(), &copy);
        ASSERT_TRUE(copy.possessControlCenter());
        EXPECT_EQ(copy.getFrameCenter()->Get_Frame_Centre(), piece.frameCenter());
        EXPECT_EQ(copy.getFrameCenter()->getVectorContour1(), gabarit->gabaritGetContourVector(4));
        EXPECT_EQ(copy.getFrameCenter()->getRightRegions()->region(), 1);
        const QListEx<ControlFrame *> frames = copy.getFrameLists();
        ASSERT_EQ(frames.size(), 3);
        EXPECT_EQ(frames[1]->getFrameFrame(), waist->getFrameFrame());
        EXPECT_EQ(frames[1]->getVectorContour1(), gabarit->gabaritGetContourVector(10));
        EXPECT_FALSE(frames[1]->getAgreesLink());
        EXPECT_FALSE(frames[2]->getSelection());
        ASSERT_EQ(copy.getSegmentLists().size(), 1);
        EXPECT_EQ(copy.getSegmentLists().first()->getFrameSegment(), side->getFrameSegment());
        EXPECT_EQ(frames[1]->getMeasures(-1), 40.0);
    }
    EXPECT_EQ(gabarit->controlSkeleton(), nullptr);
    older.reset();
}

TEST_F(ControlSkeletonOnRectangle, aCopyThatCannotBeMadeLeavesNothingBehind)
{
    // A vector that is on no chain of the source has no index: carried over it is null, and a center without
    // a group cannot ask.
    const std::unique_ptr<CDbGroupObject> group(piece.group()->copy());
    GabaritObject *gabarit = group->firstGabarit();
    ControlSkeleton older(group.get(), gabarit);
    piece.skeleton()->setGroup(nullptr);
    EXPECT_THROW(ControlSkeleton(group.get(), gabarit, piece.skeleton()), AssertionError);
    piece.skeleton()->setGroup(piece.group());
    EXPECT_EQ(gabarit->controlSkeleton(), &older);
}

TEST_F(ControlSkeletonOnRectangle, objectsAreFoundByTheirElement)
{
    ControlSkeleton *skeleton = piece.skeleton();
    ControlSegment *side = piece.segment("Side", piece.at(6), piece.at(12), FrameSegment::Displace_AlongY);
    EXPECT_EQ(skeleton->framePointingToTheFrameFrame(waist->getFrameFrame()), waist);
    EXPECT_EQ(skeleton->centerPointingToTheFrameCenter(piece.frameCenter()), piece.axis);
    EXPECT_EQ(skeleton->segmentPointingToTheFrameSegment(side->getFrameSegment()), side);
    const FrameFrame otherFrame(QStringLiteral("F"));
    const FrameCenter otherCenter(QStringLiteral("C"));
    const FrameSegment otherSegment(QStringLiteral("S"));
    EXPECT_EQ(skeleton->framePointingToTheFrameFrame(&otherFrame), nullptr);
    EXPECT_EQ(skeleton->centerPointingToTheFrameCenter(&otherCenter), nullptr);
    EXPECT_EQ(skeleton->segmentPointingToTheFrameSegment(&otherSegment), nullptr);
}

TEST_F(ControlSkeletonOnRectangle, objectsAreFoundByTheirVectors)
{
    ControlSkeleton *skeleton = piece.skeleton();
    ControlSegment *side = piece.segment("Side", piece.at(6), piece.at(12), FrameSegment::Displace_AlongY);
    EXPECT_EQ(skeleton->controlFrameisVectorContour(piece.left(3)), waist);
    EXPECT_EQ(skeleton->controlFrameisVectorContour(piece.at(6)), nullptr);
    EXPECT_EQ(skeleton->controlSegmentisVectorContour(piece.at(12)), side);
    EXPECT_EQ(skeleton->controlSegmentisVectorContour(piece.at(11)), nullptr);
    EXPECT_THROW((void)skeleton->controlFrameisVectorContour(nullptr), AssertionError);
}

TEST_F(ControlSkeletonOnRectangle, listsAreCopiesAndNullIsNotEntered)
{
    QListEx<ControlFrame *> frames = piece.skeleton()->getFrameLists();
    frames.clear();
    EXPECT_EQ(piece.skeleton()->getFrameLists().size(), 3);
    EXPECT_THROW(piece.skeleton()->addFrame(nullptr), AssertionError);
    EXPECT_THROW(piece.skeleton()->addControlSegment(nullptr), AssertionError);
    EXPECT_FALSE(piece.skeleton()->Remove(nullptr));
    piece.skeleton()->removeFrame(nullptr);
    EXPECT_EQ(piece.skeleton()->getFrameLists().size(), 3);
}

TEST_F(ControlSkeletonOnRectangle, theNeighbourIsTheNextFrameTowardsTheAxis)
{
    struct {
        int from;
        bool forward;
        ControlFrame *neighbor;
        int found; // -1: none
        int last;
    } const cases[] = {
        {9, true, chest, 11, 15},   {9, false, hip, 8, 3},  {11, true, nullptr, -1, 15},
        {8, false, nullptr, -1, 3}, {21, true, hip, 22, 3}, {21, false, chest, 19, 15},
        {10, true, chest, 11, 15},  {3, true, hip, 8, 15},  {15, false, chest, 11, 3},
    };
    for (const auto &c : cases) {
        CDbPointVOR *found = piece.at(0);
        CDbPointVOR *last = piece.at(0);
        EXPECT_EQ(piece.skeleton()->getControlFrameNeighbor(piece.at(c.from), c.forward, &found, &last),
                  c.neighbor)
            << c.from;
        EXPECT_EQ(found, c.found < 0 ? nullptr : piece.at(c.found)) << c.from;
        EXPECT_EQ(last, piece.at(c.last)) << c.from;
    }
}

TEST_F(ControlSkeletonOnRectangle, aFrameOnTheEndOfTheAxisIsANeighbourToo)
{
    ControlFrame *top = piece.frame("Top", piece.at(15), piece.at(15));
    CDbPointVOR *found = nullptr;
    CDbPointVOR *last = nullptr;
    EXPECT_EQ(piece.skeleton()->getControlFrameNeighbor(piece.at(11), true, &found, &last), top);
    EXPECT_EQ(found, piece.at(15));
    EXPECT_EQ(last, piece.at(15));
}

TEST_F(ControlSkeletonOnRectangle, aFrameThatHoldsTheStartItselfIsPassedOver)
{
    piece.frame("Slanted", piece.right(3), piece.left(4));
    ControlFrame *other = piece.frame("Other", piece.right(4), nullptr);
    CDbPointVOR *found = nullptr;
    CDbPointVOR *last = nullptr;
    EXPECT_EQ(piece.skeleton()->getControlFrameNeighbor(piece.left(4), false, &found, &last), chest);
    EXPECT_EQ(piece.skeleton()->getControlFrameNeighbor(piece.right(3), true, &found, &last), other);
}

TEST_F(ControlSkeletonOnRectangle, aVectorInsideThePieceHasNoNeighbourAndIsItsOwnEnd)
{
    CDbPointVOR *inside = piece.group()->addOwnVector(GeoPoint2D(10.0, 10.0));
    CDbPointVOR *found = piece.at(0);
    CDbPointVOR *last = nullptr;
    EXPECT_EQ(piece.skeleton()->getControlFrameNeighbor(inside, true, &found, &last), nullptr);
    EXPECT_EQ(found, nullptr);
    EXPECT_EQ(last, inside);
}

TEST_F(ControlSkeletonOnRectangle, aNeighbourIsNotSoughtWithoutAStartOrACenter)
{
    CDbPointVOR *found = piece.at(0);
    CDbPointVOR *last = piece.at(0);
    EXPECT_THROW((void)piece.skeleton()->getControlFrameNeighbor(nullptr, true, &found, &last),
                 AssertionError);
    EXPECT_EQ(found, nullptr);
    EXPECT_EQ(last, nullptr);
    CDbPointVOR *stranger = CDbPointVOR::newVectorObject();
    EXPECT_THROW((void)piece.skeleton()->getControlFrameNeighbor(stranger, true, &found, &last),
                 AssertionError);
    CDbPointVOR::destroyVectorObject(&stranger);
    ControlledPiece bare(rectangle());
    EXPECT_THROW((void)bare.skeleton()->getControlFrameNeighbor(bare.at(1), true, &found, &last),
                 AssertionError);
}

TEST_F(ControlSkeletonOnRectangle, theSetIsThatOfTheCenterOrElseOfTheFirstSegment)
{
    EXPECT_EQ(piece.skeleton()->getFrameSet(), piece.set());
    EXPECT_EQ(piece.skeleton()->getFrameLevelZero(), hip);

    ControlledPiece bare(rectangle());
    EXPECT_EQ(bare.skeleton()->getFrameSet(), nullptr);
    EXPECT_EQ(bare.skeleton()->getFrameLevelZero(), nullptr);
    bare.segment("Side", bare.at(0), bare.at(1), FrameSegment::Displace_AlongX);
    EXPECT_EQ(bare.skeleton()->getFrameSet(), bare.set());
    bare.skeleton()->getSegmentLists().first()->Set_mFrameSegment(nullptr);
    EXPECT_THROW((void)bare.skeleton()->getFrameSet(), AssertionError);
    new ControlCenter(bare.skeleton());
    EXPECT_THROW((void)bare.skeleton()->getFrameSet(), AssertionError);
    EXPECT_THROW(bare.skeleton()->adjustNewLevelZero(false), AssertionError);
}

TEST_F(ControlSkeletonOnRectangle, aNewManagerIsEnteredThroughTheSetOfTheSameName)
{
    ControlSegment *side = piece.segment("Side", piece.at(6), piece.at(12), FrameSegment::Displace_AlongY);
    GestFrames manager;
    EXPECT_THROW(piece.skeleton()->adjustsANewFrameSets(&manager), AssertionError);
    auto *set = new FrameSet(QStringLiteral("SET"), &manager);
    manager.addFrameSet(set, -1);
    FrameCenter *center = set->newCenter(QStringLiteral("Center"));
    for (const char *name : {"Hip", "Waist", "Chest"})
        set->newFrame(QString::fromLatin1(name), center);
    EXPECT_THROW(piece.skeleton()->adjustsANewFrameSets(&manager), AssertionError); // no segment there
    piece.skeleton()->adjustsANewFrameSet(piece.set());
    FrameSegment *segment = set->newSegment(QStringLiteral("Side"));
    piece.skeleton()->adjustsANewFrameSets(&manager);
    EXPECT_EQ(piece.axis->Get_Frame_Centre(), center);
    EXPECT_EQ(waist->getFrameFrame(), center->getFrames()[1]);
    EXPECT_EQ(side->getFrameSegment(), segment);
    EXPECT_EQ(piece.skeleton()->getFrameSet(), set);
    EXPECT_THROW(piece.skeleton()->adjustsANewFrameSet(nullptr), AssertionError);
    piece.skeleton()->adjustsANewFrameSet(piece.set());

    ControlledPiece bare(rectangle());
    bare.skeleton()->adjustsANewFrameSets(nullptr); // nothing to adjust
}

TEST_F(ControlSkeletonOnRectangle, anOriginThatIsGoneIsReplacedByTheFirstFrame)
{
    piece.frameCenter()->removeFrame(hip->getFrameFrame());
    EXPECT_EQ(piece.skeleton()->getFrameLevelZero(), nullptr);
    piece.skeleton()->adjustNewLevelZero(false);
    EXPECT_EQ(piece.skeleton()->getFrameLevelZero(), waist);
    piece.frameCenter()->addFrame(hip->getFrameFrame(), 0);
}

TEST_F(ControlSkeletonOnRectangle, skeletonsAreLinkedByACommonDefinedLink)
{
    const std::unique_ptr<CDbGroupObject> group(piece.group()->copy());
    FrameLink *link = piece.set()->newLink(QStringLiteral("Link"));
    {
        ControlSkeleton other(group.get(), group->firstGabarit());
        GabaritObject *gabarit = group->firstGabarit();
        ControlFrame far(gabarit->gabaritGetContourVector(2), nullptr, &other,
                         piece.set()->newFrame(QStringLiteral("Far"), piece.frameCenter()));
        piece.document().mPlan.addGroup(group.get());
        EXPECT_FALSE(ControlSkeleton::areSkeletonsLinkes(piece.skeleton(), &other));
        link->linkFrame(waist->getFrameFrame());
        link->linkFrame(far.getFrameFrame());
        EXPECT_TRUE(ControlSkeleton::areSkeletonsLinkes(piece.skeleton(), &other));
        EXPECT_TRUE(ControlSkeleton::areSkeletonsLinkes(&other, piece.skeleton()));
        EXPECT_FALSE(ControlSkeleton::areSkeletonsLinkes(&other, &other));
        EXPECT_THROW(ControlSkeleton::areSkeletonsLinkes(nullptr, &other), AssertionError);
        EXPECT_THROW(ControlSkeleton::areSkeletonsLinkes(&other, nullptr), AssertionError);
        far.setAgreesLink(false);
        EXPECT_FALSE(ControlSkeleton::areSkeletonsLinkes(piece.skeleton(), &other));
        piece.document().mPlan.takeGroup(group.get());
    }
}

TEST_F(ControlSkeletonOnRectangle, whatRestedOnAVectorThatGoesGoesToo)
{
    ControlSegment *onWaist =
        piece.segment("On", piece.right(3), piece.at(12), FrameSegment::Displace_AlongY);
    ControlSegment *off = piece.segment("Off", piece.at(6), piece.at(12), FrameSegment::Displace_AlongY);
    ASSERT_NE(onWaist, off);
    piece.skeleton()->fitAfterRemovalVectorContour(piece.right(3));
    EXPECT_EQ(piece.skeleton()->getFrameLists(), (QListEx<ControlFrame *>{hip, chest}));
    EXPECT_EQ(piece.skeleton()->getSegmentLists(), QListEx<ControlSegment *>{off});
    EXPECT_THROW(piece.skeleton()->fitAfterRemovalVectorContour(nullptr), AssertionError);
}

TEST_F(ControlSkeletonOnRectangle, withTheOriginEveryFrameGoes)
{
    piece.skeleton()->fitAfterRemovalVectorContour(piece.left(2));
    EXPECT_TRUE(piece.skeleton()->getFrameLists().isEmpty());
    EXPECT_EQ(piece.skeleton()->getFrameCenter(), piece.axis);
}

TEST_F(ControlSkeletonOnRectangle, withTheAxisFramesAndCenterGoAndOtherSegmentsStay)
{
    ControlSegment *onAxis = piece.segment("On", piece.at(3), piece.at(6), FrameSegment::Displace_AlongX);
    ControlSegment *off = piece.segment("Off", piece.at(6), piece.at(12), FrameSegment::Displace_AlongY);
    ASSERT_NE(onAxis, off);
    piece.skeleton()->fitAfterRemovalVectorContour(piece.at(3));
    EXPECT_TRUE(piece.skeleton()->getFrameLists().isEmpty());
    EXPECT_FALSE(piece.skeleton()->possessControlCenter());
    EXPECT_EQ(piece.skeleton()->getSegmentLists(), QListEx<ControlSegment *>{off});
}

} // namespace
