// What the library tells and asks the user.
#pragma once

#include <QString>

namespace VorSystem
{

class BaseFrame;

/// Shows a text that is translated already.
void showMessage(const QString &text);

/// "Cannot apply formula for element ...": said before the formula is taken off.
void reportLostFormula(BaseFrame &element);

/// Levels were refused because a frame would pass its neighbour. Sets *refused where given, shows the text,
/// and answers false.
bool refuseLevels(bool *refused);

/// May locked pieces be modified? lockState 1 means locked pieces, 2 locked clones; any other asks nothing
/// and answers true. plainWording chooses the shorter text.
bool askAboutLockedPieces(int lockState, bool plainWording);

} // namespace VorSystem
