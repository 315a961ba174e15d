// Merging sets: into the set of the same name where there is one; a taken name gets a number.

#include <VorFrames/FrameSet.h>
#include <VorFrames/GestFrames.h>

#include "Preconditions.h"
#include "VORFrames/Names.h"
#include "VORFrames/SetTransfer.h"

#include <VorFrames/FrameCenter.h>

namespace VorSystem
{

namespace
{

constexpr char kSourceUnit[] = R"(src\Frames\VORFrames)";

class SetMerge : public SetTransfer
{
public:
    SetMerge(FrameSet &source, GestFrames &target, bool withValues, EquivalenceSets &equivalences,
             bool renameSource)
        : SetTransfer(source, target, withValues, equivalences), mRenamesSource(renameSource)
    {
    }

private:
    FrameSet *destinationByName() const override { return mTarget.getFrameSetAccordingName(mSource.name()); }
    QString nameInDestination(BaseFrame &element, FrameCenter *center) override;
    bool leavesOutCenter(const QString &) const override { return false; } // it has got a name of its own
    bool takesChart(FrameMeasurementChart &, Definedness &) override { return true; }

    bool isTaken(eElementFrameType kind, FrameCenter *center, const QString &name) const;
    void renameSource(BaseFrame &element, const QString &name);

    const bool mRenamesSource;

    // Up to which number the candidates for a name are known to be taken. Names are only added, so it never
    // falls.
    QHash<QPair<QPair<int, FrameCenter *>, QString>, int> mTakenNumbers;
};

QString SetMerge::nameInDestination(BaseFrame &element, FrameCenter *center)
{
    const eElementFrameType kind = element.elementType();
    const QString name = element.name();
    if (!isTaken(kind, center, name))
        return name;

    const QPair<int, FrameCenter *> place(kind, center);
    int &taken = mTakenNumbers[qMakePair(place, nameKey(name))];
    while (isTaken(kind, center, name + QString::number(taken + 1)))
        ++taken;
    const QString candidate = name + QString::number(taken + 1);
    if (mRenamesSource)
        renameSource(element, candidate);
    return candidate;
}

bool SetMerge::isTaken(eElementFrameType kind, FrameCenter *center, const QString &name) const
{
    switch (kind) {
    case Element_Center: return mNames.center(name) != nullptr;
    case Element_Frame: return mNames.frameOf(center, name) != nullptr;
    case Element_Segment: return mNames.segment(name) != nullptr;
    case Element_Spec: return mNames.spec(name) != nullptr;
    case Element_MeasurementChart: return mNames.chart(name) != nullptr;
    case Element_Link:
    case Element_Set: break; // they keep their names
    }
    return false;
}

// Deliberate: the source is not asked whether it holds the name already.
void SetMerge::renameSource(BaseFrame &element, const QString &name)
{
    element.setName(name);
    if (mDestination != &mSource)
        return;
    // The names of the destination changed with it.
    mNames = NameIndex(*mDestination);
    mTakenNumbers.clear();
}

} // namespace

void FrameSet::mergeElements(GestFrames *target, boost::function<bool(CDbGroupObject *)> selectGroup,
                             bool withValues, EquivalenceSets &equivalences, bool renameSource)
{
    VOR_REQUIRE(target != nullptr);
    SetMerge(*this, *target, withValues, equivalences, renameSource).run(selectGroup);
    // Nothing may follow: the set itself may be gone.
}

void GestFrames::MergeFrameSetsInManager(GestFrames *target,
                                         boost::function<bool(CDbGroupObject *)> selectGroup, bool withValues,
                                         EquivalenceSets &equivalences, bool renameSource)
{
    VOR_REQUIRE(target != nullptr);
    const QListEx<FrameSet *> sources = mFrameSets; // as they stand: the target may be this manager
    for (FrameSet *source : sources) {
        if (mFrameSets.contains(source)) // it may have been deleted as a destination
            source->mergeElements(target, selectGroup, withValues, equivalences, renameSource);
    }
}

} // namespace VorSystem
