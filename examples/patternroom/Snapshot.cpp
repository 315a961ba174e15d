#include "Snapshot.h"

#include "FormulaText.h"
#include "Table.h"

#include <algorithm>
#include <cmath>

namespace room
{

using namespace VorSystem;

namespace
{

constexpr double kMoved = 0.005; // cm: less is neither seen in a table nor sewn

bool differ(const QListEx<double> &a, const QListEx<double> &b)
{
    return a.size() != b.size() || largestOf(minus(a, b)) > kMoved;
}

PiecePlaces placesOf(const CDbGroupObject &piece, const PatternDocument &document)
{
    PiecePlaces places{piece.name(), piece.isLocked(), {}};
    const std::vector<CDbPointVOR *> points = pointsOf(&piece);
    for (int size = 1; size <= sizeCount(document); ++size) {
        places.sizes.emplace_back();
        for (const CDbPointVOR *point : points)
            places.sizes.back().push_back(
                point->positionInSize(static_cast<short>(size), document.gradationData()));
    }
    return places;
}

QListEx<double> farthestWays(const PiecePlaces &before, const PiecePlaces &after)
{
    QListEx<double> farthest;
    for (std::size_t size = 0; size < before.sizes.size(); ++size) {
        double way = 0.0;
        const std::size_t count = std::min(before.sizes[size].size(), after.sizes[size].size());
        for (std::size_t point = 0; point < count; ++point)
            way = std::max(way, before.sizes[size][point].distance(after.sizes[size][point]));
        farthest.append(way);
    }
    return farthest;
}

} // namespace

QString LostFormula::shown() const
{
    return (isLevel ? QStringLiteral("%1 (level) = %2") : QStringLiteral("%1 = %2")).arg(path, formula);
}

QListEx<double> minus(const QListEx<double> &a, const QListEx<double> &b)
{
    QListEx<double> differences;
    for (int size = 0; size < std::min(a.size(), b.size()); ++size)
        differences.append(a.at(size) - b.at(size));
    return differences;
}

double largestOf(const QListEx<double> &differences)
{
    double largest = 0.0;
    for (const double difference : differences) {
        // A number that is none is as far as can be.
        if (!(std::abs(difference) <= largest))
            largest = std::isnan(difference) ? HUGE_VAL : std::abs(difference);
    }
    return largest;
}

Snapshot snapshotOf(const PatternDocument &document)
{
    Snapshot snapshot;
    for (const Element &element : elementsOf(document)) {
        ElementValues values{element.place, element.path(), {}, {}, {}, {}};
        if (const ValuesAccordingSizes *measures = element.element->getMeasureBySizes())
            values.measures = measures->mValues;
        if (const ValuesAccordingSizes *levels = element.element->getLevelBySizes())
            values.levels = levels->mValues;
        values.formula = formulaText(valueFormula(element.element));
        values.levelFormula = formulaText(element.element->formulaLevel());
        snapshot.elements.push_back(values);
    }
    for (const CDbGroupObject *piece : document.pieces())
        snapshot.pieces.push_back(placesOf(*piece, document));
    return snapshot;
}

Difference differenceOf(const Snapshot &before, const Snapshot &after)
{
    Difference difference;
    for (std::size_t i = 0; i < std::min(before.elements.size(), after.elements.size()); ++i) {
        const ElementValues &was = before.elements[i];
        const ElementValues &is = after.elements[i];
        if (differ(was.measures, is.measures))
            difference.elements.push_back({is.place, is.path, false, was.measures, is.measures});
        if (differ(was.levels, is.levels))
            difference.elements.push_back({is.place, is.path, true, was.levels, is.levels});
        if (!was.formula.isEmpty() && is.formula.isEmpty())
            difference.lostFormulas.push_back({is.place, is.path, false, was.formula});
        if (!was.levelFormula.isEmpty() && is.levelFormula.isEmpty())
            difference.lostFormulas.push_back({is.place, is.path, true, was.levelFormula});
    }
    for (std::size_t i = 0; i < std::min(before.pieces.size(), after.pieces.size()); ++i) {
        const QListEx<double> farthest = farthestWays(before.pieces[i], after.pieces[i]);
        if (largestOf(farthest) > kMoved)
            difference.pieces.push_back({after.pieces[i].name, after.pieces[i].isLocked, farthest});
    }
    return difference;
}

QString describe(const Difference &difference, const PatternDocument &document, const LengthStyle &style)
{
    QString text;
    if (!difference.elements.empty()) {
        Table table(QStringList{QStringLiteral("moved element"), QString()} + sizeHeadings(document));
        for (const MovedElement &moved : difference.elements) {
            QStringList cells{moved.path,
                              moved.isLevel ? QStringLiteral("level") : QStringLiteral("measure")};
            const QListEx<double> ways = minus(moved.after, moved.before);
            for (const double way : ways)
                cells << style.showDifference(way);
            while (cells.size() > sizeCount(document) + 2)
                cells.removeLast();
            table.add(cells);
        }
        text += table.print(Table_Text);
    }
    if (!difference.pieces.empty()) {
        Table table(QStringList{QStringLiteral("moved piece"), QString()} + sizeHeadings(document));
        for (const MovedPiece &moved : difference.pieces) {
            QStringList cells{moved.name,
                              moved.isLocked ? QStringLiteral("locked") : QStringLiteral("farthest")};
            for (const double way : moved.farthest)
                cells << style.show(way);
            table.add(cells);
        }
        text += table.print(Table_Text);
    }
    return text + describe(difference.lostFormulas);
}

QString describe(const std::vector<LostFormula> &lost)
{
    QString text;
    for (const LostFormula &one : lost)
        text += QStringLiteral("lost formula: %1\n").arg(one.shown());
    return text;
}

} // namespace room
