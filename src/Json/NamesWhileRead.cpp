// The names of a set at hand while it is read.

#include "NamesWhileRead.h"

#include <VorFrames/FrameSet.h>

namespace VorSystem
{

NamesWhileRead::NamesWhileRead(FrameSet &set) : mSet(set)
{
    restore();
}

NamesWhileRead::~NamesWhileRead()
{
    withdraw();
}

void NamesWhileRead::withdraw()
{
    mSet.mNamesWhileRead = nullptr;
}

void NamesWhileRead::restore()
{
    mSet.mNamesWhileRead = &mIndex;
}

void NamesWhileRead::renew()
{
    mIndex = NameIndex(mSet);
    restore();
}

} // namespace VorSystem
