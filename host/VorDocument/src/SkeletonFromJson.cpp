#include "SkeletonFromJson.h"

#include "JsonMembers.h"
#include "Told.h"
#include "UnreadValues.h"

#include <VorConjoin/CDbGroupObject.h>
#include <VorConjoin/GabaritObject.h>
#include <VorConjoin/SeekingObjectVOR.h>
#include <VorDocument/PatternDocument.h>
#include <VorFrames/ControlSkeleton.h>
#include <VorFrames/Errors.h>
#include <VorFrames/FrameSet.h>
#include <VorFrames/GestFrames.h>
#include <VorJson/VorJson.h>

#include <algorithm>

namespace VorSystem
{

namespace
{

QJsonArray pointsOf(const QJsonObject &control)
{
    return listIn(control.value(QLatin1String("base")).toObject(), "points");
}

bool isVector(const QJsonValue &point)
{
    return !point.toObject().isEmpty();
}

// Goes through a stored skeleton in the order of its reading, up to the first thing that is not there.
class Fault
{
public:
    Fault(const QJsonObject &stored, CDbGroupObject *piece, const GestFrames &manager)
        : mPiece(piece), mManager(manager)
    {
        const QJsonObject center = stored.value(QLatin1String("center")).toObject();
        mAxis = textIn(center, "set_name").isEmpty() ? QString() : textIn(center, "center_name");
        examine(center, "center", "center_name", Element_Center);
        for (const QJsonValue frame : listIn(stored, "frames")) {
            examine(frame.toObject(), "frame", "frame_name", Element_Frame);
            suspect(frame.toObject());
        }
        for (const QJsonValue segment : listIn(stored, "segments"))
            examine(segment.toObject(), "segment", "segment_name", Element_Segment);
    }

    QString words() const
    {
        if (!mWords.isEmpty())
            return mWords;
        return mSuspicion.isEmpty() ? QStringLiteral("it cannot be read") : mSuspicion;
    }

private:
    void say(const QString &words)
    {
        if (mWords.isEmpty())
            mWords = words;
    }

    // Where every name is there, it is a side that cannot be told: that of a first vector which is missing.
    void suspect(const QJsonObject &frame)
    {
        const QJsonArray points = pointsOf(frame);
        if (mSuspicion.isEmpty() && !isVector(points.at(0)) &&
            std::any_of(points.begin(), points.end(), isVector))
            mSuspicion =
                QStringLiteral("the frame \"%1\" has no first vector").arg(textIn(frame, "frame_name"));
    }

    void examine(const QJsonObject &control, const char *kind, const char *nameKey, eElementFrameType type)
    {
        if (!mWords.isEmpty())
            return;
        const QString name = textIn(control, nameKey);
        const QString whose = QStringLiteral("the %1 \"%2\"").arg(QLatin1String(kind), name);
        for (const QJsonValue point : pointsOf(control)) {
            if (isVector(point) && !isThere(point.toObject()))
                say(QStringLiteral("%1 names the vector %2, which the piece does not have")
                        .arg(whose, QString::number(point.toObject().value(QLatin1String("id")).toInt(0))));
        }
        const QString setName = textIn(control, "set_name");
        if (setName.isEmpty())
            return;
        const FrameSet *const set = mManager.getFrameSetAccordingName(setName);
        if (set == nullptr) {
            say(QStringLiteral("%1 belongs to the set \"%2\", which is not there").arg(whose, setName));
            return;
        }
        if (type == Element_Frame && mAxis.isEmpty())
            say(QStringLiteral("%1 needs a center that names its element").arg(whose));
        const QString sought = type == Element_Frame ? mAxis + QLatin1Char(':') + name : name;
        BaseFrame *const element = set->foundElementAccordingName(sought, true);
        if (element == nullptr)
            say(QStringLiteral("the %1 \"%2\" is not in the set \"%3\"")
                    .arg(QLatin1String(kind), sought, setName));
        else if (element->elementType() != type)
            say(QStringLiteral("in the set \"%1\" the name \"%2\" means another element than %3")
                    .arg(setName, sought, whose));
    }

    bool isThere(const QJsonObject &identity) const
    {
        CDbID stored;
        stored.fromJson(XJsonObject::fromJsonObject(identity));
        CDbPointVOR *vector = nullptr;
        SeekingObjectVOR::objectAccordingID(mPiece, stored, &vector, true);
        return vector != nullptr;
    }

    CDbGroupObject *mPiece;
    const GestFrames &mManager;
    QString mAxis; ///< the name of the axis' element; empty without one
    QString mWords;
    QString mSuspicion;
};

// A frame needs one vector, a segment both.
void tellVanished(const QJsonObject &stored, Told &told)
{
    for (const QJsonValue frame : listIn(stored, "frames")) {
        const QJsonArray points = pointsOf(frame.toObject());
        if (std::none_of(points.begin(), points.end(), isVector))
            told.add(QStringLiteral("the frame \"%1\" was left out: it has no vectors.")
                         .arg(textIn(frame.toObject(), "frame_name")));
    }
    for (const QJsonValue segment : listIn(stored, "segments")) {
        const QJsonArray points = pointsOf(segment.toObject());
        if (!isVector(points.at(0)) || std::none_of(points.begin() + 1, points.end(), isVector))
            told.add(QStringLiteral("the segment \"%1\" was left out: it has not two vectors.")
                         .arg(textIn(segment.toObject(), "segment_name")));
    }
}

} // namespace

QString skeletonFromJson(const JsonPlace &stored, GabaritObject *gabarit, PatternDocument &document,
                         QStringList &told)
{
    if (!stored.isThere())
        return QString();
    stored.require(stored.value().isObject(), "is not an object");
    const QJsonObject object = stored.value().toObject();
    const QString name = QStringLiteral("The skeleton of \"%1\"").arg(gabarit->group()->name());

    ControlSkeleton *skeleton = document.newSkeleton(gabarit);
    try {
        skeleton->fromJson(XJsonObject::fromJsonObject(object), document.framesManager());
    } catch (const NonFatalError &) {
        delete skeleton;
        document.keepLostSkeleton(gabarit, stored.value());
        return QStringLiteral("%1 could not be tied: %2.")
            .arg(name, Fault(object, gabarit->group(), *document.framesManager()).words());
    }
    Told losses(name);
    tellVanished(object, losses);
    tellUnreadOfSkeleton(object, losses);
    told << losses.sentences();
    return QString();
}

} // namespace VorSystem
