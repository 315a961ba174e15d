// Results in rows and columns: aligned text, CSV or JSON.
#pragma once

#include <QStringList>

#include <vector>

namespace room
{

enum eTableForm {
    Table_Text,
    Table_Csv,
    Table_Json,
};

class Table
{
public:
    explicit Table(QStringList headings) : mHeadings(std::move(headings)) {}

    /// A row; missing cells stay empty.
    void add(QStringList cells);
    bool isEmpty() const { return mRows.empty(); }

    /// Text: words to the left, numbers to the right, two blanks between. CSV: semicolons, quotes where
    /// needed. JSON: an object per row.
    QString print(eTableForm form) const;

private:
    QString asText() const;
    QString asCsv() const;
    QString asJson() const;

    QStringList mHeadings;
    std::vector<QStringList> mRows;
};

/// The form called table, csv or json; refuses any other name.
eTableForm tableForm(const QString &name);

} // namespace room
