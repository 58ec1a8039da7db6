#pragma once
// Dates of the shop are written and compared as text in one form, yyyy-MM-dd,
// both between quotes in inserts and between hash marks in conditions.
#include <QDate>
#include <QDateTime>
#include <QString>

namespace DateText {

inline const QString& Format() {
    static const QString f = QStringLiteral("yyyy-MM-dd");
    return f;
}
// A date as the system writes it.
QString Of(const QDate& date);
// Today, as the system writes it.
QString Today();
// Date and time as the receipts and the login time show them.
QString NowText();
// Reads a date in the system's form and in the usual other forms (yyyy/M/d,
// yyyy-M-d, yyyy.M.d, with or without a time). An invalid QDate if it is none.
QDate Parse(const QString& text);
// The text in the system's form when it is a date, otherwise the text unchanged.
QString Normalize(const QString& text);
// Today as yyyymmdd, the first eight characters of a sale number.
QString TodayKey();
QString KeyOf(const QDate& date);
// Whole days from `from` to `to` (to - from).
int DaysBetween(const QDate& from, const QDate& to);

}  // namespace DateText
