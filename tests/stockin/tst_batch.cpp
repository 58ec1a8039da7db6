// Batch stock-in: the colour-by-size matrix, its totals, and storing it cell by cell.
#include <QListWidget>
#include <QTest>
#include <memory>

#include "MsgRecorder.h"
#include "Session.h"
#include "TestDb.h"
#include "TestRegistry.h"
#include "VSGrid.h"
#include "frmBuyIn.h"
#include "frmbatchbuyIn.h"
#include "ui_frmbatchbuyIn.h"

class TestBatch : public QObject {
    Q_OBJECT

    static void tick(QListWidget* list, const QString& text, bool on = true) {
        const auto items = list->findItems(text, Qt::MatchExactly);
        QVERIFY2(!items.isEmpty(), qPrintable(text));
        items[0]->setCheckState(on ? Qt::Checked : Qt::Unchecked);
    }
    // What the user's edit of a cell does: the text goes in, then the after-edit rules.
    static void type(VSGrid* g, int row, int col, const QString& text) {
        QAbstractItemModel* m = g->model();
        QVERIFY(m->setData(m->index(row - 1, col - 1), text, Qt::EditRole));
    }
    static QStringList rowTexts(VSGrid* g, int row) {
        QStringList out;
        for (int c = 0; c < g->Cols(); ++c) out << g->TextMatrix(row, c);
        return out;
    }
    static QStringList colTexts(VSGrid* g, int col) {
        QStringList out;
        for (int r = 0; r < g->Rows(); ++r) out << g->TextMatrix(r, col);
        return out;
    }
    static void fillCommon(frmbatchbuyIn& w) {
        auto* u = w.ui();
        u->txtNo->setText("B'77");
        u->comName->setEditText("外套");
        u->comBrand->setEditText("青木");
        u->comLeather->setEditText("羊毛");
        u->comGrade->setEditText("一等品");
        u->comProductPlace->setEditText("宁波");
        u->txtPrice->setText("1,000");
        u->txtSellPrice->setText("1,000");
        u->DT->setDate(QDate(2026, 5, 2));
        u->txtBlock->setText("6900");
        u->txtFloor->setText("C3");
        u->txtMemo->setText("冬款");
    }

private Q_SLOTS:
    void ticksBuildAndUnbuildTheMatrix() {
        TestDb db;
        frmbatchbuyIn w(nullptr);
        auto* u = w.ui();
        VSGrid* g = u->VSFlexGrid;
        QCOMPARE(g->ColWidth(0), 900);
        tick(u->listCoulor, "红色");
        QCOMPARE(colTexts(g, 0), QStringList({"颜色/尺码", "红色", "合计"}));
        QCOMPARE(g->Cols(), 1);
        tick(u->listSize, "M");
        tick(u->listSize, "S");  // in the order of ticking, not of the list
        QCOMPARE(rowTexts(g, 0), QStringList({"颜色/尺码", "M", "S", "合计"}));
        QCOMPARE(g->ColIndex("S"), 2);
        tick(u->listCoulor, "白色");
        tick(u->listCoulor, "黑色");
        QCOMPARE(colTexts(g, 0), QStringList({"颜色/尺码", "红色", "白色", "黑色", "合计"}));
        QCOMPARE(g->ColAlignment(1), int(VSGrid::AlignCenterCenter));

        tick(u->listCoulor, "白色", false);
        QCOMPARE(colTexts(g, 0), QStringList({"颜色/尺码", "红色", "黑色", "合计"}));
        tick(u->listCoulor, "红色", false);
        tick(u->listCoulor, "黑色", false);
        QCOMPARE(g->Rows(), 1);  // the total row went with the last colour
        QCOMPARE(rowTexts(g, 0), QStringList({"颜色/尺码", "M", "S", "合计"}));
        tick(u->listSize, "M", false);
        tick(u->listSize, "S", false);
        QCOMPARE(g->Cols(), 1);
        QCOMPARE(g->TextMatrix(0, 0), QString("颜色/尺码"));
    }

    void cellRulesAndTotals() {
        TestDb db;
        frmbatchbuyIn w(nullptr);
        auto* u = w.ui();
        VSGrid* g = u->VSFlexGrid;
        tick(u->listCoulor, "红色");
        tick(u->listCoulor, "白色");
        tick(u->listSize, "S");
        tick(u->listSize, "M");
        type(g, 1, 1, "3");
        type(g, 1, 2, "2.5");
        type(g, 2, 1, "4");
        QCOMPARE(rowTexts(g, 1), QStringList({"红色", "3", "2.5", "5.5"}));
        QCOMPARE(rowTexts(g, 2), QStringList({"白色", "4", "", "4"}));
        QCOMPARE(rowTexts(g, 3), QStringList({"合计", "7", "2.5", "9.5"}));

        // Zero, negative and words empty the cell; the sums stay as they were.
        for (const char* bad : {"0", "-2", "abc"}) {
            type(g, 1, 1, bad);
            QCOMPARE(g->TextMatrix(1, 1), QString());
            QCOMPARE(rowTexts(g, 3), QStringList({"合计", "7", "2.5", "9.5"}));
        }
        // The next tick brings them up to date.
        tick(u->listCoulor, "黑色");
        QCOMPARE(rowTexts(g, 1), QStringList({"红色", "", "2.5", "2.5"}));
        QCOMPARE(rowTexts(g, 4), QStringList({"合计", "4", "2.5", "6.5"}));
        QCOMPARE(rowTexts(g, 3), QStringList({"黑色", "", "", ""}));  // a zero sum shows empty

        // The total row and the total column are not for typing.
        int refused = 0;
        connect(g, &VSGrid::BeforeEdit, this, [&](int, int, bool& cancel) { refused += cancel; });
        QTest::ignoreMessage(QtWarningMsg, "edit: editing failed");
        g->edit(g->model()->index(3, 0));  // last row
        QTest::ignoreMessage(QtWarningMsg, "edit: editing failed");
        g->edit(g->model()->index(0, 2));  // last column
        g->edit(g->model()->index(0, 0));
        QCOMPARE(refused, 2);
        disconnect(g, nullptr, this, nullptr);
    }

    void removingAMiddleSizeShiftsTheLaterOnes() {
        TestDb db;
        frmbatchbuyIn w(nullptr);
        auto* u = w.ui();
        VSGrid* g = u->VSFlexGrid;
        tick(u->listCoulor, "红色");
        tick(u->listCoulor, "白色");
        for (const char* s : {"S", "M", "L", "XL"}) tick(u->listSize, s);
        type(g, 1, 1, "1");
        type(g, 1, 2, "2");
        type(g, 1, 3, "3");
        type(g, 2, 3, "30");
        type(g, 2, 4, "40");
        tick(u->listSize, "M", false);
        QCOMPARE(rowTexts(g, 0), QStringList({"颜色/尺码", "S", "L", "XL", "合计"}));
        QCOMPARE(rowTexts(g, 1), QStringList({"红色", "1", "3", "", "4"}));
        QCOMPARE(rowTexts(g, 2), QStringList({"白色", "", "30", "40", "70"}));
        QCOMPARE(rowTexts(g, 3), QStringList({"合计", "1", "33", "40", "74"}));
        QCOMPARE(g->ColIndex("L"), 2);
        QCOMPARE(g->ColIndex("XL"), 3);
        QCOMPARE(g->ColIndex("M"), -1);
        // A size ticked again comes at the end, empty, before the total column.
        tick(u->listSize, "M");
        QCOMPARE(rowTexts(g, 2), QStringList({"白色", "", "30", "40", "", "70"}));
        QCOMPARE(g->ColIndex("M"), 4);
        // Removing the last colour keeps the size columns.
        tick(u->listCoulor, "红色", false);
        tick(u->listCoulor, "白色", false);
        QCOMPARE(g->Rows(), 1);
        QCOMPARE(g->Cols(), 6);
    }

    void addingAColourOrSize() {
        TestDb db;
        MsgRecorder rec;
        frmbatchbuyIn w(nullptr);
        auto* u = w.ui();
        const int n = u->listSize->count();
        u->txtSize->setText("5'XL");
        QTest::keyClick(u->txtSize, Qt::Key_Return);
        QCOMPARE(u->listSize->count(), n + 1);
        QCOMPARE(u->listSize->item(n)->text(), QString("5'XL"));
        QCOMPARE(u->listSize->item(n)->checkState(), Qt::Unchecked);
        QVERIFY(u->txtSize->text().isEmpty());
        QCOMPARE(TestDb::Count("DataDictionary", "Item='尺码' And Content='5''XL'"), 1);
        QCOMPARE(u->VSFlexGrid->Cols(), 1);  // not ticked
        u->txtSize->setText("M");
        QTest::keyClick(u->txtSize, Qt::Key_Return);
        QTest::keyClick(u->txtColour, Qt::Key_Return);
        QCOMPARE(rec.TakeTexts(), QStringList({"该内容已经存在！", "内容不能为空！"}));
        CS_NO_LEFTOVER_BOXES(rec);
    }

    void storesCellByCellInOrder() {
        TestDb db;
        MsgRecorder rec;
        frmBuyIn buyIn;
        const int listed = buyIn.Grid()->Rows();
        frmbatchbuyIn w(&buyIn);
        auto* u = w.ui();
        VSGrid* g = u->VSFlexGrid;
        fillCommon(w);
        tick(u->listCoulor, "红色");
        tick(u->listCoulor, "白色");
        tick(u->listSize, "L");
        tick(u->listSize, "S");
        type(g, 1, 1, "2");
        type(g, 1, 2, "1,000");  // the strict conversion reads the comma
        type(g, 2, 2, "1.5");
        rec.Yes();
        u->cmdInStore->click();
        QCOMPARE(rec.TakeTexts(), QStringList({"确认要入库么？"}));

        // Colour by colour, size by size: the layers' numbering shows the order.
        Recordset rs = TestDb::Query(
            "select s.Colour||'|'||s.[Size]||'|'||s.Quantity||'|'||s.Price||'|'||b.Price||'|'||"
            "b.Quantity||'|'||s.IDCode||'|'||s.TypeNo||'|'||s.Name||'|'||b.sDate from BuyPrice b "
            "inner join Store s on s.GUID=b.StoreGUID order by b.ID");
        QStringList got;
        for (; !rs.Eof(); rs.MoveNext()) got << rs.Text(0);
        QCOMPARE(got, QStringList({"红色|L|2|1|1000|2|6900|B'77|外套|2026-05-02",
                                   "红色|S|1000|1|1000|1000|6900|B'77|外套|2026-05-02",
                                   "白色|S|1.5|1|1000|1.5|6900|B'77|外套|2026-05-02"}));
        QCOMPARE(TestDb::Scalar("select d.Price||'|'||d.Memo||'|'||d.DateTime from StoreDetail d "
                                "inner join Store s on s.GUID=d.ParentGUID where s.Colour='白色'"),
                 "1000|冬款|2026-05-02");

        // The stock-in list shows each stored cell under its history row's key.
        VSGrid* list = buyIn.Grid();
        QCOMPARE(list->Rows(), listed + 3);
        const int last = list->Rows() - 1;
        QCOMPARE(list->Cell(last, "GUID"),
                 TestDb::Scalar("select d.GUID from StoreDetail d inner join Store s on "
                                "s.GUID=d.ParentGUID where s.Colour='白色'"));
        QCOMPARE(list->Cell(last, "数量"), QString("1.5"));

        // Then the window clears: colours go, sizes stay, the common fields stay.
        QVERIFY(u->txtNo->text().isEmpty());
        QCOMPARE(g->Rows(), 1);
        QCOMPARE(rowTexts(g, 0), QStringList({"颜色/尺码", "L", "S", "合计"}));
        QCOMPARE(u->txtPrice->text(), QString("1,000"));
        QCOMPARE(u->listCoulor->findItems("红色", Qt::MatchExactly)[0]->checkState(),
                 Qt::Unchecked);

        // The same article again: new goods rows beside the old, same bar code.
        u->txtNo->setText("B'77");
        tick(u->listCoulor, "红色");
        type(g, 1, 1, "1");
        rec.Yes();
        u->cmdInStore->click();
        rec.Take();
        QCOMPARE(TestDb::Count("Store", "Colour='红色' And [Size]='L' And IDCode='6900'"), 2);
        CS_NO_LEFTOVER_BOXES(rec);
    }

    void checksBeforeStoring() {
        TestDb db;
        MsgRecorder rec;
        frmbatchbuyIn w(nullptr);
        auto* u = w.ui();
        fillCommon(w);
        u->txtNo->clear();
        u->cmdInStore->click();
        u->txtNo->setText("B1");
        u->comBrand->setEditText("");
        u->cmdInStore->click();
        u->comBrand->setEditText("青木");
        u->txtPrice->setText("x");
        u->cmdInStore->click();
        u->txtPrice->setText("10");
        u->txtSellPrice->setText("");
        u->cmdInStore->click();
        u->txtSellPrice->setText("20");
        u->cmdInStore->click();  // no colour ticked
        QCOMPARE(rec.TakeTexts(),
                 QStringList({"产品货号不能为空！", "品牌不能为空！",
                              "请正确填写进价,要确认是数字！", "请正确填写零售价,要确认是数字！",
                              "尺码和颜色至少各选择一种，输入数量！"}));

        // Colours without sizes: the question, then nothing at all.
        tick(u->listCoulor, "红色");
        rec.Yes();
        u->cmdInStore->click();
        QCOMPARE(rec.TakeTexts(), QStringList({"确认要入库么？"}));
        QCOMPARE(TestDb::Count("Store"), 0);
        QCOMPARE(u->VSFlexGrid->Rows(), 3);
        QCOMPARE(u->txtNo->text(), QString("B1"));

        // Ticked sizes but no quantities: nothing stored, and the window clears.
        tick(u->listSize, "M");
        rec.No();
        u->cmdInStore->click();
        QCOMPARE(u->VSFlexGrid->Rows(), 3);
        rec.Yes();
        u->cmdInStore->click();
        QCOMPARE(rec.Take().size(), 2);
        QCOMPARE(TestDb::Count("Store"), 0);
        QCOMPARE(u->VSFlexGrid->Rows(), 1);
        QVERIFY(u->txtNo->text().isEmpty());
        CS_NO_LEFTOVER_BOXES(rec);
    }

    void aFailedStatementStopsTheRun() {
        TestDb db;
        MsgRecorder rec;
        frmbatchbuyIn w(nullptr);
        auto* u = w.ui();
        VSGrid* g = u->VSFlexGrid;
        fillCommon(w);
        u->txtColour->setText("O'Neill蓝");
        QTest::keyClick(u->txtColour, Qt::Key_Return);
        tick(u->listCoulor, "红色");
        tick(u->listCoulor, "O'Neill蓝");
        tick(u->listCoulor, "白色");
        tick(u->listSize, "M");
        type(g, 1, 1, "1");
        type(g, 2, 1, "2");
        type(g, 3, 1, "3");
        rec.Yes();
        u->cmdInStore->click();
        QCOMPARE(rec.Take().size(), 2);  // the question, the engine's text
        // The cell before stays stored, the rest is not tried, nothing is cleared.
        QCOMPARE(TestDb::Count("Store"), 1);
        QCOMPARE(TestDb::Count("BuyPrice"), 1);
        QCOMPARE(TestDb::Count("Store", "Colour='白色'"), 0);
        QCOMPARE(u->txtNo->text(), QString("B'77"));
        QCOMPARE(g->TextMatrix(2, 1), QString("2"));
        CS_NO_LEFTOVER_BOXES(rec);
    }

    void aQuantityStillBeingTypedCounts() {
        TestDb db;
        MsgRecorder rec;
        auto w = std::make_unique<frmbatchbuyIn>(nullptr);
        auto* u = w->ui();
        VSGrid* g = u->VSFlexGrid;
        w->show();
        QApplication::setActiveWindow(w.get());
        QVERIFY(QTest::qWaitForWindowActive(w.get()));
        fillCommon(*w);
        tick(u->listCoulor, "红色");
        tick(u->listSize, "M");
        g->setFocus();
        g->setCurrentIndex(g->model()->index(0, 0));
        QTest::keyClicks(g, "4");
        QVERIFY(QApplication::focusWidget() != g);  // the cell's editor is open
        rec.Yes();
        u->cmdInStore->click();  // as the button's access key does: the focus stays in the cell
        rec.Take();
        QCOMPARE(TestDb::Scalar("select Quantity from Store"), "4");
        // Closing the window in the middle of an edit is harmless.
        tick(u->listCoulor, "红色");
        g->setFocus();
        g->setCurrentIndex(g->model()->index(0, 0));
        QTest::keyClicks(g, "5");
        w.reset();
        QCOMPARE(TestDb::Count("Store"), 1);
        CS_NO_LEFTOVER_BOXES(rec);
    }
};

CS_TEST(TestBatch)
#include "tst_batch.moc"
