// The vectors that a formula of an element would move.

#include "VORFrames/GeometricReach.h"

#include <VorConjoin/VorConjoin.h>
#include <VorFrames/ControlFrame.h>
#include <VorFrames/ControlSegment.h>
#include <VorFrames/ControlSkeleton.h>
#include <VorFrames/FrameCenter.h>
#include <VorFrames/FrameFrame.h>

namespace VorSystem
{

namespace
{

// The bound of a side's stretch: the vector of that side at the next frame, else where the walk ended.
CDbPointVOR *boundOfStretch(const ControlSkeleton &skeleton, CDbPointVOR *vector, short side, bool forward)
{
    CDbPointVOR *found = nullptr;
    CDbPointVOR *last = nullptr;
    const ControlFrame *const neighbor = skeleton.getControlFrameNeighbor(vector, forward, &found, &last);
    return neighbor == nullptr ? last : neighbor->getVectorContour(side);
}

} // namespace

std::vector<CDbPointVOR *> reachOfFrame(const FrameFrame &frame, const ControlFrame &control)
{
    const FrameCenter::eCharacteristicType characteristic = frame.getFrameCenter()->Caracteristique();
    const bool twoSided = characteristic == FrameCenter::Characteristic_TwoSides ||
                          characteristic == FrameCenter::Characteristic_TwoSidesDoubled;
    const bool bothSides = twoSided && control.getVectorContour(2) != nullptr;

    std::vector<CDbPointVOR *> reach;
    for (short side = 1; side <= (bothSides ? 2 : 1); ++side) {
        CDbPointVOR *const own = control.getVectorContour(side);
        CDbPointVOR *const start = boundOfStretch(*control.getSkeleton(), own, side, false);
        const CDbPointVOR *const end = boundOfStretch(*control.getSkeleton(), own, side, true);
        if (start == nullptr || end == nullptr)
            continue;

        // An end on another contour is never met: the walk then stops where it began. Start equal to end
        // means once round.
        CDbPointVOR *vector = start->mNextVector;
        while (vector != nullptr && vector != end && vector != start) {
            reach.push_back(vector);
            vector = vector->mNextVector;
        }
    }
    return reach;
}

std::vector<CDbPointVOR *> reachOfSegment(const ControlSegment &control)
{
    // What lies beyond the segment is the same for every vector.
    CDbPointVOR *const attachment = control.getAttachedNext();
    std::vector<CDbPointVOR *> reach;
    CDbPointVOR *vector = nullptr;
    const auto takeIfMoved = [&](CDbPointVOR *candidate) {
        if (control.displacementFactor(candidate, attachment) > 0.0)
            reach.push_back(candidate);
    };

    IteratorVectorGabarit contour;
    contour.first(control.getSkeleton()->getGabarit(), IteratorVectorG::Iterator_All);
    while (contour.next(vector))
        takeIfMoved(vector);

    IteratorVector ownVectors;
    ownVectors.first(control.getSkeleton()->getGroupe()->mFirstVector);
    while (ownVectors.next(vector))
        takeIfMoved(vector);
    return reach;
}

} // namespace VorSystem
