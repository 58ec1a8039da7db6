// The main window's commands and toolbar buttons open the report windows.
#include <QAction>
#include <QDialog>

#include "Modal.h"
#include "ReportData.h"
#include "ReportsCommands.h"
#include "TestRegistry.h"
#include "frmMain.h"

class TestReportCommands : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void commandsOpenTheirWindows() {
        TestDb db;
        MsgRecorder rec;
        RegisterReportsCommands();
        frmMain m;
        QList<QAction*> actions;
        for (const char* key : {"DayAmount", "AmountTotal", "Profit", "StoreQuery", "SellQuery",
                                "SellGroup", "OtherOut", "OtherOutQuery"})
            actions << m.MenuItem(key);
        actions << m.ToolButton("StoreQuery") << m.ToolButton("SellQuery");
        QStringList titles;
        for (QAction* a : actions) {
            Modal::Queue([&](QDialog* d) {
                titles << d->windowTitle();
                d->reject();
            });
            a->trigger();
        }
        QCOMPARE(titles,
                 QStringList({"日结算", "结算汇总", "利润分析", "库存查询", "售货查询", "销售排行",
                              "其他支出", "其他指出查询", "库存查询", "售货查询"}));
        CS_NO_LEFTOVER_BOXES(rec);
    }
};

CS_TEST(TestReportCommands)
#include "tst_commands.moc"
