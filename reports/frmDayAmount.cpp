#include "frmDayAmount.h"

#include "Convert.h"
#include "DateText.h"
#include "On.h"
#include "Session.h"
#include "ui_frmDayAmount.h"

namespace {
const QString kYuan = QStringLiteral("￥");

// A sum of pieces as the 16-bit figure of the day; a sum over no rows is
// Null and counts as 0. More than 32767 pieces overflow.
int16_t Pieces(const Recordset& rs) {
    return Convert::CInt(Convert::VarDbl(rs.Field(QStringLiteral("数量"))));
}
float Money(const Recordset& rs) {
    return Convert::ToSingle(Convert::VarDbl(rs.Field(QStringLiteral("金额"))));
}
}  // namespace

frmDayAmount::frmDayAmount(QWidget* parent)
    : Form(parent), ui_(std::make_unique<Ui::frmDayAmount>()) {
    ui_->setupUi(this);
    ui_->DTDate->setDate(QDate::currentDate());
    On(ui_->cmdCheckOut, &QPushButton::clicked, this, [this] { cmdCheckOut_Click(); });
}

frmDayAmount::~frmDayAmount() = default;

void frmDayAmount::cmdCheckOut_Click() {
    Compute();
    Save();
}

// The three sums of the day. Sales count on the day of the sale, returns and
// exchanges on the day they were done, each for the clerk who did it. A
// voided sale stays in the day's sales.
void frmDayAmount::Compute() {
    clsDbopt& db = Session::Dbopt();
    const QString date = DateText::Of(ui_->DTDate->date());
    const QString no = Session::User().No;

    Recordset rs =
        db.Excute("Select Sum(Quantity) as 数量,sum(Amount) as 金额 from Sell Where ShopNo='" +
                  Session::ShopNo + "' And   DateTime=#" + date + "# And Seller='" + no + "'");
    SellQuantity = Pieces(rs);
    SellAmount = Money(rs);

    rs = db.Excute(
        "Select Sum(Quantity) as 数量,sum(Amount) as 金额 from SellChange Where ShopNo='" +
        Session::ShopNo + "' And State=2   And ChangeDate=#" + date + "# And Seller='" + no + "'");
    BackQuantity = Pieces(rs);
    BackAmount = Money(rs);

    rs = db.Excute(
        "Select Sum(Quantity) as 数量,sum(AddAmount) as 金额 from SellChange Where ShopNo='" +
        Session::ShopNo + "' And State=1   And ChangeDate=#" + date + "# And Seller='" + no + "'");
    ChangeQuantity = Pieces(rs);
    ChangeAmount = Money(rs);

    // An exchange's amount is negative when money went back to the customer.
    const float sum =
        Convert::ToSingle(double(SellAmount) - double(BackAmount) + double(ChangeAmount));
    ReciveAmount = Convert::CSng(Convert::FloatText(sum));

    ui_->lbSellCount->setText(QString::number(SellQuantity));
    ui_->lbSellMny->setText(Convert::FloatText(SellAmount) + kYuan);
    ui_->lbBackCount->setText(QString::number(BackQuantity));
    ui_->lbBackAmount->setText(Convert::FloatText(BackAmount) + kYuan);
    ui_->lbChangeCount->setText(QString::number(ChangeQuantity));
    ui_->lbChangeAmount->setText(Convert::FloatText(ChangeAmount) + kYuan);
    ui_->lbRecive->setText(Convert::FloatText(ReciveAmount) + kYuan);
    ui_->LbSeller->setText(Session::User().Name);
    ui_->lbDate->setText(date);
}

// One row per date, shop and clerk's name: a second close of the same day
// overwrites it with the figures of the moment.
void frmDayAmount::Save() {
    clsDbopt& db = Session::Dbopt();
    const QString date = DateText::Of(ui_->DTDate->date());
    const QString name = Session::User().Name;
    Recordset rs = db.Excute("Select  * from  DayAmount Where DateTime=#" + date +
                             "# And ShopNo='" + Session::ShopNo + "'  And Seller='" + name + "'");
    using Convert::FloatText;
    if (rs.Eof()) {
        db.Excute("Insert Into DayAmount Values('" + Session::NewGUID().GUID() + "'," +
                  QString::number(SellQuantity) + "," + FloatText(SellAmount) + "," +
                  QString::number(BackQuantity) + "," + FloatText(BackAmount) + "," +
                  QString::number(ChangeQuantity) + "," + FloatText(ChangeAmount) + "," +
                  FloatText(ReciveAmount) + ",'" + name + "','" + date + "','" + Session::ShopNo +
                  "','" + Session::ShopName + "')");
    } else {
        db.Excute("Update DayAmount Set SellQuantity=" + QString::number(SellQuantity) +
                  ", SellAmount=" + FloatText(SellAmount) + ", BackQuantity=" +
                  QString::number(BackQuantity) + ", BackAmount=" + FloatText(BackAmount) +
                  ", ChangeQuantity=" + QString::number(ChangeQuantity) + ", ChangeAmount=" +
                  FloatText(ChangeAmount) + ", ReciveAmount=" + FloatText(ReciveAmount) +
                  " Where GUID='" + rs.Text(QStringLiteral("GUID")) + "'");
    }
}
