// How the files of this folder name themselves in a failed precondition.
#pragma once

namespace VorSystem
{

constexpr char kSourceUnit[] = R"(src\Frames\VOREquations)";

} // namespace VorSystem
