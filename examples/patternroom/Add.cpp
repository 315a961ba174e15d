// New elements, tied to points of a piece as by clicks, and refused where the skeleton refuses.
#include "Commands.h"

#include <VorConjoin/VorConjoin.h>

#include <algorithm>

namespace room
{

using namespace VorSystem;

namespace
{

template<class Choices>
auto choiceOf(const QString &text, const Choices &choices, const QString &what)
{
    QStringList names;
    for (const auto &choice : choices) {
        if (text == QLatin1String(choice.first))
            return choice.second;
        names << QLatin1String(choice.first);
    }
    throw Refusal(
        QStringLiteral("'%1' is no choice for %2: %3.").arg(text, what, names.join(QStringLiteral(", "))),
        Exit_Usage);
}

FrameCenter::eCharacteristicType sidesOf(const QString &text)
{
    if (text.isEmpty())
        return FrameCenter::Characteristic_OneSideDoubled;
    const std::pair<const char *, FrameCenter::eCharacteristicType> kChoices[] = {
        {"one", FrameCenter::Characteristic_OneSideDoubled},
        {"two", FrameCenter::Characteristic_TwoSides},
        {"doubled", FrameCenter::Characteristic_TwoSidesDoubled},
    };
    return choiceOf(text, kChoices, QStringLiteral("--sides"));
}

FrameSegment::eDisplaceType displacementOf(const QString &text)
{
    const std::pair<const char *, FrameSegment::eDisplaceType> kChoices[] = {
        {"x", FrameSegment::Displace_AlongX},
        {"y", FrameSegment::Displace_AlongY},
        {"line", FrameSegment::Displace_AlongLine},
        {"contour", FrameSegment::Displace_AlongContour},
    };
    return choiceOf(text, kChoices, QStringLiteral("--along"));
}

FrameLink::eMeasureType shareOf(const QString &text)
{
    if (text.isEmpty())
        return FrameLink::Measure_Proportional;
    const std::pair<const char *, FrameLink::eMeasureType> kChoices[] = {
        {"proportional", FrameLink::Measure_Proportional},
        {"equal", FrameLink::Measure_Equal},
        {"fixed", FrameLink::Measure_Fixed},
    };
    return choiceOf(text, kChoices, QStringLiteral("--share"));
}

double percentOf(const QString &text, const QString &option)
{
    const double percent = numberOf(text, option);
    if (percent < 0.0 || percent > 100.0)
        throw Refusal(QStringLiteral("%1 is out of range for %2: 0 to 100.").arg(text, option));
    return percent;
}

// Every option belongs to some kinds; one that would be read over is refused.
void requireOptionsOf(const AddOptions &options)
{
    const struct {
        const char *option;
        bool isGiven;
        const char *kinds;
    } kOptions[] = {
        {"--piece", !options.piece.isEmpty(), "center segment point"},
        {"--from", !options.from.isEmpty(), "center frame segment"},
        {"--to", !options.to.isEmpty(), "center frame segment"},
        {"--sides", !options.sides.isEmpty(), "center"},
        {"--along", !options.displace.isEmpty(), "segment"},
        {"--influence", !options.influence.isEmpty(), "segment"},
        {"--perimeter", options.isPerimeter, "frame"},
        {"--percentage", !options.percentage.isEmpty(), "frame"},
        {"--frames", !options.frames.isEmpty(), "link"},
        {"--share", !options.share.isEmpty(), "link"},
        {"--ratios", !options.ratios.isEmpty(), "link"},
        {"--formula", !options.formula.isEmpty(), "spec"},
        {"--measures", !options.measures.isEmpty(), "chart"},
        {"--csv", !options.csv.isEmpty(), "chart"},
    };
    for (const auto &known : kOptions) {
        const QStringList kinds = QString::fromLatin1(known.kinds).split(QLatin1Char(' '));
        if (known.isGiven && !kinds.contains(options.kind)) {
            throw Refusal(
                QStringLiteral("A %1 takes no %2: that is for a %3.")
                    .arg(options.kind, QLatin1String(known.option), kinds.join(QStringLiteral(" or "))),
                Exit_Usage);
        }
    }
}

void requireKind(const QString &kind)
{
    const QStringList kinds{QStringLiteral("center"), QStringLiteral("frame"), QStringLiteral("segment"),
                            QStringLiteral("link"),   QStringLiteral("spec"),  QStringLiteral("chart"),
                            QStringLiteral("set"),    QStringLiteral("point")};
    if (!kinds.contains(kind)) {
        throw Refusal(QStringLiteral("'%1' cannot be added: choose center, frame, segment, link, spec, "
                                     "chart, set or point.")
                          .arg(kind),
                      Exit_Usage);
    }
}

ControlSkeleton *skeletonOf(PatternDocument &document, CDbGroupObject *piece)
{
    GabaritObject *outline = piece->firstGabarit();
    if (!outline)
        throw Refusal(QStringLiteral("The piece '%1' has no outline.").arg(piece->name()));
    ControlSkeleton *skeleton = outline->controlSkeleton();
    return skeleton ? skeleton : document.newSkeleton(outline);
}

// The two points of a center or a segment.
struct Ends {
    CDbGroupObject *piece;
    CDbPointVOR *from;
    CDbPointVOR *to;
};

Ends endsOf(const PatternDocument &document, const AddOptions &options)
{
    if (options.piece.isEmpty() || options.from.isEmpty() || options.to.isEmpty())
        throw Refusal(QStringLiteral("A %1 needs --piece, --from and --to.").arg(options.kind), Exit_Usage);
    CDbGroupObject *piece = findPiece(document, options.piece);
    const Ends ends{piece, findPoint(piece, options.from, options.style),
                    findPoint(piece, options.to, options.style)};
    if (ends.from == ends.to)
        throw Refusal(QStringLiteral("A %1 needs two different points.").arg(options.kind));
    return ends;
}

void addSet(PatternDocument &document, const AddOptions &options)
{
    GestFrames *manager = document.framesManager();
    if (manager->getFrameSetAccordingName(options.name))
        refuseTaken(options.kind, options.name);
    requireName(options.name, true);
    manager->addFrameSet(new FrameSet(options.name, manager), -1);
}

void addCenter(PatternDocument &document, const NameInSet &place, const AddOptions &options)
{
    const Ends ends = endsOf(document, options);
    ControlSkeleton *skeleton = skeletonOf(document, ends.piece);
    if (skeleton->possessControlCenter()) {
        throw Refusal(QStringLiteral("The piece '%1' has a center already: '%2'.")
                          .arg(ends.piece->name(), skeleton->getFrameCenter()->Get_Frame_Centre()->name()));
    }
    FrameCenter *center = place.set->newCenter(place.name);
    if (!center)
        refuseTaken(options.kind, place.name);
    center->setCharacteristic(sidesOf(options.sides));
    new ControlCenter(ends.from, ends.to, skeleton, center);
}

// "Waist" of "Front:Waist"; the whole text where no center is named.
QString ownNameOf(const QString &name)
{
    const int colon = name.indexOf(QLatin1Char(':'));
    return name.mid(colon + 1).trimmed();
}

void addFrame(const NameInSet &place, const AddOptions &options)
{
    const int colon = place.name.indexOf(QLatin1Char(':'));
    FrameCenter *center =
        colon < 0 ? nullptr : place.set->findFrameCenterAccordingName(place.name.left(colon));
    if (!center) {
        QStringList known;
        const QListEx<FrameCenter *> centers = place.set->getFrameCenters();
        for (const FrameCenter *candidate : centers)
            known << candidate->name();
        throw Refusal(QStringLiteral("A frame is named by a center of the set and itself, as in "
                                     "'Front:Waist': '%1' names no center.%2")
                          .arg(place.name, colon < 0 ? QString() : nearest(place.name.left(colon), known)));
    }
    ControlCenter *axis = center->ControlCenterCorrespondent();
    if (!axis)
        throw Refusal(QStringLiteral("The center '%1' is tied to no piece.").arg(center->name()));
    if (options.from.isEmpty())
        throw Refusal(QStringLiteral("A frame needs --from, and --to for one that crosses its center."),
                      Exit_Usage);

    ControlSkeleton *skeleton = axis->getSkeleton();
    const CDbGroupObject *piece = skeleton->getGroupe();
    CDbPointVOR *from = findPoint(piece, options.from, options.style);
    CDbPointVOR *to = options.to.isEmpty() ? nullptr : findPoint(piece, options.to, options.style);
    if (!axis->isClickValidToFrame(from, to)) {
        throw Refusal(
            QStringLiteral("No frame of '%1' runs from '%2' to '%3': these points do not lie on the "
                           "sides that the center allows.")
                .arg(center->name(), options.from, to ? options.to : QStringLiteral("the center")));
    }
    if (!skeleton->isValidForNewFrame(from, to))
        throw Refusal(QStringLiteral("The frame '%1' would meet another frame of '%2'.")
                          .arg(place.name, center->name()));
    FrameFrame *frame = place.set->newFrame(ownNameOf(place.name), center);
    if (!frame)
        refuseTaken(options.kind, place.name);
    frame->getPerimeterMeasurement() = options.isPerimeter;
    if (!options.percentage.isEmpty()) {
        frame->setMeasureType(FrameFrame::Measure_ByPercentage);
        frame->setPercentageMeasureRating(percentOf(options.percentage, QStringLiteral("--percentage")));
    }
    auto *body = new ControlFrame(from, to, skeleton, frame);
    // The only end stands second on that side, and nothing reads a frame without a first one.
    if (!body->getVectorContour1()) {
        throw Refusal(QStringLiteral("The frame '%1' would have its only end on the second side of '%2', and "
                                     "could not be read again: begin on the other side, or give both ends.")
                          .arg(place.name, center->name()));
    }
    if (to)
        body->recoverRatingAttaches();
}

void addSegment(PatternDocument &document, const NameInSet &place, const AddOptions &options)
{
    const Ends ends = endsOf(document, options);
    ControlSkeleton *skeleton = skeletonOf(document, ends.piece);
    if (!skeleton->isValidForNewSegment(ends.from, ends.to))
        throw Refusal(QStringLiteral("A frame or segment of '%1' has these two points already.")
                          .arg(ends.piece->name()));
    FrameSegment *segment = place.set->newSegment(place.name);
    if (!segment)
        refuseTaken(options.kind, place.name);
    auto *body = new ControlSegment(ends.from, ends.to, skeleton, segment);
    segment->getDisplace() =
        options.displace.isEmpty() ? body->defectMovesAlong() : displacementOf(options.displace);
    if (!options.influence.isEmpty())
        segment->getInfluenceAreaPercent() = percentOf(options.influence, QStringLiteral("--influence"));
}

std::vector<double> ratiosOf(const QStringList &texts)
{
    std::vector<double> ratios;
    for (const QString &text : texts) {
        ratios.push_back(numberOf(text, QStringLiteral("--ratios")));
        if (ratios.back() < 0.0)
            throw Refusal(QStringLiteral("%1 is out of range for --ratios: 0 or more.").arg(text.trimmed()));
    }
    if (!ratios.empty() &&
        std::all_of(ratios.begin(), ratios.end(), [](double ratio) { return ratio == 0.0; }))
        throw Refusal(QStringLiteral("One of the --ratios must be more than 0."));
    return ratios;
}

void addLink(const PatternDocument &document, const NameInSet &place, const AddOptions &options)
{
    const QStringList names = options.frames.split(QLatin1Char(';'), Qt::SkipEmptyParts);
    const QStringList ratios = options.ratios.split(QLatin1Char(';'), Qt::SkipEmptyParts);
    if (names.isEmpty())
        throw Refusal(QStringLiteral("A link needs --frames \"Front:Waist;Back:Waist\"."), Exit_Usage);
    const FrameLink::eMeasureType sharing = shareOf(options.share);
    if (!ratios.isEmpty() && sharing != FrameLink::Measure_Fixed)
        throw Refusal(QStringLiteral("--ratios go with --share fixed."), Exit_Usage);
    if (!ratios.isEmpty() && ratios.size() != names.size())
        throw Refusal(QStringLiteral("--ratios takes a number for each frame: %1 given, %2 needed.")
                          .arg(ratios.size())
                          .arg(names.size()));
    const std::vector<double> parts = ratiosOf(ratios);
    std::vector<FrameFrame *> frames;
    for (const QString &name : names) {
        const Element element = findElement(document, name.trimmed(), QStringLiteral("frame"));
        auto *frame = static_cast<FrameFrame *>(element.element);
        if (element.set != place.set)
            throw Refusal(QStringLiteral("'%1' belongs to another set than the link.").arg(element.path()));
        if (frame->getLink())
            throw Refusal(QStringLiteral("'%1' belongs to the link '%2' already.")
                              .arg(element.path(), frame->getLink()->name()));
        if (std::find(frames.begin(), frames.end(), frame) != frames.end())
            throw Refusal(QStringLiteral("'%1' is named twice.").arg(element.path()));
        frames.push_back(frame);
    }
    FrameLink *link = place.set->newLink(place.name);
    if (!link)
        refuseTaken(options.kind, place.name);
    link->setMeasureType(sharing);
    for (std::size_t i = 0; i < frames.size(); ++i) {
        if (i < parts.size())
            frames[i]->setRatio(parts[i]);
        link->linkFrame(frames[i]);
    }
}

void addSpec(const NameInSet &place, const AddOptions &options)
{
    if (options.formula.isEmpty())
        throw Refusal(QStringLiteral("A spec needs --formula."), Exit_Usage);
    FrameSpec *spec = place.set->newSpec(place.name);
    if (!spec)
        refuseTaken(options.kind, place.name);
    spec->setFormulaSpec(readFormula(options.formula, place.set, spec, false).release());
}

// The edge of a contour on which a place lies, by its first vector; null for none.
CDbPointVOR *edgeAt(const CDbGroupObject *piece, const GeoPoint2D &place)
{
    constexpr double kOnTheLine = 0.1; // cm
    for (const GabaritObject *outline = piece->firstGabarit(); outline; outline = outline->mNextGabarit) {
        for (CDbPointVOR *a : outline->contourVectors()) {
            if (CDbPointVOR::betweenDelta(*a, place, *outline->neighbor(a, true), kOnTheLine))
                return a;
        }
    }
    return nullptr;
}

// Puts a corner on a straight edge; in every size it parts the edge at the same share.
void divideEdge(const PatternDocument &document, CDbGroupObject *piece, CDbPointVOR *a,
                const GeoPoint2D &place)
{
    GabaritObject *outline = a->gabarit();
    CDbPointVOR *b = outline->neighbor(a, true);
    if (outline->isDeadEdge(a, b) || a->mVectorKind != Vector_Corner || b->mVectorKind != Vector_Corner)
        throw Refusal(QStringLiteral("The contour can be divided on straight edges between corners only."));
    const double share = CDbPointVOR::scaleProjeced(*a, *b, place);
    const GradationData *gradation = document.gradationData();
    const auto inSize = [&](int size) {
        const GeoPoint2D from = a->positionInSize(static_cast<short>(size), gradation);
        const GeoPoint2D to = b->positionInSize(static_cast<short>(size), gradation);
        return GeoPoint2D(from.x() + share * (to.x() - from.x()), from.y() + share * (to.y() - from.y()));
    };
    const short nest = GradationData::nestNumber(gradation);
    const GeoPoint2D nestPlace = inSize(nest);
    std::vector<Evolution> evolutions;
    for (int size = 1; size <= sizeCount(document); ++size) {
        const GeoPoint2D step = inSize(size) - nestPlace;
        evolutions.push_back({step.x(), step.y()});
    }
    CDbPointVOR *point = CDbPointVOR::newVectorObject();
    *point = nestPlace;
    point->setEvolutions(evolutions, nest);
    if (!outline->insertContourVector(point, a)) {
        CDbPointVOR::destroyVectorObject(&point);
        throw Refusal(QStringLiteral("The contour of '%1' takes no more points.").arg(piece->name()));
    }
    const std::vector<SeamAllowance> allowances = piece->seamAllowances();
    for (const SeamAllowance &allowance : allowances) {
        if (allowance.edge == a)
            piece->addSeamAllowance(point, allowance.width);
    }
}

void addPoint(const PatternDocument &document, const AddOptions &options)
{
    if (options.piece.isEmpty())
        throw Refusal(QStringLiteral("A point needs --piece."), Exit_Usage);
    CDbGroupObject *piece = findPiece(document, options.piece);
    const GeoPoint2D place = placeOf(options.name, options.style);
    if (CDbPointVOR *edge = edgeAt(piece, place)) {
        divideEdge(document, piece, edge, place);
        return;
    }
    bool isOnBorder = false;
    const GabaritObject *outline = piece->firstGabarit();
    if (!outline || !outline->isInPolygon(place, &isOnBorder))
        throw Refusal(QStringLiteral("'%1' lies outside '%2'.").arg(options.name, piece->name()));
    CDbPointVOR *point = piece->addOwnVector(place);
    if (!point)
        throw Refusal(QStringLiteral("The piece '%1' takes no more points.").arg(piece->name()));
    piece->addDrillHole(point);
}

} // namespace

int add(const AddOptions &options)
{
    requireTarget(options);
    requireKind(options.kind);
    requireOptionsOf(options);
    const DocumentPtr document = openDocument(options.document);
    FrameSet *set = nullptr;
    if (options.kind == QLatin1String("set")) {
        addSet(*document, options);
    } else if (options.kind == QLatin1String("point")) {
        addPoint(*document, options);
    } else if (document->sizeNames().isEmpty()) {
        throw Refusal(QStringLiteral("The document has no sizes, and so nothing in it has values: make it by "
                                     "'new FILE --sizes NAMES'."));
    } else if (options.kind == QLatin1String("chart")) {
        set = addCharts(*document, options);
    } else {
        NameInSet place = splitPath(*document, options.name);
        set = place.set;
        // The center of a frame is there already.
        requireName(options.kind == QLatin1String("frame") ? ownNameOf(place.name) : place.name, false);
        if (options.kind == QLatin1String("center"))
            addCenter(*document, place, options);
        else if (options.kind == QLatin1String("frame"))
            addFrame(place, options);
        else if (options.kind == QLatin1String("segment"))
            addSegment(*document, place, options);
        else if (options.kind == QLatin1String("link"))
            addLink(*document, place, options);
        else
            addSpec(place, options);
    }
    if (set) {
        // What is new reads its values; no piece moves.
        set->adjustMeasuresLevels();
        set->reevaluate(Reevaluate_Store);
        const QListEx<FrameSpec *> specs = set->getFrameSpecs();
        for (FrameSpec *spec : specs)
            spec->reevaluate(Reevaluate_Apply);
    }
    store(options, *document);
    options.console->print(
        options.csv.isEmpty()
            ? QStringLiteral("Added %1 '%2'\n").arg(options.kind, options.name)
            : QStringLiteral("Added the charts of '%1' to '%2'\n").arg(options.csv, options.name));
    return Exit_Done;
}

} // namespace room
