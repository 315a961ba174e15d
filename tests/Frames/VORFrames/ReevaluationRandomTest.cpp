// Reevaluation of random sets against the plain walk, and of long ones.

#include "OrderWorld.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace VorSystem
{

namespace
{

#define EXPECT_TEXT(actual, expected) EXPECT_EQ((actual).toStdString(), std::string(expected))

// Plain elements with formulas that can be evaluated, lists of any length, in any gradation. The same seed
// gives the same set.
class EvaluableSet : public OrderWorld
{
public:
    EvaluableSet(unsigned seed, bool namesLinks) : mEngine(seed), mNamesLinks(namesLinks)
    {
        const auto sizes = static_cast<short>(1 + pick(5));
        setGradation(sizes, static_cast<short>(pick(5) == 0 ? 0 : 1 + pick(static_cast<unsigned>(sizes))));
        makeElements(sizes);
        for (BaseFrame *element : elements)
            giveFormulas(element);
    }

    // Every list and its nest, in the order of the elements; those that follow a formula may be left out.
    QString lists(bool withFormulas = true) const
    {
        QStringList words;
        for (BaseFrame *element : elements) {
            if (!withFormulas && (element->measurementFormula() || element->formulaLevel()))
                continue;
            if (ValuesAccordingSizes *const values = element->getMeasureBySizes())
                words << element->name() + QStringLiteral(".m ") + str(*values);
            if (ValuesAccordingSizes *const values = element->getLevelBySizes())
                words << element->name() + QStringLiteral(".l ") + str(*values);
        }
        return words.join(QStringLiteral("; "));
    }

    QList<BaseFrame *> elements;

private:
    unsigned pick(unsigned count) { return std::uniform_int_distribution<unsigned>(0, count - 1)(mEngine); }

    void makeElements(short sizes)
    {
        QList<FrameFrame *> frames;
        for (unsigned i = 0; i < 1 + pick(8); ++i)
            frames << frame(("F" + QByteArray::number(i)).constData());
        for (FrameFrame *frame : frames)
            elements << frame;
        for (unsigned i = 0; i < pick(3); ++i) {
            FrameLink *const made = link(("L" + QByteArray::number(i)).constData());
            for (FrameFrame *frame : frames) {
                if (pick(3) == 0 && frame->getLink() == nullptr)
                    made->linkFrame(frame);
            }
            elements << made;
        }
        for (unsigned i = 0; i < pick(4); ++i)
            elements << segment(("S" + QByteArray::number(i)).constData());
        for (unsigned i = 0; i < pick(3); ++i)
            elements << chart(("C" + QByteArray::number(i)).constData());
        for (BaseFrame *element : elements) {
            fill(element->getMeasureBySizes(), sizes);
            fill(element->getLevelBySizes(), sizes);
        }
    }

    // A list that is not empty must reach as far as anybody may read it.
    void fill(ValuesAccordingSizes *values, short sizes)
    {
        if (values == nullptr || pick(3) == 0)
            return;
        for (unsigned i = 0; i < static_cast<unsigned>(sizes) + (pick(6) == 0 ? 2 : 0); ++i)
            values->mValues.append(pick(100));
    }

    void giveFormulas(BaseFrame *element)
    {
        if (element->measurementFormulaAvailable() && pick(2) == 0) {
            if (auto *segment = dynamic_cast<FrameSegment *>(element))
                segment->rememberFormula(randomFormula());
            else
                element->setFormulaMeasurement(randomFormula());
        }
        if (element->formulaLevelAvailable() && pick(3) == 0)
            element->setFormulaLevel(randomFormula());
        if (auto *chart = dynamic_cast<FrameMeasurementChart *>(element); chart && pick(2) == 0)
            chart->setFormulaMeasurementChart(randomFormula());
    }

    TreeEquations *randomFormula()
    {
        QList<Evaluation> references;
        for (unsigned i = 0; i < 1 + pick(2); ++i) {
            BaseFrame *const element = elements.at(static_cast<int>(pick(unsigned(elements.size()))));
            if (element->elementType() == Element_Link && !mNamesLinks)
                continue;
            references << (pick(3) == 0 && element->getLevelBySizes() ? levelOf(element)
                                                                      : measureOf(element));
        }
        return references.isEmpty() ? constant(pick(50)) : sumOf(references);
    }

    std::mt19937 mEngine;
    bool mNamesLinks;
};

// The walk over the set as one would tell it: everybody is asked for himself.
bool literalRevalued(EvaluableSet &world, eFrameReevaluate mode)
{
    bool changed = false;
    const LiteralOrder order(world.set());
    for (const QList<Evaluation> &round : order.rounds) {
        for (const Evaluation &evaluation : round)
            changed |= evaluation.mElement->reevaluateElement(evaluation.mType, mode);
    }
    for (BaseFrame *element : world.elements) {
        if (element->elementType() == Element_MeasurementChart)
            changed |= element->reevaluate(mode);
    }
    return changed;
}

TEST(ReevaluationOfRandomSets, listsAndAnswersAreThoseOfThePlainWalk)
{
    for (unsigned seed = 0; seed < 1000; ++seed) {
        EvaluableSet fast(seed, true);
        EvaluableSet plain(seed, true);
        ASSERT_EQ(fast.lists().toStdString(), plain.lists().toStdString());
        for (eFrameReevaluate mode : {Reevaluate_Ask, Reevaluate_Store, Reevaluate_Apply, Reevaluate_Ask}) {
            ASSERT_EQ(fast.set()->reevaluate(mode), literalRevalued(plain, mode))
                << "seed " << seed << " mode " << int(mode);
            ASSERT_EQ(fast.lists().toStdString(), plain.lists().toStdString())
                << "seed " << seed << " mode " << int(mode);
        }
    }
}

TEST(ReevaluationOfRandomSets, dryRunStoresNothingWhereNoFormulaStands)
{
    for (unsigned seed = 0; seed < 1000; ++seed) {
        EvaluableSet world(seed, true);
        const QString before = world.lists(false);
        world.set()->reevaluate(Reevaluate_Ask);
        ASSERT_EQ(world.lists(false).toStdString(), before.toStdString()) << "seed " << seed;
    }
}

TEST(ReevaluationOfRandomSets, storingTwiceStoresNothingNewWhereNoFormulaNamesALink)
{
    for (unsigned seed = 0; seed < 1000; ++seed) {
        EvaluableSet world(seed, false);
        world.set()->reevaluate(Reevaluate_Store);
        const QString once = world.lists();
        world.set()->reevaluate(Reevaluate_Store);
        ASSERT_EQ(world.lists().toStdString(), once.toStdString()) << "seed " << seed;
    }
}

TEST(ReevaluationOfRandomSets, adjustedListsHaveTheShapeOfTheGradation)
{
    for (unsigned seed = 0; seed < 1000; ++seed) {
        EvaluableSet world(seed, true);
        world.set()->adjustMeasuresLevels();
        const GradationData *const gradation = world.document().gradation;
        const bool hasNest = gradation->isGradationNestDefined();
        for (BaseFrame *element : world.elements) {
            for (ValuesAccordingSizes *values : {element->getMeasureBySizes(), element->getLevelBySizes()}) {
                if (values == nullptr)
                    continue;
                ASSERT_EQ(values->mValues.size(), hasNest ? gradation->gradationNum() : 1) << "seed " << seed;
                ASSERT_EQ(values->mNestIndex, hasNest ? gradation->mediumIndex() - 1 : 0) << "seed " << seed;
            }
        }
    }
}

// Long sets
// ------------------------------------------------------------------------------------------------------------

TEST(ReevaluationOfLongSets, chainOfTwentyThousandIsStoredInOneCall)
{
    OrderWorld world;
    world.setGradation(3, 2);
    QList<FrameSegment *> seams;
    for (int i = 0; i < 20000; ++i) {
        seams << new FrameSegment(QString::number(i));
        world.set()->addSegment(seams.last(), -1);
        seams.last()->rememberFormula(i == 0 ? constant(5) : sumOf({measureOf(seams.at(i - 1))}));
    }
    std::reverse(seams.begin(), seams.end());

    EXPECT_TRUE(world.set()->reevaluate(Reevaluate_Store));
    EXPECT_TEXT(str(*seams.first()->getMeasureBySizes()), "5 [5] 5");
}

TEST(ReevaluationOfLongSets, fiveThousandFramesFollowOneLinkInAsManyRounds)
{
    OrderWorld world;
    FrameLink *const follows = world.link("Link");
    for (int i = 0; i < 5000; ++i) {
        auto *const made = new FrameFrame(QString::number(i));
        made->addFrameCenter(world.center(), -1);
        world.set()->addFrame(made, -1);
        follows->linkFrame(made);
    }
    follows->setFormulaMeasurement(constant(5));
    OrderEvaluation order;
    FrameSegment *culprit = nullptr;

    EXPECT_TRUE(order.calculateOrder(world.set(), culprit));
    EXPECT_EQ(order.rounds().size(), 5000);
    EXPECT_TEXT(str(*order.rounds().at(4999)), "4999.m");
}

} // namespace

} // namespace VorSystem
