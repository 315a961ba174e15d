// RecordingApplication: an application object that keeps what it was told, for tests to read.
#pragma once

#include <QString>
#include <QStringList>
#include <VorCore/VorCoreApplication.h>

namespace support
{

/// Stands as the application while it lives; shows nothing and answers every question with mAnswer.
class RecordingApplication : public VorSystem::VorCoreApplication
{
public:
    void showMessage(const QString &text, const QString &, int) override { mMessages << text; }

    bool askQuestion(const QString &text, const QString &, int) override
    {
        mQuestions << text;
        return mAnswer;
    }

    QStringList mMessages;
    QStringList mQuestions;
    bool mAnswer = true;
};

} // namespace support
