#include "SaleLine.h"

#include "DateText.h"
#include "RuntimeError.h"

QString SaleCondition(bool byDate, const QDate& date, bool byNo, const QString& sellNo, bool byType,
                      const QString& typeNo) {
    QString c;
    if (byDate) c = " DateTime=#" + DateText::Of(date) + "#";
    if (byNo) c += (c.isEmpty() ? " SellNo='" : " And SellNo='") + sellNo + "'";
    if (byType) c += (c.isEmpty() ? " TypeNo='" : " And TypeNo='") + typeNo + "'";
    return c;
}

QDate SaleDate(const QString& text) {
    const QDate d = DateText::Parse(text);
    if (!d.isValid()) throw RuntimeError(RuntimeError::typeMismatch());
    return d;
}

bool PastDayLimit(const QDate& sold, int16_t days) {
    return days != 0 && DateText::DaysBetween(sold, QDate::currentDate()) + 1 > days;
}

SaleKind KindOf(const QString& abate) {
    if (abate == QStringLiteral("全")) return SaleKind::Full;
    if (abate == QStringLiteral("特价")) return SaleKind::Special;
    return SaleKind::Discount;
}
