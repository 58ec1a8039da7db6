#pragma once
// Inside the spreadsheet reading module: one reader per file format, and the
// pieces they share. Only Sheet.cpp and the readers include this.
#include <QByteArray>
#include <QString>
#include <memory>
#include <unordered_map>
#include <vector>

#include "Sheet.h"

namespace Sheets {

// Why a file was refused.
enum class Refusal { None, NotASheet, Damaged, Password };

// A sheet read whole into memory, row by row; rows without cells take no room.
class CellTable : public Sheet {
public:
    QString Cell(int row, int col) const override;
    int Rows() const override { return rows_; }
    int Cols() const override { return cols_; }

    // Puts a text at row and column (from 1); an empty text is no cell.
    void Set(int row, int col, const QString& text);

private:
    std::unordered_map<int, std::vector<QString>> cells_;
    int rows_ = 0;
    int cols_ = 0;
};

// The largest sheet of an Excel workbook; cells beyond it are not read.
constexpr int kMaxRows = 1048576;
constexpr int kMaxCols = 16384;

// How a date serial is shown, by the cell's number format.
enum class DateKind { None, Date, DateTime, Time };

// A number as the spreadsheet shows it in a general cell.
QString NumberText(double value);
// A date serial of the workbook (days since 1899-12-30, or since 1904-01-01
// in the 1904 system; 1900-02-29, which never was, is kept as Excel counts).
QString SerialText(double serial, DateKind kind, bool date1904);
// The kind of a number format code ("yyyy-mm-dd", "0.00", ...).
DateKind KindOfFormat(const QString& code);
// The kind of a built-in number format of Excel.
DateKind KindOfBuiltinFormat(int id);

namespace XlsSheet {
std::unique_ptr<Sheet> Open(const QString& path, Refusal& why);
}
namespace XlsxSheet {
std::unique_ptr<Sheet> Open(const QString& path, Refusal& why);
}
namespace CsvSheet {
std::unique_ptr<Sheet> Read(const QByteArray& bytes, Refusal& why);
}

}  // namespace Sheets
