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

    // The grid row of a goods row, 0 when not listed.
    static int rowOf(VSGrid* g, const QString& guid) {
        for (int r = 1; r < g->Rows(); ++r)
            if (g->Cell(r, "GUID") == guid) return r;
        return 0;
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
        QVERIFY(g->ColHidden(g->ColIndex("GUID")));
        QCOMPARE(g->ColWidth(g->ColIndex("货号")), 1160);
        QCOMPARE(g->TextMatrix(0, 12), QString("柜层"));

        w.ui()->txtNo->setText("10");
        QCOMPARE(g->Rows(), 2);
        QCOMPARE(g->Cell(1, "GUID"), a);
        QCOMPARE(g->Row(), 1);
        QVERIFY(g->ColHidden(g->ColIndex("GUID")));
        // A quote in the search is doubled, not a broken statement.
        w.ui()->txtNo->setText("A'1");
        QCOMPARE(g->Rows(), 1);
        w.ui()->txtNo->clear();
        QCOMPARE(g->Rows(), 3);
        CS_NO_LEFTOVER_BOXES(rec);
    }

    void keysLeadFromSearchToQuantity() {
        TestDb db;
        TestDb::AddGoods("A100", 2, 99, 40);
        frmBuyIn w;
        w.show();
        QApplication::setActiveWindow(&w);
        QVERIFY(QTest::qWaitForWindowActive(&w));
        w.ui()->txtNo->setFocus();
        QTest::keyClick(w.ui()->txtNo, Qt::Key_Down);
        QCOMPARE(QApplication::focusWidget(), static_cast<QWidget*>(w.Grid()));
        QTest::keyClick(w.Grid(), Qt::Key_Return);
        QCOMPARE(QApplication::focusWidget(), static_cast<QWidget*>(w.ui()->txtQuantity));
        QTest::keyClick(w.ui()->txtQuantity, Qt::Key_Return);
        QCOMPARE(QApplication::focusWidget(), static_cast<QWidget*>(w.ui()->DT));
        // With nothing listed, Down stays in the search box.
        w.ui()->txtNo->setText("ZZZ");
        w.ui()->txtNo->setFocus();
        QTest::keyClick(w.ui()->txtNo, Qt::Key_Down);
        QCOMPARE(QApplication::focusWidget(), static_cast<QWidget*>(w.ui()->txtNo));
    }

    void restockAddsALayerAndKeepsTheRetailPrice() {
        TestDb db;
        const QString guid = TestDb::AddGoods("A100", 5, 99, 40);
        MsgRecorder rec;
        frmBuyIn w;
        VSGrid* g = w.Grid();
        g->setRow(rowOf(g, guid));
        w.ui()->DT->setDate(QDate(2026, 3, 7));
        w.ui()->txtPrice->setText("1,000");  // the strict conversion reads the comma
        w.ui()->txtQuantity->setText("3");
        rec.Yes();
        w.ui()->cmdPutIn->click();
        const auto boxes = rec.Take();
        QCOMPARE(boxes.size(), 1);
        QCOMPARE(boxes[0].text, QString("确认要入库吗？"));
        QCOMPARE(boxes[0].title, QString("提示"));
        QCOMPARE(boxes[0].icon, MsgBox::Icon::Question);

        QCOMPARE(TestDb::Scalar("select Quantity from Store where GUID='" + guid + "'"), "8");
        QCOMPARE(TestDb::Scalar("select Price from Store where GUID='" + guid + "'"), "99");
        QCOMPARE(TestDb::Count("BuyPrice", "StoreGUID='" + guid + "'"), 2);
        Recordset layer = TestDb::Query(
            "select Price,Quantity,sDate,ShopNo from BuyPrice where "
            "StoreGUID='" +
            guid + "' order by ID desc");
        QCOMPARE(layer.Text("Price"), QString("1000"));
        QCOMPARE(layer.Text("Quantity"), QString("3"));
        QCOMPARE(layer.Text("sDate"), QString("2026-03-07"));
        QCOMPARE(layer.Text("ShopNo"), Session::ShopNo);
        Recordset detail = TestDb::Query("select * from StoreDetail where ParentGUID='" + guid +
                                         "' and DateTime='2026-03-07'");
        QVERIFY(!detail.Eof());
        QCOMPARE(detail.Text("Price"), QString("1000"));
        QCOMPARE(detail.Text("Quantity"), QString("3"));
        QCOMPARE(detail.Text("Memo"), QString(""));
        QCOMPARE(detail.Text("Name"), QString("T恤"));
        QVERIFY(detail.Text("GUID") != guid);

        QCOMPARE(g->Cell(g->Row(), "数量"), QString("8"));
        QVERIFY(w.ui()->txtPrice->text().isEmpty());
        QVERIFY(w.ui()->txtQuantity->text().isEmpty());
        QCOMPARE(w.ui()->DT->date(), QDate(2026, 3, 7));
        CS_NO_LEFTOVER_BOXES(rec);
    }

    void restockChecksAndRefusals() {
        TestDb db;
        const QString guid = TestDb::AddGoods("A100", 5, 99, 40);
        MsgRecorder rec;
        frmBuyIn w;
        // Checks in order: the cost first, then the quantity.
        w.ui()->txtPrice->setText("12a");
        w.ui()->txtQuantity->setText("x");
        w.ui()->cmdPutIn->click();
        w.ui()->txtPrice->setText("12");
        w.ui()->cmdPutIn->click();
        const auto boxes = rec.Take();
        QCOMPARE(boxes.size(), 2);
        for (const auto& b : boxes) {
            QCOMPARE(b.text, QString("数据类型不正确！"));
            QCOMPARE(b.icon, MsgBox::Icon::Information);
        }
        // No to the question writes nothing.
        w.ui()->txtQuantity->setText("4");
        rec.No();
        w.ui()->cmdPutIn->click();
        QCOMPARE(rec.Take().size(), 1);
        QCOMPARE(TestDb::Count("BuyPrice"), 1);
        QCOMPARE(w.ui()->txtQuantity->text(), QString("4"));

        // An empty list: nothing happens, silently.
        w.ui()->txtNo->setText("nothing like it");
        QCOMPARE(w.Grid()->Rows(), 1);
        w.ui()->cmdPutIn->click();
        CS_NO_LEFTOVER_BOXES(rec);
        QCOMPARE(TestDb::Count("StoreDetail"), 1);
    }

    void negativeAndFractionalRestock() {
        TestDb db;
        const QString guid = TestDb::AddGoods("A100", 5, 99, 40);
        MsgRecorder rec;
        frmBuyIn w;
        w.ui()->txtPrice->setText("40");
        w.ui()->txtQuantity->setText("-2");
        rec.Yes();
        w.ui()->cmdPutIn->click();
        rec.Take();
        QCOMPARE(TestDb::Scalar("select Quantity from Store where GUID='" + guid + "'"), "3");
        QCOMPARE(TestDb::Scalar("select Quantity from BuyPrice where StoreGUID='" + guid +
                                "' order by ID desc"),
                 "-2");
        QCOMPARE(w.Grid()->Cell(1, "数量"), QString("3"));
        w.ui()->txtPrice->setText("40");
        w.ui()->txtQuantity->setText("1.5");
        rec.Yes();
        w.ui()->cmdPutIn->click();
        rec.Take();
        QCOMPARE(TestDb::Scalar("select Quantity from Store where GUID='" + guid + "'"), "4.5");
        QCOMPARE(w.Grid()->Cell(1, "数量"), QString("4.5"));
        CS_NO_LEFTOVER_BOXES(rec);
    }

    void quoteInTheKindBreaksTheHistoryRowOnly() {
        TestDb db;
        TestDb::Exec("Insert Into Store Values('{Q}','" + Session::ShopNo +
                     "','O''K','T''恤','青''木','M','黑色','纯棉','一等品','广州',1,10,'','')");
        MsgRecorder rec;
        frmBuyIn w;
        w.ui()->txtPrice->setText("5");
        w.ui()->txtQuantity->setText("2");
        rec.Yes();
        w.ui()->cmdPutIn->click();
        const auto boxes = rec.Take();
        QCOMPARE(boxes.size(), 2);  // the question, then the engine's text
        QCOMPARE(boxes[1].icon, MsgBox::Icon::None);
        // The statements before and after the broken one ran.
        QCOMPARE(TestDb::Scalar("select Quantity from Store where GUID='{Q}'"), "3");
        QCOMPARE(TestDb::Count("StoreDetail", "ParentGUID='{Q}'"), 0);
        QCOMPARE(TestDb::Count("BuyPrice", "StoreGUID='{Q}'"), 1);
        CS_NO_LEFTOVER_BOXES(rec);
    }
};

CS_TEST(TestBuyIn)
#include "tst_buyin.moc"
