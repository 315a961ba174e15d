// From the words of a command line to one command with its options.
#pragma once

#include "Console.h"

#include <QStringList>

namespace room
{

/// Runs the command that the words spell, and answers its exit code. Throws Refusal.
int runCommand(const QStringList &words, Console &console);

/// The words of a line: blanks part them, quotes of either kind keep them together, # begins a comment.
QStringList wordsOf(const QString &line);

} // namespace room
