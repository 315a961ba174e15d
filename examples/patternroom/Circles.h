// Values of a set that cannot be brought into an order, and why.
#pragma once

#include "Garment.h"

namespace room
{

struct Disorder {
    QStringList circles;   ///< "Measure(A) <- Measure(B) <- Measure(A)": each follows the next
    QStringList deadlocks; ///< values that wait for one in a circle
    QString culprit;       ///< a segment that moves what its own formula depends on; empty for none
};

/// Every formula must be sound: see vainNames.
Disorder disorderOf(const VorSystem::PatternDocument &document, VorSystem::FrameSet *set);

} // namespace room
