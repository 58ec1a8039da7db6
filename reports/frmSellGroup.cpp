#include "frmSellGroup.h"

#include "DateText.h"
#include "ModMain.h"
#include "On.h"
#include "Session.h"
#include "VSGrid.h"
#include "ui_frmSellGroup.h"

frmSellGroup::frmSellGroup(QWidget* parent)
    : Form(parent), ui_(std::make_unique<Ui::frmSellGroup>()) {
    ui_->setupUi(this);
    On(ui_->cmdQuery, &QPushButton::clicked, this, [this] { cmdQuery_Click(); });
    ui_->DTBeginTime->setDate(QDate::currentDate());
    ui_->DTEndTime->setDate(QDate::currentDate());
    Guard::Run([this] {
        ui_->VSSell->Bind(Session::Dbopt().Excute(
            "Select TypeNo as 货号, Name as 种类 ,Brand as 品牌,[Size] as 尺码,Colour as 颜色,"
            "Leather as 面料,Grade as 等级,ProductPlace as 产地,Quantity as 数量 from Sell Where "
            "GUID=''"));
        SetGridCols(ui_->VSSell, 1400);
    });
}

frmSellGroup::~frmSellGroup() = default;

// All eight describing columns group a row, so two sizes of one article rank
// apart. Ties stay in the order the store gives them.
void frmSellGroup::cmdQuery_Click() {
    ui_->VSSell->Bind(Session::Dbopt().Excute(
        "Select TypeNo as 货号,Name as 种类 ,Brand as 品牌,[Size] as 尺码,Colour as 颜色,Leather "
        "as 面料,Grade as 等级,ProductPlace as 产地,sum(Quantity) as 数量 from Sell Where "
        "ShopNo='" +
        Session::ShopNo + "' And DateTime>=#" + DateText::Of(ui_->DTBeginTime->date()) +
        "# And DateTime <=#" + DateText::Of(ui_->DTEndTime->date()) +
        "# And State<2  Group By TypeNo,Name,Brand,[Size],Colour,Leather,Grade,ProductPlace "
        "Order by sum(Quantity) DESC"));
    SetGridCols(ui_->VSSell, 1400);
}
