// The sales query with its totals and labels, and the ranking.
#include <QComboBox>
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
    // Lines sold or exchanged into, by article, size and colour; totals
    // above the rows, the grand total in row 1; the count of lines and the
    // money taken; returned and voided lines left out.
    void linesWithTotals() {
        TestDb db;
        MsgRecorder rec;
        AddSale({.typeNo = "X1", .amount = 100, .date = Day(-1)});
        AddSale({.typeNo = "X1", .colour = "白色", .amount = 90.5, .state = 1});  // exchanged into
        AddSale({.typeNo = "X1", .size = "L", .amount = 70, .state = 2});
        AddSale({.typeNo = "X1", .amount = 65, .state = 3});
        AddSale({.typeNo = "A0", .size = "S", .amount = 50, .quantity = 2});
        AddSale({.typeNo = "A0", .amount = 40, .date = Day(-5)});
        AddSale({.typeNo = "A0", .amount = 40, .shop = "{OTHER}"});

        frmSellQuery w;
        auto* u = w.ui();
        VSGrid* g = u->VSSell;
        QCOMPARE(g->ColKey(1), QString("销售编号"));
        QCOMPARE(g->Rows(), 1);
        u->DTBeginTime->setDate(QDate::currentDate().addDays(-1));
        for (int i = 0; i < 2; ++i) {  // asking again does not pile up total rows
            u->cmdQuery->click();
            QCOMPARE(Cells(g, 1), QStringList({"总合计", "合计", "A0", "合计", "X1", "X1"}));
        }
        QCOMPARE(g->ColKey(1), QString("货号"));
        QCOMPARE(Cells(g, "数量"), QStringList({"4", "2", "2", "2", "1", "1"}));
        QCOMPARE(Cells(g, "实收金额"), QStringList({"240", "50", "50", "190", "90.5", "100"}));
        QVERIFY(g->IsSubtotal(1) && g->IsSubtotal(2) && !g->IsSubtotal(3));
        QCOMPARE(u->lbCount->text(), QString("3"));
        QCOMPARE(u->lbAmount->text(), QString("240.5￥"));

        // Nothing found: an empty list, the labels as they were.
        u->DTBeginTime->setDate(QDate::currentDate().addDays(3));
        u->cmdQuery->click();
        QCOMPARE(g->Rows(), 1);
        QCOMPARE(u->lbCount->text() + u->lbAmount->text(), QString("3240.5￥"));

        // A brand and a kind narrow the lines.
        TestDb::Exec("Update Sell Set Brand='北岸' Where TypeNo='A0'");
        u->DTBeginTime->setDate(QDate::currentDate().addDays(-9));
        u->comBrand->setCurrentIndex(u->comBrand->findText("北岸"));
        u->cmdQuery->click();
        QCOMPARE(Cells(g, "货号"), QStringList({"总合计", "合计", "A0", "A0"}));
        u->comName->setCurrentIndex(u->comName->findText("衬衫"));
        u->cmdQuery->click();
        QCOMPARE(g->Rows(), 1);
        CS_NO_LEFTOVER_BOXES(rec);
    }
};

class TestSellGroup : public QObject {
    Q_OBJECT
private Q_SLOTS:
    // Pieces sold per description, most first: any of the eight columns
    // that differs makes a row of its own; returned lines do not count.
    void rankingOnAllColumns() {
        TestDb db;
        MsgRecorder rec;
        for (int i = 0; i < 4; ++i) AddSale({.typeNo = "Y2"});
        AddSale({.typeNo = "Y2", .state = 2});
        AddSale({.typeNo = "X1", .quantity = 2});
        AddSale({.typeNo = "X1", .state = 1});
        AddSale({.typeNo = "X1", .size = "L", .quantity = 2});
        AddSale({.typeNo = "X1", .place = "上海"});
        AddSale({.typeNo = "X1", .colour = "红色", .state = 3});
        AddSale({.typeNo = "Z9", .date = Day(-400), .quantity = 7});

        frmSellGroup w;
        VSGrid* g = w.ui()->VSSell;
        QCOMPARE(g->Cols(), 10);
        w.ui()->DTBeginTime->setDate(QDate::currentDate().addDays(-30));
        w.ui()->cmdQuery->click();
        QStringList rows;
        for (int r = 1; r < g->Rows(); ++r)
            rows << g->Cell(r, "货号") + g->Cell(r, "尺码") + g->Cell(r, "产地") + ":" +
                        g->Cell(r, "数量");
        QCOMPARE(rows, QStringList({"Y2M广州:4", "X1M广州:3", "X1L广州:2", "X1M上海:1"}));
        CS_NO_LEFTOVER_BOXES(rec);
    }
};

CS_TEST(TestSellQuery)
CS_TEST(TestSellGroup)
#include "tst_sales.moc"
