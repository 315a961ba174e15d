// Pieces of drafted nests: block patterns in a row of sizes, vertex for vertex.

#include <support/NestPieces.h>

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace support
{

using namespace VorSystem;

namespace
{

using Places = std::vector<GeoPoint2D>; // one per size

constexpr double kCentimetresPerUnit = 0.1; // the files are in millimetres, y downwards
constexpr int kPartsPerCurve = 6;
constexpr double kCapHeight = 0.5; // cm outside the mouth

Places readPlaces(const QJsonValue &value)
{
    Places places;
    const QJsonArray sizes = value.toArray();
    for (const QJsonValue &place : sizes) {
        const QJsonArray xy = place.toArray();
        places.emplace_back(xy.at(0).toDouble() * kCentimetresPerUnit,
                            -xy.at(1).toDouble() * kCentimetresPerUnit);
    }
    return places;
}

/// An edge as the points that follow its start, the end last.
std::vector<Places> pointsOfEdge(const Places &start, const QJsonObject &edge)
{
    const Places end = readPlaces(edge.value(QLatin1String("xy")));
    std::vector<Places> points;
    if (edge.value(QLatin1String("type")).toString() == QLatin1String("curve")) {
        const Places control1 = readPlaces(edge.value(QLatin1String("cp1")));
        const Places control2 = readPlaces(edge.value(QLatin1String("cp2")));
        for (int part = 1; part < kPartsPerCurve; ++part) {
            const double t = double(part) / kPartsPerCurve;
            const double s = 1.0 - t;
            Places places;
            for (std::size_t size = 0; size < end.size(); ++size) {
                const auto at = [&](auto coordinate) {
                    return s * s * s * coordinate(start[size]) +
                           3.0 * s * s * t * coordinate(control1[size]) +
                           3.0 * s * t * t * coordinate(control2[size]) + t * t * t * coordinate(end[size]);
                };
                places.emplace_back(at([](const GeoPoint2D &p) { return p.x(); }),
                                    at([](const GeoPoint2D &p) { return p.y(); }));
            }
            points.push_back(places);
        }
    }
    points.push_back(end);
    return points;
}

bool isEmptyEdge(const Places &start, const Places &end)
{
    return std::equal(start.begin(), start.end(), end.begin(), end.end());
}

NestPiece readPiece(const QJsonObject &object, const GradationData &gradation)
{
    NestPiece piece;
    piece.name = object.value(QLatin1String("name")).toString();
    piece.gradation = gradation;
    Places at = readPlaces(object.value(QLatin1String("start")).toObject().value(QLatin1String("xy")));
    piece.vertices.push_back({at, Vector_Corner, false});
    const QJsonArray edges = object.value(QLatin1String("edges")).toArray();
    for (int edge = 0; edge < edges.size(); ++edge) {
        const QJsonObject current = edges.at(edge).toObject();
        std::vector<Places> points = pointsOfEdge(at, current);
        if (isEmptyEdge(at, points.back()))
            continue;
        if (current.value(QLatin1String("to")).toString().endsWith(QLatin1String("Tip")) &&
            edge + 1 < edges.size()) {
            // Two edges over the tip of a dart: a mouth on the contour, the tip inside.
            NestPiece::Dart dart;
            dart.behind = piece.vertices.size() - 1;
            dart.pivot = points.back();
            points.pop_back();
            std::reverse(points.begin(), points.end());
            dart.firstLeg = points;
            std::vector<Places> second = pointsOfEdge(dart.pivot, edges.at(++edge).toObject());
            at = second.back();
            second.pop_back();
            dart.secondLeg = second;
            piece.vertices.back().openingOfDart = true;
            piece.vertices.push_back({at, Vector_Corner, false});
            piece.darts.push_back(dart);
            continue;
        }
        for (std::size_t point = 0; point < points.size(); ++point)
            piece.vertices.push_back(
                {points[point], point + 1 < points.size() ? Vector_Curve : Vector_Corner, false});
        at = points.back();
    }
    // The last edge closes the contour.
    if (isEmptyEdge(piece.vertices.front().places, piece.vertices.back().places))
        piece.vertices.pop_back();
    return piece;
}

std::vector<Evolution> evolutionsOf(const Places &places, int nest)
{
    std::vector<Evolution> evolutions;
    for (const GeoPoint2D &place : places)
        evolutions.push_back({place.x() - places[static_cast<std::size_t>(nest)].x(),
                              place.y() - places[static_cast<std::size_t>(nest)].y()});
    return evolutions;
}

Places capOf(const NestPiece::Vertex &first, const NestPiece::Vertex &second, const Places &pivot)
{
    Places cap;
    for (std::size_t size = 0; size < pivot.size(); ++size) {
        const GeoPoint2D middle((first.places[size].x() + second.places[size].x()) / 2.0,
                                (first.places[size].y() + second.places[size].y()) / 2.0);
        GeoPoint2D place;
        CDbPointVOR::vectorManagementUnitDist(middle, kCapHeight, middle, pivot[size], place);
        cap.push_back(place);
    }
    return cap;
}

} // namespace

Piece NestPiece::make() const
{
    const int nest = gradation.mediumIndex() - 1;
    Piece piece;
    piece.group = std::make_unique<CDbGroupObject>(name);
    piece.gabarit = piece.group->newGabarit();
    const auto grade = [&](CDbPointVOR *vector, const Places &places) {
        vector->setEvolutions(evolutionsOf(places, nest), gradation.mediumIndex());
        return vector;
    };
    const auto inner = [&](const Places &places, int kind) {
        return grade(piece.group->addOwnVector(places[static_cast<std::size_t>(nest)], kind), places);
    };

    struct Mouth {
        CDbPointVOR *first;
        CDbPointVOR *cap;
    };
    std::vector<Mouth> mouths;
    for (std::size_t place = 0; place < vertices.size(); ++place) {
        const Vertex &vertex = vertices[place];
        CDbPointVOR *vector =
            grade(piece.gabarit->addContourVector(vertex.places[static_cast<std::size_t>(nest)], vertex.kind),
                  vertex.places);
        if (!vertex.openingOfDart)
            continue;
        const Places cap = capOf(vertex, vertices[place + 1], darts[mouths.size()].pivot);
        mouths.push_back({vector, grade(piece.gabarit->addContourVector(cap[static_cast<std::size_t>(nest)],
                                                                        Vector_DartCap),
                                        cap)});
    }
    for (std::size_t number = 0; number < darts.size(); ++number) {
        const Dart &dart = darts[number];
        std::vector<CDbPointVOR *> legs[2];
        for (const Places &places : dart.firstLeg)
            legs[0].push_back(inner(places, Vector_DartInner));
        for (const Places &places : dart.secondLeg)
            legs[1].push_back(inner(places, Vector_DartInner));
        CDbPointVOR *second = piece.gabarit->neighbor(mouths[number].cap, true);
        DartContour *made = piece.group->addDart(piece.gabarit, mouths[number].first, mouths[number].cap,
                                                 second, inner(dart.pivot, Vector_Corner), legs[0], legs[1]);
        if (!piece.dart)
            piece.dart = made;
    }
    piece.contour = piece.gabarit->contourVectors();
    return piece;
}

std::vector<NestPiece> readNest(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QJsonObject nest = QJsonDocument::fromJson(file.readAll()).object();
    const QJsonArray sizes = nest.value(QLatin1String("sizes")).toArray();
    int base = 0;
    while (base < sizes.size() && sizes.at(base) != nest.value(QLatin1String("base")))
        ++base;
    const GradationData gradation(static_cast<short>(sizes.size()), static_cast<short>(base + 1));
    std::vector<NestPiece> pieces;
    const QJsonArray objects = nest.value(QLatin1String("pieces")).toArray();
    for (const QJsonValue &object : objects)
        pieces.push_back(readPiece(object.toObject(), gradation));
    return pieces;
}

} // namespace support
