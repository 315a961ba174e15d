// Ordering and reevaluation of a whole set.

#include <VorFrames/FrameSet.h>

#include "Preconditions.h"
#include "VORFrames/GeometricInfluence.h"
#include "VORFrames/Gradation.h"

#include <VorConjoin/VorConjoin.h>
#include <VorFrames/ControlSegment.h>
#include <VorFrames/FrameFrame.h>
#include <VorFrames/FrameLink.h>
#include <VorFrames/FrameMeasurementChart.h>
#include <VorFrames/FrameSegment.h>
#include <VorFrames/FrameSpec.h>

namespace VorSystem
{

namespace
{

constexpr char kSourceUnit[] = R"(src\Frames\VORFrames)";

void appendOnce(QListEx<Evaluation> &list, BaseFrame *element, eEvaluationType type)
{
    const Evaluation evaluation{element, type};
    if (!list.contains(evaluation))
        list.append(evaluation);
}

} // namespace

bool FrameSet::isOrderEvaluation()
{
    FrameSegment *culprit = nullptr;
    return mOrderEvaluation.calculateOrder(this, culprit);
}

void FrameSet::calculateOrderEvaluation()
{
    FrameSegment *culprit = nullptr;
    while (!mOrderEvaluation.calculateOrder(this, culprit) && culprit != nullptr) {
        // Without its control object a segment moves nothing, so each turn leaves one cycle fewer. One whose
        // control object cannot be found here has nothing to lose: trying again would never end.
        if (culprit->controlSegmentCorrespondent() == nullptr)
            return;
        culprit->removeControlSegmentCorrespondent();
    }
}

void FrameSet::accumulateEvaluationsInfluencesGeometrically(BaseFrame *element, QListEx<Evaluation> &list)
{
    VOR_REQUIRE(element != nullptr);
    GeometricInfluence influence;
    influence.addMoversOf(*this);
    for (BaseFrame *mover : influence.moversOf(element)) {
        appendOnce(list, mover, Evaluation_Measure);
        if (mover->elementType() != Element_Segment)
            appendOnce(list, mover, Evaluation_Level);
    }
}

void FrameSet::accumulateEvaluationsInfluencedGeometrically(BaseFrame *element, QListEx<Evaluation> &list)
{
    VOR_REQUIRE(element != nullptr);
    GeometricInfluence influence;
    influence.add(element);
    const auto isMoved = [&](BaseFrame *other) { return !influence.moversOf(other).empty(); };

    const QListEx<FrameFrame *> frames = mFrames;
    for (FrameFrame *frame : frames) {
        if (!isMoved(frame))
            continue;
        appendOnce(list, frame, Evaluation_Measure);
        appendOnce(list, frame, Evaluation_Level);
    }
    const QListEx<FrameLink *> links = mFrameLinks;
    for (FrameLink *link : links) {
        if (!isMoved(link))
            continue;
        appendOnce(list, link, Evaluation_Measure);
        appendOnce(list, link, Evaluation_Level);
    }
    const QListEx<FrameSegment *> segments = mFrameSegments;
    for (FrameSegment *segment : segments) {
        if (isMoved(segment))
            appendOnce(list, segment, Evaluation_Measure);
    }
}

bool FrameSet::reevaluate(eFrameReevaluate mode)
{
    return revalued(mode);
}

bool FrameSet::revalued(eFrameReevaluate mode)
{
    calculateOrderEvaluation();
    const bool orderChanged = mOrderEvaluation.reevaluate(mode);
    const bool computedChanged = reevaluateSpecsAndCharts(mode);
    return orderChanged || computedChanged;
}

bool FrameSet::reevaluateUnder(BaseFrame *element, eFrameReevaluate mode)
{
    VOR_REQUIRE(element != nullptr);
    const eElementFrameType kind = element->elementType();
    if (kind == Element_Spec)
        return element->reevaluate(Reevaluate_Store);
    VOR_REQUIRE(kind == Element_Segment || kind == Element_Link || kind == Element_Frame);

    // A segment has no level that others could hang on.
    const bool level = kind != Element_Segment;
    calculateOrderEvaluation();
    const bool orderChanged = mOrderEvaluation.reevaluateUnder(element, true, level, mode);
    // Deliberate: mode 0 here, whatever the mode of the walk.
    const bool computedChanged = reevaluateSpecsAndCharts(Reevaluate_Store);
    return orderChanged || computedChanged;
}

bool FrameSet::reevaluateSpecsAndCharts(eFrameReevaluate mode)
{
    bool changed = false;
    const QListEx<FrameSpec *> specs = mFrameSpecs;
    for (FrameSpec *spec : specs)
        changed |= spec->reevaluate(mode);
    const QListEx<FrameMeasurementChart *> charts = mFrameMeasurementCharts;
    for (FrameMeasurementChart *chart : charts)
        changed |= chart->reevaluate(mode);
    return changed;
}

void FrameSet::adjustMeasuresLevels()
{
    const GradationData *const gradation = gradationOf(document());
    const bool hasNest = nestDefined(gradation);
    const short small = hasNest ? gradation->getSmallGradationNum() : short(0);
    const short large = hasNest ? gradation->getLargeGradationNum() : short(0);
    const auto adjust = [&](const auto &elements) {
        for (BaseFrame *element : elements)
            element->adjustMeasuresLevelsAccordingSizesNest(small, large);
    };
    adjust(qAsConst(mFrames));
    adjust(qAsConst(mFrameLinks));
    adjust(qAsConst(mFrameSegments));
    adjust(qAsConst(mFrameSpecs));
    adjust(qAsConst(mFrameMeasurementCharts));
}

} // namespace VorSystem
