// Lines and curves of a piece.

#include "Settle.h"

#include <VorConjoin/CDbGroupObject.h>
#include <VorConjoin/CurveObject.h>
#include <VorConjoin/GabaritObject.h>
#include <VorConjoin/LineObject.h>

#include <algorithm>

namespace VorSystem
{

namespace
{

// A handle lies on the first third of the edge that leaves the end of the curve.
void settleHandle(CDbPointVOR *handle, const CDbPointVOR &end, const CDbPointVOR &neighbor)
{
    if (handle)
        settle(*handle, (2.0 * end.mX + neighbor.mX) / 3.0, (2.0 * end.mY + neighbor.mY) / 3.0);
}

void displaceHandle(CDbPointVOR *handle, const CDbPointVOR &end, const CDbPointVOR &neighbor)
{
    if (!handle)
        return;
    handle->mDisplacementX = (2.0F * end.mDisplacementX + neighbor.mDisplacementX) / 3.0F;
    handle->mDisplacementY = (2.0F * end.mDisplacementY + neighbor.mDisplacementY) / 3.0F;
}

} // namespace

LineObject::LineObject(CDbPointVOR *begin, CDbPointVOR *end, CurveObject *curve)
    : mBegin(begin), mEnd(end), mCurve(curve)
{
}

LineObject::~LineObject()
{
    delete mCurve;
}

CDbPointVOR *LineObject::otherVectorLine(const CDbPointVOR *v) const
{
    if (!v)
        return nullptr;
    return v == mBegin ? mEnd : v == mEnd ? mBegin : nullptr;
}

double LineObject::length() const
{
    if (!mBegin || !mEnd)
        return 0.0;
    if (!mCurve)
        return mBegin->distance(*mEnd);
    double sum = 0.0;
    const auto &points = mCurve->points();
    for (std::size_t place = 1; place < points.size(); ++place)
        sum += points[place - 1]->distance(*points[place]);
    return sum;
}

CurveObject::CurveObject(std::vector<CDbPointVOR *> points, CDbPointVOR *firstHandle, CDbPointVOR *lastHandle)
    : mPoints(std::move(points)), mFirstHandle(firstHandle), mLastHandle(lastHandle)
{
}

CurveObject::~CurveObject() = default;

short CurveObject::pointCount()
{
    return static_cast<short>(mPoints.size());
}

CDbPointVOR *CurveObject::getCurvePointByIndex(short index) const
{
    if (index < 1 || static_cast<std::size_t>(index) > mPoints.size())
        return nullptr;
    return mPoints[static_cast<std::size_t>(index - 1)];
}

void CurveObject::recalculateCurvesControl(CDbGroupObject *group, GabaritObject *gabarit)
{
    const CDbGroupObject *owner = gabarit ? gabarit->group() : group;
    if (!owner || (group && group != owner))
        return;
    for (const LineObject *line : owner->lines()) {
        if (line->linkIsCurve() && (!gabarit || line->getCurveLine()->contour() == gabarit))
            line->getCurveLine()->recalculateHandles();
    }
}

void CurveObject::recalculateHandles()
{
    if (mPoints.size() < 2)
        return;
    settleHandle(mFirstHandle, *mPoints.front(), *mPoints[1]);
    settleHandle(mLastHandle, *mPoints.back(), *mPoints[mPoints.size() - 2]);
}

void CurveObject::recalculateHandleDisplacements()
{
    if (mPoints.size() < 2)
        return;
    displaceHandle(mFirstHandle, *mPoints.front(), *mPoints[1]);
    displaceHandle(mLastHandle, *mPoints.back(), *mPoints[mPoints.size() - 2]);
}

bool CurveObject::isHandle(const CDbPointVOR *v) const
{
    return v && (v == mFirstHandle || v == mLastHandle);
}

GabaritObject *CurveObject::contour() const
{
    GabaritObject *gabarit = mPoints.empty() ? nullptr : mPoints.front()->gabarit();
    const bool isOnOne = std::all_of(mPoints.begin(), mPoints.end(),
                                     [&](const CDbPointVOR *point) { return point->gabarit() == gabarit; });
    return isOnOne ? gabarit : nullptr;
}

const std::vector<std::pair<const CDbPointVOR *, LineObject *>> &CDbGroupObject::curvesByVector() const
{
    if (mCurvesByVectorIsFresh)
        return mCurvesByVector;
    mCurvesByVector.clear();
    for (LineObject *line : mLines) {
        const CurveObject *curve = line->getCurveLine();
        if (!curve)
            continue;
        for (const CDbPointVOR *point : curve->points())
            mCurvesByVector.emplace_back(point, line);
        for (const CDbPointVOR *handle : {curve->firstHandle(), curve->lastHandle()}) {
            if (handle)
                mCurvesByVector.emplace_back(handle, line);
        }
    }
    std::stable_sort(mCurvesByVector.begin(), mCurvesByVector.end(), [](const auto &a, const auto &b) {
        return std::less<const CDbPointVOR *>()(a.first, b.first);
    });
    mCurvesByVectorIsFresh = true;
    return mCurvesByVector;
}

bool CDbGroupObject::isVectorInGroupCurve(const CDbPointVOR *v, bool onContour, bool inside, bool innerPoints,
                                          bool endPoints, GabaritObject **gabarit, LineObject **line,
                                          CurveObject **curve) const
{
    const auto &table = curvesByVector();
    const auto isBefore = [](const auto &entry, const CDbPointVOR *wanted) {
        return std::less<const CDbPointVOR *>()(entry.first, wanted);
    };
    auto entry = std::lower_bound(table.begin(), table.end(), v, isBefore);
    for (; v && entry != table.end() && entry->first == v; ++entry) {
        CurveObject *candidate = entry->second->getCurveLine();
        GabaritObject *contour = candidate->contour();
        const bool isEnd = v == candidate->points().front() || v == candidate->points().back();
        if (!(contour ? onContour : inside) || !(isEnd ? endPoints : innerPoints))
            continue;
        if (gabarit)
            *gabarit = contour;
        if (line)
            *line = entry->second;
        if (curve)
            *curve = candidate;
        return true;
    }

    if (gabarit)
        *gabarit = nullptr;
    if (line)
        *line = nullptr;
    if (curve)
        *curve = nullptr;
    return false;
}

} // namespace VorSystem
