// Voiding sold pieces one row at a time, and the list of voids.
#include <QComboBox>
#include <QDateEdit>
#include <QTest>

#include "DateText.h"
#include "Modal.h"
#include "MsgRecorder.h"
#include "SaleWindow.h"
#include "Session.h"
#include "TestDb.h"
#include "TestRegistry.h"
#include "frmBlankOutQuery.h"
#include "frmBlankout.h"
#include "frmDataDictionary.h"
#include "ui_frmBlankOutQuery.h"
#include "ui_frmBlankout.h"
#include "ui_frmSell.h"

namespace {
// Sells n pieces of a new article through the sale window; returns the number.
QString SellPieces(const QString& typeNo, int n, MsgRecorder& rec) {
    TestDb::AddGoods(typeNo, 5, 100, 40);
    SaleWindow s;
    const QString no = s.ui->lbNo->text();
    s.SellAt(typeNo, QString::number(n), "9");
    s.ui->txtReciveAmout->setText("999");
    rec.Yes();
    s.ui->cmdCheckOut->click();
    rec.Take();
    return no;
}

void Find(frmBlankout& w, const QString& no) {
    w.ui()->txtSellNo->setText(no);
    w.ui()->txtSellNo->setFocus();
    QTest::keyClick(w.ui()->txtSellNo, Qt::Key_Return);
}
}  // namespace

class TestBlankout : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void voidThreePiecesOneByOne() {
        TestDb db;
        MsgRecorder rec;
        const QString no = SellPieces("V1", 3, rec);
        const QString store = TestDb::Scalar("Select GUID from Store Where TypeNo='V1'");
        QCOMPARE(TestDb::Scalar("Select Quantity from Store Where GUID='" + store + "'"),
                 QString("2"));

        frmBlankout w;
        w.show();
        QCOMPARE(w.ui()->VSFlexGrid->Rows(), 1);
        QCOMPARE(w.ui()->VSFlexGrid->Cols(), 22);  // the headers of the empty grid
        for (int c = 1; c <= 7; ++c) QVERIFY(w.ui()->VSFlexGrid->ColHidden(c));
        QCOMPARE(w.ui()->comResion->count(), TestDb::Count("DataDictionary", "Item='作废原因'"));
        w.ui()->comResion->setEditText("拿错尺码");

        Find(w, no);
        VSGrid* g = w.ui()->VSFlexGrid;
        QCOMPARE(g->Rows() - 1, 3);
        QCOMPARE(g->Row(), 1);
        QCOMPARE(w.ui()->lbTip->text(), QString());
        QCOMPARE(g->Cell(1, "金额"), QString("90"));
        const QString sellGuid = g->Cell(1, "GUID");

        rec.Yes();
        w.ui()->cmdOk->click();
        auto boxes = rec.Take();
        QCOMPARE(boxes.size(), 1);
        QCOMPARE(boxes[0].text, QString("确认要作废该次售货吗？"));
        QCOMPARE(boxes[0].title, QString("提示"));
        QCOMPARE(g->Rows() - 1, 2);
        QCOMPARE(TestDb::Scalar("Select Quantity from Store Where GUID='" + store + "'"),
                 QString("3"));
        QCOMPARE(TestDb::Scalar("Select Quantity from BuyPrice Where StoreGUID='" + store + "'"),
                 QString("3"));
        QCOMPARE(TestDb::Scalar("Select State from Sell Where GUID='" + sellGuid + "'"),
                 QString("3"));
        Recordset ch = TestDb::Query("Select * from SellChange");
        QCOMPARE(ch.RecordCount(), 1);
        QCOMPARE(ch.Text("StoreGUID"), QString());
        QCOMPARE(ch.Text("SellGUID"), sellGuid);
        QCOMPARE(ch.Text("SellNo"), no);
        QCOMPARE(ch.Text("TypeNo"), QString("V1"));
        QCOMPARE(ch.Text("Amount"), QString("90"));
        QCOMPARE(ch.Text("AddAmount"), QString("90"));
        QCOMPARE(ch.Text("BuyPrice"), QString("40"));
        QCOMPARE(ch.Text("State"), QString("3"));
        QCOMPARE(ch.Text("Resion"), QString("拿错尺码"));
        QCOMPARE(ch.Text("ChangeDate"), DateText::Today());
        QCOMPARE(ch.Text("DateTime"), DateText::Today());
        QCOMPARE(ch.Text("SellerName"), Session::User().Name);

        // No: nothing happens.
        rec.No();
        w.ui()->cmdOk->click();
        rec.Take();
        QCOMPARE(g->Rows() - 1, 2);

        // The number still finds the two pieces left; void them too.
        Find(w, no);
        QCOMPARE(g->Rows() - 1, 2);
        for (int i = 0; i < 2; ++i) {
            rec.Yes();
            w.ui()->cmdOk->click();
            rec.Take();
        }
        QCOMPARE(g->Rows(), 1);
        w.ui()->cmdOk->click();  // an empty grid: silently nothing
        QCOMPARE(TestDb::Count("SellChange"), 3);
        QCOMPARE(TestDb::Scalar("Select Quantity from Store Where GUID='" + store + "'"),
                 QString("5"));

        Find(w, no);
        QCOMPARE(w.ui()->lbTip->text(), QString("该销售编号不存在！"));
        // A good number clears the tip again.
        const QString other = SellPieces("V2", 1, rec);
        Find(w, other);
        QCOMPARE(w.ui()->lbTip->text(), QString());
        Find(w, "NOSUCH");
        QCOMPARE(w.ui()->lbTip->text(), QString("该销售编号不存在！"));
        QCOMPARE(g->Rows() - 1, 1);  // the grid keeps what it showed
        CS_NO_LEFTOVER_BOXES(rec);
    }

    // A piece sold without a layer (layer number 0): the stock still rises.
    void voidWithoutLayer() {
        TestDb db;
        MsgRecorder rec;
        TestDb::AddGoods("W0", 2, 100, 40);
        TestDb::Exec("Update BuyPrice Set Quantity=0");
        SaleWindow s;
        const QString no = s.ui->lbNo->text();
        s.SellAt("W0", "1", "全");
        s.ui->txtReciveAmout->setText("100");
        rec.Yes();
        s.ui->cmdCheckOut->click();
        rec.Take();
        QCOMPARE(TestDb::Scalar("Select BuyPriceID from Sell"), QString("0"));
        frmBlankout w;
        Find(w, no);
        rec.Yes();
        w.ui()->cmdOk->click();
        rec.Take();
        QCOMPARE(TestDb::Scalar("Select Quantity from Store"), QString("2"));
        QCOMPARE(TestDb::Scalar("Select Quantity from BuyPrice"), QString("0"));
        CS_NO_LEFTOVER_BOXES(rec);
    }

    // The "…" button opens the reasons list and fills the box anew.
    void reasonList() {
        TestDb db;
        MsgRecorder rec;
        frmBlankout w;
        Modal::Queue([](QDialog* d) {
            auto* f = qobject_cast<frmDataDictionary*>(d);
            QVERIFY(f);
            QCOMPARE(f->Item(), QString("作废原因"));
            TestDb::Exec("Insert Into DataDictionary (Item,Content) Values('作废原因','顾客反悔')");
            d->close();
        });
        w.ui()->cmdLeather->click();
        QVERIFY(w.ui()->comResion->findText("顾客反悔") >= 0);
        CS_NO_LEFTOVER_BOXES(rec);
    }

    void voidQuery() {
        TestDb db;
        MsgRecorder rec;
        const QString no = SellPieces("Q1", 2, rec);
        {
            frmBlankout w;
            Find(w, no);
            w.ui()->comResion->setEditText("错卖");
            rec.Yes();
            w.ui()->cmdOk->click();
            rec.Take();
        }
        TestDb::Exec("Insert Into SellChange (ShopNo,TypeNo,State,ChangeDate) Values('" +
                     Session::ShopNo + "','OLD',3,'2020-01-01')");
        TestDb::Exec("Insert Into SellChange (ShopNo,TypeNo,State,ChangeDate) Values('" +
                     Session::ShopNo + "','RET',2,'" + DateText::Today() + "')");

        frmBlankOutQuery q;
        VSGrid* g = q.ui()->VSBlankOut;
        QCOMPARE(q.ui()->DTBlankOutB->date(), QDate::currentDate());
        QCOMPARE(g->Rows() - 1, 1);  // today's voids, at once
        QCOMPARE(g->Cell(1, "货号"), QString("Q1"));
        QCOMPARE(g->Cell(1, "作废原因"), QString("错卖"));
        QCOMPARE(g->Cell(1, "应收金额"), QString("90"));
        QCOMPARE(g->ColWidth(1), 850);
        q.ui()->DTBlankOutB->setDate(QDate(2019, 12, 1));
        q.ui()->cmdQuery->click();
        QCOMPARE(g->Rows() - 1, 2);
        // Begin after end: an empty list, no message.
        q.ui()->DTBlankOutB->setDate(QDate::currentDate().addDays(1));
        q.ui()->cmdQuery->click();
        QCOMPARE(g->Rows(), 1);
        CS_NO_LEFTOVER_BOXES(rec);
    }
};

CS_TEST(TestBlankout)
#include "tst_blankout.moc"
