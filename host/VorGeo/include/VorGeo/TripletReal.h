// TripletReal: barycentric coordinates of a point in a triangle.
#pragma once

namespace VorSystem
{

/// The weights of a triangle's three corners at a point.
struct TripletReal {
    constexpr TripletReal(double first, double second, double third) noexcept
        : mFirst(first), mSecond(second), mThird(third)
    {
    }

    double mFirst;
    double mSecond;
    double mThird;
};

} // namespace VorSystem
