// A chain of vectors with an index: the contour of a gabarit, or the own vectors of a group.
#pragma once

#include <VorConjoin/VorConjoinExport.h>

#include <vector>

namespace VorSystem
{

class CDbGroupObject;
class CDbPointVOR;
class GabaritObject;

/// Owns its vectors, keeps their mNextVector chained and answers index questions in constant time.
///
/// Indices count from 1 and fit a short; 0 means none.
class VORCONJOIN_EXPORT VectorChain
{
public:
    static constexpr int MaxCount = 32767; ///< more vectors are refused

    /// Where the mNextVector of the last vector leads.
    enum eEnd {
        Circular,  ///< back to the first one
        NullEnded, ///< nowhere
    };

    /// The chain of a gabarit (circular) or of a group (null-ended); head is kept at the first vector.
    VectorChain(eEnd end, CDbPointVOR **head, GabaritObject *gabarit, CDbGroupObject *group);
    VectorChain(const VectorChain &) = delete;
    VectorChain &operator=(const VectorChain &) = delete;
    ~VectorChain();

    /// Takes v over, behind the vector of that index (0: in front). False for null, an owned vector, no such
    /// place or a full chain.
    bool insert(CDbPointVOR *v, int behind);
    /// The same behind the last vector.
    bool append(CDbPointVOR *v) { return insert(v, count()); }
    /// Gives v back to the caller; false when it is not in this chain.
    bool take(CDbPointVOR *v);
    /// Frees all vectors; the chain is empty then, and its head null.
    void destroyAll();

    /// Number of vectors, at most MaxCount.
    int count() const { return static_cast<int>(mVectors.size()); }
    /// v is in this chain; false for null.
    bool holds(const CDbPointVOR *v) const;
    /// Index of a vector, 0 for null and for a stranger, and back: null for an index outside 1 to count.
    ///@{
    short indexOf(const CDbPointVOR *v) const;
    CDbPointVOR *at(int index) const;
    ///@}
    /// Neighbour in the circle; null when v is not in this chain.
    CDbPointVOR *neighbor(const CDbPointVOR *v, bool forward) const;
    /// The vectors in order; index 1 stands at position 0.
    const std::vector<CDbPointVOR *> &vectors() const { return mVectors; }

private:
    void relink(std::size_t from);

    std::vector<CDbPointVOR *> mVectors;
    CDbPointVOR **mHead;
    GabaritObject *mGabarit;
    CDbGroupObject *mGroup;
    eEnd mEnd;
};

} // namespace VorSystem
