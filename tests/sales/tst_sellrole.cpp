// The rules window writes both the row and the session's copy; a bad day
// count fails after the row is written.
#include <QCheckBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QTest>

#include "MsgRecorder.h"
#include "Session.h"
#include "TestDb.h"
#include "TestRegistry.h"
#include "frmSellRole.h"
#include "ui_frmSellRole.h"

namespace {
// Every member of the rules, in the order of the row's columns.
QStringList Members(const clsSellRole& r) {
    QStringList out{r.ShopNo};
    for (int v : {int(r.SellOrder), int(r.BackDays), int(r.AbateCanNotBack),
                  int(r.SpecialCanNotBack), int(r.ChangeDays), int(r.AbateCanNotChange),
                  int(r.SpecialCanNotChange), int(r.SameTypeChange), int(r.DearGoodsChange),
                  int(r.ChangeOneTime), int(r.ChangNotToBack), int(r.IsPrint), int(r.PrinterType)})
        out << QString::number(v);
    return out;
}

}  // namespace

class TestSellRole : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void savesRowAndRules() {
        TestDb db;
        MsgRecorder rec;
        frmSellRole w;
        auto* ui = w.ui();
        ui->OptB->setChecked(true);
        ui->optSmall->setChecked(true);
        ui->txtBackdays->setText("7");
        ui->txtChangeDays->setText("30");
        for (QCheckBox* c : {ui->chkBackSpecial, ui->chkChangeAbate, ui->chkSameType, ui->chkIsMany,
                             ui->chkChangeNotToBack, ui->chkIsPrint})
            c->setChecked(true);
        ui->cmdSetting->click();
        QCOMPARE(rec.TakeTexts(), QStringList{"设置成功！"});
        Recordset row = TestDb::Query("Select * from SellRole");
        QStringList values;
        for (int i = 1; i < row.FieldCount(); ++i) values << row.Text(i);
        QCOMPARE(values, QString("1,7,0,-1,30,-1,0,-1,0,-1,-1,-1,1").split(','));
        QCOMPARE(Members(Session::SellRole()),
                 QString(Session::SellRole().ShopNo + ",1,7,0,1,30,1,0,1,0,1,1,1,1").split(','));
        CS_NO_LEFTOVER_BOXES(rec);
    }

    // An empty or too large day count: the row is written with every choice
    // of the window, then the conversion fails and the session's rules stay
    // exactly as they were; no success box.
    void badDayCountLeavesTheRules() {
        TestDb db;
        MsgRecorder rec;
        frmSellRole w;
        auto* ui = w.ui();
        for (QCheckBox* c : w.findChildren<QCheckBox*>()) c->setChecked(!c->isChecked());
        (ui->OptA->isChecked() ? ui->OptB : ui->OptA)->setChecked(true);
        (ui->optBig->isChecked() ? ui->optSmall : ui->optBig)->setChecked(true);
        const QStringList before = Members(Session::SellRole());
        const struct {
            const char *back, *change, *error, *written;
        } cases[] = {{"", "30", "类型不匹配", "0/30"}, {"3", "40000", "溢出", "3/40000"}};
        for (const auto& c : cases) {
            ui->txtBackdays->setText(c.back);
            ui->txtChangeDays->setText(c.change);
            ui->cmdSetting->click();
            const QStringList said = rec.TakeTexts();
            QVERIFY2(said.size() == 1 && said[0].contains(c.error), qPrintable(said.join('|')));
            QCOMPARE(TestDb::Scalar("Select BackDays||'/'||ChangeDays from SellRole"),
                     QString(c.written));
            QCOMPARE(Members(Session::SellRole()), before);
        }
        CS_NO_LEFTOVER_BOXES(rec);
    }
};

CS_TEST(TestSellRole)
#include "tst_sellrole.moc"
