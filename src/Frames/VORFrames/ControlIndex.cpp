// Which control object stands for which element, from one walk over the document.

#include "VORFrames/ControlIndex.h"

#include <VorConjoin/VorConjoin.h>
#include <VorFrames/ControlCenter.h>
#include <VorFrames/ControlFrame.h>
#include <VorFrames/ControlSegment.h>
#include <VorFrames/ControlSkeleton.h>
#include <VorFrames/FrameCenter.h>
#include <VorFrames/FrameFrame.h>
#include <VorFrames/FrameLink.h>
#include <VorFrames/FrameMeasurementChart.h>
#include <VorFrames/FrameSet.h>
#include <VorFrames/FrameSpec.h>
#include <VorFrames/GestFrames.h>

#include <typeinfo>

namespace VorSystem
{

QList<CDbGroupObject *> groupsSearched(const GestFrames *manager)
{
    QList<CDbGroupObject *> groups;
    Document *const document = manager == nullptr ? nullptr : manager->document();
    const t_Plan *const plan = document == nullptr ? nullptr : document->plan();
    if (plan == nullptr)
        return groups;

    const auto &mapping = *manager->getGroupMapping();
    if (!mapping.empty()) {
        for (const auto &entry : mapping)
            groups.append(entry.second.first);
        return groups;
    }

    const auto walk = AbstrIteratorGroup::create(plan, static_cast<eIteratorGroup>(0));
    CDbGroupObject *group = nullptr;
    while (walk && walk->next(group))
        groups.append(group);
    return groups;
}

QList<ControlSkeleton *> skeletonsOf(CDbGroupObject *group)
{
    QList<ControlSkeleton *> skeletons;
    if (group == nullptr)
        return skeletons;

    IteratorGabarit walk(group);
    GabaritObject *gabarit = nullptr;
    while (walk.next(gabarit)) {
        if (ControlSkeleton *const skeleton = gabarit->controlSkeleton())
            skeletons.append(skeleton);
    }
    return skeletons;
}

ControlIndex::ControlIndex(const GestFrames *manager)
{
    const QList<CDbGroupObject *> groups = groupsSearched(manager);
    for (CDbGroupObject *group : groups)
        addGroup(group);
}

ControlIndex::ControlIndex(CDbGroupObject *group)
{
    addGroup(group);
}

void ControlIndex::addGroup(CDbGroupObject *group)
{
    const QList<ControlSkeleton *> skeletons = skeletonsOf(group);
    for (ControlSkeleton *skeleton : skeletons) {
        if (ControlCenter *const center = skeleton->getFrameCenter())
            add(center->Get_Frame_Centre(), center);
        const QListEx<ControlFrame *> frames = skeleton->getFrameLists();
        for (ControlFrame *frame : frames)
            add(frame->getFrameFrame(), frame);
        const QListEx<ControlSegment *> segments = skeleton->getSegmentLists();
        for (ControlSegment *segment : segments)
            add(segment->getFrameSegment(), segment);
    }
}

void ControlIndex::add(const BaseFrame *element, ControlBase *control)
{
    if (element != nullptr && !mControls.contains(element))
        mControls.insert(element, control);
}

ControlBase *ControlLookup::of(BaseFrame *element)
{
    const std::type_info &type = typeid(*element);
    if (type == typeid(FrameLink) || type == typeid(FrameSpec) || type == typeid(FrameMeasurementChart))
        return nullptr;
    if (type != typeid(FrameFrame) && type != typeid(FrameSegment) && type != typeid(FrameCenter))
        return element->objectControlCorresponding();

    const FrameSet *const set = element->getFrameSet();
    const GestFrames *const manager = set == nullptr ? nullptr : set->getGestFrames();
    auto index = mIndices.find(manager);
    if (index == mIndices.end())
        index = mIndices.emplace(manager, ControlIndex(manager)).first;
    return index->second.of(element);
}

} // namespace VorSystem
