#pragma once
// What the return and the exchange windows share about a sale line: the
// search that finds it and the rules that decide whether it may go back.
#include <QDate>
#include <QString>
#include <cstdint>

// The condition of the search, from the ticked boxes in the order date, sale
// number, article number; the typed texts go in as they stand. Empty when no
// box is ticked.
QString SaleCondition(bool byDate, const QDate& date, bool byNo, const QString& sellNo, bool byType,
                      const QString& typeNo);

// The date of sale of a grid row; a text that is no date raises a type mismatch.
QDate SaleDate(const QString& text);

// Whether a piece sold on that day is past a limit of days (0: no limit).
// The day of sale counts as day 1.
bool PastDayLimit(const QDate& sold, int16_t days);

// The kind of a sale line, by the text of its discount column.
enum class SaleKind { Full, Special, Discount };
SaleKind KindOf(const QString& abate);
