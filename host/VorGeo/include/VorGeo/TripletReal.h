// TripletReal: barycentric coordinates of a point in a triangle.
#pragma once

namespace VorSystem
{

/// The weights of a triangle's three corners at a point.
struct TripletReal {
    /// The weights as they are: neither their range nor their sum is checked.
    constexpr TripletReal(double first, double second, double third) noexcept
        : mFirst(first), mSecond(second), mThird(third)
    {
    }

    double mFirst;  ///< of the corner that the triangle was given first
    double mSecond; ///< of the second corner
    double mThird;  ///< of the third corner
};

} // namespace VorSystem
