// The pieces that are drafted, each in one size. The waist lies at y = 0 in the bodice, the floor in the
// trousers.
#pragma once

#include "Measures.h"
#include "Sheet.h"

namespace drafting
{

Sheet bodiceFront(const Measures &m);
Sheet bodiceBack(const Measures &m);
/// Ends of the side seams, which are sewn together.
Point frontUnderarm(const Measures &m);
Point frontWaistSide(const Measures &m);
Point backUnderarm(const Measures &m);
Point backWaistSide(const Measures &m);
/// Front and back armhole together, along the seam.
double armholeLength(const Measures &m);
Sheet sleeve(const Measures &m);
/// The cap of the sleeve along the seam.
double sleeveCapLength(const Measures &m);
Sheet trouserFront(const Measures &m);
Sheet trouserBack(const Measures &m);
Sheet skirtFront(const Measures &m);

} // namespace drafting
