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

    static int rowOfParent(VSGrid* g, const QString& parent) {
        for (int r = 1; r < g->Rows(); ++r)
            if (g->Cell(r, "ParentGUID") == parent) return r;
        return 0;
    }
    static void sellFromLayer(const QString& storeGuid, int pieces) {
        TestDb::Exec(QString("Update BuyPrice Set Quantity=Quantity-%1 Where StoreGUID='%2'")
                         .arg(pieces)
                         .arg(storeGuid));
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
        QVERIFY(!u->chkTypeNo->isChecked() && !u->chkDate->isChecked());
        QCOMPARE(u->DTEndTime->date(), QDate::currentDate());
        QCOMPARE(u->DTBeginTime->date(), QDate::currentDate().addMonths(-1));
        QCOMPARE(g->Rows(), 5);
        QVERIFY(g->IsSubtotal(4));
        QCOMPARE(g->Cell(4, "货号"), QString("合计"));
        QCOMPARE(g->Cell(4, "数量"), QString("12"));
        QVERIFY(g->ColHidden(g->ColIndex("ParentGUID")) && g->ColHidden(g->ColIndex("GUID")));
        QCOMPARE(g->ColWidth(g->ColIndex("进价")), 1040);

        u->chkTypeNo->setChecked(true);
        u->txtNo->setText("A1");
        u->cmdQuery->click();
        QCOMPARE(g->Cell(g->Rows() - 1, "数量"), QString("7"));
        u->chkDate->setChecked(true);
        u->DTBeginTime->setDate(QDate(2026, 2, 1));
        u->DTEndTime->setDate(QDate(2026, 2, 28));
        u->cmdQuery->click();
        QCOMPARE(g->Rows(), 3);
        QCOMPARE(g->Cell(1, "尺码"), QString("L"));
        QCOMPARE(g->Cell(1, "进货日期"), QString("2026-02-10"));
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
        const QString whole = TestDb::AddGoods("A1", 10, 99, 40);
        MsgRecorder rec;
        frmbuyInDetail w;
        VSGrid* g = w.ui()->VSFlexGrid;
        // 10 taken in, 9 left in the layer: sold. The question comes first.
        sellFromLayer(whole, 1);
        g->setRow(rowOfParent(g, whole));
        rec.Yes();
        w.ui()->cmdDel->click();
        auto boxes = rec.Take();
        QCOMPARE(boxes.size(), 2);
        QCOMPARE(boxes[0].text, QString("确定要删除这次进货吗？"));
        QCOMPARE(boxes[0].title, QString("提示"));
        QCOMPARE(boxes[1].text, QString("对不起，这批货已经出售不能再删除！"));
        QCOMPARE(boxes[1].icon, MsgBox::Icon::Information);
        QCOMPARE(TestDb::Count("StoreDetail"), 1);

        // 10 left: not sold; the record held all of the goods row's stock, so the row goes.
        sellFromLayer(whole, -1);
        rec.No();
        w.ui()->cmdDel->click();
        QCOMPARE(rec.Take().size(), 1);
        QCOMPARE(TestDb::Count("StoreDetail"), 1);
        rec.Yes();
        w.ui()->cmdDel->click();
        QCOMPARE(rec.Take().size(), 1);
        QCOMPARE(TestDb::Count("StoreDetail"), 0);
        QCOMPARE(TestDb::Count("BuyPrice"), 0);
        QCOMPARE(TestDb::Count("Store"), 0);
        QCOMPARE(g->Rows(), 2);
        QCOMPARE(g->Cell(1, "数量"), QString("0"));
        CS_NO_LEFTOVER_BOXES(rec);
    }

    void deleteOneOfTwoStockInsReducesTheGoodsRow() {
        TestDb db;
        const QString guid = TestDb::AddGoods("A1", 5, 99, 40, "M", "黑色", "", "2026-01-05");
        TestDb::Exec("Update Store Set Quantity=8 Where GUID='" + guid + "'");
        TestDb::Exec("Insert Into StoreDetail Values('{D2}','" + guid + "','" + Session::ShopNo +
                     "','A1','T恤','青木','M','黑色','纯棉','一等品',42,3,'广州','','2026-01-06')");
        TestDb::Exec("Insert Into BuyPrice (StoreGUID,Price,Quantity,sDate,ShopNo) Values('" +
                     guid + "',42,3,'2026-01-06','" + Session::ShopNo + "')");
        MsgRecorder rec;
        frmbuyInDetail w;
        VSGrid* g = w.ui()->VSFlexGrid;
        QCOMPARE(g->Rows(), 4);
        int row = 1;
        while (g->Cell(row, "进货日期") != "2026-01-05") ++row;
        g->setRow(row);
        rec.Yes();
        w.ui()->cmdDel->click();
        rec.Take();
        QCOMPARE(TestDb::Scalar("select Quantity from Store where GUID='" + guid + "'"), "3");
        // The other delivery's layer stays.
        QCOMPARE(TestDb::Scalar("select sDate from BuyPrice"), "2026-01-06");
        QCOMPARE(g->Rows(), 3);
        QCOMPARE(g->Cell(2, "数量"), QString("3"));
        // The total row is not a record.
        g->setRow(2);
        w.ui()->cmdDel->click();
        QCOMPARE(TestDb::Count("StoreDetail"), 1);
        CS_NO_LEFTOVER_BOXES(rec);
    }

    void deletingANegativeRestockGivesTheStockBack() {
        TestDb db;
        const QString guid = TestDb::AddGoods("A1", 5, 99, 40, "M", "黑色", "", "2026-01-05");
        TestDb::Exec("Update Store Set Quantity=3 Where GUID='" + guid + "'");
        TestDb::Exec(
            "Insert Into StoreDetail Values('{D2}','" + guid + "','" + Session::ShopNo +
            "','A1','T恤','青木','M','黑色','纯棉','一等品',40,-2,'广州','','2026-01-06')");
        MsgRecorder rec;
        frmbuyInDetail w;
        VSGrid* g = w.ui()->VSFlexGrid;
        int row = 1;
        while (g->Cell(row, "GUID") != "{D2}") ++row;
        g->setRow(row);
        rec.Yes();
        w.ui()->cmdDel->click();
        QCOMPARE(rec.Take().size(), 1);
        QCOMPARE(TestDb::Scalar("select Quantity from Store where GUID='" + guid + "'"), "5");
        // Its layer could not be found: the other delivery's layer stays as it was.
        QCOMPARE(TestDb::Scalar("select Quantity from BuyPrice"), "5");
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
            QCOMPARE(u->txtNo->text(), QString("A1"));
            QCOMPARE(u->txtPrice->text(), QString("40"));
            QCOMPARE(u->txtQuantity->text(), QString("5"));
            QCOMPARE(u->comColour->currentText(), QString("黑色"));
            QCOMPARE(u->comSize->currentText(), QString("M"));
            QCOMPARE(u->comName->currentText(), QString("T恤"));
            QCOMPARE(u->DT->date(), QDate(2026, 1, 5));
            QCOMPARE(e->Price(), 99.0f);
            u->comSize->setCurrentIndex(u->comSize->findText("L"));
            u->txtQuantity->setText("6");
            u->txtPrice->setText("41.5");
            u->txtMemo->setText("改");
            u->cmdOk->click();
            done = true;
        });
        w.ui()->cmdedit->click();
        QVERIFY(done);
        QCOMPARE(Modal::QueuedCount(), 0);

        QCOMPARE(TestDb::Count("Store", "GUID='" + old + "'"), 0);
        Recordset s = TestDb::Query("select * from Store");
        QCOMPARE(s.RecordCount(), 1);
        const QString fresh = s.Text("GUID");
        QCOMPARE(s.Text("Size"), QString("L"));
        QCOMPARE(s.Text("Quantity"), QString("6"));
        QCOMPARE(s.Text("Price"), QString("99"));  // the retail price carries over
        QCOMPARE(s.Text("IDCode"), QString(""));   // the bar code does not
        Recordset d = TestDb::Query("select * from StoreDetail");
        QCOMPARE(d.RecordCount(), 1);
        QCOMPARE(d.Text("ParentGUID"), fresh);
        QCOMPARE(d.Text("Price"), QString("41.5"));
        QCOMPARE(d.Text("Memo"), QString("改"));
        QCOMPARE(TestDb::Scalar("select Quantity from BuyPrice where StoreGUID='" + fresh + "'"),
                 "6");
        QCOMPARE(TestDb::Count("BuyPrice"), 1);

        // The grid holds the new record in the old place, and a fresh total.
        QCOMPARE(g->Rows(), 3);
        QCOMPARE(g->Cell(1, "ParentGUID"), fresh);
        QCOMPARE(g->Cell(1, "GUID"), d.Text("GUID"));
        QCOMPARE(g->Cell(1, "尺码"), QString("L"));
        QCOMPARE(g->Cell(1, "进价"), QString("41.5"));
        QCOMPARE(g->Cell(2, "数量"), QString("6"));
        QVERIFY(g->IsSubtotal(2));
        CS_NO_LEFTOVER_BOXES(rec);
    }

    void editRefusesASoldRecordAndLosesOneThatFailsItsChecks() {
        TestDb db;
        const QString guid = TestDb::AddGoods("A1", 10, 99, 40);
        TestDb::Exec("Update Store Set Brand='旧牌子'");
        TestDb::Exec("Update StoreDetail Set Brand='旧牌子'");
        sellFromLayer(guid, 1);
        MsgRecorder rec;
        frmbuyInDetail w;
        VSGrid* g = w.ui()->VSFlexGrid;
        g->setRow(1);
        {
            frmedit e;
            e.LoadIt(g);
            QCOMPARE(e.ui()->comBrand->currentText(), QString());  // no longer in the list
            e.ui()->cmdOk->click();  // sold: refused at once, no question
            QCOMPARE(rec.TakeTexts(), QStringList({"对不起，这批货已经出售不能再修改！"}));
            QCOMPARE(TestDb::Count("StoreDetail"), 1);
        }
        // Not sold: the record goes first, then the empty brand stops the new entry.
        sellFromLayer(guid, -1);
        bool closed = false;
        Modal::Queue([&](QDialog* d) {
            auto* e = qobject_cast<frmedit*>(d);
            e->ui()->cmdOk->click();
            closed = !e->isVisible();
            if (!closed) e->close();
        });
        w.ui()->cmdedit->click();
        QVERIFY(closed);
        QCOMPARE(rec.TakeTexts(), QStringList({"品牌不能为空！"}));
        QCOMPARE(TestDb::Count("StoreDetail"), 0);
        QCOMPARE(TestDb::Count("Store"), 0);
        QCOMPARE(g->Rows(), 2);
        QVERIFY(g->IsSubtotal(1));

        // The total row loads its texts, and OK does nothing on it.
        g->setRow(1);
        frmedit e;
        e.LoadIt(g);
        QCOMPARE(e.ui()->txtNo->text(), QString("合计"));
        e.ui()->cmdOk->click();
        CS_NO_LEFTOVER_BOXES(rec);
    }
};

CS_TEST(TestBuyInDetail)
#include "tst_buyindetail.moc"
