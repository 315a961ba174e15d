// The mirror of a group.
// Neither half is master: a move of one half is shared by both, so that no move is undone or doubled.

#include <VorConjoin/CDbGroupObject.h>
#include <VorConjoin/CDbPointVOR.h>
#include <VorConjoin/Mirror.h>
#include <VorGeo/GeoAlgorithms.h>

#include <cmath>

namespace VorSystem
{

namespace
{

constexpr double kSymmetric = 1e-9; // cm; pairs this near to symmetry are not touched

bool isNear(const GeoPoint2D &a, const GeoPoint2D &b)
{
    return std::abs(a.mX - b.mX) <= kSymmetric && std::abs(a.mY - b.mY) <= kSymmetric;
}

GeoPoint2D middle(const GeoPoint2D &a, const GeoPoint2D &b)
{
    return GeoPoint2D(0.5 * (a.mX + b.mX), 0.5 * (a.mY + b.mY));
}

void setDisplacement(CDbPointVOR &vector, const GeoPoint2D &displacement)
{
    vector.mDisplacementX = static_cast<float>(displacement.mX);
    vector.mDisplacementY = static_cast<float>(displacement.mY);
}

} // namespace

Mirror::Mirror(const GeoPoint2D &a, const GeoPoint2D &b) : mA(a), mB(b) {}

Mirror::MirrorTag Mirror::getTagByID(const CDbObjetVOR &object) const
{
    const int identity = object.Num_ID().number();
    const auto found = mPairOf.find(identity);
    if (found == mPairOf.end())
        return Mirror_Undecided;
    const Pair &pair = mPairs[found->second];
    if (pair.side1 == pair.side2)
        return Mirror_Undecided;
    return pair.side1->Num_ID().number() == identity ? Mirror_Side1 : Mirror_Side2;
}

Mirror::MirrorTag Mirror::getGeometricTag(const CDbPointVOR &vector) const
{
    if (isOnAxis(vector))
        return Mirror_Side1;
    const GeoPoint2D along = mB - mA;
    const GeoPoint2D off = vector - mA;
    return along.mX * off.mY - along.mY * off.mX >= 0.0 ? Mirror_Side1 : Mirror_Side2;
}

bool Mirror::addPair(CDbPointVOR *side1, CDbPointVOR *side2)
{
    const CDbGroupObject *piece = side1 && side2 ? side1->group() : nullptr;
    if (!piece || side2->group() != piece || piece->mMirror != this)
        return false;
    const int first = side1->Num_ID().number();
    const int second = side2->Num_ID().number();
    if (mPairOf.count(first) > 0 || mPairOf.count(second) > 0)
        return false;
    mPairOf[first] = mPairOf[second] = mPairs.size();
    mPairs.push_back({side1, side2});
    return true;
}

CDbPointVOR *Mirror::imageOf(const CDbPointVOR *vector) const
{
    const auto found = vector ? mPairOf.find(vector->Num_ID().number()) : mPairOf.end();
    if (found == mPairOf.end())
        return nullptr;
    const Pair &pair = mPairs[found->second];
    return vector == pair.side1 ? pair.side2 : vector == pair.side2 ? pair.side1 : nullptr;
}

void Mirror::forget(const CDbPointVOR *vector)
{
    if (!imageOf(vector))
        return;
    const std::size_t place = mPairOf[vector->Num_ID().number()];
    mPairOf.erase(mPairs[place].side1->Num_ID().number());
    mPairOf.erase(mPairs[place].side2->Num_ID().number());
    if (place + 1 < mPairs.size()) {
        mPairs[place] = mPairs.back();
        mPairOf[mPairs[place].side1->Num_ID().number()] = place;
        mPairOf[mPairs[place].side2->Num_ID().number()] = place;
    }
    mPairs.pop_back();
}

GeoPoint2D Mirror::reflected(const GeoPoint2D &place) const
{
    const GeoPoint2D foot = Geo::projection(place, mA, mB);
    return GeoPoint2D(2.0 * foot.mX - place.mX, 2.0 * foot.mY - place.mY);
}

bool Mirror::isOnAxis(const GeoPoint2D &place) const
{
    return Geo::projection(place, mA, mB).distance(place) <= Geo::kSamePlace;
}

void Mirror::makePlacesSymmetric()
{
    for (const Pair &pair : mPairs) {
        const GeoPoint2D image = reflected(*pair.side2);
        if (isNear(*pair.side1, image))
            continue;
        const GeoPoint2D mean = middle(*pair.side1, image);
        *pair.side1 = mean;
        // A vector on the axis is both sides of its pair: the mean is its foot on the axis already.
        if (pair.side2 != pair.side1)
            *pair.side2 = reflected(mean);
    }
}

void Mirror::makeDisplacementsSymmetric()
{
    // Reflecting a displacement: about the axis moved into the origin.
    const Mirror turned(GeoPoint2D(), mB - mA);
    for (const Pair &pair : mPairs) {
        const GeoPoint2D own(double(pair.side1->mDisplacementX), double(pair.side1->mDisplacementY));
        const GeoPoint2D other(double(pair.side2->mDisplacementX), double(pair.side2->mDisplacementY));
        const GeoPoint2D image = turned.reflected(other);
        if (isNear(own, image))
            continue;
        const GeoPoint2D mean = middle(own, image);
        setDisplacement(*pair.side1, mean);
        if (pair.side2 != pair.side1)
            setDisplacement(*pair.side2, turned.reflected(mean));
    }
}

} // namespace VorSystem
