// A new value for an element, and the pieces obey.
#include "Commands.h"
#include "Road.h"

namespace room
{

using namespace VorSystem;

namespace
{

QString formulaInTheWay(const Element &target, const ChangeOptions &options)
{
    const bool isMeasure = !options.measure.isEmpty() || !options.measures.isEmpty();
    const bool isLevel = !options.level.isEmpty() || !options.levels.isEmpty();
    const auto driven = [&](const TreeEquations *formula, bool isImplicit, const QString &what) {
        if (formula) {
            return QStringLiteral(
                       "The %1 of '%2' follows its formula '%3': change what the formula names, or "
                       "drop it with 'formula %4 \"%2\" --none'.")
                .arg(what, target.fullName(), formula->toString(), options.document);
        }
        if (isImplicit) {
            return QStringLiteral("The %1 of '%2' follows the formula of its link: change what that names.")
                .arg(what, target.fullName());
        }
        return QString();
    };
    QString text;
    if (isMeasure)
        text = driven(valueFormula(target.element), target.element->aFormulaImplicitMeasures(),
                      QStringLiteral("measure"));
    if (text.isEmpty() && isLevel)
        text = driven(target.element->formulaLevel(), target.element->aFormulaImplicitLevel(),
                      QStringLiteral("level"));
    return text;
}

void requireFitting(const Element &target, const ChangeOptions &options)
{
    const int given = int(!options.measure.isEmpty()) + int(!options.measures.isEmpty()) +
                      int(!options.level.isEmpty()) + int(!options.levels.isEmpty());
    const bool isNest = !options.measure.isEmpty() || !options.level.isEmpty();
    const bool isLists = !options.measures.isEmpty() || !options.levels.isEmpty();
    if (given == 0 || (isNest && isLists)) {
        throw Refusal(QStringLiteral("Say what to change: --measure or --level for the nest, --measures or "
                                     "--levels for all sizes."),
                      Exit_Usage);
    }
    if (options.isShift && !isNest)
        throw Refusal(QStringLiteral("--shift goes with --measure or --level."), Exit_Usage);
    const eElementFrameType kind = target.place.kind;
    if (kind == Element_Center || kind == Element_Spec) {
        throw Refusal(QStringLiteral("'%1' is a %2: its values cannot be changed.")
                          .arg(target.fullName(), kindName(kind)));
    }
    if (!target.element->getLevelBySizes() && (!options.level.isEmpty() || !options.levels.isEmpty()))
        throw Refusal(
            QStringLiteral("'%1' is a %2: it has no level.").arg(target.fullName(), kindName(kind)));
    const QString inTheWay = formulaInTheWay(target, options);
    if (!inTheWay.isEmpty())
        throw Refusal(inTheWay);
}

void requirePositive(const Element &target, const QListEx<double> &measures)
{
    for (const double measure : measures) {
        if (!(measure > 0.0) && target.place.kind != Element_MeasurementChart)
            throw Refusal(QStringLiteral("A measure of '%1' must be more than 0.").arg(target.fullName()));
    }
}

// The list shifted as a whole, so that the nest gets a value.
QListEx<double> shifted(QListEx<double> present, double value, int nest)
{
    const double difference = value - present.at(nest);
    for (double &length : present)
        length += difference;
    return present;
}

Wish wishOf(const Element &target, const PatternDocument &document, const ChangeOptions &options)
{
    const int nest = nestIndex(document);
    const QString measureOf = QStringLiteral("the measure of '%1'").arg(target.fullName());
    const QString levelOf = QStringLiteral("the level of '%1'").arg(target.fullName());
    Wish wish;
    wish.element = target.place;
    if (!options.measures.isEmpty())
        wish.measures = lengthsOf(options.measures, options.style, sizeCount(document), measureOf);
    if (!options.levels.isEmpty())
        wish.levels = lengthsOf(options.levels, options.style, sizeCount(document), levelOf);
    if (!options.measure.isEmpty())
        wish.measure = lengthOf(options.measure, options.style, measureOf);
    if (!options.level.isEmpty())
        wish.level = lengthOf(options.level, options.style, levelOf);

    // A shift is a change of all sizes. So is any change along a perimeter: applied as a single value, its
    // difference would reach the nest twice.
    const auto *frame = dynamic_cast<const FrameFrame *>(target.element);
    const bool isPerimeter = frame && frame->getPerimeterMeasurement() && wish.measure;
    if (options.isShift || isPerimeter) {
        if (wish.measure)
            wish.measures = shifted(readMeasures(target, document), *wish.measure, nest);
        if (wish.level)
            wish.levels = shifted(readLevels(target, document), *wish.level, nest);
        wish.measure.reset();
        wish.level.reset();
    }
    if (wish.measures)
        requirePositive(target, *wish.measures);
    if (wish.measure)
        requirePositive(target, {*wish.measure});
    return wish;
}

void addRows(Table &table, const QString &what, const QListEx<double> &wanted, const QListEx<double> &read,
             const Outcome &outcome, const LengthStyle &style)
{
    if (wanted.isEmpty())
        return;
    const QListEx<double> differences = minus(read, wanted);
    QStringList wantedCells{what, QStringLiteral("wanted")};
    QStringList readCells{what, QStringLiteral("read back")};
    QStringList differenceCells{what, QStringLiteral("difference")};
    for (int size = 0; size < wanted.size(); ++size) {
        const bool isWanted = !outcome.isNestAlone || size == outcome.nest;
        wantedCells << (isWanted ? style.show(wanted.at(size)) : QStringLiteral("-"));
        readCells << style.show(read.at(size));
        differenceCells << (isWanted ? style.showDifference(differences.at(size)) : QStringLiteral("-"));
    }
    table.add(wantedCells);
    table.add(readCells);
    table.add(differenceCells);
}

} // namespace

QString report(const Outcome &outcome, const Element &target, const PatternDocument &document,
               const LengthStyle &style)
{
    Table table(QStringList{target.path(), style.sign()} + sizeHeadings(document));
    const bool isMeasureGap = largestOf(minus(outcome.readMeasures, outcome.wantedMeasures)) > 0.0;
    if (!outcome.isLevelWish || (isMeasureGap && !outcome.isObeyed()))
        addRows(table, QStringLiteral("measure"), outcome.wantedMeasures, outcome.readMeasures, outcome,
                style);
    if (outcome.isLevelWish || !outcome.isObeyed())
        addRows(table, QStringLiteral("level"), outcome.wantedLevels, outcome.readLevels, outcome, style);
    return table.print(Table_Text);
}

int change(const ChangeOptions &options)
{
    if (!options.isForecast)
        requireTarget(options);
    const DocumentPtr document = openDocument(options.document);
    const Element target = findElement(*document, options.element, options.kind);
    requireFitting(target, options);
    const Wish wish = wishOf(target, *document, options);

    const Outcome outcome = options.isForecast ? rehearse(*document, wish) : change(*document, wish);
    if (outcome.isDeclined)
        throw Refusal(QStringLiteral("Nothing was changed."), Exit_Declined);

    options.console->print(report(outcome, target, *document, options.style));
    if (!outcome.isObeyed()) {
        for (const QString &message : outcome.messages)
            options.console->print(message + QLatin1Char('\n'));
        options.console->print(describe(outcome.driven, *document, options.style));
        if (outcome.isRefused) {
            options.console->print(QStringLiteral("Result: refused before anything moved.\n"));
        } else {
            options.console->print(explain(*document, wish, options.style));
        }
        options.console->print(QStringLiteral("The document stays as it was.\n"));
        return Exit_NotObeyed;
    }
    const bool isTied =
        target.element->isDefinedInDocument() && target.place.kind != Element_MeasurementChart;
    options.console->print(isTied ? QStringLiteral("Result 1: %1.\n").arg(inWords(Msg_Converged))
                                  : QStringLiteral("Stored: no piece hangs on it directly.\n"));
    options.console->print(describe(outcome.driven, *document, options.style));
    options.console->print(describe(outcome.difference, *document, options.style));
    if (options.isForecast)
        options.console->print(QStringLiteral("A forecast: nothing was changed.\n"));
    else
        store(options, *document);
    return Exit_Done;
}

} // namespace room
