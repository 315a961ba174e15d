// Drawings: a nest, a choice of its sizes, stacked on a point, or two states on top of each other.
#include "Commands.h"

#include <VorConjoin/VorConjoin.h>

#include <algorithm>

namespace room
{

using namespace VorSystem;

namespace
{

// Evolutions of a vector in every size, as they stand.
std::vector<Evolution> evolutionsOf(const CDbPointVOR &point, const PatternDocument &document)
{
    std::vector<Evolution> evolutions;
    const GeoPoint2D nest =
        point.positionInSize(GradationData::nestNumber(document.gradationData()), document.gradationData());
    for (int size = 1; size <= sizeCount(document); ++size) {
        const GeoPoint2D place = point.positionInSize(static_cast<short>(size), document.gradationData());
        evolutions.push_back({place.x() - nest.x(), place.y() - nest.y()});
    }
    return evolutions;
}

struct GradedPoint {
    CDbPointVOR *point;
    std::vector<Evolution> evolutions;
};

std::vector<GradedPoint> gradedPoints(const CDbGroupObject *piece, const PatternDocument &document)
{
    std::vector<GradedPoint> points;
    for (CDbPointVOR *point : pointsOf(piece))
        points.push_back({point, evolutionsOf(*point, document)});
    return points;
}

// Puts the sizes of every piece on top of each other at one point.
void stackSizes(PatternDocument &document, const DrawOptions &options)
{
    const short nest = GradationData::nestNumber(document.gradationData());
    for (const CDbGroupObject *piece : document.pieces()) {
        if (!options.piece.isEmpty() && !Noms_Identiques(piece->name(), options.piece))
            continue;
        const CDbPointVOR *on = findPoint(piece, options.stack, options.style);
        const std::vector<Evolution> shift = evolutionsOf(*on, document);
        for (GradedPoint &graded : gradedPoints(piece, document)) {
            for (std::size_t size = 0; size < shift.size(); ++size) {
                graded.evolutions[size].x -= shift[size].x;
                graded.evolutions[size].y -= shift[size].y;
            }
            graded.point->setEvolutions(graded.evolutions, nest);
        }
    }
}

// Leaves only the named sizes, the nest always among them.
void chooseSizes(PatternDocument &document, const QString &wanted)
{
    const QStringList all = document.sizeNames();
    std::vector<std::size_t> kept;
    QStringList names;
    const int nest = nestIndex(document);
    QStringList asked;
    for (const QString &name : wanted.split(QLatin1Char(';'), Qt::SkipEmptyParts)) {
        if (!all.contains(name.trimmed()))
            throw Refusal(QStringLiteral("There is no size '%1'.%2").arg(name, nearest(name, all)));
        asked << name.trimmed();
    }
    int newNest = 0;
    for (int size = 0; size < all.size(); ++size) {
        if (size != nest && !asked.contains(all.at(size)))
            continue;
        kept.push_back(static_cast<std::size_t>(size));
        names << all.at(size);
        if (size == nest)
            newNest = names.size();
    }

    std::vector<GradedPoint> points;
    for (const CDbGroupObject *piece : document.pieces()) {
        const std::vector<GradedPoint> ofPiece = gradedPoints(piece, document);
        points.insert(points.end(), ofPiece.begin(), ofPiece.end());
    }
    document.setSizes(names, static_cast<short>(newNest));
    for (const GradedPoint &graded : points) {
        std::vector<Evolution> chosen;
        for (const std::size_t size : kept)
            chosen.push_back(graded.evolutions[size]);
        graded.point->setEvolutions(chosen, static_cast<short>(newNest));
    }
}

void choosePiece(PatternDocument &document, const QString &name)
{
    const CDbGroupObject *wanted = findPiece(document, name);
    const std::vector<CDbGroupObject *> pieces = document.pieces();
    for (CDbGroupObject *piece : pieces) {
        if (piece != wanted)
            document.removePiece(piece);
    }
}

DocumentPtr prepared(const QString &path, const DrawOptions &options)
{
    DocumentPtr document = openDocument(path);
    if (!options.piece.isEmpty())
        choosePiece(*document, options.piece);
    if (!options.stack.isEmpty())
        stackSizes(*document, options);
    if (!options.sizes.isEmpty())
        chooseSizes(*document, options.sizes);
    return document;
}

} // namespace

int draw(const DrawOptions &options)
{
    const DocumentPtr document = prepared(options.document, options);
    QByteArray drawing;
    if (options.before.isEmpty()) {
        DrawingOptions wish;
        wish.withSkeletons = !options.isBare;
        drawing = drawDocument(*document, wish);
    } else {
        drawing = drawOverlay(*prepared(options.before, options), *document);
    }
    if (options.output.isEmpty())
        options.console->print(QString::fromUtf8(drawing));
    else
        storeText(drawing, options.output);
    return Exit_Done;
}

} // namespace room
