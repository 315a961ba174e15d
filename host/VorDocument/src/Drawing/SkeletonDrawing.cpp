#include "SkeletonDrawing.h"

#include <VorConjoin/CDbGroupObject.h>
#include <VorConjoin/CDbPointVOR.h>
#include <VorConjoin/GabaritObject.h>
#include <VorFrames/ControlCenter.h>
#include <VorFrames/ControlFrame.h>
#include <VorFrames/ControlSegment.h>
#include <VorFrames/ControlSkeleton.h>
#include <VorFrames/FrameCenter.h>
#include <VorFrames/FrameFrame.h>
#include <VorFrames/FrameSegment.h>

#include <algorithm>
#include <cmath>

namespace VorSystem
{

const char kSkeletonStyle[] = R"(
 .skeleton text { paint-order: stroke; stroke: #ffffff; stroke-opacity: 0.8; stroke-width: 1.4px }
 .axis path { stroke: #00796b; stroke-width: 0.7; stroke-dasharray: 10 2 2 2 }
 .frame path { stroke: #00796b; stroke-width: 0.8 }
 .segment path { stroke: #b8860b; stroke-width: 2.6; stroke-opacity: 0.45 }
 .axis text, .frame text { fill: #00594f }
 .segment text { fill: #7a5a00 }
)";

namespace
{

constexpr double kLetters = 5.0; // mm

// A quarter of the way: halfway, chords cross the axis.
GeoPoint2D placeForName(const GeoPoint2D &a, const GeoPoint2D &b)
{
    return GeoPoint2D(0.75 * a.mX + 0.25 * b.mX, 0.75 * a.mY + 0.25 * b.mY);
}

QString nameOf(const BaseFrame *element)
{
    return element ? element->name() : QString();
}

bool hasEnds(const ControlBase *control)
{
    return control && control->getVectorContour1() && control->getVectorContour2();
}

// A frame with one vector ends at the axis, and cannot be drawn without.
bool hasChord(const ControlFrame &frame)
{
    return hasEnds(&frame) || (frame.getVectorContour1() && hasEnds(frame.getSkeleton()->getFrameCenter()));
}

// The chord of a frame in the size of the shape; the frame has one.
CubicCurve chordOf(const PieceShape &shape, const ControlFrame &frame)
{
    const GeoPoint2D from = shape.placeOf(frame.getVectorContour1());
    if (frame.getVectorContour2())
        return CubicCurve::straight(from, shape.placeOf(frame.getVectorContour2()));
    const ControlCenter *center = frame.getSkeleton()->getFrameCenter();
    return CubicCurve::straight(from, from.projected(shape.placeOf(center->getVectorContour1()),
                                                     shape.placeOf(center->getVectorContour2())));
}

// The axis is lengthened to where the piece ends.
void drawCenter(SvgSheet &sheet, const SheetPlace &place, const PieceShape &shape,
                const ControlCenter &center)
{
    if (!hasEnds(&center))
        return;
    const GeoPoint2D a = shape.placeOf(center.getVectorContour1());
    const GeoPoint2D b = shape.placeOf(center.getVectorContour2());
    const auto [least, most] = shape.reachAlong(a, b);
    const auto at = [&](double t) {
        return place.on(GeoPoint2D(a.mX + t * (b.mX - a.mX), a.mY + t * (b.mY - a.mY)));
    };
    const GeoPoint2D from = at(std::min(least, 0.0));
    const GeoPoint2D to = at(std::max(most, 1.0));
    const GeoPoint2D &upper = from.mY < to.mY ? from : to;
    const QString name = nameOf(center.Get_Frame_Centre());
    sheet.beginGroup(QStringLiteral("axis"), name);
    sheet.line(QStringLiteral("axis"), from, to);
    sheet.text(QStringLiteral("label"), GeoPoint2D(upper.mX, upper.mY - 3.0), kLetters, name);
    sheet.endGroup();
}

void drawFrame(SvgSheet &sheet, const SheetPlace &place, const PieceShape &shape, const ControlFrame &frame)
{
    if (!hasChord(frame))
        return;
    const CubicCurve chord = chordOf(shape, frame);
    const GeoPoint2D from = place.on(chord.a);
    const GeoPoint2D to = place.on(chord.d);
    const QString name = nameOf(frame.getFrameFrame());
    sheet.beginGroup(QStringLiteral("frame"), name);
    sheet.line(QStringLiteral("frame"), from, to);
    const GeoPoint2D at = placeForName(from, to);
    sheet.text(QStringLiteral("label"), GeoPoint2D(at.mX, at.mY - 2.5), kLetters, name);
    sheet.endGroup();
}

// At the middle of a strand, on its side towards the inside: along a strand that is nearly level, else level.
void writeBeside(SvgSheet &sheet, const Strand &strand, const SheetPlace &place, const PieceShape &shape,
                 const QString &name)
{
    const CubicCurve &curve = strand.curves[strand.curves.size() / 2];
    const GeoPoint2D at = place.on(curve.at(0.4));
    const GeoPoint2D ahead = place.on(curve.at(0.45));
    const GeoPoint2D inside = place.on(shape.middle());
    const GeoPoint2D along(ahead.mX - at.mX, ahead.mY - at.mY);
    if (std::abs(along.mY) > std::abs(along.mX)) {
        const bool isRight = at.mX > inside.mX;
        sheet.text(QStringLiteral("label"), GeoPoint2D(at.mX + (isRight ? -4.0 : 4.0), at.mY), kLetters, name,
                   isRight ? "end" : "start");
        return;
    }
    const double turn = along.mX == 0.0 ? 0.0 : std::atan(along.mY / along.mX);
    const GeoPoint2D below(-std::sin(turn), std::cos(turn));
    const bool isBelow = below.mX * (inside.mX - at.mX) + below.mY * (inside.mY - at.mY) > 0.0;
    const double off = isBelow ? 3.0 + kLetters : -4.0;
    sheet.text(QStringLiteral("label"), GeoPoint2D(at.mX + off * below.mX, at.mY + off * below.mY), kLetters,
               name, "middle", turn * 180.0 / std::acos(-1.0));
}

void drawSegment(SvgSheet &sheet, const SheetPlace &place, const PieceShape &shape,
                 const GabaritObject *gabarit, const ControlSegment &segment)
{
    const CDbPointVOR *first = segment.getVectorContour1();
    const CDbPointVOR *second = segment.getVectorContour2();
    if (!hasEnds(&segment))
        return;
    const QString name = nameOf(segment.getFrameSegment());
    sheet.beginGroup(QStringLiteral("segment"), name);
    const bool isOnContour = gabarit->isVectorContour(first) && gabarit->isVectorContour(second);
    std::vector<Strand> way = {{{CubicCurve::straight(shape.placeOf(first), shape.placeOf(second))}, false}};
    if (isOnContour)
        way = shape.stretch(gabarit, first, second, segment.getContourDirection1To2());
    sheet.strands(QStringLiteral("segment"), way, place);
    if (!way.empty())
        writeBeside(sheet, way.front(), place, shape, name);
    sheet.endGroup();
}

} // namespace

void drawSkeletons(SvgSheet &sheet, const SheetPlace &place, const CDbGroupObject &piece,
                   const PieceShape &shape)
{
    for (GabaritObject *gabarit = piece.firstGabarit(); gabarit; gabarit = gabarit->mNextGabarit) {
        const ControlSkeleton *skeleton = gabarit->controlSkeleton();
        if (!skeleton)
            continue;
        sheet.beginGroup(QStringLiteral("skeleton"));
        const QListEx<ControlSegment *> segments = skeleton->getSegmentLists();
        for (const ControlSegment *segment : segments)
            drawSegment(sheet, place, shape, gabarit, *segment);
        const QListEx<ControlFrame *> frames = skeleton->getFrameLists();
        for (const ControlFrame *frame : frames)
            drawFrame(sheet, place, shape, *frame);
        if (const ControlCenter *center = skeleton->getFrameCenter())
            drawCenter(sheet, place, shape, *center);
        sheet.endGroup();
    }
}

void SkeletonKinds::include(const CDbGroupObject &piece)
{
    for (GabaritObject *gabarit = piece.firstGabarit(); gabarit; gabarit = gabarit->mNextGabarit) {
        if (const ControlSkeleton *skeleton = gabarit->controlSkeleton()) {
            centers = centers || skeleton->getFrameCenter();
            frames = frames || !skeleton->getFrameLists().isEmpty();
            segments = segments || !skeleton->getSegmentLists().isEmpty();
        }
    }
}

std::vector<CubicCurve> skeletonLines(const CDbGroupObject &piece, const PieceShape &shape)
{
    std::vector<CubicCurve> lines;
    for (GabaritObject *gabarit = piece.firstGabarit(); gabarit; gabarit = gabarit->mNextGabarit) {
        const ControlSkeleton *skeleton = gabarit->controlSkeleton();
        if (!skeleton)
            continue;
        const ControlCenter *center = skeleton->getFrameCenter();
        if (hasEnds(center))
            lines.push_back(CubicCurve::straight(shape.placeOf(center->getVectorContour1()),
                                                 shape.placeOf(center->getVectorContour2())));
        const QListEx<ControlFrame *> frames = skeleton->getFrameLists();
        for (const ControlFrame *frame : frames) {
            if (hasChord(*frame))
                lines.push_back(chordOf(shape, *frame));
        }
    }
    return lines;
}

} // namespace VorSystem
