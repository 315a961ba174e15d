// Which side of a center counts as the right one.
#pragma once

#include <VorFrames/VorFramesExport.h>

namespace VorSystem
{

class CDbPointVOR;
class GabaritObject;

/// The region named as the right one: 0, 1, or 2 for every side. A stored document may hold other numbers.
class VORFRAMES_EXPORT RightRegion
{
public:
    /// The side a vector is on.
    enum eStatusRegion : int {
        Status_OnStretch = 0,  ///< between the center's vectors 1 and 2 in contour order
        Status_OffStretch = 1, ///< anywhere else
    };

    /// Takes any number; one that names no side counts like 2.
    explicit RightRegion(int region = 2) : mRegion(region) {}

    /// The number as it was given.
    int region() const { return mRegion; }
    /// Takes any number, for all centers that share this region.
    void setRegion(int region) { mRegion = region; }

    /// 2 when the other side is named as the right one, else 1. Raises AssertionError for a null argument.
    short getIdentifierByRegion(GabaritObject *gabarit, CDbPointVOR *center1, CDbPointVOR *center2,
                                CDbPointVOR *vector) const;
    /// Whether vector lies on the stretch from center1 to center2. Raises AssertionError for a null argument.
    eStatusRegion identifierRegionVector(GabaritObject *gabarit, CDbPointVOR *center1, CDbPointVOR *center2,
                                         CDbPointVOR *vector) const;

private:
    friend class ControlCenter;

    int mRegion;
    int mHolders = 1; ///< centers that point here: a plain copy of a center shares the region
};

} // namespace VorSystem
