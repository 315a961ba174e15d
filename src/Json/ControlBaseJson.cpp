// What all control objects store: their vectors, by identity, and the sense of travel.

#include "Preconditions.h"

#include <VorConjoin/CDbPointVOR.h>
#include <VorConjoin/SeekingObjectVOR.h>
#include <VorFrames/ControlBase.h>
#include <VorFrames/ControlSkeleton.h>
#include <VorJson/VorJson.h>

namespace VorSystem
{

namespace
{

constexpr char kSourceUnit[] = R"(src\Json\ControlBaseJson)";

// An empty object stands for no vector; the host never writes an identity as one.
XJsonObject identityToJson(const CDbPointVOR *vector)
{
    return vector == nullptr ? XJsonObject() : vector->Num_ID().toJson();
}

// The vector of the stored identity; null without a group to seek in.
CDbPointVOR *findPointFromIndex(const XJsonObject &object, CDbGroupObject *group)
{
    if (group == nullptr)
        return nullptr;

    CDbID identity;
    identity.fromJson(object);
    CDbPointVOR *vector = nullptr;
    SeekingObjectVOR::objectAccordingID(group, identity, &vector, true);
    if (vector == nullptr)
        unexpectedData(kSourceUnit, __LINE__, BOOST_CURRENT_FUNCTION);
    return vector;
}

} // namespace

XJsonObject ControlBase::toJson() const
{
    XJsonArray points;
    points.append(identityToJson(mVectorContour1));
    points.append(identityToJson(mVectorContour2));

    XJsonObject object;
    object.insert(QStringLiteral("direction"), mContourDirection1To2);
    object.insert(QStringLiteral("points"), points);
    return object;
}

void ControlBase::fromJson(const XJsonObject &object)
{
    VOR_REQUIRE(mSkeleton != nullptr);

    const XJsonArray points = object.value(QStringLiteral("points")).toArray();
    const int count = points.size();
    for (int i = 0; i < count; ++i) {
        const XJsonObject identity = points.at(i).toObject();
        if (identity.isEmpty())
            continue;
        // Deliberate: whatever follows the first entry goes to vector 2, so the last of them stays.
        (i == 0 ? mVectorContour1 : mVectorContour2) = findPointFromIndex(identity, mSkeleton->getGroupe());
    }

    // As it stands: the sense of travel is a user's choice, not a result of the vectors.
    mContourDirection1To2 = object.value(QStringLiteral("direction")).toBool(false);
}

} // namespace VorSystem
