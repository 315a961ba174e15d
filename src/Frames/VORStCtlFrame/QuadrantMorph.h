// The morph of the inside of a piece: free vectors keep their place in the quadrants that a moved frame, its
// neighbours and the axis cut out of the contour.
#pragma once

#include "VORStCtlBase/Temporaries.h"
#include "VORStCtlFrame/QuadrantGrid.h"

#include <VorFrames/FrameCenter.h>

namespace VorSystem
{

/// The quadrants before and after a move: outlines and middles, in four chains that run in step. All of it is
/// temporary.
class QuadrantMorph
{
public:
    /// Cuts the piece. grid was filled before the move, its old axis kept, and filled again after it; current
    /// is the gabarit, old its copy from before the move. Raises AssertionError when a corner has no
    /// equivalent in old or an outline does not close.
    QuadrantMorph(GabaritObject *current, GabaritObject *old, FrameCenter::eCharacteristicType characteristic,
                  const QuadrantGrid &grid);

    /// Carries a free vector from the first old quadrant that holds it, border included, to the new one. A
    /// vector in none stays. Raises AssertionError when the triangles of that quadrant miss it.
    void carryAlong(CDbPointVOR *vector) const;

private:
    bool getsQuadrants(GabaritObject *current, GabaritObject *old,
                       FrameCenter::eCharacteristicType characteristic, const QuadrantGrid &grid);

    int mQuadrant = 0;
    TemporaryGabarits mOldPolygons;
    TemporaryGabarits mNewPolygons;
    TemporaryVectors mOldMiddles;
    TemporaryVectors mNewMiddles;
};

} // namespace VorSystem
