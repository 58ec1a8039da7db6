#include "frmBackChangeQuery.h"

#include "DateText.h"
#include "Keys.h"
#include "ModMain.h"
#include "On.h"
#include "Session.h"
#include "VSGrid.h"
#include "ui_frmBackChangeQuery.h"

namespace {

// The old goods of each record; 销售员 is the clerk who took them back.
QString ChangeSelect(int state, const QString& dateCaption, const QString& resionCaption,
                     const QDate& from, const QDate& to) {
    return "Select TypeNo as 货号, Name as 种类 ,Brand as 品牌,[Size] as 尺码,Colour as 颜色,"
           "Leather as 面料,Grade as 等级,ProductPlace as 产地,Quantity as 数量,Price as 零售价,"
           "Abate as 折扣,Amount as 应收金额,SellerName as 销售员,Datetime as 销售日期,"
           "ChangeDate as " +
           dateCaption + ",Resion as " + resionCaption + "  from SellChange Where ShopNo='" +
           Session::ShopNo + "' And State=" + QString::number(state) + " And ChangeDate Between #" +
           DateText::Of(from) + "# And #" + DateText::Of(to) + "#";
}

}  // namespace

frmBackChangeQuery::frmBackChangeQuery(QWidget* parent)
    : Form(parent), ui_(std::make_unique<Ui::frmBackChangeQuery>()) {
    ui_->setupUi(this);
    for (QDateEdit* d : {ui_->DTBeginTime, ui_->DTEndTime, ui_->DTB, ui_->DTE}) {
        d->setDate(QDate::currentDate());
        EnterToTab(d);
    }
    EnterClicks(ui_->cmdQuery0);
    EnterClicks(ui_->cmdQuery1);
    On(ui_->cmdQuery0, &QPushButton::clicked, this, [this] { cmdQuery_Click(0); });
    On(ui_->cmdQuery1, &QPushButton::clicked, this, [this] { cmdQuery_Click(1); });
    On(ui_->TabStrip, &QTabWidget::currentChanged, this, [this](int tab) { cmdQuery_Click(tab); });
    Guard::Run([this] { QueryExchanges(); });
}

frmBackChangeQuery::~frmBackChangeQuery() = default;

void frmBackChangeQuery::QueryExchanges() {
    cmdQuery_Click(0);
}

void frmBackChangeQuery::cmdQuery_Click(int Index) {
    VSGrid* g;
    if (Index == 0) {
        g = ui_->VSChange;
        g->Bind(Session::Dbopt().Excute(
            ChangeSelect(1, QStringLiteral("调换日期"), QStringLiteral("调换原因"),
                         ui_->DTBeginTime->date(), ui_->DTEndTime->date())));
    } else {
        g = ui_->VSBack;
        g->Bind(Session::Dbopt().Excute(ChangeSelect(2, QStringLiteral("退货日期"),
                                                     QStringLiteral("退货原因"), ui_->DTB->date(),
                                                     ui_->DTE->date())));
    }
    SetGridCols(g, 850);
}
