// A stretch of a contour with its dart gaps closed.

#include "ContourStretch.h"

#include <VorConjoin/GabaritObject.h>

#include <algorithm>

namespace VorSystem
{

namespace
{

constexpr double kHasDirection = 1e-9; // cm; shorter edges are too short to point anywhere

} // namespace

ContourStretch::ContourStretch(const GabaritObject &gabarit, const CDbPointVOR *a, const CDbPointVOR *b,
                               bool forward)
{
    if (!gabarit.isVectorContour(a) || !gabarit.isVectorContour(b))
        return;

    CDbPointVOR *seen = gabarit.gabaritGetContourVector(gabarit.gabaritGetContourIndex(a));
    Step step{seen, 0.0, {}, {seen->mX, seen->mY}};
    mSteps.push_back(step);
    while (seen != b) {
        CDbPointVOR *next = gabarit.neighbor(seen, forward);
        const Evolution edge{next->mX - seen->mX, next->mY - seen->mY};
        if (gabarit.isDeadEdge(seen, next)) {
            step.gap.x += edge.x;
            step.gap.y += edge.y;
        } else {
            const double edgeLength = seen->distance(*next);
            step.live += edgeLength;
            step.closed.x += edge.x;
            step.closed.y += edge.y;
            if (edgeLength > kHasDirection) {
                mLastDirection = {edge.x / edgeLength, edge.y / edgeLength};
                if (!mHasLength)
                    mFirstDirection = mLastDirection;
                mHasLength = true;
            }
        }
        step.vector = next;
        mSteps.push_back(step);
        seen = next;
    }
}

Evolution ContourStretch::at(double live) const
{
    if (mSteps.empty())
        return {};
    const Step &begin = mSteps.front();
    const Step &end = mSteps.back();
    if (live <= 0.0)
        return {begin.closed.x + live * mFirstDirection.x, begin.closed.y + live * mFirstDirection.y};
    if (live >= end.live) {
        const double over = live - end.live;
        return {end.closed.x + over * mLastDirection.x, end.closed.y + over * mLastDirection.y};
    }

    const auto isBefore = [](const Step &step, double distance) { return step.live < distance; };
    const auto next = std::lower_bound(mSteps.begin(), mSteps.end(), live, isBefore);
    const Step &to = *next;
    const Step &from = *(next - 1);
    const double share = (live - from.live) / (to.live - from.live);
    return {from.closed.x + share * (to.closed.x - from.closed.x),
            from.closed.y + share * (to.closed.y - from.closed.y)};
}

} // namespace VorSystem
