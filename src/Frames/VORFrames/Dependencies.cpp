// What one value is computed from, asked of its element for a run in which nothing moves.

#include "VORFrames/Dependencies.h"

#include <VorFrames/FrameSet.h>

namespace VorSystem
{

void Dependencies::take(const Evaluation &evaluation)
{
    BaseFrame *const element = evaluation.mElement;
    if (!mFromFormulas.isEmpty())
        mFromFormulas.erase(mFromFormulas.begin(), mFromFormulas.end()); // keeps the block, unlike clear()
    if (evaluation.mType == Evaluation_Measure)
        element->addEvaluationUsedInMeasurement(mFromFormulas);
    else
        element->addEvaluationUsedInLevel(mFromFormulas);
    takeMovers(element);
}

void Dependencies::takeMovers(BaseFrame *element)
{
    if (element == mMoved)
        return; // its other value: the same geometry
    FrameSet *const set = element->getFrameSet();
    if (set == nullptr)
        element->evaluationInfluencesGeometrically(mFromFormulas); // raises

    const auto [influence, isNew] = mInfluences.try_emplace(set);
    if (isNew)
        influence->second.addMoversOf(*set);
    mMovers = influence->second.moversOf(element);
    mMoved = element;
    mSet = set;
}

} // namespace VorSystem
