// Which elements move which, found without asking every pair.
#pragma once

#include "VORFrames/ControlIndex.h"

#include <unordered_map>
#include <vector>

namespace VorSystem
{

class CDbPointVOR;
class FrameSet;
class GabaritObject;

/// The answers of influenceGeometrically() of a list of movers, for a run in which nothing moves and the host
/// is not called.
///
/// A frame or segment moves the elements that hold a vector in its reach. The reach of each mover is taken
/// once; an element is then looked up by the vectors that it holds. What cannot be answered so (a class that
/// a host derived, a mover whose reach is not to be had) is asked for each element, so that answers and
/// exceptions are those of the elements themselves.
class GeometricInfluence
{
public:
    /// All frames of the set, then all its segments.
    void addMoversOf(const FrameSet &set);
    void add(BaseFrame *mover);

    /// The movers for which influenceGeometrically(element) is true, in the order in which they were added.
    std::vector<BaseFrame *> moversOf(BaseFrame *element);

private:
    using Movers = std::vector<std::size_t>; // positions in mMovers

    struct Reached {
        CDbPointVOR *vector;
        Movers movers;
    };

    void addReach(std::size_t position);
    std::vector<std::size_t> reachedThatMayBelongTo(ControlBase *control);
    const std::vector<std::size_t> &reachedOnContour(GabaritObject *gabarit);

    ControlLookup mControls;
    std::vector<BaseFrame *> mMovers;
    Movers mAsked; ///< those to be asked for each element
    std::vector<Reached> mReached;
    std::unordered_map<const CDbPointVOR *, std::size_t> mPlaceInReached;
    std::unordered_multimap<std::size_t, std::size_t> mReachedAlike; ///< by what a copy has in common
    std::unordered_map<GabaritObject *, std::vector<std::size_t>> mReachedOnContour;
};

} // namespace VorSystem
