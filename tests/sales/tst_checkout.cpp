// Checkout: one sale line per piece, stock and cost layers lowered, the
// window reset, and the numbering of sales.
#include <QTest>

#include "DateText.h"
#include "MsgRecorder.h"
#include "RecordingPrinter.h"
#include "SaleWindow.h"
#include "Session.h"
#include "TestDb.h"
#include "TestRegistry.h"
#include "ui_frmSell.h"

namespace {
// A goods row with an older layer of 1 piece at 50 and a newer one of 5 at 60.
QString TwoLayers() {
    const QString guid = TestDb::AddGoods("L1", 1, 100, 50, "M", "黑色", "", "2026-01-05");
    TestDb::Exec("Insert Into BuyPrice (StoreGUID,Price,Quantity,sDate,ShopNo) Values('" + guid +
                 "',60,5,'2026-03-01','" + Session::ShopNo + "')");
    TestDb::Exec("Update Store Set Quantity=6 Where GUID='" + guid + "'");
    return guid;
}

// A column of a query, joined by "/".
QString Column(const QString& sql) {
    QStringList out;
    for (Recordset rs = TestDb::Query(sql); !rs.Eof(); rs.MoveNext()) out << rs.Text(0);
    return out.join('/');
}
}  // namespace

class TestCheckout : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void costLayersFirstAndLastInFirstOut() {
        for (int order : {0, 1}) {
            TestDb db;
            Session::SellRole().SellOrder = order;
            const QString g = TwoLayers();
            MsgRecorder rec;
            SaleWindow s;
            s.SellAt("L1", "2", "全");
            s.CheckOut(rec, "200");
            QCOMPARE(Said(rec), QStringList{"Q:确认要结帐吗？"});
            const QString costs = Column("Select BuyPrice from Sell");
            const QString left = Column("Select Quantity from BuyPrice Order By sDate");
            QCOMPARE(costs + " " + left, QString(order == 0 ? "50/60 0/4" : "60/60 1/3"));
            QCOMPARE(Column("Select Quantity from Store"), QString("4"));
        }
    }

    // Every column of the sale line, the grid's figure and the reset.
    void saleLinesAndReset() {
        TestDb db;
        const QString g = TestDb::AddGoods("K01", 5, 99, 40, "XL", "蓝色", "690");
        TestDb::Exec("Update Store Set TypeNo='K''01'");
        const QString layer = Column("Select ID from BuyPrice");
        MsgRecorder rec;
        PrinterScope printer;  // the delivered rules print nothing
        SaleWindow s;
        const QString no = s.ui->lbNo->text();
        QCOMPARE(no, DateText::TodayKey() + "0001");
        s.SellAt("K'01", "2", "8.5");
        s.CheckOut(rec, "200");
        rec.Take();

        Recordset rs = TestDb::Query("Select * from Sell");
        QCOMPARE(rs.RecordCount(), 2);
        QStringList values;
        for (int i = 1; i < rs.FieldCount(); ++i) values << rs.Text(i);
        QCOMPARE(values, (QStringList{g,
                                      Session::ShopNo,
                                      "K'01",
                                      "T恤",
                                      "青木",
                                      "XL",
                                      "蓝色",
                                      "纯棉",
                                      "一等品",
                                      "广州",
                                      "1",
                                      "99",
                                      "8.5",
                                      "84",
                                      "40",
                                      Session::User().No,
                                      DateText::Today(),
                                      no,
                                      layer,
                                      Session::User().Name,
                                      "0",
                                      "200",
                                      "32"}));
        QCOMPARE(rs.Text("GUID").size(), 38);
        QCOMPARE(Column("Select Quantity from Store"), QString("3"));
        QVERIFY(printer->ops.isEmpty());

        // The grid's figure is lowered without a new query; the discount stays.
        auto* ui = s.ui;
        QCOMPARE(ui->VSFlexGrid->Cell(1, "数量"), QString("3"));
        QCOMPARE(QStringList({ui->txtNo->text(), ui->lbAmount->text(), ui->txtReciveAmout->text(),
                              ui->lb->text(), ui->txtQuatity->text(), ui->txtAbate->text()}),
                 (QStringList{"K'01", "", "", "", "1", "8.5"}));
        QCOMPARE(s.Pieces(), 0);
        QCOMPARE(s.Focus(), ui->txtNo);
        QCOMPARE(ui->lbNo->text(), DateText::TodayKey() + "0002");
        CS_NO_LEFTOVER_BOXES(rec);
    }

    // A piece with no layer left costs 0 and carries the layer number of the
    // piece before it (0 for the first piece); stock still falls.
    void pieceWithoutLayer() {
        TestDb db;
        TestDb::AddGoods("N1", 3, 100, 45);
        const QString b = TestDb::AddGoods("N2", 3, 100, 30);
        TestDb::Exec("Update BuyPrice Set Quantity=0 Where StoreGUID='" + b + "'");
        const QString layer = Column("Select ID from BuyPrice Where Quantity>0");
        MsgRecorder rec;
        SaleWindow s;
        s.SellAt("N2", "1", "全");
        s.SellAt("N1", "1", "全");
        s.SellAt("N2", "1", "全");
        s.CheckOut(rec, "300");
        rec.Take();
        QCOMPARE(Column("Select TypeNo||':'||BuyPrice||':'||BuyPriceID from Sell"),
                 "N2:0:0/N1:45:" + layer + "/N2:0:" + layer);
        QCOMPARE(Column("Select Quantity from Store Where GUID='" + b + "'"), QString("1"));
        CS_NO_LEFTOVER_BOXES(rec);
    }

    // Refusals and second thoughts change nothing; rubbish behind the
    // payment passes the test and breaks the insert after stock and layers
    // were lowered.
    void paymentRefusalsAndFailures() {
        TestDb db;
        TestDb::AddGoods("C1", 5, 100, 45);
        MsgRecorder rec;
        SaleWindow s;
        s.ui->cmdCheckOut->click();  // empty list: silently nothing
        s.SellAt("C1", "1", "全");
        s.ui->txtReciveAmout->setText("50");
        s.ui->cmdCheckOut->click();
        QCOMPARE(Said(rec), QStringList{"W:对不起所付金额不足，不能结帐！"});
        QCOMPARE(s.Focus(), s.ui->txtReciveAmout);
        s.ui->txtReciveAmout->setText("100");
        rec.No();
        s.Enter(s.ui->txtReciveAmout);
        QCOMPARE(Said(rec), QStringList{"Q:确认要结帐吗？"});
        QCOMPARE(TestDb::Count("Sell"), 0);
        QCOMPARE(s.Pieces(), 1);
        QCOMPARE(s.ui->txtReciveAmout->text(), QString("100"));

        s.CheckOut(rec, "100a");
        QCOMPARE(Said(rec).size(), 2);  // the question, then the engine's text
        QCOMPARE(TestDb::Count("Sell"), 0);
        QCOMPARE(Column("Select Quantity from Store") + Column("Select Quantity from BuyPrice"),
                 QString("44"));
        QCOMPARE(s.Pieces(), 0);
        CS_NO_LEFTOVER_BOXES(rec);
    }

    // One above the day's highest number of the shop; voided ones stay used.
    void saleNumbers() {
        TestDb db;
        TestDb::AddGoods("S1", 9, 10, 4);
        MsgRecorder rec;
        const QString key = DateText::TodayKey();
        {
            SaleWindow s;
            s.SellAt("S1", "1", "全");
            s.CheckOut(rec, "10");
            rec.Take();
            QCOMPARE(Column("Select Money2 from Sell"), QString("0"));  // exact payment
        }
        TestDb::Exec("Update Sell Set State=3");
        QCOMPARE(SaleWindow().ui->lbNo->text(), key + "0002");
        const QString sells[][2] = {{key + "0009", Session::ShopNo},
                                    {key + "0050", "{OTHER}"},
                                    {"209901010077", Session::ShopNo}};
        for (const auto& [no, shop] : sells)
            TestDb::Exec("Insert Into Sell (SellNo,ShopNo,State) Values('" + no + "','" + shop +
                         "',0)");
        QCOMPARE(SaleWindow().ui->lbNo->text(), key + "0010");
        CS_NO_LEFTOVER_BOXES(rec);
    }
};

CS_TEST(TestCheckout)
#include "tst_checkout.moc"
