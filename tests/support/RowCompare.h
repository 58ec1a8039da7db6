#pragma once
// Rows of a query or of a grid compared one row at a time, field by field,
// so that a failure names the row and the field that differ.
#include <QStringList>
#include <QTest>

#include "TestDb.h"

// The rows of a query, each as its fields; `from` leaves out leading fields
// (a key made anew on every run).
inline QList<QStringList> Rows(const QString& sql, int from = 0) {
    QList<QStringList> out;
    for (Recordset rs = TestDb::Query(sql); !rs.Eof(); rs.MoveNext()) {
        QStringList fields;
        for (int i = from; i < rs.FieldCount(); ++i) fields << rs.Text(i);
        out << fields;
    }
    return out;
}

// Expected fields written compactly as "a|b|c".
inline QStringList Values(const QString& text) {
    return text.split('|');
}
// Expected rows, each written "a|b|c".
inline QList<QStringList> SplitRows(const QStringList& rows) {
    QList<QStringList> out;
    for (const QString& row : rows) out << Values(row);
    return out;
}
template <typename Row>  // rows already split (a template, so that braces never match it)
const QList<Row>& SplitRows(const QList<Row>& rows) {
    return rows;
}

inline bool SameRows(const QList<QStringList>& got, const QList<QStringList>& want,
                     const char* what, const char* file, int line) {
    if (got.size() != want.size()) {
        QStringList shown;
        for (const QStringList& row : got) shown << row.join('|');
        const QString why = QString("%1 rows, %2 expected: %3")
                                .arg(got.size())
                                .arg(want.size())
                                .arg(shown.join(" / "));
        return QTest::qVerify(false, what, qPrintable(why), file, line);
    }
    for (qsizetype i = 0; i < got.size(); ++i) {
        const QByteArray row = QByteArray(what) + ", row " + QByteArray::number(i + 1);
        if (!QTest::qCompare(got[i], want[i], row.constData(), "expected", file, line))
            return false;
    }
    return true;
}

// COMPARE_ROWS(Rows("Select ..."), {"a|b", "c|d"}): the rows, then each row
// field by field. The expected rows are texts (in braces, a list of fields
// would be taken as rows of one field each) or a QList<QStringList>.
#define COMPARE_ROWS(rows, ...)                                                         \
    do {                                                                                \
        if (!SameRows(rows, SplitRows(__VA_ARGS__), #rows, __FILE__, __LINE__)) return; \
    } while (false)
