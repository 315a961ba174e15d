// The JSON form of a formula: the node at its root, under a key of its own.

#include "FormulaReader.h"

#include "Preconditions.h"
#include "VOREquations/ElementNames.h"

#include <VorFrames/ElementEquation.h>
#include <VorFrames/TreeEquations.h>
#include <VorJson/VorJson.h>

namespace VorSystem
{

namespace
{

constexpr char kSourceUnit[] = R"(src\Json\ElementEquationJson)";

QString rootKey()
{
    return QStringLiteral("root");
}

} // namespace

XJsonObject TreeEquations::toJson() const
{
    VOR_REQUIRE(root != nullptr);

    XJsonObject object;
    object.insert(rootKey(), root->toJson());
    return object;
}

void TreeEquations::fromJson(const XJsonObject &object, FrameSet *set)
{
    ElementNames names(set);
    readFormula(*this, object, names, BOOST_CURRENT_FUNCTION);
}

void readFormula(TreeEquations &formula, const XJsonObject &object, ElementNames &names,
                 const char *signature)
{
    if (formula.root == nullptr)
        invalidOperation(kSourceUnit, __LINE__, signature);

    readNode(*formula.root, object.value(rootKey()).toObject(), names, signature);
    formula.root->determineImplicitUnit(ImplicitLength);
}

} // namespace VorSystem
