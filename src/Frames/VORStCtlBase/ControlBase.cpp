// What all control objects share: two vectors, a sense of travel, and the way onto a copied piece.

#include <VorFrames/ControlBase.h>

#include "Preconditions.h"

#include <VorConjoin/CDbGroupObject.h>
#include <VorConjoin/CDbPointVOR.h>
#include <VorConjoin/GabaritObject.h>
#include <VorFrames/ControlCenter.h>
#include <VorFrames/ControlSkeleton.h>

namespace VorSystem
{

namespace
{

constexpr char kSourceUnit[] = R"(src\Frames\VORStCtlBase)";

/// A copy of a vector that has not moved counts as the vector.
bool isSameVector(const CDbPointVOR *own, const CDbPointVOR *asked)
{
    return own != nullptr && own->Num_ID().number() == asked->Num_ID().number() &&
           static_cast<const GeoPoint2D &>(*own) == *asked;
}

/// The vector of the same index on the piece of target: among the group's own vectors, else on the contour.
CDbPointVOR *carriedOver(CDbPointVOR *vector, ControlSkeleton *source, ControlSkeleton *target)
{
    if (!vector)
        return nullptr;
    VOR_REQUIRE(source && source->getGroupe() && source->getGabarit());
    VOR_REQUIRE(target && target->getGroupe() && target->getGabarit());
    if (const short index = source->getGroupe()->groupGetVectorIndex(vector))
        return target->getGroupe()->groupGetVectorByIndex(index);
    return target->getGabarit()->gabaritGetContourVector(
        source->getGabarit()->gabaritGetContourIndex(vector));
}

} // namespace

const double ControlBase::Epsilon_Changement = 0.01;

ControlBase::ControlBase(CDbPointVOR *const vector1, CDbPointVOR *const vector2, ControlSkeleton *skeleton)
    : mSelected(true), mVectorContour1(vector1), mVectorContour2(vector2), mSkeleton(skeleton)
{
    ControlBase::calculateContourDirection1To2();
}

ControlBase::ControlBase(CDbPointVOR *const vector1, CDbPointVOR *const vector2, ControlSkeleton *skeleton,
                         bool direction1To2)
    : mVectorContour1(vector1), mVectorContour2(vector2), mContourDirection1To2(direction1To2),
      mSkeleton(skeleton)
{
}

ControlBase::ControlBase(ControlBase *source, ControlSkeleton *target) : mSkeleton(target)
{
    VOR_REQUIRE(source);
    mSelected = source->mSelected;
    mContourDirection1To2 = source->mContourDirection1To2;
    mVectorContour1 = carriedOver(source->mVectorContour1, source->mSkeleton, target);
    mVectorContour2 = carriedOver(source->mVectorContour2, source->mSkeleton, target);
}

ControlBase::~ControlBase() = default;

void ControlBase::calculateContourDirection1To2()
{
    mContourDirection1To2 = false;
    GabaritObject *gabarit = mSkeleton ? mSkeleton->getGabarit() : nullptr;
    if (!gabarit || !mVectorContour1)
        return;

    if (mVectorContour2) {
        double length = 0.0;
        if (mVectorContour2 != mVectorContour1)
            gabarit->contourDirection(mVectorContour1, mVectorContour2, &mContourDirection1To2, &length);
        return;
    }

    const ControlCenter *center = mSkeleton->getFrameCenter();
    if (!center)
        return;
    const auto askTowards = [&](short end) {
        double length = 0.0;
        gabarit->contourDirection(mVectorContour1, center->getVectorContour(end), &mContourDirection1To2,
                                  &length);
        return length;
    };
    const double toVector1 = askTowards(1);
    const double toVector2 = askTowards(2);
    // At equal lengths the sense towards vector 2, asked last, stands.
    if (toVector2 > toVector1)
        askTowards(1);
}

bool ControlBase::containsVector(const CDbPointVOR * /*vector*/)
{
    return false;
}

eMsgConvergence ControlBase::changeMeasureLevel(eMeasureLevel /*kind*/, ValuesAccordingSizes * /*measures*/,
                                                ValuesAccordingSizes * /*levels*/,
                                                const GradationData * /*gradation*/,
                                                eModifyLevelActionType /*action*/)
{
    return Msg_NothingDone;
}

void ControlBase::setSelected(bool selected)
{
    mSelected = selected;
    if (!selected)
        mRegionSelection = false;
}

void ControlBase::setVectorContour(short index, CDbPointVOR *const vector)
{
    (index == 1 ? mVectorContour1 : mVectorContour2) = vector;
}

bool ControlBase::isVectorContour(const CDbPointVOR *const vector) const
{
    VOR_REQUIRE(vector);
    return vector == mVectorContour1 || vector == mVectorContour2 || isSameVector(mVectorContour1, vector) ||
           isSameVector(mVectorContour2, vector);
}

bool ControlBase::isVectorContourOfControl(const CDbPointVOR *const vector) const
{
    VOR_REQUIRE(vector);
    GabaritObject *gabarit = mSkeleton ? mSkeleton->getGabarit() : nullptr;
    if (!gabarit || !mVectorContour1 || !mVectorContour2 || mVectorContour1 == mVectorContour2)
        return false;
    if (isVectorContour(vector) || gabarit->gabaritVectorBetween2Vectors(
                                       vector, mVectorContour1, mVectorContour2, mContourDirection1To2))
        return true;
    CurveObject *curve = nullptr;
    return gabarit->isControlCurveBetween(vector, mVectorContour1, mVectorContour2, mContourDirection1To2,
                                          &curve);
}

} // namespace VorSystem
