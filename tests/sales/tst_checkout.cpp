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
            QCOMPARE(Column("Select BuyPrice from Sell") + " " +
                         Column("Select Quantity from BuyPrice Order By sDate"),
                     QString(order == 0 ? "50/60 0/4" : "60/60 1/3"));
            QCOMPARE(Column("Select Quantity from Store"), QString("4"));
        }
    }

    // Every column of a sale line; the window is reset for the next sale.
    // The next number is one above the day's highest of the shop, voided
    // sales included.
    void saleLinesAndReset() {
        TestDb db;
        const QString g = TestDb::AddGoods("K01", 5, 99, 40, "XL", "蓝色", "690");
        TestDb::Exec("Update Store Set TypeNo='K''01'");
        const QString layer = Column("Select ID from BuyPrice");
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
        QCOMPARE(Fields(rs).join('|'),
                 QStringList({g, Session::ShopNo,
                              "K'01|T恤|青木|XL|蓝色|纯棉|一等品|广州|1|99|8.5|84|40",
                              Session::User().No, DateText::Today(), no, layer,
                              Session::User().Name, "0|200|32"})
                     .join('|'));
        QCOMPARE(Column("Select Quantity from Store") + s.ui->VSFlexGrid->Cell(1, "数量"),
                 QString("33"));
        QCOMPARE(s.ui->lbAmount->text() + s.ui->txtReciveAmout->text() + s.ui->lb->text() +
                     QString::number(s.Pieces()),
                 QString("0"));
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
        const QString layer = Column("Select ID from BuyPrice Where Quantity>0");
        MsgRecorder rec;
        SaleWindow s;
        for (const char* typeNo : {"N2", "N1", "N2"}) s.Sell(typeNo, "1", "全");
        s.CheckOut(rec, "300");
        rec.Take();
        QCOMPARE(Column("Select TypeNo||':'||BuyPrice||':'||BuyPriceID from Sell"),
                 "N2:0:0/N1:45:" + layer + "/N2:0:" + layer);
        QCOMPARE(Column("Select Quantity from Store Where GUID='" + b + "'"), QString("1"));
        CS_NO_LEFTOVER_BOXES(rec);
    }

    // One piece of three at a time: the sale line marked, stock and layer
    // back, a void line written; then the sale is gone, and the voids listed.
    void voidThreePiecesOneByOne() {
        TestDb db;
        TestDb::AddGoods("V1", 5, 100, 40);
        MsgRecorder rec;
        const QString no = SaleWindow().ui->lbNo->text();
        {
            SaleWindow s;
            s.Sell("V1", "3", "9");
            s.CheckOut(rec, "999");
            rec.Take();
        }
        frmBlankout w;
        VSGrid* g = w.ui()->VSFlexGrid;
        w.ui()->comResion->setEditText("拿错尺码");
        Find(w, no);
        QCOMPARE(g->Rows() - 1, 3);
        const QString sellGuid = g->Cell(1, "GUID");
        Void(w, rec);
        QCOMPARE(g->Rows() - 1, 2);
        QCOMPARE(Column("Select Quantity from Store") + Column("Select Quantity from BuyPrice") +
                     Column("Select State from Sell Where GUID='" + sellGuid + "'"),
                 QString("333"));
        Recordset ch = TestDb::Query("Select * from SellChange");
        const QString today = DateText::Today();
        QCOMPARE(
            Fields(ch).join('|'),
            QStringList({"|" + Session::ShopNo, "V1|T恤|青木|M|黑色|纯棉|一等品|广州|1|100|9|90|40",
                         Session::User().No, today, Column("Select ID from BuyPrice"),
                         Session::User().Name, "90", sellGuid, no, today, "3|拿错尺码"})
                .join('|'));
        Void(w, rec, false);
        QCOMPARE(g->Rows() - 1, 2);
        Void(w, rec);
        Void(w, rec);
        QCOMPARE(TestDb::Count("SellChange") * 10 + Column("Select Quantity from Store").toInt(),
                 35);
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
