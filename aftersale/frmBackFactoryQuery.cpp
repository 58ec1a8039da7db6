#include "frmBackFactoryQuery.h"

#include "DateText.h"
#include "Keys.h"
#include "ModMain.h"
#include "On.h"
#include "Session.h"
#include "VSGrid.h"
#include "ui_frmBackFactoryQuery.h"

frmBackFactoryQuery::frmBackFactoryQuery(QWidget* parent)
    : Form(parent), ui_(std::make_unique<Ui::frmBackFactoryQuery>()) {
    ui_->setupUi(this);
    EnterToTab(ui_->DTBeginTime);
    EnterToTab(ui_->DTEndTime);
    EnterClicks(ui_->cmdQuery);
    On(ui_->cmdQuery, &QPushButton::clicked, this, [this] { QueryFactoryBack(); });
    ui_->DTBeginTime->setDate(QDate::currentDate());
    ui_->DTEndTime->setDate(QDate::currentDate());
    Guard::Run([this] { QueryFactoryBack(); });
}

frmBackFactoryQuery::~frmBackFactoryQuery() = default;

void frmBackFactoryQuery::QueryFactoryBack() {
    VSGrid* g = ui_->VSFlexGrid;
    g->Bind(Session::Dbopt().Excute(
        "Select TypeNo as 货号,Name as 种类, Brand as 品牌,[Size] as 尺码,Colour as 颜色,"
        "Leather as 面料,Grade as 等级,ProductPlace as 产地,Quantity as 数量,BuyPrice as 退货金额,"
        "BackFactoryDate as 退货日期 from BackStore Where ShopNo='" +
        Session::ShopNo + "' And IsBackFactory=true And BackFactoryDate>=#" +
        DateText::Of(ui_->DTBeginTime->date()) + "# And BackFactoryDate<=#" +
        DateText::Of(ui_->DTEndTime->date()) + "# Order By TypeNo"));
    SetGridCols(g, 1100);
    // A total after each run of one article number, shown as whole numbers.
    for (const char* key : {"数量", "退货金额"}) {
        const int col = g->ColIndex(QString::fromUtf8(key));
        if (col < 0) continue;
        g->Subtotal(VSGrid::SubtotalSum, 1, col, QStringLiteral("d"), QColor(255, 0, 0), true,
                    QStringLiteral("合计"));
    }
}
