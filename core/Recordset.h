#pragma once
// The result of a statement, read fully into memory (a client cursor):
// forward reading with end of file, fields by name (case ignored) or by
// position, field names and a null test.
//
// A statement that yields no rows (Insert, Update, Delete) or that failed
// gives a closed recordset; reading from it raises a RuntimeError, as it
// would from a closed result set.
//
// The values are kept as the store gave them, in one compact table per
// result: a kind and eight bytes per cell, and every text in one buffer of
// UTF-8. A value becomes a QVariant or a QString only when it is read, so a
// list of 100,000 goods costs nine bytes a cell besides its text, and a grid
// bound to it converts only the cells it shows. Copies of a recordset share
// the table; each copy has its own current row.
#include <QByteArrayView>
#include <QStringList>
#include <QVariant>
#include <QVector>
#include <cstdint>
#include <memory>
#include <vector>

struct RecordsetData;

class Recordset {
public:
    using Row = QVector<QVariant>;

    // How a cell holds its value.
    enum class Kind : uint8_t {
        Null,
        Integer,  // 64 bits, read as a qlonglong
        Double,
        Text,    // UTF-8, read as a QString
        Blob,    // bytes, read as a QByteArray
        Other,   // a variant given to the constructor that none of the above keeps exactly
        Absent,  // no cell: a row given shorter than the others
    };

    Recordset() = default;  // closed
    // An open result from variants (rows may differ in length, as given).
    Recordset(QStringList names, std::vector<Row> rows);

    // Fills a result row by row, one call per cell, without a variant per value.
    class Builder {
    public:
        explicit Builder(QStringList names);
        void Null();
        void Integer(qint64 value);
        void Double(double value);
        void Text(const char* utf8, qsizetype bytes);
        void Blob(const void* data, qsizetype bytes);
        void Other(const QVariant& value);
        // An open recordset of the cells added, in rows of FieldCount cells.
        Recordset Finish();

    private:
        friend class Recordset;
        friend class clsDbopt;  // fills the table straight from the statement
        void absent();
        std::shared_ptr<RecordsetData> d_;
    };

    bool IsOpen() const { return data_ != nullptr; }
    // End and beginning of file. Both true on an empty result.
    bool Eof() const;
    bool Bof() const;
    void MoveNext();
    void MoveFirst();
    int RecordCount() const;

    int FieldCount() const;
    QString FieldName(int index) const;
    int FieldIndex(const QString& name) const;  // -1 when there is no such field

    // The value of a field in the current row.
    QVariant Field(int index) const;
    QVariant Field(const QString& name) const;
    bool IsNull(const QString& name) const;
    bool IsNull(int index) const;
    // The field as text, a null giving "" (numbers in their shortest form).
    QString Text(const QString& name) const;
    QString Text(int index) const;

    const QStringList& Names() const;

    // Any row at all, for a grid bound to the result: row 0..RecordCount()-1
    // and field 0..FieldCount()-1 of an open recordset, unchecked; the
    // current row does not move. TextAt gives what Text would give there.
    Kind KindAt(int row, int field) const;
    QVariant ValueAt(int row, int field) const;
    QString TextAt(int row, int field) const;
    qint64 IntegerAt(int row, int field) const;        // of an Integer cell
    double DoubleAt(int row, int field) const;         // of a Double cell
    QByteArrayView BytesAt(int row, int field) const;  // of a Text or Blob cell

    // Every row as variants. Built on the first call and kept: on a large
    // result this costs what the compact table saves; prefer the above.
    const std::vector<Row>& Rows() const;

private:
    void requireOpen() const;
    int cell(int index) const;  // the current row's cell of a field, with the errors of a read

    std::shared_ptr<const RecordsetData> data_;
    int pos_ = 0;
};
