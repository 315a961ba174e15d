#include "Commands.h"

namespace room
{

void requireTarget(const Errand &errand)
{
    if (errand.output.isEmpty() && !errand.isInPlace) {
        throw Refusal(QStringLiteral("Say where the changed document goes: -o FILE, or --in-place."),
                      Exit_Usage);
    }
    if (!errand.output.isEmpty() && errand.isInPlace)
        throw Refusal(QStringLiteral("Give either -o or --in-place, not both."), Exit_Usage);
}

void store(const Errand &errand, const VorSystem::PatternDocument &document)
{
    storeDocument(document, errand.isInPlace ? errand.document : errand.output);
}

} // namespace room
