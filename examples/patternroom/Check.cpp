// What is wrong with a document, as far as can be told without moving anything.
#include "Commands.h"
#include "Snapshot.h"

#include <VorConjoin/VorConjoin.h>

#include <algorithm>
#include <cmath>

namespace room
{

using namespace VorSystem;

namespace
{

QString evaluationName(const Evaluation &evaluation)
{
    const QString pattern =
        evaluation.mType == Evaluation_Level ? QStringLiteral("Level(%1)") : QStringLiteral("Measure(%1)");
    return pattern.arg(evaluation.mElement ? evaluation.mElement->fullName() : QStringLiteral("?"));
}

class Linter
{
public:
    Linter(PatternDocument &document, double tolerance, const LengthStyle &style)
        : mDocument(document), mTolerance(tolerance), mStyle(style)
    {
    }

    QStringList findings()
    {
        for (const Element &element : elementsOf(mDocument))
            lintElement(element);
        const QListEx<FrameSet *> sets = mDocument.framesManager()->getFrameSets();
        for (FrameSet *set : sets)
            lintOrder(set);
        lintLost();
        lintRest();
        return mFindings;
    }

private:
    void find(const QString &what, const QString &text) { mFindings << what + QLatin1String(": ") + text; }

    void lintElement(const Element &element)
    {
        if (element.place.kind == Element_Frame && !element.element->getFrameSet())
            return;
        lintFormula(element, valueFormula(element.element));
        lintFormula(element, element.element->formulaLevel());
        if (element.place.kind == Element_Spec)
            lintSeam(element);
    }

    void lintFormula(const Element &element, const TreeEquations *formula)
    {
        if (!formula)
            return;
        lintNames(element, formula->root);
        if (!const_cast<TreeEquations *>(formula)->verifierImplicitUnits())
            find(QStringLiteral("units"), QStringLiteral("%1 = %2 mixes lengths and plain numbers")
                                              .arg(element.path(), formula->toString()));
    }

    void lintNames(const Element &element, const ElementEquation *node)
    {
        if (!node)
            return;
        const bool isReference = node->contents == ElemMeasure || node->contents == ElemLevel;
        if (node->contents == ElemNone)
            find(QStringLiteral("bare name"), QStringLiteral("%1 names '%2' without Measure or Level")
                                                  .arg(element.path(), node->pendingName));
        if (isReference && !node->element)
            find(QStringLiteral("unresolved name"),
                 QStringLiteral("%1 names '%2'").arg(element.path(), node->pendingName));
        if (isReference && node->element) {
            const BaseFrame *meant = element.set->foundElementAccordingName(node->element->fullName(), false);
            if (meant != node->element)
                find(QStringLiteral("misread name"),
                     QStringLiteral("%1 names the %2 '%3', and a reading would take another element for it")
                         .arg(element.path(), kindName(node->element->elementType()),
                              node->element->fullName()));
        }
        lintNames(element, node->sonLeft);
        lintNames(element, node->sonRight);
    }

    // A spec that takes one measure from another says that two seams are as long.
    void lintSeam(const Element &element)
    {
        const TreeEquations *formula = element.element->formulaSpec();
        const ElementEquation *root = formula ? formula->root : nullptr;
        const auto isMeasure = [](const ElementEquation *node) {
            return node && node->contents == ElemMeasure && node->element;
        };
        if (!root || root->contents != ElemSubtract || !isMeasure(root->sonLeft) ||
            !isMeasure(root->sonRight))
            return;
        QStringList differing;
        for (int size = 0; size < sizeCount(mDocument); ++size) {
            const double difference =
                const_cast<TreeEquations *>(formula)->evaluate(static_cast<short>(size));
            if (!(std::abs(difference) <= mTolerance)) {
                differing << QStringLiteral("%1 by %2")
                                 .arg(mDocument.sizeName(static_cast<short>(size + 1)),
                                      mStyle.showDifference(difference));
            }
        }
        if (!differing.isEmpty())
            find(QStringLiteral("seam"),
                 QStringLiteral("%1 = %2 differs in size %3")
                     .arg(element.path(), formula->toString(), differing.join(QStringLiteral(", "))));
    }

    // Values that wait for each other, and the way round.
    void lintOrder(FrameSet *set)
    {
        OrderEvaluation order;
        FrameSegment *culprit = nullptr;
        if (!order.calculateOrder(set, culprit) && culprit) {
            find(QStringLiteral("order"), QStringLiteral("segment '%1' moves what its own formula depends on")
                                              .arg(culprit->fullName()));
        }
        QListEx<Evaluation> ordered;
        for (const QListEx<Evaluation> *round : order.rounds()) {
            for (const Evaluation &evaluation : *round)
                ordered.append(evaluation);
        }
        for (const Element &element : elementsOf(mDocument)) {
            if (element.set != set)
                continue;
            for (const eEvaluationType type : {Evaluation_Measure, Evaluation_Level}) {
                const Evaluation evaluation{element.element, type};
                const bool isOrdered = element.place.kind == Element_Frame ||
                                       element.place.kind == Element_Link ||
                                       (element.place.kind == Element_Segment && type == Evaluation_Measure);
                if (isOrdered && !ordered.contains(evaluation))
                    lintDeadlock(evaluation);
            }
        }
    }

    void lintDeadlock(const Evaluation &evaluation)
    {
        QListEx<Evaluation> path;
        if (mInCycles.contains(evaluation))
            return;
        if (findCycle(evaluation, path)) {
            QStringList names;
            for (const Evaluation &step : path) {
                names << evaluationName(step);
                mInCycles.append(step);
            }
            names << names.first();
            find(QStringLiteral("cycle"), names.join(QStringLiteral(" <- ")));
        } else {
            find(QStringLiteral("deadlock"),
                 QStringLiteral("%1 waits for values that wait for it").arg(evaluationName(evaluation)));
        }
    }

    static QListEx<Evaluation> sourcesOf(const Evaluation &evaluation)
    {
        QListEx<Evaluation> sources;
        if (!evaluation.mElement)
            return sources;
        if (evaluation.mType == Evaluation_Measure)
            evaluation.mElement->addEvaluationUsedInMeasurement(sources);
        else
            evaluation.mElement->addEvaluationUsedInLevel(sources);
        return sources;
    }

    // Depth first from start; path is the circle when one leads back to start. Walks with a stack of its own.
    static bool findCycle(const Evaluation &start, QListEx<Evaluation> &path)
    {
        struct Step {
            QListEx<Evaluation> sources;
            int next = 0;
        };
        std::vector<Step> steps{{sourcesOf(start), 0}};
        QListEx<Evaluation> done;
        path.append(start);
        while (!steps.empty()) {
            Step &step = steps.back();
            if (step.next == step.sources.size()) {
                steps.pop_back();
                path.removeLast();
                continue;
            }
            const Evaluation source = step.sources.at(step.next++);
            if (source == start)
                return true;
            if (done.contains(source))
                continue;
            done.append(source);
            path.append(source);
            steps.push_back({sourcesOf(source), 0});
        }
        return false;
    }

    void lintLost()
    {
        if (!mDocument.lostSets().isEmpty())
            find(QStringLiteral("lost set"),
                 QStringLiteral("%1 of which a name does not resolve").arg(mDocument.lostSets().size()));
        for (const CDbGroupObject *piece : mDocument.pieces()) {
            for (const GabaritObject *g = piece->firstGabarit(); g; g = g->mNextGabarit) {
                if (!mDocument.lostSkeleton(g).isUndefined())
                    find(QStringLiteral("lost skeleton"), piece->name());
            }
        }
    }

    // Tried on a copy: is every value what its formula and its piece say?
    void lintRest()
    {
        const DocumentPtr copy = copyOf(mDocument);
        const Rehearsal rehearsal(mStyle.unit);
        const Snapshot before = snapshotOf(*copy);
        copy->framesManager()->reevaluateFrameSets(Reevaluate_Apply);
        const Difference difference = differenceOf(before, snapshotOf(*copy));
        for (const MovedElement &moved : difference.elements) {
            find(QStringLiteral("out of line"),
                 QStringLiteral("%1: its %2 would change by up to %3")
                     .arg(moved.path, moved.isLevel ? QStringLiteral("level") : QStringLiteral("measure"),
                          mStyle.show(largestOf(minus(moved.after, moved.before)))));
        }
        for (const LostFormula &lost : difference.lostFormulas)
            find(QStringLiteral("formula that cannot be kept"), lost.shown());
    }

    PatternDocument &mDocument;
    double mTolerance;
    const LengthStyle &mStyle;
    QStringList mFindings;
    QListEx<Evaluation> mInCycles;
};

} // namespace

int check(const CheckOptions &options)
{
    const DocumentPtr document = openDocument(options.document);
    const double tolerance = options.tolerance.isEmpty()
                                 ? 0.05 // cm: half a millimetre is sewn without notice
                                 : lengthOf(options.tolerance, options.style, QStringLiteral("--tolerance"));
    const QStringList findings = Linter(*document, tolerance, options.style).findings();
    for (const QString &finding : findings)
        options.console->print(finding + QLatin1Char('\n'));
    if (findings.isEmpty())
        options.console->print(QStringLiteral("Nothing found.\n"));
    return findings.isEmpty() ? Exit_Done : Exit_NotObeyed;
}

} // namespace room
