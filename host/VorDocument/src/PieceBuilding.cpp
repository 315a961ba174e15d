// From a draft to a piece: splitting at notches, chords, vectors, darts, marks.

#include "CubicCurve.h"

#include <VorConjoin/CDbGroupObject.h>
#include <VorConjoin/CDbPointVOR.h>
#include <VorConjoin/GabaritObject.h>
#include <VorConjoin/LineObject.h>
#include <VorConjoin/Mirror.h>
#include <VorConjoin/t_Plan.h>
#include <VorDocument/PatternDocument.h>
#include <VorDocument/PieceDraft.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <memory>
#include <stdexcept>

namespace VorSystem
{

namespace
{

constexpr double kSamePlace = 1e-5;  // cm: ends that meet
constexpr double kNotchAtEnd = 0.01; // cm: a notch this close to a vector sits on it
constexpr double kNotchOnSeam = 0.1; // cm: a mark further off is none of the seam's
constexpr double kCapHeight = 0.5;   // cm from the middle of a dart's mouth to its cap
constexpr int kMostChords = 128;
constexpr double kRegular = 1e-9; // cm: steps that agree

// What is wrong with a draft, for the user.
struct DraftError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

void require(bool holds, const char *words)
{
    if (!holds)
        throw DraftError(words);
}

// An edge in every size, with what rests on its end.
struct Edge {
    std::vector<CubicCurve> curves;
    bool isCurve = false;
    bool isDartTip = false; ///< ends in a tip
    bool isNotched = false; ///< a notch at its end
    double seamAllowance = 0.0;

    GradedPlace placesAt(const std::vector<double> &parameters) const
    {
        GradedPlace places;
        for (std::size_t size = 0; size < curves.size(); ++size)
            places.push_back(curves[size].at(parameters[size]));
        return places;
    }
    GradedPlace placesAt(double parameter) const
    {
        return placesAt(std::vector<double>(curves.size(), parameter));
    }
    GradedPlace from() const { return placesAt(0.0); }
    GradedPlace to() const { return placesAt(1.0); }
};

double greatestDistance(const GradedPlace &a, const GradedPlace &b)
{
    double greatest = 0.0;
    for (std::size_t size = 0; size < a.size(); ++size)
        greatest = std::max(greatest, a[size].distance(b[size]));
    return greatest;
}

// The work on one piece; a draft that makes none ends it by DraftError.
class PieceBuilder
{
public:
    PieceBuilder(const PatternDocument &document, const PieceDraft &draft)
        : mGradation(document.gradationData()), mDraft(draft),
          mSizes(static_cast<std::size_t>(GradationData::sizes(mGradation))),
          mNest(static_cast<std::size_t>(GradationData::nestNumber(mGradation) - 1)),
          mPiece(std::make_unique<CDbGroupObject>(draft.name)), mGabarit(mPiece->newGabarit())
    {
    }

    std::unique_ptr<CDbGroupObject> build()
    {
        readEdges();
        splitAtNotches();
        requireDartLegs();
        buildContour();
        buildDarts();
        buildMarks();
        if (mDraft.isMirrored)
            pairImages();
        return std::move(mPiece);
    }

private:
    struct Dart {
        std::size_t firstLeg; ///< the edge that ends in the tip
        CDbPointVOR *first;
        CDbPointVOR *cap;
        CDbPointVOR *second;
    };

    const GradedPlace &checked(const GradedPlace &places) const
    {
        require(places.size() == mSizes, "A place is not given for every size.");
        for (const GeoPoint2D &place : places)
            require(std::abs(place.mX) <= 1e6 && std::abs(place.mY) <= 1e6,
                    "A place is not a finite one within 10 km.");
        return places;
    }

    void readEdges()
    {
        require(mDraft.chordTolerance > 0.0 && mDraft.grid >= 0.0, "The tolerances must be positive.");
        const GradedPlace *reached = &checked(mDraft.start);
        for (const DraftEdge &edge : mDraft.edges) {
            addEdge(*reached, edge);
            reached = &edge.to;
        }
        require(!mEdges.empty(), "The seam line has no edge.");
        if (greatestDistance(*reached, mDraft.start) > kSamePlace) {
            DraftEdge closing;
            closing.to = mDraft.start;
            addEdge(*reached, closing);
        }
    }

    void addEdge(const GradedPlace &from, const DraftEdge &edge)
    {
        checked(edge.to);
        require(edge.control1.size() == edge.control2.size(), "A curve needs two control points.");
        Edge added;
        added.isCurve = edge.isCurve();
        added.isDartTip = edge.endsInDartTip;
        added.seamAllowance = edge.seamAllowance;
        for (std::size_t size = 0; size < mSizes; ++size) {
            added.curves.push_back(edge.isCurve() ? CubicCurve{from[size], checked(edge.control1)[size],
                                                               checked(edge.control2)[size], edge.to[size]}
                                                  : CubicCurve::straight(from[size], edge.to[size]));
        }
        mEdges.push_back(added);
    }

    std::size_t following(std::size_t edge) const { return (edge + 1) % mEdges.size(); }
    std::size_t preceding(std::size_t edge) const { return (edge + mEdges.size() - 1) % mEdges.size(); }
    bool isLeg(std::size_t edge) const { return mEdges[edge].isDartTip || mEdges[preceding(edge)].isDartTip; }

    // A notch splits its edge, in each size at its own parameter; what is no notch is left for the inside.
    void splitAtNotches()
    {
        for (const GradedPlace &mark : mDraft.marks) {
            if (!splitAt(checked(mark)))
                mInnerMarks.push_back(mark);
        }
    }

    bool splitAt(const GradedPlace &mark)
    {
        std::size_t nearestEdge = mEdges.size();
        std::vector<double> parameters;
        double nearest = kNotchOnSeam;
        for (std::size_t edge = 0; edge < mEdges.size(); ++edge) {
            std::vector<double> feet;
            for (std::size_t size = 0; size < mSizes; ++size)
                feet.push_back(mEdges[edge].curves[size].nearest(mark[size]));
            const double distance = greatestDistance(mEdges[edge].placesAt(feet), mark);
            if (distance <= nearest) {
                nearest = distance;
                nearestEdge = edge;
                parameters = feet;
            }
        }
        if (nearestEdge == mEdges.size())
            return false;

        const GradedPlace foot = mEdges[nearestEdge].placesAt(parameters);
        for (const std::size_t edge : {nearestEdge, preceding(nearestEdge)}) {
            if (greatestDistance(mEdges[edge].to(), foot) <= kNotchAtEnd) {
                mEdges[edge].isNotched = !mEdges[edge].isDartTip;
                return mEdges[edge].isNotched;
            }
        }
        if (isLeg(nearestEdge))
            return false;

        Edge tail = mEdges[nearestEdge];
        Edge &head = mEdges[nearestEdge];
        for (std::size_t size = 0; size < mSizes; ++size)
            std::tie(head.curves[size], tail.curves[size]) = head.curves[size].split(parameters[size]);
        head.isDartTip = false;
        head.isNotched = true;
        mEdges.insert(mEdges.begin() + static_cast<std::ptrdiff_t>(nearestEdge) + 1, tail);
        return true;
    }

    void requireDartLegs() const
    {
        for (std::size_t edge = 0; edge < mEdges.size(); ++edge) {
            if (!mEdges[edge].isDartTip)
                continue;
            require(mEdges.size() > 3, "A dart needs a contour around it.");
            require(!mEdges[following(edge)].isDartTip, "Two darts share a leg.");
        }
    }

    // As many chords as the size that needs most.
    int chordsOf(const Edge &edge) const
    {
        if (!edge.isCurve)
            return 1;
        int chords = 2;
        for (const CubicCurve &curve : edge.curves) {
            const double length = curve.length();
            while (chords < kMostChords && length - curve.chordLength(chords) > mDraft.chordTolerance)
                ++chords;
        }
        return chords;
    }

    GeoPoint2D rounded(const GeoPoint2D &place) const
    {
        if (mDraft.grid == 0.0)
            return place;
        return GeoPoint2D(std::round(place.mX / mDraft.grid) * mDraft.grid,
                          std::round(place.mY / mDraft.grid) * mDraft.grid);
    }

    // Whole multiples of the grid, divided last: decimal places print as short as they were meant.
    double roundedStep(double step) const
    {
        return mDraft.grid == 0.0 ? step : std::round(step / mDraft.grid) / std::round(1.0 / mDraft.grid);
    }

    void grade(CDbPointVOR *v, const GradedPlace &places) const
    {
        const GeoPoint2D nest = rounded(places[mNest]);
        *v = GeoPoint2D(roundedStep(nest.mX), roundedStep(nest.mY));
        if (mSizes == 1)
            return;
        std::vector<Evolution> evolutions;
        for (const GeoPoint2D &place : places) {
            const GeoPoint2D step = rounded(place) - nest;
            evolutions.push_back({roundedStep(step.mX), roundedStep(step.mY)});
        }
        evolutions[mNest] = {};
        RegularSteps steps;
        if (areRegular(evolutions, &steps))
            v->setRegularSteps(steps);
        else
            v->setEvolutions(evolutions, static_cast<short>(mNest + 1));
    }

    bool areRegular(const std::vector<Evolution> &evolutions, RegularSteps *steps) const
    {
        const double tolerance = std::max(kRegular, 1.5 * mDraft.grid);
        const auto step = [&](std::size_t outermost) {
            const double count =
                std::max(std::abs(static_cast<double>(outermost) - static_cast<double>(mNest)), 1.0);
            return Evolution{roundedStep(evolutions[outermost].x / count),
                             roundedStep(evolutions[outermost].y / count)};
        };
        steps->small = step(0);
        steps->large = step(mSizes - 1);
        for (std::size_t size = 0; size < mSizes; ++size) {
            const double count = std::abs(static_cast<double>(size) - static_cast<double>(mNest));
            const Evolution &rule = size < mNest ? steps->small : steps->large;
            if (std::abs(evolutions[size].x - count * rule.x) > tolerance ||
                std::abs(evolutions[size].y - count * rule.y) > tolerance)
                return false;
        }
        return true;
    }

    CDbPointVOR *onContour(const GradedPlace &places, int kind)
    {
        CDbPointVOR *v = mGabarit->addContourVector({}, kind);
        require(v != nullptr, "The contour has too many vectors.");
        grade(v, places);
        return v;
    }

    CDbPointVOR *inside(const GradedPlace &places, int kind = Vector_Corner)
    {
        CDbPointVOR *v = mPiece->addOwnVector({}, kind);
        require(v != nullptr, "The piece has too many vectors inside.");
        grade(v, places);
        return v;
    }

    // The draft's start is the first vector, unless it is itself the tip of a dart.
    void buildContour()
    {
        const std::size_t first = mEdges.back().isDartTip ? 1 : 0;
        mEnds.assign(mEdges.size(), nullptr);
        CDbPointVOR *const start = onContour(mEdges[first].from(), Vector_Corner);
        CDbPointVOR *reached = start;
        for (std::size_t count = 0; count < mEdges.size(); ++count) {
            const std::size_t index = (first + count) % mEdges.size();
            const bool isLast = count + 1 == mEdges.size();
            if (mEdges[index].isDartTip) {
                mDarts.push_back({index, reached, onContour(capOf(index), Vector_DartCap), nullptr});
                continue;
            }
            if (isLeg(index)) {
                reached = isLast ? start : onContour(mEdges[index].to(), Vector_Corner);
                mDarts.back().second = reached;
            } else {
                reached = buildEdge(mEdges[index], reached, isLast ? start : nullptr);
            }
            mEnds[index] = reached;
        }
        require(mGabarit->contourCount() >= 3, "A contour needs three vectors.");
    }

    // The vectors after begin, up to the end of the edge, which is there already for the last one.
    CDbPointVOR *buildEdge(const Edge &edge, CDbPointVOR *begin, CDbPointVOR *end)
    {
        std::vector<CDbPointVOR *> points = {begin};
        const int chords = chordsOf(edge);
        for (int chord = 1; chord < chords; ++chord)
            points.push_back(onContour(edge.placesAt(static_cast<double>(chord) / chords), Vector_Curve));
        points.push_back(end ? end : onContour(edge.to(), Vector_Corner));
        if (edge.seamAllowance > 0.0) {
            for (auto point = points.begin(); point + 1 != points.end(); ++point)
                mPiece->addSeamAllowance(*point, edge.seamAllowance);
        }
        if (edge.isCurve)
            mPiece->addCurve(points);
        return points.back();
    }

    GradedPlace capOf(std::size_t firstLeg) const
    {
        const GradedPlace first = mEdges[firstLeg].from();
        const GradedPlace second = mEdges[following(firstLeg)].to();
        const GradedPlace pivot = mEdges[firstLeg].to();
        GradedPlace cap;
        for (std::size_t size = 0; size < mSizes; ++size) {
            const GeoPoint2D middle(0.5 * (first[size].mX + second[size].mX),
                                    0.5 * (first[size].mY + second[size].mY));
            GeoPoint2D place;
            CDbPointVOR::vectorManagementUnitDist(middle, kCapHeight, middle, pivot[size], place);
            cap.push_back(place);
        }
        return cap;
    }

    void buildDarts()
    {
        for (const Dart &dart : mDarts) {
            const Edge &first = mEdges[dart.firstLeg];
            const Edge &second = mEdges[following(dart.firstLeg)];
            CDbPointVOR *pivot = inside(first.to());
            LineObject *firstLine = buildLeg(first, true, pivot, dart.first);
            LineObject *secondLine = buildLeg(second, false, pivot, dart.second);
            require(mPiece->addDart(mGabarit, dart.first, dart.cap, dart.second, pivot, {firstLine},
                                    {secondLine}),
                    "A dart does not fit its contour.");
        }
    }

    LineObject *buildLeg(const Edge &edge, bool isReversed, CDbPointVOR *pivot, CDbPointVOR *end)
    {
        if (!edge.isCurve)
            return mPiece->addLine(pivot, end);
        std::vector<CDbPointVOR *> points = {pivot};
        const int chords = chordsOf(edge);
        for (int chord = 1; chord < chords; ++chord) {
            const double parameter = static_cast<double>(isReversed ? chords - chord : chord) / chords;
            points.push_back(inside(edge.placesAt(parameter), Vector_DartInner));
        }
        points.push_back(end);
        return mPiece->addCurve(points);
    }

    // A vector of the piece at a place, in every size; a new one inside where there is none.
    CDbPointVOR *at(const GradedPlace &places)
    {
        checked(places);
        for (CDbPointVOR *v : mGabarit->contourVectors()) {
            if (v->isAnchor() && greatestDistance(placesOf(*v), places) <= kSamePlace)
                return v;
        }
        return inside(places);
    }

    GradedPlace placesOf(const CDbPointVOR &v) const
    {
        GradedPlace places;
        for (std::size_t size = 0; size < mSizes; ++size)
            places.push_back(v.positionInSize(static_cast<short>(size + 1), mGradation));
        return places;
    }

    void buildMarks()
    {
        for (std::size_t edge = 0; edge < mEdges.size(); ++edge) {
            if (mEdges[edge].isNotched)
                mPiece->addNotch(mEnds[edge]);
        }
        for (const GradedPlace &mark : mInnerMarks)
            mPiece->addDrillHole(inside(mark));
        for (const PieceDraft::Line &line : mDraft.innerLines) {
            CDbPointVOR *from = at(line.from);
            mPiece->addInnerLine(from, at(line.to), line.use);
        }
        for (const PieceDraft::Line &grain : mDraft.grainLines) {
            const GeoPoint2D along = checked(grain.to)[mNest] - checked(grain.from)[mNest];
            mPiece->addGrainLine(inside(grain.from), along, std::hypot(along.mX, along.mY));
        }
    }

    // Every vector with its image about x = 0, in every size; what has none stays without.
    void pairImages()
    {
        Mirror *mirror = mPiece->setMirror(GeoPoint2D(0.0, 0.0), GeoPoint2D(0.0, 1.0));
        std::vector<CDbPointVOR *> vectors = mGabarit->contourVectors();
        vectors.insert(vectors.end(), mPiece->ownVectors().begin(), mPiece->ownVectors().end());
        std::multimap<double, CDbPointVOR *> byX;
        for (CDbPointVOR *v : vectors)
            byX.emplace(v->mX, v);

        for (CDbPointVOR *v : vectors) {
            if (mirror->imageOf(v))
                continue;
            GradedPlace image = placesOf(*v);
            for (GeoPoint2D &place : image)
                place.mX = -place.mX;
            const auto end = byX.upper_bound(-v->mX + kSamePlace);
            for (auto found = byX.lower_bound(-v->mX - kSamePlace); found != end; ++found) {
                CDbPointVOR *other = found->second;
                if (other->mVectorKind == v->mVectorKind && other->gabarit() == v->gabarit() &&
                    !mirror->imageOf(other) && greatestDistance(placesOf(*other), image) <= kSamePlace) {
                    // Side 1 is left of the axis.
                    mirror->addPair(v->mX <= 0.0 ? v : other, v->mX <= 0.0 ? other : v);
                    break;
                }
            }
        }
    }

    const GradationData *mGradation;
    const PieceDraft &mDraft;
    std::size_t mSizes;
    std::size_t mNest;
    std::vector<Edge> mEdges;
    std::vector<GradedPlace> mInnerMarks;
    std::vector<CDbPointVOR *> mEnds; ///< the vector at the end of each edge; null for tips
    std::vector<Dart> mDarts;
    std::unique_ptr<CDbGroupObject> mPiece;
    GabaritObject *mGabarit;
};

} // namespace

CDbGroupObject *buildPiece(PatternDocument &document, const PieceDraft &draft, QString *error)
{
    try {
        std::unique_ptr<CDbGroupObject> piece = PieceBuilder(document, draft).build();
        document.plan().addGroup(piece.get());
        return piece.release();
    } catch (const DraftError &problem) {
        if (error)
            *error = QStringLiteral("%1: %2").arg(draft.name, QString::fromLatin1(problem.what()));
        return nullptr;
    }
}

} // namespace VorSystem
