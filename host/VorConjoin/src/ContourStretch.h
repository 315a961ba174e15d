// A stretch of a contour with its dart gaps closed.
#pragma once

#include <VorConjoin/CDbPointVOR.h>

#include <vector>

namespace VorSystem
{

class GabaritObject;

/// The vectors from a to b in one sense, and their live distances from a.
///
/// Closing the gaps means: every dart opening on the way is taken out by moving all that follows. The closed
/// stretch starts at a and continues straight on beyond both of its ends.
class ContourStretch
{
public:
    /// Empty when a or b is not on the contour.
    ContourStretch(const GabaritObject &gabarit, const CDbPointVOR *a, const CDbPointVOR *b, bool forward);

    bool isEmpty() const { return mSteps.empty(); }
    std::size_t count() const { return mSteps.size(); }
    CDbPointVOR *vector(std::size_t place) const { return mSteps[place].vector; }
    /// Live distance of a vector from a, cm.
    double live(std::size_t place) const { return mSteps[place].live; }
    double length() const { return mSteps.empty() ? 0.0 : mSteps.back().live; }
    /// True when there is something to stretch: an edge that has a direction.
    bool hasLength() const { return mHasLength; }
    /// Sum of the gaps between a and a vector.
    Evolution gap(std::size_t place) const { return mSteps[place].gap; }
    /// Place of a vector on the closed stretch.
    Evolution closed(std::size_t place) const { return mSteps[place].closed; }
    /// Point of the closed stretch at a live distance, which may lie beyond its ends.
    Evolution at(double live) const;

private:
    struct Step {
        CDbPointVOR *vector;
        double live;
        Evolution gap;
        Evolution closed;
    };

    std::vector<Step> mSteps;
    Evolution mFirstDirection; ///< of the first live edge that has one, away from a
    Evolution mLastDirection;  ///< of the last
    bool mHasLength = false;
};

} // namespace VorSystem
