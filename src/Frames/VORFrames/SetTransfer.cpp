// Carrying what belongs to selected groups from one set into a set of a manager.
//
// The order of the steps decides what a formula can find: specs are bound as they enter, everything else at
// the end. Control objects are neither made nor moved.

#include "VORFrames/SetTransfer.h"

#include "Preconditions.h"
#include "VORFrames/Definedness.h"

#include <VorFrames/ControlBase.h>
#include <VorFrames/ControlSkeleton.h>
#include <VorFrames/ElementEquation.h>
#include <VorFrames/FrameCenter.h>
#include <VorFrames/FrameFrame.h>
#include <VorFrames/FrameLink.h>
#include <VorFrames/FrameMeasurementChart.h>
#include <VorFrames/FrameSegment.h>
#include <VorFrames/FrameSet.h>
#include <VorFrames/FrameSpec.h>
#include <VorFrames/GestFrames.h>
#include <VorFrames/TreeEquations.h>

namespace VorSystem
{

namespace
{

constexpr char kSourceUnit[] = R"(src\Frames\VORFrames)";

// The pieces of the elements, from one walk over the document.
class Pieces
{
public:
    void add(BaseFrame *element)
    {
        const ControlBase *const control = mControls.of(element);
        ControlSkeleton *const skeleton = control == nullptr ? nullptr : control->getSkeleton();
        CDbGroupObject *group = skeleton == nullptr ? nullptr : skeleton->getGroupe();
        if (control != nullptr && group == nullptr)
            group = element->groupCorrespondent(); // raises what a control object without a piece deserves
        mGroups.insert(element, group);
    }
    /// As element->groupCorrespondent().
    CDbGroupObject *of(BaseFrame *element) const { return mGroups.value(element); }

private:
    ControlLookup mControls;
    QHash<BaseFrame *, CDbGroupObject *> mGroups;
};

std::unique_ptr<TreeEquations> deepCopy(const TreeEquations &formula)
{
    if (formula.root != nullptr)
        return std::make_unique<TreeEquations>(formula);
    auto empty = std::make_unique<TreeEquations>();
    delete empty->root;
    empty->root = nullptr;
    return empty;
}

} // namespace

SetTransfer::SetTransfer(FrameSet &source, GestFrames &target, bool withValues, EquivalenceSets &equivalences)
    : mSource(source), mTarget(target), mWithValues(withValues), mEquivalences(equivalences)
{
    static_cast<void>(presetDestination()); // a mistake of the caller is told before the host is asked
}

void SetTransfer::run(const GroupPredicate &selectGroup)
{
    const Selection selection = select(selectGroup);
    std::unique_ptr<FrameSet> made = chooseDestination();
    try {
        fill(selection);
    } catch (...) {
        if (made != nullptr)
            mEquivalences.erase(&mSource);
        else
            dropCopiedFormulas();
        throw;
    }
    mTarget.addFrameSet(mDestination, -1);
    static_cast<void>(made.release()); // the target owns it
    // Deliberate: a destination that was there before goes as well, with all it held.
    if (selection.isEmpty())
        deleteDestination();
}

// --- Source and destination ---

FrameSet *SetTransfer::presetDestination() const
{
    const auto entry = mEquivalences.find(&mSource);
    if (entry == mEquivalences.end() || entry->second == nullptr)
        return nullptr;
    VOR_REQUIRE(entry->second->getGestFrames() == &mTarget); // or two managers would own the set
    return entry->second;
}

SetTransfer::Selection SetTransfer::select(const GroupPredicate &selectGroup) const
{
    std::vector<SelectedCenter> candidates;
    Pieces pieces;
    for (FrameCenter *center : mSource.getFrameCenters()) {
        pieces.add(center);
        candidates.push_back({center, center->getFrames()});
        for (FrameFrame *frame : qAsConst(candidates.back().frames))
            pieces.add(frame);
    }
    const QListEx<FrameSegment *> segments = mSource.getFrameSegments();
    for (FrameSegment *segment : segments)
        pieces.add(segment);

    Selection selection;
    for (const SelectedCenter &candidate : candidates) {
        if (!selectGroup(pieces.of(candidate.center)))
            continue;
        SelectedCenter selected{candidate.center, {}};
        for (FrameFrame *frame : candidate.frames) {
            if (selectGroup(pieces.of(frame)))
                selected.frames.append(frame);
        }
        selection.centers.push_back(selected);
    }
    for (FrameSegment *segment : segments) {
        if (selectGroup(pieces.of(segment)))
            selection.segments.append(segment);
    }
    return selection;
}

// Finds the destination and enters it under the source; gives back a set that was made for it.
std::unique_ptr<FrameSet> SetTransfer::chooseDestination()
{
    std::unique_ptr<FrameSet> made;
    mDestination = presetDestination();
    if (mDestination == nullptr)
        mDestination = destinationByName();
    if (mDestination == nullptr) {
        made = std::make_unique<FrameSet>(mTarget.getFrameSetValidName(mSource.name()), &mTarget);
        mDestination = made.get();
    }
    mEquivalences[&mSource] = mDestination;
    return made;
}

void SetTransfer::fill(const Selection &selection)
{
    mNames = NameIndex(*mDestination);
    const NamesAtHand namesAtHand(*mDestination, mNames);

    for (const SelectedCenter &selected : selection.centers)
        addCenter(selected);
    for (FrameSegment *segment : selection.segments)
        addSegment(*segment);
    addLinks();
    for (FrameSpec *spec : mSource.getFrameSpecs())
        addSpec(*spec);
    addCharts();
    mDestination->adapterFormulaInSet();
}

void SetTransfer::deleteDestination()
{
    // What other sources sent there is gone with it, so nothing may lead to it any more.
    for (auto entry = mEquivalences.begin(); entry != mEquivalences.end();)
        entry = entry->second == mDestination ? mEquivalences.erase(entry) : std::next(entry);
    mTarget.removeFrameSet(mDestination);
    delete mDestination;
}

// --- Elements, kind by kind ---

void SetTransfer::addCenter(const SelectedCenter &selected)
{
    FrameCenter &source = *selected.center;
    const QString name = nameInDestination(source, nullptr);
    if (leavesOutCenter(name)) {
        for (FrameFrame *frame : source.getFrames())
            mLeftOut.insert(frame);
        return;
    }
    auto *const center = new FrameCenter(name);
    mDestination->addCenter(center, -1);
    mNames.add(center);
    center->setCharacteristic(source.Caracteristique());
    for (FrameFrame *frame : selected.frames)
        addFrame(*frame, *center);
}

void SetTransfer::addFrame(FrameFrame &frame, FrameCenter &center)
{
    FrameFrame *const copy = mDestination->newFrame(nameInDestination(frame, &center), &center);
    if (copy == nullptr) {
        mLeftOut.insert(&frame);
        return;
    }
    mNames.add(copy);
    if (frame.isLevelZero())
        center.setFrameLevelZero(copy);
    copy->getPerimeterMeasurement() = frame.getPerimeterMeasurement();
    copyFormulas(frame, *copy);
    if (mWithValues)
        copyValues(frame, *copy);
    // Deliberate: the ratio stays behind.
    copy->setMeasureType(frame.getMeasureType());
    copy->setPercentageMeasureRating(frame.getPercentageMeasureRating1());
}

void SetTransfer::addSegment(FrameSegment &segment)
{
    const QString name = nameInDestination(segment, nullptr);
    if (mNames.segment(name) != nullptr)
        return;
    auto *const copy = new FrameSegment(name);
    mDestination->addSegment(copy, -1);
    mNames.add(copy);
    copy->getInfluenceAreaPercent() = segment.getInfluenceAreaPercent();
    copy->getDisplace() = segment.getDisplace();
    if (const TreeEquations *const formula = segment.measurementFormula()) {
        // Without the test of the order: the formula still names elements of the source.
        mNewHolders.push_back(copy);
        copy->rememberFormula(deepCopy(*formula).release());
    }
    if (mWithValues)
        copyValues(segment, *copy);
}

void SetTransfer::addLinks()
{
    ControlLookup controls;
    for (FrameLink *link : mSource.getFrameLinks()) {
        QListEx<FrameFrame *> frames;
        if (!findCounterparts(*link, frames) || mNames.link(link->name()) != nullptr)
            continue;
        auto *const copy = new FrameLink(link->name());
        mDestination->addLink(copy, -1);
        mNames.add(copy);
        copyFormulas(*link, *copy);
        for (FrameFrame *frame : qAsConst(frames)) {
            FrameLink *const old = frame->getLink();
            if (old != nullptr && old != copy)
                old->removeFrame(frame); // a frame belongs to one link
            copy->linkFrame(frame, controls.of(frame));
        }
        if (mWithValues)
            copyValues(*link, *copy);
        // Deliberate: how the link shares a total stays behind.
    }
}

// The frames of the destination that bear the names of the link's frames; false when one is missing.
bool SetTransfer::findCounterparts(const FrameLink &link, QListEx<FrameFrame *> &frames) const
{
    for (FrameFrame *frame : link.getFrames()) {
        if (mLeftOut.contains(frame))
            return false;
        auto *const counterpart = dynamic_cast<FrameFrame *>(mNames.found(frame->fullName(), true));
        if (counterpart == nullptr)
            return false;
        frames.append(counterpart);
    }
    return true;
}

void SetTransfer::addSpec(FrameSpec &spec)
{
    const TreeEquations *const source = spec.formulaSpec();
    if (source == nullptr)
        return;
    auto copy = std::make_unique<FrameSpec>(nameInDestination(spec, nullptr));
    *copy->getMeasureBySizes() = *spec.getMeasureBySizes();
    std::unique_ptr<TreeEquations> formula = deepCopy(*source);
    // Deliberate: bound at once, so that a later spec and every chart are still unknown.
    if (formula->root != nullptr && !formula->root->setAdapter(mDestination))
        return;
    copy->setFormulaSpec(formula.release());
    mDestination->addSpec(copy.get(), -1);
    mNames.add(copy.release());
}

void SetTransfer::addCharts()
{
    Definedness definedness;
    for (FrameMeasurementChart *chart : mSource.getFrameMeasurementCharts()) {
        if (!takesChart(*chart, definedness))
            continue;
        auto *const copy = new FrameMeasurementChart(nameInDestination(*chart, nullptr));
        mDestination->addMeasurementChart(copy, -1);
        mNames.add(copy);
        *copy->getMeasureBySizes() = *chart->getMeasureBySizes();
    }
}

// --- Formulas and values ---

// Deep copies that name elements of the source until all are bound at the end.
void SetTransfer::copyFormulas(BaseFrame &from, BaseFrame &to)
{
    const TreeEquations *const measure = from.measurementFormula();
    const TreeEquations *const level = from.formulaLevel();
    if (measure == nullptr && level == nullptr)
        return;
    mNewHolders.push_back(&to);
    if (measure != nullptr)
        to.setFormulaMeasurement(deepCopy(*measure).release());
    if (level != nullptr)
        to.setFormulaLevel(deepCopy(*level).release());
}

void SetTransfer::copyValues(BaseFrame &from, BaseFrame &to) const
{
    *to.getMeasureBySizes() = *from.getMeasureBySizes();
    if (ValuesAccordingSizes *const levels = to.getLevelBySizes())
        *levels = *from.getLevelBySizes();
}

// An exception left the transfer: a destination that stays must not name elements of the source.
void SetTransfer::dropCopiedFormulas()
{
    for (BaseFrame *holder : mNewHolders) {
        holder->setFormulaMeasurement(nullptr);
        holder->setFormulaLevel(nullptr);
    }
}

} // namespace VorSystem
