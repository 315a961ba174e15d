// Indices that say from where they count.
#pragma once

namespace VorSystem
{

/// An index that counts from 1, as in "the first size".
class t_1_Based
{
public:
    /// Any number, also one that names no place.
    explicit constexpr t_1_Based(short number) : mNumber(number) {}

    /// The number as it was given.
    constexpr short value() const { return mNumber; }

private:
    short mNumber;
};

/// An index that counts from 0.
class t_0_Based
{
public:
    /// Any position, also one that names no place.
    explicit constexpr t_0_Based(short position) : mPosition(position) {}
    /// The same place: one less. Deliberately implicit.
    constexpr t_0_Based(const t_1_Based &number) : mPosition(static_cast<short>(number.value() - 1)) {}

    /// The position, 0 for the first place.
    constexpr short value() const { return mPosition; }

private:
    short mPosition;
};

} // namespace VorSystem
