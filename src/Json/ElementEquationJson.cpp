// The JSON form of the nodes of a formula.
//
// Both ways keep what is still to be done in a list of their own, so that the depth of a tree costs no stack.

#include "Preconditions.h"
#include "VOREquations/ElementNames.h"

#include <VorFrames/BaseFrame.h>
#include <VorFrames/ElementEquation.h>
#include <VorFrames/FormulaLimits.h>
#include <VorJson/VorJson.h>

#include <utility>
#include <vector>

namespace VorSystem
{

namespace
{

constexpr char kSourceUnit[] = R"(src\Json\ElementEquationJson)";
constexpr int kUnknownElementLine = 99; // hosts know a reference that names nothing by this line

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
    std::vector<Step> rest{{this, 1, false}};
    std::vector<XJsonObject> finished;
    const auto takeFinished = [&finished] {
        XJsonObject object = std::move(finished.back());
        finished.pop_back();
        return object;
    };

    while (!rest.empty()) {
        const Step step = rest.back();
        rest.pop_back();
        VOR_REQUIRE(step.node != nullptr && step.depth <= kMaxFormulaDepth);
        const ElementEquation &node = *step.node;
        const Sons sons = sonsOf(node.contents);

        if (sons != Sons::None && !step.haveSons) {
            rest.push_back({&node, step.depth, true});
            if (sons == Sons::Both)
                rest.push_back({node.sonRight, step.depth + 1, false});
            rest.push_back({node.sonLeft, step.depth + 1, false});
            continue;
        }
        XJsonObject object = ownPart(node, BOOST_CURRENT_FUNCTION);
        if (sons == Sons::Both)
            object.insert(rightKey(), takeFinished());
        if (sons != Sons::None)
            object.insert(leftKey(), takeFinished());
        finished.push_back(std::move(object));
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
    std::vector<Step> rest{{nullptr, nullptr, object, 1}};
    while (!rest.empty()) {
        const Step step = std::move(rest.back());
        rest.pop_back();
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
            rest.push_back({&node, &ElementEquation::sonRight, step.object.value(rightKey()).toObject(),
                            step.depth + 1});
        if (sons != Sons::None)
            rest.push_back(
                {&node, &ElementEquation::sonLeft, step.object.value(leftKey()).toObject(), step.depth + 1});
    }
}

} // namespace VorSystem
