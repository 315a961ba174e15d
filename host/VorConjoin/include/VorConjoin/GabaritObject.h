// A gabarit: a closed outline of a pattern piece.
#pragma once

#include <VorConjoin/VectorChain.h>
#include <VorConjoin/VorConjoinExport.h>
#include <VorGeo/GeoPoint2D.h>

namespace VorSystem
{

class CDbGroupObject;
class CDbPointVOR;
class ControlSkeleton;
class CurveObject;
class DartContour;
struct RegularSteps;

/// A circular contour of vectors with its darts. Lengths in centimetres, taken from the present places at
/// each call.
///
/// "On the stretch" always includes both ends; a stretch from a vector to itself is that vector alone. Null
/// or misplaced vectors get false, null or 0. Operations are virtual where a test or a host may want its own.
class VORCONJOIN_EXPORT GabaritObject
{
public:
    /// A dependent on a straight edge, at parameter u (0 to 1) between the anchors a and b.
    struct Pleat {
        CDbPointVOR *vector;  ///< the dependent, on the contour
        const CDbPointVOR *a; ///< anchor at u = 0
        const CDbPointVOR *b; ///< anchor at u = 1
        double u;             ///< the same in every size
    };

    GabaritObject();
    GabaritObject(const GabaritObject &) = delete;
    GabaritObject &operator=(const GabaritObject &) = delete;
    /// Frees the contour with its vectors and the darts. The skeleton is not the gabarit's.
    virtual ~GabaritObject();

    /// Stores the skeleton of this outline, not owned; null clears it.
    ///@{
    virtual void setControlSkeleton(ControlSkeleton *skeleton);
    virtual ControlSkeleton *controlSkeleton();
    ///@}

    /// Slides the end of the stretch that is not limit along the contour until its distance to the axis has
    /// changed by distance; the vectors between keep their share. False, and nothing moved, when the contour
    /// does not give it.
    virtual bool moveVectorAlongContour(CDbPointVOR *from, CDbPointVOR *to, CDbPointVOR *limit,
                                        const GeoPoint2D *axisA, const GeoPoint2D *axisB, double distance);
    /// The shorter live way from a to b: *forward is true in contour order, also on a tie. Off the contour:
    /// false, 0.
    virtual void contourDirection(const CDbPointVOR *a, const CDbPointVOR *b, bool *forward, double *length);
    /// Distance from a to b; for a measure without the part that falls into the gabarit's darts. Never
    /// negative.
    virtual double measureBetween(CDbGroupObject *group, const CDbPointVOR *a, const CDbPointVOR *b,
                                  bool forMeasure);
    /// Writes the working displacements that would give the stretch from a to b this length; moves nothing.
    virtual void setStretchLength(CDbPointVOR *a, CDbPointVOR *b, double length, bool forward,
                                  bool mainStretch);
    /// Recomputes the handles of the curves that have a point on the stretch from from to to, in contour
    /// order.
    virtual void recalculateCurves(CDbPointVOR *from, CDbPointVOR *to);

    /// A new empty gabarit outside any group; the caller's.
    static GabaritObject *create();
    /// Destroys a gabarit with its vectors and clears the pointer; one that is in a group is only removed
    /// when that group is given. The next gabarit of a chain of temporaries stays.
    static void removeAGabarit(CDbGroupObject *group, GabaritObject **gabarit);

    // Contour
    // --------------------------------------------------------------------------------------------------

    /// Appends v and takes ownership. Null group for temporaries; within a group the vector gets an identity.
    /// False, and v stays the caller's, for null, an owned vector, another group than the gabarit's, a full
    /// contour, or one whose first and last vector are neighbours in the mouth of a dart.
    bool gabaritAddContourVector(CDbPointVOR *v, CDbGroupObject *group);
    /// A new vector behind the last one; null when none may be appended.
    CDbPointVOR *addContourVector(const GeoPoint2D &place, int kind = 0, const RegularSteps *steps = nullptr);
    /// Puts v on the contour behind another vector of it, but not into the mouth of a dart.
    bool insertContourVector(CDbPointVOR *v, const CDbPointVOR *behind);
    /// Takes v off the contour and gives it to the caller, unless a dart, curve, line, pair or mark of the
    /// group uses it.
    bool takeContourVector(CDbPointVOR *v);

    /// Cursor: the first vector, and the next one; it comes round to the first. Null for an empty contour.
    ///@{
    CDbPointVOR *gabaritFirstContourVector();
    CDbPointVOR *gabaritNextContourVector();
    ///@}
    /// 1-based place on the contour, 0 for none.
    short gabaritGetContourIndex(const CDbPointVOR *v) const;
    /// The vector of a 1-based place; null for none.
    CDbPointVOR *gabaritGetContourVector(short index) const;
    /// v is on this contour.
    bool isVectorContour(const CDbPointVOR *v) const;
    /// The vectors in contour order, the first one at mFirstVector; and their number, up to 32767.
    ///@{
    int contourCount() const { return mContour.count(); }
    const std::vector<CDbPointVOR *> &contourVectors() const { return mContour.vectors(); }
    ///@}
    /// The vector of other, a copy of this gabarit, at the place of v on this contour; null for a stranger.
    CDbPointVOR *vectorEquivalentOf(const GabaritObject *other, const CDbPointVOR *v) const;
    /// The neighbour in either sense; null for a vector off this contour.
    CDbPointVOR *neighbor(const CDbPointVOR *v, bool forward) const;

    /// v lies on the stretch from a to b in the given sense.
    ///@{
    bool gabaritVectorBetween2Vectors(const CDbPointVOR *v, const CDbPointVOR *a, const CDbPointVOR *b,
                                      bool forward) const;
    bool isVectorsBetweenTwoPointOfContours(const CDbPointVOR *v, const CDbPointVOR *a, const CDbPointVOR *b,
                                            bool forward) const;
    ///@}
    /// v is a handle of a curve that lies wholly on the stretch; *curve is that curve, else null.
    bool isControlCurveBetween(const CDbPointVOR *v, const CDbPointVOR *a, const CDbPointVOR *b, bool forward,
                               CurveObject **curve) const;

    /// The point lies inside or on the border; *onBorder is always written, true within 1e-6 of an edge.
    bool isInPolygon(const GeoPoint2D &point, bool *onBorder) const;
    /// Area inside the contour, cm2.
    double area() const;

    // Lengths
    // --------------------------------------------------------------------------------------------------

    /// Live edges from a in the given sense to b, or to c when c is on this contour and comes first.
    double getContourLength(const CDbPointVOR *a, const CDbPointVOR *b, const CDbPointVOR *c,
                            bool forward) const;
    /// Live edges from a to b in contour order.
    double contourLengthWithoutDeadZones(const CDbPointVOR *a, const CDbPointVOR *b) const;

    // Darts
    // ----------------------------------------------------------------------------------------------------

    /// v is on a contour of the group: *gabarit is that one, else null.
    static bool groupIsVectorInWhichGabarit(const CDbGroupObject *group, const CDbPointVOR *v,
                                            GabaritObject **gabarit);
    /// v is on the mouth of a dart: *dart and its role from 1 to 3. The pivot is not found.
    bool pICGabIsWhichDart(const CDbPointVOR *v, DartContour **dart, short *which) const;
    /// True when the edge between neighbours is the opening of a dart: it counts in no length.
    bool isDeadEdge(const CDbPointVOR *a, const CDbPointVOR *b) const;
    /// Takes a dart over. False, and the dart stays the caller's, unless the vectors of its mouth are
    /// neighbours on this contour, in contour order.
    bool addDart(DartContour *dart);
    /// Destroys a dart of this gabarit; its vectors and lines stay. False for a stranger.
    bool removeDart(DartContour *dart);

    /// Working displacements of pleat vectors, and of caps, pivots and inner leg points, from their anchors.
    ///@{
    void PLI_ctlGabStandardizeEvolutions();
    void pICCtlGabStandardizeEvolutions();
    ///@}
    /// Puts the pleat vectors back on their edges.
    void restorePleats();

    /// Makes v, on this contour, a pleat vector at parameter u (0 to 1) between the anchors a and b. False
    /// otherwise.
    bool setPleat(CDbPointVOR *v, const CDbPointVOR *a, const CDbPointVOR *b, double u);

    // Moves
    // ----------------------------------------------------------------------------------------------------

    /// Moves the stretch from from to to, in contour order: pivot by (dx, dy), the vectors between by a part
    /// that falls off along the live length. The other end stays when endHeld, else moves with the pivot.
    void moveVectorContourBetween(CDbPointVOR *from, CDbPointVOR *to, CDbPointVOR *pivot, double dx,
                                  double dy, bool endHeld);

    /// Parameter of a pleat vector between its anchors; 0 for another vector.
    double pleatParameter(const CDbPointVOR *v) const;
    /// The pleat vectors of this contour, in the order in which they were set.
    const std::vector<Pleat> &pleats() const { return mPleats; }

    /// The group that holds this gabarit; null for temporaries.
    CDbGroupObject *group() const { return mGroup; }

    CDbPointVOR *mFirstVector = nullptr;   ///< head of the circular contour
    GabaritObject *mNextGabarit = nullptr; ///< next gabarit of the group, or of a chain of temporaries
    DartContour *mFirstDart = nullptr;     ///< head of the chain of darts

private:
    friend class CDbGroupObject;

    bool uses(const CDbPointVOR *v) const;
    int stepsBetween(const CDbPointVOR *a, const CDbPointVOR *b, bool forward) const;
    bool liesOnStretch(const CurveObject &curve, const CDbPointVOR *a, const CDbPointVOR *b,
                       bool forward) const;

    VectorChain mContour;
    std::vector<Pleat> mPleats;
    CDbGroupObject *mGroup = nullptr;
    ControlSkeleton *mSkeleton = nullptr;
    int mCursor = 0;
};

} // namespace VorSystem
