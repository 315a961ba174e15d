// From a nest as JSON to drafts of pieces.

#include "JsonPlace.h"

#include <VorConjoin/GradationData.h>
#include <VorDocument/NestImport.h>
#include <VorDocument/PatternDocument.h>
#include <VorDocument/PieceDraft.h>

namespace VorSystem
{

namespace
{

class NestReader
{
public:
    NestReader(const JsonPlace &stored, PatternDocument &document) : mStored(stored), mDocument(document) {}

    void read()
    {
        readUnits();
        readSizes();
        mStored["pieces"].require(mStored["pieces"].isThere(), "is missing");
        mStored["pieces"].forEach([&](const JsonPlace &piece) { readPiece(piece); });
    }

private:
    void readUnits()
    {
        const QString unit = mStored["unit"].text();
        mStored["unit"].require(unit == QLatin1String("mm") || unit == QLatin1String("cm"),
                                "is neither mm nor cm");
        mUnit = unit == QLatin1String("mm") ? 0.1 : 1.0;
        mUp = mStored["axis"].text(QString()).contains(QLatin1String("y down"), Qt::CaseInsensitive) ? -1.0
                                                                                                     : 1.0;
    }

    void readSizes()
    {
        QStringList names;
        mStored["sizes"].require(mStored["sizes"].isThere(), "is missing");
        mStored["sizes"].forEach([&](const JsonPlace &name) { names << name.text(); });
        const int base = names.indexOf(mStored["base"].text());
        mStored["base"].require(base >= 0, "is none of the sizes");
        mStored["sizes"].require(mDocument.setSizes(names, static_cast<short>(base + 1)), "must differ");
    }

    GeoPoint2D placeFrom(const JsonPlace &stored) const
    {
        stored.require(stored.count() == 2, "is not a pair of numbers");
        return GeoPoint2D(mUnit * stored[0].number(), mUp * mUnit * stored[1].number());
    }

    GradedPlace placesFrom(const JsonPlace &stored) const
    {
        stored.require(stored.count() == mDocument.sizeNames().size(), "is not there for every size");
        GradedPlace places;
        stored.forEach([&](const JsonPlace &place) { places.push_back(placeFrom(place)); });
        return places;
    }

    // A line is a pair of ends, each in every size.
    PieceDraft::Line lineFrom(const JsonPlace &stored, InnerLine::eUse use) const
    {
        stored.require(stored.count() == 2, "is not a pair of ends");
        return {placesFrom(stored[0]), placesFrom(stored[1]), use};
    }

    void readPiece(const JsonPlace &stored)
    {
        PieceDraft draft;
        draft.name = stored["name"].text();
        draft.start = placesFrom(stored["start"]["xy"]);
        stored["edges"].forEach([&](const JsonPlace &edge) { draft.edges.push_back(edgeFrom(edge)); });
        stored["notches"].forEach(
            [&](const JsonPlace &notch) { draft.marks.push_back(placesFrom(notch["xy"])); });
        if (stored["grainline"].isThere())
            draft.grainLines.push_back(lineFrom(stored["grainline"], InnerLine::Inner));
        if (stored["fold_mark"].isThere())
            draft.innerLines.push_back(lineFrom(stored["fold_mark"], InnerLine::Fold));
        QString error;
        if (!buildPiece(mDocument, draft, &error))
            stored.fail(error.toUtf8().constData());
    }

    DraftEdge edgeFrom(const JsonPlace &stored) const
    {
        DraftEdge edge;
        edge.to = placesFrom(stored["xy"]);
        const QString type = stored["type"].text();
        if (type == QLatin1String("curve")) {
            edge.control1 = placesFrom(stored["cp1"]);
            edge.control2 = placesFrom(stored["cp2"]);
        } else {
            stored["type"].require(type == QLatin1String("line"), "is neither line nor curve");
        }
        const bool isNamed = stored["to"].isThere() && !stored["to"].value().isNull();
        edge.endsInDartTip = isNamed && stored["to"].text().endsWith(QLatin1String("Tip"));
        return edge;
    }

    const JsonPlace &mStored;
    PatternDocument &mDocument;
    double mUnit = 1.0; // cm
    double mUp = 1.0;
};

} // namespace

bool importNest(const QByteArray &text, PatternDocument &document, DocumentReport *report)
{
    QString error;
    try {
        PatternDocument fresh;
        NestReader(JsonPlace(parsedJson(text)), fresh).read();
        document.swap(fresh);
    } catch (const JsonFault &fault) {
        error = QString::fromUtf8(fault.what());
    }
    if (report)
        *report = {error, {}};
    return error.isEmpty();
}

} // namespace VorSystem
