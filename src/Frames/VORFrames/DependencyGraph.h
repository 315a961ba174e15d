// What the values of a set wait for, as numbers: the input of the sorting into rounds.
#pragma once

#include "VORFrames/ElementTable.h"

#include <VorFrames/Evaluation.h>
#include <VorFrames/QListEx.h>

#include <cstddef>
#include <limits>
#include <vector>

namespace VorSystem
{

class FrameFrame;
class FrameLink;
class FrameMeasurementChart;
class FrameSegment;
class FrameSet;

/// The values of a set that stand in rounds, in the order of its lists, with what each depends on.
///
/// A *record* is one entry of that order. A *value* is a list of an element, numbered 2 * element + (0
/// measure, 1 level); a set that lists an element twice has two records of one value. A *link value* is a
/// value whose element is a link: who depends on it does not wait for it, but gives way to its frames.
class DependencyGraph
{
public:
    using Record = std::size_t;
    using Value = std::size_t;

    /// Asks every element for its dependencies. Raises what the elements raise.
    explicit DependencyGraph(FrameSet &set);

    std::size_t recordCount() const { return mRecords.size(); }
    std::size_t valueCount() const { return 2 * mElements.size(); }
    const Evaluation &evaluation(Record record) const { return mRecords[record]; }
    Value valueOf(Record record) const { return mValues[record]; }
    /// How many records the value has: 0 for elements outside the set and for centers, specs and the like.
    std::size_t recordsOf(Value value) const { return mNodes[value / 2].records[value % 2]; }

    /// How many entries among the dependencies wait for a value that has records.
    std::size_t waitsFor(Record record) const { return mWaits[record]; }
    /// Calls visit(record) for each such entry, from the side of the value waited for.
    template<class Visit>
    void forEachWaiting(Value value, Visit visit) const
    {
        const std::size_t first = mNodes[value / 2].firstWaiting[value % 2];
        for (std::size_t entry = first; entry != kNone; entry = mWaiting[entry].next)
            visit(mWaiting[entry].number);
    }

    /// The first link value among the record's dependencies for which test holds; kNone when there is none.
    template<class Test>
    Value findLinkValue(Record record, Test test) const
    {
        for (std::size_t entry = mLinkValuesBegin[record]; entry < mLinkValuesBegin[record + 1]; ++entry) {
            if (test(mLinkValues[entry]))
                return mLinkValues[entry];
        }
        return kNone;
    }
    /// Calls visit(linkValue) for each link, among those that anybody depends on, that lists the value's
    /// frame.
    template<class Visit>
    void forEachLinkValueOver(Value value, Visit visit) const
    {
        const std::size_t first = mNodes[value / 2].firstLinkOver;
        for (std::size_t entry = first; entry != kNone; entry = mLinksOver[entry].next)
            visit(2 * mLinksOver[entry].number + value % 2);
    }

    /// The segment that stands in the way of the records for which isPending holds: the first that has a
    /// formula and moves an element of one of them; null when there is none.
    template<class IsPending>
    FrameSegment *findCulprit(IsPending isPending) const
    {
        std::vector<bool> pending(recordCount());
        for (Record record = 0; record < recordCount(); ++record)
            pending[record] = isPending(record);
        return culpritAmong(pending);
    }

    static constexpr std::size_t kNone = std::numeric_limits<std::size_t>::max();

private:
    struct Entry { // of a list that is threaded through an array
        std::size_t number;
        std::size_t next;
    };
    enum class Kind : char { Unknown, Link, ListedLink, Other }; // listed: its frames are in mLinksOver
    struct Node { // of an element; the pairs are for measure and level
        std::size_t records[2] = {0, 0};
        std::size_t firstWaiting[2] = {kNone, kNone}; // into mWaiting
        std::size_t firstLinkOver = kNone;            // into mLinksOver
        Kind kind = Kind::Unknown;
    };
    struct SegmentInfluence {
        std::size_t segment; // its element number
        Record moved;
    };

    DependencyGraph(FrameSet &set, const QListEx<FrameFrame *> &frames, const QListEx<FrameLink *> &links,
                    const QListEx<FrameSegment *> &segments, const QListEx<FrameMeasurementChart *> &charts);
    void addDependencies();
    void addRecord(BaseFrame *element, eEvaluationType type);
    void addFormulaDependencies(Record record, const QListEx<Evaluation> &dependencies);
    void addMovers(Record record, const std::vector<BaseFrame *> &movers);
    void addWait(Record record, Value value);
    bool isLink(std::size_t element);
    void listFramesOf(std::size_t link);
    std::size_t enter(BaseFrame *element);
    FrameSegment *culpritAmong(const std::vector<bool> &pending) const;
    bool movesAnyOf(BaseFrame &segment, const std::vector<bool> &pending) const;

    FrameSet *const mSet;
    ElementTable mElements;
    std::vector<Node> mNodes; ///< per element
    std::vector<Evaluation> mRecords;
    std::vector<Value> mValues;      ///< per record
    std::vector<std::size_t> mWaits; ///< per record
    std::vector<Entry> mWaiting;
    std::vector<std::size_t> mLinkValuesBegin; ///< per record and one more, into mLinkValues
    std::vector<Value> mLinkValues;
    std::vector<Entry> mLinksOver;
    std::vector<SegmentInfluence> mSegmentInfluences;
    bool mMixed = false; ///< some element answers another set than the one it is listed in
};

} // namespace VorSystem
