#include "DateText.h"

#include <QStringList>

namespace DateText {

QString Of(const QDate& date) {
    return date.toString(Format());
}

QString Today() {
    return Of(QDate::currentDate());
}

QString NowText() {
    return QDateTime::currentDateTime().toString("yyyy-MM-dd hh:mm:ss");
}

QDate Parse(const QString& text) {
    QString t = text.trimmed();
    // A time behind the date is dropped.
    const int blank = t.indexOf(' ');
    if (blank > 0) t = t.left(blank);
    t.replace('/', '-').replace('.', '-');
    const QStringList parts = t.split('-');
    if (parts.size() != 3) return {};
    bool ok1, ok2, ok3;
    const int y = parts[0].toInt(&ok1), m = parts[1].toInt(&ok2), d = parts[2].toInt(&ok3);
    if (!ok1 || !ok2 || !ok3 || parts[0].size() != 4) return {};
    return QDate(y, m, d);
}

QString Normalize(const QString& text) {
    const QDate d = Parse(text);
    return d.isValid() ? Of(d) : text;
}

QString KeyOf(const QDate& date) {
    return date.toString("yyyyMMdd");
}

QString TodayKey() {
    return KeyOf(QDate::currentDate());
}

int DaysBetween(const QDate& from, const QDate& to) {
    return int(from.daysTo(to));
}

}  // namespace DateText
