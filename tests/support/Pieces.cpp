// Pattern pieces for tests.

#include <support/Pieces.h>

#include <algorithm>
#include <cmath>
#include <random>

namespace support
{

using namespace VorSystem;

namespace
{

// Grading of a point: what one larger size adds; a smaller size takes the same away.
RegularSteps larger(double dx, double dy)
{
    return {{-dx, -dy}, {dx, dy}};
}

struct Corner {
    double x;
    double y;
    double growX;
    double growY;
    int kind = Vector_Corner;
};

Piece outline(const QString &name, const std::vector<Corner> &corners)
{
    Piece piece;
    piece.group = std::make_unique<CDbGroupObject>(name);
    piece.gabarit = piece.group->newGabarit();
    for (const Corner &corner : corners) {
        const RegularSteps steps = larger(corner.growX, corner.growY);
        piece.contour.push_back(
            piece.gabarit->addContourVector(GeoPoint2D(corner.x, corner.y), corner.kind, &steps));
    }
    return piece;
}

// The vectors of a contour from one place to another.
std::vector<CDbPointVOR *> stretch(const Piece &piece, std::size_t from, std::size_t to)
{
    return {piece.contour.begin() + static_cast<std::ptrdiff_t>(from),
            piece.contour.begin() + static_cast<std::ptrdiff_t>(to) + 1};
}

CDbPointVOR *ownVector(Piece &piece, double x, double y, double growX, double growY, int kind = Vector_Corner)
{
    const RegularSteps steps = larger(growX, growY);
    return piece.group->addOwnVector(GeoPoint2D(x, y), kind, &steps);
}

// Evolutions that no two steps reproduce: the outermost sizes jump.
void makeExplicit(CDbPointVOR *v)
{
    const RegularSteps steps = v->regularSteps();
    const double jumps[] = {4.5, 2.5, 1.0, 0.0, 1.0, 2.0, 4.0};
    std::vector<Evolution> evolutions;
    for (int size = 0; size < 7; ++size) {
        const Evolution &step = size < 3 ? steps.small : steps.large;
        evolutions.push_back({jumps[size] * step.x, jumps[size] * step.y});
    }
    v->setEvolutions(evolutions, 4);
}

} // namespace

GradationData sevenSizes()
{
    return GradationData(7, 4);
}

CDbPointVOR *Piece::at(int place) const
{
    const int count = static_cast<int>(contour.size());
    return contour[static_cast<std::size_t>(place < 0 ? place + count : place)];
}

Piece rectangle(double width, double height, int partsPerEdge, double grow)
{
    const Corner corners[] = {
        {0.0, 0.0, 0.0, 0.0},
        {width, 0.0, grow, 0.0},
        {width, height, grow, 2.0 * grow},
        {0.0, height, 0.0, 2.0 * grow},
    };
    std::vector<Corner> divided;
    for (int side = 0; side < 4; ++side) {
        const Corner &a = corners[side];
        const Corner &b = corners[(side + 1) % 4];
        for (int part = 0; part < partsPerEdge; ++part) {
            const double u = double(part) / partsPerEdge;
            divided.push_back({a.x + u * (b.x - a.x), a.y + u * (b.y - a.y),
                               a.growX + u * (b.growX - a.growX), a.growY + u * (b.growY - a.growY)});
        }
    }
    return outline(QStringLiteral("Rectangle"), divided);
}

Piece bodiceWithDart()
{
    // From the centre front at the waist to the right: waist with dart, side seam, armhole, shoulder,
    // neckline.
    Piece piece = outline(QStringLiteral("Bodice"), {
                                                        {0.0, 0.0, 0.0, 0.0}, // 0 centre waist
                                                        {9.0, 0.0, 0.3, 0.0}, // 1 first leg
                                                        {10.5, -0.5, 0.3, 0.0, Vector_DartCap}, // 2 cap
                                                        {12.0, 0.0, 0.3, 0.0},                // 3 second leg
                                                        {23.0, 0.5, 1.0, 0.0},                // 4 side waist
                                                        {24.0, 20.0, 1.0, 0.4},               // 5 underarm
                                                        {21.0, 21.5, 0.9, 0.5, Vector_Curve}, // 6 armhole
                                                        {18.5, 25.0, 0.8, 0.7, Vector_Curve}, // 7
                                                        {18.0, 30.0, 0.7, 0.9, Vector_Curve}, // 8
                                                        {18.8, 37.0, 0.6, 1.2}, // 9 shoulder point
                                                        {7.0, 41.0, 0.2, 1.3},  // 10 neck point
                                                        {6.2, 37.0, 0.2, 1.2, Vector_Curve}, // 11 neckline
                                                        {3.5, 34.2, 0.1, 1.1, Vector_Curve}, // 12
                                                        {0.0, 33.5, 0.0, 1.1}, // 13 centre front
                                                    });
    piece.group->addCurve(stretch(piece, 5, 9));
    piece.group->addCurve(stretch(piece, 10, 13));
    CDbPointVOR *pivot = ownVector(piece, 10.5, 18.0, 0.3, 0.3);
    // Legs bend slightly: one inner point each, mirror images of each other.
    CDbPointVOR *firstInner = ownVector(piece, 9.9, 9.0, 0.3, 0.15, Vector_DartInner);
    CDbPointVOR *secondInner = ownVector(piece, 11.1, 9.0, 0.3, 0.15, Vector_DartInner);
    piece.dart = piece.group->addDart(piece.gabarit, piece.at(1), piece.at(2), piece.at(3), pivot,
                                      {firstInner}, {secondInner});
    piece.group->addNotch(piece.at(7));
    piece.group->addGrainLine(piece.at(0), GeoPoint2D(0.0, 1.0), 20.0);
    for (const CDbPointVOR *v : piece.contour)
        piece.group->addSeamAllowance(v, 1.0);
    return piece;
}

Piece sleeve()
{
    Piece piece =
        outline(QStringLiteral("Sleeve"), {
                                              {-12.0, 0.0, -0.4, 0.0},                // 0 hem, back
                                              {12.0, 0.0, 0.4, 0.0},                  // 1 hem, front
                                              {17.0, 42.0, 0.8, 0.5},                 // 2 underarm, front
                                              {13.0, 45.0, 0.6, 0.6, Vector_Curve},   // 3 cap
                                              {8.0, 52.0, 0.4, 0.9, Vector_Curve},    // 4
                                              {0.0, 57.0, 0.0, 1.1, Vector_Curve},    // 5 top of the cap
                                              {-8.0, 53.0, -0.4, 0.9, Vector_Curve},  // 6
                                              {-14.0, 46.0, -0.6, 0.6, Vector_Curve}, // 7
                                              {-17.0, 42.0, -0.8, 0.5},               // 8 underarm, back
                                          });
    piece.group->addCurve(stretch(piece, 2, 8));
    piece.group->addPleatVector(piece.at(1), 0.5);
    piece.group->addNotch(piece.at(5));
    piece.group->addGrainLine(piece.at(0), GeoPoint2D(0.0, 1.0), 35.0);
    piece.contour = piece.gabarit->contourVectors();
    return piece;
}

Piece trouserLeg()
{
    Piece piece =
        outline(QStringLiteral("Trouser leg"), {
                                                   {-10.0, 0.0, -0.3, 0.0},                // 0 hem, inside
                                                   {10.0, 0.0, 0.3, 0.0},                  // 1 hem, outside
                                                   {11.5, 52.0, 0.5, 0.5},                 // 2 knee, outside
                                                   {14.5, 82.0, 0.8, 0.9},                 // 3 hip, outside
                                                   {13.5, 92.0, 0.8, 1.1, Vector_Curve},   // 4
                                                   {11.0, 102.0, 0.7, 1.3},                // 5 waist, outside
                                                   {-9.0, 104.0, -0.3, 1.3},               // 6 waist, centre
                                                   {-9.8, 90.0, -0.4, 1.0, Vector_Curve},  // 7 crotch
                                                   {-11.5, 82.0, -0.5, 0.9, Vector_Curve}, // 8
                                                   {-16.5, 78.0, -0.8, 0.8},               // 9 crotch point
                                                   {-11.0, 52.0, -0.5, 0.5},               // 10 knee, inside
                                               });
    piece.group->addCurve(stretch(piece, 3, 5));
    piece.group->addCurve(stretch(piece, 6, 9));
    piece.group->addGrainLine(piece.at(0), GeoPoint2D(0.0, 1.0), 60.0);
    makeExplicit(piece.at(3));
    makeExplicit(piece.at(9));
    return piece;
}

Piece skirt()
{
    Piece piece = outline(QStringLiteral("Skirt"), {
                                                       {0.0, 0.0, 0.0, 0.0},   // 0 centre hem
                                                       {15.0, 0.0, 0.5, 0.0},  // 1
                                                       {30.0, 0.0, 1.0, 0.0},  // 2 side hem
                                                       {26.0, 40.0, 1.0, 0.4}, // 3 hip
                                                       {19.0, 60.0, 1.0, 0.6}, // 4 side waist
                                                       {9.5, 59.0, 0.5, 0.6},  // 5
                                                       {0.0, 58.5, 0.0, 0.6},  // 6 centre waist
                                                       {0.0, 30.0, 0.0, 0.3},  // 7
                                                   });
    const CDbPointVOR *hole = ownVector(piece, 12.0, 45.0, 0.4, 0.4);
    piece.group->addDrillHole(hole);
    piece.group->addInnerLine(piece.at(0), piece.at(6), InnerLine::Fold);
    return piece;
}

Piece mirroredBack()
{
    // Counterclockwise; the middle is the y axis, looked along upwards: the left half is side 1.
    Piece piece = outline(QStringLiteral("Back"), {
                                                      {0.0, 0.0, 0.0, 0.0}, // 0 middle waist
                                                      {8.0, 0.0, 0.3, 0.0}, // 1 first leg, right
                                                      {9.5, -0.5, 0.3, 0.0, Vector_DartCap}, // 2
                                                      {11.0, 0.0, 0.3, 0.0},  // 3 second leg, right
                                                      {22.0, 0.0, 1.0, 0.0},  // 4 side waist, right
                                                      {23.0, 21.0, 1.0, 0.4}, // 5 underarm, right
                                                      {18.0, 26.0, 0.8, 0.7, Vector_Curve}, // 6
                                                      {18.5, 37.0, 0.6, 1.2},   // 7 shoulder, right
                                                      {7.0, 41.0, 0.2, 1.3},    // 8 neck, right
                                                      {0.0, 39.0, 0.0, 1.2},    // 9 middle neck
                                                      {-7.0, 41.0, -0.2, 1.3},  // 10 neck, left
                                                      {-18.5, 37.0, -0.6, 1.2}, // 11
                                                      {-18.0, 26.0, -0.8, 0.7, Vector_Curve}, // 12
                                                      {-23.0, 21.0, -1.0, 0.4},               // 13
                                                      {-22.0, 0.0, -1.0, 0.0},                // 14
                                                      {-11.0, 0.0, -0.3, 0.0}, // 15 first leg, left
                                                      {-9.5, -0.5, -0.3, 0.0, Vector_DartCap}, // 16
                                                      {-8.0, 0.0, -0.3, 0.0}, // 17 second leg, left
                                                  });
    piece.group->addCurve(stretch(piece, 5, 7));
    piece.group->addCurve(stretch(piece, 11, 13));
    CDbPointVOR *right = ownVector(piece, 9.5, 15.0, 0.3, 0.3);
    CDbPointVOR *left = ownVector(piece, -9.5, 15.0, -0.3, 0.3);
    piece.dart = piece.group->addDart(piece.gabarit, piece.at(1), piece.at(2), piece.at(3), right);
    piece.group->addDart(piece.gabarit, piece.at(15), piece.at(16), piece.at(17), left);
    for (const int place : {5, 13})
        makeExplicit(piece.at(place));

    Mirror *mirror = piece.group->setMirror(GeoPoint2D(0.0, 0.0), GeoPoint2D(0.0, 1.0));
    mirror->addPair(piece.at(0), piece.at(0));
    mirror->addPair(piece.at(9), piece.at(9));
    for (int place = 1; place <= 8; ++place)
        mirror->addPair(piece.at(18 - place), piece.at(place));
    mirror->addPair(left, right);
    return piece;
}

std::vector<Piece> garmentPieces()
{
    std::vector<Piece> pieces;
    pieces.push_back(bodiceWithDart());
    pieces.push_back(sleeve());
    pieces.push_back(trouserLeg());
    pieces.push_back(skirt());
    pieces.push_back(mirroredBack());
    return pieces;
}

Piece randomPiece(unsigned seed, int vectors)
{
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> radius(20.0, 40.0);
    std::uniform_real_distribution<double> step(-1.0, 1.0);
    std::uniform_int_distribution<int> manner(0, 2);
    constexpr double turn = 6.283185307179586;

    const int count = std::max(vectors, 8);
    std::vector<Corner> corners;
    for (int place = 0; place < count; ++place) {
        const double angle = turn * place / count;
        const double r = radius(random);
        corners.push_back({r * std::cos(angle), r * std::sin(angle), step(random), step(random)});
    }
    // The first three make a mouth with equal legs towards the middle.
    corners[0] = {30.0, -1.5, 0.5, 0.0};
    corners[1] = {30.5, 0.0, 0.5, 0.0, Vector_DartCap};
    corners[2] = {30.0, 1.5, 0.5, 0.0};

    Piece piece = outline(QStringLiteral("Random %1").arg(seed), corners);
    if (seed % 2 == 0) {
        CDbPointVOR *pivot = ownVector(piece, 12.0, 0.0, 0.2, 0.0);
        piece.dart = piece.group->addDart(piece.gabarit, piece.at(0), piece.at(1), piece.at(2), pivot);
    } else {
        piece.at(1)->mVectorKind = Vector_Corner;
    }
    piece.group->addCurve(stretch(piece, 3, 6));
    for (int place = 3; place < count; ++place) {
        switch (manner(random)) {
        case 0: makeExplicit(piece.at(place)); break;
        case 1: piece.at(place)->setRegularSteps({}); break;
        default: break;
        }
    }
    for (int own = 0; own < 4; ++own)
        ownVector(piece, 5.0 * step(random), 5.0 * step(random), step(random), step(random));
    return piece;
}

InSize::InSize(const CDbGroupObject *group, short sizeNumber, const GradationData *gradation)
    : mGroup(group), mSize(sizeNumber)
{
    for (CDbPointVOR *v : vectorsOf(group)) {
        CDbPointVOR::setVectorInIrregular(v, gradation);
        CDbPointVOR::swapEvolutionMedium(v, sizeNumber);
    }
}

InSize::~InSize()
{
    for (CDbPointVOR *v : vectorsOf(mGroup)) {
        CDbPointVOR::recalculateEvolution(v, mSize);
        v->destroyVectorInRegular();
    }
}

std::vector<CDbPointVOR *> vectorsOf(const CDbGroupObject *group)
{
    std::vector<CDbPointVOR *> found;
    IteratorVectorGroup walk;
    walk.first(group, IteratorVectorG::Iterator_All);
    for (CDbPointVOR *v = nullptr; walk.next(v);)
        found.push_back(v);
    return found;
}

} // namespace support
