// Centers: the order of their frames and the origin of their levels.

#include <support/ControlledPiece.h>
#include <support/TestDocument.h>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

using namespace VorSystem;
using support::name;
using support::names;

namespace
{

class Centers : public testing::Test
{
protected:
    FrameFrame *frame(const char *text) { return set->newFrame(name(text), center); }

    support::RecordingApplication application;
    support::TestDocument document{3, 2};
    FrameSet *set = document.newSet();
    FrameCenter *center = set->newCenter(name("C"));
};

TEST_F(Centers, startEmptyAndOneSided)
{
    EXPECT_EQ(center->elementType(), 1);
    EXPECT_EQ(center->Caracteristique(), 1);
    EXPECT_EQ(center->getFrameLevelZero(), nullptr);
    EXPECT_FALSE(center->reevaluate(Reevaluate_Apply));
    center->Caracteristique() = FrameCenter::Characteristic_TwoSides;
    EXPECT_EQ(const_cast<const FrameCenter *>(center)->Caracteristique(), 2);
    center->setCharacteristic(FrameCenter::Characteristic_TwoSidesDoubled);
    EXPECT_EQ(center->Caracteristique(), 3);
}

TEST_F(Centers, theFirstFrameIsTheOrigin)
{
    FrameFrame *const a = frame("A");
    frame("B");
    EXPECT_EQ(center->getFrameLevelZero(), a);
    EXPECT_TRUE(a->isLevelZero());
}

TEST_F(Centers, framesAreEnteredOnceAndAtTheirPlace)
{
    FrameFrame *const a = frame("A");
    frame("B");
    FrameFrame extra(name("X"));
    center->addFrame(&extra, 1);
    center->addFrame(a, -1); // it stands here already
    EXPECT_EQ(names(center->getFrames()), "C:A X C:B");
    EXPECT_EQ(extra.getFrameCenter(), nullptr); // its own pointer is not touched
    center->removeFrame(&extra);
    center->removeFrame(&extra);
    EXPECT_EQ(names(center->getFrames()), "C:A C:B");
    EXPECT_THROW(center->addFrame(nullptr, -1), AssertionError);
}

TEST_F(Centers, removingTheOriginPromotesNobody)
{
    FrameFrame *const a = frame("A");
    FrameFrame *const b = frame("B");
    center->removeFrame(a);
    EXPECT_EQ(center->getFrameLevelZero(), nullptr);
    center->addFrame(a, -1); // with no origin the next one entered takes its place
    EXPECT_EQ(center->getFrameLevelZero(), a);
    center->setFrameLevelZero(b);
    EXPECT_EQ(center->getFrameLevelZero(), b);
}

TEST_F(Centers, onlyAFrameOfTheCenterBecomesTheOrigin)
{
    FrameFrame *const a = frame("A");
    FrameFrame *const foreign = set->newFrame(name("X"), set->newCenter(name("D")));
    center->setFrameLevelZero(foreign);
    EXPECT_EQ(center->getFrameLevelZero(), a);
    EXPECT_THROW(center->setFrameLevelZero(nullptr), AssertionError);
}

TEST_F(Centers, findTheirFramesByBareName)
{
    FrameFrame *const a = frame("Front Waist");
    EXPECT_EQ(center->foundFrameAccordingName(name("frontwaist")), a);
    EXPECT_EQ(center->foundFrameAccordingName(name("C:Front Waist")), nullptr);
}

TEST_F(Centers, withoutADefinedFrameNoNewOriginIsFoundAndNothingReevaluated)
{
    FrameFrame *const a = frame("A");
    frame("B");
    center->removeFrame(a);
    document.mHasGradation = false; // a reevaluation would raise
    center->adjustNewLevelZero(true);
    EXPECT_EQ(center->getFrameLevelZero(), nullptr);
    EXPECT_FALSE(center->containsFrameDefines());
    center->addFrame(a, -1);
}

TEST(CenterOnAPiece, theFirstDefinedFrameBecomesTheOriginAndLevelsAreStoredAnew)
{
    support::RectangleUnderControl piece;
    FrameFrame *const a = piece.chord("A", 1)->getFrameFrame();
    FrameFrame *const b = piece.chord("B", 3)->getFrameFrame();
    FrameFrame *const undefined = piece.set()->newFrame(name("U"), piece.frameCenter());
    piece.frameCenter()->removeFrame(a);
    piece.frameCenter()->addFrame(a, -1);
    piece.frameCenter()->setFrameLevelZero(undefined);
    piece.frameCenter()->adjustNewLevelZero(false);
    EXPECT_EQ(piece.frameCenter()->getFrameLevelZero(), b); // first in the list
    EXPECT_TRUE(piece.frameCenter()->containsFrameDefines());
    piece.frameCenter()->adjustNewLevelZero(true);
    EXPECT_NEAR(a->getLevel(-1), 20.0, 1e-9);
    EXPECT_NEAR(b->getLevel(-1), 0.0, 1e-9);
}

TEST(CenterOnAPiece, withoutASetItCannotReevaluateIt)
{
    support::RectangleUnderControl piece;
    FrameFrame *const a = piece.chord("A", 1)->getFrameFrame();
    FrameCenter lonely(name("L"));
    lonely.addFrame(a, -1); // the frame itself still stands on its own center
    EXPECT_THROW(lonely.adjustNewLevelZero(true), AssertionError);
    lonely.adjustNewLevelZero(false);
    EXPECT_EQ(lonely.getFrameLevelZero(), a);
}

TEST_F(Centers, refuseToDieWithFrames)
{
    EXPECT_TRUE(center->canBeDestroyed(true));
    frame("A");
    EXPECT_FALSE(center->canBeDestroyedInBatch());
    EXPECT_TRUE(application.mMessages.isEmpty());
    EXPECT_FALSE(center->canBeDestroyed(true));
    EXPECT_EQ(application.mMessages,
              QStringList{name("Cannot delete this center because it still contains frames.")});
}

TEST(CenterOnAPiece, refusesToDieWhileDefinedWithTheCommonText)
{
    support::RecordingApplication application;
    support::RectangleUnderControl piece;
    EXPECT_FALSE(piece.frameCenter()->canBeDestroyed(true));
    EXPECT_EQ(application.mMessages,
              QStringList{name("Cannot delete this element because it is still defined.")});
    EXPECT_EQ(piece.frameCenter()->ControlCenterCorrespondent(), piece.axis);
}

TEST_F(Centers, reorderingKeepsTheFlatListInStep)
{
    frame("A");
    FrameCenter *const other = set->newCenter(name("D"));
    set->newFrame(name("X"), other);
    frame("B");
    EXPECT_EQ(names(set->getFrames()), "C:A D:X C:B");
    center->ChangeFrameFrames({1, 0});
    EXPECT_EQ(names(center->getFrames()), "C:B C:A");
    EXPECT_EQ(names(set->getFrames()), "C:B D:X C:A");
    center->ChangeFrameFrames({0});
    EXPECT_EQ(names(center->getFrames()), "C:B C:A"); // another count: nothing
}

TEST_F(Centers, aFrameLostByARepeatedPlaceLosesItsCenter)
{
    frame("A");
    FrameFrame *const lost = frame("B");
    center->ChangeFrameFrames({0, 0});
    EXPECT_EQ(names(center->getFrames()), "C:A C:A");
    EXPECT_EQ(names(set->getFrames()), "C:A C:A");
    EXPECT_EQ(lost->getFrameCenter(), nullptr);
    delete lost;
}

TEST_F(Centers, aFrameLostByARepeatedPlaceLeavesItsLink)
{
    frame("A");
    FrameFrame *const lost = frame("B");
    FrameLink *const link = set->newLink(name("L"));
    link->linkFrame(lost);
    center->ChangeFrameFrames({0, 0});
    EXPECT_EQ(lost->getLink(), nullptr);
    EXPECT_TRUE(link->getFrames().isEmpty());
    delete lost;
}

TEST_F(Centers, aRepeatedFrameLeavesWhole)
{
    FrameFrame *const a = frame("A");
    FrameFrame *const lost = frame("B");
    center->ChangeFrameFrames({0, 0});
    delete a;
    EXPECT_TRUE(center->getFrames().isEmpty());
    EXPECT_TRUE(set->getFrames().isEmpty());
    delete lost;
}

TEST_F(Centers, withoutASetOnlyTheOwnListIsReordered)
{
    FrameCenter lonely(name("L"));
    FrameFrame a(name("A"));
    FrameFrame b(name("B"));
    a.addFrameCenter(&lonely, -1);
    b.addFrameCenter(&lonely, -1);
    lonely.ChangeFrameFrames({1, 0});
    EXPECT_EQ(names(lonely.getFrames()), "L:B L:A");
    a.removeFromCenter();
    b.removeFromCenter();
    EXPECT_TRUE(lonely.getFrames().isEmpty());
}

TEST_F(Centers, anOrderBeyondTheListEndsTheProgram)
{
    testing::FLAGS_gtest_death_test_style = "fast";
    frame("A");
    EXPECT_DEATH(center->ChangeFrameFrames({1}), "at: index 1");
}

RC_GTEST_FIXTURE_PROP(Centers, reorderingAnswersAsTheStepsToldOneByOne, ())
{
    FrameCenter *const other = set->newCenter(name("D"));
    const int count = *rc::gen::inRange(0, 8);
    for (int i = 0; i < count; ++i) {
        set->newFrame(QString::number(i), center);
        if (i % 2 == 0)
            set->newFrame(QString::number(i), other);
    }
    QListEx<int> order;
    for (int i = 0; i < count; ++i)
        order.append(*rc::gen::inRange(0, count)); // repeated places too

    const QListEx<FrameFrame *> old = center->getFrames();
    QListEx<FrameFrame *> own = old;
    QListEx<FrameFrame *> flat = set->getFrames();
    QListEx<int> positions;
    QListEx<FrameFrame *> replacements;
    for (int i = 0; i < count; ++i) {
        if (order.at(i) == i)
            continue;
        const int j = flat.indexOf(own.at(i));
        if (j >= 0) {
            positions.append(j);
            replacements.append(old.at(order.at(i)));
        }
        own[i] = old.at(order.at(i));
    }
    for (int j = 0; j < flat.count(); ++j) {
        const int k = positions.indexOf(j);
        if (k >= 0)
            flat[j] = replacements.at(k);
    }

    center->ChangeFrameFrames(order);
    RC_ASSERT(center->getFrames() == own);
    RC_ASSERT(set->getFrames() == flat);
    for (FrameFrame *frame : old) {
        if (!own.contains(frame))
            delete frame;
    }
}

} // namespace
