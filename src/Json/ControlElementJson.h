// Control objects name their element by its set and its name: what the readers of all kinds share.
#pragma once

#include <VorFrames/BaseFrame.h>
#include <VorFrames/FrameSet.h>

namespace VorSystem
{

/// The element of that name and kind in set, or null. An element of another kind that bears the name hides
/// the one that is wanted, as it does for a formula.
template<class Element>
Element *elementOfKind(const FrameSet &set, const QString &name, eElementFrameType kind)
{
    BaseFrame *const element = set.foundElementAccordingName(name, true);
    return element != nullptr && element->elementType() == kind ? static_cast<Element *>(element) : nullptr;
}

} // namespace VorSystem
