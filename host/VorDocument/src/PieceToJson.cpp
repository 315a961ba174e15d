// Writes a piece: contours with darts and pleat vectors, own vectors, lines, mirror, marks.
// What is empty or zero is left out.

#include "PieceJson.h"

#include <VorConjoin/CDbGroupObject.h>
#include <VorConjoin/CDbPointVOR.h>
#include <VorConjoin/CurveObject.h>
#include <VorConjoin/DartContour.h>
#include <VorConjoin/GabaritObject.h>
#include <VorConjoin/GradationData.h>
#include <VorConjoin/LineObject.h>
#include <VorConjoin/Mirror.h>

#include <unordered_map>

namespace VorSystem
{

namespace
{

using LineNumbers = std::unordered_map<const LineObject *, int>;

int identity(const CDbPointVOR *v)
{
    return v ? v->Num_ID().number() : 0;
}

QJsonArray pairOf(double x, double y)
{
    return {x, y};
}

template<class Items, class Form>
QJsonArray listOf(const Items &items, Form form)
{
    QJsonArray list;
    for (const auto &item : items)
        list.append(form(item));
    return list;
}

void insertUnlessEmpty(QJsonObject &object, const char *key, const QJsonArray &list)
{
    if (!list.isEmpty())
        object.insert(QLatin1String(key), list);
}

void insertUnlessZero(QJsonObject &object, const char *key, const Evolution &step)
{
    if (step.x != 0.0 || step.y != 0.0)
        object.insert(QLatin1String(key), pairOf(step.x, step.y));
}

QJsonObject vectorToJson(const CDbPointVOR &v, const GradationData *gradation)
{
    const short nest = GradationData::nestNumber(gradation);
    const GeoPoint2D place = v.positionInSize(nest, gradation);
    QJsonObject object;
    object.insert(QStringLiteral("id"), identity(&v));
    object.insert(QStringLiteral("at"), pairOf(place.mX, place.mY));
    if (v.mVectorKind != Vector_Corner)
        object.insert(QStringLiteral("kind"), v.mVectorKind);

    const IrregularGradationData *own = v.mIrregularGradation;
    if (!own) {
        insertUnlessZero(object, "small", v.regularSteps().small);
        insertUnlessZero(object, "large", v.regularSteps().large);
        return object;
    }
    QJsonArray evolutions;
    for (short position = 0; position < own->size(); ++position)
        evolutions.append(pairOf(own->evolution(position).x, own->evolution(position).y));
    object.insert(QStringLiteral("evolutions"), evolutions);
    if (own->indexMedium() != nest)
        object.insert(QStringLiteral("nest"), own->indexMedium());
    return object;
}

QJsonObject lineToJson(const LineObject &line)
{
    const CurveObject *curve = line.getCurveLine();
    if (!curve)
        return {{QStringLiteral("from"), identity(line.begin())},
                {QStringLiteral("to"), identity(line.end())}};
    return {{QStringLiteral("curve"), listOf(curve->points(), identity)},
            {QStringLiteral("handles"),
             QJsonArray{identity(curve->firstHandle()), identity(curve->lastHandle())}}};
}

QJsonObject dartToJson(const DartContour &dart, const LineNumbers &lines)
{
    const auto legToJson = [&](int which) {
        return listOf(dart.leg(which), [&](const LineObject *line) { return lines.at(line); });
    };
    return {{QStringLiteral("mouth"),
             QJsonArray{identity(dart.pICGetVector(Dart_FirstLeg)), identity(dart.pICGetVector(Dart_Cap)),
                        identity(dart.pICGetVector(Dart_SecondLeg))}},
            {QStringLiteral("pivot"), identity(dart.mPivotVector)},
            {QStringLiteral("legs"), QJsonArray{legToJson(0), legToJson(1)}},
            {QStringLiteral("equalLegs"), dart.mLegsMadeEqual}};
}

QJsonObject contourToJson(const GabaritObject &gabarit, const GradationData *gradation,
                          const LineNumbers &lines)
{
    QJsonObject object;
    object.insert(QStringLiteral("vectors"), listOf(gabarit.contourVectors(), [&](const CDbPointVOR *v) {
                      return vectorToJson(*v, gradation);
                  }));
    QJsonArray darts;
    for (const DartContour *dart = gabarit.mFirstDart; dart; dart = dart->mNextDart)
        darts.append(dartToJson(*dart, lines));
    insertUnlessEmpty(object, "darts", darts);
    insertUnlessEmpty(object, "pleats", listOf(gabarit.pleats(), [](const GabaritObject::Pleat &pleat) {
                          return QJsonObject{{QStringLiteral("vector"), identity(pleat.vector)},
                                             {QStringLiteral("from"), identity(pleat.a)},
                                             {QStringLiteral("to"), identity(pleat.b)},
                                             {QStringLiteral("parameter"), pleat.u}};
                      }));
    return object;
}

QJsonObject mirrorToJson(const Mirror &mirror)
{
    return {{QStringLiteral("axis"), QJsonArray{pairOf(mirror.axisA().mX, mirror.axisA().mY),
                                                pairOf(mirror.axisB().mX, mirror.axisB().mY)}},
            {QStringLiteral("pairs"), listOf(mirror.pairs(), [](const Mirror::Pair &pair) {
                 return QJsonArray{identity(pair.side1), identity(pair.side2)};
             })}};
}

void insertMarks(QJsonObject &object, const CDbGroupObject &piece)
{
    insertUnlessEmpty(object, "notches",
                      listOf(piece.notches(), [](const Notch &notch) { return identity(notch.place); }));
    insertUnlessEmpty(object, "grainLines", listOf(piece.grainLines(), [](const GrainLine &grain) {
                          return QJsonObject{
                              {QStringLiteral("anchor"), identity(grain.anchor)},
                              {QStringLiteral("direction"), pairOf(grain.direction.mX, grain.direction.mY)},
                              {QStringLiteral("length"), grain.length}};
                      }));
    insertUnlessEmpty(object, "innerLines", listOf(piece.innerLines(), [](const InnerLine &line) {
                          const bool isFold = line.use == InnerLine::Fold;
                          return QJsonObject{{QStringLiteral("from"), identity(line.from)},
                                             {QStringLiteral("to"), identity(line.to)},
                                             {QStringLiteral("use"),
                                              isFold ? QStringLiteral("fold") : QStringLiteral("inner")}};
                      }));
    insertUnlessEmpty(object, "seamAllowances",
                      listOf(piece.seamAllowances(), [](const SeamAllowance &allowance) {
                          return QJsonObject{{QStringLiteral("edge"), identity(allowance.edge)},
                                             {QStringLiteral("width"), allowance.width}};
                      }));
    insertUnlessEmpty(object, "drillHoles",
                      listOf(piece.drillHoles(), [](const DrillHole &hole) { return identity(hole.place); }));
}

} // namespace

QJsonObject pieceToJson(const CDbGroupObject &piece, const GradationData *gradation)
{
    QJsonObject object;
    object.insert(QStringLiteral("name"), piece.name());
    if (piece.isClone())
        object.insert(QStringLiteral("cloneOf"), piece.cloneOf());
    if (piece.isLocked())
        object.insert(QStringLiteral("locked"), true);

    LineNumbers lines;
    for (const LineObject *line : piece.lines())
        lines.emplace(line, static_cast<int>(lines.size()));
    QJsonArray contours;
    for (const GabaritObject *gabarit = piece.firstGabarit(); gabarit; gabarit = gabarit->mNextGabarit)
        contours.append(contourToJson(*gabarit, gradation, lines));
    object.insert(QStringLiteral("contours"), contours);
    insertUnlessEmpty(object, "vectors", listOf(piece.ownVectors(), [&](const CDbPointVOR *v) {
                          return vectorToJson(*v, gradation);
                      }));
    insertUnlessEmpty(object, "lines",
                      listOf(piece.lines(), [](const LineObject *line) { return lineToJson(*line); }));
    if (piece.mMirror)
        object.insert(QStringLiteral("mirror"), mirrorToJson(*piece.mMirror));
    insertMarks(object, piece);
    return object;
}

} // namespace VorSystem
