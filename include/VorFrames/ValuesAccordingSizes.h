// Values per size of the gradation, and how they follow when sizes come and go.
#pragma once

#include <VorFrames/QListEx.h>
#include <VorFrames/VorFramesExport.h>

namespace VorSystem
{

/// One value per size of the gradation, smallest size first.
///
/// Lengths in centimetres; a size is a 0-based index. Empty until the first evaluation; a single value when
/// no nest is defined. There are mNestIndex sizes below the nest and count - mNestIndex - 1 above it.
struct VORFRAMES_EXPORT ValuesAccordingSizes {
    /// True when both lists have the same count and no two values differ by more than 3e-05: a difference is
    /// divided by 3.0 before it meets the zero test. A NaN equals nothing.
    bool isSameAs(const ValuesAccordingSizes &other) const;

    /// Adds to every value the difference that brings this list's nest to the nest of other.
    /// Either list without a value at its nest ends the program.
    void shiftTo(const ValuesAccordingSizes &other);

    /// Prepends count sizes that continue the step between the two smallest; with no size below the nest, the
    /// nest's value is repeated. A count of 0 or less adds nothing.
    void addSmallerSizes(short count);

    /// Appends count sizes that continue the step between the two largest; with no size above the nest, the
    /// nest's value is repeated. A count of 0 or less adds nothing.
    void addLargerSizes(short count);

    /// Removes the count smallest sizes; a list that is too short ends the program.
    void removeSmallerSizes(short count);

    /// Removes the count largest sizes; a list that is too short ends the program.
    void removeLargerSizes(short count);

    QListEx<double> mValues; ///< one per size, smallest size first
    short mNestIndex = 0;    ///< position of the nest in mValues
};

/// Fits values to a gradation with small sizes below the nest and large ones above it. The nest keeps its
/// value.
///
/// An empty list becomes zeros. An mNestIndex outside a list that holds values is first brought to the
/// nearest position. Raises AssertionError for null.
VORFRAMES_EXPORT void adjustValuesAccordingSizeToNest(ValuesAccordingSizes *values, short small, short large);

} // namespace VorSystem
