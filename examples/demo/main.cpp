// A bodice and a skirt for five sizes: a measurement chart, two widths and what is computed from them, before
// and after the chest is typed in anew.

#include <QTextStream>
#include <VorDocument/VorDocument.h>
#include <VorFrames/VorFrames.h>

using namespace VorSystem;

namespace
{

FrameSet *addSet(GestFrames &manager, const QString &name)
{
    auto *set = new FrameSet(manager.getFrameSetValidName(name), &manager);
    manager.addFrameSet(set, -1);
    return set;
}

// A row of the chart: centimetres, smallest size first.
FrameMeasurementChart *addRow(FrameSet *set, const QString &name, const QListEx<double> &values)
{
    FrameMeasurementChart *row = set->newMeasurementChart(name);
    row->applyValues(&values, nullptr, nullptr);
    return row;
}

void addSpec(FrameSet *set, const QString &name, const QString &formula)
{
    set->newSpec(name)->setFormulaSpec(TreeEquations::parse(formula, set, true));
}

void addFrame(FrameCenter *center, const QString &name, const QString &formula)
{
    FrameSet *set = center->getFrameSet();
    set->newFrame(name, center)->setFormulaMeasurement(TreeEquations::parse(formula, set, true));
}

// The name and the measures of an element; the nest stands in brackets.
QString row(BaseFrame *element)
{
    const ValuesAccordingSizes *measures = element->getMeasureBySizes();
    QString text = QStringLiteral("  %1").arg(element->fullName(), -16);
    for (int size = 0; size < measures->mValues.count(); ++size) {
        const QString pattern = size == measures->mNestIndex ? QStringLiteral("[%1]") : QStringLiteral("%1 ");
        text += pattern.arg(measures->mValues.at(size), 0, 'f', 2).rightJustified(10);
    }
    return text;
}

void print(GestFrames &manager, const QString &title)
{
    QTextStream out(stdout);
    out << title << " (cm, the nest in brackets)\n";
    const QListEx<FrameSet *> sets = manager.getFrameSets();
    for (FrameSet *set : sets) {
        out << set->name() << '\n';
        for (BaseFrame *chart : set->getFrameMeasurementCharts())
            out << row(chart) << '\n';
        for (BaseFrame *frame : set->getFrames())
            out << row(frame) << '\n';
        for (BaseFrame *spec : set->getFrameSpecs())
            out << row(spec) << '\n';
    }
    out << '\n';
}

} // namespace

int main()
{
    QLocale::setDefault(QLocale::c());
    PatternDocument document;
    const QStringList sizes = QStringLiteral("34 36 38 40 42").split(QLatin1Char(' '));
    document.setSizes(sizes, 3); // the third is the nest
    GestFrames &manager = *GestFrames::managerFramesDocument(&document);

    FrameSet *bodice = addSet(manager, QStringLiteral("Bodice"));
    FrameMeasurementChart *chest = addRow(bodice, QStringLiteral("Chest"), {84, 88, 92, 96, 100});
    addRow(bodice, QStringLiteral("Waist"), {64, 68, 72, 77, 82});
    FrameCenter *front = bodice->newCenter(QStringLiteral("Front"));
    addFrame(front, QStringLiteral("Bust line"), QStringLiteral("Measure(Chest) / 4 + 1.5"));
    addFrame(front, QStringLiteral("Waist line"), QStringLiteral("Measure(Waist) / 4 + 1"));
    addSpec(bodice, QStringLiteral("Dart intake"),
            QStringLiteral("Measure(Front:Bust line) - Measure(Front:Waist line)"));

    FrameSet *skirt = addSet(manager, QStringLiteral("Skirt"));
    addRow(skirt, QStringLiteral("Hip"), {90, 94, 98, 103, 108});
    addFrame(skirt->newCenter(QStringLiteral("Back")), QStringLiteral("Hip line"),
             QStringLiteral("Measure(Hip) / 4 - 1"));

    manager.reevaluateFrameSets(Reevaluate_Apply);
    print(manager, QStringLiteral("As typed"));

    const double fuller = 94.0;
    chest->applyValues(&fuller, nullptr, nullptr);
    manager.reevaluateFrameSets(Reevaluate_Apply);
    print(manager, QStringLiteral("Chest 94 in the nest"));
}
