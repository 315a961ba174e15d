// How a link shares a new total among its frames: the three rules.

#include <VorFrames/CDbFrameCalculateMeasure.h>

#include "Preconditions.h"

#include <VorFrames/FrameCenter.h>
#include <VorFrames/FrameFrame.h>
#include <VorFrames/FrameLink.h>

namespace VorSystem
{

namespace
{

constexpr char kSourceUnit[] = R"(src\Frames\Fram_Mesure)";

// Frames on a center that moves two sides and doubles its measure take two shares.
double equalWeight(const FrameFrame &frame)
{
    const FrameCenter *const center = frame.getFrameCenter();
    VOR_REQUIRE(center != nullptr);
    return center->Caracteristique() == FrameCenter::Characteristic_TwoSidesDoubled ? 2.0 : 1.0;
}

double totalEqualWeight(const FrameLink &link)
{
    double total = 0.0;
    const QListEx<FrameFrame *> frames = link.getFrames();
    for (const FrameFrame *frame : frames)
        total += equalWeight(*frame);
    return total;
}

double totalRatio(const FrameLink &link)
{
    double total = 0.0;
    const QListEx<FrameFrame *> frames = link.getFrames();
    for (const FrameFrame *frame : frames)
        total += frame->getRatio();
    return total;
}

} // namespace

CDbFrameCalculateMeasure::CDbFrameCalculateMeasure(const ValuesAccordingSizes &oldMeasures,
                                                   eModifyLevelActionType action)
{
    switch (action) {
    case ModifyLevel_Nest:
        mSizeCount = 1;
        mFirstSize = oldMeasures.mNestIndex;
        break;
    case ModifyLevel_AllSizes:
        mSizeCount = static_cast<short>(oldMeasures.mValues.count());
        mFirstSize = 0;
        break;
    case ModifyLevel_Nothing:
    case ModifyLevel_ShiftedSizes:
    default: unexpectedValue(kSourceUnit, __LINE__, BOOST_CURRENT_FUNCTION);
    }
    for (short i = 0; i < mSizeCount; ++i)
        mFactors.append(0.0);
}

CDbFrameCalculateMeasure::~CDbFrameCalculateMeasure() = default;

void CDbFrameCalculateMeasure::shareChange(const ValuesAccordingSizes &newMeasures,
                                           const ValuesAccordingSizes &oldMeasures, double totalWeight)
{
    if (totalWeight == 0.0)
        return;
    for (short i = 0; i < mSizeCount; ++i) {
        const int size = mFirstSize + i;
        mFactors[i] = (newMeasures.mValues.at(size) - oldMeasures.mValues.at(size)) / totalWeight;
    }
}

CDbCalculateNewMeasureProportional::CDbCalculateNewMeasureProportional(
    const ValuesAccordingSizes &newMeasures, const ValuesAccordingSizes &oldMeasures,
    eModifyLevelActionType action)
    : CDbFrameCalculateMeasure(oldMeasures, action)
{
    for (short i = 0; i < mSizeCount; ++i) {
        const int size = mFirstSize + i;
        // Deliberate: the test reads position i, the division position size. For the nest alone these differ.
        if (oldMeasures.mValues.at(i) != 0.0)
            mFactors[i] = newMeasures.mValues.at(size) / oldMeasures.mValues.at(size);
    }
}

void CDbCalculateNewMeasureProportional::calculateNewMeasure(const FrameFrame &, ValuesAccordingSizes *values)
{
    VOR_REQUIRE(values != nullptr);
    for (short i = 0; i < mSizeCount; ++i)
        values->mValues[mFirstSize + i] *= mFactors.at(i);
}

CDbFrameCalculateMeasureEqual::CDbFrameCalculateMeasureEqual(const FrameLink &link,
                                                             const ValuesAccordingSizes &newMeasures,
                                                             const ValuesAccordingSizes &oldMeasures,
                                                             eModifyLevelActionType action)
    : CDbFrameCalculateMeasure(oldMeasures, action)
{
    shareChange(newMeasures, oldMeasures, totalEqualWeight(link));
}

void CDbFrameCalculateMeasureEqual::calculateNewMeasure(const FrameFrame &frame, ValuesAccordingSizes *values)
{
    VOR_REQUIRE(values != nullptr);
    const double weight = equalWeight(frame);
    for (short i = 0; i < mSizeCount; ++i)
        values->mValues[mFirstSize + i] += weight * mFactors.at(i);
}

CDbFrameCalculateMeasureFixed::CDbFrameCalculateMeasureFixed(const FrameLink &link,
                                                             const ValuesAccordingSizes &newMeasures,
                                                             const ValuesAccordingSizes &oldMeasures,
                                                             eModifyLevelActionType action)
    : CDbFrameCalculateMeasure(oldMeasures, action)
{
    shareChange(newMeasures, oldMeasures, totalRatio(link));
}

void CDbFrameCalculateMeasureFixed::calculateNewMeasure(const FrameFrame &frame, ValuesAccordingSizes *values)
{
    VOR_REQUIRE(values != nullptr);
    for (short i = 0; i < mSizeCount; ++i)
        values->mValues[mFirstSize + i] += mFactors.at(i) * frame.getRatio();
}

} // namespace VorSystem
