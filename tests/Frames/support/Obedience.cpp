// Does the piece obey?

#include <support/Obedience.h>

#include <support/ControlledPiece.h>
#include <support/NestPieces.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <memory>
#include <numeric>

namespace support
{

using namespace VorSystem;

namespace
{

const char *const kUnexplained = "UNEXPLAINED"; // a defect to look into
constexpr double kDegrees = 180.0 / 3.14159265358979323846;
constexpr double kSmooth = 30.0; // degrees: a contour that turns less counts as smooth
constexpr double kAnswers = 0.2; // part of its displacement by which a segment must grow to be led there
constexpr double kAnswersAtTheEnd = 0.45;
constexpr double kFlatSlide = 35.0; // degrees to the axis below which a slide by axis distance overshoots

/// The anchors that stand for an axis: the lowest and the highest one in the middle of the piece.
std::pair<CDbPointVOR *, CDbPointVOR *> axisOf(const ControlledPiece &piece)
{
    const std::vector<CDbPointVOR *> &contour = piece.gabarit()->contourVectors();
    double left = contour.front()->x();
    double right = left;
    double bottom = contour.front()->y();
    double top = bottom;
    for (const CDbPointVOR *vector : contour) {
        left = std::min(left, vector->x());
        right = std::max(right, vector->x());
        bottom = std::min(bottom, vector->y());
        top = std::max(top, vector->y());
    }
    const GeoPoint2D middle((left + right) / 2.0, (bottom + top) / 2.0);
    const auto nearest = [&](double y) {
        CDbPointVOR *best = nullptr;
        double least = 0.0;
        for (CDbPointVOR *vector : contour) {
            DartContour *dart = nullptr;
            short role = 0;
            if (!vector->isAnchor() || piece.gabarit()->pICGabIsWhichDart(vector, &dart, &role))
                continue;
            // The height counts more than the middle, yet a top that dips in the middle stays the top.
            const double off = std::abs(vector->x() - middle.x()) + 2.0 * std::abs(vector->y() - y);
            if (!best || off < least) {
                best = vector;
                least = off;
            }
        }
        return best;
    };
    return {nearest(bottom), nearest(top)};
}

/// The anchors strictly between two vectors of the contour, in its order.
std::vector<CDbPointVOR *> anchorsBetween(const ControlledPiece &piece, CDbPointVOR *from, CDbPointVOR *to)
{
    std::vector<CDbPointVOR *> anchors;
    for (CDbPointVOR *vector = piece.gabarit()->neighbor(from, true); vector != to;
         vector = piece.gabarit()->neighbor(vector, true)) {
        DartContour *dart = nullptr;
        short role = 0;
        if (vector->isAnchor() && !piece.gabarit()->pICGabIsWhichDart(vector, &dart, &role))
            anchors.push_back(vector);
    }
    return anchors;
}

CDbPointVOR *nearestTo(const std::vector<CDbPointVOR *> &anchors, double share, const GeoPoint2D &bottom,
                       const GeoPoint2D &top)
{
    const auto off = [&](const CDbPointVOR *v) {
        return std::abs(CDbPointVOR::scaleProjeced(bottom, top, *v) - share);
    };
    return *std::min_element(anchors.begin(), anchors.end(),
                             [&](const CDbPointVOR *a, const CDbPointVOR *b) { return off(a) < off(b); });
}

/// Frames on a piece at shares of the axis; fewer where the piece has too few anchors.
struct Frames {
    std::vector<ControlFrame *> controls;
};
const std::vector<double> kAskedShares = {0.3, 0.5, 0.75};
const std::vector<double> kRegradedShares = {0.1, 0.25, 0.4, 0.55, 0.7, 0.85};

Frames putFrames(ControlledPiece &piece, FrameCenter::eCharacteristicType characteristic,
                 const std::vector<double> &shares)
{
    const auto [bottom, top] = axisOf(piece);
    piece.center(bottom, top, characteristic);
    const std::vector<CDbPointVOR *> ahead = anchorsBetween(piece, bottom, top);
    std::vector<CDbPointVOR *> behind = anchorsBetween(piece, top, bottom);
    Frames frames;
    if (ahead.empty() || behind.empty())
        return frames;
    std::vector<CDbPointVOR *> used;
    const auto isUsed = [&](CDbPointVOR *v) { return std::find(used.begin(), used.end(), v) != used.end(); };
    for (const double share : shares) {
        CDbPointVOR *v1 = nearestTo(ahead, share, *bottom, *top);
        CDbPointVOR *v2 = nullptr;
        if (characteristic != FrameCenter::Characteristic_OneSideDoubled)
            v2 = nearestTo(behind, share, *bottom, *top);
        if (isUsed(v1) || (v2 && isUsed(v2)))
            continue;
        used.push_back(v1);
        used.push_back(v2);
        frames.controls.push_back(piece.frame(("At " + std::to_string(share)).c_str(), v1, v2));
    }
    return frames;
}

double angleBetween(const GeoPoint2D &a, const GeoPoint2D &b)
{
    const double product = std::hypot(a.x(), a.y()) * std::hypot(b.x(), b.y());
    if (product <= 0.0)
        return 0.0;
    return std::acos(std::clamp((a.x() * b.x() + a.y() * b.y()) / product, -1.0, 1.0)) * kDegrees;
}

/// By how much the contour turns at a vector, degrees.
double turnAt(const ControlledPiece &piece, const CDbPointVOR *vector)
{
    const CDbPointVOR *before = piece.gabarit()->neighbor(vector, false);
    const CDbPointVOR *after = piece.gabarit()->neighbor(vector, true);
    return before && after ? angleBetween(*vector - *before, *after - *vector) : 0.0;
}

double largestGap(const QListEx<double> &wanted, const QListEx<double> &read, int nestAlone)
{
    double gap = 0.0;
    for (int size = 0; size < wanted.size(); ++size) {
        if (nestAlone < 0 || size == nestAlone)
            gap = std::max(gap, std::abs(wanted.at(size) - read.at(size)));
    }
    return gap;
}

/// Why a frame could not obey: for a perimeter, the angle at which the contour leaves the axis.
std::string reasonOf(const ControlledPiece &piece, const ControlFrame *frame)
{
    const ControlCenter *center = piece.skeleton()->getFrameCenter();
    const GeoPoint2D axis = *center->getVectorContour2() - *center->getVectorContour1();
    if (frame->getFrameFrame()->getPerimeterMeasurement()) {
        for (const short side : {short(1), short(2)}) {
            const CDbPointVOR *vector = frame->getVectorContour(side);
            if (!vector)
                continue;
            const bool sense = (side == 1) == frame->getContourDirection1To2();
            const CDbPointVOR *towards = piece.gabarit()->neighbor(vector, sense);
            double angle = angleBetween(*vector - *towards, axis);
            angle = std::min(angle, 180.0 - angle);
            if (angle < kFlatSlide)
                return "contour leaves the axis at less than 35 degrees";
        }
        return "contour does not reach that far from the axis";
    }
    return kUnexplained;
}

void note(Obeyed &row, eMsgConvergence result, int passes, double gap, double bend, const std::string &reason)
{
    ++row.requests;
    ++row.results[result];
    if (result == Msg_Converged) {
        row.passes.push_back(passes);
        row.largestGap = std::max(row.largestGap, gap);
        row.largestBend = std::max(row.largestBend, bend);
    } else {
        ++row.explanations[reason];
    }
}

struct FrameKind {
    FrameCenter::eCharacteristicType characteristic;
    bool perimeter;
    bool byPercentage;
    bool level;
};

std::string nameOf(const FrameKind &kind)
{
    static const char *const characteristics[] = {"", "one side", "two sides", "two sides doubled"};
    std::string name = std::string("frame, ") + characteristics[kind.characteristic];
    if (kind.level)
        return name + ", level";
    name += kind.perimeter ? ", perimeter" : ", chord";
    if (kind.characteristic != FrameCenter::Characteristic_OneSideDoubled)
        name += kind.byPercentage ? ", 30 percent" : ", in proportion";
    return name;
}

void askFrame(const Subject &subject, const FrameKind &kind, std::size_t which, double factor, bool nestAlone,
              Obeyed &row)
{
    ControlledPiece piece(subject.make(), subject.gradation);
    const Frames frames = putFrames(piece, kind.characteristic, kAskedShares);
    if (which >= frames.controls.size())
        return;
    ControlFrame *frame = frames.controls[which];
    if (kind.level && frame->isLevelZero())
        return;
    frame->getFrameFrame()->getPerimeterMeasurement() = kind.perimeter;
    frame->getFrameFrame()->setMeasureType(kind.byPercentage ? FrameFrame::Measure_ByPercentage
                                                             : FrameFrame::Measure_InProportion);
    frame->getFrameFrame()->setPercentageMeasureRating(30.0);
    piece.readBack();
    const double turnBefore = turnAt(piece, frame->getVectorContour1());

    ValuesAccordingSizes wanted = times(kind.level ? piece.levelsOf(frame) : piece.measuresOf(frame), factor);
    piece.rebuilds();
    const std::string reason = reasonOf(piece, frame);
    const auto action = nestAlone ? ModifyLevel_Nest : ModifyLevel_AllSizes;
    const eMsgConvergence result =
        kind.level ? piece.changeLevels(frame, wanted, action) : piece.changeMeasures(frame, wanted, action);
    const int passes = piece.rebuilds();
    const QListEx<double> read =
        kind.level ? frame->getLevels(piece.gradation()) : frame->getMeasures(piece.gradation());
    const double bend = turnBefore < kSmooth ? turnAt(piece, frame->getVectorContour1()) - turnBefore : 0.0;
    note(row, result, passes, largestGap(wanted.mValues, read, nestAlone ? wanted.mNestIndex : -1), bend,
         reason);
}

struct SegmentKind {
    FrameSegment::eDisplaceType type;
    bool withCenter;
};

std::string nameOf(const SegmentKind &kind)
{
    static const char *const types[] = {"", "along x", "along y", "along its line", "along the contour"};
    return std::string("segment, ") + types[kind.type] +
           (kind.withCenter ? ", with center" : ", without center");
}

/// By how much the segment grows for a centimetre of displacement: 1 along a straight segment, 0 across it.
double responseOf(const ControlledPiece &piece, const ControlSegment *segment)
{
    const auto type = segment->getFrameSegment()->getDisplace();
    GeoPoint2D direction = *segment->getVectorContour2() - *segment->getVectorContour1();
    if (type == FrameSegment::Displace_AlongX)
        direction = GeoPoint2D(direction.x() > 0.0 ? 1.0 : -1.0, 0.0);
    else if (type == FrameSegment::Displace_AlongY)
        direction = GeoPoint2D(0.0, direction.y() > 0.0 ? 1.0 : -1.0);
    const double length = std::hypot(direction.x(), direction.y());
    double response = 0.0;
    for (CDbPointVOR *vector = segment->getVectorContour(1); vector != segment->getVectorContour(2);) {
        CDbPointVOR *next = piece.gabarit()->neighbor(vector, segment->getContourDirection1To2());
        const GeoPoint2D edge = *next - *vector;
        const double edgeLength = std::hypot(edge.x(), edge.y());
        const double share = segment->getDisplacementFactor(next) - segment->getDisplacementFactor(vector);
        if (edgeLength > 0.0 && !piece.gabarit()->isDeadEdge(vector, next))
            response += share * (edge.x() * direction.x() + edge.y() * direction.y()) / (edgeLength * length);
        vector = next;
    }
    return response;
}

/// The share of its length that a segment keeps whatever moves it along its axis, in the size where it is
/// largest: what runs across.
double shareAcross(const ControlledPiece &piece, const ControlSegment *segment, bool nestAlone)
{
    const bool alongX = segment->getFrameSegment()->getDisplace() == FrameSegment::Displace_AlongX;
    double largest = 0.0;
    for (short size = 1; size <= GradationData::sizes(piece.gradation()); ++size) {
        if (nestAlone && size != GradationData::nestNumber(piece.gradation()))
            continue;
        double length = 0.0;
        double across = 0.0;
        const CDbPointVOR *vector = segment->getVectorContour1();
        while (vector != segment->getVectorContour2()) {
            const CDbPointVOR *next = piece.gabarit()->neighbor(vector, segment->getContourDirection1To2());
            const GeoPoint2D edge = next->positionInSize(size, piece.gradation()) -
                                    vector->positionInSize(size, piece.gradation());
            length += std::hypot(edge.x(), edge.y());
            across += std::abs(alongX ? edge.y() : edge.x());
            vector = next;
        }
        largest = std::max(largest, across / length);
    }
    return largest;
}

std::string reasonOf(const ControlledPiece &piece, const ControlSegment *segment, double factor,
                     bool nestAlone)
{
    const auto type = segment->getFrameSegment()->getDisplace();
    if (type == FrameSegment::Displace_AlongX || type == FrameSegment::Displace_AlongY) {
        const double kept = shareAcross(piece, segment, nestAlone) / factor;
        if (kept >= 1.0)
            return "wish is shorter than what runs across the displacement";
        // The nearer to that, the less the length answers.
        if (responseOf(piece, segment) < kAnswers || std::sqrt(1.0 - kept * kept) < kAnswersAtTheEnd)
            return "length hardly answers the displacement";
    }
    return kUnexplained;
}

void askSegment(const Subject &subject, const SegmentKind &kind, std::size_t from, std::size_t span,
                double factor, bool nestAlone, Obeyed &row)
{
    ControlledPiece piece(subject.make(), subject.gradation);
    const auto [bottom, top] = axisOf(piece);
    if (kind.withCenter)
        piece.center(bottom, top, FrameCenter::Characteristic_TwoSides);
    const std::vector<CDbPointVOR *> anchors = anchorsBetween(piece, bottom, top);
    if (from + span >= anchors.size())
        return;
    ControlSegment *segment = piece.segment("Segment", anchors[from], anchors[from + span], kind.type);
    const ValuesAccordingSizes wanted = times(piece.measuresOf(segment), factor);
    piece.rebuilds();
    std::string reason = reasonOf(piece, segment, factor, nestAlone);
    const eMsgConvergence result =
        piece.changeMeasures(segment, wanted, nestAlone ? ModifyLevel_Nest : ModifyLevel_AllSizes);
    if (result == Msg_Impossible)
        reason = "no length left behind the segment";
    else if (reason == kUnexplained && responseOf(piece, segment) < kAnswers)
        reason = "stretch bends back on the way, so its length answers no longer";
    const int passes = piece.rebuilds();
    note(row, result, passes,
         largestGap(wanted.mValues, segment->getMeasures(piece.gradation()),
                    nestAlone ? wanted.mNestIndex : -1),
         0.0, reason);
}

} // namespace

double Obeyed::medianOfPasses() const
{
    if (passes.empty())
        return 0.0;
    std::vector<int> sorted = passes;
    std::sort(sorted.begin(), sorted.end());
    const std::size_t middle = sorted.size() / 2;
    return sorted.size() % 2 ? sorted[middle] : (sorted[middle - 1] + sorted[middle]) / 2.0;
}

ObedienceTable obedienceOfFrames(const std::vector<Subject> &subjects, const ObedienceOptions &options)
{
    std::vector<FrameKind> kinds;
    for (const auto characteristic :
         {FrameCenter::Characteristic_OneSideDoubled, FrameCenter::Characteristic_TwoSides,
          FrameCenter::Characteristic_TwoSidesDoubled}) {
        kinds.push_back({characteristic, false, false, true});
        for (const bool perimeter : {false, true}) {
            for (const bool byPercentage : {false, true}) {
                if (!byPercentage || characteristic != FrameCenter::Characteristic_OneSideDoubled)
                    kinds.push_back({characteristic, perimeter, byPercentage, false});
            }
        }
    }
    ObedienceTable table;
    for (const FrameKind &kind : kinds) {
        Obeyed &row = table[nameOf(kind)];
        for (const Subject &subject : subjects) {
            for (const double factor : options.factors) {
                for (const bool nestAlone : {true, false}) {
                    for (std::size_t which = 0; which < (options.everyKind ? 3u : 1u); ++which)
                        askFrame(subject, kind, which, factor, nestAlone, row);
                }
            }
        }
    }
    return table;
}

ObedienceTable obedienceOfSegments(const std::vector<Subject> &subjects, const ObedienceOptions &options)
{
    ObedienceTable table;
    for (const auto type : {FrameSegment::Displace_AlongX, FrameSegment::Displace_AlongY,
                            FrameSegment::Displace_AlongLine, FrameSegment::Displace_AlongContour}) {
        for (const bool withCenter : {false, true}) {
            const SegmentKind kind = {type, withCenter};
            Obeyed &row = table[nameOf(kind)];
            for (const Subject &subject : subjects) {
                for (const double factor : options.factors) {
                    for (const bool nestAlone : {true, false}) {
                        for (std::size_t from = 0; from < (options.everyKind ? 12u : 2u); from += 2)
                            for (const std::size_t span : {std::size_t(1), std::size_t(3)})
                                askSegment(subject, kind, from, span, factor, nestAlone, row);
                    }
                }
            }
        }
    }
    return table;
}

std::string str(const ObedienceTable &table)
{
    std::string text = "kind                                              requests      1    3    4    5    "
                       "6  passes  most  gap cm   bend\n";
    char line[256];
    for (const auto &[name, row] : table) {
        const auto count = [&row = row](int result) {
            const auto found = row.results.find(result);
            return found == row.results.end() ? 0 : found->second;
        };
        const int most = row.passes.empty() ? 0 : *std::max_element(row.passes.begin(), row.passes.end());
        std::snprintf(line, sizeof line, "%-50s %7d %6d %4d %4d %4d %4d %7.1f %5d %8.1e %5.1f\n",
                      name.c_str(), row.requests, count(1), count(3), count(4), count(5), count(6),
                      row.medianOfPasses(), most, row.largestGap, row.largestBend);
        text += line;
        for (const auto &[reason, times] : row.explanations) {
            std::snprintf(line, sizeof line, "    %5d  %s\n", times, reason.c_str());
            text += line;
        }
    }
    return text;
}

namespace
{

/// Places of a contour in every size, laid upon each other at the origin of the levels: where a piece lies on
/// the table is no matter of measures.
std::vector<std::vector<GeoPoint2D>> placesFromOrigin(const ControlledPiece &piece,
                                                      const ControlFrame *origin)
{
    std::vector<std::vector<GeoPoint2D>> places;
    for (short size = 1; size <= GradationData::sizes(piece.gradation()); ++size) {
        const GeoPoint2D a = origin->getVectorContour1()->positionInSize(size, piece.gradation());
        const GeoPoint2D b = origin->getVectorContour2()->positionInSize(size, piece.gradation());
        const GeoPoint2D middle((a.x() + b.x()) / 2.0, (a.y() + b.y()) / 2.0);
        places.emplace_back();
        for (const CDbPointVOR *vector : piece.gabarit()->contourVectors())
            places.back().push_back(vector->positionInSize(size, piece.gradation()) - middle);
    }
    return places;
}

} // namespace

Regraded regrade(const Subject &subject)
{
    Regraded outcome;
    ControlledPiece piece(subject.make(), subject.gradation);
    const Frames frames = putFrames(piece, FrameCenter::Characteristic_TwoSides, kRegradedShares);
    outcome.frames = static_cast<int>(frames.controls.size());
    if (frames.controls.empty())
        return outcome;
    const ControlFrame *origin = frames.controls.front();
    const auto original = placesFromOrigin(piece, origin);
    std::vector<ValuesAccordingSizes> measures;
    std::vector<ValuesAccordingSizes> levels;
    for (ControlFrame *frame : frames.controls) {
        measures.push_back(piece.measuresOf(frame));
        levels.push_back(piece.levelsOf(frame));
    }

    // Only what lies between the outermost frames is told by their values.
    const auto [bottom, top] = axisOf(piece);
    double lowest = 1.0;
    double highest = 0.0;
    for (const ControlFrame *frame : frames.controls) {
        for (const short side : {short(1), short(2)}) {
            const double height = CDbPointVOR::scaleProjeced(*bottom, *top, *frame->getVectorContour(side));
            lowest = std::min(lowest, height);
            highest = std::max(highest, height);
        }
    }
    const std::vector<CDbPointVOR *> &contour = piece.gabarit()->contourVectors();
    std::vector<int> standing; // 0 beyond the frames, 1 between them, 2 on one
    for (CDbPointVOR *vector : contour) {
        const double height = CDbPointVOR::scaleProjeced(*bottom, *top, *vector);
        const bool between = height >= lowest && height <= highest && vector != bottom && vector != top;
        standing.push_back(piece.skeleton()->controlFrameisVectorContour(vector) ? 2 : between ? 1 : 0);
    }
    const auto compare = [&](Regraded &into) {
        const auto now = placesFromOrigin(piece, origin);
        double sum = 0.0;
        int count = 0;
        for (std::size_t size = 0; size < now.size(); ++size) {
            for (std::size_t place = 0; place < contour.size(); ++place) {
                const double off = 10.0 * now[size][place].distance(original[size][place]); // mm
                if (standing[place] == 2)
                    into.atFrames = std::max(into.atFrames, off);
                if (standing[place] != 1)
                    continue;
                into.betweenFrames = std::max(into.betweenFrames, off);
                sum += off;
                ++count;
            }
        }
        into.meanBetween = count ? sum / count : 0.0;
    };

    const auto sizes = static_cast<std::size_t>(GradationData::sizes(piece.gradation()));
    for (CDbPointVOR *vector : vectorsOf(piece.group())) {
        vector->setEvolutions(std::vector<Evolution>(sizes), GradationData::nestNumber(piece.gradation()));
        vector->tryResetGradationInRegular(piece.gradation());
    }
    piece.readBack();
    Regraded flat;
    compare(flat);
    outcome.ungraded = std::max(flat.atFrames, flat.betweenFrames);
    for (std::size_t i = 0; i < frames.controls.size(); ++i) {
        const eMsgConvergence result =
            frames.controls[i]->changeMeasureLevel(ControlBase::MeasureLevel_Both, &measures[i], &levels[i],
                                                   piece.gradation(), ModifyLevel_AllSizes);
        outcome.failures += result == Msg_Converged ? 0 : 1;
    }
    compare(outcome);
    return outcome;
}

std::vector<Subject> garmentSubjects()
{
    return {{"bodice", bodiceWithDart, sevenSizes()},
            {"sleeve", sleeve, sevenSizes()},
            {"trouser leg", trouserLeg, sevenSizes()},
            {"skirt", skirt, sevenSizes()},
            {"mirrored back", mirroredBack, sevenSizes()}};
}

std::vector<Subject> nestSubjects(const std::string &path)
{
    std::vector<Subject> subjects;
    for (const NestPiece &piece : readNest(QString::fromStdString(path)))
        subjects.push_back({piece.name.toStdString(), [piece] { return piece.make(); }, piece.gradation});
    return subjects;
}

} // namespace support
