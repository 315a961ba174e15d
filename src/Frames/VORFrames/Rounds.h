// The sorting of values into rounds.
#pragma once

#include "VORFrames/DependencyGraph.h"

#include <functional>
#include <queue>
#include <vector>

namespace VorSystem
{

/// Places the records of a graph round by round.
///
/// In a round each record is looked at in the order of the graph. It is placed unless a value that it waits
/// for has a record left, or unless a frame of a link that it depends on was placed earlier in the same
/// round, in the same kind of value.
///
/// A record is looked at only when the last value that it waited for was placed, and after giving way to a
/// link again when that link's turn comes: a link whose frames follow it costs no more than its frames.
class Rounds
{
public:
    using Record = DependencyGraph::Record;
    using Value = DependencyGraph::Value;

    explicit Rounds(const DependencyGraph &graph);

    bool isFinished() const { return mLeft == 0; }
    /// The records of the next round, in order; none when those left wait for each other.
    const std::vector<Record> &next();
    bool isPending(Record record) const { return mPlacedIn[record] == 0; }

private:
    using FirstOnTop = std::priority_queue<Record, std::vector<Record>, std::greater<Record>>;
    struct Turn { // of those that gave way to a link
        Record first;
        Value link;
        bool operator>(const Turn &other) const { return first > other.first; }
    };

    void openTurns();
    void takeTurn();
    void placeOrGiveWay(Record record);
    void place(Record record);
    void release();

    const DependencyGraph &mGraph;
    std::size_t mLeft;
    std::size_t mRound = 0;
    std::vector<std::size_t> mPlacedIn;    ///< per record: the round that placed it, 0 for none
    std::vector<std::size_t> mWaits;       ///< per record: entries still waited for
    std::vector<std::size_t> mRecordsLeft; ///< per value
    std::vector<std::size_t> mTouchedIn;   ///< per link value: the last round that placed a frame of it
    std::vector<FirstOnTop> mGivingWay;    ///< per link value: those that gave way to it
    std::vector<Value> mQueuedLinks;       ///< those with somebody in mGivingWay, each once
    std::vector<bool> mIsQueuedLink;       ///< per link value
    std::vector<Record> mReady;            ///< to be looked at in the next round, in order
    std::priority_queue<Turn, std::vector<Turn>, std::greater<Turn>> mTurns; ///< of the present round
    std::vector<Record> mPlaced;                                             ///< in the present round
};

} // namespace VorSystem
