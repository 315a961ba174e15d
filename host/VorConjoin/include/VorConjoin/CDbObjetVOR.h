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

    const CDbID &Num_ID() const { return mIdentity; }

protected:
    CDbObjetVOR(const CDbObjetVOR &) = default;
    CDbObjetVOR &operator=(const CDbObjetVOR &) = default;

    CDbID mIdentity;
};

} // namespace VorSystem
