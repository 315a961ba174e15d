// Building pieces: who owns what, what is refused, and what a destroyed gabarit takes along.

#include <support/Pieces.h>

#include <VorJson/VorJson.h>
#include <gtest/gtest.h>

#include <algorithm>

using namespace VorSystem;
using support::Piece;

namespace
{

// Counts what it is told; its slide fails when asked to.
class StubbornGabarit : public GabaritObject
{
public:
    bool moveVectorAlongContour(CDbPointVOR *, CDbPointVOR *, CDbPointVOR *, const GeoPoint2D *,
                                const GeoPoint2D *, double) override
    {
        ++calls;
        return false;
    }

    int calls = 0;
};

class CountingDocument : public Document
{
public:
    const GradationData *gradationData() const override { return nullptr; }
    GestFrames *framesManager() const override { return nullptr; }
    const t_Plan *plan() const override { return nullptr; }
};

} // namespace

TEST(Identity, jsonHoldsTheNumber)
{
    const CDbID id(41);
    CDbID read;
    read.fromJson(id.toJson());
    EXPECT_TRUE(read == id);
    EXPECT_EQ(id.toJson().value(QStringLiteral("id")).toInt(), 41);
    read.fromJson(XJsonObject());
    EXPECT_EQ(read.number(), 0);
}

TEST(Identity, numbersAreUniqueInAGroupAndZeroIsNobody)
{
    const Piece piece = support::bodiceWithDart();
    std::vector<int> numbers;
    for (const CDbPointVOR *v : support::vectorsOf(piece.group.get()))
        numbers.push_back(v->Num_ID().number());
    std::sort(numbers.begin(), numbers.end());
    EXPECT_EQ(std::adjacent_find(numbers.begin(), numbers.end()), numbers.end());
    EXPECT_GT(numbers.front(), 0);
    CDbPointVOR *found = piece.at(0);
    EXPECT_FALSE(SeekingObjectVOR::objectAccordingID(piece.group.get(), CDbID(), &found, true));
    EXPECT_EQ(found, nullptr);
    EXPECT_FALSE(SeekingObjectVOR::objectAccordingID(nullptr, CDbID(1), &found, true));
}

TEST(Identity, aGivenNumberIsKeptUnlessItIsTaken)
{
    CDbGroupObject group;
    CDbPointVOR *first = CDbPointVOR::newVectorObject();
    EXPECT_EQ(first->Num_ID().number(), 0);
    EXPECT_TRUE(first->setIdentity(CDbID(17)));
    ASSERT_TRUE(group.groupAddVector(first));
    EXPECT_EQ(first->Num_ID().number(), 17);
    EXPECT_FALSE(first->setIdentity(CDbID(3)));
    CDbPointVOR *second = first->copyTheVector(0);
    EXPECT_EQ(second->Num_ID().number(), 17);
    ASSERT_TRUE(group.groupAddVector(second));
    EXPECT_EQ(second->Num_ID().number(), 18);
    EXPECT_EQ(group.vectorOfIdentity(17), first);
    ASSERT_TRUE(group.groupTakeVector(first));
    EXPECT_EQ(group.vectorOfIdentity(17), nullptr);
    CDbPointVOR::destroyVectorObject(&first);
}

TEST(Chains, ownVectorsAreNullEndedAndIndexedFromOne)
{
    CDbGroupObject group;
    EXPECT_EQ(group.mFirstVector, nullptr);
    CDbPointVOR *a = group.addOwnVector(GeoPoint2D(1, 1));
    CDbPointVOR *b = group.addOwnVector(GeoPoint2D(2, 2));
    EXPECT_EQ(group.mFirstVector, a);
    EXPECT_EQ(a->mNextVector, b);
    EXPECT_EQ(b->mNextVector, nullptr);
    EXPECT_EQ(group.groupGetVectorIndex(b), 2);
    EXPECT_EQ(group.groupGetVectorByIndex(1), a);
    EXPECT_EQ(group.groupGetVectorByIndex(3), nullptr);
}

TEST(Chains, indicesFollowEveryInsertionAndRemoval)
{
    const Piece piece = support::rectangle();
    GabaritObject *gabarit = piece.gabarit;
    CDbPointVOR *extra = CDbPointVOR::newVectorObject();
    EXPECT_EQ(gabarit->gabaritGetContourIndex(piece.at(3)), 4);
    ASSERT_TRUE(gabarit->insertContourVector(extra, piece.at(1)));
    EXPECT_EQ(gabarit->gabaritGetContourIndex(extra), 3);
    EXPECT_EQ(gabarit->gabaritGetContourIndex(piece.at(3)), 5);
    EXPECT_EQ(piece.at(1)->mNextVector, extra);
    ASSERT_TRUE(gabarit->takeContourVector(extra));
    EXPECT_EQ(gabarit->gabaritGetContourIndex(piece.at(3)), 4);
    EXPECT_EQ(piece.at(1)->mNextVector, piece.at(2));
    EXPECT_EQ(extra->gabarit(), nullptr);
    CDbPointVOR::destroyVectorObject(&extra);
    CDbPointVOR *first = piece.at(0);
    ASSERT_TRUE(gabarit->takeContourVector(first));
    EXPECT_EQ(gabarit->mFirstVector, piece.at(1));
    EXPECT_EQ(piece.at(3)->mNextVector, piece.at(1));
    CDbPointVOR::destroyVectorObject(&first);
}

TEST(Chains, moreThanAShortCanCountIsRefused)
{
    GabaritObject *gabarit = GabaritObject::create();
    for (int place = 0; place < 32767; ++place)
        ASSERT_NE(gabarit->addContourVector(GeoPoint2D(place, 0)), nullptr);
    EXPECT_EQ(gabarit->addContourVector(GeoPoint2D()), nullptr);
    CDbPointVOR *refused = CDbPointVOR::newVectorObject();
    EXPECT_FALSE(gabarit->gabaritAddContourVector(refused, nullptr));
    CDbPointVOR::destroyVectorObject(&refused);
    EXPECT_EQ(gabarit->gabaritGetContourIndex(gabarit->gabaritGetContourVector(32767)), 32767);
    GabaritObject::removeAGabarit(nullptr, &gabarit);
}

TEST(Chains, theCursorComesRoundAndKnowsNothingOfIterators)
{
    const Piece piece = support::rectangle();
    EXPECT_EQ(piece.gabarit->gabaritFirstContourVector(), piece.at(0));
    EXPECT_EQ(piece.gabarit->gabaritNextContourVector(), piece.at(1));
    IteratorVector walk;
    walk.first(piece.at(2));
    std::vector<CDbPointVOR *> seen;
    for (CDbPointVOR *v = nullptr; walk.next(v);)
        seen.push_back(v);
    EXPECT_EQ(seen, (std::vector<CDbPointVOR *>{piece.at(2), piece.at(3), piece.at(0), piece.at(1)}));
    EXPECT_EQ(piece.gabarit->gabaritNextContourVector(), piece.at(2));
    EXPECT_EQ(piece.gabarit->gabaritNextContourVector(), piece.at(3));
    EXPECT_EQ(piece.gabarit->gabaritNextContourVector(), piece.at(0));
    GabaritObject empty;
    EXPECT_EQ(empty.gabaritFirstContourVector(), nullptr);
    EXPECT_EQ(empty.gabaritNextContourVector(), nullptr);
}

TEST(Chains, aWalkGoesGabaritByGabaritThenOverOwnVectorsAndLeavesDependentsOutOnRequest)
{
    const Piece piece = support::bodiceWithDart();
    GabaritObject *pocket = piece.group->newGabarit();
    for (int place = 0; place < 3; ++place)
        pocket->addContourVector(GeoPoint2D(place, place * place));
    piece.dart->pICAdjustTheCopyVectors(); // copies are never walked

    std::vector<CDbPointVOR *> expected = piece.gabarit->contourVectors();
    expected.insert(expected.end(), pocket->contourVectors().begin(), pocket->contourVectors().end());
    expected.insert(expected.end(), piece.group->ownVectors().begin(), piece.group->ownVectors().end());
    EXPECT_EQ(support::vectorsOf(piece.group.get()), expected);

    expected.erase(std::remove_if(expected.begin(), expected.end(),
                                  [](const CDbPointVOR *v) { return v->mVectorKind >= Vector_Pleat; }),
                   expected.end());
    std::vector<CDbPointVOR *> anchors;
    IteratorVectorGroup walk;
    walk.first(piece.group.get(), IteratorVectorG::Iterator_Anchors);
    for (CDbPointVOR *v = nullptr; walk.next(v);)
        anchors.push_back(v);
    EXPECT_EQ(anchors, expected);
    EXPECT_NE(std::find(anchors.begin(), anchors.end(), piece.dart->mPivotVector), anchors.end());
    EXPECT_EQ(std::find(anchors.begin(), anchors.end(), piece.at(2)), anchors.end()); // the cap
}

TEST(Chains, emptyWalksEndAtOnce)
{
    CDbPointVOR *v = nullptr;
    IteratorVector vectors;
    EXPECT_FALSE(vectors.next(v));
    IteratorVectorGroup group;
    group.first(nullptr, IteratorVectorG::Iterator_All);
    EXPECT_FALSE(group.next(v));
    IteratorVectorGabarit contour;
    contour.first(nullptr, IteratorVectorG::Iterator_Anchors);
    EXPECT_FALSE(contour.next(v));
    GabaritObject *gabarit = nullptr;
    EXPECT_FALSE(IteratorGabarit(nullptr).next(gabarit));
    CDbGroupObject *piece = nullptr;
    EXPECT_FALSE(AbstrIteratorGroup::create(nullptr, Iterator_AllGroups)->next(piece));
}

TEST(Ownership, anOwnedVectorIsNeitherDestroyedNorTakenTwice)
{
    const Piece piece = support::rectangle();
    CDbPointVOR *v = piece.at(0);
    CDbPointVOR::destroyVectorObject(&v);
    ASSERT_EQ(v, piece.at(0));
    EXPECT_FALSE(piece.group->groupAddVector(v));
    EXPECT_FALSE(piece.gabarit->gabaritAddContourVector(v, piece.group.get()));
    GabaritObject *gabarit = piece.gabarit;
    GabaritObject::removeAGabarit(nullptr, &gabarit);
    EXPECT_EQ(gabarit, piece.gabarit);
}

TEST(Ownership, aVectorInUseIsNotGivenAway)
{
    const Piece piece = support::bodiceWithDart();
    EXPECT_FALSE(piece.gabarit->takeContourVector(piece.at(1))); // dart
    EXPECT_FALSE(piece.gabarit->takeContourVector(piece.at(6))); // curve
    EXPECT_FALSE(piece.gabarit->takeContourVector(piece.at(0))); // grain line, seam
    EXPECT_FALSE(piece.group->groupTakeVector(piece.dart->mPivotVector));
}

TEST(Ownership, nothingIsPutIntoTheMouthOfADart)
{
    const Piece piece = support::bodiceWithDart();
    CDbPointVOR *extra = CDbPointVOR::newVectorObject();
    EXPECT_FALSE(piece.gabarit->insertContourVector(extra, piece.at(1)));
    EXPECT_FALSE(piece.gabarit->insertContourVector(extra, piece.at(2)));
    EXPECT_TRUE(piece.gabarit->insertContourVector(extra, piece.at(3)));

    // A mouth without cap, from the last vector of the contour to its first.
    const Piece plain = support::rectangle();
    CDbPointVOR *pivot = plain.group->addOwnVector(GeoPoint2D(20, 30));
    ASSERT_NE(plain.group->addDart(plain.gabarit, plain.at(-1), nullptr, plain.at(0), pivot), nullptr);
    CDbPointVOR *more = CDbPointVOR::newVectorObject();
    EXPECT_FALSE(plain.gabarit->gabaritAddContourVector(more, nullptr));
    EXPECT_EQ(plain.gabarit->addContourVector(GeoPoint2D(1, 1)), nullptr);
    EXPECT_TRUE(plain.gabarit->insertContourVector(more, plain.at(0)));
    const std::unique_ptr<CDbGroupObject> copy(plain.group->copy());
    EXPECT_NE(copy->firstGabarit()->mFirstDart, nullptr);
}

TEST(Ownership, aHandleBelongsToOneCurve)
{
    const Piece piece = support::rectangle(40.0, 60.0, 2);
    CDbPointVOR *a = piece.group->addOwnVector(GeoPoint2D(1, 1), Vector_Handle);
    CDbPointVOR *b = piece.group->addOwnVector(GeoPoint2D(2, 2), Vector_Handle);
    const std::vector<CDbPointVOR *> lower = {piece.at(0), piece.at(1), piece.at(2)};
    const std::vector<CDbPointVOR *> right = {piece.at(2), piece.at(3), piece.at(4)};
    EXPECT_EQ(piece.group->addCurve(lower, a, a), nullptr);
    EXPECT_EQ(piece.group->addCurve({a, piece.at(1)}, a, b), nullptr);
    EXPECT_EQ(piece.group->addCurve(lower, piece.at(4), b), nullptr); // on the contour
    ASSERT_NE(piece.group->addCurve(lower, a, nullptr), nullptr);
    EXPECT_EQ(piece.group->addCurve(right, b, a), nullptr);
    ASSERT_NE(piece.group->addCurve(right, nullptr, b), nullptr);

    // Both handles go with the contour that their curves lay on.
    EXPECT_TRUE(piece.group->destroyGabarit(piece.gabarit));
    EXPECT_TRUE(piece.group->ownVectors().empty());
}

TEST(Ownership, aDestroyedGabaritTakesEverythingAlongThatRestsOnIt)
{
    const Piece piece = support::mirroredBack();
    GabaritObject *gabarit = piece.gabarit;
    EXPECT_GT(piece.group->lines().size(), 0U);
    GabaritObject::removeAGabarit(piece.group.get(), &gabarit);
    EXPECT_EQ(gabarit, nullptr);
    EXPECT_EQ(piece.group->firstGabarit(), nullptr);
    EXPECT_TRUE(piece.group->lines().empty());
    EXPECT_TRUE(piece.group->mMirror->pairs().size() == 1); // the pivots are own vectors
    EXPECT_EQ(piece.group->ownVectors().size(), 2U);
    const GradationData sizes = support::sevenSizes();
    piece.group->againObjects(true, &sizes);
    std::unique_ptr<CDbGroupObject> copy(piece.group->copy());
    EXPECT_EQ(copy->ownVectors().size(), 2U);
}

TEST(Ownership, aGroupHoldsAGabaritOfAnotherClass)
{
    CDbGroupObject group;
    auto *gabarit = new StubbornGabarit;
    gabarit->addContourVector(GeoPoint2D(0, 0));
    ASSERT_TRUE(group.addGabarit(gabarit));
    EXPECT_FALSE(group.addGabarit(gabarit));
    EXPECT_GT(gabarit->mFirstVector->Num_ID().number(), 0);
    GabaritObject *asSeen = nullptr;
    IteratorGabarit walk(&group);
    ASSERT_TRUE(walk.next(asSeen));
    EXPECT_FALSE(asSeen->moveVectorAlongContour(nullptr, nullptr, nullptr, nullptr, nullptr, 1.0));
    EXPECT_EQ(gabarit->calls, 1);
}

TEST(Ownership, aPlanOwnsItsGroupsAndWalksThemInOrder)
{
    t_Plan plan;
    auto *front = new CDbGroupObject(QStringLiteral("Front"));
    auto *back = new CDbGroupObject(QStringLiteral("Back"));
    EXPECT_TRUE(plan.addGroup(front));
    EXPECT_TRUE(plan.addGroup(back));
    EXPECT_FALSE(plan.addGroup(front));
    EXPECT_FALSE(plan.addGroup(nullptr));
    EXPECT_EQ(plan.groupByName(QStringLiteral("Back")), back);
    EXPECT_EQ(plan.groupByName(QStringLiteral("Sleeve")), nullptr);
    EXPECT_EQ(plan.lockState(nullptr), 0);

    const auto walk = AbstrIteratorGroup::create(&plan, Iterator_AllGroups);
    CDbGroupObject *group = nullptr;
    ASSERT_TRUE(walk->next(group));
    EXPECT_EQ(group, front);
    ASSERT_TRUE(plan.removeGroup(back)); // meanwhile
    EXPECT_FALSE(walk->next(group));
    EXPECT_EQ(group, nullptr);
    ASSERT_TRUE(plan.takeGroup(front));
    EXPECT_FALSE(plan.removeGroup(front));
    delete front;
}

TEST(Ownership, aDocumentMayHaveNothing)
{
    CountingDocument document;
    Document &asSeen = document;
    EXPECT_EQ(asSeen.gradationData(), nullptr);
    EXPECT_EQ(asSeen.framesManager(), nullptr);
    EXPECT_EQ(asSeen.plan(), nullptr);
}

TEST(Ownership, callsOfTheViewAreCounted)
{
    CDbGroupObject group;
    group.emitChanged();
    group.setSelected(true);
    group.setSelected(false);
    group.againObjects(false, nullptr);
    EXPECT_EQ(group.changedCount(), 1);
    EXPECT_EQ(group.selectionCount(), 2);
    EXPECT_FALSE(group.getSelection());
    EXPECT_EQ(group.rebuildCount(), 1);
    EXPECT_EQ(group.mRebuildingFromFrames, 0);
}

TEST(Ownership, aCloneNamesItsSource)
{
    const Piece piece = support::skirt();
    EXPECT_FALSE(piece.group->isClone());
    piece.group->setLocked(true);
    std::unique_ptr<CDbGroupObject> clone(piece.group->copy());
    clone->setCloneOf(piece.group->name());
    EXPECT_TRUE(clone->isClone());
    EXPECT_TRUE(clone->isLocked());
    EXPECT_EQ(clone->cloneOf(), QStringLiteral("Skirt"));
}

TEST(Copies, everythingOfAPieceIsInItsCopyAndNothingIsShared)
{
    for (const Piece &piece : support::garmentPieces()) {
        std::unique_ptr<CDbGroupObject> copy(piece.group->copy());
        EXPECT_EQ(copy->lines().size(), piece.group->lines().size());
        EXPECT_EQ(copy->notches().size(), piece.group->notches().size());
        EXPECT_EQ(copy->grainLines().size(), piece.group->grainLines().size());
        EXPECT_EQ(copy->innerLines().size(), piece.group->innerLines().size());
        EXPECT_EQ(copy->seamAllowances().size(), piece.group->seamAllowances().size());
        EXPECT_EQ(copy->drillHoles().size(), piece.group->drillHoles().size());
        EXPECT_EQ(copy->isMirror(), piece.group->isMirror());
        for (const LineObject *line : copy->lines()) {
            EXPECT_TRUE(copy->holds(line->begin()) && copy->holds(line->end()));
            for (const CDbPointVOR *point :
                 line->linkIsCurve() ? line->getCurveLine()->points() : std::vector<CDbPointVOR *>())
                EXPECT_TRUE(copy->holds(point));
        }
        const DartContour *dart = copy->firstGabarit()->mFirstDart;
        EXPECT_EQ(dart != nullptr, piece.gabarit->mFirstDart != nullptr);
        if (dart) {
            EXPECT_TRUE(copy->holds(dart->mPivotVector));
            EXPECT_EQ(dart->mLegsMadeEqual, piece.dart->mLegsMadeEqual);
            EXPECT_TRUE(copy->pICIsLine(dart->leg(0).front(), nullptr));
        }
        const auto before = support::vectorsOf(piece.group.get());
        const auto after = support::vectorsOf(copy.get());
        ASSERT_EQ(before.size(), after.size());
        for (std::size_t place = 0; place < before.size(); ++place) {
            EXPECT_EQ(before[place]->Num_ID().number(), after[place]->Num_ID().number());
            EXPECT_EQ(before[place]->mVectorKind, after[place]->mVectorKind);
        }
    }
}
