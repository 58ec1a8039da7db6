#pragma once
// The cells of VSGrid: one table of values with the look of each row and
// column. Only the grid's own sources include this.
#include <QAbstractButton>
#include <QAbstractTableModel>
#include <QBrush>
#include <QFont>
#include <QHash>
#include <algorithm>
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

struct GridRow {
    QVariant title;                // column 0
    Recordset::Row cells;          // columns 1.., may be shorter than the grid
    QHash<int, CellStyle> styles;  // by column, only for cells that have one
    QColor fore;
    bool bold = false;
    bool subtotal = false;
    int level = 0;  // of a total row: the column it groups on, -1 for a grand total
};

struct ColInfo {
    QString key;
    int width = -1;  // twips; -1 while the column has the default width
    int alignment = kAlignGeneral;
    bool hidden = false;
    bool checkBox = false;
    bool merge = false;
};

inline Qt::Alignment qtAlignment(int alignment, const QVariant& value) {
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
            switch (value.typeId()) {
                case QMetaType::Int:
                case QMetaType::LongLong:
                case QMetaType::UInt:
                case QMetaType::ULongLong:
                case QMetaType::Double:
                case QMetaType::Float:
                    return Qt::AlignRight | Qt::AlignVCenter;
                default:
                    return Qt::AlignLeft | Qt::AlignVCenter;
            }
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

    const QVariant& value(int row, int col) const {
        static const QVariant empty;
        const GridRow& r = rows_[size_t(row)];
        if (col == 0) return r.title;
        return col - 1 < r.cells.size() ? r.cells[col - 1] : empty;
    }
    QString text(int row, int col) const { return Convert::VarText(value(row, col)); }

    void store(int row, int col, const QVariant& v) {
        GridRow& r = rows_[size_t(row)];
        if (col == 0) {
            r.title = v;
            return;
        }
        if (r.cells.size() < col) r.cells.resize(std::max(col, gridCols() - 1));
        r.cells[col - 1] = v;
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
        const GridRow& r = rows_[size_t(row)];
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
                return int(qtAlignment(ci.alignment, value(row, col)));
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
                    return int(qtAlignment(cols_[0].alignment, value(row, col)));
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
        if (!grid_->editable_ || rows_[size_t(index.row() + 1)].subtotal) return f;
        if (cols_[size_t(index.column() + 1)].checkBox) return f | Qt::ItemIsUserCheckable;
        return f | Qt::ItemIsEditable;
    }

    // Writes from the user: the editor's text, or a tick of a check box.
    bool setData(const QModelIndex& index, const QVariant& v, int role) override {
        if (!index.isValid() || !grid_->editable_) return false;
        const int row = index.row() + 1;
        const int col = index.column() + 1;
        if (rows_[size_t(row)].subtotal) return false;
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
