// Pieces of drafted nests: block patterns in a row of sizes, vertex for vertex.
#pragma once

#include <support/Pieces.h>

#include <QString>

#include <vector>

namespace support
{

/// One piece of a nest file, ready to be made as often as it is needed.
struct NestPiece {
    QString name;
    /// The outline in contour order, y upwards, centimetres; one place per size, smallest first.
    struct Vertex {
        std::vector<VorSystem::GeoPoint2D> places;
        int kind = 0;
        bool openingOfDart = false; ///< a dart opens between this vertex and the next
    };
    /// A dart behind the vertex of that number: its pivot and the inner points of its legs, from the pivot
    /// outwards.
    struct Dart {
        std::size_t behind = 0;
        std::vector<VorSystem::GeoPoint2D> pivot;
        std::vector<std::vector<VorSystem::GeoPoint2D>> firstLeg;
        std::vector<std::vector<VorSystem::GeoPoint2D>> secondLeg;
    };
    std::vector<Vertex> vertices;
    std::vector<Dart> darts;
    VorSystem::GradationData gradation;

    Piece make() const;
};

/// The pieces of a nest file; empty when it cannot be read. Curves become chains of curve points.
std::vector<NestPiece> readNest(const QString &path);

} // namespace support
