// Copying and merging as they are told, step by step, without an index: what the library is held against.

#include <gtest/gtest.h>

#include "PlainTransfer.h"

#include <QSet>

namespace transfers
{

using namespace VorSystem;

namespace
{

// The name, numbered while find answers something for it.
template<class Find>
QString settled(BaseFrame *element, const Wish &wish, Find find)
{
    const QString name = element->name();
    if (!wish.merges || find(name) == nullptr)
        return name;
    int n = 1;
    while (find(name + QString::number(n)) != nullptr)
        ++n;
    if (wish.renamesSource)
        element->setName(name + QString::number(n));
    return name + QString::number(n);
}

void copyFormulas(BaseFrame *from, BaseFrame *to)
{
    if (TreeEquations *const measure = from->measurementFormula())
        to->setFormulaMeasurement(new TreeEquations(*measure));
    if (TreeEquations *const level = from->formulaLevel())
        to->setFormulaLevel(new TreeEquations(*level));
}

} // namespace

void plainTransfer(FrameSet &source, GestFrames &target, Answers answers, const Wish &wish,
                   EquivalenceSets &equivalences)
{
    FrameSet *destination = equivalences.count(&source) != 0 ? equivalences[&source] : nullptr;
    if (destination == nullptr && wish.merges)
        destination = target.getFrameSetAccordingName(source.name());
    if (destination == nullptr)
        destination = new FrameSet(target.getFrameSetValidName(source.name()), &target);
    equivalences[&source] = destination;

    bool selected = false;
    QSet<FrameFrame *> leftOut;
    for (FrameCenter *center : source.getFrameCenters()) {
        if (!answers(nullptr))
            continue;
        selected = true;
        FrameCenter *const copy = destination->newCenter(settled(center, wish, [&](const QString &name) {
            return destination->findFrameCenterAccordingName(name);
        }));
        if (copy != nullptr)
            copy->setCharacteristic(center->Caracteristique());
        for (FrameFrame *frame : center->getFrames()) {
            if (copy == nullptr)
                leftOut.insert(frame);
            if (!answers(nullptr) || copy == nullptr)
                continue;
            FrameFrame *const twin = destination->newFrame(
                settled(frame, wish,
                        [&](const QString &name) { return copy->foundFrameAccordingName(name); }),
                copy);
            if (twin == nullptr) {
                leftOut.insert(frame);
                continue;
            }
            if (center->getFrameLevelZero() == frame)
                copy->setFrameLevelZero(twin);
            twin->getPerimeterMeasurement() = frame->getPerimeterMeasurement();
            copyFormulas(frame, twin);
            if (wish.withValues) {
                *twin->getMeasureBySizes() = *frame->getMeasureBySizes();
                *twin->getLevelBySizes() = *frame->getLevelBySizes();
            }
            twin->setMeasureType(frame->getMeasureType());
            twin->setPercentageMeasureRating(frame->getPercentageMeasureRating1());
        }
    }
    for (FrameSegment *segment : source.getFrameSegments()) {
        if (!answers(nullptr))
            continue;
        selected = true;
        FrameSegment *const copy = destination->newSegment(settled(segment, wish, [&](const QString &name) {
            return destination->findFrameSegmentAccordingName(name);
        }));
        if (copy == nullptr)
            continue;
        copy->getInfluenceAreaPercent() = segment->getInfluenceAreaPercent();
        copy->getDisplace() = segment->getDisplace();
        if (TreeEquations *const formula = segment->measurementFormula())
            copy->rememberFormula(new TreeEquations(*formula));
        if (wish.withValues)
            *copy->getMeasureBySizes() = *segment->getMeasureBySizes();
    }
    for (FrameLink *link : source.getFrameLinks()) {
        QListEx<FrameFrame *> frames;
        bool complete = true;
        for (FrameFrame *frame : link->getFrames()) {
            frames.append(
                dynamic_cast<FrameFrame *>(destination->foundElementAccordingName(frame->fullName(), true)));
            complete = complete && frames.constLast() != nullptr && !leftOut.contains(frame);
        }
        FrameLink *const copy = complete ? destination->newLink(link->name()) : nullptr;
        if (copy == nullptr)
            continue;
        copyFormulas(link, copy);
        for (FrameFrame *frame : frames) {
            if (frame->getLink() != nullptr && frame->getLink() != copy)
                frame->getLink()->removeFrame(frame);
            copy->linkFrame(frame);
        }
        if (wish.withValues) {
            *copy->getMeasureBySizes() = *link->getMeasureBySizes();
            *copy->getLevelBySizes() = *link->getLevelBySizes();
        }
    }
    for (FrameSpec *spec : source.getFrameSpecs()) {
        if (spec->formulaSpec() == nullptr)
            continue;
        auto *const copy = new FrameSpec(settled(
            spec, wish, [&](const QString &name) { return destination->findFrameSpecAccordingName(name); }));
        *copy->getMeasureBySizes() = *spec->getMeasureBySizes();
        copy->setFormulaSpec(new TreeEquations(*spec->formulaSpec()));
        if (copy->formulaSpec()->setAdapter(destination))
            destination->addSpec(copy, -1);
        else
            delete copy;
    }
    for (FrameMeasurementChart *chart : source.getFrameMeasurementCharts()) {
        if (!wish.merges && !chart->isDefinedInDocument())
            continue;
        auto *const copy = new FrameMeasurementChart(settled(chart, wish, [&](const QString &name) {
            return destination->findFrameMeasurementChartAccordingName(name);
        }));
        *copy->getMeasureBySizes() = *chart->getMeasureBySizes();
        destination->addMeasurementChart(copy, -1);
    }

    for (FrameFrame *frame : destination->getFrames())
        frame->adapterFormulaInSet(destination);
    for (FrameLink *link : destination->getFrameLinks())
        link->adapterFormulaInSet(destination);
    for (FrameSegment *segment : destination->getFrameSegments())
        segment->adapterFormulaInSet(destination);
    target.addFrameSet(destination, -1);
    if (selected)
        return;
    for (auto entry = equivalences.begin(); entry != equivalences.end();)
        entry = entry->second == destination ? equivalences.erase(entry) : std::next(entry);
    target.removeFrameSet(destination);
    delete destination;
}

} // namespace transfers
