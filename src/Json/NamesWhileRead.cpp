// The names of a set at hand while it is read.

#include "NamesWhileRead.h"

#include <VorFrames/FrameSet.h>

namespace VorSystem
{

NamesWhileRead::NamesWhileRead(FrameSet &set) : mSet(set)
{
    mSet.mNamesAtHand = &mIndex;
}

NamesWhileRead::~NamesWhileRead()
{
    mSet.mNamesAtHand = nullptr;
}

} // namespace VorSystem
