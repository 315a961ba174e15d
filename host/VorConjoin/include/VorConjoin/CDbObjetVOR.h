// Root of the persistent objects.
#pragma once

#include <VorConjoin/CDbID.h>

namespace VorSystem
{

/// Something with an identity.
class VORCONJOIN_EXPORT CDbObjetVOR
{
public:
    CDbObjetVOR() = default;
    virtual ~CDbObjetVOR();

    /// The identity; 0 until something gives one.
    const CDbID &Num_ID() const { return mIdentity; }

protected:
    /// A copy takes the identity along.
    ///@{
    CDbObjetVOR(const CDbObjetVOR &) = default;
    CDbObjetVOR &operator=(const CDbObjetVOR &) = default;
    ///@}

    CDbID mIdentity; ///< what Num_ID gives
};

} // namespace VorSystem
