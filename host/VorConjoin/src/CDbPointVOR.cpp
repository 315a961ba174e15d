// A vector: its life, its neighbours, and the questions about plain points.
// Its grading is in Grading.cpp.

#include <VorConjoin/CDbGroupObject.h>
#include <VorConjoin/CDbPointVOR.h>
#include <VorConjoin/GabaritObject.h>
#include <VorConjoin/Mirror.h>
#include <VorGeo/GeoAlgorithms.h>

namespace VorSystem
{

CDbPointVOR::CDbPointVOR() = default;

CDbPointVOR::~CDbPointVOR()
{
    delete mIrregularGradation;
    delete mUnfitted;
}

CDbPointVOR *CDbPointVOR::newVectorObject()
{
    return new CDbPointVOR;
}

void CDbPointVOR::destroyVectorObject(CDbPointVOR **vector)
{
    if (!vector || !*vector || (*vector)->mGabarit || (*vector)->mGroup)
        return;
    delete *vector;
    *vector = nullptr;
}

CDbPointVOR *CDbPointVOR::copyTheVector(int) const
{
    auto *copy = new CDbPointVOR;
    copyVector(copy);
    copy->mIdentity = mIdentity;
    copy->mDisplacementX = mDisplacementX;
    copy->mDisplacementY = mDisplacementY;
    return copy;
}

void CDbPointVOR::copyVector(CDbPointVOR *target) const
{
    if (!target || target == this)
        return;
    target->takeGradingOf(*this);
    target->mX = mX;
    target->mY = mY;
    target->mVectorKind = mVectorKind;
}

CDbPointVOR &CDbPointVOR::operator=(const GeoPoint2D &place)
{
    mX = place.mX;
    mY = place.mY;
    return *this;
}

bool CDbPointVOR::setIdentity(const CDbID &identity)
{
    if (group())
        return false;
    mIdentity = identity;
    return true;
}

CDbGroupObject *CDbPointVOR::group() const
{
    return mGabarit ? mGabarit->group() : mGroup;
}

CDbPointVOR *CDbPointVOR::gabaritNeighborContourVector(bool forward) const
{
    return mGabarit ? mGabarit->neighbor(this, forward) : nullptr;
}

CDbPointVOR *CDbPointVOR::gabaritContourVectorNeighborPoint(bool forward) const
{
    CDbPointVOR *next = gabaritNeighborContourVector(forward);
    const Mirror *mirror = group() ? group()->mMirror : nullptr;
    if (!next || !mirror)
        return next;
    for (CDbPointVOR *seen = next; seen != this; seen = seen->gabaritNeighborContourVector(forward)) {
        if (!mirror->isOnAxis(*seen))
            return seen;
    }
    return next;
}

bool CDbPointVOR::equalVector(const GeoPoint2D &a, const GeoPoint2D &b)
{
    return Geo::equalVector(a, b);
}

bool CDbPointVOR::equalVectorDelta(const GeoPoint2D &a, const GeoPoint2D &b, double delta)
{
    return Geo::equalVectorDelta(a, b, delta);
}

bool CDbPointVOR::IsBetween(const GeoPoint2D &a, const GeoPoint2D &p, const GeoPoint2D &b)
{
    return Geo::isBetween(a, p, b);
}

bool CDbPointVOR::betweenDelta(const GeoPoint2D &a, const GeoPoint2D &p, const GeoPoint2D &b, double delta)
{
    return Geo::betweenDelta(a, p, b, delta);
}

void CDbPointVOR::Projection(const GeoPoint2D &p, const GeoPoint2D &a, const GeoPoint2D &b, GeoPoint2D &out)
{
    const GeoPoint2D foot = Geo::projection(p, a, b);
    out.mX = foot.mX;
    out.mY = foot.mY;
}

void CDbPointVOR::interLine(const GeoPoint2D &a, const GeoPoint2D &b, const GeoPoint2D &c,
                            const GeoPoint2D &d, GeoPoint2D &out)
{
    const GeoPoint2D crossing = Geo::interLine(a, b, c, d);
    out.mX = crossing.mX;
    out.mY = crossing.mY;
}

bool CDbPointVOR::isParallelLine(const GeoPoint2D &a, const GeoPoint2D &b, const GeoPoint2D &c,
                                 const GeoPoint2D &d)
{
    return Geo::isParallelLine(a, b, c, d);
}

bool CDbPointVOR::interSegments(const GeoPoint2D &a, const GeoPoint2D &b, const GeoPoint2D &c,
                                const GeoPoint2D &d, GeoPoint2D &out)
{
    return Geo::interSegments(a, b, c, d, out);
}

void CDbPointVOR::vectorManagementUnitDist(const GeoPoint2D &origin, double distance, const GeoPoint2D &a,
                                           const GeoPoint2D &b, GeoPoint2D &out)
{
    const GeoPoint2D reached = Geo::vectorManagementUnitDist(origin, distance, a, b);
    out.mX = reached.mX;
    out.mY = reached.mY;
}

double CDbPointVOR::scaleProjeced(const GeoPoint2D &a, const GeoPoint2D &b, const GeoPoint2D &p)
{
    return Geo::scaleProjected(a, b, p);
}

} // namespace VorSystem
