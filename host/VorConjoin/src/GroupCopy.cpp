// A deep copy of a piece.

#include <VorConjoin/CDbGroupObject.h>
#include <VorConjoin/CDbPointVOR.h>
#include <VorConjoin/CurveObject.h>
#include <VorConjoin/DartContour.h>
#include <VorConjoin/GabaritObject.h>
#include <VorConjoin/LineObject.h>
#include <VorConjoin/Mirror.h>

#include <memory>
#include <unordered_map>

namespace VorSystem
{

namespace
{

// Originals and their copies.
template<class T>
class Twins
{
public:
    void add(const T *original, T *copy) { mCopies.emplace(original, copy); }

    T *of(const T *original) const
    {
        const auto found = mCopies.find(original);
        return found == mCopies.end() ? nullptr : found->second;
    }

    template<class From>
    std::vector<T *> ofAll(const std::vector<From *> &originals) const
    {
        std::vector<T *> copies;
        copies.reserve(originals.size());
        for (const From *original : originals)
            copies.push_back(of(original));
        return copies;
    }

private:
    std::unordered_map<const T *, T *> mCopies;
};

} // namespace

CDbGroupObject *CDbGroupObject::copy() const
{
    auto result = std::make_unique<CDbGroupObject>(mName);
    result->mCloneOf = mCloneOf;
    result->mLocked = mLocked;

    // Identities come along with the vectors: the group is new, so all of them are free.
    Twins<CDbPointVOR> vectors;
    for (const GabaritObject *gabarit = mFirstGabarit; gabarit; gabarit = gabarit->mNextGabarit) {
        GabaritObject *twin = result->newGabarit();
        for (const CDbPointVOR *v : gabarit->contourVectors()) {
            CDbPointVOR *copied = v->copyTheVector();
            vectors.add(v, copied);
            twin->gabaritAddContourVector(copied, result.get());
        }
    }
    for (const CDbPointVOR *v : ownVectors()) {
        CDbPointVOR *copied = v->copyTheVector();
        vectors.add(v, copied);
        result->groupAddVector(copied);
    }
    result->mLastIdentity = mLastIdentity;

    Twins<LineObject> lines;
    for (const LineObject *line : mLines) {
        CurveObject *curve = nullptr;
        if (const CurveObject *original = line->getCurveLine()) {
            curve = new CurveObject(vectors.ofAll(original->points()), vectors.of(original->firstHandle()),
                                    vectors.of(original->lastHandle()));
        }
        result->mLines.push_back(new LineObject(vectors.of(line->begin()), vectors.of(line->end()), curve));
        lines.add(line, result->mLines.back());
    }

    GabaritObject *twin = result->mFirstGabarit;
    for (const GabaritObject *gabarit = mFirstGabarit; gabarit; gabarit = gabarit->mNextGabarit) {
        for (const GabaritObject::Pleat &pleat : gabarit->mPleats)
            twin->mPleats.push_back(
                {vectors.of(pleat.vector), vectors.of(pleat.a), vectors.of(pleat.b), pleat.u});
        for (const DartContour *dart = gabarit->mFirstDart; dart; dart = dart->mNextDart) {
            auto copied = std::make_unique<DartContour>(
                vectors.of(dart->pICGetVector(Dart_FirstLeg)), vectors.of(dart->pICGetVector(Dart_Cap)),
                vectors.of(dart->pICGetVector(Dart_SecondLeg)), vectors.of(dart->mPivotVector));
            copied->mLegs = {lines.ofAll(dart->leg(0)), lines.ofAll(dart->leg(1))};
            copied->mLegsMadeEqual = dart->mLegsMadeEqual;
            copied->takeLegShapesOf(*dart);
            if (twin->addDart(copied.get()))
                copied.release(); // NOLINT(bugprone-unused-return-value): the gabarit owns it from here on
        }
        twin = twin->mNextGabarit;
    }

    if (mMirror) {
        Mirror *mirror = result->setMirror(mMirror->axisA(), mMirror->axisB());
        for (const Mirror::Pair &pair : mMirror->pairs())
            mirror->addPair(vectors.of(pair.side1), vectors.of(pair.side2));
    }
    for (const Notch &notch : mNotches)
        result->mNotches.push_back({vectors.of(notch.place)});
    for (const GrainLine &grain : mGrainLines)
        result->mGrainLines.push_back({vectors.of(grain.anchor), grain.direction, grain.length});
    for (const InnerLine &line : mInnerLines)
        result->mInnerLines.push_back({vectors.of(line.from), vectors.of(line.to), line.use});
    for (const SeamAllowance &allowance : mSeamAllowances)
        result->mSeamAllowances.push_back({vectors.of(allowance.edge), allowance.width});
    for (const DrillHole &hole : mDrillHoles)
        result->mDrillHoles.push_back({vectors.of(hole.place)});
    return result.release();
}

} // namespace VorSystem
