// How a link shares a new total among its frames: the choice of the rule.

#include <VorFrames/CDbFrameModifyMeasure.h>

#include "Preconditions.h"

#include <VorFrames/CDbFrameCalculateMeasure.h>
#include <VorFrames/FrameLink.h>

namespace VorSystem
{

namespace
{

constexpr char kSourceUnit[] = R"(src\Frames\Fram_Mesure)";

} // namespace

CDbFrameModifyMeasure::CDbFrameModifyMeasure(const FrameLink &link, const ValuesAccordingSizes &newMeasures,
                                             const ValuesAccordingSizes &oldMeasures,
                                             eModifyLevelActionType action)
{
    switch (link.getMeasureType()) {
    case FrameLink::Measure_Proportional:
        mStrategy = std::make_unique<CDbCalculateNewMeasureProportional>(newMeasures, oldMeasures, action);
        return;
    case FrameLink::Measure_Equal:
        mStrategy = std::make_unique<CDbFrameCalculateMeasureEqual>(link, newMeasures, oldMeasures, action);
        return;
    case FrameLink::Measure_Fixed:
        mStrategy = std::make_unique<CDbFrameCalculateMeasureFixed>(link, newMeasures, oldMeasures, action);
        return;
    }
    unexpectedValue(kSourceUnit, __LINE__, BOOST_CURRENT_FUNCTION);
}

CDbFrameModifyMeasure::~CDbFrameModifyMeasure() = default;

void CDbFrameModifyMeasure::calculateNewMeasure(const FrameFrame &frame, ValuesAccordingSizes *values)
{
    mStrategy->calculateNewMeasure(frame, values);
}

} // namespace VorSystem
