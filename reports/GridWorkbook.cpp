#include "GridWorkbook.h"

#include <xlsxwriter.h>

#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <QUrl>
#include <algorithm>

#include "RuntimeError.h"
#include "VSGrid.h"

namespace GridWorkbook {

namespace {
Opener& opener() {
    static Opener o;
    return o;
}

QString fileError(const QString& path, const QString& detail) {
    return QStringLiteral("运行时错误 '75':\n\n路径/文件访问错误\n%1\n%2").arg(path, detail);
}
}  // namespace

void Write(const VSGrid* grid, const QString& path) {
    lxw_workbook* book = workbook_new(QFile::encodeName(path).constData());
    if (!book) throw RuntimeError(fileError(path, QString()));
    lxw_worksheet* sheet = workbook_add_worksheet(book, nullptr);
    lxw_format* cell = workbook_add_format(book);
    format_set_border(cell, LXW_BORDER_THIN);
    format_set_num_format(cell, "@");  // text, also for what is typed in later

    int sheetCol = 0;
    for (int c = 0; c < grid->Cols(); ++c) {
        if (grid->ColHidden(c)) continue;
        // The grid's width in characters of the sheet's standard font (about 7 pixels each).
        const double chars = std::max(2.0, (grid->ColWidth(c) / VSGrid::kTwipsPerPixel - 5) / 7.0);
        worksheet_set_column(sheet, lxw_col_t(sheetCol), lxw_col_t(sheetCol), chars, nullptr);
        ++sheetCol;
    }
    for (int r = 0; r < grid->Rows(); ++r) {
        int hidden = 0;
        for (int c = 0; c < grid->Cols(); ++c) {
            if (grid->ColHidden(c)) {
                ++hidden;
                continue;
            }
            worksheet_write_string(sheet, lxw_row_t(r), lxw_col_t(c - hidden),
                                   grid->TextMatrix(r, c).toUtf8().constData(), cell);
        }
    }
    const lxw_error err = workbook_close(book);
    if (err != LXW_NO_ERROR)
        throw RuntimeError(fileError(path, QString::fromUtf8(lxw_strerror(err))));
}

QString NewPath(const QDateTime& now) {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    QDir().mkpath(folder);
    const QString stem = QDir(folder).filePath(QStringLiteral("数据报表_") +
                                               now.toString(QStringLiteral("yyyyMMdd_HHmmss")));
    for (int n = 1;; ++n) {
        const QString path =
            stem + (n == 1 ? QString() : QStringLiteral("_%1").arg(n)) + QStringLiteral(".xlsx");
        QFile f(path);
        if (f.open(QIODevice::WriteOnly | QIODevice::NewOnly)) return path;
        if (!f.exists()) throw RuntimeError(fileError(path, f.errorString()));
    }
}

Opener SetOpener(Opener o) {
    Opener old = std::move(opener());
    opener() = std::move(o);
    return old;
}

bool Open(const QString& path) {
    if (opener()) return opener()(path);
    return QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}

}  // namespace GridWorkbook
