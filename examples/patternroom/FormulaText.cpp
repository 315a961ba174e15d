#include "FormulaText.h"

namespace room
{

using namespace VorSystem;

namespace
{

void append(const ElementEquation *node, QStringList &names)
{
    if (!node)
        return;
    switch (node->contents) {
    case ElemMeasure:
    case ElemLevel:
        if (!node->element)
            names << node->pendingName;
        break;
    case ElemValue: break;
    case ElemParenthesis:
    case ElemAdd:
    case ElemSubtract:
    case ElemMultiply:
    case ElemDivide:
        append(node->sonLeft, names);
        append(node->sonRight, names);
        break;
    case ElemNone:
    default: names << node->pendingName;
    }
}

} // namespace

QStringList vainNames(const TreeEquations &formula)
{
    QStringList names;
    append(formula.root, names);
    return names;
}

QString formulaText(const TreeEquations *formula)
{
    if (!formula)
        return QString();
    const QStringList names = vainNames(*formula);
    return names.isEmpty() ? formula->toString()
                           : QStringLiteral("? '%1'").arg(names.join(QStringLiteral("', '")));
}

} // namespace room
