// What holds for every transfer, between managers of all kinds: names that collide, formulas on anything.

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "PlainTransfer.h"

using namespace VorSystem;
using namespace transfers;
using support::name;
using support::sizes;

namespace
{

// Numbers that decide what is built; the same ones build the same world again.
class Choices
{
public:
    explicit Choices(const std::vector<unsigned> &numbers) : mNumbers(numbers) {}
    int below(int end)
    {
        const unsigned number = mNumbers.empty() ? 0 : mNumbers[mNext++ % mNumbers.size()];
        // The place counts as well, so that a short list still gives a varied world.
        return static_cast<int>((number + 7919u * static_cast<unsigned>(mNext)) % static_cast<unsigned>(end));
    }
    bool oneIn(int count) { return below(count) == 0; }

private:
    const std::vector<unsigned> &mNumbers;
    std::size_t mNext = 0;
};

// Few names, so that they collide: by case, by blanks, by number, by the separator.
QString anyName(Choices &choices)
{
    static const char *const kNames[] = {"A", "a", "A 1", "A1", "B", "b", "B1", "A:B", "A:A", ":", "", "C"};
    return name(kNames[choices.below(12)]);
}

ValuesAccordingSizes anyValues(Choices &choices)
{
    return choices.oneIn(4) ? ValuesAccordingSizes()
                            : sizes({double(choices.below(50)), double(choices.below(50))},
                                    static_cast<short>(choices.below(2)));
}

TreeEquations *anyFormula(const std::vector<BaseFrame *> &elements, Choices &choices)
{
    auto tree = std::make_unique<TreeEquations>();
    const auto fill = [&](ElementEquation &node) {
        if (elements.empty() || choices.oneIn(4)) {
            node.contents = ElemValue;
            node.value = choices.below(9);
            return;
        }
        node.contents = choices.oneIn(2) ? ElemMeasure : ElemLevel;
        node.element = elements[static_cast<std::size_t>(choices.below(int(elements.size())))];
    };
    if (choices.oneIn(2)) {
        fill(*tree->root);
        return tree.release();
    }
    tree->root->contents = ElemMultiply;
    tree->root->sonLeft = new ElementEquation;
    tree->root->sonRight = new ElementEquation;
    fill(*tree->root->sonLeft);
    fill(*tree->root->sonRight);
    return tree.release();
}

void fillSet(FrameSet &set, Choices &choices)
{
    std::vector<BaseFrame *> elements;
    const auto enter = [&](auto *element) {
        element->setName(anyName(choices)); // without a test: twins are what happens
        if (ValuesAccordingSizes *const measures = element->getMeasureBySizes())
            *measures = anyValues(choices);
        if (ValuesAccordingSizes *const levels = element->getLevelBySizes())
            *levels = anyValues(choices);
        elements.push_back(element);
        return element;
    };
    int fresh = 0;
    const auto freshName = [&fresh] { return QStringLiteral("fresh%1").arg(++fresh); };

    for (int i = choices.below(4); i > 0; --i) {
        FrameCenter *const center = set.newCenter(freshName());
        center->setCharacteristic(static_cast<FrameCenter::eCharacteristicType>(1 + choices.below(3)));
        for (int j = choices.below(4); j > 0; --j) {
            FrameFrame *const frame = enter(set.newFrame(freshName(), center));
            frame->getPerimeterMeasurement() = choices.oneIn(2);
            frame->setRatio(3);
            if (choices.oneIn(3))
                center->setFrameLevelZero(frame);
        }
        enter(center);
    }
    for (int i = choices.below(3); i > 0; --i)
        enter(set.newSegment(freshName()))->getInfluenceAreaPercent() = choices.below(100);
    const QListEx<FrameFrame *> frames = set.getFrames();
    for (int i = choices.below(4); i > 0; --i) {
        FrameLink *const link = enter(set.newLink(freshName()));
        for (FrameFrame *frame : frames) {
            if (frame->getLink() == nullptr && choices.oneIn(3))
                link->linkFrame(frame);
        }
    }
    for (int i = choices.below(4); i > 0; --i)
        enter(set.newSpec(freshName()));
    for (int i = choices.below(3); i > 0; --i)
        enter(set.newMeasurementChart(freshName()));

    for (BaseFrame *element : elements) {
        if (element->measurementFormulaAvailable() && choices.oneIn(2)) {
            if (auto *const segment = dynamic_cast<FrameSegment *>(element))
                segment->rememberFormula(anyFormula(elements, choices));
            else
                element->setFormulaMeasurement(anyFormula(elements, choices));
        }
        if (element->formulaLevelAvailable() && choices.oneIn(3))
            element->setFormulaLevel(anyFormula(elements, choices));
        if (dynamic_cast<FrameSpec *>(element) != nullptr && !choices.oneIn(4))
            element->setFormulaSpec(anyFormula(elements, choices));
        auto *const chart = dynamic_cast<FrameMeasurementChart *>(element);
        if (chart != nullptr && choices.oneIn(3))
            chart->setFormulaMeasurementChart(anyFormula(elements, choices));
    }
}

// Two documents, the second of which may hold sets that are sent for.
struct World {
    explicit World(const std::vector<unsigned> &numbers)
    {
        Choices choices(numbers);
        fill(from, choices);
        fill(to, choices);
        const QListEx<FrameSet *> targets = to.manager().getFrameSets();
        for (FrameSet *set : from.manager().getFrameSets()) {
            if (!targets.isEmpty() && choices.oneIn(3))
                equivalences[set] = targets.at(choices.below(targets.count()));
        }
    }
    static void fill(support::TestDocument &document, Choices &choices)
    {
        for (int i = choices.below(4); i > 0; --i) {
            FrameSet *const set = document.newSet();
            set->setName(anyName(choices));
            fillSet(*set, choices);
        }
    }
    // Which set of the target received which source, by their places.
    std::string directed() const
    {
        std::string text;
        const QListEx<FrameSet *> sources = from.manager().getFrameSets();
        const QListEx<FrameSet *> targets = to.manager().getFrameSets();
        for (int i = 0; i < sources.count(); ++i) {
            const auto entry = equivalences.find(sources.at(i));
            text += entry == equivalences.end() ? " -" : ' ' + std::to_string(targets.indexOf(entry->second));
        }
        return text;
    }

    mutable support::TestDocument from{2, 1};
    mutable support::TestDocument to{2, 1};
    EquivalenceSets equivalences;
};

std::vector<unsigned> anyNumbers()
{
    return *rc::gen::container<std::vector<unsigned>>(40, rc::gen::inRange(0u, 1000u));
}

Answers anyAnswers(bool all)
{
    return all ? Answers() : Answers(*rc::gen::container<std::vector<bool>>(12, rc::gen::arbitrary<bool>()));
}

RC_GTEST_PROP(TransferProperties, aTransferDoesWhatItsStepsSay, ())
{
    const std::vector<unsigned> numbers = anyNumbers();
    const Answers answers = anyAnswers(*rc::gen::arbitrary<bool>());
    const Wish wish{*rc::gen::arbitrary<bool>(), *rc::gen::arbitrary<bool>(), *rc::gen::arbitrary<bool>()};

    World quick(numbers);
    World plain(numbers);
    for (int round = 0; round < 2; ++round) { // the second round meets the names of the first
        GestFrames &target = quick.to.manager();
        if (wish.merges)
            quick.from.manager().MergeFrameSetsInManager(&target, answers, wish.withValues,
                                                         quick.equivalences, wish.renamesSource);
        else
            quick.from.manager().CopyFrameSetsInManager(&target, answers, wish.withValues,
                                                        quick.equivalences);
        for (FrameSet *source : plain.from.manager().getFrameSets())
            plainTransfer(*source, plain.to.manager(), answers, wish, plain.equivalences);

        RC_ASSERT(describe(quick.to.manager()) == describe(plain.to.manager()));
        RC_ASSERT(describe(quick.from.manager()) == describe(plain.from.manager()));
        RC_ASSERT(quick.directed() == plain.directed());
    }
}

RC_GTEST_PROP(TransferProperties, aCopyLeavesTheSourceAsItWasAndNamesItsOwnElementsOnly, ())
{
    World world(anyNumbers());
    const std::string before = describe(world.from.manager());
    world.from.manager().CopyFrameSetsInManager(&world.to.manager(), anyAnswers(false), true,
                                                world.equivalences);
    RC_ASSERT(describe(world.from.manager()) == before);
    for (const auto &entry : world.equivalences)
        RC_ASSERT(namesOwnElementsOnly(*entry.second));
}

RC_GTEST_PROP(TransferProperties, aMergeNamesItsOwnElementsOnlyAndOutlivesItsSource, ())
{
    World world(anyNumbers());
    world.from.manager().MergeFrameSetsInManager(&world.to.manager(), anyAnswers(false), true,
                                                 world.equivalences, *rc::gen::arbitrary<bool>());
    const EquivalenceSets received = world.equivalences;
    for (FrameSet *set : world.from.manager().getFrameSets())
        delete set;
    for (const auto &entry : received)
        RC_ASSERT(namesOwnElementsOnly(*entry.second));
    world.to.manager().reevaluateFrameSets(Reevaluate_Store);
}

RC_GTEST_PROP(TransferProperties, copiedValuesAreThoseOfTheSource, ())
{
    World world(anyNumbers());
    const auto listsOf = [](BaseFrame *element) {
        const ValuesAccordingSizes *const levels = element->getLevelBySizes();
        return support::text(*element->getMeasureBySizes()) +
               (levels == nullptr ? "" : support::text(*levels));
    };
    for (FrameSet *set : world.from.manager().getFrameSets()) {
        int fresh = 0;
        const auto nameAll = [&fresh](const auto &elements) {
            for (BaseFrame *element : elements)
                element->setName(QStringLiteral("N%1").arg(++fresh)); // so that each is found by its name
        };
        nameAll(set->getFrameCenters());
        nameAll(set->getFrames());
        nameAll(set->getFrameSegments());
        nameAll(set->getFrameLinks());
        nameAll(set->getFrameSpecs());
        nameAll(set->getFrameMeasurementCharts());
    }
    GestFrames receiver;
    EquivalenceSets received;
    world.from.manager().CopyFrameSetsInManager(&receiver, anyAnswers(false), true, received);
    for (const auto &entry : received) {
        const auto expectEqual = [&](const auto &elements) {
            for (BaseFrame *element : elements) {
                BaseFrame *const original = entry.first->foundElementAccordingName(element->fullName(), true);
                RC_ASSERT(listsOf(element) == listsOf(original));
            }
        };
        expectEqual(entry.second->getFrames());
        expectEqual(entry.second->getFrameSegments());
        expectEqual(entry.second->getFrameLinks());
        expectEqual(entry.second->getFrameSpecs());
        expectEqual(entry.second->getFrameMeasurementCharts());
    }
}

RC_GTEST_PROP(TransferProperties, aManagerTransferredIntoItselfStaysWhole, ())
{
    World world(anyNumbers());
    GestFrames &manager = world.from.manager();
    EquivalenceSets equivalences;
    const QListEx<FrameSet *> sets = manager.getFrameSets();
    for (FrameSet *set : sets) {
        if (*rc::gen::arbitrary<bool>())
            equivalences[set] = sets.at(*rc::gen::inRange(0, sets.count()));
    }
    if (*rc::gen::arbitrary<bool>())
        manager.MergeFrameSetsInManager(&manager, anyAnswers(false), true, equivalences,
                                        *rc::gen::arbitrary<bool>());
    else
        manager.CopyFrameSetsInManager(&manager, anyAnswers(false), true, equivalences);
    for (const auto &entry : equivalences)
        RC_ASSERT(manager.getFrameSets().contains(entry.second));
}

} // namespace
