#pragma once
// The data grid of the windows. Row 0 is the header and column 0 the fixed
// row-title column; data rows are 1..Rows()-1 and data columns 1..Cols()-1.
// A grid bound to a recordset gets the fields from column 1 on, and each
// column's key is the field's name (the query's alias), looked up ignoring case.
//
// Model/view: a bound grid shows the recordset's own table in place (a value
// becomes text when its cell is shown or read), and what is set or edited is
// kept beside it, so binding a large recordset costs neither a widget nor a
// copy per cell.
#include <QColor>
#include <QTableView>
#include <QVariant>
#include <functional>
#include <vector>

#include "Recordset.h"

class QAbstractButton;
class QTimer;
class VSGridModel;

class VSGrid : public QTableView {
    Q_OBJECT
public:
    enum SubtotalFunction { SubtotalClear, SubtotalSum };
    // VSFlexGrid's alignment values that the windows use.
    enum Alignment { AlignLeftCenter = 1, AlignCenterCenter = 4, AlignRightCenter = 7 };
    static constexpr int kTwipsPerPixel = 15;

    explicit VSGrid(QWidget* parent = nullptr);
    ~VSGrid() override;
    using QTableView::edit;  // edit(index) opens the editor of a cell, as a user would

    // ---- shape
    int Rows() const;
    void setRows(int rows);  // at least 1 (the header)
    int Cols() const;
    void setCols(int cols);  // at least 1 (the fixed column)
    int FixedRows() const { return 1; }
    int FixedCols() const { return 1; }

    // ---- binding
    // Header from the field names, keys = field names, cells from the rows,
    // column 0 empty. Current row 1 when there are rows. A closed recordset
    // leaves an empty grid of one row and one column.
    void Bind(const Recordset& rs);
    void Clear();  // one header row, one column, nothing in it

    // ---- cells
    QString TextMatrix(int row, int col) const;
    void setTextMatrix(int row, int col, const QString& text);
    QString Cell(int row, const QString& key) const;  // "" when the key is unknown
    void setCell(int row, const QString& key, const QString& text);
    // The text of the current row in a column.
    QString Text(const QString& key) const { return Cell(Row(), key); }

    // ---- columns
    int ColIndex(const QString& key) const;  // -1 when no column has the key
    QString ColKey(int col) const;
    void setColKey(int col, const QString& key);
    bool ColHidden(int col) const;
    void setColHidden(int col, bool hidden);
    int ColWidth(int col) const;  // twips
    void setColWidth(int col, int twips);
    int ColAlignment(int col) const;
    void setColAlignment(int col, int alignment);
    void setAllCellsAlignment(int alignment);
    // Check-box column: cells holding "-1" show ticked, anything else clear;
    // a click toggles between "-1" and "0" and raises the edit events.
    void setColCheckBox(int col, bool on);
    bool ColCheckBox(int col) const;

    // ---- rows
    // Adds a row from tab-separated text (cell 0 first). row -1 appends.
    void AddItem(const QString& tabText, int row = -1);
    // Removes a row; -1 removes the current row. Header is never removed.
    void RemoveItem(int row = -1);

    // Current row and column. Row() is 0 when the grid has no data rows.
    int Row() const;
    void setRow(int row);
    int Col() const;
    void setCol(int col);
    void ShowCell(int row, int col);
    // A row-change guard: while it returns false, the current row cannot move.
    void setRowChangeAllowed(std::function<bool()> allowed);

    // ---- subtotals
    // Adds total rows: sums of column totalOn, shown in format, in the given
    // colour and weight, above or below the rows they total.
    //  - groupOn >= 0: outline totals, one per run of equal values in that
    //    column (the fixed column 0: one total over all rows). The total rows
    //    of one column form a level: a second call on the same column puts its
    //    sums into the rows already there; total rows of a deeper level (a
    //    higher column) stay inside a group and are not summed. The caption
    //    (or else the group's value) stands in the group column, in column 1
    //    when grouping on column 0.
    //  - groupOn -1: one grand total, caption in the first visible column;
    //    it first removes any earlier total rows.
    // SubtotalClear removes all total rows.
    void Subtotal(SubtotalFunction fn, int groupOn = -1, int totalOn = -1,
                  const QString& format = QString(), QColor foreColor = QColor(Qt::red),
                  bool bold = true, const QString& caption = QString(), bool above = false);
    bool IsSubtotal(int row) const;
    // Sum of the numeric values of a column over rows r1..r2 (non-numeric cells count 0).
    double Sum(int col, int r1, int r2) const;

    // ---- look
    void setMergeCells(bool on);  // merge equal neighbours in the columns that allow it
    void setMergeCol(int col, bool on);
    void setCellBackColor(int row, int col, const QColor& color);  // e.g. the fixed cells
    QColor CellBackColor(int row, int col) const;
    void setCellForeColor(int row, int col, const QColor& color);
    void setCellBold(int row, int col, bool bold);
    void setEditable(bool on);  // cells of data rows/cols may be edited (BeforeEdit may refuse)
    bool Editable() const;

Q_SIGNALS:
    // The current cell moved (row or column).
    void RowColChange();
    // Raised before a cell is edited; set cancel to refuse the edit.
    void BeforeEdit(int row, int col, bool& cancel);
    // Raised after a cell's text was changed by the user.
    void AfterEdit(int row, int col);
    // Keys pressed in the grid (before the grid's own handling). Set handled
    // to stop the grid from acting on it.
    void KeyDown(int key, Qt::KeyboardModifiers modifiers, bool& handled);
    // Text of a key (as a character) typed in the grid.
    void KeyPress(const QString& text);
    void DblClick();

protected:
    void keyPressEvent(QKeyEvent* e) override;
    void mouseDoubleClickEvent(QMouseEvent* e) override;
    bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

private:
    friend class VSGridModel;
    VSGridModel* model_;
    std::function<bool()> rowChangeAllowed_;
    bool editable_ = false;
    void applyColumnLook();

    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyboardSearch(const QString& search) override;  // no search-as-you-type
    // Whether the current row may move to the model row (-1: no current row).
    bool mayMoveTo(int modelRow);
    // Moves the current cell without asking the row-change guard; row 0 clears it.
    void moveCurrent(int row, int col);
    // Structural changes report one RowColChange at the end, when the current
    // cell moved or its record went away.
    void beginQuiet();
    void endQuiet(bool recordChanged);
    void scheduleMerge();
    void recomputeMerge();
    void paintCorner();

    QAbstractButton* corner_ = nullptr;
    QTimer* mergeTimer_ = nullptr;
    int colHint_ = 1;       // the column the current cell takes when a row becomes current
    bool forcing_ = false;  // moving the current cell past the guard
    bool sizing_ = false;   // widths being set by the grid, not dragged by the user
    int quiet_ = 0;
    int quietRow_ = 0;
    int quietCol_ = 0;
    bool mergeCells_ = false;
    bool spansSet_ = false;
    // The guard's answer for one attempt (a key, a click, a setRow), so that it
    // is asked once however many selection calls the attempt makes.
    struct {
        bool valid = false;
        int row = -1;
        bool allowed = true;
    } guardMemo_;
};
