// The JSON form of the nodes of a formula.
//
// Both ways keep what is still to be done in a list of their own, so that the depth of a tree costs no stack.

#include "Preconditions.h"
#include "VOREquations/ElementNames.h"

#include <VorFrames/BaseFrame.h>
#include <VorFrames/ElementEquation.h>
#include <VorFrames/FormulaLimits.h>
#include <VorJson/VorJson.h>

#include <QVarLengthArray>
#include <utility>

namespace VorSystem
{

namespace
{

constexpr char kSourceUnit[] = R"(src\Json\ElementEquationJson)";
constexpr int kUnknownElementLine = 99; // hosts know a reference that names nothing by this line
constexpr int kUsualSteps = 16;         // of a formula; what a deeper one keeps to be done goes to the heap

QString contentsKey()
{
    return QStringLiteral("contents");
}
QString valueKey()
{
    return QStringLiteral("value");
}
QString elementKey()
{
    return QStringLiteral("frame_element");
}
QString leftKey()
{
    return QStringLiteral("son_left");
}
QString rightKey()
{
    return QStringLiteral("son_right");
}

enum class Sons { None, Left, Both };

/// Which sons a node of this kind has; a kind that is not known has none.
Sons sonsOf(ElemContent contents)
{
    switch (contents) {
    case ElemParenthesis: return Sons::Left;
    case ElemAdd:
    case ElemSubtract:
    case ElemMultiply:
    case ElemDivide: return Sons::Both;
    case ElemNone:
    case ElemValue:
    case ElemMeasure:
    case ElemLevel: break;
    }
    return Sons::None;
}

/// The node without its sons.
XJsonObject ownPart(const ElementEquation &node, const char *signature)
{
    XJsonObject object;
    object.insert(contentsKey(), static_cast<int>(node.contents));
    if (node.contents == ElemValue)
        object.insert(valueKey(), node.value);
    if (node.contents == ElemMeasure || node.contents == ElemLevel) {
        // An empty name would cost the whole set when it is read.
        if (node.element == nullptr)
            invalidOperation(kSourceUnit, __LINE__, signature);
        object.insert(elementKey(), node.element->fullName());
    }
    return object;
}

} // namespace

XJsonObject ElementEquation::toJson() const
{
    struct Step {
        const ElementEquation *node;
        int depth;
        bool haveSons; // the objects of its sons are finished
    };
    QVarLengthArray<Step, kUsualSteps> rest{{this, 1, false}};
    QVarLengthArray<XJsonObject, kUsualSteps> finished;
    const auto takeFinished = [&finished] {
        XJsonObject object = std::move(finished.last());
        finished.removeLast();
        return object;
    };

    while (!rest.isEmpty()) {
        const Step step = rest.last();
        rest.removeLast();
        VOR_REQUIRE(step.node != nullptr && step.depth <= kMaxFormulaDepth);
        const ElementEquation &node = *step.node;
        const Sons sons = sonsOf(node.contents);

        if (sons != Sons::None && !step.haveSons) {
            rest.append({&node, step.depth, true});
            if (sons == Sons::Both)
                rest.append({node.sonRight, step.depth + 1, false});
            rest.append({node.sonLeft, step.depth + 1, false});
            continue;
        }
        XJsonObject object = ownPart(node, BOOST_CURRENT_FUNCTION);
        if (sons == Sons::Both)
            object.insert(rightKey(), takeFinished());
        if (sons != Sons::None)
            object.insert(leftKey(), takeFinished());
        finished.append(std::move(object));
    }
    return takeFinished();
}

void ElementEquation::fromJson(const XJsonObject &object, FrameSet *set)
{
    ElementNames names(set);
    delete std::exchange(sonLeft, nullptr);
    delete std::exchange(sonRight, nullptr);

    struct Step {
        ElementEquation *parent;                // null for the root, which is there already
        ElementEquation *ElementEquation::*son; // which of the parent's
        XJsonObject object;
        int depth;
    };
    QVarLengthArray<Step, kUsualSteps> rest{{nullptr, nullptr, object, 1}};
    while (!rest.isEmpty()) {
        const Step step = std::move(rest.last());
        rest.removeLast();
        VOR_REQUIRE(step.depth <= kMaxFormulaDepth);

        // A new node hangs on its parent before anything can fail.
        ElementEquation &node =
            step.parent == nullptr ? *this : *(step.parent->*step.son = new ElementEquation);
        node.contents = static_cast<ElemContent>(step.object.value(contentsKey()).toInt(0));
        if (node.contents == ElemValue)
            node.value = step.object.value(valueKey()).toDouble(0);
        if (node.contents == ElemMeasure || node.contents == ElemLevel) {
            VOR_REQUIRE(names.haveSet());
            BaseFrame *const found = names.found(step.object.value(elementKey()).toString(), true);
            VOR_REQUIRE_AT(found != nullptr, kUnknownElementLine);
            node.element = found;
        }

        const Sons sons = sonsOf(node.contents);
        if (sons == Sons::Both)
            rest.append({&node, &ElementEquation::sonRight, step.object.value(rightKey()).toObject(),
                         step.depth + 1});
        if (sons != Sons::None)
            rest.append(
                {&node, &ElementEquation::sonLeft, step.object.value(leftKey()).toObject(), step.depth + 1});
    }
}

} // namespace VorSystem
