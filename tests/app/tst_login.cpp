// Start-up, login, change of user and change of password.
#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include "MsgRecorder.h"
#include "Session.h"
#include "Startup.h"
#include "TestDb.h"
#include "TestRegistry.h"
#include "frmChangePwd.h"
#include "frmLogin.h"
#include "frmMain.h"
#include "frmReLogin.h"
#include "ui_frmChangePwd.h"
#include "ui_frmLogin.h"
#include "ui_frmReLogin.h"

namespace {
void typeLogin(frmLogin& f, const QString& no, const QString& pwd) {
    f.ui()->txtUserNo->setText(no);
    f.ui()->txtUserPassWord->setText(pwd);
    QTest::keyClick(f.ui()->txtUserPassWord, Qt::Key_Return);
}
}  // namespace

class TestLogin : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void missingDataFileEndsStartUp() {
        QTemporaryDir dir;
        clsDbopt::SetDataFilePath(dir.filePath("ClothesSell.mdb"));
        MsgRecorder rec;
        QVERIFY(!Startup::Main());
        const auto boxes = rec.Take();
        QCOMPARE(boxes.size(), 1);
        QCOMPARE(boxes[0].text, QString("连接数据库失败！"));
        QCOMPARE(boxes[0].icon, MsgBox::Icon::Information);
        QCOMPARE(boxes[0].title, QString("提示"));
        QVERIFY(!QFile::exists(dir.filePath("ClothesSell.mdb")));
        clsDbopt::SetDataFilePath(QString());
    }

    void unknownNumberAndWrongPassword() {
        TestDb db(false);
        MsgRecorder rec;
        frmLogin f;
        f.show();
        typeLogin(f, "nobody", "x");
        QCOMPARE(rec.TakeTexts(), QStringList{"该用户不存在！"});
        QCOMPARE(f.ui()->txtUserNo->selectedText(), QString("nobody"));
        QVERIFY(f.ui()->txtUserPassWord->text().isEmpty());
        QVERIFY(f.ui()->cmdLogin->isEnabled());
        QVERIFY(!f.LoggedIn());

        typeLogin(f, "admin", "ADMIN");  // passwords are case-sensitive
        const auto boxes = rec.Take();
        QCOMPARE(boxes.size(), 1);
        QCOMPARE(boxes[0].text, QString("密码错误！"));
        QCOMPARE(boxes[0].title, QString("提示"));
        QVERIFY(f.ui()->txtUserPassWord->text().isEmpty());
        QVERIFY(f.ui()->cmdLogin->isEnabled());
        QVERIFY(!f.LoggedIn());
        // The user was loaded before the password was checked.
        QCOMPARE(Session::User().No, QString("admin"));
        CS_NO_LEFTOVER_BOXES(rec);
    }

    void goodLoginLoadsShopUserAndRules() {
        TestDb db(false);
        TestDb::Exec("Update SellRole Set BackDays=5, SellOrder=1");
        MsgRecorder rec;
        frmLogin f;
        f.show();
        typeLogin(f, "admin", "admin");
        QVERIFY(f.LoggedIn());
        QCOMPARE(Session::ShopNo, kDefaultShop);
        QCOMPARE(Session::ShopName, QString("本店"));
        QCOMPARE(Session::SellRole().BackDays, int16_t(5));
        QCOMPARE(Session::SellRole().SellOrder, 1);
        QVERIFY(Session::User().Role->ReStart);
        CS_NO_LEFTOVER_BOXES(rec);
    }

    void shopAndRulesAreDecidedApart() {
        TestDb db(false);
        // Another shop comes first; the rules stay those of the default shop.
        TestDb::Exec("Delete from Shop");
        TestDb::Exec("Insert Into Shop Values('{B}','二店')");
        TestDb::Exec("Insert Into Shop Values('" + kDefaultShop + "','本店')");
        TestDb::Exec("Update SellRole Set ChangeDays=9");
        frmLogin f;
        typeLogin(f, "admin", "admin");
        QCOMPARE(Session::ShopNo, QString("{B}"));
        QCOMPARE(Session::SellRole().ChangeDays, int16_t(9));
        QCOMPARE(Session::SellRole().ShopNo, kDefaultShop);

        // An empty Shop table: the login completes with an empty shop.
        TestDb db2(false);
        TestDb::Exec("Delete from Shop");
        frmLogin g;
        typeLogin(g, "admin", "admin");
        QVERIFY(g.LoggedIn());
        QVERIFY(Session::ShopNo.isEmpty());
    }

    void changeOfUserWithWrongPasswordKeepsMenuButNotUser() {
        TestDb db;
        TestDb::Exec("Insert Into Role (GUID,Name,Sell,StoreQuery) Values('{R}','收银员',1,1)");
        TestDb::Exec("Insert Into [User] Values('{U}','7','小王','pw','{R}','收银员')");
        MsgRecorder rec;
        frmMain main;
        QVERIFY(main.MenuItem("ReStart")->isEnabled());
        {
            frmReLogin f(&main);
            f.ui()->txtUserNo->setText("7");
            f.ui()->txtUserPassWord->setText("wrong");
            f.ui()->cmdLogin->click();
            QCOMPARE(rec.TakeTexts(), QStringList{"密码错误！"});
        }
        QCOMPARE(Session::User().Name, QString("小王"));
        QVERIFY(main.MenuItem("ReStart")->isEnabled());  // gating not redone
        {
            frmReLogin f(&main);
            f.ui()->txtUserNo->setText("7");
            f.ui()->txtUserPassWord->setText("pw");
            f.ui()->cmdLogin->click();
        }
        QVERIFY(!main.MenuItem("ReStart")->isEnabled());
        QVERIFY(main.MenuItem("SellOut")->isEnabled());
        QVERIFY(main.ToolButton("StoreQuery")->isEnabled());
        QVERIFY(!main.ToolButton("BuyIn")->isEnabled());
        {
            frmReLogin f(&main);
            f.ui()->txtUserNo->setText("admin");
            f.ui()->txtUserPassWord->setText("admin");
            f.ui()->cmdLogin->click();
        }
        QVERIFY(main.MenuItem("ReStart")->isEnabled());
        // The caption does not change with the user.
        QCOMPARE(main.windowTitle(), frmMain::FixedTitle() + "-本店");
        CS_NO_LEFTOVER_BOXES(rec);
    }

    void changeOfPassword() {
        TestDb db;
        MsgRecorder rec;
        {
            frmChangePwd f;
            f.ui()->txtOldPwd->setText("bad");
            f.ui()->cmdOk->click();
            QCOMPARE(rec.TakeTexts(), QStringList{"旧密码不正确！"});
            QVERIFY(f.ui()->txtOldPwd->text().isEmpty());
            f.ui()->txtOldPwd->setText("admin");
            f.ui()->txtNewPwd->setText("a1");
            f.ui()->txtRepeatPwd->setText("a2");
            f.ui()->cmdOk->click();
            QCOMPARE(rec.TakeTexts(), QStringList{"两次输入的密码不一致！"});
            QVERIFY(f.ui()->txtNewPwd->text().isEmpty() && f.ui()->txtRepeatPwd->text().isEmpty());
            f.ui()->txtNewPwd->setText("新密码");
            f.ui()->txtRepeatPwd->setText("新密码");
            QTest::keyClick(f.ui()->txtRepeatPwd, Qt::Key_Return);
            const auto boxes = rec.Take();
            QCOMPARE(boxes.size(), 1);
            QCOMPARE(boxes[0].text, QString("修改成功！"));
            QCOMPARE(boxes[0].icon, MsgBox::Icon::Exclamation);
        }
        QCOMPARE(TestDb::Scalar("select pwd from [User] where [No]='admin'"), QString("新密码"));
        {
            // A quote breaks the statement: memory has the new password, the file the old one.
            frmChangePwd f;
            f.ui()->txtOldPwd->setText("新密码");
            f.ui()->txtNewPwd->setText("it's");
            f.ui()->txtRepeatPwd->setText("it's");
            f.ui()->cmdOk->click();
            const QStringList texts = rec.TakeTexts();
            QCOMPARE(texts.size(), 2);
            QCOMPARE(texts[1], MsgBox::ReadFailText());
        }
        QCOMPARE(Session::User().PassWord, QString("it's"));
        QCOMPARE(TestDb::Scalar("select pwd from [User] where [No]='admin'"), QString("新密码"));
        CS_NO_LEFTOVER_BOXES(rec);
    }
};

CS_TEST(TestLogin)
#include "tst_login.moc"
