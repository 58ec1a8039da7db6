#include "Sheet.h"

#include <QDate>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <cmath>

#include "Convert.h"
#include "SheetReaders.h"

namespace Sheets {

// ---- cells held in memory

QString CellTable::Cell(int row, int col) const {
    const auto it = cells_.find(row);
    if (it == cells_.end() || col < 1 || col > int(it->second.size())) return QString();
    return it->second[size_t(col - 1)];
}

void CellTable::Set(int row, int col, const QString& text) {
    if (text.isEmpty() || row < 1 || col < 1 || row > kMaxRows || col > kMaxCols) return;
    std::vector<QString>& line = cells_[row];
    if (int(line.size()) < col) line.resize(size_t(col));
    line[size_t(col - 1)] = text;
    rows_ = std::max(rows_, row);
    cols_ = std::max(cols_, col);
}

// ---- numbers and dates

QString NumberText(double value) {
    return Convert::DblText(value);
}

QString SerialText(double serial, DateKind kind, bool date1904) {
    if (kind == DateKind::None || !std::isfinite(serial) || serial < 0 || serial >= 2958466)
        return NumberText(serial);
    double days = std::floor(serial);
    // Seconds of the day, rounded as the spreadsheet shows them; a time that
    // rounds up to midnight belongs to the next day.
    qint64 seconds = std::llround((serial - days) * 86400.0);
    if (seconds >= 86400) {
        seconds -= 86400;
        days += 1;
    }
    QDate date;
    if (date1904) {
        date = QDate(1904, 1, 1).addDays(qint64(days));
    } else if (days >= 61) {
        date = QDate(1899, 12, 30).addDays(qint64(days));
    } else if (days == 60) {
        // The 29th of February 1900 that Excel counts.
        const QString time = QTime(0, 0).addSecs(int(seconds)).toString(QStringLiteral("HH:mm:ss"));
        if (kind == DateKind::Time) return time;
        const QString day = QStringLiteral("1900-02-29");
        return kind == DateKind::DateTime ? day + QLatin1Char(' ') + time : day;
    } else {
        date = QDate(1899, 12, 31).addDays(qint64(days));
    }
    const QDateTime at(date, QTime(0, 0).addSecs(int(seconds)));
    switch (kind) {
        case DateKind::Date:
            return at.toString(QStringLiteral("yyyy-MM-dd"));
        case DateKind::DateTime:
            return at.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
        default:
            return at.toString(QStringLiteral("HH:mm:ss"));
    }
}

DateKind KindOfFormat(const QString& code) {
    // Only the first section counts (positive numbers); quoted text, escaped
    // characters and bracketed parts (colours, locales, conditions, elapsed
    // time, which is a count and no time of day) are no part of a date.
    QString plain;
    bool quoted = false;
    for (qsizetype i = 0; i < code.size(); ++i) {
        const QChar c = code[i];
        if (quoted) {
            if (c == QLatin1Char('"')) quoted = false;
            continue;
        }
        if (c == QLatin1Char('"')) {
            quoted = true;
        } else if (c == QLatin1Char('\\') || c == QLatin1Char('_') || c == QLatin1Char('*')) {
            ++i;  // the next character stands for itself, or is padding
        } else if (c == QLatin1Char('[')) {
            const qsizetype end = code.indexOf(QLatin1Char(']'), i);
            if (end < 0) break;
            const QString inner = code.mid(i + 1, end - i - 1).toLower();
            if (!inner.isEmpty() && std::all_of(inner.begin(), inner.end(), [](QChar ch) {
                    return QStringLiteral("hms").contains(ch);
                }))
                return DateKind::None;
            i = end;
        } else if (c == QLatin1Char(';')) {
            break;
        } else {
            plain += c.toLower();
        }
    }
    plain.remove(QStringLiteral("am/pm"));
    plain.remove(QStringLiteral("a/p"));
    if (plain.contains(QLatin1String("general"))) return DateKind::None;
    const bool time = plain.contains(QLatin1Char('h')) || plain.contains(QLatin1Char('s'));
    // "m" is the month unless hours or seconds stand in the format.
    const bool date = plain.contains(QLatin1Char('y')) || plain.contains(QLatin1Char('d')) ||
                      (plain.contains(QLatin1Char('m')) && !time);
    if (date && time) return DateKind::DateTime;
    if (date) return DateKind::Date;
    if (time) return DateKind::Time;
    return DateKind::None;
}

DateKind KindOfBuiltinFormat(int id) {
    // Excel's own formats, with those of the Chinese editions (27 to 36, 50 to 58).
    static constexpr int dates[] = {14, 15, 16, 17, 27, 28, 29, 30, 31,
                                    36, 50, 51, 52, 53, 54, 57, 58};
    static constexpr int times[] = {18, 19, 20, 21, 32, 33, 34, 35, 45, 46, 47, 55, 56};
    if (id == 22) return DateKind::DateTime;
    if (std::ranges::find(dates, id) != std::end(dates)) return DateKind::Date;
    if (std::ranges::find(times, id) != std::end(times)) return DateKind::Time;
    return DateKind::None;
}

// ---- choosing the reader

namespace {

QString refusalText(Refusal why, const QString& path) {
    const QString name = QDir::toNativeSeparators(path);
    switch (why) {
        case Refusal::Password:
            return QStringLiteral("文件设有密码保护，无法读取！请在Excel中取消密码后再导入。\n") +
                   name;
        case Refusal::Damaged:
            return QStringLiteral("文件已损坏，无法读取！\n") + name;
        default:
            return QStringLiteral(
                       "不是可以读取的表格文件！请选择Excel文件（.xls、.xlsx）或CSV文件。\n") +
                   name;
    }
}

bool startsWith(const QByteArray& bytes, const char* magic, qsizetype size) {
    return bytes.size() >= size && std::equal(magic, magic + size, bytes.constData());
}

}  // namespace

std::unique_ptr<Sheet> Open(const QString& path, QString* error) {
    auto fail = [&](const QString& text) -> std::unique_ptr<Sheet> {
        if (error) *error = text;
        return nullptr;
    };
    const QFileInfo info(path);
    if (path.isEmpty() || !info.exists() || !info.isFile())
        return fail(QStringLiteral("文件不存在！\n") + QDir::toNativeSeparators(path));
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return fail(QStringLiteral("文件无法打开！\n") + QDir::toNativeSeparators(path) +
                    QStringLiteral("\n") + file.errorString());
    const QByteArray head = file.peek(8);

    Refusal why = Refusal::None;
    std::unique_ptr<Sheet> sheet;
    if (startsWith(head, "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1", 8)) {
        // A compound document: an .xls workbook, or a password-protected
        // .xlsx, which Excel wraps in one.
        file.close();
        sheet = XlsSheet::Open(path, why);
    } else if (startsWith(head, "PK\x03\x04", 4) || startsWith(head, "PK\x05\x06", 4)) {
        file.close();
        sheet = XlsxSheet::Open(path, why);
    } else {
        sheet = CsvSheet::Read(file.readAll(), why);
    }
    if (!sheet) return fail(refusalText(why, path));
    if (error) error->clear();
    return sheet;
}

}  // namespace Sheets
