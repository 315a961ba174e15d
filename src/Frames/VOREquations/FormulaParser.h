// Reading formulas from text with names from an index, for callers that read many.
#pragma once

class QString;

namespace VorSystem
{

class ElementNames;
class TreeEquations;

/// As TreeEquations::parse.
TreeEquations *parseFormula(const QString &text, ElementNames &names, bool implicitUnits);

} // namespace VorSystem
