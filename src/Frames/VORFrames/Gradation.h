// Questions to a gradation that may not be there.
#pragma once

#include <VorConjoin/VorConjoin.h>

namespace VorSystem
{

/// Is there a gradation, with a nest? The host's own question must not be asked through a null pointer.
inline bool nestDefined(const GradationData *gradation)
{
    return gradation != nullptr && gradation->isGradationNestDefined();
}

/// The gradation of the document; null when there is none, or no document.
inline const GradationData *gradationOf(Document *document)
{
    return document == nullptr ? nullptr : document->gradationData();
}

} // namespace VorSystem
