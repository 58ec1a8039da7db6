#include "SheetFiles.h"

#include <xlsxwriter.h>

#include <QDate>
#include <QFile>
#include <QJsonDocument>
#include <QStringEncoder>
#include <stdexcept>

namespace SheetFiles {

Rows Supplier() {
    QFile f(QStringLiteral(CS_SUPPLIER_SHEET));
    if (!f.open(QIODevice::ReadOnly)) throw std::runtime_error("no supplier sheet");
    Rows rows;
    for (const QVariant& row : QJsonDocument::fromJson(f.readAll()).toVariant().toList()) {
        QVariantList cells;
        for (const QVariant& cell : row.toList())
            cells << (cell.typeId() == QMetaType::LongLong ? QVariant(cell.toDouble()) : cell);
        rows << cells;
    }
    return rows;
}

QString Made(const QString& name) {
    return QStringLiteral(CS_SHEET_DIR "/") + name;
}

QString Shown(const QVariant& cell) {
    if (cell.typeId() == QMetaType::QVariantMap) {
        const QVariantMap m = cell.toMap();
        return m.contains("date") ? m["date"].toString() : Shown(m["number"]);
    }
    if (cell.typeId() == QMetaType::Double) return QString::number(cell.toDouble(), 'g', 15);
    return cell.toString();
}

void WriteXlsx(const QString& path, const Rows& rows, bool inlineStrings) {
    lxw_workbook_options options{};
    options.constant_memory = inlineStrings ? LXW_TRUE : LXW_FALSE;
    lxw_workbook* book = workbook_new_opt(QFile::encodeName(path).constData(), &options);
    lxw_worksheet* sheet = workbook_add_worksheet(book, "订货单");
    for (int r = 0; r < rows.size(); ++r) {
        for (int c = 0; c < rows[r].size(); ++c) {
            const QVariant& cell = rows[r][c];
            if (cell.typeId() == QMetaType::Double) {
                worksheet_write_number(sheet, r, lxw_col_t(c), cell.toDouble(), nullptr);
            } else if (cell.typeId() == QMetaType::QVariantMap) {
                const QVariantMap m = cell.toMap();
                lxw_format* format = workbook_add_format(book);
                const QDate d = QDate::fromString(m["date"].toString(), Qt::ISODate);
                const QString shape = d.isValid() ? "yyyy-mm-dd" : "General";
                format_set_num_format(format, m.value("format", shape).toString().toUtf8().data());
                if (d.isValid()) {
                    lxw_datetime at{d.year(), d.month(), d.day(), 0, 0, 0};
                    worksheet_write_datetime(sheet, r, lxw_col_t(c), &at, format);
                } else {
                    worksheet_write_number(sheet, r, lxw_col_t(c), m["number"].toDouble(), format);
                }
            } else if (cell.isValid()) {
                worksheet_write_string(sheet, r, lxw_col_t(c), cell.toString().toUtf8().constData(),
                                       nullptr);
            }
        }
    }
    worksheet_write_string(workbook_add_worksheet(book, "其他"), 0, 0, "第二张表", nullptr);
    if (workbook_close(book) != LXW_NO_ERROR) throw std::runtime_error("cannot write the xlsx");
}

void WriteCsv(const QString& path, const Rows& rows, const char* encoding) {
    QString text;
    for (const QVariantList& row : rows) {
        QStringList fields;
        for (const QVariant& cell : row) {
            QString t = Shown(cell);
            if (t.contains(',') || t.contains('"') || t.contains('\n'))
                t = '"' + t.replace("\"", "\"\"") + '"';
            fields << t;
        }
        text += fields.join(',') + "\r\n";
    }
    QStringEncoder encode(encoding);
    QFile f(path);
    if (!f.open(QIODevice::WriteOnly) || f.write(encode(text)) < 0)
        throw std::runtime_error("cannot write the csv");
}

QString Truncated(const QString& path, const QString& to) {
    QFile in(path);
    QFile out(to);
    if (!in.open(QIODevice::ReadOnly) || !out.open(QIODevice::WriteOnly))
        throw std::runtime_error("cannot copy");
    out.write(in.read(in.size() / 2));
    return to;
}

}  // namespace SheetFiles
