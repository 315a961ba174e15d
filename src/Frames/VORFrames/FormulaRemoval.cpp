// Giving formulas up: what was removed is recorded, so that the host can show it or offer the text again.

#include <VorFrames/FrameSet.h>

#include "Preconditions.h"
#include "VORFrames/ControlIndex.h"
#include "VORFrames/Messages.h"

#include <VorFrames/ControlFrame.h>
#include <VorFrames/ControlSegment.h>
#include <VorFrames/FrameFrame.h>
#include <VorFrames/FrameLink.h>
#include <VorFrames/FrameSegment.h>
#include <VorFrames/TreeEquations.h>

#include <algorithm>
#include <optional>

namespace VorSystem
{

namespace
{

constexpr char kSourceUnit[] = R"(src\Frames\VORFrames)";

bool hasFormula(BaseFrame &element)
{
    return element.measurementFormula() != nullptr || element.formulaLevel() != nullptr;
}

// Calls remove for each element of the list that the group ties to a control object of that class; true when
// any call was.
template<class Control, class Element, class Remove>
bool removeTied(const QListEx<Element *> &elements, CDbGroupObject *group, Remove remove)
{
    bool removed = false;
    std::optional<ControlIndex> controls;
    const QListEx<Element *> asked = elements;
    for (Element *element : asked) {
        if (removed && !elements.contains(element))
            continue; // the host heard of a removal and deleted it
        if (!controls)
            controls.emplace(group);
        if (dynamic_cast<Control *>(controls->of(element)) == nullptr || !remove(element))
            continue;
        removed = true;
        controls.reset(); // the host was called: who stands where is asked again
    }
    return removed;
}

} // namespace

void FrameSet::markRemovedFormula(const QString &name, bool flag, const QString &text)
{
    const auto isSame = [&](const RemovedFormula &record) {
        return record.get<0>() == name && record.get<1>() == flag;
    };
    if (std::none_of(mRemovedFormulas.cbegin(), mRemovedFormulas.cend(), isSame))
        mRemovedFormulas.append(RemovedFormula(name, flag, text));
}

bool FrameSet::giveUpFormula(BaseFrame &holder, bool levelFlag)
{
    if (!hasFormula(holder))
        return false;
    reportLostFormula(holder);
    // The host heard the message and may have acted on it, so the formulas are looked up after it.
    if (TreeEquations *const measure = holder.measurementFormula()) {
        markRemovedFormula(holder.fullName(), true, measure->toString());
        holder.setFormulaMeasurement(nullptr);
    } else if (TreeEquations *const level = holder.formulaLevel()) {
        markRemovedFormula(holder.fullName(), levelFlag, level->toString());
        holder.setFormulaLevel(nullptr);
    }
    return true;
}

bool FrameSet::removeFormulaOfGroup(BaseFrame *element)
{
    VOR_REQUIRE(element != nullptr);

    bool removed = false;
    // Deliberate: the level formula of the element is recorded with the flag of a measure formula.
    if (giveUpFormula(*element, true)) {
        element->reevaluate(Reevaluate_Store);
        removed = true;
    }
    auto *const frame = dynamic_cast<FrameFrame *>(element);
    if (frame != nullptr && frame->getLink() != nullptr && giveUpFormula(*frame->getLink(), false)) {
        element->reevaluate(Reevaluate_Store); // the element, not the link
        removed = true;
    }
    return removed;
}

bool FrameSet::removeFormulaOfGroup(CDbGroupObject *group)
{
    VOR_REQUIRE(group != nullptr);

    const auto remove = [this](BaseFrame *element) { return removeFormulaOfGroup(element); };
    const bool ofSegments = removeTied<ControlSegment>(mFrameSegments, group, remove);
    const bool ofFrames = removeTied<ControlFrame>(mFrames, group, remove);
    return ofSegments || ofFrames;
}

bool FrameSet::removeForm(CDbGroupObject *group)
{
    VOR_REQUIRE(group != nullptr);

    const ControlIndex controls(group);
    const auto isDriven = [&controls](BaseFrame *element) {
        return hasFormula(*element) && controls.contains(element);
    };
    return std::any_of(mFrameSegments.cbegin(), mFrameSegments.cend(), isDriven) ||
           std::any_of(mFrames.cbegin(), mFrames.cend(), isDriven);
}

} // namespace VorSystem
