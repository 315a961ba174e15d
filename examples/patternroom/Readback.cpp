#include "Readback.h"

#include "Moves.h"
#include "Snapshot.h"

#include <algorithm>
#include <cmath>

namespace room
{

using namespace VorSystem;

namespace
{

constexpr double kObeyed = 1e-4; // cm; a converged perimeter frame may be 5e-5 off

} // namespace

bool Readback::isObeyed() const
{
    const QListEx<double> gaps = minus(read, wanted);
    return onlySize ? std::abs(gaps.value(*onlySize)) <= kObeyed : largestOf(gaps) <= kObeyed;
}

bool areObeyed(const std::vector<Readback> &driven)
{
    return std::all_of(driven.begin(), driven.end(),
                       [](const Readback &element) { return element.isObeyed(); });
}

QListEx<double> readMeasures(const Element &element, const PatternDocument &document)
{
    QListEx<double> values = valuesOf(element.element->getMeasureBySizes(), document);
    if (element.element->objectControlCorresponding() || element.place.kind == Element_Link)
        element.element->evaluateMeasuresObject(document.gradationData(), values);
    return values;
}

QListEx<double> readLevels(const Element &element, const PatternDocument &document)
{
    QListEx<double> values = valuesOf(element.element->getLevelBySizes(), document);
    if (element.element->objectControlCorresponding())
        element.element->evaluateLevelsObject(document.gradationData(), values);
    return values;
}

std::vector<Readback> drivenElements(const PatternDocument &document)
{
    std::vector<Readback> driven;
    const auto add = [&](const Element &element, TreeEquations *formula, bool isLevel) {
        if (!formula)
            return;
        QListEx<double> wanted;
        for (int size = 0; size < sizeCount(document); ++size)
            wanted.append(formula->evaluate(static_cast<short>(size)));
        driven.push_back({element.place,
                          element.path(),
                          isLevel,
                          formula->toString(),
                          wanted,
                          isLevel ? readLevels(element, document) : readMeasures(element, document),
                          {}});
    };
    for (const Element &element : elementsOf(document)) {
        if (element.place.kind == Element_Spec || element.place.kind == Element_MeasurementChart)
            continue;
        add(element, element.element->measurementFormula(), false);
        add(element, element.element->formulaLevel(), true);
    }
    return driven;
}

void addRows(Table &table, const QString &what, const Readback &values, const LengthStyle &style)
{
    const QListEx<double> differences = minus(values.read, values.wanted);
    QStringList wanted{what, QStringLiteral("wanted")};
    QStringList read{QString(), QStringLiteral("read back")};
    QStringList difference{QString(), QStringLiteral("difference")};
    for (int size = 0; size < differences.size(); ++size) {
        const bool isWanted = !values.onlySize || size == *values.onlySize;
        wanted << (isWanted ? style.show(values.wanted.at(size)) : QStringLiteral("-"));
        read << style.show(values.read.at(size));
        difference << (isWanted ? style.showDifference(differences.at(size)) : QStringLiteral("-"));
    }
    table.add(wanted);
    table.add(read);
    table.add(difference);
}

QString describe(const std::vector<Readback> &driven, const QString &heading, const PatternDocument &document,
                 const LengthStyle &style)
{
    if (driven.empty())
        return QString();
    Table table(QStringList{heading, QString()} + sizeHeadings(document));
    for (const Readback &element : driven) {
        QString what = element.path;
        if (element.isLevel)
            what += QLatin1String(" (level)");
        if (!element.formula.isEmpty())
            what += QLatin1String(" = ") + element.formula;
        addRows(table, what, element, style);
    }
    return table.print(Table_Text);
}

QString resultOfAll(const std::vector<Readback> &driven, const PatternDocument &document)
{
    const bool isTied = std::any_of(driven.begin(), driven.end(), [&](const Readback &element) {
        return elementAt(document, element.place).element->isDefinedInDocument();
    });
    if (!isTied)
        return QString();
    return (driven.size() == 1 ? QStringLiteral("Result %1: %2.\n")
                               : QStringLiteral("Result %1 for each: %2.\n"))
        .arg(QString::number(Msg_Converged), inWords(Msg_Converged));
}

} // namespace room
