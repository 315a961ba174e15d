// The grid of a frame: the frame between its neighbours, as points on the axis and on the contour.
//
//               column 0        column 1        column 2
//   row 1       neighbour  ---- vector 1   ---- neighbour      contour on vector 1's side
//   row 0       crossing   ---- crossing   ---- crossing       axis
//   row 2       neighbour  ---- vector 2   ---- neighbour      contour on vector 2's side
//   row 3       row 0 as it was before the move
#pragma once

#include "VORStCtlBase/Temporaries.h"

#include <array>

namespace VorSystem
{

class ControlFrame;

/// How a frame stands among its neighbours, and so how the piece is cut into quadrants.
enum eCaseQuadrant : int {
    Case_BothNeighbors = 0,
    Case_NeighborMissing = 1, ///< its column collapses to the point of the center where the walk ended
    Case_MeasureZero = 2,     ///< the frame is a single point
};

enum eGridRow : int {
    Row_Axis = 0,
    Row_Contour1 = 1,
    Row_Contour2 = 2,
    Row_OldAxis = 3,
};

/// Points are those of the piece, or crossings that live as long as the grid; null means none.
class QuadrantGrid
{
public:
    /// Rows 0 to 2 from the piece as it stands. Row 3, and the crossings it points at, stay.
    void fillQuadrantGrid(const ControlFrame *frame);
    /// Row 3 becomes row 0.
    void keepOldAxis() { mPoints[Row_OldAxis] = mPoints[Row_Axis]; }

    CDbPointVOR *at(int row, int column) const
    {
        return mPoints[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)];
    }
    eCaseQuadrant caseOfFrame() const { return mCase; }
    /// True while column 2 lies ahead of the frame in contour order.
    bool forward() const { return mForward; }

private:
    CDbPointVOR *&point(int row, int column)
    {
        return mPoints[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)];
    }
    ControlFrame *findNeighbor(const ControlFrame *frame, CDbPointVOR *from, bool forward, int column);
    void fillColumn(int column, const ControlFrame *neighbor);

    std::array<std::array<CDbPointVOR *, 3>, 4> mPoints{};
    TemporaryVectors mCrossings;
    eCaseQuadrant mCase = Case_BothNeighbors;
    bool mForward = true;
};

} // namespace VorSystem
