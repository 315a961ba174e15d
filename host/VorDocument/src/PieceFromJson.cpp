// Reads a piece. Vectors come first, then what refers to them by identity.

#include "PieceJson.h"

#include <VorConjoin/CDbGroupObject.h>
#include <VorConjoin/CDbPointVOR.h>
#include <VorConjoin/CurveObject.h>
#include <VorConjoin/DartContour.h>
#include <VorConjoin/GabaritObject.h>
#include <VorConjoin/GradationData.h>
#include <VorConjoin/LineObject.h>
#include <VorConjoin/Mirror.h>

#include <limits>

namespace VorSystem
{

namespace
{

constexpr double kFarthest = 1e6; // cm from the origin, in every size

struct DestroyFree {
    void operator()(CDbPointVOR *v) const { CDbPointVOR::destroyVectorObject(&v); }
};
using FreeVector = std::unique_ptr<CDbPointVOR, DestroyFree>;

Evolution pairFrom(const JsonPlace &stored)
{
    stored.require(stored.count() == 2, "is not a pair of numbers");
    return {stored[0].number(), stored[1].number()};
}

GeoPoint2D placeFrom(const JsonPlace &stored)
{
    const Evolution read = pairFrom(stored);
    stored.require(std::abs(read.x) <= kFarthest && std::abs(read.y) <= kFarthest, "lies too far out");
    return GeoPoint2D(read.x, read.y);
}

class PieceReader
{
public:
    PieceReader(const JsonPlace &stored, const GradationData *gradation)
        : mStored(stored), mNest(GradationData::nestNumber(gradation)),
          mPiece(std::make_unique<CDbGroupObject>())
    {
    }

    std::unique_ptr<CDbGroupObject> read()
    {
        mStored.onlyKeys({"name", "cloneOf", "locked", "contours", "vectors", "lines", "mirror", "notches",
                          "grainLines", "innerLines", "seamAllowances", "drillHoles"});
        mPiece->setName(mStored["name"].text());
        mPiece->setCloneOf(mStored["cloneOf"].text(QString()));
        mPiece->setLocked(mStored["locked"].truth(false));
        readVectors();
        mStored["lines"].forEach([&](const JsonPlace &line) { readLine(line); });
        GabaritObject *gabarit = mPiece->firstGabarit();
        mStored["contours"].forEach([&](const JsonPlace &contour) {
            contour["pleats"].forEach([&](const JsonPlace &pleat) { readPleat(pleat, gabarit); });
            contour["darts"].forEach([&](const JsonPlace &dart) { readDart(dart, gabarit); });
            gabarit = gabarit->mNextGabarit;
        });
        if (mStored["mirror"].isThere())
            readMirror(mStored["mirror"]);
        readMarks();
        return std::move(mPiece);
    }

private:
    void readVectors()
    {
        mStored["contours"].require(mStored["contours"].isThere(), "is missing");
        mStored["contours"].forEach([&](const JsonPlace &contour) {
            contour.onlyKeys({"vectors", "darts", "pleats", "skeleton"});
            GabaritObject *gabarit = mPiece->newGabarit();
            contour["vectors"].require(contour["vectors"].isThere(), "is missing");
            contour["vectors"].forEach([&](const JsonPlace &stored) {
                FreeVector v = vectorFrom(stored);
                stored.require(gabarit->gabaritAddContourVector(v.get(), mPiece.get()),
                               "is more than a contour holds");
                v.release();
            });
        });
        mStored["vectors"].forEach([&](const JsonPlace &stored) {
            FreeVector v = vectorFrom(stored);
            stored.require(mPiece->groupAddVector(v.get()), "is more than a piece holds");
            v.release();
        });
    }

    FreeVector vectorFrom(const JsonPlace &stored) const
    {
        stored.onlyKeys({"id", "at", "kind", "small", "large", "evolutions", "nest"});
        const int identity = stored["id"].whole(1, std::numeric_limits<int>::max());
        if (mPiece->vectorOfIdentity(identity))
            stored["id"].fail("is the identity of two vectors");

        FreeVector v(CDbPointVOR::newVectorObject());
        v->setIdentity(CDbID(identity));
        *v = placeFrom(stored["at"]);
        if (stored["kind"].isThere())
            v->mVectorKind = stored["kind"].whole(Vector_Corner, Vector_DartInner);
        if (stored["evolutions"].isThere())
            readEvolutions(stored, *v);
        else
            v->setRegularSteps({stepFrom(stored["small"]), stepFrom(stored["large"])});
        return v;
    }

    static Evolution stepFrom(const JsonPlace &stored)
    {
        return stored.isThere() ? pairFrom(stored) : Evolution();
    }

    void readEvolutions(const JsonPlace &stored, CDbPointVOR &v) const
    {
        stored["small"].require(!stored["small"].isThere(), "does not go with evolutions");
        stored["large"].require(!stored["large"].isThere(), "does not go with evolutions");
        const int nest = stored["nest"].isThere() ? stored["nest"].whole(1, std::numeric_limits<short>::max())
                                                  : int{mNest};
        std::vector<Evolution> evolutions;
        stored["evolutions"].forEach(
            [&](const JsonPlace &evolution) { evolutions.push_back(pairFrom(evolution)); });
        stored["evolutions"].require(v.setEvolutions(evolutions, static_cast<short>(nest)),
                                     "are no evolutions: that of the nest must be there, and zero");
    }

    // 0, where it is allowed, names nothing.
    CDbPointVOR *vector(const JsonPlace &stored, bool mayBeNone = false) const
    {
        const int identity = stored.whole(mayBeNone ? 0 : 1, std::numeric_limits<int>::max());
        CDbPointVOR *found = mPiece->vectorOfIdentity(identity);
        stored.require(found || identity == 0, "names no vector of the piece");
        return found;
    }

    void readLine(const JsonPlace &stored)
    {
        stored.onlyKeys({"from", "to", "curve", "handles"});
        if (!stored["curve"].isThere()) {
            stored.require(mPiece->addLine(vector(stored["from"]), vector(stored["to"])), "is no line");
            return;
        }
        std::vector<CDbPointVOR *> points;
        stored["curve"].forEach([&](const JsonPlace &point) { points.push_back(vector(point)); });
        stored["handles"].require(stored["handles"].count() == 2, "is not a pair of handles");
        stored.require(
            mPiece->addCurve(points, vector(stored["handles"][0], true), vector(stored["handles"][1], true)),
            "is no curve");
    }

    void readPleat(const JsonPlace &stored, GabaritObject *gabarit)
    {
        stored.onlyKeys({"vector", "from", "to", "parameter"});
        stored.require(gabarit->setPleat(vector(stored["vector"]), vector(stored["from"]),
                                         vector(stored["to"]), stored["parameter"].number()),
                       "is no vector between two others of this contour");
    }

    std::vector<LineObject *> legFrom(const JsonPlace &stored) const
    {
        std::vector<LineObject *> leg;
        const std::vector<LineObject *> &lines = mPiece->lines();
        stored.forEach([&](const JsonPlace &line) {
            leg.push_back(lines.at(static_cast<std::size_t>(indexFrom(line, lines.size()))));
        });
        return leg;
    }

    static int indexFrom(const JsonPlace &stored, std::size_t count)
    {
        stored.require(count > 0, "names no line: there is none");
        return stored.whole(0, static_cast<int>(count) - 1);
    }

    void readDart(const JsonPlace &stored, GabaritObject *gabarit)
    {
        stored.onlyKeys({"mouth", "pivot", "legs", "equalLegs"});
        stored["mouth"].require(stored["mouth"].count() == 3, "is not a mouth of three");
        stored["legs"].require(stored["legs"].count() == 2, "is not a pair of legs");
        CDbPointVOR *first = vector(stored["mouth"][0]);
        CDbPointVOR *cap = vector(stored["mouth"][1], true);
        CDbPointVOR *second = vector(stored["mouth"][2]);
        CDbPointVOR *pivot = vector(stored["pivot"], true);
        const DartContour::Leg firstLeg = legFrom(stored["legs"][0]);
        const DartContour::Leg secondLeg = legFrom(stored["legs"][1]);

        DartContour *dart = nullptr;
        if (firstLeg.empty() && secondLeg.empty()) { // a fold without drawn legs
            auto bare = std::make_unique<DartContour>(first, cap, second, pivot);
            if (gabarit->addDart(bare.get()))
                dart = bare.release();
        } else {
            dart = mPiece->addDart(gabarit, first, cap, second, pivot, firstLeg, secondLeg);
        }
        stored.require(dart != nullptr, "is no dart of this contour");
        dart->mLegsMadeEqual = stored["equalLegs"].truth(false);
    }

    void readMirror(const JsonPlace &stored)
    {
        stored.onlyKeys({"axis", "pairs"});
        stored["axis"].require(stored["axis"].count() == 2, "is not a pair of places");
        Mirror *mirror = mPiece->setMirror(placeFrom(stored["axis"][0]), placeFrom(stored["axis"][1]));
        stored["axis"].require(mirror != nullptr, "has no direction");
        stored["pairs"].forEach([&](const JsonPlace &pair) {
            pair.require(pair.count() == 2 && mirror->addPair(vector(pair[0]), vector(pair[1])),
                         "is not a pair of vectors, each of one pair");
        });
    }

    void readMarks()
    {
        mStored["notches"].forEach([&](const JsonPlace &notch) {
            notch.require(mPiece->addNotch(vector(notch)), "is no anchor of a contour");
        });
        mStored["grainLines"].forEach([&](const JsonPlace &grain) {
            grain.onlyKeys({"anchor", "direction", "length"});
            grain.require(mPiece->addGrainLine(vector(grain["anchor"]), placeFrom(grain["direction"]),
                                               grain["length"].number()),
                          "is no grain line");
        });
        mStored["innerLines"].forEach([&](const JsonPlace &line) {
            line.onlyKeys({"from", "to", "use"});
            const QString use = line["use"].text();
            const bool isFold = use == QLatin1String("fold");
            line["use"].require(isFold || use == QLatin1String("inner"), "is neither fold nor inner");
            line.require(mPiece->addInnerLine(vector(line["from"]), vector(line["to"]),
                                              isFold ? InnerLine::Fold : InnerLine::Inner),
                         "is no line");
        });
        mStored["seamAllowances"].forEach([&](const JsonPlace &allowance) {
            allowance.onlyKeys({"edge", "width"});
            allowance.require(
                mPiece->addSeamAllowance(vector(allowance["edge"]), allowance["width"].number()),
                "is no allowance of a contour's edge");
        });
        mStored["drillHoles"].forEach([&](const JsonPlace &hole) {
            hole.require(mPiece->addDrillHole(vector(hole)), "is no vector inside the piece");
        });
    }

    const JsonPlace &mStored;
    short mNest;
    std::unique_ptr<CDbGroupObject> mPiece;
};

} // namespace

std::unique_ptr<CDbGroupObject> pieceFromJson(const JsonPlace &stored, const GradationData *gradation)
{
    return PieceReader(stored, gradation).read();
}

} // namespace VorSystem
