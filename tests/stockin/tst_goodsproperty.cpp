// New goods: checks, the three rows of an entry and the row shown in the stock-in list.
#include <QTest>

#include "MsgRecorder.h"
#include "Session.h"
#include "TestDb.h"
#include "TestRegistry.h"
#include "VSGrid.h"
#include "frmBuyIn.h"
#include "frmGoodsProperty.h"
#include "ui_frmGoodsProperty.h"

class TestGoodsProperty : public QObject {
    Q_OBJECT

    static void fill(frmGoodsProperty& w) {
        auto* u = w.ui();
        u->txtNo->setText("K'01");
        u->comName->setEditText("衬衫");
        u->comBrand->setEditText("青'木");
        u->comSize->setEditText("L");
        u->comColour->setEditText("白色");
        u->comLeather->setEditText("棉麻");
        u->comGrade->setEditText("一等品");
        u->comProductPlace->setEditText("杭州");
        u->txtPrice->setText("1,000");
        u->txtSellPrice->setText("1,000");
        u->txtQuantity->setText("6");
        u->DT->setDate(QDate(2026, 4, 1));
        u->txtBlock->setText("690'1");
        u->txtFloor->setText("B2");
        u->txtMemo->setText("首批");
    }

private Q_SLOTS:
    void loadFillsTheLists() {
        TestDb db;
        frmBuyIn buyIn;
        frmGoodsProperty w(&buyIn);
        QCOMPARE(w.ui()->comColour->itemText(0), QString("黑色"));
        QCOMPARE(w.ui()->comSize->count(), TestDb::Count("DataDictionary", "Item='尺码'"));
        QVERIFY(w.ui()->comBrand->count() > 0);
        QCOMPARE(w.ui()->DT->date(), QDate::currentDate());
        QCOMPARE(w.ui()->SSTab1->tabText(0), QString("新货信息"));
    }

    void checksComeInOrder() {
        TestDb db;
        MsgRecorder rec;
        frmBuyIn buyIn;
        frmGoodsProperty w(&buyIn);
        auto* u = w.ui();
        u->comBrand->setEditText("");
        u->cmdPutIn->click();
        u->txtNo->setText("   ");  // blanks pass
        u->cmdPutIn->click();
        u->comBrand->setEditText("青木");
        u->txtPrice->setText("5");
        u->txtQuantity->setText("2");
        u->txtSellPrice->setText("九十");
        u->cmdPutIn->click();
        QCOMPARE(rec.TakeTexts(),
                 QStringList({"货号不能为空！", "品牌不能为空！", "数据类型不正确！"}));
        // Everything else may be empty; No stores nothing.
        u->comName->setEditText("");
        u->comSize->setEditText("");
        u->txtSellPrice->setText("90");
        rec.No();
        u->cmdPutIn->click();
        const auto boxes = rec.Take();
        QCOMPARE(boxes.size(), 1);
        QCOMPARE(boxes[0].text, QString("确认要入库么？"));
        QCOMPARE(boxes[0].title, QString("提示"));
        QCOMPARE(TestDb::Count("Store"), 0);
        QCOMPARE(buyIn.Grid()->Rows(), 1);
        CS_NO_LEFTOVER_BOXES(rec);
    }

    void storesTheThreeRowsInTheirOrder() {
        TestDb db;
        MsgRecorder rec;
        frmBuyIn buyIn;
        frmGoodsProperty w(&buyIn);
        fill(w);
        rec.Yes();
        w.ui()->cmdPutIn->click();
        rec.Take();

        Recordset s = TestDb::Query("select * from Store");
        QCOMPARE(s.RecordCount(), 1);
        const QStringList store{s.Text(1),  s.Text(2),  s.Text(3), s.Text(4), s.Text(5),
                                s.Text(6),  s.Text(7),  s.Text(8), s.Text(9), s.Text(10),
                                s.Text(11), s.Text(12), s.Text(13)};
        QCOMPARE(store, QStringList({Session::ShopNo, "K'01", "衬衫", "青'木", "L", "白色", "棉麻",
                                     "一等品", "杭州", "6", "1", "690'1", "B2"}));
        const QString storeGuid = s.Text(0);
        QCOMPARE(storeGuid.size(), 38);

        Recordset d = TestDb::Query("select * from StoreDetail");
        QCOMPARE(d.RecordCount(), 1);
        QStringList detail;
        for (int i = 1; i < 15; ++i) detail << d.Text(i);
        QCOMPARE(detail,
                 QStringList({storeGuid, Session::ShopNo, "K'01", "衬衫", "青'木", "L", "白色",
                              "棉麻", "一等品", "1000", "6", "杭州", "首批", "2026-04-01"}));
        const QString detailGuid = d.Text(0);
        QVERIFY(detailGuid != storeGuid);

        Recordset b = TestDb::Query("select StoreGUID,Price,Quantity,sDate from BuyPrice");
        QCOMPARE(b.Text(0), storeGuid);
        QCOMPARE(b.Text(1), QString("1000"));
        QCOMPARE(b.Text(2), QString("6"));
        QCOMPARE(b.Text(3), QString("2026-04-01"));

        // The list of the stock-in window shows the entry under the history row's key,
        // in its quoted form.
        VSGrid* g = buyIn.Grid();
        QCOMPARE(g->Rows(), 2);
        QCOMPARE(g->Cell(1, "GUID"), detailGuid);
        QCOMPARE(g->Cell(1, "货号"), QString("K''01"));
        QCOMPARE(g->Cell(1, "品牌"), QString("青''木"));
        QCOMPARE(g->Cell(1, "数量"), QString("6"));
        QCOMPARE(g->Cell(1, "条码"), QString("690''1"));
        QCOMPARE(g->Cell(1, "柜层"), QString("B2"));

        // The window keeps its fields: the same entry again is a second goods row.
        QCOMPARE(w.ui()->txtNo->text(), QString("K'01"));
        rec.Yes();
        w.ui()->cmdPutIn->click();
        rec.Take();
        QCOMPARE(TestDb::Count("Store", "TypeNo='K''01'"), 2);
        QCOMPARE(TestDb::Count("StoreDetail"), 2);
        QCOMPARE(TestDb::Count("BuyPrice"), 2);
        QCOMPARE(g->Rows(), 3);
        CS_NO_LEFTOVER_BOXES(rec);
    }

    void quoteInTheKindBreaksTheGoodsAndHistoryRows() {
        TestDb db;
        MsgRecorder rec;
        frmBuyIn buyIn;
        frmGoodsProperty w(&buyIn);
        fill(w);
        w.ui()->comName->setEditText("T'恤");
        rec.Yes();
        w.ui()->cmdPutIn->click();
        QCOMPARE(rec.Take().size(), 3);  // question, two engine texts
        QCOMPARE(TestDb::Count("Store"), 0);
        QCOMPARE(TestDb::Count("StoreDetail"), 0);
        QCOMPARE(TestDb::Count("BuyPrice"), 1);
        // A quote in the note breaks the history row alone.
        w.ui()->comName->setEditText("衬衫");
        w.ui()->txtMemo->setText("it's");
        rec.Yes();
        w.ui()->cmdPutIn->click();
        QCOMPARE(rec.Take().size(), 2);
        QCOMPARE(TestDb::Count("Store"), 1);
        QCOMPARE(TestDb::Count("StoreDetail"), 0);
        CS_NO_LEFTOVER_BOXES(rec);
    }

    void clearEmptiesTheTextBoxesOnly() {
        TestDb db;
        frmGoodsProperty w(nullptr);
        fill(w);
        w.show();
        QApplication::setActiveWindow(&w);
        QVERIFY(QTest::qWaitForWindowActive(&w));
        w.ui()->cmdClear->click();
        for (QLineEdit* box :
             {w.ui()->txtNo, w.ui()->txtPrice, w.ui()->txtSellPrice, w.ui()->txtQuantity,
              w.ui()->txtBlock, w.ui()->txtFloor, w.ui()->txtMemo})
            QVERIFY(box->text().isEmpty());
        QCOMPARE(w.ui()->comBrand->currentText(), QString("青'木"));
        QCOMPARE(w.ui()->comColour->currentText(), QString("白色"));
        QCOMPARE(w.ui()->DT->date(), QDate(2026, 4, 1));
        QCOMPARE(QApplication::focusWidget(), static_cast<QWidget*>(w.ui()->txtNo));
    }
};

CS_TEST(TestGoodsProperty)
#include "tst_goodsproperty.moc"
