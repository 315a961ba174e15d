#include "BundledDocuments.h"

#include "Garments.h"

#include <VorDocument/PatternDocument.h>

#include <stdexcept>

namespace drafting
{

namespace
{

using Draft = Sheet (*)(const Measures &);

BundledDocument drafted(const QString &fileName, const QString &title, const std::vector<Draft> &pieces)
{
    const std::vector<Measures> figures = sizes();
    QStringList names;
    for (const Measures &m : figures)
        names << m.size;

    BundledDocument result{fileName, std::make_unique<VorSystem::PatternDocument>()};
    result.document->setName(title);
    result.document->setSizes(names, kNest);
    for (const Draft piece : pieces) {
        std::vector<Sheet> sheets;
        for (const Measures &m : figures)
            sheets.push_back(piece(m));
        QString error;
        if (!VorSystem::buildPiece(*result.document, nested(sheets), &error))
            throw std::runtime_error(error.toStdString());
    }
    return result;
}

} // namespace

std::vector<BundledDocument> bundledDocuments()
{
    std::vector<BundledDocument> all;
    all.push_back(
        drafted(QStringLiteral("bodice.vor.json"), QStringLiteral("Bodice"), {bodiceFront, bodiceBack}));
    all.push_back(drafted(QStringLiteral("sleeve.vor.json"), QStringLiteral("Sleeve"), {sleeve}));
    all.push_back(drafted(QStringLiteral("trousers.vor.json"), QStringLiteral("Trousers"),
                          {trouserFront, trouserBack}));
    all.push_back(drafted(QStringLiteral("skirt.vor.json"), QStringLiteral("Skirt"), {skirtFront}));
    return all;
}

} // namespace drafting
