// Walks over groups, gabarits, darts and vectors.

#include <VorConjoin/AbstrIteratorGroup.h>
#include <VorConjoin/CDbGroupObject.h>
#include <VorConjoin/IteratorGabarit.h>
#include <VorConjoin/IteratorVectorG.h>
#include <VorConjoin/t_Plan.h>

#include <boost/make_shared.hpp>

namespace VorSystem
{

namespace
{

class PlanWalk final : public AbstrIteratorGroup
{
public:
    explicit PlanWalk(const t_Plan *plan) : mPlan(plan) {}

    // By position: a plan that grows or shrinks meanwhile never leads out of its list.
    bool next(CDbGroupObject *&group) override
    {
        const bool isThere = mPlan && mPosition < mPlan->groups().size();
        group = isThere ? mPlan->groups()[mPosition++] : nullptr;
        return isThere;
    }

private:
    const t_Plan *mPlan;
    std::size_t mPosition = 0;
};

} // namespace

AbstrIteratorGroup::~AbstrIteratorGroup() = default;

boost::shared_ptr<AbstrIteratorGroup> AbstrIteratorGroup::create(const t_Plan *plan, eIteratorGroup)
{
    return boost::make_shared<PlanWalk>(plan);
}

IteratorGabarit::IteratorGabarit(const CDbGroupObject *group)
{
    first(group ? group->firstGabarit() : nullptr);
}

IteratorClipContour::IteratorClipContour(const GabaritObject *gabarit)
{
    first(gabarit ? gabarit->mFirstDart : nullptr);
}

void IteratorVectorG::start(eTypeIterator type, const GabaritObject *gabarit, const CDbGroupObject *group)
{
    mType = type;
    mGabarit = gabarit;
    mGroup = group;
    mPosition = 0;
}

bool IteratorVectorG::next(CDbPointVOR *&vector)
{
    while (step(vector)) {
        if (mType != Iterator_Anchors || vector->isAnchor())
            return true;
    }
    return false;
}

// The next vector of the present list; at its end the next list.
bool IteratorVectorG::step(CDbPointVOR *&vector)
{
    while (mGabarit) {
        const auto &contour = mGabarit->contourVectors();
        if (mPosition < contour.size()) {
            vector = contour[mPosition++];
            return true;
        }
        mGabarit = mGroup ? mGabarit->mNextGabarit : nullptr;
        mPosition = 0;
    }
    if (mGroup && mPosition < mGroup->ownVectors().size()) {
        vector = mGroup->ownVectors()[mPosition++];
        return true;
    }
    vector = nullptr;
    return false;
}

void IteratorVectorGroup::first(const CDbGroupObject *group, eTypeIterator type)
{
    start(type, group ? group->firstGabarit() : nullptr, group);
}

void IteratorVectorGabarit::first(const GabaritObject *gabarit, eTypeIterator type)
{
    start(type, gabarit, nullptr);
}

} // namespace VorSystem
