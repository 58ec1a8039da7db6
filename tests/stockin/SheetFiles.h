#pragma once
// Spreadsheets made by the tests themselves. A sheet is a list of rows; a
// cell is a number (double), a text (QString), nothing (an invalid QVariant),
// or a map {"date": "yyyy-MM-dd"} / {"number": n} with an optional "format".
#include <QString>
#include <QVariantList>

namespace SheetFiles {

using Rows = QList<QVariantList>;

// The supplier's order form in the default layout: ten articles in rows 4 to
// 13, sizes in row 3, columns 6 to 15; also in supplier.xls (made at build time).
Rows Supplier();
QString Made(const QString& name);  // a file made at build time

// What a spreadsheet shows in the cell: "3" for 3, "2024-05-02" for a date.
QString Shown(const QVariant& cell);

// Writes the rows onto the first of two sheets of a new .xlsx workbook; with
// inlineStrings the texts stand in the cells instead of the shared table.
void WriteXlsx(const QString& path, const Rows& rows, bool inlineStrings = false);
// Writes the shown texts as comma-separated lines in the given encoding.
void WriteCsv(const QString& path, const Rows& rows, const char* encoding = "UTF-8");
// The first half of a file's bytes, as an interrupted copy leaves it.
QString Truncated(const QString& path, const QString& to);

}  // namespace SheetFiles
