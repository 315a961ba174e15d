// Moving a segment on the piece as it stands: how far its end goes, which part of that each vector takes,
// and the move itself.

#include <VorFrames/ControlSegment.h>

#include "Preconditions.h"
#include "VORStCtlBase/Sizes.h"
#include "ZeroTest.h"

#include <VorConjoin/CurveObject.h>
#include <VorConjoin/IrregularGradationData.h>
#include <VorFrames/ControlCenter.h>
#include <VorFrames/ControlSkeleton.h>

#include <cmath>

namespace VorSystem
{

namespace
{

constexpr char kSourceUnit[] = R"(src\Frames\VORStCtlSegment)";

// A factor that is a mark: the vector keeps the working displacement that the contour operation wrote.
// Deliberate: a vector one segment length before vector 1 has this factor too, and is taken for marked.
constexpr double kOwnDisplacement = -1.0;

} // namespace

CDbPointVOR *ControlSegment::getAttachedNext() const
{
    if (!mVectorContour2 || !gabarit())
        return nullptr;
    const auto isHeld = [this](CDbPointVOR *vector) {
        return mSkeleton->controlFrameisVectorContour(vector) ||
               mSkeleton->controlSegmentisVectorContour(vector) ||
               (center() && center()->isVectorContour(vector));
    };

    CDbPointVOR *vector = mVectorContour2->gabaritNeighborContourVector(mContourDirection1To2);
    while (vector && vector != mVectorContour1 && vector != mVectorContour2) {
        // What lies at the place of vector 2 holds nothing behind it.
        if (isHeld(vector) && lengthAlongSense(mVectorContour2, vector) != 0.0)
            return vector;
        vector = vector->gabaritNeighborContourVector(mContourDirection1To2);
    }
    return nullptr;
}

// The length from a to b in the sense of the segment.
double ControlSegment::lengthAlongSense(const CDbPointVOR *a, const CDbPointVOR *b) const
{
    return mContourDirection1To2 ? gabarit()->contourLengthWithoutDeadZones(a, b)
                                 : gabarit()->contourLengthWithoutDeadZones(b, a);
}

eMsgConvergence ControlSegment::calculateDisplacementContourLine(double target, GeoPoint2D *out)
{
    VOR_REQUIRE(out && gabarit() && mVectorContour1 && mVectorContour2);
    const double length = lengthAlongSense(mVectorContour1, mVectorContour2);
    CDbPointVOR *attachment = nullptr;
    CDbPointVOR *behind = nullptr;
    double lengthToAttachment = 0.0;
    double lengthBehind = 0.0;
    if (center()) {
        attachment = getAttachedNext();
        VOR_REQUIRE(attachment);
        behind = mVectorContour2->gabaritNeighborContourVector(mContourDirection1To2);
        lengthToAttachment = lengthAlongSense(mVectorContour2, attachment);
        lengthBehind = lengthAlongSense(behind, attachment);
    }

    gabarit()->setStretchLength(mVectorContour1, mVectorContour2, target, mContourDirection1To2, true);
    if (attachment != behind) {
        // What the segment gains, the stretch behind it loses in proportion.
        const double remaining = (lengthToAttachment + length - target) * lengthBehind / lengthToAttachment;
        if (!(remaining > 0.0))
            return Msg_Impossible;
        gabarit()->setStretchLength(attachment, behind, remaining, !mContourDirection1To2, false);
    }
    *out = GeoPoint2D(static_cast<double>(mVectorContour2->mDisplacementX),
                      static_cast<double>(mVectorContour2->mDisplacementY));
    return Msg_Converged;
}

eMsgConvergence ControlSegment::calculateMaximumDisplacement(double target, GeoPoint2D *out)
{
    VOR_REQUIRE(out);
    *out = GeoPoint2D(0.0, 0.0);
    const double rest = target - getMeasures(-1);
    if (countsAsZero(rest))
        return Msg_Converged;

    VOR_REQUIRE(mFrameSegment && mVectorContour1 && mVectorContour2);
    switch (mFrameSegment->getDisplace()) {
    case FrameSegment::Displace_AlongX:
        out->setX(mVectorContour2->x() > mVectorContour1->x() ? rest : -rest);
        break;
    case FrameSegment::Displace_AlongY:
        out->setY(mVectorContour2->y() > mVectorContour1->y() ? rest : -rest);
        break;
    case FrameSegment::Displace_AlongLine:
        CDbPointVOR::vectorManagementUnitDist(GeoPoint2D::Point2D_Nul, rest, *mVectorContour2,
                                              *mVectorContour1, *out);
        break;
    case FrameSegment::Displace_AlongContour: {
        // Deliberate: the contour is given the target, not the rest.
        const eMsgConvergence result = calculateDisplacementContourLine(target, out);
        return result == Msg_Converged ? Msg_Moved : result;
    }
    }
    return Msg_Moved;
}

double ControlSegment::getDisplacementFactor(CDbPointVOR *const vector) const
{
    return displacementFactor(vector, getAttachedNext());
}

// attachment is what getAttachedNext() answers: the same for every vector of a move.
double ControlSegment::displacementFactor(CDbPointVOR *vector, CDbPointVOR *attachment) const
{
    VOR_REQUIRE(vector && gabarit() && mVectorContour1 && mVectorContour2 && mFrameSegment);
    double scale = CDbPointVOR::scaleProjeced(*mVectorContour1, *mVectorContour2, *vector);
    if (countsAsZero(scale))
        scale = 0.0;
    if (countsAsZero(scale - 1.0))
        scale = 1.0;
    const bool alongContour = mFrameSegment->getDisplace() == FrameSegment::Displace_AlongContour;
    // Without a center all that lies beyond the influence limit moves as a block. Deliberate: what lies
    // before vector 1 takes a negative part.
    const auto partWithoutCenter = [&] {
        return scale > mFrameSegment->getInfluenceAreaPercent() / 100.0 ? 1.0 : scale;
    };

    GabaritObject *owner = nullptr;
    if (!GabaritObject::groupIsVectorInWhichGabarit(group(), vector, &owner)) {
        bool onBorder = false;
        return !center() && gabarit()->isInPolygon(*vector, &onBorder) ? partWithoutCenter() : 0.0;
    }
    if (owner != gabarit())
        return 0.0;
    if (isVectorContourOfControl(vector))
        return alongContour ? kOwnDisplacement : scale;
    if (!center())
        return partWithoutCenter();
    const bool onStretchBehind = alongContour && attachment &&
                                 gabarit()->isVectorsBetweenTwoPointOfContours(
                                     vector, mVectorContour2, attachment, mContourDirection1To2);
    return onStretchBehind ? kOwnDisplacement : 0.0;
}

void ControlSegment::moveVectorsInTheMediumNoGrade(const GeoPoint2D &displacement, bool shiftSizes)
{
    VOR_REQUIRE(group() && gabarit());
    const VectorsOfGroup vectors(group());
    CDbPointVOR *const attachment = getAttachedNext();
    vectors.each([&](CDbPointVOR *vector) {
        const double factor = displacementFactor(vector, attachment);
        if (factor == kOwnDisplacement)
            return;
        vector->mDisplacementX = static_cast<float>(displacement.x() * factor);
        vector->mDisplacementY = static_cast<float>(displacement.y() * factor);
    });

    // Dependent vectors take theirs from the contour, and pairs and handles from all of that.
    gabarit()->PLI_ctlGabStandardizeEvolutions();
    gabarit()->pICCtlGabStandardizeEvolutions();
    group()->grStandardizeEvolutions();

    if (shiftSizes)
        vectors.each([](CDbPointVOR *vector) { keepOtherSizes(vector); });
    vectors.each([](CDbPointVOR *vector) {
        *vector = GeoPoint2D(vector->x() + static_cast<double>(vector->mDisplacementX),
                             vector->y() + static_cast<double>(vector->mDisplacementY));
    });
    CurveObject::recalculateCurvesControl(group(), gabarit());
}

// The nest is about to move by the working displacement; the places in the other sizes stay.
void ControlSegment::keepOtherSizes(CDbPointVOR *vector)
{
    IrregularGradationData *grading = vector->mIrregularGradation;
    VOR_REQUIRE(grading);
    const short count = grading->size();
    for (short number = 1; number <= count; ++number) {
        if (number == grading->indexMedium())
            continue;
        const t_0_Based size{t_1_Based(number)};
        const GeoPoint2D evolution = grading->getGradation(size);
        grading->setGradation(size, GeoPoint2D(evolution.x() - static_cast<double>(vector->mDisplacementX),
                                               evolution.y() - static_cast<double>(vector->mDisplacementY)));
    }
}

} // namespace VorSystem
