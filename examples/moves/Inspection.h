// What a pattern maker looks at after a move.
#pragma once

namespace VorSystem
{
class CDbGroupObject;
class GradationData;
} // namespace VorSystem

namespace moves
{

/// The largest difference between the two legs of a dart in any size, cm; 0 without darts.
double largestLegDifference(const VorSystem::CDbGroupObject &piece,
                            const VorSystem::GradationData *gradation);

/// How many pairs of edges of a contour, darts open, cross each other, over all sizes.
int crossings(const VorSystem::CDbGroupObject &piece, const VorSystem::GradationData *gradation);

} // namespace moves
