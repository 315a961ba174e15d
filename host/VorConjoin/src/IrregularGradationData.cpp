// Explicit evolutions of one vector.

#include <VorConjoin/IrregularGradationData.h>

#include <algorithm>
#include <cmath>

namespace VorSystem
{

namespace
{

constexpr double kSameEvolution = 1e-9; // cm; steps that come this near to every evolution stand for them

std::size_t slot(short position)
{
    return static_cast<std::size_t>(position);
}

bool isNear(const Evolution &a, const Evolution &b)
{
    return std::abs(a.x - b.x) <= kSameEvolution && std::abs(a.y - b.y) <= kSameEvolution;
}

// from + times * (from - before)
Evolution continued(const Evolution &from, const Evolution &before, int times)
{
    return {from.x + times * (from.x - before.x), from.y + times * (from.y - before.y)};
}

} // namespace

IrregularGradationData::IrregularGradationData(short sizeCount, short nestNumber, const RegularSteps &steps)
    : mSteps(steps), mSize(std::max<short>(sizeCount, 1)),
      mMedium(std::clamp<short>(nestNumber, 1, std::max<short>(sizeCount, 1)))
{
}

IrregularGradationData::IrregularGradationData(const IrregularGradationData &other)
    : mSteps(other.mSteps), mSize(other.mSize), mMedium(other.mMedium)
{
    if (other.mTable) {
        mTable = std::make_unique<Evolution[]>(slot(mSize));
        std::copy_n(other.mTable.get(), slot(mSize), mTable.get());
    }
}

IrregularGradationData::~IrregularGradationData() = default;

Evolution IrregularGradationData::byRule(short position) const
{
    const int away = position - (mMedium - 1);
    if (away > 0)
        return {away * mSteps.large.x, away * mSteps.large.y};
    if (away < 0)
        return {-away * mSteps.small.x, -away * mSteps.small.y};
    return {};
}

void IrregularGradationData::makeTable()
{
    auto table = std::make_unique<Evolution[]>(slot(mSize));
    for (short position = 0; position < mSize; ++position)
        table[slot(position)] = byRule(position);
    mTable = std::move(table);
}

void IrregularGradationData::setGradation(const t_0_Based &size, const GeoPoint2D &evolution)
{
    setEvolution(size.value(), {evolution.mX, evolution.mY});
}

void IrregularGradationData::setEvolution(short position, const Evolution &evolution)
{
    if (position < 0 || position >= mSize)
        return;
    if (!mTable)
        makeTable();
    mTable[slot(position)] = evolution;
}

std::unique_ptr<IrregularGradationData> IrregularGradationData::fitted(short sizeCount,
                                                                       short nestNumber) const
{
    auto result = std::make_unique<IrregularGradationData>(sizeCount, nestNumber, mSteps);
    if (isByRule())
        return result;

    const auto nest = static_cast<short>(mMedium - 1);
    const auto last = static_cast<short>(mSize - 1);
    // A side without sizes has no step to continue by: it repeats the nest.
    const Evolution innerSmall = evolution(nest > 0 ? 1 : 0);
    const Evolution innerLarge = evolution(last > nest ? static_cast<short>(last - 1) : last);
    for (short position = 0; position < result->mSize; ++position) {
        const int own = position - (result->mMedium - 1) + nest;
        if (own < 0)
            result->setEvolution(position, continued(evolution(0), innerSmall, -own));
        else if (own > last)
            result->setEvolution(position, continued(evolution(last), innerLarge, own - last));
        else
            result->setEvolution(position, evolution(static_cast<short>(own)));
    }
    return result;
}

bool IrregularGradationData::asRegular(RegularSteps *steps) const
{
    if (isByRule()) {
        *steps = mSteps;
        return true;
    }

    // The outermost size decides a step: there an error of the step weighs most.
    RegularSteps found = *steps;
    if (const int below = mMedium - 1; below > 0)
        found.small = {mTable[0].x / below, mTable[0].y / below};
    if (const int above = mSize - mMedium; above > 0)
        found.large = {mTable[slot(mSize) - 1].x / above, mTable[slot(mSize) - 1].y / above};

    const IrregularGradationData regular(mSize, mMedium, found);
    for (short position = 0; position < mSize; ++position) {
        if (!isNear(evolution(position), regular.byRule(position)))
            return false;
    }
    *steps = found;
    return true;
}

} // namespace VorSystem
