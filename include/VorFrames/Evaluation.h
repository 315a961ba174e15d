// One step of an evaluation: which value list of which element.
#pragma once

#include <VorFrames/Enumerations.h>

#include <QtGlobal>

namespace VorSystem
{

class BaseFrame;

/// A value list of an element; the element is not owned and may be null (an unresolved reference).
struct Evaluation {
    BaseFrame *mElement = nullptr;              ///< not owned
    eEvaluationType mType = Evaluation_Measure; ///< which of its two lists

    /// Equal when both fields are: the element by pointer.
    ///@{
    bool operator==(const Evaluation &other) const
    {
        return mElement == other.mElement && mType == other.mType;
    }
    bool operator!=(const Evaluation &other) const { return !(*this == other); }
    ///@}
};

/// Makes an Evaluation a key of QSet and QHash, element by pointer.
inline uint qHash(const Evaluation &evaluation, uint seed = 0)
{
    const auto place = reinterpret_cast<quintptr>(evaluation.mElement);
    return static_cast<uint>(place >> 4) ^ static_cast<uint>(place >> 36) ^
           static_cast<uint>(evaluation.mType) ^ seed;
}

} // namespace VorSystem
