// A curve of a piece: an ordered list of points with a tangent handle at each end.
#pragma once

#include <VorConjoin/VorConjoinExport.h>

#include <vector>

namespace VorSystem
{

class CDbGroupObject;
class CDbPointVOR;
class GabaritObject;

/// A curve through vectors of a contour or of a group, ends first and last.
class VORCONJOIN_EXPORT CurveObject
{
public:
    /// The points are not owned. Handles are own vectors of the group, or null.
    CurveObject(std::vector<CDbPointVOR *> points, CDbPointVOR *firstHandle, CDbPointVOR *lastHandle);
    CurveObject(const CurveObject &) = delete;
    CurveObject &operator=(const CurveObject &) = delete;
    virtual ~CurveObject();

    /// Number of points, both ends counted.
    virtual short pointCount();
    /// The point of an index from 1; null for another index.
    CDbPointVOR *getCurvePointByIndex(short index) const;

    /// Recomputes the handles of the curves on the gabarit's contour, or of all curves of the group for a
    /// null gabarit; moves nothing else. Null group: nothing, unless the gabarit is in one.
    static void recalculateCurvesControl(CDbGroupObject *group, GabaritObject *gabarit);

    /// Puts the handles at a third of the first and of the last edge.
    void recalculateHandles();
    /// The same for the working displacements.
    void recalculateHandleDisplacements();

    /// The points in order, ends first and last.
    const std::vector<CDbPointVOR *> &points() const { return mPoints; }
    /// The handle of the first and of the last point; null for none.
    ///@{
    CDbPointVOR *firstHandle() const { return mFirstHandle; }
    CDbPointVOR *lastHandle() const { return mLastHandle; }
    ///@}
    /// v is one of the two handles; false for null.
    bool isHandle(const CDbPointVOR *v) const;
    /// The contour on which all points lie; null for a curve inside the piece.
    GabaritObject *contour() const;

private:
    std::vector<CDbPointVOR *> mPoints;
    CDbPointVOR *mFirstHandle;
    CDbPointVOR *mLastHandle;
};

} // namespace VorSystem
