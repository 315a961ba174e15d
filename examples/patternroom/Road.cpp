#include "Road.h"

#include "Console.h"
#include "Moves.h"
#include "Table.h"

#include <algorithm>
#include <cmath>

namespace room
{

using namespace VorSystem;

namespace
{

constexpr double kObeyed = 1e-4; // cm; a converged perimeter frame may be 5e-5 off
constexpr int kSettling = 8;     // rounds over all sets; two are the rule

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
std::vector<Driven> sharesOf(const Wish &wish, const PatternDocument &before, const PatternDocument &after)
{
    std::vector<Driven> shares;
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

bool Driven::isObeyed() const
{
    const QListEx<double> gaps = minus(read, wanted);
    return onlySize ? std::abs(gaps.value(*onlySize)) <= kObeyed : largestOf(gaps) <= kObeyed;
}

bool areObeyed(const std::vector<Driven> &driven)
{
    return std::all_of(driven.begin(), driven.end(),
                       [](const Driven &element) { return element.isObeyed(); });
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

QListEx<double> readMeasures(const Element &element, const PatternDocument &document)
{
    QListEx<double> values = valuesOf(element.element->getMeasureBySizes(), document);
    if (element.element->objectControlCorresponding() || element.place.kind == Element_Link)
        element.element->evaluateMeasuresObject(document.gradationData(), values);
    return values;
}

QListEx<double> readLevels(const Element &element, const PatternDocument &document)
{
    QListEx<double> values = valuesOf(element.element->getLevelBySizes(), document);
    if (element.element->objectControlCorresponding())
        element.element->evaluateLevelsObject(document.gradationData(), values);
    return values;
}

std::vector<Driven> drivenElements(const PatternDocument &document)
{
    std::vector<Driven> driven;
    const auto add = [&](const Element &element, TreeEquations *formula, bool isLevel) {
        if (!formula)
            return;
        QListEx<double> wanted;
        for (int size = 0; size < sizeCount(document); ++size)
            wanted.append(formula->evaluate(static_cast<short>(size)));
        driven.push_back({element.place,
                          element.path(),
                          isLevel,
                          formula->toString(),
                          wanted,
                          isLevel ? readLevels(element, document) : readMeasures(element, document),
                          {}});
    };
    for (const Element &element : elementsOf(document)) {
        if (element.place.kind == Element_Spec || element.place.kind == Element_MeasurementChart)
            continue;
        add(element, element.element->measurementFormula(), false);
        add(element, element.element->formulaLevel(), true);
    }
    return driven;
}

void addRows(Table &table, const QString &what, const Driven &values, const LengthStyle &style)
{
    const QListEx<double> differences = minus(values.read, values.wanted);
    QStringList wanted{what, QStringLiteral("wanted")};
    QStringList read{QString(), QStringLiteral("read back")};
    QStringList difference{QString(), QStringLiteral("difference")};
    for (int size = 0; size < differences.size(); ++size) {
        const bool isWanted = !values.onlySize || size == *values.onlySize;
        wanted << (isWanted ? style.show(values.wanted.at(size)) : QStringLiteral("-"));
        read << style.show(values.read.at(size));
        difference << (isWanted ? style.showDifference(differences.at(size)) : QStringLiteral("-"));
    }
    table.add(wanted);
    table.add(read);
    table.add(difference);
}

QString describe(const std::vector<Driven> &driven, const QString &heading, const PatternDocument &document,
                 const LengthStyle &style)
{
    if (driven.empty())
        return QString();
    Table table(QStringList{heading, QString()} + sizeHeadings(document));
    for (const Driven &element : driven) {
        QString what = element.path;
        if (element.isLevel)
            what += QLatin1String(" (level)");
        if (!element.formula.isEmpty())
            what += QLatin1String(" = ") + element.formula;
        addRows(table, what, element, style);
    }
    return table.print(Table_Text);
}

QString resultOfAll(const std::vector<Driven> &driven, const PatternDocument &document)
{
    const bool isTied = std::any_of(driven.begin(), driven.end(), [&](const Driven &element) {
        return elementAt(document, element.place).element->isDefinedInDocument();
    });
    if (!isTied)
        return QString();
    return (driven.size() == 1 ? QStringLiteral("Result %1: %2.\n")
                               : QStringLiteral("Result %1 for each: %2.\n"))
        .arg(QString::number(Msg_Converged), inWords(Msg_Converged));
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

std::vector<Driven> settle(const PatternDocument &document)
{
    GestFrames *manager = document.framesManager();
    manager->reevaluateFrameSets(Reevaluate_Apply);
    std::vector<Driven> driven = drivenElements(document);
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
