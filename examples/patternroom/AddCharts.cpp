// Measurement charts: one from the command line, or a table of them.
#include "Commands.h"

#include <algorithm>

namespace room
{

using namespace VorSystem;

namespace
{

void addChart(FrameSet *set, const QString &name, const QListEx<double> &values)
{
    requireName(name, false);
    if (set->findFrameMeasurementChartAccordingName(name))
        refuseTaken(QStringLiteral("chart"), name);
    FrameMeasurementChart *chart = set->newMeasurementChart(name);
    if (!chart)
        throw Refusal(QStringLiteral("A spec bears the name '%1' already.").arg(name));
    set->adjustMeasuresLevels(); // the list gets its place of the nest
    chart->applyValues(&values, nullptr, nullptr);
}

QChar separatorOf(const QString &head)
{
    for (const char separator : {';', '\t', ','}) {
        if (head.contains(QLatin1Char(separator)))
            return QLatin1Char(separator);
    }
    return QLatin1Char(';');
}

// The cells of a row. A cell in quotation marks may hold the separator, and a mark as two.
QStringList cellsOf(const QString &line, QChar separator)
{
    const QLatin1Char mark('"');
    QStringList cells{QString()};
    bool isQuoted = false;
    for (int i = 0; i < line.size(); ++i) {
        const QChar letter = line.at(i);
        const bool isPair = isQuoted && letter == mark && i + 1 < line.size() && line.at(i + 1) == mark;
        if (isPair)
            cells.last() += line.at(++i);
        else if (letter == mark)
            isQuoted = !isQuoted;
        else if (letter == separator && !isQuoted)
            cells << QString();
        else
            cells.last() += letter;
    }
    for (QString &cell : cells)
        cell = cell.trimmed();
    return cells;
}

// A table with the sizes as headings and a measure per row.
class ChartTable
{
public:
    explicit ChartTable(const AddOptions &options)
        : mOptions(options), mLines(QString::fromUtf8(readText(options.csv)).split(QLatin1Char('\n')))
    {
        while (mHead < mLines.size() && mLines.at(mHead).trimmed().isEmpty())
            ++mHead;
        mSeparator = separatorOf(mLines.value(mHead));
        mHeadings = cellsOf(mLines.value(mHead), mSeparator);
    }

    void addTo(FrameSet *set, const QStringList &sizes) const
    {
        if (rows().empty()) {
            throw Refusal(QStringLiteral("'%1' holds no measures: a heading of sizes and a row per measure "
                                         "are expected.")
                              .arg(mOptions.csv));
        }
        const std::vector<int> columns = columnsOf(sizes);
        for (const int row : rows()) {
            const QStringList cells = cellsOf(mLines.at(row), mSeparator);
            if (cells.first().isEmpty())
                throw Refusal(QStringLiteral("The measure has no name (%1).").arg(place(row)));
            QListEx<double> values;
            for (int size = 0; size < sizes.size(); ++size)
                values.append(valueOf(cells, columns[static_cast<std::size_t>(size)], sizes.at(size), row));
            addChart(set, cells.first(), values);
        }
    }

private:
    // The lines with something in them, below the headings.
    std::vector<int> rows() const
    {
        std::vector<int> filled;
        for (int row = mHead + 1; row < mLines.size(); ++row) {
            if (!mLines.at(row).trimmed().isEmpty())
                filled.push_back(row);
        }
        return filled;
    }

    QString place(int row) const
    {
        return QStringLiteral("%1, line %2").arg(mOptions.csv, QString::number(row + 1));
    }

    std::vector<int> columnsOf(const QStringList &sizes) const
    {
        std::vector<int> columns;
        for (const QString &size : sizes) {
            columns.push_back(mHeadings.indexOf(size));
            if (columns.back() < 1)
                throw Refusal(QStringLiteral("'%1' has no column for size %2.").arg(mOptions.csv, size));
        }
        return columns;
    }

    double valueOf(const QStringList &cells, int column, const QString &size, int row) const
    {
        if (cells.value(column).isEmpty()) {
            throw Refusal(
                QStringLiteral("'%1' has no value in size %2 (%3).").arg(cells.first(), size, place(row)));
        }
        return lengthOf(cells.at(column), mOptions.style,
                        QStringLiteral("'%1' in size %2 (%3)").arg(cells.first(), size, place(row)));
    }

    const AddOptions &mOptions;
    QStringList mLines;
    int mHead = 0; ///< the line of the headings
    QChar mSeparator;
    QStringList mHeadings;
};

} // namespace

FrameSet *addCharts(const PatternDocument &document, const AddOptions &options)
{
    if (options.csv.isEmpty() == options.measures.isEmpty()) {
        throw Refusal(QStringLiteral("A chart needs either --measures, or --csv for a table of charts."),
                      Exit_Usage);
    }
    if (!options.csv.isEmpty()) {
        FrameSet *set = findSet(document, options.name);
        ChartTable(options).addTo(set, document.sizeNames());
        return set;
    }
    const NameInSet place = splitPath(document, options.name);
    addChart(place.set, place.name,
             lengthsOf(options.measures, options.style, sizeCount(document),
                       QStringLiteral("'%1'").arg(place.name)));
    return place.set;
}

} // namespace room
