// A document without pieces, elements that say who moves whom, and the sorting into rounds as it is told.
#pragma once

#include <VorFrames/VorFrames.h>

#include <QHash>
#include <QSet>
#include <QString>
#include <QStringList>

#include <functional>
#include <initializer_list>
#include <memory>

namespace VorSystem
{

// Nothing but a gradation and a manager.
class BareDocument : public Document
{
public:
    const GradationData *gradationData() const override { return gradation; }
    GestFrames *framesManager() const override { return manager; }
    const t_Plan *plan() const override { return nullptr; }

    const GradationData *gradation = nullptr;
    GestFrames *manager = nullptr;
};

// What a test wants to know of, and to have done by, the elements that stand in for real ones.
struct Script {
    QHash<BaseFrame *, QSet<BaseFrame *>> moves;               // who moves whom
    QStringList calls;                                         // "name.1 mode 0", in order
    std::function<void(BaseFrame *, eEvaluationType)> onApply; // instead of a contour
    bool onlyRecords = false; // calls are recorded and nothing is evaluated; every third answers true

    bool record(const BaseFrame &element, eEvaluationType type, eFrameReevaluate mode);
};

// A frame without a piece: whom it moves and what a piece would show is said by the test.
class ScriptedFrame : public FrameFrame
{
public:
    ScriptedFrame(const QString &frameName, Script *script) : FrameFrame(frameName), mScript(script) {}
    bool influenceGeometrically(BaseFrame *other) override;
    bool reevaluateElement(eEvaluationType type, eFrameReevaluate mode) override;
    bool applyMeasures(ValuesAccordingSizes &values, const GradationData *gradation,
                       eModifyLevelActionType action) override;
    bool evaluateMeasuresObject(const GradationData *gradation, QListEx<double> &values) override;
    bool evaluateMeasurementObject(short size, double &value) override;

    QListEx<double> shown; // what the piece would show; empty for an undefined frame
    int applied = 0;

private:
    Script *mScript;
};

class ScriptedLink : public FrameLink
{
public:
    ScriptedLink(const QString &linkName, Script *script) : FrameLink(linkName), mScript(script) {}
    bool reevaluateElement(eEvaluationType type, eFrameReevaluate mode) override;

private:
    Script *mScript;
};

class ScriptedSegment : public FrameSegment
{
public:
    ScriptedSegment(const QString &segmentName, Script *script) : FrameSegment(segmentName), mScript(script)
    {
    }
    bool influenceGeometrically(BaseFrame *other) override;
    bool reevaluateElement(eEvaluationType type, eFrameReevaluate mode) override;

private:
    Script *mScript;
};

// One set, one center; elements by name.
class OrderWorld
{
public:
    OrderWorld();

    FrameFrame *frame(const char *name);
    FrameLink *link(const char *name, std::initializer_list<FrameFrame *> frames = {});
    FrameSegment *segment(const char *name);
    FrameMeasurementChart *chart(const char *name);
    FrameSpec *spec(const char *name);

    ScriptedFrame *scriptedFrame(const char *name);
    ScriptedLink *scriptedLink(const char *name, std::initializer_list<FrameFrame *> frames = {});
    ScriptedSegment *scriptedSegment(const char *name);

    void setGradation(short sizes, short nestNumber);

    FrameSet *set() const { return mSet; }
    FrameCenter *center() const { return mCenter; }
    GestFrames &manager() { return mManager; }
    BareDocument &document() { return mDocument; }

    Script script;

private:
    GradationData mGradation;
    BareDocument mDocument;
    GestFrames mManager;
    FrameSet *mSet;
    FrameCenter *mCenter;
};

Evaluation measureOf(BaseFrame *element);
Evaluation levelOf(BaseFrame *element);
// The sum of the references, without a root for none; a null element stands for a name that was not known.
TreeEquations *sumOf(const QList<Evaluation> &references);
TreeEquations *constant(double value);

// "A.m A.l | B.m", rounds apart by bars; "(none)" for an empty one.
QString str(const QListEx<QListEx<Evaluation> *> &rounds);
QString str(const QList<QList<Evaluation>> &rounds);
QString str(const QListEx<Evaluation> &evaluations);
// "10 [12] 14", the nest in brackets.
QString str(const ValuesAccordingSizes &values);

QListEx<double> doubles(std::initializer_list<double> values);

// The rounds as one would tell them: every record is looked at in every round, every dependency is asked of
// everybody. Slow, and independent of how the library goes about it.
struct LiteralOrder {
    explicit LiteralOrder(FrameSet *set);

    QList<QList<Evaluation>> rounds;
    bool answer = true;
    FrameSegment *culprit = nullptr;
};

// What the evaluation is computed from, asked of everybody.
QListEx<Evaluation> literalDependencies(const Evaluation &evaluation);
// The walk over what depends on start, over rounds that stand already.
bool literalReevaluateUnder(const QList<QList<Evaluation>> &rounds, BaseFrame *start, bool measure,
                            bool level, eFrameReevaluate mode);

} // namespace VorSystem
