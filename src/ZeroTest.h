// The one zero test of the library.
#pragma once

#include <cmath>

namespace VorSystem
{

constexpr double kZero = 1e-05; // centimetres: a difference up to this counts as none

/// True up to and including kZero in absolute value. A NaN does not count as zero, so that it always is a
/// change.
inline bool countsAsZero(double value)
{
    return std::abs(value) <= kZero;
}

} // namespace VorSystem
