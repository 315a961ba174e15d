// Reading formulas from JSON with names from an index, for callers that read many.
#pragma once

namespace VorSystem
{

class ElementEquation;
class ElementNames;
class TreeEquations;
class XJsonObject;

/// As TreeEquations::fromJson. Failures are raised in the name of the operation whose signature is given.
void readFormula(TreeEquations &formula, const XJsonObject &object, ElementNames &names,
                 const char *signature);
/// As ElementEquation::fromJson.
void readNode(ElementEquation &node, const XJsonObject &object, ElementNames &names, const char *signature);

} // namespace VorSystem
