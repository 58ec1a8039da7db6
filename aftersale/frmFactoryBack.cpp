#include "frmFactoryBack.h"

#include "Convert.h"
#include "DateText.h"
#include "Keys.h"
#include "ModMain.h"
#include "MsgBox.h"
#include "On.h"
#include "Session.h"
#include "VSGrid.h"
#include "ui_frmFactoryBack.h"

using Convert::Val;

namespace {
const QString kTicked = QStringLiteral("-1");
}

frmFactoryBack::frmFactoryBack(QWidget* parent)
    : Form(parent), ui_(std::make_unique<Ui::frmFactoryBack>()) {
    ui_->setupUi(this);
    VSGrid* g = ui_->VSFlexGrid;
    g->setEditable(true);
    EnterToTab(ui_->txtAmount);
    EnterToTab(ui_->DT);
    EnterClicks(ui_->cmdAll);
    EnterClicks(ui_->cmdRegist);

    // Only the ticks can be changed.
    On(g, &VSGrid::BeforeEdit, this, [](int, int col, bool& cancel) { cancel = col != kTickCol; });
    On(g, &VSGrid::AfterEdit, this, [this] { SumBackAmount(); });
    // Space ticks or unticks the current row, whichever cell is current.
    On(g, &VSGrid::KeyDown, this, [this, g](int key, Qt::KeyboardModifiers, bool& handled) {
        if (key != Qt::Key_Space) return;
        handled = true;
        if (g->Row() < 1) return;
        g->setTextMatrix(g->Row(), kTickCol, Ticked(g->Row()) ? QStringLiteral("0") : kTicked);
        SumBackAmount();
    });
    On(ui_->cmdAll, &QPushButton::clicked, this, [this] { cmdAll_Click(); });
    On(ui_->cmdRegist, &QPushButton::clicked, this, [this] { cmdRegist_Click(); });

    Guard::Run([this] { LoadBackStore(); });
    ui_->DT->setDate(QDate::currentDate());
}

frmFactoryBack::~frmFactoryBack() = default;

bool frmFactoryBack::Ticked(int row) const {
    return ui_->VSFlexGrid->TextMatrix(row, kTickCol) == kTicked;
}

// The fault column becomes the tick column: the reasons are not shown here.
void frmFactoryBack::LoadBackStore() {
    VSGrid* g = ui_->VSFlexGrid;
    g->Bind(Session::Dbopt().Excute(
        "Select ID,TypeNo as 货号,Name as 种类,Brand as 品牌,[Size] as 尺码,Colour as 颜色,"
        "Leather as 面料,Grade as 等级,ProductPlace as 产地,BuyPrice as 进价,Quantity as 数量,"
        "BackResion as 问题 from BackStore Where ShopNo='" +
        Session::ShopNo + "' And IsBackFactory=0 Order by TypeNo"));
    g->setCols(13);
    g->setColHidden(1, true);
    g->setColCheckBox(kTickCol, true);
    g->setTextMatrix(0, kTickCol, QStringLiteral("选中"));
    for (int r = 1; r < g->Rows(); ++r) g->setTextMatrix(r, kTickCol, QStringLiteral("0"));
    SetGridCols(g, 1000);
}

// The cost of the ticked rows, proposed as the amount; it overwrites what
// was typed.
void frmFactoryBack::SumBackAmount() {
    const VSGrid* g = ui_->VSFlexGrid;
    float sum = 0;
    for (int r = 1; r < g->Rows(); ++r)
        if (Ticked(r))
            sum = Convert::ToSingle(double(sum) + Val(g->Cell(r, QStringLiteral("进价"))));
    ui_->txtAmount->setText(Convert::FloatText(sum));
}

void frmFactoryBack::cmdAll_Click() {
    VSGrid* g = ui_->VSFlexGrid;
    for (int r = 1; r < g->Rows(); ++r) g->setTextMatrix(r, kTickCol, kTicked);
    SumBackAmount();
}

void frmFactoryBack::cmdRegist_Click() {
    VSGrid* g = ui_->VSFlexGrid;
    if (g->Rows() <= 1) return;
    const QString amount = ui_->txtAmount->text();
    if (!Convert::IsNumeric(amount)) {
        MsgBox::Info(QStringLiteral("请输入正确的退货金额！"));
        ui_->txtAmount->setFocus();
        return;
    }
    // 0 passes: a batch may be written with no money owed.
    if (Convert::CDbl(amount) < 0) {
        MsgBox::Info(QStringLiteral("请输入大于0的数字！"));
        return;
    }
    int16_t count = 0;
    for (int r = 1; r < g->Rows(); ++r)
        if (Val(g->TextMatrix(r, kTickCol)) == -1)
            count = Convert::CInt(double(count) + Val(g->Cell(r, QStringLiteral("数量"))));
    if (count < 1) {
        MsgBox::Info(QStringLiteral("请选择要退的商品！"));
        return;
    }

    clsDbopt& db = Session::Dbopt();
    const clsUser& user = Session::User();
    const QString date = DateText::Of(ui_->DT->date());
    // The user's number goes into Seller and the name into SellerNo; the
    // amount as typed.
    db.Excute(
        "Insert Into FactoryBackTotal ([DateTime],Seller,SellerNo,Quantity,Amount,ShopNo) "
        "values('" +
        date + "','" + user.No + "','" + user.Name + "'," + QString::number(count) + "," + amount +
        ",'" + Session::ShopNo + "')");
    for (int r = 1; r < g->Rows(); ++r)
        if (Ticked(r))
            db.Excute("Update BackStore Set IsBackFactory=1,BackFactoryDate='" + date +
                      "' Where ID=" + QString::number(Convert::CLng(g->Cell(r, "ID"))));
    for (int r = g->Rows() - 1; r >= 1; --r)
        if (Ticked(r)) g->RemoveItem(r);
    MsgBox::Info(QStringLiteral("退货成功！"));
}
