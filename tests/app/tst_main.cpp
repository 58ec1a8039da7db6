// The main window: its commands and their gating, the wipe, the closing backup.
#include <QDir>
#include <QFile>
#include <QMenu>
#include <QMenuBar>
#include <QTest>
#include <QToolBar>

#include "Commands.h"
#include "Modal.h"
#include "MsgRecorder.h"
#include "Session.h"
#include "TestDb.h"
#include "TestRegistry.h"
#include "frmMain.h"

namespace {
QStringList captions(const QList<QAction*>& actions) {
    QStringList out;
    for (QAction* a : actions) out << (a->isSeparator() ? "|" : a->text());
    return out;
}
}  // namespace

class TestMain : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void menusToolbarAndTitle() {
        TestDb db;
        frmMain m;
        QCOMPARE(m.windowTitle(), QString("Vantro服装店进销存管理系统普及版2.0-本店"));
        QStringList tops;
        for (QAction* a : m.menuBar()->actions()) tops << a->text();
        QCOMPARE(tops, (QStringList{"[系  统(&S)]", "[功  能(&O)]", "[查  询(&Q)]",
                                    "[结算统计(&A)]", "[帮  助(&H)]"}));
        auto* system = m.findChild<QMenu*>("System");
        QCOMPARE(captions(system->actions()),
                 (QStringList{"1-用户管理", "2-修改密码", "3-系统参数设置", "4-数据维护",
                              "5-店面管理", "|", "6-进货单数据导入", "7-数据备份设置", "8-重新开始",
                              "9-更换用户", "10-退出"}));
        QCOMPARE(captions(m.findChild<QMenu*>("Operator")->actions()),
                 (QStringList{"1-进货管理", "2-售货管理", "3-客户调换", "4-客户退货", "5-问 题 鞋",
                              "6-厂商退货", "|", "7-售货作废", "8-价格变动", "9-非营业其他支出"}));
        QCOMPARE(captions(m.findChild<QMenu*>("Data")->actions()),
                 (QStringList{"颜色", "尺码", "种类", "品牌", "面料", "等级", "产地", "退货原因",
                              "调换原因", "作废原因", "其他支出项目"}));
        QCOMPARE(captions(m.Toolbar()->actions()),
                 (QStringList{"进 货", "售  货", "客户调换", "客户退货", "厂商退货", "库存查询",
                              "售货查询", "店面管理", "计算器", "记事本", "退 出"}));
        for (QAction* a : m.Toolbar()->actions()) QVERIFY(!a->icon().isNull());
    }

    void gatingFollowsTheRole() {
        TestDb db;
        TestDb::Exec(
            "Insert Into Role (GUID,Name,Sell,StoreQuery,Data) Values('{R}','收银员',1,1,0)");
        TestDb::Exec("Insert Into [User] Values('{U}','7','小王','','{R}','收银员')");
        QVERIFY(Session::User().Initial("7"));
        frmMain m;
        QVERIFY(!m.MenuItem("ReStart")->isEnabled());
        QVERIFY(!m.MenuItem("UserManage")->isEnabled());
        QVERIFY(!m.MenuItem("Profit")->isEnabled());
        QVERIFY(m.MenuItem("SellOut")->isEnabled());
        QVERIFY(m.MenuItem("StoreQuery")->isEnabled());
        QVERIFY(!m.ToolButton("BuyIn")->isEnabled());
        QVERIFY(m.ToolButton("SellOut")->isEnabled());
        // Without a right of their own these stay open to everyone.
        for (const char* k : {"ChagePassWord", "putin", "BackUpDate", "ReLogin", "Exit", "About"})
            QVERIFY2(m.MenuItem(k)->isEnabled(), k);
        QVERIFY(m.findChild<QMenu*>("Data")->menuAction()->isEnabled());
        for (const char* k : {"Calculate", "Note", "Exit"})
            QVERIFY2(m.ToolButton(k)->isEnabled(), k);
        QVERIFY(Session::User().Initial("admin"));
        m.LoadPopdem();
        QVERIFY(m.MenuItem("ReStart")->isEnabled());
        QVERIFY(m.ToolButton("BuyIn")->isEnabled());
    }

    void wipeEmptiesBusinessTablesOnly() {
        TestDb db;
        TestDb::AddGoods("A1", 2, 100, 50);
        const int lastLayer = TestDb::Scalar("select max(ID) from BuyPrice").toInt();
        TestDb::Exec("Insert Into Sell (GUID,ShopNo,State) Values('{S}','x',0)");
        TestDb::Exec("Insert Into OtherOut (GUID,Amount) Values('{O}',5)");
        MsgRecorder rec;
        frmMain m;
        rec.No();
        m.RunCommand("ReStart");
        QCOMPARE(TestDb::Count("Store"), 1);
        rec.Yes();
        m.RunCommand("ReStart");
        const auto boxes = rec.Take();
        QCOMPARE(boxes.size(), 2);
        QCOMPARE(boxes[1].text, QString("如果重新开始了后 所有数据将丢失！慎重哦！"));
        QCOMPARE(boxes[1].icon, MsgBox::Icon::Question);
        QCOMPARE(boxes[1].title, QString("提示"));
        for (const char* t : {"Sell", "Store", "StoreDetail", "BuyPrice", "BackStore", "SellChange",
                              "DayAmount", "OtherOut", "FactoryBackTotal"})
            QVERIFY2(TestDb::Count(t) == 0, t);
        for (const char* t : {"SellRole", "DataDictionary", "Shop", "Role", "[User]", "FileSave"})
            QVERIFY2(TestDb::Count(t) > 0, t);
        TestDb::AddGoods("A2", 1, 10, 5);
        QCOMPARE(TestDb::Scalar("select max(ID) from BuyPrice").toInt(), lastLayer + 1);
        CS_NO_LEFTOVER_BOXES(rec);
    }

    void closingAsksAndBacksUp() {
        TestDb db;
        MsgRecorder rec;
        const QString folder = db.Folder() + "/备份/";
        QDir().mkpath(folder);
        TestDb::Exec("Update FileSave set dirpath='" + folder + "',FileName='数据备份',IsSave=1");
        QFile old(folder + "数据备份.mdb");
        QVERIFY(old.open(QIODevice::WriteOnly));
        old.write("old copy");
        old.close();
        {
            frmMain m;
            m.show();
            rec.No();
            QVERIFY(!m.close());
            QVERIFY(Session::Dbopt().IsConnected());
            rec.Yes();
            QVERIFY(m.close());
        }
        QCOMPARE(rec.TakeTexts(), (QStringList{"确认要退出系统吗？", "确认要退出系统吗？"}));
        QVERIFY(!Session::HasDbopt());  // the connection was closed before the copy
        QFile copy(folder + "数据备份.mdb");
        QVERIFY(copy.open(QIODevice::ReadOnly));
        QCOMPARE(copy.size(), QFileInfo(db.Path()).size());
        QCOMPARE(copy.read(16), QByteArray("SQLite format 3\0", 16));
        CS_NO_LEFTOVER_BOXES(rec);
    }

    void backupPathAndItsFailures() {
        TestDb db;
        MsgRecorder rec;
        QString target;
        bool isSave = true;
        // The folder text and the file name are joined with nothing between them.
        TestDb::Exec("Update FileSave set dirpath='/srv/数据备份',FileName='数据备份',IsSave=0");
        QVERIFY(frmMain::ReadBackupSetting(target, isSave));
        QCOMPARE(target, QString("/srv/数据备份数据备份.mdb"));
        QVERIFY(!isSave);
        TestDb::Exec("Update FileSave set dirpath=Null,FileName=Null");
        QVERIFY(frmMain::ReadBackupSetting(target, isSave));
        QCOMPARE(target, QString("00.mdb"));
        TestDb::Exec("Delete from FileSave");
        QVERIFY(!frmMain::ReadBackupSetting(target, isSave));
        QCOMPARE(rec.TakeTexts(), QStringList{"数据库被修改，请联系软件商！"});

        // Backup off: no copy, the connection stays until the process ends.
        TestDb db2;
        {
            frmMain m;
            m.show();
            rec.Yes();
            QVERIFY(m.close());
        }
        QVERIFY(Session::HasDbopt() && Session::Dbopt().IsConnected());
        rec.Take();

        // A copy that fails shows the error and the window still closes.
        TestDb db3;
        TestDb::Exec("Update FileSave set dirpath='/nonexistent/folder/',IsSave=1");
        {
            frmMain m;
            m.show();
            rec.Yes();
            QVERIFY(m.close());
        }
        const auto boxes = rec.Take();
        QCOMPARE(boxes.size(), 2);
        QCOMPARE(boxes[1].icon, MsgBox::Icon::Critical);
        QVERIFY(boxes[1].text.contains("路径未找到"));
        CS_NO_LEFTOVER_BOXES(rec);
    }

    void commandsWithoutWindowsAndMissingTools() {
        TestDb db;
        MsgRecorder rec;
        frmMain m;
        QVERIFY(!Commands::Has("Question"));
        m.RunCommand("Question");  // no window yet: nothing happens
        const QByteArray path = qgetenv("PATH");
        qputenv("PATH", "/nonexistent");
        m.RunCommand("Calculate");
        m.RunCommand("Note");
        qputenv("PATH", path);
        const auto boxes = rec.Take();
        QCOMPARE(boxes.size(), 2);
        QCOMPARE(boxes[0].text, QString("该工具可能已被系统删除！"));
        QCOMPARE(boxes[0].icon, MsgBox::Icon::Information);
        QCOMPARE(boxes[0].title, MsgBox::AppTitle());
        CS_NO_LEFTOVER_BOXES(rec);
    }

    void commandsOpenTheirWindows() {
        TestDb db;
        MsgRecorder rec;
        frmMain m;
        bool opened = false;
        Modal::Queue([&](QDialog* d) {
            opened = d->windowTitle() == QString("修改密码");
            d->reject();
        });
        m.MenuItem("ChagePassWord")->trigger();
        QVERIFY(opened);
        QString dictTitle;
        Modal::Queue([&](QDialog* d) {
            dictTitle = d->windowTitle();
            d->reject();
        });
        m.MenuItem("BackResion")->trigger();
        QCOMPARE(dictTitle, QString("数据字典--退货原因"));
        CS_NO_LEFTOVER_BOXES(rec);
    }
};

CS_TEST(TestMain)
#include "tst_main.moc"
