// The JSON form of a formula: the node at its root, under a key of its own.

#include "Preconditions.h"

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
    VOR_REQUIRE(root != nullptr);

    root->fromJson(object.value(rootKey()).toObject(), set);
    root->determineImplicitUnit(ImplicitLength);
}

} // namespace VorSystem
