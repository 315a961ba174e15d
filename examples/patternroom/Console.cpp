#include "Console.h"

#include <QFile>
#include <QTextStream>

#include <cerrno>
#include <sys/stat.h>
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
    struct stat before {
    };
    const bool isFile = fstat(STDOUT_FILENO, &before) == 0 && S_ISREG(before.st_mode);
    const QByteArray bytes = text.toUtf8();
    for (int written = 0; written < bytes.size();) {
        const ssize_t count = ::write(STDOUT_FILENO, bytes.constData() + written,
                                      static_cast<std::size_t>(bytes.size() - written));
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0) {
            // A file keeps no part of what did not fit.
            if (isFile && ftruncate(STDOUT_FILENO, before.st_size) != 0)
                QTextStream(stderr) << "A part of the output stays in the file.\n";
            return false;
        }
        written += static_cast<int>(count);
    }
    return true;
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
