// New elements, tied to points of a piece as by clicks, and refused where the skeleton refuses.
#include "Commands.h"

#include <VorConjoin/VorConjoin.h>

#include <algorithm>

namespace room
{

using namespace VorSystem;

namespace
{

[[noreturn]] void refuseTaken(const QString &kind, const QString &name)
{
    throw Refusal(
        QStringLiteral("There is a %1 '%2' already, or one that counts as the same name.").arg(kind, name));
}

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
    const std::pair<const char *, FrameLink::eMeasureType> kChoices[] = {
        {"proportional", FrameLink::Measure_Proportional},
        {"equal", FrameLink::Measure_Equal},
        {"fixed", FrameLink::Measure_Fixed},
    };
    return choiceOf(text, kChoices, QStringLiteral("--share"));
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
    if (options.name.contains(QLatin1Char('/')))
        throw Refusal(QStringLiteral("The name of a set must not hold '/'."));
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
    FrameFrame *frame = place.set->newFrame(place.name.mid(colon + 1).trimmed(), center);
    if (!frame)
        refuseTaken(options.kind, place.name);
    frame->getPerimeterMeasurement() = options.isPerimeter;
    if (!options.percentage.isEmpty()) {
        frame->setMeasureType(FrameFrame::Measure_ByPercentage);
        frame->setPercentageMeasureRating(numberOf(options.percentage, QStringLiteral("--percentage")));
    }
    auto *body = new ControlFrame(from, to, skeleton, frame);
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
        segment->getInfluenceAreaPercent() = numberOf(options.influence, QStringLiteral("--influence"));
}

void addLink(const PatternDocument &document, const NameInSet &place, const AddOptions &options)
{
    const QStringList names = options.frames.split(QLatin1Char(';'), Qt::SkipEmptyParts);
    const QStringList ratios = options.ratios.split(QLatin1Char(';'), Qt::SkipEmptyParts);
    if (names.isEmpty())
        throw Refusal(QStringLiteral("A link needs --frames \"Front:Waist;Back:Waist\"."), Exit_Usage);
    if (!ratios.isEmpty() && ratios.size() != names.size())
        throw Refusal(QStringLiteral("%1 ratios for %2 frames.").arg(ratios.size()).arg(names.size()));
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
    link->setMeasureType(shareOf(options.share));
    for (std::size_t i = 0; i < frames.size(); ++i) {
        if (!ratios.isEmpty())
            frames[i]->setRatio(numberOf(ratios.at(int(i)), QStringLiteral("--ratios")));
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

void addOneChart(FrameSet *set, const QString &name, const QListEx<double> &values, const AddOptions &options)
{
    if (set->findFrameMeasurementChartAccordingName(name))
        refuseTaken(options.kind, name);
    FrameMeasurementChart *chart = set->newMeasurementChart(name);
    if (!chart)
        throw Refusal(QStringLiteral("A spec bears the name '%1' already.").arg(name));
    set->adjustMeasuresLevels(); // the list gets its place of the nest
    chart->applyValues(&values, nullptr, nullptr);
}

// A table with the sizes as headings and a measure per row.
void addCharts(const PatternDocument &document, FrameSet *set, const AddOptions &options)
{
    QStringList lines = QString::fromUtf8(readText(options.csv)).split(QLatin1Char('\n'));
    for (QString &line : lines)
        line = line.trimmed();
    lines.removeAll(QString());
    const QString head = lines.value(0);
    const QChar separator = head.contains(QLatin1Char(';'))    ? QLatin1Char(';')
                            : head.contains(QLatin1Char('\t')) ? QLatin1Char('\t')
                                                               : QLatin1Char(',');
    const auto cellsOf = [&](const QString &line) {
        QStringList cells;
        for (const QString &cell : line.split(separator))
            cells << cell.trimmed().remove(QLatin1Char('"'));
        return cells;
    };
    const QStringList headings = cellsOf(head);
    for (int row = 1; row < lines.size(); ++row) {
        const QStringList cells = cellsOf(lines.at(row));
        QListEx<double> values;
        for (const QString &size : document.sizeNames()) {
            const int column = headings.indexOf(size);
            if (column < 1)
                throw Refusal(QStringLiteral("'%1' has no column for size %2.").arg(options.csv, size));
            values.append(lengthOf(cells.value(column), options.style,
                                   QStringLiteral("%1 in size %2 (%3, line %4)")
                                       .arg(cells.first(), size, options.csv, QString::number(row + 1))));
        }
        addOneChart(set, cells.first(), values, options);
    }
    if (lines.size() < 2)
        throw Refusal(QStringLiteral("'%1' holds no measures: a heading of sizes and a row per measure are "
                                     "expected.")
                          .arg(options.csv));
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
    const DocumentPtr document = openDocument(options.document);
    if (options.name.trimmed().isEmpty())
        throw Refusal(QStringLiteral("A %1 needs a name.").arg(options.kind));
    FrameSet *set = nullptr;
    if (options.kind == QLatin1String("set")) {
        addSet(*document, options);
    } else if (options.kind == QLatin1String("point")) {
        addPoint(*document, options);
    } else if (options.kind == QLatin1String("chart") && !options.csv.isEmpty()) {
        set = findSet(*document, options.name);
        addCharts(*document, set, options);
    } else {
        const NameInSet place = splitPath(*document, options.name);
        set = place.set;
        if (options.kind == QLatin1String("center"))
            addCenter(*document, place, options);
        else if (options.kind == QLatin1String("frame"))
            addFrame(place, options);
        else if (options.kind == QLatin1String("segment"))
            addSegment(*document, place, options);
        else if (options.kind == QLatin1String("link"))
            addLink(*document, place, options);
        else if (options.kind == QLatin1String("spec"))
            addSpec(place, options);
        else if (options.kind == QLatin1String("chart"))
            addOneChart(set, place.name,
                        lengthsOf(options.measures, options.style, sizeCount(*document),
                                  QStringLiteral("'%1'").arg(place.name)),
                        options);
        else
            throw Refusal(QStringLiteral("'%1' cannot be added: choose center, frame, segment, link, spec, "
                                         "chart, set or point.")
                              .arg(options.kind),
                          Exit_Usage);
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
    options.console->print(QStringLiteral("Added %1 '%2'\n").arg(options.kind, options.name));
    return Exit_Done;
}

} // namespace room
