#include "Console.h"

#include <QFile>
#include <QTextStream>

#include <cstdio>
#include <unistd.h>

namespace room
{

void Console::tell(const QString &line)
{
    QTextStream(stderr) << line << '\n';
}

QString Console::takePrinted()
{
    QString printed;
    printed.swap(mPrinted);
    return printed;
}

bool Console::writeOut(const QString &text)
{
    const QByteArray bytes = text.toUtf8();
    const std::size_t count = static_cast<std::size_t>(bytes.size());
    return std::fwrite(bytes.constData(), 1, count, stdout) == count && std::fflush(stdout) == 0;
}

void Console::showMessage(const QString &text, const QString &, int)
{
    tell(text);
}

bool Console::askQuestion(const QString &text, const QString &, int)
{
    QTextStream err(stderr);
    err << text << ' ';
    if (mAnswer != Answer_Ask) {
        err << (mAnswer == Answer_Yes ? "yes" : "no") << '\n';
        return mAnswer == Answer_Yes;
    }
    if (isatty(STDIN_FILENO) == 0) {
        err << "no (there is no terminal to ask; --yes answers yes)\n";
        return false;
    }
    err << "[y/N] " << Qt::flush;
    const QString answer = QTextStream(stdin).readLine().trimmed();
    return answer.startsWith(QLatin1Char('y'), Qt::CaseInsensitive);
}

void Rehearsal::showMessage(const QString &text, const QString &, int)
{
    mMessages << text;
}

bool Rehearsal::askQuestion(const QString &, const QString &, int)
{
    return true;
}

} // namespace room
