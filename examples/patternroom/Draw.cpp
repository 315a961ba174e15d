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

// The point of each piece at which it is laid on top of others.
std::vector<const CDbPointVOR *> stackPoints(const PatternDocument &document, const DrawOptions &options)
{
    std::vector<const CDbPointVOR *> points;
    if (options.stack.isEmpty())
        return points;
    for (const CDbGroupObject *piece : document.pieces())
        points.push_back(findPoint(piece, options.stack, options.style));
    return points;
}

// Puts the sizes of every piece on top of each other.
void stackSizes(PatternDocument &document, const std::vector<const CDbPointVOR *> &points)
{
    const short nest = GradationData::nestNumber(document.gradationData());
    for (const CDbPointVOR *point : points) {
        const CDbGroupObject *piece = point->group();
        const std::vector<Evolution> shift = evolutionsOf(*point, document);
        for (GradedPoint &graded : gradedPoints(piece, document)) {
            for (std::size_t size = 0; size < shift.size(); ++size) {
                graded.evolutions[size].x -= shift[size].x;
                graded.evolutions[size].y -= shift[size].y;
            }
            graded.point->setEvolutions(graded.evolutions, nest);
        }
    }
}

QStringList askedSizes(const PatternDocument &document, const QString &wanted)
{
    QStringList asked;
    for (const QString &part : wanted.split(QLatin1Char(';'), Qt::SkipEmptyParts)) {
        const QString name = part.trimmed();
        if (!document.sizeNames().contains(name))
            throw Refusal(
                QStringLiteral("There is no size '%1'.%2").arg(name, nearest(name, document.sizeNames())));
        asked << name;
    }
    if (asked.isEmpty())
        throw Refusal(QStringLiteral("'%1' names no size.").arg(wanted), Exit_Usage);
    return asked;
}

// Leaves only the named sizes, the nest always among them.
void chooseSizes(PatternDocument &document, const QStringList &asked)
{
    const QStringList all = document.sizeNames();
    std::vector<std::size_t> kept;
    QStringList names;
    const int nest = nestIndex(document);
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

DocumentPtr opened(const QString &path, const DrawOptions &options)
{
    DocumentPtr document = openDocument(path);
    if (!options.piece.isEmpty())
        choosePiece(*document, options.piece);
    return document;
}

QByteArray nestOf(PatternDocument &document, const DrawOptions &options)
{
    DrawingOptions wish;
    wish.withSkeletons = !options.isBare;
    wish.stacks = stackPoints(document, options);
    stackSizes(document, wish.stacks);
    if (!options.sizes.isEmpty())
        chooseSizes(document, askedSizes(document, options.sizes));
    return drawDocument(document, wish);
}

// Only sizes and pieces that both have can lie on top of each other.
void requireMatch(const PatternDocument &before, const PatternDocument &after, const DrawOptions &options)
{
    const QString both = QStringLiteral("'%1' and '%2'").arg(options.before, options.document);
    if (before.sizeNames() != after.sizeNames() || nestIndex(before) != nestIndex(after))
        throw Refusal(QStringLiteral("%1 have different sizes.").arg(both));
    for (const CDbGroupObject *piece : after.pieces()) {
        if (static_cast<const Document &>(before).plan()->groupByName(piece->name()))
            return;
    }
    throw Refusal(QStringLiteral("%1 have no piece of the same name.").arg(both));
}

// Moves the pieces so that their points come to lie on those of the same numbers after.
void layOnto(PatternDocument &before, const PatternDocument &after, short size,
             const std::vector<const CDbPointVOR *> &points)
{
    for (const CDbPointVOR *point : points) {
        const CDbGroupObject *piece = before.plan().groupByName(point->group()->name());
        if (!piece)
            continue; // there is only the piece after
        const CDbPointVOR *same = piece->vectorOfIdentity(point->Num_ID().number());
        if (!same)
            throw Refusal(QStringLiteral("'%1' had no point #%2 before.")
                              .arg(piece->name(), QString::number(point->Num_ID().number())));
        const GeoPoint2D to = point->positionInSize(size, after.gradationData());
        const GeoPoint2D from = same->positionInSize(size, before.gradationData());
        for (CDbPointVOR *moved : pointsOf(piece))
            *moved = GeoPoint2D(moved->x() + to.x() - from.x(), moved->y() + to.y() - from.y());
    }
}

QByteArray changeOf(PatternDocument &before, const PatternDocument &after, const DrawOptions &options)
{
    requireMatch(before, after, options);
    short size = GradationData::nestNumber(after.gradationData());
    if (!options.sizes.isEmpty()) {
        const QStringList asked = askedSizes(after, options.sizes);
        if (asked.size() > 1)
            throw Refusal(QStringLiteral("With --before one size is drawn: name one in --sizes."),
                          Exit_Usage);
        size = static_cast<short>(after.sizeNames().indexOf(asked.first()) + 1);
    }
    DrawingOptions wish;
    wish.withSkeletons = !options.isBare;
    wish.stacks = stackPoints(after, options);
    layOnto(before, after, size, wish.stacks);
    return drawOverlay(before, after, size, wish);
}

} // namespace

int draw(const DrawOptions &options)
{
    const DocumentPtr document = opened(options.document, options);
    const QByteArray drawing = options.before.isEmpty()
                                   ? nestOf(*document, options)
                                   : changeOf(*opened(options.before, options), *document, options);
    if (options.output.isEmpty())
        options.console->print(QString::fromUtf8(drawing));
    else
        storeText(drawing, options.output);
    return Exit_Done;
}

} // namespace room
