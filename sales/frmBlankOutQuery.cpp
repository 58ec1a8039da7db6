#include "frmBlankOutQuery.h"

#include "DateText.h"
#include "ModMain.h"
#include "On.h"
#include "Session.h"
#include "VSGrid.h"
#include "ui_frmBlankOutQuery.h"

frmBlankOutQuery::frmBlankOutQuery(QWidget* parent)
    : Form(parent), ui_(std::make_unique<Ui::frmBlankOutQuery>()) {
    ui_->setupUi(this);
    On(ui_->cmdQuery, &QPushButton::clicked, this, [this] { cmdQuery_Click(); });
    ui_->DTBlankOutB->setDate(QDate::currentDate());
    ui_->DTBlankOutE->setDate(QDate::currentDate());
    Guard::Run([this] { cmdQuery_Click(); });
}

frmBlankOutQuery::~frmBlankOutQuery() = default;

void frmBlankOutQuery::cmdQuery_Click() {
    Recordset rs = Session::Dbopt().Excute(
        "Select TypeNo as 货号, Name as 种类 ,Brand as 品牌,[Size] as 尺码,Colour as 颜色,"
        "Leather as 面料,Grade as 等级,ProductPlace as 产地,Quantity as 数量,Price as 零售价,"
        "Abate as 折扣,Amount as 应收金额,SellerName as 销售员,Datetime as 销售日期,"
        "ChangeDate as 作废日期,Resion as 作废原因  from SellChange Where ShopNo='" +
        Session::ShopNo + "' And State=3 And ChangeDate Between #" +
        DateText::Of(ui_->DTBlankOutB->date()) + "# And #" +
        DateText::Of(ui_->DTBlankOutE->date()) + "#");
    ui_->VSBlankOut->Bind(rs);
    SetGridCols(ui_->VSBlankOut, 850);
}
