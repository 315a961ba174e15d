// Two documents without pieces, between which sets are copied and merged, and sets as text.

#include <gtest/gtest.h>

#include "TransferWorld.h"

#include <QHash>

namespace transfers
{

using namespace VorSystem;
using support::formula;
using support::name;
using support::sizes;

namespace
{

// Where each element of a set stands, as text.
class Places
{
public:
    explicit Places(const FrameSet &set)
    {
        enter("center", set.getFrameCenters());
        enter("frame", set.getFrames());
        enter("segment", set.getFrameSegments());
        enter("link", set.getFrameLinks());
        enter("spec", set.getFrameSpecs());
        enter("chart", set.getFrameMeasurementCharts());
    }
    QString of(const BaseFrame *element) const
    {
        return element == nullptr ? QStringLiteral("null")
                                  : mPlaces.value(element, QStringLiteral("outside"));
    }
    bool contains(const BaseFrame *element) const { return mPlaces.contains(element); }

private:
    template<class Element>
    void enter(const char *kind, const QListEx<Element *> &elements)
    {
        for (int i = 0; i < elements.count(); ++i)
            mPlaces.insert(elements.at(i), QString::fromLatin1(kind) + QString::number(i));
    }

    QHash<const BaseFrame *, QString> mPlaces;
};

QString values(const ValuesAccordingSizes *list)
{
    return list == nullptr ? QStringLiteral("-") : QString::fromStdString(support::text(*list));
}

QString formulaText(TreeEquations *tree, const Places &places)
{
    if (tree == nullptr)
        return QStringLiteral("-");
    if (tree->root == nullptr)
        return QStringLiteral("rootless");
    QString text = tree->toString() + QLatin1Char('@');
    QListEx<BaseFrame *> mentioned;
    tree->addReferencesInList(mentioned);
    for (BaseFrame *element : mentioned)
        text += places.of(element) + QLatin1Char(',');
    return text;
}

QString describeElement(BaseFrame *element, const Places &places)
{
    return QStringLiteral("\"%1\" m=%2 l=%3 fm=%4 fl=%5 fs=%6")
        .arg(element->name(), values(element->getMeasureBySizes()), values(element->getLevelBySizes()),
             formulaText(element->measurementFormula(), places), formulaText(element->formulaLevel(), places),
             formulaText(element->formulaSpec(), places));
}

QString describeFrame(FrameFrame *frame, const Places &places)
{
    return describeElement(frame, places) +
           QStringLiteral(" center=%1 link=%2 perimeter=%3 type=%4 percent=%5 ratio=%6\n")
               .arg(places.of(frame->getFrameCenter()), places.of(frame->getLink()))
               .arg(frame->getPerimeterMeasurement())
               .arg(frame->getMeasureType())
               .arg(frame->getPercentageMeasureRating1())
               .arg(frame->getRatio());
}

QString listed(const QListEx<FrameFrame *> &frames, const Places &places)
{
    QString text;
    for (FrameFrame *frame : frames)
        text += places.of(frame) + QLatin1Char(' ');
    return text;
}

bool isOwn(TreeEquations *tree, const Places &places)
{
    if (tree == nullptr || tree->root == nullptr)
        return true;
    QListEx<BaseFrame *> mentioned;
    tree->addReferencesInList(mentioned);
    return std::all_of(mentioned.cbegin(), mentioned.cend(),
                       [&](const BaseFrame *element) { return places.contains(element); });
}

template<class Element>
bool areOwn(const QListEx<Element *> &elements, const Places &places)
{
    return std::all_of(elements.cbegin(), elements.cend(), [&](Element *element) {
        return isOwn(element->measurementFormula(), places) && isOwn(element->formulaLevel(), places) &&
               isOwn(element->formulaSpec(), places);
    });
}

} // namespace

std::string describe(const FrameSet &set)
{
    const Places places(set);
    QString text = QStringLiteral("set \"%1\"\n").arg(set.name());
    for (FrameCenter *center : set.getFrameCenters())
        text += QStringLiteral("center \"%1\" kind=%2 zero=%3 frames=%4\n")
                    .arg(center->name())
                    .arg(center->Caracteristique())
                    .arg(places.of(center->getFrameLevelZero()), listed(center->getFrames(), places));
    for (FrameFrame *frame : set.getFrames())
        text += QStringLiteral("frame ") + describeFrame(frame, places);
    for (FrameSegment *segment : set.getFrameSegments())
        text += QStringLiteral("segment %1 area=%2 displace=%3\n")
                    .arg(describeElement(segment, places))
                    .arg(segment->getInfluenceAreaPercent())
                    .arg(segment->getDisplace());
    for (FrameLink *link : set.getFrameLinks())
        text += QStringLiteral("link %1 type=%2 frames=%3\n")
                    .arg(describeElement(link, places))
                    .arg(link->getMeasureType())
                    .arg(listed(link->getFrames(), places));
    for (FrameSpec *spec : set.getFrameSpecs())
        text += QStringLiteral("spec %1\n").arg(describeElement(spec, places));
    for (FrameMeasurementChart *chart : set.getFrameMeasurementCharts())
        text +=
            QStringLiteral("chart %1 fc=%2\n")
                .arg(describeElement(chart, places), formulaText(chart->formulaMeasurementChart(), places));
    return text.toStdString();
}

std::string describe(const GestFrames &manager)
{
    std::string text;
    for (FrameSet *set : manager.getFrameSets())
        text += describe(*set);
    return text;
}

bool namesOwnElementsOnly(const FrameSet &set)
{
    const Places places(set);
    return areOwn(set.getFrames(), places) && areOwn(set.getFrameLinks(), places) &&
           areOwn(set.getFrameSegments(), places) && areOwn(set.getFrameSpecs(), places);
}

void setMeasure(BaseFrame *element, const char *text)
{
    element->setFormulaMeasurement(formula(text, element->getFrameSet()));
}

void setLevel(BaseFrame *element, const char *text)
{
    element->setFormulaLevel(formula(text, element->getFrameSet()));
}

void setSpec(FrameSpec *spec, const char *text)
{
    spec->setFormulaSpec(formula(text, spec->getFrameSet()));
}

Transfer::Transfer() : source(from.newSet())
{
    FrameCenter *const front = source->newCenter(name("Front"));
    FrameCenter *const back = source->newCenter(name("Back"));
    FrameFrame *const chest = source->newFrame(name("Chest"), front);
    FrameFrame *const waist = source->newFrame(name("Waist"), front);
    source->newFrame(name("Hip"), front);
    FrameFrame *const backChest = source->newFrame(name("Chest"), back);
    front->setFrameLevelZero(waist);
    FrameSegment *const side = source->newSegment(name("Side"));
    FrameLink *const girth = source->newLink(name("Girth"));
    girth->linkFrame(chest);
    girth->linkFrame(backChest);
    FrameSpec *const ease = source->newSpec(name("Ease"));
    FrameMeasurementChart *const bust = source->newMeasurementChart(name("Bust"));

    short value = 10;
    for (FrameFrame *frame : source->getFrames()) {
        *frame->getMeasureBySizes() = sizes({value - 1.0, value + 0.0, value + 1.0}, 1);
        *frame->getLevelBySizes() = sizes({value + 0.5}, 0);
        value = static_cast<short>(value + 10);
    }
    *side->getMeasureBySizes() = sizes({1, 2, 3}, 1);
    *girth->getMeasureBySizes() = sizes({58, 60, 62}, 1);
    *girth->getLevelBySizes() = sizes({7}, 0);
    *ease->getMeasureBySizes() = sizes({4, 5, 6}, 2);
    *bust->getMeasureBySizes() = sizes({88, 92, 96}, 1);
}

FrameFrame *Transfer::frame(const FrameSet *set, const char *fullName) const
{
    return dynamic_cast<FrameFrame *>(set->foundElementAccordingName(name(fullName), true));
}

std::string Transfer::text(const TreeEquations *tree)
{
    return tree == nullptr ? "-" : tree->toString().toStdString();
}

} // namespace transfers
