// A vector: a point of a pattern piece with its place in every size.
#pragma once

#include <VorConjoin/CDbObjetVOR.h>
#include <VorConjoin/IrregularGradationData.h>
#include <VorConjoin/VectorKind.h>
#include <VorConjoin/VorConjoinExport.h>
#include <VorGeo/GeoPoint2D.h>

#include <QtGlobal>

#include <vector>

namespace VorSystem
{

class CDbGroupObject;
class GabaritObject;
class GradationData;

/// A point of a piece, on a contour or among the group's own vectors. Lengths in centimetres.
///
/// x, y are the position in the current size, which is the nest except between swapEvolutionMedium and
/// recalculateEvolution. Sizes in the grading operations count from 1.
class VORCONJOIN_EXPORT CDbPointVOR : public GeoPoint2D, public CDbObjetVOR
{
public:
    CDbPointVOR(const CDbPointVOR &) = delete;
    CDbPointVOR &operator=(const CDbPointVOR &) = delete;

    /// A new vector at the origin, kind 0, identity 0, regular without steps; the caller's.
    static CDbPointVOR *newVectorObject();
    /// Frees a vector and clears the pointer. Null, a pointer to null, and a vector that a gabarit or a group
    /// owns are left alone.
    static void destroyVectorObject(CDbPointVOR **vector);
    /// A copy with the same identity, kind, position, displacement and grading, outside every chain; the
    /// caller's.
    CDbPointVOR *copyTheVector(int = 0) const;
    /// Writes position, kind and grading into target, which keeps its identity, chain and owner. Null:
    /// nothing.
    void copyVector(CDbPointVOR *target) const;
    /// Sets the position in the current size and nothing else.
    CDbPointVOR &operator=(const GeoPoint2D &place);

    // Plain points
    // ---------------------------------------------------------------------------------------------

    /// Same place, each coordinate within 1e-5.
    static bool equalVector(const GeoPoint2D &a, const GeoPoint2D &b);
    /// Same place, each coordinate within delta.
    static bool equalVectorDelta(const GeoPoint2D &a, const GeoPoint2D &b, double delta);
    /// p lies between a and b on their line, ends included, within 1e-6.
    static bool IsBetween(const GeoPoint2D &a, const GeoPoint2D &p, const GeoPoint2D &b);
    /// p lies at most delta away from the segment a to b.
    static bool betweenDelta(const GeoPoint2D &a, const GeoPoint2D &p, const GeoPoint2D &b, double delta);
    /// out = foot of p on the line through a and b; a when both are at one place.
    static void Projection(const GeoPoint2D &p, const GeoPoint2D &a, const GeoPoint2D &b, GeoPoint2D &out);
    /// out = crossing of the lines a b and c d; a when they are parallel.
    static void interLine(const GeoPoint2D &a, const GeoPoint2D &b, const GeoPoint2D &c, const GeoPoint2D &d,
                          GeoPoint2D &out);
    /// True also when one of the lines has no length.
    static bool isParallelLine(const GeoPoint2D &a, const GeoPoint2D &b, const GeoPoint2D &c,
                               const GeoPoint2D &d);
    /// True when the segments a b and c d meet, at out.
    static bool interSegments(const GeoPoint2D &a, const GeoPoint2D &b, const GeoPoint2D &c,
                              const GeoPoint2D &d, GeoPoint2D &out);
    /// out = origin + distance * unit vector of (a - b); origin when a and b are at one place. out may be any
    /// of them.
    static void vectorManagementUnitDist(const GeoPoint2D &origin, double distance, const GeoPoint2D &a,
                                         const GeoPoint2D &b, GeoPoint2D &out);
    /// Parameter of p's foot on a to b: 0 at a, 1 at b; 0 when both are at one place.
    static double scaleProjeced(const GeoPoint2D &a, const GeoPoint2D &b, const GeoPoint2D &p);

    // Neighbours on the contour
    // --------------------------------------------------------------------------------

    /// The next vector of the contour, in its order when forward; null off a contour.
    CDbPointVOR *gabaritNeighborContourVector(bool forward) const;
    /// The same, but passes over vectors on the mirror axis while there are others; null off a contour.
    CDbPointVOR *gabaritContourVectorNeighborPoint(bool forward) const;

    /// The contour this vector is on; null for own vectors of a group and for free ones.
    GabaritObject *gabarit() const { return mGabarit; }
    /// The group that holds this vector, on a contour or as its own; null for free vectors and temporaries.
    CDbGroupObject *group() const;

    // Grading
    // --------------------------------------------------------------------------------------------------

    /// Gives v explicit evolutions for every size. Calls nest; each is undone by one destroyVectorInRegular.
    static void setVectorInIrregular(CDbPointVOR *v, const GradationData *gradation);
    /// Puts v at its place in a size. The nest place is kept, also when v still stands in another size.
    static void swapEvolutionMedium(CDbPointVOR *v, short sizeNumber);
    /// Takes v's place as that of the size, if v was swapped into it, and puts v back in the nest.
    static void recalculateEvolution(CDbPointVOR *v, short sizeNumber);
    /// After recalculateEvolution in the nest itself: the nest moves, all other sizes stay where they are.
    static void createEvolutionInOnlyMedium(CDbPointVOR *v, short sizeNumber);
    /// Ends one setVectorInIrregular; with the last, a vector that was regular is so again, as it was before.
    void destroyVectorInRegular();
    /// Ends all of them: regular when two steps give every evolution within 1e-9 cm, explicit otherwise.
    void tryResetGradationInRegular(const GradationData *gradation);

    // Making and reading a graded vector
    // -----------------------------------------------------------------------

    /// Makes the vector regular with these steps. Nothing while it is in explicit evolutions for somebody.
    void setRegularSteps(const RegularSteps &steps);
    /// The steps that grade the vector while mIrregularGradation is null; zero in a new one.
    const RegularSteps &regularSteps() const { return mSteps; }
    /// Makes the vector explicit: one evolution per size, nestNumber counts from 1. False, and nothing done,
    /// for an empty list, a nest outside it or an evolution in the nest that is not zero.
    bool setEvolutions(const std::vector<Evolution> &evolutions, short nestNumber);
    /// Position in a size, read without moving anything; the nest's for a size that is not there.
    GeoPoint2D positionInSize(short sizeNumber, const GradationData *gradation) const;
    /// Gives a free vector an identity; false when a group holds it.
    bool setIdentity(const CDbID &identity);

    /// Puts a vector that was left in a size back to its place in the nest.
    void returnToNest();

    /// Kinds 0 and 1: rebuilds move it only as half of a mirrored pair or as pivot of a dart.
    bool isAnchor() const { return mVectorKind == Vector_Corner || mVectorKind == Vector_Curve; }
    /// Number of setVectorInIrregular that are not yet undone.
    int gradingDepth() const { return mDepth; }
    /// 1-based size the vector stands in; 0 in the nest.
    short inSize() const { return mInSize; }

    qint32 mVectorKind = Vector_Corner; ///< an eVectorKind
    CDbPointVOR *mNextVector = nullptr; ///< next in contour order, or in any chain of free vectors
    float mDisplacementX = 0.0F;        ///< working displacement, cm: a move under preparation, no place
    float mDisplacementY = 0.0F;        ///< the same along y
    IrregularGradationData *mIrregularGradation = nullptr; ///< owned; null while graded regularly

private:
    friend class CDbGroupObject;
    friend class VectorChain;

    CDbPointVOR();
    ~CDbPointVOR() override;

    void dropEvolutions();
    void takeGradingOf(const CDbPointVOR &other);
    void fitEvolutions(short sizeCount, short nestNumber);
    void restoreUnfitted();

    RegularSteps mSteps;
    IrregularGradationData *mUnfitted =
        nullptr;          ///< own evolutions, while others fit a gradation of another length
    Evolution mSavedNest; ///< place in the nest while mInSize is not 0
    Evolution mSwappedTo; ///< where the last swap put the vector
    int mDepth = 0;
    short mInSize = 0;
    bool mWasRegular = false;
    short mChainIndex = 0;             ///< 1-based place in the owner's chain; 0 when free
    GabaritObject *mGabarit = nullptr; ///< owner, when on a contour
    CDbGroupObject *mGroup = nullptr;  ///< owner, when one of a group's own vectors
};

} // namespace VorSystem
