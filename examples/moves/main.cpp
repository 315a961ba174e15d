// Moves pieces of the bundled documents and draws each before and after the move, in one picture.

#include "Inspection.h"

#include <VorConjoin/CDbGroupObject.h>
#include <VorConjoin/GabaritObject.h>
#include <VorConjoin/GradationData.h>
#include <VorDocument/DocumentDrawing.h>
#include <VorDocument/DocumentFile.h>
#include <VorDocument/PatternDocument.h>
#include <VorFrames/VorFrames.h>

#include <QDir>
#include <QSaveFile>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <stdexcept>

using namespace VorSystem;

namespace
{

constexpr double kToldApart = 1e-4; // cm: the tolerance of a measure that was asked for

enum class Asked { Measure, Perimeter, Level, Line, Contour };

struct Move {
    const char *picture;
    const char *heading;
    const char *document;
    const char *piece;
    const char *control; ///< name of the frame or segment
    Asked asked;
    double change; ///< cm, in every size that moves
    eModifyLevelActionType action;
    short size; ///< drawn, counted from 1
};

// The nest is size 40, the fourth of seven.
const Move kMoves[] = {
    {"sleeve-biceps", "Biceps 3 cm wider in every size", "sleeve", "Sleeve", "Biceps", Asked::Measure, 3.0,
     ModifyLevel_AllSizes, 7},
    {"sleeve-elbow", "Elbow 4 cm narrower in the nest alone", "sleeve", "Sleeve", "Elbow", Asked::Measure,
     -4.0, ModifyLevel_Nest, 4},
    {"sleeve-level", "Elbow 4 cm lower in every size", "sleeve", "Sleeve", "Elbow", Asked::Level, -4.0,
     ModifyLevel_AllSizes, 4},
    {"skirt-hip", "Hip 4 cm wider in every size", "skirt", "Skirt front", "Hip", Asked::Measure, 4.0,
     ModifyLevel_AllSizes, 1},
    {"skirt-hem", "Hem 8 cm longer along its seam", "skirt", "Skirt front", "Hem", Asked::Perimeter, 8.0,
     ModifyLevel_AllSizes, 4},
    {"bodice-bust", "Bust 4 cm wider, next to a dart", "bodice", "Bodice front", "Bust", Asked::Measure, 4.0,
     ModifyLevel_AllSizes, 4},
    {"bodice-waist", "Waist 3 cm narrower between two darts", "bodice", "Bodice front", "Waist",
     Asked::Measure, -3.0, ModifyLevel_AllSizes, 4},
    {"trousers-side", "Side seam 4 cm longer along its line", "trousers", "Trouser back",
     "Trouser back, side seam", Asked::Line, 4.0, ModifyLevel_AllSizes, 4},
    {"trousers-inside", "Inside leg 4 cm longer along the contour", "trousers", "Trouser front",
     "Trouser front, inside leg", Asked::Contour, 4.0, ModifyLevel_AllSizes, 1},
};

void load(PatternDocument &document, const QString &path, const Move &move)
{
    DocumentReport report;
    if (!loadDocument(path, document, &report))
        throw std::runtime_error(report.error.toStdString());
    const std::vector<CDbGroupObject *> pieces = document.pieces();
    for (CDbGroupObject *piece : pieces) {
        if (piece->name() != QLatin1String(move.piece))
            document.removePiece(piece);
    }
    if (document.pieces().empty())
        throw std::runtime_error(std::string("no piece ") + move.piece);
}

template<class Control, class ElementOf>
Control *named(const QListEx<Control *> &controls, const char *name, ElementOf elementOf)
{
    for (Control *control : controls) {
        if (elementOf(control) && elementOf(control)->name() == QLatin1String(name))
            return control;
    }
    throw std::runtime_error(std::string("no control of the name ") + name);
}

// Wanted and read back agree in what was asked to move.
bool agrees(const ValuesAccordingSizes &wanted, const QListEx<double> &read, eModifyLevelActionType action)
{
    for (int size = 0; size < wanted.mValues.size(); ++size) {
        if (action == ModifyLevel_Nest && size != wanted.mNestIndex)
            continue;
        if (std::abs(wanted.mValues.at(size) - read.at(size)) > kToldApart)
            return false;
    }
    return true;
}

// Asks for the values of Read plus the change, through act.
template<class Read, class Act>
bool ask(const Move &move, const GradationData *gradation, Read read, Act act)
{
    ValuesAccordingSizes wanted;
    wanted.mValues = read();
    wanted.mNestIndex = static_cast<short>(GradationData::nestNumber(gradation) - 1);
    const double before = wanted.mValues.at(move.size - 1);
    for (double &value : wanted.mValues)
        value += move.change;
    ValuesAccordingSizes given = wanted;
    const eMsgConvergence result = act(given);
    const QListEx<double> after = read();
    std::printf("%-16s %-42s %7.2f %7.2f  %d\n", move.picture, move.heading, before, after.at(move.size - 1),
                static_cast<int>(result));
    return result == Msg_Converged && agrees(wanted, after, move.action);
}

bool perform(const Move &move, PatternDocument &document)
{
    const GradationData *gradation = document.gradationData();
    const ControlSkeleton *skeleton = document.pieces().front()->firstGabarit()->controlSkeleton();
    if (move.asked == Asked::Line || move.asked == Asked::Contour) {
        ControlSegment *segment = named(skeleton->getSegmentLists(), move.control,
                                        [](const ControlSegment *s) { return s->getFrameSegment(); });
        segment->getFrameSegment()->getDisplace() = move.asked == Asked::Line
                                                        ? FrameSegment::Displace_AlongLine
                                                        : FrameSegment::Displace_AlongContour;
        return ask(
            move, gradation, [&] { return segment->getMeasures(gradation); },
            [&](ValuesAccordingSizes &wanted) {
                return segment->changeMeasureLevel(ControlBase::MeasureLevel_Measure, &wanted, nullptr,
                                                   gradation, move.action);
            });
    }
    ControlFrame *frame = named(skeleton->getFrameLists(), move.control,
                                [](const ControlFrame *f) { return f->getFrameFrame(); });
    frame->getFrameFrame()->getPerimeterMeasurement() = move.asked == Asked::Perimeter;
    if (move.asked == Asked::Level) {
        return ask(
            move, gradation, [&] { return frame->getLevels(gradation); },
            [&](ValuesAccordingSizes &wanted) {
                return frame->changeMeasureLevel(ControlBase::MeasureLevel_Level, nullptr, &wanted, gradation,
                                                 move.action);
            });
    }
    return ask(
        move, gradation, [&] { return frame->getMeasures(gradation); },
        [&](ValuesAccordingSizes &wanted) {
            return frame->changeMeasureLevel(ControlBase::MeasureLevel_Measure, &wanted, nullptr, gradation,
                                             move.action);
        });
}

bool draw(const Move &move, const QDir &output, const QDir &documents)
{
    const QString path = documents.filePath(QLatin1String(move.document) + QStringLiteral(".vor.json"));
    PatternDocument before;
    PatternDocument after;
    load(before, path, move);
    load(after, path, move);
    after.setName(QLatin1String(move.heading));
    bool isWell = perform(move, after);

    const CDbGroupObject &piece = *after.pieces().front();
    const double legs = moves::largestLegDifference(piece, after.gradationData());
    const int crossed = moves::crossings(piece, after.gradationData());
    if (legs > kToldApart || crossed > 0) {
        std::printf("    legs of darts differ by %.4f cm, %d edges cross\n", legs, crossed);
        isWell = false;
    }

    QSaveFile file(output.filePath(QLatin1String(move.picture) + QStringLiteral(".svg")));
    const QByteArray picture = drawOverlay(before, after, move.size);
    if (!file.open(QIODevice::WriteOnly) || file.write(picture) != picture.size() || !file.flush() ||
        !file.commit())
        throw std::runtime_error("a picture cannot be written");
    return isWell;
}

} // namespace

int main(int count, char **words)
{
    if (count != 3) {
        std::fprintf(stderr, "usage: moves OUTPUT_FOLDER DOCUMENTS_FOLDER\n");
        return 2;
    }
    const QDir output(QString::fromLocal8Bit(words[1]));
    try {
        if (!output.mkpath(QStringLiteral(".")))
            throw std::runtime_error("the folder for the pictures cannot be made");
        std::puts("picture          move                                        before   after  result");
        bool areAllWell = true;
        for (const Move &move : kMoves)
            areAllWell = draw(move, output, QDir(QString::fromLocal8Bit(words[2]))) && areAllWell;
        return areAllWell ? 0 : 1;
    } catch (const std::exception &error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
