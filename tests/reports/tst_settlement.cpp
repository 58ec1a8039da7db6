// The day's close of each clerk and the list of settled days.
#include <QDateEdit>
#include <QPushButton>

#include "ReportData.h"
#include "RuntimeError.h"
#include "TestRegistry.h"
#include "frmAmountTotal.h"
#include "frmDayAmount.h"
#include "ui_frmAmountTotal.h"
#include "ui_frmDayAmount.h"

namespace {

// The figures the window shows, in the order of the panel.
QString Shown(frmDayAmount& w) {
    auto* u = w.ui();
    return QStringList({u->lbDate->text(), u->LbSeller->text(), u->lbSellCount->text(),
                        u->lbSellMny->text(), u->lbBackCount->text(), u->lbBackAmount->text(),
                        u->lbChangeCount->text(), u->lbChangeAmount->text(), u->lbRecive->text()})
        .join('|');
}

QString Settle(frmDayAmount& w, const QString& date) {
    w.ui()->DTDate->setDate(DateText::Parse(date));
    w.ui()->cmdCheckOut->click();
    return Shown(w);
}

// The stored settlement rows, without their keys, oldest insert first.
QString Rows() {
    QStringList out;
    for (Recordset rs = TestDb::Query("Select * from DayAmount"); !rs.Eof(); rs.MoveNext()) {
        QStringList f;
        for (int i = 1; i < rs.FieldCount(); ++i) f << rs.Text(i);
        out << f.join('|');
    }
    return out.join('\n');
}

void AddClerk(const QString& no, const QString& name) {
    TestDb::Exec("Insert Into [User] Values('" + Session::NewGUID().GUID() + "','" + no + "','" +
                 name + "','x','" + kAdminRole + "','管理员')");
}

}  // namespace

class TestDayAmount : public QObject {
    Q_OBJECT
private Q_SLOTS:
    // Sales count on the day of the sale (a voided one too), returns and
    // exchanges on the day they were done, each for the clerk who did it.
    void eachClerksDay() {
        TestDb db;
        MsgRecorder rec;
        AddClerk("002", "李四");
        const QString today = Day(0);
        AddSale({.amount = 100});
        AddSale({.amount = 80, .state = 3});   // voided: still counted
        AddSale({.amount = 90, .state = 2});   // returned by the other clerk
        AddSale({.amount = 120, .state = 1});  // exchanged, money back
        AddSale({.amount = 70, .date = Day(-1)});
        AddSale({.amount = 60, .seller = "002"});
        AddSale({.amount = 999, .shop = "{OTHER}"});
        AddChange({.state = 2, .amount = 70});  // yesterday's sale returned today
        AddChange({.state = 1, .amount = 120, .addAmount = -20});
        AddChange({.state = 2, .amount = 90, .seller = "002"});
        AddChange({.state = 3, .amount = 80});  // a void is no return
        AddChange({.state = 2, .amount = 55, .changeDate = Day(-1)});

        frmDayAmount w;
        QCOMPARE(Shown(w), QString("||||||||"));  // nothing until settled
        QCOMPARE(Settle(w, today), today + "|管理员|4|390￥|1|70￥|1|-20￥|300￥");
        Session::User().Initial("002");
        QCOMPARE(Settle(w, today), today + "|李四|1|60￥|1|90￥|0|0￥|-30￥");
        QCOMPARE(Rows(), "4|390|1|70|1|-20|300|管理员|" + today + "|" + Session::ShopNo +
                             "|本店\n1|60|1|90|0|0|-30|李四|" + today + "|" + Session::ShopNo +
                             "|本店");
        CS_NO_LEFTOVER_BOXES(rec);
    }

    // Settling again overwrites the day's row with the figures of the
    // moment; another date, or a day with nothing, gets a row of its own.
    void settlingAgain() {
        TestDb db;
        MsgRecorder rec;
        const QString today = Day(0);
        AddSale({.amount = 100.5});
        frmDayAmount w;
        Settle(w, today);
        AddChange({.state = 2, .amount = 100.5});
        QCOMPARE(Settle(w, today), today + "|管理员|1|100.5￥|1|100.5￥|0|0￥|0￥");
        const QString before = Day(-3);
        QCOMPARE(Settle(w, before), before + "|管理员|0|0￥|0|0￥|0|0￥|0￥");
        QCOMPARE(Rows(), "1|100.5|1|100.5|0|0|0|管理员|" + today + "|" + Session::ShopNo +
                             "|本店\n0|0|0|0|0|0|0|管理员|" + before + "|" + Session::ShopNo +
                             "|本店");
        CS_NO_LEFTOVER_BOXES(rec);
    }

    // More pieces in a day than a 16-bit figure holds: the run-time error
    // box ends the close, nothing is written, and the window goes on.
    void tooManyPieces() {
        TestDb db;
        MsgRecorder rec;
        AddSale({.quantity = 32767});
        frmDayAmount w;
        QCOMPARE(Settle(w, Day(0)).section('|', 2, 2), QString("32767"));
        AddSale({.quantity = 1});
        Settle(w, Day(0));
        QCOMPARE(Said(rec), QStringList{"E:" + RuntimeError::overflow()});
        QCOMPARE(TestDb::Scalar("Select SellQuantity from DayAmount"), QString("32767"));
        QVERIFY(w.isEnabled());
        CS_NO_LEFTOVER_BOXES(rec);
    }
};

class TestAmountTotal : public QObject {
    Q_OBJECT
private Q_SLOTS:
    // The settled days of the period and shop with one total row of the
    // seven sums as whole numbers; a new query drops the old total.
    void periodWithTotal() {
        TestDb db;
        MsgRecorder rec;
        const auto add = [](const QString& seller, const QString& date, const QString& shop,
                            const QString& figures) {
            TestDb::Exec("Insert Into DayAmount Values('" + Session::NewGUID().GUID() + "'," +
                         figures + ",'" + seller + "','" + date + "','" + shop + "','本店')");
        };
        add("甲", Day(-1), Session::ShopNo, "3,300.5,1,50,1,-20,230.5");
        add("乙", Day(-1), Session::ShopNo, "2,120,0,0,2,15.25,135.25");
        add("甲", Day(-9), Session::ShopNo, "1,1,1,1,1,1,1");
        add("甲", Day(-1), "{OTHER}", "1,1,1,1,1,1,1");

        frmAmountTotal w;
        VSGrid* g = w.ui()->VSAmountTotal;
        QCOMPARE(g->Rows(), 1);
        QCOMPARE(g->ColKey(10), QString("结算金额"));
        w.ui()->DTBeginTime->setDate(QDate::currentDate().addDays(-2));
        w.ui()->cmdQuery->click();
        QCOMPARE(g->Rows(), 4);
        QVERIFY(g->IsSubtotal(3) && !g->IsSubtotal(1));
        QStringList total;
        for (int c = 1; c < g->Cols(); ++c) total << g->TextMatrix(3, c);
        QCOMPARE(total, QStringList({"总计", "", "", "5", "420", "1", "50", "3", "-5", "366"}));

        w.ui()->cmdQuery->click();
        QCOMPARE(g->Rows(), 4);
        w.ui()->DTBeginTime->setDate(QDate::currentDate());
        w.ui()->cmdQuery->click();
        QCOMPARE(g->Rows(), 1);
        CS_NO_LEFTOVER_BOXES(rec);
    }
};

CS_TEST(TestDayAmount)
CS_TEST(TestAmountTotal)
#include "tst_settlement.moc"
