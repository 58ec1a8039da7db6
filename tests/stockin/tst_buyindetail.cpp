// Stock-in records: taking back or correcting a record as long as nothing of it has been sold.
#include <QTest>

#include "DateText.h"
#include "Modal.h"
#include "MsgRecorder.h"
#include "Session.h"
#include "TestDb.h"
#include "TestRegistry.h"
#include "VSGrid.h"
#include "frmbuyInDetail.h"
#include "frmedit.h"
#include "ui_frmbuyInDetail.h"
#include "ui_frmedit.h"

class TestBuyInDetail : public QObject {
    Q_OBJECT

    // Pieces sold from each layer of a goods row (negative: given back).
    static void sell(const QString& storeGuid, int pieces) {
        TestDb::Exec(QString("Update BuyPrice Set Quantity=Quantity-(%1) Where StoreGUID='%2'")
                         .arg(pieces)
                         .arg(storeGuid));
    }

private Q_SLOTS:
    void deleteAgainstTheSoldTestReducesOrRemovesTheGoodsRow() {
        TestDb db;
        const QString guid = TestDb::AddGoods("A1", 10, 99, 40, "M", "黑色", "", "2026-01-05");
        TestDb::Exec("Insert Into StoreDetail Values('{D2}','" + guid + "','" + Session::ShopNo +
                     "','A1','T恤','青木','M','黑色','纯棉','一等品',42,3,'广州','','2026-01-06')");
        TestDb::Exec("Insert Into BuyPrice (StoreGUID,Price,Quantity,sDate,ShopNo) Values('" +
                     guid + "',42,3,'2026-01-06','" + Session::ShopNo + "')");
        TestDb::Exec("Update Store Set Quantity=13");  // a second stock-in of 3, same goods row
        // Records the filter leaves out: another day, another shop.
        TestDb::AddGoods("A1", 4, 99, 40, "L", "黑色", "", "2026-02-10");
        TestDb::Exec(
            "Insert Into StoreDetail (GUID,ShopNo,TypeNo,Quantity,DateTime) "
            "Values('{X}','{ANOTHER-SHOP}','A1',100,'2026-01-06')");
        const QString of = "GUID='" + guid + "'";
        MsgRecorder rec;
        frmbuyInDetail w;
        auto* u = w.ui();
        VSGrid* g = u->VSFlexGrid;
        u->chkDate->setChecked(true);
        u->DTBeginTime->setDate(QDate(2026, 1, 5));
        u->DTEndTime->setDate(QDate(2026, 1, 6));
        u->cmdQuery->click();
        QCOMPARE(g->Cell(3, "货号") + g->Cell(3, "数量"), QString("合计13"));  // the total, last

        // 10 taken in, 9 left in its layer: sold. The question comes first.
        g->setRow(g->Cell(1, "GUID") == "{D2}" ? 2 : 1);
        sell(guid, 1);
        rec.Yes();
        u->cmdDel->click();
        QCOMPARE(rec.TakeTexts(),
                 QStringList({"确定要删除这次进货吗？", "对不起，这批货已经出售不能再删除！"}));
        QCOMPARE(
            TestDb::Count("StoreDetail", "Parent" + of) + TestDb::Count("BuyPrice", "Store" + of),
            4);

        // 10 left: not sold. The record and its layer go, the goods row keeps the other 3.
        sell(guid, -1);
        rec.Yes();
        u->cmdDel->click();
        QCOMPARE(rec.TakeTexts(), QStringList({"确定要删除这次进货吗？"}));
        QCOMPARE(TestDb::Scalar("select Quantity from Store where " + of), "3");
        QCOMPARE(TestDb::Scalar("select group_concat(sDate) from BuyPrice where Store" + of),
                 "2026-01-06");
        QCOMPARE(TestDb::Scalar("select group_concat(GUID) from StoreDetail where Parent" + of),
                 "{D2}");
        QCOMPARE(g->Cell(2, "货号") + g->Cell(2, "数量"), QString("合计3"));

        // The goods row's last record takes the row with it.
        g->setRow(1);
        rec.Yes();
        u->cmdDel->click();
        rec.Take();
        QCOMPARE(TestDb::Count("StoreDetail", "Parent" + of) +
                     TestDb::Count("BuyPrice", "Store" + of) + TestDb::Count("Store", of),
                 0);
        QCOMPARE(TestDb::Count("Store"), 1);
        QCOMPARE(g->Cell(1, "货号") + g->Cell(1, "数量"), QString("合计0"));
        u->cmdDel->click();  // the total row is not a record
        CS_NO_LEFTOVER_BOXES(rec);
    }

    void editAgainstTheSoldTestMakesANewStockIn() {
        TestDb db;
        const QString old = TestDb::AddGoods("A1", 10, 99, 40, "M", "黑色", "690", "2026-01-05");
        MsgRecorder rec;
        frmbuyInDetail w;
        VSGrid* g = w.ui()->VSFlexGrid;
        g->setRow(1);
        sell(old, 1);
        bool done = false;
        Modal::Queue([&](QDialog* d) {
            auto* u = qobject_cast<frmedit*>(d)->ui();
            QCOMPARE(u->txtNo->text() + u->txtPrice->text() + u->txtQuantity->text() +
                         u->comColour->currentText() + u->comSize->currentText() +
                         DateText::Of(u->DT->date()),
                     QString("A14010黑色M2026-01-05"));
            u->cmdOk->click();  // 9 left: sold, refused at once, no question
            QCOMPARE(rec.TakeTexts(), QStringList({"对不起，这批货已经出售不能再修改！"}));
            QCOMPARE(TestDb::Count("StoreDetail", "ParentGUID='" + old + "'"), 1);
            sell(old, -1);
            u->comSize->setCurrentIndex(u->comSize->findText("L"));
            u->txtQuantity->setText("6");
            u->txtPrice->setText("41.5");
            u->cmdOk->click();
            done = !d->isVisible();
        });
        w.ui()->cmdedit->click();
        QVERIFY(done);

        // The old goods row goes; the retail price carries over, the bar code does not.
        QCOMPARE(TestDb::Count("Store", "GUID='" + old + "'"), 0);
        const QString fresh = TestDb::Scalar("select GUID from Store");
        QCOMPARE(TestDb::Scalar("select [Size]||'|'||Quantity||'|'||Price||'|'||IDCode from Store"),
                 "L|6|99|");
        QCOMPARE(TestDb::Scalar("select ParentGUID||'|'||Price from StoreDetail"), fresh + "|41.5");
        QCOMPARE(TestDb::Scalar("select StoreGUID||'|'||Quantity from BuyPrice"), fresh + "|6");
        // The grid holds the new record in the old place, and a fresh total.
        QCOMPARE(g->Cell(1, "ParentGUID") + g->Cell(1, "GUID"),
                 fresh + TestDb::Scalar("select GUID from StoreDetail"));
        QCOMPARE(g->Cell(1, "进价") + "|" + g->Cell(2, "货号") + g->Cell(2, "数量"),
                 QString("41.5|合计6"));
        CS_NO_LEFTOVER_BOXES(rec);
    }
};

CS_TEST(TestBuyInDetail)
#include "tst_buyindetail.moc"
