// A new value for an element, and the pieces obey.
#include "Commands.h"
#include "Moves.h"

namespace room
{

using namespace VorSystem;

namespace
{

TreeEquations *formulaOf(BaseFrame *element, bool isLevel)
{
    return isLevel ? element->formulaLevel() : valueFormula(element);
}

// Why a value of the element is not for the user to change, in words; empty when it is.
QString formulaInTheWay(const Element &target, bool isLevel, const QString &document)
{
    const QString what = isLevel ? QStringLiteral("level") : QStringLiteral("measure");
    if (const TreeEquations *own = formulaOf(target.element, isLevel)) {
        return QStringLiteral("The %1 of '%2' follows its formula '%3': change what the formula names, or "
                              "drop it with 'formula %4 \"%2\" --none%5'.")
            .arg(what, target.fullName(), own->toString(), document,
                 isLevel ? QStringLiteral(" --level") : QString());
    }
    const auto *frame = dynamic_cast<const FrameFrame *>(target.element);
    FrameLink *link = frame ? frame->getLink() : nullptr;
    if (link && formulaOf(link, isLevel)) {
        return QStringLiteral("The %1 of '%2' follows its link '%3', and that the formula '%4': change what "
                              "the formula names.")
            .arg(what, target.fullName(), link->fullName(), formulaOf(link, isLevel)->toString());
    }
    if (const auto *whole = dynamic_cast<const FrameLink *>(target.element)) {
        const QListEx<FrameFrame *> frames = whole->getFrames();
        for (FrameFrame *part : frames) {
            if (const TreeEquations *formula = formulaOf(part, isLevel)) {
                return QStringLiteral("The %1 of '%2' cannot be shared: its frame '%3' follows the formula "
                                      "'%4'.")
                    .arg(what, target.fullName(), part->fullName(), formula->toString());
            }
        }
    }
    return QString();
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
    for (const bool isOfLevel : {false, true}) {
        const bool isAsked = isOfLevel ? !options.level.isEmpty() || !options.levels.isEmpty()
                                       : !options.measure.isEmpty() || !options.measures.isEmpty();
        const QString inTheWay = isAsked ? formulaInTheWay(target, isOfLevel, options.document) : QString();
        if (!inTheWay.isEmpty())
            throw Refusal(inTheWay);
    }
}

// A chart may hold any number; a piece has no room for a length that is none.
void requirePositive(const Element &target, const QListEx<double> &measures, const LengthStyle &style)
{
    for (const double measure : measures) {
        if (!(measure > 0.0) && target.place.kind != Element_MeasurementChart)
            throw Refusal(
                QStringLiteral("The measure of '%1' must be more than 0 in every size, but would be %2.")
                    .arg(target.fullName(), style.show(measure)));
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
        requirePositive(target, *wish.measures, options.style);
    if (wish.measure)
        requirePositive(target, {*wish.measure}, options.style);
    return wish;
}

// Wanted, read back and difference per size.
QString report(const Outcome &outcome, const Wish &wish, const PatternDocument &document,
               const LengthStyle &style)
{
    Table table(QStringList{outcome.measure.path, style.sign()} + sizeHeadings(document));
    const bool isAll = !outcome.isObeyed() && !outcome.isRefused;
    if (wish.measure || wish.measures || isAll)
        addRows(table, QStringLiteral("measure"), outcome.measure, style);
    if (wish.level || wish.levels || (isAll && !outcome.level.wanted.isEmpty()))
        addRows(table, QStringLiteral("level"), outcome.level, style);
    return table.print(Table_Text);
}

// What is said of a change that failed; the document is the one before it.
Refusal disobeyed(const Outcome &outcome, const PatternDocument &document, const Wish &wish,
                  const ChangeOptions &options)
{
    const LengthStyle &style = options.style;
    QString findings = report(outcome, wish, document, style);
    findings += describe(outcome.shares, QStringLiteral("follows the link"), document, style);
    findings += describe(outcome.driven, QStringLiteral("follows a formula"), document, style);
    if (options.isForecast)
        findings += describe(outcome.difference, document, style);
    else
        findings += describe(outcome.difference.lostFormulas);
    findings += explain(document, wish, outcome, style);

    const QString sentence =
        QStringLiteral("'%1' would not obey: the document stays as it was.").arg(outcome.measure.path);
    return Refusal(withMessages(sentence, outcome.messages), Exit_NotObeyed, findings);
}

QString resultInWords(const Outcome &outcome, const Element &target)
{
    if (target.element->isDefinedInDocument() && target.place.kind != Element_MeasurementChart)
        return QStringLiteral("Result %1: %2.\n").arg(QString::number(Msg_Converged), inWords(Msg_Converged));
    return outcome.measure.onlySize
               ? QStringLiteral("Stored: no piece hangs on it directly, so the other sizes stay.\n")
               : QStringLiteral("Stored: no piece hangs on it directly.\n");
}

// What follows from the rules of the library and may surprise.
void tellRules(const Element &target, const Wish &wish, const ChangeOptions &options)
{
    Console &console = *options.console;
    const auto *frame = dynamic_cast<const FrameFrame *>(target.element);
    if (frame && frame->getPerimeterMeasurement() && !options.measure.isEmpty() && !options.isShift) {
        console.tell(QStringLiteral("'%1' is measured along the contour, so it was changed by a list of all "
                                    "sizes: as a single value the difference would reach the nest twice.")
                         .arg(target.path()));
    }
    if (wish.level && makesOrigin(*wish.level)) {
        console.tell(QStringLiteral("At level 0 '%1' is the origin: levels are counted from it now.")
                         .arg(target.path()));
    }
}

} // namespace

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
    if (!outcome.isObeyed())
        throw disobeyed(outcome, *document, wish, options);
    if (!options.isForecast)
        store(options, *document);

    Console &console = *options.console;
    console.print(report(outcome, wish, *document, options.style));
    console.print(resultInWords(outcome, target));
    console.print(describe(outcome.shares, QStringLiteral("follows the link"), *document, options.style));
    console.print(resultOfAll(outcome.shares, *document));
    console.print(describe(outcome.driven, QStringLiteral("follows a formula"), *document, options.style));
    console.print(resultOfAll(outcome.driven, *document));
    console.print(describe(outcome.difference, *document, options.style));
    if (options.isForecast)
        console.print(QStringLiteral("A forecast: nothing was changed.\n"));
    tellRules(target, wish, options);
    return Exit_Done;
}

} // namespace room
