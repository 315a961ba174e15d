// Formulas: read, judged, and brought to bear on the pieces.
#include "Commands.h"
#include "Road.h"

#include <VorConjoin/VorConjoin.h>

#include <QLocale>

#include <algorithm>
#include <cmath>
#include <iterator>

namespace room
{

using namespace VorSystem;

namespace
{

// Refuses names that stand for nothing, and names outside Measure(...) and Level(...).
void requireNames(const ElementEquation *node, const FrameSet &set, const PatternDocument *document)
{
    if (!node)
        return;
    const bool isReference = node->contents == ElemMeasure || node->contents == ElemLevel;
    if (node->contents == ElemNone) {
        throw Refusal(QStringLiteral("'%1' stands alone in the formula: write Measure(%1) or Level(%1).")
                          .arg(node->pendingName.trimmed()));
    }
    if (isReference && !node->element) {
        QStringList known;
        if (document) {
            for (const Element &element : elementsOf(*document)) {
                if (element.set == &set && element.place.kind != Element_Center)
                    known << element.fullName();
            }
        }
        throw Refusal(QStringLiteral("The formula names '%1', which is no element of '%2'.%3")
                          .arg(node->pendingName.trimmed(), set.name(), nearest(node->pendingName, known)));
    }
    requireNames(node->sonLeft, set, document);
    requireNames(node->sonRight, set, document);
}

QString textOf(const TreeEquations *tree)
{
    return tree ? tree->toString() : QStringLiteral("none");
}

// Where the point groups digits, a decimal comma is read over, and a length would be ten times as long.
void requireReadableDecimals(const QString &text)
{
    const QLocale locale;
    if (locale.groupSeparator() != QLatin1Char('.'))
        return;
    for (int i = 1; i + 1 < text.size(); ++i) {
        const bool isSign = text.at(i) == locale.decimalPoint() || text.at(i) == QLatin1Char('.');
        if (isSign && text.at(i - 1).isDigit() && text.at(i + 1).isDigit()) {
            throw Refusal(
                QStringLiteral("In the locale %1 a formula cannot hold decimals: the sign in '%2' would "
                               "be read over. Write 31 / 10, or use another --locale.")
                    .arg(locale.name(), text));
        }
    }
}

QString gapInWords(const QListEx<double> &wanted, const QListEx<double> &read,
                   const PatternDocument &document, const LengthStyle &style)
{
    int worst = 0;
    const QListEx<double> gaps = minus(read, wanted);
    for (int size = 0; size < gaps.size(); ++size) {
        if (std::abs(gaps.at(size)) > std::abs(gaps.at(worst)))
            worst = size;
    }
    if (gaps.isEmpty())
        return QStringLiteral("the formula was given up");
    return QStringLiteral("in size %1 it gives %2, and the piece reads %3")
        .arg(document.sizeName(static_cast<short>(worst + 1)), style.show(wanted.at(worst)),
             style.show(read.at(worst)));
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

struct Placed {
    bool isDeclined = false;
    bool isKept = false;
    bool isTied = true; ///< as before
    QListEx<double> wanted;
    QListEx<double> read;
    Difference difference;
    QStringList messages;
};

// The formula takes its place and all values follow.
Placed bringToBear(PatternDocument &document, const ElementPlace &where, const FormulaOptions &options,
                   const std::vector<ElementPlace> &concerned)
{
    const Element target = elementAt(document, where);
    const Snapshot before = snapshotOf(document);
    Placed placed;
    if (!mayMove(document, concerned)) {
        placed.isDeclined = true;
        return placed;
    }
    const bool wasTied = target.element->isDefinedInDocument();
    std::unique_ptr<TreeEquations> tree;
    if (!options.isNone)
        tree = readFormula(options.text, target.set, target.element, options.isLevel);
    place(target, std::move(tree), options.isLevel);
    target.set->reevaluate(Reevaluate_Apply);

    TreeEquations *kept = options.isLevel ? target.element->formulaLevel() : valueFormula(target.element);
    placed.isKept = options.isNone ? kept == nullptr : kept != nullptr;
    placed.isTied = options.isNone || target.element->isDefinedInDocument() == wasTied ||
                    target.place.kind == Element_Spec;
    if (kept) {
        for (int size = 0; size < sizeCount(document); ++size)
            placed.wanted.append(kept->evaluate(static_cast<short>(size)));
        placed.read = options.isLevel ? readLevels(target, document) : readMeasures(target, document);
    }
    placed.difference = differenceOf(before, snapshotOf(document));
    return placed;
}

} // namespace

std::unique_ptr<TreeEquations> readFormula(const QString &text, FrameSet *set, BaseFrame *holder,
                                           bool isLevel)
{
    requireReadableDecimals(text);
    std::unique_ptr<TreeEquations> tree(TreeEquations::parse(text, set, false));
    if (!tree) {
        throw Refusal(
            QStringLiteral("'%1' is no formula: write numbers, Measure(name), Level(name), + - * / and "
                           "brackets.")
                .arg(text));
    }
    requireNames(tree->root, *set, dynamic_cast<PatternDocument *>(set->document()));
    if (!tree->verifierImplicitUnits()) {
        throw Refusal(QStringLiteral("The units of '%1' do not fit: a length is added to a plain number, or "
                                     "multiplied by a length.")
                          .arg(text));
    }
    tree->determineImplicitUnits();
    const bool isCircle = isLevel ? holder->formulaLevelIsRecursive(tree.get())
                                  : holder->formulaMeasurementIsRecursive(tree.get());
    if (isCircle) {
        throw Refusal(QStringLiteral("'%1' would depend on itself by '%2'.").arg(holder->fullName(), text));
    }
    return tree;
}

int formula(const FormulaOptions &options)
{
    requireTarget(options);
    if (options.isNone == !options.text.isEmpty())
        throw Refusal(QStringLiteral("Give the text of the formula, or --none."), Exit_Usage);
    const DocumentPtr document = openDocument(options.document);
    const Element target = findElement(*document, options.element, options.kind);
    const bool isPossible =
        options.isLevel ? target.element->formulaLevelAvailable()
                        : target.element->measurementFormulaAvailable() || target.place.kind == Element_Spec;
    if (target.place.kind == Element_MeasurementChart) {
        throw Refusal(
            QStringLiteral("The formula of a chart is not stored with a document: make '%1' a spec.")
                .arg(target.fullName()));
    }
    if (!isPossible) {
        throw Refusal(QStringLiteral("'%1' is a %2 and takes no formula for its %3%4.")
                          .arg(target.fullName(), kindName(target.place.kind),
                               options.isLevel ? QStringLiteral("level") : QStringLiteral("measure"),
                               target.place.kind == Element_Frame ? QStringLiteral(" now") : QString()));
    }

    std::vector<ElementPlace> concerned{target.place};
    {
        const DocumentPtr copy = copyOf(*document);
        const Rehearsal rehearsal(options.style.unit);
        const Placed tried = bringToBear(*copy, target.place, options, {});
        if (!tried.isTied)
            throw Refusal(
                QStringLiteral("With this formula the values could not be ordered: segment '%1' would "
                               "move what it depends on.")
                    .arg(target.fullName()));
        if (!tried.isKept || largestOf(minus(tried.read, tried.wanted)) > 1e-4)
            throw Refusal(QStringLiteral("The piece cannot follow '%1': %2.")
                              .arg(options.text, gapInWords(tried.wanted, tried.read, *copy, options.style)),
                          Exit_NotObeyed);
        for (const MovedElement &moved : tried.difference.elements)
            concerned.push_back(moved.place);
    }
    const Placed placed = bringToBear(*document, target.place, options, concerned);
    if (placed.isDeclined)
        throw Refusal(QStringLiteral("Nothing was changed."), Exit_Declined);
    store(options, *document);
    if (options.isNone || target.place.kind == Element_Spec) {
        options.console->print(
            QStringLiteral("%1 = %2\n")
                .arg(target.path(), textOf(options.isLevel ? target.element->formulaLevel()
                                                           : valueFormula(target.element))));
    } else {
        const std::vector<Driven> driven = drivenElements(*document, target.set);
        std::vector<Driven> own;
        std::copy_if(driven.begin(), driven.end(), std::back_inserter(own), [&](const Driven &element) {
            return element.path == target.path() && element.isLevel == options.isLevel;
        });
        options.console->print(describe(own, *document, options.style));
    }
    Difference difference = placed.difference;
    if (options.isNone)
        difference.lostFormulas.clear(); // that it goes was asked for
    options.console->print(describe(difference, *document, options.style));
    return Exit_Done;
}

int reevaluate(const ReevaluateOptions &options)
{
    if (!options.isDryRun)
        requireTarget(options);
    const DocumentPtr document = openDocument(options.document);
    const DocumentPtr copy = copyOf(*document);
    Difference expected;
    {
        const Rehearsal rehearsal(options.style.unit);
        const Snapshot before = snapshotOf(*copy);
        copy->framesManager()->reevaluateFrameSets(Reevaluate_Apply);
        expected = differenceOf(before, snapshotOf(*copy));
    }
    const QString text = describe(expected, *copy, options.style);
    if (options.isDryRun) {
        options.console->print(text.isEmpty() ? QStringLiteral("Nothing would move.\n") : text);
        return Exit_Done;
    }
    std::vector<ElementPlace> concerned;
    for (const MovedElement &moved : expected.elements)
        concerned.push_back(moved.place);
    if (!mayMove(*document, concerned))
        throw Refusal(QStringLiteral("Nothing was changed."), Exit_Declined);
    document->framesManager()->reevaluateFrameSets(Reevaluate_Apply);
    store(options, *document);
    options.console->print(text.isEmpty() ? QStringLiteral("Everything was in line.\n") : text);
    return Exit_Done;
}

} // namespace room
