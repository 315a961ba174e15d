// Which set of a target manager received which source set.
#pragma once

#include <map>

namespace VorSystem
{

class FrameSet;

/// The record of a transfer, filled and read as a map from a source set to the set that received it.
///
/// An entry present at a call directs the source into that set; after the call each source that contributed
/// has its entry. Owns nothing.
class EquivalenceSets : public std::map<FrameSet *, FrameSet *>
{
public:
    using std::map<FrameSet *, FrameSet *>::map;
};

} // namespace VorSystem
