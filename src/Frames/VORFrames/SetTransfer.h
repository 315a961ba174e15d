// Carrying what belongs to selected groups from one set into a set of a manager.
//
// The steps that a copy and a merge have in common; where they differ stands in SetCopy.cpp and SetMerge.cpp.
#pragma once

#include "VORFrames/NameIndex.h"

#include <VorFrames/EquivalenceSets.h>
#include <VorFrames/QListEx.h>

#include <QSet>
#include <boost/function.hpp>
#include <memory>
#include <vector>

namespace VorSystem
{

class CDbGroupObject;
class Definedness;
class GestFrames;
class TreeEquations;

using GroupPredicate = boost::function<bool(CDbGroupObject *)>;

/// One source set on its way into one destination. Made for one call of run().
class SetTransfer
{
public:
    /// Raises AssertionError for a destination given by equivalences that belongs to another manager.
    SetTransfer(FrameSet &source, GestFrames &target, bool withValues, EquivalenceSets &equivalences);
    virtual ~SetTransfer() = default;

    SetTransfer(const SetTransfer &) = delete;
    SetTransfer &operator=(const SetTransfer &) = delete;

    /// Asks the predicate about everything first, then builds without a call of the host that could change a
    /// set. The destination, which may be the source, is deleted when nothing was selected.
    void run(const GroupPredicate &selectGroup);

protected:
    /// The set of the target that receives a source without an entry of its own; null: a new one.
    virtual FrameSet *destinationByName() const = 0;
    /// The name under which the element enters the destination, or the center there when it is a frame.
    virtual QString nameInDestination(BaseFrame &element, FrameCenter *center) = 0;
    /// Must a center of that name stay behind, with all that hangs on it?
    virtual bool leavesOutCenter(const QString &name) const = 0;
    virtual bool takesChart(FrameMeasurementChart &chart, Definedness &definedness) = 0;

    FrameSet &mSource;
    GestFrames &mTarget;
    FrameSet *mDestination = nullptr;
    NameIndex mNames; ///< of the destination, kept in step with what enters it

private:
    struct SelectedCenter {
        FrameCenter *center;
        QListEx<FrameFrame *> frames;
    };
    struct Selection {
        bool isEmpty() const { return centers.empty() && segments.empty(); }

        std::vector<SelectedCenter> centers;
        QListEx<FrameSegment *> segments;
    };

    FrameSet *presetDestination() const;
    Selection select(const GroupPredicate &selectGroup) const;
    std::unique_ptr<FrameSet> chooseDestination();
    void fill(const Selection &selection);
    void deleteDestination();

    void addCenter(const SelectedCenter &selected);
    void addFrame(FrameFrame &frame, FrameCenter &center);
    void addSegment(FrameSegment &segment);
    void addLinks();
    void addSpec(FrameSpec &spec);
    void addCharts();

    bool findCounterparts(const FrameLink &link, QListEx<FrameFrame *> &frames) const;
    void copyFormulas(BaseFrame &from, BaseFrame &to);
    void copyValues(BaseFrame &from, BaseFrame &to) const;
    void dropCopiedFormulas();

    const bool mWithValues;
    EquivalenceSets &mEquivalences;
    QSet<FrameFrame *> mLeftOut;          ///< frames of the source that found their name taken
    std::vector<BaseFrame *> mNewHolders; ///< new elements whose formulas name elements of the source
};

} // namespace VorSystem
