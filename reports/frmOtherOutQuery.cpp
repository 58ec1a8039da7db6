#include "frmOtherOutQuery.h"

#include "DateText.h"
#include "ModMain.h"
#include "On.h"
#include "ReportGrid.h"
#include "Session.h"
#include "VSGrid.h"
#include "ui_frmOtherOutQuery.h"

namespace {
const QString kGrandTotal = QStringLiteral("总合计");
}

frmOtherOutQuery::frmOtherOutQuery(QWidget* parent)
    : Form(parent), ui_(std::make_unique<Ui::frmOtherOutQuery>()) {
    ui_->setupUi(this);
    On(ui_->cmdQuery, &QPushButton::clicked, this, [this] { cmdQuery_Click(); });
    On(ui_->cmdDel, &QPushButton::clicked, this, [this] { cmdDel_Click(); });
    ui_->DTBeginTime->setDate(QDate::currentDate());
    ui_->DTEndTime->setDate(QDate::currentDate());
    Guard::Run([this] {
        VSGrid* g = ui_->VSSell;
        g->Bind(Session::Dbopt().Excute(
            "Select GUID,Item as 支出项目, Amount as 金额 ,DateTime as 日期,OptName as 记录员 ,"
            "Memo as 备注 from OtherOut Where GUID=''"));
        g->setColHidden(1, true);
        SetGridCols(g, 2020);
    });
}

frmOtherOutQuery::~frmOtherOutQuery() = default;

void frmOtherOutQuery::cmdQuery_Click() {
    VSGrid* g = ui_->VSSell;
    g->Bind(Session::Dbopt().Excute(
        "Select GUID,Item as 支出项目, Amount  as 金额 ,DateTime as 日期,OptName as 记录员 ,Memo "
        "as 备注 from OtherOut Where ShopNo='" +
        Session::ShopNo + "' And DateTime>=#" + DateText::Of(ui_->DTBeginTime->date()) +
        "# And DateTime <=#" + DateText::Of(ui_->DTEndTime->date()) + "# Order By DateTime"));
    SetGridCols(g, 2020);
    g->setColHidden(1, true);
    // Grouped on the fixed column, the caption lands in the hidden key
    // column, which is how a delete knows the total row.
    if (g->Rows() > 1) AddSums(g, 0, 3, kGrandTotal);
}

// At once, without a question. The total keeps the old sum until the next
// query.
void frmOtherOutQuery::cmdDel_Click() {
    VSGrid* g = ui_->VSSell;
    const int row = g->Row();
    if (row == 0) return;
    if (g->TextMatrix(row, 1) == kGrandTotal) return;
    bool failed = false;
    Session::Dbopt().Excute("Delete from OtherOut Where GUID='" + g->TextMatrix(row, 1) + "'",
                            failed);
    if (!failed) g->RemoveItem(row);
}
