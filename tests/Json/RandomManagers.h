// Random managers, as a host would fill them, and random damage to what they store.
#pragma once

#include "JsonTexts.h"

#include <random>

namespace jsontest
{

using Random = std::mt19937;

/// A number from 0 up to, not including, end.
int any(Random &random, int end);

/// What a manager may hold that does not come back when it was stored.
enum class Losses {
    None,
    /// Formulas of charts; frames of one name on several centers, with formulas; orders of centers and links
    /// that are not the order of the set; centers without an origin; levels with a nest of their own.
    Known,
};

/// Enters count sets of all kinds of elements, with formulas in every place. Every set reads back.
void fill(VorSystem::GestFrames &manager, Random &random, int count, Losses losses);

/// The stored set with damage that costs it: a name or formula that does not resolve.
VorSystem::XJsonObject damaged(const VorSystem::XJsonObject &set, Random &random);

/// The stored set with any one value in it gone, doubled, or replaced by another.
VorSystem::XJsonObject changedSomewhere(const VorSystem::XJsonObject &set, Random &random);

} // namespace jsontest
