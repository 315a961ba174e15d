// Which elements are defined, asked of many elements within one call.

#include "VORFrames/Definedness.h"

#include "Preconditions.h"

#include <VorFrames/ControlFrame.h>
#include <VorFrames/FrameCenter.h>
#include <VorFrames/FrameFrame.h>
#include <VorFrames/FrameLink.h>
#include <VorFrames/FrameMeasurementChart.h>
#include <VorFrames/FrameSegment.h>
#include <VorFrames/FrameSpec.h>
#include <VorFrames/TreeEquations.h>

#include <QSet>
#include <typeinfo>
#include <vector>

namespace VorSystem
{

namespace
{

constexpr char kSourceUnit[] = R"(src\Frames\VORFrames)";

bool isComputed(BaseFrame *element)
{
    const std::type_info &type = typeid(*element);
    return type == typeid(FrameSpec) || type == typeid(FrameMeasurementChart);
}

TreeEquations *formulaOf(BaseFrame *computed)
{
    if (auto *chart = dynamic_cast<FrameMeasurementChart *>(computed))
        return chart->formulaMeasurementChart();
    return computed->formulaSpec();
}

// A spec or chart whose references are being asked.
struct Visit {
    explicit Visit(BaseFrame *visited) : element(visited)
    {
        if (TreeEquations *const formula = formulaOf(visited))
            formula->addReferencesInList(references);
    }

    BaseFrame *element;
    QListEx<BaseFrame *> references;
    int next = 0;
};

} // namespace

bool Definedness::isDefined(BaseFrame *element)
{
    const std::type_info &type = typeid(*element);
    if (type == typeid(FrameFrame) || type == typeid(FrameSegment) || type == typeid(FrameCenter))
        return mControls.of(element) != nullptr;
    if (type == typeid(FrameLink))
        return linkIsDefined(static_cast<FrameLink &>(*element));
    if (isComputed(element))
        return computedIsDefined(element);
    return element->isDefinedInDocument();
}

bool Definedness::linkIsDefined(const FrameLink &link)
{
    const QListEx<FrameFrame *> frames = link.getFrames();
    for (FrameFrame *frame : frames) {
        if (!isDefined(frame))
            return false;
        const auto *const control = dynamic_cast<ControlFrame *>(mControls.of(frame));
        if (control == nullptr || !control->getAgreesLink())
            return false;
    }
    return true;
}

// Depth first, in the order of the references, without recursion: a chain of specs may be as long as a set.
bool Definedness::computedIsDefined(BaseFrame *element)
{
    const auto known = mComputed.constFind(element);
    if (known != mComputed.constEnd())
        return known.value();

    QSet<BaseFrame *> met{element};
    std::vector<Visit> path;
    path.emplace_back(element);
    while (!path.empty()) {
        Visit &visit = path.back();
        if (visit.next == visit.references.count()) {
            path.pop_back();
            continue;
        }
        BaseFrame *const reference = visit.references.at(visit.next++);
        VOR_REQUIRE(reference != nullptr); // a name that was never resolved
        bool referenceIsDefined = true;
        if (!isComputed(reference)) {
            referenceIsDefined = isDefined(reference);
        } else if (mComputed.contains(reference)) {
            referenceIsDefined = mComputed.value(reference);
        } else if (!met.contains(reference)) {
            met.insert(reference);
            path.emplace_back(reference);
        }
        if (referenceIsDefined)
            continue;
        for (const Visit &open : path)
            mComputed.insert(open.element, false); // all of them lead to the undefined one
        return false;
    }
    for (BaseFrame *visited : qAsConst(met))
        mComputed.insert(visited, true);
    return true;
}

} // namespace VorSystem
