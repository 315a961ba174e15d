#include "Inspection.h"

#include <VorConjoin/CDbGroupObject.h>
#include <VorConjoin/CDbPointVOR.h>
#include <VorConjoin/DartContour.h>
#include <VorConjoin/GabaritObject.h>
#include <VorConjoin/GradationData.h>
#include <VorGeo/GeoSegment2D.h>

#include <algorithm>
#include <cmath>
#include <vector>

namespace moves
{

using namespace VorSystem;

namespace
{

// The contour with its darts open: the pivot stands for the cap.
std::vector<GeoPoint2D> outline(const GabaritObject &gabarit, short size, const GradationData *gradation)
{
    std::vector<GeoPoint2D> places;
    for (CDbPointVOR *v : gabarit.contourVectors()) {
        DartContour *dart = nullptr;
        short role = 0;
        const bool isCap = gabarit.pICGabIsWhichDart(v, &dart, &role) && role == Dart_Cap;
        places.push_back((isCap ? dart->mPivotVector : v)->positionInSize(size, gradation));
    }
    return places;
}

} // namespace

double largestLegDifference(const CDbGroupObject &piece, const GradationData *gradation)
{
    double largest = 0.0;
    for (const GabaritObject *gabarit = piece.firstGabarit(); gabarit; gabarit = gabarit->mNextGabarit) {
        for (const DartContour *dart = gabarit->mFirstDart; dart; dart = dart->mNextDart) {
            for (short size = 1; size <= GradationData::sizes(gradation); ++size) {
                const auto at = [&](eDartRole role) {
                    return dart->pICGetVector(role)->positionInSize(size, gradation);
                };
                const GeoPoint2D pivot = at(Dart_Pivot);
                largest = std::max(largest, std::abs(pivot.distance(at(Dart_FirstLeg)) -
                                                     pivot.distance(at(Dart_SecondLeg))));
            }
        }
    }
    return largest;
}

int crossings(const CDbGroupObject &piece, const GradationData *gradation)
{
    int found = 0;
    for (const GabaritObject *gabarit = piece.firstGabarit(); gabarit; gabarit = gabarit->mNextGabarit) {
        for (short size = 1; size <= GradationData::sizes(gradation); ++size) {
            const std::vector<GeoPoint2D> places = outline(*gabarit, size, gradation);
            const auto edge = [&](std::size_t from) {
                return GeoSegment2D(places[from], places[(from + 1) % places.size()]);
            };
            for (std::size_t one = 0; one < places.size(); ++one) {
                for (std::size_t other = one + 2; other < places.size(); ++other) {
                    const bool areNeighbours = one == 0 && other + 1 == places.size();
                    GeoPoint2D place;
                    if (!areNeighbours &&
                        GeoSegment2D::intersectEndpoint(edge(one), edge(other), place) != GeoSegment2D::Apart)
                        ++found;
                }
            }
        }
    }
    return found;
}

} // namespace moves
