// What must hold for every text of a document, however damaged. Shared by the fuzzer and the replay of its
// corpus.
#pragma once

#include <VorCore/VorCore.h>
#include <VorDocument/VorDocument.h>
#include <VorFrames/VorFrames.h>

#include <QByteArray>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>
#include <cstdlib>
#include <limits>

namespace document_checks
{

using namespace VorSystem;

/// Ends the program: the fuzzer keeps the input, the test reports the crash.
inline void require(bool holds)
{
    if (!holds)
        std::abort();
}

/// Nobody reads the messages of a hundred thousand documents; every question is answered with yes.
class SilentApplication final : public VorCoreApplication
{
public:
    void showMessage(const QString &, const QString &, int) override {}
    bool askQuestion(const QString &, const QString &, int) override { return true; }
};

// The sound document
// ------------------------------------------------------------------------------------------------------

/// A place in three sizes; the outer ones are a step away.
inline GradedPlace graded(double x, double y, double step = 0.0)
{
    return {GeoPoint2D(x - step, y), GeoPoint2D(x, y), GeoPoint2D(x + step, y)};
}

inline DraftEdge lineTo(const GradedPlace &to)
{
    DraftEdge edge;
    edge.to = to;
    return edge;
}

/// A panel of 20 x 30 cm with a waist dart, a curved side, a notch and a grain line.
inline PieceDraft panel()
{
    PieceDraft draft;
    draft.name = QStringLiteral("Panel");
    draft.start = graded(0.0, 0.0);
    draft.edges = {lineTo(graded(20.0, 0.0, 1.0)),  lineTo(graded(20.0, 30.0, 1.0)),
                   lineTo(graded(12.0, 30.0, 0.5)), lineTo(graded(10.0, 20.0, 0.5)),
                   lineTo(graded(8.0, 30.0, 0.5)),  lineTo(graded(0.0, 30.0))};
    draft.edges[1].control1 = graded(24.0, 10.0, 1.0);
    draft.edges[1].control2 = graded(24.0, 20.0, 1.0);
    draft.edges[2].seamAllowance = 1.0;
    draft.edges[3].endsInDartTip = true;
    draft.marks = {graded(20.0, 0.0, 1.0), graded(5.0, 5.0)};
    draft.grainLines = {{graded(4.0, 4.0), graded(4.0, 24.0)}};
    draft.innerLines = {{graded(2.0, 2.0), graded(6.0, 2.0), InnerLine::Fold}};
    draft.chordTolerance = 0.05; // few chords: a small text is damaged in more of its places
    return draft;
}

/// A waistband of 40 x 4 cm that mirrors itself about its middle.
inline PieceDraft waistband()
{
    PieceDraft draft;
    draft.name = QStringLiteral("Waistband");
    draft.start = graded(-20.0, 0.0, -1.0);
    draft.edges = {lineTo(graded(20.0, 0.0, 1.0)), lineTo(graded(20.0, 4.0, 1.0)),
                   lineTo(graded(-20.0, 4.0, -1.0)), lineTo(graded(-20.0, 0.0, -1.0))};
    draft.isMirrored = true;
    return draft;
}

inline void tie(PatternDocument &document)
{
    auto *const set = new FrameSet(QStringLiteral("Skirt"), document.framesManager());
    document.framesManager()->addFrameSet(set, -1);
    FrameCenter *const center = set->newCenter(QStringLiteral("Middle"));
    FrameFrame *const hem = set->newFrame(QStringLiteral("Hem"), center);
    FrameFrame *const hip = set->newFrame(QStringLiteral("Hip"), center);
    FrameLink *const girth = set->newLink(QStringLiteral("Girth"));
    girth->linkFrame(hip);
    FrameSegment *const side = set->newSegment(QStringLiteral("Side"));
    FrameSpec *const ease = set->newSpec(QStringLiteral("Ease"));
    set->newMeasurementChart(QStringLiteral("Body"));

    GabaritObject *const gabarit = document.pieces().front()->firstGabarit();
    const auto corner = [&](short index) { return gabarit->gabaritGetContourVector(index); };
    const auto last = static_cast<short>(gabarit->contourVectors().size());
    ControlSkeleton *const skeleton = document.newSkeleton(gabarit);
    new ControlCenter(corner(1), corner(last), skeleton, center);
    new ControlFrame(corner(2), corner(2), skeleton, hem);
    new ControlFrame(corner(1), corner(2), skeleton, hip);
    new ControlSegment(corner(2), corner(3), skeleton, side);
    ease->setFormulaSpec(TreeEquations::parse(QStringLiteral("Measure(Girth)/2-1"), set, true));
    hem->setFormulaMeasurement(TreeEquations::parse(QStringLiteral("Measure(Ease)+3"), set, true));
}

/// The tree that the damages begin with: two pieces, a skeleton, elements of every kind, formulas.
inline const QJsonObject &soundDocument()
{
    static const QJsonObject tree = [] {
        PatternDocument document;
        document.setName(QStringLiteral("Sound"));
        document.setSizes({QStringLiteral("S"), QStringLiteral("M"), QStringLiteral("L")}, 2);
        require(buildPiece(document, panel()) && buildPiece(document, waistband()));
        tie(document);
        const QByteArray text = documentToText(document);
        require(!text.isEmpty());
        return QJsonDocument::fromJson(text).object();
    }();
    return tree;
}

// Damages
// ------------------------------------------------------------------------------------------------------

/// Damages the sound document in places that the bytes choose: in its tree first, then in its text.
class Damager
{
public:
    explicit Damager(const QByteArray &bytes) : mBytes(bytes) {}

    QByteArray text()
    {
        QJsonValue tree = soundDocument();
        for (int left = below(5); left > 0; --left) {
            const QJsonValue elsewhere = chosen(tree);
            tree = damaged(tree, elsewhere);
        }
        const QJsonDocument document =
            tree.isArray() ? QJsonDocument(tree.toArray()) : QJsonDocument(tree.toObject());
        QByteArray text = document.toJson(QJsonDocument::Compact);
        if (below(8) == 7)
            damage(text);
        return text;
    }

private:
    int next() { return mPosition < mBytes.size() ? static_cast<uchar>(mBytes.at(mPosition++)) : 0; }
    int below(int count) { return next() % count; }
    // Of lists and texts longer than a byte can count.
    int place(int count) { return count > 255 ? (next() * 256 + next()) % count : below(count); }

    bool isInside(const QJsonValue &value)
    {
        const int members = value.isObject() ? value.toObject().size() : value.toArray().size();
        return members > 0 && below(8) != 7;
    }

    QJsonValue chosen(const QJsonValue &value)
    {
        if (!isInside(value))
            return value;
        if (value.isArray())
            return chosen(value.toArray().at(place(value.toArray().size())));
        const QJsonObject object = value.toObject();
        return chosen((object.begin() + place(object.size())).value());
    }

    QJsonValue damaged(const QJsonValue &value, const QJsonValue &elsewhere)
    {
        if (!isInside(value))
            return instead(value, elsewhere);
        if (value.isArray()) {
            QJsonArray array = value.toArray();
            const int index = place(array.size());
            switch (below(16)) {
            case 13: array.removeAt(index); break;
            case 14: array.insert(index, array.at(place(array.size()))); break;
            case 15: array.insert(index, elsewhere); break;
            default: array.replace(index, damaged(array.at(index), elsewhere)); break;
            }
            return array;
        }
        QJsonObject object = value.toObject();
        const QString key = (object.begin() + place(object.size())).key();
        switch (below(16)) {
        case 14: object.remove(key); break;
        case 15: object.insert(key, elsewhere); break;
        default: object.insert(key, damaged(object.value(key), elsewhere)); break;
        }
        return object;
    }

    QJsonValue instead(const QJsonValue &value, const QJsonValue &elsewhere)
    {
        if (value.isDouble() && below(4) != 3)
            return value.toDouble() + double(next() - 128) / (below(2) == 1 ? 1.0 : 64.0);
        switch (below(12)) {
        case 0: return QJsonValue();
        case 1: return below(2) == 1;
        case 2: return number();
        case 3: return name();
        case 4: return QJsonArray();
        case 5: return QJsonObject();
        case 6: return QJsonArray{value, value};
        case 7: return deep(value);
        default: return elsewhere;
        }
    }

    double number()
    {
        static const double numbers[] = {0.0, 1.0,     -1.0,         0.5,   2.0,    40000.0, -40000.0,
                                         1e6, 1000001, 4294967301.0, 1e300, 1e-320, -0.0,    2147483648.0};
        return numbers[below(14)];
    }

    QString name()
    {
        static const QString names[] = {QString(),
                                        QStringLiteral("Hem"),
                                        QStringLiteral(" h E m "),
                                        QStringLiteral("Middle:Hem"),
                                        QStringLiteral("Middle"),
                                        QStringLiteral(":"),
                                        QStringLiteral("Girth"),
                                        QStringLiteral("Side"),
                                        QStringLiteral("Skirt"),
                                        QString(QChar(0)),
                                        QString(QChar(0xd800)),
                                        QStringLiteral("\u0130")};
        return names[below(12)];
    }

    QJsonValue deep(QJsonValue value)
    {
        for (int left = 4 * next(); left > 0; --left)
            value = QJsonArray{value};
        return value;
    }

    void damage(QByteArray &text)
    {
        static const QByteArray scraps[] = {"{", "}", "[", "]", ",", ":", "\"", "null", "\\u0061", "\xff"};
        const int at = (next() * 65536 + next() * 256 + next()) % text.size();
        switch (below(4)) {
        case 0: text.truncate(at); break;
        case 1: text.remove(at, 1 + next()); break;
        case 2: text.insert(at, scraps[below(10)]); break;
        default: text[at] = static_cast<char>(next()); break;
        }
    }

    QByteArray mBytes;
    int mPosition = 0;
};

// Checks
// ------------------------------------------------------------------------------------------------------

/// Draws the document, asks every element for its values and moves one: nothing may end the program.
inline void use(PatternDocument &document, int choice)
{
    require(!drawDocument(document).isEmpty());
    int index = 0;
    for (FrameSet *const set : document.framesManager()->getFrameSets()) {
        for (FrameFrame *const frame : set->getFrames()) {
            QListEx<double> values;
            for (int size = 0; size < std::max(1, document.sizeNames().size()); ++size)
                values.append(0.0);
            try {
                frame->evaluateMeasuresObject(document.gradationData(), values);
                frame->evaluateLevelsObject(document.gradationData(), values);
                if (index++ == choice % 4) {
                    bool refused = false;
                    const double wanted = values.at(0) + 1.0;
                    if (frame->applyValues(&wanted, static_cast<const double *>(nullptr), &refused))
                        set->reevaluateUnder(frame, Reevaluate_Apply);
                }
            } catch (const NonFatalError &) { // elements that were read, but are not sound
            } catch (const FatalError &) {    // an enumerator that was read and means nothing
            }
        }
        try {
            set->reevaluate(choice % 2 == 0 ? Reevaluate_Apply : Reevaluate_Store);
        } catch (const NonFatalError &) {
        } catch (const FatalError &) {
        }
    }
}

inline void checkText(const QByteArray &text, int choice)
{
    const SilentApplication application;
    PatternDocument document;
    document.setName(QStringLiteral("before"));
    DocumentReport report;
    if (!documentFromText(text, document, &report)) {
        require(!report.error.isEmpty());
        require(document.name() == QLatin1String("before") && document.pieces().empty());
        return;
    }
    require(report.error.isEmpty());

    // What was written once is the same again from then on.
    const QByteArray written = documentToText(document, &report);
    require(written.isEmpty() != report.error.isEmpty());
    if (!written.isEmpty()) {
        PatternDocument again;
        require(documentFromText(written, again));
        const QByteArray second = documentToText(again);
        PatternDocument third;
        require(documentFromText(second, third));
        require(documentToText(third) == second);
    }
    use(document, choice);
}

/// The first byte says what the rest is: the text itself, or bytes that choose the damages.
inline void check(const QByteArray &bytes)
{
    const int first = bytes.isEmpty() ? 0 : static_cast<uchar>(bytes.at(0));
    const QByteArray rest = bytes.mid(1);
    checkText(first % 4 == 3 ? rest : Damager(rest).text(), first / 4);
}

} // namespace document_checks
