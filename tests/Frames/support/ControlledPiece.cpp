// A pattern piece in a document, with one frame set and a skeleton.

#include <support/ControlledPiece.h>

#include <algorithm>
#include <cstdio>

namespace support
{

using namespace VorSystem;

PieceDocument::PieceDocument(const GradationData &gradation)
    : mGradation(gradation), mManager(std::make_unique<GestFrames>())
{
    mManager->setDocument(this);
}

ControlledPiece::ControlledPiece(Piece piece, const GradationData &gradation)
    : mDocument(gradation), mGroup(piece.group.get()), mGabarit(piece.gabarit), mDart(piece.dart),
      mContour(piece.contour)
{
    mDocument.mPlan.addGroup(piece.release());
    mSet = new FrameSet(QStringLiteral("Set"), mDocument.mManager.get());
    mDocument.mManager->addFrameSet(mSet, -1);
    mSkeleton = std::make_unique<ControlSkeleton>(mGroup, mGabarit);
}

ControlledPiece::~ControlledPiece() = default;

ControlCenter *ControlledPiece::center(CDbPointVOR *vector1, CDbPointVOR *vector2,
                                       FrameCenter::eCharacteristicType characteristic)
{
    mCenter = mSet->newCenter(QStringLiteral("Center"));
    mCenter->setCharacteristic(characteristic);
    return new ControlCenter(vector1, vector2, mSkeleton.get(), mCenter);
}

ControlFrame *ControlledPiece::frame(const char *name, CDbPointVOR *vector1, CDbPointVOR *vector2)
{
    FrameFrame *element = mSet->newFrame(QString::fromLatin1(name), mCenter);
    auto *control = new ControlFrame(vector1, vector2, mSkeleton.get(), element);
    readBack();
    return control;
}

ControlSegment *ControlledPiece::segment(const char *name, CDbPointVOR *vector1, CDbPointVOR *vector2,
                                         FrameSegment::eDisplaceType displace)
{
    const QString stem = QString::fromLatin1(name);
    FrameSegment *element = mSet->newSegment(stem);
    for (int number = 2; !element; ++number)
        element = mSet->newSegment(stem + QString::number(number));
    element->getDisplace() = displace;
    auto *control = new ControlSegment(vector1, vector2, mSkeleton.get(), element);
    readBack();
    return control;
}

void ControlledPiece::readBack()
{
    const QListEx<FrameFrame *> frames = mSet->getFrames();
    for (FrameFrame *frame : frames) {
        frame->reevaluateElementObject(Evaluation_Measure);
        frame->reevaluateElementObject(Evaluation_Level);
    }
    const QListEx<FrameSegment *> segments = mSet->getFrameSegments();
    for (FrameSegment *segment : segments)
        segment->reevaluateElementObject(Evaluation_Measure);
}

ValuesAccordingSizes ControlledPiece::measuresOf(ControlFrame *frame) const
{
    ValuesAccordingSizes values;
    values.mValues = frame->getMeasures(gradation());
    values.mNestIndex = static_cast<short>(GradationData::nestNumber(gradation()) - 1);
    return values;
}

ValuesAccordingSizes ControlledPiece::levelsOf(ControlFrame *frame) const
{
    ValuesAccordingSizes values;
    values.mValues = frame->getLevels(gradation());
    values.mNestIndex = static_cast<short>(GradationData::nestNumber(gradation()) - 1);
    return values;
}

ValuesAccordingSizes ControlledPiece::measuresOf(ControlSegment *segment) const
{
    ValuesAccordingSizes values;
    values.mValues = segment->getMeasures(gradation());
    values.mNestIndex = static_cast<short>(GradationData::nestNumber(gradation()) - 1);
    return values;
}

eMsgConvergence ControlledPiece::changeMeasures(ControlFrame *frame, ValuesAccordingSizes wanted,
                                                eModifyLevelActionType action)
{
    return frame->changeMeasureLevel(ControlBase::MeasureLevel_Measure, &wanted, nullptr, gradation(),
                                     action);
}

eMsgConvergence ControlledPiece::changeLevels(ControlFrame *frame, ValuesAccordingSizes wanted,
                                              eModifyLevelActionType action)
{
    return frame->changeMeasureLevel(ControlBase::MeasureLevel_Level, nullptr, &wanted, gradation(), action);
}

eMsgConvergence ControlledPiece::changeMeasures(ControlSegment *segment, ValuesAccordingSizes wanted,
                                                eModifyLevelActionType action)
{
    return segment->changeMeasureLevel(ControlBase::MeasureLevel_Measure, &wanted, nullptr, gradation(),
                                       action);
}

int ControlledPiece::rebuilds()
{
    const int since = mGroup->rebuildCount() - mRebuilds;
    mRebuilds = mGroup->rebuildCount();
    return since;
}

RectangleUnderControl::RectangleUnderControl(FrameCenter::eCharacteristicType characteristic,
                                             const GradationData &gradation)
    : ControlledPiece(rectangle(40.0, 60.0, 6, 1.0), gradation)
{
    axis = center(at(3), at(15), characteristic);
}

ControlFrame *RectangleUnderControl::chord(const char *name, int tenCentimetres)
{
    return frame(name, right(tenCentimetres), left(tenCentimetres));
}

ControlFrame *RectangleUnderControl::halfChord(const char *name, int tenCentimetres)
{
    return frame(name, right(tenCentimetres), nullptr);
}

namespace
{

std::string number(double value)
{
    char text[64];
    std::snprintf(text, sizeof text, "%.2f", value == 0.0 ? 0.0 : value);
    return std::string(text) == "-0.00" ? "0.00" : text;
}

} // namespace

std::string str(const ValuesAccordingSizes &values)
{
    std::string text;
    for (int size = 0; size < values.mValues.size(); ++size) {
        if (size)
            text += ' ';
        const std::string value = number(values.mValues.at(size));
        text += size == values.mNestIndex ? '[' + value + ']' : value;
    }
    return text;
}

std::string str(const GeoPoint2D &point)
{
    return number(point.x()) + ' ' + number(point.y());
}

std::vector<GeoPoint2D> placesOf(const CDbGroupObject *group, const GradationData *gradation)
{
    std::vector<GeoPoint2D> places;
    const std::vector<CDbPointVOR *> vectors = vectorsOf(group);
    for (short size = 1; size <= GradationData::sizes(gradation); ++size) {
        for (const CDbPointVOR *vector : vectors)
            places.push_back(vector->positionInSize(size, gradation));
    }
    return places;
}

double largestDistance(const std::vector<GeoPoint2D> &a, const std::vector<GeoPoint2D> &b)
{
    double largest = 0.0;
    for (std::size_t i = 0; i < std::min(a.size(), b.size()); ++i)
        largest = std::max(largest, a[i].distance(b[i]));
    return largest;
}

bool standsInTheNest(const CDbGroupObject *group)
{
    const std::vector<CDbPointVOR *> vectors = vectorsOf(group);
    return std::all_of(vectors.begin(), vectors.end(), [](const CDbPointVOR *vector) {
        return vector->inSize() == 0 && vector->gradingDepth() == 0;
    });
}

ValuesAccordingSizes times(ValuesAccordingSizes values, double factor)
{
    for (double &value : values.mValues)
        value *= factor;
    return values;
}

ValuesAccordingSizes plus(ValuesAccordingSizes values, double delta)
{
    for (double &value : values.mValues)
        value += delta;
    return values;
}

} // namespace support
