// The data grid: binding, cells by key, rows, totals, merging, editing, keys
// and the row-change guard, all driven as the windows drive them.
#include <QHeaderView>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>

#include "TestRegistry.h"
#include "VSGrid.h"

namespace {

// A sale listing as a query gives it: number, name, quantity (float), amount.
Recordset saleRows() {
    return Recordset({"SaleID", "GoodsName", "Num", "Amount"},
                     {{1, QStringLiteral("上衣"), 2.5, QVariant()},
                      {2, QStringLiteral("裤子"), 1.0, 30},
                      {3, QStringLiteral("裙子"), 4.0, 12}});
}

// A grid of a group column and an amount column, filled as windows do.
void fillGroups(VSGrid& g, const QStringList& groups, const QStringList& amounts) {
    g.setCols(3);
    g.setTextMatrix(0, 1, QStringLiteral("颜色"));
    g.setTextMatrix(0, 2, QStringLiteral("金额"));
    for (int i = 0; i < groups.size(); ++i) g.AddItem("\t" + groups[i] + "\t" + amounts[i]);
}

QStringList column(const VSGrid& g, int col) {
    QStringList out;
    for (int r = 1; r < g.Rows(); ++r) out << g.TextMatrix(r, col);
    return out;
}

// The data rows that are total rows.
QList<int> totalRows(const VSGrid& g) {
    QList<int> out;
    for (int r = 1; r < g.Rows(); ++r)
        if (g.IsSubtotal(r)) out << r;
    return out;
}

}  // namespace

class TestGrid : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void bindShowsFieldsKeysAndColumns() {
        VSGrid g;
        QSignalSpy moved(&g, &VSGrid::RowColChange);
        g.Bind(saleRows());
        QCOMPARE(QList<int>({g.Rows(), g.Cols(), g.ColIndex("goodsname"), g.ColIndex("nothing"),
                             g.Row(), int(moved.count())}),
                 QList<int>({4, 5, 2, -1, 1, 1}));
        // Header, keys ignoring case, a float, a null, an unknown key, the current row.
        QCOMPARE(
            QStringList({g.TextMatrix(0, 2), g.model()->headerData(1, Qt::Horizontal).toString(),
                         g.Cell(2, "NUM"), g.Cell(1, "num"), g.Cell(1, "Amount"),
                         g.Cell(1, "nothing"), g.Text("SaleID")}),
            QStringList({"GoodsName", "GoodsName", "1", "2.5", "", "", "1"}));
        g.setCell(3, "goodsNAME", QStringLiteral("外套"));
        QCOMPARE(g.model()->index(2, 1).data().toString(), QStringLiteral("外套"));

        // Widths in twips; a hidden column keeps its width; the fixed column is the row header.
        g.setColWidth(2, 1500);
        g.setColHidden(2, true);
        QVERIFY(g.isColumnHidden(1));
        QCOMPARE(g.ColWidth(2), 1500);
        g.setColHidden(2, false);
        QCOMPARE(g.columnWidth(1), 100);
        g.setColWidth(0, 900);
        QCOMPARE(g.verticalHeader()->width(), 60);
        g.setColHidden(0, true);
        QVERIFY(g.verticalHeader()->isHidden());
        g.setColAlignment(3, VSGrid::AlignRightCenter);
        QCOMPARE(Qt::Alignment(g.model()->index(0, 2).data(Qt::TextAlignmentRole).toInt()),
                 Qt::AlignRight | Qt::AlignVCenter);

        // A requery with the same fields keeps the layout; an empty one has no current row.
        g.setColHidden(1, true);
        g.Bind(Recordset({"SaleID", "GoodsName", "Num", "Amount"}, {}));
        QCOMPARE(g.Rows() + g.Row(), 1);
        QVERIFY(g.ColHidden(1) && g.isColumnHidden(0));
        g.Bind(Recordset());
        QCOMPARE(QList<int>({g.Rows(), g.Cols(), g.ColIndex("SaleID")}), QList<int>({1, 1, -1}));
    }

    void addAndRemoveRows() {
        VSGrid g;
        g.setCols(4);
        g.AddItem(QStringLiteral("红\tA\tB\tC"));
        g.AddItem(QStringLiteral("蓝\tD"));
        g.AddItem(QStringLiteral("白\tX\tY\tZ\tbeyond"), 1);
        QCOMPARE(column(g, 0), QStringList({"白", "红", "蓝"}));
        QCOMPARE(column(g, 1), QStringList({"X", "A", "D"}));
        QCOMPARE(column(g, 3), QStringList({"Z", "C", ""}));
        QCOMPARE(g.model()->headerData(0, Qt::Vertical).toString(), QStringLiteral("白"));

        // The current row keeps its index (the next row), then falls to the last one.
        QList<int> current;
        g.setRow(2);
        for (int i = 0; i < 3; ++i) {
            g.RemoveItem();
            current << g.Row();
            if (i == 0) QCOMPARE(column(g, 1), QStringList({"X", "D"}));
        }
        QCOMPARE(current, QList<int>({2, 1, 0}));
        g.RemoveItem(0);  // the header stays
        QCOMPARE(g.Rows(), 1);
    }

    void grandAndGroupTotals() {
        VSGrid g;
        fillGroups(g, {"红", "蓝"}, {"1.4", "2.4"});
        g.Subtotal(VSGrid::SubtotalSum, -1, 2, "d", Qt::red, true, QStringLiteral("合计"));
        QCOMPARE(totalRows(g), QList<int>({3}));
        QCOMPARE(column(g, 1), QStringList({"红", "蓝", "合计"}));
        QCOMPARE(g.TextMatrix(3, 2), QStringLiteral("4"));
        const QModelIndex total = g.model()->index(2, 1);
        QCOMPARE(total.data(Qt::ForegroundRole).value<QBrush>().color(), QColor(Qt::red));
        QVERIFY(total.data(Qt::FontRole).value<QFont>().bold());
        QVERIFY(!g.model()->index(0, 1).data(Qt::FontRole).value<QFont>().bold());

        // Again, above: the earlier total goes; the caption moves to the fixed
        // column when the first visible column holds the sum.
        g.setColHidden(1, true);
        g.Subtotal(VSGrid::SubtotalSum, -1, 2, "d", Qt::red, true, QStringLiteral("合计"), true);
        QCOMPARE(totalRows(g), QList<int>({1}));
        QCOMPARE(column(g, 0), QStringList({"合计", "", ""}));
        QCOMPARE(column(g, 1), QStringList({"", "红", "蓝"}));
        QCOMPARE(g.TextMatrix(1, 2), QStringLiteral("4"));
        g.Subtotal(VSGrid::SubtotalClear);
        QCOMPARE(g.Rows(), 3);
        QCOMPARE(g.Sum(2, 1, 2), 3.8);

        // One total per run of equal values; a word sums as 0.
        VSGrid h;
        fillGroups(h, {"红", "红", "蓝", "红"}, {"1", "2", "x", "5"});
        h.setRow(3);  // the 蓝 row
        h.Subtotal(VSGrid::SubtotalSum, 1, 2, "", Qt::blue, false, QStringLiteral("小计"));
        QCOMPARE(column(h, 1), QStringList({"红", "红", "小计", "蓝", "小计", "红", "小计"}));
        QCOMPARE(column(h, 2), QStringList({"1", "2", "3", "x", "0", "5", "5"}));
        QCOMPARE(h.Row(), 4);  // the current row follows its record
        // Without a caption the group's value stands in the total row.
        h.Subtotal(VSGrid::SubtotalClear);
        h.Subtotal(VSGrid::SubtotalSum, 1, 2, "", Qt::blue, false, QString(), true);
        QCOMPARE(column(h, 1), QStringList({"红", "红", "红", "蓝", "蓝", "红", "红"}));
        QCOMPARE(totalRows(h), QList<int>({1, 4, 6}));
        QCOMPARE(h.TextMatrix(1, 2), QStringLiteral("3"));
    }

    // Totals of a stock or sales list: per article above its rows, then a
    // grand total over everything as row 1; a second column on the same
    // level fills the rows already there.
    void outlineTotals() {
        VSGrid g;
        fillGroups(g, {"A", "A", "B", "A"}, {"1", "2", "4", "8"});
        g.setCols(4);
        for (int r = 1; r < g.Rows(); ++r) g.setTextMatrix(r, 3, "10");
        const QColor red(255, 0, 0);
        g.Subtotal(VSGrid::SubtotalSum, 1, 2, "d", red, true, "合计", true);
        g.Subtotal(VSGrid::SubtotalSum, 1, 3, "d", red, true, "合计", true);
        g.Subtotal(VSGrid::SubtotalSum, 0, 3, "d", red, true, "总合计", true);
        g.Subtotal(VSGrid::SubtotalSum, 0, 2, "d", red, true, "总合计", true);
        QCOMPARE(column(g, 1), QStringList({"总合计", "合计", "A", "A", "合计", "B", "合计", "A"}));
        QCOMPARE(column(g, 2), QStringList({"15", "3", "1", "2", "4", "4", "8", "8"}));
        QCOMPARE(column(g, 3), QStringList({"40", "20", "10", "10", "10", "10", "10", "10"}));
        QCOMPARE(totalRows(g), QList<int>({1, 2, 5, 7}));

        // Below the data, grouped on the fixed column: one total at the end.
        VSGrid h;
        fillGroups(h, {"A", "B"}, {"1.5", "2"});
        h.Subtotal(VSGrid::SubtotalSum, 1, 2, "d", red, true, "合计");
        h.Subtotal(VSGrid::SubtotalSum, 0, 2, "d", red, true, "总计");
        QCOMPARE(column(h, 1), QStringList({"A", "合计", "B", "合计", "总计"}));
        QCOMPARE(column(h, 2), QStringList({"1.5", "2", "2", "2", "4"}));
    }

    void mergesEqualNeighbours() {
        VSGrid g;
        fillGroups(g, {"红", "红", "红", "蓝", ""}, {"1", "1", "2", "2", ""});
        g.AddItem("\t\t");
        g.setMergeCells(true);
        g.setMergeCol(1, true);
        QTRY_COMPARE(g.rowSpan(0, 0), 3);
        // Empty cells stay apart; column 2 does not merge.
        QCOMPARE(QList<int>({g.rowSpan(3, 0), g.rowSpan(4, 0), g.rowSpan(0, 1)}),
                 QList<int>({1, 1, 1}));
        g.setTextMatrix(3, 1, QStringLiteral("蓝"));
        QTRY_COMPARE(g.rowSpan(0, 0), 2);
        QCOMPARE(g.rowSpan(2, 0), 2);
        g.setMergeCells(false);
        QTRY_COMPARE(g.rowSpan(1, 0), 1);
    }

    void checkBoxColumnAndEditing() {
        VSGrid g;
        g.setCols(3);
        g.AddItem("\t-1\tA");
        g.AddItem("\t0\tB");
        g.setColCheckBox(1, true);
        QAbstractItemModel* m = g.model();
        QCOMPARE(m->index(0, 0).data(Qt::CheckStateRole).toInt(), int(Qt::Checked));
        QCOMPARE(m->index(1, 0).data(Qt::CheckStateRole).toInt(), int(Qt::Unchecked));
        QVERIFY(!m->setData(m->index(1, 0), Qt::Checked, Qt::CheckStateRole));  // not editable

        g.setEditable(true);
        QStringList order;
        connect(&g, &VSGrid::BeforeEdit, [&](int row, int col, bool&) {
            order << QStringLiteral("before %1,%2").arg(row).arg(col);
        });
        connect(&g, &VSGrid::AfterEdit, [&](int row, int col) {
            order << QStringLiteral("after %1,%2").arg(row).arg(col);
        });
        QVERIFY(m->setData(m->index(1, 0), Qt::Checked, Qt::CheckStateRole));
        QVERIFY(m->setData(m->index(0, 0), Qt::Unchecked, Qt::CheckStateRole));
        QCOMPARE(column(g, 1), QStringList({"0", "-1"}));
        QCOMPARE(order, QStringList({"before 2,1", "after 2,1", "before 1,1", "after 1,1"}));
        connect(&g, &VSGrid::BeforeEdit, [](int, int, bool& cancel) { cancel = true; });
        QVERIFY(!m->setData(m->index(0, 0), Qt::Checked, Qt::CheckStateRole));
        QCOMPARE(g.TextMatrix(1, 1), QStringLiteral("0"));

        // A text cell: no editor until the grid is editable and BeforeEdit agrees.
        VSGrid h;
        h.Bind(saleRows());
        const QModelIndex cell = h.model()->index(1, 1);
        QTest::ignoreMessage(QtWarningMsg, "edit: editing failed");
        h.edit(cell);
        QVERIFY(!h.viewport()->findChild<QLineEdit*>());
        h.setEditable(true);
        bool refuse = true;
        int asked = 0;
        QSignalSpy after(&h, &VSGrid::AfterEdit);
        connect(&h, &VSGrid::BeforeEdit, [&](int, int, bool& cancel) {
            ++asked;
            cancel = refuse;
        });
        QTest::ignoreMessage(QtWarningMsg, "edit: editing failed");
        h.edit(cell);
        QVERIFY(!h.viewport()->findChild<QLineEdit*>());
        refuse = false;
        h.edit(cell);
        auto* editor = h.viewport()->findChild<QLineEdit*>();
        QVERIFY(editor);
        QCOMPARE(editor->text(), QStringLiteral("裤子"));
        editor->setText(QStringLiteral("风衣"));
        QTest::keyClick(editor, Qt::Key_Return);
        QTRY_COMPARE(h.TextMatrix(2, 2), QStringLiteral("风衣"));
        h.setTextMatrix(2, 2, QStringLiteral("programmatic"));  // no AfterEdit for this
        QCOMPARE(asked, 2);
        QCOMPARE(after.count(), 1);
        QCOMPARE(after.at(0), QVariantList({2, 2}));
    }

    void keysReachTheWindowFirst() {
        VSGrid g;
        g.Bind(saleRows());
        QList<int> keys;
        QStringList typed;
        bool handle = true;
        connect(&g, &VSGrid::KeyDown, [&](int key, Qt::KeyboardModifiers, bool& handled) {
            keys << key;
            handled = handle;
        });
        connect(&g, &VSGrid::KeyPress, [&](const QString& t) { typed << t; });
        QTest::keyClick(&g, Qt::Key_Return);
        QTest::keyClick(&g, Qt::Key_Down);
        QCOMPARE(keys, QList<int>({Qt::Key_Return, Qt::Key_Down}));
        QCOMPARE(g.Row(), 1);  // handled: the grid did not move
        handle = false;
        QTest::keyClick(&g, Qt::Key_Down);
        QTest::keyClick(&g, Qt::Key_A);
        QCOMPARE(typed, QStringList({"a"}));
        QCOMPARE(g.Row(), 2);  // moved once; typing does not search the rows
    }

    void rowChangeGuard() {
        VSGrid g;
        g.Bind(saleRows());
        QSignalSpy moved(&g, &VSGrid::RowColChange);
        g.setRow(2);
        bool allow = false;
        int asked = 0;
        g.setRowChangeAllowed([&] {
            ++asked;
            return allow;
        });
        // Refused by a call, a key and a click, asked once per attempt.
        g.setRow(3);
        QTest::keyClick(&g, Qt::Key_Down);
        const QPoint third = g.visualRect(g.model()->index(2, 1)).center();
        QTest::mouseClick(g.viewport(), Qt::LeftButton, {}, third);
        QCOMPARE(g.Row(), 2);
        QCOMPARE(asked, 3);
        g.setCol(3);  // same row: free
        QCOMPARE(g.Col(), 3);
        QVERIFY(g.selectionModel()->isRowSelected(1, QModelIndex()));
        QVERIFY(!g.selectionModel()->isRowSelected(2, QModelIndex()));
        QCOMPARE(moved.count(), 2);

        allow = true;
        QTest::mouseClick(g.viewport(), Qt::LeftButton, {}, third);
        QCOMPARE(g.Row(), 3);
        g.setRow(1);
        g.setRow(3);
        QCOMPARE(g.Row(), 3);
        QCOMPARE(g.Col(), 2);  // the clicked column
        g.setRow(0);
        QCOMPARE(g.Row(), 0);
        QCOMPARE(moved.count(), 6);
    }
};

CS_TEST(TestGrid)
#include "tst_grid.moc"
