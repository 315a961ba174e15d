// The main job on bundled pieces: everything that it needs is inside the program, and what it does is a
// script.
#include "Commands.h"

#include <QDir>
#include <QDirIterator>

namespace room
{

int demo(const DemoOptions &options)
{
    if (!QDir().mkpath(options.folder))
        throw Refusal(QStringLiteral("The folder '%1' cannot be made.").arg(options.folder), Exit_File);
    QDirIterator bundled(QStringLiteral(":/demo"), QDir::Files);
    while (bundled.hasNext()) {
        const QString from = bundled.next();
        storeText(readText(from), options.folder + QLatin1Char('/') + bundled.fileName());
    }

    const QString home = QDir::currentPath();
    QDir::setCurrent(options.folder);
    RunOptions script;
    script.console = options.console;
    script.style = options.style;
    script.script = QStringLiteral("demo.room");
    const int exit = run(script);

    options.console->print(QStringLiteral("\nDrawings in '%1':\n").arg(options.folder));
    for (const QString &drawing :
         QDir::current().entryList({QStringLiteral("*.svg")}, QDir::Files, QDir::Name))
        options.console->print(QLatin1String("  ") + drawing + QLatin1Char('\n'));
    QDir::setCurrent(home);
    return exit;
}

} // namespace room
