#include "VORStCtlFrame/DartTips.h"

#include "Preconditions.h"

#include <VorConjoin/CDbGroupObject.h>
#include <VorConjoin/CDbPointVOR.h>
#include <VorConjoin/CurveObject.h>
#include <VorConjoin/DartContour.h>
#include <VorConjoin/GabaritObject.h>
#include <VorConjoin/IteratorVORSt.h>
#include <VorConjoin/LineObject.h>

#include <unordered_set>

namespace VorSystem
{

namespace
{

constexpr char kSourceUnit[] = R"(src\Frames\VORStCtlFrame)";

constexpr short kRoleOfTheTip = 3;
constexpr double kTipMoved = 6e-05; // cm: the tip counts as moved from here on

GeoPoint2D less(const GeoPoint2D &point, const GeoPoint2D &delta)
{
    return GeoPoint2D(point.x() - delta.x(), point.y() - delta.y());
}

/// Moves the inner points of the curves of a leg, line by line from the pivot.
void moveLeg(CDbGroupObject *group, LineObject *firstLine, CDbPointVOR *pivot, const GeoPoint2D &delta)
{
    if (!firstLine)
        return;
    CDbPointVOR *end = firstLine->otherVectorLine(pivot);
    // A chain of lines that closes on itself is followed once.
    std::unordered_set<const LineObject *> followed;
    for (LineObject *line = firstLine; line && followed.insert(line).second;
         line = group->pICGetLineNext(line, end, &end)) {
        if (!line->linkIsCurve())
            continue;
        CurveObject *curve = line->getCurveLine();
        const short count = curve->pointCount();
        for (short index = 2; index < count; ++index) {
            if (CDbPointVOR *point = curve->getCurvePointByIndex(index))
                *point = less(*point, delta);
        }
    }
}

} // namespace

void followDartTips(CDbGroupObject *group, GabaritObject *gabarit)
{
    IteratorVORSt<DartContour> darts;
    darts.first(gabarit->mFirstDart);
    DartContour *dart = nullptr;
    while (darts.next(dart)) {
        if (!dart->mTipCopy || !dart->mPivotCopy)
            continue;
        const CDbPointVOR *tip = dart->pICGetVector(kRoleOfTheTip);
        VOR_REQUIRE(tip && dart->mPivotVector);
        const GeoPoint2D delta = *dart->mTipCopy - *tip;
        if (delta.equalsWithin(GeoPoint2D::Point2D_Nul, kTipMoved))
            continue;

        *dart->mPivotVector = less(*dart->mPivotCopy, delta);
        LineObject *lines[2] = {nullptr, nullptr};
        dart->pICAvoirLes2LiensDuPivot(group, &lines[0], &lines[1]);
        for (LineObject *line : lines)
            moveLeg(group, line, dart->mPivotVector, delta);
    }
    CurveObject::recalculateCurvesControl(group, nullptr);
}

} // namespace VorSystem
