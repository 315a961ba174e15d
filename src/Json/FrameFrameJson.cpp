// Frames in their stored form. A frame names its center and its link, and enters both as it is read.

#include "Preconditions.h"
#include "ValuesJson.h"

#include <VorFrames/FrameCenter.h>
#include <VorFrames/FrameFrame.h>
#include <VorFrames/FrameLink.h>
#include <VorFrames/FrameSet.h>
#include <VorJson/VorJson.h>

namespace VorSystem
{

namespace
{

constexpr char kSourceUnit[] = R"(src\Json\FrameFrameJson)";

// Hosts sort their reports by unit and line: these two stay what they are.
constexpr int kLineOfCenter = 123;
constexpr int kLineOfLink = 130;

FrameCenter *asCenter(BaseFrame *element)
{
    const bool isCenter = element != nullptr && element->elementType() == Element_Center;
    return isCenter ? static_cast<FrameCenter *>(element) : nullptr;
}

FrameLink *asLink(BaseFrame *element)
{
    const bool isLink = element != nullptr && element->elementType() == Element_Link;
    return isLink ? static_cast<FrameLink *>(element) : nullptr;
}

} // namespace

XJsonObject FrameFrame::toJson() const
{
    VOR_REQUIRE(mFrameCenter != nullptr);

    XJsonObject object;
    object.insert(QStringLiteral("center_name"), mFrameCenter->name());
    object.insert(QStringLiteral("level_zero"), mFrameCenter->getFrameLevelZero() == this);
    if (mFrameLink != nullptr)
        object.insert(QStringLiteral("link_name"), mFrameLink->name());
    object.insert(QStringLiteral("measure"), valuesToJson(mMeasures, mLevels));
    object.insert(QStringLiteral("measure_type"), int(mMeasureType));
    object.insert(QStringLiteral("percentage_measure_rating"), mPercentageMeasureRating);
    object.insert(QStringLiteral("perimeter_measurement"), mPerimeterMeasurement);
    object.insert(QStringLiteral("ratio"), mRatio);
    return object;
}

void FrameFrame::fromJson(const XJsonObject &object)
{
    // A frame knows its set through its center, and it has none yet: the set that reads it has put itself
    // into the field that is otherwise null in a frame.
    const FrameSet *const setOfCenter = getFrameSet();
    const FrameSet *const set = setOfCenter != nullptr ? setOfCenter : mFrameSet;
    VOR_REQUIRE(set != nullptr);

    const QString centerName = object.value(QStringLiteral("center_name")).toString();
    FrameCenter *const center = asCenter(set->foundElementAccordingName(centerName, true));
    VOR_REQUIRE_AT(center != nullptr, kLineOfCenter);
    // What is read with its whole set is new, and no center need look whether it holds it already.
    const bool isNew = mFrameCenter == nullptr && set->mNamesAtHand != nullptr;
    if (mFrameCenter != nullptr)
        mFrameCenter->removeFrame(this);
    setFrameCenter(center);
    if (isNew)
        center->appendNewFrame(this);
    else
        center->addFrame(this, -1);

    const XJsonValue linkName = object.value(QStringLiteral("link_name"));
    if (!linkName.isUndefined()) {
        FrameLink *const link = asLink(set->foundElementAccordingName(linkName.toString(), true));
        VOR_REQUIRE_AT(link != nullptr, kLineOfLink);
        link->linkFrame(this);
    }

    mPerimeterMeasurement = object.value(QStringLiteral("perimeter_measurement")).toBool(false);
    if (object.value(QStringLiteral("level_zero")).toBool(false))
        center->setFrameLevelZero(this);
    mMeasureType = static_cast<eMeasureType>(object.value(QStringLiteral("measure_type")).toInt(0));
    mPercentageMeasureRating = object.value(QStringLiteral("percentage_measure_rating")).toDouble(0.0);
    mRatio = object.value(QStringLiteral("ratio")).toDouble(0.0);
    valuesFromJson(object.value(QStringLiteral("measure")).toObject(), mMeasures, mLevels);
}

} // namespace VorSystem
