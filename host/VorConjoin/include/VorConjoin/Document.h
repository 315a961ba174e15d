// The host's document, as far as the library sees it.
#pragma once

#include <VorConjoin/VorConjoinExport.h>

namespace VorSystem
{

class GestFrames;
class GradationData;
class t_Plan;

/// A pattern document. All three may be null: no gradation, no manager yet, no piece.
class VORCONJOIN_EXPORT Document
{
public:
    /// How many sizes there are, and which is the nest; the document's.
    virtual const GradationData *gradationData() const = 0;
    /// The manager of all frame sets.
    virtual GestFrames *framesManager() const = 0;
    /// The pieces that moves of elements reach; the document's.
    virtual const t_Plan *plan() const = 0;

    virtual ~Document();
};

} // namespace VorSystem
