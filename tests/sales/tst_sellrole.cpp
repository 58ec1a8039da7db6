// The rules window: what it shows, what it writes to the row and to the
// session's rules, and its failures after the row is written.
#include <QCheckBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QTabWidget>
#include <QTest>

#include "MsgRecorder.h"
#include "Session.h"
#include "TestDb.h"
#include "TestRegistry.h"
#include "frmSellRole.h"
#include "ui_frmSellRole.h"

class TestSellRole : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void showsTheSessionRules() {
        TestDb db;
        clsSellRole& r = Session::SellRole();
        r.SellOrder = 1;
        r.BackDays = 7;
        r.ChangeDays = 15;
        r.SpecialCanNotChange = true;
        r.DearGoodsChange = true;
        r.IsPrint = true;
        r.PrinterType = 1;
        frmSellRole w;
        auto* ui = w.ui();
        QCOMPARE(w.windowTitle(), QString("系统设置"));
        QCOMPARE(ui->SSTab->count(), 4);
        QCOMPARE(ui->SSTab->tabText(3), QString("打印设置"));
        QVERIFY(ui->OptB->isChecked());
        QCOMPARE(ui->txtBackdays->text(), QString("7"));
        QCOMPARE(ui->txtChangeDays->text(), QString("15"));
        QVERIFY(ui->chkChangeSpecial->isChecked());
        QVERIFY(ui->chkHightPrice->isChecked());
        QVERIFY(!ui->chkSameType->isChecked());
        QVERIFY(ui->chkIsPrint->isChecked());
        QVERIFY(ui->optSmall->isChecked());
        QCOMPARE(ui->chkBackAbate->text(), QString("  折扣商品不可以退货"));
        // Digits only in the day boxes.
        ui->txtBackdays->clear();
        ui->txtBackdays->setFocus();
        QTest::keyClicks(ui->txtBackdays, "1a-2");
        QCOMPARE(ui->txtBackdays->text(), QString("12"));
        // The day tabs put the focus in their box.
        w.show();
        QApplication::setActiveWindow(&w);
        QVERIFY(QTest::qWaitForWindowActive(&w));
        ui->SSTab->setCurrentIndex(2);
        QCOMPARE(QApplication::focusWidget(), ui->txtChangeDays);
        QCOMPARE(ui->txtChangeDays->selectedText(), QString("15"));
        ui->SSTab->setCurrentIndex(1);
        QCOMPARE(QApplication::focusWidget(), ui->txtBackdays);
    }

    void savesRowAndRules() {
        TestDb db;
        MsgRecorder rec;
        frmSellRole w;
        auto* ui = w.ui();
        ui->OptB->setChecked(true);
        ui->txtBackdays->setText("7");
        ui->txtChangeDays->setText("30");
        ui->chkBackSpecial->setChecked(true);
        ui->chkChangeAbate->setChecked(true);
        ui->chkSameType->setChecked(true);
        ui->chkIsMany->setChecked(true);
        ui->chkChangeNotToBack->setChecked(true);
        ui->chkIsPrint->setChecked(true);
        ui->optSmall->setChecked(true);
        ui->cmdSetting->click();
        const auto boxes = rec.Take();
        QCOMPARE(boxes.size(), 1);
        QCOMPARE(boxes[0].text, QString("设置成功！"));
        QCOMPARE(boxes[0].icon, MsgBox::Icon::Information);

        Recordset row = TestDb::Query("Select * from SellRole");
        QCOMPARE(row.Text("SellOrder"), QString("1"));
        QCOMPARE(row.Text("BackDays"), QString("7"));
        QCOMPARE(row.Text("ChangeDays"), QString("30"));
        QCOMPARE(row.Text("SpecialCannotBack"), QString("-1"));
        QCOMPARE(row.Text("AbateCannotBack"), QString("0"));
        QCOMPARE(row.Text("AbateCannotChange"), QString("-1"));
        QCOMPARE(row.Text("SameTypeChange"), QString("-1"));
        QCOMPARE(row.Text("DearGoodsChange"), QString("0"));
        QCOMPARE(row.Text("ChangeOneTime"), QString("-1"));
        QCOMPARE(row.Text("ChangNotToBack"), QString("-1"));
        QCOMPARE(row.Text("IsPrint"), QString("-1"));
        QCOMPARE(row.Text("PrinterType"), QString("1"));

        const clsSellRole& r = Session::SellRole();
        QCOMPARE(r.SellOrder, 1);
        QCOMPARE(r.BackDays, int16_t(7));
        QCOMPARE(r.ChangeDays, int16_t(30));
        QVERIFY(r.SpecialCanNotBack && r.AbateCanNotChange && r.SameTypeChange && r.ChangeOneTime &&
                r.ChangNotToBack && r.IsPrint);
        QVERIFY(!r.AbateCanNotBack && !r.DearGoodsChange && !r.SpecialCanNotChange);
        QCOMPARE(r.PrinterType, int16_t(1));

        // Back to first in, first out and the dot-matrix printer.
        ui->OptA->setChecked(true);
        ui->optBig->setChecked(true);
        ui->cmdSetting->click();
        rec.Take();
        QCOMPARE(TestDb::Scalar("Select SellOrder from SellRole"), QString("0"));
        QCOMPARE(r.SellOrder, 0);
        QCOMPARE(r.PrinterType, int16_t(0));
        CS_NO_LEFTOVER_BOXES(rec);
    }

    // An empty or too large day count: the row is written, then the strict
    // conversion fails; the members after it keep their values and no
    // success box appears.
    void dayCountFailsAfterTheRowIsWritten() {
        TestDb db;
        MsgRecorder rec;
        clsSellRole& r = Session::SellRole();
        r.BackDays = 5;
        r.IsPrint = false;
        frmSellRole w;
        auto* ui = w.ui();
        ui->txtBackdays->clear();
        ui->OptB->setChecked(true);
        ui->chkIsPrint->setChecked(true);
        ui->cmdSetting->click();
        auto boxes = rec.Take();
        QCOMPARE(boxes.size(), 1);
        QVERIFY(boxes[0].text.contains("类型不匹配"));
        QCOMPARE(TestDb::Scalar("Select BackDays from SellRole"), QString("0"));
        QCOMPARE(TestDb::Scalar("Select IsPrint from SellRole"), QString("-1"));
        QCOMPARE(r.BackDays, int16_t(5));
        QVERIFY(!r.IsPrint);
        QCOMPARE(r.SellOrder, 1);  // copied before the day count

        ui->txtBackdays->setText("3");
        ui->txtChangeDays->setText("40000");
        ui->cmdSetting->click();
        boxes = rec.Take();
        QCOMPARE(boxes.size(), 1);
        QVERIFY(boxes[0].text.contains("溢出"));
        QCOMPARE(TestDb::Scalar("Select ChangeDays from SellRole"), QString("40000"));
        QCOMPARE(r.BackDays, int16_t(3));
        QVERIFY(!r.IsPrint);
        CS_NO_LEFTOVER_BOXES(rec);
    }
};

CS_TEST(TestSellRole)
#include "tst_sellrole.moc"
