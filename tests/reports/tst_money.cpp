// The day's close of each clerk and the list of settled days, profit, and
// other expenses.
#include "ReportData.h"
#include "RuntimeError.h"
#include "TestRegistry.h"

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
    // Settling again overwrites the clerk's row of that day; an empty day
    // gets a row of zeroes; more pieces than the 16-bit figure holds end the
    // close with the run-time error, and nothing is written. The settled
    // days of the shop in a period then list with one total row of the
    // seven sums as whole numbers; a new query drops the old total.
    void closeAndSettledDays() {
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
        AddChange(2, 20.5, 20.5, "002");
        QCOMPARE(Settle(w).value(7), QString("-50.5￥"));
        QCOMPARE(Settle(w, -3).value(7), QString("0￥"));
        AddSale({.date = Day(-5), .seller = "002", .quantity = 32768});
        Settle(w, -5);
        QCOMPARE(Said(rec), QStringList{"E:" + RuntimeError::overflow()});
        COMPARE_ROWS(Rows("Select SellQuantity,SellAmount,BackQuantity,BackAmount,ChangeQuantity,"
                          "ChangeAmount,ReciveAmount,Seller,[DateTime] from DayAmount"),
                     {"4|390|1|70|1|-20|300|管理员|" + Day(0),
                      "1|60|2|110.5|0|0|-50.5|李四|" + Day(0), "0|0|0|0|0|0|0|李四|" + Day(-3)});

        TestDb::Exec("Insert Into DayAmount Values('g',1,1,1,1,1,1,1,'甲','" + Day(0) +
                     "','{OTHER}','别店')");
        frmAmountTotal t;
        VSGrid* g = t.ui()->VSAmountTotal;
        t.ui()->DTBeginTime->setDate(QDate::currentDate().addDays(-2));
        for (int i = 0; i < 2; ++i) t.ui()->cmdQuery->click();
        QCOMPARE(g->Rows(), 4);
        QVERIFY(g->IsSubtotal(3));
        QCOMPARE(RowTexts(g, 3, 1), Values("总计|||5|450|3|180|1|-20|250"));  // halves to even
        CS_NO_LEFTOVER_BOXES(rec);
    }
};

class TestProfit : public QObject {
    Q_OBJECT
private Q_SLOTS:
    // Sales of the period less returned and voided lines, a piece sold
    // without a cost layer all profit; the stock of now at cost whatever the
    // period, problem goods at their cost as it stands (not times the
    // pieces); expenses above the profit give a negative net; sums over no
    // rows count 0.
    void periodAndStock() {
        TestDb db;
        MsgRecorder rec;
        TestDb::AddGoods("G1", 10, 100, 40, "M", "黑色", "", Day(-1));
        TestDb::AddGoods("G2", 3, 100, 25.5, "M", "黑色", "", Day(-40));
        AddSale({.amount = 100, .cost = 40, .date = Day(-1)});
        AddSale({.amount = 130, .cost = 50, .state = 1});  // exchanged into
        AddSale({.amount = 90, .state = 2});
        AddSale({.amount = 95, .state = 3});
        AddSale({.amount = 80, .cost = 0});
        AddSale({.amount = 500, .date = Day(-40)});
        TestDb::Exec("Insert Into FactoryBackTotal ([DateTime],Quantity,Amount,ShopNo) Values('" +
                     Day(-1) + "',2,70.5,'" + Session::ShopNo + "')");
        for (const char* row : {"1,30,0", "2,45,0", "5,1000,1"})
            TestDb::Exec("Insert Into BackStore (ShopNo,Quantity,BuyPrice,IsBackFactory) Values('" +
                         Session::ShopNo + "'," + row + ")");
        TestDb::Exec("Insert Into OtherOut (ShopNo,Amount,[DateTime]) Values('" + Session::ShopNo +
                     "',250.25,'" + Day(0) + "')");

        frmProfit w;
        auto* u = w.ui();
        const auto shown = [u](int day) {
            u->DTEndTime->setDate(QDate::currentDate().addDays(day));
            u->cmdQuery->click();
            QStringList t;
            for (QLabel* l :
                 {u->lbInQuantity, u->lbInAmount, u->lbSellQuantity, u->lbSellAmount,
                  u->lbBackQuantity, u->lbBackAmount, u->lbStoreQuantity, u->lbQuestionQuantity,
                  u->lbStorePrice, u->lbProfit, u->lbOtherAmount, u->lbProfitEx})
                t << l->text();
            return t;
        };
        u->DTBeginTime->setDate(QDate::currentDate().addDays(-7));
        QCOMPARE(shown(0), Values("10|400|3|310|2|70.5|13|3|551.5|220|250.25|-30.25"));
        QCOMPARE(shown(-10), Values("0|0|0|0|0|0|13|3|551.5|0|0|0"));  // an empty period
        CS_NO_LEFTOVER_BOXES(rec);
    }
};

class TestOtherOut : public QObject {
    Q_OBJECT
private Q_SLOTS:
    // The amount is the leading number of a numeric text ("1,000" is 1);
    // quotes are stored as typed; the item and the date stay for the next.
    void entryChecks() {
        TestDb db;
        MsgRecorder rec;
        frmOtherOut w;
        auto* u = w.ui();
        const auto save = [&](const QString& item, const QString& amount) {
            u->comItem->setEditText(item);
            u->txtAmount->setText(amount);
            u->cmdQuery->click();
            return Said(rec);
        };
        QList<QStringList> said;  // the boxes of each save
        for (const char* amount : {"12abc", "", "-5"}) said << save("房租", amount);
        u->DT->setDate(QDate(2026, 3, 8));
        u->txtMemo->setText("O'Neil");
        said << save("Joe's", "1,000") << save("", "0");
        COMPARE_ROWS(said, {"I:请按规矩办事！", "I:请按规矩办事！", "I:不能作弊", "I:保存成功！",
                            "I:保存成功！"});
        QCOMPARE(u->txtAmount->text() + u->txtMemo->text(), QString());
        QCOMPARE(u->DT->date(), QDate(2026, 3, 8));
        COMPARE_ROWS(Rows("Select Item,Amount,Memo,[DateTime],OptName from OtherOut"),
                     {"Joe's|1|O'Neil|2026-03-08|管理员", "|0||2026-03-08|管理员"});
    }

    // The total row's caption lies in the hidden key column: a delete there,
    // or with nothing listed, does nothing; on a row it deletes at once and
    // the total keeps the old sum.
    void listAndDelete() {
        TestDb db;
        MsgRecorder rec;
        for (const QString& row : {"'g1','" + Day(-1) + "',300", "'g2','" + Day(-3) + "',120.5",
                                   "'g3','" + Day(-30) + "',5"})
            TestDb::Exec("Insert Into OtherOut (GUID,[DateTime],Amount,ShopNo) Values(" + row +
                         ",'" + Session::ShopNo + "')");
        frmOtherOutQuery w;
        auto* u = w.ui();
        VSGrid* g = u->VSSell;
        u->cmdDel->click();
        u->DTBeginTime->setDate(QDate::currentDate().addDays(-7));
        u->cmdQuery->click();
        QVERIFY(g->ColHidden(1));
        QCOMPARE(Cells(g, "GUID") + Cells(g, "金额"),
                 QStringList({"g2", "g1", "总合计", "120.5", "300", "420"}));
        g->setRow(3);
        u->cmdDel->click();
        g->setRow(1);
        u->cmdDel->click();
        QCOMPARE(Cells(g, "GUID") + Cells(g, "金额"), QStringList({"g1", "总合计", "300", "420"}));
        QCOMPARE(TestDb::Count("OtherOut"), 2);
        CS_NO_LEFTOVER_BOXES(rec);
    }
};

CS_TEST(TestDayAmount)
CS_TEST(TestProfit)
CS_TEST(TestOtherOut)
#include "tst_money.moc"
