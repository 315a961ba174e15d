// Elements by kind and name, in one block of memory.

#include "VORFrames/NameTable.h"

#include "VORFrames/Names.h"

#include <VorFrames/BaseFrame.h>

#include <algorithm>
#include <utility>

namespace VorSystem
{

namespace
{

constexpr std::size_t kSmallest = 8;

// A third of the slots stays free, so that a search soon meets a free one.
std::size_t slotsFor(std::size_t count)
{
    return count + count / 2 + 1;
}

} // namespace

void NameTable::reserve(int count)
{
    const std::size_t slots = slotsFor(mCount + static_cast<std::size_t>(count));
    if (slots > mSlots.size())
        resize(slots);
}

void NameTable::add(Kind kind, BaseFrame *element)
{
    const NameMatcher name(element->name());
    if (found(name, kind, kind) != nullptr)
        return;
    if (slotsFor(mCount + 1) > mSlots.size())
        resize(std::max(kSmallest, 2 * mSlots.size()));
    enter({element, name.hash(), kind});
    ++mCount;
}

BaseFrame *NameTable::found(const NameMatcher &name, Kind first, Kind last) const
{
    if (mCount == 0)
        return nullptr;
    const uint hash = name.hash();
    const Slot *best = nullptr;
    for (std::size_t i = home(hash); mSlots[i].element != nullptr; i = next(i)) {
        const Slot &slot = mSlots[i];
        if (slot.hash == hash && slot.kind >= first && slot.kind <= last &&
            (best == nullptr || slot.kind < best->kind) && name.matches(slot.element->name()))
            best = &slot;
    }
    return best == nullptr ? nullptr : best->element;
}

std::size_t NameTable::home(uint hash) const
{
    constexpr uint spread = 0x9e3779b1; // short names may differ in their low bits alone
    return static_cast<std::size_t>(quint64(hash * spread) * mSlots.size() >> 32);
}

void NameTable::enter(const Slot &entry)
{
    std::size_t i = home(entry.hash);
    while (mSlots[i].element != nullptr)
        i = next(i);
    mSlots[i] = entry;
}

void NameTable::resize(std::size_t slots)
{
    const std::vector<Slot> old = std::exchange(mSlots, std::vector<Slot>(slots));
    for (const Slot &entry : old) {
        if (entry.element != nullptr)
            enter(entry);
    }
}

} // namespace VorSystem
