// Grading of a vector: into a size, back to the nest, and what was changed on the way.
// The nest place is kept beside the position from the swap on, so no order of calls can lose it.

#include <VorConjoin/CDbPointVOR.h>
#include <VorConjoin/GradationData.h>

#include <cmath>
#include <limits>

namespace VorSystem
{

void CDbPointVOR::setVectorInIrregular(CDbPointVOR *v, const GradationData *gradation)
{
    if (!v)
        return;

    const short sizes = GradationData::sizes(gradation);
    const short nest = GradationData::nestNumber(gradation);
    if (!v->mIrregularGradation) {
        v->mIrregularGradation = new IrregularGradationData(sizes, nest, v->mSteps);
        v->mWasRegular = true;
        v->mDepth = 1;
        return;
    }

    if (v->mDepth == 0)
        v->mWasRegular = false;
    if (v->mDepth < std::numeric_limits<int>::max())
        ++v->mDepth;
    v->fitEvolutions(sizes, nest);
}

// Evolutions made for another gradation: extend or cut them, and keep the vector's own for whoever only
// reads.
void CDbPointVOR::fitEvolutions(short sizeCount, short nestNumber)
{
    if (mIrregularGradation->size() == sizeCount && mIrregularGradation->indexMedium() == nestNumber)
        return;

    returnToNest();
    auto fitted = mIrregularGradation->fitted(sizeCount, nestNumber);
    if (mWasRegular || mUnfitted)
        delete mIrregularGradation;
    else
        mUnfitted = mIrregularGradation;
    mIrregularGradation = fitted.release();
}

void CDbPointVOR::restoreUnfitted()
{
    if (!mUnfitted)
        return;
    returnToNest();
    delete mIrregularGradation;
    mIrregularGradation = mUnfitted;
    mUnfitted = nullptr;
}

void CDbPointVOR::returnToNest()
{
    if (mInSize == 0)
        return;
    mX = mSavedNest.x;
    mY = mSavedNest.y;
    mInSize = 0;
}

void CDbPointVOR::swapEvolutionMedium(CDbPointVOR *v, short sizeNumber)
{
    if (!v)
        return;

    v->returnToNest();
    const IrregularGradationData *gradation = v->mIrregularGradation;
    if (!gradation || sizeNumber < 1 || sizeNumber > gradation->size())
        return;

    const Evolution evolution = gradation->evolution(static_cast<short>(sizeNumber - 1));
    v->mSavedNest = {v->mX, v->mY};
    v->mX += evolution.x;
    v->mY += evolution.y;
    v->mSwappedTo = {v->mX, v->mY};
    v->mInSize = sizeNumber;
}

void CDbPointVOR::recalculateEvolution(CDbPointVOR *v, short sizeNumber)
{
    if (!v || v->mInSize == 0 || v->mInSize != sizeNumber)
        return;

    // An unmoved vector keeps its evolution bit for bit: reading changes nothing.
    const bool moved = v->mX != v->mSwappedTo.x || v->mY != v->mSwappedTo.y;
    if (moved && v->mIrregularGradation) {
        v->mIrregularGradation->setEvolution(static_cast<short>(sizeNumber - 1),
                                             {v->mX - v->mSavedNest.x, v->mY - v->mSavedNest.y});
    }
    v->returnToNest();
}

void CDbPointVOR::createEvolutionInOnlyMedium(CDbPointVOR *v, short sizeNumber)
{
    if (!v || !v->mIrregularGradation || sizeNumber != v->mIrregularGradation->indexMedium())
        return;

    v->returnToNest();
    IrregularGradationData &gradation = *v->mIrregularGradation;
    const auto nest = static_cast<short>(sizeNumber - 1);
    const Evolution move = gradation.evolution(nest);
    if (move.x == 0.0 && move.y == 0.0)
        return;

    v->mX += move.x;
    v->mY += move.y;
    for (short position = 0; position < gradation.size(); ++position) {
        const Evolution old = gradation.evolution(position);
        gradation.setEvolution(position, {old.x - move.x, old.y - move.y});
    }
    gradation.setEvolution(nest, {});
}

void CDbPointVOR::destroyVectorInRegular()
{
    if (mDepth > 0 && --mDepth > 0)
        return;
    if (mWasRegular)
        dropEvolutions();
    else
        restoreUnfitted();
}

void CDbPointVOR::tryResetGradationInRegular(const GradationData *gradation)
{
    mDepth = 0;
    if (!mIrregularGradation)
        return;

    returnToNest();
    // Without a nest there was one size only: it says nothing about the others, which follow the nest.
    if (!GradationData::hasNest(gradation))
        restoreUnfitted();
    delete mUnfitted;
    mUnfitted = nullptr;

    if (mIrregularGradation->asRegular(&mSteps))
        dropEvolutions();
    mWasRegular = false;
}

void CDbPointVOR::dropEvolutions()
{
    returnToNest();
    delete mIrregularGradation;
    delete mUnfitted;
    mIrregularGradation = nullptr;
    mUnfitted = nullptr;
    mWasRegular = false;
}

void CDbPointVOR::takeGradingOf(const CDbPointVOR &other)
{
    if (&other == this)
        return;
    dropEvolutions();
    if (other.mIrregularGradation)
        mIrregularGradation = new IrregularGradationData(*other.mIrregularGradation);
    if (other.mUnfitted)
        mUnfitted = new IrregularGradationData(*other.mUnfitted);
    mSteps = other.mSteps;
    mSavedNest = other.mSavedNest;
    mSwappedTo = other.mSwappedTo;
    mDepth = other.mDepth;
    mInSize = other.mInSize;
    mWasRegular = other.mWasRegular;
}

void CDbPointVOR::setRegularSteps(const RegularSteps &steps)
{
    if (mDepth > 0)
        return;
    dropEvolutions();
    mSteps = steps;
}

bool CDbPointVOR::setEvolutions(const std::vector<Evolution> &evolutions, short nestNumber)
{
    const std::size_t count = evolutions.size();
    if (mDepth > 0 || nestNumber < 1 || static_cast<std::size_t>(nestNumber) > count ||
        count > static_cast<std::size_t>(std::numeric_limits<short>::max()))
        return false;
    const Evolution &nest = evolutions[static_cast<std::size_t>(nestNumber - 1)];
    if (nest.x != 0.0 || nest.y != 0.0)
        return false;
    for (const Evolution &evolution : evolutions) {
        if (!std::isfinite(evolution.x) || !std::isfinite(evolution.y))
            return false;
    }

    dropEvolutions();
    mSteps = {};
    mIrregularGradation = new IrregularGradationData(static_cast<short>(count), nestNumber);
    for (std::size_t position = 0; position < count; ++position)
        mIrregularGradation->setEvolution(static_cast<short>(position), evolutions[position]);
    return true;
}

GeoPoint2D CDbPointVOR::positionInSize(short sizeNumber, const GradationData *gradation) const
{
    const Evolution nest = mInSize == 0 ? Evolution{mX, mY} : mSavedNest;
    const short sizes = GradationData::sizes(gradation);
    const short nestNumber = GradationData::nestNumber(gradation);
    const auto position = static_cast<short>(sizeNumber - 1);

    Evolution evolution;
    if (!mIrregularGradation)
        evolution = IrregularGradationData(sizes, nestNumber, mSteps).evolution(position);
    else if (mIrregularGradation->size() == sizes && mIrregularGradation->indexMedium() == nestNumber)
        evolution = mIrregularGradation->evolution(position);
    else
        evolution = mIrregularGradation->fitted(sizes, nestNumber)->evolution(position);
    return GeoPoint2D(nest.x + evolution.x, nest.y + evolution.y);
}

} // namespace VorSystem
