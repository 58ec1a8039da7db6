// Customer exchange with the replacement picker: pairs built on screen and
// carried out, the money labels, and the rules of both windows.
#include <QMenu>
#include <functional>

#include "AfterSale.h"
#include "Modal.h"
#include "TestRegistry.h"
#include "frmChange.h"
#include "frmClientBackChange.h"
#include "ui_frmChange.h"
#include "ui_frmClientBackChange.h"

namespace {

// Enter on the selected line opens the picker, where the steps run; a
// picker they leave open is closed. Without steps the picker must not open.
void Pick(frmClientBackChange& w, const std::function<void(frmChange&)>& steps = {}) {
    bool opened = false;
    Modal::SetUnplanned([&](QDialog* d) {
        opened = true;
        QApplication::setActiveWindow(d);
        (void)QTest::qWaitForWindowActive(d);
        if (steps) steps(*qobject_cast<frmChange*>(d));
    });
    Press(w.ui()->VSFlexGrid, Qt::Key_Return);
    Modal::SetUnplanned({});
    QCOMPARE(opened, bool(steps));
    Open(w);  // active again, as when the picker closes on screen
}
// In the picker, from the keyboard: the article number, down to the goods,
// the discount (or the special price), confirmed.
void Choose(frmChange& p, MsgRecorder& rec, const QString& typeNo, const QString& value,
            bool special = false) {
    Ui::frmChange* ui = p.ui();
    QTest::keyClicks(ui->txtNo, typeNo);
    Press(ui->txtNo, Qt::Key_Return);
    Press(ui->VSFlexGrid, Qt::Key_Return);
    QCOMPARE(Focus(), ui->txtAbate);
    if (special) Press(ui->txtAbate, Qt::Key_Down);
    if (value != QStringLiteral("全")) QTest::keyClicks(Focus(), value);  // else as it opens
    Press(Focus(), Qt::Key_Return);
    QCOMPARE(Focus(), ui->cmdOk);
    rec.Yes();
    Press(ui->cmdOk, Qt::Key_Return);
}
// The money labels; the discount and the amount due of the chosen replacement.
QStringList Labels(frmClientBackChange& w) {
    return {w.ui()->lbHave->text(), w.ui()->lbAmount->text(), w.ui()->lbBackAdd->text()};
}
QStringList Chosen(frmClientBackChange& w) {
    return {w.ui()->VSChange->Text("折扣"), w.ui()->VSChange->Text("应收金额")};
}

const QString kAsk = QStringLiteral("Q:确定要调换吗？"), kDone = QStringLiteral("I:调换成功！");

}  // namespace

class TestExchange : public QObject {
    Q_OBJECT
private Q_SLOTS:
    // Two pairs in one run, from the keyboard: a piece paid 100 for goods at
    // 80, a discounted piece paid 45 for goods at a special price of 40. Each
    // line keeps its key, number, date, seller and payment and takes the new
    // goods, price and cost; the old goods live on in SellChange with what
    // the customer added. A marked line can't be paired twice; the labels add
    // both pairs and keep their figures after success.
    void twoPairsInOneRun() {
        TestDb db;
        const QString a = TestDb::AddGoods("A", 3, 100, 40);
        const QString b = TestDb::AddGoods("B", 2, 50, 20);
        const QString n = TestDb::AddGoods("NEW", 2, 80, 30);
        TestDb::AddGoods("Y", 2, 60, 25);
        const QString lineA = SellPiece(a, "S2", "全", 100, 3);
        const QString lineB = SellPiece(b, "S2", "9", 45, 3);
        MsgRecorder rec;
        frmClientBackChange w;
        Open(w);
        Ui::frmClientBackChange* ui = w.ui();
        VSGrid* g = ui->VSFlexGrid;
        FindSale(ui, "S2");
        QCOMPARE(Focus(), ui->txtSellNo);
        ui->comResion->setEditText("尺码不合适");
        Press(ui->txtSellNo, Qt::Key_Down);
        QCOMPARE(Focus(), g);
        g->setRow(RowOf(g, "GUID", lineA));
        Pick(w, [&](frmChange& p) { Choose(p, rec, "NEW", "全"); });
        QCOMPARE(Labels(w), Values("100|80|-20"));
        ui->cmdChange->click();
        QCOMPARE(Said(rec), QStringList({kAsk, "I:该商品已经被调换到下面的列表！"}));
        QCOMPARE(Focus(), ui->txtSellNo);

        g->setRow(RowOf(g, "GUID", lineB));
        Pick(w, [&](frmChange& p) { Choose(p, rec, "Y", "40", true); });
        QCOMPARE(Chosen(w), Values("特价|40"));
        QCOMPARE(Labels(w), Values("145|120|-25"));
        Press(ui->cmdOk, Qt::Key_Return);
        QCOMPARE(Said(rec), QStringList({kAsk, kDone}));

        const clsUser& user = Session::User();
        const QString layer = "Select ID from BuyPrice Where StoreGUID='";
        COMPARE_ROWS(
            Rows("Select * from SellChange Where TypeNo='A'", 1),
            {QStringList({a, Session::ShopNo, "A|T恤|青木|M|黑色|纯棉|一等品|广州|1|100|全|100|40",
                          user.No, DaysAgo(3), TestDb::Scalar(layer + a + "'"), user.Name, "-20",
                          lineA, "S2", DateText::Today(), "1|尺码不合适"})
                 .join('|')});
        COMPARE_ROWS(Rows("Select AddAmount from SellChange Where TypeNo='B'"), {"-5"});
        COMPARE_ROWS(
            Rows("Select * from Sell Where GUID='" + lineA + "'"),
            {QStringList({lineA, n, Session::ShopNo,
                          "NEW|T恤|青木|M|黑色|纯棉|一等品|广州|1|80|全|80|30|admin", DaysAgo(3),
                          "S2", TestDb::Scalar(layer + n + "'"), "管理员|1|500|0"})
                 .join('|')});
        COMPARE_ROWS(
            Rows("Select TypeNo,Amount,BuyPrice,State from Sell Where GUID='" + lineB + "'"),
            {"Y|40|25|1"});
        COMPARE_ROWS(Rows("Select Quantity from Store Order By TypeNo"), {"3", "2", "1", "1"});
        COMPARE_ROWS(Rows("Select Quantity from BuyPrice Order By Price"), {"2", "1", "1", "3"});
        QCOMPARE(ui->VSChange->Rows(), 1);
        QCOMPARE(g->Rows(), 1);
        QCOMPARE(Labels(w), Values("145|120|-25"));
        CS_NO_LEFTOVER_BOXES(rec);
    }

    // Amounts are whole numbers, halves to the even one; "10" is the full
    // price; Del undoes a pair; under DearGoodsChange prices compare as
    // texts; an amount beyond a 16-bit integer is a run-time error that
    // leaves the picker open. Then the window's rules: the day limit counts
    // the day of sale as day 1; a line exchanged for discounted goods is
    // refused a second exchange under ChangeOneTime, before its kind of sale
    // is looked at.
    void pickerAmountsAndRules() {
        TestDb db;
        clsSellRole& rules = Session::SellRole();
        rules.ChangeDays = 30;
        rules.ChangeOneTime = rules.AbateCanNotChange = true;
        const QString old100 = TestDb::AddGoods("OLD100", 4, 100, 40);
        const QString old99 = TestDb::AddGoods("OLD99", 2, 99, 40);
        for (const auto& [typeNo, price] : {std::pair{"P199", 199.0},
                                            {"P1995", 199.5},
                                            {"P1985", 198.5},
                                            {"P99", 99.0},
                                            {"P100", 100.0},
                                            {"BIG", 50000.0}})
            TestDb::AddGoods(typeNo, 3, price, 10);
        SellPiece(old100, "S100", "全", 100);
        SellPiece(old99, "S99", "全", 99);
        SellPiece(old100, "D29", "全", 100, 29);
        SellPiece(old100, "D30", "全", 100, 30);
        MsgRecorder rec;
        frmClientBackChange w;
        Open(w);
        Ui::frmClientBackChange* ui = w.ui();
        ui->cmdChange->click();
        QCOMPARE(Said(rec), QStringList{"I:请选择被调换的商品"});
        FindSale(ui, "S100");
        const QStringList cases[] = {
            {"P199", "8.5", "8.5|169"}, {"P1995", "全", "全|200"}, {"P1985", "10", "全|198"}};
        for (const QStringList& c : cases) {
            Pick(w, [&](frmChange& p) { Choose(p, rec, c[0], c[1]); });
            QCOMPARE(Chosen(w), Values(c[2]));
            w.PopupMenu()->findChild<QAction*>("Del")->trigger();
        }
        QCOMPARE(Said(rec).size(), 3);

        rules.DearGoodsChange = true;
        Pick(w, [&](frmChange& p) { Choose(p, rec, "P99", "全"); });  // "99" after "100"
        QCOMPARE(Said(rec), QStringList{kAsk});
        w.PopupMenu()->findChild<QAction*>("Del")->trigger();
        FindSale(ui, "S99");
        Pick(w, [&](frmChange& p) {
            p.ui()->txtNo->setText("P100");
            p.ui()->cmdOk->click();
        });
        QCOMPARE(Said(rec), QStringList{"I:对不起只能调换比此商品价格高的商品！"});

        rules.DearGoodsChange = false;
        Pick(w, [&](frmChange& p) {
            p.ui()->txtNo->setText("BIG");
            p.ui()->OptChangePrice->click();
            p.ui()->txtChangePrice->setText("40000");
            rec.Yes();
            p.ui()->cmdOk->click();
            QVERIFY(p.isVisible());
        });
        const QStringList said = Said(rec);
        QCOMPARE(said.size(), 2);
        QCOMPARE(said[0], kAsk);
        QVERIFY(said[1].startsWith("E:运行时错误 '6'"));
        QVERIFY(!w.IsMarked(1));
        QCOMPARE(ui->VSChange->Rows(), 1);
        QCOMPARE(Labels(w), Values("0|0|0"));

        FindSale(ui, "D30");
        Pick(w);
        QCOMPARE(Said(rec), QStringList{"I:很遗憾！该商品已经超过了规定的调货时间，您无法调换！"});
        FindSale(ui, "D29");
        Pick(w, [&](frmChange& p) { Choose(p, rec, "P100", "9"); });
        Press(ui->cmdOk, Qt::Key_Return);
        QCOMPARE(Said(rec), QStringList({kAsk, kDone}));
        FindSale(ui, "D29");
        Pick(w);
        QCOMPARE(Said(rec), QStringList{"I:对不起，该商品已经调换过一次了，不能进行二次调换了！"});
        rules.ChangeOneTime = false;
        Pick(w);
        QCOMPARE(Said(rec), QStringList{"I:对不起！该商品是折扣商品，您无法调换！"});
        CS_NO_LEFTOVER_BOXES(rec);
    }
};

CS_TEST(TestExchange)
#include "tst_exchange.moc"
