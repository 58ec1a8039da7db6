// The sale window up to checkout: the amount of each piece, the stock test
// counting the basket, and the refusals.
#include "SaleWindow.h"
#include "Session.h"
#include "TestRegistry.h"

class TestSaleEntry : public QObject {
    Q_OBJECT
private Q_SLOTS:
    // Whole-number amounts: the discount factor is a 32-bit float, a special
    // price is rounded half to even; one row per piece.
    void amountsOfPieces() {
        TestDb db;
        for (int p : {100, 99, 25, 15, 50}) TestDb::AddGoods(QString("P%1").arg(p), 8, p, 10);
        MsgRecorder rec;
        SaleWindow s;
        const struct {
            const char *typeNo, *value, *amount;
            bool special;
        } rows[] = {{"P100", "全", "100", false}, {"P99", "8.5", "84", false},
                    {"P25", "9", "22", false},    {"P15", "9", "14", false},
                    {"P50", "8.1", "41", false},  {"P100", "99.5", "100", true},
                    {"P100", "98.5", "98", true}};
        for (const auto& r : rows) {
            s.Sell(r.typeNo, "1", r.value, r.special);
            QCOMPARE(s.LastAmount(), QString(r.amount));
            QCOMPARE(s.ui->VSSell->Cell(s.Pieces(), "折扣"), QString(r.special ? "特价" : r.value));
        }
        QCOMPARE(s.ui->lbAmount->text(), QString("459"));
        s.Sell("P25", "3", "9");
        s.Sell("P25", "2.5", "8");  // two rows of one piece each
        QCOMPARE(s.Pieces(), 12);
        QCOMPARE(s.ui->VSSell->Cell(12, "数量") + s.LastAmount(), QString("120"));
        CS_NO_LEFTOVER_BOXES(rec);
    }

    // A discount or special price box reads its number once: the range test
    // and the amount see the same figure, so a comma never multiplies the
    // price. A fractional quantity is rounded to whole pieces.
    void numbersReadAlikeInTestAndAmount() {
        TestDb db;
        TestDb::AddGoods("C100", 9, 100, 40);
        TestDb::AddGoods("C1500", 9, 1500, 600);
        MsgRecorder rec;
        SaleWindow s;
        s.Sell("C100", "1", "8,5");
        QCOMPARE(Said(rec), QStringList{"W:请输入0.1-10的数字或小数！"});
        QCOMPARE(s.Focus(), s.ui->txtAbate);
        s.Sell("C100", "1", "1,000", true);
        QCOMPARE(Said(rec), QStringList{"W:特价比零售价还要贵么？"});
        QCOMPARE(s.Pieces(), 0);
        s.Sell("C1500", "1", "1,000", true);
        QCOMPARE(s.Pieces(), 1);
        QCOMPARE(s.LastAmount(), QString("1000"));
        s.Sell("C100", "1.5", "全");
        QCOMPARE(s.Pieces(), 3);
        QCOMPARE(s.LastAmount(), QString("100"));
        QCOMPARE(s.ui->lbAmount->text(), QString("1200"));
        CS_NO_LEFTOVER_BOXES(rec);
    }

    // Taking a discounted piece out lowers the total by what it was charged,
    // not by its list price.
    void cancelTakesOffTheChargedAmount() {
        TestDb db;
        TestDb::AddGoods("D100", 5, 100, 40);
        TestDb::AddGoods("D99", 5, 99, 40);
        MsgRecorder rec;
        SaleWindow s;
        s.Sell("D100", "1", "全");
        s.Sell("D99", "1", "8.5");
        QCOMPARE(s.ui->lbAmount->text(), QString("184"));
        s.ui->VSSell->setFocus();
        s.Key(Qt::Key_Delete);
        QCOMPARE(s.Pieces(), 1);
        QCOMPARE(s.ui->lbAmount->text(), QString("100"));
        CS_NO_LEFTOVER_BOXES(rec);
    }

    // The stock test counts the pieces already in the basket.
    void stockTestCountsTheBasket() {
        TestDb db;
        TestDb::AddGoods("S2", 2, 80, 40);
        MsgRecorder rec;
        SaleWindow s;
        const QString shortText = "库存不足不能结帐，请通知管理员！";
        s.ui->txtNo->setText("S2");
        s.ui->txtQuatity->setText("3");
        s.Enter(s.ui->txtQuatity);
        QCOMPARE(Said(rec), QStringList{"I:" + shortText});
        QCOMPARE(s.Focus(), s.ui->txtQuatity);
        s.Sell("S2", "3", "全");
        QCOMPARE(Said(rec), QStringList{"W:" + shortText});
        s.Sell("S2", "2", "全");
        s.Sell("S2", "1", "全");
        QCOMPARE(Said(rec), QStringList{"W:" + shortText});
        QCOMPARE(s.Pieces(), 2);
        s.w.Cancel();  // a piece out makes room again
        s.Sell("S2", "1", "全");
        QCOMPARE(s.Pieces(), 2);
        CS_NO_LEFTOVER_BOXES(rec);
    }

    // Each refusal in its order and kind, from each box; nothing is added.
    void refusals() {
        TestDb db;
        TestDb::AddGoods("R1", 5, 100, 20);
        MsgRecorder rec;
        SaleWindow s;
        s.ui->txtNo->setText("R1");
        for (const char* qty : {"abc", "", "0", "-2"}) {
            const QString text = QString(qty).toInt() < 0 || QString(qty) == "0"
                                     ? "数量的不能小于0！"
                                     : "数量的数据类型不正确！";
            s.ui->txtQuatity->setText(qty);
            s.Enter(s.ui->txtQuatity);
            s.Enter(s.ui->txtAbate);
            s.ui->txtChangePrice->setText("40");
            s.Enter(s.ui->txtChangePrice);
            QCOMPARE(Said(rec), (QStringList{"I:" + text, "W:" + text, "W:" + text}));
            QCOMPARE(s.Focus(), s.ui->txtQuatity);
        }
        // The discount is tested before the quantity.
        for (const char* abate : {"99", "8x"}) {
            s.ui->txtAbate->setText(abate);
            s.Enter(s.ui->txtAbate);
        }
        QCOMPARE(Said(rec),
                 (QStringList{"W:请输入0.1-10的数字或小数！", "W:数量的数据类型不正确！"}));
        QCOMPARE(s.Focus(), s.ui->txtAbate);
        s.ui->txtQuatity->setText("1");
        for (const char* price : {"1a", "120"}) {
            s.ui->txtChangePrice->setText(price);
            s.Enter(s.ui->txtChangePrice);
        }
        QCOMPARE(Said(rec), (QStringList{"W:请输入有效数字！", "W:特价比零售价还要贵么？"}));
        QCOMPARE(s.Focus(), s.ui->txtChangePrice);
        // An empty goods list: quantity and special price say so, the
        // discount keeps silent.
        s.ui->txtAbate->setText("9");
        s.ui->txtNo->setText("NOTHING");
        s.Enter(s.ui->txtQuatity);
        s.Enter(s.ui->txtAbate);
        s.Enter(s.ui->txtChangePrice);
        QCOMPARE(Said(rec), (QStringList{"I:请选择一个商品！", "W:请选择一个商品！"}));
        QCOMPARE(s.Pieces(), 0);
        CS_NO_LEFTOVER_BOXES(rec);
    }
};

CS_TEST(TestSaleEntry)
#include "tst_sale_entry.moc"
