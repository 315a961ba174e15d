#include "Table.h"

#include <algorithm>

namespace room
{

namespace
{

bool looksLikeNumber(const QString &cell)
{
    return cell.isEmpty() || cell == QLatin1String("-") || cell.at(0).isDigit() ||
           (cell.size() > 1 && (cell.at(0) == QLatin1Char('-') || cell.at(0) == QLatin1Char('+')) &&
            cell.at(1).isDigit());
}

} // namespace

void Table::add(QStringList cells)
{
    while (cells.size() < mHeadings.size())
        cells << QString();
    mRows.push_back(std::move(cells));
}

QString Table::print(eTableForm form) const
{
    switch (form) {
    case Table_Text: return asText();
    case Table_Csv: return asCsv();
    }
    return QString();
}

QString Table::asText() const
{
    std::vector<int> widths;
    std::vector<bool> areNumbers;
    for (int column = 0; column < mHeadings.size(); ++column) {
        int width = mHeadings.at(column).size();
        bool isNumbers = column > 0;
        for (const QStringList &row : mRows) {
            width = std::max(width, row.at(column).size());
            isNumbers = isNumbers && looksLikeNumber(row.at(column));
        }
        widths.push_back(width);
        areNumbers.push_back(isNumbers);
    }
    const auto line = [&](const QStringList &cells) {
        QString text;
        for (int column = 0; column < cells.size(); ++column) {
            const int width = widths[static_cast<std::size_t>(column)];
            text += column == 0 ? QString() : QStringLiteral("  ");
            text += areNumbers[static_cast<std::size_t>(column)] ? cells.at(column).rightJustified(width)
                                                                 : cells.at(column).leftJustified(width);
        }
        while (text.endsWith(QLatin1Char(' ')))
            text.chop(1);
        return text + QLatin1Char('\n');
    };
    QString text = line(mHeadings);
    for (const QStringList &row : mRows)
        text += line(row);
    return text;
}

QString Table::asCsv() const
{
    const auto line = [](const QStringList &cells) {
        QStringList quoted;
        for (QString cell : cells) {
            const bool needsQuotes = cell.contains(QLatin1Char(';')) || cell.contains(QLatin1Char('"')) ||
                                     cell.contains(QLatin1Char('\n'));
            cell.replace(QLatin1Char('"'), QLatin1String("\"\""));
            quoted << (needsQuotes ? QLatin1Char('"') + cell + QLatin1Char('"') : cell);
        }
        return quoted.join(QLatin1Char(';')) + QLatin1Char('\n');
    };
    QString text = line(mHeadings);
    for (const QStringList &row : mRows)
        text += line(row);
    return text;
}

} // namespace room
