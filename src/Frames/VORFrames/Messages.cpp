// What the library tells and asks the user.

#include "VORFrames/Messages.h"

#include <VorCore/VorCore.h>
#include <VorFrames/BaseFrame.h>
#include <VorFrames/GestFrames.h>

namespace VorSystem
{

void showMessage(const QString &text)
{
    VorCoreApplication::instance().showMessage(text, QString(), 0);
}

void reportLostFormula(BaseFrame &element)
{
    const QString text =
        GestFrames::tr("Cannot apply formula for element '%1'. The formula has been deleted.");
    showMessage(text.arg(element.fullName()));
}

bool refuseLevels(bool *refused)
{
    if (refused != nullptr)
        *refused = true;
    showMessage(GestFrames::tr("Cannot apply levels: a frame would move past a neighboring frame."));
    return false;
}

bool askAboutLockedPieces(int lockState, bool plainWording)
{
    static const char *const kQuestions[2][2] = {
        {"Some locked pieces may be modified by activating the frame view. Do you want to continue?",
         "Some locked pieces may be modified. Do you want to continue?"},
        {"Some locked piece clones may be modified by activating the frame view. Do you want to continue?",
         "Some locked piece clones may be modified. Do you want to continue?"},
    };
    if (lockState != 1 && lockState != 2)
        return true;

    const QString question = GestFrames::tr(kQuestions[lockState - 1][plainWording ? 1 : 0]);
    return VorCoreApplication::instance().askQuestion(question, QString(), 0);
}

} // namespace VorSystem
