// Customer return: the refusals in their order, and the two destinations of
// a returned piece.
#include "AfterSale.h"
#include "TestRegistry.h"
#include "frmClientBack.h"
#include "ui_frmClientBack.h"

namespace {
// Confirms (or not) the return of the selected line, from the keyboard; a
// question left unanswered is a "No".
QStringList GiveBack(frmClientBack& w, MsgRecorder& rec, bool yes = true) {
    if (yes) rec.Yes();
    Press(w.ui()->cmdOk, Qt::Key_Return);
    return Said(rec);
}
const QString kAsk = QStringLiteral("Q:确认要退货吗？");
}  // namespace

class TestClientBack : public QObject {
    Q_OBJECT
private Q_SLOTS:
    // Refusals first: the exchanged line, then the kind of sale, then the day
    // limit, which counts the day of sale as day 1 (0 is no limit); neither a
    // refusal nor a "No" writes anything. Then one piece to the problem stock
    // (the default): a BackStore row keyed by the goods row, the copy of the
    // line with the refund, shelf and layers untouched; the other to the
    // shelf, into the very layer it was sold from though that is at 0. The
    // refund follows the row; a search that finds nothing, or fails, leaves
    // the list.
    void refusalsThenBothDestinations() {
        TestDb db;
        clsSellRole& rules = Session::SellRole();
        rules.BackDays = 1;
        rules.AbateCanNotBack = rules.SpecialCanNotBack = rules.ChangNotToBack = true;
        const QString r = TestDb::AddGoods("R1", 10, 100, 40);
        SellPiece(r, "TODAY", "全", 100);
        SellPiece(r, "YESTERDAY", "全", 100, 1);
        SellPiece(r, "DISCOUNT", "9", 90, 1);
        SellPiece(r, "SPECIAL", "特价", 70);
        SellPiece(r, "EXCHANGED", "9", 90, 0, 1);
        const QString g = TestDb::AddGoods("P1", 1, 120, 50, "M", "黑色", "", "2026-01-05");
        const QString first = SellPiece(g, "S1", "全", 120);
        AddLayer(g, 60, 5);
        const QString second = SellPiece(g, "S1", "9", 108);
        const QString kept = "Select State from Sell Union All Select Quantity from BuyPrice";
        const QList<QStringList> before = Rows(kept);
        MsgRecorder rec;
        frmClientBack w;
        Open(w);
        Ui::frmClientBack* ui = w.ui();
        VSGrid* grid = ui->VSFlexGrid;
        ui->cmdQuery->click();
        QCOMPARE(Said(rec), QStringList{"I:请选择条件！"});
        const QStringList said[] = {
            {"TODAY", kAsk},
            {"YESTERDAY", "I:很遗憾！该商品已经超过了规定的退货时间，您无法退货！"},
            {"DISCOUNT", "I:对不起！该商品是折扣商品，您无法退货！"},
            {"SPECIAL", "I:对不起！该商品是特价商品，您无法退货！"},
            {"EXCHANGED", "I:对不起该商品已经调换过不能再退货！"}};
        for (const QStringList& c : said) {
            FindSale(ui, c[0]);
            QCOMPARE(GiveBack(w, rec, false), QStringList{c[1]});
        }
        rules.ChangNotToBack = rules.AbateCanNotBack = false;
        rules.BackDays = 0;
        for (const char* sale : {"EXCHANGED", "DISCOUNT", "YESTERDAY"}) {
            FindSale(ui, sale);
            QCOMPARE(GiveBack(w, rec, false), QStringList{kAsk});
        }
        COMPARE_ROWS(Rows(kept), before);
        QCOMPARE(TestDb::Count("SellChange"), 0);

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
        const QString layers =
            "Select Quantity from BuyPrice Where StoreGUID='" + g + "' Order By ID";
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
        COMPARE_ROWS(Rows("Select Quantity from Store Where GUID='" + g + "'"), {"4"});
        COMPARE_ROWS(Rows(layers), {"0", "4"});
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
        COMPARE_ROWS(Rows("Select Quantity from Store Where GUID='" + g + "'"), {"5"});
        COMPARE_ROWS(Rows(layers), {"1", "4"});
        COMPARE_ROWS(Rows("Select SellGUID,State from SellChange Where StoreGUID=''"),
                     {second + "|2", first + "|2"});
        COMPARE_ROWS(Rows("Select State from Sell Where SellNo='S1'"), {"2", "2"});
        QCOMPARE(ui->lb->text(), QString());
        QCOMPARE(TestDb::Count("BackStore"), 1);
        CS_NO_LEFTOVER_BOXES(rec);
    }
};

CS_TEST(TestClientBack)
#include "tst_clientback.moc"
