// A document without pieces, elements that say who moves whom, and the sorting into rounds as it is told.

#include "OrderWorld.h"

namespace VorSystem
{

namespace
{

QString text(const char *name)
{
    return QString::fromUtf8(name);
}

QString str(const Evaluation &evaluation)
{
    const QString name = evaluation.mElement == nullptr ? QStringLiteral("?") : evaluation.mElement->name();
    return name + (evaluation.mType == Evaluation_Measure ? QStringLiteral(".m") : QStringLiteral(".l"));
}

template<class Round>
QString roundText(const Round &round)
{
    QStringList words;
    for (const Evaluation &evaluation : round)
        words << str(evaluation);
    return words.isEmpty() ? QStringLiteral("(none)") : words.join(QLatin1Char(' '));
}

template<class List>
void appendOnce(List &list, const Evaluation &evaluation)
{
    if (!list.contains(evaluation))
        list.append(evaluation);
}

} // namespace

bool Script::record(const BaseFrame &element, eEvaluationType type, eFrameReevaluate mode)
{
    calls << QStringLiteral("%1.%2 mode %3").arg(element.name()).arg(int(type)).arg(int(mode));
    return calls.size() % 3 == 0;
}

bool ScriptedFrame::influenceGeometrically(BaseFrame *other)
{
    return mScript->moves.value(this).contains(other);
}

bool ScriptedFrame::reevaluateElement(eEvaluationType type, eFrameReevaluate mode)
{
    const bool answer = mScript->record(*this, type, mode);
    return mScript->onlyRecords ? answer : FrameFrame::reevaluateElement(type, mode);
}

bool ScriptedFrame::applyMeasures(ValuesAccordingSizes &values, const GradationData *gradation,
                                  eModifyLevelActionType action)
{
    ++applied;
    if (mScript->onApply) {
        mScript->onApply(this, Evaluation_Measure);
        return false;
    }
    return FrameFrame::applyMeasures(values, gradation, action);
}

bool ScriptedFrame::evaluateMeasuresObject(const GradationData *gradation, QListEx<double> &values)
{
    Q_UNUSED(gradation)
    if (shown.isEmpty())
        return false;
    values = shown;
    return true;
}

bool ScriptedFrame::evaluateMeasurementObject(short size, double &value)
{
    Q_UNUSED(size)
    if (shown.isEmpty())
        return false;
    value = shown.at(0);
    return true;
}

bool ScriptedLink::reevaluateElement(eEvaluationType type, eFrameReevaluate mode)
{
    const bool answer = mScript->record(*this, type, mode);
    return mScript->onlyRecords ? answer : FrameLink::reevaluateElement(type, mode);
}

bool ScriptedSegment::influenceGeometrically(BaseFrame *other)
{
    return mScript->moves.value(this).contains(other);
}

bool ScriptedSegment::reevaluateElement(eEvaluationType type, eFrameReevaluate mode)
{
    const bool answer = mScript->record(*this, type, mode);
    return mScript->onlyRecords ? answer : FrameSegment::reevaluateElement(type, mode);
}

OrderWorld::OrderWorld()
{
    mDocument.manager = &mManager;
    mDocument.gradation = &mGradation;
    mManager.setDocument(&mDocument);
    mSet = new FrameSet(QStringLiteral("Set"), &mManager);
    mManager.addFrameSet(mSet, -1);
    mCenter = mSet->newCenter(QStringLiteral("Center"));
}

FrameFrame *OrderWorld::frame(const char *name)
{
    return mSet->newFrame(text(name), mCenter);
}

FrameLink *OrderWorld::link(const char *name, std::initializer_list<FrameFrame *> frames)
{
    FrameLink *const made = mSet->newLink(text(name));
    for (FrameFrame *frame : frames)
        made->linkFrame(frame);
    return made;
}

FrameSegment *OrderWorld::segment(const char *name)
{
    return mSet->newSegment(text(name));
}

FrameMeasurementChart *OrderWorld::chart(const char *name)
{
    return mSet->newMeasurementChart(text(name));
}

FrameSpec *OrderWorld::spec(const char *name)
{
    return mSet->newSpec(text(name));
}

ScriptedFrame *OrderWorld::scriptedFrame(const char *name)
{
    auto *const made = new ScriptedFrame(text(name), &script);
    made->addFrameCenter(mCenter, -1);
    mSet->addFrame(made, -1);
    return made;
}

ScriptedLink *OrderWorld::scriptedLink(const char *name, std::initializer_list<FrameFrame *> frames)
{
    auto *const made = new ScriptedLink(text(name), &script);
    mSet->addLink(made, -1);
    for (FrameFrame *frame : frames)
        made->linkFrame(frame);
    return made;
}

ScriptedSegment *OrderWorld::scriptedSegment(const char *name)
{
    auto *const made = new ScriptedSegment(text(name), &script);
    mSet->addSegment(made, -1);
    return made;
}

void OrderWorld::setGradation(short sizes, short nestNumber)
{
    mGradation = GradationData(sizes, nestNumber);
}

Evaluation measureOf(BaseFrame *element)
{
    return {element, Evaluation_Measure};
}

Evaluation levelOf(BaseFrame *element)
{
    return {element, Evaluation_Level};
}

TreeEquations *sumOf(const QList<Evaluation> &references)
{
    ElementEquation *sum = nullptr;
    for (const Evaluation &reference : references) {
        auto *const node = new ElementEquation(
            reference.mType == Evaluation_Measure ? ElemMeasure : ElemLevel, 0.0, reference.mElement);
        if (sum == nullptr) {
            sum = node;
            continue;
        }
        auto *const both = new ElementEquation(ElemAdd, 0.0, nullptr);
        both->sonLeft = sum;
        both->sonRight = node;
        sum = both;
    }
    auto *const formula = new TreeEquations;
    delete formula->root;
    formula->root = sum;
    return formula;
}

TreeEquations *constant(double value)
{
    auto *const formula = new TreeEquations;
    delete formula->root;
    formula->root = new ElementEquation(ElemValue, value, nullptr);
    return formula;
}

QString str(const QListEx<QListEx<Evaluation> *> &rounds)
{
    QStringList words;
    for (const QListEx<Evaluation> *round : rounds)
        words << roundText(*round);
    return words.join(QStringLiteral(" | "));
}

QString str(const QList<QList<Evaluation>> &rounds)
{
    QStringList words;
    for (const QList<Evaluation> &round : rounds)
        words << roundText(round);
    return words.join(QStringLiteral(" | "));
}

QString str(const QListEx<Evaluation> &evaluations)
{
    return roundText(evaluations);
}

QString str(const ValuesAccordingSizes &values)
{
    QStringList words;
    for (int i = 0; i < values.mValues.size(); ++i) {
        const QString word = QString::number(values.mValues.at(i));
        words << (i == values.mNestIndex ? QStringLiteral("[%1]").arg(word) : word);
    }
    return words.join(QLatin1Char(' '));
}

QListEx<double> doubles(std::initializer_list<double> values)
{
    return QListEx<double>(values);
}

QListEx<Evaluation> literalDependencies(const Evaluation &evaluation)
{
    BaseFrame *const element = evaluation.mElement;
    QListEx<Evaluation> found;
    if (evaluation.mType == Evaluation_Measure)
        element->addEvaluationUsedInMeasurement(found);
    else
        element->addEvaluationUsedInLevel(found);

    FrameSet *const set = element->getFrameSet();
    const QListEx<FrameFrame *> frames = set->getFrames();
    for (FrameFrame *frame : frames) {
        if (!frame->influenceGeometrically(element))
            continue;
        appendOnce(found, measureOf(frame));
        appendOnce(found, levelOf(frame));
    }
    const QListEx<FrameSegment *> segments = set->getFrameSegments();
    for (FrameSegment *segment : segments) {
        if (segment->influenceGeometrically(element))
            appendOnce(found, measureOf(segment));
    }
    return found;
}

namespace
{

struct LiteralRecord {
    Evaluation evaluation;
    std::shared_ptr<QListEx<Evaluation>> dependencies;
};

bool isPending(const QList<LiteralRecord> &pending, const Evaluation &evaluation)
{
    for (const LiteralRecord &record : pending) {
        if (record.evaluation == evaluation)
            return true;
    }
    return false;
}

bool isBlocked(const LiteralRecord &record, const QList<LiteralRecord> &pending,
               const QList<Evaluation> &round)
{
    for (const Evaluation &dependency : *record.dependencies) {
        auto *const link = dynamic_cast<FrameLink *>(dependency.mElement);
        if (link == nullptr) {
            if (isPending(pending, dependency))
                return true;
            continue;
        }
        const QListEx<FrameFrame *> frames = link->getFrames();
        for (FrameFrame *frame : frames) {
            const Evaluation ofFrame{frame, dependency.mType};
            if (isPending(pending, ofFrame) && round.contains(ofFrame))
                return true;
        }
    }
    return false;
}

FrameSegment *literalCulprit(FrameSet *set, const QList<LiteralRecord> &pending)
{
    for (const LiteralRecord &record : pending) {
        auto *const segment = dynamic_cast<FrameSegment *>(record.evaluation.mElement);
        if (segment == nullptr || segment->measurementFormula() == nullptr)
            continue;
        const QListEx<FrameFrame *> frames = set->getFrames();
        for (FrameFrame *frame : frames) {
            if (segment->influenceGeometrically(frame) &&
                (isPending(pending, measureOf(frame)) || isPending(pending, levelOf(frame))))
                return segment;
        }
        const QListEx<FrameLink *> links = set->getFrameLinks();
        for (FrameLink *link : links) {
            if (segment->influenceGeometrically(link) &&
                (isPending(pending, measureOf(link)) || isPending(pending, levelOf(link))))
                return segment;
        }
        const QListEx<FrameSegment *> segments = set->getFrameSegments();
        for (FrameSegment *other : segments) {
            if (segment->influenceGeometrically(other) && isPending(pending, measureOf(other)))
                return segment;
        }
    }
    return nullptr;
}

} // namespace

LiteralOrder::LiteralOrder(FrameSet *set)
{
    QList<LiteralRecord> pending;
    const QListEx<FrameFrame *> frames = set->getFrames();
    for (FrameFrame *frame : frames)
        pending << LiteralRecord{measureOf(frame), nullptr} << LiteralRecord{levelOf(frame), nullptr};
    const QListEx<FrameLink *> links = set->getFrameLinks();
    for (FrameLink *link : links)
        pending << LiteralRecord{measureOf(link), nullptr} << LiteralRecord{levelOf(link), nullptr};
    const QListEx<FrameSegment *> segments = set->getFrameSegments();
    for (FrameSegment *segment : segments)
        pending << LiteralRecord{measureOf(segment), nullptr};
    const QListEx<FrameMeasurementChart *> charts = set->getFrameMeasurementCharts();
    for (FrameMeasurementChart *chart : charts)
        pending << LiteralRecord{measureOf(chart), nullptr} << LiteralRecord{levelOf(chart), nullptr};

    while (!pending.isEmpty()) {
        rounds.append(QList<Evaluation>());
        QList<int> placed;
        for (int i = 0; i < pending.size(); ++i) {
            LiteralRecord &record = pending[i];
            if (record.dependencies == nullptr)
                record.dependencies =
                    std::make_shared<QListEx<Evaluation>>(literalDependencies(record.evaluation));
            if (isBlocked(record, pending, rounds.last()))
                continue;
            rounds.last().append(record.evaluation);
            placed.append(i);
        }
        while (!placed.isEmpty())
            pending.removeAt(placed.takeLast());
        if (!pending.isEmpty() && rounds.last().isEmpty()) {
            culprit = literalCulprit(set, pending);
            answer = culprit == nullptr;
            return;
        }
    }
}

bool literalReevaluateUnder(const QList<QList<Evaluation>> &rounds, BaseFrame *start, bool measure,
                            bool level, eFrameReevaluate mode)
{
    if (!measure && !level)
        return false;
    QList<Evaluation> changed;
    if (measure)
        changed << measureOf(start);
    if (level)
        changed << levelOf(start);
    bool answer = false;
    for (const QList<Evaluation> &round : rounds) {
        for (const Evaluation &evaluation : round) {
            const QListEx<Evaluation> dependencies = literalDependencies(evaluation);
            bool dependsOnChange = false;
            for (const Evaluation &dependency : dependencies)
                dependsOnChange = dependsOnChange || changed.contains(dependency);
            if (!dependsOnChange)
                continue;
            if (evaluation.mElement->reevaluateElement(evaluation.mType, mode))
                answer = true;
            changed << evaluation;
        }
    }
    return answer;
}

} // namespace VorSystem
