// The mirror of a group: an axis, and the pairs of vectors that are images of each other.
#pragma once

#include <VorConjoin/VorConjoinExport.h>
#include <VorGeo/GeoPoint2D.h>

#include <unordered_map>
#include <vector>

namespace VorSystem
{

class CDbObjetVOR;
class CDbPointVOR;

/// Axis and pairs of a mirrored piece; owned by its group.
class VORCONJOIN_EXPORT Mirror
{
public:
    /// Side of the axis.
    enum MirrorTag {
        Mirror_Undecided = 0, ///< not recorded
        Mirror_Side1 = 1,     ///< left of the axis from a to b, and on it
        Mirror_Side2 = 2,     ///< right of it
    };

    /// Two vectors that are images of each other; a vector on the axis is its own image.
    struct Pair {
        CDbPointVOR *side1; ///< the one that getTagByID finds on side 1
        CDbPointVOR *side2; ///< its image
    };

    /// An axis through two points; the same in every size.
    Mirror(const GeoPoint2D &a, const GeoPoint2D &b);

    /// Side recorded for an object; undecided when none is, and for one that is its own image.
    MirrorTag getTagByID(const CDbObjetVOR &object) const;
    /// Side by the place of a vector in the current size; never undecided.
    MirrorTag getGeometricTag(const CDbPointVOR &vector) const;

    /// Records two images of each other; the same vector twice for one on the axis. False for null, for a
    /// vector that is not of the mirror's piece and for one that is already recorded.
    bool addPair(CDbPointVOR *side1, CDbPointVOR *side2);
    /// All pairs; forgetting one changes their order.
    const std::vector<Pair> &pairs() const { return mPairs; }
    /// The image of a vector; null when none is recorded.
    CDbPointVOR *imageOf(const CDbPointVOR *vector) const;
    /// Drops the pair of a vector, and with it the record of its image. Nothing when there is none.
    void forget(const CDbPointVOR *vector);

    /// The points that the axis was made of.
    ///@{
    GeoPoint2D axisA() const { return mA; }
    GeoPoint2D axisB() const { return mB; }
    ///@}
    /// Where the image of this place lies.
    GeoPoint2D reflected(const GeoPoint2D &place) const;
    /// On the axis within 1e-5 cm.
    bool isOnAxis(const GeoPoint2D &place) const;

    /// Brings the places of all pairs to the nearest symmetric ones; pairs symmetric within 1e-9 keep every
    /// bit.
    void makePlacesSymmetric();
    /// The same for the working displacements.
    void makeDisplacementsSymmetric();

private:
    GeoPoint2D mA;
    GeoPoint2D mB;
    std::vector<Pair> mPairs;
    std::unordered_map<int, std::size_t> mPairOf; ///< by identity, so that a copy finds its record too
};

} // namespace VorSystem
