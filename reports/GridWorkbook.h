#pragma once
// A grid into a spreadsheet workbook (.xlsx), and the workbook opened with
// the desktop's spreadsheet program.
#include <QDateTime>
#include <QString>
#include <functional>

class VSGrid;

namespace GridWorkbook {

// Writes the grid as it stands into the first sheet of a new workbook: grid
// row r into sheet row r + 1, every column that is not hidden, column 0
// included, closed up from the left; each cell's text written as text (so
// "007" stays "007"), with thin borders. Throws RuntimeError when the file
// cannot be written.
void Write(const VSGrid* grid, const QString& path);

// A new file in the user's documents folder, named after the time, e.g.
// "数据报表_20260501_143005.xlsx", with "_2", "_3" ... when that name is
// taken. The file is created empty, so that no later export takes the name.
QString NewPath(const QDateTime& now = QDateTime::currentDateTime());

// Opens a file with the desktop's program for it; false when none could be
// started. Tests replace it; SetOpener returns the former opener.
using Opener = std::function<bool(const QString& path)>;
Opener SetOpener(Opener opener);
bool Open(const QString& path);

}  // namespace GridWorkbook
