// The two sides of a center's contour, and which of them is the right one.

#include <VorFrames/RightRegion.h>

#include "Preconditions.h"

#include <VorConjoin/GabaritObject.h>

namespace VorSystem
{

namespace
{

constexpr char kSourceUnit[] = R"(src\Frames\VORStCtlCentre)";

constexpr short kRightRegion = 1;
constexpr short kOtherRegion = 2;

} // namespace

short RightRegion::getIdentifierByRegion(GabaritObject *gabarit, CDbPointVOR *center1, CDbPointVOR *center2,
                                         CDbPointVOR *vector) const
{
    const eStatusRegion side = identifierRegionVector(gabarit, center1, center2, vector);
    const eStatusRegion otherSide = side == Status_OnStretch ? Status_OffStretch : Status_OnStretch;
    // A region that names neither side, 2 above all, makes every vector right.
    return mRegion == otherSide ? kOtherRegion : kRightRegion;
}

RightRegion::eStatusRegion RightRegion::identifierRegionVector(GabaritObject *gabarit, CDbPointVOR *center1,
                                                               CDbPointVOR *center2,
                                                               CDbPointVOR *vector) const
{
    VOR_REQUIRE(gabarit && center1 && center2 && vector);
    return gabarit->gabaritVectorBetween2Vectors(vector, center1, center2, true) ? Status_OnStretch
                                                                                 : Status_OffStretch;
}

} // namespace VorSystem
