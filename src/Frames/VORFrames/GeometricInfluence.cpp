// Which elements move which, found without asking every pair.

#include "VORFrames/GeometricInfluence.h"

#include "VORFrames/GeometricReach.h"

#include <VorConjoin/VorConjoin.h>
#include <VorFrames/ControlFrame.h>
#include <VorFrames/ControlSegment.h>
#include <VorFrames/ControlSkeleton.h>
#include <VorFrames/Errors.h>
#include <VorFrames/FrameCenter.h>
#include <VorFrames/FrameFrame.h>
#include <VorFrames/FrameLink.h>
#include <VorFrames/FrameMeasurementChart.h>
#include <VorFrames/FrameSegment.h>
#include <VorFrames/FrameSet.h>
#include <VorFrames/FrameSpec.h>

#include <algorithm>
#include <functional>
#include <optional>
#include <typeinfo>

namespace VorSystem
{

namespace
{

bool hasFormula(BaseFrame *element)
{
    return element->measurementFormula() != nullptr || element->formulaLevel() != nullptr;
}

// Is the element exactly what the library makes of its kind? A class that a host derived may answer
// otherwise.
bool movesByFormula(BaseFrame *element)
{
    const std::type_info &type = typeid(*element);
    return type == typeid(FrameFrame) || type == typeid(FrameSegment);
}

bool neverMoves(BaseFrame *element)
{
    const std::type_info &type = typeid(*element);
    return type == typeid(FrameLink) || type == typeid(FrameSpec) || type == typeid(FrameMeasurementChart) ||
           type == typeid(FrameCenter);
}

// The same for a vector and its unmoved copies. Identities alone say little: every piece counts its own.
std::size_t likeness(const CDbPointVOR &vector)
{
    const std::hash<double> hash; // equal for 0.0 and -0.0
    const auto identity = static_cast<std::size_t>(vector.Num_ID().number());
    return (identity * 31 + hash(vector.x())) * 31 + hash(vector.y());
}

// What the mover's reach is taken from; null where the mover, being asked, would report that it is missing.
const ControlSkeleton *skeletonForReach(BaseFrame *mover, const ControlBase *control)
{
    const ControlSkeleton *const skeleton = control->getSkeleton();
    if (skeleton == nullptr)
        return nullptr;
    const bool complete = mover->elementType() == Element_Frame
                              ? static_cast<FrameFrame *>(mover)->getFrameCenter() != nullptr
                              : skeleton->getGroupe() != nullptr && skeleton->getGabarit() != nullptr;
    return complete ? skeleton : nullptr;
}

// Nothing when the reach is not to be had.
std::optional<std::vector<CDbPointVOR *>> reachOf(BaseFrame *mover, ControlBase *control)
{
    if (skeletonForReach(mover, control) == nullptr)
        return std::nullopt;
    try {
        if (const auto *frame = dynamic_cast<ControlFrame *>(control))
            return reachOfFrame(*static_cast<FrameFrame *>(mover), *frame);
        if (const auto *segment = dynamic_cast<ControlSegment *>(control))
            return reachOfSegment(*segment);
    } catch (const AssertionError &) {
        // Whether anybody meets the failure depends on who is asked about.
    }
    return std::nullopt;
}

} // namespace

void GeometricInfluence::addMoversOf(const FrameSet &set)
{
    const QListEx<FrameFrame *> frames = set.getFrames();
    for (FrameFrame *frame : frames)
        add(frame);
    const QListEx<FrameSegment *> segments = set.getFrameSegments();
    for (FrameSegment *segment : segments)
        add(segment);
}

void GeometricInfluence::add(BaseFrame *mover)
{
    const bool byFormula = movesByFormula(mover);
    if (byFormula ? !hasFormula(mover) : neverMoves(mover))
        return;

    mReachedOnContour.clear();
    mMovers.push_back(mover);
    if (byFormula)
        addReach(mMovers.size() - 1);
    else
        mAsked.push_back(mMovers.size() - 1);
}

void GeometricInfluence::addReach(std::size_t position)
{
    BaseFrame *const mover = mMovers[position];
    ControlBase *const control = mControls.of(mover);
    if (control == nullptr)
        return; // undefined: moves nothing

    const auto reach = reachOf(mover, control);
    if (!reach) {
        mAsked.push_back(position);
        return;
    }
    for (CDbPointVOR *vector : *reach) {
        const auto [place, isNew] = mPlaceInReached.emplace(vector, mReached.size());
        if (isNew) {
            mReached.push_back({vector, {}});
            mReachedAlike.emplace(likeness(*vector), place->second);
        }
        mReached[place->second].movers.push_back(position);
    }
}

std::vector<BaseFrame *> GeometricInfluence::moversOf(BaseFrame *element)
{
    if (mAsked.empty() && mReached.empty())
        return {};

    Movers found;
    for (std::size_t position : mAsked) {
        if (mMovers[position]->influenceGeometrically(element))
            found.push_back(position);
    }
    if (!mReached.empty()) {
        if (ControlBase *const control = mControls.of(element)) {
            for (std::size_t place : reachedThatMayBelongTo(control)) {
                const Reached &reached = mReached[place];
                if (!control->containsVector(reached.vector))
                    continue;
                for (std::size_t position : reached.movers) {
                    if (mMovers[position] != element)
                        found.push_back(position);
                }
            }
        }
    }

    std::sort(found.begin(), found.end());
    found.erase(std::unique(found.begin(), found.end()), found.end());
    std::vector<BaseFrame *> movers;
    movers.reserve(found.size());
    for (std::size_t position : found)
        movers.push_back(mMovers[position]);
    return movers;
}

std::vector<std::size_t> GeometricInfluence::reachedThatMayBelongTo(ControlBase *control)
{
    std::vector<std::size_t> places;
    const std::type_info &kind = typeid(*control);
    if (kind != typeid(ControlFrame) && kind != typeid(ControlSegment)) {
        for (std::size_t place = 0; place < mReached.size(); ++place)
            places.push_back(place);
        return places;
    }

    // A vector counts as held when it is an end of the control object or an unmoved copy of one.
    for (short end = 1; end <= 2; ++end) {
        const CDbPointVOR *const vector = control->getVectorContour(end);
        if (vector == nullptr)
            continue;
        const auto [first, last] = mReachedAlike.equal_range(likeness(*vector));
        for (auto alike = first; alike != last; ++alike)
            places.push_back(alike->second);
    }
    // A segment holds the stretch between its ends too.
    if (kind == typeid(ControlSegment) && control->getSkeleton() != nullptr) {
        const auto &onContour = reachedOnContour(control->getSkeleton()->getGabarit());
        places.insert(places.end(), onContour.begin(), onContour.end());
    }
    std::sort(places.begin(), places.end());
    places.erase(std::unique(places.begin(), places.end()), places.end());
    return places;
}

const std::vector<std::size_t> &GeometricInfluence::reachedOnContour(GabaritObject *gabarit)
{
    const auto [known, isNew] = mReachedOnContour.try_emplace(gabarit);
    if (isNew && gabarit != nullptr) {
        IteratorVectorGabarit walk;
        walk.first(gabarit, IteratorVectorG::Iterator_All);
        CDbPointVOR *vector = nullptr;
        while (walk.next(vector)) {
            const auto place = mPlaceInReached.find(vector);
            if (place != mPlaceInReached.end())
                known->second.push_back(place->second);
        }
    }
    return known->second;
}

} // namespace VorSystem
