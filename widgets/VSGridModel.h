#pragma once
// The cells of VSGrid: one table of values with the look of each row and
// column. Only the grid's own sources include this.
#include <QAbstractButton>
#include <QAbstractTableModel>
#include <QBrush>
#include <QFont>
#include <QHash>
#include <algorithm>
#include <memory>
#include <vector>

#include "Convert.h"
#include "VSGrid.h"

namespace vsgrid {

// Column alignment when none was set: numbers to the right, text to the left.
constexpr int kAlignGeneral = 9;
// Width of the fixed column before a window sets one.
constexpr int kDefaultFixedWidthTwips = 300;

struct CellStyle {
    QColor back;
    QColor fore;
    int bold = -1;  // -1: as the row
};

// What a row holds of its own: the fixed cell, the cells of a row that is
// not bound to the result (added, edited, a total row) and the look.
struct RowOwn {
    QVariant title;                // column 0
    Recordset::Row cells;          // columns 1.., may be shorter than the grid
    QHash<int, CellStyle> styles;  // by column, only for cells that have one
    QColor fore;
    bool bold = false;
    bool subtotal = false;
    int level = 0;  // of a total row: the column it groups on, -1 for a grand total
};

// A row of the grid. A row bound to the result shows that result's row in
// columns 1.. (the values stay in the recordset, converted when shown); the
// first edit of one of its cells gives it cells of its own. A bound row
// that nothing was set on costs no more than its index.
struct GridRow {
    int source = -1;              // row of the bound result; -1: the cells are its own
    std::unique_ptr<RowOwn> own;  // null until something is set on the row

    GridRow() = default;
    explicit GridRow(int boundRow) : source(boundRow) {}
    GridRow(GridRow&&) noexcept = default;
    GridRow& operator=(GridRow&&) noexcept = default;
    GridRow(const GridRow& o)
        : source(o.source), own(o.own ? std::make_unique<RowOwn>(*o.own) : nullptr) {}
    GridRow& operator=(const GridRow& o) {
        if (this != &o) *this = GridRow(o);
        return *this;
    }

    const RowOwn& look() const {
        static const RowOwn none;
        return own ? *own : none;
    }
    RowOwn& edit() {
        if (!own) own = std::make_unique<RowOwn>();
        return *own;
    }
    bool subtotal() const { return own && own->subtotal; }
};

struct ColInfo {
    QString key;
    int width = -1;  // twips; -1 while the column has the default width
    int alignment = kAlignGeneral;
    bool hidden = false;
    bool checkBox = false;
    bool merge = false;
};

// A number stands to the right in a column of general alignment.
inline bool isNumber(const QVariant& value) {
    switch (value.typeId()) {
        case QMetaType::Int:
        case QMetaType::LongLong:
        case QMetaType::UInt:
        case QMetaType::ULongLong:
        case QMetaType::Double:
        case QMetaType::Float:
            return true;
        default:
            return false;
    }
}

inline Qt::Alignment qtAlignment(int alignment, bool number) {
    switch (alignment) {
        case 0:
            return Qt::AlignLeft | Qt::AlignTop;
        case 1:
            return Qt::AlignLeft | Qt::AlignVCenter;
        case 2:
            return Qt::AlignLeft | Qt::AlignBottom;
        case 3:
            return Qt::AlignHCenter | Qt::AlignTop;
        case 4:
            return Qt::AlignCenter;
        case 5:
            return Qt::AlignHCenter | Qt::AlignBottom;
        case 6:
            return Qt::AlignRight | Qt::AlignTop;
        case 7:
            return Qt::AlignRight | Qt::AlignVCenter;
        case 8:
            return Qt::AlignRight | Qt::AlignBottom;
        default:
            return number ? Qt::AlignRight | Qt::AlignVCenter : Qt::AlignLeft | Qt::AlignVCenter;
    }
}

inline double numericValue(const QVariant& v) {
    return Convert::IsNumeric(v) ? Convert::VarDbl(v) : 0.0;
}

}  // namespace vsgrid

using namespace vsgrid;

// The cells of the grid. Row 0 of the table is the header and column 0 the
// fixed column; the view sees the data part, with row 0 and column 0 as its
// header sections.
class VSGridModel : public QAbstractTableModel {
public:
    explicit VSGridModel(VSGrid* grid) : QAbstractTableModel(grid), grid_(grid) {
        rows_.resize(1);
        cols_.resize(1);
        cols_[0].width = kDefaultFixedWidthTwips;
    }

    std::vector<GridRow> rows_;
    std::vector<ColInfo> cols_;

    // The grid changes the shape itself.
    using QAbstractTableModel::beginInsertColumns;
    using QAbstractTableModel::beginInsertRows;
    using QAbstractTableModel::beginRemoveColumns;
    using QAbstractTableModel::beginRemoveRows;
    using QAbstractTableModel::beginResetModel;
    using QAbstractTableModel::endInsertColumns;
    using QAbstractTableModel::endInsertRows;
    using QAbstractTableModel::endRemoveColumns;
    using QAbstractTableModel::endRemoveRows;
    using QAbstractTableModel::endResetModel;

    int gridRows() const { return int(rows_.size()); }
    int gridCols() const { return int(cols_.size()); }
    bool inGrid(int row, int col) const {
        return row >= 0 && row < gridRows() && col >= 0 && col < gridCols();
    }

    // The result the grid is bound to, and how many of its fields columns
    // 1.. show (fewer when the grid lost columns since).
    Recordset bound_;
    int boundCols_ = 0;

    // Where a cell's value is: a field of the bound result, a variant of the
    // row's own, or nowhere (an empty cell).
    struct CellRef {
        int source = -1;  // row of the bound result, field `field`
        int field = 0;
        const QVariant* value = nullptr;
    };
    CellRef ref(int row, int col) const {
        const GridRow& r = rows_[size_t(row)];
        if (col == 0) return {-1, 0, r.own ? &r.own->title : nullptr};
        if (r.source >= 0)
            return col <= boundCols_ ? CellRef{r.source, col - 1, nullptr} : CellRef{};
        if (r.own && col - 1 < r.own->cells.size()) return {-1, 0, &r.own->cells[col - 1]};
        return {};
    }

    QString text(int row, int col) const {
        const CellRef c = ref(row, col);
        if (c.source >= 0) return bound_.TextAt(c.source, c.field);
        return c.value ? Convert::VarText(*c.value) : QString();
    }

    bool number(int row, int col) const {
        const CellRef c = ref(row, col);
        if (c.source < 0) return c.value && isNumber(*c.value);
        switch (bound_.KindAt(c.source, c.field)) {
            case Recordset::Kind::Integer:
            case Recordset::Kind::Double:
                return true;
            case Recordset::Kind::Other:
                return isNumber(bound_.ValueAt(c.source, c.field));
            default:
                return false;
        }
    }

    // The cell's number for sums: non-numeric cells count 0.
    double numeric(int row, int col) const {
        const CellRef c = ref(row, col);
        if (c.source < 0) return c.value ? numericValue(*c.value) : 0.0;
        switch (bound_.KindAt(c.source, c.field)) {
            case Recordset::Kind::Integer:
                return double(bound_.IntegerAt(c.source, c.field));
            case Recordset::Kind::Double:
                return bound_.DoubleAt(c.source, c.field);
            case Recordset::Kind::Null:
            case Recordset::Kind::Absent:
                return 0.0;
            case Recordset::Kind::Other:
                return numericValue(bound_.ValueAt(c.source, c.field));
            default: {
                const QString t = bound_.TextAt(c.source, c.field);
                return Convert::IsNumeric(t) ? Convert::CDbl(t) : 0.0;
            }
        }
    }

    bool emptyText(int row, int col) const {
        const CellRef c = ref(row, col);
        if (c.source < 0) return !c.value || Convert::VarText(*c.value).isEmpty();
        switch (bound_.KindAt(c.source, c.field)) {
            case Recordset::Kind::Null:
            case Recordset::Kind::Absent:
                return true;
            case Recordset::Kind::Text:
            case Recordset::Kind::Blob:
                return bound_.BytesAt(c.source, c.field).isEmpty();
            default:
                return text(row, col).isEmpty();
        }
    }

    // Whether two rows show the same text in a column; bound texts are
    // compared as they are stored.
    bool sameText(int row1, int row2, int col) const {
        const CellRef a = ref(row1, col);
        const CellRef b = ref(row2, col);
        if (a.source >= 0 && b.source >= 0) {
            const Recordset::Kind ka = bound_.KindAt(a.source, a.field);
            if (ka == Recordset::Kind::Text && bound_.KindAt(b.source, b.field) == ka)
                return bound_.BytesAt(a.source, a.field) == bound_.BytesAt(b.source, b.field);
        }
        return text(row1, col) == text(row2, col);
    }

    void store(int row, int col, const QVariant& v) {
        GridRow& r = rows_[size_t(row)];
        RowOwn& own = r.edit();
        if (col == 0) {
            own.title = v;
            return;
        }
        if (r.source >= 0) {
            // The first edit of a bound row: its values become its own.
            own.cells.resize(boundCols_);
            for (int c = 0; c < boundCols_; ++c) own.cells[c] = bound_.ValueAt(r.source, c);
            r.source = -1;
        }
        if (own.cells.size() < col) own.cells.resize(std::max(col, gridCols() - 1));
        own.cells[col - 1] = v;
    }

    // Tells the view that a cell changed, wherever it is shown.
    void changed(int row, int col) {
        if (row == 0 && col == 0) {
            if (grid_->corner_) grid_->corner_->update();
        } else if (row == 0) {
            Q_EMIT headerDataChanged(Qt::Horizontal, col - 1, col - 1);
        } else if (col == 0) {
            Q_EMIT headerDataChanged(Qt::Vertical, row - 1, row - 1);
        } else {
            const QModelIndex i = index(row - 1, col - 1);
            Q_EMIT dataChanged(i, i);
        }
    }

    void changedRow(int row) {
        changed(row, 0);
        if (gridCols() > 1) Q_EMIT dataChanged(index(row - 1, 0), index(row - 1, gridCols() - 2));
    }

    void replaceRows(std::vector<GridRow> rows) {
        beginResetModel();
        rows_ = std::move(rows);
        endResetModel();
    }

    QVariant style(int row, int col, int role) const {
        const RowOwn& r = rows_[size_t(row)].look();
        const auto it = r.styles.constFind(col);
        const CellStyle* cs = it == r.styles.constEnd() ? nullptr : &it.value();
        switch (role) {
            case Qt::BackgroundRole:
                if (cs && cs->back.isValid()) return QBrush(cs->back);
                return {};
            case Qt::ForegroundRole:
                if (cs && cs->fore.isValid()) return QBrush(cs->fore);
                if (r.fore.isValid()) return QBrush(r.fore);
                return {};
            case Qt::FontRole: {
                const bool bold = cs && cs->bold >= 0 ? cs->bold == 1 : r.bold;
                if (!bold) return {};
                QFont f = grid_->font();
                f.setBold(true);
                return f;
            }
            default:
                return {};
        }
    }

    int rowCount(const QModelIndex& parent = QModelIndex()) const override {
        return parent.isValid() ? 0 : gridRows() - 1;
    }
    int columnCount(const QModelIndex& parent = QModelIndex()) const override {
        return parent.isValid() ? 0 : gridCols() - 1;
    }

    QVariant data(const QModelIndex& index, int role) const override {
        if (!index.isValid()) return {};
        const int row = index.row() + 1;
        const int col = index.column() + 1;
        const ColInfo& ci = cols_[size_t(col)];
        switch (role) {
            case Qt::DisplayRole:
                if (ci.checkBox) return {};
                return text(row, col);
            case Qt::EditRole:
                return text(row, col);
            case Qt::CheckStateRole:
                if (!ci.checkBox) return {};
                return text(row, col) == QLatin1String("-1") ? Qt::Checked : Qt::Unchecked;
            case Qt::TextAlignmentRole:
                return int(qtAlignment(ci.alignment, number(row, col)));
            case Qt::BackgroundRole:
            case Qt::ForegroundRole:
            case Qt::FontRole:
                return style(row, col, role);
            default:
                return {};
        }
    }

    QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
        const int row = orientation == Qt::Horizontal ? 0 : section + 1;
        const int col = orientation == Qt::Horizontal ? section + 1 : 0;
        if (!inGrid(row, col)) return {};
        switch (role) {
            case Qt::DisplayRole:
                return text(row, col);
            case Qt::TextAlignmentRole:
                if (orientation == Qt::Vertical)
                    return int(qtAlignment(cols_[0].alignment, number(row, col)));
                return {};
            case Qt::BackgroundRole:
            case Qt::ForegroundRole:
            case Qt::FontRole:
                return style(row, col, role);
            default:
                return {};
        }
    }

    Qt::ItemFlags flags(const QModelIndex& index) const override {
        if (!index.isValid()) return Qt::NoItemFlags;
        Qt::ItemFlags f = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
        if (!grid_->editable_ || rows_[size_t(index.row() + 1)].subtotal()) return f;
        if (cols_[size_t(index.column() + 1)].checkBox) return f | Qt::ItemIsUserCheckable;
        return f | Qt::ItemIsEditable;
    }

    // Writes from the user: the editor's text, or a tick of a check box.
    bool setData(const QModelIndex& index, const QVariant& v, int role) override {
        if (!index.isValid() || !grid_->editable_) return false;
        const int row = index.row() + 1;
        const int col = index.column() + 1;
        if (rows_[size_t(row)].subtotal()) return false;
        const bool checkBox = cols_[size_t(col)].checkBox;
        if (role == Qt::CheckStateRole && checkBox) {
            bool cancel = false;
            Q_EMIT grid_->BeforeEdit(row, col, cancel);
            if (cancel) return false;
            const bool ticked = v.toInt() == Qt::Checked;
            store(row, col, ticked ? QStringLiteral("-1") : QStringLiteral("0"));
        } else if (role == Qt::EditRole && !checkBox) {
            store(row, col, v.toString());
        } else {
            return false;
        }
        Q_EMIT dataChanged(index, index);
        grid_->scheduleMerge();
        Q_EMIT grid_->AfterEdit(row, col);
        return true;
    }

private:
    VSGrid* grid_;
};
