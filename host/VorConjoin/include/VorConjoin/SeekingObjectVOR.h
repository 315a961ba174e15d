// Looking vectors up by identity.
#pragma once

#include <VorConjoin/CDbID.h>
#include <VorConjoin/VorConjoinExport.h>

namespace VorSystem
{

class CDbGroupObject;
class CDbPointVOR;

/// Seeks among the vectors of a group, on contours and own.
class VORCONJOIN_EXPORT SeekingObjectVOR
{
public:
    /// True when the group holds a vector of this identity; *vector is that one, else null.
    static bool objectAccordingID(const CDbGroupObject *group, CDbID identity, CDbPointVOR **vector,
                                  bool = true);
};

} // namespace VorSystem
