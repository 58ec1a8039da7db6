// The roles window: the tree of rights and its checking rules, saving rights,
// the administrator's role, and the delete that the engine refuses.
#include <QLineEdit>
#include <QTest>
#include <QToolBar>
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
    QStringList zeros;
    for (int i = 0; i < 26; ++i) zeros << "0";
    TestDb::Exec("Insert Into Role Values ('" + guid + "','" + name + "'," + zeros.join(',') + ")");
}

int rowOf(VSGrid* grid, const QString& name) {
    for (int r = 1; r < grid->Rows(); ++r)
        if (grid->TextMatrix(r, 2) == name) return r;
    return -1;
}

bool checked(frmRole& f, const char* key) {
    return f.Node(key)->checkState(0) == Qt::Checked;
}

// A click on a node's check box, as the user gives it.
void click(frmRole& f, const char* key, bool on) {
    f.Node(key)->setCheckState(0, on ? Qt::Checked : Qt::Unchecked);
}

}  // namespace

class TestRole : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void treeToolbarAndGrid() {
        TestDb db;
        MsgRecorder rec;
        frmRole f;
        QCOMPARE(f.windowTitle(), QString("角色"));
        QStringList bar;
        for (QAction* a : f.ui()->Toolbar->actions())
            bar << (a->isSeparator() ? "|" : a->objectName() + ":" + a->text());
        QCOMPARE(bar, (QStringList{"Add:新 增", "|", "Edit:编 辑", "|", "Del:删 除", "|",
                                   "Cancel:取 消", "|", "Save:保 存"}));
        QVERIFY(!f.ui()->Cancel->isEnabled() && !f.ui()->Save->isEnabled());

        QTreeWidget* tree = f.ui()->TreeView;
        QCOMPARE(tree->topLevelItemCount(), 1);
        QTreeWidgetItem* root = tree->topLevelItem(0);
        QCOMPARE(frmRole::NodeKey(root), QString("AllList"));
        QCOMPARE(root->text(0), QString("全部权限"));
        QVERIFY(root->isExpanded());
        QCOMPARE(root->childCount(), 25);
        QStringList keys, captions;
        for (int i = 0; i < root->childCount(); ++i) {
            keys << frmRole::NodeKey(root->child(i));
            captions << root->child(i)->text(0);
        }
        QCOMPARE(keys, (QStringList{"Data",
                                    "ReStart",
                                    "UserManage",
                                    "SellRole",
                                    "ChangeShop",
                                    "BuyIn",
                                    "Sell",
                                    "ClientChange",
                                    "ClientBack",
                                    "Question",
                                    "FactoryBack",
                                    "SellBlankOut",
                                    "ChangePrice",
                                    "OtherOut",
                                    "StoreQuery",
                                    "SellQuery",
                                    "SellGroup",
                                    "BuyDetail",
                                    "ClientChangeQuery",
                                    "FactoryBackQuery",
                                    "BlankOutQuery",
                                    "OtherOurQuery",
                                    "DayAmount",
                                    "TotalAmount",
                                    "Profit"}));
        QCOMPARE(captions.mid(0, 4),
                 (QStringList{"数据维护", "重新开始", "角色管理", "系统参数规则"}));
        QCOMPARE(captions.mid(20, 5),
                 (QStringList{"销售作废查询", "营业外支出查询", "日结算", "结算汇总", "利润分析"}));
        // Every key is a right of the session's role (and a column of Role).
        QStringList sorted = keys;
        sorted << "AllList";
        sorted.sort();
        QStringList names = clsRole::RightNames();
        names.sort();
        QCOMPARE(sorted, names);

        // One visible column of names; the administrator's rights all on.
        VSGrid* grid = f.ui()->VSFlexGrid;
        QCOMPARE(grid->TextMatrix(0, 2), QString("角色名称"));
        for (int c = 1; c < grid->Cols(); ++c) QCOMPARE(grid->ColHidden(c), c != 2);
        QCOMPARE(grid->TextMatrix(1, 1), kAdminRole);
        QCOMPARE(f.ui()->txtRole->text(), QString("管理员"));
        QVERIFY(f.ui()->txtRole->isReadOnly());
        for (QTreeWidgetItemIterator it(tree); *it; ++it)
            QCOMPARE((*it)->checkState(0), Qt::Checked);
        CS_NO_LEFTOVER_BOXES(rec);
    }

    void checkingRules() {
        TestDb db;
        MsgRecorder rec;
        addEmptyRole("{R1}", "收银员");
        frmRole f;
        VSGrid* grid = f.ui()->VSFlexGrid;
        grid->setRow(rowOf(grid, "收银员"));
        QCOMPARE(f.ui()->txtRole->text(), QString("收银员"));
        QVERIFY(!checked(f, "AllList") && !checked(f, "Sell"));

        // Checking a right while browsing starts editing, and checks the root.
        click(f, "Sell", true);
        QVERIFY(f.Editing());
        QVERIFY(!f.ui()->txtRole->isReadOnly());
        QVERIFY(checked(f, "Sell") && checked(f, "AllList"));
        QVERIFY(!checked(f, "StoreQuery"));
        // Unchecking the only right leaves the root on.
        click(f, "Sell", false);
        QVERIFY(checked(f, "AllList"));
        // The root clears and checks everything.
        click(f, "AllList", false);
        for (QTreeWidgetItemIterator it(f.ui()->TreeView); *it; ++it)
            QCOMPARE((*it)->checkState(0), Qt::Unchecked);
        click(f, "AllList", true);
        for (QTreeWidgetItemIterator it(f.ui()->TreeView); *it; ++it)
            QCOMPARE((*it)->checkState(0), Qt::Checked);
        // While editing, the grid keeps its row.
        grid->setRow(1);
        QCOMPARE(grid->TextMatrix(grid->Row(), 2), QString("收银员"));
        f.ui()->Cancel->trigger();
        QVERIFY(!f.Editing());
        QVERIFY(!checked(f, "AllList") && !checked(f, "Sell"));  // back to the stored rights

        // On the administrator's role a check is refused, but stays on screen.
        grid->setRow(1);
        click(f, "Profit", false);
        const auto boxes = rec.Take();
        QCOMPARE(boxes.size(), 1);
        QCOMPARE(boxes[0].text, QString("对不起不能编辑管理员角色！"));
        QVERIFY(!f.Editing());
        QVERIFY(!checked(f, "Profit"));
        grid->setRow(rowOf(grid, "收银员"));
        grid->setRow(1);
        QVERIFY(checked(f, "Profit"));
        CS_NO_LEFTOVER_BOXES(rec);
    }

    void saveRoundTrip() {
        TestDb db;
        MsgRecorder rec;
        {
            frmRole f;
            VSGrid* grid = f.ui()->VSFlexGrid;
            const int before = grid->Rows();
            f.ui()->Add->trigger();
            QVERIFY(f.Adding());
            QCOMPARE(grid->Rows(), before + 1);
            QCOMPARE(grid->Row(), before);
            QVERIFY(!checked(f, "AllList"));  // the new row's empty cells
            QVERIFY(!f.ui()->Add->isEnabled() && f.ui()->Save->isEnabled());

            // Empty name, then a name in use.
            f.ui()->txtRole->clear();
            f.ui()->Save->trigger();
            f.ui()->txtRole->setText("管理员");
            f.ui()->Save->trigger();
            QCOMPARE(rec.TakeTexts(), (QStringList{"角色名称不能为空！", "该角色已经存在！"}));

            f.ui()->txtRole->setText("收银员");
            click(f, "Sell", true);
            click(f, "StoreQuery", true);
            f.ui()->Save->trigger();
            QVERIFY(!f.Adding());
            QVERIFY(f.ui()->txtRole->isReadOnly());
            QCOMPARE(grid->TextMatrix(grid->Row(), 2), QString("收银员"));
            QCOMPARE(grid->TextMatrix(grid->Row(), 1).size(), 38);
        }
        // Written as 1 and 0, read back as -1 and 0.
        const Recordset rs = TestDb::Query("Select * from Role Where Name='收银员'");
        QVERIFY(!rs.Eof());
        QCOMPARE(rs.Text("Sell"), QString("-1"));
        QCOMPARE(rs.Text("StoreQuery"), QString("-1"));
        QCOMPARE(rs.Text("AllList"), QString("-1"));
        QCOMPARE(rs.Text("ReStart"), QString("0"));
        QCOMPARE(rs.Text("UserManage"), QString("0"));

        // Reopened, the tree shows the stored rights; an edit writes them back.
        {
            frmRole f;
            VSGrid* grid = f.ui()->VSFlexGrid;
            grid->setRow(rowOf(grid, "收银员"));
            QVERIFY(checked(f, "Sell") && checked(f, "StoreQuery") && checked(f, "AllList"));
            QVERIFY(!checked(f, "BuyIn"));
            f.ui()->Edit->trigger();
            QVERIFY(f.Editing());
            // Its own name is no name in use.
            f.ui()->txtRole->setText("收银员'");
            click(f, "Sell", false);
            click(f, "DayAmount", true);
            f.ui()->Save->trigger();
            // The name passes the test unquoted: the read fails, the save goes on.
            const auto boxes = rec.Take();
            QCOMPARE(boxes.size(), 2);
            QCOMPARE(boxes[1].text, MsgBox::ReadFailText());
            QVERIFY(!f.Editing());
        }
        QCOMPARE(TestDb::Scalar("Select Sell from Role Where Name='收银员'''"), QString("0"));
        QCOMPARE(TestDb::Scalar("Select DayAmount from Role Where Name='收银员'''"), QString("-1"));
        QCOMPARE(TestDb::Count("Role"), 2);
        CS_NO_LEFTOVER_BOXES(rec);
    }

    void addThenCancel() {
        TestDb db;
        MsgRecorder rec;
        addEmptyRole("{R1}", "收银员");
        frmRole f;
        VSGrid* grid = f.ui()->VSFlexGrid;
        const int rows = grid->Rows();
        f.ui()->Add->trigger();
        grid->setRow(1);  // refused while adding
        QCOMPARE(grid->Row(), rows);
        f.ui()->Cancel->trigger();
        QVERIFY(!f.Adding());
        QCOMPARE(grid->Rows(), rows);
        QCOMPARE(grid->Row(), rows - 1);
        QCOMPARE(f.ui()->txtRole->text(), grid->TextMatrix(rows - 1, 2));
        QVERIFY(f.ui()->Add->isEnabled() && !f.ui()->Cancel->isEnabled());
        CS_NO_LEFTOVER_BOXES(rec);
    }

    void administratorRoleRefused() {
        TestDb db;
        MsgRecorder rec;
        frmRole f;
        f.show();
        QApplication::setActiveWindow(&f);
        QVERIFY(QTest::qWaitForWindowActive(&f));
        f.ui()->txtRole->setFocus();
        f.ui()->Edit->trigger();
        QVERIFY(!f.Editing());
        QVERIFY(f.ui()->VSFlexGrid->hasFocus());
        QVERIFY(f.ui()->Add->isEnabled() && !f.ui()->Save->isEnabled());
        f.ui()->Del->trigger();
        const auto boxes = rec.Take();
        QCOMPARE(boxes.size(), 2);
        QCOMPARE(boxes[0].text, QString("对不起不能编辑管理员角色！"));
        QCOMPARE(boxes[0].icon, MsgBox::Icon::Information);
        QCOMPARE(boxes[0].title, QString("提示"));
        QCOMPARE(boxes[1].text, QString("对不起不能删除管理员角色！"));
        QCOMPARE(f.ui()->VSFlexGrid->Rows(), 2);
        QCOMPARE(TestDb::Count("Role"), 1);
        CS_NO_LEFTOVER_BOXES(rec);
    }

    void deleteFailsAndTheRoleComesBack() {
        TestDb db;
        MsgRecorder rec;
        addEmptyRole("{R1}", "收银员");
        addEmptyRole("{R2}", "仓管");
        TestDb::Exec("Insert Into [User] Values('{U}','7','小王','','{R1}','收银员')");
        {
            frmRole f;
            VSGrid* grid = f.ui()->VSFlexGrid;
            grid->setRow(rowOf(grid, "收银员"));
            rec.No();
            f.ui()->Del->trigger();
            QCOMPARE(grid->Rows(), 4);
            rec.Yes();
            f.ui()->Del->trigger();
            const auto boxes = rec.Take();
            QCOMPARE(boxes.size(), 4);
            QCOMPARE(boxes[1].text, QString("如果要删除该角色那么该角色下的用户也将一并删除？"));
            QCOMPARE(boxes[1].icon, MsgBox::Icon::None);
            QCOMPARE(boxes[1].buttons, MsgBox::Buttons::YesNo);
            QCOMPARE(boxes[1].title, QString("提示"));
            QCOMPARE(boxes[3].text, MsgBox::ReadFailText());
            // The row has left the grid; the next one is current.
            QCOMPARE(grid->Rows(), 3);
            QCOMPARE(rowOf(grid, "收银员"), -1);
            QCOMPARE(f.ui()->txtRole->text(), QString("仓管"));
        }
        QCOMPARE(TestDb::Count("Role", "GUID='{R1}'"), 1);
        QCOMPARE(TestDb::Count("[User]", "RoleGUID='{R1}'"), 1);
        frmRole again;
        QVERIFY(rowOf(again.ui()->VSFlexGrid, "收银员") > 0);
        CS_NO_LEFTOVER_BOXES(rec);
    }
};

CS_TEST(TestRole)
#include "tst_role.moc"
