// The order in which the values of a set are recomputed.
#pragma once

#include <VorFrames/Evaluation.h>
#include <VorFrames/QListEx.h>
#include <VorFrames/VorFramesExport.h>

namespace VorSystem
{

class FrameSegment;
class FrameSet;

/// The rounds of evaluations of a set: a value stands after what it depends on.
///
/// Rebuilt before each use and never read as a cache; a copy therefore starts without rounds.
class VORFRAMES_EXPORT OrderEvaluation
{
public:
    OrderEvaluation() = default;
    /// Starts without rounds.
    OrderEvaluation(const OrderEvaluation &other);
    /// Frees the rounds of this order and takes none over; nothing when other is this order.
    OrderEvaluation &operator=(const OrderEvaluation &other);
    ~OrderEvaluation();

    /// Sorts the values of the set into rounds.
    ///
    /// False only when the values that are left wait for each other and a segment with a formula moves one of
    /// them: culprit is then that segment, and null otherwise. A deadlock without such a segment answers true
    /// and leaves the rest in no round. Raises AssertionError for a null set, a null set of an element, or a
    /// missing precondition of the elements asked.
    bool calculateOrder(FrameSet *set, FrameSegment *&culprit);

    /// Reevaluates every value, round by round. True when any of them changed or would change.
    bool reevaluate(eFrameReevaluate mode);

    /// Reevaluates what depends on the measure, the level or both of start, directly or through others.
    /// False, without a walk, when neither is asked for.
    bool reevaluateUnder(BaseFrame *start, bool measure, bool level, eFrameReevaluate mode);

    /// The rounds as they stand, first round first; not owned by the caller, valid until the next
    /// calculateOrder.
    const QListEx<QListEx<Evaluation> *> &rounds() const { return mRounds; }

    /// Frees all rounds.
    void clear();

private:
    QListEx<QListEx<Evaluation> *> mRounds;
};

} // namespace VorSystem
