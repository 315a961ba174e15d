// Formulas: brought to bear on the pieces, or refused.
#include "Commands.h"
#include "Road.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace room
{

using namespace VorSystem;

namespace
{

void requirePossible(const Element &target, const FormulaOptions &options)
{
    const eElementFrameType kind = target.place.kind;
    if (kind == Element_MeasurementChart) {
        throw Refusal(
            QStringLiteral("The formula of a chart is not stored with a document: make '%1' a spec.")
                .arg(target.fullName()));
    }
    const bool isPossible = options.isLevel
                                ? target.element->formulaLevelAvailable()
                                : target.element->measurementFormulaAvailable() || kind == Element_Spec;
    if (isPossible)
        return;
    throw Refusal(QStringLiteral("'%1' is a %2 and takes no formula for its %3%4.")
                      .arg(target.fullName(), kindName(kind),
                           options.isLevel ? QStringLiteral("level") : QStringLiteral("measure"),
                           kind == Element_Frame ? QStringLiteral(" now") : QString()));
}

// Gives the formula to the element; the old one goes.
void place(const Element &target, std::unique_ptr<TreeEquations> tree, bool isLevel)
{
    if (isLevel)
        target.element->setFormulaLevel(tree.release());
    else if (target.place.kind == Element_Spec)
        target.element->setFormulaSpec(tree.release());
    else
        target.element->setFormulaMeasurement(tree.release());
}

QString formulaOf(const Element &target, bool isLevel)
{
    const TreeEquations *tree = isLevel ? target.element->formulaLevel() : valueFormula(target.element);
    return tree ? tree->toString() : QStringLiteral("none");
}

struct Placed {
    bool isTied = true; ///< as it was before
    Readback own;       ///< what the formula gives, and what the piece shows
    std::vector<Readback> driven;
    Difference difference; ///< of the formulas that were lost only those that were not asked for
};

// The formula takes its place, and all values follow.
Placed bringToBear(PatternDocument &document, const ElementPlace &where, const FormulaOptions &options)
{
    const Element target = elementAt(document, where);
    const Snapshot before = snapshotOf(document);
    const bool wasTied = target.element->isDefinedInDocument();
    std::unique_ptr<TreeEquations> tree;
    std::unique_ptr<TreeEquations> kept;
    if (!options.isNone) {
        tree = readFormula(options.text, target.set, target.element, options.isLevel);
        kept = std::make_unique<TreeEquations>(*tree);
    }
    place(target, std::move(tree), options.isLevel);

    Placed placed;
    placed.driven = settle(document);
    placed.isTied = options.isNone || target.place.kind == Element_Spec ||
                    target.element->isDefinedInDocument() == wasTied;
    placed.difference = differenceOf(before, snapshotOf(document));
    if (kept) {
        placed.own = {where, target.path(), options.isLevel, formulaOf(target, options.isLevel), {}, {}, {}};
        for (int size = 0; size < sizeCount(document); ++size)
            placed.own.wanted.append(kept->evaluate(static_cast<short>(size)));
        placed.own.read = options.isLevel ? readLevels(target, document) : readMeasures(target, document);
    } else {
        std::vector<LostFormula> &lost = placed.difference.lostFormulas;
        const auto isAskedFor = [&](const LostFormula &formula) {
            return formula.path == target.path() && formula.isLevel == options.isLevel;
        };
        lost.erase(std::remove_if(lost.begin(), lost.end(), isAskedFor), lost.end());
    }
    return placed;
}

QString gapInWords(const Readback &driven, const PatternDocument &document, const LengthStyle &style)
{
    int worst = 0;
    const QListEx<double> gaps = minus(driven.read, driven.wanted);
    for (int size = 0; size < gaps.size(); ++size) {
        if (std::abs(gaps.at(size)) > std::abs(gaps.at(worst)))
            worst = size;
    }
    const QString text = QStringLiteral("it gives %2, and the piece reads %3")
                             .arg(style.show(driven.wanted.at(worst)), style.show(driven.read.at(worst)));
    return sizeCount(document) == 1
               ? text
               : QStringLiteral("in size %1 %2").arg(document.sizeName(static_cast<short>(worst + 1)), text);
}

// What else holds the element, where that is known.
QString whatHolds(const Element &target, bool isLevel)
{
    const auto *frame = dynamic_cast<const FrameFrame *>(target.element);
    if (!frame)
        return QString();
    if (isLevel && target.element->getLevel(-1) == 0.0)
        return QStringLiteral(" '%1' is the origin of its center, at level 0.").arg(target.fullName());
    FrameLink *link = frame->getLink();
    if (!isLevel && link && link->measurementFormula()) {
        return QStringLiteral(" Its link '%1' follows '%2'.")
            .arg(link->fullName(), link->measurementFormula()->toString());
    }
    return QString();
}

void requireObeyed(const Placed &tried, const Element &target, const PatternDocument &document,
                   const FormulaOptions &options)
{
    if (!tried.isTied) {
        throw Refusal(QStringLiteral("With this formula the values could not be ordered: segment '%1' would "
                                     "move what it depends on.")
                          .arg(target.fullName()));
    }
    if (!tried.own.isObeyed()) {
        throw Refusal(QStringLiteral("The piece cannot follow '%1': %2.%3")
                          .arg(options.text, gapInWords(tried.own, document, options.style),
                               whatHolds(target, options.isLevel)),
                      Exit_NotObeyed);
    }
    for (const LostFormula &lost : tried.difference.lostFormulas) {
        throw Refusal(QStringLiteral("Then the piece could not follow '%1' of '%2' any more.")
                          .arg(lost.formula, lost.path),
                      Exit_NotObeyed);
    }
    for (const Readback &driven : tried.driven) {
        if (!driven.isObeyed()) {
            throw Refusal(QStringLiteral("Then the piece could not follow '%1' of '%2': %3.")
                              .arg(driven.formula, driven.path, gapInWords(driven, document, options.style)),
                          Exit_NotObeyed);
        }
    }
}

} // namespace

int formula(const FormulaOptions &options)
{
    requireTarget(options);
    if (options.isNone == !options.text.isEmpty())
        throw Refusal(QStringLiteral("Give the text of the formula, or --none."), Exit_Usage);
    const DocumentPtr document = openDocument(options.document);
    const Element target = findElement(*document, options.element, options.kind);
    requirePossible(target, options);

    std::vector<ElementPlace> concerned{target.place};
    {
        const DocumentPtr copy = copyOf(*document);
        const Rehearsal rehearsal(options.style.unit);
        const Placed tried = bringToBear(*copy, target.place, options);
        requireObeyed(tried, target, *copy, options);
        for (const MovedElement &moved : tried.difference.elements)
            concerned.push_back(moved.place);
    }
    if (!mayMove(*document, concerned))
        throw Refusal(QStringLiteral("Nothing was changed."), Exit_Declined);
    const Placed placed = bringToBear(*document, target.place, options);
    store(options, *document);

    if (options.isNone || target.place.kind == Element_Spec) {
        options.console->print(
            (options.isLevel ? QStringLiteral("%1 (level) = %2\n") : QStringLiteral("%1 = %2\n"))
                .arg(target.path(), formulaOf(target, options.isLevel)));
    } else {
        options.console->print(
            describe({placed.own}, QStringLiteral("follows a formula"), *document, options.style) +
            resultOfAll({placed.own}, *document));
    }
    options.console->print(describe(placed.difference, *document, options.style));
    return Exit_Done;
}

} // namespace room
