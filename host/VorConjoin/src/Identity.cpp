// Identities, and the search for them.

#include <VorConjoin/CDbGroupObject.h>
#include <VorConjoin/CDbID.h>
#include <VorConjoin/CDbObjetVOR.h>
#include <VorConjoin/SeekingObjectVOR.h>
#include <VorJson/VorJson.h>

namespace VorSystem
{

CDbID::~CDbID() = default;

CDbObjetVOR::~CDbObjetVOR() = default;

XJsonObject CDbID::toJson() const
{
    XJsonObject object;
    object.insert(QStringLiteral("id"), XJsonValue(mNumber));
    return object;
}

void CDbID::fromJson(const XJsonObject &object)
{
    mNumber = object.value(QStringLiteral("id")).toInt(0);
}

bool SeekingObjectVOR::objectAccordingID(const CDbGroupObject *group, CDbID identity, CDbPointVOR **vector,
                                         bool)
{
    CDbPointVOR *found = group ? group->vectorOfIdentity(identity.number()) : nullptr;
    if (vector)
        *vector = found;
    return found != nullptr;
}

} // namespace VorSystem
