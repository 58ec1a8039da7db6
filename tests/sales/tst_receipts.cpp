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
const QString kRule40 = "    " + QString(40, QChar(0x2026));
const QString kRule20 = QString(20, QChar(0x2026));

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
        s->ui->txtReciveAmout->setText("200");
        rec.Yes();
        s->ui->cmdCheckOut->click();
        boxes = rec.Take();  // the question, and what printing said
    }
    void F8(bool yes = true) {
        yes ? rec.Yes() : rec.No();
        s->ui->txtNo->setFocus();
        QTest::keyClick(s->ui->txtNo, Qt::Key_F8);
    }
};

QString B(int n) {
    return QString(n, ' ');
}
const QString kWideRow1 = "ZMN0001" + B(4) + "青木" + B(4) + "T恤" + B(5) + "M" + B(8) + "1" +
                          B(6) + "100" + B(10) + "8.5" + B(10) + "85";
const QString kWideRow2 = "ZMN0001" + B(4) + "青木" + B(4) + "T恤" + B(5) + "M" + B(8) + "1" +
                          B(6) + "100" + B(10) + "特价" + B(10) + "80";
const QString kWideTotals = "    数    量：2" + B(9) + "应收合计：200" + B(7) + "实收合计：165";
const QString kWideFoot = "    优惠合计：35" + B(8) + "客人付款：200" + B(7) + "找回金额：35";
const QString kThanks = "               欢迎再次光临  多谢惠顾";
}  // namespace

class TestReceipts : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void dotMatrixFirstPrint() {
        Sale sale(0);
        QCOMPARE(sale.boxes.size(), 1);
        QCOMPARE(sale.printer->ops, (QStringList{"size 10", "print", "end"}));
        const QString pad(40, ' ');
        const QStringList want = {
            "",
            "",  // one empty line on top per piece
            "                       本店结帐单                 ",
            pad + "销售时间：<Now>",
            pad + "销 售 员：    " + sale.user,
            pad + "销售编号：" + sale.no,
            "",
            kRule40,
            " 货号    品牌      种类     尺码    数量    零售价    折扣/特价    实收金额",
            "",
            kWideRow1,
            "",
            kWideRow2,
            "",
            kRule40,
            kWideTotals,
            "",
            kWideFoot,
            kRule40,
            kThanks};
        QCOMPARE(Lines(sale.printer->texts.value(0)), want);
        CS_NO_LEFTOVER_BOXES(sale.rec);
    }

    void dotMatrixReprint() {
        Sale sale(0);
        sale.printer->ops.clear();
        sale.printer->texts.clear();
        sale.F8();
        const auto boxes = sale.rec.Take();
        QCOMPARE(boxes.size(), 1);
        QCOMPARE(boxes[0].text, QString("确定要进行重复打印吗？"));
        QCOMPARE(boxes[0].title, QString("提示"));
        QCOMPARE(sale.printer->ops, (QStringList{"size 10", "print", "size 8", "print", "end"}));
        QCOMPARE(sale.printer->texts.value(0),
                 QString("                       本店结帐单                 "));
        const QString pad(53, ' ');
        // The payment of the sale, from the sale lines.
        const QStringList want = {
            "",
            "",
            pad + "销售时间：<Now>",
            pad + "销 售 员：    " + sale.user,
            pad + "销售编号：" + sale.no,
            "",
            kRule40,
            "    品牌      种类     尺码    数量    零售价    折扣/特价    实收金额    优惠金额",
            "",
            kWideRow1,
            "",
            kWideRow2,
            "",
            kRule40,
            kWideTotals,
            "",
            kWideFoot,
            kRule40,
            kThanks};
        QCOMPARE(Lines(sale.printer->texts.value(1)), want);
        CS_NO_LEFTOVER_BOXES(sale.rec);
    }

    void slipFirstPrint() {
        Sale sale(1);
        QCOMPARE(sale.printer->ops,
                 (QStringList{"size 10", "bold 1", "print", "size 8", "bold 0", "print", "end"}));
        QCOMPARE(sale.printer->texts.value(0), QString("    本店结帐单       \r\n"));
        const QStringList want = {"",
                                  "",
                                  "   销售时间：<Now>",
                                  "   销 售 员：    " + sale.user,
                                  "   销售编号：" + sale.no,
                                  kRule20,
                                  "货号   品牌 数量 零售价 折扣 实收 ",
                                  "",
                                  "ZMN0001   青木 1 100  8.585   ",
                                  "ZMN0001   青木 1 100  特价 80   ",
                                  kRule20,
                                  " 数    量：2" + B(5) + "应收合计：200",
                                  " 实收合计：165" + B(2) + "优惠合计：35",
                                  " 客人付款：200" + B(3) + "找回金额：35",
                                  kRule20,
                                  "凭本票按国家三包法规实行三包",
                                  kRule20,
                                  "    谢谢惠顾，欢迎下次光临！",
                                  "   "};
        QCOMPARE(Lines(sale.printer->texts.value(1)), want);
        CS_NO_LEFTOVER_BOXES(sale.rec);
    }

    void slipReprint() {
        Sale sale(1);
        sale.printer->ops.clear();
        sale.printer->texts.clear();
        sale.F8();
        QCOMPARE(sale.rec.TakeTexts(), QStringList{"确定要进行重复打印吗？"});
        QCOMPARE(sale.printer->ops.size(), 7);
        // A long feed after every row; the payment is what the window holds
        // now, which after the checkout is nothing.
        const QStringList want = {"",
                                  "",
                                  "   销售时间：<Now>",
                                  "   销 售 员：    " + sale.user,
                                  "   销售编号：" + sale.no,
                                  kRule20,
                                  "货号   品牌 数量 零售价 折扣 实收 ",
                                  "",
                                  "ZMN0001   青木 1 100  8.585   ",
                                  "",
                                  "",
                                  "",
                                  "",
                                  "",
                                  "   ",
                                  "ZMN0001   青木 1 100  特价 80   ",
                                  "",
                                  "",
                                  "",
                                  "",
                                  "",
                                  "   ",
                                  kRule20,
                                  " 数    量：2" + B(5) + "应收合计：200",
                                  " 实收合计：165" + B(2) + "优惠合计：35",
                                  " 客人付款：" + B(6) + "找回金额：",
                                  kRule20,
                                  "凭本票按国家三包法规实行三包",
                                  kRule20,
                                  "    谢谢惠顾，欢迎下次光临！",
                                  "   "};
        QCOMPARE(Lines(sale.printer->texts.value(1)), want);
        CS_NO_LEFTOVER_BOXES(sale.rec);
    }

    // An article number of 11 characters has no room on the slip: the title
    // has gone out, then the box, and the sale stands.
    void slipArticleNumberTooLong() {
        Sale sale(1, "ZMN00000011");
        const auto& boxes = sale.boxes;
        QCOMPARE(boxes.size(), 2);
        QCOMPARE(boxes[1].text, QString("没有发现打印机！"));
        QCOMPARE(boxes[1].icon, Icon::Information);
        QCOMPARE(sale.printer->ops,
                 (QStringList{"size 10", "bold 1", "print", "size 8", "bold 0"}));
        QCOMPARE(TestDb::Count("Sell", "SellNo='" + sale.no + "'"), 2);
        QCOMPARE(sale.s->Pieces(), 0);  // the reset goes on
        CS_NO_LEFTOVER_BOXES(sale.rec);
    }

    void noPrinter() {
        TestDb db;
        TestDb::AddGoods("NP1", 5, 100, 50);
        Session::SellRole().IsPrint = true;
        Session::SellRole().PrinterType = 0;
        MsgRecorder rec;
        PrinterScope printer;
        printer->missing = true;
        SaleWindow s;
        s.SellAt("NP1", "1", "全");
        s.ui->txtReciveAmout->setText("100");
        rec.Yes();
        s.ui->cmdCheckOut->click();
        const auto boxes = rec.Take();
        QCOMPARE(boxes.size(), 2);
        QCOMPARE(boxes[1].text, QString("没有发现打印机！"));
        QCOMPARE(boxes[1].icon, Icon::Exclamation);
        QCOMPARE(TestDb::Count("Sell"), 1);
        CS_NO_LEFTOVER_BOXES(rec);
    }

    // Receipts off: nothing at checkout, yet F8 prints.
    void printingOffStillReprints() {
        TestDb db;
        TestDb::AddGoods("OFF1", 5, 100, 50);
        Session::SellRole().IsPrint = false;
        MsgRecorder rec;
        PrinterScope printer;
        SaleWindow s;
        s.SellAt("OFF1", "1", "全");
        s.ui->txtReciveAmout->setText("100");
        rec.Yes();
        s.ui->cmdCheckOut->click();
        rec.Take();
        QVERIFY(printer->ops.isEmpty());
        rec.Yes();
        s.ui->VSSell->setFocus();
        s.Key(Qt::Key_F8);
        QCOMPARE(rec.TakeTexts(), QStringList{"确定要进行重复打印吗？"});
        QCOMPARE(printer->ops.last(), QString("end"));
        CS_NO_LEFTOVER_BOXES(rec);
    }

    // F8 with nothing to print: its refusals, warning on dot-matrix,
    // information on the slip.
    void reprintRefusals() {
        TestDb db;
        TestDb::AddGoods("RR1", 5, 100, 50);
        MsgRecorder rec;
        PrinterScope printer;
        SaleWindow s;
        for (int type : {0, 1}) {
            Session::SellRole().PrinterType = int16_t(type);
            const Icon icon = type == 0 ? Icon::Exclamation : Icon::Information;
            rec.No();
            s.Key(Qt::Key_F8);
            QCOMPARE(rec.TakeTexts(), QStringList{"确定要进行重复打印吗？"});
            rec.Yes();
            s.Key(Qt::Key_F8);
            auto boxes = rec.Take();
            QCOMPARE(boxes.size(), 2);
            QCOMPARE(boxes[1].text, QString("对不起今天还没有销售，不能重新打印！"));
            QCOMPARE(boxes[1].icon, icon);
        }
        // The last sale voided in full: nothing left to print.
        s.SellAt("RR1", "1", "全");
        s.ui->txtReciveAmout->setText("100");
        rec.Yes();
        s.ui->cmdCheckOut->click();
        rec.Take();
        TestDb::Exec("Update Sell Set State=3");
        for (int type : {0, 1}) {
            Session::SellRole().PrinterType = int16_t(type);
            rec.Yes();
            s.Key(Qt::Key_F8);
            auto boxes = rec.Take();
            QCOMPARE(boxes.size(), 2);
            QCOMPARE(boxes[1].text, QString("该次销售可能被退货或调换不能打印！"));
            QCOMPARE(boxes[1].icon, type == 0 ? Icon::Exclamation : Icon::Information);
        }
        QVERIFY(printer->ops.isEmpty());
        CS_NO_LEFTOVER_BOXES(rec);
    }
};

CS_TEST(TestReceipts)
#include "tst_receipts.moc"
