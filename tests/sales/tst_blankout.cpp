// Voiding sold pieces one row at a time, and the list of voids.
#include <QComboBox>
#include <QDateEdit>
#include <QTest>

#include "DateText.h"
#include "MsgRecorder.h"
#include "SaleWindow.h"
#include "Session.h"
#include "TestDb.h"
#include "TestRegistry.h"
#include "frmBlankOutQuery.h"
#include "frmBlankout.h"
#include "ui_frmBlankOutQuery.h"
#include "ui_frmBlankout.h"
#include "ui_frmSell.h"

namespace {
// Sells n pieces of a new article at 9; returns the sale's number.
QString SellPieces(const QString& typeNo, int n, MsgRecorder& rec) {
    TestDb::AddGoods(typeNo, 5, 100, 40);
    SaleWindow s;
    const QString no = s.ui->lbNo->text();
    s.SellAt(typeNo, QString::number(n), "9");
    s.CheckOut(rec, "999");
    rec.Take();
    return no;
}

void Find(frmBlankout& w, const QString& no) {
    w.ui()->txtSellNo->setText(no);
    w.ui()->txtSellNo->setFocus();
    QTest::keyClick(w.ui()->txtSellNo, Qt::Key_Return);
}

void Void(frmBlankout& w, MsgRecorder& rec) {
    rec.Yes();
    w.ui()->cmdOk->click();
    QCOMPARE(Said(rec), QStringList{"Q:确认要作废该次售货吗？"});
}

QString Scalar(const QString& sql) {
    return TestDb::Scalar(sql);
}
}  // namespace

class TestBlankout : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void voidThreePiecesOneByOne() {
        TestDb db;
        MsgRecorder rec;
        const QString no = SellPieces("V1", 3, rec);
        frmBlankout w;
        VSGrid* g = w.ui()->VSFlexGrid;
        QCOMPARE(g->Cols(), 22);  // the headers show before any search
        QCOMPARE(w.ui()->comResion->count(), TestDb::Count("DataDictionary", "Item='作废原因'"));
        w.ui()->comResion->setEditText("拿错尺码");

        Find(w, no);
        QCOMPARE(g->Rows() - 1, 3);
        for (int c = 1; c <= 7; ++c) QVERIFY(g->ColHidden(c));
        const QString sellGuid = g->Cell(1, "GUID");
        Void(w, rec);
        QCOMPARE(g->Rows() - 1, 2);
        QCOMPARE(Scalar("Select Quantity from Store") + Scalar("Select Quantity from BuyPrice") +
                     Scalar("Select State from Sell Where GUID='" + sellGuid + "'"),
                 QString("333"));
        Recordset ch = TestDb::Query("Select * from SellChange");
        QStringList values;
        for (int i = 1; i < ch.FieldCount(); ++i) values << ch.Text(i);
        const QString today = DateText::Today();
        QCOMPARE(values, (QStringList{"",
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
                                      ch.Text("BuyPriceID"),
                                      Session::User().Name,
                                      "90",
                                      sellGuid,
                                      no,
                                      today,
                                      "3",
                                      "拿错尺码"}));
        QVERIFY(ch.Text("BuyPriceID").toInt() > 0);

        rec.No();
        w.ui()->cmdOk->click();
        rec.Take();
        QCOMPARE(g->Rows() - 1, 2);
        Void(w, rec);
        Void(w, rec);
        w.ui()->cmdOk->click();  // an empty grid: silently nothing
        QCOMPARE(TestDb::Count("SellChange") * 10 + Scalar("Select Quantity from Store").toInt(),
                 35);

        Find(w, no);
        QCOMPARE(w.ui()->lbTip->text(), QString("该销售编号不存在！"));
        Find(w, SellPieces("V2", 1, rec));
        QCOMPARE(w.ui()->lbTip->text(), QString());
        Find(w, "NOSUCH");
        QCOMPARE(w.ui()->lbTip->text(), QString("该销售编号不存在！"));
        QCOMPARE(g->Rows() - 1, 1);  // the grid keeps what it showed
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
            Void(w, rec);
        }
        for (const char* row : {"'OLD',3,'2020-01-01'", "'RET',2,'%1'"})
            TestDb::Exec("Insert Into SellChange (ShopNo,TypeNo,State,ChangeDate) Values('" +
                         Session::ShopNo + "'," + QString(row).arg(DateText::Today()) + ")");
        frmBlankOutQuery q;
        VSGrid* g = q.ui()->VSBlankOut;
        QCOMPARE(g->Rows() - 1, 1);  // today's voids, at once
        QCOMPARE(g->Cell(1, "货号") + g->Cell(1, "应收金额") + g->Cell(1, "作废原因"),
                 QString("Q190错卖"));
        q.ui()->DTBlankOutB->setDate(QDate(2019, 12, 1));
        q.ui()->cmdQuery->click();
        QCOMPARE(g->Rows() - 1, 2);
        q.ui()->DTBlankOutB->setDate(QDate::currentDate().addDays(1));  // begin after end
        q.ui()->cmdQuery->click();
        QCOMPARE(g->Rows(), 1);
        CS_NO_LEFTOVER_BOXES(rec);
    }
};

CS_TEST(TestBlankout)
#include "tst_blankout.moc"
