// The application object of the program: what it prints, tells and asks.
#pragma once

#include <VorCore/VorCore.h>

#include <QString>
#include <QStringList>

namespace room
{

/// How a question is answered.
enum eAnswer {
    Answer_Ask, ///< on the terminal; no where there is none
    Answer_Yes,
    Answer_No,
};

/// Keeps what a command prints until the command is through: a command that fails prints nothing.
class Console final : public VorSystem::VorCoreApplication
{
public:
    Console() = default;

    void setAnswer(eAnswer answer) { mAnswer = answer; }
    void print(const QString &text) { mPrinted += text; }
    /// A line for the user that is no result.
    void tell(const QString &line);

    /// What was printed since the last call.
    QString takePrinted();
    /// False when standard output takes no more.
    static bool writeOut(const QString &text);

    void showMessage(const QString &text, const QString &title, int flags) override;
    bool askQuestion(const QString &text, const QString &title, int flags) override;

private:
    QString mPrinted;
    eAnswer mAnswer = Answer_Ask;
};

/// Stands in for the console while something is tried on a copy: keeps messages, and says yes to everything.
class Rehearsal final : public VorSystem::VorCoreApplication
{
public:
    explicit Rehearsal(const VorSystem::LengthUnit &unit) { setLengthUnit(unit); }

    const QStringList &messages() const { return mMessages; }

    void showMessage(const QString &text, const QString &title, int flags) override;
    bool askQuestion(const QString &text, const QString &title, int flags) override;

private:
    QStringList mMessages;
};

} // namespace room
