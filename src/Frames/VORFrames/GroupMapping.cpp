// The correspondence of groups during a transfer, and handing a set to another manager.

#include <VorFrames/FrameSet.h>
#include <VorFrames/GestFrames.h>

#include "Preconditions.h"

#include <VorCore/VorCore.h>

#include <boost/weak_ptr.hpp>

namespace VorSystem
{

namespace
{

constexpr char kSourceUnit[] = R"(src\Frames\VORFrames)";

} // namespace

RelayBaton GestFrames::setGroupMapping(const std::map<CDbGroupObject *, CDbGroupObject *> &mapping)
{
    mGroupMapping.clear();
    for (const auto &[group, mapped] : mapping)
        mGroupMapping.emplace(group, std::make_pair(mapped, false));
    if (mGroupMapping.empty())
        return RelayBaton();

    // The baton may outlive the manager.
    const boost::weak_ptr<GestFrames *> self = mSelf;
    return RelayBaton([self] {
        if (const boost::shared_ptr<GestFrames *> manager = self.lock())
            static_cast<void>((*manager)->setGroupMapping({}));
    });
}

CDbGroupObject *GestFrames::getMappedGroup(CDbGroupObject *group) const
{
    const auto entry = mGroupMapping.find(group);
    return entry == mGroupMapping.end() ? nullptr : entry->second.first;
}

void GestFrames::notifyGroupChanged(CDbGroupObject *group)
{
    const auto key = mGroupMapping.find(group);
    if (key != mGroupMapping.end()) {
        key->second.second = true;
        return;
    }
    for (auto &entry : mGroupMapping) {
        if (entry.second.first == group) {
            entry.second.second = true;
            return;
        }
    }
}

bool GestFrames::groupHasChanged(CDbGroupObject *group) const
{
    // Deliberate: a group may be notified from either side, but only the key side answers.
    const auto entry = mGroupMapping.find(group);
    return entry != mGroupMapping.end() && entry->second.second;
}

const std::map<CDbGroupObject *, std::pair<CDbGroupObject *, bool>> *FrameSet::getGroupMapping() const
{
    return mFrameManager == nullptr ? nullptr : mFrameManager->getGroupMapping();
}

CDbGroupObject *FrameSet::getMappedGroup(CDbGroupObject *group) const
{
    return mFrameManager == nullptr ? nullptr : mFrameManager->getMappedGroup(group);
}

void FrameSet::notifyGroupChanged(CDbGroupObject *group) const
{
    if (mFrameManager != nullptr)
        mFrameManager->notifyGroupChanged(group);
}

bool FrameSet::aTransferredManager(GestFrames *manager)
{
    VOR_REQUIRE(manager != nullptr);
    if (manager == mFrameManager)
        return true;

    // Deliberate: the set keeps its name, even where the new manager has a set of that name.
    if (mFrameManager != nullptr)
        mFrameManager->removeFrameSet(this);
    manager->addFrameSet(this, -1);
    mFrameManager = manager;
    return true;
}

} // namespace VorSystem
