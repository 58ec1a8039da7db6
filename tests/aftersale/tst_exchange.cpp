// Customer exchange with the replacement picker: the pair as it is built on
// screen and carried out, the money labels, and the rules of both windows.
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <functional>

#include "AfterSale.h"
#include "Modal.h"
#include "TestRegistry.h"
#include "frmChange.h"
#include "frmClientBackChange.h"
#include "ui_frmChange.h"
#include "ui_frmClientBackChange.h"

namespace {

void FindSale(frmClientBackChange& w, const QString& no) {
    Ui::frmClientBackChange* ui = w.ui();
    if (!ui->chkNo->isChecked()) Press(ui->chkNo, Qt::Key_Space);
    ui->txtSellNo->setFocus();
    ui->txtSellNo->clear();
    QTest::keyClicks(ui->txtSellNo, no);
    Press(ui->txtSellNo, Qt::Key_Return);
}

// Enter on the selected line opens the picker; the steps run in it, and a
// picker they leave open is closed.
void Pick(frmClientBackChange& w, const std::function<void(frmChange&)>& steps) {
    bool opened = false;
    Modal::Queue([&](QDialog* d) {
        auto* p = qobject_cast<frmChange*>(d);
        QVERIFY(p);
        opened = true;
        QApplication::setActiveWindow(p);
        (void)QTest::qWaitForWindowActive(p);
        steps(*p);
        if (p->isVisible()) p->reject();
    });
    w.ui()->VSFlexGrid->setFocus();
    Press(w.ui()->VSFlexGrid, Qt::Key_Return);
    QVERIFY(opened);
    Open(w);  // active again, as when the picker closes on screen
}

// Enter on the selected line, when the picker must not open.
void PickRefused(frmClientBackChange& w) {
    bool opened = false;
    Modal::SetUnplanned([&](QDialog*) { opened = true; });
    w.ui()->VSFlexGrid->setFocus();
    Press(w.ui()->VSFlexGrid, Qt::Key_Return);
    Modal::SetUnplanned({});
    QVERIFY(!opened);
}

// In the picker, from the keyboard: the article number, down to the goods,
// the discount (or, with special, the special price), confirmed.
void Choose(frmChange& p, MsgRecorder& rec, const QString& typeNo, const QString& value,
            bool special = false) {
    Ui::frmChange* ui = p.ui();
    ui->txtNo->setFocus();
    QTest::keyClicks(ui->txtNo, typeNo);
    Press(ui->txtNo, Qt::Key_Return);
    QCOMPARE(Focus(), ui->VSFlexGrid);
    Press(ui->VSFlexGrid, Qt::Key_Return);
    QCOMPARE(Focus(), ui->txtAbate);
    QLineEdit* box = ui->txtAbate;
    if (special) {
        Press(ui->txtAbate, Qt::Key_Down);
        box = ui->txtChangePrice;
        QCOMPARE(Focus(), box);
    }
    if (value != QStringLiteral("全")) QTest::keyClicks(box, value);  // else as it opens
    Press(box, Qt::Key_Return);
    QCOMPARE(Focus(), ui->cmdOk);
    rec.Yes();
    Press(ui->cmdOk, Qt::Key_Return);
}

QString Labels(frmClientBackChange& w) {
    return w.ui()->lbHave->text() + "/" + w.ui()->lbAmount->text() + "/" +
           w.ui()->lbBackAdd->text();
}

void Confirm(frmClientBackChange& w, MsgRecorder& rec) {
    w.ui()->cmdOk->setFocus();
    Press(w.ui()->cmdOk, Qt::Key_Return);
    QCOMPARE(Said(rec), QStringList{"I:调换成功！"});
}

const QString kAsk = QStringLiteral("Q:确定要调换吗？");

}  // namespace

class TestExchange : public QObject {
    Q_OBJECT
private Q_SLOTS:
    // A piece paid 100 swapped for goods at 80, all from the keyboard. The
    // line keeps its key, number, date, seller and payment and takes the new
    // goods, price and cost; the old goods live on in SellChange.
    void oneForCheaperGoods() {
        TestDb db;
        const QString oldG = TestDb::AddGoods("OLD", 3, 100, 40);
        const QString newG = TestDb::AddGoods("NEW", 2, 80, 30);
        const QString oldLayer = TestDb::Scalar("Select ID from BuyPrice Where Price=40");
        const QString newLayer = TestDb::Scalar("Select ID from BuyPrice Where Price=30");
        const QString line = SellPiece(oldG, "S1", "全", 100, 3);
        MsgRecorder rec;
        frmClientBackChange w;
        Open(w);
        Ui::frmClientBackChange* ui = w.ui();
        FindSale(w, "S1");
        QCOMPARE(Focus(), ui->txtSellNo);
        ui->comResion->setEditText("尺码不合适");
        Press(ui->txtSellNo, Qt::Key_Down);
        QCOMPARE(Focus(), ui->VSFlexGrid);
        Pick(w, [&](frmChange& p) { Choose(p, rec, "NEW", "全"); });
        QCOMPARE(Said(rec), QStringList{kAsk});

        QVERIFY(w.IsMarked(1));
        QCOMPARE(Labels(w), QString("100/80/-20"));
        QStringList pending;
        for (int c = 1; c < 16; ++c) pending << ui->VSChange->TextMatrix(1, c);
        QCOMPARE(pending.join('|'),
                 QStringList({newG, "NEW|T恤|青木|M|黑色|纯棉|一等品|广州|80|1|全|80", line, "S1"})
                     .join('|'));

        Confirm(w, rec);
        const clsUser& user = Session::User();
        QCOMPARE(Rows("Select * from SellChange").section('|', 1),
                 QStringList({oldG, Session::ShopNo,
                              "OLD|T恤|青木|M|黑色|纯棉|一等品|广州|1|100|全|100|40", user.No,
                              DaysAgo(3), oldLayer, user.Name, "-20", line, "S1", DateText::Today(),
                              "1|尺码不合适"})
                     .join('|'));
        QCOMPARE(Rows("Select * from Sell"),
                 QStringList({line, newG, Session::ShopNo,
                              "NEW|T恤|青木|M|黑色|纯棉|一等品|广州|1|80|全|80|30|admin",
                              DaysAgo(3), "S1", newLayer, "管理员|1|500|0"})
                     .join('|'));
        QCOMPARE(Rows("Select TypeNo||':'||Quantity from Store Order By TypeNo"),
                 QString("NEW:1/OLD:3"));
        QCOMPARE(Rows("Select Price||':'||Quantity from BuyPrice Order By Price"),
                 QString("30:1/40:3"));
        QCOMPARE(ui->VSChange->Rows() + ui->VSFlexGrid->Rows(), 2);
        QCOMPARE(Labels(w), QString("100/80/-20"));
        CS_NO_LEFTOVER_BOXES(rec);
    }

    // Two pairs in one run, one of them taken apart by Del and made again:
    // the labels follow every step and keep their figures after success.
    void twoPairsAndDel() {
        TestDb db;
        const QString a = TestDb::AddGoods("A", 2, 100, 40);
        const QString b = TestDb::AddGoods("B", 2, 50, 20);
        TestDb::AddGoods("X", 2, 199, 90);
        TestDb::AddGoods("Y", 2, 60, 25);
        const QString lineA = SellPiece(a, "S2", "全", 100);
        const QString lineB = SellPiece(b, "S2", "9", 45);
        MsgRecorder rec;
        frmClientBackChange w;
        Open(w);
        Ui::frmClientBackChange* ui = w.ui();
        VSGrid* g = ui->VSFlexGrid;
        FindSale(w, "S2");
        g->setRow(RowOf(g, "GUID", lineA));
        Pick(w, [&](frmChange& p) { Choose(p, rec, "X", "8.5"); });
        QCOMPARE(Labels(w), QString("100/169/69"));

        ui->cmdChange->click();
        QCOMPARE(Said(rec), QStringList({kAsk, "I:该商品已经被调换到下面的列表！"}));
        QCOMPARE(Focus(), ui->txtSellNo);

        const int rowB = RowOf(g, "GUID", lineB);
        g->setRow(rowB);
        Pick(w, [&](frmChange& p) { Choose(p, rec, "Y", "40", true); });
        QCOMPARE(Labels(w), QString("145/209/64"));
        QCOMPARE(ui->VSChange->Text("折扣") + ui->VSChange->Text("应收金额"), QString("特价40"));

        QAction* del = w.PopupMenu()->findChild<QAction*>("Del");
        QVERIFY(del);
        del->trigger();
        QCOMPARE(Labels(w), QString("100/169/69"));
        QVERIFY(!w.IsMarked(rowB));
        QCOMPARE(ui->VSChange->Rows(), 2);
        g->setRow(rowB);
        Pick(w, [&](frmChange& p) { Choose(p, rec, "Y", "全"); });
        QCOMPARE(Labels(w), QString("145/229/84"));
        QCOMPARE(Said(rec), QStringList({kAsk, kAsk}));

        Confirm(w, rec);
        QCOMPARE(Rows("Select TypeNo||':'||AddAmount from SellChange Order By TypeNo"),
                 QString("A:69/B:15"));
        QCOMPARE(Rows("Select TypeNo||':'||Amount||':'||State from Sell Order By TypeNo"),
                 QString("X:169:1/Y:60:1"));
        QCOMPARE(Rows("Select TypeNo||':'||Quantity from Store Order By TypeNo"),
                 QString("A:2/B:2/X:1/Y:1"));
        QCOMPARE(Labels(w), QString("145/229/84"));
        CS_NO_LEFTOVER_BOXES(rec);
    }

    // The amount of a replacement is a whole number, halves to the even one;
    // "10" is the full price; prices compare as texts under DearGoodsChange;
    // an amount beyond a 16-bit integer is a run-time error that leaves the
    // picker open and marks nothing.
    void pickerAmountsAndPriceText() {
        TestDb db;
        const QString old100 = TestDb::AddGoods("OLD100", 2, 100, 40);
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
        MsgRecorder rec;
        frmClientBackChange w;
        Open(w);
        Ui::frmClientBackChange* ui = w.ui();
        QAction* del = w.PopupMenu()->findChild<QAction*>("Del");
        FindSale(w, "S100");
        const struct {
            const char *typeNo, *typed, *abate, *amount;
        } cases[] = {{"P199", "8.5", "8.5", "169"},
                     {"P1995", "全", "全", "200"},
                     {"P1985", "10", "全", "198"}};
        for (const auto& c : cases) {
            Pick(w, [&](frmChange& p) { Choose(p, rec, c.typeNo, c.typed); });
            QCOMPARE(ui->VSChange->Text("折扣") + "=" + ui->VSChange->Text("应收金额"),
                     QString(c.abate) + "=" + c.amount);
            del->trigger();
        }
        QCOMPARE(Said(rec).size(), 3);

        Session::SellRole().DearGoodsChange = true;
        Pick(w, [&](frmChange& p) { Choose(p, rec, "P99", "全"); });  // "99" >= "100"
        QCOMPARE(Said(rec), QStringList{kAsk});
        del->trigger();
        FindSale(w, "S99");
        Pick(w, [&](frmChange& p) {
            p.ui()->txtNo->setText("P100");
            p.ui()->cmdOk->click();
            QCOMPARE(Said(rec), QStringList{"I:对不起只能调换比此商品价格高的商品！"});
        });
        QVERIFY(!w.IsMarked(1));

        Session::SellRole().DearGoodsChange = false;
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
        QCOMPARE(ui->VSChange->Rows(), 1);
        QVERIFY(!w.IsMarked(1));
        QCOMPARE(Labels(w), QString("0/0/0"));
        CS_NO_LEFTOVER_BOXES(rec);
    }

    // The day limit counts the day of sale as day 1; a line exchanged for
    // discounted goods is refused a second exchange under ChangeOneTime,
    // before its kind of sale is looked at.
    void rulesOfTheExchangeWindow() {
        TestDb db;
        clsSellRole& rules = Session::SellRole();
        rules.ChangeDays = 30;
        rules.ChangeOneTime = rules.AbateCanNotChange = true;
        const QString g = TestDb::AddGoods("C1", 5, 100, 40);
        TestDb::AddGoods("C2", 5, 100, 40);
        SellPiece(g, "D29", "全", 100, 29);
        SellPiece(g, "D30", "全", 100, 30);
        SellPiece(g, "DISC", "9", 90);
        MsgRecorder rec;
        frmClientBackChange w;
        Open(w);
        w.ui()->cmdChange->click();
        QCOMPARE(Said(rec), QStringList{"I:请选择被调换的商品"});

        FindSale(w, "D30");
        PickRefused(w);
        QCOMPARE(Said(rec), QStringList{"I:很遗憾！该商品已经超过了规定的调货时间，您无法调换！"});
        FindSale(w, "DISC");
        PickRefused(w);
        QCOMPARE(Said(rec), QStringList{"I:对不起！该商品是折扣商品，您无法调换！"});

        FindSale(w, "D29");
        Pick(w, [&](frmChange& p) { Choose(p, rec, "C2", "9"); });
        QCOMPARE(Said(rec), QStringList{kAsk});
        Confirm(w, rec);
        FindSale(w, "D29");
        PickRefused(w);
        QCOMPARE(Said(rec), QStringList{"I:对不起，该商品已经调换过一次了，不能进行二次调换了！"});
        rules.ChangeOneTime = rules.AbateCanNotChange = false;
        bool opened = false;
        Pick(w, [&](frmChange&) { opened = true; });
        QVERIFY(opened);
        CS_NO_LEFTOVER_BOXES(rec);
    }
};

CS_TEST(TestExchange)
#include "tst_exchange.moc"
