// What holds for every outline, not only for those somebody thought of.

#include <support/Pieces.h>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <cmath>

using namespace VorSystem;
using support::Piece;

namespace
{

constexpr double kExact = 1e-9; // cm

Piece anyPiece()
{
    return support::randomPiece(*rc::gen::inRange(0U, 100000U), *rc::gen::inRange(8, 60));
}

double anyNumber(int lowest, int highest)
{
    return *rc::gen::inRange(lowest * 1000, highest * 1000) / 1000.0;
}

struct Ends {
    CDbPointVOR *from;
    CDbPointVOR *to;
};

// Two different anchors of the contour with a live way between them.
Ends anyStretch(const Piece &piece)
{
    const int count = static_cast<int>(piece.contour.size());
    const int from = *rc::gen::inRange(0, count);
    const int to = (from + *rc::gen::inRange(1, count)) % count;
    const Ends ends{piece.at(from), piece.at(to)};
    RC_PRE(ends.from->isAnchor() && ends.to->isAnchor());
    RC_PRE(piece.gabarit->contourLengthWithoutDeadZones(ends.from, ends.to) > 0.0);
    return ends;
}

std::vector<GeoPoint2D> placesOf(const Piece &piece)
{
    std::vector<GeoPoint2D> places;
    for (const CDbPointVOR *v : support::vectorsOf(piece.group.get()))
        places.emplace_back(v->x(), v->y());
    return places;
}

std::vector<GeoPoint2D> placesInSize(const Piece &piece, short size, const GradationData &sizes)
{
    std::vector<GeoPoint2D> places;
    for (const CDbPointVOR *v : support::vectorsOf(piece.group.get()))
        places.push_back(v->positionInSize(size, &sizes));
    return places;
}

double axisDistance(const GeoPoint2D &p, const GeoPoint2D &a, const GeoPoint2D &b)
{
    const GeoPoint2D along = b - a;
    const GeoPoint2D off = p - a;
    return std::abs(along.x() * off.y() - along.y() * off.x()) / a.distance(b);
}

} // namespace

RC_GTEST_PROP(Properties, swapAndRecalculateRestoreEveryBit, ())
{
    const Piece piece = anyPiece();
    const GradationData sizes(static_cast<short>(*rc::gen::inRange(1, 60)), 1);
    const auto before = placesOf(piece);
    for (short size = 1; size <= sizes.gradationNum(); ++size) {
        const support::InSize visit(piece.group.get(), size, &sizes);
    }
    RC_ASSERT(placesOf(piece) == before);
}

RC_GTEST_PROP(Properties, whatASwapShowsIsWhatThePositionInTheSizeTells, ())
{
    const Piece piece = anyPiece();
    const auto count = static_cast<short>(*rc::gen::inRange(1, 30));
    const GradationData sizes(count, static_cast<short>(*rc::gen::inRange(1, count + 1)));
    const auto size = static_cast<short>(*rc::gen::inRange(1, count + 1));
    const auto told = placesInSize(piece, size, sizes);
    const support::InSize visit(piece.group.get(), size, &sizes);
    RC_ASSERT(placesOf(piece) == told);
}

RC_GTEST_PROP(Properties, aHeldEndKeepsEveryBitAndThePivotMovesByExactlyTheStep, ())
{
    const Piece piece = anyPiece();
    const Ends ends = anyStretch(piece);
    const bool fromMoves = *rc::gen::arbitrary<bool>();
    CDbPointVOR *pivot = fromMoves ? ends.from : ends.to;
    const CDbPointVOR *held = fromMoves ? ends.to : ends.from;
    const double dx = anyNumber(-5, 5);
    const double dy = anyNumber(-5, 5);
    const GeoPoint2D wanted(pivot->x() + dx, pivot->y() + dy);
    const GeoPoint2D stays(held->x(), held->y());
    piece.gabarit->moveVectorContourBetween(ends.from, ends.to, pivot, dx, dy, true);
    RC_ASSERT(static_cast<const GeoPoint2D &>(*pivot) == wanted);
    RC_ASSERT(static_cast<const GeoPoint2D &>(*held) == stays);
}

RC_GTEST_PROP(Properties, aMoveWithoutAHeldEndIsRigidAndGoesBackWhereItCameFrom, ())
{
    const Piece piece = anyPiece();
    const Ends ends = anyStretch(piece);
    const auto before = placesOf(piece);
    const double dx = anyNumber(-5, 5);
    const double between = ends.from->distance(*ends.to);
    piece.gabarit->moveVectorContourBetween(ends.from, ends.to, ends.from, dx, 1.0, false);
    RC_ASSERT(std::abs(ends.from->distance(*ends.to) - between) < kExact);
    piece.gabarit->moveVectorContourBetween(ends.from, ends.to, ends.from, -dx, -1.0, false);
    const auto after = placesOf(piece);
    for (std::size_t place = 0; place < after.size(); ++place)
        RC_ASSERT(after[place].distance(before[place]) < kExact);
}

RC_GTEST_PROP(Properties, slidingChangesTheAxisDistanceByWhatWasAskedOrMovesNothing, ())
{
    const Piece piece = anyPiece();
    const Ends ends = anyStretch(piece);
    CDbPointVOR *limit = *rc::gen::arbitrary<bool>() ? ends.from : ends.to;
    const CDbPointVOR *end = limit == ends.from ? ends.to : ends.from;
    const GeoPoint2D axisA(anyNumber(-20, 20), anyNumber(-20, 20));
    const GeoPoint2D axisB(axisA.x() + anyNumber(1, 20), axisA.y() + anyNumber(-20, 20));
    const double distance = anyNumber(-8, 8);
    const double was = axisDistance(*end, axisA, axisB);
    const auto before = placesOf(piece);
    if (!piece.gabarit->moveVectorAlongContour(ends.from, ends.to, limit, &axisA, &axisB, distance)) {
        RC_ASSERT(placesOf(piece) == before);
        return;
    }
    RC_ASSERT(std::abs(axisDistance(*end, axisA, axisB) - (was + distance)) < kExact);
    // The others keep their share of the stretch, so their order too.
    const auto after = placesOf(piece);
    const auto limitPlace = static_cast<std::size_t>(piece.gabarit->gabaritGetContourIndex(limit) - 1);
    RC_ASSERT(after[limitPlace] == before[limitPlace]);
    for (std::size_t place = 0; place < piece.contour.size(); ++place) {
        if (!piece.gabarit->gabaritVectorBetween2Vectors(piece.contour[place], ends.from, ends.to, true))
            RC_ASSERT(after[place] == before[place]);
    }
}

RC_GTEST_PROP(Properties, aStraightStretchHasItsLengthAfterOneApplication, ())
{
    // A lower edge in random parts, on a line in a random direction.
    CDbGroupObject group;
    GabaritObject *gabarit = group.newGabarit();
    const double angle = anyNumber(0, 6);
    double reached = 0.0;
    const int parts = *rc::gen::inRange(1, 20);
    for (int part = 0; part <= parts; ++part) {
        gabarit->addContourVector(GeoPoint2D(10.0 + reached * std::cos(angle), reached * std::sin(angle)));
        reached += anyNumber(1, 9);
    }
    CDbPointVOR *a = gabarit->contourVectors().front();
    CDbPointVOR *b = gabarit->contourVectors().back();
    gabarit->addContourVector(GeoPoint2D(-500.0, 300.0));

    const double wanted = anyNumber(1, 200);
    const bool isTurned = *rc::gen::arbitrary<bool>();
    gabarit->setStretchLength(isTurned ? b : a, isTurned ? a : b, wanted, !isTurned, true);
    for (CDbPointVOR *v : gabarit->contourVectors())
        *v = GeoPoint2D(v->x() + double(v->mDisplacementX), v->y() + double(v->mDisplacementY));
    const double length = gabarit->contourLengthWithoutDeadZones(a, b);
    RC_ASSERT(std::abs(length - wanted) <= 1e-7 * std::max(wanted, reached));
}

RC_GTEST_PROP(Properties, aRebuildMovesNoAnchorButPivotsAndTwiceEqualsOnce, ())
{
    const Piece piece = anyPiece();
    const GradationData sizes = support::sevenSizes();
    for (CDbPointVOR *v : piece.contour) {
        if (v->isAnchor())
            *v = GeoPoint2D(v->x() + anyNumber(-2, 2), v->y() + anyNumber(-2, 2));
    }
    const auto all = support::vectorsOf(piece.group.get());
    const auto before = placesOf(piece);
    std::vector<std::vector<GeoPoint2D>> inSizes;
    for (short size = 1; size <= 7; ++size)
        inSizes.push_back(placesInSize(piece, size, sizes));
    piece.group->againObjects(true, &sizes);
    for (std::size_t place = 0; place < all.size(); ++place) {
        const bool isPivot = piece.dart && piece.dart->mPivotVector == all[place];
        if (!all[place]->isAnchor() || isPivot)
            continue;
        RC_ASSERT(static_cast<const GeoPoint2D &>(*all[place]) == before[place]);
        for (short size = 1; size <= 7; ++size) {
            const GeoPoint2D &was = inSizes[static_cast<std::size_t>(size - 1)][place];
            RC_ASSERT(all[place]->positionInSize(size, &sizes).distance(was) < kExact);
        }
    }
    const auto once = placesInSize(piece, 7, sizes);
    piece.group->againObjects(true, &sizes);
    const auto twice = placesInSize(piece, 7, sizes);
    for (std::size_t place = 0; place < once.size(); ++place)
        RC_ASSERT(once[place].distance(twice[place]) < kExact);
}

RC_GTEST_PROP(Properties, everythingStaysFiniteUpToTenKilometres, ())
{
    const Piece piece = anyPiece();
    const double scale = *rc::gen::element(0.0, 1e-9, 1e-3, 2e4);
    for (CDbPointVOR *v : support::vectorsOf(piece.group.get()))
        *v = GeoPoint2D(v->x() * scale, v->y() * scale);
    const int count = static_cast<int>(piece.contour.size());
    CDbPointVOR *from = piece.at(*rc::gen::inRange(0, count));
    CDbPointVOR *to = piece.at(*rc::gen::inRange(0, count));
    const GeoPoint2D axisA(anyNumber(-20, 20), 0.0);
    const GeoPoint2D axisB(axisA.x(), *rc::gen::element(0.0, 1e-9, 1e6));
    GabaritObject &gabarit = *piece.gabarit;
    gabarit.moveVectorContourBetween(from, to, to, anyNumber(-5, 5), anyNumber(-5, 5), true);
    gabarit.moveVectorAlongContour(from, to, from, &axisA, &axisB, anyNumber(-5, 5));
    gabarit.setStretchLength(from, to, *rc::gen::element(-1e6, 0.0, 1e-9, 60.0, 1e6), true, true);
    gabarit.PLI_ctlGabStandardizeEvolutions();
    gabarit.pICCtlGabStandardizeEvolutions();
    piece.group->grStandardizeEvolutions();
    RC_ASSERT(std::isfinite(gabarit.measureBetween(piece.group.get(), from, to, true)));
    RC_ASSERT(std::isfinite(gabarit.getContourLength(from, to, piece.at(0), false)));
    const GradationData sizes = support::sevenSizes();
    piece.group->againObjects(true, &sizes);
    for (const CDbPointVOR *v : support::vectorsOf(piece.group.get())) {
        RC_ASSERT(std::isfinite(v->mDisplacementX) && std::isfinite(v->mDisplacementY));
        for (short size = 1; size <= 7; ++size) {
            const GeoPoint2D place = v->positionInSize(size, &sizes);
            RC_ASSERT(std::isfinite(place.x()) && std::isfinite(place.y()));
        }
    }
}

RC_GTEST_PROP(Properties, mirroredPairsAreSymmetricInEverySizeAfterARebuild, ())
{
    const Piece piece = support::mirroredBack();
    const GradationData sizes = support::sevenSizes();
    for (CDbPointVOR *v : support::vectorsOf(piece.group.get()))
        *v = GeoPoint2D(v->x() + anyNumber(-2, 2), v->y() + anyNumber(-2, 2));
    piece.group->againObjects(true, &sizes);
    const Mirror *mirror = piece.group->mMirror;
    for (const Mirror::Pair &pair : mirror->pairs()) {
        for (short size = 1; size <= 7; ++size) {
            const GeoPoint2D image = mirror->reflected(pair.side2->positionInSize(size, &sizes));
            // Caps are rebuilt from the mouth after the pairs: symmetric as well, within rounding.
            RC_ASSERT(pair.side1->positionInSize(size, &sizes).distance(image) < 1e-8);
        }
    }
}

RC_GTEST_PROP(Properties, aFastQuestionAnswersAsAPlainWalk, ())
{
    const Piece piece = anyPiece();
    const Ends ends = anyStretch(piece);
    const bool forward = *rc::gen::arbitrary<bool>();
    std::vector<const CDbPointVOR *> seen;
    for (const CDbPointVOR *v = ends.from;; v = v->gabaritNeighborContourVector(forward)) {
        seen.push_back(v);
        if (v == ends.to)
            break;
    }
    double length = 0.0;
    for (std::size_t place = 1; place < seen.size(); ++place) {
        if (!piece.gabarit->isDeadEdge(seen[place - 1], seen[place]))
            length += seen[place - 1]->distance(*seen[place]);
    }
    RC_ASSERT(piece.gabarit->getContourLength(ends.from, ends.to, nullptr, forward) == length);
    for (const CDbPointVOR *v : piece.contour) {
        const bool isSeen = std::find(seen.begin(), seen.end(), v) != seen.end();
        RC_ASSERT(piece.gabarit->gabaritVectorBetween2Vectors(v, ends.from, ends.to, forward) == isSeen);
    }
}
