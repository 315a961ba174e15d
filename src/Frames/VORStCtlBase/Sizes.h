// How a piece is read and moved size by size: explicit evolutions for all its vectors, a swap into the size,
// and the way back to the nest, which is also taken when an exception passes.
#pragma once

#include "VORFrames/Gradation.h"

#include <VorConjoin/CDbGroupObject.h>
#include <VorConjoin/CDbPointVOR.h>
#include <VorConjoin/GabaritObject.h>
#include <VorConjoin/GradationData.h>
#include <VorConjoin/IteratorVectorG.h>
#include <VorFrames/QListEx.h>

namespace VorSystem
{

// Which vectors a walk shows; a host may name the kinds as it likes.
constexpr auto kEveryVector = static_cast<IteratorVectorG::eTypeIterator>(0);
constexpr auto kIndependentVectors = static_cast<IteratorVectorG::eTypeIterator>(1);

/// What belongs to a walk over vectors: Walk is one of the host's iterators, Owner what it walks over.
template<class Walk, class Owner>
class VectorsOf
{
public:
    explicit VectorsOf(Owner *owner) : mOwner(owner) {}

    template<class Act>
    void each(Act act) const
    {
        Walk walk;
        walk.first(mOwner, kEveryVector);
        CDbPointVOR *vector = nullptr;
        while (walk.next(vector))
            act(vector);
    }

private:
    Owner *mOwner;
};

using VectorsOfGroup = VectorsOf<IteratorVectorGroup, CDbGroupObject>;
using VectorsOfGabarit = VectorsOf<IteratorVectorGabarit, GabaritObject>;

/// The number by which the host counts a size.
inline short sizeNumber(int size)
{
    return static_cast<short>(size + 1);
}

/// Number of sizes that a list of values holds.
inline short countOfSizes(const GradationData *gradation)
{
    return nestDefined(gradation) ? gradation->gradationNum() : static_cast<short>(1);
}

/// A reading of one size: the vectors stand in it until this object dies, and then are as they were.
template<class Vectors>
class ReadingOfSize
{
public:
    ReadingOfSize(const Vectors &vectors, const GradationData *gradation, short number)
        : mVectors(vectors), mNumber(number)
    {
        mVectors.each([=](CDbPointVOR *vector) {
            CDbPointVOR::setVectorInIrregular(vector, gradation);
            CDbPointVOR::swapEvolutionMedium(vector, number);
        });
    }
    ReadingOfSize(const ReadingOfSize &) = delete;
    ReadingOfSize &operator=(const ReadingOfSize &) = delete;
    ~ReadingOfSize()
    {
        if (!mWayBack)
            return;
        mVectors.each([this](CDbPointVOR *vector) {
            CDbPointVOR::recalculateEvolution(vector, mNumber);
            vector->destroyVectorInRegular();
        });
    }

    /// The vectors stay in the size.
    void forgetTheWayBack() { mWayBack = false; }

private:
    Vectors mVectors;
    short mNumber;
    bool mWayBack = true;
};

/// A stay in one size whose places become those of the size in the end. In the nest itself the move is
/// absorbed, so that the other sizes stand where they stood.
template<class Vectors>
class StayInSize
{
public:
    StayInSize(const Vectors &vectors, short number, bool isNest)
        : mVectors(vectors), mNumber(number), mIsNest(isNest)
    {
        mVectors.each([=](CDbPointVOR *vector) { CDbPointVOR::swapEvolutionMedium(vector, number); });
    }
    StayInSize(const StayInSize &) = delete;
    StayInSize &operator=(const StayInSize &) = delete;
    ~StayInSize()
    {
        mVectors.each([this](CDbPointVOR *vector) {
            CDbPointVOR::recalculateEvolution(vector, mNumber);
            if (mIsNest)
                CDbPointVOR::createEvolutionInOnlyMedium(vector, mNumber);
        });
    }

private:
    Vectors mVectors;
    short mNumber;
    bool mIsNest;
};

/// Explicit evolutions for the time of a move; afterwards regular grading again where it can say the same.
template<class Vectors>
class ExplicitGrading
{
public:
    ExplicitGrading(const Vectors &vectors, const GradationData *gradation)
        : mVectors(vectors), mGradation(gradation)
    {
        mVectors.each([=](CDbPointVOR *vector) { CDbPointVOR::setVectorInIrregular(vector, gradation); });
    }
    ExplicitGrading(const ExplicitGrading &) = delete;
    ExplicitGrading &operator=(const ExplicitGrading &) = delete;
    ~ExplicitGrading()
    {
        mVectors.each([this](CDbPointVOR *vector) { vector->tryResetGradationInRegular(mGradation); });
    }

private:
    Vectors mVectors;
    const GradationData *mGradation;
};

/// Reads one value per size, smallest size first; without a nest a single one. Everything is as before then.
template<class Vectors, class Read>
QListEx<double> readEverySize(const Vectors &vectors, const GradationData *gradation, Read read)
{
    struct Explicit {
        Explicit(const Vectors &all, const GradationData *sizes) : mAll(all)
        {
            mAll.each([=](CDbPointVOR *vector) { CDbPointVOR::setVectorInIrregular(vector, sizes); });
        }
        Explicit(const Explicit &) = delete;
        Explicit &operator=(const Explicit &) = delete;
        ~Explicit()
        {
            mAll.each([](CDbPointVOR *vector) { vector->destroyVectorInRegular(); });
        }
        Vectors mAll;
    };

    const short count = countOfSizes(gradation);
    QListEx<double> values;
    values.reserve(count);
    const Explicit grading(vectors, gradation);
    for (short size = 0; size < count; ++size) {
        const StayInSize<Vectors> stay(vectors, sizeNumber(size), false);
        values.append(read());
    }
    return values;
}

} // namespace VorSystem
