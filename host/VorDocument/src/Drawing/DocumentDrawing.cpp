// The nest of a document on one sheet.

#include "SheetLayout.h"
#include "SkeletonDrawing.h"

#include <VorConjoin/CDbGroupObject.h>
#include <VorConjoin/CDbPointVOR.h>
#include <VorConjoin/DartContour.h>
#include <VorConjoin/GabaritObject.h>
#include <VorConjoin/GradationData.h>
#include <VorConjoin/Mirror.h>
#include <VorDocument/DocumentDrawing.h>
#include <VorDocument/PatternDocument.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace VorSystem
{

namespace
{

constexpr double kSizeLabel = 4.0;     // mm high at most; less where sizes lie close
constexpr double kRoomForLabels = 2.4; // mm between neighbouring sizes

// Smaller than the nest in cold colours, larger in warm ones; dashes tell them apart on a black and white
// print.
constexpr std::array<const char *, 6> kColours = {"#1f4e9c", "#c0392b", "#12806a",
                                                  "#d9730d", "#6b3fa0", "#a8862a"};
constexpr std::array<const char *, 6> kDashes = {"none", "9 2.5", "5 2", "9 2 2 2", "2 1.6", "9 2 2 2 2 2"};

const char kStyle[] = R"(
 .sheet { fill: #ffffff }
 path, circle { fill: none; stroke: #1a1a1a; stroke-width: 0.35; stroke-linejoin: round; stroke-linecap: round }
 text { font-family: 'DejaVu Sans', 'Liberation Sans', Arial, sans-serif; fill: #1a1a1a }
 path.face { fill: #faf6ec; stroke: none }
 .base path.seam, .base path.leg, .base path.notch { stroke: #000000; stroke-width: 1.1 }
 .base text.small { fill: #000000; font-weight: bold }
 .stack path { stroke: #000000; stroke-width: 0.8 }
 path.cap { stroke-width: 0.4; stroke-dasharray: 2 2 }
 path.cut { stroke: #7a7a7a; stroke-width: 0.55; stroke-dasharray: 12 3 2 3 }
 path.inner { stroke: #555555; stroke-width: 0.4; stroke-dasharray: 6 3 }
 path.grain, path.fold { stroke-width: 0.7 }
 path.arrow { fill: #1a1a1a; stroke: none }
 path.mirror { stroke: #777777; stroke-width: 0.4; stroke-dasharray: 14 3 2 3 }
 path.mark { stroke-width: 0.6 }
 text.name { font-weight: bold }
 text.name, text.small { paint-order: stroke; stroke: #ffffff; stroke-opacity: 0.8; stroke-width: 1.6px }
 text.heading { font-weight: bold; letter-spacing: 0.5px }
 text.small { fill: #444444 }
)";

short nestOf(const PatternDocument &document)
{
    return GradationData::nestNumber(document.gradationData());
}

short sizeCountOf(const PatternDocument &document)
{
    return GradationData::sizes(document.gradationData());
}

// How a size is drawn. Colours come again after six, with other dashes: 36 sizes look different, and
// neighbours never share a colour.
struct Looks {
    const char *colour;
    const char *dashes;
};

Looks looksOf(short size, short nest)
{
    const auto rank = static_cast<std::size_t>(size < nest ? size - 1 : size - 2);
    return {kColours[rank % kColours.size()], kDashes[(rank + rank / kColours.size()) % kDashes.size()]};
}

QByteArray styleOf(const PatternDocument &document)
{
    QByteArray style = QByteArray(kStyle) + kSkeletonStyle;
    for (short size = 1; size <= sizeCountOf(document); ++size) {
        if (size == nestOf(document))
            continue;
        const Looks looks = looksOf(size, nestOf(document));
        const QByteArray number = QByteArray::number(size);
        style += " .size-" + number + " path { stroke: " + looks.colour +
                 "; stroke-width: 0.5; stroke-dasharray: " + looks.dashes + " }\n";
        style += " .size-" + number + " text { fill: " + looks.colour + " }\n";
    }
    return style;
}

QString sizeClass(const PatternDocument &document, short size)
{
    return QStringLiteral("size size-%1%2")
        .arg(QString::number(size), size == nestOf(document) ? QStringLiteral(" base") : QString());
}

QString sizeTitle(const PatternDocument &document, short size)
{
    const QString name = document.sizeName(size);
    const QString title = name.isEmpty() ? QStringLiteral("Base size") : QStringLiteral("Size %1").arg(name);
    return size == nestOf(document) && !name.isEmpty() ? title + QStringLiteral(" (base)") : title;
}

// One piece with all its sizes.
class PieceDrawing
{
public:
    PieceDrawing(const PatternDocument &document, const CDbGroupObject &piece)
        : mDocument(document), mPiece(piece)
    {
        for (short size = 1; size <= sizeCountOf(document); ++size)
            mShapes.emplace_back(piece, size, document.gradationData());
        chooseCornerForLabels();
    }

    GeoRectangle extent() const
    {
        GeoRectangle all;
        for (const PieceShape &shape : mShapes)
            all.include(shape.extent());
        return all;
    }

    void draw(SvgSheet &sheet, const SheetPlace &place, const DrawingOptions &options) const
    {
        sheet.beginGroup(QStringLiteral("piece"), mPiece.name());
        sheet.strands(QStringLiteral("face"), base().faces(), place);
        if (options.withAllowances)
            sheet.strands(QStringLiteral("cut"), base().cutLines(), place);
        drawInside(sheet, place);
        for (short size = 1; size <= sizeCountOf(mDocument); ++size) {
            if (size != nestOf(mDocument))
                drawSize(sheet, place, size);
        }
        drawSize(sheet, place, nestOf(mDocument)); // on top of the others
        if (options.withSkeletons)
            drawSkeletons(sheet, place, mPiece, base());
        sheet.stacks(options.stacks, mPiece, base(), place);
        drawName(sheet, place);
        sheet.endGroup();
    }

    bool hasCutLine() const { return !base().cutLines().empty(); }

private:
    const PieceShape &shape(short size) const { return mShapes[static_cast<std::size_t>(size - 1)]; }
    const PieceShape &base() const { return shape(nestOf(mDocument)); }

    void drawSize(SvgSheet &sheet, const SheetPlace &place, short size) const
    {
        const PieceShape &drawn = shape(size);
        sheet.beginGroup(sizeClass(mDocument, size), sizeTitle(mDocument, size));
        sheet.strands(QStringLiteral("seam"), drawn.seamLines(), place);
        sheet.strands(QStringLiteral("leg"), drawn.dartLegs(), place);
        if (size == nestOf(mDocument))
            sheet.strands(QStringLiteral("cap"), drawn.dartCaps(), place);
        sheet.notches(drawn.notches(), place);
        drawSizeLabel(sheet, place, size);
        sheet.endGroup();
    }

    // The corner where the sizes lie furthest apart bears their names.
    void chooseCornerForLabels()
    {
        mRoom = kRoomForLabels / 10.0;
        for (const GabaritObject *gabarit = mPiece.firstGabarit(); gabarit; gabarit = gabarit->mNextGabarit) {
            for (const CDbPointVOR *v : gabarit->contourVectors()) {
                if (v->mVectorKind != Vector_Corner || gabarit->pICGabIsWhichDart(v, nullptr, nullptr))
                    continue;
                double least = 1e9;
                for (short size = 2; size <= sizeCountOf(mDocument); ++size) {
                    least = std::min(least, shape(size).placeOf(v).distance(
                                                shape(static_cast<short>(size - 1)).placeOf(v)));
                }
                if (least < 1e9 && least > mRoom) {
                    mRoom = least;
                    mCorner = v;
                }
            }
        }
    }

    void drawSizeLabel(SvgSheet &sheet, const SheetPlace &place, short size) const
    {
        const CDbPointVOR *corner = mCorner;
        if (!corner)
            return;
        const double letters = std::min(kSizeLabel, 6.0 * mRoom);
        // Beside the way along which the corner grows, outside the piece.
        const GeoPoint2D first = shape(1).placeOf(corner);
        const GeoPoint2D last = shape(sizeCountOf(mDocument)).placeOf(corner);
        GeoPoint2D aside((last.mY - first.mY) / first.distance(last),
                         (first.mX - last.mX) / first.distance(last));
        const GeoPoint2D outwards = base().outwardsAt(corner);
        if (aside.mX * outwards.mX + aside.mY * outwards.mY < 0.0)
            aside = GeoPoint2D(-aside.mX, -aside.mY);
        const GeoPoint2D at = place.on(shape(size).placeOf(corner));
        const double off = 5.0;
        sheet.text(QStringLiteral("small"),
                   GeoPoint2D(at.mX + off * aside.mX, at.mY - off * aside.mY + 0.36 * letters), letters,
                   mDocument.sizeName(size),
                   aside.mX < -0.3  ? "end"
                   : aside.mX > 0.3 ? "start"
                                    : "middle");
    }

    void drawInside(SvgSheet &sheet, const SheetPlace &place) const
    {
        const PieceShape &drawn = base();
        sheet.beginGroup(QStringLiteral("inside"));
        sheet.strands(QStringLiteral("inner"), drawn.innerCurves(), place);
        for (const InnerLine &line : mPiece.innerLines()) {
            const GeoPoint2D from = place.on(drawn.placeOf(line.from));
            const GeoPoint2D to = place.on(drawn.placeOf(line.to));
            if (line.use == InnerLine::Fold)
                drawFold(sheet, from, to, place.on(drawn.middle()));
            else
                sheet.line(QStringLiteral("inner"), from, to);
        }
        if (const Mirror *mirror = mPiece.Miroir())
            drawMirror(sheet, place, *mirror);
        for (const DrillHole &hole : mPiece.drillHoles())
            sheet.drillHole(place.on(drawn.placeOf(hole.place)));
        for (const GrainLine &grain : mPiece.grainLines())
            drawGrain(sheet, place.on(drawn.placeOf(grain.anchor)), grain);
        sheet.endGroup();
    }

    static void drawArrow(SvgSheet &sheet, const GeoPoint2D &tip, const GeoPoint2D &from)
    {
        const double length = tip.distance(from);
        if (length == 0.0)
            return;
        const GeoPoint2D back((from.mX - tip.mX) / length, (from.mY - tip.mY) / length);
        const auto wing = [&](double side) {
            return GeoPoint2D(tip.mX + 7.0 * back.mX - side * back.mY,
                              tip.mY + 7.0 * back.mY + side * back.mX);
        };
        sheet.path(QStringLiteral("arrow"), QLatin1Char('M') + SvgSheet::pointText(tip) + QLatin1Char('L') +
                                                SvgSheet::pointText(wing(2.0)) + QLatin1Char('L') +
                                                SvgSheet::pointText(wing(-2.0)) + QLatin1Char('Z'));
    }

    // Written along a line so that it is read from below or from the right.
    static void writeAlong(SvgSheet &sheet, const GeoPoint2D &from, const GeoPoint2D &to, double off,
                           const QString &words)
    {
        double turn = std::atan2(to.mY - from.mY, to.mX - from.mX) * 180.0 / std::acos(-1.0);
        if (turn > 89.0)
            turn -= 180.0;
        if (turn < -91.0)
            turn += 180.0;
        const double angle = turn * std::acos(-1.0) / 180.0;
        const double share = 0.3; // the middle is for the name of the piece
        const GeoPoint2D at(from.mX + share * (to.mX - from.mX) + off * std::sin(angle),
                            from.mY + share * (to.mY - from.mY) - off * std::cos(angle));
        sheet.text(QStringLiteral("small"), at, 5.0, words, "middle", turn);
    }

    static void drawGrain(SvgSheet &sheet, const GeoPoint2D &from, const GrainLine &grain)
    {
        const GeoPoint2D to(from.mX + 10.0 * grain.length * grain.direction.mX,
                            from.mY - 10.0 * grain.length * grain.direction.mY);
        sheet.line(QStringLiteral("grain"), from, to);
        drawArrow(sheet, to, from);
        drawArrow(sheet, from, to);
        writeAlong(sheet, from, to, 2.5, QStringLiteral("GRAIN"));
    }

    // A bracket inside the edge that lies on the fold, arrows at the edge.
    static void drawFold(SvgSheet &sheet, const GeoPoint2D &from, const GeoPoint2D &to,
                         const GeoPoint2D &middle)
    {
        const double length = from.distance(to);
        if (length == 0.0)
            return;
        const GeoPoint2D along((to.mX - from.mX) / length, (to.mY - from.mY) / length);
        const bool isLeft = along.mX * (middle.mY - from.mY) - along.mY * (middle.mX - from.mX) > 0.0;
        const GeoPoint2D in(isLeft ? -along.mY : along.mY, isLeft ? along.mX : -along.mX);
        const auto at = [&](double share, double depth) {
            return GeoPoint2D(from.mX + share * (to.mX - from.mX) + depth * in.mX,
                              from.mY + share * (to.mY - from.mY) + depth * in.mY);
        };
        const double depth = std::min(14.0, 0.3 * length);
        sheet.path(QStringLiteral("fold"), QLatin1Char('M') + SvgSheet::pointText(at(0.12, 0.0)) +
                                               QLatin1Char('L') + SvgSheet::pointText(at(0.12, depth)) +
                                               QLatin1Char('L') + SvgSheet::pointText(at(0.88, depth)) +
                                               QLatin1Char('L') + SvgSheet::pointText(at(0.88, 0.0)));
        drawArrow(sheet, at(0.12, 0.0), at(0.12, depth));
        drawArrow(sheet, at(0.88, 0.0), at(0.88, depth));
        writeAlong(sheet, at(0.12, depth), at(0.88, depth), 2.5, QStringLiteral("PLACE ON FOLD"));
    }

    void drawMirror(SvgSheet &sheet, const SheetPlace &place, const Mirror &mirror) const
    {
        // Across the extent of the piece, a little further at both ends.
        const GeoPoint2D a = mirror.axisA();
        const GeoPoint2D b = mirror.axisB();
        const auto [least, most] = base().reachAlong(a, b);
        const double beyond = 1.0 / a.distance(b);
        const auto at = [&](double t) {
            return GeoPoint2D(a.mX + t * (b.mX - a.mX), a.mY + t * (b.mY - a.mY));
        };
        sheet.line(QStringLiteral("mirror"), place.on(at(least - beyond)), place.on(at(most + beyond)));
    }

    // Every centimetre of what is drawn in the piece.
    std::vector<GeoPoint2D> obstacles() const
    {
        std::vector<GeoPoint2D> points;
        for (const short size : {short{1}, nestOf(mDocument), sizeCountOf(mDocument)})
            shape(size).appendTrail(points);
        for (const InnerLine &line : mPiece.innerLines())
            appendPoints(CubicCurve::straight(base().placeOf(line.from), base().placeOf(line.to)), points);
        for (const GrainLine &grain : mPiece.grainLines()) {
            const GeoPoint2D from = base().placeOf(grain.anchor);
            const GeoPoint2D to(from.mX + grain.length * grain.direction.mX,
                                from.mY + grain.length * grain.direction.mY);
            appendPoints(CubicCurve::straight(from, to), points);
        }
        for (const CubicCurve &line : skeletonLines(mPiece, base()))
            appendPoints(line, points);
        for (const DrillHole &hole : mPiece.drillHoles())
            points.push_back(base().placeOf(hole.place));
        return points;
    }

    void drawName(SvgSheet &sheet, const SheetPlace &place) const
    {
        const double letters = SvgSheet::kNameLetters;
        const GeoPoint2D at = sheet.name(mPiece.name(), base(), obstacles(), place);
        const short sizes = sizeCountOf(mDocument);
        if (sizes > 1) {
            sheet.text(QStringLiteral("small"), GeoPoint2D(at.mX, at.mY + letters), 6.0,
                       QStringLiteral("%1 sizes, %2 to %3")
                           .arg(QString::number(sizes), mDocument.sizeName(1), mDocument.sizeName(sizes)));
        }
        if (mPiece.isMirror()) {
            sheet.text(QStringLiteral("small"), GeoPoint2D(at.mX, at.mY + 1.8 * letters), 6.0,
                       QStringLiteral("both halves"));
        } else if (mPiece.isClone()) {
            sheet.text(QStringLiteral("small"), GeoPoint2D(at.mX, at.mY + 1.8 * letters), 6.0,
                       QStringLiteral("clone of %1").arg(mPiece.cloneOf()));
        }
    }

    const PatternDocument &mDocument;
    const CDbGroupObject &mPiece;
    std::vector<PieceShape> mShapes;
    const CDbPointVOR *mCorner = nullptr; ///< null when the sizes lie too close together everywhere
    double mRoom = 0.0;                   ///< between neighbouring sizes there, cm
};

// Samples of lines with their meaning, row by row.
class Legend
{
public:
    Legend(SvgSheet &sheet, double left, double right, double y)
        : mSheet(sheet), mLeft(left), mRight(right), mX(left), mY(y)
    {
    }

    void add(const QString &group, const QString &path, const QString &words)
    {
        const double width = 24.0 + 3.4 * std::max(words.size(), 3);
        if (mX > mLeft && mX + width - 5.0 > mRight) {
            mX = mLeft;
            mY += 11.0;
        }
        mSheet.beginGroup(group);
        mSheet.line(path, GeoPoint2D(mX, mY - 1.6), GeoPoint2D(mX + 16.0, mY - 1.6));
        mSheet.text(QStringLiteral("label"), GeoPoint2D(mX + 18.5, mY), 5.0, words, "start");
        mSheet.endGroup();
        mX += width;
    }

private:
    SvgSheet &mSheet;
    double mLeft;
    double mRight;
    double mX;
    double mY;
};

void drawLegend(SvgSheet &sheet, const PatternDocument &document, const std::vector<PieceDrawing> &drawings,
                const DrawingOptions &options, double left, double right, double y)
{
    SkeletonKinds kinds;
    for (const CDbGroupObject *piece : document.pieces())
        kinds.include(*piece);
    const bool hasCutLine = std::any_of(drawings.begin(), drawings.end(),
                                        [](const PieceDrawing &drawing) { return drawing.hasCutLine(); });
    sheet.beginGroup(QStringLiteral("legend"), QStringLiteral("Legend"));
    Legend legend(sheet, left, right, y);
    for (short size = 1; size <= sizeCountOf(document); ++size) {
        const QString name = document.sizeName(size);
        const bool isBase = size == nestOf(document);
        legend.add(sizeClass(document, size), QStringLiteral("seam"),
                   name.isEmpty() ? QStringLiteral("seam")
                   : isBase       ? QStringLiteral("%1 base").arg(name)
                                  : name);
    }
    if (options.withAllowances && hasCutLine)
        legend.add(QStringLiteral("sample"), QStringLiteral("cut"), QStringLiteral("cut line"));
    if (options.withSkeletons && kinds.centers)
        legend.add(QStringLiteral("sample axis"), QStringLiteral("axis"), QStringLiteral("center"));
    if (options.withSkeletons && kinds.frames)
        legend.add(QStringLiteral("sample frame"), QStringLiteral("frame"), QStringLiteral("frame"));
    if (options.withSkeletons && kinds.segments)
        legend.add(QStringLiteral("sample segment"), QStringLiteral("segment"), QStringLiteral("segment"));
    sheet.endGroup();
}

} // namespace

QByteArray drawDocument(const PatternDocument &document, const DrawingOptions &options)
{
    std::vector<PieceDrawing> drawings;
    std::vector<GeoRectangle> extents;
    for (const CDbGroupObject *piece : document.pieces()) {
        drawings.emplace_back(document, *piece);
        extents.push_back(drawings.back().extent());
    }
    const SheetLayout layout(extents);

    SvgSheet sheet(layout.width, layout.height, document.name(), styleOf(document));
    sheet.heading(document.name(), SheetLayout::kMargin, layout.width - 2.0 * SheetLayout::kMargin);
    for (std::size_t piece = 0; piece < drawings.size(); ++piece)
        drawings[piece].draw(sheet, layout.places[piece], options);

    const double foot = layout.height - SheetLayout::kMargin;
    drawLegend(sheet, document, drawings, options, SheetLayout::kMargin,
               layout.width - SheetLayout::kMargin - 130.0, foot - 11.0);
    drawScaleBar(sheet, layout.width - SheetLayout::kMargin - 106.0, foot - 7.0);
    return sheet.finish();
}

} // namespace VorSystem
