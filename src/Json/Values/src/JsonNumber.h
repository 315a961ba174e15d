// How a number is held in Qt's values, which keep integral numbers as integers and so lose the sign of zero.
#pragma once

#include <QJsonValue>
#include <cmath>
#include <cstring>
#include <limits>

namespace VorSystem
{
namespace JsonNumber
{

// Negative zero is held as the one NaN of these bits: Qt keeps the bits of a number that is not integral.
constexpr quint64 kHeldNegativeZero = 0x7ff8566f724e5a30;

inline bool isHeldNegativeZero(double number)
{
    quint64 bits;
    std::memcpy(&bits, &number, sizeof bits);
    return bits == kHeldNegativeZero;
}

/// The number to hand to Qt.
inline double held(double number)
{
    if (number == 0.0 && std::signbit(number))
        std::memcpy(&number, &kHeldNegativeZero, sizeof number);
    else if (isHeldNegativeZero(number))
        number = std::numeric_limits<double>::quiet_NaN();
    return number;
}

/// The number that was meant by the one in Qt's value.
inline double shown(double number)
{
    return isHeldNegativeZero(number) ? -0.0 : number;
}

/// The number of a value of Qt's that this layer holds.
inline double of(const QJsonValue &value)
{
    return shown(value.toDouble());
}

} // namespace JsonNumber
} // namespace VorSystem
