// Copying and merging as they are told, step by step, without an index: what the library is held against.
#pragma once

#include "TransferWorld.h"

namespace transfers
{

/// What a transfer is asked for.
struct Wish {
    bool merges = false;
    bool renamesSource = false;
    bool withValues = false;
};

void plainTransfer(VorSystem::FrameSet &source, VorSystem::GestFrames &target, Answers answers,
                   const Wish &wish, VorSystem::EquivalenceSets &equivalences);

} // namespace transfers
