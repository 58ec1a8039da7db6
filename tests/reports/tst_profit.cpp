// Profit of a period: bought, sold, sent back to the factory, the stock of
// now at cost, gross and net profit.
#include <QDateEdit>
#include <QPushButton>

#include "ReportData.h"
#include "TestRegistry.h"
#include "frmProfit.h"
#include "ui_frmProfit.h"

namespace {
QString Shown(frmProfit& w) {
    auto* u = w.ui();
    return QStringList({u->lbInQuantity->text(), u->lbInAmount->text(), u->lbSellQuantity->text(),
                        u->lbSellAmount->text(), u->lbBackQuantity->text(), u->lbBackAmount->text(),
                        u->lbStoreQuantity->text(), u->lbQuestionQuantity->text(),
                        u->lbStorePrice->text(), u->lbProfit->text(), u->lbOtherAmount->text(),
                        u->lbProfitEx->text()})
        .join('|');
}

void AddProblem(double qty, double cost, int backToFactory) {
    TestDb::Exec(QString("Insert Into BackStore ([GUID],ShopNo,TypeNo,Quantity,BuyPrice,"
                         "IsBackFactory) Values('g','%1','P1',%2,%3,%4)")
                     .arg(Session::ShopNo)
                     .arg(qty)
                     .arg(cost)
                     .arg(backToFactory));
}
}  // namespace

class TestProfit : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void periodAndStock() {
        TestDb db;
        MsgRecorder rec;
        TestDb::AddGoods("G1", 10, 100, 40, "M", "黑色", "", Day(-1));
        TestDb::AddGoods("G2", 3, 100, 25.5, "M", "黑色", "", Day(-40));  // bought earlier
        AddSale({.amount = 100, .cost = 40, .date = Day(-1)});
        AddSale({.amount = 130, .cost = 50, .state = 1, .date = Day(-1)});  // exchanged into
        AddSale({.amount = 90, .cost = 40, .state = 2, .date = Day(-1)});   // returned
        AddSale({.amount = 95, .cost = 40, .state = 3, .date = Day(-1)});   // voided
        AddSale({.amount = 80, .cost = 0, .date = Day(0)});                 // no cost layer
        AddSale({.amount = 500, .cost = 1, .date = Day(-40)});
        TestDb::Exec("Insert Into FactoryBackTotal ([DateTime],Quantity,Amount,ShopNo) Values('" +
                     Day(-1) + "',2,70.5,'" + Session::ShopNo + "')");
        // The problem stock's cost stands as it is, not times the pieces.
        AddProblem(1, 30, 0);
        AddProblem(2, 45, 0);
        AddProblem(5, 1000, 1);
        TestDb::Exec("Insert Into OtherOut (GUID,ShopNo,Amount,[DateTime]) Values('o','" +
                     Session::ShopNo + "',250.25,'" + Day(0) + "')");

        frmProfit w;
        QCOMPARE(Shown(w), QString("|||||||||||"));
        w.ui()->DTBeginTime->setDate(QDate::currentDate().addDays(-7));
        w.ui()->cmdQuery->click();
        // Stock: 10 at 40 and 3 at 25.5 in the layers, 75 in problem goods.
        // Profit 60 + 80 + 80; expenses above it make the net negative.
        QCOMPARE(Shown(w), QString("10|400|3|310|2|70.5|13|3|551.5|220|250.25|-30.25"));

        // A period that ends before it begins: only the stock is left.
        w.ui()->DTEndTime->setDate(QDate::currentDate().addDays(-10));
        w.ui()->cmdQuery->click();
        QCOMPARE(Shown(w), QString("0|0|0|0|0|0|13|3|551.5|0|0|0"));
        CS_NO_LEFTOVER_BOXES(rec);
    }
};

CS_TEST(TestProfit)
#include "tst_profit.moc"
