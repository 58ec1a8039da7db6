// The stock-in window: the goods list, its search, and the restock of a row.
#include <QTest>

#include "MsgRecorder.h"
#include "Session.h"
#include "TestDb.h"
#include "TestRegistry.h"
#include "VSGrid.h"
#include "frmBuyIn.h"
#include "ui_frmBuyIn.h"

class TestBuyIn : public QObject {
    Q_OBJECT

    static QString storeQty(const QString& guid) {
        return TestDb::Scalar("select Quantity from Store where GUID='" + guid + "'");
    }
    static void restock(frmBuyIn& w, MsgRecorder& rec, const QString& cost, const QString& qty) {
        w.ui()->txtPrice->setText(cost);
        w.ui()->txtQuantity->setText(qty);
        rec.Yes();
        w.ui()->cmdPutIn->click();
    }

private Q_SLOTS:
    void listsTheShopAndNarrowsByNumber() {
        TestDb db;
        const QString a = TestDb::AddGoods("A100", 2, 99, 40);
        TestDb::AddGoods("B200", 0, 50, 20);  // no stock: listed too
        TestDb::Exec(
            "Insert Into Store Values('{OTHER}','{ANOTHER-SHOP}','A100','T恤','青木','M',"
            "'黑色','纯棉','一等品','广州',5,99,'','')");
        MsgRecorder rec;
        frmBuyIn w;
        VSGrid* g = w.Grid();
        QCOMPARE(g->Rows(), 3);
        w.ui()->txtNo->setText("10");
        QCOMPARE(g->Rows(), 2);
        QCOMPARE(g->Cell(1, "GUID"), a);
        QVERIFY(g->ColHidden(g->ColIndex("GUID")));
        w.ui()->txtNo->setText("A'1");  // doubled, not a broken statement
        QCOMPARE(g->Rows(), 1);
        w.ui()->txtNo->clear();
        QCOMPARE(g->Rows(), 3);
        CS_NO_LEFTOVER_BOXES(rec);
    }

    void restockAddsALayerAndKeepsTheRetailPrice() {
        TestDb db;
        const QString guid = TestDb::AddGoods("A100", 5, 99, 40);
        MsgRecorder rec;
        frmBuyIn w;
        w.ui()->DT->setDate(QDate(2026, 3, 7));
        restock(w, rec, "1,000", "3");  // the strict conversion reads the comma
        const auto boxes = rec.Take();
        QCOMPARE(boxes.size(), 1);
        QCOMPARE(boxes[0].text, QString("确认要入库吗？"));
        QCOMPARE(boxes[0].title, QString("提示"));

        QCOMPARE(storeQty(guid), QString("8"));
        QCOMPARE(TestDb::Scalar("select Price from Store where GUID='" + guid + "'"), "99");
        Recordset layer = TestDb::Query(
            "select Price,Quantity,sDate from BuyPrice where "
            "StoreGUID='" +
            guid + "' order by ID");
        QCOMPARE(layer.RecordCount(), 2);
        layer.MoveNext();
        QCOMPARE(layer.Text("Price") + "|" + layer.Text("Quantity") + "|" + layer.Text("sDate"),
                 QString("1000|3|2026-03-07"));
        Recordset detail = TestDb::Query(
            "select Price,Quantity,Memo from StoreDetail where "
            "ParentGUID='" +
            guid + "' and DateTime='2026-03-07'");
        QCOMPARE(detail.Text(0) + "|" + detail.Text(1) + "|" + detail.Text(2), QString("1000|3|"));

        QCOMPARE(w.Grid()->Cell(1, "数量"), QString("8"));
        QVERIFY(w.ui()->txtPrice->text().isEmpty() && w.ui()->txtQuantity->text().isEmpty());
        CS_NO_LEFTOVER_BOXES(rec);
    }

    void checksRefusalsAndOddQuantities() {
        TestDb db;
        const QString guid = TestDb::AddGoods("A100", 5, 99, 40);
        MsgRecorder rec;
        frmBuyIn w;
        w.ui()->txtPrice->setText("12a");
        w.ui()->cmdPutIn->click();
        w.ui()->txtPrice->setText("12");
        w.ui()->txtQuantity->setText("x");
        w.ui()->cmdPutIn->click();
        QCOMPARE(rec.TakeTexts(), QStringList({"数据类型不正确！", "数据类型不正确！"}));
        w.ui()->txtQuantity->setText("4");
        rec.No();
        w.ui()->cmdPutIn->click();
        rec.Take();
        QCOMPARE(TestDb::Count("BuyPrice"), 1);

        // A negative restock passes and makes a negative layer; fractions pass.
        restock(w, rec, "40", "-2");
        QCOMPARE(storeQty(guid), QString("3"));
        QCOMPARE(TestDb::Scalar("select min(Quantity) from BuyPrice"), "-2");
        restock(w, rec, "40", "1.5");
        QCOMPARE(storeQty(guid), QString("4.5"));
        QCOMPARE(w.Grid()->Cell(1, "数量"), QString("4.5"));
        rec.Take();

        // An empty list: nothing happens, silently.
        w.ui()->txtNo->setText("nothing like it");
        restock(w, rec, "1", "1");
        QCOMPARE(rec.UnusedAnswers(), 1);
        CS_NO_LEFTOVER_BOXES(rec);
    }

    void quoteInTheKindBreaksTheHistoryRowOnly() {
        TestDb db;
        TestDb::Exec("Insert Into Store Values('{Q}','" + Session::ShopNo +
                     "','O''K','T''恤','青''木','M','黑色','纯棉','一等品','广州',1,10,'','')");
        MsgRecorder rec;
        frmBuyIn w;
        restock(w, rec, "5", "2");
        const auto boxes = rec.Take();
        QCOMPARE(boxes.size(), 2);  // the question, then the engine's text
        QCOMPARE(storeQty("{Q}"), QString("3"));
        QCOMPARE(TestDb::Count("StoreDetail", "ParentGUID='{Q}'"), 0);
        QCOMPARE(TestDb::Count("BuyPrice", "StoreGUID='{Q}'"), 1);
        CS_NO_LEFTOVER_BOXES(rec);
    }
};

CS_TEST(TestBuyIn)
#include "tst_buyin.moc"
