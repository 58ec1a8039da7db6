#pragma once
// The result of a statement, read fully into memory (a client cursor):
// forward reading with end of file, fields by name (case ignored) or by
// position, field names and a null test.
//
// A statement that yields no rows (Insert, Update, Delete) or that failed
// gives a closed recordset; reading from it raises a RuntimeError, as it
// would from a closed result set.
#include <QStringList>
#include <QVariant>
#include <QVector>
#include <memory>
#include <vector>

class Recordset {
public:
    using Row = QVector<QVariant>;

    Recordset() = default;  // closed
    Recordset(QStringList names, std::vector<Row> rows);

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
    bool IsNull(const QString& name) const { return Field(name).isNull(); }
    bool IsNull(int index) const { return Field(index).isNull(); }
    // The field as text, a null giving "" (numbers in their shortest form).
    QString Text(const QString& name) const;
    QString Text(int index) const;

    // All rows at once, for binding a grid.
    const QStringList& Names() const;
    const std::vector<Row>& Rows() const;

private:
    struct Data {
        QStringList names;
        std::vector<Row> rows;
    };
    void requireOpen() const;
    const Row& current() const;

    std::shared_ptr<Data> data_;
    int pos_ = 0;
};
