#include "VORStCtlFrame/OppositeVector.h"

#include "Preconditions.h"
#include "ZeroTest.h"

#include <VorConjoin/CDbPointVOR.h>
#include <VorConjoin/GabaritObject.h>
#include <VorFrames/ControlCenter.h>
#include <VorFrames/ControlSkeleton.h>

#include <limits>

namespace VorSystem
{

namespace
{

constexpr char kSourceUnit[] = R"(src\Frames\VORStCtlFrame)";

constexpr double kNearCrossing = 0.1; // cm: a line that meets the axis farther off faces another frame

} // namespace

CDbPointVOR *findOppositeContourVector(const CDbPointVOR *v, const CDbPointVOR *crossing,
                                       const ControlSkeleton *skeleton)
{
    if (CDbPointVOR::equalVector(*v, *crossing))
        return nullptr;

    const ControlCenter *center = skeleton->getFrameCenter();
    VOR_REQUIRE(center && center->getVectorContour1() && center->getVectorContour2());
    const GeoPoint2D &center1 = *center->getVectorContour1();
    const GeoPoint2D &center2 = *center->getVectorContour2();
    const double length = center1.distance(center2);
    GeoPoint2D axisStart;
    GeoPoint2D axisEnd;
    CDbPointVOR::vectorManagementUnitDist(center1, length, center1, center2, axisStart);
    CDbPointVOR::vectorManagementUnitDist(center2, length, center2, center1, axisEnd);

    CDbPointVOR *opposite = nullptr;
    double nearest = std::numeric_limits<double>::max();
    double farthest = 0.0;
    GabaritObject *gabarit = skeleton->getGabarit();
    CDbPointVOR *const start = gabarit->gabaritFirstContourVector();
    for (CDbPointVOR *candidate = start; candidate;) {
        GeoPoint2D meeting;
        if (CDbPointVOR::interSegments(*v, *candidate, axisStart, axisEnd, meeting) &&
            !CDbPointVOR::equalVector(*candidate, meeting)) {
            const double off = crossing->distance(meeting);
            const double away = v->distance(*candidate);
            const bool better = countsAsZero(off - nearest) ? away > farthest : off < nearest;
            if (off < kNearCrossing && better) {
                opposite = candidate;
                nearest = off;
                farthest = away;
            }
        }
        candidate = gabarit->gabaritNextContourVector();
        if (candidate == start)
            break;
    }
    return opposite;
}

} // namespace VorSystem
