// The print window: the copy of the caller's grid, the choice of columns,
// the total row taken out and put back, the numbering and the title.
#include "MsgRecorder.h"
#include "PrintTest.h"
#include "TestRegistry.h"

class TestPrintWindow : public QObject {
    Q_OBJECT
private Q_SLOTS:
    // The copy has the caller's texts, hidden columns and widths (column 0
    // at 420); the list offers the visible columns, ticked. Without a total
    // row chkisTotal is locked.
    void copyAndColumnChoice() {
        VSGrid source;
        StockList(source, 3);
        PrintWindow p(source);
        QCOMPARE(p.grid->Rows(), source.Rows());
        for (int r = 0; r < source.Rows(); ++r) QCOMPARE(RowTexts(p.grid, r), RowTexts(&source, r));
        for (int c = 0; c < source.Cols(); ++c) {
            QCOMPARE(p.grid->ColHidden(c), source.ColHidden(c));
            QCOMPARE(p.grid->ColWidth(c), c == 0 ? 420 : source.ColWidth(c));
        }
        QStringList heads;
        for (int i = 0; i < p.ui->listField->count(); ++i) {
            QCOMPARE(p.ui->listField->item(i)->checkState(), Qt::Checked);
            heads << p.ui->listField->item(i)->text();
        }
        QCOMPARE(heads, QStringList({"货号", "种类", "品牌", "尺码", "数量", "零售价", "条码"}));

        PrintWindow plain(source, false);
        QVERIFY(!plain.ui->chkisTotal->isEnabled() && !plain.w.HasTotal && !plain.w.CanTotal);
    }

    // Until chkisTotal is clicked the header row is record 1 and the total
    // row 2 (then "合计"). Unticking takes the total row out and numbers from
    // row 1; ticking puts the same row back and numbers from row 2. Each
    // preview rewrites the numbers.
    void numberingAndTheTotalRow() {
        VSGrid source;
        StockList(source, 2);  // header, 总合计, 2 x (合计 + 2 rows)
        PrintWindow p(source);
        p.ui->chkRecordIndex->setChecked(true);
        p.Preview();
        p.Preview();
        QCOMPARE(ColTexts(p.grid, 0), QStringList({"1", "合计", "3", "4", "5", "6", "7", "8"}));
        p.ui->chkRecordIndex->setChecked(false);
        p.Preview();
        QCOMPARE(ColTexts(p.grid, 0), QStringList({"", "合计", "", "", "", "", "", ""}));

        const QStringList total = RowTexts(p.grid, 1);
        p.ui->chkisTotal->click();
        QVERIFY(!p.w.HasTotal);
        QCOMPARE(p.w.FirstRecordRow, int16_t(1));
        QCOMPARE(RowTexts(p.grid, 1), RowTexts(&source, 2));
        p.ui->chkRecordIndex->setChecked(true);
        p.Preview();
        QCOMPARE(ColTexts(p.grid, 0), QStringList({"", "1", "2", "3", "4", "5", "6"}));

        p.ui->chkisTotal->click();
        QVERIFY(p.w.HasTotal);
        QCOMPARE(p.w.FirstRecordRow, int16_t(2));
        QCOMPARE(RowTexts(p.grid, 1), total);
        QCOMPARE(p.grid->Rows(), source.Rows());
        p.Preview();
        QCOMPARE(ColTexts(p.grid, 0), QStringList({"", "合计", "1", "2", "3", "4", "5", "6"}));
    }

    // Unticking the title box empties and locks the title; an empty title
    // with the box ticked stops the preview with a warning.
    void title() {
        MsgRecorder rec;
        VSGrid source;
        StockList(source, 1);
        PrintWindow p(source);
        p.ui->chkIsTableHead->click();
        QVERIFY(!p.ui->txtTable->isEnabled() && p.ui->txtTable->toPlainText().isEmpty());
        p.ui->chkIsTableHead->click();
        p.Preview();
        const QList<MsgBox::Box> boxes = rec.Take();
        QCOMPARE(boxes.size(), 1);
        QVERIFY(boxes[0].text == "请输入表头！" && boxes[0].icon == MsgBox::Icon::Exclamation);
        QVERIFY(!p.w.Report);
        p.ui->txtTable->setPlainText("库存表");
        p.Preview();
        QCOMPARE(p.w.Report->lbInfo().Caption, QString("库存表"));
        CS_NO_LEFTOVER_BOXES(rec);
    }
};
CS_TEST(TestPrintWindow)

#include "tst_print_window.moc"
