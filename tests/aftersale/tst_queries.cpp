// The return and exchange list with its two tabs, and the main window's
// commands that open the after-sale windows.
#include <QTabWidget>

#include "AfterSale.h"
#include "AftersaleCommands.h"
#include "Modal.h"
#include "TestRegistry.h"
#include "frmBackChangeQuery.h"
#include "frmMain.h"
#include "ui_frmBackChangeQuery.h"

namespace {
QStringList Listed(const VSGrid* g) {
    QStringList out;
    for (int r = 1; r < g->Rows(); ++r) out << g->Cell(r, "货号");
    out.sort();  // the list has no order of its own
    return out;
}
}  // namespace

class TestAftersaleQueries : public QObject {
    Q_OBJECT
private Q_SLOTS:
    // This shop's exchanges at opening, returns when their tab is shown, each
    // by its own dates, both ends included; a date alone runs nothing.
    void returnsAndExchangesByTab() {
        TestDb db;
        for (const QString r : {"E0|1|0", "E3|1|3", "R0|2|0", "R3|2|3", "V0|3|0", "OTHER|1|0"})
            TestDb::Exec("Insert Into SellChange (ShopNo,TypeNo,State,ChangeDate,Resion) Values('" +
                         (r.startsWith("OTHER") ? "{OTHER}" : Session::ShopNo) + "','" +
                         r.section('|', 0, 0) + "'," + r.section('|', 1, 1) + ",'" +
                         DaysAgo(r.section('|', 2).toInt()) + "','不合适')");
        MsgRecorder rec;
        frmBackChangeQuery w;
        Open(w);
        Ui::frmBackChangeQuery* ui = w.ui();
        QCOMPARE(Listed(ui->VSChange), QStringList{"E0"});
        QCOMPARE(Listed(ui->VSBack), QStringList());
        QCOMPARE(ui->VSChange->Cell(1, "调换原因"), QString("不合适"));

        ui->DTB->setDate(QDate::currentDate().addDays(-3));
        QCOMPARE(ui->VSBack->Rows(), 1);
        QTest::keyClick(ui->TabStrip, Qt::Key_Tab, Qt::ControlModifier);
        QCOMPARE(Listed(ui->VSBack), QStringList({"R0", "R3"}));
        QCOMPARE(ui->VSBack->Cell(RowOf(ui->VSBack, "货号", "R3"), "退货日期"), DaysAgo(3));

        ui->DTBeginTime->setDate(QDate::currentDate().addDays(-3));
        ui->DTEndTime->setDate(QDate::currentDate().addDays(-3));
        QCOMPARE(Listed(ui->VSChange), QStringList{"E0"});
        ui->TabStrip->setCurrentIndex(0);
        QCOMPARE(Listed(ui->VSChange), QStringList{"E3"});
        ui->DTB->setDate(QDate::currentDate().addDays(1));
        ui->cmdQuery1->click();
        QCOMPARE(ui->VSBack->Rows(), 1);
        CS_NO_LEFTOVER_BOXES(rec);
    }

    // Each menu item and toolbar button opens its window.
    void menuAndToolbarOpenTheWindows() {
        TestDb db;
        RegisterAftersaleCommands();
        MsgRecorder rec;
        frmMain m;
        for (const QString c :
             {"ClientBack=frmClientBack", "ClientBackChange=frmClientBackChange",
              "Question=frmQuestion", "CompanyBack=frmFactoryBack", "Back=frmBackFactoryQuery",
              "ClientChangeQuery=frmBackChangeQuery", "tool:ClientBackChange=frmClientBackChange",
              "tool:ClientBack=frmClientBack", "tool:CompanyBack=frmFactoryBack"}) {
            QString opened;
            Modal::Queue([&](QDialog* d) {
                opened = d->metaObject()->className();
                d->reject();
            });
            const QString key = c.section('=', 0, 0);
            (key.startsWith("tool:") ? m.ToolButton(key.mid(5)) : m.MenuItem(key))->trigger();
            QCOMPARE(opened, c.section('=', 1));
        }
        CS_NO_LEFTOVER_BOXES(rec);
    }
};

CS_TEST(TestAftersaleQueries)
#include "tst_queries.moc"
