// The two words of the formula language that are translated.
#pragma once

#include <QString>

namespace VorSystem
{

/// The word before the bracket that refers to a measure, in the user's language.
QString measureKeyword();
/// The word before the bracket that refers to a level, in the user's language.
QString levelKeyword();

} // namespace VorSystem
