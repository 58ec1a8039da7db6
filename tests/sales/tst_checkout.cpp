// After the sale: checkout writing one line per piece and lowering stock and
// cost layers, the numbering of sales, and voiding sold pieces.
#include <QComboBox>
#include <QDateEdit>

#include "DateText.h"
#include "SaleWindow.h"
#include "Session.h"
#include "TestRegistry.h"
#include "frmBlankOutQuery.h"
#include "frmBlankout.h"
#include "ui_frmBlankOutQuery.h"
#include "ui_frmBlankout.h"

namespace {
// Looks up a sale in the void window; voids the current row.
void Find(frmBlankout& w, const QString& no) {
    w.ui()->txtSellNo->setText(no);
    w.ui()->txtSellNo->setFocus();
    QTest::keyClick(w.ui()->txtSellNo, Qt::Key_Return);
}
// Sells three pieces at the counter; returns the sale's number.
QString SellThree(MsgRecorder& rec, const QString& typeNo, const QString& abate) {
    SaleWindow s;
    const QString no = s.ui->lbNo->text();
    s.Sell(typeNo, "3", abate);
    s.CheckOut(rec, "999");
    rec.Take();
    return no;
}
void Void(frmBlankout& w, MsgRecorder& rec, bool yes = true) {
    yes ? rec.Yes() : rec.No();
    w.ui()->cmdOk->click();
    QCOMPARE(Said(rec), QStringList{"Q:确认要作废该次售货吗？"});
}

QStringList Fields(Recordset& rs) {
    QStringList values;
    for (int i = 1; i < rs.FieldCount(); ++i) values << rs.Text(i);
    return values;
}
}  // namespace

class TestCheckout : public QObject {
    Q_OBJECT
private Q_SLOTS:
    // Two pieces over an older layer of 1 at 50 and a newer one of 5 at 60.
    void costLayersFirstAndLastInFirstOut() {
        for (int order : {0, 1}) {
            TestDb db;
            Session::SellRole().SellOrder = order;
            const QString g = TestDb::AddGoods("L1", 1, 100, 50, "M", "黑色", "", "2026-01-05");
            TestDb::Exec("Insert Into BuyPrice (StoreGUID,Price,Quantity,sDate,ShopNo) Values('" +
                         g + "',60,5,'2026-03-01','" + Session::ShopNo + "')");
            TestDb::Exec("Update Store Set Quantity=6");
            MsgRecorder rec;
            SaleWindow s;
            s.Sell("L1", "2", "全");
            s.CheckOut(rec, "200");
            QCOMPARE(Said(rec), QStringList{"Q:确认要结帐吗？"});
            QCOMPARE(Column("Select BuyPrice from Sell"),
                     order == 0 ? QStringList({"50", "60"}) : QStringList({"60", "60"}));
            QCOMPARE(Column("Select Quantity from BuyPrice Order By sDate"),
                     order == 0 ? QStringList({"0", "4"}) : QStringList({"1", "3"}));
            QCOMPARE(TestDb::Scalar("Select Quantity from Store"), QString("4"));
        }
    }

    // First in, first out goes by the layers' dates, not by the order they
    // were entered in: a delivery typed in late but dated early goes first.
    void layersByDateNotByEntry() {
        TestDb db;
        Session::SellRole().SellOrder = 0;
        const QString g = TestDb::AddGoods("F1", 2, 100, 70, "M", "黑色", "", "2026-05-01");
        TestDb::Exec("Insert Into BuyPrice (StoreGUID,Price,Quantity,sDate,ShopNo) Values('" + g +
                     "',55,2,'2026-02-01','" + Session::ShopNo + "')");
        TestDb::Exec("Update Store Set Quantity=4");
        MsgRecorder rec;
        SaleWindow s;
        s.Sell("F1", "3", "全");
        s.CheckOut(rec, "300");
        rec.Take();
        QCOMPARE(Column("Select BuyPrice from Sell Order By BuyPrice"),
                 QStringList({"55", "55", "70"}));
        QCOMPARE(Column("Select Quantity from BuyPrice Order By ID"), QStringList({"1", "0"}));
    }

    // The change of a payment is written as the classic run-time writes a
    // double: on the label, in the sale line and on the receipt.
    void changeWithoutBinaryNoise() {
        TestDb db;
        TestDb::AddGoods("G84", 3, 84, 40);
        Session::SellRole().IsPrint = true;
        Session::SellRole().PrinterType = 1;
        PrinterScope printer;
        MsgRecorder rec;
        SaleWindow s;
        s.Sell("G84", "1", "全");
        s.ui->txtReciveAmout->setText("99.9");
        QCOMPARE(s.ui->lb->text(), QString("15.9"));
        s.CheckOut(rec, "99.9");
        rec.Take();
        QCOMPARE(TestDb::Scalar("Select Money2 from Sell"), QString("15.9"));
        QCOMPARE(TestDb::Scalar("Select Money1 from Sell"), QString("99.9"));
        const QString slip = printer->texts.join(QString());
        QVERIFY(slip.contains("找回金额：15.9\r\n"));
    }

    // Every column of a sale line; the window is reset for the next sale.
    // The next number is one above the day's highest of the shop, voided
    // sales included.
    void saleLinesAndReset() {
        TestDb db;
        const QString g = TestDb::AddGoods("K01", 5, 99, 40, "XL", "蓝色", "690");
        TestDb::Exec("Update Store Set TypeNo='K''01'");
        const QString layer = TestDb::Scalar("Select ID from BuyPrice");
        MsgRecorder rec;
        const QString key = DateText::TodayKey();
        SaleWindow s;
        const QString no = s.ui->lbNo->text();
        QCOMPARE(no, key + "0001");
        s.Sell("K'01", "2", "8.5");
        s.CheckOut(rec, "200");
        rec.Take();
        Recordset rs = TestDb::Query("Select * from Sell");
        QCOMPARE(rs.RecordCount(), 2);
        QCOMPARE(Fields(rs), QStringList({g,
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
        QCOMPARE(TestDb::Scalar("Select Quantity from Store"), QString("3"));
        QCOMPARE(s.ui->VSFlexGrid->Cell(1, "数量"), QString("3"));
        QCOMPARE(s.ui->lbAmount->text(), QString());
        QCOMPARE(s.ui->txtReciveAmout->text(), QString());
        QCOMPARE(s.ui->lb->text(), QString());
        QCOMPARE(s.Pieces(), 0);
        QCOMPARE(s.Focus(), s.ui->txtNo);
        QCOMPARE(s.ui->lbNo->text(), key + "0002");
        TestDb::Exec("Update Sell Set State=3");
        QCOMPARE(SaleWindow().ui->lbNo->text(), key + "0002");
        for (const QString& row : {key + "0009','" + Session::ShopNo, key + "0050','{OTHER}",
                                   "209901010077','" + Session::ShopNo})
            TestDb::Exec("Insert Into Sell (SellNo,ShopNo,State) Values('" + row + "',0)");
        QCOMPARE(SaleWindow().ui->lbNo->text(), key + "0010");
        CS_NO_LEFTOVER_BOXES(rec);
    }

    // A piece with no layer left costs 0 and carries the layer number of the
    // piece before it (0 for the first piece); stock still falls.
    void pieceWithoutLayer() {
        TestDb db;
        TestDb::AddGoods("N1", 3, 100, 45);
        const QString b = TestDb::AddGoods("N2", 3, 100, 30);
        TestDb::Exec("Update BuyPrice Set Quantity=0 Where StoreGUID='" + b + "'");
        const QString layer = TestDb::Scalar("Select ID from BuyPrice Where Quantity>0");
        MsgRecorder rec;
        SaleWindow s;
        for (const char* typeNo : {"N2", "N1", "N2"}) s.Sell(typeNo, "1", "全");
        s.CheckOut(rec, "300");
        rec.Take();
        QCOMPARE(Column("Select TypeNo from Sell Order By rowid"), QStringList({"N2", "N1", "N2"}));
        QCOMPARE(Column("Select BuyPrice from Sell Order By rowid"), QStringList({"0", "45", "0"}));
        QCOMPARE(Column("Select BuyPriceID from Sell Order By rowid"),
                 QStringList({"0", layer, layer}));
        QCOMPARE(TestDb::Scalar("Select Quantity from Store Where GUID='" + b + "'"), QString("1"));
        CS_NO_LEFTOVER_BOXES(rec);
    }

    // A void of a sale made on an earlier day keeps that day as the sale's
    // date and today as the day of the void; a line already returned is
    // never offered for voiding.
    void voidOfAnEarlierSale() {
        TestDb db;
        TestDb::AddGoods("E1", 5, 100, 40);
        MsgRecorder rec;
        const QString no = SellThree(rec, "E1", "全");
        TestDb::Exec("Update Sell Set DateTime='2026-01-10'");
        const QString returned = TestDb::Scalar("Select GUID from Sell Order By GUID");
        TestDb::Exec("Update Sell Set State=2 Where GUID='" + returned + "'");
        frmBlankout w;
        VSGrid* g = w.ui()->VSFlexGrid;
        Find(w, no);
        QCOMPARE(g->Rows() - 1, 2);
        for (int r = 1; r < g->Rows(); ++r) QVERIFY(g->Cell(r, "GUID") != returned);
        Void(w, rec);
        Recordset ch = TestDb::Query("Select Datetime,ChangeDate,State from SellChange");
        QCOMPARE(ch.Text("Datetime"), QString("2026-01-10"));
        QCOMPARE(ch.Text("ChangeDate"), DateText::Today());
        QCOMPARE(ch.Text("State"), QString("3"));
        CS_NO_LEFTOVER_BOXES(rec);
    }

    // One piece of three at a time: the sale line marked, stock and layer
    // back, a void line written; then the sale is gone, and the voids listed.
    void voidThreePiecesOneByOne() {
        TestDb db;
        TestDb::AddGoods("V1", 5, 100, 40);
        MsgRecorder rec;
        const QString no = SellThree(rec, "V1", "9");
        frmBlankout w;
        VSGrid* g = w.ui()->VSFlexGrid;
        w.ui()->comResion->setEditText("拿错尺码");
        Find(w, no);
        QCOMPARE(g->Rows() - 1, 3);
        const QString sellGuid = g->Cell(1, "GUID");
        Void(w, rec);
        QCOMPARE(g->Rows() - 1, 2);
        QCOMPARE(TestDb::Scalar("Select Quantity from Store"), QString("3"));
        QCOMPARE(TestDb::Scalar("Select Quantity from BuyPrice"), QString("3"));
        QCOMPARE(TestDb::Scalar("Select State from Sell Where GUID='" + sellGuid + "'"),
                 QString("3"));
        Recordset ch = TestDb::Query("Select * from SellChange");
        const QString today = DateText::Today();
        QCOMPARE(Fields(ch), QStringList({"",
                                          Session::ShopNo,
                                          "V1",
                                          "T恤",
                                          "青木",
                                          "M",
                                          "黑色",
                                          "纯棉",
                                          "一等品",
                                          "广州",
                                          "1",
                                          "100",
                                          "9",
                                          "90",
                                          "40",
                                          Session::User().No,
                                          today,
                                          TestDb::Scalar("Select ID from BuyPrice"),
                                          Session::User().Name,
                                          "90",
                                          sellGuid,
                                          no,
                                          today,
                                          "3",
                                          "拿错尺码"}));
        Void(w, rec, false);
        QCOMPARE(g->Rows() - 1, 2);
        Void(w, rec);
        Void(w, rec);
        QCOMPARE(TestDb::Count("SellChange"), 3);
        QCOMPARE(TestDb::Scalar("Select Quantity from Store"), QString("5"));
        Find(w, no);
        QCOMPARE(w.ui()->lbTip->text(), QString("该销售编号不存在！"));

        // The list of voids: today's at once, a range from the begin date,
        // none when it begins after the end.
        TestDb::Exec("Insert Into SellChange (ShopNo,TypeNo,State,ChangeDate) Values('" +
                     Session::ShopNo + "','OLD',3,'2020-01-01')");
        frmBlankOutQuery q;
        VSGrid* list = q.ui()->VSBlankOut;
        QCOMPARE(list->Rows() - 1, 3);
        QCOMPARE(list->Cell(1, "货号") + list->Cell(1, "应收金额") + list->Cell(1, "作废原因"),
                 QString("V190拿错尺码"));
        q.ui()->DTBlankOutB->setDate(QDate(2019, 12, 1));
        q.ui()->cmdQuery->click();
        QCOMPARE(list->Rows() - 1, 4);
        q.ui()->DTBlankOutB->setDate(QDate::currentDate().addDays(1));
        q.ui()->cmdQuery->click();
        QCOMPARE(list->Rows(), 1);
        CS_NO_LEFTOVER_BOXES(rec);
    }
};

CS_TEST(TestCheckout)
#include "tst_checkout.moc"
