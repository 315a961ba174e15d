// A group: one pattern piece with everything drawn on it.
#pragma once

#include <VorConjoin/IrregularGradationData.h>
#include <VorConjoin/PieceMarks.h>
#include <VorConjoin/VectorChain.h>
#include <VorConjoin/VorConjoinExport.h>

#include <QString>
#include <QtGlobal>

#include <functional>
#include <memory>
#include <unordered_map>
#include <utility>
#include <vector>

namespace VorSystem
{

class CDbPointVOR;
class CurveObject;
class DartContour;
class GabaritObject;
class GradationData;
class LineObject;
class Mirror;

/// A pattern piece: gabarits, own vectors (not on a contour), lines, curves, darts, mirror and marks. Owns
/// all of them.
///
/// Vectors of a group have identities that are unique in it. Null or misplaced arguments get false, null or
/// 0.
class VORCONJOIN_EXPORT CDbGroupObject
{
public:
    /// A piece with nothing on it.
    explicit CDbGroupObject(const QString &name = QString());
    CDbGroupObject(const CDbGroupObject &) = delete;
    CDbGroupObject &operator=(const CDbGroupObject &) = delete;
    /// Frees everything of the piece. Skeletons are deleted by their owner before.
    virtual ~CDbGroupObject();

    /// A deep copy with the same order, indices and identities; without skeletons and selection. The
    /// caller's.
    CDbGroupObject *copy() const;

    // Building
    // -------------------------------------------------------------------------------------------------

    /// A new gabarit without vectors, as the last one; the group's.
    GabaritObject *newGabarit();
    /// Takes over a gabarit made elsewhere, as the last one; its vectors get identities where they have none
    /// of their own. False for null and for one that is in a group.
    bool addGabarit(GabaritObject *gabarit);
    /// Destroys a gabarit of this group with all lines, darts, pairs and marks that hang on it.
    bool destroyGabarit(GabaritObject *gabarit);

    /// Takes over a free vector as the last own vector. False for null, an owned vector or a full group.
    bool groupAddVector(CDbPointVOR *v);
    /// Gives an own vector back to the caller, unless a line, curve, dart, pair or mark uses it.
    bool groupTakeVector(CDbPointVOR *v);
    /// A new own vector at a place; null when the group is full.
    CDbPointVOR *addOwnVector(const GeoPoint2D &place, int kind = 0, const RegularSteps *steps = nullptr);

    /// A straight line between two vectors of the group; null otherwise.
    LineObject *addLine(CDbPointVOR *a, CDbPointVOR *b);
    /// A curve through vectors of the group (two or more) with new handles; null otherwise.
    LineObject *addCurve(const std::vector<CDbPointVOR *> &points);
    /// The same with handles that are own vectors already, and no point of this nor handle of another curve.
    LineObject *addCurve(const std::vector<CDbPointVOR *> &points, CDbPointVOR *firstHandle,
                         CDbPointVOR *lastHandle);

    /// A dart of a gabarit: mouth in contour order, straight legs from the pivot, an own vector, through the
    /// given inner leg points. Its legs are kept equal when they are equal in every size within 1e-6 cm. Null
    /// when the mouth does not lie on the contour in this order, or a vector is missing or strange to the
    /// group.
    DartContour *addDart(GabaritObject *gabarit, CDbPointVOR *firstLeg, CDbPointVOR *cap,
                         CDbPointVOR *secondLeg, CDbPointVOR *pivot,
                         const std::vector<CDbPointVOR *> &firstInner = {},
                         const std::vector<CDbPointVOR *> &secondInner = {});
    /// The same with legs made of lines of this group, straight or curved, each from pivot to contour. Null
    /// also for a leg that meets a vector twice and for a line that belongs to two legs.
    DartContour *addDart(GabaritObject *gabarit, CDbPointVOR *firstLeg, CDbPointVOR *cap,
                         CDbPointVOR *secondLeg, CDbPointVOR *pivot,
                         const std::vector<LineObject *> &firstLines,
                         const std::vector<LineObject *> &secondLines);

    /// A new pleat vector on the straight edge from a to its next neighbour, at parameter u between 0 and 1;
    /// null otherwise.
    CDbPointVOR *addPleatVector(CDbPointVOR *a, double u);

    /// Gives the group a mirror, or a new one in place of the old. Null when a and b are at one place.
    Mirror *setMirror(const GeoPoint2D &a, const GeoPoint2D &b);

    /// A notch on an anchor of a contour. False, as with all marks, for a vector that will not do.
    bool addNotch(const CDbPointVOR *place);
    /// A grain line from an anchor of the group; the direction may have any length but 0, length is in cm and
    /// above 0.
    bool addGrainLine(const CDbPointVOR *anchor, const GeoPoint2D &direction, double length);
    /// A line between two different vectors of the group, drawn but never part of a dart.
    bool addInnerLine(const CDbPointVOR *from, const CDbPointVOR *to, InnerLine::eUse use);
    /// The allowance of the edge that begins at a contour vector, in cm and not negative; takes the place of
    /// an earlier one.
    bool addSeamAllowance(const CDbPointVOR *edge, double width);
    /// A drill hole at one of the group's own vectors.
    bool addDrillHole(const CDbPointVOR *place);
    /// The marks, in the order in which they were added.
    ///@{
    const std::vector<Notch> &notches() const { return mNotches; }
    const std::vector<GrainLine> &grainLines() const { return mGrainLines; }
    const std::vector<InnerLine> &innerLines() const { return mInnerLines; }
    const std::vector<SeamAllowance> &seamAllowances() const { return mSeamAllowances; }
    const std::vector<DrillHole> &drillHoles() const { return mDrillHoles; }
    ///@}

    // Vectors
    // --------------------------------------------------------------------------------------------------

    /// v is one of the group's own vectors.
    bool isGroupVector(const CDbPointVOR *v) const;
    /// v is on a contour of the group: *gabarit is that one, else null.
    bool isVectorContour(const CDbPointVOR *v, GabaritObject **gabarit) const;
    /// 1-based index among the own vectors, 0 for none, and back.
    ///@{
    short groupGetVectorIndex(const CDbPointVOR *v) const;
    CDbPointVOR *groupGetVectorByIndex(short index) const;
    ///@}
    /// The own vectors in the order of their indices.
    const std::vector<CDbPointVOR *> &ownVectors() const { return mOwnVectors.vectors(); }
    /// The vector of an identity, on a contour or own; null for none.
    CDbPointVOR *vectorOfIdentity(int identity) const;
    /// v is on a contour of the group or one of its own.
    bool holds(const CDbPointVOR *v) const;

    // Lines, curves, darts, gabarits
    // ---------------------------------------------------------------------------

    /// v belongs to a curve. The flags ask for curves on contours, for curves inside, for inner points and
    /// handles, and for end points. The owners come back; all null when there is none, gabarit null for a
    /// curve inside.
    bool isVectorInGroupCurve(const CDbPointVOR *v, bool onContour, bool inside, bool innerPoints,
                              bool endPoints, GabaritObject **gabarit, LineObject **line,
                              CurveObject **curve) const;
    /// The line is part of a dart's leg.
    bool pICIsLine(const LineObject *line, DartContour **dart) const;
    /// The line that follows on the same leg past the end vector, and its other end; null at the end of the
    /// leg.
    LineObject *pICGetLineNext(const LineObject *line, const CDbPointVOR *end, CDbPointVOR **otherEnd) const;
    /// Straight lines and curves, in the order in which they were added.
    const std::vector<LineObject *> &lines() const { return mLines; }
    /// Head of the chain along mNextGabarit; null for a piece without gabarit.
    GabaritObject *firstGabarit() const { return mFirstGabarit; }

    // Rebuilding
    // -----------------------------------------------------------------------------------------------

    /// Working displacements of mirrored pairs, then of handles.
    void grStandardizeEvolutions();
    /// Rebuilds what depends on the anchors, in every size, or on the nest alone when gradationDefined is
    /// false.
    virtual void againObjects(bool gradationDefined, const GradationData *gradation, bool = true);

    // View and state
    // -------------------------------------------------------------------------------------------

    /// Tells that the piece was changed. Here it only counts; a host with a view draws the piece anew.
    virtual void emitChanged();
    /// Whether the piece is selected in the view; not at first. Every setting counts, also to the same.
    ///@{
    bool getSelection() const { return mSelected; }
    void setSelected(bool selected);
    ///@}
    /// The mirror, the group's; null when there is none, and isMirror is false then.
    ///@{
    bool isMirror() const { return mMirror != nullptr; }
    Mirror *Miroir() const { return mMirror; }
    ///@}

    /// Any text; nothing keeps it from repeating among pieces.
    ///@{
    QString name() const { return mName; }
    void setName(const QString &name) { mName = name; }
    ///@}
    /// A locked piece warns before a change; locking forbids nothing.
    ///@{
    bool isLocked() const { return mLocked; }
    void setLocked(bool locked) { mLocked = locked; }
    ///@}
    /// Name of the piece this one was copied from as a clone; empty for others.
    ///@{
    bool isClone() const { return !mCloneOf.isEmpty(); }
    QString cloneOf() const { return mCloneOf; }
    void setCloneOf(const QString &source) { mCloneOf = source; }
    ///@}

    /// How often againObjects, emitChanged and setSelected were called; a copy begins at 0.
    ///@{
    int rebuildCount() const { return mRebuildCount; }
    int changedCount() const { return mChangedCount; }
    int selectionCount() const { return mSelectionCount; }
    ///@}

    Mirror *mMirror = nullptr;           ///< null when the group has no mirror
    CDbPointVOR *mFirstVector = nullptr; ///< head of the null-ended chain of own vectors
    qint32 mRebuildingFromFrames = 0;    ///< 1 while a rebuild was asked for by a frame
    std::function<void()> mRebuilt;      ///< heard at the end of each rebuild; may be empty

private:
    friend class GabaritObject;

    void enroll(CDbPointVOR *v);
    void strike(const CDbPointVOR *v);
    bool uses(const CDbPointVOR *v) const;
    void release(GabaritObject *gabarit);
    void forgetContour(const GabaritObject *doomed);
    bool isDartPossible(const GabaritObject *gabarit, const CDbPointVOR *pivot) const;
    void rebuildDependents(short sizeNumber, const GradationData *gradation);
    const std::vector<std::pair<const CDbPointVOR *, LineObject *>> &curvesByVector() const;

    QString mName;
    QString mCloneOf;
    VectorChain mOwnVectors;
    std::unordered_map<int, CDbPointVOR *> mByIdentity;
    int mLastIdentity = 0;
    GabaritObject *mFirstGabarit = nullptr;
    std::vector<LineObject *> mLines;
    /// Which curves a vector is a point or a handle of; sorted, made at the first question after a change.
    mutable std::vector<std::pair<const CDbPointVOR *, LineObject *>> mCurvesByVector;
    mutable bool mCurvesByVectorIsFresh = false;
    std::vector<Notch> mNotches;
    std::vector<GrainLine> mGrainLines;
    std::vector<InnerLine> mInnerLines;
    std::vector<SeamAllowance> mSeamAllowances;
    std::vector<DrillHole> mDrillHoles;
    int mRebuildCount = 0;
    int mChangedCount = 0;
    int mSelectionCount = 0;
    bool mSelected = false;
    bool mLocked = false;
};

} // namespace VorSystem
