// Clearing a set of what no piece uses.
//
// First it is settled which elements go, then the formulas of those that stay let go of them, then they are
// deleted: no formula ever points at a dead element. Nothing of this calls the host in a way that it could
// interfere.

#include <VorFrames/FrameSet.h>

#include "VORFrames/Definedness.h"

#include <VorFrames/ElementEquation.h>
#include <VorFrames/Errors.h>
#include <VorFrames/FrameCenter.h>
#include <VorFrames/FrameFrame.h>
#include <VorFrames/FrameLink.h>
#include <VorFrames/FrameMeasurementChart.h>
#include <VorFrames/FrameSegment.h>
#include <VorFrames/FrameSpec.h>
#include <VorFrames/TreeEquations.h>

#include <QSet>
#include <exception>
#include <vector>

namespace VorSystem
{

namespace
{

// What a formula names. Unlike the formula's own walks this one lives with a broken tree, and says so.
struct Named {
    explicit Named(const TreeEquations &formula)
    {
        std::vector<const ElementEquation *> open{formula.root};
        while (!open.empty()) {
            const ElementEquation *const node = open.back();
            open.pop_back();
            if (node == nullptr)
                continue;
            const bool refers = node->contents == ElemMeasure || node->contents == ElemLevel;
            if (refers && node->element != nullptr)
                elements.insert(node->element);
            if (node->contents < ElemValue || node->contents > ElemDivide)
                sound = false;
            open.push_back(node->sonLeft);
            open.push_back(node->sonRight);
        }
    }

    QSet<BaseFrame *> elements;
    bool sound = true;
};

// A formula of an element, seen from what it names.
struct Mention {
    BaseFrame *holder;
    TreeEquations *formula;
    QSet<BaseFrame *> named;
    bool counts = true; // false once it names an element that goes: it will be given up
};

QString textOf(const TreeEquations &formula)
{
    try {
        return formula.toString();
    } catch (const AssertionError &) {
        return QString(); // a broken tree has no text
    }
}

} // namespace

/// Settles which elements of a set go, and deletes them.
class ClearingOut
{
public:
    explicit ClearingOut(FrameSet &set) : mSet(set) {}

    // Raises what an element's own test raises; what was settled before stands.
    void settle()
    {
        listMentions();
        for (FrameSpec *spec : qAsConst(mSet.mFrameSpecs)) {
            if (!mDefinedness.isDefined(spec))
                goes(spec);
        }
        for (FrameMeasurementChart *chart : qAsConst(mSet.mFrameMeasurementCharts)) {
            if (!mDefinedness.isDefined(chart))
                goes(chart);
        }
        for (FrameSegment *segment : qAsConst(mSet.mFrameSegments)) {
            if (!mDefinedness.isDefined(segment) && !isMentioned(segment))
                goes(segment);
        }
        for (FrameLink *link : qAsConst(mSet.mFrameLinks)) {
            if (!mDefinedness.isDefined(link) && !isMentioned(link))
                goes(link);
        }
        for (FrameFrame *frame : qAsConst(mSet.mFrames)) {
            const bool linked = frame->getLink() != nullptr && !mGone.contains(frame->getLink());
            if (!mDefinedness.isDefined(frame) && !linked && !isMentioned(frame))
                goes(frame);
        }
        for (FrameCenter *center : qAsConst(mSet.mFrameCenters)) {
            if (!mDefinedness.isDefined(center) && isLeftWithoutFrames(*center))
                goes(center);
        }
    }

    // The formulas of elements that stay are given up where they name one that goes: recorded, then dropped.
    void releaseHolders()
    {
        for (const Mention &mention : mMentions) {
            if (mGone.contains(mention.holder) || !mention.named.intersects(mGone))
                continue;
            const bool isMeasure = mention.formula == mention.holder->measurementFormula();
            mSet.markRemovedFormula(mention.holder->fullName(), isMeasure, textOf(*mention.formula));
            if (isMeasure)
                mention.holder->setFormulaMeasurement(nullptr);
            else
                mention.holder->setFormulaLevel(nullptr);
        }
    }

    void deleteGone()
    {
        takeOut(mSet.mFrameSpecs);
        takeOut(mSet.mFrameMeasurementCharts);
        takeOut(mSet.mFrameSegments);
        takeOut(mSet.mFrameLinks);
        takeOut(mSet.mFrameCenters);
        takeOutFrames();
        ControlLookup controls;
        for (BaseFrame *element : qAsConst(mInOrder)) {
            if (auto *const link = dynamic_cast<FrameLink *>(element))
                link->unlinkFrames(controls);
            delete element;
        }
    }

private:
    // The formulas that the virtual accessors show; a chart's own formula never mentions anything here.
    void listMentions()
    {
        const auto list = [this](BaseFrame *holder) {
            for (TreeEquations *formula :
                 {holder->measurementFormula(), holder->formulaLevel(), holder->formulaSpec()}) {
                if (formula == nullptr)
                    continue;
                Named named(*formula);
                mSound = mSound && named.sound;
                for (BaseFrame *element : qAsConst(named.elements))
                    mMentionsOf[element].append(static_cast<int>(mMentions.size()));
                mMentions.push_back(Mention{holder, formula, std::move(named.elements)});
            }
        };
        for (FrameLink *link : qAsConst(mSet.mFrameLinks))
            list(link);
        for (FrameSegment *segment : qAsConst(mSet.mFrameSegments))
            list(segment);
        for (FrameFrame *frame : qAsConst(mSet.mFrames))
            list(frame);
        for (FrameSpec *spec : qAsConst(mSet.mFrameSpecs))
            list(spec);
    }

    void goes(BaseFrame *element)
    {
        if (mGone.contains(element))
            return;
        mGone.insert(element);
        mInOrder.append(element);
        const QList<int> mentions = mMentionsOf.value(element);
        for (const int mention : mentions)
            mMentions[static_cast<std::size_t>(mention)].counts = false;
    }

    // Does a defined element mention this one?
    bool isMentioned(BaseFrame *element)
    {
        if (!mSound || element->getFrameSet() != &mSet)
            return element->isMentionedByElementDefined(); // raises at a broken tree, and without a set
        const QList<int> mentions = mMentionsOf.value(element);
        for (const int index : mentions) {
            const Mention &mention = mMentions[static_cast<std::size_t>(index)];
            if (mention.counts && mDefinedness.isDefined(mention.holder))
                return true;
        }
        return false;
    }

    bool isLeftWithoutFrames(const FrameCenter &center) const
    {
        for (FrameFrame *frame : center.mFrames) {
            if (!mGone.contains(frame))
                return false;
        }
        return true;
    }

    // What goes leaves the list, and no longer looks for itself in it.
    template<class Element>
    void takeOut(QListEx<Element *> &elements)
    {
        QListEx<Element *> staying;
        for (Element *element : qAsConst(elements)) {
            if (mGone.contains(element))
                element->setOrGetFrameSet() = nullptr;
            else
                staying.append(element);
        }
        elements = std::move(staying);
    }

    void takeOutFrames()
    {
        QListEx<FrameFrame *> staying;
        QSet<FrameCenter *> centers;
        for (FrameFrame *frame : qAsConst(mSet.mFrames)) {
            if (!mGone.contains(frame)) {
                staying.append(frame);
                continue;
            }
            if (FrameCenter *const center = frame->getFrameCenter()) {
                centers.insert(center);
                frame->setFrameCenter(nullptr);
            }
        }
        mSet.mFrames = std::move(staying);
        for (FrameCenter *center : qAsConst(centers)) {
            QListEx<FrameFrame *> left;
            for (FrameFrame *frame : qAsConst(center->mFrames)) {
                if (!mGone.contains(frame))
                    left.append(frame);
            }
            center->mFrames = std::move(left);
            if (mGone.contains(center->mFrameLevelZero))
                center->mFrameLevelZero = nullptr;
        }
    }

    FrameSet &mSet;
    Definedness mDefinedness;
    std::vector<Mention> mMentions; // in the order in which holders are asked
    QHash<BaseFrame *, QList<int>> mMentionsOf;
    bool mSound = true;
    QSet<BaseFrame *> mGone;
    QListEx<BaseFrame *> mInOrder;
};

void FrameSet::destroyFramesUndefined()
{
    ClearingOut clearing(*this);
    std::exception_ptr failure;
    try {
        clearing.settle();
    } catch (...) {
        failure = std::current_exception(); // what was settled before still goes
    }
    clearing.releaseHolders();
    clearing.deleteGone();
    if (failure)
        std::rethrow_exception(failure);
}

} // namespace VorSystem
