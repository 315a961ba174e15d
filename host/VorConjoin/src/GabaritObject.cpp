// A gabarit: its life, its contour, and what lies on which stretch of it.
// Lengths are in ContourLengths.cpp, moves in ContourMoves.cpp, darts in Darts.cpp.

#include <VorConjoin/CDbGroupObject.h>
#include <VorConjoin/CDbPointVOR.h>
#include <VorConjoin/CurveObject.h>
#include <VorConjoin/DartContour.h>
#include <VorConjoin/GabaritObject.h>
#include <VorConjoin/LineObject.h>
#include <VorGeo/PolygonProbe.h>

#include <algorithm>
#include <cmath>

namespace VorSystem
{

namespace
{

// Between the vectors of a dart's mouth nothing is put: they stay neighbours.
bool isMouthEdge(const GabaritObject &gabarit, const CDbPointVOR *from, const CDbPointVOR *to)
{
    for (const DartContour *dart = gabarit.mFirstDart; dart; dart = dart->mNextDart) {
        const short role = dart->roleOf(from);
        const short next = role == Dart_FirstLeg && dart->pICGetVector(Dart_Cap) ? Dart_Cap : Dart_SecondLeg;
        if ((role == Dart_FirstLeg || role == Dart_Cap) && dart->pICGetVector(next) == to)
            return true;
    }
    return false;
}

} // namespace

GabaritObject::GabaritObject() : mContour(VectorChain::Circular, &mFirstVector, this, nullptr) {}

GabaritObject::~GabaritObject()
{
    if (mGroup)
        mGroup->release(this);
    while (mFirstDart)
        removeDart(mFirstDart);
}

GabaritObject *GabaritObject::create()
{
    return new GabaritObject;
}

void GabaritObject::removeAGabarit(CDbGroupObject *group, GabaritObject **gabarit)
{
    if (!gabarit || !*gabarit || (*gabarit)->mGroup != group)
        return;
    delete *gabarit;
    *gabarit = nullptr;
}

void GabaritObject::setControlSkeleton(ControlSkeleton *skeleton)
{
    mSkeleton = skeleton;
}

ControlSkeleton *GabaritObject::controlSkeleton()
{
    return mSkeleton;
}

bool GabaritObject::gabaritAddContourVector(CDbPointVOR *v, CDbGroupObject *group)
{
    const bool isOtherGroup = group && mGroup && group != mGroup;
    if (isOtherGroup || isMouthEdge(*this, mContour.at(mContour.count()), mFirstVector) ||
        !mContour.append(v))
        return false;
    if (mGroup)
        mGroup->enroll(v);
    return true;
}

CDbPointVOR *GabaritObject::addContourVector(const GeoPoint2D &place, int kind, const RegularSteps *steps)
{
    CDbPointVOR *v = CDbPointVOR::newVectorObject();
    *v = place;
    v->mVectorKind = kind;
    if (steps)
        v->setRegularSteps(*steps);
    if (!gabaritAddContourVector(v, mGroup))
        CDbPointVOR::destroyVectorObject(&v);
    return v;
}

bool GabaritObject::insertContourVector(CDbPointVOR *v, const CDbPointVOR *behind)
{
    const short index = mContour.indexOf(behind);
    if (index == 0 || isMouthEdge(*this, behind, neighbor(behind, true)) || !mContour.insert(v, index))
        return false;
    if (mGroup)
        mGroup->enroll(v);
    return true;
}

bool GabaritObject::takeContourVector(CDbPointVOR *v)
{
    if (!mContour.holds(v) || uses(v) || (mGroup && mGroup->uses(v)))
        return false;
    if (mGroup)
        mGroup->strike(v);
    return mContour.take(v);
}

CDbPointVOR *GabaritObject::gabaritFirstContourVector()
{
    mCursor = 1;
    return mContour.at(mCursor);
}

CDbPointVOR *GabaritObject::gabaritNextContourVector()
{
    mCursor = mCursor >= mContour.count() ? 1 : mCursor + 1;
    return mContour.at(mCursor);
}

short GabaritObject::gabaritGetContourIndex(const CDbPointVOR *v) const
{
    return mContour.indexOf(v);
}

CDbPointVOR *GabaritObject::gabaritGetContourVector(short index) const
{
    return mContour.at(index);
}

bool GabaritObject::isVectorContour(const CDbPointVOR *v) const
{
    return mContour.holds(v);
}

CDbPointVOR *GabaritObject::vectorEquivalentOf(const GabaritObject *other, const CDbPointVOR *v) const
{
    return other ? other->mContour.at(mContour.indexOf(v)) : nullptr;
}

CDbPointVOR *GabaritObject::neighbor(const CDbPointVOR *v, bool forward) const
{
    return mContour.neighbor(v, forward);
}

bool GabaritObject::gabaritVectorBetween2Vectors(const CDbPointVOR *v, const CDbPointVOR *a,
                                                 const CDbPointVOR *b, bool forward) const
{
    const int place = stepsBetween(a, v, forward);
    const int end = stepsBetween(a, b, forward);
    return place >= 0 && end >= 0 && place <= end;
}

// Steps from a to b in a sense; -1 when one of them is not on this contour.
int GabaritObject::stepsBetween(const CDbPointVOR *a, const CDbPointVOR *b, bool forward) const
{
    const int from = mContour.indexOf(a);
    const int to = mContour.indexOf(b);
    if (from == 0 || to == 0)
        return -1;
    const int steps = forward ? to - from : from - to;
    return steps < 0 ? steps + mContour.count() : steps;
}

bool GabaritObject::isVectorsBetweenTwoPointOfContours(const CDbPointVOR *v, const CDbPointVOR *a,
                                                       const CDbPointVOR *b, bool forward) const
{
    return gabaritVectorBetween2Vectors(v, a, b, forward);
}

// All points lie on the stretch, and the way along the curve never leaves it through its ends.
bool GabaritObject::liesOnStretch(const CurveObject &curve, const CDbPointVOR *a, const CDbPointVOR *b,
                                  bool forward) const
{
    const int end = stepsBetween(a, b, forward);
    std::vector<int> places;
    for (const CDbPointVOR *point : curve.points()) {
        const int place = stepsBetween(a, point, forward);
        if (place < 0 || place > end)
            return false;
        places.push_back(place);
    }
    return std::is_sorted(places.begin(), places.end()) || std::is_sorted(places.rbegin(), places.rend());
}

bool GabaritObject::isControlCurveBetween(const CDbPointVOR *v, const CDbPointVOR *a, const CDbPointVOR *b,
                                          bool forward, CurveObject **curve) const
{
    CurveObject *found = nullptr;
    const bool isHandleOfAContourCurve =
        mGroup && mGroup->isVectorInGroupCurve(v, true, false, true, false, nullptr, nullptr, &found) &&
        found->isHandle(v) && found->contour() == this && liesOnStretch(*found, a, b, forward);
    if (curve)
        *curve = isHandleOfAContourCurve ? found : nullptr;
    return isHandleOfAContourCurve;
}

bool GabaritObject::isInPolygon(const GeoPoint2D &point, bool *onBorder) const
{
    Geo::PolygonProbe probe(point);
    const CDbPointVOR *before = mContour.at(mContour.count());
    for (const CDbPointVOR *v : mContour.vectors()) {
        probe.addEdge(*before, *v);
        before = v;
    }
    if (onBorder)
        *onBorder = probe.isOnBorder();
    return probe.isInside();
}

double GabaritObject::area() const
{
    if (mContour.count() == 0)
        return 0.0;
    const GeoPoint2D origin = *mFirstVector;
    double twice = 0.0;
    const CDbPointVOR *before = mContour.at(mContour.count());
    for (const CDbPointVOR *v : mContour.vectors()) {
        const GeoPoint2D a = *before - origin;
        const GeoPoint2D b = *v - origin;
        twice += a.mX * b.mY - a.mY * b.mX;
        before = v;
    }
    return std::abs(twice) / 2.0;
}

bool GabaritObject::groupIsVectorInWhichGabarit(const CDbGroupObject *group, const CDbPointVOR *v,
                                                GabaritObject **gabarit)
{
    if (!group) {
        if (gabarit)
            *gabarit = nullptr;
        return false;
    }
    return group->isVectorContour(v, gabarit);
}

// Something of this gabarit beside the contour rests on v.
bool GabaritObject::uses(const CDbPointVOR *v) const
{
    for (const DartContour *dart = mFirstDart; dart; dart = dart->mNextDart) {
        if (dart->roleOf(v) != 0)
            return true;
    }
    return std::any_of(mPleats.begin(), mPleats.end(),
                       [&](const Pleat &pleat) { return pleat.vector == v || pleat.a == v || pleat.b == v; });
}

bool GabaritObject::setPleat(CDbPointVOR *v, const CDbPointVOR *a, const CDbPointVOR *b, double u)
{
    const bool isOnContour = isVectorContour(v) && isVectorContour(a) && isVectorContour(b);
    if (!isOnContour || !a->isAnchor() || !b->isAnchor() || a == v || b == v || !(u >= 0.0 && u <= 1.0))
        return false;
    mPleats.erase(
        std::remove_if(mPleats.begin(), mPleats.end(), [&](const Pleat &pleat) { return pleat.vector == v; }),
        mPleats.end());
    v->mVectorKind = Vector_Pleat;
    mPleats.push_back({v, a, b, u});
    return true;
}

double GabaritObject::pleatParameter(const CDbPointVOR *v) const
{
    const auto found =
        std::find_if(mPleats.begin(), mPleats.end(), [&](const Pleat &pleat) { return pleat.vector == v; });
    return found == mPleats.end() ? 0.0 : found->u;
}

} // namespace VorSystem
