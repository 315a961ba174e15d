// What one value is computed from, asked of its element for a run in which nothing moves.
#pragma once

#include "VORFrames/GeometricInfluence.h"

#include <VorFrames/Evaluation.h>
#include <VorFrames/QListEx.h>

#include <map>
#include <vector>

namespace VorSystem
{

/// The dependencies of one value after the other: what formulas and links name, and who moves the element.
///
/// What is known of the geometry is kept from value to value: drop the object before anything moves and
/// before the host is called.
class Dependencies
{
public:
    /// Turns to the dependencies of a value. Raises AssertionError for an element without a set, and what the
    /// elements asked raise.
    void take(const Evaluation &evaluation);

    /// What the value's formula, its link or its frames name.
    const QListEx<Evaluation> &fromFormulas() const { return mFromFormulas; }
    /// The frames and segments that move the element: each stands for its measure, a frame for its level too.
    const std::vector<BaseFrame *> &movers() const { return mMovers; }
    /// The set of the element.
    const FrameSet *set() const { return mSet; }

private:
    void takeMovers(BaseFrame *element);

    QListEx<Evaluation> mFromFormulas;
    BaseFrame *mMoved = nullptr; ///< whose movers and set stand in the fields below
    FrameSet *mSet = nullptr;
    std::vector<BaseFrame *> mMovers;
    std::map<FrameSet *, GeometricInfluence> mInfluences;
};

} // namespace VorSystem
