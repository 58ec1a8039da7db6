#include "frmProfit.h"

#include "Convert.h"
#include "DateText.h"
#include "On.h"
#include "Session.h"
#include "ui_frmProfit.h"

namespace {

// One row of sums. A sum over no rows is Null, and a failed statement (its
// text already shown) or a result without a row gives nothing: all count 0.
struct Sums {
    Recordset rs;
    bool failed = false;

    explicit Sums(const QString& sql) { rs = Session::Dbopt().Excute(sql, failed); }
    double Value(const char* field) const {
        if (failed || !rs.IsOpen() || rs.Eof()) return 0;
        return Convert::VarDbl(rs.Field(QString::fromUtf8(field)));
    }
    int32_t Pieces(const char* field) const { return Convert::CLng(Value(field)); }
    float Money(const char* field) const { return Convert::ToSingle(Value(field)); }
};

QString Text(int32_t n) {
    return QString::number(n);
}
QString Text(float f) {
    return Convert::FloatText(f);
}

}  // namespace

frmProfit::frmProfit(QWidget* parent) : Form(parent), ui_(std::make_unique<Ui::frmProfit>()) {
    ui_->setupUi(this);
    ui_->DTBeginTime->setDate(QDate::currentDate());
    ui_->DTEndTime->setDate(QDate::currentDate());
    On(ui_->cmdQuery, &QPushButton::clicked, this, [this] { cmdQuery_Click(); });
}

frmProfit::~frmProfit() = default;

// Six statements, each figure shown as soon as its statement has run. The
// stock is the stock of now at cost, whatever the period: the layers for
// what can be sold, the problem stock's costs as they stand.
void frmProfit::cmdQuery_Click() {
    const QString period = "DateTime>=#" + DateText::Of(ui_->DTBeginTime->date()) +
                           "# And DateTime<=#" + DateText::Of(ui_->DTEndTime->date()) +
                           "# And ShopNo='" + Session::ShopNo + "'";

    const Sums in(
        "Select Sum(Quantity) as 数量,Sum(Price*Quantity) as 价格 From StoreDetail Where " +
        period);
    ui_->lbInQuantity->setText(Text(in.Pieces("数量")));
    ui_->lbInAmount->setText(Text(in.Money("价格")));

    // Returned and voided pieces are no sale; an exchanged line counts with
    // the replacement's amount and cost. A piece sold without a cost layer
    // has cost 0, so all of its amount is profit.
    const Sums sold(
        "Select Sum(Quantity) as 数量,Sum(Amount) as 金额,Sum(Amount-BuyPrice) as 利润 From Sell "
        "Where " +
        period + " And State<2");
    ui_->lbSellQuantity->setText(Text(sold.Pieces("数量")));
    ui_->lbSellAmount->setText(Text(sold.Money("金额")));
    const float profit = sold.Money("利润");
    ui_->lbProfit->setText(Text(profit));

    const Sums back(
        "Select Sum(Quantity) as 数量,Sum(Amount) as 金额 From FactoryBackTotal Where " + period);
    ui_->lbBackQuantity->setText(Text(back.Pieces("数量")));
    ui_->lbBackAmount->setText(Text(back.Money("金额")));

    const Sums layers(
        "Select Sum(Quantity) as 数量,Sum(Price*Quantity) as 金额 From BuyPrice Where ShopNo='" +
        Session::ShopNo + "'");
    ui_->lbStoreQuantity->setText(Text(layers.Pieces("数量")));
    const float layersCost = layers.Money("金额");

    const Sums problem(
        "Select Sum(Quantity) as 数量,Sum(BuyPrice) as 金额 From BackStore Where ShopNo='" +
        Session::ShopNo + "' And IsBackFactory=0");
    ui_->lbQuestionQuantity->setText(Text(problem.Pieces("数量")));
    ui_->lbStorePrice->setText(
        Text(Convert::ToSingle(double(layersCost) + double(problem.Money("金额")))));

    const Sums other("Select Sum(Amount) as 金额 From OtherOut Where " + period);
    const float otherAmount = other.Money("金额");
    ui_->lbOtherAmount->setText(Text(otherAmount));

    ui_->lbProfitEx->setText(Text(Convert::ToSingle(double(profit) - double(otherAmount))));
}
