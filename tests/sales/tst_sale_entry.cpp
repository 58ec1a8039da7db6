// The sale window up to checkout: finding goods, the Enter and arrow chain
// with its refusals, the amount of each piece, the pre-sale list, payment.
#include <QMenu>
#include <QTest>

#include "MsgRecorder.h"
#include "SaleWindow.h"
#include "Session.h"
#include "TestDb.h"
#include "TestRegistry.h"
#include "ui_frmSell.h"

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
        const char* cases[][3] = {{"P100", "全", "100"},
                                  {"P99", "8.5", "84"},
                                  {"P25", "9", "22"},
                                  {"P15", "9", "14"},
                                  {"P50", "8.1", "41"}};
        for (const auto& c : cases) {
            s.SellAt(c[0], "1", c[1]);
            QCOMPARE(s.LastAmount(), QString(c[2]));
            QCOMPARE(s.ui->VSSell->Cell(s.Pieces(), "折扣"), QString(c[1]));
        }
        s.SellSpecial("P100", "1", "99.5");
        QCOMPARE(s.LastAmount(), QString("100"));
        QCOMPARE(s.ui->VSSell->Cell(s.Pieces(), "折扣"), QString("特价"));
        s.SellSpecial("P100", "1", "98.5");
        QCOMPARE(s.LastAmount(), QString("98"));
        s.SellSpecial("P100", "1", "-5");  // no lower limit
        QCOMPARE(s.LastAmount(), QString("-5"));
        QCOMPARE(s.ui->lbAmount->text(), QString("454"));
        // Three pieces give three rows; 2.5 pieces pass the stock test against
        // 3 left and give 2 rows; what was typed stays for the next line.
        s.SellAt("P25", "3", "9");
        QCOMPARE(s.Pieces(), 11);
        s.SellAt("P25", "2.5", "8");
        QCOMPARE(s.Pieces(), 13);
        QCOMPARE(s.ui->VSSell->Cell(13, "数量"), QString("1"));
        QCOMPARE(s.ui->VSSell->Cell(13, "零售价"), QString("25"));
        QCOMPARE(s.ui->txtQuatity->text() + s.ui->txtAbate->text(), QString("2.58"));
        CS_NO_LEFTOVER_BOXES(rec);
    }

    // The stock test counts the basket against the grid's figure.
    void stockTestCountsTheBasket() {
        TestDb db;
        TestDb::AddGoods("S2", 2, 80, 40);
        MsgRecorder rec;
        SaleWindow s;
        const QString shortText = "库存不足不能结帐，请通知管理员！";
        s.Find("S2");
        s.ui->txtQuatity->setText("3");
        s.Enter(s.ui->txtQuatity);
        QCOMPARE(Said(rec), QStringList{"I:" + shortText});
        QCOMPARE(s.Focus(), s.ui->txtQuatity);
        s.SellAt("S2", "3", "全");
        QCOMPARE(Said(rec), QStringList{"W:" + shortText});
        s.SellAt("S2", "2", "全");
        s.SellAt("S2", "1", "全");
        QCOMPARE(Said(rec), QStringList{"W:" + shortText});
        QCOMPARE(s.Pieces(), 2);
        s.w.Cancel();  // a piece out makes room again
        s.SellAt("S2", "1", "全");
        QCOMPARE(s.Pieces(), 2);
        CS_NO_LEFTOVER_BOXES(rec);
    }

    // Each refusal in its order and kind; nothing is added.
    void refusals() {
        TestDb db;
        TestDb::AddGoods("R1", 5, 100, 20);
        MsgRecorder rec;
        SaleWindow s;
        s.Find("R1");
        for (const char* qty : {"abc", "", "0", "-2"}) {
            const QString text = QString(qty).isEmpty() || QString(qty) == "abc"
                                     ? "数量的数据类型不正确！"
                                     : "数量的不能小于0！";
            s.ui->txtQuatity->setText(qty);
            s.Enter(s.ui->txtQuatity);
            s.Enter(s.ui->txtAbate);
            s.ui->txtChangePrice->setText("40");
            s.Enter(s.ui->txtChangePrice);
            QCOMPARE(Said(rec), (QStringList{"I:" + text, "W:" + text, "W:" + text}));
            QCOMPARE(s.Focus(), s.ui->txtQuatity);
        }
        // The discount is tested before the quantity.
        s.ui->txtAbate->setText("99");
        s.Enter(s.ui->txtAbate);
        s.ui->txtAbate->setText("8x");
        s.Enter(s.ui->txtAbate);
        QCOMPARE(Said(rec),
                 (QStringList{"W:请输入0.1-10的数字或小数！", "W:数量的数据类型不正确！"}));
        QCOMPARE(s.Focus(), s.ui->txtAbate);
        s.ui->txtQuatity->setText("1");
        s.ui->txtChangePrice->setText("1a");
        s.Enter(s.ui->txtChangePrice);
        s.ui->txtChangePrice->setText("120");
        s.Enter(s.ui->txtChangePrice);
        QCOMPARE(Said(rec), (QStringList{"W:请输入有效数字！", "W:特价比零售价还要贵么？"}));
        QCOMPARE(s.Focus(), s.ui->txtChangePrice);
        // An empty goods list: quantity and special price say so, the
        // discount keeps silent; the price shown stays.
        s.ui->txtAbate->setText("9");
        s.Find("NOTHING");
        QCOMPARE(s.ui->txtPrice->text(), QString("100"));
        s.Enter(s.ui->txtQuatity);
        s.Enter(s.ui->txtAbate);
        s.Enter(s.ui->txtChangePrice);
        QCOMPARE(Said(rec), (QStringList{"I:请选择一个商品！", "W:请选择一个商品！"}));
        QCOMPARE(s.Pieces(), 0);
        CS_NO_LEFTOVER_BOXES(rec);
    }

    // Anything comparing at or below "10" turns into full price.
    void discountBoxShowsFullPrice() {
        TestDb db;
        SaleWindow s;
        QLineEdit* a = s.ui->txtAbate;
        a->setText("10");
        QCOMPARE(a->text(), QString("全"));
        a->setText("");
        QCOMPARE(a->text(), QString("全"));
        a->setFocus();  // selects the whole text
        s.Type("2.5");
        QCOMPARE(a->text(), QString("2.5"));
        a->selectAll();
        s.Type("1.5");  // the 1 turns into full price at once
        QCOMPARE(a->text(), QString("全.5"));
    }

    // Article number narrowing on every key, the bar code on Enter.
    void findingGoods() {
        TestDb db;
        TestDb::AddGoods("ZMN0001", 3, 120, 60, "L", "白色", "6901001");
        TestDb::AddGoods("ZMN0002", 2, 88, 40, "M", "红色", "6901002");
        TestDb::AddGoods("XK0007", 1, 45, 20, "S", "黑色", "6901003");
        TestDb::AddGoods("GONE01", 0, 45, 20);  // nothing in stock: never listed
        MsgRecorder rec;
        SaleWindow s;
        VSGrid* g = s.ui->VSFlexGrid;
        QCOMPARE(g->Rows() - 1, 3);
        QCOMPARE(s.ui->lbOpt->text(), Session::User().Name);
        s.ui->txtNo->setFocus();
        s.Type("zmn");
        QCOMPARE(g->Rows() - 1, 2);
        s.Type("0002");
        QCOMPARE(g->Cell(1, "货号") + s.ui->txtPrice->text(), QString("ZMN000288"));
        s.ui->txtNo->setText("O'Neil");  // quoted: no error, no rows
        QCOMPARE(g->Rows(), 1);
        s.ui->txtNo->clear();
        QCOMPARE(g->Rows() - 1, 3);

        s.ui->txtIDCode->setFocus();
        s.Type("6901003");
        QCOMPARE(g->Rows() - 1, 3);  // nothing before Enter
        s.Key(Qt::Key_Return);
        QCOMPARE(g->Cell(1, "货号") + s.ui->txtPrice->text(), QString("XK000745"));
        QCOMPARE(g->Rows() - 1, 1);
        QCOMPARE(s.Focus(), static_cast<QWidget*>(g));
        s.ui->txtIDCode->setText("0000");
        s.Enter(s.ui->txtIDCode);
        QCOMPARE(g->Rows(), 1);
        CS_NO_LEFTOVER_BOXES(rec);
    }

    // The keyboard chain: down into the list, Enter on to quantity and
    // discount, arrows between discount and special price, Enter adds.
    void enterAndArrowChain() {
        TestDb db;
        for (int i = 1; i <= 3; ++i) TestDb::AddGoods(QString("A%1").arg(i), 3, i * 100, 50);
        MsgRecorder rec;
        SaleWindow s;
        VSGrid* g = s.ui->VSFlexGrid;
        s.ui->txtNo->setFocus();
        s.Type("A");
        s.Key(Qt::Key_Down);
        QCOMPARE(s.Focus(), static_cast<QWidget*>(g));
        QCOMPARE(s.ui->txtPrice->text(), QString("200"));
        // Arrows in the list move the row although the current cell is the hidden key.
        s.Key(Qt::Key_Up);
        QCOMPARE(s.ui->txtPrice->text(), QString("100"));
        s.Key(Qt::Key_Down);
        s.Key(Qt::Key_Return);
        QCOMPARE(s.Focus(), s.ui->txtQuatity);
        QCOMPARE(s.ui->txtQuatity->selectedText(), QString("1"));
        s.Key(Qt::Key_Return);
        QCOMPARE(s.Focus(), s.ui->txtAbate);
        s.Key(Qt::Key_Down);
        QCOMPARE(s.Focus(), s.ui->txtChangePrice);
        QVERIFY(s.ui->OptChangePrice->isChecked());
        s.Key(Qt::Key_Up);
        QCOMPARE(s.Focus(), s.ui->txtAbate);
        QVERIFY(s.ui->OptAbate->isChecked());
        s.Type("9");
        s.Key(Qt::Key_Return);
        QCOMPARE(s.ui->VSSell->Cell(1, "货号") + s.LastAmount(), QString("A2180"));
        QCOMPARE(s.Focus(), s.ui->txtReciveAmout);
        // "+" goes back for more goods; Up to the list, Enter there to payment.
        s.Type("+");
        QCOMPARE(s.Focus(), s.ui->txtNo);
        QCOMPARE(s.ui->txtReciveAmout->text(), QString());
        s.ui->txtReciveAmout->setFocus();
        s.Key(Qt::Key_Up);
        QCOMPARE(s.Focus(), static_cast<QWidget*>(s.ui->VSSell));
        s.Key(Qt::Key_Return);
        QCOMPARE(s.Focus(), s.ui->txtReciveAmout);
        // cmdAdd follows the option that is set.
        s.ui->OptChangePrice->setChecked(true);
        s.ui->txtChangePrice->setText("150");
        s.ui->cmdAdd->click();
        QCOMPARE(s.LastAmount(), QString("150"));
        CS_NO_LEFTOVER_BOXES(rec);
    }

    // F1 to F7 move the focus from anywhere; Del and the popup remove a piece.
    void functionKeysAndRemoval() {
        TestDb db;
        TestDb::AddGoods("F1", 5, 100, 50);
        MsgRecorder rec;
        SaleWindow s;
        const std::pair<Qt::Key, QWidget*> keys[] = {
            {Qt::Key_F1, s.ui->txtQuatity},     {Qt::Key_F2, s.ui->txtAbate},
            {Qt::Key_F3, s.ui->txtChangePrice}, {Qt::Key_F4, s.ui->txtReciveAmout},
            {Qt::Key_F5, s.ui->txtNo},          {Qt::Key_F6, s.ui->VSFlexGrid},
            {Qt::Key_F7, s.ui->VSSell}};
        for (const auto& [key, to] : keys) {
            s.ui->txtIDCode->setFocus();
            s.Key(key);
            QCOMPARE(s.Focus(), to);
        }
        s.SellAt("F1", "2", "8");
        s.SellSpecial("F1", "1", "50");
        QCOMPARE(s.ui->lbAmount->text(), QString("210"));
        // Del in the article box removes the current piece and acts on the box too.
        s.ui->txtNo->setText("F1x");
        s.ui->txtNo->setFocus();
        s.ui->txtNo->setCursorPosition(2);
        s.Key(Qt::Key_Delete);
        QCOMPARE(s.ui->lbAmount->text() + s.ui->txtNo->text(), QString("160F1"));
        s.w.PopupMenu()->actions().first()->trigger();
        QCOMPARE(s.ui->lbAmount->text(), QString("80"));
        s.ui->VSSell->setFocus();
        s.Key(Qt::Key_Delete);
        QCOMPARE(s.Pieces(), 0);
        QCOMPARE(s.ui->lbAmount->text(), QString());  // cleared at exactly 0
        QCOMPARE(s.Focus(), static_cast<QWidget*>(s.ui->VSFlexGrid));
        // A total of 0 shows "0" after an addition; only a removal clears it.
        s.SellSpecial("F1", "2", "0");
        QCOMPARE(s.ui->lbAmount->text(), QString("0"));
        s.w.Cancel();
        QCOMPARE(s.ui->lbAmount->text(), QString());
        CS_NO_LEFTOVER_BOXES(rec);
    }

    // Nothing can be typed before there is something to pay; the change shows
    // on exact or over-payment only.
    void paymentAndChange() {
        TestDb db;
        TestDb::AddGoods("M1", 5, 100, 50);
        MsgRecorder rec;
        SaleWindow s;
        QLineEdit* pay = s.ui->txtReciveAmout;
        pay->setFocus();
        s.Type("50");
        QCOMPARE(pay->text(), QString());
        s.SellAt("M1", "1", "8.5");
        s.Type("90");
        QCOMPARE(s.ui->lb->text(), QString("5"));
        s.Key(Qt::Key_Backspace);
        QCOMPARE(s.ui->lb->text(), QString());  // 9 does not cover 85
        pay->setText("85");
        QCOMPARE(s.ui->lb->text(), QString("0"));
        pay->setText("12a");
        QCOMPARE(s.ui->lb->text(), QString());
        s.w.Cancel();  // the last piece gone: keys are swallowed, the text stays
        pay->setFocus();
        s.Type("1");
        QCOMPARE(pay->text(), QString("12a"));
        CS_NO_LEFTOVER_BOXES(rec);
    }
};

CS_TEST(TestSaleEntry)
#include "tst_sale_entry.moc"
