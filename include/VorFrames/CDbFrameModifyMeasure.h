// How a link shares a new total among its frames: the choice of the rule.
#pragma once

#include <VorFrames/Enumerations.h>
#include <VorFrames/VorFramesExport.h>

#include <memory>

namespace VorSystem
{

class CDbFrameCalculateMeasure;
class FrameFrame;
class FrameLink;
struct ValuesAccordingSizes;

/// The rule that the link's measure type names, prepared from the totals as they stand before any frame
/// moves.
class VORFRAMES_EXPORT CDbFrameModifyMeasure
{
public:
    /// Raises FatalError for a measure type outside 0 to 2 and for an action other than 1 and 3.
    CDbFrameModifyMeasure(const FrameLink &link, const ValuesAccordingSizes &newMeasures,
                          const ValuesAccordingSizes &oldMeasures, eModifyLevelActionType action);
    CDbFrameModifyMeasure(const CDbFrameModifyMeasure &) = delete;
    CDbFrameModifyMeasure &operator=(const CDbFrameModifyMeasure &) = delete;
    ~CDbFrameModifyMeasure();

    /// Changes the frame's measures in place; see CDbFrameCalculateMeasure.
    void calculateNewMeasure(const FrameFrame &frame, ValuesAccordingSizes *values);

private:
    std::unique_ptr<CDbFrameCalculateMeasure> mStrategy;
};

} // namespace VorSystem
