// The sales query with its totals and labels, and the ranking.
#include <QDateEdit>
#include <QPushButton>

#include "ReportData.h"
#include "TestRegistry.h"
#include "frmSellGroup.h"
#include "frmSellQuery.h"
#include "ui_frmSellGroup.h"
#include "ui_frmSellQuery.h"

class TestSellQuery : public QObject {
    Q_OBJECT
private Q_SLOTS:
    // Lines sold or exchanged into, in article, size and colour order; the
    // totals above them; the count of lines and the money taken.
    void linesWithTotals() {
        TestDb db;
        MsgRecorder rec;
        AddSale({.amount = 100, .date = Day(-1)});
        AddSale({.colour = "白色", .amount = 90.5, .state = 1});
        AddSale({.size = "L", .amount = 70, .state = 2});
        AddSale({.amount = 65, .state = 3});
        AddSale({.typeNo = "A0", .amount = 50, .quantity = 2});
        AddSale({.typeNo = "A0", .amount = 40, .date = Day(-5)});

        frmSellQuery w;
        auto* u = w.ui();
        VSGrid* g = u->VSSell;
        u->DTBeginTime->setDate(QDate::currentDate().addDays(-1));
        for (int i = 0; i < 2; ++i) u->cmdQuery->click();  // no second set of totals
        QCOMPARE(Cells(g, "货号"), QStringList({"总合计", "合计", "A0", "合计", "X1", "X1"}));
        QCOMPARE(Cells(g, "数量"), QStringList({"4", "2", "2", "2", "1", "1"}));
        QCOMPARE(Cells(g, "实收金额"), QStringList({"240", "50", "50", "190", "90.5", "100"}));
        QCOMPARE(u->lbCount->text(), QString("3"));
        QCOMPARE(u->lbAmount->text(), QString("240.5￥"));

        // Nothing found: the labels keep what they showed.
        u->DTBeginTime->setDate(QDate::currentDate().addDays(3));
        u->cmdQuery->click();
        QCOMPARE(g->Rows(), 1);
        QCOMPARE(u->lbCount->text(), QString("3"));
        CS_NO_LEFTOVER_BOXES(rec);
    }
};

class TestSellGroup : public QObject {
    Q_OBJECT
private Q_SLOTS:
    // Pieces per description, most first; any of the eight columns that
    // differs makes a row of its own.
    void rankingOnAllColumns() {
        TestDb db;
        MsgRecorder rec;
        for (int i = 0; i < 5; ++i) AddSale({.typeNo = "Y2", .state = i == 0 ? 2 : 0});
        AddSale({.quantity = 2});
        AddSale({.state = 1});
        AddSale({.size = "L", .quantity = 2});
        AddSale({.place = "上海"});
        AddSale({.typeNo = "Z9", .date = Day(-400), .quantity = 7});

        frmSellGroup w;
        VSGrid* g = w.ui()->VSSell;
        w.ui()->DTBeginTime->setDate(QDate::currentDate().addDays(-30));
        w.ui()->cmdQuery->click();
        QList<QStringList> rows;
        for (int r = 1; r < g->Rows(); ++r)
            rows << QStringList(
                {g->Cell(r, "货号"), g->Cell(r, "尺码"), g->Cell(r, "产地"), g->Cell(r, "数量")});
        COMPARE_ROWS(rows, {"Y2|M|广州|4", "X1|M|广州|3", "X1|L|广州|2", "X1|M|上海|1"});
        CS_NO_LEFTOVER_BOXES(rec);
    }
};

CS_TEST(TestSellQuery)
CS_TEST(TestSellGroup)
#include "tst_sales.moc"
