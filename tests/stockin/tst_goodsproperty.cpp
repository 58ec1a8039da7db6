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
    static QString row(const QString& sql, int from, int to) {
        Recordset rs = TestDb::Query(sql);
        QStringList out;
        for (int i = from; i <= to; ++i) out << rs.Text(i);
        return out.join('|');
    }

private Q_SLOTS:
    void checksComeInOrder() {
        TestDb db;
        MsgRecorder rec;
        frmGoodsProperty w(nullptr);
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
        u->txtSellPrice->setText("90");
        rec.No();
        u->cmdPutIn->click();
        QCOMPARE(rec.TakeTexts(), QStringList({"确认要入库么？"}));
        QCOMPARE(TestDb::Count("Store"), 0);
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

        const QString storeGuid = TestDb::Scalar("select GUID from Store");
        QCOMPARE(row("select * from Store", 1, 13),
                 Session::ShopNo + "|K'01|衬衫|青'木|L|白色|棉麻|一等品|杭州|6|1|690'1|B2");
        QCOMPARE(row("select * from StoreDetail", 1, 14),
                 storeGuid + "|" + Session::ShopNo +
                     "|K'01|衬衫|青'木|L|白色|棉麻|一等品|1000|6|杭州|首批|2026-04-01");
        QCOMPARE(row("select StoreGUID,Price,Quantity,sDate from BuyPrice", 0, 3),
                 storeGuid + "|1000|6|2026-04-01");

        // The list shows the entry under the history row's key, in its quoted form.
        VSGrid* g = buyIn.Grid();
        QCOMPARE(g->Rows(), 2);
        QCOMPARE(g->Cell(1, "GUID"), TestDb::Scalar("select GUID from StoreDetail"));
        QCOMPARE(g->Cell(1, "品牌") + g->Cell(1, "数量") + g->Cell(1, "条码"),
                 QString("青''木6690''1"));

        // The fields stay: the same entry again is a second goods row beside the first.
        rec.Yes();
        w.ui()->cmdPutIn->click();
        rec.Take();
        QCOMPARE(TestDb::Count("Store", "TypeNo='K''01'"), 2);
        QCOMPARE(TestDb::Count("BuyPrice"), 2);
        CS_NO_LEFTOVER_BOXES(rec);
    }

    void quotesInKindAndNoteBreakTheirStatements() {
        TestDb db;
        MsgRecorder rec;
        frmGoodsProperty w(nullptr);
        fill(w);
        w.ui()->comName->setEditText("T'恤");
        rec.Yes();
        w.ui()->cmdPutIn->click();
        QCOMPARE(rec.Take().size(), 3);  // question, two engine texts
        QCOMPARE(TestDb::Count("Store") + TestDb::Count("StoreDetail"), 0);
        QCOMPARE(TestDb::Count("BuyPrice"), 1);
        w.ui()->comName->setEditText("衬衫");
        w.ui()->txtMemo->setText("it's");
        rec.Yes();
        w.ui()->cmdPutIn->click();
        QCOMPARE(rec.Take().size(), 2);
        QCOMPARE(TestDb::Count("Store"), 1);
        QCOMPARE(TestDb::Count("StoreDetail"), 0);
        CS_NO_LEFTOVER_BOXES(rec);
    }
};

CS_TEST(TestGoodsProperty)
#include "tst_goodsproperty.moc"
