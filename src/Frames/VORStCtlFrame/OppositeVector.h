// The contour vector that faces a frame's vector across the axis.
#pragma once

namespace VorSystem
{

class CDbPointVOR;
class ControlSkeleton;

/// The contour vector beyond the axis whose line to v passes nearest to crossing, and of those the farthest
/// from v; null when v lies at the crossing or no line passes within a millimetre.
CDbPointVOR *findOppositeContourVector(const CDbPointVOR *v, const CDbPointVOR *crossing,
                                       const ControlSkeleton *skeleton);

} // namespace VorSystem
