// What each command takes, and the list of all.
#include "CommandLine.h"

#include "Commands.h"
#include "Line.h"

#include <exception>

namespace room
{

namespace
{

int runDemo(Line &line)
{
    line.describe(
        QStringLiteral("[DIR]"),
        QStringLiteral("Lays out bundled documents, a measurement chart and a script in DIR, runs the "
                       "script there, and leaves drawings before and after. Ends with 1 when a piece did "
                       "not obey."),
        QStringLiteral("demo out"));
    if (!line.parse(0, 1))
        return Exit_Done;
    if (line.isSet("unit") || line.isSet("locale")) {
        throw Refusal(
            QStringLiteral("'demo' runs a script of its own, in centimetres and with decimal points: "
                           "it takes neither --unit nor --locale."),
            Exit_Usage);
    }
    DemoOptions options;
    line.fill(options);
    options.folder = line.argument(0).isEmpty() ? QStringLiteral("patternroom-demo") : line.argument(0);
    return demo(options);
}

int runNew(Line &line)
{
    line.describe(QStringLiteral("FILE"), QStringLiteral("Makes a document without pieces."),
                  QStringLiteral("new coat.vor.json --sizes \"34;36;38\" --nest 36"));
    line.value("sizes", "NAMES", "Names of the sizes, smallest first, with semicolons between.");
    line.value("nest", "NAME", "The size in which the pieces are drawn; the middle one by default.");
    line.value("name", "NAME", "Name of the document; that of the file by default.");
    line.flag("force", "Write over a file that is there.");
    if (!line.parse(1, 1))
        return Exit_Done;
    NewOptions options;
    line.fill(options);
    options.document = line.argument(0);
    options.name = line.text("name");
    options.sizes = line.text("sizes");
    options.nest = line.text("nest");
    options.isForced = line.isSet("force");
    return newDocument(options);
}

int runImport(Line &line)
{
    line.describe(QStringLiteral("FILE"), QStringLiteral("Reads a nest of another program as graded pieces."),
                  QStringLiteral("import nest.json -o coat.vor.json"));
    line.value("o", "FILE", "Write the document to FILE.");
    if (!line.parse(1, 1))
        return Exit_Done;
    ImportOptions options;
    line.fill(options);
    options.file = line.argument(0);
    options.output = line.text("o");
    return import(options);
}

int runAdd(Line &line)
{
    line.describe(
        QStringLiteral("DOC KIND NAME"),
        QStringLiteral("Adds a center, frame, segment, link, spec, chart, set or point.\n"
                       "Names are 'Set/Name', or 'Name' where there is one set; a frame is "
                       "'Center:Frame'.\nPoints are '#7' or a place such as '24.5,16', like a click; "
                       "a new point is named by its place."),
        QStringLiteral(
            "add b.vor.json spec Ease --formula \"Measure(Waist girth) - Measure(Waist)\" -o c.vor.json"));
    line.value("piece", "PIECE", "The piece of a center, segment or point.");
    line.value("from", "POINT", "First point.");
    line.value("to", "POINT", "Second point; a frame without one ends at its center.");
    line.value("sides", "SIDES", "Of a center: one (default), two or doubled.");
    line.value("along", "WAY", "How a segment moves: x, y, line or contour.");
    line.value("influence", "PERCENT",
               "Of a segment: beyond which part of its length the piece moves along.");
    line.flag("perimeter", "Of a frame: measured along the contour.");
    line.value("percentage", "PERCENT", "Of a frame: the share of its first side in a change.");
    line.value("frames", "NAMES", "Of a link: its frames, with semicolons between.");
    line.value("share", "HOW", "Of a link: proportional (default), equal or fixed.");
    line.value("ratios", "NUMBERS", "Of a link with fixed shares: one per frame.");
    line.value("formula", "TEXT", "Of a spec.");
    line.value("measures", "VALUES", "Of a chart: one per size.");
    line.value("csv", "FILE", "Charts from a table: a heading of sizes, a measure per row; NAME is the set.");
    line.target();
    if (!line.parse(3, 3))
        return Exit_Done;
    AddOptions options;
    line.fillErrand(options);
    options.kind = line.argument(1);
    options.name = line.argument(2);
    options.piece = line.text("piece");
    options.from = line.text("from");
    options.to = line.text("to");
    options.sides = line.text("sides");
    options.displace = line.text("along");
    options.influence = line.text("influence");
    options.isPerimeter = line.isSet("perimeter");
    options.percentage = line.text("percentage");
    options.frames = line.text("frames");
    options.share = line.text("share");
    options.ratios = line.text("ratios");
    options.formula = line.text("formula");
    options.measures = line.text("measures");
    options.csv = line.text("csv");
    return add(options);
}

int runRemove(Line &line)
{
    line.describe(
        QStringLiteral("DOC ELEMENT"),
        QStringLiteral("Takes an element, or a set with --kind set, out of a document. A formula that "
                       "names it, frames on it or a link of it keep it there."),
        QStringLiteral("remove b.vor.json Waist -o c.vor.json"));
    line.value("kind", "KIND", "center, frame, segment, link, spec, chart or set.");
    line.target();
    if (!line.parse(2, 2))
        return Exit_Done;
    ElementOptions options;
    line.fillElement(options);
    return remove(options);
}

int runRename(Line &line)
{
    line.describe(
        QStringLiteral("DOC ELEMENT NAME"),
        QStringLiteral("Gives an element, or a set with --kind set, another name; formulas follow."),
        QStringLiteral("rename b.vor.json Front:Waist Midriff -o c.vor.json"));
    line.value("kind", "KIND", "center, frame, segment, link, spec, chart or set.");
    line.target();
    if (!line.parse(3, 3))
        return Exit_Done;
    RenameOptions options;
    line.fillElement(options);
    options.newName = line.argument(2);
    return rename(options);
}

int runLocking(Line &line, bool isLocked)
{
    line.describe(QStringLiteral("DOC PIECE"),
                  isLocked ? QStringLiteral("Locks a piece: before it moves, the user is asked.")
                           : QStringLiteral("Unlocks a piece."),
                  isLocked ? QStringLiteral("lock bodice.vor.json \"Bodice back\" -o l.vor.json")
                           : QStringLiteral("unlock bodice.vor.json \"Bodice back\" -o l.vor.json"));
    line.target();
    if (!line.parse(2, 2))
        return Exit_Done;
    LockOptions options;
    line.fillErrand(options);
    options.piece = line.argument(1);
    options.isLocked = isLocked;
    return lock(options);
}

int runLock(Line &line)
{
    return runLocking(line, true);
}

int runUnlock(Line &line)
{
    return runLocking(line, false);
}

int runChange(Line &line)
{
    line.describe(
        QStringLiteral("DOC ELEMENT"),
        QStringLiteral("Gives an element new values, and the pieces obey. It is tried on a copy first: a "
                       "document that would not obey is left as it is, and the reason is told."),
        QStringLiteral("change b.vor.json Front:Waist --measure 38 --shift -o c.vor.json"));
    line.value("kind", "KIND", "center, frame, segment, link, spec or chart.");
    line.value("measure", "V", "The measure of the nest.");
    line.value("level", "V", "The level of the nest.");
    line.flag("shift", "Move all sizes by the difference of the nest.");
    line.value("measures", "VALUES", "A measure for each size, with semicolons between.");
    line.value("levels", "VALUES", "A level for each size.");
    line.flag("forecast", "Only tell what would move and how far.");
    line.target();
    if (!line.parse(2, 2))
        return Exit_Done;
    ChangeOptions options;
    line.fillElement(options);
    options.measure = line.text("measure");
    options.level = line.text("level");
    options.measures = line.text("measures");
    options.levels = line.text("levels");
    options.isShift = line.isSet("shift");
    options.isForecast = line.isSet("forecast");
    return change(options);
}

int runFormula(Line &line)
{
    line.describe(QStringLiteral("DOC ELEMENT [TEXT]"),
                  QStringLiteral("Lets an element follow a formula. Circles and units that do not fit are "
                                 "refused, and so is what the piece cannot follow."),
                  QStringLiteral("formula b.vor.json Front:Chest \"Measure(Bust) / 2 + 6\" -o c.vor.json"));
    line.value("kind", "KIND", "frame, segment, link or spec.");
    line.flag("level", "The formula of the level.");
    line.flag("none", "Drop the formula.");
    line.target();
    if (!line.parse(2, 3))
        return Exit_Done;
    FormulaOptions options;
    line.fillElement(options);
    options.text = line.argument(2);
    options.isLevel = line.isSet("level");
    options.isNone = line.isSet("none");
    return formula(options);
}

int runReevaluate(Line &line)
{
    line.describe(QStringLiteral("DOC"), QStringLiteral("Brings all values and pieces into line."),
                  QStringLiteral("reevaluate b.vor.json --dry-run"));
    line.flag("dry-run", "Only tell what would move.");
    line.target();
    if (!line.parse(1, 1))
        return Exit_Done;
    ReevaluateOptions options;
    line.fillErrand(options);
    options.isDryRun = line.isSet("dry-run");
    return reevaluate(options);
}

int runShow(Line &line)
{
    line.describe(QStringLiteral("DOC [ELEMENT]"),
                  QStringLiteral("Shows elements with their values per size, formulas, links and pieces."),
                  QStringLiteral("show bodice.vor.json --points \"Bodice back\" --as csv"));
    line.value("kind", "KIND", "center, frame, segment, link, spec or chart.");
    line.value("as", "FORM", "table (default), csv or json.");
    line.flag("steps", "The steps between sizes as well.");
    line.value("points", "PIECE", "The points of a piece instead.");
    if (!line.parse(1, 2))
        return Exit_Done;
    ShowOptions options;
    line.fill(options);
    options.document = line.argument(0);
    options.element = line.argument(1);
    options.kind = line.text("kind");
    options.form = line.isSet("as") ? line.text("as") : QStringLiteral("table");
    options.points = line.text("points");
    options.withSteps = line.isSet("steps");
    return show(options);
}

int runCheck(Line &line)
{
    line.describe(
        QStringLiteral("DOC"),
        QStringLiteral("Looks for names that mean nothing, units that do not fit, circles, values out of "
                       "line, and seams of different length: specs 'Measure(a) - Measure(b)' that are "
                       "not 0. Ends with 1 when something is found."),
        QStringLiteral("check b.vor.json --tolerance \"0.5 mm\""));
    line.value("tolerance", "V", "How much seams may differ; half a millimetre by default.");
    if (!line.parse(1, 1))
        return Exit_Done;
    CheckOptions options;
    line.fill(options);
    options.document = line.argument(0);
    options.tolerance = line.text("tolerance");
    return check(options);
}

int runDraw(Line &line)
{
    line.describe(QStringLiteral("DOC"), QStringLiteral("Draws a document as SVG in true millimetres."),
                  QStringLiteral("draw bodice.vor.json -o bodice.svg"));
    line.value("o", "FILE", "Write the drawing to FILE; standard output by default.");
    line.value("before", "DOC2",
               "Draw the nests of DOC2 and DOC, or one size of them, on top of each other.");
    line.value("piece", "PIECE", "Only this piece.");
    line.value("sizes", "NAMES", "Only these sizes, and the nest.");
    line.value("stack", "POINT",
               "Lay the sizes on top of each other at a point; with --before, DOC2 onto DOC.");
    line.flag("bare", "Without centers, frames and segments.");
    if (!line.parse(1, 1))
        return Exit_Done;
    DrawOptions options;
    line.fill(options);
    options.document = line.argument(0);
    options.output = line.text("o");
    options.before = line.text("before");
    options.piece = line.text("piece");
    options.sizes = line.text("sizes");
    options.stack = line.text("stack");
    options.isBare = line.isSet("bare");
    return draw(options);
}

int runTransfer(Line &line, bool merges)
{
    line.describe(
        QStringLiteral("SRC DST"),
        merges ? QStringLiteral("Copies pieces with their skeletons from SRC into DST; their sets are "
                                "merged with the sets of the same names.")
               : QStringLiteral("Copies pieces with their skeletons and sets from SRC into DST."),
        merges ? QStringLiteral("merge b.vor.json jacket.vor.json -o c.vor.json")
               : QStringLiteral("copy b.vor.json jacket.vor.json --piece \"Bodice front\" -o c.vor.json"));
    line.value("piece", "NAMES", "Only these pieces, with semicolons between.");
    line.value("set", "SET", "Only the pieces of a set.");
    line.flag("no-values", "Read the values from the pieces instead of copying them.");
    if (merges) {
        line.flag("rename-source", "Elements of SRC take the names that their copies got.");
        line.value("source-out", "FILE", "Write SRC with its new names to FILE.");
    }
    line.target();
    if (!line.parse(2, 2))
        return Exit_Done;
    TransferOptions options;
    line.fillErrand(options);
    options.source = line.argument(0);
    options.document = line.argument(1);
    options.pieces = line.text("piece");
    options.set = line.text("set");
    options.merges = merges;
    options.withValues = !line.isSet("no-values");
    options.renamesSource = merges && line.isSet("rename-source");
    options.sourceOutput = merges ? line.text("source-out") : QString();
    return transfer(options);
}

int runCopy(Line &line)
{
    return runTransfer(line, false);
}

int runMerge(Line &line)
{
    return runTransfer(line, true);
}

int runScript(Line &line)
{
    line.describe(
        QStringLiteral("SCRIPT"),
        QStringLiteral("Runs the commands of a file, one per line, and stops at the first that fails. "
                       "'expect DOC ELEMENT --measures VALUES' holds values against a document, 'expect "
                       "refusal COMMAND' demands that a command is refused."),
        QStringLiteral("run tutorial.room"));
    if (!line.parse(1, 1))
        return Exit_Done;
    RunOptions options;
    line.fill(options);
    options.script = line.argument(0);
    options.globals = line.globals();
    return run(options);
}

int runExpect(Line &line)
{
    line.describe(QStringLiteral("DOC ELEMENT"),
                  QStringLiteral("Ends with 1 unless an element has the expected values."),
                  QStringLiteral("expect b.vor.json Waist --measures \"64;68;72;76;80;84;88\""));
    line.value("kind", "KIND", "center, frame, segment, link, spec or chart.");
    line.value("measures", "VALUES", "A measure for each size, with semicolons between.");
    line.value("levels", "VALUES", "A level for each size.");
    line.value("tolerance", "V", "How far off is still right; a tenth of a millimetre by default.");
    if (!line.parse(2, 2))
        return Exit_Done;
    ExpectOptions options;
    line.fill(options);
    options.document = line.argument(0);
    options.element = line.argument(1);
    options.kind = line.text("kind");
    options.measures = line.text("measures");
    options.levels = line.text("levels");
    options.tolerance = line.text("tolerance");
    return expect(options);
}

struct CommandEntry {
    const char *name;
    const char *summary;
    int (*run)(Line &);
};

constexpr CommandEntry kCommands[] = {
    {"demo", "the main job on bundled pieces, with drawings", runDemo},
    {"new", "an empty document with sizes", runNew},
    {"import", "a nest of another program as graded pieces", runImport},
    {"add", "a center, frame, segment, link, spec, chart, set or point", runAdd},
    {"remove", "an element", runRemove},
    {"rename", "an element; formulas follow", runRename},
    {"lock", "a piece: the user is asked before it moves", runLock},
    {"unlock", "a piece", runUnlock},
    {"change", "values of an element: the pieces obey", runChange},
    {"formula", "for the measure or level of an element", runFormula},
    {"reevaluate", "brings everything into line", runReevaluate},
    {"show", "elements with their values per size", runShow},
    {"check", "names, units, circles, seams", runCheck},
    {"draw", "a nest as SVG", runDraw},
    {"copy", "pieces with their sets into another document", runCopy},
    {"merge", "the same into sets of the same names", runMerge},
    {"run", "a script of these commands", runScript},
    {"expect", "holds values against a document", runExpect},
};

QString overview()
{
    QString text = QStringLiteral("Usage: patternroom COMMAND ...\n\n");
    for (const CommandEntry &command : kCommands)
        text += QStringLiteral("  %1%2\n")
                    .arg(QLatin1String(command.name), -12)
                    .arg(QLatin1String(command.summary));
    return text +
           QStringLiteral(
               "\n'patternroom COMMAND --help' tells its options.\n\n"
               "Exit codes: 0 done; 1 a piece did not obey, or something was found; 2 the command line\n"
               "is wrong; 3 a file cannot be read or written; 4 a name or value was refused; 5 a question\n"
               "was answered with no.\n");
}

} // namespace

int runCommand(const QStringList &words, Console &console)
{
    const QString name = words.value(0);
    if (name.isEmpty() || name == QLatin1String("--help") || name == QLatin1String("-h") ||
        name == QLatin1String("help")) {
        if (words.size() > 1)
            return runCommand({words.at(1), QStringLiteral("--help")}, console);
        console.print(overview());
        return name.isEmpty() ? Exit_Usage : Exit_Done;
    }
    QStringList known;
    for (const CommandEntry &command : kCommands) {
        if (name == QLatin1String(command.name)) {
            try {
                Line line(words, console);
                return command.run(line);
            } catch (const std::exception &error) {
                // A broken precondition of the library, before anything is written.
                throw Refusal(
                    QStringLiteral("'%1' cannot be done: the document holds something that does not "
                                   "fit together (%2); 'check' may tell what.")
                        .arg(name, QString::fromUtf8(error.what())));
            }
        }
        known << QLatin1String(command.name);
    }
    const QString hint = nearest(name, known);
    throw Refusal(QStringLiteral("There is no command '%1'.%2")
                      .arg(name, hint.isEmpty() ? QStringLiteral(" 'patternroom --help' lists them.") : hint),
                  Exit_Usage);
}

QStringList wordsOf(const QString &line)
{
    QStringList words;
    QString word;
    QChar quote;
    bool isInWord = false;
    for (const QChar letter : line) {
        if (!quote.isNull()) {
            if (letter == quote)
                quote = QChar();
            else
                word += letter;
        } else if (letter == QLatin1Char('"') || letter == QLatin1Char('\'')) {
            quote = letter;
            isInWord = true;
        } else if (letter.isSpace() || (letter == QLatin1Char('#') && !isInWord)) {
            if (isInWord)
                words << word;
            word.clear();
            isInWord = false;
            if (letter == QLatin1Char('#'))
                return words;
        } else {
            word += letter;
            isInWord = true;
        }
    }
    if (!quote.isNull())
        throw Refusal(QStringLiteral("A quotation mark is not closed."), Exit_Usage);
    if (isInWord)
        words << word;
    return words;
}

} // namespace room
