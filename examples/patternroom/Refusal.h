// Why a command ends without having done its work, in words for the user and a number for the caller.
#pragma once

#include <QString>

#include <utility>

namespace room
{

/// What the program hands to the shell.
enum eExit {
    Exit_Done = 0,
    Exit_NotObeyed = 1, ///< a piece did not obey, an expectation was not met, a check found something
    Exit_Usage = 2,     ///< the command line itself
    Exit_File = 3,      ///< a file that cannot be read or written
    Exit_Refused = 4,   ///< a name, a value or a wish that is refused
    Exit_Declined = 5,  ///< a question was answered with no
};

/// Thrown by a command; nothing has been written then.
class Refusal
{
public:
    explicit Refusal(QString sentence, eExit exit = Exit_Refused, QString findings = QString())
        : mSentence(std::move(sentence)), mExit(exit), mFindings(std::move(findings))
    {
    }

    const QString &sentence() const { return mSentence; }
    eExit exit() const { return mExit; }
    /// Tables and reasons that are a result all the same: they belong on standard output.
    const QString &findings() const { return mFindings; }

private:
    QString mSentence;
    eExit mExit;
    QString mFindings;
};

} // namespace room
