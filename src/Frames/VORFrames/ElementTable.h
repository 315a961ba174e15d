// Numbers for elements: what turns a walk over pointers into a walk over arrays.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace VorSystem
{

class BaseFrame;

/// Gives each element a number from 0 upwards, in the order in which they were first entered.
///
/// An open table with a power of two of slots, at most half of them taken: one run enters as many elements as
/// a set has values, and nothing is ever taken out.
class ElementTable
{
public:
    explicit ElementTable(std::size_t expected)
    {
        std::size_t slots = 16;
        while (slots < 2 * expected)
            slots *= 2;
        mSlots.resize(slots);
        mElements.reserve(expected);
    }

    std::size_t size() const { return mElements.size(); }
    BaseFrame *element(std::size_t number) const { return mElements[number]; }

    /// The number of the element, a new one when it was not there.
    std::size_t enter(BaseFrame *element)
    {
        Slot &slot = slotOf(element);
        if (slot.element != nullptr)
            return slot.number;
        const std::size_t number = mElements.size();
        slot = {element, number};
        mElements.push_back(element);
        if (2 * mElements.size() > mSlots.size())
            grow();
        return number;
    }

private:
    struct Slot {
        BaseFrame *element = nullptr;
        std::size_t number = 0;
    };

    Slot &slotOf(const BaseFrame *element)
    {
        // Fibonacci hashing: neighbouring addresses spread over the table.
        const auto address = static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(element));
        std::size_t place = (address * 0x9E3779B97F4A7C15U >> 20U) & (mSlots.size() - 1);
        while (mSlots[place].element != nullptr && mSlots[place].element != element)
            place = (place + 1) & (mSlots.size() - 1);
        return mSlots[place];
    }

    void grow()
    {
        mSlots.assign(2 * mSlots.size(), Slot());
        for (std::size_t number = 0; number < mElements.size(); ++number)
            slotOf(mElements[number]) = {mElements[number], number};
    }

    std::vector<Slot> mSlots;
    std::vector<BaseFrame *> mElements;
};

} // namespace VorSystem
