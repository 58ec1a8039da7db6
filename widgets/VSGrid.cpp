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
#include "VSGridModel.h"
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
        model_->boundCols_ = std::min(model_->boundCols_, cols - 1);
        for (GridRow& r : model_->rows_) {
            if (!r.own) continue;
            if (r.own->cells.size() > cols - 1) r.own->cells.resize(cols - 1);
            QHash<int, CellStyle>& styles = r.own->styles;
            for (auto it = styles.begin(); it != styles.end();) {
                it = it.key() >= cols ? styles.erase(it) : std::next(it);
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

    // The data rows show the recordset's rows where they are.
    std::vector<GridRow> rows;
    rows.reserve(size_t(rs.RecordCount()) + 1);
    rows.emplace_back();
    Recordset::Row& header = rows[0].edit().cells;
    header.reserve(names.size());
    for (const QString& n : names) header.append(n);
    for (int i = 0; i < rs.RecordCount(); ++i) rows.emplace_back(i);

    model_->beginResetModel();
    model_->rows_ = std::move(rows);
    model_->cols_ = std::move(cols);
    model_->bound_ = rs;
    model_->boundCols_ = int(names.size());
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
    model_->bound_ = Recordset();
    model_->boundCols_ = 0;
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
    RowOwn& own = r.edit();
    own.title = pieces[0];
    const int n = std::min(int(pieces.size()), Cols());
    own.cells.resize(Cols() - 1);
    for (int c = 1; c < n; ++c) own.cells[c - 1] = pieces[c];

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

void VSGrid::setCellBackColor(int row, int col, const QColor& color) {
    if (!model_->inGrid(row, col)) return;
    model_->rows_[size_t(row)].edit().styles[col].back = color;
    model_->changed(row, col);
}

QColor VSGrid::CellBackColor(int row, int col) const {
    if (model_->inGrid(row, col)) {
        const auto& styles = model_->rows_[size_t(row)].look().styles;
        const auto it = styles.constFind(col);
        if (it != styles.constEnd() && it->back.isValid()) return it->back;
    }
    return palette().color(row == 0 || col == 0 ? QPalette::Button : QPalette::Base);
}

void VSGrid::setCellForeColor(int row, int col, const QColor& color) {
    if (!model_->inGrid(row, col)) return;
    model_->rows_[size_t(row)].edit().styles[col].fore = color;
    model_->changed(row, col);
}

void VSGrid::setCellBold(int row, int col, bool bold) {
    if (!model_->inGrid(row, col)) return;
    model_->rows_[size_t(row)].edit().styles[col].bold = bold ? 1 : 0;
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
