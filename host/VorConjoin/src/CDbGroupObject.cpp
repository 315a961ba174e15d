// A group: its life, who is in it, and how its vectors are found.
// Building is in GroupBuilding.cpp, copying in GroupCopy.cpp, rebuilding in Rebuild.cpp.

#include <VorConjoin/CDbGroupObject.h>
#include <VorConjoin/CDbPointVOR.h>
#include <VorConjoin/CurveObject.h>
#include <VorConjoin/DartContour.h>
#include <VorConjoin/GabaritObject.h>
#include <VorConjoin/LineObject.h>
#include <VorConjoin/Mirror.h>

#include <algorithm>
#include <limits>

namespace VorSystem
{

namespace
{

// What rests on a vector for which a question (a predicate of vectors) holds?

template<class Question>
bool rests(const LineObject &line, const Question &asks)
{
    if (asks(line.begin()) || asks(line.end()))
        return true;
    const CurveObject *curve = line.getCurveLine();
    if (!curve)
        return false;
    const auto &points = curve->points();
    return std::any_of(points.begin(), points.end(), asks) || asks(curve->firstHandle()) ||
           asks(curve->lastHandle());
}

template<class Question>
bool rests(const DartContour &dart, const Question &asks)
{
    for (short role = Dart_FirstLeg; role <= Dart_Pivot; ++role) {
        if (asks(dart.pICGetVector(role)))
            return true;
    }
    return std::any_of(dart.mLegs.begin(), dart.mLegs.end(), [&](const DartContour::Leg &leg) {
        return std::any_of(leg.begin(), leg.end(),
                           [&](const LineObject *line) { return rests(*line, asks); });
    });
}

template<class Question>
bool rests(const Notch &notch, const Question &asks)
{
    return asks(notch.place);
}

template<class Question>
bool rests(const GrainLine &grain, const Question &asks)
{
    return asks(grain.anchor);
}

template<class Question>
bool rests(const InnerLine &line, const Question &asks)
{
    return asks(line.from) || asks(line.to);
}

template<class Question>
bool rests(const SeamAllowance &allowance, const Question &asks)
{
    return asks(allowance.edge);
}

template<class Question>
bool rests(const DrillHole &hole, const Question &asks)
{
    return asks(hole.place);
}

template<class Mark, class Question>
bool anyRests(const std::vector<Mark> &marks, const Question &asks)
{
    return std::any_of(marks.begin(), marks.end(), [&](const Mark &mark) { return rests(mark, asks); });
}

template<class Mark, class Question>
void eraseResting(std::vector<Mark> &marks, const Question &asks)
{
    marks.erase(
        std::remove_if(marks.begin(), marks.end(), [&](const Mark &mark) { return rests(mark, asks); }),
        marks.end());
}

} // namespace

CDbGroupObject::CDbGroupObject(const QString &name)
    : mName(name), mOwnVectors(VectorChain::NullEnded, &mFirstVector, nullptr, this)
{
}

CDbGroupObject::~CDbGroupObject()
{
    for (const LineObject *line : mLines)
        delete line;
    mLines.clear();
    delete mMirror;
    mMirror = nullptr;
    while (mFirstGabarit) {
        GabaritObject *gabarit = mFirstGabarit;
        mFirstGabarit = gabarit->mNextGabarit;
        gabarit->mGroup = nullptr; // nothing of this group is left that would have to forget it
        delete gabarit;
    }
}

GabaritObject *CDbGroupObject::newGabarit()
{
    GabaritObject *gabarit = GabaritObject::create();
    addGabarit(gabarit);
    return gabarit;
}

bool CDbGroupObject::addGabarit(GabaritObject *gabarit)
{
    if (!gabarit || gabarit->mGroup)
        return false;
    GabaritObject **place = &mFirstGabarit;
    while (*place)
        place = &(*place)->mNextGabarit;
    *place = gabarit;
    gabarit->mNextGabarit = nullptr;
    gabarit->mGroup = this;
    for (CDbPointVOR *v : gabarit->contourVectors())
        enroll(v);
    return true;
}

bool CDbGroupObject::destroyGabarit(GabaritObject *gabarit)
{
    if (!gabarit || gabarit->mGroup != this)
        return false;
    delete gabarit;
    return true;
}

// Takes a gabarit that is about to die off the group, with everything that rests on its vectors.
void CDbGroupObject::release(GabaritObject *gabarit)
{
    for (GabaritObject **place = &mFirstGabarit; *place; place = &(*place)->mNextGabarit) {
        if (*place == gabarit) {
            *place = gabarit->mNextGabarit;
            break;
        }
    }
    while (gabarit->mFirstDart)
        gabarit->removeDart(gabarit->mFirstDart);
    forgetContour(gabarit);
    gabarit->mGroup = nullptr;
    gabarit->mNextGabarit = nullptr;
}

void CDbGroupObject::forgetContour(const GabaritObject *doomed)
{
    const auto dies = [&](const CDbPointVOR *v) { return v && v->gabarit() == doomed; };

    for (GabaritObject *gabarit = mFirstGabarit; gabarit; gabarit = gabarit->mNextGabarit) {
        for (DartContour *dart = gabarit->mFirstDart; dart;) {
            DartContour *next = dart->mNextDart;
            if (rests(*dart, dies))
                gabarit->removeDart(dart);
            dart = next;
        }
    }

    // A curve takes its handles along: nothing else gives them a place.
    std::vector<CDbPointVOR *> handles;
    const auto firstDead = std::stable_partition(mLines.begin(), mLines.end(),
                                                 [&](const LineObject *line) { return !rests(*line, dies); });
    for (auto line = firstDead; line != mLines.end(); ++line) {
        if (const CurveObject *curve = (*line)->getCurveLine()) {
            handles.push_back(curve->firstHandle());
            handles.push_back(curve->lastHandle());
        }
        delete *line;
    }
    mLines.erase(firstDead, mLines.end());
    mCurvesByVectorIsFresh = false;

    eraseResting(mNotches, dies);
    eraseResting(mGrainLines, dies);
    eraseResting(mInnerLines, dies);
    eraseResting(mSeamAllowances, dies);
    eraseResting(mDrillHoles, dies);
    for (const CDbPointVOR *v : doomed->contourVectors()) {
        if (mMirror)
            mMirror->forget(v);
        strike(v);
    }
    for (CDbPointVOR *handle : handles) {
        if (groupTakeVector(handle))
            CDbPointVOR::destroyVectorObject(&handle);
    }
}

bool CDbGroupObject::uses(const CDbPointVOR *v) const
{
    const auto isIt = [&](const CDbPointVOR *other) { return other == v; };
    const bool isOnLine =
        std::any_of(mLines.begin(), mLines.end(), [&](const LineObject *line) { return rests(*line, isIt); });
    const bool isMarked = anyRests(mNotches, isIt) || anyRests(mGrainLines, isIt) ||
                          anyRests(mInnerLines, isIt) || anyRests(mSeamAllowances, isIt) ||
                          anyRests(mDrillHoles, isIt);
    bool isOnGabarit = false;
    for (const GabaritObject *gabarit = mFirstGabarit; gabarit; gabarit = gabarit->mNextGabarit)
        isOnGabarit = isOnGabarit || gabarit->uses(v);
    return isOnLine || isMarked || isOnGabarit || (mMirror && mMirror->imageOf(v));
}

// Gives a vector that has come in an identity of its own, unless it has one already.
void CDbGroupObject::enroll(CDbPointVOR *v)
{
    const int wanted = v->mIdentity.number();
    const bool isFree = wanted > 0 && mByIdentity.count(wanted) == 0;
    if (!isFree) {
        if (mLastIdentity == std::numeric_limits<int>::max())
            mLastIdentity = 0;
        do {
            ++mLastIdentity;
        } while (mByIdentity.count(mLastIdentity) > 0);
        v->mIdentity = CDbID(mLastIdentity);
    }
    mLastIdentity = std::max(mLastIdentity, v->mIdentity.number());
    mByIdentity.emplace(v->mIdentity.number(), v);
}

void CDbGroupObject::strike(const CDbPointVOR *v)
{
    mByIdentity.erase(v->mIdentity.number());
}

bool CDbGroupObject::groupAddVector(CDbPointVOR *v)
{
    if (!mOwnVectors.append(v))
        return false;
    enroll(v);
    return true;
}

bool CDbGroupObject::groupTakeVector(CDbPointVOR *v)
{
    if (!mOwnVectors.holds(v) || uses(v))
        return false;
    strike(v);
    return mOwnVectors.take(v);
}

bool CDbGroupObject::isGroupVector(const CDbPointVOR *v) const
{
    return mOwnVectors.holds(v);
}

bool CDbGroupObject::isVectorContour(const CDbPointVOR *v, GabaritObject **gabarit) const
{
    GabaritObject *found = v ? v->gabarit() : nullptr;
    if (found && found->group() != this)
        found = nullptr;
    if (gabarit)
        *gabarit = found;
    return found != nullptr;
}

short CDbGroupObject::groupGetVectorIndex(const CDbPointVOR *v) const
{
    return mOwnVectors.indexOf(v);
}

CDbPointVOR *CDbGroupObject::groupGetVectorByIndex(short index) const
{
    return mOwnVectors.at(index);
}

CDbPointVOR *CDbGroupObject::vectorOfIdentity(int identity) const
{
    const auto found = mByIdentity.find(identity);
    return found == mByIdentity.end() ? nullptr : found->second;
}

bool CDbGroupObject::holds(const CDbPointVOR *v) const
{
    return v && v->group() == this;
}

void CDbGroupObject::emitChanged()
{
    ++mChangedCount;
}

void CDbGroupObject::setSelected(bool selected)
{
    mSelected = selected;
    ++mSelectionCount;
}

} // namespace VorSystem
