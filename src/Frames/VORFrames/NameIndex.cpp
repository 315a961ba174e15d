// The names of a set at hand, for the length of one call.

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
    reserve(set.mFrameCenters.size() + set.mFrameLinks.size() + set.mFrameSegments.size() +
            set.mFrameSpecs.size() + set.mFrameMeasurementCharts.size() + set.mFrames.size());
    addAll(set.mFrameCenters);
    addAll(set.mFrameLinks);
    addAll(set.mFrameSegments);
    addAll(set.mFrameSpecs);
    addAll(set.mFrameMeasurementCharts);
    addAll(set.mFrames);
}

template<class Element>
void NameIndex::addAll(const QList<Element *> &elements)
{
    for (Element *element : elements)
        add(element);
}

void NameIndex::add(FrameCenter *center)
{
    mElements.add(NameTable::Center, center);
}

void NameIndex::add(FrameLink *link)
{
    mElements.add(NameTable::Link, link);
}

void NameIndex::add(FrameSegment *segment)
{
    mElements.add(NameTable::Segment, segment);
}

void NameIndex::add(FrameSpec *spec)
{
    mElements.add(NameTable::Spec, spec);
}

void NameIndex::add(FrameMeasurementChart *chart)
{
    mElements.add(NameTable::Chart, chart);
}

void NameIndex::add(FrameFrame *frame)
{
    mElements.add(NameTable::Frame, frame);
    const auto frames = mFramesOfCenters.find(frame->getFrameCenter());
    if (frames != mFramesOfCenters.end())
        frames->add(NameTable::Frame, frame);
}

template<class Element>
Element *NameIndex::first(NameTable::Kind kind, QStringView name) const
{
    return static_cast<Element *>(mElements.found(NameMatcher(name), kind, kind));
}

FrameCenter *NameIndex::center(const QString &name) const
{
    return first<FrameCenter>(NameTable::Center, name);
}

FrameLink *NameIndex::link(const QString &name) const
{
    return first<FrameLink>(NameTable::Link, name);
}

FrameSegment *NameIndex::segment(const QString &name) const
{
    return first<FrameSegment>(NameTable::Segment, name);
}

FrameSpec *NameIndex::spec(const QString &name) const
{
    return first<FrameSpec>(NameTable::Spec, name);
}

FrameMeasurementChart *NameIndex::chart(const QString &name) const
{
    return first<FrameMeasurementChart>(NameTable::Chart, name);
}

FrameFrame *NameIndex::frameOf(FrameCenter *center, const QString &name) const
{
    return frameOf(center, QStringView(name));
}

FrameFrame *NameIndex::frameOf(FrameCenter *center, QStringView name) const
{
    auto frames = mFramesOfCenters.find(center);
    if (frames == mFramesOfCenters.end()) {
        frames = mFramesOfCenters.insert(center, NameTable());
        // A center's own order decides between frames of one name, and the flat list may lack some of them.
        const QListEx<FrameFrame *> own = center->getFrames();
        frames->reserve(own.size());
        for (FrameFrame *frame : own)
            frames->add(NameTable::Frame, frame);
    }
    return static_cast<FrameFrame *>(frames->found(NameMatcher(name), NameTable::Frame, NameTable::Frame));
}

BaseFrame *NameIndex::found(const QString &name, bool searchFrames) const
{
    const int colon = name.indexOf(QLatin1Char(':'));
    if (colon >= 0) {
        auto *const axis = first<FrameCenter>(NameTable::Center, QStringView(name).left(colon));
        return axis == nullptr ? nullptr : frameOf(axis, QStringView(name).mid(colon + 1));
    }
    return mElements.found(NameMatcher(name), NameTable::Center,
                           searchFrames ? NameTable::Frame : NameTable::Chart);
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
