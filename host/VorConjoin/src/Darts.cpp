// Darts: their mouth, their legs, and what a rebuild makes of them.

#include "Settle.h"

#include <VorConjoin/CDbGroupObject.h>
#include <VorConjoin/CDbPointVOR.h>
#include <VorConjoin/CurveObject.h>
#include <VorConjoin/DartContour.h>
#include <VorConjoin/GabaritObject.h>
#include <VorConjoin/GradationData.h>
#include <VorConjoin/LineObject.h>

#include <algorithm>
#include <cmath>

namespace VorSystem
{

namespace
{

constexpr double kEqualLegs = 1e-6; // cm
constexpr double kCapHeight = 0.5;  // cm from the middle of the mouth to the cap

// The place that stands to from, to as place stands to oldFrom, oldTo: turned and scaled with the line.
GeoPoint2D carriedAlong(const GeoPoint2D &place, const GeoPoint2D &oldFrom, const GeoPoint2D &oldTo,
                        const GeoPoint2D &from, const GeoPoint2D &to)
{
    const GeoPoint2D old = oldTo - oldFrom;
    const GeoPoint2D now = to - from;
    const GeoPoint2D off = place - oldFrom;
    const double square = old.mX * old.mX + old.mY * old.mY;
    const double along = (off.mX * old.mX + off.mY * old.mY) / square;
    const double aside = (old.mX * off.mY - old.mY * off.mX) / square;
    return GeoPoint2D(from.mX + along * now.mX - aside * now.mY, from.mY + along * now.mY + aside * now.mX);
}

double lengthInSize(const std::vector<const CDbPointVOR *> &way, short size, const GradationData &gradation)
{
    double sum = 0.0;
    for (std::size_t place = 1; place < way.size(); ++place) {
        sum += way[place - 1]
                   ->positionInSize(size, &gradation)
                   .distance(way[place]->positionInSize(size, &gradation));
    }
    return sum;
}

} // namespace

DartContour::DartContour(CDbPointVOR *firstLeg, CDbPointVOR *cap, CDbPointVOR *secondLeg, CDbPointVOR *pivot)
    : mPivotVector(pivot), mMouth{firstLeg, cap, secondLeg}
{
}

DartContour::~DartContour()
{
    freeCopies();
    freeShapes();
}

CDbPointVOR *DartContour::pICGetVector(short role) const
{
    if (role >= Dart_FirstLeg && role <= Dart_SecondLeg)
        return mMouth[static_cast<std::size_t>(role - 1)];
    return role == Dart_Pivot ? mPivotVector : nullptr;
}

void DartContour::pICAvoirLes2LiensDuPivot(const CDbGroupObject *group, LineObject **first,
                                           LineObject **second) const
{
    if (first)
        *first = group && !mLegs[0].empty() ? mLegs[0].front() : nullptr;
    if (second)
        *second = group && !mLegs[1].empty() ? mLegs[1].front() : nullptr;
}

void DartContour::pICAdjustTheCopyVectors()
{
    freeCopies();
    const CDbPointVOR *tip = pICGetVector(Dart_SecondLeg);
    mPivotCopy = mPivotVector ? mPivotVector->copyTheVector() : nullptr;
    mTipCopy = tip ? tip->copyTheVector() : nullptr;
}

void DartContour::freeCopies()
{
    CDbPointVOR::destroyVectorObject(&mPivotCopy);
    CDbPointVOR::destroyVectorObject(&mTipCopy);
}

short DartContour::roleOf(const CDbPointVOR *v) const
{
    for (short role = Dart_FirstLeg; v && role <= Dart_Pivot; ++role) {
        if (pICGetVector(role) == v)
            return role;
    }
    return 0;
}

bool DartContour::isDeadEdge(const CDbPointVOR *a, const CDbPointVOR *b) const
{
    const auto isMouth = [&](const CDbPointVOR *v) {
        return v && (v == mMouth[0] || v == mMouth[1] || v == mMouth[2]);
    };
    return isMouth(a) && isMouth(b);
}

bool DartContour::hasLine(const LineObject *line) const
{
    return std::any_of(mLegs.begin(), mLegs.end(),
                       [&](const Leg &leg) { return std::find(leg.begin(), leg.end(), line) != leg.end(); });
}

double DartContour::legLength(int which) const
{
    double sum = 0.0;
    for (const LineObject *line : leg(which))
        sum += line->length();
    return sum;
}

std::vector<CDbPointVOR *> DartContour::innerLegVectors(int which) const
{
    std::vector<CDbPointVOR *> found;
    CDbPointVOR *reached = mPivotVector;
    for (const LineObject *line : leg(which)) {
        CDbPointVOR *far = line->otherVectorLine(reached);
        if (const CurveObject *curve = line->getCurveLine()) {
            std::vector<CDbPointVOR *> points = curve->points();
            if (points.back() == reached)
                std::reverse(points.begin(), points.end());
            found.insert(found.end(), points.begin() + 1, points.end() - 1);
        }
        if (line != leg(which).back())
            found.push_back(far);
        reached = far;
    }
    return found;
}

void DartContour::recordLegShapes()
{
    freeShapes();
    for (int which = 0; which < 2; ++which) {
        const std::vector<CDbPointVOR *> inner = innerLegVectors(which);
        const CDbPointVOR *end = pICGetVector(which == 0 ? Dart_FirstLeg : Dart_SecondLeg);
        if (inner.empty() || !mPivotVector || !end)
            continue;
        auto &shape = mShapes[static_cast<std::size_t>(which)];
        shape.push_back(mPivotVector->copyTheVector());
        for (const CDbPointVOR *v : inner)
            shape.push_back(v->copyTheVector());
        shape.push_back(end->copyTheVector());
    }
}

void DartContour::takeLegShapesOf(const DartContour &source)
{
    if (&source == this)
        return;
    freeShapes();
    for (std::size_t which = 0; which < mShapes.size(); ++which) {
        for (const CDbPointVOR *v : source.mShapes[which])
            mShapes[which].push_back(v->copyTheVector());
    }
}

void DartContour::freeShapes()
{
    for (auto &shape : mShapes) {
        for (CDbPointVOR *v : shape)
            CDbPointVOR::destroyVectorObject(&v);
        shape.clear();
    }
}

bool DartContour::legsAreEqualInEverySize() const
{
    const CDbPointVOR *first = mMouth[0];
    const CDbPointVOR *second = mMouth[2];
    if (!first || !second || !mPivotVector || std::abs(legLength(0) - legLength(1)) > kEqualLegs)
        return false;

    // The legs as they are drawn, and straight across: a rebuild makes the latter equal, and each leg keeps
    // its shape over it.
    std::array<std::vector<const CDbPointVOR *>, 4> ways;
    for (std::size_t which = 0; which < 2; ++which) {
        const std::vector<CDbPointVOR *> inner = innerLegVectors(static_cast<int>(which));
        const CDbPointVOR *end = which == 0 ? first : second;
        ways[which] = {mPivotVector};
        ways[which].insert(ways[which].end(), inner.begin(), inner.end());
        ways[which].push_back(end);
        ways[which + 2] = {mPivotVector, end};
    }

    // Regular vectors alone: one size to either side of the nest tells.
    GradationData gradation(3, 2);
    for (const auto &way : ways) {
        for (const CDbPointVOR *v : way) {
            if (const IrregularGradationData *own = v->mIrregularGradation)
                gradation = GradationData(own->size(), own->indexMedium());
        }
    }
    for (short size = 1; size <= gradation.gradationNum(); ++size) {
        const auto lengthOf = [&](std::size_t way) { return lengthInSize(ways[way], size, gradation); };
        if (std::abs(lengthOf(0) - lengthOf(1)) > kEqualLegs ||
            std::abs(lengthOf(2) - lengthOf(3)) > kEqualLegs)
            return false;
    }
    return true;
}

void DartContour::restorePivot()
{
    const CDbPointVOR *first = mMouth[0];
    const CDbPointVOR *second = mMouth[2];
    if (!mLegsMadeEqual || !first || !second || !mPivotVector)
        return;
    const double difference = mPivotVector->distance(*first) - mPivotVector->distance(*second);
    const double width = first->distance(*second);
    if (std::abs(difference) <= kEqualLegs || width == 0.0)
        return;

    // The nearest place with equal legs: the foot on the perpendicular bisector of the mouth.
    const GeoPoint2D across((second->mX - first->mX) / width, (second->mY - first->mY) / width);
    const double off = (mPivotVector->mX - 0.5 * (first->mX + second->mX)) * across.mX +
                       (mPivotVector->mY - 0.5 * (first->mY + second->mY)) * across.mY;
    mPivotVector->mX -= off * across.mX;
    mPivotVector->mY -= off * across.mY;
}

void DartContour::restoreInnerLegs(short sizeNumber, const GradationData *gradation)
{
    for (int which = 0; which < 2; ++which) {
        const auto &shape = mShapes[static_cast<std::size_t>(which)];
        const std::vector<CDbPointVOR *> inner = innerLegVectors(which);
        const CDbPointVOR *end = pICGetVector(which == 0 ? Dart_FirstLeg : Dart_SecondLeg);
        if (shape.size() != inner.size() + 2 || !mPivotVector || !end)
            continue;
        const GeoPoint2D oldPivot = shape.front()->positionInSize(sizeNumber, gradation);
        const GeoPoint2D oldEnd = shape.back()->positionInSize(sizeNumber, gradation);
        if (oldPivot == oldEnd)
            continue;
        for (std::size_t place = 0; place < inner.size(); ++place) {
            const GeoPoint2D old = shape[place + 1]->positionInSize(sizeNumber, gradation);
            const GeoPoint2D now = carriedAlong(old, oldPivot, oldEnd, *mPivotVector, *end);
            settle(*inner[place], now.mX, now.mY);
        }
    }
}

void DartContour::restoreCap()
{
    const auto &[first, cap, second] = mMouth;
    if (!first || !cap || !second || !mPivotVector)
        return;
    const GeoPoint2D middle(0.5 * (first->mX + second->mX), 0.5 * (first->mY + second->mY));
    GeoPoint2D place;
    CDbPointVOR::vectorManagementUnitDist(middle, kCapHeight, middle, *mPivotVector, place);
    settle(*cap, place.mX, place.mY);
}

void DartContour::standardizeDisplacements()
{
    const auto &[first, cap, second] = mMouth;
    if (!first || !second)
        return;
    const float x = 0.5F * (first->mDisplacementX + second->mDisplacementX);
    const float y = 0.5F * (first->mDisplacementY + second->mDisplacementY);
    std::vector<CDbPointVOR *> dependents = innerLegVectors(0);
    const std::vector<CDbPointVOR *> secondInner = innerLegVectors(1);
    dependents.insert(dependents.end(), secondInner.begin(), secondInner.end());
    dependents.push_back(cap);
    dependents.push_back(mPivotVector);
    for (CDbPointVOR *v : dependents) {
        if (!v)
            continue;
        v->mDisplacementX = x;
        v->mDisplacementY = y;
    }
}

bool GabaritObject::addDart(DartContour *dart)
{
    if (!dart || dart->mNextDart || dart == mFirstDart)
        return false;
    const CDbPointVOR *first = dart->pICGetVector(Dart_FirstLeg);
    const CDbPointVOR *cap = dart->pICGetVector(Dart_Cap);
    const CDbPointVOR *second = dart->pICGetVector(Dart_SecondLeg);
    if (!isVectorContour(first) || !isVectorContour(second) || first == second)
        return false;
    const bool isMouth =
        cap ? neighbor(first, true) == cap && neighbor(cap, true) == second : neighbor(first, true) == second;
    if (!isMouth)
        return false;

    DartContour **place = &mFirstDart;
    while (*place) {
        if (*place == dart)
            return false;
        place = &(*place)->mNextDart;
    }
    *place = dart;
    return true;
}

bool GabaritObject::removeDart(DartContour *dart)
{
    for (DartContour **place = &mFirstDart; *place; place = &(*place)->mNextDart) {
        if (*place != dart)
            continue;
        *place = dart->mNextDart;
        delete dart;
        return true;
    }
    return false;
}

bool GabaritObject::pICGabIsWhichDart(const CDbPointVOR *v, DartContour **dart, short *which) const
{
    DartContour *found = mFirstDart;
    short role = 0;
    for (; found; found = found->mNextDart) {
        role = found->roleOf(v);
        if (role >= Dart_FirstLeg && role <= Dart_SecondLeg)
            break;
    }
    if (dart)
        *dart = found;
    if (which)
        *which = found ? role : short{0};
    return found != nullptr;
}

bool GabaritObject::isDeadEdge(const CDbPointVOR *a, const CDbPointVOR *b) const
{
    for (const DartContour *dart = mFirstDart; dart; dart = dart->mNextDart) {
        if (dart->isDeadEdge(a, b))
            return true;
    }
    return false;
}

bool CDbGroupObject::pICIsLine(const LineObject *line, DartContour **dart) const
{
    DartContour *found = nullptr;
    for (const GabaritObject *gabarit = mFirstGabarit; gabarit && !found; gabarit = gabarit->mNextGabarit) {
        for (found = gabarit->mFirstDart; found && !found->hasLine(line);)
            found = found->mNextDart;
    }
    if (dart)
        *dart = found;
    return found != nullptr;
}

LineObject *CDbGroupObject::pICGetLineNext(const LineObject *line, const CDbPointVOR *end,
                                           CDbPointVOR **otherEnd) const
{
    LineObject *following = nullptr;
    DartContour *dart = nullptr;
    if (line && end && pICIsLine(line, &dart))
        following = dart->lineBeyond(line, end);
    if (otherEnd)
        *otherEnd = following ? following->otherVectorLine(end) : nullptr;
    return following;
}

// The neighbour of a line on its leg that has this end too; null past the last one.
LineObject *DartContour::lineBeyond(const LineObject *line, const CDbPointVOR *end) const
{
    for (const Leg &leg : mLegs) {
        const auto place = std::find(leg.begin(), leg.end(), line);
        if (place == leg.end())
            continue;
        if (place + 1 != leg.end() && (*(place + 1))->otherVectorLine(end))
            return *(place + 1);
        if (place != leg.begin() && (*(place - 1))->otherVectorLine(end))
            return *(place - 1);
    }
    return nullptr;
}

} // namespace VorSystem
