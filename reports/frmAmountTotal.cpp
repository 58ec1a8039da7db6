#include "frmAmountTotal.h"

#include "DateText.h"
#include "ModMain.h"
#include "On.h"
#include "ReportGrid.h"
#include "Session.h"
#include "VSGrid.h"
#include "ui_frmAmountTotal.h"

frmAmountTotal::frmAmountTotal(QWidget* parent)
    : Form(parent), ui_(std::make_unique<Ui::frmAmountTotal>()) {
    ui_->setupUi(this);
    ui_->DTBeginTime->setDate(QDate::currentDate());
    ui_->DTEndTime->setDate(QDate::currentDate());
    On(ui_->cmdQuery, &QPushButton::clicked, this, [this] { cmdQuery_Click(); });

    // The headers before the first query; the columns are sized by the query.
    Guard::Run([this] {
        ui_->VSAmountTotal->Bind(Session::Dbopt().Excute(
            "Select ShopName as 店面, Seller as 销售员,DateTime as 日期,SellQuantity as 售货数量, "
            "SellAmount as 售货金额 ,BackQuantity as 退货数量,BackAmount as 退货金额,"
            "ChangeQuantity as 调换数量,ChangeAmount as 调换金额,ReciveAmount as 结算金额 from "
            "DayAmount Where GUID=''"));
    });
}

frmAmountTotal::~frmAmountTotal() = default;

void frmAmountTotal::cmdQuery_Click() {
    VSGrid* g = ui_->VSAmountTotal;
    // Rows as the store gives them; binding anew drops the total row of the
    // last query.
    g->Bind(Session::Dbopt().Excute(
        "Select ShopName as 店面,Seller as 销售员,DateTime as 日期,SellQuantity as 售货数量, "
        "SellAmount as 售货金额 ,BackQuantity as 退货数量,BackAmount as 退货金额,ChangeQuantity "
        "as 调换数量,ChangeAmount as 调换金额,ReciveAmount as 结算金额 from DayAmount Where "
        "DateTime>=#" +
        DateText::Of(ui_->DTBeginTime->date()) + "# And DateTime<=#" +
        DateText::Of(ui_->DTEndTime->date()) + "# And ShopNo='" + Session::ShopNo + "'"));
    SetGridCols(g, 1200);
    // Grouped on the fixed column, which is the same on every row: the seven
    // sums share one row.
    for (const char* col :
         {"结算金额", "售货数量", "退货数量", "调换数量", "售货金额", "退货金额", "调换金额"})
        AddSums(g, 0, g->ColIndex(QString::fromUtf8(col)), QStringLiteral("总计"));
}
