// Elements with their values per size, and the points of a piece.
#include "Commands.h"
#include "FormulaText.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>

namespace room
{

using namespace VorSystem;

namespace
{

// Where an element is tied, or why it is not.
QString tieOf(const Element &element)
{
    if (element.place.kind == Element_Link || element.place.kind == Element_Spec ||
        element.place.kind == Element_MeasurementChart) {
        const TreeEquations *formula = valueFormula(element.element);
        const bool isSound = !formula || vainNames(*formula).isEmpty();
        return isSound && element.element->isDefinedInDocument() ? QStringLiteral("defined")
                                                                 : QStringLiteral("undefined");
    }
    const CDbGroupObject *piece = element.element->groupCorrespondent();
    if (!piece)
        return QStringLiteral("undefined");
    return piece->isLocked() ? piece->name() + QLatin1String(" (locked)") : piece->name();
}

QString linkOf(const Element &element)
{
    if (const auto *frame = dynamic_cast<const FrameFrame *>(element.element))
        return frame->getLink() ? frame->getLink()->name() : QString();
    if (const auto *link = dynamic_cast<const FrameLink *>(element.element)) {
        QStringList frames;
        const QListEx<FrameFrame *> linked = link->getFrames();
        for (FrameFrame *frame : linked)
            frames << frame->fullName();
        return frames.join(QLatin1String(" + "));
    }
    return QString();
}

// One row of values of an element.
struct ShownValues {
    QString what; ///< "measure" or "level"
    QListEx<double> list;
    QString formula;
};

struct ShownElement {
    QString path;
    QString kind;
    QString link;
    QString tie;
    std::vector<ShownValues> values;
};

ShownElement shown(const Element &element, const PatternDocument &document)
{
    ShownElement result{element.path(), kindName(element.place.kind), linkOf(element), tieOf(element), {}};
    if (const ValuesAccordingSizes *measures = element.element->getMeasureBySizes())
        result.values.push_back({QStringLiteral("measure"), valuesOf(measures, document),
                                 formulaText(valueFormula(element.element))});
    if (const ValuesAccordingSizes *levels = element.element->getLevelBySizes())
        result.values.push_back({QStringLiteral("level"), valuesOf(levels, document),
                                 formulaText(element.element->formulaLevel())});
    return result;
}

QListEx<double> stepsOf(const QListEx<double> &values)
{
    QListEx<double> steps;
    for (int size = 1; size < values.size(); ++size)
        steps.append(values.at(size) - values.at(size - 1));
    return steps;
}

QString asTable(const std::vector<ShownElement> &elements, const PatternDocument &document,
                const ShowOptions &options, eTableForm form)
{
    Table table(QStringList{QStringLiteral("element"), QStringLiteral("kind"), QStringLiteral("value")} +
                sizeHeadings(document) +
                QStringList{QStringLiteral("formula"), QStringLiteral("link"), QStringLiteral("tied to")});
    for (const ShownElement &element : elements) {
        if (element.values.empty()) {
            QStringList cells{element.path, element.kind};
            while (cells.size() < 5 + sizeCount(document))
                cells << QString();
            table.add(cells << element.tie);
        }
        bool isFirst = true;
        for (const ShownValues &values : element.values) {
            QStringList cells{element.path, element.kind, values.what};
            for (const double value : values.list)
                cells << options.style.show(value);
            cells << values.formula;
            table.add(isFirst ? cells << element.link << element.tie : cells);
            isFirst = false;
            if (!options.withSteps)
                continue;
            // A reader of a table sees whose steps they are; a program that reads CSV is told in each row.
            QStringList steps{QString(), QString(), QStringLiteral("step")};
            if (form == Table_Csv)
                steps = QStringList{element.path, element.kind, QStringLiteral("step of ") + values.what};
            steps << QString();
            for (const double step : stepsOf(values.list))
                steps << options.style.showDifference(step);
            table.add(steps);
        }
    }
    return table.print(form);
}

// A number in the unit of the style; of inches in fractions, their text.
QJsonValue jsonOf(double length, const LengthStyle &style)
{
    if (style.fractions)
        return style.show(length);
    const double fine = 1e4; // a micrometre, in centimetres
    const double rounded = std::round(style.unit.fromCentimeter(length) * fine) / fine;
    return rounded == 0.0 ? 0.0 : rounded;
}

QJsonArray jsonOf(const QListEx<double> &lengths, const LengthStyle &style)
{
    QJsonArray array;
    for (const double length : lengths)
        array.append(jsonOf(length, style));
    return array;
}

QString asJson(const std::vector<ShownElement> &elements, const PatternDocument &document,
               const ShowOptions &options)
{
    QJsonArray array;
    for (const ShownElement &element : elements) {
        QJsonObject object{{QStringLiteral("element"), element.path},
                           {QStringLiteral("kind"), element.kind},
                           {QStringLiteral("tied to"), element.tie}};
        if (!element.link.isEmpty())
            object.insert(QStringLiteral("link"), element.link);
        for (const ShownValues &values : element.values) {
            QJsonObject list{{QStringLiteral("values"), jsonOf(values.list, options.style)}};
            if (options.withSteps)
                list.insert(QStringLiteral("steps"), jsonOf(stepsOf(values.list), options.style));
            if (!values.formula.isEmpty())
                list.insert(QStringLiteral("formula"), values.formula);
            object.insert(values.what, list);
        }
        array.append(object);
    }
    QJsonObject whole{{QStringLiteral("document"), document.name()},
                      {QStringLiteral("unit"), options.style.sign()},
                      {QStringLiteral("sizes"), QJsonArray::fromStringList(document.sizeNames())},
                      {QStringLiteral("elements"), array}};
    if (GradationData::hasNest(document.gradationData()))
        whole.insert(QStringLiteral("nest"), document.sizeNames().at(nestIndex(document)));
    return QString::fromUtf8(QJsonDocument(whole).toJson());
}

QString placeInWords(const CDbPointVOR &point, const CDbGroupObject &piece)
{
    switch (point.mVectorKind) {
    case Vector_Corner:
        return piece.isVectorContour(&point, nullptr) ? QStringLiteral("corner") : QStringLiteral("inside");
    case Vector_Curve: return QStringLiteral("on a curve");
    case Vector_Pleat: return QStringLiteral("pleat");
    case Vector_DartCap: return QStringLiteral("cap of a dart");
    case Vector_Handle: return QStringLiteral("handle");
    case Vector_DartInner: return QStringLiteral("leg of a dart");
    default: return QString();
    }
}

QString pointName(const CDbPointVOR &point)
{
    return QLatin1Char('#') + QString::number(point.Num_ID().number());
}

QString pointsAsTable(const CDbGroupObject &piece, const LengthStyle &style, eTableForm form)
{
    Table table({QStringLiteral("point"), QStringLiteral("what"), QStringLiteral("x"), QStringLiteral("y")});
    for (const CDbPointVOR *point : pointsOf(&piece))
        table.add(
            {pointName(*point), placeInWords(*point, piece), style.show(point->x()), style.show(point->y())});
    return table.print(form);
}

QString pointsAsJson(const CDbGroupObject &piece, const LengthStyle &style)
{
    QJsonArray points;
    for (const CDbPointVOR *point : pointsOf(&piece)) {
        points.append(QJsonObject{{QStringLiteral("point"), pointName(*point)},
                                  {QStringLiteral("what"), placeInWords(*point, piece)},
                                  {QStringLiteral("x"), jsonOf(point->x(), style)},
                                  {QStringLiteral("y"), jsonOf(point->y(), style)}});
    }
    const QJsonObject whole{{QStringLiteral("piece"), piece.name()},
                            {QStringLiteral("unit"), style.sign()},
                            {QStringLiteral("points"), points}};
    return QString::fromUtf8(QJsonDocument(whole).toJson());
}

QString overview(const PatternDocument &document, const LengthStyle &style)
{
    QStringList pieces;
    for (const CDbGroupObject *piece : document.pieces())
        pieces << (piece->isLocked() ? piece->name() + QLatin1String(" (locked)") : piece->name());
    const QString sizes = document.sizeNames().isEmpty()
                              ? QStringLiteral("one size")
                              : QStringLiteral("sizes ") + sizeHeadings(document).join(QLatin1Char(' '));
    return QStringLiteral("%1: %2, in %3\nPieces: %4\n")
        .arg(document.name().isEmpty() ? QStringLiteral("No name") : document.name(), sizes, style.sign(),
             pieces.isEmpty() ? QStringLiteral("none") : pieces.join(QStringLiteral(", ")));
}

} // namespace

int show(const ShowOptions &options)
{
    const bool isJson = options.form == QLatin1String("json");
    const eTableForm form = options.form == QLatin1String("csv") ? Table_Csv : Table_Text;
    if (!isJson && form != Table_Csv && options.form != QLatin1String("table"))
        throw Refusal(QStringLiteral("There is no form '%1': choose table, csv or json.").arg(options.form),
                      Exit_Usage);
    const DocumentPtr document = openDocument(options.document);
    if (!options.points.isEmpty()) {
        const CDbGroupObject &piece = *findPiece(*document, options.points);
        options.console->print(isJson ? pointsAsJson(piece, options.style)
                                      : pointsAsTable(piece, options.style, form));
        return Exit_Done;
    }

    std::vector<ShownElement> elements;
    if (options.element.isEmpty()) {
        for (const Element &element : elementsOfKind(*document, options.kind))
            elements.push_back(shown(element, *document));
    } else {
        elements.push_back(shown(findElement(*document, options.element, options.kind), *document));
    }
    if (isJson) {
        options.console->print(asJson(elements, *document, options));
        return Exit_Done;
    }
    if (options.element.isEmpty() && form == Table_Text)
        options.console->print(overview(*document, options.style));
    if (!elements.empty() || form == Table_Csv)
        options.console->print(asTable(elements, *document, options, form));
    return Exit_Done;
}

} // namespace room
