// Would a proposed formula make a value depend on itself?
//
// The walk goes breadth first over what the formula refers to, measures before levels, each element once per
// kind. A reference that a frame inherits from its link counts; a link without a formula is never looked
// through.

#include <VorFrames/BaseFrame.h>

#include "Preconditions.h"

#include <VorFrames/FrameCenter.h>
#include <VorFrames/FrameFrame.h>
#include <VorFrames/FrameLink.h>
#include <VorFrames/FrameMeasurementChart.h>
#include <VorFrames/FrameSegment.h>
#include <VorFrames/FrameSpec.h>
#include <VorFrames/TreeEquations.h>

#include <QSet>
#include <algorithm>
#include <typeinfo>

namespace VorSystem
{

namespace
{

constexpr char kSourceUnit[] = R"(src\Frames\VORFrames)";

// The references of one kind: those still to be expanded, from mNext on, and those done before.
class ReferenceQueue
{
public:
    bool hasPending() const { return mNext < mElements.count(); }
    bool isPending(BaseFrame *element) const { return mPending.contains(element); }
    // What was appended since the last call.
    QList<BaseFrame *> takeNews()
    {
        const QList<BaseFrame *> news = mElements.mid(mKnown);
        mKnown = mElements.count();
        return news;
    }

    BaseFrame *front() const { return mElements.at(mNext); }

    void append(BaseFrame *element)
    {
        if (mSeen.contains(element))
            return;
        mSeen.insert(element);
        mPending.insert(element);
        mElements.append(element);
    }

    // The expanded element joins the done ones; its references were added while it was still pending.
    void frontIsDone()
    {
        mPending.remove(mElements.at(mNext));
        ++mNext;
    }

    QListEx<BaseFrame *> pending() const { return mElements.mid(mNext); }

private:
    QList<BaseFrame *> mElements; // all that were ever met, in order
    QSet<BaseFrame *> mSeen;
    QSet<BaseFrame *> mPending;
    int mNext = 0;
    int mKnown = 0;
};

struct References {
    ReferenceQueue measures;
    ReferenceQueue levels;

    void addFrom(TreeEquations *formula)
    {
        if (formula == nullptr)
            return;
        QListEx<Evaluation> named;
        formula->addEvaluationsInList(named);
        for (const Evaluation &evaluation : qAsConst(named))
            (evaluation.mType == Evaluation_Measure ? measures : levels).append(evaluation.mElement);
    }

    QList<BaseFrame *> takeNews() { return measures.takeNews() + levels.takeNews(); }

    // Adds what the first pending measure refers to.
    void expandMeasure()
    {
        BaseFrame *const element = measures.front();
        VOR_REQUIRE(element != nullptr); // a name that was never resolved
        if (element->measurementFormulaAvailable()) {
            if (TreeEquations *const formula = element->measurementFormula())
                addFrom(formula);
            else if (element->aFormulaImplicitMeasures())
                addImplicit(measures, &BaseFrame::addReferencesImplicitInMeasuresList, element);
        }
        measures.frontIsDone();
    }

    void expandLevel()
    {
        BaseFrame *const element = levels.front();
        VOR_REQUIRE(element != nullptr);
        if (element->formulaLevelAvailable()) {
            if (TreeEquations *const formula = element->formulaLevel())
                addFrom(formula);
            else if (element->aFormulaImplicitLevel())
                addImplicit(levels, &BaseFrame::addReferencesImplicitInLevelList, element);
        }
        levels.frontIsDone();
    }

private:
    using AddImplicit = void (BaseFrame::*)(QListEx<BaseFrame *> &, QListEx<BaseFrame *> &);

    // The queue leaves out what it has seen, so the element may be asked with an empty done list.
    static void addImplicit(ReferenceQueue &queue, AddImplicit add, BaseFrame *element)
    {
        QListEx<BaseFrame *> found;
        QListEx<BaseFrame *> done;
        (element->*add)(found, done);
        for (BaseFrame *reference : qAsConst(found))
            queue.append(reference);
    }
};

// The elements that stand for this one without being named: a frame's link, a link's frames. An element of a
// class that the library does not know is asked through its virtual operation instead.
class ImplicitReferences
{
public:
    explicit ImplicitReferences(BaseFrame &element) : mElement(element)
    {
        const std::type_info &type = typeid(element);
        if (type == typeid(FrameFrame)) {
            if (FrameLink *const link = static_cast<FrameFrame &>(element).getLink())
                mStandIns.insert(link);
        } else if (type == typeid(FrameLink)) {
            const QListEx<FrameFrame *> frames = static_cast<FrameLink &>(element).getFrames();
            for (FrameFrame *frame : frames)
                mStandIns.insert(frame);
        } else {
            mAskElement = type != typeid(FrameCenter) && type != typeid(FrameSegment) &&
                          type != typeid(FrameSpec) && type != typeid(FrameMeasurementChart);
        }
    }

    // Does a pending list hold one of them? Only an addition can turn the answer, so only the news are looked
    // at.
    bool areIn(References &references)
    {
        const QList<BaseFrame *> news = references.takeNews();
        if (news.isEmpty())
            return false;
        if (mAskElement)
            return mElement.containsImplicitReferences(references.measures.pending(),
                                                       references.levels.pending());
        return std::any_of(news.begin(), news.end(), [this](BaseFrame *e) { return mStandIns.contains(e); });
    }

private:
    BaseFrame &mElement;
    QSet<BaseFrame *> mStandIns;
    bool mAskElement = false;
};

} // namespace

bool BaseFrame::formulaMeasurementIsRecursive(TreeEquations *formula)
{
    return formulaIsRecursive(formula, Evaluation_Measure);
}

bool BaseFrame::formulaLevelIsRecursive(TreeEquations *formula)
{
    return formulaIsRecursive(formula, Evaluation_Level);
}

bool BaseFrame::formulaIsRecursive(TreeEquations *formula, eEvaluationType searched)
{
    VOR_REQUIRE(formula != nullptr);

    References references;
    references.addFrom(formula);
    ImplicitReferences implicitReferences(*this);
    // One expansion a turn: each may bring in this element, which must be seen before it is expanded itself.
    for (;;) {
        const ReferenceQueue &own = searched == Evaluation_Measure ? references.measures : references.levels;
        if (own.isPending(this))
            return true;
        if (!references.measures.hasPending() && !references.levels.hasPending())
            return false;

        if (implicitReferences.areIn(references))
            return true;

        if (references.measures.hasPending())
            references.expandMeasure();
        else
            references.expandLevel();
    }
}

} // namespace VorSystem
