#include "Road.h"

#include "Console.h"
#include "Moves.h"

#include <algorithm>
#include <cmath>

namespace room
{

using namespace VorSystem;

namespace
{

constexpr int kSettling = 8; // rounds over all sets; two are the rule

template<class Values>
const Values *orNull(const std::optional<Values> &values)
{
    return values ? &*values : nullptr;
}

QListEx<double> wanted(QListEx<double> present, const std::optional<double> &nest,
                       const std::optional<QListEx<double>> &all, int nestIndex)
{
    if (all)
        return *all;
    if (nest && nestIndex < present.size())
        present[nestIndex] = *nest;
    return present;
}

// The size of which something is wanted; the others go along with it.
std::optional<int> sizeOf(const Wish &wish, const PatternDocument &document)
{
    return wish.hasLists() ? std::optional<int>() : nestIndex(document);
}

// What a link gave to its frames, and what they show.
std::vector<Readback> sharesOf(const Wish &wish, const PatternDocument &before, const PatternDocument &after)
{
    std::vector<Readback> shares;
    for (const Move &move : movesOf(before, wish)) {
        const Element frame = elementAt(after, move.element);
        shares.push_back({move.element, move.path, !move.isMeasure, QString(),
                          move.isMeasure ? move.goal.measures : move.goal.levels,
                          move.isMeasure ? readMeasures(frame, after) : readLevels(frame, after),
                          sizeOf(wish, after)});
    }
    return shares;
}

} // namespace

bool makesOrigin(double level)
{
    constexpr double kLevelZero = 1e-5; // cm
    return std::abs(level) <= kLevelZero;
}

bool Outcome::isObeyed() const
{
    return isTaken && measure.isObeyed() && level.isObeyed() && difference.lostFormulas.empty() &&
           areObeyed(driven);
}

Goal goalOf(const Element &target, const PatternDocument &document, const Wish &wish)
{
    const int nest = nestIndex(document);
    Goal goal;
    goal.measures = wanted(readMeasures(target, document), wish.measure, wish.measures, nest);
    if (target.element->getLevelBySizes())
        goal.levels = wanted(readLevels(target, document), wish.level, wish.levels, nest);
    return goal;
}

QString withMessages(QString sentence, QStringList messages)
{
    messages.removeDuplicates();
    for (const QString &message : qAsConst(messages))
        sentence += QStringLiteral("\nTried on a copy: ") + message;
    return sentence;
}

bool mayMove(const PatternDocument &document, const std::vector<ElementPlace> &elements)
{
    bool isAsked = false;
    bool isAgreed = true;
    for (std::size_t i = 0; i < elements.size() && isAgreed && !isAsked; ++i) {
        isAgreed = BaseFrame::confirmChangesInFrames(elementAt(document, elements[i]).element,
                                                     AccordingTo_AskAlways, nullptr, true, &isAsked);
    }
    return isAgreed;
}

std::vector<Readback> settle(const PatternDocument &document)
{
    GestFrames *manager = document.framesManager();
    manager->reevaluateFrameSets(Reevaluate_Apply);
    std::vector<Readback> driven = drivenElements(document);
    for (int round = 1; round < kSettling && areObeyed(driven); ++round) {
        if (!manager->reevaluateFrameSets(Reevaluate_Apply))
            return driven;
        driven = drivenElements(document);
    }
    return driven;
}

Outcome takeTheRoad(PatternDocument &document, const Wish &wish, const std::vector<ElementPlace> &concerned)
{
    const Element target = elementAt(document, wish.element);
    const Snapshot before = snapshotOf(document);
    Outcome outcome;
    const Goal goal = goalOf(target, document, wish);

    // First the question: may locked pieces move?
    std::vector<ElementPlace> moving{wish.element};
    moving.insert(moving.end(), concerned.begin(), concerned.end());
    if (!mayMove(document, moving)) {
        outcome.isDeclined = true;
        return outcome;
    }

    // Then the values: lists move all sizes, single values the nest alone.
    target.set->clearRemovedFormulas();
    if (wish.hasLists()) {
        outcome.isTaken =
            target.element->applyValues(orNull(wish.measures), orNull(wish.levels), &outcome.isRefused);
    } else {
        outcome.isTaken =
            target.element->applyValues(orNull(wish.measure), orNull(wish.level), &outcome.isRefused);
    }

    // Then everything that hangs on the element, and at last the rest: its set and all others, by reevaluate.
    if (outcome.isTaken) {
        if (target.place.kind != Element_MeasurementChart)
            target.set->reevaluateUnder(target.element, Reevaluate_Apply);
        outcome.driven = settle(document);
    }

    outcome.measure = {
        wish.element,          target.path(), false, {}, goal.measures, readMeasures(target, document),
        sizeOf(wish, document)};
    if (!goal.levels.isEmpty()) {
        outcome.level = {
            wish.element,          target.path(), true, {}, goal.levels, readLevels(target, document),
            sizeOf(wish, document)};
    }
    outcome.difference = differenceOf(before, snapshotOf(document));
    return outcome;
}

Outcome rehearse(const PatternDocument &document, const Wish &wish)
{
    const DocumentPtr copy = copyOf(document);
    Rehearsal rehearsal(VorCoreApplication::instance().lengthUnit());
    Outcome outcome = takeTheRoad(*copy, wish);
    outcome.messages = rehearsal.messages();
    if (wish.element.kind == Element_Link)
        outcome.shares = sharesOf(wish, document, *copy);
    return outcome;
}

Outcome change(PatternDocument &document, const Wish &wish)
{
    const Outcome rehearsed = rehearse(document, wish);
    if (!rehearsed.isObeyed())
        return rehearsed;
    std::vector<ElementPlace> concerned;
    for (const MovedElement &moved : rehearsed.difference.elements)
        concerned.push_back(moved.place);
    Outcome outcome = takeTheRoad(document, wish, concerned);
    outcome.shares = rehearsed.shares;
    return outcome;
}

} // namespace room
