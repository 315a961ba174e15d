// The lines of a piece in one size, ready to be drawn.
#pragma once

#include "../CubicCurve.h"

#include <VorGeo/GeoRectangle.h>

#include <utility>
#include <vector>

namespace VorSystem
{

class CDbGroupObject;
class CDbPointVOR;
class GabaritObject;
class GradationData;

/// A line of cubic curves, each from the end of the one before.
struct Strand {
    std::vector<CubicCurve> curves;
    bool isClosed = false;
};

/// Points along a curve, a centimetre apart or closer.
void appendPoints(const CubicCurve &curve, std::vector<GeoPoint2D> &points);

/// A tick across the seam.
struct NotchTick {
    GeoPoint2D foot;
    GeoPoint2D outwards; ///< of length 1
};

/// A piece as it stands in a size, read without moving anything. Centimetres, y upwards.
class PieceShape
{
public:
    PieceShape(const CDbGroupObject &piece, short sizeNumber, const GradationData *gradation);

    GeoPoint2D placeOf(const CDbPointVOR *v) const;

    /// The seam line without the mouths of darts.
    std::vector<Strand> seamLines() const;
    /// The whole contours, darts open: along the legs. For the face of the piece.
    std::vector<Strand> faces() const;
    std::vector<Strand> dartLegs() const;
    /// The folded mouths: over the cap.
    std::vector<Strand> dartCaps() const;
    /// Lines and curves inside the piece that are no legs.
    std::vector<Strand> innerCurves() const;
    /// The seam between two vectors of a contour, without the mouths of darts.
    std::vector<Strand> stretch(const GabaritObject *gabarit, const CDbPointVOR *from, const CDbPointVOR *to,
                                bool forward) const;
    /// Outside the seam by the width of each edge; none where no edge has a width.
    std::vector<Strand> cutLines() const;
    std::vector<NotchTick> notches() const;
    /// Direction out of the piece at a vector of its contour, of length 1.
    GeoPoint2D outwardsAt(const CDbPointVOR *v) const;

    /// Points along seam, darts and inner lines, a centimetre apart or closer.
    void appendTrail(std::vector<GeoPoint2D> &points) const;
    /// Where in the first contour something of this half width and height, cm, keeps furthest off the points.
    GeoPoint2D clearing(const std::vector<GeoPoint2D> &points, double halfWidth, double halfHeight) const;

    GeoRectangle extent() const;
    /// How far the contours reach along the line from a to b: parameters of it, 0 at a and 1 at b. Both 0
    /// without contours.
    std::pair<double, double> reachAlong(const GeoPoint2D &a, const GeoPoint2D &b) const;
    /// Middle of the area of the first contour.
    GeoPoint2D middle() const;

private:
    CubicCurve edge(const CDbPointVOR *from, const CDbPointVOR *to) const;
    Strand leg(const std::vector<CDbPointVOR *> &vectors) const;
    double turning(const GabaritObject *gabarit) const;

    const CDbGroupObject &mPiece;
    short mSize;
    const GradationData *mGradation;
    /// Edges that belong to curves, sorted by their ends.
    struct CurvedEdge {
        const CDbPointVOR *from;
        const CDbPointVOR *to;
        CubicCurve curve;
    };
    std::vector<CurvedEdge> mCurved;
};

} // namespace VorSystem
