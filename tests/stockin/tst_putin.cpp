// The stock sheet import: its settings, the choice of a file, and the import
// of a sheet, whole or not at all.
#include <QLabel>
#include <QTemporaryDir>
#include <QTest>

#include "FileDialog.h"
#include "MsgRecorder.h"
#include "Session.h"
#include "SheetFiles.h"
#include "TestDb.h"
#include "TestRegistry.h"
#include "frmPutIn.h"
#include "ui_frmPutIn.h"

using namespace SheetFiles;

class TestPutIn : public QObject {
    Q_OBJECT

    QTemporaryDir dir_;

    // Picks the file in the window's file dialog; gives the dialog's filter.
    static QString choose(frmPutIn& w, const QString& path) {
        QString filter;
        auto old = FileDialog::SetPresenter([&](auto, auto&, auto&, const QString& f) {
            filter = f;
            return path;
        });
        w.ui()->cmdSelect->click();
        FileDialog::SetPresenter(old);
        return filter;
    }
    // The one box shown as "icon text".
    static QString box(MsgRecorder& rec) {
        const auto boxes = rec.Take();
        return boxes.size() != 1 ? QString("%1 boxes").arg(boxes.size())
                                 : QString("%1 %2").arg(int(boxes[0].icon)).arg(boxes[0].text);
    }
    static QString info(const char* text) { return "1 " + QString(text); }
    static QString warn(const char* text) { return "2 " + QString(text); }

    // Every goods row with its history row and layer, in the order written:
    // article, kind, brand, size, colour, quantity, retail price, cost.
    static QStringList stock() {
        Recordset rs = TestDb::Query(
            "select s.TypeNo||'|'||s.Name||'|'||s.Brand||'|'||s.[Size]||'|'||s.Colour||'|'||"
            "s.Quantity||'|'||s.Price||'|'||b.Price from (Store s inner join StoreDetail d on "
            "d.ParentGUID=s.GUID) inner join BuyPrice b on b.StoreGUID=s.GUID order by b.ID");
        QStringList out;
        for (; !rs.Eof(); rs.MoveNext()) out << rs.Text(0);
        return out;
    }

    // A sheet in the default layout with sizes S and M (columns 6 and 7 of row
    // 3), and from row 4 one line per article: number, colour, quantities.
    QString sheet(const QString& name, const QList<QVariantList>& articles) {
        Rows rows{{}, {}, QVariantList(5) + QVariantList{"S", "M"}};
        for (const QVariantList& a : articles) {
            QVariantList cells = QVariantList{"青木", a[0], "T恤", QVariant(), a[1]} + a.mid(2);
            cells.resize(16);
            rows << (cells << 50.0 << 99.0);
        }
        WriteXlsx(dir_.filePath(name), rows);
        return dir_.filePath(name);
    }

private Q_SLOTS:
    void opensWithItsSettingsAndNeedsAReadableFileAndAnEndRow() {
        TestDb db;
        MsgRecorder rec;
        frmPutIn w;
        auto* u = w.ui();
        QStringList settings;
        for (QLabel* label : u->fraSet->findChildren<QLabel*>())
            settings << label->text() + qobject_cast<QLineEdit*>(label->buddy())->text();
        QCOMPARE(settings.join(' '),
                 QString("数据开始行：4 数据结束行： 品牌列号：1 货号列号：2 种类列号：3 "
                         "颜色列号：5 尺码开始列：6 尺码结束列：15 进价列号：17 零售价列号：18 "
                         "尺码行号：3 面料列号： 等级列号： 产地列号："));
        QCOMPARE(u->DT->date(), QDate::currentDate());
        QVERIFY(!u->cmdPutIn->isEnabled() && u->ProgressBar->isHidden());

        // A readable file, then a damaged one: the reason in a box, nothing to import.
        const QString filter = choose(w, Made("supplier.xls"));
        QVERIFY2(filter.startsWith("Excel文件 (*.xls *.xlsx *.csv)"), qPrintable(filter));
        QVERIFY(u->cmdPutIn->isEnabled());
        const QString cut = Truncated(Made("supplier.xls"), dir_.filePath("cut.xls"));
        choose(w, cut);
        QVERIFY(box(rec).startsWith(warn("文件已损坏")));
        QCOMPARE(u->txtFileName->text(), cut);
        QVERIFY(!u->cmdPutIn->isEnabled());

        // No end row, no number, or one past 16 bits: the message and nothing else.
        choose(w, Made("supplier.xls"));
        for (const char* end : {"", "行13", "40000"}) {
            u->txtEndrow->setText(end);
            u->cmdPutIn->click();
            QCOMPARE(box(rec), info("请输入结束行！"));
        }
        QVERIFY(u->ProgressBar->isHidden());
        QCOMPARE(TestDb::Count("Store") + TestDb::Count("StoreDetail"), 0);
        CS_NO_LEFTOVER_BOXES(rec);
    }

    void importsEveryPositiveQuantityOfTheSheet() {
        TestDb db;
        MsgRecorder rec;
        const QString old = TestDb::AddGoods("QM-1001", 5, 89, 40);  // never added to
        frmPutIn w;
        auto* u = w.ui();
        choose(w, Made("supplier.xls"));
        u->txtEndrow->setText("13行");  // the leading number
        u->DT->setDate(QDate(2026, 4, 1));
        u->cmdPutIn->click();
        QCOMPARE(box(rec), warn("导入成功!"));
        QVERIFY(u->ProgressBar->isHidden());
        // Zero, a word and an empty cell store nothing; an empty article number is stored empty.
        QCOMPARE(
            stock(),
            QStringList({"QM-1001|T恤|青木|M|黑色|5|89|40", "QM-1001|T恤|青木|S|黑色|3|89|45.5",
                         "QM-1001|T恤|青木|M|黑色|2|89|45.5", "QM-1001|T恤|青木|M|白色|1|89|45.5",
                         "QM-1001|T恤|青木|L|白色|1|89|45.5", "20240|衬衫|远山|160|蓝色|2|128.5|60",
                         "20240|衬衫|远山|170|蓝色|1|128.5|60", "|衬衫|远山|165|灰色|4|128.5|60",
                         "BC-7|卫衣|北辰|XL|红色|1.5|199|99", "BC-8|夹克|北辰|XXL|黑色|2|299|150",
                         "BC-9|长裤|北辰|175|卡其|1|159|80", "BC-9|长裤|北辰|180|卡其|1|159|80",
                         "NM-01|连衣裙|南木|S|粉色|1|399|210", "NM-02|半身裙|南木|M|米白|2|239|120",
                         "NM-03|风衣|南木|L|驼色|1|599|320"}));
        // The rest of each new row: the other texts empty, the history row and the
        // layer alike in goods, quantity, cost, date and shop.
        QCOMPARE(
            TestDb::Count("(Store s inner join StoreDetail d on d.ParentGUID=s.GUID) inner "
                          "join BuyPrice b on b.StoreGUID=s.GUID",
                          "s.GUID<>'" + old +
                              "' and d.DateTime='2026-04-01' and b.sDate=d.DateTime and "
                              "s.Leather||s.Grade||s.ProductPlace||s.IDCode||s.GoodsFloor||"
                              "d.Leather||d.Grade||d.ProductPlace||d.Memo='' and d.TypeNo||"
                              "d.Name||d.Brand||d.[Size]||d.Colour=s.TypeNo||s.Name||s.Brand||"
                              "s.[Size]||s.Colour and d.Quantity=s.Quantity and b.Quantity="
                              "s.Quantity and d.Price=b.Price and s.ShopNo='" +
                              Session::ShopNo + "' and d.ShopNo=s.ShopNo and b.ShopNo=s.ShopNo"),
            14);

        // The sheet is closed: pressing again imports nothing, successfully.
        u->cmdPutIn->click();
        QCOMPARE(box(rec), warn("导入成功!"));
        QCOMPARE(stock().size(), 15);
        CS_NO_LEFTOVER_BOXES(rec);
    }

    void aFailingStatementTakesTheWholeSheetBack() {
        TestDb db;
        MsgRecorder rec;
        TestDb::AddGoods("OLD", 5, 89, 40);
        // "3x" passes the test of the leading number and breaks the statement.
        frmPutIn w;
        auto* u = w.ui();
        choose(w, sheet("unit.xlsx", {{"A1", "黑色", 1.0, 2.0}, {"A2", "白色", QVariant(), "3x"}}));
        u->txtEndrow->setText("5");
        u->cmdPutIn->click();
        QVERIFY(box(rec).startsWith("0 "));  // the engine's own text, in a plain box
        QCOMPARE(stock(), QStringList({"OLD|T恤|青木|M|黑色|5|89|40"}));
        QVERIFY(!u->ProgressBar->isHidden());
        // Two rows of ten sizes; the bar stops after the ten cells of the first row
        // and the empty cell before the failing one.
        const QProgressBar* bar = u->ProgressBar;
        QCOMPARE(QString("%1-%2 at %3").arg(bar->minimum()).arg(bar->maximum()).arg(bar->value()),
                 QString("1-20 at 11"));
        QVERIFY(!Session::Dbopt().InTransaction());

        // The sheet stays open, and a new press starts from the first row again.
        u->txtEndrow->setText("4");
        u->cmdPutIn->click();
        QCOMPARE(box(rec), warn("导入成功!"));
        QCOMPARE(stock().size(), 3);

        // A quote in a text cell breaks it the same way.
        choose(w, sheet("quote.xlsx", {{"A3", "黑色", 1.0}, {"A4", "O'Neil", 1.0}}));
        u->txtEndrow->setText("5");
        u->cmdPutIn->click();
        QVERIFY(box(rec).startsWith("0 "));
        QCOMPARE(stock().size(), 3);

        // A begin row after the end row: no rows, and still a success.
        u->txtBeginRow->setText("6");
        u->cmdPutIn->click();
        QCOMPARE(box(rec), warn("导入成功!"));
        QCOMPARE(stock().size(), 3);
        CS_NO_LEFTOVER_BOXES(rec);
    }
};

CS_TEST(TestPutIn)
#include "tst_putin.moc"
