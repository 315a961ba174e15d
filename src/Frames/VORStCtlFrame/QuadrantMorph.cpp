#include "VORStCtlFrame/QuadrantMorph.h"

#include "Preconditions.h"

#include <VorConjoin/IteratorVORSt.h>
#include <VorGeo/TrianglePoint.h>
#include <VorGeo/TripletReal.h>

#include <utility>

namespace VorSystem
{

namespace
{

constexpr char kSourceUnit[] = R"(src\Frames\VORStCtlFrame)";

/// A place in the grid.
struct Cell {
    int row;
    int column;
};
constexpr Cell kNone = {-1, -1};

/// Where the grid holds the corners of a quadrant: its two ends on the contour, and beside each the point of
/// the axis, after the move and before it.
struct CornerCells {
    Cell a, b;
    Cell newAxisA, newAxisB;
    Cell oldAxisA, oldAxisB;
};

constexpr int kMaxQuadrants = 4;

// The rows look shifted where a neighbour is missing, and quadrants 1 and 4 take what 2 and 3 leave out:
// together they tile the piece between the neighbours.
constexpr CornerCells kBothNeighbors[kMaxQuadrants] = {
    //  A       B       NA      NB      OA      OB
    {{1, 0}, {1, 1}, {0, 0}, {0, 1}, {3, 0}, {3, 1}},
    {{1, 1}, {1, 2}, {0, 1}, {0, 2}, {3, 1}, {3, 2}},
    {{2, 1}, {2, 0}, {0, 1}, {0, 0}, {3, 1}, {3, 0}},
    {{2, 2}, {2, 1}, {0, 2}, {0, 1}, {3, 2}, {3, 1}},
};
constexpr CornerCells kNeighborMissing[kMaxQuadrants] = {
    {{0, 0}, {1, 1}, {0, 1}, {0, 2}, {3, 1}, {3, 2}},
    {{1, 1}, {1, 2}, kNone, {0, 2}, kNone, {3, 2}},
    {{2, 2}, {2, 1}, kNone, {0, 2}, kNone, {3, 2}},
    {{2, 1}, {0, 0}, {0, 2}, {0, 1}, {3, 2}, {3, 1}},
};
constexpr CornerCells kMeasureZero[kMaxQuadrants / 2] = {
    {{0, 1}, {1, 2}, {0, 0}, {0, 2}, {3, 0}, {3, 2}},
    {{2, 2}, {0, 1}, {0, 2}, {0, 0}, {3, 2}, {3, 0}},
};

/// The corners of a quadrant from 1 on; null when there is no such quadrant.
const CornerCells *cornersOf(eCaseQuadrant frameCase, FrameCenter::eCharacteristicType characteristic,
                             int quadrant)
{
    const int all = frameCase == Case_MeasureZero ? kMaxQuadrants / 2 : kMaxQuadrants;
    // A one-sided center has quadrants on vector 1's side alone.
    const int limit = characteristic == FrameCenter::Characteristic_OneSideDoubled ? all / 2 : all;
    if (quadrant > limit)
        return nullptr;
    switch (frameCase) {
    case Case_BothNeighbors: return &kBothNeighbors[quadrant - 1];
    case Case_NeighborMissing: return &kNeighborMissing[quadrant - 1];
    case Case_MeasureZero: break;
    }
    return &kMeasureZero[quadrant - 1];
}

/// An outline along the axis, from first to second, and on along the contour from from to to; the gabarit
/// closes it. The same vector in both places means once round.
void makeQuadrantPolygon(TemporaryGabarit &polygon, CDbPointVOR *from, CDbPointVOR *to, CDbPointVOR *first,
                         CDbPointVOR *second)
{
    if (first)
        VOR_REQUIRE(polygon.appendCopyOf(first));
    if (second)
        VOR_REQUIRE(polygon.appendCopyOf(second));
    CDbPointVOR *vector = from;
    VOR_REQUIRE(polygon.appendCopyOf(vector));
    do {
        vector = vector->mNextVector;
        // A contour that comes round without its end would be copied for ever.
        VOR_REQUIRE(vector && (vector == to || vector != from));
        VOR_REQUIRE(polygon.appendCopyOf(vector));
    } while (vector != to);
}

/// The mean of the two ends on the contour and of those points of the axis that are asked for.
GeoPoint2D middleOf(const CDbPointVOR *a, const CDbPointVOR *b, const CDbPointVOR *axisA,
                    const CDbPointVOR *axisB)
{
    double x = 0.0;
    double y = 0.0;
    int count = 0;
    for (const CDbPointVOR *corner : {b, a, axisB, axisA}) {
        if (corner) {
            x += corner->x();
            y += corner->y();
            ++count;
        }
    }
    return GeoPoint2D(x / count, y / count);
}

/// Puts the vector where the new quadrant has the place that it has in the old one. The fans of triangles
/// round the two middles correspond one to one.
void recalculatesNewPosition(const GabaritObject *oldPolygon, const GabaritObject *newPolygon,
                             const CDbPointVOR *oldMiddle, const CDbPointVOR *newMiddle, CDbPointVOR *vector)
{
    IteratorVector oldFirst;
    IteratorVector oldSecond;
    IteratorVector newFirst;
    IteratorVector newSecond;
    oldFirst.first(oldPolygon->mFirstVector);
    oldSecond.first(oldPolygon->mFirstVector->mNextVector);
    newFirst.first(newPolygon->mFirstVector);
    newSecond.first(newPolygon->mFirstVector->mNextVector);

    CDbPointVOR *p = nullptr;
    CDbPointVOR *pNext = nullptr;
    CDbPointVOR *q = nullptr;
    CDbPointVOR *qNext = nullptr;
    bool found = false;
    while (!found && oldFirst.next(p) && oldSecond.next(pNext) && newFirst.next(q) && newSecond.next(qNext)) {
        TripletReal place(0.0, 0.0, 1.0);
        if (TrianglePoint(*oldMiddle, *p, *pNext).contains(*vector, place)) {
            *vector = TrianglePoint(*newMiddle, *q, *qNext).Calc_Point2D(place);
            found = true;
        }
    }
    VOR_REQUIRE(found);
}

} // namespace

QuadrantMorph::QuadrantMorph(GabaritObject *current, GabaritObject *old,
                             FrameCenter::eCharacteristicType characteristic, const QuadrantGrid &grid)
{
    while (getsQuadrants(current, old, characteristic, grid)) {
    }
}

bool QuadrantMorph::getsQuadrants(GabaritObject *current, GabaritObject *old,
                                  FrameCenter::eCharacteristicType characteristic, const QuadrantGrid &grid)
{
    const CornerCells *cells = cornersOf(grid.caseOfFrame(), characteristic, ++mQuadrant);
    if (!cells) {
        mQuadrant = -1;
        return false;
    }

    const auto pointAt = [&grid](const Cell &cell) {
        return cell.row < 0 ? nullptr : grid.at(cell.row, cell.column);
    };
    CDbPointVOR *a = pointAt(cells->a);
    CDbPointVOR *b = pointAt(cells->b);
    CDbPointVOR *newAxisA = pointAt(cells->newAxisA);
    CDbPointVOR *newAxisB = pointAt(cells->newAxisB);
    CDbPointVOR *oldAxisA = pointAt(cells->oldAxisA);
    CDbPointVOR *oldAxisB = pointAt(cells->oldAxisB);
    if (!grid.forward()) {
        std::swap(a, b);
        std::swap(newAxisA, newAxisB);
        std::swap(oldAxisA, oldAxisB);
    }

    // Where a column is missing, the old axis holds a vector of the piece: its place before the move is that
    // of its equivalent. The crossings have none and are old already.
    for (CDbPointVOR **axisPoint : {&oldAxisB, &oldAxisA}) {
        if (*axisPoint) {
            if (CDbPointVOR *before = current->vectorEquivalentOf(old, *axisPoint))
                *axisPoint = before;
        }
    }
    CDbPointVOR *const oldA = current->vectorEquivalentOf(old, a);
    CDbPointVOR *const oldB = current->vectorEquivalentOf(old, b);
    VOR_REQUIRE(oldA && oldB);

    TemporaryGabarit oldPolygon;
    makeQuadrantPolygon(oldPolygon, oldA, oldB, oldAxisB, oldAxisA);
    TemporaryGabarit newPolygon;
    makeQuadrantPolygon(newPolygon, a, b, newAxisB, newAxisA);
    mOldPolygons.pushFront(oldPolygon);
    mNewPolygons.pushFront(newPolygon);
    mOldMiddles.pushFront(middleOf(oldA, oldB, oldAxisA, oldAxisB));
    // Both middles count the corners that the old quadrant has.
    mNewMiddles.pushFront(middleOf(a, b, oldAxisA ? newAxisA : nullptr, oldAxisB ? newAxisB : nullptr));
    return true;
}

void QuadrantMorph::carryAlong(CDbPointVOR *vector) const
{
    const GabaritObject *newPolygon = mNewPolygons.first();
    const CDbPointVOR *oldMiddle = mOldMiddles.first();
    const CDbPointVOR *newMiddle = mNewMiddles.first();
    for (const GabaritObject *oldPolygon = mOldPolygons.first(); oldPolygon;
         oldPolygon = oldPolygon->mNextGabarit) {
        bool onBorder = false;
        if (oldPolygon->isInPolygon(*vector, &onBorder) || onBorder) {
            recalculatesNewPosition(oldPolygon, newPolygon, oldMiddle, newMiddle, vector);
            return;
        }
        newPolygon = newPolygon->mNextGabarit;
        oldMiddle = oldMiddle->mNextVector;
        newMiddle = newMiddle->mNextVector;
    }
}

} // namespace VorSystem
