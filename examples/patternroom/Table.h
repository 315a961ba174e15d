// Results in rows and columns: aligned text or CSV.
#pragma once

#include <QStringList>

#include <vector>

namespace room
{

enum eTableForm {
    Table_Text,
    Table_Csv,
};

class Table
{
public:
    explicit Table(QStringList headings) : mHeadings(std::move(headings)) {}

    /// A row; missing cells stay empty.
    void add(QStringList cells);
    bool isEmpty() const { return mRows.empty(); }

    /// Text: words to the left, numbers to the right, two blanks between. CSV: semicolons, quotes where
    /// needed.
    QString print(eTableForm form) const;

private:
    QString asText() const;
    QString asCsv() const;

    QStringList mHeadings;
    std::vector<QStringList> mRows;
};

} // namespace room
