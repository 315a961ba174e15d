// The names of a set at hand while it is read.
#pragma once

#include "VORFrames/NameIndex.h"

namespace VorSystem
{

class FrameSet;

/// While an object of this class lives, its set finds elements by name without a walk through its lists.
///
/// The answers are those of the walk: elements are entered as the lists receive them, and nothing else may
/// change the set. So the index is withdrawn before anything that may call the host.
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

    void withdraw();
    /// Back at work: as it was, or made anew when the host was called meanwhile.
    void restore();
    void renew();

private:
    FrameSet &mSet;
    NameIndex mIndex;
};

} // namespace VorSystem
