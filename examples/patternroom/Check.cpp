// What is wrong with a document, as far as can be told without moving anything.
#include "Circles.h"
#include "Commands.h"
#include "FormulaText.h"
#include "Snapshot.h"

#include <algorithm>
#include <cmath>

namespace room
{

using namespace VorSystem;

namespace
{

constexpr double kSame = 1e-4; // cm: what moves leave over, and no table shows

class Linter
{
public:
    Linter(PatternDocument &document, double tolerance, const LengthStyle &style)
        : mDocument(document), mTolerance(tolerance), mStyle(style)
    {
    }

    QStringList findings()
    {
        const std::vector<Element> elements = elementsOf(mDocument);
        for (const Element &element : elements) {
            lintNames(element.path(), valueFormula(element.element));
            lintNames(element.path() + QStringLiteral(" (level)"), element.element->formulaLevel());
        }
        if (!mFindings.isEmpty()) {
            find(QStringLiteral("not looked at"),
                 QStringLiteral("units, order and values, until the names are put right"));
            return mFindings;
        }
        for (const Element &element : elements) {
            lintUnits(element.path(), valueFormula(element.element));
            lintUnits(element.path() + QStringLiteral(" (level)"), element.element->formulaLevel());
            if (element.place.kind == Element_Spec)
                lintSeam(element);
        }
        const QListEx<FrameSet *> sets = mDocument.framesManager()->getFrameSets();
        for (FrameSet *set : sets)
            lintOrder(set);
        try {
            lintRest();
        } catch (const Refusal &refusal) {
            find(QStringLiteral("cannot be stored"), refusal.sentence());
        }
        return mFindings;
    }

private:
    void find(const QString &what, const QString &text) { mFindings << what + QLatin1String(": ") + text; }

    void lintNames(const QString &holder, const TreeEquations *formula)
    {
        if (!formula)
            return;
        for (const QString &name : vainNames(*formula))
            find(QStringLiteral("bare name"),
                 QStringLiteral("%1 names '%2' without Measure or Level").arg(holder, name));
    }

    void lintUnits(const QString &holder, TreeEquations *formula)
    {
        if (formula && !formula->verifierImplicitUnits())
            find(QStringLiteral("units"),
                 QStringLiteral("%1 = %2 mixes lengths and plain numbers").arg(holder, formula->toString()));
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
        const LengthStyle inDecimals{mStyle.unit, false}; // a sixteenth of an inch is wide for a seam
        for (int size = 0; size < sizeCount(mDocument); ++size) {
            const double difference =
                const_cast<TreeEquations *>(formula)->evaluate(static_cast<short>(size));
            if (!(std::abs(difference) <= std::max(mTolerance, kSame))) {
                differing << QStringLiteral("%1 by %2")
                                 .arg(mDocument.sizeName(static_cast<short>(size + 1)),
                                      inDecimals.showDifference(difference));
            }
        }
        if (!differing.isEmpty())
            find(QStringLiteral("seam"),
                 QStringLiteral("%1 = %2 differs in size %3")
                     .arg(element.path(), formula->toString(), differing.join(QStringLiteral(", "))));
    }

    void lintOrder(FrameSet *set)
    {
        const Disorder disorder = disorderOf(mDocument, set);
        if (!disorder.culprit.isEmpty())
            find(QStringLiteral("order"),
                 QStringLiteral("segment '%1' moves what its own formula depends on").arg(disorder.culprit));
        for (const QString &circle : disorder.circles)
            find(QStringLiteral("circle"), circle);
        for (const QString &deadlock : disorder.deadlocks)
            find(QStringLiteral("deadlock"), deadlock);
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
                 QStringLiteral("%1: its %2 would change by up to %3 %4")
                     .arg(moved.path, moved.isLevel ? QStringLiteral("level") : QStringLiteral("measure"),
                          mStyle.show(largestOf(minus(moved.after, moved.before))), mStyle.sign()));
        }
        for (const LostFormula &lost : difference.lostFormulas)
            find(QStringLiteral("formula that cannot be kept"), lost.shown());
    }

    PatternDocument &mDocument;
    double mTolerance;
    const LengthStyle &mStyle;
    QStringList mFindings;
};

} // namespace

int check(const CheckOptions &options)
{
    const double tolerance = options.tolerance.isEmpty()
                                 ? 0.05 // cm: half a millimetre is sewn without notice
                                 : toleranceOf(options.tolerance, options.style);
    QStringList lost;
    const DocumentPtr document = openDocument(options.document, &lost);
    QStringList findings;
    for (const QString &sentence : qAsConst(lost))
        findings << QStringLiteral("lost: ") + sentence;
    findings << Linter(*document, tolerance, options.style).findings();
    for (const QString &finding : findings)
        options.console->print(finding + QLatin1Char('\n'));
    if (findings.isEmpty())
        options.console->print(QStringLiteral("Nothing found.\n"));
    return findings.isEmpty() ? Exit_Done : Exit_NotObeyed;
}

} // namespace room
