// A document as JSON text and back.

#include "JsonLayout.h"
#include "JsonPlace.h"
#include "PieceJson.h"

#include <VorConjoin/CDbGroupObject.h>
#include <VorConjoin/GabaritObject.h>
#include <VorConjoin/GradationData.h>
#include <VorConjoin/t_Plan.h>
#include <VorDocument/DocumentFile.h>
#include <VorDocument/PatternDocument.h>
#include <VorFrames/ControlSkeleton.h>
#include <VorFrames/Errors.h>
#include <VorFrames/GestFrames.h>
#include <VorJson/VorJson.h>

#include <limits>

namespace VorSystem
{

namespace
{

constexpr char kFormat[] = "VorDocument 1";

// Writing
// ------------------------------------------------------------------------------------------------------

QJsonObject pieceWithSkeletons(const PatternDocument &document, const CDbGroupObject &piece)
{
    QJsonObject object = pieceToJson(piece, document.gradationData());
    QJsonArray contours = object.value(QLatin1String("contours")).toArray();
    int index = 0;
    for (GabaritObject *gabarit = piece.firstGabarit(); gabarit; gabarit = gabarit->mNextGabarit) {
        const ControlSkeleton *skeleton = gabarit->controlSkeleton();
        const QJsonValue stored =
            skeleton ? QJsonValue(skeleton->toJson().toJsonObject()) : document.lostSkeleton(gabarit);
        QJsonObject contour = contours.at(index).toObject();
        contour.insert(QStringLiteral("skeleton"), stored); // nothing when there is none
        contours.replace(index, contour);
        ++index;
    }
    object.insert(QStringLiteral("contours"), contours);
    return object;
}

QJsonObject documentToJson(const PatternDocument &document)
{
    QJsonObject object;
    object.insert(QStringLiteral("format"), QLatin1String(kFormat));
    object.insert(QStringLiteral("name"), document.name());
    if (const GradationData *gradation = document.gradationData()) {
        object.insert(QStringLiteral("sizes"),
                      QJsonObject{{QStringLiteral("names"), QJsonArray::fromStringList(document.sizeNames())},
                                  {QStringLiteral("nest"), gradation->mediumIndex()}});
    }
    QJsonArray pieces;
    for (const CDbGroupObject *piece : document.pieces())
        pieces.append(pieceWithSkeletons(document, *piece));
    object.insert(QStringLiteral("pieces"), pieces);

    QJsonObject manager = document.framesManager()->toJson().toJsonObject();
    QJsonArray sets = manager.value(QLatin1String("frames")).toArray();
    for (const QJsonValue lost : document.lostSets())
        sets.append(lost);
    manager.insert(QStringLiteral("frames"), sets);
    object.insert(QStringLiteral("frameSets"), manager);
    return object;
}

// Reading
// ------------------------------------------------------------------------------------------------------

void readSizes(const JsonPlace &stored, PatternDocument &document)
{
    if (!stored.isThere())
        return;
    stored.onlyKeys({"names", "nest"});
    QStringList names;
    stored["names"].forEach([&](const JsonPlace &name) { names << name.text(); });
    const int nest = stored["nest"].whole(0, std::numeric_limits<short>::max());
    stored.require(!names.isEmpty() && document.setSizes(names, static_cast<short>(nest)),
                   "are no sizes: names must differ, and the nest be one of them");
}

QString nameOf(const QJsonValue &stored)
{
    return stored.toObject().value(QLatin1String("set_name")).toString();
}

// Set by set, so that one that is left out can be told.
void readSets(const JsonPlace &stored, PatternDocument &document, QStringList &dropped)
{
    if (!stored.isThere())
        return;
    stored.onlyKeys({"frames"});
    GestFrames &manager = *document.framesManager();
    stored["frames"].forEach([&](const JsonPlace &set) {
        set.require(set.value().isObject(), "is not an object");
        const short before = manager.numberOfFrameSets();
        manager.fromJson(XJsonObject::fromJsonObject({{QStringLiteral("frames"), QJsonArray{set.value()}}}),
                         true);
        if (manager.numberOfFrameSets() > before)
            return;
        document.keepLostSet(set.value());
        dropped
            << QStringLiteral("The set \"%1\" names an element that is not there.").arg(nameOf(set.value()));
    });
}

void readSkeleton(const JsonPlace &stored, GabaritObject *gabarit, PatternDocument &document,
                  QStringList &dropped)
{
    if (!stored.isThere())
        return;
    stored.require(stored.value().isObject(), "is not an object");
    const QString piece = gabarit->group()->name();
    ControlSkeleton *skeleton = document.newSkeleton(gabarit);
    try {
        skeleton->fromJson(XJsonObject::fromJsonObject(stored.value().toObject()), document.framesManager());
    } catch (const NonFatalError &) {
        delete skeleton;
        document.keepLostSkeleton(gabarit, stored.value());
        dropped << QStringLiteral("The skeleton of \"%1\" names an element or a vector that is not there.")
                       .arg(piece);
        return;
    }
    const auto count = [&](const char *key) {
        return stored.value().toObject().value(QLatin1String(key)).toArray().size();
    };
    if (skeleton->getFrameLists().size() < count("frames") ||
        skeleton->getSegmentLists().size() < count("segments"))
        dropped << QStringLiteral("A frame or segment of \"%1\" has no vectors.").arg(piece);
}

// Everything is there before the first skeleton asks for it.
void readInto(const JsonPlace &stored, PatternDocument &document, QStringList &dropped)
{
    stored["format"].require(stored["format"].text() == QLatin1String(kFormat),
                             "is no format that can be read");
    stored.onlyKeys({"format", "name", "sizes", "pieces", "frameSets"});
    document.setName(stored["name"].text(QString()));
    readSizes(stored["sizes"], document);
    readSets(stored["frameSets"], document, dropped);

    const JsonPlace pieces = stored["pieces"];
    pieces.forEach([&](const JsonPlace &piece) {
        document.plan().addGroup(pieceFromJson(piece, document.gradationData()).release());
        GabaritObject *gabarit = document.pieces().back()->firstGabarit();
        piece["contours"].forEach([&](const JsonPlace &contour) {
            readSkeleton(contour["skeleton"], gabarit, document, dropped);
            gabarit = gabarit->mNextGabarit;
        });
    });
}

// What was read earlier and could not be kept is lost again; anything more would be lost by saving.
int lostParts(const PatternDocument &document)
{
    int lost = document.lostSets().size();
    for (const CDbGroupObject *piece : document.pieces()) {
        for (GabaritObject *gabarit = piece->firstGabarit(); gabarit; gabarit = gabarit->mNextGabarit)
            lost += !gabarit->controlSkeleton() && !document.lostSkeleton(gabarit).isUndefined() ? 1 : 0;
    }
    return lost;
}

} // namespace

QByteArray documentToText(const PatternDocument &document, DocumentReport *report)
{
    const QByteArray text = jsonLayout(documentToJson(document));

    PatternDocument scratch;
    DocumentReport readBack;
    QString &error = readBack.error;
    if (documentFromText(text, scratch, &readBack) && lostParts(scratch) > lostParts(document))
        error = readBack.dropped.join(QLatin1Char(' '));
    if (!error.isEmpty())
        error = QStringLiteral("The document could not be read back, so it is not saved. ") + error;
    const bool isGood = error.isEmpty();
    if (report)
        *report = {error, {}};
    return isGood ? text : QByteArray();
}

bool documentFromText(const QByteArray &text, PatternDocument &document, DocumentReport *report)
{
    DocumentReport told;
    try {
        PatternDocument fresh;
        readInto(JsonPlace(parsedJson(text)), fresh, told.dropped);
        document.swap(fresh);
    } catch (const JsonFault &fault) {
        told = {QString::fromUtf8(fault.what()), {}};
    }
    if (report)
        *report = told;
    return told.error.isEmpty();
}

} // namespace VorSystem
