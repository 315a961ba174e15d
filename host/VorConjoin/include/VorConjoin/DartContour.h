// A dart: a fold cut into a contour.
#pragma once

#include <VorConjoin/VorConjoinExport.h>

#include <array>
#include <vector>

namespace VorSystem
{

class CDbGroupObject;
class CDbPointVOR;
class GradationData;
class LineObject;

/// Role of a vector in its dart, in contour order.
enum eDartRole : short {
    Dart_FirstLeg = 1,  ///< end of the leg that comes first in contour order
    Dart_Cap = 2,       ///< the dart's tip towards the outside, between the legs
    Dart_SecondLeg = 3, ///< end of the leg that follows the cap
    Dart_Pivot = 4,     ///< where the legs meet inside the piece
};

/// A dart of a gabarit, which owns it. Vectors belong to the contour and the group, lines to the group.
class VORCONJOIN_EXPORT DartContour
{
public:
    using Leg = std::vector<LineObject *>; ///< lines from the pivot to the contour

    /// A dart without legs, the caller's until a gabarit takes it over. Null leaves a role empty.
    DartContour(CDbPointVOR *firstLeg, CDbPointVOR *cap, CDbPointVOR *secondLeg, CDbPointVOR *pivot);
    DartContour(const DartContour &) = delete;
    DartContour &operator=(const DartContour &) = delete;
    ~DartContour();

    /// The vector of a role from 1 to 4; null for another number, and for a role that is not filled.
    CDbPointVOR *pICGetVector(short role) const;
    /// The line of each leg that starts at the pivot; null for a leg without lines or when the group is null.
    void pICAvoirLes2LiensDuPivot(const CDbGroupObject *group, LineObject **first, LineObject **second) const;
    /// Makes mPivotCopy a copy of the pivot and mTipCopy one of role 3, as they stand now.
    void pICAdjustTheCopyVectors();
    /// Frees both copies.
    void freeCopies();

    /// Role of a vector from 1 to 4; 0 when it has none.
    short roleOf(const CDbPointVOR *v) const;
    /// True when both are vectors of this dart's mouth (roles 1, 2, 3): the edge between them is no seam.
    bool isDeadEdge(const CDbPointVOR *a, const CDbPointVOR *b) const;
    /// leg is 0 for the leg that ends in role 1, 1 for that which ends in role 3.
    const Leg &leg(int which) const { return mLegs[which == 0 ? 0 : 1]; }
    /// The line is part of a leg.
    bool hasLine(const LineObject *line) const;
    /// The line that joins this one on its leg at an end vector; null at the ends of the leg.
    LineObject *lineBeyond(const LineObject *line, const CDbPointVOR *end) const;
    /// Length of a leg from pivot to contour in the current size, cm.
    double legLength(int which) const;
    /// Every vector strictly between pivot and contour on a leg, from the pivot outwards.
    std::vector<CDbPointVOR *> innerLegVectors(int which) const;

    /// Takes the legs as they are now, in every size, as the shape that rebuilds restore. Called when the
    /// dart is added; call it again after the inner leg vectors were placed or graded anew by hand.
    void recordLegShapes();
    /// Takes over the recorded shapes of the dart this one is a copy of.
    void takeLegShapesOf(const DartContour &source);
    /// True when the legs are equally long within 1e-6 cm, along their lines and straight across, now and as
    /// the vectors are graded.
    bool legsAreEqualInEverySize() const;

    /// What a rebuild restores, in the size the vectors stand in. Pivot: equal legs; nothing unless they were
    /// made equal. Inner leg vectors: the recorded shape of that size. Cap: 0.5 cm outside the middle of the
    /// mouth.
    ///@{
    void restorePivot();
    void restoreInnerLegs(short sizeNumber, const GradationData *gradation);
    void restoreCap();
    ///@}
    /// Working displacement of cap, pivot and inner leg vectors: the mean of roles 1 and 3.
    void standardizeDisplacements();

    CDbPointVOR *mPivotVector = nullptr; ///< role 4
    CDbPointVOR *mPivotCopy = nullptr;   ///< owned
    CDbPointVOR *mTipCopy = nullptr;     ///< owned; a copy of role 3
    DartContour *mNextDart = nullptr;    ///< next dart of the gabarit
    bool mLegsMadeEqual = false;         ///< rebuilds keep the legs equally long
    std::array<Leg, 2> mLegs;            ///< lines from the pivot to the contour, not owned

private:
    void freeShapes();

    std::array<CDbPointVOR *, 3> mMouth;
    std::array<std::vector<CDbPointVOR *>, 2> mShapes; ///< copies of pivot, inner vectors and end of each leg
};

} // namespace VorSystem
