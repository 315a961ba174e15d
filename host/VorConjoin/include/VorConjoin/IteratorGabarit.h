// Walks over gabarits and over darts.
#pragma once

#include <VorConjoin/IteratorVORSt.h>

namespace VorSystem
{

class CDbGroupObject;

/// Follows mNextGabarit: all gabarits of a group, or a chain of temporaries.
class VORCONJOIN_EXPORT IteratorGabarit final : public IteratorVORSt<GabaritObject>
{
public:
    IteratorGabarit() = default;
    /// Starts at the group's first gabarit; null makes an empty walk.
    explicit IteratorGabarit(const CDbGroupObject *group);
};

/// The darts of a gabarit.
class VORCONJOIN_EXPORT IteratorClipContour final : public IteratorVORSt<DartContour>
{
public:
    IteratorClipContour() = default;
    /// Starts at the gabarit's first dart; null makes an empty walk.
    explicit IteratorClipContour(const GabaritObject *gabarit);
};

} // namespace VorSystem
