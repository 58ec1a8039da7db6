// The print window: the copy of the caller's grid, the choice of columns,
// the total row taken out and put back, the numbering of the records and
// the title.
#include "MsgRecorder.h"
#include "PrintTest.h"
#include "TestRegistry.h"

class TestPrintWindow : public QObject {
    Q_OBJECT
private Q_SLOTS:
    // The copy has the caller's texts, hidden columns and widths (column 0
    // at 420), centred; the list offers the visible columns, ticked, and a
    // tick hides or shows its column.
    void copyAndColumnChoice() {
        VSGrid source;
        StockList(source, 3);
        PrintWindow p(source);
        QCOMPARE(p.grid->Rows(), source.Rows());
        QCOMPARE(p.grid->Cols(), source.Cols());
        for (int r = 0; r < source.Rows(); ++r) QCOMPARE(RowTexts(p.grid, r), RowTexts(&source, r));
        for (int c = 0; c < source.Cols(); ++c) {
            QCOMPARE(p.grid->ColHidden(c), source.ColHidden(c));
            QCOMPARE(p.grid->ColWidth(c), c == 0 ? 420 : source.ColWidth(c));
            QCOMPARE(p.grid->ColAlignment(c), int(VSGrid::AlignCenterCenter));
        }
        QCOMPARE(p.grid->TextMatrix(1, 1), QString("总合计"));

        QStringList heads;
        for (int i = 0; i < p.ui->listField->count(); ++i) {
            const QListWidgetItem* item = p.ui->listField->item(i);
            QCOMPARE(item->checkState(), Qt::Checked);
            QCOMPARE(item->data(Qt::UserRole).toInt(), i + 1);
            heads << item->text();
        }
        QCOMPARE(heads, QStringList({"货号", "种类", "品牌", "尺码", "数量", "零售价", "条码"}));

        p.Choose("品牌", false);
        QVERIFY(p.grid->ColHidden(3));
        p.Choose("品牌", true);
        QVERIFY(!p.grid->ColHidden(3));
        QVERIFY(!source.ColHidden(3) && source.Rows() == p.grid->Rows());
    }

    // Until chkisTotal is clicked the numbering starts at the header row:
    // the header is record 1, the total row 2 (then overwritten by "合计").
    // Unticking takes the total row out and numbers from row 1; ticking puts
    // the same row back at row 1 and numbers from row 2. A second preview
    // rewrites the numbers with a new report.
    void numberingAndTheTotalRow() {
        VSGrid source;
        StockList(source, 2);
        const int rows = source.Rows();  // header, 总合计, 2 x (合计 + 2 rows)
        QCOMPARE(rows, 8);
        PrintWindow p(source);
        QVERIFY(p.w.HasTotal && p.w.CanTotal && p.ui->chkisTotal->isEnabled());
        QCOMPARE(p.w.FirstRecordRow, int16_t(0));

        p.ui->chkRecordIndex->setChecked(true);
        p.Preview();
        QCOMPARE(ColTexts(p.grid, 0), QStringList({"1", "合计", "3", "4", "5", "6", "7", "8"}));
        const ARPrinter* first = p.w.Report.get();
        p.Preview();
        QCOMPARE(ColTexts(p.grid, 0), QStringList({"1", "合计", "3", "4", "5", "6", "7", "8"}));
        QVERIFY(p.w.Report.get() != first);

        p.ui->chkRecordIndex->setChecked(false);
        p.Preview();
        QCOMPARE(ColTexts(p.grid, 0), QStringList({"", "合计", "", "", "", "", "", ""}));

        const QStringList total = RowTexts(p.grid, 1);
        p.ui->chkisTotal->click();
        QVERIFY(!p.w.HasTotal);
        QCOMPARE(p.w.FirstRecordRow, int16_t(1));
        QCOMPARE(p.grid->Rows(), rows - 1);
        QCOMPARE(RowTexts(p.grid, 1), RowTexts(&source, 2));
        QCOMPARE(p.w.TotalRowText, total.join('\t'));
        p.ui->chkRecordIndex->setChecked(true);
        p.Preview();
        QCOMPARE(ColTexts(p.grid, 0), QStringList({"", "1", "2", "3", "4", "5", "6"}));

        p.ui->chkisTotal->click();
        QVERIFY(p.w.HasTotal);
        QCOMPARE(p.w.FirstRecordRow, int16_t(2));
        QCOMPARE(p.grid->Rows(), rows);
        QCOMPARE(RowTexts(p.grid, 1), total);
        for (int r = 2; r < rows; ++r)
            QCOMPARE(RowTexts(p.grid, r).mid(1), RowTexts(&source, r).mid(1));
        p.Preview();
        QCOMPARE(ColTexts(p.grid, 0), QStringList({"", "合计", "1", "2", "3", "4", "5", "6"}));
    }

    // A grid handed over without a total row: chkisTotal cannot be used and
    // row 1 is numbered as a record.
    void gridWithoutTotal() {
        VSGrid source;
        StockList(source, 1);
        PrintWindow p(source, false);
        QVERIFY(!p.ui->chkisTotal->isEnabled());
        QVERIFY(!p.w.HasTotal && !p.w.CanTotal);
        p.ui->chkRecordIndex->setChecked(true);
        p.Preview();
        QCOMPARE(ColTexts(p.grid, 0), QStringList({"1", "2", "3", "4", "5"}));
    }

    // The title: unticking empties and locks it; an empty title with the
    // box ticked stops the preview with a warning.
    void title() {
        MsgRecorder rec;
        VSGrid source;
        StockList(source, 1);
        PrintWindow p(source);
        QCOMPARE(p.ui->txtTable->toPlainText(), QString("服装店数据报表\n"));
        p.ui->chkIsTableHead->click();
        QVERIFY(!p.ui->txtTable->isEnabled());
        QCOMPARE(p.ui->txtTable->toPlainText(), QString());
        p.ui->chkIsTableHead->click();
        QVERIFY(p.ui->txtTable->isEnabled());
        p.Preview();
        const QList<MsgBox::Box> boxes = rec.Take();
        QCOMPARE(boxes.size(), 1);
        QCOMPARE(boxes[0].text, QString("请输入表头！"));
        QCOMPARE(boxes[0].icon, MsgBox::Icon::Exclamation);
        QVERIFY(!p.w.Report);

        p.ui->txtTable->setPlainText("库存表");
        p.Preview();
        QVERIFY(p.w.Report);
        QCOMPARE(p.w.Report->lbInfo().Caption, QString("库存表"));
        CS_NO_LEFTOVER_BOXES(rec);
    }
};
CS_TEST(TestPrintWindow)

#include "tst_print_window.moc"
