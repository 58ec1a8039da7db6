// A role and a user made in their windows: the rights as stored, and the
// commands they leave on at the user's next login or change of user.
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>

#include "AdminCommands.h"
#include "Modal.h"
#include "MsgRecorder.h"
#include "TestDb.h"
#include "TestRegistry.h"
#include "VSGrid.h"
#include "frmMain.h"
#include "frmReLogin.h"
#include "frmRole.h"
#include "frmUser.h"
#include "ui_frmReLogin.h"
#include "ui_frmRole.h"
#include "ui_frmUser.h"

namespace {

const char* const kMenuGated[] = {
    "UserManage",  "SellRole",          "ChangeShop", "BuyIn",         "SellOut",
    "ClientBack",  "ClientBackChange",  "Question",   "CompanyBack",   "BlankOut",
    "ChangePrice", "OtherOut",          "StoreQuery", "SellQuery",     "SellGroup",
    "BuyInDetail", "ClientChangeQuery", "Back",       "BlankOutQuery", "OtherOutQuery",
    "DayAmount",   "AmountTotal",       "Profit",     "ReStart"};
const char* const kToolGated[] = {"BuyIn",      "SellOut",   "ClientBackChange", "ChangeShop",
                                  "StoreQuery", "SellQuery", "CompanyBack",      "ClientBack"};

void changeUser(frmMain& m, const QString& no, const QString& pwd) {
    Modal::Queue([=](QDialog* d) {
        auto* f = qobject_cast<frmReLogin*>(d);
        QVERIFY(f);
        f->ui()->txtUserNo->setText(no);
        f->ui()->txtUserPassWord->setText(pwd);
        f->ui()->cmdLogin->click();
    });
    m.MenuItem("ReLogin")->trigger();
    QCOMPARE(Modal::QueuedCount(), 0);
}

QStringList enabledCommands(frmMain& m) {
    QStringList on;
    for (const char* k : kMenuGated)
        if (m.MenuItem(k)->isEnabled()) on << QString("menu:") + k;
    for (const char* k : kToolGated)
        if (m.ToolButton(k)->isEnabled()) on << QString("tool:") + k;
    return on;
}

}  // namespace

class TestRights : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { RegisterAdminCommands(); }

    void clerkMadeHereSeesOnlyHerCommands() {
        TestDb db;
        MsgRecorder rec;
        frmMain m;
        QCOMPARE(enabledCommands(m).size(), 24 + 8);

        // The role and the user, through the windows, from the main menu.
        Modal::Queue([&](QDialog* d) {
            auto* u = qobject_cast<frmUser*>(d);
            QVERIFY(u);
            Modal::Queue([&](QDialog* d2) {
                auto* r = qobject_cast<frmRole*>(d2);
                QVERIFY(r);
                r->ui()->Add->trigger();
                r->ui()->txtRole->clear();
                r->ui()->Save->trigger();
                r->ui()->txtRole->setText("管理员");
                r->ui()->Save->trigger();
                r->ui()->txtRole->setText("收银员");
                r->Node("Sell")->setCheckState(0, Qt::Checked);
                r->Node("StoreQuery")->setCheckState(0, Qt::Checked);
                r->ui()->Save->trigger();
                r->close();
            });
            u->ui()->cmdRole->click();
            u->ui()->Add->trigger();
            u->ui()->comRole->showPopup();
            u->ui()->comRole->hidePopup();
            u->ui()->txtNo->setText("101");
            u->ui()->txtName->setText("小张");
            u->ui()->txtPwd->setText("1234");
            u->ui()->comRole->setCurrentIndex(u->ui()->comRole->findText("收银员"));
            u->ui()->Save->trigger();
            u->close();
        });
        m.MenuItem("UserManage")->trigger();
        QCOMPARE(Modal::QueuedCount(), 0);
        QCOMPARE(rec.TakeTexts(), (QStringList{"角色名称不能为空！", "该角色已经存在！"}));
        // Rights are written as 1 and 0 and read back as -1 and 0.
        const Recordset rs = TestDb::Query("Select * from Role Where Name='收银员'");
        QCOMPARE(rs.Text("Sell"), QString("-1"));
        QCOMPARE(rs.Text("AllList"), QString("-1"));
        QCOMPARE(rs.Text("UserManage"), QString("0"));

        changeUser(m, "101", "1234");
        QCOMPARE(enabledCommands(m), (QStringList{"menu:SellOut", "menu:StoreQuery", "tool:SellOut",
                                                  "tool:StoreQuery"}));
        // Commands no right governs stay on.
        for (const char* k : {"ChagePassWord", "BackUpDate", "ReLogin", "Exit"})
            QVERIFY2(m.MenuItem(k)->isEnabled(), k);
        QVERIFY(m.ToolButton("Exit")->isEnabled());

        // Reopened, the role shows what was stored; a change saved under its own
        // name reaches the menu only at the next change of user.
        {
            frmRole r;
            r.ui()->VSFlexGrid->setRow(2);
            QCOMPARE(r.ui()->txtRole->text(), QString("收银员"));
            QVERIFY(r.Node("StoreQuery")->checkState(0) && !r.Node("BuyIn")->checkState(0));
            r.Node("StoreQuery")->setCheckState(0, Qt::Unchecked);
            r.Node("DayAmount")->setCheckState(0, Qt::Checked);
            r.ui()->Save->trigger();
        }
        QCOMPARE(TestDb::Scalar("Select DayAmount from Role Where Name='收银员'"), QString("-1"));
        QCOMPARE(TestDb::Count("Role"), 2);
        QVERIFY(!m.MenuItem("DayAmount")->isEnabled());
        changeUser(m, "101", "1234");
        QCOMPARE(enabledCommands(m),
                 (QStringList{"menu:SellOut", "menu:DayAmount", "tool:SellOut"}));

        // The administrator keeps everything.
        changeUser(m, "admin", "admin");
        QCOMPARE(enabledCommands(m).size(), 24 + 8);
        CS_NO_LEFTOVER_BOXES(rec);
    }
};

CS_TEST(TestRights)
#include "tst_rights.moc"
