// A line of a piece: a straight connection of two vectors, or a curve.
#pragma once

#include <VorConjoin/VorConjoinExport.h>

namespace VorSystem
{

class CDbPointVOR;
class CurveObject;

/// A line between two vectors of a group, which owns it.
class VORCONJOIN_EXPORT LineObject
{
public:
    /// A line from begin to end; with a curve, which the line owns, it runs along the curve's points.
    LineObject(CDbPointVOR *begin, CDbPointVOR *end, CurveObject *curve = nullptr);
    LineObject(const LineObject &) = delete;
    LineObject &operator=(const LineObject &) = delete;
    ~LineObject();

    /// The end that is not v; null when v is neither.
    CDbPointVOR *otherVectorLine(const CDbPointVOR *v) const;
    /// True when the line runs along a curve.
    bool linkIsCurve() const { return mCurve != nullptr; }
    /// The curve; null for a straight line.
    CurveObject *getCurveLine() const { return mCurve; }

    /// The ends in the order in which they were given.
    ///@{
    CDbPointVOR *begin() const { return mBegin; }
    CDbPointVOR *end() const { return mEnd; }
    ///@}
    /// Length from end to end in the current size, cm.
    double length() const;

private:
    CDbPointVOR *mBegin;
    CDbPointVOR *mEnd;
    CurveObject *mCurve;
};

} // namespace VorSystem
