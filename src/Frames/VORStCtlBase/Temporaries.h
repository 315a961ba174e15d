// Vectors and gabarits that live only as long as a move: freed on every way out.
#pragma once

#include <VorConjoin/CDbPointVOR.h>
#include <VorConjoin/GabaritObject.h>

#include <utility>

namespace VorSystem
{

/// One free vector.
class TemporaryVector
{
public:
    TemporaryVector() : mVector(CDbPointVOR::newVectorObject()) {}
    /// Takes a free vector over.
    explicit TemporaryVector(CDbPointVOR *vector) : mVector(vector) {}
    TemporaryVector(const TemporaryVector &) = delete;
    TemporaryVector &operator=(const TemporaryVector &) = delete;
    ~TemporaryVector()
    {
        if (mVector)
            CDbPointVOR::destroyVectorObject(&mVector);
    }

    CDbPointVOR *get() const { return mVector; }
    CDbPointVOR &operator*() const { return *mVector; }
    CDbPointVOR *operator->() const { return mVector; }
    /// Hands the vector to a new owner.
    CDbPointVOR *release() { return std::exchange(mVector, nullptr); }

private:
    CDbPointVOR *mVector;
};

/// Free vectors chained through mNextVector, the last one pushed first.
class TemporaryVectors
{
public:
    TemporaryVectors() = default;
    TemporaryVectors(const TemporaryVectors &) = delete;
    TemporaryVectors &operator=(const TemporaryVectors &) = delete;
    ~TemporaryVectors()
    {
        while (mFirst) {
            CDbPointVOR *vector = mFirst;
            mFirst = std::exchange(vector->mNextVector, nullptr);
            CDbPointVOR::destroyVectorObject(&vector);
        }
    }

    CDbPointVOR *pushFront(const GeoPoint2D &place)
    {
        CDbPointVOR *vector = CDbPointVOR::newVectorObject();
        *vector = place;
        vector->mNextVector = mFirst;
        mFirst = vector;
        return vector;
    }
    CDbPointVOR *first() const { return mFirst; }

private:
    CDbPointVOR *mFirst = nullptr;
};

/// One gabarit outside any group, with its vectors.
class TemporaryGabarit
{
public:
    TemporaryGabarit() : mGabarit(GabaritObject::create()) {}
    TemporaryGabarit(const TemporaryGabarit &) = delete;
    TemporaryGabarit &operator=(const TemporaryGabarit &) = delete;
    ~TemporaryGabarit()
    {
        if (mGabarit)
            GabaritObject::removeAGabarit(nullptr, &mGabarit);
    }

    /// Appends a copy of the vector to the contour. False when the contour does not take it.
    bool appendCopyOf(CDbPointVOR *vector)
    {
        TemporaryVector copy(vector->copyTheVector(0));
        mGabarit->gabaritAddContourVector(copy.get(), nullptr);
        if (!mGabarit->isVectorContour(copy.get()))
            return false;
        copy.release();
        return true;
    }
    GabaritObject *get() const { return mGabarit; }
    GabaritObject *release() { return std::exchange(mGabarit, nullptr); }

private:
    GabaritObject *mGabarit;
};

/// Gabarits outside any group chained through mNextGabarit, the last one pushed first.
class TemporaryGabarits
{
public:
    TemporaryGabarits() = default;
    TemporaryGabarits(const TemporaryGabarits &) = delete;
    TemporaryGabarits &operator=(const TemporaryGabarits &) = delete;
    ~TemporaryGabarits()
    {
        while (mFirst) {
            GabaritObject *gabarit = mFirst;
            mFirst = std::exchange(gabarit->mNextGabarit, nullptr);
            GabaritObject::removeAGabarit(nullptr, &gabarit);
        }
    }

    void pushFront(TemporaryGabarit &gabarit)
    {
        gabarit.get()->mNextGabarit = mFirst;
        mFirst = gabarit.release();
    }
    GabaritObject *first() const { return mFirst; }

private:
    GabaritObject *mFirst = nullptr;
};

} // namespace VorSystem
