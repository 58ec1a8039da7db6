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

}  // namespace

class TestGrid : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void bindShowsFieldsAndKeys() {
        VSGrid g;
        QSignalSpy moved(&g, &VSGrid::RowColChange);
        g.Bind(saleRows());
        QCOMPARE(g.Rows(), 4);
        QCOMPARE(g.Cols(), 5);
        QCOMPARE(g.TextMatrix(0, 2), QStringLiteral("GoodsName"));
        QCOMPARE(g.model()->headerData(1, Qt::Horizontal).toString(), QStringLiteral("GoodsName"));
        QCOMPARE(g.ColIndex("goodsname"), 2);
        QCOMPARE(g.ColIndex("nothing"), -1);
        QCOMPARE(g.Cell(2, "NUM"), QStringLiteral("1"));
        QCOMPARE(g.Cell(1, "num"), QStringLiteral("2.5"));
        QCOMPARE(g.Cell(1, "Amount"), QString());  // null
        QCOMPARE(g.Cell(1, "nothing"), QString());
        QCOMPARE(g.TextMatrix(2, 0), QString());
        QCOMPARE(g.Row(), 1);
        QCOMPARE(g.Text("SaleID"), QStringLiteral("1"));
        QCOMPARE(moved.count(), 1);

        g.setCell(3, "goodsNAME", QStringLiteral("外套"));
        QCOMPARE(g.TextMatrix(3, 2), QStringLiteral("外套"));
        QCOMPARE(g.model()->index(2, 1).data().toString(), QStringLiteral("外套"));

        // A requery with the same fields keeps the layout; an empty one has no current row.
        g.setColHidden(1, true);
        g.Bind(Recordset({"SaleID", "GoodsName", "Num", "Amount"}, {}));
        QCOMPARE(g.Rows(), 1);
        QCOMPARE(g.Row(), 0);
        QVERIFY(g.ColHidden(1));
        QVERIFY(g.isColumnHidden(0));

        g.Bind(Recordset());
        QCOMPARE(g.Rows(), 1);
        QCOMPARE(g.Cols(), 1);
        QCOMPARE(g.ColIndex("SaleID"), -1);
    }

    void bindLargeRecordset() {
        std::vector<Recordset::Row> rows;
        rows.reserve(100000);
        QStringList names;
        for (int c = 0; c < 13; ++c) names << QStringLiteral("F%1").arg(c);
        for (int r = 0; r < 100000; ++r) {
            Recordset::Row row(13);
            for (int c = 0; c < 13; ++c)
                row[c] = c == 1 ? QVariant(QStringLiteral("款%1").arg(r)) : QVariant(r * 13 + c);
            rows.push_back(std::move(row));
        }
        VSGrid g;
        g.Bind(Recordset(names, std::move(rows)));
        QCOMPARE(g.Rows(), 100001);
        QCOMPARE(g.TextMatrix(100000, 2), QStringLiteral("款99999"));
        QCOMPARE(g.Cell(54321, "f12"), QString::number(54320 * 13 + 12));
    }

    void columnsWidthsAndHiding() {
        VSGrid g;
        g.Bind(saleRows());
        g.setColWidth(2, 1500);
        QCOMPARE(g.columnWidth(1), 100);
        g.setColHidden(2, true);
        QVERIFY(g.isColumnHidden(1));
        QCOMPARE(g.ColWidth(2), 1500);  // the width survives hiding
        g.setColHidden(2, false);
        QCOMPARE(g.columnWidth(1), 100);

        g.setColWidth(0, 900);
        QCOMPARE(g.verticalHeader()->width(), 60);
        g.setColHidden(0, true);
        QVERIFY(g.verticalHeader()->isHidden());

        g.setColAlignment(3, VSGrid::AlignRightCenter);
        const int a = g.model()->index(0, 2).data(Qt::TextAlignmentRole).toInt();
        QCOMPARE(Qt::Alignment(a), Qt::AlignRight | Qt::AlignVCenter);
    }

    void addAndRemoveRows() {
        VSGrid g;
        g.setCols(4);
        g.AddItem(QStringLiteral("红\tA\tB\tC"));
        g.AddItem(QStringLiteral("蓝\tD"));
        g.AddItem(QStringLiteral("白\tX\tY\tZ\tbeyond"), 1);
        QCOMPARE(g.Rows(), 4);
        QCOMPARE(column(g, 0), QStringList({"白", "红", "蓝"}));
        QCOMPARE(column(g, 1), QStringList({"X", "A", "D"}));
        QCOMPARE(g.TextMatrix(3, 3), QString());
        QCOMPARE(g.model()->headerData(0, Qt::Vertical).toString(), QStringLiteral("白"));

        g.setRow(2);
        g.RemoveItem();
        QCOMPARE(column(g, 1), QStringList({"X", "D"}));
        QCOMPARE(g.Row(), 2);  // same index, now the next row
        g.RemoveItem();
        QCOMPARE(g.Row(), 1);  // the last data row
        g.RemoveItem();
        QCOMPARE(g.Row(), 0);
        QCOMPARE(g.Rows(), 1);
        g.RemoveItem(0);  // the header stays
        QCOMPARE(g.Rows(), 1);
    }

    void grandTotal() {
        VSGrid g;
        fillGroups(g, {"红", "蓝"}, {"1.4", "2.4"});
        g.Subtotal(VSGrid::SubtotalSum, -1, 2, "d", Qt::red, true, QStringLiteral("合计"));
        QCOMPARE(g.Rows(), 4);
        QVERIFY(g.IsSubtotal(3));
        QVERIFY(!g.IsSubtotal(2));
        QCOMPARE(g.TextMatrix(3, 1), QStringLiteral("合计"));
        QCOMPARE(g.TextMatrix(3, 2), QStringLiteral("4"));
        const QModelIndex total = g.model()->index(2, 1);
        QCOMPARE(total.data(Qt::ForegroundRole).value<QBrush>().color(), QColor(Qt::red));
        QVERIFY(total.data(Qt::FontRole).value<QFont>().bold());
        QVERIFY(!g.model()->index(0, 1).data(Qt::FontRole).value<QFont>().bold());

        // Again, above: the earlier total goes; the caption moves to the fixed
        // column when the first visible column holds the sum.
        g.setColHidden(1, true);
        g.Subtotal(VSGrid::SubtotalSum, -1, 2, "d", Qt::red, true, QStringLiteral("合计"), true);
        QCOMPARE(g.Rows(), 4);
        QVERIFY(g.IsSubtotal(1));
        QVERIFY(!g.IsSubtotal(3));
        QCOMPARE(g.TextMatrix(1, 0), QStringLiteral("合计"));
        QCOMPARE(g.TextMatrix(1, 2), QStringLiteral("4"));
        QCOMPARE(column(g, 1), QStringList({"", "红", "蓝"}));

        g.Subtotal(VSGrid::SubtotalClear);
        QCOMPARE(g.Rows(), 3);
        QCOMPARE(g.Sum(2, 1, 2), 3.8);
    }

    void groupTotals() {
        VSGrid g;
        fillGroups(g, {"红", "红", "蓝", "红"}, {"1", "2", "x", "5"});
        g.setRow(3);  // the 蓝 row
        g.Subtotal(VSGrid::SubtotalSum, 1, 2, "", Qt::blue, false, QStringLiteral("小计"));
        QCOMPARE(column(g, 1), QStringList({"红", "红", "小计", "蓝", "小计", "红", "小计"}));
        QCOMPARE(column(g, 2), QStringList({"1", "2", "3", "x", "0", "5", "5"}));
        QCOMPARE(g.Row(), 4);  // the current row follows its record

        g.Subtotal(VSGrid::SubtotalClear);
        g.Subtotal(VSGrid::SubtotalSum, 1, 2, "", Qt::blue, false, QString(), true);
        QCOMPARE(column(g, 1), QStringList({"红", "红", "红", "蓝", "蓝", "红", "红"}));
        QVERIFY(g.IsSubtotal(1) && g.IsSubtotal(4) && g.IsSubtotal(6));
        QCOMPARE(g.TextMatrix(1, 2), QStringLiteral("3"));
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
        QVERIFY(g.IsSubtotal(1) && g.IsSubtotal(2) && !g.IsSubtotal(3));

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
        QCOMPARE(g.rowSpan(3, 0), 1);
        QCOMPARE(g.rowSpan(4, 0), 1);  // empty cells stay apart
        QCOMPARE(g.rowSpan(0, 1), 1);  // column 2 does not merge

        g.setTextMatrix(3, 1, QStringLiteral("蓝"));
        QTRY_COMPARE(g.rowSpan(0, 0), 2);
        QCOMPARE(g.rowSpan(2, 0), 2);
        g.setMergeCells(false);
        QTRY_COMPARE(g.rowSpan(1, 0), 1);
    }

    void checkBoxColumn() {
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
        QVERIFY(m->flags(m->index(1, 0)) & Qt::ItemIsUserCheckable);
        QStringList order;
        connect(&g, &VSGrid::BeforeEdit, [&](int row, int col, bool&) {
            order << QStringLiteral("before %1,%2").arg(row).arg(col);
        });
        connect(&g, &VSGrid::AfterEdit, [&](int row, int col) {
            order << QStringLiteral("after %1,%2").arg(row).arg(col);
        });
        QVERIFY(m->setData(m->index(1, 0), Qt::Checked, Qt::CheckStateRole));
        QCOMPARE(g.TextMatrix(2, 1), QStringLiteral("-1"));
        QVERIFY(m->setData(m->index(0, 0), Qt::Unchecked, Qt::CheckStateRole));
        QCOMPARE(g.TextMatrix(1, 1), QStringLiteral("0"));
        QCOMPARE(order, QStringList({"before 2,1", "after 2,1", "before 1,1", "after 1,1"}));

        connect(&g, &VSGrid::BeforeEdit, [](int, int, bool& cancel) { cancel = true; });
        QVERIFY(!m->setData(m->index(0, 0), Qt::Checked, Qt::CheckStateRole));
        QCOMPARE(g.TextMatrix(1, 1), QStringLiteral("0"));
    }

    void editingAsksFirst() {
        VSGrid g;
        g.Bind(saleRows());
        const QModelIndex cell = g.model()->index(1, 1);
        QTest::ignoreMessage(QtWarningMsg, "edit: editing failed");
        g.edit(cell);
        QVERIFY(!g.viewport()->findChild<QLineEdit*>());  // not editable

        g.setEditable(true);
        bool refuse = true;
        int asked = 0;
        QSignalSpy after(&g, &VSGrid::AfterEdit);
        connect(&g, &VSGrid::BeforeEdit, [&](int, int, bool& cancel) {
            ++asked;
            cancel = refuse;
        });
        QTest::ignoreMessage(QtWarningMsg, "edit: editing failed");
        g.edit(cell);
        QCOMPARE(asked, 1);
        QVERIFY(!g.viewport()->findChild<QLineEdit*>());

        refuse = false;
        g.edit(cell);
        auto* editor = g.viewport()->findChild<QLineEdit*>();
        QVERIFY(editor);
        QCOMPARE(editor->text(), QStringLiteral("裤子"));
        editor->setText(QStringLiteral("风衣"));
        QTest::keyClick(editor, Qt::Key_Return);
        QTRY_COMPARE(g.TextMatrix(2, 2), QStringLiteral("风衣"));
        QCOMPARE(asked, 2);
        QCOMPARE(after.count(), 1);
        QCOMPARE(after.at(0).at(0).toInt(), 2);
        QCOMPARE(after.at(0).at(1).toInt(), 2);

        g.setTextMatrix(2, 2, QStringLiteral("programmatic"));
        QCOMPARE(after.count(), 1);
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
        QVERIFY(typed.isEmpty());

        handle = false;
        QTest::keyClick(&g, Qt::Key_Down);
        QCOMPARE(g.Row(), 2);
        QTest::keyClick(&g, Qt::Key_A);
        QCOMPARE(typed, QStringList({"a"}));
        QCOMPARE(g.Row(), 2);  // typing does not search the rows
    }

    void rowChangeGuard() {
        VSGrid g;
        g.Bind(saleRows());
        QSignalSpy moved(&g, &VSGrid::RowColChange);
        g.setRow(2);
        QCOMPARE(moved.count(), 1);

        bool allow = false;
        int asked = 0;
        g.setRowChangeAllowed([&] {
            ++asked;
            return allow;
        });
        g.setRow(3);
        QCOMPARE(g.Row(), 2);
        QTest::keyClick(&g, Qt::Key_Down);
        QCOMPARE(g.Row(), 2);
        const QPoint third = g.visualRect(g.model()->index(2, 1)).center();
        QTest::mouseClick(g.viewport(), Qt::LeftButton, {}, third);
        QCOMPARE(g.Row(), 2);
        QVERIFY(!g.selectionModel()->isRowSelected(2, QModelIndex()));
        QCOMPARE(asked, 3);  // once per attempt
        g.setCol(3);         // same row: free
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
