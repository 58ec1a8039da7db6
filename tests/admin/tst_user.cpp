// The users window: the save checks in their order, numbers in use, deleting.
#include <QComboBox>
#include <QLineEdit>
#include <QTest>

#include "MsgRecorder.h"
#include "Session.h"
#include "TestDb.h"
#include "TestRegistry.h"
#include "VSGrid.h"
#include "frmUser.h"
#include "ui_frmUser.h"

namespace {

const QString kCashier = QStringLiteral("{C4A1B2C3-0000-4000-8000-000000000001}");

// A cashier role with one user, 7, and a second administrator, boss.
void addUsers() {
    TestDb::Exec("Insert Into Role (GUID,Name,Sell) Values ('" + kCashier + "','收银员',1)");
    TestDb::Exec("Insert Into [User] Values('{U7}','7','小王','','" + kCashier + "','收银员')");
    TestDb::Exec("Insert Into [User] Values('{UA}','boss','老板','','" + kAdminRole +
                 "','管理员')");
}

// Makes the user's row current.
void pick(frmUser& f, const QString& no) {
    VSGrid* grid = f.ui()->VSFlexGrid;
    for (int r = 1; r < grid->Rows(); ++r)
        if (grid->TextMatrix(r, 2) == no) grid->setRow(r);
}

void fill(frmUser& f, const QString& no, const QString& name, const QString& role) {
    f.ui()->txtNo->setText(no);
    f.ui()->txtName->setText(name);
    f.ui()->comRole->setCurrentIndex(f.ui()->comRole->findText(role));
}

}  // namespace

class TestUser : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void saveChecksEditAndDelete() {
        TestDb db;
        MsgRecorder rec;
        addUsers();
        frmUser f;
        f.ui()->Add->trigger();
        f.ui()->Save->trigger();  // no number
        f.ui()->txtNo->setText("7");
        f.ui()->Save->trigger();  // number in use
        fill(f, "8", "", "");
        f.ui()->Save->trigger();  // no role (before the name)
        fill(f, "8", "", "收银员");
        f.ui()->Save->trigger();  // no name
        QCOMPARE(rec.TakeTexts(), (QStringList{"编号不能为空！", "编号已经存在！",
                                               "请选择一个角色！", "姓名不能为空！"}));
        QCOMPARE(TestDb::Count("[User]"), 3);

        // An empty password is allowed; a quote in the name is stored as typed.
        fill(f, "8", "O'Neil", "收银员");
        f.ui()->Save->trigger();
        QVERIFY(!f.Adding());
        QCOMPARE(TestDb::Scalar("Select Name from [User] Where [No]='8'"), QString("O'Neil"));
        QCOMPARE(TestDb::Scalar("Select RoleGUID from [User] Where [No]='8'"), kCashier);

        // In an edit, its own number is no number is no number in use; another user's is.
        pick(f, "admin");
        f.ui()->Edit->trigger();
        f.ui()->txtPwd->setText("secret");
        f.ui()->Save->trigger();
        QVERIFY(!f.Editing());
        QCOMPARE(TestDb::Scalar("Select pwd from [User] Where [No]='admin'"), QString("secret"));
        pick(f, "7");
        f.ui()->Edit->trigger();
        f.ui()->txtNo->setText("admin");
        f.ui()->Save->trigger();
        QCOMPARE(rec.TakeTexts(), QStringList{"编号已经存在！"});
        f.ui()->Cancel->trigger();
        QCOMPARE(f.ui()->txtNo->text(), QString("7"));

        // Deleting oneself is refused; No keeps a user; another administrator
        // may go, and the next row becomes current.
        pick(f, "admin");
        f.ui()->Del->trigger();
        pick(f, "7");
        rec.No();
        f.ui()->Del->trigger();
        pick(f, "boss");
        rec.Yes();
        f.ui()->Del->trigger();
        QCOMPARE(rec.TakeTexts(), (QStringList{"对不起不能删除该用户！", "是否要删除该记录！",
                                               "是否要删除该记录！"}));
        QCOMPARE(TestDb::Count("[User]"), 3);
        QCOMPARE(TestDb::Count("[User]", "[No]='boss'"), 0);
        QCOMPARE(f.ui()->txtNo->text(), QString("8"));
        CS_NO_LEFTOVER_BOXES(rec);
    }
};

CS_TEST(TestUser)
#include "tst_user.moc"
