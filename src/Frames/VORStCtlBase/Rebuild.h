// The rebuild of a group on behalf of its control objects.
#pragma once

#include <VorConjoin/CDbGroupObject.h>

namespace VorSystem
{

/// Rebuilds the objects of a group, in every size or in the nest alone. While it lasts the group is marked,
/// so that the host does not move the frames again.
inline void rebuildFromFrames(CDbGroupObject *group, bool everySize, const GradationData *gradation)
{
    struct Mark {
        explicit Mark(CDbGroupObject *marked) : mGroup(marked) { mGroup->mRebuildingFromFrames = 1; }
        Mark(const Mark &) = delete;
        Mark &operator=(const Mark &) = delete;
        ~Mark() { mGroup->mRebuildingFromFrames = 0; }
        CDbGroupObject *mGroup;
    };

    const Mark mark(group);
    group->againObjects(everySize, gradation, true);
}

} // namespace VorSystem
