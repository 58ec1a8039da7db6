// The stock query, the sales query, the ranking, and the main window's
// commands that open the report windows.
#include "ReportData.h"
#include "ReportsCommands.h"
#include "TestRegistry.h"
#include "frmMain.h"

namespace {
void AddStock(const QString& typeNo, double qty, const QString& brand = "青木") {
    TestDb::AddGoods(typeNo, qty, 100, 40);
    TestDb::Exec("Update Store Set Brand='" + brand + "' Where Brand='青木' And TypeNo='" + typeNo +
                 "'");
}

// Rows as 货号 and 数量 after a mark, "*" for a total row.
QList<QStringList> Outline(const VSGrid* g) {
    QList<QStringList> out;
    for (int r = 1; r < g->Rows(); ++r)
        out << QStringList({g->IsSubtotal(r) ? "*" : "", g->Cell(r, "货号"), g->Cell(r, "数量")});
    return out;
}
}  // namespace

class TestStoreQuery : public QObject {
    Q_OBJECT
private Q_SLOTS:
    // The grand total in row 1, an article's total above each run of its
    // rows; equal neighbours merge; the zero box is read by the next query.
    // The brand goes in as it stands, so a quote in it breaks the statement;
    // the article number searches every brand, quotes and all. The problem
    // goods have two sums in the rows below each article. The print button
    // hands the list, totals and all, to the print window.
    void listSearchAndProblemGoods() {
        TestDb db;
        MsgRecorder rec;
        for (const auto& [no, qty] : std::vector<std::pair<QString, int>>{
                 {"A1", 2}, {"A1", 4}, {"B1", 3}, {"A1", 1}, {"C1", 0}, {"D1", -2}, {"K''9", 1}})
            AddStock(no, qty, no == "B1" ? "北岸" : "青木");
        TestDb::Exec("Insert Into DataDictionary (Item,Content) Values('品牌','O''Neil')");
        for (const char* row : {"'P2',1,20,0", "'P1',1,30,0", "'P1',2,45,0", "'P1',9,99,1"})
            TestDb::Exec(
                "Insert Into BackStore (ShopNo,TypeNo,Quantity,BuyPrice,IsBackFactory) "
                "Values('" +
                Session::ShopNo + "'," + row + ")");

        frmStore w;
        auto* u = w.ui();
        VSGrid* g = u->VSFlexGrid;
        COMPARE_ROWS(Outline(g), {"*|总合计|11", "*|合计|6", "|A1|2", "|A1|4", "*|合计|3", "|B1|3",
                                  "*|合计|1", "|A1|1", "*|合计|1", "|K'9|1"});
        QTRY_COMPARE(g->rowSpan(2, 0), 2);  // 货号 of rows 3 and 4
        QCOMPARE(g->rowSpan(2, 3), 1);      // 尺码 does not merge
        COMPARE_ROWS(Printed(u->cmdPrint), GridRows(g, 1));
        u->chkZero->setChecked(false);
        QCOMPARE(g->Rows(), 11);
        u->cmdQuery->click();
        COMPARE_ROWS(Outline(g),
                     {"*|总合计|9", "*|合计|6", "|A1|2", "|A1|4", "*|合计|3", "|B1|3", "*|合计|1",
                      "|A1|1", "*|合计|0", "|C1|0", "*|合计|-2", "|D1|-2", "*|合计|1", "|K'9|1"});

        u->comBrand->setCurrentText("北岸");
        u->cmdQuery->click();
        COMPARE_ROWS(Outline(g), {"*|总合计|3", "*|合计|3", "|B1|3"});
        u->txtNo->setText("K'");
        COMPARE_ROWS(Outline(g), {"*|总合计|1", "*|合计|1", "|K'9|1"});
        u->comBrand->setCurrentText("O'Neil");
        u->cmdQuery->click();
        QCOMPARE(Said(rec).value(0).left(2), QString("-:"));

        u->TabStrip->setCurrentIndex(1);
        VSGrid* q = u->VSQuestion;
        QCOMPARE(Cells(q, "货号"), QStringList({"P1", "P1", "合计", "P2", "合计"}));
        QCOMPARE(Cells(q, "数量") + Cells(q, "进价"),
                 QStringList({"1", "2", "3", "1", "1", "30", "45", "75", "20", "20"}));
        CS_NO_LEFTOVER_BOXES(rec);
    }
};

class TestSellQuery : public QObject {
    Q_OBJECT
private Q_SLOTS:
    // Lines sold or exchanged into, in article, size and colour order; the
    // totals above them; the count of lines and the money taken. Nothing
    // found: the labels keep what they showed. The print button hands the
    // list to the print window.
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
        QCOMPARE(QStringList({u->lbCount->text(), u->lbAmount->text()}), Values("3|240.5￥"));
        COMPARE_ROWS(Printed(u->cmdPrint), GridRows(g, 1));

        u->DTBeginTime->setDate(QDate::currentDate().addDays(3));
        u->cmdQuery->click();
        QCOMPARE(g->Rows(), 1);
        QCOMPARE(u->lbCount->text(), QString("3"));
        CS_NO_LEFTOVER_BOXES(rec);
    }

    // Pieces per description, most first, lines returned, voided or out of
    // the period left out; a difference in any of the eight describing
    // columns makes a row of its own.
    void rankingOnAllColumns() {
        TestDb db;
        MsgRecorder rec;
        AddSale({.quantity = 6});
        AddSale({.state = 1, .quantity = 4});
        AddSale({.state = 2, .quantity = 9});
        AddSale({.state = 3, .quantity = 9});
        AddSale({.date = Day(-400), .quantity = 20});
        QList<QStringList> want = {Values("X1|T恤|青木|M|黑色|纯棉|一等品|广州|10")};
        QString SaleLine::*fields[] = {&SaleLine::typeNo, &SaleLine::name,   &SaleLine::brand,
                                       &SaleLine::size,   &SaleLine::colour, &SaleLine::leather,
                                       &SaleLine::grade,  &SaleLine::place};
        for (int i = 0; i < 8; ++i) {
            SaleLine other{.quantity = 8.0 - i};
            other.*fields[i] = "另";
            AddSale(other);
            want << QStringList();
            for (QString SaleLine::*f : fields) want.last() << other.*f;
            want.last() << QString::number(8 - i);
        }

        frmSellGroup w;
        VSGrid* g = w.ui()->VSSell;
        w.ui()->DTBeginTime->setDate(QDate::currentDate().addDays(-30));
        w.ui()->cmdQuery->click();
        COMPARE_ROWS(GridRows(g, 1).mid(1), want);
        CS_NO_LEFTOVER_BOXES(rec);
    }
};

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

CS_TEST(TestStoreQuery)
CS_TEST(TestSellQuery)
CS_TEST(TestReportCommands)
#include "tst_lists.moc"
