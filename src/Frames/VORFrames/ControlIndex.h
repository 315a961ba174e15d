// Which control object stands for which element, from one walk over the document, for the length of one call.
//
// Answers what BaseFrame::objectControlCorresponding would of a center, a frame or a segment. Drop it before
// the host is called in a way that could move, add or remove anything.
#pragma once

#include <QHash>
#include <QList>
#include <map>

namespace VorSystem
{

class BaseFrame;
class CDbGroupObject;
class ControlBase;
class ControlSkeleton;
class GestFrames;

/// The groups in which elements of manager are looked for, in order: with a mapping in force the mapped
/// groups (a mapped group may be null), otherwise all groups of the document's plan. Empty without a manager,
/// a document or a plan.
QList<CDbGroupObject *> groupsSearched(const GestFrames *manager);

/// The skeletons of the group's gabarits, in order; none for a null group.
QList<ControlSkeleton *> skeletonsOf(CDbGroupObject *group);

class ControlIndex
{
public:
    explicit ControlIndex(const GestFrames *manager);
    /// The control objects of one group alone.
    explicit ControlIndex(CDbGroupObject *group);

    /// The control object of a center, frame or segment, or null.
    ControlBase *of(const BaseFrame *element) const { return mControls.value(element); }
    bool contains(const BaseFrame *element) const { return mControls.contains(element); }

private:
    void addGroup(CDbGroupObject *group);
    void add(const BaseFrame *element, ControlBase *control);

    QHash<const BaseFrame *, ControlBase *> mControls;
};

/// The control objects of elements of any set, for the length of one call: one walk per manager, made when
/// first needed. An element of a class that the library does not know is asked itself.
class ControlLookup
{
public:
    /// As element->objectControlCorresponding().
    ControlBase *of(BaseFrame *element);

private:
    std::map<const GestFrames *, ControlIndex> mIndices;
};

} // namespace VorSystem
