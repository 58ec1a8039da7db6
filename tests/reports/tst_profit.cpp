// Profit of a period and the stock of now at cost.
#include <QDateEdit>
#include <QPushButton>

#include "ReportData.h"
#include "TestRegistry.h"
#include "frmProfit.h"
#include "ui_frmProfit.h"

class TestProfit : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void periodAndStock() {
        TestDb db;
        MsgRecorder rec;
        TestDb::AddGoods("G1", 10, 100, 40, "M", "黑色", "", Day(-1));
        TestDb::AddGoods("G2", 3, 100, 25.5, "M", "黑色", "", Day(-40));
        AddSale({.amount = 100, .cost = 40, .date = Day(-1)});
        AddSale({.amount = 130, .cost = 50, .state = 1});  // exchanged into
        AddSale({.amount = 90, .state = 2});
        AddSale({.amount = 95, .state = 3});
        AddSale({.amount = 80, .cost = 0});  // sold without a cost layer
        AddSale({.amount = 500, .date = Day(-40)});
        TestDb::Exec("Insert Into FactoryBackTotal ([DateTime],Quantity,Amount,ShopNo) Values('" +
                     Day(-1) + "',2,70.5,'" + Session::ShopNo + "')");
        // Problem goods: their cost counts as it stands, not times the pieces.
        for (const char* row : {"1,30,0", "2,45,0", "5,1000,1"})
            TestDb::Exec("Insert Into BackStore (ShopNo,Quantity,BuyPrice,IsBackFactory) Values('" +
                         Session::ShopNo + "'," + row + ")");
        TestDb::Exec("Insert Into OtherOut (ShopNo,Amount,[DateTime]) Values('" + Session::ShopNo +
                     "',250.25,'" + Day(0) + "')");

        frmProfit w;
        auto* u = w.ui();
        const auto shown = [u] {
            QStringList t;
            for (QLabel* l :
                 {u->lbInQuantity, u->lbInAmount, u->lbSellQuantity, u->lbSellAmount,
                  u->lbBackQuantity, u->lbBackAmount, u->lbStoreQuantity, u->lbQuestionQuantity,
                  u->lbStorePrice, u->lbProfit, u->lbOtherAmount, u->lbProfitEx})
                t << l->text();
            return t;
        };
        u->DTBeginTime->setDate(QDate::currentDate().addDays(-7));
        u->cmdQuery->click();
        QCOMPARE(shown(), Values("10|400|3|310|2|70.5|13|3|551.5|220|250.25|-30.25"));
        // Begin after end: the period is empty, the stock stays.
        u->DTEndTime->setDate(QDate::currentDate().addDays(-10));
        u->cmdQuery->click();
        QCOMPARE(shown(), Values("0|0|0|0|0|0|13|3|551.5|0|0|0"));
        CS_NO_LEFTOVER_BOXES(rec);
    }
};

CS_TEST(TestProfit)
#include "tst_profit.moc"
