// The roles window: the checking rules of the tree of rights, the
// administrator's role, and the delete that the engine refuses. Saving rights
// is checked with the role the clerk gets in tst_rights.
#include <QLineEdit>
#include <QTest>
#include <QTreeWidget>

#include "MsgRecorder.h"
#include "Session.h"
#include "TestDb.h"
#include "TestRegistry.h"
#include "VSGrid.h"
#include "frmRole.h"
#include "ui_frmRole.h"

namespace {

// A role with no rights at all.
void addEmptyRole(const QString& guid, const QString& name) {
    TestDb::Exec("Insert Into Role Values ('" + guid + "','" + name + "'" +
                 QString(",0").repeated(26) + ")");
}

// Makes the role's row current; false when the grid has no such role.
bool pick(frmRole& f, const QString& name) {
    VSGrid* grid = f.ui()->VSFlexGrid;
    for (int r = 1; r < grid->Rows(); ++r)
        if (grid->TextMatrix(r, 2) == name) return grid->setRow(r), true;
    return false;
}

void click(frmRole& f, const char* key, bool on) {
    f.Node(key)->setCheckState(0, on ? Qt::Checked : Qt::Unchecked);
}

// The rights checked in the tree, by key.
QStringList checkedKeys(frmRole& f) {
    QStringList keys;
    for (QTreeWidgetItemIterator it(f.ui()->TreeView); *it; ++it)
        if ((*it)->checkState(0) == Qt::Checked) keys << frmRole::NodeKey(*it);
    return keys;
}

}  // namespace

class TestRole : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void rulesAdministratorAndDelete() {
        TestDb db;
        MsgRecorder rec;
        addEmptyRole("{R1}", "收银员");
        addEmptyRole("{R2}", "仓管");
        TestDb::Exec("Insert Into [User] Values('{U}','7','小王','','{R1}','收银员')");
        frmRole f;
        // The administrator's role shows every right, one node per Role column,
        // and can be neither edited, nor deleted, nor changed by a click.
        const QStringList keys = checkedKeys(f), names = clsRole::RightNames();
        QCOMPARE(QSet<QString>(keys.begin(), keys.end()),
                 QSet<QString>(names.begin(), names.end()));
        f.ui()->Edit->trigger();
        f.ui()->Del->trigger();
        click(f, "Profit", false);
        QCOMPARE(rec.TakeTexts(),
                 (QStringList{"对不起不能编辑管理员角色！", "对不起不能删除管理员角色！",
                              "对不起不能编辑管理员角色！"}));
        QVERIFY(!f.Editing() && !f.ui()->Save->isEnabled());
        QCOMPARE(TestDb::Count("Role"), 3);

        // Checking a right while browsing starts editing and checks the root;
        // unchecking the only right leaves the root on.
        QVERIFY(pick(f, "收银员"));
        click(f, "Sell", true);
        QVERIFY(f.Editing());
        QCOMPARE(checkedKeys(f), (QStringList{"AllList", "Sell"}));
        click(f, "Sell", false);
        QCOMPARE(checkedKeys(f), QStringList{"AllList"});
        // The root clears and checks everything.
        click(f, "AllList", false);
        QVERIFY(checkedKeys(f).isEmpty());
        click(f, "AllList", true);
        QCOMPARE(checkedKeys(f).size(), 26);
        // While editing the grid keeps its row; Cancel brings back the stored rights.
        f.ui()->VSFlexGrid->setRow(1);
        QCOMPARE(f.ui()->txtRole->text(), QString("收银员"));
        f.ui()->Cancel->trigger();
        QVERIFY(!f.Editing() && checkedKeys(f).isEmpty());

        // The role's users block the delete: the row leaves the grid, the next
        // one is current, and the role is back when the window reopens.
        rec.Yes();
        f.ui()->Del->trigger();
        const QStringList texts = rec.TakeTexts();
        QCOMPARE(texts.size(), 3);  // the question, the engine's text, the read failure
        QCOMPARE(texts[0], QString("如果要删除该角色那么该角色下的用户也将一并删除？"));
        QCOMPARE(texts[2], MsgBox::ReadFailText());
        QVERIFY(!pick(f, "收银员"));
        QCOMPARE(f.ui()->txtRole->text(), QString("仓管"));
        QCOMPARE(TestDb::Count("[User]", "RoleGUID='{R1}'"), 1);
        frmRole again;
        QVERIFY(pick(again, "收银员"));
        CS_NO_LEFTOVER_BOXES(rec);
    }
};

CS_TEST(TestRole)
#include "tst_role.moc"
