#include "frmSellQuery.h"

#include "Convert.h"
#include "DateText.h"
#include "ModMain.h"
#include "On.h"
#include "ReportGrid.h"
#include "Session.h"
#include "VSGrid.h"
#include "ui_frmSellQuery.h"

frmSellQuery::frmSellQuery(QWidget* parent)
    : Form(parent), ui_(std::make_unique<Ui::frmSellQuery>()) {
    ui_->setupUi(this);
    On(ui_->cmdQuery, &QPushButton::clicked, this, [this] { cmdQuery_Click(); });
    On(ui_->cmdPrint, &QPushButton::clicked, this, [this] { PrintGrid(ui_->VSSell, this); });

    ui_->DTBeginTime->setDate(QDate::currentDate());
    ui_->DTEndTime->setDate(QDate::currentDate());
    Guard::Run([this] {
        FillComboAll(QStringLiteral("种类"), ui_->comName);
        FillComboAll(QStringLiteral("品牌"), ui_->comBrand);
        // The headers before the first query, in an order of their own.
        ui_->VSSell->Bind(Session::Dbopt().Excute(
            "Select SellNo as 销售编号,TypeNo as 货号, Name as 种类 ,Brand as 品牌,[Size] as 尺码,"
            "Colour as 颜色,Leather as 面料,Grade as 等级,ProductPlace as 产地,Quantity as 数量,"
            "Price as 零售价,Abate as 折扣,Amount as 实收金额,SellerName as 销售员,DateTime as "
            "销售日期  from Sell Where GUID=''"));
        SetGridCols(ui_->VSSell, 820);
    });
}

frmSellQuery::~frmSellQuery() = default;

// Lines sold or exchanged into count; returned and voided ones do not. The
// brand and kind go into the statement as they stand.
void frmSellQuery::cmdQuery_Click() {
    const bool allBrands = ui_->comBrand->currentIndex() == 0;
    const bool allKinds = ui_->comName->currentIndex() == 0;
    QString tail;
    if (allBrands && allKinds)
        tail = "# And State<2  Order By TypeNo,[Size],Colour";
    else if (allBrands)
        tail = "# And State<2 And Name='" + ui_->comName->currentText() +
               "' Order By TypeNo,[Size],Colour";
    else if (allKinds)
        tail = "# And State<2 And Brand='" + ui_->comBrand->currentText() +
               "' Order By TypeNo,[Size],Colour";
    else
        tail = "# And State<2 And Brand='" + ui_->comBrand->currentText() + "' And Name='" +
               ui_->comName->currentText() + "' Order By TypeNo,[Size],Colour";

    VSGrid* g = ui_->VSSell;
    g->Bind(Session::Dbopt().Excute(
        "Select TypeNo as 货号, Name as 种类 ,Brand as 品牌,[Size] as 尺码,Colour as 颜色,Leather "
        "as 面料,Grade as 等级,ProductPlace as 产地,Quantity as 数量,Price as 零售价,Abate as "
        "折扣,Amount as 实收金额,SellerName as 销售员,SellNo as 销售编号,DateTime as 销售日期 "
        "from Sell Where ShopNo='" +
        Session::ShopNo + "' And DateTime>=#" + DateText::Of(ui_->DTBeginTime->date()) +
        "# And DateTime <=#" + DateText::Of(ui_->DTEndTime->date()) + tail));
    SetGridCols(g, 820);
    g->setColWidth(1, 1600);
    // An empty result leaves the count and the money of the last query.
    if (g->Rows() <= 1) return;

    // The count of lines, not of pieces.
    ui_->lbCount->setText(QString::number(g->Rows() - 1));
    const int amount = g->ColIndex(QStringLiteral("实收金额"));
    ui_->lbAmount->setText(Convert::DblText(g->Sum(amount, 1, g->Rows() - 1)) +
                           QStringLiteral("￥"));

    // Sums above the rows they add up: the grand total is row 1.
    const int qty = g->ColIndex(QStringLiteral("数量"));
    AddSums(g, 1, qty, QStringLiteral("合计"), true);
    AddSums(g, 1, amount, QStringLiteral("合计"), true);
    AddSums(g, 0, amount, QStringLiteral("总合计"), true);
    AddSums(g, 0, qty, QStringLiteral("总合计"), true);
}
