#pragma once
// Reading spreadsheet files: the first sheet of a workbook as cell texts.
//
// A supplier sends its stock sheet as an Excel workbook (.xls or .xlsx) or as
// comma-separated text (.csv, in UTF-8 or in the GB18030 of a Chinese
// desktop). Open looks at the file's bytes, not at its name, to choose the
// reader, so a workbook saved under the wrong extension still opens.
//
// Cells read as the spreadsheet shows them: a number 3 reads "3", 12.5 reads
// "12.5" (at most 15 significant digits), a date "yyyy-MM-dd" (a date with a
// time "yyyy-MM-dd HH:mm:ss", a time alone "HH:mm:ss"), text as it stands, an
// empty or missing cell "". The cells of a .csv are its texts as written.
#include <QString>
#include <memory>

namespace Sheets {

class Sheet {
public:
    virtual ~Sheet() = default;

    // The text of the cell at row and column, both counted from 1; "" for an
    // empty cell and for any place outside the sheet.
    virtual QString Cell(int row, int col) const = 0;
    // The last row and the last column that hold a cell (0 when none).
    virtual int Rows() const = 0;
    virtual int Cols() const = 0;
};

// Opens the first sheet of the file. When the file cannot be read (missing,
// not a spreadsheet, damaged, protected by a password) it gives null, and
// error, if given, receives a message for the user that names the file.
std::unique_ptr<Sheet> Open(const QString& path, QString* error = nullptr);

}  // namespace Sheets
