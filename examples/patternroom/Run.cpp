// Scripts: the same commands as steps of plain text, and what is expected of them.
#include "CommandLine.h"
#include "Commands.h"
#include "Road.h"

namespace room
{

using namespace VorSystem;

int expect(const ExpectOptions &options)
{
    const DocumentPtr document = openDocument(options.document);
    const Element element = findElement(*document, options.element, options.kind);
    const double tolerance = options.tolerance.isEmpty() ? 0.01 // cm: the last digit that is shown
                                                         : toleranceOf(options.tolerance, options.style);
    const auto hold = [&](const QString &text, const ValuesAccordingSizes *stored,
                          const QListEx<double> &values, const QString &what) {
        if (text.isEmpty())
            return;
        if (!stored)
            throw Refusal(
                QStringLiteral("'%1' is a %2: it has no %3.")
                    .arg(element.path(), kindName(element.place.kind), what.section(QLatin1Char(' '), 1)));
        const QListEx<double> expected = lengthsOf(text, options.style, sizeCount(*document), what);
        if (largestOf(minus(values, expected)) <= tolerance)
            return;
        QStringList shown;
        for (const double value : values)
            shown << options.style.show(value);
        throw Refusal(QStringLiteral("Expected %1 of '%2' to be %3, but it is %4.")
                          .arg(what, element.path(), text, shown.join(QLatin1Char(';'))),
                      Exit_NotObeyed);
    };
    if (options.measures.isEmpty() && options.levels.isEmpty())
        throw Refusal(QStringLiteral("Say what is expected: --measures or --levels."), Exit_Usage);
    hold(options.measures, element.element->getMeasureBySizes(), readMeasures(element, *document),
         QStringLiteral("the measures"));
    hold(options.levels, element.element->getLevelBySizes(), readLevels(element, *document),
         QStringLiteral("the levels"));
    return Exit_Done;
}

namespace
{

QStringList linesOf(const QString &script)
{
    const QByteArray bytes = readText(script);
    const QString text = QString::fromUtf8(bytes.constData(), bytes.size());
    if (text.contains(QChar::ReplacementCharacter) || text.contains(QChar::Null))
        throw Refusal(QStringLiteral("Cannot read '%1': it is no text in UTF-8.").arg(script), Exit_File);
    return text.split(QLatin1Char('\n'));
}

int runOther(const QStringList &words, const RunOptions &options)
{
    if (words.isEmpty())
        throw Refusal(QStringLiteral("'expect refusal' needs a command."), Exit_Usage);
    if (words.first() == QLatin1String("run"))
        throw Refusal(QStringLiteral("A script runs no other script."), Exit_Usage);
    // Behind the command, so that what the step says for itself comes last and counts.
    return runCommand(words.mid(0, 1) + options.globals + words.mid(1), *options.console);
}

// A command line that is wrong is no refusal: it would hide a slip in the script.
void runRefused(const QStringList &words, const RunOptions &options)
{
    int exit = Exit_Done;
    try {
        exit = runOther(words, options);
    } catch (const Refusal &refusal) {
        if (refusal.exit() == Exit_Usage)
            throw;
        exit = refusal.exit();
        options.console->print(refusal.findings() + QStringLiteral("Refused: %1\n").arg(refusal.sentence()));
    }
    if (exit == Exit_Done)
        throw Refusal(QStringLiteral("A refusal was expected, but the step was done."), Exit_NotObeyed);
}

void runStep(const QStringList &words, const RunOptions &options)
{
    Console &console = *options.console;
    if (words.first() == QLatin1String("expect") && words.value(1) == QLatin1String("refusal")) {
        runRefused(words.mid(2), options);
    } else if (const int exit = runOther(words, options); exit != Exit_Done) {
        throw Refusal(QStringLiteral("The step ended with %1.\n%2")
                          .arg(QString::number(exit), console.takePrinted().trimmed()),
                      static_cast<eExit>(exit));
    }
    // What is done is told, whatever the next step brings.
    if (!Console::writeOut(console.takePrinted()))
        throw Refusal(QStringLiteral("Standard output takes no more."), Exit_File);
}

} // namespace

int run(const RunOptions &options)
{
    int number = 0;
    for (const QString &line : linesOf(options.script)) {
        ++number;
        try {
            if (line.trimmed().startsWith(QLatin1String("## "))) // a heading
                options.console->print(QLatin1Char('\n') + line.trimmed().mid(3) + QLatin1Char('\n'));
            const QStringList words = wordsOf(line.trimmed());
            if (!words.isEmpty())
                runStep(words, options);
        } catch (const Refusal &refusal) {
            throw Refusal(QStringLiteral("%1, line %2: %3")
                              .arg(options.script, QString::number(number), refusal.sentence()),
                          refusal.exit(), refusal.findings());
        }
    }
    return Exit_Done;
}

} // namespace room
