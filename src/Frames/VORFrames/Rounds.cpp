// The sorting of values into rounds.

#include "VORFrames/Rounds.h"

#include <algorithm>

namespace VorSystem
{

Rounds::Rounds(const DependencyGraph &graph)
    : mGraph(graph), mLeft(graph.recordCount()), mPlacedIn(graph.recordCount()), mWaits(graph.recordCount()),
      mRecordsLeft(graph.valueCount()), mTouchedIn(graph.valueCount())
{
    for (Record record = 0; record < graph.recordCount(); ++record) {
        mWaits[record] = graph.waitsFor(record);
        if (mWaits[record] == 0)
            mReady.push_back(record);
    }
    for (Value value = 0; value < graph.valueCount(); ++value)
        mRecordsLeft[value] = graph.recordsOf(value);
}

const std::vector<Rounds::Record> &Rounds::next()
{
    ++mRound;
    mPlaced.clear();
    openTurns();
    for (Record record : mReady) {
        while (!mTurns.empty() && mTurns.top().first < record)
            takeTurn();
        placeOrGiveWay(record);
    }
    while (!mTurns.empty())
        takeTurn();

    mReady.clear();
    release();
    return mPlaced;
}

void Rounds::openTurns()
{
    std::vector<Value> links;
    links.swap(mQueuedLinks);
    for (Value link : links) {
        mIsQueuedLink[link] = !mGivingWay[link].empty();
        if (!mIsQueuedLink[link])
            continue;
        mQueuedLinks.push_back(link);
        mTurns.push({mGivingWay[link].top(), link});
    }
}

// The first of those that gave way to a link; once a frame of the link is placed, all others wait on.
void Rounds::takeTurn()
{
    const Turn turn = mTurns.top();
    mTurns.pop();
    if (mTouchedIn[turn.link] == mRound)
        return;

    FirstOnTop &queue = mGivingWay[turn.link];
    queue.pop();
    placeOrGiveWay(turn.first);
    if (!queue.empty() && mTouchedIn[turn.link] != mRound)
        mTurns.push({queue.top(), turn.link});
}

void Rounds::placeOrGiveWay(Record record)
{
    const Value link =
        mGraph.findLinkValue(record, [this](Value value) { return mTouchedIn[value] == mRound; });
    if (link == DependencyGraph::kNone) {
        place(record);
        return;
    }
    if (mGivingWay.empty()) {
        mGivingWay.resize(mGraph.valueCount());
        mIsQueuedLink.resize(mGraph.valueCount());
    }
    if (!mIsQueuedLink[link])
        mQueuedLinks.push_back(link);
    mIsQueuedLink[link] = true;
    mGivingWay[link].push(record);
}

void Rounds::place(Record record)
{
    mPlacedIn[record] = mRound;
    mPlaced.push_back(record);
    mGraph.forEachLinkValueOver(mGraph.valueOf(record),
                                [this](Value linkValue) { mTouchedIn[linkValue] = mRound; });
}

// A value frees those that wait for it with the end of the round in which its last record was placed.
void Rounds::release()
{
    mLeft -= mPlaced.size();
    for (Record record : mPlaced) {
        const Value value = mGraph.valueOf(record);
        if (--mRecordsLeft[value] != 0)
            continue;
        mGraph.forEachWaiting(value, [this](Record waiting) {
            if (--mWaits[waiting] == 0)
                mReady.push_back(waiting);
        });
    }
    if (!std::is_sorted(mReady.begin(), mReady.end()))
        std::sort(mReady.begin(), mReady.end());
}

} // namespace VorSystem
