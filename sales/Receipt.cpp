#include "Receipt.h"

#include "Convert.h"
#include "RuntimeError.h"
#include "TextPrinter.h"

namespace Receipt {

namespace {

const QString CRLF = QStringLiteral("\r\n");
const QString kWideRule = QStringLiteral("    …………………………………………………………………………………………………………");
const QString kSlipRule = QStringLiteral("……………………………………………………");

struct Sums {
    int16_t Qty = 0;
    float Gross = 0;
    float Off = 0;
    float Net = 0;
};

Sums Add(const QList<ReceiptRow>& rows) {
    Sums s;
    for (const ReceiptRow& r : rows) {
        s.Qty = Convert::CInt(double(s.Qty) + Convert::CDbl(r.Quantity));
        s.Gross = Convert::ToSingle(double(s.Gross) + Convert::CDbl(r.Price));
        const QString off = Convert::DblText(Convert::Val(r.Price) - Convert::Val(r.Amount));
        s.Off = Convert::ToSingle(double(s.Off) + Convert::CDbl(off));
    }
    s.Net = s.Gross - s.Off;
    return s;
}

// The value followed by blanks up to n characters.
QString Pad(const QString& value, int n) {
    return value + Blanks(n - int(value.size()));
}

QString WideRow(const ReceiptRow& r) {
    return r.TypeNo + Blanks(4) + r.Brand + Blanks(4) + r.Name + Blanks(5) + r.Size + Blanks(8) +
           r.Quantity + Blanks(6) + r.Price + Blanks(10) + r.Abate + Blanks(10) + r.Amount;
}

QString SlipRow(const ReceiptRow& r) {
    return Pad(r.TypeNo, 10) + r.Brand + " " + r.Quantity + " " + r.Price + "  " + Pad(r.Abate, 3) +
           Pad(r.Amount, 5);
}

QString WideFoot(const ReceiptData& d, const Sums& s) {
    const QString qty = QString::number(s.Qty);
    const QString gross = Convert::FloatText(s.Gross);
    const QString net = Convert::FloatText(s.Net);
    const QString off = Convert::FloatText(s.Off);
    QString b;
    b += CRLF + kWideRule;
    b += CRLF + "    数    量：" + qty + Blanks(10 - int(qty.size())) + "应收合计：" + gross +
         Blanks(10 - int(gross.size())) + "实收合计：" + net;
    b += CRLF;
    b += CRLF + "    优惠合计：" + off + Blanks(10 - int(off.size())) + "客人付款：" + d.Paid +
         Blanks(10 - int(d.Paid.size())) + "找回金额：" + d.Change;
    b += CRLF + kWideRule;
    b += CRLF + "               欢迎再次光临  多谢惠顾";
    return b;
}

QString WideTitle(const ReceiptData& d) {
    return "                       " + d.ShopName + "结帐单                 ";
}

void SmallBody(const ReceiptData& d, TextPrinter& p, bool again) {
    p.SetFontSize(10);
    p.SetBold(true);
    p.Print("    " + d.ShopName + "结帐单       " + CRLF);
    p.SetFontSize(8);
    p.SetBold(false);

    QString b = "   销售时间：" + d.Now + CRLF;
    b += "   销 售 员：    " + d.User + CRLF;
    b += "   销售编号：" + d.SellNo + CRLF;
    b += kSlipRule + CRLF;
    b += QStringLiteral("货号   品牌 数量 零售价 折扣 实收 ") + CRLF;
    for (const ReceiptRow& r : d.Rows) {
        b = CRLF + b + CRLF + SlipRow(r);
        if (again) b += CRLF + CRLF + CRLF + CRLF + CRLF + CRLF + "   ";
    }
    const Sums s = Add(d.Rows);
    const QString qty = QString::number(s.Qty);
    const QString gross = Convert::FloatText(s.Gross);
    const QString net = Convert::FloatText(s.Net);
    const QString off = Convert::FloatText(s.Off);
    b += CRLF + kSlipRule;
    b += CRLF + " 数    量：" + qty + Blanks(4 - int(qty.size())) + "  应收合计：" + gross;
    // The blanks after the net figure are counted on the discount figure.
    b += CRLF + " 实收合计：" + net + Blanks(4 - int(off.size())) + "优惠合计：" + off;
    b += CRLF + " 客人付款：" + d.Paid + Blanks(4 - int(d.Paid.size())) + "  找回金额：" + d.Change;
    b += CRLF + kSlipRule;
    b += CRLF + "凭本票按国家三包法规实行三包";
    b += CRLF + kSlipRule;
    b += CRLF + "    谢谢惠顾，欢迎下次光临！";
    b += CRLF + "   ";
    p.Print(b);
    p.EndDoc();
}

}  // namespace

QString Blanks(int n) {
    if (n < 0) throw RuntimeError(QStringLiteral("运行时错误 '5':\n\n无效的过程调用或参数"));
    return QString(n, QLatin1Char(' '));
}

void Big(const ReceiptData& d, TextPrinter& p) {
    p.SetFontSize(10);
    const QString indent(40, QLatin1Char(' '));
    QString b = WideTitle(d) + CRLF;
    b += indent + "销售时间：" + d.Now + CRLF;
    b += indent + "销 售 员：    " + d.User + CRLF;
    b += indent + "销售编号：" + d.SellNo + CRLF;
    b += CRLF;
    b += kWideRule + CRLF;
    b += QStringLiteral(
             " 货号    品牌      种类     尺码    数量    零售价    折扣/特价    实收金额") +
         CRLF;
    // Each row also puts an empty line at the very top.
    for (const ReceiptRow& r : d.Rows) b = CRLF + b + CRLF + WideRow(r) + CRLF;
    b += WideFoot(d, Add(d.Rows));
    p.Print(b);
    p.EndDoc();
}

void BigAgain(const ReceiptData& d, TextPrinter& p) {
    p.SetFontSize(10);
    p.Print(WideTitle(d));
    const QString indent(53, QLatin1Char(' '));
    QString b = indent + "销售时间：" + d.Now + CRLF;
    b += indent + "销 售 员：    " + d.User + CRLF;
    b += indent + "销售编号：" + d.SellNo + CRLF;
    b += CRLF;
    b += kWideRule + CRLF;
    b += QStringLiteral(
             "    品牌      种类     尺码    数量    零售价    折扣/特价    实收金额    优惠金额") +
         CRLF;
    for (const ReceiptRow& r : d.Rows) b = CRLF + b + CRLF + WideRow(r) + CRLF;
    b += WideFoot(d, Add(d.Rows));
    p.SetFontSize(8);
    p.Print(b);
    p.EndDoc();
}

void Small(const ReceiptData& d, TextPrinter& p) {
    SmallBody(d, p, false);
}
void SmallAgain(const ReceiptData& d, TextPrinter& p) {
    SmallBody(d, p, true);
}

}  // namespace Receipt
