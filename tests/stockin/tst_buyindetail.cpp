// Stock-in records: the list with its total, and taking back or correcting a
// record as long as nothing of it has been sold.
#include <QTest>

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

    static void pick(VSGrid* g, const QString& key, const QString& value) {
        for (int r = 1; r < g->Rows(); ++r)
            if (g->Cell(r, key) == value) return g->setRow(r);
        QFAIL(qPrintable("no row with " + value));
    }
    // Pieces sold from the layers of a goods row (negative: given back).
    static void sell(const QString& storeGuid, int pieces) {
        TestDb::Exec(QString("Update BuyPrice Set Quantity=Quantity-(%1) Where StoreGUID='%2'")
                         .arg(pieces)
                         .arg(storeGuid));
    }
    // A second stock-in of a goods row, with its layer unless noLayer.
    static void addStockIn(const QString& guid, const QString& detail, int qty, const QString& date,
                           bool noLayer = false) {
        TestDb::Exec(QString("Insert Into StoreDetail Values('%1','%2','%3','A1','T恤','青木','M',"
                             "'黑色','纯棉','一等品',42,%4,'广州','','%5')")
                         .arg(detail, guid, Session::ShopNo)
                         .arg(qty)
                         .arg(date));
        if (!noLayer)
            TestDb::Exec(QString("Insert Into BuyPrice (StoreGUID,Price,Quantity,sDate,ShopNo) "
                                 "Values('%1',42,%2,'%3','%4')")
                             .arg(guid)
                             .arg(qty)
                             .arg(date, Session::ShopNo));
        TestDb::Exec(
            QString("Update Store Set Quantity=Quantity+(%1) Where GUID='%2'").arg(qty).arg(guid));
    }

private Q_SLOTS:
    void listsWithATotalAndFilters() {
        TestDb db;
        TestDb::AddGoods("A1", 3, 99, 40, "M", "黑色", "", "2026-01-10");
        TestDb::AddGoods("A1", 4, 99, 40, "L", "黑色", "", "2026-02-10");
        TestDb::AddGoods("B2", 5, 80, 30, "M", "红色", "", "2026-02-20");
        TestDb::Exec(
            "Insert Into StoreDetail (GUID,ShopNo,TypeNo,Quantity,DateTime) "
            "Values('{X}','{ANOTHER-SHOP}','A1',100,'2026-02-10')");
        MsgRecorder rec;
        frmbuyInDetail w;
        auto* u = w.ui();
        VSGrid* g = u->VSFlexGrid;
        QCOMPARE(g->Rows(), 5);
        QVERIFY(g->IsSubtotal(4));
        QCOMPARE(g->Cell(4, "货号") + g->Cell(4, "数量"), QString("合计12"));

        u->chkTypeNo->setChecked(true);
        u->txtNo->setText("A1");
        u->chkDate->setChecked(true);
        u->DTBeginTime->setDate(QDate(2026, 2, 1));
        u->DTEndTime->setDate(QDate(2026, 2, 28));
        u->cmdQuery->click();
        QCOMPARE(g->Rows(), 3);
        QCOMPARE(g->Cell(1, "尺码") + g->Cell(2, "数量"), QString("L4"));
        u->chkTypeNo->setChecked(false);
        u->cmdQuery->click();
        QCOMPARE(g->Cell(g->Rows() - 1, "数量"), QString("9"));
        CS_NO_LEFTOVER_BOXES(rec);

        // The number goes in as typed: a quote breaks the query, the list stays.
        u->chkTypeNo->setChecked(true);
        u->txtNo->setText("A'1");
        u->cmdQuery->click();
        const auto boxes = rec.Take();
        QCOMPARE(boxes.size(), 2);
        QCOMPARE(boxes[1].text, MsgBox::ReadFailText());
        QCOMPARE(g->Rows(), 4);
    }

    void deleteAgainstTheSoldTest() {
        TestDb db;
        const QString guid = TestDb::AddGoods("A1", 10, 99, 40);
        MsgRecorder rec;
        frmbuyInDetail w;
        VSGrid* g = w.ui()->VSFlexGrid;
        g->setRow(1);
        // 10 taken in, 9 left in the layer: sold. The question comes first.
        sell(guid, 1);
        rec.Yes();
        w.ui()->cmdDel->click();
        QCOMPARE(rec.TakeTexts(),
                 QStringList({"确定要删除这次进货吗？", "对不起，这批货已经出售不能再删除！"}));
        QCOMPARE(TestDb::Count("StoreDetail"), 1);

        // 10 left: not sold. The record held all of the goods row's stock, so the row goes.
        sell(guid, -1);
        rec.Yes();
        w.ui()->cmdDel->click();
        QCOMPARE(rec.Take().size(), 1);
        QCOMPARE(TestDb::Count("StoreDetail") + TestDb::Count("BuyPrice") + TestDb::Count("Store"),
                 0);
        QCOMPARE(g->Rows(), 2);
        QCOMPARE(g->Cell(1, "数量"), QString("0"));
        // The total row is not a record.
        w.ui()->cmdDel->click();
        CS_NO_LEFTOVER_BOXES(rec);
    }

    void deleteOneOfSeveralStockInsReducesTheGoodsRow() {
        TestDb db;
        const QString guid = TestDb::AddGoods("A1", 5, 99, 40, "M", "黑色", "", "2026-01-05");
        addStockIn(guid, "{D2}", 3, "2026-01-06");
        addStockIn(guid, "{NEG}", -2, "2026-01-07", true);  // a negative restock, layer lost
        MsgRecorder rec;
        frmbuyInDetail w;
        VSGrid* g = w.ui()->VSFlexGrid;
        pick(g, "进货日期", "2026-01-05");
        rec.Yes();
        w.ui()->cmdDel->click();
        QCOMPARE(TestDb::Scalar("select Quantity from Store"), "1");
        QCOMPARE(TestDb::Scalar("select group_concat(sDate) from BuyPrice"), "2026-01-06");
        QCOMPARE(g->Cell(g->Rows() - 1, "数量"), QString("1"));
        // Taking back the negative one gives the two pieces back.
        pick(g, "GUID", "{NEG}");
        rec.Yes();
        w.ui()->cmdDel->click();
        QCOMPARE(TestDb::Scalar("select Quantity from Store"), "3");
        QCOMPARE(rec.Take().size(), 2);
        CS_NO_LEFTOVER_BOXES(rec);
    }

    void editMakesANewStockIn() {
        TestDb db;
        const QString old = TestDb::AddGoods("A1", 5, 99, 40, "M", "黑色", "690", "2026-01-05");
        MsgRecorder rec;
        frmbuyInDetail w;
        VSGrid* g = w.ui()->VSFlexGrid;
        g->setRow(1);
        bool done = false;
        Modal::Queue([&](QDialog* d) {
            auto* e = qobject_cast<frmedit*>(d);
            QVERIFY(e);
            auto* u = e->ui();
            QCOMPARE(u->txtNo->text() + u->txtPrice->text() + u->txtQuantity->text(),
                     QString("A1405"));
            QCOMPARE(u->comColour->currentText() + u->comSize->currentText(), QString("黑色M"));
            QCOMPARE(u->DT->date(), QDate(2026, 1, 5));
            QCOMPARE(e->Price(), 99.0f);
            u->comSize->setCurrentIndex(u->comSize->findText("L"));
            u->txtQuantity->setText("6");
            u->txtPrice->setText("41.5");
            u->cmdOk->click();
            done = true;
        });
        w.ui()->cmdedit->click();
        QVERIFY(done);

        QCOMPARE(TestDb::Count("Store", "GUID='" + old + "'"), 0);
        Recordset s = TestDb::Query("select GUID,[Size],Quantity,Price,IDCode from Store");
        QCOMPARE(s.RecordCount(), 1);
        const QString fresh = s.Text(0);
        // The retail price carries over, the bar code does not.
        QCOMPARE(s.Text(1) + "|" + s.Text(2) + "|" + s.Text(3) + "|" + s.Text(4),
                 QString("L|6|99|"));
        const QString detail = TestDb::Scalar("select GUID from StoreDetail");
        QCOMPARE(TestDb::Scalar("select ParentGUID||'|'||Price from StoreDetail"), fresh + "|41.5");
        QCOMPARE(TestDb::Scalar("select StoreGUID||'|'||Quantity from BuyPrice"), fresh + "|6");

        // The grid holds the new record in the old place, and a fresh total.
        QCOMPARE(g->Rows(), 3);
        QCOMPARE(g->Cell(1, "ParentGUID") + g->Cell(1, "GUID"), fresh + detail);
        QCOMPARE(g->Cell(1, "进价") + "|" + g->Cell(2, "数量"), QString("41.5|6"));
        CS_NO_LEFTOVER_BOXES(rec);
    }

    void editRefusesASoldRecordAndLosesOneThatFailsItsChecks() {
        TestDb db;
        const QString guid = TestDb::AddGoods("A1", 10, 99, 40);
        TestDb::Exec("Update StoreDetail Set Brand='旧牌子'");  // no longer in the list
        sell(guid, 1);
        MsgRecorder rec;
        frmbuyInDetail w;
        VSGrid* g = w.ui()->VSFlexGrid;
        g->setRow(1);
        {
            frmedit e;
            e.LoadIt(g);
            QCOMPARE(e.ui()->comBrand->currentText(), QString());
            e.ui()->cmdOk->click();  // sold: refused at once, no question
            QCOMPARE(rec.TakeTexts(), QStringList({"对不起，这批货已经出售不能再修改！"}));
            QCOMPARE(TestDb::Count("StoreDetail"), 1);
        }
        // Not sold: the record goes first, then the empty brand stops the new entry.
        sell(guid, -1);
        bool closed = false;
        Modal::Queue([&](QDialog* d) {
            qobject_cast<frmedit*>(d)->ui()->cmdOk->click();
            closed = !d->isVisible();
            if (!closed) d->close();
        });
        w.ui()->cmdedit->click();
        QVERIFY(closed);
        QCOMPARE(rec.TakeTexts(), QStringList({"品牌不能为空！"}));
        QCOMPARE(TestDb::Count("StoreDetail") + TestDb::Count("Store"), 0);
        QVERIFY(g->IsSubtotal(1));
        CS_NO_LEFTOVER_BOXES(rec);
    }
};

CS_TEST(TestBuyInDetail)
#include "tst_buyindetail.moc"
