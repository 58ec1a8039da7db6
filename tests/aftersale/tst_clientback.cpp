// Customer return: the refusals in their order, the two destinations of a
// returned piece, and the search that finds the sale line.
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include "AfterSale.h"
#include "TestRegistry.h"
#include "frmClientBack.h"
#include "ui_frmClientBack.h"

namespace {

// Ticks the sale-number box and looks the number up, from the keyboard.
void FindSale(frmClientBack& w, const QString& no) {
    Ui::frmClientBack* ui = w.ui();
    if (!ui->chkNo->isChecked()) Press(ui->chkNo, Qt::Key_Space);
    ui->txtSellNo->setFocus();
    ui->txtSellNo->clear();
    QTest::keyClicks(ui->txtSellNo, no);
    Press(ui->txtSellNo, Qt::Key_Return);
}

// Confirms (or not) the return of the selected line from the keyboard.
QStringList GiveBack(frmClientBack& w, MsgRecorder& rec, bool yes = true) {
    yes ? rec.Yes() : rec.No();
    w.ui()->cmdOk->setFocus();
    Press(w.ui()->cmdOk, Qt::Key_Return);
    return Said(rec);
}

}  // namespace

class TestClientBack : public QObject {
    Q_OBJECT
private Q_SLOTS:
    // The exchanged line, then the kind of sale, then the day limit (the day
    // of sale counting as day 1); a refusal writes nothing.
    void refusalsInTheirOrder() {
        TestDb db;
        clsSellRole& rules = Session::SellRole();
        rules.BackDays = 1;
        rules.AbateCanNotBack = rules.SpecialCanNotBack = rules.ChangNotToBack = true;
        const QString g = TestDb::AddGoods("R1", 10, 100, 40);
        SellPiece(g, "TODAY", "全", 100);
        SellPiece(g, "YESTERDAY", "全", 100, 1);
        SellPiece(g, "DISCOUNT", "9", 90, 1);
        SellPiece(g, "SPECIAL", "特价", 70);
        SellPiece(g, "EXCHANGED", "9", 90, 0, 1);
        const QString before = Rows("Select State from Sell") + Rows("Select Quantity from Store") +
                               Rows("Select Quantity from BuyPrice");
        MsgRecorder rec;
        frmClientBack w;
        Open(w);
        const QString ask = "Q:确认要退货吗？";
        const struct {
            const char* sale;
            QString said;
        } cases[] = {
            {"TODAY", ask},
            {"YESTERDAY", "I:很遗憾！该商品已经超过了规定的退货时间，您无法退货！"},
            {"DISCOUNT", "I:对不起！该商品是折扣商品，您无法退货！"},
            {"SPECIAL", "I:对不起！该商品是特价商品，您无法退货！"},
            {"EXCHANGED", "I:对不起该商品已经调换过不能再退货！"},
        };
        for (const auto& c : cases) {
            FindSale(w, c.sale);
            QCOMPARE(GiveBack(w, rec, false), QStringList{c.said});
        }
        rules.ChangNotToBack = rules.AbateCanNotBack = false;
        rules.BackDays = 0;
        for (const char* sale : {"EXCHANGED", "DISCOUNT", "YESTERDAY"}) {
            FindSale(w, sale);
            QCOMPARE(GiveBack(w, rec, false), QStringList{ask});
        }
        QCOMPARE(w.ui()->VSFlexGrid->Rows(), 2);
        QCOMPARE(Rows("Select State from Sell") + Rows("Select Quantity from Store") +
                     Rows("Select Quantity from BuyPrice"),
                 before);
        QCOMPARE(TestDb::Count("SellChange") + TestDb::Count("BackStore"), 0);
        CS_NO_LEFTOVER_BOXES(rec);
    }

    // Into the problem stock: a BackStore row keyed by the goods row, the
    // copy of the line with the refund, the line returned; shelf and layers
    // stay. The refund follows the selected row; the row leaves the list,
    // and the list stays after a search that finds nothing.
    void problemStockAndSearch() {
        TestDb db;
        const QString g = TestDb::AddGoods("P1", 5, 120, 45);
        const QString first = SellPiece(g, "S1", "9", 108);
        SellPiece(g, "S1", "全", 120);
        MsgRecorder rec;
        frmClientBack w;
        Open(w);
        Ui::frmClientBack* ui = w.ui();
        VSGrid* grid = ui->VSFlexGrid;

        ui->cmdQuery->click();
        QCOMPARE(Said(rec), QStringList{"I:请选择条件！"});
        FindSale(w, "");
        QCOMPARE(ui->lbTip->text() + QString::number(grid->Rows()), QString("无记录！1"));

        FindSale(w, "S1");
        QCOMPARE(grid->Rows(), 3);
        QCOMPARE(Focus(), grid);
        QCOMPARE(ui->lbTip->text() + ui->lb->text(), QString("108"));
        Press(grid, Qt::Key_Down);
        QCOMPARE(ui->lb->text(), QString("120"));
        Press(grid, Qt::Key_Up);
        Press(grid, Qt::Key_Return);
        QCOMPARE(Focus(), ui->comResion);
        ui->comResion->setEditText("线头");
        QVERIFY(ui->Opt->isChecked());
        QCOMPARE(GiveBack(w, rec), QStringList{"Q:确认要退货吗？"});

        const clsUser& user = Session::User();
        const QString shop = Session::ShopNo;
        const QString layer = TestDb::Scalar("Select ID from BuyPrice");
        QCOMPARE(Rows("Select * from BackStore"),
                 QStringList({"1", g, shop, "P1|T恤|青木|M|黑色|纯棉|一等品|广州|1|45|线头",
                              user.No, user.Name, "0|"})
                     .join('|'));
        QCOMPARE(Rows("Select * from SellChange").section('|', 1),
                 QStringList({"", shop, "P1|T恤|青木|M|黑色|纯棉|一等品|广州|1|120|9|108|45",
                              user.No, DateText::Today(), layer, user.Name, "108", first, "S1",
                              DateText::Today(), "2|线头"})
                     .join('|'));
        QCOMPARE(Rows("Select State from Sell"), QString("2/0"));
        QCOMPARE(Rows("Select Quantity from Store") + Rows("Select Quantity from BuyPrice"),
                 QString("33"));
        QCOMPARE(grid->Rows(), 2);
        QCOMPARE(ui->lb->text(), QString("120"));

        // A search that finds nothing leaves the other piece to return.
        FindSale(w, "NONE");
        QCOMPARE(ui->lbTip->text(), QString("无记录！"));
        QCOMPARE(GiveBack(w, rec), QStringList{"Q:确认要退货吗？"});
        QCOMPARE(Rows("Select ID||GUID from BackStore"), "1" + g + "/2" + g);
        QCOMPARE(grid->Rows() + ui->lb->text().size(), 1);
        CS_NO_LEFTOVER_BOXES(rec);
    }

    // Onto the shelf: the piece goes back to the very layer it was sold
    // from, by its number, though that layer is at 0 and the shop now sells
    // the newest first.
    void normalStockRestoresTheLayerSoldFrom() {
        TestDb db;
        Session::SellRole().SellOrder = 1;
        const QString g = TestDb::AddGoods("N1", 1, 100, 50, "M", "黑色", "", "2026-01-05");
        const QString sold = SellPiece(g, "S2", "全", 100);
        TestDb::Exec("Insert Into BuyPrice (StoreGUID,Price,Quantity,sDate,ShopNo) Values('" + g +
                     "',60,5,'" + DateText::Today() + "','" + Session::ShopNo + "')");
        TestDb::Exec("Update Store Set Quantity=5");
        MsgRecorder rec;
        frmClientBack w;
        Open(w);
        FindSale(w, "S2");
        w.ui()->Opt->setFocus();
        Press(w.ui()->Opt, Qt::Key_Right);
        QVERIFY(w.ui()->OptQuestion->isChecked());
        QCOMPARE(GiveBack(w, rec), QStringList{"Q:确认要退货吗？"});
        QCOMPARE(Rows("Select Quantity from Store"), QString("6"));
        QCOMPARE(Rows("Select Price||':'||Quantity from BuyPrice Order By ID"),
                 QString("50:1/60:5"));
        QCOMPARE(TestDb::Count("BackStore"), 0);
        QCOMPARE(Rows("Select State||SellGUID||AddAmount from SellChange"), "2" + sold + "100");
        QCOMPARE(Rows("Select State from Sell"), QString("2"));
        CS_NO_LEFTOVER_BOXES(rec);
    }
};

CS_TEST(TestClientBack)
#include "tst_clientback.moc"
