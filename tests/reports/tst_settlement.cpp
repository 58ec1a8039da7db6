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
// Settles a day; the labels of the panel in their order.
QStringList Settle(frmDayAmount& w, int day = 0) {
    auto* u = w.ui();
    u->DTDate->setDate(QDate::currentDate().addDays(day));
    u->cmdCheckOut->click();
    return {u->LbSeller->text(),       u->lbSellCount->text(),  u->lbSellMny->text(),
            u->lbBackCount->text(),    u->lbBackAmount->text(), u->lbChangeCount->text(),
            u->lbChangeAmount->text(), u->lbRecive->text()};
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
        TestDb::Exec("Insert Into [User] Values('u2','002','李四','x','r','r')");
        AddSale({.amount = 100});
        AddSale({.amount = 80, .state = 3});
        AddSale({.amount = 90, .state = 2});
        AddSale({.amount = 120, .state = 1});
        AddSale({.amount = 70, .date = Day(-1)});
        AddSale({.amount = 60, .seller = "002"});
        AddSale({.amount = 999, .shop = "{OTHER}"});
        AddChange(2, 70, 70);         // yesterday's sale returned today
        AddChange(1, 120, -20);       // money back on an exchange
        AddChange(2, 90, 90, "002");  // returned by the other clerk
        AddChange(3, 80, 80);         // a void is no return
        AddChange(2, 55, 55, "admin", Day(-1));

        frmDayAmount w;
        QCOMPARE(Settle(w), Values("管理员|4|390￥|1|70￥|1|-20￥|300￥"));
        QCOMPARE(w.ui()->lbDate->text(), Day(0));
        Session::User().Initial("002");
        QCOMPARE(Settle(w), Values("李四|1|60￥|1|90￥|0|0￥|-30￥"));

        // Settling again overwrites the clerk's row of that day; an empty
        // day gets a row of zeroes; more pieces than the 16-bit figure holds
        // end the close with the run-time error, and nothing is written.
        AddChange(2, 20.5, 20.5, "002");
        QCOMPARE(Settle(w).value(7), QString("-50.5￥"));
        QCOMPARE(Settle(w, -3).value(7), QString("0￥"));
        AddSale({.date = Day(-5), .seller = "002", .quantity = 32768});
        Settle(w, -5);
        QCOMPARE(Said(rec), QStringList{"E:" + RuntimeError::overflow()});
        // The settlement rows: figures, clerk and date.
        COMPARE_ROWS(Rows("Select SellQuantity,SellAmount,BackQuantity,BackAmount,ChangeQuantity,"
                          "ChangeAmount,ReciveAmount,Seller,[DateTime] from DayAmount"),
                     {"4|390|1|70|1|-20|300|管理员|" + Day(0),
                      "1|60|2|110.5|0|0|-50.5|李四|" + Day(0), "0|0|0|0|0|0|0|李四|" + Day(-3)});
        CS_NO_LEFTOVER_BOXES(rec);
    }
};

class TestAmountTotal : public QObject {
    Q_OBJECT
private Q_SLOTS:
    // The period's settled days of the shop with one total row of the seven
    // sums as whole numbers; a new query drops the old total.
    void periodWithTotal() {
        TestDb db;
        MsgRecorder rec;
        const auto add = [](const QString& date, const QString& shop, const QString& figures) {
            TestDb::Exec("Insert Into DayAmount Values('g'," + figures + ",'甲','" + date + "','" +
                         shop + "','本店')");
        };
        add(Day(-1), Session::ShopNo, "3,300.5,1,50,1,-20,230.5");
        add(Day(-1), Session::ShopNo, "2,120,0,0,2,15.25,135.25");
        add(Day(-9), Session::ShopNo, "1,1,1,1,1,1,1");
        add(Day(-1), "{OTHER}", "1,1,1,1,1,1,1");

        frmAmountTotal w;
        VSGrid* g = w.ui()->VSAmountTotal;
        w.ui()->DTBeginTime->setDate(QDate::currentDate().addDays(-2));
        w.ui()->cmdQuery->click();
        w.ui()->cmdQuery->click();
        QCOMPARE(g->Rows(), 4);
        QVERIFY(g->IsSubtotal(3));
        QStringList total;
        for (int c = 1; c < g->Cols(); ++c) total << g->TextMatrix(3, c);
        QCOMPARE(total, QStringList({"总计", "", "", "5", "420", "1", "50", "3", "-5", "366"}));
        CS_NO_LEFTOVER_BOXES(rec);
    }
};

CS_TEST(TestDayAmount)
CS_TEST(TestAmountTotal)
#include "tst_settlement.moc"
