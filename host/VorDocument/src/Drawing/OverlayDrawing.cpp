// Two documents on top of each other: what a change did.

#include "SheetLayout.h"
#include "SkeletonDrawing.h"

#include <VorConjoin/CDbGroupObject.h>
#include <VorConjoin/GradationData.h>
#include <VorConjoin/t_Plan.h>
#include <VorDocument/DocumentDrawing.h>
#include <VorDocument/PatternDocument.h>

namespace VorSystem
{

namespace
{

const char kStyle[] = R"(
 .sheet { fill: #ffffff }
 path, circle { fill: none; stroke: #1a1a1a; stroke-width: 0.6; stroke-linejoin: round; stroke-linecap: round }
 text { font-family: 'DejaVu Sans', 'Liberation Sans', Arial, sans-serif; fill: #1a1a1a }
 .before path, .before circle { stroke: #8a8a8a; stroke-width: 0.9; stroke-dasharray: 6 3 }
 .after path, .after circle { stroke: #c0392b; stroke-width: 1.1 }
 .before path.inner, .after path.inner { stroke-width: 0.5 }
 .after path.face { fill: #fdf1ee; stroke: none }
 text.name, text.heading { font-weight: bold }
 text.name { paint-order: stroke; stroke: #ffffff; stroke-opacity: 0.8; stroke-width: 1.6px }
 text.small { fill: #444444 }
 .stack path { stroke: #000000; stroke-width: 0.8; stroke-dasharray: none }
)";

// A piece before and after; one of them may be missing.
struct Change {
    const CDbGroupObject *before;
    const CDbGroupObject *after;
};

short sizeIn(const PatternDocument &document, short sizeNumber)
{
    return sizeNumber > 0 ? sizeNumber : GradationData::nestNumber(document.gradationData());
}

void drawShape(SvgSheet &sheet, const QString &side, const SheetPlace &place, const CDbGroupObject &piece,
               const PieceShape &shape)
{
    sheet.beginGroup(side, side);
    if (side == QLatin1String("after"))
        sheet.strands(QStringLiteral("face"), shape.faces(), place);
    sheet.strands(QStringLiteral("seam"), shape.seamLines(), place);
    sheet.strands(QStringLiteral("leg"), shape.dartLegs(), place);
    sheet.strands(QStringLiteral("inner"), shape.innerCurves(), place);
    for (const InnerLine &line : piece.innerLines()) {
        if (line.use == InnerLine::Inner)
            sheet.line(QStringLiteral("inner"), place.on(shape.placeOf(line.from)),
                       place.on(shape.placeOf(line.to)));
    }
    for (const DrillHole &hole : piece.drillHoles())
        sheet.drillHole(place.on(shape.placeOf(hole.place)));
    sheet.notches(shape.notches(), place);
    sheet.endGroup();
}

void drawLegend(SvgSheet &sheet, double x, double y)
{
    sheet.beginGroup(QStringLiteral("legend"), QStringLiteral("Legend"));
    for (const QString &side : {QStringLiteral("before"), QStringLiteral("after")}) {
        sheet.beginGroup(side);
        sheet.line(QStringLiteral("seam"), GeoPoint2D(x, y - 1.6), GeoPoint2D(x + 16.0, y - 1.6));
        sheet.text(QStringLiteral("label"), GeoPoint2D(x + 18.5, y), 5.0, side, "start");
        sheet.endGroup();
        x += 48.0;
    }
    sheet.endGroup();
}

std::vector<Change> changesOf(const PatternDocument &before, const PatternDocument &after)
{
    std::vector<Change> changes;
    for (const CDbGroupObject *piece : before.pieces())
        changes.push_back({piece, static_cast<const Document &>(after).plan()->groupByName(piece->name())});
    for (const CDbGroupObject *piece : after.pieces()) {
        if (!static_cast<const Document &>(before).plan()->groupByName(piece->name()))
            changes.push_back({nullptr, piece});
    }
    return changes;
}

} // namespace

QByteArray drawOverlay(const PatternDocument &before, const PatternDocument &after, short sizeNumber,
                       const DrawingOptions &options)
{
    const auto shapeBefore = [&](const CDbGroupObject &piece) {
        return PieceShape(piece, sizeIn(before, sizeNumber), before.gradationData());
    };
    const auto shapeAfter = [&](const CDbGroupObject &piece) {
        return PieceShape(piece, sizeIn(after, sizeNumber), after.gradationData());
    };
    const std::vector<Change> changes = changesOf(before, after);
    std::vector<GeoRectangle> extents;
    for (const Change &change : changes) {
        GeoRectangle extent;
        if (change.before)
            extent.include(shapeBefore(*change.before).extent());
        if (change.after)
            extent.include(shapeAfter(*change.after).extent());
        extents.push_back(extent);
    }
    const SheetLayout layout(extents);

    const QString size = after.sizeName(sizeIn(after, sizeNumber));
    const QString heading =
        size.isEmpty() ? after.name() : QStringLiteral("%1, size %2").arg(after.name(), size);
    SvgSheet sheet(layout.width, layout.height, heading, QByteArray(kStyle) + kSkeletonStyle);
    sheet.heading(heading, SheetLayout::kMargin, layout.width - 2.0 * SheetLayout::kMargin);
    for (std::size_t i = 0; i < changes.size(); ++i) {
        const Change &change = changes[i];
        const CDbGroupObject &named = change.after ? *change.after : *change.before;
        sheet.beginGroup(QStringLiteral("piece"), named.name());
        if (change.after)
            drawShape(sheet, QStringLiteral("after"), layout.places[i], *change.after,
                      shapeAfter(*change.after));
        if (change.before)
            drawShape(sheet, QStringLiteral("before"), layout.places[i], *change.before,
                      shapeBefore(*change.before));
        if (change.after && options.withSkeletons)
            drawSkeletons(sheet, layout.places[i], *change.after, shapeAfter(*change.after));
        if (change.after)
            sheet.stacks(options.stacks, *change.after, shapeAfter(*change.after), layout.places[i]);
        std::vector<GeoPoint2D> obstacles;
        const PieceShape shape = change.after ? shapeAfter(named) : shapeBefore(named);
        shape.appendTrail(obstacles);
        if (change.before)
            shapeBefore(*change.before).appendTrail(obstacles);
        for (const CubicCurve &line : skeletonLines(named, shape))
            appendPoints(line, obstacles);
        sheet.name(named.name(), shape, obstacles, layout.places[i]);
        sheet.endGroup();
    }
    const double foot = layout.height - SheetLayout::kMargin;
    drawLegend(sheet, SheetLayout::kMargin, foot - 11.0);
    drawScaleBar(sheet, layout.width - SheetLayout::kMargin - 106.0, foot - 7.0);
    return sheet.finish();
}

} // namespace VorSystem
