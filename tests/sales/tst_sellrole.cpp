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
        r.DearGoodsChange = true;
        r.PrinterType = 1;
        frmSellRole w;
        auto* ui = w.ui();
        QVERIFY(ui->OptB->isChecked() && ui->chkHightPrice->isChecked() &&
                ui->optSmall->isChecked());
        QVERIFY(!ui->chkSameType->isChecked() && !ui->chkIsPrint->isChecked());
        QCOMPARE(ui->txtBackdays->text() + "/" + ui->txtChangeDays->text(), QString("7/15"));
        ui->txtBackdays->clear();
        ui->txtBackdays->setFocus();
        QTest::keyClicks(ui->txtBackdays, "1a-2");  // digits only
        QCOMPARE(ui->txtBackdays->text(), QString("12"));
        w.show();
        QApplication::setActiveWindow(&w);
        QVERIFY(QTest::qWaitForWindowActive(&w));
        ui->SSTab->setCurrentIndex(2);
        QCOMPARE(QApplication::focusWidget(), ui->txtChangeDays);
        QCOMPARE(ui->txtChangeDays->selectedText(), QString("15"));
    }

    void savesRowAndRules() {
        TestDb db;
        MsgRecorder rec;
        frmSellRole w;
        auto* ui = w.ui();
        ui->OptB->setChecked(true);
        ui->txtBackdays->setText("7");
        ui->txtChangeDays->setText("30");
        for (QCheckBox* c : {ui->chkBackSpecial, ui->chkChangeAbate, ui->chkSameType, ui->chkIsMany,
                             ui->chkChangeNotToBack, ui->chkIsPrint})
            c->setChecked(true);
        ui->optSmall->setChecked(true);
        ui->cmdSetting->click();
        QCOMPARE(rec.TakeTexts(), QStringList{"设置成功！"});
        Recordset row = TestDb::Query("Select * from SellRole");
        QStringList values;
        for (int i = 1; i < row.FieldCount(); ++i) values << row.Text(i);
        QCOMPARE(values.join(','), QString("1,7,0,-1,30,-1,0,-1,0,-1,-1,-1,1"));
        const clsSellRole& r = Session::SellRole();
        QCOMPARE(QString("%1,%2,%3,%4")
                     .arg(r.SellOrder)
                     .arg(r.BackDays)
                     .arg(r.ChangeDays)
                     .arg(r.PrinterType),
                 QString("1,7,30,1"));
        QVERIFY(r.SpecialCanNotBack && r.AbateCanNotChange && r.SameTypeChange && r.ChangeOneTime &&
                r.ChangNotToBack && r.IsPrint);
        QVERIFY(!r.AbateCanNotBack && !r.DearGoodsChange && !r.SpecialCanNotChange);
        CS_NO_LEFTOVER_BOXES(rec);
    }

    // An empty or too large day count: the row is written, then the strict
    // conversion fails; the members after it keep their values, no success box.
    void dayCountFailsAfterTheRowIsWritten() {
        TestDb db;
        MsgRecorder rec;
        clsSellRole& r = Session::SellRole();
        r.BackDays = 5;
        frmSellRole w;
        auto* ui = w.ui();
        ui->txtBackdays->clear();
        ui->OptB->setChecked(true);
        ui->chkIsPrint->setChecked(true);
        ui->cmdSetting->click();
        QStringList said = rec.TakeTexts();
        QVERIFY2(said.size() == 1 && said[0].contains("类型不匹配"), qPrintable(said.join('|')));
        QCOMPARE(TestDb::Scalar("Select BackDays||'/'||IsPrint from SellRole"), QString("0/-1"));
        QCOMPARE(r.BackDays, int16_t(5));
        QVERIFY(!r.IsPrint);
        QCOMPARE(r.SellOrder, 1);  // copied before the day count

        ui->txtBackdays->setText("3");
        ui->txtChangeDays->setText("40000");
        ui->cmdSetting->click();
        said = rec.TakeTexts();
        QVERIFY2(said.size() == 1 && said[0].contains("溢出"), qPrintable(said.join('|')));
        QCOMPARE(TestDb::Scalar("Select ChangeDays from SellRole"), QString("40000"));
        QCOMPARE(r.BackDays, int16_t(3));
        QVERIFY(!r.IsPrint);
        CS_NO_LEFTOVER_BOXES(rec);
    }
};

CS_TEST(TestSellRole)
#include "tst_sellrole.moc"
