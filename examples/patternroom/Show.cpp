// Elements with their values per size, and the points of a piece.
#include "Commands.h"

namespace room
{

using namespace VorSystem;

namespace
{

// Where an element is tied, or why it is not.
QString tieOf(const Element &element)
{
    if (element.place.kind == Element_Link || element.place.kind == Element_Spec ||
        element.place.kind == Element_MeasurementChart)
        return element.element->isDefinedInDocument() ? QStringLiteral("defined")
                                                      : QStringLiteral("undefined");
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

QStringList stepsOf(const QStringList &head, const QListEx<double> &values, const LengthStyle &style)
{
    QStringList cells = head;
    cells << QString();
    for (int size = 1; size < values.size(); ++size)
        cells << style.showDifference(values.at(size) - values.at(size - 1));
    return cells;
}

class ValueTable
{
public:
    ValueTable(const PatternDocument &document, const ShowOptions &options)
        : mDocument(document), mOptions(options), mTable(headings(document))
    {
    }

    void add(const Element &element)
    {
        const TreeEquations *formula = valueFormula(element.element);
        const bool hasMeasures = element.element->getMeasureBySizes() != nullptr;
        QStringList values{element.path(), kindName(element.place.kind),
                           hasMeasures ? QStringLiteral("measure") : QString()};
        const QListEx<double> measures = valuesOf(element.element->getMeasureBySizes(), mDocument);
        for (const double value : measures)
            values << (hasMeasures ? mOptions.style.show(value) : QString());
        values << (formula ? formula->toString() : QString()) << linkOf(element) << tieOf(element);
        mTable.add(values);
        if (mOptions.withSteps && hasMeasures)
            mTable.add(stepsOf({QString(), QString(), QStringLiteral("step")}, measures, mOptions.style));

        if (!element.element->getLevelBySizes())
            return;
        const TreeEquations *levelFormula = element.element->formulaLevel();
        QStringList levels{element.path(), kindName(element.place.kind), QStringLiteral("level")};
        const QListEx<double> list = valuesOf(element.element->getLevelBySizes(), mDocument);
        for (const double value : list)
            levels << mOptions.style.show(value);
        levels << (levelFormula ? levelFormula->toString() : QString());
        mTable.add(levels);
        if (mOptions.withSteps)
            mTable.add(stepsOf({QString(), QString(), QStringLiteral("step")}, list, mOptions.style));
    }

    QString print() const { return mTable.print(tableForm(mOptions.form)); }

private:
    static QStringList headings(const PatternDocument &document)
    {
        return QStringList{QStringLiteral("element"), QStringLiteral("kind"), QStringLiteral("value")} +
               sizeHeadings(document) +
               QStringList{QStringLiteral("formula"), QStringLiteral("link"), QStringLiteral("tied to")};
    }

    const PatternDocument &mDocument;
    const ShowOptions &mOptions;
    Table mTable;
};

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

QString pointsTable(const PatternDocument &document, const ShowOptions &options)
{
    const CDbGroupObject *piece = findPiece(document, options.points);
    Table table({QStringLiteral("point"), QStringLiteral("what"), QStringLiteral("x"), QStringLiteral("y")});
    for (const CDbPointVOR *point : pointsOf(piece)) {
        table.add({QLatin1Char('#') + QString::number(point->Num_ID().number()), placeInWords(*point, *piece),
                   options.style.show(point->x()), options.style.show(point->y())});
    }
    return table.print(tableForm(options.form));
}

QString overview(const PatternDocument &document, const LengthStyle &style)
{
    QStringList pieces;
    for (const CDbGroupObject *piece : document.pieces())
        pieces << (piece->isLocked() ? piece->name() + QLatin1String(" (locked)") : piece->name());
    return QStringLiteral("%1: sizes %2, in %3\nPieces: %4\n")
        .arg(document.name(), sizeHeadings(document).join(QLatin1Char(' ')), style.sign(),
             pieces.isEmpty() ? QStringLiteral("none") : pieces.join(QStringLiteral(", ")));
}

} // namespace

int show(const ShowOptions &options)
{
    const DocumentPtr document = openDocument(options.document);
    const eTableForm form = tableForm(options.form);
    if (!options.points.isEmpty()) {
        options.console->print(pointsTable(*document, options));
        return Exit_Done;
    }

    ValueTable table(*document, options);
    if (options.element.isEmpty()) {
        if (form == Table_Text)
            options.console->print(overview(*document, options.style));
        const std::vector<Element> elements = elementsOf(*document);
        for (const Element &element : elements)
            table.add(element);
        if (elements.empty() && form == Table_Text)
            return Exit_Done;
    } else {
        table.add(findElement(*document, options.element, options.kind));
    }
    options.console->print(table.print());
    return Exit_Done;
}

} // namespace room
