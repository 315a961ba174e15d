// Random numbers for properties.
#pragma once

#include <rapidcheck.h>

namespace formulas
{

/// Any number from 0 up to below end, each as likely, in early runs too.
inline int anyBelow(int end)
{
    return *rc::gen::resize(rc::kNominalSize, rc::gen::inRange(0, end));
}

} // namespace formulas
