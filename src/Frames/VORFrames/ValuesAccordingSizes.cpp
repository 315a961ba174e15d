// Values per size, and how they follow when sizes come and go.

#include <VorFrames/ValuesAccordingSizes.h>

#include "Preconditions.h"
#include "ZeroTest.h"

#include <limits>

namespace VorSystem
{

namespace
{

constexpr char kSourceUnit[] = R"(src\Frames\VORFrames)";

constexpr double kSameScale = 3.0; // two lists may differ by this many times the zero test

short clampedToShort(int count)
{
    return static_cast<short>(qMin(count, int{std::numeric_limits<short>::max()}));
}

} // namespace

bool ValuesAccordingSizes::isSameAs(const ValuesAccordingSizes &other) const
{
    const int count = mValues.count();
    if (count != other.mValues.count())
        return false;

    for (int size = 0; size < count; ++size) {
        if (!countsAsZero((mValues.at(size) - other.mValues.at(size)) / kSameScale))
            return false;
    }
    return true;
}

void ValuesAccordingSizes::shiftTo(const ValuesAccordingSizes &other)
{
    const double delta = other.mValues.at(other.mNestIndex) - mValues.at(mNestIndex);
    for (double &value : mValues)
        value += delta;
}

void ValuesAccordingSizes::addSmallerSizes(short count)
{
    if (count <= 0)
        return;

    const bool hasSmaller = mNestIndex >= 1;
    double seed = mValues.at(hasSmaller ? 0 : mNestIndex);
    const double step = hasSmaller ? seed - mValues.at(1) : 0.0;
    for (short i = 0; i < count; ++i) {
        seed += step;
        mValues.prepend(seed);
    }
    mNestIndex = clampedToShort(mNestIndex + count);
}

void ValuesAccordingSizes::addLargerSizes(short count)
{
    if (count <= 0)
        return;

    const int last = mValues.count() - 1;
    const bool hasLarger = last > mNestIndex;
    double seed = mValues.at(hasLarger ? last : mNestIndex);
    const double step = hasLarger ? seed - mValues.at(last - 1) : 0.0;
    for (short i = 0; i < count; ++i) {
        seed += step;
        mValues.append(seed);
    }
}

void ValuesAccordingSizes::removeSmallerSizes(short count)
{
    for (short i = 0; i < count; ++i)
        mValues.removeFirst();
    mNestIndex = static_cast<short>(mNestIndex - count);
}

void ValuesAccordingSizes::removeLargerSizes(short count)
{
    for (short i = 0; i < count; ++i)
        mValues.removeLast();
}

void adjustValuesAccordingSizeToNest(ValuesAccordingSizes *values, short small, short large)
{
    VOR_REQUIRE(values != nullptr);

    if (values->mValues.isEmpty()) {
        values->mNestIndex = 0;
        values->mValues.append(0.0);
    }
    // A stored index may lie outside its list (docs/decisions/0011): the nearest value is then the nest.
    const int last = values->mValues.count() - 1;
    values->mNestIndex = clampedToShort(qBound(0, int{values->mNestIndex}, last));

    // Taken once, before any change. A list of more values than a short counts wraps here; the removals below
    // never go beyond what it holds.
    const short haveSmall = values->mNestIndex;
    const auto haveLarge = static_cast<short>(last - haveSmall);
    if (haveSmall < small)
        values->addSmallerSizes(clampedToShort(small - haveSmall));
    if (haveLarge < large)
        values->addLargerSizes(clampedToShort(large - haveLarge));
    if (small < haveSmall)
        values->removeSmallerSizes(clampedToShort(qMin(haveSmall - small, int{values->mNestIndex})));
    if (large < haveLarge) {
        const int above = values->mValues.count() - values->mNestIndex - 1;
        values->removeLargerSizes(clampedToShort(qMin(haveLarge - large, above)));
    }
}

} // namespace VorSystem
