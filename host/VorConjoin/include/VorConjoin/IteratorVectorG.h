// Walks over the vectors of a group or of a gabarit.
#pragma once

#include <VorConjoin/IteratorVORSt.h>

#include <cstddef>

namespace VorSystem
{

class CDbGroupObject;

/// What the walks over groups and gabarits have in common: which vectors they show.
class VORCONJOIN_EXPORT IteratorVectorG : public IteratorVORSt<CDbPointVOR>
{
public:
    /// Which vectors a walk shows.
    enum eTypeIterator {
        Iterator_All = 0,     ///< every vector once
        Iterator_Anchors = 1, ///< without dependents (pleat vectors, caps, handles, inner leg points)
    };

    bool next(CDbPointVOR *&vector) override;

protected:
    /// Starts at the gabarit's contour. With a group, its later gabarits and its own vectors follow.
    void start(eTypeIterator type, const GabaritObject *gabarit, const CDbGroupObject *group);

private:
    bool step(CDbPointVOR *&vector);

    const GabaritObject *mGabarit = nullptr; ///< whose contour is walked
    const CDbGroupObject *mGroup = nullptr;  ///< whose own vectors end the walk; null for one gabarit
    std::size_t mPosition = 0;
    eTypeIterator mType = Iterator_All;
};

/// Gabarit by gabarit in contour order, then the group's own vectors.
class VORCONJOIN_EXPORT IteratorVectorGroup final : public IteratorVectorG
{
public:
    /// Starts anew; null makes an empty walk. No gabarit of it may die meanwhile.
    void first(const CDbGroupObject *group, eTypeIterator type);
};

/// The contour of a gabarit.
class VORCONJOIN_EXPORT IteratorVectorGabarit final : public IteratorVectorG
{
public:
    /// Starts anew at the contour's first vector; null makes an empty walk.
    void first(const GabaritObject *gabarit, eTypeIterator type);
};

} // namespace VorSystem
