// Receipts: the dot-matrix and slip layouts, first print and reprint, laid
// out character for character, and the reprint key's refusals.
#include <QRegularExpression>

#include "SaleWindow.h"
#include "Session.h"
#include "TestRegistry.h"

namespace {
// Two pieces of one article at 100, one at 8.5 and one at the special price
// 80, sold with receipts on; what the checkout said is kept.
struct Sale {
    TestDb db;
    MsgRecorder rec;
    PrinterScope printer;
    std::unique_ptr<SaleWindow> s;
    QString no;
    QStringList said;

    explicit Sale(int printerType, const QString& typeNo = "ZMN0001") {
        TestDb::AddGoods(typeNo, 5, 100, 50);
        Session::SellRole().IsPrint = true;
        Session::SellRole().PrinterType = int16_t(printerType);
        s = std::make_unique<SaleWindow>();
        no = s->ui->lbNo->text();
        s->Sell(typeNo, "1", "8.5");
        s->Sell(typeNo, "1", "80", true);
        s->CheckOut(rec, "200");
        said = Said(rec);
    }
    // The receipt's lines, the time of printing taken out.
    QStringList Lines(int i) const {
        QString t = printer.printer->texts.value(i);
        t.replace(QRegularExpression("\\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d"), "<Now>");
        return t.split("\r\n");
    }
    // The expected receipt, a line between bars (so that trailing blanks
    // show), with the sale's number and the clerk put in.
    QStringList Want(const char* text) const {
        QStringList out;
        for (QString line : QString::fromUtf8(text).split('\n', Qt::SkipEmptyParts)) {
            line = line.trimmed();
            out << line.mid(1, line.size() - 2)
                       .replace("<No>", no)
                       .replace("<User>", Session::User().Name);
        }
        return out;
    }
    // F8 after clearing the record; yes to the question.
    void Reprint() {
        printer->ops = printer->texts = {};
        rec.Yes();
        s->ui->txtNo->setFocus();
        s->Key(Qt::Key_F8);
        QCOMPARE(Said(rec), QStringList{"Q:确定要进行重复打印吗？"});
    }
};
}  // namespace

class TestReceipts : public QObject {
    Q_OBJECT
private Q_SLOTS:
    // One empty line on top per piece; the reprint prints the title alone
    // first, and takes the payment of the sale from its lines.
    void dotMatrix() {
        Sale sale(0);
        QCOMPARE(sale.said, QStringList{"Q:确认要结帐吗？"});
        QCOMPARE(sale.printer->ops, (QStringList{"size 10", "print", "end"}));
        QCOMPARE(sale.Lines(0), sale.Want(R"(
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
)"));
        sale.Reprint();
        QCOMPARE(sale.printer->ops, (QStringList{"size 10", "print", "size 8", "print", "end"}));
        QCOMPARE(sale.printer->texts.value(0),
                 QString("                       本店结帐单                 "));
        QCOMPARE(sale.Lines(1), sale.Want(R"(
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
)"));
        CS_NO_LEFTOVER_BOXES(sale.rec);
    }

    // The title in bold apart; the reprint feeds long after every row and
    // takes the payment from the window, which after the checkout is empty.
    void slip() {
        Sale sale(1);
        QCOMPARE(sale.said, QStringList{"Q:确认要结帐吗？"});
        QCOMPARE(sale.printer->ops,
                 (QStringList{"size 10", "bold 1", "print", "size 8", "bold 0", "print", "end"}));
        QCOMPARE(sale.printer->texts.value(0), QString("    本店结帐单       \r\n"));
        QCOMPARE(sale.Lines(1), sale.Want(R"(
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
)"));
        sale.Reprint();
        QCOMPARE(sale.printer->ops.size(), 7);
        QCOMPARE(sale.Lines(1), sale.Want(R"(
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
)"));
        CS_NO_LEFTOVER_BOXES(sale.rec);
    }

    // An article number of 11 characters has no room on the slip: the title
    // has gone out, then the box, and the sale stands.
    void slipArticleNumberTooLong() {
        Sale sale(1, "ZMN00000011");
        QCOMPARE(sale.said, (QStringList{"Q:确认要结帐吗？", "I:没有发现打印机！"}));
        QCOMPARE(sale.printer->ops,
                 (QStringList{"size 10", "bold 1", "print", "size 8", "bold 0"}));
        QCOMPARE(TestDb::Count("Sell", "SellNo='" + sale.no + "'") + sale.s->Pieces(), 2);
        CS_NO_LEFTOVER_BOXES(sale.rec);
    }

    // F8 with nothing to print, first with no sale today, then with the
    // day's only sale voided in full: a warning with the dot-matrix printer,
    // a note with the slip.
    void reprintRefusals() {
        TestDb db;
        TestDb::AddGoods("RR1", 5, 100, 50);
        MsgRecorder rec;
        PrinterScope printer;  // the delivered rules print nothing at checkout
        SaleWindow s;
        const QString ask = "Q:确定要进行重复打印吗？";
        for (const char* refusal :
             {"对不起今天还没有销售，不能重新打印！", "该次销售可能被退货或调换不能打印！"}) {
            for (int type : {0, 1}) {
                Session::SellRole().PrinterType = int16_t(type);
                rec.No();
                s.Key(Qt::Key_F8);
                rec.Yes();
                s.Key(Qt::Key_F8);
                QCOMPARE(Said(rec),
                         (QStringList{ask, ask, (type ? "I:" : "W:") + QString(refusal)}));
            }
            s.Sell("RR1", "1", "全");
            s.CheckOut(rec, "100");
            rec.Take();
            TestDb::Exec("Update Sell Set State=3");
        }
        QVERIFY(printer->ops.isEmpty());
        CS_NO_LEFTOVER_BOXES(rec);
    }
};

CS_TEST(TestReceipts)
#include "tst_receipts.moc"
