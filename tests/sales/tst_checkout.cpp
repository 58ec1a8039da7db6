// Checkout: the sale lines written one per piece, the stock and the cost
// layers lowered, the window reset, and the numbering of sales.
#include <QTest>

#include "DateText.h"
#include "MsgRecorder.h"
#include "RecordingPrinter.h"
#include "SaleWindow.h"
#include "Session.h"
#include "TestDb.h"
#include "TestRegistry.h"
#include "ui_frmSell.h"

using MsgBox::Icon;

namespace {
// A goods row with an older layer of 1 piece at 50 and a newer one of 5 at 60.
QString TwoLayers(const QString& typeNo) {
    const QString guid = TestDb::AddGoods(typeNo, 1, 100, 50, "M", "黑色", "", "2026-01-05");
    TestDb::Exec("Insert Into BuyPrice (StoreGUID,Price,Quantity,sDate,ShopNo) Values('" + guid +
                 "',60,5,'2026-03-01','" + Session::ShopNo + "')");
    TestDb::Exec("Update Store Set Quantity=6 Where GUID='" + guid + "'");
    return guid;
}

QString Layers(const QString& guid) {
    QStringList q;
    for (Recordset rs = TestDb::Query("Select Quantity from BuyPrice Where StoreGUID='" + guid +
                                      "' Order By sDate");
         !rs.Eof(); rs.MoveNext())
        q << rs.Text(0);
    return q.join('/');
}

QString Costs(const QString& guid) {
    QStringList c;
    for (Recordset rs = TestDb::Query("Select BuyPrice from Sell Where StoreGUID='" + guid + "'");
         !rs.Eof(); rs.MoveNext())
        c << rs.Text(0);
    return c.join('/');
}

// Pays and confirms the checkout.
void CheckOut(SaleWindow& s, MsgRecorder& rec, const QString& paid) {
    s.ui->txtReciveAmout->setText(paid);
    rec.Yes();
    s.Enter(s.ui->txtReciveAmout);
    const auto boxes = rec.Take();
    QCOMPARE(boxes.size(), 1);
    QCOMPARE(boxes[0].text, QString("确认要结帐吗？"));
    QCOMPARE(boxes[0].title, QString("询问"));
    QCOMPARE(boxes[0].buttons, MsgBox::Buttons::YesNo);
}
}  // namespace

class TestCheckout : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void firstInFirstOutOverTwoLayers() {
        TestDb db;
        const QString g = TwoLayers("L1");
        MsgRecorder rec;
        SaleWindow s;
        s.SellAt("L1", "2", "全");
        CheckOut(s, rec, "200");
        QCOMPARE(Costs(g), QString("50/60"));
        QCOMPARE(Layers(g), QString("0/4"));
        QCOMPARE(TestDb::Scalar("Select Quantity from Store Where GUID='" + g + "'"), QString("4"));
        CS_NO_LEFTOVER_BOXES(rec);
    }

    void lastInFirstOutOverTwoLayers() {
        TestDb db;
        Session::SellRole().SellOrder = 1;
        const QString g = TwoLayers("L2");
        MsgRecorder rec;
        SaleWindow s;
        s.SellAt("L2", "2", "全");
        CheckOut(s, rec, "200");
        QCOMPARE(Costs(g), QString("60/60"));
        QCOMPARE(Layers(g), QString("1/3"));
        CS_NO_LEFTOVER_BOXES(rec);
    }

    // Every column of the sale line, the grid's figure and the reset.
    void saleLinesAndReset() {
        TestDb db;
        const QString g = TestDb::AddGoods("K01", 5, 99, 40, "XL", "蓝色", "690");
        TestDb::Exec("Update Store Set TypeNo='K''01' Where GUID='" + g + "'");
        const QString layer = TestDb::Scalar("Select ID from BuyPrice Where StoreGUID='" + g + "'");
        MsgRecorder rec;
        PrinterScope printer;
        SaleWindow s;
        const QString no = s.ui->lbNo->text();
        s.SellAt("K'01", "2", "8.5");
        QCOMPARE(s.ui->lbAmount->text(), QString("168"));
        CheckOut(s, rec, "200");

        Recordset rs = TestDb::Query("Select * from Sell Order By GUID");
        QCOMPARE(rs.RecordCount(), 2);
        QCOMPARE(rs.Text("StoreGUID"), g);
        QCOMPARE(rs.Text("ShopNo"), Session::ShopNo);
        QCOMPARE(rs.Text("TypeNo"), QString("K'01"));
        QCOMPARE(rs.Text("Name"), QString("T恤"));
        QCOMPARE(rs.Text("Size"), QString("XL"));
        QCOMPARE(rs.Text("Colour"), QString("蓝色"));
        QCOMPARE(rs.Text("ProductPlace"), QString("广州"));
        QCOMPARE(rs.Text("Quantity"), QString("1"));
        QCOMPARE(rs.Text("Price"), QString("99"));
        QCOMPARE(rs.Text("Abate"), QString("8.5"));
        QCOMPARE(rs.Text("Amount"), QString("84"));
        QCOMPARE(rs.Text("BuyPrice"), QString("40"));
        QCOMPARE(rs.Text("Seller"), Session::User().No);
        QCOMPARE(rs.Text("SellerName"), Session::User().Name);
        QCOMPARE(rs.Text("DateTime"), DateText::Today());
        QCOMPARE(rs.Text("SellNo"), no);
        QCOMPARE(rs.Text("BuyPriceID"), layer);
        QCOMPARE(rs.Text("State"), QString("0"));
        QCOMPARE(rs.Text("Money1"), QString("200"));
        QCOMPARE(rs.Text("Money2"), QString("32"));
        QCOMPARE(rs.Text("GUID").size(), 38);
        QCOMPARE(TestDb::Scalar("Select Quantity from Store Where GUID='" + g + "'"), QString("3"));
        // The rules deliver no receipt.
        QVERIFY(printer->ops.isEmpty());

        // The grid's figure is lowered without a new query.
        QCOMPARE(s.ui->VSFlexGrid->Cell(1, "数量"), QString("3"));
        QCOMPARE(s.ui->txtNo->text(), QString("K'01"));
        QCOMPARE(s.Pieces(), 0);
        QCOMPARE(s.ui->lbAmount->text(), QString());
        QCOMPARE(s.ui->txtReciveAmout->text(), QString());
        QCOMPARE(s.ui->lb->text(), QString());
        QCOMPARE(s.ui->txtQuatity->text(), QString("1"));
        QCOMPARE(s.ui->txtAbate->text(), QString("8.5"));  // the discount stays
        QCOMPARE(s.Focus(), s.ui->txtNo);
        QCOMPARE(s.ui->lbNo->text(), DateText::TodayKey() + "0002");
        CS_NO_LEFTOVER_BOXES(rec);
    }

    // A piece with no layer left costs 0 and carries the layer number of the
    // piece before it (0 for the first piece).
    void pieceWithoutLayer() {
        TestDb db;
        const QString a = TestDb::AddGoods("N1", 3, 100, 45);
        const QString b = TestDb::AddGoods("N2", 3, 100, 30);
        TestDb::Exec("Update BuyPrice Set Quantity=0 Where StoreGUID='" + b + "'");
        const QString layerA =
            TestDb::Scalar("Select ID from BuyPrice Where StoreGUID='" + a + "'");
        MsgRecorder rec;
        SaleWindow s;
        s.SellAt("N2", "1", "全");
        s.SellAt("N1", "1", "全");
        s.SellAt("N2", "1", "全");
        CheckOut(s, rec, "300");
        Recordset rs = TestDb::Query("Select StoreGUID,BuyPrice,BuyPriceID from Sell");
        QStringList lines;
        for (; !rs.Eof(); rs.MoveNext())
            lines << (rs.Text(0) == a ? "N1" : "N2") + QString(":") + rs.Text(1) + ":" + rs.Text(2);
        QCOMPARE(lines, (QStringList{"N2:0:0", "N1:45:" + layerA, "N2:0:" + layerA}));
        // Stock still falls for every piece.
        QCOMPARE(TestDb::Scalar("Select Quantity from Store Where GUID='" + b + "'"), QString("1"));
        CS_NO_LEFTOVER_BOXES(rec);
    }

    // Refusals and second thoughts change nothing.
    void paymentShortAndNo() {
        TestDb db;
        TestDb::AddGoods("C1", 5, 100, 45);
        MsgRecorder rec;
        SaleWindow s;
        s.ui->cmdCheckOut->click();  // empty list: silently nothing
        QVERIFY(rec.Take().isEmpty());
        s.SellAt("C1", "1", "全");
        s.ui->txtReciveAmout->setText("50");
        s.ui->cmdCheckOut->click();
        auto boxes = rec.Take();
        QCOMPARE(boxes.size(), 1);
        QCOMPARE(boxes[0].text, QString("对不起所付金额不足，不能结帐！"));
        QCOMPARE(boxes[0].icon, Icon::Exclamation);
        QCOMPARE(s.Focus(), s.ui->txtReciveAmout);
        s.ui->txtReciveAmout->setText("100");
        rec.No();
        s.Enter(s.ui->txtReciveAmout);
        QCOMPARE(rec.TakeTexts(), QStringList{"确认要结帐吗？"});
        QCOMPARE(TestDb::Count("Sell"), 0);
        QCOMPARE(s.Pieces(), 1);
        QCOMPARE(s.ui->txtReciveAmout->text(), QString("100"));
        QCOMPARE(s.ui->lb->text(), QString("0"));
        // Exact payment: change 0 in the sale line.
        rec.Yes();
        s.Enter(s.ui->txtReciveAmout);
        rec.Take();
        QCOMPARE(TestDb::Scalar("Select Money2 from Sell"), QString("0"));
        CS_NO_LEFTOVER_BOXES(rec);
    }

    // Trailing rubbish in the payment passes the test but breaks the insert:
    // stock and layers are lowered all the same, the list is cleared.
    void rubbishPaymentBreaksTheInsert() {
        TestDb db;
        const QString g = TestDb::AddGoods("B1", 5, 10, 4);
        MsgRecorder rec;
        SaleWindow s;
        s.SellAt("B1", "1", "全");
        s.ui->txtReciveAmout->setText("12a");
        rec.Yes();
        s.ui->cmdCheckOut->click();
        const auto texts = rec.TakeTexts();
        QCOMPARE(texts.size(), 2);
        QCOMPARE(texts[0], QString("确认要结帐吗？"));
        QCOMPARE(TestDb::Count("Sell"), 0);
        QCOMPARE(TestDb::Scalar("Select Quantity from Store Where GUID='" + g + "'"), QString("4"));
        QCOMPARE(Layers(g), QString("4"));
        QCOMPARE(s.Pieces(), 0);
        CS_NO_LEFTOVER_BOXES(rec);
    }

    // Numbers: "0001" first, one above the day's highest, voided ones kept used.
    void saleNumbers() {
        TestDb db;
        TestDb::AddGoods("S1", 9, 10, 4);
        MsgRecorder rec;
        const QString key = DateText::TodayKey();
        {
            SaleWindow s;
            QCOMPARE(s.ui->lbNo->text(), key + "0001");
            s.SellAt("S1", "1", "全");
            CheckOut(s, rec, "10");
            QCOMPARE(s.ui->lbNo->text(), key + "0002");
        }
        TestDb::Exec("Update Sell Set State=3");
        {
            SaleWindow s;
            QCOMPARE(s.ui->lbNo->text(), key + "0002");
        }
        // Another day's or another shop's numbers do not count.
        TestDb::Exec("Insert Into Sell (SellNo,ShopNo,State) Values('" + key + "0009','" +
                     Session::ShopNo + "',0)");
        TestDb::Exec("Insert Into Sell (SellNo,ShopNo,State) Values('" + key +
                     "0050','{OTHER}',0)");
        TestDb::Exec("Insert Into Sell (SellNo,ShopNo,State) Values('209901010077','" +
                     Session::ShopNo + "',0)");
        {
            SaleWindow s;
            QCOMPARE(s.ui->lbNo->text(), key + "0010");
        }
        CS_NO_LEFTOVER_BOXES(rec);
    }
};

CS_TEST(TestCheckout)
#include "tst_checkout.moc"
