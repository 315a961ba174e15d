// The names of a set at hand, for the length of one call.
//
// Answers what FrameSet::foundElementAccordingName would, colliding names included. Nothing may rename, add
// or take away an element behind its back: build it, use it, and drop it before the host is called.
#pragma once

#include "VORFrames/NameTable.h"

#include <QHash>
#include <QString>
#include <QStringView>

namespace VorSystem
{

class BaseFrame;
class FrameCenter;
class FrameFrame;
class FrameLink;
class FrameMeasurementChart;
class FrameSegment;
class FrameSet;
class FrameSpec;

class NameIndex
{
public:
    /// An empty index: the elements are entered as the set receives them.
    NameIndex() = default;
    /// All elements of the set as they stand.
    explicit NameIndex(const FrameSet &set);

    /// Makes room for that many elements more.
    void reserve(int count) { mElements.reserve(count); }

    /// Enters an element that was appended to its list; an earlier one of the same name keeps its place.
    void add(FrameCenter *center);
    void add(FrameLink *link);
    void add(FrameSegment *segment);
    void add(FrameSpec *spec);
    void add(FrameMeasurementChart *chart);
    /// A frame is entered under its center and, after all other kinds, under its bare name.
    void add(FrameFrame *frame);

    FrameCenter *center(const QString &name) const;
    FrameLink *link(const QString &name) const;
    FrameSegment *segment(const QString &name) const;
    FrameSpec *spec(const QString &name) const;
    FrameMeasurementChart *chart(const QString &name) const;
    /// The first frame of that bare name among the frames of the center.
    FrameFrame *frameOf(FrameCenter *center, const QString &name) const;

    /// As FrameSet::foundElementAccordingName.
    BaseFrame *found(const QString &name, bool searchFrames) const;

private:
    template<class Element>
    Element *first(NameTable::Kind kind, QStringView name) const;
    template<class Element>
    void addAll(const QList<Element *> &elements);
    FrameFrame *frameOf(FrameCenter *center, QStringView name) const;

    NameTable mElements;
    /// The frames of the centers that were asked for one so far.
    mutable QHash<FrameCenter *, NameTable> mFramesOfCenters;
};

/// While an object of this class lives, set finds its elements by name through the index, which the caller
/// keeps in step with the lists.
class NamesAtHand
{
public:
    NamesAtHand(FrameSet &set, const NameIndex &names);
    ~NamesAtHand();

    NamesAtHand(const NamesAtHand &) = delete;
    NamesAtHand &operator=(const NamesAtHand &) = delete;

private:
    FrameSet &mSet;
};

} // namespace VorSystem
