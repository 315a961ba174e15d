// A document as JSON text and back.

#include "JsonLayout.h"
#include "JsonPlace.h"
#include "PieceJson.h"
#include "ReadBack.h"
#include "SetsFromJson.h"
#include "SkeletonFromJson.h"

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
#include <map>

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

// What a reading came upon.
struct Reading {
    QStringList told;                                ///< everything, in the order of the text
    QStringList leftOut;                             ///< by number of the set: why it was left out, or empty
    std::map<const GabaritObject *, QString> untied; ///< why a contour has no skeleton
};

void readSets(const JsonPlace &stored, PatternDocument &document, Reading &reading)
{
    if (!stored.isThere())
        return;
    stored.onlyKeys({"frames"});
    const JsonPlace sets = stored["frames"];
    sets.require(!sets.isThere() || sets.value().isArray(), "is not a list");
    reading.leftOut = setsFromJson(sets.value().toArray(), document, reading.told);
}

void readSkeleton(const JsonPlace &stored, GabaritObject *gabarit, PatternDocument &document,
                  Reading &reading)
{
    const QString why = skeletonFromJson(stored, gabarit, document, reading.told);
    if (why.isEmpty())
        return;
    reading.untied[gabarit] = why;
    reading.told << why;
}

// Everything is there before the first skeleton asks for it.
void readInto(const JsonPlace &stored, PatternDocument &document, Reading &reading)
{
    stored["format"].require(stored["format"].text() == QLatin1String(kFormat),
                             "is no format that can be read");
    stored.onlyKeys({"format", "name", "sizes", "pieces", "frameSets"});
    document.setName(stored["name"].text(QString()));
    readSizes(stored["sizes"], document);
    readSets(stored["frameSets"], document, reading);

    const JsonPlace pieces = stored["pieces"];
    pieces.forEach([&](const JsonPlace &piece) {
        document.plan().addGroup(pieceFromJson(piece, document.gradationData()).release());
        GabaritObject *gabarit = document.pieces().back()->firstGabarit();
        piece["contours"].forEach([&](const JsonPlace &contour) {
            readSkeleton(contour["skeleton"], gabarit, document, reading);
            gabarit = gabarit->mNextGabarit;
        });
    });
}

// What a document has now and would not have after its text was read; what it had lost before stays lost.
QString whatWouldBeLost(const PatternDocument &document, const PatternDocument &readBack,
                        const Reading &reading, QStringList &told)
{
    const int sets = document.framesManager()->getFrameSets().size();
    for (const QString &why : reading.leftOut.mid(0, sets)) {
        if (!why.isEmpty())
            return why;
    }
    for (std::size_t number = 0; number < document.pieces().size(); ++number) {
        const GabaritObject *again = readBack.pieces()[number]->firstGabarit();
        for (GabaritObject *gabarit = document.pieces()[number]->firstGabarit(); gabarit;
             gabarit = gabarit->mNextGabarit) {
            const auto why = reading.untied.find(again);
            if (gabarit->controlSkeleton() && why != reading.untied.end())
                return why->second;
            again = again->mNextGabarit;
        }
    }
    return whatChanged(document, readBack, told);
}

// The text, proven by a reading; empty, with the reason.
QByteArray provenText(const PatternDocument &document, QString &why, QStringList &told)
{
    why = whatHasNoForm(document);
    if (!why.isEmpty())
        return QByteArray();
    const QByteArray text = jsonLayout(documentToJson(document));
    PatternDocument readBack;
    Reading reading;
    readInto(JsonPlace(parsedJson(text)), readBack, reading);
    why = whatWouldBeLost(document, readBack, reading, told);
    return why.isEmpty() ? text : QByteArray();
}

} // namespace

QByteArray documentToText(const PatternDocument &document, DocumentReport *report)
{
    DocumentReport told;
    QByteArray text;
    try {
        text = provenText(document, told.error, told.dropped);
    } catch (const JsonFault &fault) {
        told.error = QString::fromUtf8(fault.what());
    } catch (const NonFatalError &error) {
        told.error = QString::fromUtf8(error.what());
    }
    if (!told.error.isEmpty())
        told = {QStringLiteral("The document could not be read back, so it is not saved. ") + told.error, {}};
    if (report)
        *report = told;
    return text;
}

bool documentFromText(const QByteArray &text, PatternDocument &document, DocumentReport *report)
{
    DocumentReport told;
    try {
        PatternDocument fresh;
        Reading reading;
        readInto(JsonPlace(parsedJson(text)), fresh, reading);
        told.dropped = reading.told;
        document.swap(fresh);
    } catch (const JsonFault &fault) {
        told = {QString::fromUtf8(fault.what()), {}};
    }
    if (report)
        *report = told;
    return told.error.isEmpty();
}

} // namespace VorSystem
