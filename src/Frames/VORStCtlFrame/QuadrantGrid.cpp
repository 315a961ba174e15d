#include "VORStCtlFrame/QuadrantGrid.h"

#include "Preconditions.h"

#include <VorFrames/ControlFrame.h>
#include <VorFrames/ControlSkeleton.h>

#include <utility>

namespace VorSystem
{

namespace
{

constexpr char kSourceUnit[] = R"(src\Frames\VORStCtlFrame)";

GeoPoint2D crossingOf(const ControlFrame *frame)
{
    GeoPoint2D crossing;
    frame->calculateIntersectionOfCenter(&crossing);
    return crossing;
}

} // namespace

void QuadrantGrid::fillQuadrantGrid(const ControlFrame *frame)
{
    CDbPointVOR *const vector1 = frame->getVectorContour(1);
    CDbPointVOR *const vector2 = frame->getVectorContour(2);
    VOR_REQUIRE(vector1);
    const bool isPoint = frame->isMeasureZero();

    for (const int row : {Row_Axis, Row_Contour1, Row_Contour2})
        mPoints[static_cast<std::size_t>(row)].fill(nullptr);
    point(Row_Axis, 1) = isPoint ? vector1 : mCrossings.pushFront(crossingOf(frame));
    point(Row_Contour1, 1) = vector1;
    point(Row_Contour2, 1) = vector2;

    mForward = true;
    const ControlFrame *neighbor2 = findNeighbor(frame, vector1, true, 2);
    const ControlFrame *neighbor0 = nullptr;
    if (!isPoint) {
        neighbor0 = findNeighbor(frame, vector1, !mForward, 0);
    } else {
        if (!neighbor2) {
            mForward = false;
            neighbor2 = findNeighbor(frame, vector1, false, 2);
        }
        // Both neighbours of a point lie on one side of it: the near one, and the one behind that.
        if (neighbor2)
            neighbor0 = findNeighbor(frame, at(Row_Contour1, 2), mForward, 0);
    }
    fillColumn(2, neighbor2);
    fillColumn(0, neighbor0);

    // A single neighbour always stands in column 2. A frame without vector 2 is no point, so it counts too.
    if (!isPoint && !neighbor2 && neighbor0) {
        mForward = !mForward;
        for (const int row : {Row_Axis, Row_Contour1, Row_Contour2})
            std::swap(point(row, 0), point(row, 2));
    }

    if (isPoint)
        mCase = Case_MeasureZero;
    else
        mCase = neighbor0 && neighbor2 ? Case_BothNeighbors : Case_NeighborMissing;
}

// Leaves in the column the vector at which the neighbour was met, and in its place on the axis the point of
// the center where the walk ended.
ControlFrame *QuadrantGrid::findNeighbor(const ControlFrame *frame, CDbPointVOR *from, bool forward,
                                         int column)
{
    return frame->getSkeleton()->getControlFrameNeighbor(from, forward, &point(Row_Contour1, column),
                                                         &point(Row_Axis, column));
}

void QuadrantGrid::fillColumn(int column, const ControlFrame *neighbor)
{
    if (neighbor) {
        point(Row_Axis, column) = mCrossings.pushFront(crossingOf(neighbor));
        point(Row_Contour2, column) = neighbor->getVectorContour(2);
    } else {
        point(Row_Contour1, column) = at(Row_Axis, column);
        point(Row_Contour2, column) = at(Row_Axis, column);
    }
}

} // namespace VorSystem
