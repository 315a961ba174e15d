// Reevaluation: bringing stored measures and levels into line with formulas and geometry, for all sizes.
//
// Mode 0 stores what is computed, mode 1 pushes it into the geometry, mode 2 only tells whether anything
// differs.

#include "VORFrames/Reevaluation.h"

#include "Preconditions.h"
#include "VORFrames/Gradation.h"
#include "ZeroTest.h"

#include <VorConjoin/VorConjoin.h>
#include <VorFrames/ControlFrame.h>
#include <VorFrames/ControlSegment.h>
#include <VorFrames/FrameFrame.h>
#include <VorFrames/FrameLink.h>
#include <VorFrames/FrameMeasurementChart.h>
#include <VorFrames/FrameSegment.h>
#include <VorFrames/FrameSet.h>
#include <VorFrames/FrameSpec.h>

#include <typeinfo>
#include <utility>

namespace VorSystem
{

namespace
{

constexpr char kSourceUnit[] = R"(src\Frames\VORFrames)";

bool isMeasureOrLevel(eEvaluationType type)
{
    return type == Evaluation_Measure || type == Evaluation_Level;
}

// Is the element exactly what the library makes of its kind, and not of a class that a host derived?
bool isOfTheLibrary(const BaseFrame &element)
{
    const std::type_info &type = typeid(element);
    return type == typeid(FrameFrame) || type == typeid(FrameSegment) || type == typeid(FrameLink) ||
           type == typeid(FrameMeasurementChart);
}

TreeEquations *formulaOf(BaseFrame &element, eEvaluationType type)
{
    switch (type) {
    case Evaluation_Measure: return element.measurementFormula();
    case Evaluation_Level: return element.formulaLevel();
    }
    return nullptr;
}

ValuesAccordingSizes *storedValues(BaseFrame &element, eEvaluationType type)
{
    return type == Evaluation_Measure ? element.getMeasureBySizes() : element.getLevelBySizes();
}

short nestIndex(const GradationData *gradation)
{
    return nestDefined(gradation) ? static_cast<short>(gradation->mediumIndex() - 1) : short(0);
}

QListEx<double> zeros(int count)
{
    QListEx<double> values;
    values.reserve(count);
    for (int i = 0; i < count; ++i)
        values.append(0.0);
    return values;
}

bool differ(const QListEx<double> &a, const QListEx<double> &b)
{
    for (int i = 0; i < a.size(); ++i) {
        if (!countsAsZero(a.at(i) - b.at(i)))
            return true;
    }
    return false;
}

// The values that a list ought to hold, as far as they can be computed.
struct Proposal {
    bool changes = false;  ///< they differ from the stored ones
    bool replaces = false; ///< values below stand in for the stored ones
    QListEx<double> values;
};

// Without a nest an element has one value; a list that is longer is left alone.
Proposal proposeSingle(BaseFrame &element, eEvaluationType type, const QListEx<double> &stored,
                       const ElementReading &reading)
{
    Proposal proposal;
    double value = 0.0;
    if (!reading.value(element, type, value) || stored.size() > 1)
        return proposal;
    proposal.replaces = true;
    proposal.changes = stored.isEmpty() || !countsAsZero(stored.at(0) - value);
    proposal.values.append(value);
    return proposal;
}

// With a nest it has one per size; a list of another length is left alone, an empty one filled in any case.
Proposal proposeAll(BaseFrame &element, eEvaluationType type, const QListEx<double> &stored,
                    const GradationData &gradation, const ElementReading &reading)
{
    Proposal proposal;
    proposal.values = zeros(gradation.gradationNum());
    const bool evaluated = reading.values(element, type, gradation, proposal.values);
    if (stored.isEmpty()) {
        proposal.replaces = true;
        proposal.changes = evaluated;
    } else if (evaluated && stored.size() == proposal.values.size()) {
        proposal.replaces = true;
        proposal.changes = differ(stored, proposal.values);
    }
    return proposal;
}

void refreshFromObject(BaseFrame &element, eEvaluationType type, const GradationData *gradation,
                       const ElementReading &reading)
{
    ValuesAccordingSizes *const stored = storedValues(element, type);
    if (stored == nullptr)
        return;

    if (nestDefined(gradation)) {
        QListEx<double> values = zeros(gradation->gradationNum());
        if (!reading.objectValues(element, type, gradation, values))
            return;
        stored->mValues = std::move(values);
    } else {
        double value = 0.0;
        if (!reading.objectValue(element, type, value))
            return;
        if (stored->mValues.size() <= 1)
            stored->mValues = QListEx<double>{value};
    }
    stored->mNestIndex = nestIndex(gradation);
}

bool reevaluateValue(BaseFrame &element, eEvaluationType type, eFrameReevaluate mode,
                     const GradationData &gradation, const ElementReading &reading)
{
    ValuesAccordingSizes *const stored = storedValues(element, type);
    if (stored == nullptr)
        return false;
    const bool hasFormula = formulaOf(element, type) != nullptr;
    if (!hasFormula && !stored->mValues.isEmpty() && !reading.isDefined(element))
        return false; // keeps what it has

    // A formula is held against what the piece shows now, not against old numbers: a dry run refreshes these
    // too.
    if (hasFormula && mode != Reevaluate_Store)
        refreshFromObject(element, type, &gradation, reading);

    Proposal proposal = nestDefined(&gradation)
                            ? proposeAll(element, type, stored->mValues, gradation, reading)
                            : proposeSingle(element, type, stored->mValues, reading);
    const bool changes = proposal.changes;
    switch (mode) {
    case Reevaluate_Store:
        // The nest goes with the gradation even where the values stay.
        if (proposal.replaces)
            stored->mValues = std::move(proposal.values);
        stored->mNestIndex = nestIndex(&gradation);
        break;
    case Reevaluate_Apply:
        if (changes) {
            ValuesAccordingSizes wanted{std::move(proposal.values), nestIndex(&gradation)};
            if (type == Evaluation_Measure)
                element.applyMeasures(wanted, &gradation, ModifyLevel_AllSizes);
            else
                element.applyLevels(wanted, &gradation, ModifyLevel_AllSizes);
        }
        break;
    case Reevaluate_Ask: break;
    }
    return changes;
}

} // namespace

bool ElementReading::knows(const BaseFrame &element, eEvaluationType type) const
{
    return mKnown != nullptr && isMeasureOrLevel(type) &&
           (typeid(element) == typeid(FrameFrame) || typeid(element) == typeid(FrameSegment));
}

bool ElementReading::isDefined(BaseFrame &element) const
{
    return mKnown != nullptr ? mKnown->isDefined(&element) : element.isDefinedInDocument();
}

bool ElementReading::value(BaseFrame &element, eEvaluationType type, double &value) const
{
    if (knows(element, type) && formulaOf(element, type) == nullptr)
        return objectValue(element, type, value);
    return type == Evaluation_Measure ? element.evaluateMeasurement(-1, value)
                                      : element.evaluateLevel(-1, value);
}

bool ElementReading::values(BaseFrame &element, eEvaluationType type, const GradationData &gradation,
                            QListEx<double> &values) const
{
    if (knows(element, type) && formulaOf(element, type) == nullptr)
        return objectValues(element, type, &gradation, values);
    return type == Evaluation_Measure ? element.evaluateMeasures(&gradation, values)
                                      : element.evaluateLevels(&gradation, values);
}

bool ElementReading::objectValue(BaseFrame &element, eEvaluationType type, double &value) const
{
    if (!knows(element, type)) {
        return type == Evaluation_Measure ? element.evaluateMeasurementObject(-1, value)
                                          : element.evaluateLevelObject(-1, value);
    }
    ControlBase *const control = mKnown->controlOf(&element);
    if (auto *frame = dynamic_cast<ControlFrame *>(control)) {
        value = type == Evaluation_Measure ? frame->getMeasures(-1) : frame->level(-1, &mKnown->controls());
        return true;
    }
    if (auto *segment = dynamic_cast<ControlSegment *>(control); segment && type == Evaluation_Measure) {
        value = segment->getMeasures(-1);
        return true;
    }
    return false;
}

bool ElementReading::objectValues(BaseFrame &element, eEvaluationType type, const GradationData *gradation,
                                  QListEx<double> &values) const
{
    if (!knows(element, type)) {
        return type == Evaluation_Measure ? element.evaluateMeasuresObject(gradation, values)
                                          : element.evaluateLevelsObject(gradation, values);
    }
    ControlBase *const control = mKnown->controlOf(&element);
    if (auto *frame = dynamic_cast<ControlFrame *>(control)) {
        values = type == Evaluation_Measure ? frame->getMeasures(gradation)
                                            : frame->levels(gradation, &mKnown->controls());
        return true;
    }
    if (auto *segment = dynamic_cast<ControlSegment *>(control); segment && type == Evaluation_Measure) {
        values = segment->getMeasures(gradation);
        return true;
    }
    return false;
}

bool Reevaluation::run(BaseFrame &element, eEvaluationType type)
{
    const GradationData *const gradation = gradationOf(element.document());
    // While the contour moves nothing is known beforehand; a missing gradation is the element's to report,
    // and a class of the host's own may do as it likes.
    if (mMode == Reevaluate_Apply || gradation == nullptr || !isOfTheLibrary(element))
        return element.reevaluateElement(type, mMode);
    return reevaluateValue(element, type, mMode, *gradation, ElementReading(&mKnown));
}

bool BaseFrame::reevaluate(eFrameReevaluate mode)
{
    const bool measureChanged = reevaluateElement(Evaluation_Measure, mode);
    const bool levelChanged = reevaluateElement(Evaluation_Level, mode);
    return measureChanged || levelChanged;
}

bool BaseFrame::reevaluateElement(eEvaluationType type, eFrameReevaluate mode)
{
    const GradationData *const gradation = gradationOf(getFrameSet() == nullptr ? nullptr : document());
    VOR_REQUIRE(gradation != nullptr);
    return reevaluateValue(*this, type, mode, *gradation, ElementReading());
}

void BaseFrame::reevaluateElementObject(eEvaluationType type)
{
    refreshFromObject(*this, type, gradationOf(document()), ElementReading());
}

bool BaseFrame::reevaluateUnder(BaseFrame *element, eFrameReevaluate mode)
{
    Q_UNUSED(element)
    Q_UNUSED(mode)
    return false;
}

void BaseFrame::evaluationInfluencesGeometrically(QListEx<Evaluation> &list)
{
    FrameSet *const set = getFrameSet();
    VOR_REQUIRE(set != nullptr);
    set->accumulateEvaluationsInfluencesGeometrically(this, list);
}

void BaseFrame::evaluationsInfluencedGeometrically(QListEx<Evaluation> &list)
{
    FrameSet *const set = getFrameSet();
    VOR_REQUIRE(set != nullptr);
    set->accumulateEvaluationsInfluencedGeometrically(this, list);
}

} // namespace VorSystem
