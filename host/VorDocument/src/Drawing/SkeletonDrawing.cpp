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

namespace VorSystem
{

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

void drawCenter(SvgSheet &sheet, const SheetPlace &place, const ControlCenter &center)
{
    if (!hasEnds(&center))
        return;
    const auto ends = center.calculatePositionEnd();
    const GeoPoint2D from = place.on(ends.first);
    const GeoPoint2D to = place.on(ends.second);
    const GeoPoint2D &upper = from.mY < to.mY ? from : to;
    const QString name = nameOf(center.Get_Frame_Centre());
    sheet.beginGroup(QStringLiteral("axis"), name);
    sheet.line(QStringLiteral("axis"), from, to);
    sheet.text(QStringLiteral("label"), GeoPoint2D(upper.mX, upper.mY - 3.0), kLetters, name);
    sheet.endGroup();
}

void drawFrame(SvgSheet &sheet, const SheetPlace &place, const ControlFrame &frame)
{
    if (!hasChord(frame))
        return;
    const GeoPoint2D from = place.on(*frame.getVectorContour1());
    const GeoPoint2D to = place.on(frame.calculateExtremity());
    const QString name = nameOf(frame.getFrameFrame());
    sheet.beginGroup(QStringLiteral("frame"), name);
    sheet.line(QStringLiteral("frame"), from, to);
    const GeoPoint2D at = placeForName(from, to);
    sheet.text(QStringLiteral("label"), GeoPoint2D(at.mX, at.mY - 2.5), kLetters, name);
    sheet.endGroup();
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
    Strand way = {{CubicCurve::straight(*first, *second)}, false};
    if (isOnContour)
        way = shape.stretch(gabarit, first, second, segment.getContourDirection1To2());
    sheet.strands(QStringLiteral("segment"), {way}, place);
    if (!way.curves.empty()) {
        // Beside the middle of the stretch, towards the inside.
        const GeoPoint2D at = place.on(way.curves[way.curves.size() / 2].at(0.4));
        const bool isRight = at.mX > place.on(shape.middle()).mX;
        sheet.text(QStringLiteral("label"), GeoPoint2D(at.mX + (isRight ? -4.0 : 4.0), at.mY), kLetters, name,
                   isRight ? "end" : "start");
    }
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
            drawFrame(sheet, place, *frame);
        if (const ControlCenter *center = skeleton->getFrameCenter())
            drawCenter(sheet, place, *center);
        sheet.endGroup();
    }
}

std::vector<CubicCurve> skeletonLines(const CDbGroupObject &piece)
{
    std::vector<CubicCurve> lines;
    for (GabaritObject *gabarit = piece.firstGabarit(); gabarit; gabarit = gabarit->mNextGabarit) {
        const ControlSkeleton *skeleton = gabarit->controlSkeleton();
        if (!skeleton)
            continue;
        const ControlCenter *center = skeleton->getFrameCenter();
        if (hasEnds(center))
            lines.push_back(CubicCurve::straight(*center->getVectorContour1(), *center->getVectorContour2()));
        const QListEx<ControlFrame *> frames = skeleton->getFrameLists();
        for (const ControlFrame *frame : frames) {
            if (hasChord(*frame))
                lines.push_back(
                    CubicCurve::straight(*frame->getVectorContour1(), frame->calculateExtremity()));
        }
    }
    return lines;
}

} // namespace VorSystem
