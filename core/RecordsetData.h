#pragma once
// The table behind a Recordset. Only the core's own sources include this:
// Recordset reads it, and clsDbopt fills it straight from the statement.
#include <QStringList>
#include <QVariant>
#include <algorithm>
#include <bit>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>
#include <vector>

#include "Recordset.h"

namespace recordset {

// A block of memory a Grower can take over: what is left of a large result
// that went away (see RecordsetData's destructor).
struct Block {
    void* p = nullptr;
    size_t bytes = 0;
};

// A growing array of plain values. It grows through realloc, which lets a
// large block grow where it is (the kernel remaps its pages, nothing is
// copied), and appends without the checks of a general container.
template <typename T>
class Grower {
public:
    Grower() = default;
    Grower(const Grower&) = delete;
    Grower& operator=(const Grower&) = delete;
    ~Grower() { std::free(p_); }

    size_t size() const { return n_; }
    size_t capacityBytes() const { return cap_ * sizeof(T); }
    const T* data() const { return p_; }
    const T& operator[](size_t i) const { return p_[i]; }

    // Room for k more values at the end; returns where they go.
    T* append(size_t k) {
        reserveMore(k);
        T* at = p_ + n_;
        n_ += k;
        return at;
    }
    void reserveMore(size_t k) {
        if (n_ + k > cap_) [[unlikely]]
            grow(k);
    }
    void pushReserved(T v) { p_[n_++] = v; }

    // Takes over a block while empty; gives its block away, leaving it empty.
    void adopt(Block b) {
        if (p_ || !b.p) {
            std::free(b.p);
            return;
        }
        p_ = static_cast<T*>(b.p);
        cap_ = b.bytes / sizeof(T);
    }
    Block release() {
        Block b{p_, cap_ * sizeof(T)};
        p_ = nullptr;
        n_ = cap_ = 0;
        return b;
    }
    // When less than half of a block of at least `from` bytes is used: moves
    // the values into a block of their size and gives the large one away.
    Block shed(size_t from) {
        if (cap_ * sizeof(T) < from || n_ * 2 >= cap_) return {};
        void* q = std::malloc(std::max<size_t>(n_, 1) * sizeof(T));
        if (!q) return {};
        if (n_ > 0) std::memcpy(q, p_, n_ * sizeof(T));
        Block b{p_, cap_ * sizeof(T)};
        p_ = static_cast<T*>(q);
        cap_ = std::max<size_t>(n_, 1);
        return b;
    }

private:
    Q_NEVER_INLINE void grow(size_t k) {
        const size_t cap = std::max({cap_ * 2, n_ + k, size_t(4096 / sizeof(T))});
        void* q = std::realloc(p_, cap * sizeof(T));
        if (!q) throw std::bad_alloc();
        p_ = static_cast<T*>(q);
        cap_ = cap;
    }
    T* p_ = nullptr;
    size_t n_ = 0;
    size_t cap_ = 0;
};

}  // namespace recordset

// The table of a result: row after row, `width` cells each. A cell is its
// kind and one 64-bit word: the integer, the double's bits, the place of a
// text or blob in `bytes` (offset in the high half, size in the low), or the
// index of a variant in `others`.
struct RecordsetData {
    using Kind = Recordset::Kind;

    // A new table takes the blocks of the last large table that went away, so
    // that a list searched again and again (a key at a time in an article
    // number box) fills memory the process already has instead of fresh
    // pages; the destructor leaves them there for the next.
    RecordsetData();
    ~RecordsetData();
    // The table is complete: a small table that took large blocks gives
    // them back, so that it does not hold their memory as long as it lives.
    void finish();
    RecordsetData(const RecordsetData&) = delete;
    RecordsetData& operator=(const RecordsetData&) = delete;

    QStringList names;
    int width = 0;
    int rows = 0;
    recordset::Grower<Kind> kinds;
    recordset::Grower<quint64> words;
    recordset::Grower<char> bytes;
    std::vector<QVariant> others;
    mutable std::unique_ptr<std::vector<Recordset::Row>> variantRows;  // Rows(), once asked for

    size_t at(int row, int field) const { return size_t(row) * size_t(width) + size_t(field); }
    QByteArrayView span(size_t cell) const {
        const quint64 s = words[cell];
        return QByteArrayView(bytes.data() + (s >> 32), qsizetype(s & 0xFFFFFFFFu));
    }

    // One cell at a time (Builder).
    void add(Kind kind, quint64 word) {
        kinds.reserveMore(1);
        words.reserveMore(1);
        put(kind, word);
    }
    void addOther(const QVariant& v) {
        add(Kind::Other, others.size());
        others.push_back(v);
    }
    void addBytes(Kind kind, const char* p, size_t size) {
        kinds.reserveMore(1);
        words.reserveMore(1);
        putBytes(kind, p, size);
    }

    // A row at a time (clsDbopt): room for a row, then put each cell.
    void reserveRow() {
        kinds.reserveMore(size_t(width));
        words.reserveMore(size_t(width));
    }
    void put(Kind kind, quint64 word) {
        kinds.pushReserved(kind);
        words.pushReserved(word);
    }
    void putNull() { put(Kind::Null, 0); }
    void putInteger(qint64 v) { put(Kind::Integer, quint64(v)); }
    void putDouble(double v) { put(Kind::Double, std::bit_cast<quint64>(v)); }
    // A text (UTF-8) or a blob, copied into the buffer.
    void putBytes(Kind kind, const char* p, size_t size) {
        const size_t offset = bytes.size();
        if (offset + size > 0xFFFFFFFFu) [[unlikely]] {
            putOwnCopy(kind, p, size);
            return;
        }
        char* to = bytes.append(size);
        // Most values are a few bytes: copied here rather than by a call.
        if (size >= 8 && size <= 16) {
            std::memcpy(to, p, 8);
            std::memcpy(to + size - 8, p + size - 8, 8);
        } else if (size >= 4 && size < 8) {
            std::memcpy(to, p, 4);
            std::memcpy(to + size - 4, p + size - 4, 4);
        } else if (size > 16) {
            std::memcpy(to, p, size);
        } else {
            for (size_t i = 0; i < size; ++i) to[i] = p[i];
        }
        put(kind, quint64(offset) << 32 | quint64(size));
    }
    // Past 4 GB of text in one result a cell keeps its own copy.
    void putOwnCopy(Kind kind, const char* p, size_t size);
};
