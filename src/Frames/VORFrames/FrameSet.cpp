// Frame sets as containers: making, entering, finding, reordering and deleting elements.

#include <VorFrames/FrameSet.h>

#include "Preconditions.h"
#include "VORFrames/ControlIndex.h"
#include "VORFrames/NameIndex.h"
#include "VORFrames/Names.h"

#include <VorFrames/FrameCenter.h>
#include <VorFrames/FrameFrame.h>
#include <VorFrames/FrameLink.h>
#include <VorFrames/FrameMeasurementChart.h>
#include <VorFrames/FrameSegment.h>
#include <VorFrames/FrameSpec.h>
#include <VorFrames/GestFrames.h>

#include <QSet>

namespace VorSystem
{

namespace
{

constexpr char kSourceUnit[] = R"(src\Frames\VORFrames)";

template<class Element>
Element *firstNamed(const QListEx<Element *> &elements, const NameMatcher &wanted)
{
    for (Element *element : elements) {
        if (wanted.matches(element->name()))
            return element;
    }
    return nullptr;
}

template<class Element>
void insertAt(QListEx<Element *> &elements, Element *element, int index)
{
    if (index < 0)
        elements.append(element);
    else
        elements.insert(index, element);
}

// A new element of the set at the end of its list.
template<class Element>
Element *appendNew(QListEx<Element *> &elements, const QString &name, FrameSet *set)
{
    auto *const element = new Element(name);
    element->setOrGetFrameSet() = set;
    elements.append(element);
    return element;
}

template<class Element>
void takeOut(QListEx<Element *> &elements, Element *element)
{
    VOR_REQUIRE(element != nullptr);
    elements.removeAll(element);
    element->setOrGetFrameSet() = nullptr;
}

// Position i takes the element that stood at order[i]; the elements that a repeated index loses leave the
// set.
template<class Element>
void reorder(QListEx<Element *> &elements, const QListEx<int> &order)
{
    if (order.count() != elements.count())
        return;
    const QListEx<Element *> old = elements;
    QListEx<Element *> reordered;
    reordered.reserve(old.count());
    for (const int position : order)
        reordered.append(old.at(position));
    elements = reordered;

    const QSet<Element *> kept(reordered.cbegin(), reordered.cend());
    for (Element *element : old) {
        if (!kept.contains(element))
            element->setOrGetFrameSet() = nullptr;
    }
}

// The links that the frames say they belong to.
QSet<FrameLink *> linksOf(const QListEx<FrameFrame *> &frames)
{
    QSet<FrameLink *> links;
    for (FrameFrame *frame : frames) {
        if (FrameLink *const link = frame->getLink())
            links.insert(link);
    }
    return links;
}

template<class Element>
QListEx<Element *> without(const QListEx<Element *> &elements, const QListEx<Element *> &leaving)
{
    const QSet<Element *> gone(leaving.cbegin(), leaving.cend());
    QListEx<Element *> staying;
    for (Element *element : elements) {
        if (!gone.contains(element))
            staying.append(element);
    }
    return staying;
}

// Empties the list and deletes its elements, first to last, each once however often it is listed. The
// elements no longer look for themselves in the list, so that the whole costs one step each.
template<class Element>
void deleteAll(QListEx<Element *> &elements)
{
    const QListEx<Element *> doomed = std::move(elements);
    elements.clear();
    QSet<Element *> deleted;
    for (Element *element : doomed) {
        if (deleted.contains(element))
            continue;
        deleted.insert(element);
        element->setOrGetFrameSet() = nullptr;
        delete element;
    }
}

} // namespace

FrameSet::FrameSet(const QString &name, GestFrames *manager) : BaseFrame(name), mFrameManager(manager) {}

FrameSet::~FrameSet()
{
    // Links let their frames go while these still know their document.
    ControlLookup controls;
    for (FrameLink *link : qAsConst(mFrameLinks))
        link->unlinkFrames(controls);
    deleteAll(mFrameLinks);
    // Links that were taken off the list belong to their holders, who may delete them later.
    const QSet<FrameLink *> links = linksOf(mFrames);
    for (FrameLink *link : links)
        link->mFrames = without(link->mFrames, mFrames);
    // The centers go right after their frames, so that no frame needs to look for itself in one.
    for (FrameCenter *center : qAsConst(mFrameCenters)) {
        center->mFrames.clear();
        center->mFrameLevelZero = nullptr;
    }
    deleteAll(mFrames);
    deleteAll(mFrameCenters);
    deleteAll(mFrameSegments);
    deleteAll(mFrameSpecs);
    deleteAll(mFrameMeasurementCharts);
    if (mFrameManager != nullptr)
        mFrameManager->removeFrameSet(this);
}

eElementFrameType FrameSet::elementType()
{
    return Element_Set;
}

Document *FrameSet::document() const
{
    return mFrameManager == nullptr ? nullptr : mFrameManager->document();
}

ControlBase *FrameSet::skeletonElementPointedAtUs(ControlSkeleton *)
{
    return nullptr;
}

// --- Making ---

FrameCenter *FrameSet::newCenter(const QString &name)
{
    return findFrameCenterAccordingName(name) == nullptr ? appendNew(mFrameCenters, name, this) : nullptr;
}

FrameLink *FrameSet::newLink(const QString &name)
{
    return findFrameLinkAccordingName(name) == nullptr ? appendNew(mFrameLinks, name, this) : nullptr;
}

FrameSegment *FrameSet::newSegment(const QString &name)
{
    return findFrameSegmentAccordingName(name) == nullptr ? appendNew(mFrameSegments, name, this) : nullptr;
}

FrameSpec *FrameSet::newSpec(const QString &name)
{
    return findFrameSpecAccordingName(name) == nullptr ? appendNew(mFrameSpecs, name, this) : nullptr;
}

FrameMeasurementChart *FrameSet::newMeasurementChart(const QString &name)
{
    // Deliberate: the name is sought among the specs, not among the charts.
    return findFrameSpecAccordingName(name) == nullptr ? appendNew(mFrameMeasurementCharts, name, this)
                                                       : nullptr;
}

FrameFrame *FrameSet::newFrame(const QString &name, FrameCenter *center)
{
    VOR_REQUIRE(center != nullptr);
    // Asked by the composed name: of centers that share a name, the first decides.
    if (foundElementAccordingName(center->name() + QLatin1Char(':') + name, true) != nullptr)
        return nullptr;

    auto *const frame = new FrameFrame(name);
    mFrames.append(frame);
    frame->addFrameCenter(center, -1);
    return frame;
}

// --- Entering ---

void FrameSet::addCenter(FrameCenter *center, int index)
{
    VOR_REQUIRE(center != nullptr);
    if (FrameSet *const old = center->setOrGetFrameSet())
        old->removeCenter(center);
    center->setOrGetFrameSet() = this;
    insertAt(mFrameCenters, center, index);
}

void FrameSet::addLink(FrameLink *link, int index)
{
    VOR_REQUIRE(link != nullptr);
    if (FrameSet *const old = link->setOrGetFrameSet())
        old->removeLink(link);
    link->setOrGetFrameSet() = this;
    insertAt(mFrameLinks, link, index);
}

void FrameSet::addSegment(FrameSegment *segment, int index)
{
    VOR_REQUIRE(segment != nullptr);
    if (FrameSet *const old = segment->setOrGetFrameSet())
        old->removeSegment(segment);
    segment->setOrGetFrameSet() = this;
    insertAt(mFrameSegments, segment, index);
}

void FrameSet::addSpec(FrameSpec *spec, int index)
{
    VOR_REQUIRE(spec != nullptr);
    if (FrameSet *const old = spec->setOrGetFrameSet())
        old->removeSpec(spec);
    spec->setOrGetFrameSet() = this;
    insertAt(mFrameSpecs, spec, index);
}

void FrameSet::addMeasurementChart(FrameMeasurementChart *chart, int index)
{
    VOR_REQUIRE(chart != nullptr);
    if (FrameSet *const old = chart->setOrGetFrameSet())
        old->removeMeasurementChart(chart);
    chart->setOrGetFrameSet() = this;
    insertAt(mFrameMeasurementCharts, chart, index);
}

void FrameSet::addFrame(FrameFrame *frame, int index)
{
    VOR_REQUIRE(frame != nullptr);
    // A frame's set is its center's; the center itself is left alone.
    if (FrameSet *const old = frame->getFrameSet())
        old->removeFrame(frame);
    insertAt(mFrames, frame, index);
}

void FrameSet::removeCenter(FrameCenter *center)
{
    takeOut(mFrameCenters, center);
}

void FrameSet::removeLink(FrameLink *link)
{
    takeOut(mFrameLinks, link);
}

void FrameSet::removeSegment(FrameSegment *segment)
{
    takeOut(mFrameSegments, segment);
}

void FrameSet::removeSpec(FrameSpec *spec)
{
    takeOut(mFrameSpecs, spec);
}

void FrameSet::removeMeasurementChart(FrameMeasurementChart *chart)
{
    takeOut(mFrameMeasurementCharts, chart);
}

void FrameSet::removeFrame(FrameFrame *frame)
{
    mFrames.removeAll(frame);
}

// --- Finding ---

FrameCenter *FrameSet::findFrameCenterAccordingName(const QString &name) const
{
    return firstNamed(mFrameCenters, NameMatcher(name));
}

FrameLink *FrameSet::findFrameLinkAccordingName(const QString &name) const
{
    return firstNamed(mFrameLinks, NameMatcher(name));
}

FrameSegment *FrameSet::findFrameSegmentAccordingName(const QString &name) const
{
    return firstNamed(mFrameSegments, NameMatcher(name));
}

FrameSpec *FrameSet::findFrameSpecAccordingName(const QString &name) const
{
    return firstNamed(mFrameSpecs, NameMatcher(name));
}

FrameMeasurementChart *FrameSet::findFrameMeasurementChartAccordingName(const QString &name) const
{
    return firstNamed(mFrameMeasurementCharts, NameMatcher(name));
}

BaseFrame *FrameSet::foundElementAccordingName(const QString &name, bool searchFrames) const
{
    if (mNamesAtHand != nullptr)
        return mNamesAtHand->found(name, searchFrames);

    const int colon = name.indexOf(QLatin1Char(':'));
    if (colon >= 0) {
        const FrameCenter *const center =
            firstNamed(mFrameCenters, NameMatcher(QStringView(name).left(colon)));
        return center == nullptr ? nullptr
                                 : firstNamed(center->mFrames, NameMatcher(QStringView(name).mid(colon + 1)));
    }

    const NameMatcher wanted(name);
    if (FrameCenter *const center = firstNamed(mFrameCenters, wanted))
        return center;
    if (FrameLink *const link = firstNamed(mFrameLinks, wanted))
        return link;
    if (FrameSegment *const segment = firstNamed(mFrameSegments, wanted))
        return segment;
    if (FrameSpec *const spec = firstNamed(mFrameSpecs, wanted))
        return spec;
    if (FrameMeasurementChart *const chart = firstNamed(mFrameMeasurementCharts, wanted))
        return chart;
    return searchFrames ? firstNamed(mFrames, wanted) : nullptr;
}

// --- Reordering ---

void FrameSet::ChangeFrameCenters(QListEx<int> order)
{
    reorder(mFrameCenters, order);
}

void FrameSet::ChangeFrameLinks(QListEx<int> order)
{
    reorder(mFrameLinks, order);
}

void FrameSet::ChangeFrameSegments(QListEx<int> order)
{
    reorder(mFrameSegments, order);
}

void FrameSet::ChangeFrameSpecs(QListEx<int> order)
{
    reorder(mFrameSpecs, order);
}

void FrameSet::ChangeFrameMeasurementCharts(QListEx<int> order)
{
    reorder(mFrameMeasurementCharts, order);
}

void FrameSet::ChangeFrameFrames(QListEx<int> order, QString center)
{
    for (FrameCenter *candidate : qAsConst(mFrameCenters)) {
        if (candidate->name() == center) {
            candidate->ChangeFrameFrames(order);
            return;
        }
    }
}

} // namespace VorSystem
