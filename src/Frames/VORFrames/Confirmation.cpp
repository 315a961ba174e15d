// May an operation go ahead that could move locked pieces?

#include <VorFrames/BaseFrame.h>

#include "Preconditions.h"
#include "VORFrames/Messages.h"

#include <VorConjoin/VorConjoin.h>
#include <VorFrames/FrameSet.h>
#include <VorFrames/GestFrames.h>

namespace VorSystem
{

namespace
{

constexpr char kSourceUnit[] = R"(src\Frames\VORFrames)";

// Tried without changing the geometry: would the operation do anything that the user must be asked about?
bool mustAsk(BaseFrame &element, eAccordingToReevaluate according, BaseFrame *other, GestFrames &manager)
{
    switch (according) {
    case AccordingTo_AskAlways: return true;
    case AccordingTo_Element: return element.reevaluate(Reevaluate_Ask);
    case AccordingTo_Under: return element.reevaluateUnder(other, Reevaluate_Ask);
    case AccordingTo_NeverAsk: return false;
    case AccordingTo_FramesSameLevel: return element.adjustFramesSameLevel(Reevaluate_Ask);
    case AccordingTo_AllSets: return manager.reevaluateFrameSets(Reevaluate_Ask);
    }
    return false;
}

} // namespace

bool BaseFrame::confirmChangesInFrames(BaseFrame *element, eAccordingToReevaluate according, BaseFrame *other,
                                       bool plainWording, bool *asked)
{
    VOR_REQUIRE(element != nullptr);
    FrameSet *const set = element->getFrameSet();
    VOR_REQUIRE(set != nullptr);
    GestFrames *const manager = set->getGestFrames();
    VOR_REQUIRE(manager != nullptr);
    Document *const document = manager->document();
    VOR_REQUIRE(document != nullptr);
    const t_Plan *const plan = document->plan();
    VOR_REQUIRE(plan != nullptr);

    const int lockState = plan->lockState(element);
    if (lockState == 0 || !mustAsk(*element, according, other, *manager))
        return true;

    VOR_REQUIRE(asked != nullptr); // before the user is bothered
    const bool answer = askAboutLockedPieces(lockState, plainWording);
    *asked = true;
    return answer;
}

} // namespace VorSystem
