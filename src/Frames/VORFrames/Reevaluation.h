// Bringing stored values into line with formulas and geometry, one value after the other.
#pragma once

#include "VORFrames/Definedness.h"

#include <VorFrames/Enumerations.h>
#include <VorFrames/QListEx.h>

namespace VorSystem
{

class BaseFrame;
class GradationData;

/// Where a reevaluation reads what formulas and pieces say: from the elements themselves, or, while nothing
/// moves, with one walk over the document for all of them.
class ElementReading
{
public:
    /// Asks the elements.
    ElementReading() = default;
    /// Takes from known what would need a walk over the document; known must outlive the reading.
    explicit ElementReading(Definedness *known) : mKnown(known) {}

    bool isDefined(BaseFrame &element) const;
    /// One value (at the nest), or all of a list that the caller has sized: by the formula where there is
    /// one, else from the piece. False when neither gives any.
    bool value(BaseFrame &element, eEvaluationType type, double &value) const;
    bool values(BaseFrame &element, eEvaluationType type, const GradationData &gradation,
                QListEx<double> &values) const;
    /// The same from the piece alone.
    bool objectValue(BaseFrame &element, eEvaluationType type, double &value) const;
    bool objectValues(BaseFrame &element, eEvaluationType type, const GradationData *gradation,
                      QListEx<double> &values) const;

private:
    bool knows(const BaseFrame &element, eEvaluationType type) const;

    Definedness *mKnown = nullptr;
};

/// Runs reevaluateElement() over many elements. In the modes that move nothing the document is walked once
/// for all of them.
class Reevaluation
{
public:
    explicit Reevaluation(eFrameReevaluate mode) : mMode(mode) {}
    bool run(BaseFrame &element, eEvaluationType type);

private:
    const eFrameReevaluate mMode;
    Definedness mKnown;
};

} // namespace VorSystem
