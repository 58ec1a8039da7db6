// The stock query: totals above the rows, the filters and the search, and
// the problem goods.
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>

#include "ReportData.h"
#include "TestRegistry.h"
#include "frmStore.h"
#include "ui_frmStore.h"

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
    void sumRowsAboveTheList() {
        TestDb db;
        MsgRecorder rec;
        for (const auto& [no, qty] : std::vector<std::pair<QString, int>>{
                 {"A1", 2}, {"A1", 4}, {"B1", 3}, {"A1", 1}, {"C1", 0}, {"D1", -2}})
            AddStock(no, qty);

        frmStore w;
        VSGrid* g = w.ui()->VSFlexGrid;
        COMPARE_ROWS(Outline(g), {"*|总合计|10", "*|合计|6", "|A1|2", "|A1|4", "*|合计|3", "|B1|3",
                                  "*|合计|1", "|A1|1"});
        QTRY_COMPARE(g->rowSpan(2, 0), 2);  // 货号 of rows 3 and 4
        QCOMPARE(g->rowSpan(2, 3), 1);      // 尺码 does not merge

        w.ui()->chkZero->setChecked(false);
        QCOMPARE(g->Rows(), 9);
        w.ui()->cmdQuery->click();
        COMPARE_ROWS(Outline(g).mid(0, 1) + Outline(g).mid(8),
                     {"*|总合计|8", "*|合计|0", "|C1|0", "*|合计|-2", "|D1|-2"});
        CS_NO_LEFTOVER_BOXES(rec);
    }

    // The article number searches every brand, quotes and all; the brand
    // goes in as it stands, so a quote in it breaks the statement. The
    // problem goods have two sums in the rows below each article.
    void searchFilterAndProblemGoods() {
        TestDb db;
        MsgRecorder rec;
        AddStock("K''9", 1);
        AddStock("K10", 2, "北岸");
        AddStock("Z5", 3, "北岸");
        TestDb::Exec("Insert Into DataDictionary (Item,Content) Values('品牌','O''Neil')");
        for (const char* row : {"'P2',1,20,0", "'P1',1,30,0", "'P1',2,45,0", "'P1',9,99,1"})
            TestDb::Exec(
                "Insert Into BackStore (ShopNo,TypeNo,Quantity,BuyPrice,IsBackFactory) "
                "Values('" +
                Session::ShopNo + "'," + row + ")");

        frmStore w;
        auto* u = w.ui();
        VSGrid* g = u->VSFlexGrid;
        u->comBrand->setCurrentText("北岸");
        u->cmdQuery->click();
        COMPARE_ROWS(Outline(g), {"*|总合计|5", "*|合计|2", "|K10|2", "*|合计|3", "|Z5|3"});
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

CS_TEST(TestStoreQuery)
#include "tst_store.moc"
