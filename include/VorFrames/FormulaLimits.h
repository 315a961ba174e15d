// How large a formula may be: what keeps every walk over one within the stack of a thread.
#pragma once

namespace VorSystem
{

/// Open brackets plus prefix signs that may stand inside each other in the text of a formula.
constexpr int kMaxFormulaNesting = 200;

/// Nodes from the root of a formula tree down to its deepest leaf; a flat sum of n operands is n deep.
constexpr int kMaxFormulaDepth = 10000;

} // namespace VorSystem
