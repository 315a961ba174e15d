// Rebuilding a piece from its anchors, and bringing working displacements of dependents in line.

#include "Settle.h"

#include <VorConjoin/CDbGroupObject.h>
#include <VorConjoin/CurveObject.h>
#include <VorConjoin/DartContour.h>
#include <VorConjoin/GabaritObject.h>
#include <VorConjoin/GradationData.h>
#include <VorConjoin/IteratorGabarit.h>
#include <VorConjoin/IteratorVectorG.h>
#include <VorConjoin/LineObject.h>
#include <VorConjoin/Mirror.h>

namespace VorSystem
{

namespace
{

// One walk over all vectors of a group.
template<class Act>
void forEachVector(const CDbGroupObject &group, Act act)
{
    IteratorVectorGroup walk;
    walk.first(&group, IteratorVectorG::Iterator_All);
    for (CDbPointVOR *v = nullptr; walk.next(v);)
        act(v);
}

template<class Act>
void forEachDart(const CDbGroupObject &group, Act act)
{
    IteratorGabarit gabarits(&group);
    for (GabaritObject *gabarit = nullptr; gabarits.next(gabarit);) {
        IteratorClipContour darts(gabarit);
        for (DartContour *dart = nullptr; darts.next(dart);)
            act(*dart);
    }
}

} // namespace

void GabaritObject::restorePleats()
{
    for (const Pleat &pleat : mPleats) {
        settle(*pleat.vector, (1.0 - pleat.u) * pleat.a->mX + pleat.u * pleat.b->mX,
               (1.0 - pleat.u) * pleat.a->mY + pleat.u * pleat.b->mY);
    }
}

void GabaritObject::PLI_ctlGabStandardizeEvolutions()
{
    for (const Pleat &pleat : mPleats) {
        const auto share = [&](float a, float b) {
            return static_cast<float>((1.0 - pleat.u) * double(a) + pleat.u * double(b));
        };
        pleat.vector->mDisplacementX = share(pleat.a->mDisplacementX, pleat.b->mDisplacementX);
        pleat.vector->mDisplacementY = share(pleat.a->mDisplacementY, pleat.b->mDisplacementY);
    }
}

void GabaritObject::pICCtlGabStandardizeEvolutions()
{
    for (DartContour *dart = mFirstDart; dart; dart = dart->mNextDart)
        dart->standardizeDisplacements();
}

void CDbGroupObject::grStandardizeEvolutions()
{
    if (mMirror)
        mMirror->makeDisplacementsSymmetric();
    for (const LineObject *line : mLines) {
        if (line->linkIsCurve())
            line->getCurveLine()->recalculateHandleDisplacements();
    }
}

void CDbGroupObject::againObjects(bool gradationDefined, const GradationData *gradation, bool)
{
    if (gradationDefined) {
        const short nest = GradationData::nestNumber(gradation);
        forEachVector(*this, [&](CDbPointVOR *v) { CDbPointVOR::setVectorInIrregular(v, gradation); });
        for (short size = 1; size <= GradationData::sizes(gradation); ++size) {
            forEachVector(*this, [&](CDbPointVOR *v) { CDbPointVOR::swapEvolutionMedium(v, size); });
            rebuildDependents(size, gradation);
            forEachVector(*this, [&](CDbPointVOR *v) {
                CDbPointVOR::recalculateEvolution(v, size);
                if (size == nest)
                    CDbPointVOR::createEvolutionInOnlyMedium(v, size);
            });
        }
        forEachVector(*this, [&](CDbPointVOR *v) { v->tryResetGradationInRegular(gradation); });
    } else {
        forEachVector(*this, [](CDbPointVOR *v) { v->returnToNest(); });
        rebuildDependents(GradationData::nestNumber(nullptr), nullptr);
    }

    // Copies that outlived this change would draw the pivot of the next one after them.
    forEachDart(*this, [](DartContour &dart) { dart.freeCopies(); });
    ++mRebuildCount;
    if (mRebuilt)
        mRebuilt();
}

// In the size the vectors stand in: anchors stay, except mirrored pairs and pivots of darts with equal legs.
void CDbGroupObject::rebuildDependents(short sizeNumber, const GradationData *gradation)
{
    if (mMirror)
        mMirror->makePlacesSymmetric();
    forEachDart(*this, [&](DartContour &dart) {
        dart.restorePivot();
        dart.restoreInnerLegs(sizeNumber, gradation);
    });
    for (GabaritObject *gabarit = mFirstGabarit; gabarit; gabarit = gabarit->mNextGabarit)
        gabarit->restorePleats();
    forEachDart(*this, [](DartContour &dart) { dart.restoreCap(); });
    for (const LineObject *line : mLines) {
        if (line->linkIsCurve())
            line->getCurveLine()->recalculateHandles();
    }
}

} // namespace VorSystem
