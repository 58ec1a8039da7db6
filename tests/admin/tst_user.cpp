// The users window: the grid and the form, the save checks in their order,
// numbers in use, deleting, and the role box.
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QToolBar>

#include "DropDownCombo.h"
#include "Modal.h"
#include "MsgRecorder.h"
#include "Session.h"
#include "TestDb.h"
#include "TestRegistry.h"
#include "VSGrid.h"
#include "frmRole.h"
#include "frmUser.h"
#include "ui_frmRole.h"
#include "ui_frmUser.h"

namespace {

const QString kCashier = QStringLiteral("{C4A1B2C3-0000-4000-8000-000000000001}");

void addRole(const QString& guid, const QString& name) {
    TestDb::Exec("Insert Into Role (GUID,Name,Sell) Values ('" + guid + "','" + name + "',1)");
}

int rowOf(VSGrid* grid, const QString& no) {
    for (int r = 1; r < grid->Rows(); ++r)
        if (grid->TextMatrix(r, 2) == no) return r;
    return -1;
}

void fill(frmUser& f, const QString& no, const QString& name, const QString& pwd,
          const QString& role) {
    f.ui()->txtNo->setText(no);
    f.ui()->txtName->setText(name);
    f.ui()->txtPwd->setText(pwd);
    f.ui()->comRole->setCurrentIndex(f.ui()->comRole->findText(role));
}

}  // namespace

class TestUser : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void gridFormAndToolbar() {
        TestDb db;
        MsgRecorder rec;
        addRole(kCashier, "收银员");
        TestDb::Exec("Insert Into [User] Values('{U7}','7','小王','pw7','" + kCashier +
                     "','收银员')");
        frmUser f;
        QCOMPARE(f.windowTitle(), QString("用户管理"));
        QStringList bar;
        for (QAction* a : f.ui()->Toolbar->actions()) bar << a->objectName() + ":" + a->text();
        QCOMPARE(bar, (QStringList{"Add:新 增", "Edit:编 辑", "Del:删 除", "Cancel:取 消",
                                   "Save:保 存"}));
        VSGrid* grid = f.ui()->VSFlexGrid;
        QCOMPARE(grid->Cols(), 7);
        QCOMPARE(grid->ColKey(1), QString("GUID"));
        QCOMPARE(grid->TextMatrix(0, 6), QString("角色"));
        for (int c = 1; c < 7; ++c) QCOMPARE(grid->ColHidden(c), c == 1 || c == 4 || c == 5);
        QCOMPARE(grid->ColWidth(3), 2800);
        // The first user in the form, fields locked until Add or Edit.
        QCOMPARE(f.ui()->txtNo->text(), QString("admin"));
        QCOMPARE(f.ui()->txtPwd->text(), QString("admin"));
        QCOMPARE(f.ui()->comRole->currentText(), QString("管理员"));
        QCOMPARE(f.Roles().No(), kAdminRole);
        for (QWidget* w : {(QWidget*)f.ui()->txtNo, (QWidget*)f.ui()->txtName,
                           (QWidget*)f.ui()->txtPwd, (QWidget*)f.ui()->comRole})
            QVERIFY(!w->isEnabled());
        QVERIFY(!f.ui()->Save->isEnabled() && f.ui()->Add->isEnabled());
        // A row change shows that row; an unknown role selects nothing.
        grid->setRow(rowOf(grid, "7"));
        QCOMPARE(f.ui()->txtName->text(), QString("小王"));
        QCOMPARE(f.ui()->comRole->currentText(), QString("收银员"));
        grid->setTextMatrix(grid->Row(), 5, "{GONE}");
        grid->setRow(1);
        grid->setRow(rowOf(grid, "7"));
        QCOMPARE(f.ui()->comRole->currentIndex(), -1);
        CS_NO_LEFTOVER_BOXES(rec);
    }

    void saveChecksInOrder() {
        TestDb db;
        MsgRecorder rec;
        addRole(kCashier, "收银员");
        frmUser f;
        f.ui()->Add->trigger();
        QVERIFY(f.Adding());
        QVERIFY(f.ui()->txtNo->isEnabled());
        QVERIFY(f.ui()->txtNo->text().isEmpty() && f.ui()->comRole->currentIndex() == -1);
        f.ui()->Save->trigger();  // no number
        f.ui()->txtNo->setText("admin");
        f.ui()->Save->trigger();  // number in use
        f.ui()->txtNo->setText("8");
        f.ui()->Save->trigger();  // no role (before the name)
        fill(f, "8", "", "", "收银员");
        f.ui()->Save->trigger();  // no name
        const auto boxes = rec.Take();
        QStringList texts;
        for (const auto& b : boxes) {
            texts << b.text;
            QCOMPARE(b.icon, MsgBox::Icon::Information);
            QCOMPARE(b.title, QString("提示"));
        }
        QCOMPARE(texts, (QStringList{"编号不能为空！", "编号已经存在！", "请选择一个角色！",
                                     "姓名不能为空！"}));
        QVERIFY(f.Adding());
        QCOMPARE(TestDb::Count("[User]"), 1);

        // An empty password is allowed; the quotes are doubled in the statement.
        fill(f, "8", "O'Neil", "", "收银员");
        f.ui()->Save->trigger();
        QVERIFY(!f.Adding());
        QVERIFY(!f.ui()->txtNo->isEnabled() && f.ui()->Add->isEnabled());
        const Recordset rs = TestDb::Query("Select * from [User] Where [No]='8'");
        QVERIFY(!rs.Eof());
        QCOMPARE(rs.Text("Name"), QString("O'Neil"));
        QCOMPARE(rs.Text("pwd"), QString(""));
        QCOMPARE(rs.Text("RoleGUID"), kCashier);
        QCOMPARE(rs.Text("RoleName"), QString("收银员"));
        QCOMPARE(rs.Text("GUID").size(), 38);
        CS_NO_LEFTOVER_BOXES(rec);
    }

    void addedRowKeepsAnEmptyKey() {
        TestDb db;
        MsgRecorder rec;
        addRole(kCashier, "收银员");
        frmUser f;
        VSGrid* grid = f.ui()->VSFlexGrid;
        f.ui()->Add->trigger();
        fill(f, "9", "小李", "1", "收银员");
        f.ui()->Save->trigger();
        const int row = grid->Row();
        QCOMPARE(grid->TextMatrix(row, 2), QString("9"));
        QCOMPARE(grid->TextMatrix(row, 6), QString("收银员"));
        QCOMPARE(grid->TextMatrix(row, 1), QString(""));
        // Editing it here: its own number now counts as one in use (the empty
        // key matches no row to leave out) ...
        f.ui()->Edit->trigger();
        f.ui()->txtName->setText("小刘");
        f.ui()->Save->trigger();
        QCOMPARE(rec.TakeTexts(), QStringList{"编号已经存在！"});
        // ... and with another number it updates no row, silently.
        f.ui()->txtNo->setText("10");
        f.ui()->Save->trigger();
        QVERIFY(!f.Editing());
        QCOMPARE(TestDb::Scalar("Select Name from [User] Where [No]='9'"), QString("小李"));
        QCOMPARE(TestDb::Count("[User]", "[No]='10'"), 0);
        // Deleting it here deletes no row.
        rec.Yes();
        f.ui()->Del->trigger();
        QCOMPARE(rec.TakeTexts(), QStringList{"是否要删除该记录！"});
        QCOMPARE(TestDb::Count("[User]", "[No]='9'"), 1);
        // Reopened, the row has its key and can be edited.
        frmUser again;
        VSGrid* g2 = again.ui()->VSFlexGrid;
        g2->setRow(rowOf(g2, "9"));
        QCOMPARE(g2->TextMatrix(g2->Row(), 1).size(), 38);
        again.ui()->Edit->trigger();
        again.ui()->txtName->setText("小刘");
        again.ui()->Save->trigger();
        QCOMPARE(TestDb::Scalar("Select Name from [User] Where [No]='9'"), QString("小刘"));
        CS_NO_LEFTOVER_BOXES(rec);
    }

    void editKeepsOrChangesTheNumber() {
        TestDb db;
        MsgRecorder rec;
        addRole(kCashier, "收银员");
        TestDb::Exec("Insert Into [User] Values('{U7}','7','小王','pw7','" + kCashier +
                     "','收银员')");
        frmUser f;
        VSGrid* grid = f.ui()->VSFlexGrid;
        // The administrator may be edited; its own number is no number in use.
        grid->setRow(rowOf(grid, "admin"));
        f.ui()->Edit->trigger();
        QVERIFY(f.Editing());
        grid->setRow(rowOf(grid, "7"));  // refused while editing
        QCOMPARE(grid->TextMatrix(grid->Row(), 2), QString("admin"));
        f.ui()->txtPwd->setText("secret");
        f.ui()->Save->trigger();
        QVERIFY(!f.Editing());
        QCOMPARE(TestDb::Scalar("Select pwd from [User] Where [No]='admin'"), QString("secret"));
        // The session's user keeps the old password until the next login.
        QCOMPARE(Session::User().PassWord, QString("admin"));

        // Another user's number is in use.
        grid->setRow(rowOf(grid, "7"));
        f.ui()->Edit->trigger();
        f.ui()->txtNo->setText("admin");
        f.ui()->Save->trigger();
        QCOMPARE(rec.TakeTexts(), QStringList{"编号已经存在！"});
        // Cancel brings back the stored row.
        f.ui()->Cancel->trigger();
        QVERIFY(!f.Editing());
        QCOMPARE(f.ui()->txtNo->text(), QString("7"));
        QCOMPARE(TestDb::Count("[User]", "[No]='admin'"), 1);
        CS_NO_LEFTOVER_BOXES(rec);
    }

    void addThenCancel() {
        TestDb db;
        MsgRecorder rec;
        frmUser f;
        VSGrid* grid = f.ui()->VSFlexGrid;
        f.ui()->Add->trigger();
        QCOMPARE(grid->Rows(), 3);
        f.ui()->Cancel->trigger();
        QCOMPARE(grid->Rows(), 2);
        QCOMPARE(grid->Row(), 1);
        QCOMPARE(f.ui()->txtNo->text(), QString("admin"));
        QVERIFY(!f.ui()->txtNo->isEnabled());
        CS_NO_LEFTOVER_BOXES(rec);
    }

    void deleting() {
        TestDb db;
        MsgRecorder rec;
        addRole(kCashier, "收银员");
        for (const char* no : {"7", "8", "9"})
            TestDb::Exec(
                QString("Insert Into [User] Values('{U%1}','%1','员工%1','','%2','收银员')")
                    .arg(no, kCashier));
        frmUser f;
        VSGrid* grid = f.ui()->VSFlexGrid;
        // Oneself: refused.
        grid->setRow(rowOf(grid, "admin"));
        f.ui()->Del->trigger();
        QCOMPARE(rec.TakeTexts(), QStringList{"对不起不能删除该用户！"});
        // Another: asked, and No keeps it.
        grid->setRow(rowOf(grid, "8"));
        rec.No();
        f.ui()->Del->trigger();
        const auto ask = rec.Take();
        QCOMPARE(ask.size(), 1);
        QCOMPARE(ask[0].text, QString("是否要删除该记录！"));
        QCOMPARE(ask[0].icon, MsgBox::Icon::Question);
        QCOMPARE(ask[0].title, QString("提示"));
        QCOMPARE(TestDb::Count("[User]"), 4);
        // Yes: a middle row goes and the same row number becomes current.
        rec.Yes();
        f.ui()->Del->trigger();
        rec.Take();
        QCOMPARE(TestDb::Count("[User]", "[No]='8'"), 0);
        QCOMPARE(f.ui()->txtNo->text(), QString("9"));
        // The last row: the one before it becomes current.
        rec.Yes();
        f.ui()->Del->trigger();
        rec.Take();
        QCOMPARE(f.ui()->txtNo->text(), QString("7"));
        QCOMPARE(TestDb::Count("[User]"), 2);
        // Another administrator may be deleted: only oneself is protected.
        TestDb::Exec("Insert Into [User] Values('{UA}','boss','老板','','" + kAdminRole +
                     "','管理员')");
        frmUser again;
        again.ui()->VSFlexGrid->setRow(rowOf(again.ui()->VSFlexGrid, "boss"));
        rec.Yes();
        again.ui()->Del->trigger();
        rec.Take();
        QCOMPARE(TestDb::Count("[User]", "[No]='boss'"), 0);
        CS_NO_LEFTOVER_BOXES(rec);
    }

    void roleBoxReloadsOnDropDown() {
        TestDb db;
        MsgRecorder rec;
        frmUser f;
        f.show();
        f.ui()->Add->trigger();
        QCOMPARE(f.ui()->comRole->count(), 1);
        // A role made through "…" shows up when the list drops down, unselected.
        Modal::Queue([&](QDialog* d) {
            auto* r = qobject_cast<frmRole*>(d);
            QVERIFY(r);
            r->ui()->Add->trigger();
            r->ui()->txtRole->setText("收银员");
            r->ui()->Save->trigger();
            r->close();
        });
        f.ui()->cmdRole->click();
        QCOMPARE(Modal::QueuedCount(), 0);
        QCOMPARE(f.ui()->comRole->count(), 1);
        f.ui()->comRole->showPopup();
        f.ui()->comRole->hidePopup();
        QCOMPARE(f.ui()->comRole->count(), 2);
        QCOMPARE(f.ui()->comRole->currentIndex(), -1);
        QCOMPARE(f.ui()->comRole->itemText(1), QString("收银员"));

        // A role name with "," breaks the pairing: the box stays empty.
        TestDb::Exec("Insert Into Role (GUID,Name) Values ('{R9}','早班,晚班')");
        f.ui()->comRole->showPopup();
        f.ui()->comRole->hidePopup();
        QCOMPARE(f.ui()->comRole->count(), 0);
        fill(f, "8", "小王", "", "");
        f.ui()->Save->trigger();
        QCOMPARE(rec.TakeTexts(), QStringList{"请选择一个角色！"});
        CS_NO_LEFTOVER_BOXES(rec);
    }
};

CS_TEST(TestUser)
#include "tst_user.moc"
