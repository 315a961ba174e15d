// The names of a set as a hash, for the length of one call.

#include "VORFrames/NameIndex.h"

#include "VORFrames/Names.h"

#include <VorFrames/FrameCenter.h>
#include <VorFrames/FrameFrame.h>
#include <VorFrames/FrameLink.h>
#include <VorFrames/FrameMeasurementChart.h>
#include <VorFrames/FrameSegment.h>
#include <VorFrames/FrameSet.h>
#include <VorFrames/FrameSpec.h>

namespace VorSystem
{

NameIndex::NameIndex(const FrameSet &set)
{
    for (FrameCenter *center : set.mFrameCenters) {
        add(center);
        // A center's own order decides between frames of one name, and the flat list may lack some of them.
        const QListEx<FrameFrame *> frames = center->getFrames();
        for (FrameFrame *frame : frames) {
            const QPair<FrameCenter *, QString> place(center, nameKey(frame->name()));
            if (!mFramesOfCenters.contains(place))
                mFramesOfCenters.insert(place, frame);
        }
    }
    for (FrameLink *link : set.mFrameLinks)
        add(link);
    for (FrameSegment *segment : set.mFrameSegments)
        add(segment);
    for (FrameSpec *spec : set.mFrameSpecs)
        add(spec);
    for (FrameMeasurementChart *chart : set.mFrameMeasurementCharts)
        add(chart);
    for (FrameFrame *frame : set.mFrames)
        enter(mFrames, frame);
}

template<class Element>
void NameIndex::enter(QHash<QString, Element *> &names, Element *element)
{
    const QString key = nameKey(element->name());
    if (!names.contains(key))
        names.insert(key, element);
}

void NameIndex::add(FrameCenter *center)
{
    enter(mCenters, center);
}

void NameIndex::add(FrameLink *link)
{
    enter(mLinks, link);
}

void NameIndex::add(FrameSegment *segment)
{
    enter(mSegments, segment);
}

void NameIndex::add(FrameSpec *spec)
{
    enter(mSpecs, spec);
}

void NameIndex::add(FrameMeasurementChart *chart)
{
    enter(mCharts, chart);
}

void NameIndex::add(FrameFrame *frame)
{
    const QString key = nameKey(frame->name());
    if (!mFrames.contains(key))
        mFrames.insert(key, frame);
    const QPair<FrameCenter *, QString> place(frame->getFrameCenter(), key);
    if (place.first != nullptr && !mFramesOfCenters.contains(place))
        mFramesOfCenters.insert(place, frame);
}

FrameCenter *NameIndex::center(const QString &name) const
{
    return mCenters.value(nameKey(name));
}

FrameLink *NameIndex::link(const QString &name) const
{
    return mLinks.value(nameKey(name));
}

FrameSegment *NameIndex::segment(const QString &name) const
{
    return mSegments.value(nameKey(name));
}

FrameSpec *NameIndex::spec(const QString &name) const
{
    return mSpecs.value(nameKey(name));
}

FrameMeasurementChart *NameIndex::chart(const QString &name) const
{
    return mCharts.value(nameKey(name));
}

FrameFrame *NameIndex::frameOf(FrameCenter *center, const QString &name) const
{
    return mFramesOfCenters.value(qMakePair(center, nameKey(name)));
}

BaseFrame *NameIndex::found(const QString &name, bool searchFrames) const
{
    const int colon = name.indexOf(QLatin1Char(':'));
    if (colon >= 0) {
        FrameCenter *const axis = center(name.left(colon));
        return axis == nullptr ? nullptr : frameOf(axis, name.mid(colon + 1));
    }

    const QString key = nameKey(name);
    if (FrameCenter *const center = mCenters.value(key))
        return center;
    if (FrameLink *const link = mLinks.value(key))
        return link;
    if (FrameSegment *const segment = mSegments.value(key))
        return segment;
    if (FrameSpec *const spec = mSpecs.value(key))
        return spec;
    if (FrameMeasurementChart *const chart = mCharts.value(key))
        return chart;
    return searchFrames ? mFrames.value(key) : nullptr;
}

NamesAtHand::NamesAtHand(FrameSet &set, const NameIndex &names) : mSet(set)
{
    mSet.mNamesAtHand = &names;
}

NamesAtHand::~NamesAtHand()
{
    mSet.mNamesAtHand = nullptr;
}

} // namespace VorSystem
