// Formulas as the user reads them, also those whose names mean nothing.
#pragma once

#include <VorFrames/VorFrames.h>

#include <QStringList>

namespace room
{

/// The names in a formula that stand for no value. With one of them it has neither text nor value.
QStringList vainNames(const VorSystem::TreeEquations &formula);

/// The text of a formula, or the names of it that mean nothing; empty for null.
QString formulaText(const VorSystem::TreeEquations *formula);

} // namespace room
