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

GeoPoint2D halfway(const GeoPoint2D &a, const GeoPoint2D &b)
{
    return GeoPoint2D(0.5 * (a.mX + b.mX), 0.5 * (a.mY + b.mY));
}

QString nameOf(const BaseFrame *element)
{
    return element ? element->name() : QString();
}

void drawCenter(SvgSheet &sheet, const SheetPlace &place, const ControlCenter &center)
{
    if (!center.getVectorContour1() || !center.getVectorContour2())
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
    const CDbPointVOR *first = frame.getVectorContour1();
    if (!first)
        return;
    const GeoPoint2D from = place.on(*first);
    const GeoPoint2D to = place.on(frame.calculateExtremity());
    const QString name = nameOf(frame.getFrameFrame());
    sheet.beginGroup(QStringLiteral("frame"), name);
    sheet.line(QStringLiteral("frame"), from, to);
    const GeoPoint2D middle = halfway(from, to);
    sheet.text(QStringLiteral("label"), GeoPoint2D(middle.mX, middle.mY - 2.5), kLetters, name);
    sheet.endGroup();
}

void drawSegment(SvgSheet &sheet, const SheetPlace &place, const PieceShape &shape,
                 const GabaritObject *gabarit, const ControlSegment &segment)
{
    const CDbPointVOR *first = segment.getVectorContour1();
    const CDbPointVOR *second = segment.getVectorContour2();
    if (!first || !second)
        return;
    const QString name = nameOf(segment.getFrameSegment());
    sheet.beginGroup(QStringLiteral("segment"), name);
    const bool isOnContour = gabarit->isVectorContour(first) && gabarit->isVectorContour(second);
    if (isOnContour) {
        sheet.strands(QStringLiteral("segment"),
                      {shape.stretch(gabarit, first, second, segment.getContourDirection1To2())}, place);
    } else {
        sheet.line(QStringLiteral("segment"), place.on(*first), place.on(*second));
    }
    const GeoPoint2D middle = halfway(place.on(*first), place.on(*second));
    sheet.text(QStringLiteral("label"), GeoPoint2D(middle.mX - 3.0, middle.mY), kLetters, name, "end");
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

} // namespace VorSystem
