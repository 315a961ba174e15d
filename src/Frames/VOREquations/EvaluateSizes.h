// The value of a formula in all sizes at once.
#pragma once

#include <VorFrames/QListEx.h>

namespace VorSystem
{

class TreeEquations;

/// Overwrites each position of values with what formula.evaluate gives for it.
///
/// One walk for all sizes where that cannot be told from one walk for each. AssertionError leaves the
/// positions before the failing size written, as a loop over the sizes would.
void evaluateSizes(TreeEquations &formula, QListEx<double> &values);

} // namespace VorSystem
