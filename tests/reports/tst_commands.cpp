// The main window's commands and toolbar buttons open the report windows.
#include <QAction>
#include <QDialog>
#include <QPushButton>

#include "Modal.h"
#include "ReportData.h"
#include "ReportsCommands.h"
#include "TestRegistry.h"
#include "frmMain.h"
#include "frmPrint.h"
#include "frmSellQuery.h"
#include "frmStore.h"
#include "ui_frmPrint.h"
#include "ui_frmSellQuery.h"
#include "ui_frmStore.h"

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

    // The print buttons of the stock and sales queries hand their grid, the
    // grand total in row 1, to the print window.
    void printButtonsHandTheirGrid() {
        TestDb db;
        MsgRecorder rec;
        TestDb::AddGoods("P1", 4, 99, 40);
        AddSale(SaleLine{});
        frmStore store;
        frmSellQuery sales;
        sales.ui()->cmdQuery->click();
        const QList<QPair<VSGrid*, QPushButton*>> windows = {
            {store.ui()->VSFlexGrid, store.ui()->cmdPrint},
            {sales.ui()->VSSell, sales.ui()->cmdPrint}};
        for (const auto& [grid, button] : windows) {
            bool opened = false;
            Modal::Queue([&, grid = grid](QDialog* d) {
                auto* p = qobject_cast<frmPrint*>(d);
                QVERIFY(p);
                opened = true;
                QVERIFY(p->HasTotal && p->CanTotal);
                VSGrid* copy = p->ui()->VSFlexGrid;
                QCOMPARE(copy->Rows(), grid->Rows());
                QCOMPARE(copy->TextMatrix(1, 1), QString("总合计"));
                QCOMPARE(copy->TextMatrix(2, 2), grid->TextMatrix(2, 2));
                d->reject();
            });
            button->click();
            QVERIFY(opened);
        }
        CS_NO_LEFTOVER_BOXES(rec);
    }
};

CS_TEST(TestReportCommands)
#include "tst_commands.moc"
