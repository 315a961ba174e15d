// Evaluation order on real pieces: who moves whom, what that does to the order, and how a cycle is broken.

#include "OrderWorld.h"

#include <support/ControlledPiece.h>
#include <support/RecordingApplication.h>

#include <boost/exception/get_error_info.hpp>
#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <vector>

namespace VorSystem
{

namespace
{

#define EXPECT_TEXT(actual, expected) EXPECT_EQ((actual).toStdString(), std::string(expected))

QString orderOf(FrameSet *set)
{
    OrderEvaluation order;
    FrameSegment *culprit = nullptr;
    const bool answer = order.calculateOrder(set, culprit);
    EXPECT_EQ(answer, culprit == nullptr);
    const QString rounds = str(order.rounds());
    return answer ? rounds : rounds + QStringLiteral(" culprit ") + culprit->name();
}

// One rectangle
// ------------------------------------------------------------------------------------------------------------

// Chest, Waist and Hip across a 40 x 60 rectangle, at heights of 40, 30 and 20; level zero is Hip, the first.
class PieceOrder : public testing::Test
{
public:
    support::RectangleUnderControl piece;
    FrameFrame *hip = piece.chord("Hip", 2)->getFrameFrame();
    FrameFrame *waist = piece.chord("Waist", 3)->getFrameFrame();
    FrameFrame *chest = piece.chord("Chest", 4)->getFrameFrame();
};

TEST_F(PieceOrder, framesWithoutFormulasMoveNobody)
{
    EXPECT_TEXT(orderOf(piece.set()), "Hip.m Hip.l Waist.m Waist.l Chest.m Chest.l");
}

TEST_F(PieceOrder, segmentBetweenTheNeighboursOfAFrameWaitsForIt)
{
    FrameSegment *const seam =
        piece.segment("Seam", piece.right(3), piece.right(4), FrameSegment::Displace_AlongY)
            ->getFrameSegment();
    waist->setFormulaMeasurement(constant(41));

    QListEx<Evaluation> whoMoves;
    seam->evaluationInfluencesGeometrically(whoMoves);
    EXPECT_TEXT(str(whoMoves), "Waist.m Waist.l");
    QListEx<Evaluation> whomItMoves;
    waist->evaluationsInfluencedGeometrically(whomItMoves);
    EXPECT_TEXT(str(whomItMoves), "Seam.m");
    EXPECT_TEXT(orderOf(piece.set()), "Hip.m Hip.l Waist.m Waist.l Chest.m Chest.l | Seam.m");
}

TEST_F(PieceOrder, frameWithALevelFormulaMovesItsNeighboursToo)
{
    FrameSegment *const seam =
        piece.segment("Seam", piece.right(3), piece.right(4), FrameSegment::Displace_AlongY)
            ->getFrameSegment();
    waist->setFormulaLevel(constant(12));

    QListEx<Evaluation> whoMoves;
    seam->evaluationInfluencesGeometrically(whoMoves);
    EXPECT_TEXT(str(whoMoves), "Waist.m Waist.l");
}

// Two seams of one piece without a center: each displaces the vector on which the other ends.
class CrossedSeams : public testing::Test
{
public:
    CrossedSeams()
    {
        left->rememberFormula(constant(30));
        right->rememberFormula(constant(30));
    }

    support::RecordingApplication application;
    support::ControlledPiece piece{support::rectangle(40.0, 60.0, 6, 1.0)};
    FrameSegment *left =
        piece.segment("Left", piece.at(6), piece.at(9), FrameSegment::Displace_AlongY)->getFrameSegment();
    FrameSegment *right =
        piece.segment("Right", piece.at(10), piece.at(8), FrameSegment::Displace_AlongY)->getFrameSegment();
};

TEST_F(CrossedSeams, firstIsTheCulpritAndLosesItsControlObject)
{
    ASSERT_TRUE(left->influenceGeometrically(right));
    ASSERT_TRUE(right->influenceGeometrically(left));
    EXPECT_TEXT(orderOf(piece.set()), "(none) culprit Left");
    EXPECT_FALSE(piece.set()->isOrderEvaluation());
    EXPECT_TRUE(left->isDefinedInDocument()); // asking costs nothing

    piece.set()->calculateOrderEvaluation();
    EXPECT_FALSE(left->isDefinedInDocument());
    EXPECT_TRUE(right->isDefinedInDocument());
    EXPECT_NE(left->measurementFormula(), nullptr);
    EXPECT_TEXT(orderOf(piece.set()), "Left.m Right.m");
}

TEST_F(CrossedSeams, dryRunBreaksTheCycleToo)
{
    piece.set()->reevaluate(Reevaluate_Ask);
    EXPECT_FALSE(left->isDefinedInDocument());
}

TEST_F(CrossedSeams, reevaluationUnderAnElementBreaksTheCycleToo)
{
    piece.set()->reevaluateUnder(right, Reevaluate_Store);
    EXPECT_FALSE(left->isDefinedInDocument());
    EXPECT_TRUE(right->isDefinedInDocument());
}

TEST_F(CrossedSeams, segmentThatGetsTheFormulaLosesItsControlObject)
{
    left->setFormulaMeasurement(nullptr);
    EXPECT_TEXT(orderOf(piece.set()), "Right.m | Left.m");
    left->setFormulaMeasurement(constant(31));
    EXPECT_FALSE(left->isDefinedInDocument());
    EXPECT_NE(left->measurementFormula(), nullptr);
}

// Random documents
// ------------------------------------------------------------------------------------------------------------

// One or two pieces of any kind with random frames and segments on them, all of one set.
class RandomPieces
{
public:
    explicit RandomPieces(unsigned seed) : mEngine(seed), mDocument(support::sevenSizes())
    {
        mSet = new FrameSet(QStringLiteral("Set"), mDocument.mManager.get());
        mDocument.mManager->addFrameSet(mSet, -1);
        const unsigned pieces = 1 + pick(2);
        for (unsigned i = 0; i < pieces; ++i)
            addPiece();
        giveFormulas();
    }

    FrameSet *set() const { return mSet; }

    // Every list and its nest.
    QString lists() const
    {
        QStringList words;
        const auto add = [&](const auto &elements) {
            for (BaseFrame *element : elements) {
                words << element->name() + QLatin1Char(' ') + str(*element->getMeasureBySizes());
                if (const ValuesAccordingSizes *const levels = element->getLevelBySizes())
                    words << str(*levels);
            }
        };
        add(mSet->getFrames());
        add(mSet->getFrameLinks());
        add(mSet->getFrameSegments());
        return words.join(QStringLiteral("; "));
    }

    // Where every vector stands in every size.
    std::vector<GeoPoint2D> places() const
    {
        std::vector<GeoPoint2D> all;
        for (const CDbGroupObject *group : mDocument.mPlan.groups()) {
            const std::vector<GeoPoint2D> places = support::placesOf(group, mDocument.gradationData());
            all.insert(all.end(), places.begin(), places.end());
        }
        return all;
    }

    QList<BaseFrame *> elements() const
    {
        QList<BaseFrame *> elements;
        const auto add = [&](const auto &kind) {
            for (BaseFrame *element : kind)
                elements << element;
        };
        add(mSet->getFrames());
        add(mSet->getFrameLinks());
        add(mSet->getFrameSegments());
        return elements;
    }

private:
    unsigned pick(unsigned count) { return std::uniform_int_distribution<unsigned>(0, count - 1)(mEngine); }
    bool chance(unsigned percent) { return pick(100) < percent; }
    QString name() { return QString::number(++mCount); }

    support::Piece anyPiece()
    {
        switch (pick(5)) {
        case 0: return support::skirt();
        case 1: return support::bodiceWithDart();
        case 2: return support::mirroredBack();
        default: // two of them are alike, identities and places included
            return support::rectangle(40.0, 60.0, 3, 1.0);
        }
    }

    void addPiece()
    {
        support::Piece piece = anyPiece();
        const std::vector<CDbPointVOR *> contour = piece.contour;
        std::vector<CDbPointVOR *> vectors = support::vectorsOf(piece.group.get());
        CDbGroupObject *const group = piece.group.get();
        mDocument.mPlan.addGroup(piece.release());
        mSkeletons.push_back(std::make_unique<ControlSkeleton>(group, piece.gabarit));
        ControlSkeleton *const skeleton = mSkeletons.back().get();
        const auto onContour = [&] { return contour[pick(static_cast<unsigned>(contour.size()))]; };
        const auto anywhere = [&] { return vectors[pick(static_cast<unsigned>(vectors.size()))]; };

        FrameCenter *const center = mSet->newCenter(name());
        center->setCharacteristic(static_cast<FrameCenter::eCharacteristicType>(1 + pick(3)));
        CDbPointVOR *const first = onContour();
        CDbPointVOR *second = onContour();
        while (second == first)
            second = onContour();
        auto *const axis = new ControlCenter(first, second, skeleton, center, true);
        for (unsigned i = pick(6); i > 0; --i) {
            FrameFrame *const frame = mSet->newFrame(name(), center);
            if (chance(85))
                new ControlFrame(chance(90) ? onContour() : anywhere(), chance(80) ? onContour() : nullptr,
                                 skeleton, frame);
            if (chance(5) && mSkeletons.size() > 1) // on two pieces
                new ControlFrame(onContour(), onContour(), skeleton, mSet->getFrames().first());
        }
        for (unsigned i = pick(6); i > 0; --i) {
            FrameSegment *const segment = mSet->newSegment(name());
            segment->getDisplace() = static_cast<FrameSegment::eDisplaceType>(1 + pick(4));
            segment->getInfluenceAreaPercent() = 20.0 + pick(100);
            if (chance(85))
                new ControlSegment(onContour(), onContour(), skeleton, segment);
        }
        if (chance(5)) { // frames of a skeleton without a center cannot tell their neighbours
            skeleton->setControlCenter(nullptr);
            mTakenAxes.emplace_back(axis);
        }
    }

    void giveFormulas()
    {
        const QListEx<FrameFrame *> frames = mSet->getFrames();
        const QListEx<FrameSegment *> segments = mSet->getFrameSegments();
        FrameLink *const link = mSet->newLink(name());
        for (FrameFrame *frame : frames) {
            if (chance(40))
                frame->setFormulaMeasurement(constant(10));
            if (chance(20))
                frame->setFormulaLevel(segments.isEmpty() ? constant(10)
                                                          : sumOf({measureOf(segments.first())}));
            if (chance(20))
                link->linkFrame(frame);
        }
        for (FrameSegment *segment : segments) {
            if (chance(40))
                segment->rememberFormula(chance(80) ? constant(10) : sumOf({measureOf(link)}));
        }
    }

    std::mt19937 mEngine;
    support::PieceDocument mDocument;
    FrameSet *mSet = nullptr;
    std::vector<std::unique_ptr<ControlSkeleton>> mSkeletons;
    std::vector<std::unique_ptr<ControlCenter>> mTakenAxes;
    int mCount = 0;
};

// What act says, or in which function it failed.
template<class Act>
QString outcome(Act act)
{
    try {
        return act();
    } catch (const AssertionError &error) {
        const char *const *const function = boost::get_error_info<boost::throw_function>(error);
        return QStringLiteral("failed in ") +
               (function == nullptr ? QStringLiteral("?") : QString::fromUtf8(*function));
    }
}

QString literalOrderOf(FrameSet *set)
{
    const LiteralOrder order(set);
    const QString rounds = str(order.rounds);
    return order.answer ? rounds : rounds + QStringLiteral(" culprit ") + order.culprit->name();
}

QString literalMovedBy(FrameSet *set, BaseFrame *mover)
{
    QListEx<Evaluation> moved;
    const QListEx<FrameFrame *> frames = set->getFrames();
    for (FrameFrame *frame : frames) {
        if (mover->influenceGeometrically(frame))
            moved << measureOf(frame) << levelOf(frame);
    }
    const QListEx<FrameSegment *> segments = set->getFrameSegments();
    for (FrameSegment *segment : segments) {
        if (mover->influenceGeometrically(segment))
            moved << measureOf(segment);
    }
    return str(moved);
}

TEST(OrderOfRandomPieces, isTheOneThatAskingEveryPairGives)
{
    int failures = 0;
    int culprits = 0;
    int longOnes = 0;
    for (unsigned seed = 0; seed < 1000; ++seed) {
        const RandomPieces pieces(seed);
        const QString expected = outcome([&] { return literalOrderOf(pieces.set()); });
        const QString actual = outcome([&] { return orderOf(pieces.set()); });
        ASSERT_EQ(actual.toStdString(), expected.toStdString()) << "seed " << seed;

        failures += expected.startsWith(QStringLiteral("failed")) ? 1 : 0;
        culprits += expected.contains(QStringLiteral("culprit")) ? 1 : 0;
        longOnes += expected.count(QLatin1Char('|')) > 1 ? 1 : 0;
    }
    EXPECT_GT(failures, 10);
    EXPECT_GT(culprits, 30);
    EXPECT_GT(longOnes, 100);
}

TEST(OrderOfRandomPieces, whomAnElementMovesIsWhatAskingEveryPairGives)
{
    for (unsigned seed = 0; seed < 300; ++seed) {
        const RandomPieces pieces(seed);
        FrameSet *const set = pieces.set();
        const QList<BaseFrame *> elements = pieces.elements();
        for (BaseFrame *element : elements) {
            const QString expected = outcome([&] { return literalMovedBy(set, element); });
            const QString actual = outcome([&] {
                QListEx<Evaluation> moved;
                element->evaluationsInfluencedGeometrically(moved);
                return str(moved);
            });
            ASSERT_EQ(actual.toStdString(), expected.toStdString())
                << "seed " << seed << " element " << element->name().toStdString();
        }
    }
}

TEST(OrderOfRandomPieces, cyclesAreBrokenBySegmentsWithFormulasAlone)
{
    for (unsigned seed = 0; seed < 300; ++seed) {
        const RandomPieces pieces(seed);
        FrameSet *const set = pieces.set();
        if (outcome([&] { return orderOf(set); }).startsWith(QStringLiteral("failed")))
            continue;
        QHash<BaseFrame *, bool> wasDefined;
        const QListEx<FrameSegment *> segments = set->getFrameSegments();
        for (FrameSegment *segment : segments)
            wasDefined.insert(segment, segment->isDefinedInDocument());

        set->calculateOrderEvaluation();
        ASSERT_TRUE(set->isOrderEvaluation()) << "seed " << seed;
        for (FrameSegment *segment : segments) {
            if (wasDefined.value(segment) && !segment->isDefinedInDocument()) {
                ASSERT_NE(segment->measurementFormula(), nullptr) << "seed " << seed;
            }
        }
    }
}

QString yesOrNo(bool answer)
{
    return answer ? QStringLiteral("yes") : QStringLiteral("no");
}

bool literalRevalued(FrameSet *set, eFrameReevaluate mode)
{
    bool changed = false;
    const LiteralOrder order(set);
    for (const QList<Evaluation> &round : order.rounds) {
        for (const Evaluation &evaluation : round)
            changed |= evaluation.mElement->reevaluateElement(evaluation.mType, mode);
    }
    return changed;
}

// The same document twice, so that one can be treated as told and the other as the library does it.
class Twins
{
public:
    explicit Twins(unsigned seed) : mSeed(seed), library(seed), plain(seed)
    {
        library.set()->calculateOrderEvaluation();
        plain.set()->calculateOrderEvaluation();
    }

    void expectAlike(const QString &actual, const QString &expected, const char *act) const
    {
        ASSERT_EQ(actual.toStdString(), expected.toStdString()) << act << " seed " << mSeed;
        ASSERT_EQ(library.lists().toStdString(), plain.lists().toStdString()) << act << " seed " << mSeed;
        ASSERT_EQ(support::largestDistance(library.places(), plain.places()), 0.0)
            << act << " seed " << mSeed;
    }

private:
    unsigned mSeed;

public:
    RandomPieces library;
    RandomPieces plain;
};

TEST(ReevaluationOfRandomPieces, listsPiecesAndAnswersAreThoseOfThePlainWalk)
{
    support::RecordingApplication application;
    for (unsigned seed = 0; seed < 40; ++seed) {
        if (outcome([&] { return orderOf(RandomPieces(seed).set()); }).startsWith(QStringLiteral("failed")))
            continue;
        Twins twins(seed);
        for (eFrameReevaluate mode : {Reevaluate_Ask, Reevaluate_Store, Reevaluate_Ask, Reevaluate_Apply}) {
            const QString expected =
                outcome([&] { return yesOrNo(literalRevalued(twins.plain.set(), mode)); });
            const QString actual = outcome([&] { return yesOrNo(twins.library.set()->reevaluate(mode)); });
            ASSERT_NO_FATAL_FAILURE(twins.expectAlike(actual, expected, "reevaluate"));
        }
    }
}

TEST(ReevaluationOfRandomPieces, changeTouchesWhatThePlainWalkTouches)
{
    support::RecordingApplication application;
    for (unsigned seed = 0; seed < 40; ++seed) {
        if (outcome([&] { return orderOf(RandomPieces(seed).set()); }).startsWith(QStringLiteral("failed")))
            continue;
        Twins twins(seed);
        for (eFrameReevaluate mode : {Reevaluate_Store, Reevaluate_Ask, Reevaluate_Apply}) {
            for (int i = 0; i < twins.plain.elements().size(); ++i) {
                BaseFrame *const start = twins.plain.elements().at(i);
                const bool level = start->elementType() != Element_Segment;
                const QString expected = outcome([&] {
                    const LiteralOrder order(twins.plain.set());
                    return yesOrNo(literalReevaluateUnder(order.rounds, start, true, level, mode));
                });
                const QString actual = outcome([&] {
                    return yesOrNo(
                        twins.library.set()->reevaluateUnder(twins.library.elements().at(i), mode));
                });
                ASSERT_NO_FATAL_FAILURE(twins.expectAlike(actual, expected, "reevaluateUnder"));
            }
        }
    }
}

TEST(ReevaluationOfRandomPieces, dryRunMovesNothing)
{
    for (unsigned seed = 0; seed < 100; ++seed) {
        const RandomPieces pieces(seed);
        const std::vector<GeoPoint2D> before = pieces.places();
        outcome([&] { return yesOrNo(pieces.set()->reevaluate(Reevaluate_Ask)); });
        ASSERT_EQ(support::largestDistance(before, pieces.places()), 0.0) << "seed " << seed;
    }
}

} // namespace

} // namespace VorSystem
