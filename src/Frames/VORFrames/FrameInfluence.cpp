// Which elements a formula moves along: the stretch of contour between a frame's neighbours, and the vectors
// that a segment displaces.

#include <VorFrames/FrameFrame.h>
#include <VorFrames/FrameSegment.h>

#include "Preconditions.h"

#include <VorConjoin/VorConjoin.h>
#include <VorFrames/ControlFrame.h>
#include <VorFrames/ControlSegment.h>
#include <VorFrames/ControlSkeleton.h>
#include <VorFrames/FrameCenter.h>

namespace VorSystem
{

namespace
{

constexpr char kSourceUnit[] = R"(src\Frames\VORFrames)";

// The vector at which a move of the frame's side ends: the same side of the neighbouring frame, or the end of
// the walk.
CDbPointVOR *boundOf(const ControlSkeleton &skeleton, CDbPointVOR *vector, bool forward, short side)
{
    CDbPointVOR *found = nullptr;
    CDbPointVOR *last = nullptr;
    const ControlFrame *const neighbor = skeleton.getControlFrameNeighbor(vector, forward, &found, &last);
    return neighbor == nullptr ? last : neighbor->getVectorContour(side);
}

// Does the control object hold a vector strictly after start and before end? A contour that does not lead
// from one to the other ends the walk; start equal to end means once round.
bool holdsVectorBetween(ControlBase &control, CDbPointVOR *start, const CDbPointVOR *end)
{
    if (start == nullptr || end == nullptr)
        return false;
    for (CDbPointVOR *v = start->mNextVector; v != nullptr && v != end && v != start; v = v->mNextVector) {
        if (control.containsVector(v))
            return true;
    }
    return false;
}

} // namespace

bool FrameFrame::influenceGeometrically(BaseFrame *other)
{
    if (other == this || (mFormulaMeasure == nullptr && mFormulaLevel == nullptr))
        return false;
    if (other == nullptr || !isDefinedInDocument() || !other->isDefinedInDocument())
        return false;

    ControlFrame *const control = controlFrameCorresponding();
    VOR_REQUIRE(control != nullptr);
    const ControlSkeleton *const skeleton = control->getSkeleton();
    VOR_REQUIRE(skeleton != nullptr);
    VOR_REQUIRE(mFrameCenter != nullptr);
    ControlBase *const touched = other->objectControlCorresponding();

    const FrameCenter::eCharacteristicType characteristic = mFrameCenter->Caracteristique();
    const bool twoSided = characteristic == FrameCenter::Characteristic_TwoSides ||
                          characteristic == FrameCenter::Characteristic_TwoSidesDoubled;
    const short sides = twoSided && control->getVectorContour(2) != nullptr ? 2 : 1;
    for (short side = 1; side <= sides; ++side) {
        CDbPointVOR *const vector = control->getVectorContour(side);
        CDbPointVOR *const start = boundOf(*skeleton, vector, false, side);
        CDbPointVOR *const end = boundOf(*skeleton, vector, true, side);
        if (touched != nullptr && holdsVectorBetween(*touched, start, end))
            return true;
    }
    return false;
}

bool FrameSegment::influenceGeometrically(BaseFrame *other)
{
    if (other == this || mFormulaMeasure == nullptr)
        return false;
    if (other == nullptr || !other->isDefinedInDocument())
        return false;
    const ControlSegment *const control = controlSegmentCorrespondent();
    if (control == nullptr)
        return false;

    CDbGroupObject *const group = groupCorrespondent();
    VOR_REQUIRE(group != nullptr);
    GabaritObject *const gabarit = gabaritCorrespondent();
    VOR_REQUIRE(gabarit != nullptr);
    // Links, specs and charts count as defined without a place on a piece: they hold no vector.
    ControlBase *const touched = other->objectControlCorresponding();
    if (touched == nullptr)
        return false;

    // What lies beyond the segment is the same for every vector.
    CDbPointVOR *const attachment = control->getAttachedNext();
    const auto displaces = [&](CDbPointVOR *vector) {
        return touched->containsVector(vector) && control->displacementFactor(vector, attachment) > 0.0;
    };
    CDbPointVOR *vector = nullptr;
    IteratorVectorGabarit contour;
    contour.first(gabarit, static_cast<IteratorVectorG::eTypeIterator>(0));
    while (contour.next(vector)) {
        if (displaces(vector))
            return true;
    }
    if (group->mFirstVector == nullptr)
        return false;
    IteratorVector own;
    own.first(group->mFirstVector);
    while (own.next(vector)) {
        if (displaces(vector))
            return true;
    }
    return false;
}

} // namespace VorSystem
