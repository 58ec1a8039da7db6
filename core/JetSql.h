#pragma once
// Translation of the statements the windows write (the Jet dialect of the
// shop's data file) into the dialect of the embedded store.
//
//   #2026-11-22#        -> '2026-11-22'      (date literals, in the stored form)
//   Select top 5 ...    -> Select ... LIMIT 5
//   mid(x, 1, 8)        -> substr(x, 1, 8)
//   true / false        -> -1 / 0            (yes/no columns hold -1 and 0)
//   [Size]              -> "Size"
//
// Text inside quoted literals is never touched. A text holding more than one
// statement is refused.
#include <QString>

namespace JetSql {

struct Result {
    QString sql;    // the translated statement
    QString error;  // non-empty when the text was refused
};

Result Translate(const QString& jet);

}  // namespace JetSql
