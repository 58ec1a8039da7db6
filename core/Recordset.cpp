#include "Recordset.h"

#include "Convert.h"
#include "RuntimeError.h"

Recordset::Recordset(QStringList names, std::vector<Row> rows)
    : data_(std::make_shared<Data>(Data{std::move(names), std::move(rows)})) {}

void Recordset::requireOpen() const {
    if (!data_) throw RuntimeError(RuntimeError::closedObject());
}

bool Recordset::Eof() const {
    requireOpen();
    return pos_ >= int(data_->rows.size());
}

bool Recordset::Bof() const {
    requireOpen();
    return data_->rows.empty() || pos_ < 0;
}

void Recordset::MoveNext() {
    if (Eof()) throw RuntimeError(RuntimeError::noCurrentRecord());
    ++pos_;
}

void Recordset::MoveFirst() {
    requireOpen();
    pos_ = 0;
}

int Recordset::RecordCount() const {
    requireOpen();
    return int(data_->rows.size());
}

int Recordset::FieldCount() const {
    requireOpen();
    return int(data_->names.size());
}

QString Recordset::FieldName(int index) const {
    requireOpen();
    if (index < 0 || index >= data_->names.size())
        throw RuntimeError(RuntimeError::noSuchField(QString::number(index)));
    return data_->names[index];
}

int Recordset::FieldIndex(const QString& name) const {
    requireOpen();
    for (int i = 0; i < data_->names.size(); ++i)
        if (data_->names[i].compare(name, Qt::CaseInsensitive) == 0) return i;
    return -1;
}

const Recordset::Row& Recordset::current() const {
    if (Eof()) throw RuntimeError(RuntimeError::noCurrentRecord());
    return data_->rows[size_t(pos_)];
}

QVariant Recordset::Field(int index) const {
    const Row& row = current();
    if (index < 0 || index >= row.size())
        throw RuntimeError(RuntimeError::noSuchField(QString::number(index)));
    return row[index];
}

QVariant Recordset::Field(const QString& name) const {
    const int i = FieldIndex(name);
    if (i < 0) throw RuntimeError(RuntimeError::noSuchField(name));
    return Field(i);
}

QString Recordset::Text(const QString& name) const {
    return Convert::VarText(Field(name));
}
QString Recordset::Text(int index) const {
    return Convert::VarText(Field(index));
}

const QStringList& Recordset::Names() const {
    requireOpen();
    return data_->names;
}

const std::vector<Recordset::Row>& Recordset::Rows() const {
    requireOpen();
    return data_->rows;
}
