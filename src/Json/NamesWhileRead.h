// The names of a set at hand while it is read.
#pragma once

#include "VORFrames/NameIndex.h"

namespace VorSystem
{

class FrameSet;

/// While an object of this class lives, its set finds elements by name without a walk through its lists.
///
/// The answers are those of the walk: elements are entered as the lists receive them, and nothing else
/// changes the set meanwhile. No host code runs that could: elements that are just read are tied to no piece.
class NamesWhileRead
{
public:
    explicit NamesWhileRead(FrameSet &set);
    ~NamesWhileRead();

    NamesWhileRead(const NamesWhileRead &) = delete;
    NamesWhileRead &operator=(const NamesWhileRead &) = delete;

    /// Enters an element that was appended to its list.
    template<class Element>
    void add(Element *element)
    {
        mIndex.add(element);
    }

private:
    FrameSet &mSet;
    NameIndex mIndex;
};

} // namespace VorSystem
