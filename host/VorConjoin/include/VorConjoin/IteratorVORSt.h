// Walks over chains.
#pragma once

#include <VorConjoin/CDbPointVOR.h>
#include <VorConjoin/DartContour.h>
#include <VorConjoin/GabaritObject.h>

namespace VorSystem
{

/// What follows in the chain, or null; the argument must be there.
///@{
inline CDbPointVOR *nextInChain(const CDbPointVOR *vector)
{
    return vector->mNextVector;
}

inline GabaritObject *nextInChain(const GabaritObject *gabarit)
{
    return gabarit->mNextGabarit;
}

inline DartContour *nextInChain(const DartContour *dart)
{
    return dart->mNextDart;
}
///@}

/// A walk along a chain, from its start until null or the start comes again. Positions may change meanwhile.
template<class T>
class IteratorVORSt
{
public:
    IteratorVORSt() = default;
    /// A copy walks on by itself from where the other stands.
    IteratorVORSt(const IteratorVORSt &) = default;
    /// Leaves its own walk and goes on where the other stands.
    IteratorVORSt &operator=(const IteratorVORSt &) = default;
    virtual ~IteratorVORSt() = default;

    /// Sets the start; null makes an empty walk.
    void first(T *start)
    {
        mStart = start;
        mNext = start;
    }

    /// Puts the next object in its argument; false, and the argument null, when the walk has ended.
    virtual bool next(T *&object)
    {
        object = mNext;
        if (!mNext)
            return false;
        mNext = nextInChain(mNext);
        if (mNext == mStart)
            mNext = nullptr;
        return true;
    }

private:
    T *mStart = nullptr;
    T *mNext = nullptr;
};

/// Follows mNextVector: a chain of free vectors, or a contour from any of its vectors.
class IteratorVector final : public IteratorVORSt<CDbPointVOR>
{
};

} // namespace VorSystem
