// How a link shares a new total among its frames: the rules.
#pragma once

#include <VorFrames/Enumerations.h>
#include <VorFrames/QListEx.h>
#include <VorFrames/VorFramesExport.h>

namespace VorSystem
{

class FrameFrame;
class FrameLink;
struct ValuesAccordingSizes;

/// A rule, prepared once from the link's old and new totals and then asked for each frame in turn.
class VORFRAMES_EXPORT CDbFrameCalculateMeasure
{
public:
    /// Action 1 prepares the nest alone, action 3 all sizes of oldMeasures; any other raises FatalError.
    CDbFrameCalculateMeasure(const ValuesAccordingSizes &oldMeasures, eModifyLevelActionType action);
    virtual ~CDbFrameCalculateMeasure();

    /// Changes the frame's measures in place, in the sizes prepared. Raises AssertionError for null values; a
    /// list too short for the sizes ends the program.
    virtual void calculateNewMeasure(const FrameFrame &frame, ValuesAccordingSizes *values) = 0;

protected:
    /// The change of the total per unit of weight, in each size; 0.0 throughout for a total weight of exactly
    /// 0.0.
    void shareChange(const ValuesAccordingSizes &newMeasures, const ValuesAccordingSizes &oldMeasures,
                     double totalWeight);

    short mSizeCount = 0;     ///< how many sizes change
    short mFirstSize = 0;     ///< 0-based index of the first of them
    QListEx<double> mFactors; ///< mFactors[i] belongs to size mFirstSize + i
};

/// The frames keep their shares of the total: each measure times new total / old total of the size.
class VORFRAMES_EXPORT CDbCalculateNewMeasureProportional : public CDbFrameCalculateMeasure
{
public:
    /// Raises FatalError for an action other than 1 and 3. An old total of exactly 0.0 makes the measures
    /// 0.0. For the nest alone the smallest size is tested in its place, so that an old total of 0.0 at the
    /// nest can make the measure infinite.
    CDbCalculateNewMeasureProportional(const ValuesAccordingSizes &newMeasures,
                                       const ValuesAccordingSizes &oldMeasures,
                                       eModifyLevelActionType action);
    void calculateNewMeasure(const FrameFrame &frame, ValuesAccordingSizes *values) override;
};

/// Each frame takes the same change, a frame on a doubled two-sided center two shares. Raises AssertionError
/// for a frame without a center.
class VORFRAMES_EXPORT CDbFrameCalculateMeasureEqual : public CDbFrameCalculateMeasure
{
public:
    /// Raises FatalError for an action other than 1 and 3, AssertionError for a frame of link without a
    /// center.
    CDbFrameCalculateMeasureEqual(const FrameLink &link, const ValuesAccordingSizes &newMeasures,
                                  const ValuesAccordingSizes &oldMeasures, eModifyLevelActionType action);
    void calculateNewMeasure(const FrameFrame &frame, ValuesAccordingSizes *values) override;
};

/// Each frame takes a part of the change by its ratio, FrameFrame::getRatio() over the sum of the link's.
class VORFRAMES_EXPORT CDbFrameCalculateMeasureFixed : public CDbFrameCalculateMeasure
{
public:
    /// Raises FatalError for an action other than 1 and 3. Ratios that add up to exactly 0.0 change nothing.
    CDbFrameCalculateMeasureFixed(const FrameLink &link, const ValuesAccordingSizes &newMeasures,
                                  const ValuesAccordingSizes &oldMeasures, eModifyLevelActionType action);
    void calculateNewMeasure(const FrameFrame &frame, ValuesAccordingSizes *values) override;
};

} // namespace VorSystem
