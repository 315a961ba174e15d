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
    const double tolerance = options.tolerance.isEmpty()
                                 ? 0.01 // cm: the last digit that is shown
                                 : lengthOf(options.tolerance, options.style, QStringLiteral("--tolerance"));
    const auto hold = [&](const QString &text, const QListEx<double> &values, const QString &what) {
        if (text.isEmpty())
            return;
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
    hold(options.measures, readMeasures(element, *document), QStringLiteral("the measures"));
    hold(options.levels, readLevels(element, *document), QStringLiteral("the levels"));
    return Exit_Done;
}

int run(const RunOptions &options)
{
    const QStringList lines = QString::fromUtf8(readText(options.script)).split(QLatin1Char('\n'));
    for (int number = 1; number <= lines.size(); ++number) {
        const QString place = QStringLiteral("%1, line %2: ").arg(options.script, QString::number(number));
        QStringList words;
        try {
            const QString line = lines.at(number - 1).trimmed();
            if (line.startsWith(QLatin1String("## "))) // a heading
                options.console->print(QLatin1Char('\n') + line.mid(3) + QLatin1Char('\n'));
            words = wordsOf(line);
            if (words.isEmpty())
                continue;
            if (words.first() == QLatin1String("run"))
                throw Refusal(QStringLiteral("A script runs no other script."), Exit_Usage);
            // "expect refusal" turns the next command round: what succeeds is wrong then.
            const bool isRefusal =
                words.first() == QLatin1String("expect") && words.value(1) == QLatin1String("refusal");
            if (isRefusal)
                words = words.mid(2);
            int exit = Exit_Done;
            try {
                // Behind the command, so that what the step says for itself comes last and counts.
                exit = runCommand(words.mid(0, 1) + options.globals + words.mid(1), *options.console);
            } catch (const Refusal &refusal) {
                if (!isRefusal)
                    throw;
                options.console->print(refusal.findings() +
                                       QStringLiteral("Refused: %1\n").arg(refusal.sentence()));
                exit = refusal.exit();
            }
            if (isRefusal && exit == Exit_Done)
                throw Refusal(QStringLiteral("A refusal was expected, but the step was done."),
                              Exit_NotObeyed);
            if (!isRefusal && exit != Exit_Done)
                throw Refusal(QStringLiteral("The step ended with %1.\n%2")
                                  .arg(QString::number(exit), options.console->takePrinted().trimmed()),
                              static_cast<eExit>(exit));
            // What is done is told, whatever the next step brings.
            if (!Console::writeOut(options.console->takePrinted()))
                throw Refusal(QStringLiteral("Standard output takes no more."), Exit_File);
        } catch (const Refusal &refusal) {
            throw Refusal(place + refusal.sentence(), refusal.exit(), refusal.findings());
        }
    }
    return Exit_Done;
}

} // namespace room
