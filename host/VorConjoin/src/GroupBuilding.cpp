// Building a piece: own vectors, lines, curves, darts, pleats, mirror and marks.
// Everything is checked before anything is made, so that a refusal leaves the piece as it was.

#include <VorConjoin/CDbGroupObject.h>
#include <VorConjoin/CDbPointVOR.h>
#include <VorConjoin/CurveObject.h>
#include <VorConjoin/DartContour.h>
#include <VorConjoin/GabaritObject.h>
#include <VorConjoin/GradationData.h>
#include <VorConjoin/LineObject.h>
#include <VorConjoin/Mirror.h>
#include <VorGeo/GeoAlgorithms.h>

#include <algorithm>
#include <cmath>
#include <unordered_set>

namespace VorSystem
{

namespace
{

Evolution between(const Evolution &a, const Evolution &b, double u)
{
    return {(1.0 - u) * a.x + u * b.x, (1.0 - u) * a.y + u * b.y};
}

// Evolution of a vector in a size of a gradation that need not be its own.
Evolution evolutionIn(const CDbPointVOR &v, short size, const GradationData &gradation)
{
    const GeoPoint2D step =
        v.positionInSize(size, &gradation) - v.positionInSize(gradation.mediumIndex(), &gradation);
    return {step.mX, step.mY};
}

// Puts v on the line from a to b, at parameter u, in every size.
void placeBetween(CDbPointVOR &v, const CDbPointVOR &a, const CDbPointVOR &b, double u)
{
    const Evolution place = between({a.mX, a.mY}, {b.mX, b.mY}, u);
    v = GeoPoint2D(place.x, place.y);

    const IrregularGradationData *own = a.mIrregularGradation ? a.mIrregularGradation : b.mIrregularGradation;
    if (!own) {
        const RegularSteps &stepsA = a.regularSteps();
        const RegularSteps &stepsB = b.regularSteps();
        v.setRegularSteps({between(stepsA.small, stepsB.small, u), between(stepsA.large, stepsB.large, u)});
        return;
    }
    const GradationData gradation(own->size(), own->indexMedium());
    std::vector<Evolution> evolutions;
    for (short size = 1; size <= gradation.gradationNum(); ++size)
        evolutions.push_back(between(evolutionIn(a, size, gradation), evolutionIn(b, size, gradation), u));
    evolutions[static_cast<std::size_t>(gradation.mediumIndex() - 1)] = {};
    v.setEvolutions(evolutions, gradation.mediumIndex());
}

// The lines lead from the pivot to the end without a break, and meet no vector twice: a walk that asks at
// each end for the line beyond it would turn round there.
bool isLeg(const std::vector<LineObject *> &lines, const CDbPointVOR *pivot, const CDbPointVOR *end)
{
    std::unordered_set<const CDbPointVOR *> met = {pivot};
    const CDbPointVOR *reached = pivot;
    for (const LineObject *line : lines) {
        reached = line ? line->otherVectorLine(reached) : nullptr;
        if (!reached || !met.insert(reached).second)
            return false;
    }
    return reached == end;
}

// a and b are neighbours on a curve.
bool isCurveEdge(const std::vector<LineObject *> &lines, const CDbPointVOR *a, const CDbPointVOR *b)
{
    return std::any_of(lines.begin(), lines.end(), [&](const LineObject *line) {
        if (!line->linkIsCurve())
            return false;
        const std::vector<CDbPointVOR *> &points = line->getCurveLine()->points();
        for (std::size_t place = 1; place < points.size(); ++place) {
            const CDbPointVOR *one = points[place - 1];
            const CDbPointVOR *other = points[place];
            if ((one == a && other == b) || (one == b && other == a))
                return true;
        }
        return false;
    });
}

} // namespace

CDbPointVOR *CDbGroupObject::addOwnVector(const GeoPoint2D &place, int kind, const RegularSteps *steps)
{
    CDbPointVOR *v = CDbPointVOR::newVectorObject();
    *v = place;
    v->mVectorKind = kind;
    if (steps)
        v->setRegularSteps(*steps);
    if (!groupAddVector(v))
        CDbPointVOR::destroyVectorObject(&v);
    return v;
}

LineObject *CDbGroupObject::addLine(CDbPointVOR *a, CDbPointVOR *b)
{
    if (!holds(a) || !holds(b) || a == b)
        return nullptr;
    mLines.push_back(new LineObject(a, b));
    return mLines.back();
}

LineObject *CDbGroupObject::addCurve(const std::vector<CDbPointVOR *> &points)
{
    const bool isInGroup =
        std::all_of(points.begin(), points.end(), [&](const CDbPointVOR *point) { return holds(point); });
    if (points.size() < 2 || !isInGroup || mOwnVectors.count() + 2 > VectorChain::MaxCount)
        return nullptr;
    CDbPointVOR *firstHandle = addOwnVector({}, Vector_Handle);
    CDbPointVOR *lastHandle = addOwnVector({}, Vector_Handle);
    placeBetween(*firstHandle, *points.front(), *points[1], 1.0 / 3.0);
    placeBetween(*lastHandle, *points.back(), *points[points.size() - 2], 1.0 / 3.0);
    return addCurve(points, firstHandle, lastHandle);
}

LineObject *CDbGroupObject::addCurve(const std::vector<CDbPointVOR *> &points, CDbPointVOR *firstHandle,
                                     CDbPointVOR *lastHandle)
{
    const bool isInGroup =
        std::all_of(points.begin(), points.end(), [&](const CDbPointVOR *point) { return holds(point); });
    // A handle follows one curve, and dies with it.
    const auto isFree = [&](const CDbPointVOR *handle) {
        return isGroupVector(handle) && std::find(points.begin(), points.end(), handle) == points.end() &&
               std::none_of(mLines.begin(), mLines.end(), [&](const LineObject *line) {
                   return line->linkIsCurve() && line->getCurveLine()->isHandle(handle);
               });
    };
    const bool areHandlesFree = (!firstHandle || isFree(firstHandle)) &&
                                (!lastHandle || isFree(lastHandle)) &&
                                (!firstHandle || firstHandle != lastHandle);
    if (points.size() < 2 || points.size() > VectorChain::MaxCount || !isInGroup || !areHandlesFree)
        return nullptr;
    for (std::size_t place = 1; place + 1 < points.size(); ++place) {
        if (points[place]->mVectorKind == Vector_Corner)
            points[place]->mVectorKind = Vector_Curve;
    }
    for (CDbPointVOR *handle : {firstHandle, lastHandle}) {
        if (handle)
            handle->mVectorKind = Vector_Handle;
    }
    auto *curve = new CurveObject(points, firstHandle, lastHandle);
    mLines.push_back(new LineObject(points.front(), points.back(), curve));
    mCurvesByVectorIsFresh = false;
    curve->recalculateHandles();
    return mLines.back();
}

bool CDbGroupObject::isDartPossible(const GabaritObject *gabarit, const CDbPointVOR *pivot) const
{
    return gabarit && gabarit->group() == this && holds(pivot);
}

DartContour *CDbGroupObject::addDart(GabaritObject *gabarit, CDbPointVOR *firstLeg, CDbPointVOR *cap,
                                     CDbPointVOR *secondLeg, CDbPointVOR *pivot,
                                     const std::vector<CDbPointVOR *> &firstInner,
                                     const std::vector<CDbPointVOR *> &secondInner)
{
    std::vector<std::vector<CDbPointVOR *>> ways = {firstInner, secondInner};
    for (std::vector<CDbPointVOR *> &way : ways) {
        const bool areOwn =
            std::all_of(way.begin(), way.end(), [&](const CDbPointVOR *v) { return isGroupVector(v); });
        if (!areOwn)
            return nullptr;
        way.insert(way.begin(), pivot);
    }
    ways[0].push_back(firstLeg);
    ways[1].push_back(secondLeg);

    const std::size_t before = mLines.size();
    std::vector<std::vector<LineObject *>> legs(2);
    for (std::size_t which = 0; which < 2; ++which) {
        for (std::size_t place = 1; place < ways[which].size(); ++place)
            legs[which].push_back(addLine(ways[which][place - 1], ways[which][place]));
    }
    DartContour *dart = addDart(gabarit, firstLeg, cap, secondLeg, pivot, legs[0], legs[1]);
    while (!dart && mLines.size() > before) {
        delete mLines.back();
        mLines.pop_back();
    }
    return dart;
}

DartContour *CDbGroupObject::addDart(GabaritObject *gabarit, CDbPointVOR *firstLeg, CDbPointVOR *cap,
                                     CDbPointVOR *secondLeg, CDbPointVOR *pivot,
                                     const std::vector<LineObject *> &firstLines,
                                     const std::vector<LineObject *> &secondLines)
{
    if (!isDartPossible(gabarit, pivot) || firstLines.empty() || secondLines.empty() ||
        !isLeg(firstLines, pivot, firstLeg) || !isLeg(secondLines, pivot, secondLeg))
        return nullptr;
    // A line of two legs would not tell which of them it is asked about.
    const auto isFree = [&](const LineObject *line) {
        return std::find(mLines.begin(), mLines.end(), line) != mLines.end() && !pICIsLine(line, nullptr);
    };
    if (!std::all_of(firstLines.begin(), firstLines.end(), isFree) ||
        !std::all_of(secondLines.begin(), secondLines.end(), isFree) ||
        std::find_first_of(firstLines.begin(), firstLines.end(), secondLines.begin(), secondLines.end()) !=
            firstLines.end())
        return nullptr;
    auto dart = std::make_unique<DartContour>(firstLeg, cap, secondLeg, pivot);
    if (!gabarit->addDart(dart.get()))
        return nullptr;

    dart->mLegs = {firstLines, secondLines};
    if (cap)
        cap->mVectorKind = Vector_DartCap;
    for (int which = 0; which < 2; ++which) {
        for (CDbPointVOR *v : dart->innerLegVectors(which))
            v->mVectorKind = Vector_DartInner;
    }
    dart->recordLegShapes();
    dart->mLegsMadeEqual = dart->legsAreEqualInEverySize();
    return dart.release();
}

CDbPointVOR *CDbGroupObject::addPleatVector(CDbPointVOR *a, double u)
{
    GabaritObject *gabarit = nullptr;
    if (!isVectorContour(a, &gabarit) || !a->isAnchor() || !(u > 0.0 && u < 1.0))
        return nullptr;

    // Pleat vectors may stand on this edge already: they lie in the order of their parameters.
    CDbPointVOR *behind = a;
    CDbPointVOR *b = gabarit->neighbor(a, true);
    for (; b != a && b->mVectorKind == Vector_Pleat; b = gabarit->neighbor(b, true)) {
        if (gabarit->pleatParameter(b) <= u)
            behind = b;
    }
    if (b == a || !b->isAnchor() || gabarit->isDeadEdge(a, b) || isCurveEdge(mLines, a, b))
        return nullptr;

    CDbPointVOR *v = CDbPointVOR::newVectorObject();
    placeBetween(*v, *a, *b, u);
    if (!gabarit->insertContourVector(v, behind)) {
        CDbPointVOR::destroyVectorObject(&v);
        return nullptr;
    }
    gabarit->setPleat(v, a, b, u);
    return v;
}

Mirror *CDbGroupObject::setMirror(const GeoPoint2D &a, const GeoPoint2D &b)
{
    if (Geo::equalVector(a, b))
        return nullptr;
    delete mMirror;
    mMirror = new Mirror(a, b);
    return mMirror;
}

bool CDbGroupObject::addNotch(const CDbPointVOR *place)
{
    if (!isVectorContour(place, nullptr) || !place->isAnchor())
        return false;
    mNotches.push_back({place});
    return true;
}

bool CDbGroupObject::addGrainLine(const CDbPointVOR *anchor, const GeoPoint2D &direction, double length)
{
    const double norm = std::hypot(direction.mX, direction.mY);
    if (!holds(anchor) || !anchor->isAnchor() || !std::isfinite(norm) || norm == 0.0 || !(length > 0.0) ||
        !std::isfinite(length))
        return false;
    // A direction of length 1 stays bit for bit, so that a stored piece is read back as it was.
    const bool isUnit = std::abs(norm - 1.0) <= 1e-15;
    const GeoPoint2D along = isUnit ? direction : GeoPoint2D(direction.mX / norm, direction.mY / norm);
    mGrainLines.push_back({anchor, along, length});
    return true;
}

bool CDbGroupObject::addInnerLine(const CDbPointVOR *from, const CDbPointVOR *to, InnerLine::eUse use)
{
    if (!holds(from) || !holds(to) || from == to)
        return false;
    mInnerLines.push_back({from, to, use});
    return true;
}

bool CDbGroupObject::addSeamAllowance(const CDbPointVOR *edge, double width)
{
    if (!isVectorContour(edge, nullptr) || !(width >= 0.0) || !std::isfinite(width))
        return false;
    const auto known = std::find_if(mSeamAllowances.begin(), mSeamAllowances.end(),
                                    [&](const SeamAllowance &allowance) { return allowance.edge == edge; });
    if (known != mSeamAllowances.end())
        known->width = width;
    else
        mSeamAllowances.push_back({edge, width});
    return true;
}

bool CDbGroupObject::addDrillHole(const CDbPointVOR *place)
{
    if (!isGroupVector(place))
        return false;
    mDrillHoles.push_back({place});
    return true;
}

} // namespace VorSystem
