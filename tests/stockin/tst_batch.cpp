// Batch stock-in: the colour-by-size matrix, its totals, and storing it cell by cell.
#include <QListWidget>
#include <QTest>

#include "MsgRecorder.h"
#include "TestDb.h"
#include "TestRegistry.h"
#include "VSGrid.h"
#include "frmBuyIn.h"
#include "frmbatchbuyIn.h"
#include "ui_frmbatchbuyIn.h"

class TestBatch : public QObject {
    Q_OBJECT

    static void tick(QListWidget* list, const QStringList& texts, bool on = true) {
        for (const QString& text : texts) {
            const auto items = list->findItems(text, Qt::MatchExactly);
            QVERIFY2(!items.isEmpty(), qPrintable(text));
            items[0]->setCheckState(on ? Qt::Checked : Qt::Unchecked);
        }
    }
    // What the user's edit of a cell does: the text goes in, then the after-edit rules.
    static void type(VSGrid* g, const QList<std::tuple<int, int, QString>>& cells) {
        for (const auto& [row, col, text] : cells)
            QVERIFY(g->model()->setData(g->model()->index(row - 1, col - 1), text, Qt::EditRole));
    }
    // The cells of a grid row, and the same written as "a|b|c".
    static QStringList line(VSGrid* g, int row) {
        QStringList out;
        for (int c = 0; c < g->Cols(); ++c) out << g->TextMatrix(row, c);
        return out;
    }
    static QStringList cells(const char* text) { return QString::fromUtf8(text).split('|'); }
    static void fillCommon(Ui::frmbatchbuyIn* u) {
        const QList<QPair<QLineEdit*, QString>> boxes{
            {u->txtNo, "B'77"},
            {u->txtPrice, "1,000"},
            {u->txtSellPrice, "1,000"},
            {u->txtBlock, "6900"},
            {u->txtMemo, "冬款"}};  // the strict conversion reads commas
        for (const auto& [box, text] : boxes) box->setText(text);
        u->comBrand->setEditText("青木");
        u->DT->setDate(QDate(2026, 5, 2));
    }

private Q_SLOTS:
    void matrixFollowsTheTicksAndTheCells() {
        TestDb db;
        frmbatchbuyIn w(nullptr);
        auto* u = w.ui();
        VSGrid* g = u->VSFlexGrid;
        tick(u->listCoulor, {"红色", "白色", "黑色"});
        tick(u->listSize, {"M", "S", "L", "XL"});  // in the order of ticking, not of the list
        tick(u->listCoulor, {"白色"}, false);
        QCOMPARE(line(g, 0), cells("颜色/尺码|M|S|L|XL|合计"));
        type(g, {{1, 1, "1"}, {1, 2, "2"}, {1, 3, "3"}, {2, 3, "29.5"}, {2, 4, "40"}});
        QCOMPARE(line(g, 3), cells("合计|1|2|32.5|40|75.5"));

        // A middle size goes with its quantities; the later ones move left.
        tick(u->listSize, {"S"}, false);
        QCOMPARE(line(g, 0), cells("颜色/尺码|M|L|XL|合计"));
        QCOMPARE(line(g, 1), cells("红色|1|3||4"));
        QCOMPARE(line(g, 2), cells("黑色||29.5|40|69.5"));
        QCOMPARE(line(g, 3), cells("合计|1|32.5|40|73.5"));

        // Zero, negative and words empty the cell; the sums stay until the next tick.
        for (const char* bad : {"0", "-2", "abc"}) {
            type(g, {{1, 1, bad}});
            QCOMPARE(line(g, 1), cells("红色||3||4"));
            QCOMPARE(line(g, 3), cells("合计|1|32.5|40|73.5"));
        }
        // A size ticked again comes at the end, empty; a zero sum shows empty.
        tick(u->listSize, {"S"});
        QCOMPARE(line(g, 1), cells("红色||3|||3"));
        QCOMPARE(line(g, 3), cells("合计||32.5|40||72.5"));
        // The last colour takes the total row with it; the sizes stay.
        tick(u->listCoulor, {"红色", "黑色"}, false);
        QCOMPARE(g->Rows(), 1);
        QCOMPARE(line(g, 0), cells("颜色/尺码|M|L|XL|S|合计"));
    }

    void checksThenStoresCellByCellInOrder() {
        TestDb db;
        MsgRecorder rec;
        frmBuyIn buyIn;
        frmbatchbuyIn w(&buyIn);
        auto* u = w.ui();
        VSGrid* g = u->VSFlexGrid;
        fillCommon(u);
        u->txtNo->clear();
        u->cmdInStore->click();
        u->txtNo->setText("B'77");
        u->txtSellPrice->setText("");
        u->cmdInStore->click();
        u->txtSellPrice->setText("1,000");
        u->cmdInStore->click();  // no colour ticked
        // Colours without sizes: the question, then nothing stored and nothing cleared.
        tick(u->listCoulor, {"红色"});
        rec.Yes();
        u->cmdInStore->click();
        QCOMPARE(rec.TakeTexts(),
                 QStringList({"产品货号不能为空！", "请正确填写零售价,要确认是数字！",
                              "尺码和颜色至少各选择一种，输入数量！", "确认要入库么？"}));
        QCOMPARE(TestDb::Count("Store") + TestDb::Count("StoreDetail"), 0);
        QCOMPARE(g->Rows(), 3);
        QCOMPARE(u->txtNo->text(), QString("B'77"));

        tick(u->listCoulor, {"白色"});
        tick(u->listSize, {"L", "S"});
        type(g, {{1, 1, "2"}, {1, 2, "1,000"}});
        // The last quantity is still being typed when the button is pressed, as with the
        // button's access key: the focus stays in the cell's editor.
        w.show();
        QApplication::setActiveWindow(&w);
        QVERIFY(QTest::qWaitForWindowActive(&w));
        g->setFocus();
        g->setCurrentIndex(g->model()->index(1, 1));
        QTest::keyClicks(g, "1");
        QVERIFY(QApplication::focusWidget() != g);  // the cell's editor is open
        QTest::keyClicks(QApplication::focusWidget(), ".5");
        rec.Yes();
        u->cmdInStore->click();
        QCOMPARE(rec.TakeTexts(), QStringList({"确认要入库么？"}));
        // Colour by colour, size by size: the layers' numbering shows the order.
        Recordset rs = TestDb::Query(
            "select s.Colour,s.[Size],s.Quantity,s.Price,b.Price,b.Quantity,s.IDCode,s.TypeNo,"
            "b.sDate,d.Price,d.Memo "
            "from (BuyPrice b inner join Store s on s.GUID=b.StoreGUID) inner join StoreDetail d "
            "on d.ParentGUID=s.GUID order by b.ID");
        for (const char* want : {"红色|L|2|1|1000|2|6900|B'77|2026-05-02|1000|冬款",
                                 "红色|S|1000|1|1000|1000|6900|B'77|2026-05-02|1000|冬款",
                                 "白色|S|1.5|1|1000|1.5|6900|B'77|2026-05-02|1000|冬款"}) {
            QVERIFY(!rs.Eof());
            QStringList got;
            for (int i = 0; i < rs.FieldCount(); ++i) got << rs.Text(i);
            QCOMPARE(got, cells(want));
            rs.MoveNext();
        }
        QVERIFY(rs.Eof());
        QCOMPARE(buyIn.Grid()->Rows(), 4);  // written into the stock-in list

        // Then the window clears: the number and colours go, sizes and the other fields stay.
        QCOMPARE(u->txtNo->text(), QString());
        QCOMPARE(line(g, 0), cells("颜色/尺码|L|S|合计"));
        QCOMPARE(u->txtPrice->text(), QString("1,000"));
        QCOMPARE(g->Rows(), 1);
        CS_NO_LEFTOVER_BOXES(rec);
    }
};

CS_TEST(TestBatch)
#include "tst_batch.moc"
