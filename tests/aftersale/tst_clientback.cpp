// Customer return: the refusals in their order, and the two destinations of
// a returned piece.
#include "AfterSale.h"
#include "TestRegistry.h"
#include "frmClientBack.h"
#include "ui_frmClientBack.h"

namespace {
// Confirms (or not) the return of the selected line, from the keyboard.
QStringList GiveBack(frmClientBack& w, MsgRecorder& rec, bool yes = true) {
    yes ? rec.Yes() : rec.No();
    Press(w.ui()->cmdOk, Qt::Key_Return);
    return Said(rec);
}
const QString kAsk = QStringLiteral("Q:确认要退货吗？");
}  // namespace

class TestClientBack : public QObject {
    Q_OBJECT
private Q_SLOTS:
    // The exchanged line, then the kind of sale, then the day limit, which
    // counts the day of sale as day 1 (0 is no limit); neither a refusal nor
    // a "No" writes anything.
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
        const QList<QStringList> states = Rows("Select State from Sell");
        MsgRecorder rec;
        frmClientBack w;
        Open(w);
        const QStringList said[] = {
            {"TODAY", kAsk},
            {"YESTERDAY", "I:很遗憾！该商品已经超过了规定的退货时间，您无法退货！"},
            {"DISCOUNT", "I:对不起！该商品是折扣商品，您无法退货！"},
            {"SPECIAL", "I:对不起！该商品是特价商品，您无法退货！"},
            {"EXCHANGED", "I:对不起该商品已经调换过不能再退货！"}};
        for (const QStringList& c : said) {
            FindSale(w.ui(), c[0]);
            QCOMPARE(GiveBack(w, rec, false), QStringList{c[1]});
        }
        rules.ChangNotToBack = rules.AbateCanNotBack = false;
        rules.BackDays = 0;
        for (const char* sale : {"EXCHANGED", "DISCOUNT", "YESTERDAY"}) {
            FindSale(w.ui(), sale);
            QCOMPARE(GiveBack(w, rec, false), QStringList{kAsk});
        }
        COMPARE_ROWS(Rows("Select State from Sell"), states);
        QCOMPARE(TestDb::Count("SellChange"), 0);
        CS_NO_LEFTOVER_BOXES(rec);
    }

    // One piece to the problem stock (the default): a BackStore row keyed by
    // the goods row, the copy of the line with the refund, shelf and layers
    // untouched. The other to the shelf, into the very layer it was sold from
    // though that is at 0. The refund follows the row; a search that finds
    // nothing, or fails, leaves the list.
    void bothDestinations() {
        TestDb db;
        const QString g = TestDb::AddGoods("P1", 1, 120, 50, "M", "黑色", "", "2026-01-05");
        const QString first = SellPiece(g, "S1", "全", 120);
        AddLayer(g, 60, 5);
        const QString second = SellPiece(g, "S1", "9", 108);
        MsgRecorder rec;
        frmClientBack w;
        Open(w);
        Ui::frmClientBack* ui = w.ui();
        VSGrid* grid = ui->VSFlexGrid;
        ui->cmdQuery->click();
        QCOMPARE(Said(rec), QStringList{"I:请选择条件！"});
        FindSale(ui, "S1");
        QCOMPARE(Focus(), grid);
        QCOMPARE(ui->lb->text(), QString("120"));
        Press(grid, Qt::Key_Down);
        QCOMPARE(ui->lb->text(), QString("108"));
        Press(grid, Qt::Key_Return);
        QCOMPARE(Focus(), ui->comResion);
        ui->comResion->setEditText("线头");
        QCOMPARE(GiveBack(w, rec), QStringList{kAsk});

        const clsUser& user = Session::User();
        const QString goods = "P1|T恤|青木|M|黑色|纯棉|一等品|广州|1|";
        COMPARE_ROWS(
            Rows("Select * from BackStore"),
            {QStringList({"1", g, Session::ShopNo, goods + "60|线头", user.No, user.Name, "0|"})
                 .join('|')});
        COMPARE_ROWS(
            Rows("Select * from SellChange", 1),
            {QStringList({"", Session::ShopNo, goods + "120|9|108|60", user.No, DateText::Today(),
                          TestDb::Scalar("Select max(ID) from BuyPrice"), user.Name, "108", second,
                          "S1", DateText::Today(), "2|线头"})
                 .join('|')});
        COMPARE_ROWS(Rows("Select Quantity from Store"), {"4"});
        COMPARE_ROWS(Rows("Select Quantity from BuyPrice Order By ID"), {"0", "4"});
        QCOMPARE(ui->lb->text(), QString("120"));

        FindSale(ui, "NONE");
        QCOMPARE(ui->lbTip->text(), QString("无记录！"));
        // A quote breaks the search: the engine's text, then the run-time
        // error of reading its result.
        FindSale(ui, "S'1");
        const QStringList broken = Said(rec);
        QCOMPARE(broken.size(), 2);
        QVERIFY(broken[1].startsWith("E:运行时错误 '3704'"));
        QCOMPARE(grid->Rows() - 1, 1);
        ui->Opt->setFocus();
        Press(ui->Opt, Qt::Key_Right);
        QCOMPARE(GiveBack(w, rec), QStringList{kAsk});
        COMPARE_ROWS(Rows("Select Quantity from Store"), {"5"});
        COMPARE_ROWS(Rows("Select Quantity from BuyPrice Order By ID"), {"1", "4"});
        COMPARE_ROWS(Rows("Select SellGUID,State from SellChange Where StoreGUID=''"),
                     {second + "|2", first + "|2"});
        COMPARE_ROWS(Rows("Select State from Sell"), {"2", "2"});
        QCOMPARE(ui->lb->text(), QString());
        QCOMPARE(TestDb::Count("BackStore"), 1);
        CS_NO_LEFTOVER_BOXES(rec);
    }
};

CS_TEST(TestClientBack)
#include "tst_clientback.moc"
