// The stock-in window: its list and search, the restock of a row, new goods entered through it.
#include <QTest>

#include "Modal.h"
#include "MsgRecorder.h"
#include "Session.h"
#include "TestDb.h"
#include "TestRegistry.h"
#include "VSGrid.h"
#include "frmBuyIn.h"
#include "frmGoodsProperty.h"
#include "ui_frmBuyIn.h"
#include "ui_frmGoodsProperty.h"

class TestBuyIn : public QObject {
    Q_OBJECT

    static void restock(frmBuyIn& w, const QString& cost, const QString& qty) {
        w.ui()->txtPrice->setText(cost);
        w.ui()->txtQuantity->setText(qty);
        w.ui()->cmdPutIn->click();
    }

    // The fields from..to of the first row of a query.
    static QStringList row(const QString& sql, int from, int to) {
        Recordset rs = TestDb::Query(sql);
        QStringList out;
        for (int i = from; i <= to; ++i) out << rs.Text(i);
        return out;
    }

private Q_SLOTS:
    void listNarrowsAndARestockAddsALayerKeepingTheRetailPrice() {
        TestDb db;
        const QString guid = TestDb::AddGoods("A100", 5, 99, 40);
        TestDb::AddGoods("B200", 0, 50, 20);  // no stock: listed too
        TestDb::Exec(
            "Insert Into Store Values('{OTHER}','{ANOTHER-SHOP}','A100','T恤','青木','M',"
            "'黑色','纯棉','一等品','广州',5,99,'','')");
        const QString store = "select Quantity,Price from Store where GUID='" + guid + "'";
        MsgRecorder rec;
        frmBuyIn w;
        VSGrid* g = w.Grid();
        QCOMPARE(g->Rows(), 3);
        w.ui()->txtNo->setText("A'1");  // doubled, not a broken statement
        QCOMPARE(g->Rows(), 1);
        w.ui()->txtNo->setText("10");
        QCOMPARE(g->Rows(), 2);
        QCOMPARE(g->Cell(1, "GUID"), guid);

        w.ui()->DT->setDate(QDate(2026, 3, 7));
        restock(w, "12a", "4");
        restock(w, "12", "x");
        rec.No();
        restock(w, "12", "4");
        QCOMPARE(rec.TakeTexts(),
                 QStringList({"数据类型不正确！", "数据类型不正确！", "确认要入库吗？"}));
        QCOMPARE(TestDb::Count("BuyPrice") + TestDb::Count("StoreDetail"), 4);

        rec.Yes();
        restock(w, "1,000", "3");  // the strict conversion reads the comma
        QCOMPARE(rec.Pending().value(0).title, QString("提示"));
        QCOMPARE(rec.TakeTexts(), QStringList({"确认要入库吗？"}));
        QCOMPARE(row(store, 0, 1), QStringList({"8", "99"}));
        QCOMPARE(TestDb::Count("BuyPrice"), 3);
        QCOMPARE(
            row("select StoreGUID,Price,Quantity from BuyPrice where sDate='2026-03-07'", 0, 2),
            QStringList({guid, "1000", "3"}));
        QCOMPARE(row("select ParentGUID,Price,Quantity,Memo from StoreDetail where "
                     "DateTime='2026-03-07'",
                     0, 3),
                 QStringList({guid, "1000", "3", ""}));
        QCOMPARE(g->Cell(1, "数量"), QString("8"));

        // A negative restock passes and makes a negative layer.
        rec.Yes();
        restock(w, "40", "-2");
        rec.Take();
        QCOMPARE(row(store, 0, 1), QStringList({"6", "99"}));
        QCOMPARE(TestDb::Scalar("select min(Quantity) from BuyPrice"), "-2");
        CS_NO_LEFTOVER_BOXES(rec);
    }

    void newGoodsStoreThreeRowsAndTheSameEntryTwiceMakesTwoGoodsRows() {
        TestDb db;
        MsgRecorder rec;
        frmBuyIn buyIn;
        frmGoodsProperty w(&buyIn);
        auto* u = w.ui();
        u->txtNo->setText("K'01");
        const QList<QPair<QComboBox*, QString>> combos{
            {u->comName, "衬衫"},        {u->comBrand, "青'木"},  {u->comSize, "L"},
            {u->comColour, "白色"},      {u->comLeather, "棉麻"}, {u->comGrade, "一等品"},
            {u->comProductPlace, "杭州"}};
        for (const auto& [combo, text] : combos) combo->setEditText(text);
        const QList<QPair<QLineEdit*, QString>> boxes{
            {u->txtPrice, "1,000"}, {u->txtSellPrice, "1,000"}, {u->txtQuantity, "6"},
            {u->txtBlock, "690'1"}, {u->txtFloor, "B2"},        {u->txtMemo, "首批"}};
        for (const auto& [box, text] : boxes) box->setText(text);
        u->DT->setDate(QDate(2026, 4, 1));
        rec.Yes();
        u->cmdPutIn->click();
        QCOMPARE(rec.TakeTexts(), QStringList({"确认要入库么？"}));

        const QString storeGuid = TestDb::Scalar("select GUID from Store");
        QCOMPARE(row("select * from Store", 1, 13),
                 QStringList({Session::ShopNo, "K'01", "衬衫", "青'木", "L", "白色", "棉麻",
                              "一等品", "杭州", "6", "1", "690'1", "B2"}));
        QCOMPARE(row("select * from StoreDetail", 1, 14),
                 QStringList({storeGuid, Session::ShopNo, "K'01", "衬衫", "青'木", "L", "白色",
                              "棉麻", "一等品", "1000", "6", "杭州", "首批", "2026-04-01"}));
        QCOMPARE(row("select StoreGUID,Price,Quantity,sDate from BuyPrice", 0, 3),
                 QStringList({storeGuid, "1000", "6", "2026-04-01"}));

        // The list shows the entry under the history row's key.
        VSGrid* g = buyIn.Grid();
        QCOMPARE(g->Rows(), 2);
        QCOMPARE(g->Cell(1, "GUID"), TestDb::Scalar("select GUID from StoreDetail"));

        // The fields stay: the same entry again is a second goods row beside the first.
        rec.Yes();
        u->cmdPutIn->click();
        rec.Take();
        QCOMPARE(TestDb::Count("Store", "TypeNo='K''01'"), 2);
        QCOMPARE(TestDb::Count("StoreDetail") + TestDb::Count("BuyPrice"), 4);
        QCOMPARE(g->Rows(), 3);
        CS_NO_LEFTOVER_BOXES(rec);
    }

    // A search finds nothing, the clerk makes the goods and restocks at once:
    // the new row is the current one, and nothing is read from the header
    // row. With no current row a restock does nothing at all.
    void restockRightAfterNewGoods() {
        TestDb db;
        TestDb::AddGoods("OLD1", 5, 99, 40);
        MsgRecorder rec;
        frmBuyIn w;
        VSGrid* g = w.Grid();
        w.ui()->txtNo->setText("NEW9");
        QCOMPARE(g->Rows(), 1);
        Modal::Queue([&](QDialog* d) {
            auto* f = static_cast<frmGoodsProperty*>(d);
            f->ui()->txtNo->setText("NEW9");
            f->ui()->comName->setEditText("衬衫");
            f->ui()->txtPrice->setText("30");
            f->ui()->txtSellPrice->setText("80");
            f->ui()->txtQuantity->setText("2");
            rec.Yes();
            f->ui()->cmdPutIn->click();
            d->close();
        });
        w.ui()->cmdNewGoods->click();
        QCOMPARE(Modal::QueuedCount(), 0);
        QCOMPARE(rec.TakeTexts(), QStringList({"确认要入库么？"}));
        QCOMPARE(g->Rows(), 2);
        QCOMPARE(g->Row(), 1);

        rec.Yes();
        restock(w, "35", "3");
        QCOMPARE(rec.TakeTexts(), QStringList({"确认要入库吗？"}));
        QCOMPARE(TestDb::Count("StoreDetail", "TypeNo='货号' or Name='种类' or Brand='品牌'"), 0);
        QCOMPARE(TestDb::Count("BuyPrice", "StoreGUID='GUID'"), 0);
        QCOMPARE(row("select TypeNo,Name,Price,Quantity from StoreDetail where Price=35", 0, 3),
                 QStringList({"NEW9", "衬衫", "35", "3"}));
        QCOMPARE(g->TextMatrix(0, g->ColIndex("数量")), QString("数量"));
        QCOMPARE(g->Cell(1, "数量"), QString("5"));

        g->setRow(0);
        restock(w, "35", "3");
        QCOMPARE(TestDb::Count("StoreDetail"), 3);
        QCOMPARE(g->TextMatrix(0, g->ColIndex("数量")), QString("数量"));
        CS_NO_LEFTOVER_BOXES(rec);
    }
};

CS_TEST(TestBuyIn)
#include "tst_buyin.moc"
