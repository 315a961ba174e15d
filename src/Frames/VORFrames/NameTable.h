// Elements by kind and name, in one block of memory.
#pragma once

#include <QtGlobal>
#include <cstddef>
#include <vector>

namespace VorSystem
{

class BaseFrame;
class NameMatcher;

/// The first element of each kind and name that was entered.
///
/// It keeps no copies of names: no element in it may be renamed or deleted.
class NameTable
{
public:
    /// The kinds in the order in which a search prefers them.
    enum Kind : int { Center, Link, Segment, Spec, Chart, Frame };

    /// Makes room for that many elements more.
    void reserve(int count);

    void add(Kind kind, BaseFrame *element);

    /// The element of that name whose kind comes first among those from first to last; or null.
    BaseFrame *found(const NameMatcher &name, Kind first, Kind last) const;

private:
    struct Slot {
        BaseFrame *element = nullptr; // null in a free slot
        uint hash = 0;
        Kind kind = Center;
    };

    std::size_t home(uint hash) const;
    std::size_t next(std::size_t slot) const { return slot + 1 == mSlots.size() ? 0 : slot + 1; }
    void enter(const Slot &entry);
    void resize(std::size_t slots);

    std::vector<Slot> mSlots; // an element stands in the first free slot from its home on
    std::size_t mCount = 0;
};

} // namespace VorSystem
