// Reading the measure and the level of a frame from the piece, as it stands or size by size.

#include <VorFrames/ControlFrame.h>

#include "Preconditions.h"
#include "VORStCtlBase/Sizes.h"
#include "VORStCtlBase/Temporaries.h"

#include <VorFrames/ControlSkeleton.h>
#include <VorFrames/FrameCenter.h>
#include <VorFrames/FrameFrame.h>

#include <optional>

namespace VorSystem
{

namespace
{

constexpr char kSourceUnit[] = R"(src\Frames\VORStCtlFrame)";

using ReadingOfGroup = ReadingOfSize<VectorsOfGroup>;

} // namespace

double ControlFrame::getMeasures(short size)
{
    VOR_REQUIRE(group());
    std::optional<ReadingOfGroup> reading;
    if (size >= 0)
        reading.emplace(VectorsOfGroup(group()), ownGradation(), sizeNumber(size));
    return measureAsItStands();
}

QListEx<double> ControlFrame::getMeasures(const GradationData *gradation)
{
    VOR_REQUIRE(group());
    return readEverySize(VectorsOfGroup(group()), gradation, [this] { return measureAsItStands(); });
}

double ControlFrame::getLevel(short size)
{
    return level(size, nullptr);
}

double ControlFrame::level(short size, ControlLookup *controls)
{
    VOR_REQUIRE(group());
    std::optional<ReadingOfGroup> reading;
    if (size >= 0)
        reading.emplace(VectorsOfGroup(group()), ownGradation(), sizeNumber(size));

    const ControlFrame *origin = originIfAny(controls);
    if (!origin) {
        // Deliberate: without an origin the vectors stay in the size.
        if (reading)
            reading->forgetTheWayBack();
        return 0.0;
    }
    return levelAsItStands(origin);
}

QListEx<double> ControlFrame::getLevels(const GradationData *gradation)
{
    return levels(gradation, nullptr);
}

QListEx<double> ControlFrame::levels(const GradationData *gradation, ControlLookup *controls)
{
    VOR_REQUIRE(group());
    const ControlFrame *origin = originIfAny(controls);
    return readEverySize(VectorsOfGroup(group()), gradation,
                         [=] { return origin ? levelAsItStands(origin) : 0.0; });
}

double ControlFrame::measureAsItStands() const
{
    GabaritObject *gabarit = mSkeleton->getGabarit();
    const FrameCenter::eCharacteristicType characteristic = frameCenter()->Caracteristique();
    const TemporaryVector crossing;
    calculateIntersectionOfCenter(crossing.get());

    double measure = 0.0;
    if (isMeasureZero()) {
        measure = 0.0;
    } else if (!mFrameFrame->getPerimeterMeasurement()) {
        const CDbPointVOR *farEnd = mVectorContour2 ? mVectorContour2 : crossing.get();
        measure = gabarit->measureBetween(group(), mVectorContour1, farEnd, true);
    } else if (characteristic == FrameCenter::Characteristic_OneSideDoubled) {
        const auto [center1, center2] = axis();
        measure = gabarit->getContourLength(mVectorContour1, center1, center2, mContourDirection1To2);
    } else {
        measure = gabarit->getContourLength(mVectorContour1, mVectorContour2, crossing.get(),
                                            mContourDirection1To2);
    }
    return characteristic == FrameCenter::Characteristic_TwoSides ? measure : 2.0 * measure;
}

double ControlFrame::levelAsItStands(const ControlFrame *origin) const
{
    if (isLevelZero())
        return 0.0;
    const TemporaryVector originCrossing;
    const TemporaryVector crossing;
    origin->calculateIntersectionOfCenter(originCrossing.get());
    calculateIntersectionOfCenter(crossing.get());
    return mSkeleton->getGabarit()->measureBetween(group(), originCrossing.get(), crossing.get(), false);
}

const ControlFrame *ControlFrame::originIfAny(ControlLookup *controls) const
{
    return frameCenter()->getFrameLevelZero() ? getFrameLevelZero(controls) : nullptr;
}

const GradationData *ControlFrame::ownGradation() const
{
    return mFrameFrame ? gradationOf(mFrameFrame->document()) : nullptr;
}

} // namespace VorSystem
