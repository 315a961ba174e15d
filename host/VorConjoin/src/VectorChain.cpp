// A chain of vectors with an index.

#include <VorConjoin/CDbPointVOR.h>
#include <VorConjoin/VectorChain.h>

namespace VorSystem
{

VectorChain::VectorChain(eEnd end, CDbPointVOR **head, GabaritObject *gabarit, CDbGroupObject *group)
    : mHead(head), mGabarit(gabarit), mGroup(group), mEnd(end)
{
}

VectorChain::~VectorChain()
{
    destroyAll();
}

bool VectorChain::insert(CDbPointVOR *v, int behind)
{
    if (!v || v->mGabarit || v->mGroup || behind < 0 || behind > count() || count() >= MaxCount)
        return false;
    mVectors.insert(mVectors.begin() + behind, v);
    v->mGabarit = mGabarit;
    v->mGroup = mGroup;
    relink(static_cast<std::size_t>(behind));
    return true;
}

bool VectorChain::take(CDbPointVOR *v)
{
    const int index = indexOf(v);
    if (index == 0)
        return false;
    mVectors.erase(mVectors.begin() + (index - 1));
    v->mGabarit = nullptr;
    v->mGroup = nullptr;
    v->mNextVector = nullptr;
    v->mChainIndex = 0;
    relink(static_cast<std::size_t>(index - 1));
    return true;
}

void VectorChain::destroyAll()
{
    for (CDbPointVOR *v : mVectors)
        delete v;
    mVectors.clear();
    *mHead = nullptr;
}

bool VectorChain::holds(const CDbPointVOR *v) const
{
    return indexOf(v) != 0;
}

short VectorChain::indexOf(const CDbPointVOR *v) const
{
    if (!v || v->mGabarit != mGabarit || v->mGroup != mGroup)
        return 0;
    return v->mChainIndex;
}

CDbPointVOR *VectorChain::at(int index) const
{
    return index >= 1 && index <= count() ? mVectors[static_cast<std::size_t>(index - 1)] : nullptr;
}

CDbPointVOR *VectorChain::neighbor(const CDbPointVOR *v, bool forward) const
{
    const int index = indexOf(v);
    if (index == 0)
        return nullptr;
    if (forward)
        return at(index == count() ? 1 : index + 1);
    return at(index == 1 ? count() : index - 1);
}

// Numbers and links everything from a position on, and the vector before it.
void VectorChain::relink(std::size_t from)
{
    const std::size_t total = mVectors.size();
    *mHead = total == 0 ? nullptr : mVectors.front();
    for (std::size_t position = from; position < total; ++position)
        mVectors[position]->mChainIndex = static_cast<short>(position + 1);
    for (std::size_t position = from == 0 ? 0 : from - 1; position + 1 < total; ++position)
        mVectors[position]->mNextVector = mVectors[position + 1];
    if (total > 0)
        mVectors.back()->mNextVector = mEnd == Circular ? mVectors.front() : nullptr;
}

} // namespace VorSystem
