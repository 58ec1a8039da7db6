#include "VSGrid.h"

#include <QAbstractButton>
#include <QAbstractTableModel>
#include <QHash>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QStyleOptionHeader>
#include <QTimer>
#include <algorithm>

#include "Convert.h"

namespace {

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
};

struct ColInfo {
    QString key;
    int width = -1;  // twips; -1 while the column has the default width
    int alignment = kAlignGeneral;
    bool hidden = false;
    bool checkBox = false;
    bool merge = false;
};

Qt::Alignment qtAlignment(int alignment, const QVariant& value) {
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

double numericValue(const QVariant& v) {
    return Convert::IsNumeric(v) ? Convert::VarDbl(v) : 0.0;
}

}  // namespace

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

namespace {

// Consults the grid's row-change guard for every move of the current cell and
// of the selection, so a click or key that would leave the row does nothing.
class GuardedSelection : public QItemSelectionModel {
public:
    GuardedSelection(QAbstractItemModel* model, VSGrid* grid, bool (VSGrid::*mayMove)(int))
        : QItemSelectionModel(model, grid), grid_(grid), mayMove_(mayMove) {}

    using QItemSelectionModel::select;

    void setCurrentIndex(const QModelIndex& index, SelectionFlags command) override {
        if (!(grid_->*mayMove_)(index.isValid() ? index.row() : -1)) return;
        QItemSelectionModel::setCurrentIndex(index, command);
    }

    void select(const QItemSelection& selection, SelectionFlags command) override {
        const QModelIndex cur = currentIndex();
        for (const QItemSelectionRange& range : selection) {
            for (int r = range.top(); r <= range.bottom(); ++r) {
                if (cur.isValid() && r == cur.row()) continue;
                if (!(grid_->*mayMove_)(r)) return;
            }
        }
        QItemSelectionModel::select(selection, command);
    }

private:
    VSGrid* grid_;
    bool (VSGrid::*mayMove_)(int);
};

}  // namespace

VSGrid::VSGrid(QWidget* parent) : QTableView(parent), model_(new VSGridModel(this)) {
    setModel(model_);
    QItemSelectionModel* old = selectionModel();
    setSelectionModel(new GuardedSelection(model_, this, &VSGrid::mayMoveTo));
    delete old;

    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setAlternatingRowColors(false);
    setShowGrid(true);
    setTabKeyNavigation(false);
    setEditTriggers(NoEditTriggers);
    setWordWrap(false);

    QHeaderView* v = verticalHeader();
    v->setSectionResizeMode(QHeaderView::Fixed);
    v->setMinimumSectionSize(1);
    v->setDefaultSectionSize(fontMetrics().height() + 4);
    v->setHighlightSections(false);
    QHeaderView* h = horizontalHeader();
    h->setMinimumSectionSize(1);
    h->setHighlightSections(false);
    h->setSectionsMovable(false);
    connect(h, &QHeaderView::sectionResized, this, [this](int logical, int, int newSize) {
        // Keep the width of a column the user dragged; the grid's own sizing
        // already stored it in twips.
        if (sizing_ || newSize <= 0 || logical + 1 >= Cols()) return;
        model_->cols_[size_t(logical + 1)].width = newSize * kTwipsPerPixel;
    });

    corner_ = findChild<QAbstractButton*>();
    if (corner_) corner_->installEventFilter(this);
    viewport()->installEventFilter(this);

    mergeTimer_ = new QTimer(this);
    mergeTimer_->setSingleShot(true);
    mergeTimer_->setInterval(0);
    connect(mergeTimer_, &QTimer::timeout, this, &VSGrid::recomputeMerge);

    applyColumnLook();
}

VSGrid::~VSGrid() = default;

// ---- shape

int VSGrid::Rows() const {
    return model_->gridRows();
}

void VSGrid::setRows(int rows) {
    rows = std::max(1, rows);
    const int old = Rows();
    if (rows == old) return;
    beginQuiet();
    const int cur = Row();
    if (rows > old) {
        model_->beginInsertRows(QModelIndex(), old - 1, rows - 2);
        model_->rows_.resize(size_t(rows));
        model_->endInsertRows();
    } else {
        model_->beginRemoveRows(QModelIndex(), rows - 1, old - 2);
        model_->rows_.resize(size_t(rows));
        model_->endRemoveRows();
        if (cur >= rows) moveCurrent(rows - 1, Col());
    }
    scheduleMerge();
    endQuiet(cur >= rows);
}

int VSGrid::Cols() const {
    return model_->gridCols();
}

void VSGrid::setCols(int cols) {
    cols = std::max(1, cols);
    const int old = Cols();
    if (cols == old) return;
    beginQuiet();
    if (cols > old) {
        model_->beginInsertColumns(QModelIndex(), old - 1, cols - 2);
        model_->cols_.resize(size_t(cols));
        model_->endInsertColumns();
    } else {
        model_->beginRemoveColumns(QModelIndex(), cols - 1, old - 2);
        model_->cols_.resize(size_t(cols));
        for (GridRow& r : model_->rows_) {
            if (r.cells.size() > cols - 1) r.cells.resize(cols - 1);
            for (auto it = r.styles.begin(); it != r.styles.end();) {
                it = it.key() >= cols ? r.styles.erase(it) : std::next(it);
            }
        }
        model_->endRemoveColumns();
        if (colHint_ >= cols) colHint_ = std::max(1, cols - 1);
    }
    applyColumnLook();
    scheduleMerge();
    endQuiet(false);
}

// ---- binding

void VSGrid::Bind(const Recordset& rs) {
    if (!rs.IsOpen()) {
        Clear();
        return;
    }
    beginQuiet();
    const QStringList& names = rs.Names();
    const std::vector<Recordset::Row>& data = rs.Rows();

    // A column keeps its look when the same field comes back in its place, so
    // a window that requeries does not lose its layout.
    std::vector<ColInfo> cols(size_t(names.size() + 1));
    cols[0] = model_->cols_[0];
    cols[0].key.clear();
    for (int c = 1; c <= names.size(); ++c) {
        ColInfo& ci = cols[size_t(c)];
        if (c < Cols() &&
            model_->cols_[size_t(c)].key.compare(names[c - 1], Qt::CaseInsensitive) == 0) {
            ci = model_->cols_[size_t(c)];
        }
        ci.key = names[c - 1];
    }

    std::vector<GridRow> rows(data.size() + 1);
    rows[0].cells.reserve(names.size());
    for (const QString& n : names) rows[0].cells.append(n);
    for (size_t i = 0; i < data.size(); ++i) rows[i + 1].cells = data[i];  // shared, not copied

    model_->beginResetModel();
    model_->rows_ = std::move(rows);
    model_->cols_ = std::move(cols);
    model_->endResetModel();
    if (corner_) corner_->update();

    clearSpans();
    spansSet_ = false;
    applyColumnLook();
    moveCurrent(Rows() > 1 ? 1 : 0, 1);
    scheduleMerge();
    endQuiet(Row() > 0);
}

void VSGrid::Clear() {
    beginQuiet();
    std::vector<GridRow> rows(1);
    model_->beginResetModel();
    model_->rows_ = std::move(rows);
    model_->cols_.resize(1);
    model_->cols_[0].key.clear();
    model_->endResetModel();
    if (corner_) corner_->update();
    clearSpans();
    spansSet_ = false;
    colHint_ = 1;
    applyColumnLook();
    endQuiet(false);
}

// ---- cells

QString VSGrid::TextMatrix(int row, int col) const {
    if (!model_->inGrid(row, col)) return QString();
    return model_->text(row, col);
}

void VSGrid::setTextMatrix(int row, int col, const QString& text) {
    if (!model_->inGrid(row, col)) return;
    model_->store(row, col, text);
    model_->changed(row, col);
    if (row > 0 && col > 0) scheduleMerge();
}

QString VSGrid::Cell(int row, const QString& key) const {
    const int col = ColIndex(key);
    return col < 0 ? QString() : TextMatrix(row, col);
}

void VSGrid::setCell(int row, const QString& key, const QString& text) {
    const int col = ColIndex(key);
    if (col >= 0) setTextMatrix(row, col, text);
}

// ---- columns

int VSGrid::ColIndex(const QString& key) const {
    if (key.isEmpty()) return -1;
    for (int c = 0; c < Cols(); ++c) {
        if (model_->cols_[size_t(c)].key.compare(key, Qt::CaseInsensitive) == 0) return c;
    }
    return -1;
}

QString VSGrid::ColKey(int col) const {
    if (col < 0 || col >= Cols()) return QString();
    return model_->cols_[size_t(col)].key;
}

void VSGrid::setColKey(int col, const QString& key) {
    if (col >= 0 && col < Cols()) model_->cols_[size_t(col)].key = key;
}

bool VSGrid::ColHidden(int col) const {
    if (col < 0 || col >= Cols()) return false;
    return model_->cols_[size_t(col)].hidden;
}

void VSGrid::setColHidden(int col, bool hidden) {
    if (col < 0 || col >= Cols()) return;
    model_->cols_[size_t(col)].hidden = hidden;
    if (col == 0) {
        verticalHeader()->setVisible(!hidden);
    } else {
        QScopedValueRollback<bool> s(sizing_, true);
        setColumnHidden(col - 1, hidden);
    }
}

int VSGrid::ColWidth(int col) const {
    if (col < 0 || col >= Cols()) return 0;
    const int w = model_->cols_[size_t(col)].width;
    return w >= 0 ? w : horizontalHeader()->defaultSectionSize() * kTwipsPerPixel;
}

void VSGrid::setColWidth(int col, int twips) {
    if (col < 0 || col >= Cols()) return;
    twips = std::max(0, twips);
    model_->cols_[size_t(col)].width = twips;
    QScopedValueRollback<bool> s(sizing_, true);
    if (col == 0) {
        verticalHeader()->setFixedWidth(twips / kTwipsPerPixel);
    } else {
        setColumnWidth(col - 1, twips / kTwipsPerPixel);
    }
}

int VSGrid::ColAlignment(int col) const {
    if (col < 0 || col >= Cols()) return kAlignGeneral;
    return model_->cols_[size_t(col)].alignment;
}

void VSGrid::setColAlignment(int col, int alignment) {
    if (col < 0 || col >= Cols()) return;
    model_->cols_[size_t(col)].alignment = alignment;
    if (col == 0) {
        if (Rows() > 1) Q_EMIT model_->headerDataChanged(Qt::Vertical, 0, Rows() - 2);
    } else {
        viewport()->update();
    }
}

void VSGrid::setAllCellsAlignment(int alignment) {
    for (int c = 0; c < Cols(); ++c) setColAlignment(c, alignment);
}

void VSGrid::setColCheckBox(int col, bool on) {
    if (col < 1 || col >= Cols()) return;
    model_->cols_[size_t(col)].checkBox = on;
    viewport()->update();
}

bool VSGrid::ColCheckBox(int col) const {
    if (col < 0 || col >= Cols()) return false;
    return model_->cols_[size_t(col)].checkBox;
}

void VSGrid::applyColumnLook() {
    QScopedValueRollback<bool> s(sizing_, true);
    const ColInfo& fixed = model_->cols_[0];
    verticalHeader()->setFixedWidth((fixed.width >= 0 ? fixed.width : kDefaultFixedWidthTwips) /
                                    kTwipsPerPixel);
    verticalHeader()->setVisible(!fixed.hidden);
    const int defaultWidth = horizontalHeader()->defaultSectionSize();
    for (int c = 1; c < Cols(); ++c) {
        const ColInfo& ci = model_->cols_[size_t(c)];
        setColumnWidth(c - 1, ci.width >= 0 ? ci.width / kTwipsPerPixel : defaultWidth);
        setColumnHidden(c - 1, ci.hidden);
    }
}

// ---- rows

void VSGrid::AddItem(const QString& tabText, int row) {
    if (row < 0 || row > Rows()) row = Rows();
    row = std::max(1, row);
    const QStringList pieces = tabText.split(QLatin1Char('\t'));
    GridRow r;
    r.title = pieces[0];
    const int n = std::min(int(pieces.size()), Cols());
    r.cells.resize(Cols() - 1);
    for (int c = 1; c < n; ++c) r.cells[c - 1] = pieces[c];

    beginQuiet();
    model_->beginInsertRows(QModelIndex(), row - 1, row - 1);
    model_->rows_.insert(model_->rows_.begin() + row, std::move(r));
    model_->endInsertRows();
    scheduleMerge();
    endQuiet(false);
}

void VSGrid::RemoveItem(int row) {
    if (row == -1) row = Row();
    if (row < 1 || row >= Rows()) return;
    beginQuiet();
    const int cur = Row();
    const int col = Col();
    model_->beginRemoveRows(QModelIndex(), row - 1, row - 1);
    model_->rows_.erase(model_->rows_.begin() + row);
    model_->endRemoveRows();
    if (cur > 0) moveCurrent(std::min(cur, Rows() - 1), col);
    scheduleMerge();
    endQuiet(row == cur);
}

int VSGrid::Row() const {
    const QModelIndex i = currentIndex();
    return i.isValid() ? i.row() + 1 : 0;
}

void VSGrid::setRow(int row) {
    guardMemo_.valid = false;
    if (row <= 0) {
        if (Row() == 0 || !mayMoveTo(-1)) return;
        selectionModel()->clearSelection();
        selectionModel()->clearCurrentIndex();
        return;
    }
    if (row >= Rows() || Cols() < 2) return;
    const int col = std::clamp(Col(), 1, Cols() - 1);
    setCurrentIndex(model_->index(row - 1, col - 1));
}

int VSGrid::Col() const {
    const QModelIndex i = currentIndex();
    return i.isValid() ? i.column() + 1 : colHint_;
}

void VSGrid::setCol(int col) {
    if (col < 1 || col >= Cols()) return;
    colHint_ = col;
    if (Row() > 0) setCurrentIndex(model_->index(Row() - 1, col - 1));
}

void VSGrid::ShowCell(int row, int col) {
    if (Rows() < 2 || Cols() < 2) return;
    row = std::clamp(row, 1, Rows() - 1);
    col = std::clamp(col, 1, Cols() - 1);
    scrollTo(model_->index(row - 1, col - 1));
}

void VSGrid::setRowChangeAllowed(std::function<bool()> allowed) {
    rowChangeAllowed_ = std::move(allowed);
    guardMemo_.valid = false;
}

bool VSGrid::mayMoveTo(int modelRow) {
    if (forcing_ || !rowChangeAllowed_) return true;
    const QModelIndex cur = selectionModel()->currentIndex();
    if (modelRow == (cur.isValid() ? cur.row() : -1)) return true;
    if (guardMemo_.valid && guardMemo_.row == modelRow) return guardMemo_.allowed;
    const bool allowed = rowChangeAllowed_();
    guardMemo_.valid = true;
    guardMemo_.row = modelRow;
    guardMemo_.allowed = allowed;
    return allowed;
}

void VSGrid::moveCurrent(int row, int col) {
    QScopedValueRollback<bool> f(forcing_, true);
    if (row <= 0 || row >= Rows() || Cols() < 2) {
        selectionModel()->clearSelection();
        selectionModel()->clearCurrentIndex();
        return;
    }
    col = std::clamp(col, 1, Cols() - 1);
    setCurrentIndex(model_->index(row - 1, col - 1));
}

void VSGrid::beginQuiet() {
    if (quiet_++ > 0) return;
    quietRow_ = Row();
    quietCol_ = Col();
}

void VSGrid::endQuiet(bool recordChanged) {
    if (--quiet_ > 0) return;
    if (recordChanged || Row() != quietRow_ || Col() != quietCol_) Q_EMIT RowColChange();
}

void VSGrid::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTableView::currentChanged(current, previous);
    if (current.isValid()) colHint_ = current.column() + 1;
    if (quiet_ == 0) Q_EMIT RowColChange();
}

// ---- subtotals

void VSGrid::Subtotal(SubtotalFunction fn, int groupOn, int totalOn, const QString& format,
                      QColor foreColor, bool bold, const QString& caption, bool above) {
    const std::vector<GridRow>& old = model_->rows_;
    if (fn == SubtotalClear &&
        std::none_of(old.begin(), old.end(), [](const GridRow& r) { return r.subtotal; })) {
        return;
    }
    const int oldCur = Row();
    std::vector<GridRow> rows;
    rows.reserve(old.size() + 1);
    rows.push_back(old[0]);
    std::vector<int> moved(old.size(), 0);  // old row -> new row, 0 when gone

    auto makeTotal = [&](double sum, int captionCol, const QString& text) {
        GridRow t;
        t.subtotal = true;
        t.fore = foreColor;
        t.bold = bold;
        t.cells.resize(Cols() - 1);
        if (captionCol >= 0 && !text.isEmpty()) {
            if (captionCol == 0)
                t.title = text;
            else
                t.cells[captionCol - 1] = text;
        }
        if (totalOn >= 1 && totalOn < Cols()) {
            t.cells[totalOn - 1] = Convert::Formatted(sum, format);
        } else if (totalOn == 0) {
            t.title = Convert::Formatted(sum, format);
        }
        return t;
    };
    const bool sums = totalOn >= 0 && totalOn < Cols();

    if (fn == SubtotalClear || groupOn < 0) {
        // Drop every total row; a grand total then adds its one row.
        double sum = 0;
        for (int r = 1; r < Rows(); ++r) {
            if (old[size_t(r)].subtotal) continue;
            if (sums) sum += numericValue(model_->value(r, totalOn));
            rows.push_back(old[size_t(r)]);
            moved[size_t(r)] = int(rows.size()) - 1;
        }
        if (fn == SubtotalSum) {
            int captionCol = 0;
            for (int c = 1; c < Cols(); ++c) {
                if (!ColHidden(c)) {
                    captionCol = c;
                    break;
                }
            }
            if (captionCol == totalOn) captionCol = 0;
            GridRow t = makeTotal(sum, captionCol, caption);
            if (above) {
                rows.insert(rows.begin() + 1, std::move(t));
                for (int& m : moved) m += m > 0 ? 1 : 0;
            } else {
                rows.push_back(std::move(t));
            }
        }
    } else {
        if (groupOn >= Cols()) return;
        // One total per run of equal values in the group column; total rows
        // already there stay and end a run.
        int r = 1;
        while (r < Rows()) {
            if (old[size_t(r)].subtotal) {
                rows.push_back(old[size_t(r)]);
                moved[size_t(r)] = int(rows.size()) - 1;
                ++r;
                continue;
            }
            const QString key = model_->text(r, groupOn);
            int end = r;
            double sum = 0;
            while (end < Rows() && !old[size_t(end)].subtotal &&
                   model_->text(end, groupOn) == key) {
                if (sums) sum += numericValue(model_->value(end, totalOn));
                ++end;
            }
            GridRow t = makeTotal(sum, groupOn, caption.isEmpty() ? key : caption);
            if (above) rows.push_back(std::move(t));
            for (int i = r; i < end; ++i) {
                rows.push_back(old[size_t(i)]);
                moved[size_t(i)] = int(rows.size()) - 1;
            }
            if (!above) rows.push_back(std::move(t));
            r = end;
        }
    }

    beginQuiet();
    const int col = Col();
    model_->replaceRows(std::move(rows));
    clearSpans();
    spansSet_ = false;
    applyColumnLook();
    int cur = 0;
    bool gone = false;
    if (oldCur > 0) {
        cur = moved[size_t(oldCur)];
        if (cur == 0) {
            gone = true;
            cur = std::min(oldCur, Rows() - 1);
        }
    }
    moveCurrent(cur, col);
    scheduleMerge();
    endQuiet(gone);
}

bool VSGrid::IsSubtotal(int row) const {
    return row >= 1 && row < Rows() && model_->rows_[size_t(row)].subtotal;
}

double VSGrid::Sum(int col, int r1, int r2) const {
    if (col < 0 || col >= Cols()) return 0;
    if (r1 > r2) std::swap(r1, r2);
    r1 = std::max(r1, 0);
    r2 = std::min(r2, Rows() - 1);
    double sum = 0;
    for (int r = r1; r <= r2; ++r) sum += numericValue(model_->value(r, col));
    return sum;
}

// ---- look

void VSGrid::setMergeCells(bool on) {
    mergeCells_ = on;
    scheduleMerge();
}

void VSGrid::setMergeCol(int col, bool on) {
    if (col < 1 || col >= Cols()) return;
    model_->cols_[size_t(col)].merge = on;
    scheduleMerge();
}

void VSGrid::scheduleMerge() {
    if (mergeCells_ || spansSet_) mergeTimer_->start();
}

// Spans equal, non-empty neighbours of the merging columns; a total row is
// never merged with the rows around it.
void VSGrid::recomputeMerge() {
    if (spansSet_) clearSpans();
    spansSet_ = false;
    if (!mergeCells_) return;
    for (int c = 1; c < Cols(); ++c) {
        if (!model_->cols_[size_t(c)].merge) continue;
        int r = 1;
        while (r < Rows()) {
            const QString t = model_->text(r, c);
            int end = r + 1;
            if (!t.isEmpty() && !IsSubtotal(r)) {
                while (end < Rows() && !IsSubtotal(end) && model_->text(end, c) == t) ++end;
            }
            if (end - r > 1) {
                setSpan(r - 1, c - 1, end - r, 1);
                spansSet_ = true;
            }
            r = end;
        }
    }
}

void VSGrid::setCellBackColor(int row, int col, const QColor& color) {
    if (!model_->inGrid(row, col)) return;
    model_->rows_[size_t(row)].styles[col].back = color;
    model_->changed(row, col);
}

QColor VSGrid::CellBackColor(int row, int col) const {
    if (model_->inGrid(row, col)) {
        const auto& styles = model_->rows_[size_t(row)].styles;
        const auto it = styles.constFind(col);
        if (it != styles.constEnd() && it->back.isValid()) return it->back;
    }
    return palette().color(row == 0 || col == 0 ? QPalette::Button : QPalette::Base);
}

void VSGrid::setCellForeColor(int row, int col, const QColor& color) {
    if (!model_->inGrid(row, col)) return;
    model_->rows_[size_t(row)].styles[col].fore = color;
    model_->changed(row, col);
}

void VSGrid::setCellBold(int row, int col, bool bold) {
    if (!model_->inGrid(row, col)) return;
    model_->rows_[size_t(row)].styles[col].bold = bold ? 1 : 0;
    model_->changed(row, col);
}

void VSGrid::setEditable(bool on) {
    editable_ = on;
    setEditTriggers(on ? DoubleClicked | EditKeyPressed | AnyKeyPressed : NoEditTriggers);
}

bool VSGrid::Editable() const {
    return editable_;
}

// ---- events

bool VSGrid::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) {
    if (!index.isValid() || !editable_) return false;
    // A check box is ticked through the model, which raises the edit events.
    if (ColCheckBox(index.column() + 1)) return QTableView::edit(index, trigger, event);
    const bool opens = state() != EditingState &&
                       (trigger == AllEditTriggers || (editTriggers() & trigger)) &&
                       (index.flags() & Qt::ItemIsEditable);
    if (opens) {
        bool cancel = false;
        Q_EMIT BeforeEdit(index.row() + 1, index.column() + 1, cancel);
        if (cancel) return false;
    }
    return QTableView::edit(index, trigger, event);
}

void VSGrid::keyPressEvent(QKeyEvent* e) {
    guardMemo_.valid = false;
    bool handled = false;
    Q_EMIT KeyDown(e->key(), e->modifiers(), handled);
    if (handled) {
        e->accept();
        return;
    }
    if (!e->text().isEmpty()) Q_EMIT KeyPress(e->text());
    // The current cell may stand in a hidden key column (a GUID in column 1):
    // the view cannot step from there, so Up and Down move the row here.
    if ((e->key() == Qt::Key_Up || e->key() == Qt::Key_Down) &&
        !(e->modifiers() & (Qt::ShiftModifier | Qt::ControlModifier)) && Row() >= 1 &&
        ColHidden(Col())) {
        const int r = Row() + (e->key() == Qt::Key_Up ? -1 : 1);
        if (r >= 1 && r < Rows()) {
            setRow(r);
            scrollTo(currentIndex());
        }
        e->accept();
        return;
    }
    QTableView::keyPressEvent(e);
}

void VSGrid::mouseDoubleClickEvent(QMouseEvent* e) {
    Q_EMIT DblClick();
    QTableView::mouseDoubleClickEvent(e);
}

void VSGrid::keyboardSearch(const QString&) {}

bool VSGrid::eventFilter(QObject* watched, QEvent* event) {
    if (watched == corner_ && event->type() == QEvent::Paint) {
        paintCorner();
        return true;
    }
    if (watched == viewport() && event->type() == QEvent::MouseButtonPress) {
        guardMemo_.valid = false;  // a new attempt to move
    }
    return QTableView::eventFilter(watched, event);
}

// The corner shows cell (0,0) like a header section, e.g. "颜色/尺码" above
// the colour names of the fixed column.
void VSGrid::paintCorner() {
    QPainter p(corner_);
    QStyleOptionHeader opt;
    opt.initFrom(corner_);
    opt.rect = corner_->rect();
    opt.position = QStyleOptionHeader::OnlyOneSection;
    opt.orientation = Qt::Horizontal;
    opt.textAlignment = Qt::AlignCenter;
    opt.text = TextMatrix(0, 0);
    opt.state |= QStyle::State_Raised | QStyle::State_Horizontal;
    const QVariant back = model_->style(0, 0, Qt::BackgroundRole);
    if (back.isValid()) {
        opt.palette.setBrush(QPalette::Button, back.value<QBrush>());
        opt.palette.setBrush(QPalette::Window, back.value<QBrush>());
    }
    const QVariant fore = model_->style(0, 0, Qt::ForegroundRole);
    if (fore.isValid()) opt.palette.setBrush(QPalette::ButtonText, fore.value<QBrush>());
    const QVariant font = model_->style(0, 0, Qt::FontRole);
    if (font.isValid()) p.setFont(font.value<QFont>());
    style()->drawControl(QStyle::CE_Header, &opt, &p, corner_);
}
