// The return and exchange list with its two tabs, and the main window's
// commands that open the after-sale windows.
#include <QDateEdit>
#include <QPushButton>
#include <QTabWidget>

#include "AfterSale.h"
#include "AftersaleCommands.h"
#include "Modal.h"
#include "TestRegistry.h"
#include "frmBackChangeQuery.h"
#include "frmMain.h"
#include "ui_frmBackChangeQuery.h"

namespace {

void AddChange(const QString& typeNo, int state, int daysAgo, const QString& shop) {
    TestDb::Exec("Insert Into SellChange (ShopNo,TypeNo,State,ChangeDate,Amount,Resion) Values('" +
                 shop + "','" + typeNo + "'," + QString::number(state) + ",'" + DaysAgo(daysAgo) +
                 "',100,'不合适')");
}

QStringList Listed(const VSGrid* g) {
    QStringList out;
    for (int r = 1; r < g->Rows(); ++r) out << g->Cell(r, "货号");
    out.sort();  // the list has no order of its own
    return out;
}

}  // namespace

class TestBackChangeQuery : public QObject {
    Q_OBJECT
private Q_SLOTS:
    // Exchanges at opening, returns when their tab is shown, each by its own
    // dates, both ends included; a date alone runs nothing.
    void tabsAndDateRanges() {
        TestDb db;
        const QString shop = Session::ShopNo;
        AddChange("E0", 1, 0, shop);
        AddChange("E3", 1, 3, shop);
        AddChange("R0", 2, 0, shop);
        AddChange("R3", 2, 3, shop);
        AddChange("V0", 3, 0, shop);
        AddChange("OTHER", 1, 0, "{OTHER}");
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
        QCOMPARE(ui->TabStrip->currentIndex(), 1);
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
};

class TestAftersaleCommands : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { RegisterAftersaleCommands(); }

    // Each menu item and toolbar button opens its window.
    void menuAndToolbarOpenTheWindows() {
        TestDb db;
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

CS_TEST(TestBackChangeQuery)
CS_TEST(TestAftersaleCommands)
#include "tst_queries.moc"
