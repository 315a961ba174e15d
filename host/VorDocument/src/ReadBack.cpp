#include "ReadBack.h"

#include "FormulaPlaces.h"

#include <VorConjoin/CDbGroupObject.h>
#include <VorConjoin/GabaritObject.h>
#include <VorDocument/PatternDocument.h>
#include <VorJson/VorJson.h>

#include <QHash>
#include <QJsonArray>
#include <QJsonObject>

#include <cmath>
#include <utility>
#include <vector>

namespace VorSystem
{

namespace
{

constexpr int kNestedContainers = 1024; // what Qt's parser takes
constexpr int kAroundFormula = 7;       // document, manager, sets, set, records, record, formula
constexpr int kDeepestFormula = kNestedContainers - kAroundFormula;

QString described(BaseFrame *element, const FrameSet &set)
{
    return QStringLiteral("\"%1\" in the set \"%2\"").arg(element->fullName(), set.name());
}

// Before writing
// ------------------------------------------------------------------------------------------------------

QString whatIsWrongWith(const TreeEquations &formula)
{
    std::vector<std::pair<const ElementEquation *, int>> rest{{formula.root, 1}};
    while (!rest.empty()) {
        const auto [node, depth] = rest.back();
        rest.pop_back();
        if (node == nullptr)
            return QStringLiteral("has a part missing");
        if (depth > kDeepestFormula)
            return QStringLiteral("is nested more than %1 deep").arg(kDeepestFormula);
        if (node->contents == ElemValue && !std::isfinite(node->value))
            return QStringLiteral("holds a constant that is not a finite number");
        if ((node->contents == ElemMeasure || node->contents == ElemLevel) && node->element == nullptr)
            return QStringLiteral("names an element that is not there");
        if (node->contents >= ElemParenthesis && node->contents <= ElemDivide)
            rest.emplace_back(node->sonLeft, depth + 1);
        if (node->contents >= ElemAdd && node->contents <= ElemDivide)
            rest.emplace_back(node->sonRight, depth + 1);
    }
    return QString();
}

// The path of the first number that has no form in JSON; empty for none.
QString notFinite(const QJsonValue &value, const QString &path)
{
    if (value.isDouble())
        return std::isfinite(value.toDouble()) ? QString() : path;
    QString found;
    const QJsonArray items = value.toArray();
    for (int index = 0; index < items.size() && found.isEmpty(); ++index)
        found = notFinite(items.at(index), path + QStringLiteral("[%1]").arg(index));
    const QJsonObject object = value.toObject();
    for (auto member = object.begin(); member != object.end() && found.isEmpty(); ++member)
        found =
            notFinite(member.value(), path.isEmpty() ? member.key() : path + QLatin1Char('.') + member.key());
    return found;
}

QString whatIsWrongWith(BaseFrame *element, const FrameSet &set)
{
    if (element->elementType() == Element_Frame &&
        static_cast<FrameFrame *>(element)->getFrameCenter() == nullptr)
        return QStringLiteral("The frame %1 stands on no center.").arg(described(element, set));
    const QString number = notFinite(element->toJson().toJsonObject(), QString());
    if (!number.isEmpty())
        return QStringLiteral("In %1, %2 is not a finite number.").arg(described(element, set), number);
    for (const FormulaPlace &place : kFormulaPlaces) {
        const TreeEquations *const formula = (element->*place.formula)();
        const QString fault = formula != nullptr ? whatIsWrongWith(*formula) : QString();
        if (!fault.isEmpty())
            return QStringLiteral("The %1 of %2 %3.")
                .arg(QLatin1String(place.words), described(element, set), fault);
    }
    return QString();
}

bool isOfASet(const FrameFrame &frame)
{
    return frame.getFrameCenter() != nullptr && frame.getFrameCenter()->getFrameSet() != nullptr;
}

bool isOfASet(const BaseFrame &element)
{
    return element.getFrameSet() != nullptr;
}

QString whatIsWrongWith(const ControlSkeleton &skeleton, const QString &piece)
{
    const auto stray = [&](const auto *element) {
        return element == nullptr || isOfASet(*element)
                   ? QString()
                   : QStringLiteral("The skeleton of \"%1\" is tied to \"%2\", which belongs to no set.")
                         .arg(piece, element->name());
    };
    QString fault;
    if (const ControlCenter *const center = skeleton.getFrameCenter())
        fault = stray(center->Get_Frame_Centre());
    for (const ControlFrame *const frame : skeleton.getFrameLists())
        fault = fault.isEmpty() ? stray(frame->getFrameFrame()) : fault;
    for (const ControlSegment *const segment : skeleton.getSegmentLists())
        fault = fault.isEmpty() ? stray(segment->getFrameSegment()) : fault;
    return fault;
}

// After reading back
// ------------------------------------------------------------------------------------------------------

// The place of each element in its document: number of the set, and number in its walk.
using Places = QHash<const BaseFrame *, std::pair<int, int>>;

Places placesIn(const PatternDocument &document)
{
    Places places;
    int set = 0;
    for (const FrameSet *const frameSet : document.framesManager()->getFrameSets()) {
        int number = 0;
        forEachElement(*frameSet, [&](BaseFrame *element) { places[element] = {set, number++}; });
        ++set;
    }
    return places;
}

class Comparison
{
public:
    Comparison(const PatternDocument &document, const PatternDocument &readBack, QStringList &told)
        : mBefore(placesIn(document)), mAfter(placesIn(readBack)), mTold(told)
    {
    }

    void compareFormulas(const FrameSet &before, const FrameSet &after)
    {
        std::vector<BaseFrame *> read;
        forEachElement(after, [&](BaseFrame *element) { read.push_back(element); });
        std::size_t number = 0;
        forEachElement(before, [&](BaseFrame *element) {
            BaseFrame *const again = number < read.size() ? read[number] : nullptr;
            ++number;
            if (again != nullptr)
                compareFormulas(element, again, before);
        });
        for (FrameMeasurementChart *chart : before.getFrameMeasurementCharts()) {
            if (chart->formulaMeasurementChart() != nullptr)
                mTold << QStringLiteral("The formula of the chart %1 is not stored.")
                             .arg(described(chart, before));
        }
    }

    void compareTies(const ControlSkeleton &before, const ControlSkeleton &after, const QString &piece)
    {
        mPiece = piece;
        const ControlCenter *const axis = before.getFrameCenter();
        const ControlCenter *const again = after.getFrameCenter();
        if (axis != nullptr && again != nullptr)
            compareElements(axis->Get_Frame_Centre(), again->Get_Frame_Centre(), "center");
        compareLists(
            before.getFrameLists(), after.getFrameLists(), "frame",
            [](const ControlFrame *frame) { return frame->getFrameFrame(); },
            [](const ControlFrame *frame) {
                return frame->getVectorContour1() != nullptr || frame->getVectorContour2() != nullptr;
            });
        compareLists(
            before.getSegmentLists(), after.getSegmentLists(), "segment",
            [](const ControlSegment *segment) { return segment->getFrameSegment(); },
            [](const ControlSegment *segment) {
                return segment->getVectorContour1() != nullptr && segment->getVectorContour2() != nullptr;
            });
    }

    QString firstLostTie() const { return mLostTie; }

private:
    static QJsonObject formOf(const TreeEquations *formula)
    {
        return formula != nullptr ? formula->toJson().toJsonObject() : QJsonObject();
    }

    void compareFormulas(BaseFrame *before, BaseFrame *after, const FrameSet &set)
    {
        for (const FormulaPlace &place : kFormulaPlaces) {
            if (formOf((before->*place.formula)()) == formOf((after->*place.formula)()))
                continue;
            mTold << QStringLiteral("The %1 of %2 is not read back as it is: in a text formulas go by bare "
                                    "names, and another element bears the name \"%3\".")
                         .arg(QLatin1String(place.words), described(before, set), before->name());
        }
    }

    template<class Control, class ElementOf, class HasVectors>
    void compareLists(const QListEx<Control *> &before, const QListEx<Control *> &after, const char *kind,
                      ElementOf elementOf, HasVectors hasVectors)
    {
        int number = 0;
        for (const Control *const control : before) {
            const BaseFrame *const element = elementOf(control);
            if (!hasVectors(control))
                mTold << QStringLiteral("The %1 \"%2\" of \"%3\" is not stored: a vector is missing.")
                             .arg(QLatin1String(kind), element != nullptr ? element->name() : QString(),
                                  mPiece);
            else if (number < after.size())
                compareElements(element, elementOf(after.at(number++)), kind);
        }
    }

    void compareElements(const BaseFrame *before, const BaseFrame *after, const char *kind)
    {
        const bool isTied = before != nullptr;
        if (!mLostTie.isEmpty() ||
            (isTied == (after != nullptr) &&
             (!isTied || mBefore.value(before, {-1, 0}) == mAfter.value(after, {-2, 0}))))
            return;
        mLostTie = QStringLiteral("The %1 \"%2\" of \"%3\" would not find its element again: the names of "
                                  "sets and elements do not tell it from others.")
                       .arg(QLatin1String(kind), isTied ? before->name() : QString(), mPiece);
    }

    Places mBefore;
    Places mAfter;
    QString mPiece;
    QString mLostTie;
    QStringList &mTold;
};

} // namespace

QString whatHasNoForm(const PatternDocument &document)
{
    QString fault;
    for (const FrameSet *const set : document.framesManager()->getFrameSets()) {
        forEachElement(*set, [&](BaseFrame *element) {
            if (fault.isEmpty())
                fault = whatIsWrongWith(element, *set);
        });
    }
    for (const CDbGroupObject *piece : document.pieces()) {
        for (GabaritObject *gabarit = piece->firstGabarit(); gabarit; gabarit = gabarit->mNextGabarit) {
            if (fault.isEmpty() && gabarit->controlSkeleton() != nullptr)
                fault = whatIsWrongWith(*gabarit->controlSkeleton(), piece->name());
        }
    }
    return fault;
}

QString whatChanged(const PatternDocument &document, const PatternDocument &readBack, QStringList &told)
{
    Comparison comparison(document, readBack, told);
    const QListEx<FrameSet *> sets = document.framesManager()->getFrameSets();
    const QListEx<FrameSet *> read = readBack.framesManager()->getFrameSets();
    for (int number = 0; number < sets.size() && number < read.size(); ++number)
        comparison.compareFormulas(*sets.at(number), *read.at(number));

    for (std::size_t number = 0; number < document.pieces().size(); ++number) {
        const CDbGroupObject *const piece = document.pieces()[number];
        GabaritObject *again = readBack.pieces()[number]->firstGabarit();
        for (GabaritObject *gabarit = piece->firstGabarit(); gabarit; gabarit = gabarit->mNextGabarit) {
            if (gabarit->controlSkeleton() && again->controlSkeleton())
                comparison.compareTies(*gabarit->controlSkeleton(), *again->controlSkeleton(), piece->name());
            again = again->mNextGabarit;
        }
    }
    return comparison.firstLostTie();
}

} // namespace VorSystem
