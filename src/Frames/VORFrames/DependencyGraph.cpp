// What the values of a set wait for, as numbers: the input of the sorting into rounds.

#include "VORFrames/DependencyGraph.h"

#include "VORFrames/Dependencies.h"

#include <VorFrames/FrameFrame.h>
#include <VorFrames/FrameLink.h>
#include <VorFrames/FrameMeasurementChart.h>
#include <VorFrames/FrameSegment.h>
#include <VorFrames/FrameSet.h>

namespace VorSystem
{

namespace
{

constexpr bool isMeasureOrLevel(eEvaluationType type)
{
    return type == Evaluation_Measure || type == Evaluation_Level;
}

constexpr std::size_t valueNumber(std::size_t element, eEvaluationType type)
{
    return 2 * element + (type == Evaluation_Measure ? 0 : 1);
}

} // namespace

DependencyGraph::DependencyGraph(FrameSet &set)
    : DependencyGraph(set, set.getFrames(), set.getFrameLinks(), set.getFrameSegments(),
                      set.getFrameMeasurementCharts())
{
}

DependencyGraph::DependencyGraph(FrameSet &set, const QListEx<FrameFrame *> &frames,
                                 const QListEx<FrameLink *> &links, const QListEx<FrameSegment *> &segments,
                                 const QListEx<FrameMeasurementChart *> &charts)
    : mSet(&set),
      mElements(static_cast<std::size_t>(frames.size() + links.size() + segments.size() + charts.size()))
{
    const auto addAll = [this](const auto &elements, bool haveLevels) {
        for (BaseFrame *element : elements) {
            addRecord(element, Evaluation_Measure);
            if (haveLevels)
                addRecord(element, Evaluation_Level);
        }
    };
    addAll(frames, true);
    addAll(links, true);
    addAll(segments, false);
    addAll(charts, true);
    addDependencies();
}

void DependencyGraph::addDependencies()
{
    mWaits.resize(recordCount());
    mLinkValuesBegin.reserve(recordCount() + 1);
    Dependencies dependencies;
    for (Record record = 0; record < recordCount(); ++record) {
        mLinkValuesBegin.push_back(mLinkValues.size());
        dependencies.take(mRecords[record]);
        mMixed = mMixed || dependencies.set() != mSet;
        addFormulaDependencies(record, dependencies.fromFormulas());
        addMovers(record, dependencies.movers());
    }
    mLinkValuesBegin.push_back(mLinkValues.size());
}

void DependencyGraph::addRecord(BaseFrame *element, eEvaluationType type)
{
    const Value value = valueNumber(enter(element), type);
    mRecords.push_back({element, type});
    mValues.push_back(value);
    ++mNodes[value / 2].records[value % 2];
}

void DependencyGraph::addFormulaDependencies(Record record, const QListEx<Evaluation> &dependencies)
{
    for (const Evaluation &dependency : dependencies) {
        // An unresolved reference is nobody to wait for.
        if (dependency.mElement == nullptr || !isMeasureOrLevel(dependency.mType))
            continue;
        const std::size_t element = enter(dependency.mElement);
        const Value value = valueNumber(element, dependency.mType);
        if (isLink(element)) {
            listFramesOf(element);
            mLinkValues.push_back(value);
        } else {
            addWait(record, value);
        }
    }
}

void DependencyGraph::addMovers(Record record, const std::vector<BaseFrame *> &movers)
{
    if (movers.empty())
        return;
    // A chart waits for who moves it, but a segment that moves it is not in anybody's way.
    const bool isChart = mRecords[record].mElement->elementType() == Element_MeasurementChart;
    for (BaseFrame *mover : movers) {
        const std::size_t element = enter(mover);
        addWait(record, valueNumber(element, Evaluation_Measure));
        if (mover->elementType() != Element_Segment)
            addWait(record, valueNumber(element, Evaluation_Level));
        else if (!isChart)
            mSegmentInfluences.push_back({element, record});
    }
}

void DependencyGraph::addWait(Record record, Value value)
{
    if (recordsOf(value) == 0)
        return; // stands in no round, so it is never waited for
    ++mWaits[record];
    std::size_t &first = mNodes[value / 2].firstWaiting[value % 2];
    mWaiting.push_back({record, first});
    first = mWaiting.size() - 1;
}

std::size_t DependencyGraph::enter(BaseFrame *element)
{
    const std::size_t number = mElements.enter(element);
    if (number == mNodes.size())
        mNodes.emplace_back();
    return number;
}

bool DependencyGraph::isLink(std::size_t element)
{
    Kind &kind = mNodes[element].kind;
    if (kind == Kind::Unknown)
        kind = mElements.element(element)->elementType() == Element_Link ? Kind::Link : Kind::Other;
    return kind != Kind::Other;
}

void DependencyGraph::listFramesOf(std::size_t link)
{
    if (mNodes[link].kind == Kind::ListedLink)
        return;
    mNodes[link].kind = Kind::ListedLink;
    const QListEx<FrameFrame *> frames = static_cast<FrameLink *>(mElements.element(link))->getFrames();
    for (FrameFrame *frame : frames) {
        std::size_t &first = mNodes[enter(frame)].firstLinkOver;
        mLinksOver.push_back({link, first});
        first = mLinksOver.size() - 1;
    }
}

FrameSegment *DependencyGraph::culpritAmong(const std::vector<bool> &pending) const
{
    std::vector<bool> movesPending(mElements.size());
    if (!mMixed) {
        for (const SegmentInfluence &influence : mSegmentInfluences) {
            if (pending[influence.moved])
                movesPending[influence.segment] = true;
        }
    }

    for (Record record = 0; record < recordCount(); ++record) {
        BaseFrame *const element = mRecords[record].mElement;
        if (!pending[record] || element->elementType() != Element_Segment ||
            element->measurementFormula() == nullptr)
            continue;
        if (mMixed ? movesAnyOf(*element, pending) : movesPending[mValues[record] / 2])
            return static_cast<FrameSegment *>(element);
    }
    return nullptr;
}

bool DependencyGraph::movesAnyOf(BaseFrame &segment, const std::vector<bool> &pending) const
{
    QListEx<Evaluation> moved;
    segment.evaluationsInfluencedGeometrically(moved);
    for (Record record = 0; record < recordCount(); ++record) {
        if (pending[record] && moved.contains(mRecords[record]))
            return true;
    }
    return false;
}

} // namespace VorSystem
