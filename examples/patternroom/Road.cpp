#include "Road.h"

#include "Console.h"
#include "Table.h"

#include <algorithm>
#include <cmath>

namespace room
{

using namespace VorSystem;

namespace
{

constexpr double kObeyed = 1e-4;    // cm; a converged perimeter frame may be 5e-5 off
constexpr double kLevelZero = 1e-5; // cm: such a level makes a frame the origin

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

bool hasLists(const Wish &wish)
{
    return wish.measures || wish.levels;
}

// A new origin shifts every level: what is wanted then is the nest's zero alone.
bool makesOrigin(const Wish &wish)
{
    return wish.level && std::abs(*wish.level) <= kLevelZero;
}

} // namespace

double Outcome::largestGap() const
{
    if (isNestAlone) {
        const QListEx<double> gaps{readMeasures.value(nest) - wantedMeasures.value(nest),
                                   readLevels.value(nest) - wantedLevels.value(nest)};
        return largestOf(gaps);
    }
    return std::max(largestOf(minus(readMeasures, wantedMeasures)),
                    largestOf(minus(readLevels, wantedLevels)));
}

bool Outcome::isObeyed() const
{
    return isTaken && largestGap() <= kObeyed &&
           std::all_of(driven.begin(), driven.end(), [](const Driven &element) {
               return largestOf(minus(element.read, element.wanted)) <= kObeyed;
           });
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

std::vector<Driven> drivenElements(const PatternDocument &document, const FrameSet *set)
{
    std::vector<Driven> driven;
    const auto add = [&](const Element &element, TreeEquations *formula, bool isLevel) {
        if (!formula)
            return;
        QListEx<double> wanted;
        for (int size = 0; size < sizeCount(document); ++size)
            wanted.append(formula->evaluate(static_cast<short>(size)));
        driven.push_back({element.path(), isLevel, formula->toString(), wanted,
                          isLevel ? readLevels(element, document) : readMeasures(element, document)});
    };
    for (const Element &element : elementsOf(document)) {
        if (element.set != set || element.place.kind == Element_Spec ||
            element.place.kind == Element_MeasurementChart)
            continue;
        add(element, element.element->measurementFormula(), false);
        add(element, element.element->formulaLevel(), true);
    }
    return driven;
}

QString describe(const std::vector<Driven> &driven, const PatternDocument &document, const LengthStyle &style)
{
    if (driven.empty())
        return QString();
    Table table(QStringList{QStringLiteral("follows a formula"), QString()} + sizeHeadings(document));
    for (const Driven &element : driven) {
        const QListEx<double> differences = minus(element.read, element.wanted);
        const QString what = element.isLevel ? QStringLiteral("%1 (level) = %2") : QStringLiteral("%1 = %2");
        QStringList wanted{what.arg(element.path, element.formula), QStringLiteral("wanted")};
        QStringList read{QString(), QStringLiteral("read back")};
        QStringList difference{QString(), QStringLiteral("difference")};
        for (int size = 0; size < differences.size(); ++size) {
            wanted << style.show(element.wanted.at(size));
            read << style.show(element.read.at(size));
            difference << style.showDifference(differences.at(size));
        }
        table.add(wanted);
        table.add(read);
        table.add(difference);
    }
    return table.print(Table_Text);
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

Outcome takeTheRoad(PatternDocument &document, const Wish &wish, const std::vector<ElementPlace> &concerned)
{
    const Element target = elementAt(document, wish.element);
    const Snapshot before = snapshotOf(document);
    Outcome outcome;
    const int nest = nestIndex(document);
    outcome.nest = nest;
    outcome.isNestAlone = !hasLists(wish);
    outcome.isLevelWish = wish.level || wish.levels;
    outcome.wantedMeasures = wanted(readMeasures(target, document), wish.measure, wish.measures, nest);
    if (target.element->getLevelBySizes() && !makesOrigin(wish))
        outcome.wantedLevels = wanted(readLevels(target, document), wish.level, wish.levels, nest);

    // First the question: may locked pieces move?
    std::vector<ElementPlace> moving{wish.element};
    moving.insert(moving.end(), concerned.begin(), concerned.end());
    if (!mayMove(document, moving)) {
        outcome.isDeclined = true;
        return outcome;
    }

    // Then the values: lists move all sizes, single values the nest alone.
    target.set->clearRemovedFormulas();
    if (hasLists(wish)) {
        outcome.isTaken =
            target.element->applyValues(orNull(wish.measures), orNull(wish.levels), &outcome.isRefused);
    } else {
        outcome.isTaken =
            target.element->applyValues(orNull(wish.measure), orNull(wish.level), &outcome.isRefused);
    }

    // Then everything that hangs on the element, and at last the rest of its set.
    if (outcome.isTaken) {
        if (target.place.kind != Element_MeasurementChart)
            target.set->reevaluateUnder(target.element, Reevaluate_Apply);
        target.set->reevaluate(Reevaluate_Apply);
    }

    outcome.readMeasures = readMeasures(target, document);
    if (!outcome.wantedLevels.isEmpty())
        outcome.readLevels = readLevels(target, document);
    outcome.driven = drivenElements(document, target.set);
    outcome.difference = differenceOf(before, snapshotOf(document));
    return outcome;
}

Outcome rehearse(const PatternDocument &document, const Wish &wish)
{
    const DocumentPtr copy = copyOf(document);
    Rehearsal rehearsal(VorCoreApplication::instance().lengthUnit());
    Outcome outcome = takeTheRoad(*copy, wish);
    outcome.messages = rehearsal.messages();
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
    return takeTheRoad(document, wish, concerned);
}

} // namespace room
