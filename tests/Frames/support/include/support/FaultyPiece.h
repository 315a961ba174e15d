// A piece whose host fails or throws at its n-th call.
#pragma once

#include <support/ControlledPiece.h>

#include <stdexcept>

namespace support
{

/// Counts the calls of virtual operations and strikes at one of them.
class Faults
{
public:
    enum eManner { Fail, Throw };

    /// Strikes at the call of that number, counted from now.
    void strikeAt(int call, eManner manner)
    {
        mCalls = 0;
        mStrikeAt = call;
        mManner = manner;
    }
    void rest() { mStrikeAt = 0; }
    bool hasStruck() const { return mStrikeAt > 0 && mCalls >= mStrikeAt; }

    /// True when this call is to answer as a failure does; throws when it is to throw.
    bool strikes()
    {
        if (++mCalls != mStrikeAt)
            return false;
        if (mManner == Throw)
            throw std::runtime_error("fault");
        return true;
    }

private:
    int mCalls = 0;
    int mStrikeAt = 0;
    eManner mManner = Fail;
};

class FaultyGabarit final : public VorSystem::GabaritObject
{
public:
    explicit FaultyGabarit(Faults *faults) : mFaults(faults) {}

    bool moveVectorAlongContour(VorSystem::CDbPointVOR *from, VorSystem::CDbPointVOR *to,
                                VorSystem::CDbPointVOR *limit, const VorSystem::GeoPoint2D *axisA,
                                const VorSystem::GeoPoint2D *axisB, double distance) override
    {
        return !mFaults->strikes() &&
               GabaritObject::moveVectorAlongContour(from, to, limit, axisA, axisB, distance);
    }
    void contourDirection(const VorSystem::CDbPointVOR *a, const VorSystem::CDbPointVOR *b, bool *forward,
                          double *length) override
    {
        if (!mFaults->strikes())
            GabaritObject::contourDirection(a, b, forward, length);
    }
    double measureBetween(VorSystem::CDbGroupObject *group, const VorSystem::CDbPointVOR *a,
                          const VorSystem::CDbPointVOR *b, bool forMeasure) override
    {
        return mFaults->strikes() ? 0.0 : GabaritObject::measureBetween(group, a, b, forMeasure);
    }
    void setStretchLength(VorSystem::CDbPointVOR *a, VorSystem::CDbPointVOR *b, double length, bool forward,
                          bool mainStretch) override
    {
        if (!mFaults->strikes())
            GabaritObject::setStretchLength(a, b, length, forward, mainStretch);
    }
    void recalculateCurves(VorSystem::CDbPointVOR *from, VorSystem::CDbPointVOR *to) override
    {
        if (!mFaults->strikes())
            GabaritObject::recalculateCurves(from, to);
    }

private:
    Faults *mFaults;
};

class FaultyGroup final : public VorSystem::CDbGroupObject
{
public:
    explicit FaultyGroup(Faults *faults) : mFaults(faults) {}

    void againObjects(bool gradationDefined, const VorSystem::GradationData *gradation, bool all) override
    {
        if (!mFaults->strikes())
            CDbGroupObject::againObjects(gradationDefined, gradation, all);
    }

private:
    Faults *mFaults;
};

/// The rectangle of RectangleUnderControl on a faulty host, with one inner vector.
inline Piece faultyRectangle(Faults *faults)
{
    using namespace VorSystem;
    const Piece model = rectangle(40.0, 60.0, 6, 1.0);
    Piece made;
    made.group = std::make_unique<FaultyGroup>(faults);
    made.gabarit = new FaultyGabarit(faults);
    made.group->addGabarit(made.gabarit);
    for (const CDbPointVOR *vector : model.contour) {
        const RegularSteps steps = vector->regularSteps();
        made.contour.push_back(made.gabarit->addContourVector(*vector, vector->mVectorKind, &steps));
    }
    made.group->addOwnVector(GeoPoint2D(30.0, 32.0));
    return made;
}

} // namespace support
