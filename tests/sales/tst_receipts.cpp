// Receipts: the dot-matrix and slip layouts, first print and reprint, laid
// out character for character, and the reprint key's refusals.
#include <QRegularExpression>
#include <QTest>

#include "DateText.h"
#include "MsgRecorder.h"
#include "RecordingPrinter.h"
#include "SaleWindow.h"
#include "Session.h"
#include "TestDb.h"
#include "TestRegistry.h"
#include "ui_frmSell.h"

using MsgBox::Icon;

namespace {
// The receipt's lines, with the time of printing taken out.
QStringList Lines(const QString& text) {
    QString t = text;
    t.replace(QRegularExpression("\\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d"), "<Now>");
    return t.split("\r\n");
}

struct Sale {
    TestDb db;
    MsgRecorder rec;
    PrinterScope printer;
    std::unique_ptr<SaleWindow> s;
    QString no;
    QString user;
    QList<MsgBox::Box> boxes;

    // Two pieces of one article at 100: one at 8.5, one at the special price 80.
    explicit Sale(int printerType, const QString& typeNo = "ZMN0001") {
        TestDb::AddGoods(typeNo, 5, 100, 50);
        Session::SellRole().IsPrint = true;
        Session::SellRole().PrinterType = int16_t(printerType);
        user = Session::User().Name;
        s = std::make_unique<SaleWindow>();
        no = s->ui->lbNo->text();
        s->SellAt(typeNo, "1", "8.5");
        s->SellSpecial(typeNo, "1", "80");
        s->CheckOut(rec, "200");
        boxes = rec.Take();  // the question, and what printing said
    }
    void F8(bool yes = true) {
        yes ? rec.Yes() : rec.No();
        s->ui->txtNo->setFocus();
        QTest::keyClick(s->ui->txtNo, Qt::Key_F8);
    }
};

// The expected receipt, a line between bars (so that trailing blanks show),
// with the sale's number and the clerk put in.
QStringList Want(const char* text, const Sale& sale) {
    QStringList out;
    for (QString line : QString::fromUtf8(text).split('\n', Qt::SkipEmptyParts)) {
        line = line.trimmed();
        out << line.mid(1, line.size() - 2).replace("<No>", sale.no).replace("<User>", sale.user);
    }
    return out;
}
}  // namespace

class TestReceipts : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void dotMatrixFirstPrint() {
        Sale sale(0);
        QCOMPARE(sale.boxes.size(), 1);
        QCOMPARE(sale.printer->ops, (QStringList{"size 10", "print", "end"}));
        // One empty line on top per piece.
        QCOMPARE(Lines(sale.printer->texts.value(0)), Want(R"(
||
||
|                       本店结帐单                 |
|                                        销售时间：<Now>|
|                                        销 售 员：    <User>|
|                                        销售编号：<No>|
||
|    …………………………………………………………………………………………………………|
| 货号    品牌      种类     尺码    数量    零售价    折扣/特价    实收金额|
||
|ZMN0001    青木    T恤     M        1      100          8.5          85|
||
|ZMN0001    青木    T恤     M        1      100          特价          80|
||
|    …………………………………………………………………………………………………………|
|    数    量：2         应收合计：200       实收合计：165|
||
|    优惠合计：35        客人付款：200       找回金额：35|
|    …………………………………………………………………………………………………………|
|               欢迎再次光临  多谢惠顾|
)",
                                                           sale));
        CS_NO_LEFTOVER_BOXES(sale.rec);
    }

    // The title alone first; the payment of the sale from its lines.
    void dotMatrixReprint() {
        Sale sale(0);
        sale.printer->ops.clear();
        sale.printer->texts.clear();
        sale.F8();
        const auto boxes = sale.rec.Take();
        QCOMPARE(boxes.size(), 1);
        QCOMPARE(boxes[0].text + boxes[0].title, QString("确定要进行重复打印吗？提示"));
        QCOMPARE(sale.printer->ops, (QStringList{"size 10", "print", "size 8", "print", "end"}));
        QCOMPARE(sale.printer->texts.value(0),
                 QString("                       本店结帐单                 "));
        QCOMPARE(Lines(sale.printer->texts.value(1)), Want(R"(
||
||
|                                                     销售时间：<Now>|
|                                                     销 售 员：    <User>|
|                                                     销售编号：<No>|
||
|    …………………………………………………………………………………………………………|
|    品牌      种类     尺码    数量    零售价    折扣/特价    实收金额    优惠金额|
||
|ZMN0001    青木    T恤     M        1      100          8.5          85|
||
|ZMN0001    青木    T恤     M        1      100          特价          80|
||
|    …………………………………………………………………………………………………………|
|    数    量：2         应收合计：200       实收合计：165|
||
|    优惠合计：35        客人付款：200       找回金额：35|
|    …………………………………………………………………………………………………………|
|               欢迎再次光临  多谢惠顾|
)",
                                                           sale));
        CS_NO_LEFTOVER_BOXES(sale.rec);
    }

    void slipFirstPrint() {
        Sale sale(1);
        QCOMPARE(sale.printer->ops,
                 (QStringList{"size 10", "bold 1", "print", "size 8", "bold 0", "print", "end"}));
        QCOMPARE(sale.printer->texts.value(0), QString("    本店结帐单       \r\n"));
        QCOMPARE(Lines(sale.printer->texts.value(1)), Want(R"(
||
||
|   销售时间：<Now>|
|   销 售 员：    <User>|
|   销售编号：<No>|
|……………………………………………………|
|货号   品牌 数量 零售价 折扣 实收 |
||
|ZMN0001   青木 1 100  8.585   |
|ZMN0001   青木 1 100  特价 80   |
|……………………………………………………|
| 数    量：2     应收合计：200|
| 实收合计：165  优惠合计：35|
| 客人付款：200   找回金额：35|
|……………………………………………………|
|凭本票按国家三包法规实行三包|
|……………………………………………………|
|    谢谢惠顾，欢迎下次光临！|
|   |
)",
                                                           sale));
        CS_NO_LEFTOVER_BOXES(sale.rec);
    }

    // A long feed after every row; the payment is what the window holds now,
    // which after the checkout is nothing.
    void slipReprint() {
        Sale sale(1);
        sale.printer->ops.clear();
        sale.printer->texts.clear();
        sale.F8();
        QCOMPARE(sale.rec.TakeTexts(), QStringList{"确定要进行重复打印吗？"});
        QCOMPARE(sale.printer->ops.size(), 7);
        QCOMPARE(Lines(sale.printer->texts.value(1)), Want(R"(
||
||
|   销售时间：<Now>|
|   销 售 员：    <User>|
|   销售编号：<No>|
|……………………………………………………|
|货号   品牌 数量 零售价 折扣 实收 |
||
|ZMN0001   青木 1 100  8.585   |
||
||
||
||
||
|   |
|ZMN0001   青木 1 100  特价 80   |
||
||
||
||
||
|   |
|……………………………………………………|
| 数    量：2     应收合计：200|
| 实收合计：165  优惠合计：35|
| 客人付款：      找回金额：|
|……………………………………………………|
|凭本票按国家三包法规实行三包|
|……………………………………………………|
|    谢谢惠顾，欢迎下次光临！|
|   |
)",
                                                           sale));
        CS_NO_LEFTOVER_BOXES(sale.rec);
    }

    // An article number of 11 characters has no room on the slip: the title
    // has gone out, then the box, and the sale stands.
    void slipArticleNumberTooLong() {
        Sale sale(1, "ZMN00000011");
        QCOMPARE(sale.boxes.size(), 2);
        QCOMPARE(sale.boxes[1].text, QString("没有发现打印机！"));
        QCOMPARE(sale.boxes[1].icon, Icon::Information);
        QCOMPARE(sale.printer->ops,
                 (QStringList{"size 10", "bold 1", "print", "size 8", "bold 0"}));
        QCOMPARE(TestDb::Count("Sell", "SellNo='" + sale.no + "'"), 2);
        QCOMPARE(sale.s->Pieces(), 0);  // the reset goes on
        CS_NO_LEFTOVER_BOXES(sale.rec);
    }

    // No printer: the box, and the sale stands. Receipts off: nothing at
    // checkout, yet F8 prints.
    void noPrinterAndPrintingOff() {
        TestDb db;
        TestDb::AddGoods("NP1", 5, 100, 50);
        MsgRecorder rec;
        PrinterScope printer;
        SaleWindow s;
        Session::SellRole().IsPrint = true;
        Session::SellRole().PrinterType = 0;
        printer->missing = true;
        s.SellAt("NP1", "1", "全");
        s.CheckOut(rec, "100");
        QCOMPARE(Said(rec), (QStringList{"Q:确认要结帐吗？", "W:没有发现打印机！"}));
        QCOMPARE(TestDb::Count("Sell"), 1);
        printer->missing = false;
        Session::SellRole().IsPrint = false;
        s.SellAt("NP1", "1", "全");
        s.CheckOut(rec, "100");
        rec.Take();
        QVERIFY(printer->ops.isEmpty());
        rec.Yes();
        s.Key(Qt::Key_F8);
        QCOMPARE(Said(rec), QStringList{"Q:确定要进行重复打印吗？"});
        QCOMPARE(printer->ops.last(), QString("end"));
        CS_NO_LEFTOVER_BOXES(rec);
    }

    // F8 with nothing to print: warning on dot-matrix, information on the slip.
    void reprintRefusals() {
        TestDb db;
        TestDb::AddGoods("RR1", 5, 100, 50);
        MsgRecorder rec;
        PrinterScope printer;
        SaleWindow s;
        const QString ask = "Q:确定要进行重复打印吗？";
        for (const char* kind : {"W:", "I:"}) {
            Session::SellRole().PrinterType = kind[0] == 'W' ? 0 : 1;
            rec.No();
            s.Key(Qt::Key_F8);
            rec.Yes();
            s.Key(Qt::Key_F8);
            QCOMPARE(
                Said(rec),
                (QStringList{ask, ask, kind + QString("对不起今天还没有销售，不能重新打印！")}));
        }
        // The last sale voided in full: nothing left to print.
        s.SellAt("RR1", "1", "全");
        s.CheckOut(rec, "100");
        rec.Take();
        TestDb::Exec("Update Sell Set State=3");
        for (const char* kind : {"W:", "I:"}) {
            Session::SellRole().PrinterType = kind[0] == 'W' ? 0 : 1;
            rec.Yes();
            s.Key(Qt::Key_F8);
            QCOMPARE(Said(rec),
                     (QStringList{ask, kind + QString("该次销售可能被退货或调换不能打印！")}));
        }
        QVERIFY(printer->ops.isEmpty());
        CS_NO_LEFTOVER_BOXES(rec);
    }
};

CS_TEST(TestReceipts)
#include "tst_receipts.moc"
