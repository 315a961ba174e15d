// Putting a dependent vector where it belongs.
#pragma once

#include <VorConjoin/CDbPointVOR.h>

#include <cmath>

namespace VorSystem
{

/// Moves v to a place, unless it stands there already but for rounding: then it keeps every bit, and with it
/// its evolution.
inline void settle(CDbPointVOR &v, double x, double y)
{
    constexpr double kSettled = 1e-10; // cm
    if (std::abs(v.mX - x) <= kSettled && std::abs(v.mY - y) <= kSettled)
        return;
    v.mX = x;
    v.mY = y;
}

} // namespace VorSystem
