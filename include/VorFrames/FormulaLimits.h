// How large a formula may be: what keeps every walk over one within the stack of a thread.
#pragma once

namespace VorSystem
{

/// Open brackets plus prefix signs that may stand inside each other in the text of a formula. Text with more
/// is no formula.
constexpr int kMaxFormulaNesting = 200;

/// Constants, references and bare names in the text of a formula. Text with more is no formula.
constexpr int kMaxFormulaOperands = 10000;

/// Nodes from the root of a tree down to its deepest leaf. A flat sum of n operands is n deep and each
/// negation around an operand adds one, so every formula that can be read from text keeps to it.
///
/// Evaluating a deeper tree, settling or judging its units, writing it to JSON and reading it from there
/// raise AssertionError; printing, copying, asking for references and deleting work in any depth.
constexpr int kMaxFormulaDepth = kMaxFormulaOperands + kMaxFormulaNesting;

} // namespace VorSystem
