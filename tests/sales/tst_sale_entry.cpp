// The sale window up to checkout: finding goods, the Enter and arrow chain
// with its refusals, the amount of each piece, the pre-sale list, payment.
#include <QMenu>
#include <QTest>

#include "DateText.h"
#include "MsgRecorder.h"
#include "SaleWindow.h"
#include "Session.h"
#include "TestDb.h"
#include "TestRegistry.h"
#include "ui_frmSell.h"

using MsgBox::Icon;

class TestSaleEntry : public QObject {
    Q_OBJECT
private Q_SLOTS:
    // Whole-number amounts: the discount factor is a 32-bit float, a
    // special price is rounded half to even.
    void amountsOfPieces() {
        TestDb db;
        TestDb::AddGoods("P100", 5, 100, 50);
        TestDb::AddGoods("P99", 5, 99, 50);
        TestDb::AddGoods("P25", 5, 25, 10);
        TestDb::AddGoods("P15", 5, 15, 10);
        TestDb::AddGoods("P50", 5, 50, 20);
        MsgRecorder rec;
        SaleWindow s;
        const struct {
            const char* typeNo;
            const char* abate;
            const char* amount;
        } cases[] = {{"P100", "全", "100"},
                     {"P99", "8.5", "84"},
                     {"P25", "9", "22"},
                     {"P15", "9", "14"},
                     {"P50", "8.1", "41"}};
        for (const auto& c : cases) {
            s.SellAt(c.typeNo, "1", c.abate);
            QCOMPARE(s.LastAmount(), QString(c.amount));
            QCOMPARE(s.Basket(s.Pieces(), "折扣"), QString(c.abate));
            QCOMPARE(s.Basket(s.Pieces(), "数量"), QString("1"));
        }
        s.SellSpecial("P100", "1", "99.5");
        QCOMPARE(s.LastAmount(), QString("100"));
        QCOMPARE(s.Basket(s.Pieces(), "折扣"), QString("特价"));
        s.SellSpecial("P100", "1", "98.5");
        QCOMPARE(s.LastAmount(), QString("98"));
        // The special price box does not limit below: a negative price passes.
        s.SellSpecial("P100", "1", "-5");
        QCOMPARE(s.LastAmount(), QString("-5"));
        QCOMPARE(s.ui->lbAmount->text(), QString("454"));  // 100+84+22+14+41+0+100+98-5
        QCOMPARE(s.Basket(1, "GUID").isEmpty(), false);
        QCOMPARE(s.Basket(2, "零售价"), QString("99"));
        QCOMPARE(s.Basket(2, "尺码"), QString("M"));
        CS_NO_LEFTOVER_BOXES(rec);
    }

    // A line of several pieces gives one row per piece; 2.5 pieces give 2.
    void quantityGivesOneRowPerPiece() {
        TestDb db;
        TestDb::AddGoods("Q1", 6, 30, 10);
        MsgRecorder rec;
        SaleWindow s;
        s.SellAt("Q1", "3", "9");
        QCOMPARE(s.Pieces(), 3);
        for (int r = 1; r <= 3; ++r) QCOMPARE(s.Basket(r, "应收金额"), QString("27"));
        QCOMPARE(s.ui->lbAmount->text(), QString("81"));
        // 2.5 pieces pass the stock test against 3 left, and give 2 rows.
        s.SellAt("Q1", "2.5", "全");
        QCOMPARE(s.Pieces(), 5);
        s.SellAt("Q1", "1.5", "全");  // 1 left, 1.5 asked: refused
        QCOMPARE(rec.TakeTexts(), QStringList{"库存不足不能结帐，请通知管理员！"});
        // What was typed stays for the next line.
        QCOMPARE(s.ui->txtQuatity->text(), QString("1.5"));
        QCOMPARE(s.ui->txtAbate->text(), QString("全"));
        CS_NO_LEFTOVER_BOXES(rec);
    }

    // The stock test counts what the list already holds, from the grid's figure.
    void stockTestCountsTheBasket() {
        TestDb db;
        TestDb::AddGoods("S2", 2, 80, 40);
        MsgRecorder rec;
        SaleWindow s;
        s.Find("S2");
        s.ui->txtQuatity->setText("3");
        s.Enter(s.ui->txtQuatity);
        auto boxes = rec.Take();
        QCOMPARE(boxes.size(), 1);
        QCOMPARE(boxes[0].text, QString("库存不足不能结帐，请通知管理员！"));
        QCOMPARE(boxes[0].icon, Icon::Information);
        QCOMPARE(s.Focus(), s.ui->txtQuatity);
        s.SellAt("S2", "3", "全");
        boxes = rec.Take();
        QCOMPARE(boxes.size(), 1);
        QCOMPARE(boxes[0].text, QString("库存不足不能结帐，请通知管理员！"));
        QCOMPARE(boxes[0].icon, Icon::Exclamation);
        QCOMPARE(s.Pieces(), 0);

        s.SellAt("S2", "2", "全");
        QCOMPARE(s.Pieces(), 2);
        s.SellAt("S2", "1", "全");
        QCOMPARE(rec.TakeTexts(), QStringList{"库存不足不能结帐，请通知管理员！"});
        QCOMPARE(s.Pieces(), 2);
        // The same refusal at Enter in the quantity box.
        s.ui->txtQuatity->setText("1");
        s.Enter(s.ui->txtQuatity);
        QCOMPARE(rec.TakeTexts(), QStringList{"库存不足不能结帐，请通知管理员！"});
        // Taking a piece out makes room again.
        s.w.Cancel();
        s.SellAt("S2", "1", "全");
        QCOMPARE(s.Pieces(), 2);
        CS_NO_LEFTOVER_BOXES(rec);
    }

    // Quantity refusals, at Enter in the quantity box (information) and
    // again when the line is added (warning); nothing is added.
    void quantityRefusals() {
        TestDb db;
        TestDb::AddGoods("R1", 5, 50, 20);
        MsgRecorder rec;
        SaleWindow s;
        s.Find("R1");
        const struct {
            const char* qty;
            const char* text;
        } cases[] = {{"abc", "数量的数据类型不正确！"},
                     {"", "数量的数据类型不正确！"},
                     {"0", "数量的不能小于0！"},
                     {"-2", "数量的不能小于0！"}};
        for (const auto& c : cases) {
            s.ui->txtQuatity->setText(c.qty);
            s.Enter(s.ui->txtQuatity);
            auto boxes = rec.Take();
            QCOMPARE(boxes.size(), 1);
            QCOMPARE(boxes[0].text, QString(c.text));
            QCOMPARE(boxes[0].icon, Icon::Information);
            QCOMPARE(s.Focus(), s.ui->txtQuatity);

            s.Enter(s.ui->txtAbate);
            boxes = rec.Take();
            QCOMPARE(boxes.size(), 1);
            QCOMPARE(boxes[0].text, QString(c.text));
            QCOMPARE(boxes[0].icon, Icon::Exclamation);
            QCOMPARE(s.Focus(), s.ui->txtQuatity);

            s.ui->txtChangePrice->setText("40");
            s.Enter(s.ui->txtChangePrice);
            QCOMPARE(rec.TakeTexts(), QStringList{c.text});
            QCOMPARE(s.Focus(), s.ui->txtQuatity);
        }
        QCOMPARE(s.Pieces(), 0);
        // A good quantity moves on to the discount.
        s.ui->txtQuatity->setText("1");
        s.Enter(s.ui->txtQuatity);
        QCOMPARE(s.Focus(), s.ui->txtAbate);
        CS_NO_LEFTOVER_BOXES(rec);
    }

    // Discount and special price refusals, in their order and kind.
    void discountAndSpecialPriceRefusals() {
        TestDb db;
        TestDb::AddGoods("D1", 5, 100, 20);
        MsgRecorder rec;
        SaleWindow s;
        s.Find("D1");
        s.ui->txtQuatity->setText("abc");  // the discount is tested first
        s.ui->txtAbate->setText("99");
        s.Enter(s.ui->txtAbate);
        auto boxes = rec.Take();
        QCOMPARE(boxes.size(), 1);
        QCOMPARE(boxes[0].text, QString("请输入0.1-10的数字或小数！"));
        QCOMPARE(boxes[0].icon, Icon::Exclamation);
        QCOMPARE(s.Focus(), s.ui->txtAbate);
        s.ui->txtAbate->setText("8x");
        s.Enter(s.ui->txtAbate);
        QCOMPARE(rec.TakeTexts(), QStringList{"数量的数据类型不正确！"});
        QCOMPARE(s.Focus(), s.ui->txtAbate);

        s.ui->txtQuatity->setText("1");
        s.ui->txtChangePrice->setText("1a");
        s.Enter(s.ui->txtChangePrice);
        boxes = rec.Take();
        QCOMPARE(boxes.size(), 1);
        QCOMPARE(boxes[0].text, QString("请输入有效数字！"));
        QCOMPARE(boxes[0].icon, Icon::Exclamation);
        QCOMPARE(s.Focus(), s.ui->txtChangePrice);
        s.ui->txtChangePrice->setText("120");
        s.Enter(s.ui->txtChangePrice);
        QCOMPARE(rec.TakeTexts(), QStringList{"特价比零售价还要贵么？"});
        QCOMPARE(s.Pieces(), 0);
        CS_NO_LEFTOVER_BOXES(rec);
    }

    // With nothing in the goods list: the quantity and the special price
    // say so, the discount keeps silent.
    void emptyGoodsList() {
        TestDb db;
        TestDb::AddGoods("E1", 5, 100, 20);
        MsgRecorder rec;
        SaleWindow s;
        s.Find("NOTHING");
        QCOMPARE(s.ui->VSFlexGrid->Rows(), 1);
        QCOMPARE(s.ui->txtPrice->text(), QString("100"));  // keeps the former price
        s.Enter(s.ui->txtQuatity);
        auto boxes = rec.Take();
        QCOMPARE(boxes.size(), 1);
        QCOMPARE(boxes[0].text, QString("请选择一个商品！"));
        QCOMPARE(boxes[0].icon, Icon::Information);
        s.Enter(s.ui->txtAbate);
        QVERIFY(rec.Take().isEmpty());
        s.ui->txtChangePrice->setText("50");
        s.Enter(s.ui->txtChangePrice);
        boxes = rec.Take();
        QCOMPARE(boxes.size(), 1);
        QCOMPARE(boxes[0].text, QString("请选择一个商品！"));
        QCOMPARE(boxes[0].icon, Icon::Exclamation);
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
        a->setText("2.5");
        QCOMPARE(a->text(), QString("2.5"));
        a->setFocus();  // selects the whole text
        s.Type("8.5");
        QCOMPARE(a->text(), QString("8.5"));
        a->selectAll();
        s.Type("1.5");  // the 1 turns into full price at once
        QVERIFY(a->text() != "1.5");
        QVERIFY(a->text().startsWith("全"));
        a->setText("9");
        QCOMPARE(a->text(), QString("9"));
    }

    // Article number narrowing on every key, and the bar code on Enter.
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
        QVERIFY(g->ColHidden(1));
        s.ui->txtNo->setFocus();
        s.Type("zmn");  // Like ignores case
        QCOMPARE(g->Rows() - 1, 2);
        s.Type("0002");
        QCOMPARE(g->Rows() - 1, 1);
        QCOMPARE(g->Cell(1, "货号"), QString("ZMN0002"));
        QCOMPARE(s.ui->txtPrice->text(), QString("88"));
        s.ui->txtNo->clear();
        QCOMPARE(g->Rows() - 1, 3);
        s.ui->txtNo->setText("O'Neil");  // quoted: no error, no rows
        QCOMPARE(g->Rows(), 1);
        s.ui->txtNo->clear();

        s.ui->txtIDCode->setFocus();
        s.Type("6901003");
        QCOMPARE(g->Rows() - 1, 3);  // nothing happens before Enter
        s.Key(Qt::Key_Return);
        QCOMPARE(g->Rows() - 1, 1);
        QCOMPARE(g->Cell(1, "货号"), QString("XK0007"));
        QCOMPARE(s.ui->txtPrice->text(), QString("45"));
        QCOMPARE(s.Focus(), static_cast<QWidget*>(g));
        QCOMPARE(s.ui->txtIDCode->text(), QString("6901003"));
        s.ui->txtIDCode->setText("0000");
        s.Enter(s.ui->txtIDCode);
        QCOMPARE(g->Rows(), 1);
        CS_NO_LEFTOVER_BOXES(rec);
    }

    // The keyboard chain: down into the list, Enter on to quantity and
    // discount, arrows between discount and special price, Enter adds.
    void enterAndArrowChain() {
        TestDb db;
        TestDb::AddGoods("A1", 3, 100, 50);
        TestDb::AddGoods("A2", 3, 200, 50);
        TestDb::AddGoods("A3", 3, 300, 50);
        MsgRecorder rec;
        SaleWindow s;
        VSGrid* g = s.ui->VSFlexGrid;
        s.ui->txtNo->setFocus();
        s.Type("A");
        s.Key(Qt::Key_Down);
        QCOMPARE(s.Focus(), static_cast<QWidget*>(g));
        QCOMPARE(g->Row(), 2);
        QCOMPARE(s.ui->txtPrice->text(), g->Cell(2, "零售价"));
        s.Key(Qt::Key_Return);
        QCOMPARE(s.Focus(), s.ui->txtQuatity);
        QCOMPARE(s.ui->txtQuatity->selectedText(), QString("1"));
        s.Key(Qt::Key_Return);
        QCOMPARE(s.Focus(), s.ui->txtAbate);
        QVERIFY(s.ui->OptAbate->isChecked());
        s.Key(Qt::Key_Down);
        QCOMPARE(s.Focus(), s.ui->txtChangePrice);
        QVERIFY(s.ui->OptChangePrice->isChecked());
        s.Key(Qt::Key_Up);
        QCOMPARE(s.Focus(), s.ui->txtAbate);
        QVERIFY(s.ui->OptAbate->isChecked());
        s.Type("9");
        s.Key(Qt::Key_Return);
        QCOMPARE(s.Pieces(), 1);
        QCOMPARE(s.Basket(1, "货号"), g->Cell(2, "货号"));
        QCOMPARE(s.Focus(), s.ui->txtReciveAmout);
        // "+" goes back for more goods, Up to the list, Enter there to payment.
        s.Type("+");
        QCOMPARE(s.Focus(), s.ui->txtNo);
        QCOMPARE(s.ui->txtReciveAmout->text(), QString());
        s.ui->txtReciveAmout->setFocus();
        s.Key(Qt::Key_Up);
        QCOMPARE(s.Focus(), static_cast<QWidget*>(s.ui->VSSell));
        s.Key(Qt::Key_Return);
        QCOMPARE(s.Focus(), s.ui->txtReciveAmout);
        // Down in the article box with a single row only moves the focus.
        s.ui->txtNo->setText("A3");
        s.ui->txtNo->setFocus();
        s.Key(Qt::Key_Down);
        QCOMPARE(g->Row(), 1);
        QCOMPARE(s.Focus(), static_cast<QWidget*>(g));
        // cmdAdd follows the option that is set.
        s.ui->OptChangePrice->setChecked(true);
        s.ui->txtChangePrice->setText("250");
        s.ui->cmdAdd->click();
        QCOMPARE(s.LastAmount(), QString("250"));
        CS_NO_LEFTOVER_BOXES(rec);
    }

    // F1 to F7 move the focus from wherever it is; Del removes a piece.
    void functionKeysAndRemoval() {
        TestDb db;
        TestDb::AddGoods("F1", 5, 100, 50);
        MsgRecorder rec;
        SaleWindow s;
        const struct {
            Qt::Key key;
            QWidget* to;
        } keys[] = {{Qt::Key_F1, s.ui->txtQuatity},     {Qt::Key_F2, s.ui->txtAbate},
                    {Qt::Key_F3, s.ui->txtChangePrice}, {Qt::Key_F4, s.ui->txtReciveAmout},
                    {Qt::Key_F5, s.ui->txtNo},          {Qt::Key_F6, s.ui->VSFlexGrid},
                    {Qt::Key_F7, s.ui->VSSell}};
        for (const auto& k : keys) {
            s.ui->txtIDCode->setFocus();
            s.Key(k.key);
            QCOMPARE(s.Focus(), k.to);
        }
        s.SellAt("F1", "2", "8");
        s.SellSpecial("F1", "1", "50");
        QCOMPARE(s.ui->lbAmount->text(), QString("210"));
        // Del in the article box removes the current piece and acts on the box too.
        s.ui->txtNo->setText("F1x");
        s.ui->txtNo->setFocus();
        s.ui->txtNo->setCursorPosition(2);
        s.Key(Qt::Key_Delete);
        QCOMPARE(s.Pieces(), 2);
        QCOMPARE(s.ui->lbAmount->text(), QString("160"));
        QCOMPARE(s.ui->txtNo->text(), QString("F1"));
        // The popup's entry does the same.
        QCOMPARE(s.w.PopupMenu()->actions().first()->text(), QString("取消"));
        s.w.PopupMenu()->actions().first()->trigger();
        QCOMPARE(s.ui->lbAmount->text(), QString("80"));
        s.ui->VSSell->setFocus();
        s.Key(Qt::Key_Delete);
        QCOMPARE(s.Pieces(), 0);
        QCOMPARE(s.ui->lbAmount->text(), QString());  // cleared at exactly 0
        QCOMPARE(s.Focus(), static_cast<QWidget*>(s.ui->VSFlexGrid));
        s.Key(Qt::Key_Delete);  // nothing left: nothing happens
        QCOMPARE(s.Pieces(), 0);
        CS_NO_LEFTOVER_BOXES(rec);
    }

    // A total of 0 is shown as "0" after an addition; only a removal clears it.
    void zeroTotal() {
        TestDb db;
        TestDb::AddGoods("Z1", 5, 100, 50);
        MsgRecorder rec;
        SaleWindow s;
        s.SellSpecial("Z1", "2", "0");
        QCOMPARE(s.ui->lbAmount->text(), QString("0"));
        s.w.Cancel();
        QCOMPARE(s.ui->lbAmount->text(), QString());
        QCOMPARE(s.Pieces(), 1);
        CS_NO_LEFTOVER_BOXES(rec);
    }

    // Payment: nothing can be typed before there is something to pay; the
    // change shows on exact or over-payment only.
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
        QCOMPARE(s.Focus(), pay);
        s.Type("90");
        QCOMPARE(s.ui->lb->text(), QString("5"));
        s.Key(Qt::Key_Backspace);
        QCOMPARE(s.ui->lb->text(), QString());  // 9 does not cover 85
        pay->setText("85");
        QCOMPARE(s.ui->lb->text(), QString("0"));
        pay->setText("12a");
        QCOMPARE(s.ui->lb->text(), QString());
        pay->setText("85");
        // After the last piece is gone, keys are swallowed again; the text stays.
        s.w.Cancel();
        pay->setFocus();
        s.Type("1");
        QCOMPARE(pay->text(), QString("85"));
        CS_NO_LEFTOVER_BOXES(rec);
    }

    // The window opens with the goods in stock, the clerk and the next number.
    void windowOpens() {
        TestDb db;
        TestDb::AddGoods("W1", 5, 66, 50);
        SaleWindow s;
        QCOMPARE(s.w.windowTitle(), QString("售货"));
        QCOMPARE(s.ui->lbOpt->text(), Session::User().Name);
        QCOMPARE(s.ui->lbNo->text(), DateText::TodayKey() + "0001");
        QCOMPARE(s.ui->txtPrice->text(), QString("66"));
        QCOMPARE(s.ui->VSSell->Cols(), 14);
        QCOMPARE(s.ui->VSSell->ColKey(13), QString("应收金额"));
        QVERIFY(s.ui->VSSell->ColHidden(1));
        QCOMPARE(s.ui->txtQuatity->text(), QString("1"));
        QCOMPARE(s.ui->txtAbate->text(), QString("全"));
        QCOMPARE(s.ui->txtAbate->maxLength(), 3);
        QCOMPARE(s.ui->txtReciveAmout->maxLength(), 4);
    }
};

CS_TEST(TestSaleEntry)
#include "tst_sale_entry.moc"
