// The names of a set at hand while it is read.

#include "NamesWhileRead.h"

#include <VorFrames/FrameSet.h>

namespace VorSystem
{

NamesWhileRead::NamesWhileRead(FrameSet &set) : mSet(set)
{
    mSet.mNamesWhileRead = &mIndex;
}

NamesWhileRead::~NamesWhileRead()
{
    mSet.mNamesWhileRead = nullptr;
}

} // namespace VorSystem
