// What of a set is in use: defined elements, mentions in formulas, and clearing out what no piece uses.

#include <VorFrames/FrameSet.h>

#include "VORFrames/Definedness.h"
#include "VORFrames/Messages.h"

#include <VorFrames/FrameCenter.h>
#include <VorFrames/FrameFrame.h>
#include <VorFrames/FrameLink.h>
#include <VorFrames/FrameMeasurementChart.h>
#include <VorFrames/FrameSegment.h>
#include <VorFrames/FrameSpec.h>
#include <VorFrames/GestFrames.h>
#include <VorFrames/TreeEquations.h>

#include <algorithm>

namespace VorSystem
{

namespace
{

template<class Element>
bool anyIsDefined(const QListEx<Element *> &elements, Definedness &definedness)
{
    return std::any_of(elements.cbegin(), elements.cend(),
                       [&](Element *element) { return definedness.isDefined(element); });
}

template<class Element>
bool allAreDefined(const QListEx<Element *> &elements, Definedness &definedness)
{
    return std::all_of(elements.cbegin(), elements.cend(),
                       [&](Element *element) { return definedness.isDefined(element); });
}

} // namespace

// --- Defined ---

bool FrameSet::isDefinedInDocument()
{
    Definedness definedness;
    return allAreDefined(mFrameCenters, definedness) && allAreDefined(mFrameLinks, definedness) &&
           allAreDefined(mFrameSegments, definedness) && allAreDefined(mFrames, definedness) &&
           allAreDefined(mFrameSpecs, definedness) && allAreDefined(mFrameMeasurementCharts, definedness);
}

bool FrameSet::Au_Moins_Partiellement_Defini()
{
    Definedness definedness;
    return anyIsDefined(mFrameCenters, definedness) || anyIsDefined(mFrameLinks, definedness) ||
           anyIsDefined(mFrameSegments, definedness) || anyIsDefined(mFrames, definedness) ||
           anyIsDefined(mFrameSpecs, definedness) || anyIsDefined(mFrameMeasurementCharts, definedness);
}

bool FrameSet::containsFrameDefines()
{
    Definedness definedness;
    return anyIsDefined(mFrames, definedness);
}

bool FrameSet::containsSpecDefined()
{
    Definedness definedness;
    return anyIsDefined(mFrameSpecs, definedness);
}

bool FrameSet::containsMeasurementChartDefined()
{
    Definedness definedness;
    return anyIsDefined(mFrameMeasurementCharts, definedness);
}

bool FrameSet::canBeDestroyed(bool report)
{
    if (!Au_Moins_Partiellement_Defini())
        return true;
    if (report)
        showMessage(GestFrames::tr("Cannot delete this set because some of its elements are still defined."));
    return false;
}

bool FrameSet::canBeDestroyedInBatch()
{
    return canBeDestroyed(false);
}

// --- Mentions ---

bool FrameSet::testfFormulaMentions(BaseFrame *holder, TreeEquations *formula, BaseFrame *element,
                                    BaseFrame *&out)
{
    if (formula == nullptr || !formula->mentions(element))
        return false;
    out = holder;
    return true;
}

bool FrameSet::elementsMentionedInFormulaOne(BaseFrame *element, BaseFrame *&holder)
{
    holder = nullptr;
    const auto mentions = [&](BaseFrame *asked, TreeEquations *formula) {
        return testfFormulaMentions(asked, formula, element, holder);
    };
    for (FrameLink *link : qAsConst(mFrameLinks)) {
        if (mentions(link, link->measurementFormula()) || mentions(link, link->formulaLevel()))
            return true;
    }
    for (FrameSegment *segment : qAsConst(mFrameSegments)) {
        if (mentions(segment, segment->measurementFormula()))
            return true;
    }
    for (FrameFrame *frame : qAsConst(mFrames)) {
        if (mentions(frame, frame->measurementFormula()) || mentions(frame, frame->formulaLevel()))
            return true;
    }
    for (FrameSpec *spec : qAsConst(mFrameSpecs)) {
        if (mentions(spec, spec->formulaSpec()))
            return true;
    }
    for (FrameMeasurementChart *chart : qAsConst(mFrameMeasurementCharts)) {
        if (mentions(chart, chart->formulaMeasurementChart()))
            return true;
    }
    return false;
}

bool FrameSet::elementsMentionedByElementDefined(BaseFrame *element)
{
    // Whether an element is defined is asked only of those that mention: the answer is the same.
    Definedness definedness;
    const auto mentions = [&](BaseFrame *holder) {
        return holder->aFormulaWhichStates(element) && definedness.isDefined(holder);
    };
    return std::any_of(mFrameLinks.cbegin(), mFrameLinks.cend(), mentions) ||
           std::any_of(mFrameSegments.cbegin(), mFrameSegments.cend(), mentions) ||
           std::any_of(mFrames.cbegin(), mFrames.cend(), mentions) ||
           std::any_of(mFrameSpecs.cbegin(), mFrameSpecs.cend(), mentions) ||
           std::any_of(mFrameMeasurementCharts.cbegin(), mFrameMeasurementCharts.cend(), mentions);
}

} // namespace VorSystem
