// A grid bound to a statement's result: cells show the stored values
// (numbers to the right), sums and totals read typed cells, equal stored
// texts merge, and a row that is edited, styled, removed or cut short keeps
// what it shows.
#include <QSignalSpy>
#include <QTest>

#include "TestDb.h"
#include "TestRegistry.h"
#include "VSGrid.h"

namespace {

Recordset goods() {
    return TestDb::Query(
        "select 'A1' as 货号, 3 as 数量, 2.5 as 价格, null as 备注 union all "
        "select 'A1', -1, 0.1+0.2, '12' union all select 'B2', 4, 7, 'x'");
}

// Every data row, its cells from column 1 on joined by '|'.
QStringList shown(const VSGrid& g) {
    QStringList out;
    for (int r = 1; r < g.Rows(); ++r) {
        QStringList cells;
        for (int c = 1; c < g.Cols(); ++c) cells << g.TextMatrix(r, c);
        out << cells.join('|');
    }
    return out;
}

Qt::Alignment alignment(const VSGrid& g, int r, int c) {
    return Qt::Alignment(g.model()->index(r - 1, c - 1).data(Qt::TextAlignmentRole).toInt());
}

const Qt::Alignment kRight = Qt::AlignRight | Qt::AlignVCenter;

}  // namespace

class TestGridOnResult : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void cellsSumsTotalsAndMerging() {
        TestDb t;
        VSGrid g;
        g.Bind(goods());
        QCOMPARE(g.Cell(0, "数量"), QString("数量"));
        QCOMPARE(shown(g), QStringList({"A1|3|2.5|", "A1|-1|0.3|12", "B2|4|7|x"}));
        QCOMPARE(g.model()->index(1, 2).data().toString(), QString("0.3"));
        // A numeric text stays text.
        QCOMPARE(QList<Qt::Alignment>({alignment(g, 1, 2), alignment(g, 1, 3), alignment(g, 2, 4)}),
                 QList<Qt::Alignment>({kRight, kRight, Qt::AlignLeft | Qt::AlignVCenter}));

        QCOMPARE(g.Sum(2, 0, 3), 6.0);
        QCOMPARE(g.Sum(3, 1, 3), 2.5 + (0.1 + 0.2) + 7.0);
        QCOMPARE(g.Sum(4, 1, 3), 12.0);  // a null and a word count 0

        g.Subtotal(VSGrid::SubtotalSum, 1, 2, "", Qt::red, true, QStringLiteral("小计"));
        QCOMPARE(shown(g),
                 QStringList({"A1|3|2.5|", "A1|-1|0.3|12", "小计|2||", "B2|4|7|x", "小计|4||"}));
        g.Subtotal(VSGrid::SubtotalSum, -1, 3, "", Qt::red, true, QStringLiteral("合计"));
        QCOMPARE(g.TextMatrix(g.Rows() - 1, 3), QString("9.8"));
        g.Subtotal(VSGrid::SubtotalClear);
        QCOMPARE(shown(g), QStringList({"A1|3|2.5|", "A1|-1|0.3|12", "B2|4|7|x"}));

        g.setMergeCells(true);
        g.setMergeCol(1, true);
        g.setMergeCol(4, true);
        QTRY_COMPARE(g.rowSpan(0, 0), 2);
        QCOMPARE(g.rowSpan(2, 0) + g.rowSpan(0, 3), 2);
    }

    void changedRowsKeepWhatTheyShow() {
        TestDb t;
        VSGrid g;
        g.Bind(goods());
        g.setCellBackColor(2, 0, Qt::yellow);
        g.setTextMatrix(2, 0, QStringLiteral("★"));
        // The first edit of a bound row: the other cells keep their values and kinds.
        g.setTextMatrix(1, 4, QStringLiteral("改"));
        QCOMPARE(shown(g), QStringList({"A1|3|2.5|改", "A1|-1|0.3|12", "B2|4|7|x"}));
        QCOMPARE(alignment(g, 1, 2), kRight);
        QCOMPARE(g.Sum(2, 1, 3), 6.0);

        g.setEditable(true);
        QSignalSpy after(&g, &VSGrid::AfterEdit);
        QVERIFY(g.model()->setData(g.model()->index(2, 1), QStringLiteral("9"), Qt::EditRole));
        QCOMPARE(after.count(), 1);
        g.RemoveItem(1);
        QCOMPARE(g.TextMatrix(1, 0), QStringLiteral("★"));
        QCOMPARE(g.CellBackColor(1, 0), QColor(Qt::yellow));
        g.AddItem(QStringLiteral("\tC3\t5"));
        QCOMPARE(shown(g), QStringList({"A1|-1|0.3|12", "B2|9|7|x", "C3|5||"}));

        // Columns given up and taken back come back empty, as in any grid.
        g.setCols(3);
        g.setCols(5);
        g.setTextMatrix(1, 4, QStringLiteral("新"));
        QCOMPARE(shown(g), QStringList({"A1|-1||新", "B2|9||", "C3|5||"}));
    }
};

CS_TEST(TestGridOnResult)
#include "tst_grid_result.moc"
