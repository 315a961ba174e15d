#include "BundledDocuments.h"

#include "Garments.h"

#include <VorConjoin/CDbGroupObject.h>
#include <VorConjoin/CDbPointVOR.h>
#include <VorConjoin/GabaritObject.h>
#include <VorDocument/PatternDocument.h>
#include <VorFrames/VorFrames.h>

#include <stdexcept>

namespace drafting
{

namespace
{

using namespace VorSystem;

using Draft = Sheet (*)(const Measures &);

CDbPointVOR *vectorAt(const GabaritObject *gabarit, const Point &place)
{
    for (CDbPointVOR *v : gabarit->contourVectors()) {
        if (v->distance(place) < 1e-6)
            return v;
    }
    throw std::runtime_error("a control does not end in a vector of its piece");
}

// Elements in the set and control objects on the piece.
void tie(PatternDocument &document, FrameSet *set, GabaritObject *gabarit,
         const std::vector<Control> &controls)
{
    ControlSkeleton *skeleton = document.newSkeleton(gabarit);
    FrameCenter *center = nullptr;
    for (const Control &control : controls) {
        CDbPointVOR *a = vectorAt(gabarit, control.a);
        CDbPointVOR *b = control.kind == Control::HalfWidth ? nullptr : vectorAt(gabarit, control.b);
        switch (control.kind) {
        case Control::Axis:
            center = set->newCenter(control.name);
            new ControlCenter(a, b, skeleton, center);
            break;
        case Control::Width:
            center->setCharacteristic(FrameCenter::Characteristic_TwoSides); // the whole width is drafted
            new ControlFrame(a, b, skeleton, set->newFrame(control.name, center));
            break;
        case Control::HalfWidth: new ControlFrame(a, b, skeleton, set->newFrame(control.name, center)); break;
        case Control::Length: {
            auto *length = new ControlSegment(a, b, skeleton, set->newSegment(control.name));
            length->getFrameSegment()->getDisplace() = length->defectMovesAlong();
            break;
        }
        }
    }
}

BundledDocument drafted(const QString &fileName, const QString &title, const std::vector<Draft> &pieces)
{
    const std::vector<Measures> figures = sizes();
    QStringList names;
    for (const Measures &m : figures)
        names << m.size;

    BundledDocument result{fileName, std::make_unique<PatternDocument>()};
    result.document->setName(title);
    result.document->setSizes(names, kNest);
    auto *set = new FrameSet(title, result.document->framesManager());
    result.document->framesManager()->addFrameSet(set, -1);
    for (const Draft piece : pieces) {
        std::vector<Sheet> sheets;
        for (const Measures &m : figures)
            sheets.push_back(piece(m));
        QString error;
        const CDbGroupObject *built = buildPiece(*result.document, nested(sheets), &error);
        if (!built)
            throw std::runtime_error(error.toStdString());
        tie(*result.document, set, built->firstGabarit(), sheets[kNest - 1].controls());
    }
    set->revalued(Reevaluate_Store); // the values are those of the drafts
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
