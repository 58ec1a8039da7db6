#include "Recordset.h"

#include <bit>
#include <mutex>
#include <utility>

#include "Convert.h"
#include "RecordsetData.h"
#include "RuntimeError.h"

#if defined(__GLIBC__)
#include <malloc.h>
#endif

namespace {

// The largest blocks that tables which went away left, one of each kind, for
// the next table to take: a list searched key by key alternates between a
// few large results, and takes over memory the process already has instead
// of fresh pages. Blocks under kKeepFrom are not kept, nor those over
// kKeepUpTo (the memory of a one-off report is given back). Made once and never
// destroyed, so that a table outliving the others at exit still finds it.
struct Spare {
    std::mutex lock;
    recordset::Block kinds, words, bytes;
};
Spare& spare() {
    static Spare* const s = new Spare;
    return *s;
}
constexpr size_t kKeepFrom = size_t(1) << 20;
constexpr size_t kKeepUpTo = size_t(32) << 20;
// A table with this many bytes of cells (about 100,000 rows of ten columns)
// hands what the allocator kept of it back to the system when it goes.
constexpr size_t kTrimFrom = size_t(8) << 20;

// Keeps the larger of two blocks (within kKeepUpTo), frees the other.
void keep(recordset::Block& kept, recordset::Block b) {
    if (b.bytes > kept.bytes && b.bytes <= kKeepUpTo) std::swap(kept, b);
    std::free(b.p);
}

}  // namespace

RecordsetData::RecordsetData() {
    Spare& s = spare();
    const std::lock_guard<std::mutex> hold(s.lock);
    kinds.adopt(std::exchange(s.kinds, {}));
    words.adopt(std::exchange(s.words, {}));
    bytes.adopt(std::exchange(s.bytes, {}));
}

RecordsetData::~RecordsetData() {
    if (words.capacityBytes() < kKeepFrom) return;
    // By the cells it holds, not its block: a small result may have taken
    // over a large spare block and gives it on untouched.
    [[maybe_unused]] const bool trim = words.size() * sizeof(quint64) >= kTrimFrom;
    {
        Spare& s = spare();
        const std::lock_guard<std::mutex> hold(s.lock);
        keep(s.kinds, kinds.release());
        keep(s.words, words.release());
        keep(s.bytes, bytes.release());
    }
#if defined(__GLIBC__)
    // The allocator keeps what a very large table freed beyond the spare blocks
    // (its other blocks, the texts' copies) for itself; give it back, or a
    // clerk searching to and fro in a large goods list leaves the process
    // holding two lists' worth of memory.
    if (trim) malloc_trim(0);
#endif
}

void RecordsetData::finish() {
    Spare& s = spare();
    const std::lock_guard<std::mutex> hold(s.lock);
    keep(s.kinds, kinds.shed(kKeepFrom / sizeof(quint64)));
    keep(s.words, words.shed(kKeepFrom));
    keep(s.bytes, bytes.shed(kKeepFrom));
}

void RecordsetData::putOwnCopy(Kind kind, const char* p, size_t size) {
    const qsizetype n = qsizetype(size);
    addOther(kind == Kind::Text ? QVariant(QString::fromUtf8(p, n)) : QVariant(QByteArray(p, n)));
}

// ---- building

Recordset::Builder::Builder(QStringList names) : d_(std::make_shared<RecordsetData>()) {
    d_->width = int(names.size());
    d_->names = std::move(names);
}

void Recordset::Builder::Null() {
    d_->add(Kind::Null, 0);
}

void Recordset::Builder::Integer(qint64 value) {
    d_->add(Kind::Integer, quint64(value));
}

void Recordset::Builder::Double(double value) {
    d_->add(Kind::Double, std::bit_cast<quint64>(value));
}

void Recordset::Builder::Text(const char* utf8, qsizetype size) {
    d_->addBytes(Kind::Text, utf8, size_t(size));
}

void Recordset::Builder::Blob(const void* data, qsizetype size) {
    d_->addBytes(Kind::Blob, static_cast<const char*>(data), size_t(size));
}

void Recordset::Builder::Other(const QVariant& value) {
    d_->addOther(value);
}

void Recordset::Builder::absent() {
    d_->add(Kind::Absent, 0);
}

Recordset Recordset::Builder::Finish() {
    if (d_->width > 0) d_->rows = int(d_->kinds.size() / size_t(d_->width));
    d_->finish();
    Recordset rs;
    rs.data_ = std::move(d_);
    return rs;
}

Recordset::Recordset(QStringList names, std::vector<Row> rows) {
    int width = int(names.size());
    for (const Row& r : rows) width = std::max(width, int(r.size()));
    Builder b(std::move(names));
    b.d_->width = width;
    b.d_->rows = int(rows.size());
    for (const Row& r : rows) {
        for (const QVariant& v : r) {
            switch (v.typeId()) {
                case QMetaType::UnknownType:
                    b.Null();
                    break;
                case QMetaType::LongLong:
                    b.Integer(v.toLongLong());
                    break;
                case QMetaType::Double:
                    b.Double(v.toDouble());
                    break;
                case QMetaType::QString: {
                    const QByteArray utf8 = v.toString().toUtf8();
                    b.Text(utf8.constData(), utf8.size());
                    break;
                }
                default:
                    b.Other(v);
            }
        }
        for (qsizetype i = r.size(); i < width; ++i) b.absent();
    }
    *this = b.Finish();
}

// ---- reading

void Recordset::requireOpen() const {
    if (!data_) throw RuntimeError(RuntimeError::closedObject());
}

bool Recordset::Eof() const {
    requireOpen();
    return pos_ >= data_->rows;
}

bool Recordset::Bof() const {
    requireOpen();
    return data_->rows == 0 || pos_ < 0;
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
    return data_->rows;
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

int Recordset::cell(int index) const {
    if (Eof()) throw RuntimeError(RuntimeError::noCurrentRecord());
    if (index < 0 || index >= data_->width || data_->kinds[data_->at(pos_, index)] == Kind::Absent)
        throw RuntimeError(RuntimeError::noSuchField(QString::number(index)));
    return index;
}

QVariant Recordset::Field(int index) const {
    return ValueAt(pos_, cell(index));
}

QVariant Recordset::Field(const QString& name) const {
    const int i = FieldIndex(name);
    if (i < 0) throw RuntimeError(RuntimeError::noSuchField(name));
    return Field(i);
}

bool Recordset::IsNull(int index) const {
    const int i = cell(index);
    switch (KindAt(pos_, i)) {
        case Kind::Null:
            return true;
        case Kind::Other:
            return ValueAt(pos_, i).isNull();
        default:
            return false;
    }
}

bool Recordset::IsNull(const QString& name) const {
    const int i = FieldIndex(name);
    if (i < 0) throw RuntimeError(RuntimeError::noSuchField(name));
    return IsNull(i);
}

QString Recordset::Text(int index) const {
    return TextAt(pos_, cell(index));
}

QString Recordset::Text(const QString& name) const {
    const int i = FieldIndex(name);
    if (i < 0) throw RuntimeError(RuntimeError::noSuchField(name));
    return Text(i);
}

const QStringList& Recordset::Names() const {
    requireOpen();
    return data_->names;
}

// ---- any row

Recordset::Kind Recordset::KindAt(int row, int field) const {
    return data_->kinds[data_->at(row, field)];
}

qint64 Recordset::IntegerAt(int row, int field) const {
    return qint64(data_->words[data_->at(row, field)]);
}

double Recordset::DoubleAt(int row, int field) const {
    return std::bit_cast<double>(data_->words[data_->at(row, field)]);
}

QByteArrayView Recordset::BytesAt(int row, int field) const {
    return data_->span(data_->at(row, field));
}

QVariant Recordset::ValueAt(int row, int field) const {
    const size_t c = data_->at(row, field);
    switch (data_->kinds[c]) {
        case Kind::Integer:
            return QVariant(qlonglong(data_->words[c]));
        case Kind::Double:
            return QVariant(std::bit_cast<double>(data_->words[c]));
        case Kind::Text: {
            const QByteArrayView b = data_->span(c);
            return QVariant(QString::fromUtf8(b.data(), b.size()));
        }
        case Kind::Blob: {
            const QByteArrayView b = data_->span(c);
            return b.isEmpty() ? QVariant(QByteArray()) : QVariant(b.toByteArray());
        }
        case Kind::Other:
            return data_->others[size_t(data_->words[c])];
        case Kind::Null:
        case Kind::Absent:
            break;
    }
    return QVariant();
}

QString Recordset::TextAt(int row, int field) const {
    const size_t c = data_->at(row, field);
    switch (data_->kinds[c]) {
        case Kind::Integer:
            return QString::number(qlonglong(data_->words[c]));
        case Kind::Double:
            return Convert::DblText(std::bit_cast<double>(data_->words[c]));
        case Kind::Text:
        case Kind::Blob: {
            const QByteArrayView b = data_->span(c);
            return QString::fromUtf8(b.data(), b.size());
        }
        case Kind::Other:
            return Convert::VarText(data_->others[size_t(data_->words[c])]);
        case Kind::Null:
        case Kind::Absent:
            break;
    }
    return QString();
}

const std::vector<Recordset::Row>& Recordset::Rows() const {
    requireOpen();
    const RecordsetData& d = *data_;
    if (!d.variantRows) {
        auto rows = std::make_unique<std::vector<Row>>();
        rows->reserve(size_t(d.rows));
        for (int r = 0; r < d.rows; ++r) {
            int n = d.width;
            while (n > 0 && d.kinds[d.at(r, n - 1)] == Kind::Absent) --n;
            Row row(n);
            for (int f = 0; f < n; ++f) row[f] = ValueAt(r, f);
            rows->push_back(std::move(row));
        }
        d.variantRows = std::move(rows);
    }
    return *d.variantRows;
}
