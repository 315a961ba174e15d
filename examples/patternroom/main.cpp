// patternroom: graded pattern pieces that obey measurements, from the command line.

#include "CommandLine.h"
#include "Console.h"
#include "Refusal.h"

#include <QCoreApplication>

#include <csignal>

using namespace room;

namespace
{

// The words after the name of the program.
QStringList wordsOfTheProgram(int argc, char **argv)
{
    QStringList words;
    for (int i = 1; i < argc; ++i)
        words << QString::fromLocal8Bit(argv[i]);
    return words;
}

int fail(Console &console, const QString &sentence, int exit)
{
    console.tell(QStringLiteral("patternroom: ") + sentence);
    return exit;
}

} // namespace

int main(int argc, char **argv)
{
    std::signal(SIGXFSZ, SIG_IGN); // a limit of file sizes is told like a full disk
    char name[] = "patternroom";   // Qt gets no options: all of them are those of the commands
    char *names[] = {name, nullptr};
    int count = 1;
    const QCoreApplication application(count, names);
    Console console;
    try {
        const int exit = runCommand(wordsOfTheProgram(argc, argv), console);
        if (!Console::writeOut(console.takePrinted()))
            return fail(console, QStringLiteral("Standard output takes no more."), Exit_File);
        return exit;
    } catch (const Refusal &refusal) {
        Console::writeOut(refusal.findings());
        return fail(console, refusal.sentence(), refusal.exit());
    }
}
