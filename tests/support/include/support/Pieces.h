// Pattern pieces for tests: small, of known measures, graded.
// Each function makes a new group, which the caller owns; lengths in centimetres, y upwards.
#pragma once

#include <VorConjoin/VorConjoin.h>

#include <memory>
#include <vector>

namespace support
{

/// Sizes and nest that the five garment pieces are meant for: seven sizes, the fourth is the nest.
VorSystem::GradationData sevenSizes();

/// A piece with names for its parts.
struct Piece {
    std::unique_ptr<VorSystem::CDbGroupObject> group;
    VorSystem::GabaritObject *gabarit = nullptr;   ///< the first contour
    std::vector<VorSystem::CDbPointVOR *> contour; ///< its vectors, in contour order
    VorSystem::DartContour *dart = nullptr;        ///< the first dart, when there is one

    /// A vector of the contour, counted from 0, backwards from -1.
    VorSystem::CDbPointVOR *at(int place) const;
    /// Gives the group to somebody else who owns it from then on, such as a plan.
    VorSystem::CDbGroupObject *release() { return group.release(); }
};

/// width x height, first corner at the origin, contour order to the right, up, left, down: corners 0 to 3.
///
/// Every edge may be divided into equal parts. One size larger is grow wider and twice grow higher; the first
/// corner stays.
Piece rectangle(double width = 40.0, double height = 60.0, int partsPerEdge = 1, double grow = 1.0);

/// Front bodice half with a waist dart of equal legs, a curved armhole and neckline, a notch and a grain
/// line.
Piece bodiceWithDart();
/// Sleeve with a curved cap and an elbow pleat vector on its side seam.
Piece sleeve();
/// Trouser leg with curved crotch and hip.
Piece trouserLeg();
/// Skirt panel with straight seams, a fold line and a drill hole.
Piece skirt();
/// Back, mirrored about its upright middle, with a dart on either side and explicit evolutions in some
/// vectors.
Piece mirroredBack();

/// All five garment pieces.
std::vector<Piece> garmentPieces();

/// An outline that goes round the origin, with vectors of random distance, curves and at most one dart; the
/// same seed gives the same piece. Vectors are regular, explicit or without grading.
Piece randomPiece(unsigned seed, int vectors);

/// A piece in one size, and back. The group's vectors are swapped while this lives.
class InSize
{
public:
    InSize(const VorSystem::CDbGroupObject *group, short sizeNumber,
           const VorSystem::GradationData *gradation);
    InSize(const InSize &) = delete;
    InSize &operator=(const InSize &) = delete;
    ~InSize();

private:
    const VorSystem::CDbGroupObject *mGroup;
    short mSize;
};

/// Every vector of a group, in the order of the walk.
std::vector<VorSystem::CDbPointVOR *> vectorsOf(const VorSystem::CDbGroupObject *group);

} // namespace support
