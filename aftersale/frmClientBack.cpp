#include "frmClientBack.h"

#include "Convert.h"
#include "DateText.h"
#include "Keys.h"
#include "ModMain.h"
#include "MsgBox.h"
#include "On.h"
#include "SaleLine.h"
#include "Session.h"
#include "SqlText.h"
#include "VSGrid.h"
#include "frmDataDictionary.h"
#include "ui_frmClientBack.h"

namespace {

const QString kResion = QStringLiteral("退货原因");

QString SellSelect(const QString& condition) {
    return "Select GUID,StoreGUID,ShopNo,BuyPrice,BuyPriceId,SellNo,State,TypeNo as 货号, Name as "
           "种类 ,Brand as 品牌,[Size] as 尺码,Colour as 颜色,Leather as 面料,Grade as 等级,"
           "ProductPlace as 产地,Quantity as 数量,Price as 零售价,Abate as 折扣,Amount as 金额,"
           "SellerName as 销售员, DateTime as 销售日期  from Sell Where " +
           condition;
}

}  // namespace

frmClientBack::frmClientBack(QWidget* parent)
    : Form(parent), ui_(std::make_unique<Ui::frmClientBack>()) {
    ui_->setupUi(this);
    ui_->DT->setDate(QDate::currentDate());

    // Enter in a search box runs the search; on a check box it moves on.
    for (QWidget* w : {static_cast<QWidget*>(ui_->txtSellNo), static_cast<QWidget*>(ui_->txtType),
                       static_cast<QWidget*>(ui_->DT)})
        w->installEventFilter(this);
    for (QWidget* w : {static_cast<QWidget*>(ui_->chkNo), static_cast<QWidget*>(ui_->chkType),
                       static_cast<QWidget*>(ui_->chkDate), static_cast<QWidget*>(ui_->comResion),
                       static_cast<QWidget*>(ui_->Opt), static_cast<QWidget*>(ui_->OptQuestion)})
        EnterToTab(w);
    EnterClicks(ui_->cmdQuery);
    EnterClicks(ui_->cmdOk);

    On(ui_->cmdQuery, &QPushButton::clicked, this, [this] { cmdQuery_Click(); });
    On(ui_->cmdOk, &QPushButton::clicked, this, [this] { cmdOk_Click(); });
    On(ui_->VSFlexGrid, &VSGrid::RowColChange, this, [this] { ShowRefund(); });
    On(ui_->VSFlexGrid, &VSGrid::KeyDown, this,
       [this](int key, Qt::KeyboardModifiers, bool& handled) {
           if (key == Qt::Key_Return || key == Qt::Key_Enter) {
               handled = true;
               if (ui_->VSFlexGrid->Row() >= 1) ui_->comResion->setFocus();
           }
       });
    frmDataDictionary::AttachButton(ui_->cmdLeather, kResion, ui_->comResion, this);

    Guard::Run([this] {
        InitSellGrid();
        FillCombo(kResion, ui_->comResion);
    });
}

frmClientBack::~frmClientBack() = default;

void frmClientBack::InitSellGrid() {
    ui_->VSFlexGrid->Bind(Session::Dbopt().Excute(SellSelect("GUID=''")));
    HideWorkColumns();
}

// The key and cost columns stay hidden: they are the window's working store.
void frmClientBack::HideWorkColumns() {
    VSGrid* g = ui_->VSFlexGrid;
    for (int c = 1; c <= 7; ++c) g->setColHidden(c, true);
    if (const int grade = g->ColIndex(QStringLiteral("等级")); grade > 0)
        g->setColHidden(grade, true);
    SetGridCols(g, 860);
}

// The money to hand back is the line's amount, as it was paid.
void frmClientBack::ShowRefund() {
    const VSGrid* g = ui_->VSFlexGrid;
    if (g->Rows() < 2 || g->Row() < 1)
        ui_->lb->clear();
    else
        ui_->lb->setText(g->Text(QStringLiteral("金额")));
}

void frmClientBack::cmdQuery_Click() {
    if (!ui_->chkNo->isChecked() && !ui_->chkType->isChecked() && !ui_->chkDate->isChecked()) {
        MsgBox::Info(QStringLiteral("请选择条件！"));
        return;
    }
    const QString condition =
        SaleCondition(ui_->chkDate->isChecked(), ui_->DT->date(), ui_->chkNo->isChecked(),
                      ui_->txtSellNo->text(), ui_->chkType->isChecked(), ui_->txtType->text());
    Recordset rs = Session::Dbopt().Excute(
        SellSelect(condition + " And ShopNo='" + Session::ShopNo + "' And State<2"));
    // An empty search leaves the lines found before. A failed one has shown
    // the engine's text, and reading its result raises the run-time error.
    if (rs.Eof()) {
        ui_->lbTip->setText(QStringLiteral("无记录！"));
        return;
    }
    VSGrid* g = ui_->VSFlexGrid;
    g->Bind(rs);
    ui_->lbTip->clear();
    g->setFocus();
    g->setRow(1);
    ShowRefund();
    HideWorkColumns();
}

void frmClientBack::cmdOk_Click() {
    VSGrid* g = ui_->VSFlexGrid;
    if (g->Rows() <= 1 || g->Row() < 1) return;
    const QDate sold = SaleDate(g->Text(QStringLiteral("销售日期")));
    const QString abate = g->Text(QStringLiteral("折扣"));
    const clsSellRole& rules = Session::SellRole();

    if (rules.ChangNotToBack && Convert::Val(g->Text(QStringLiteral("State"))) == 1) {
        MsgBox::Info(QStringLiteral("对不起该商品已经调换过不能再退货！"));
        return;
    }
    const SaleKind kind = KindOf(abate);
    if (kind == SaleKind::Special && rules.SpecialCanNotBack) {
        MsgBox::Info(QStringLiteral("对不起！该商品是特价商品，您无法退货！"));
        return;
    }
    if (kind == SaleKind::Discount && rules.AbateCanNotBack) {
        MsgBox::Info(QStringLiteral("对不起！该商品是折扣商品，您无法退货！"));
        return;
    }
    if (PastDayLimit(sold, rules.BackDays)) {
        MsgBox::Info(QStringLiteral("很遗憾！该商品已经超过了规定的退货时间，您无法退货！"));
        return;
    }
    if (!MsgBox::AskYes(QStringLiteral("确认要退货吗？"), QStringLiteral("提示"))) return;

    // Problem stock: the piece stays out of the stock that can be sold and its
    // cost moves to the problem stock. Normal stock: back on the shelf and
    // into the layer it was sold from, whatever that layer holds now.
    if (ui_->Opt->isChecked()) {
        InsertBackStore();
        InsertSellChange();
        SetSellReturned();
    } else {
        RestoreStore();
        RestoreCostLayer();
        InsertSellChange();
        SetSellReturned();
    }
    g->RemoveItem();
    ShowRefund();
}

void frmClientBack::InsertBackStore() {
    const VSGrid* g = ui_->VSFlexGrid;
    const clsUser& user = Session::User();
    auto q = [g](const char* key) { return ReplaceQuote(g->Text(QString::fromUtf8(key))); };
    // The reason and the user go in as they stand.
    Session::Dbopt().Excute(
        "Insert Into BackStore ([GUID],ShopNo,TypeNo,Name,Brand,[Size],Colour,Leather,Grade,"
        "ProductPlace,Quantity,BuyPrice,BackResion,Seller,SellName,IsBackFactory,BackFactoryDate) "
        "Values('" +
        q("StoreGUID") + "','" + Session::ShopNo + "','" + q("货号") + "','" + q("种类") + "','" +
        q("品牌") + "','" + q("尺码") + "','" + q("颜色") + "','" + q("面料") + "','" + q("等级") +
        "','" + q("产地") + "',1," + q("BuyPrice") + ",'" + ui_->comResion->currentText() + "','" +
        user.No + "','" + user.Name + "',0,Null)");
}

void frmClientBack::InsertSellChange() {
    const VSGrid* g = ui_->VSFlexGrid;
    const clsUser& user = Session::User();
    auto q = [g](const char* key) { return ReplaceQuote(g->Text(QString::fromUtf8(key))); };
    // A return leaves the goods key empty; the added amount is the refund.
    Session::Dbopt().Excute(
        "Insert Into SellChange Values('" + Session::NewGUID().GUID() + "','" + "" + "','" +
        Session::ShopNo + "','" + q("货号") + "','" + q("种类") + "','" + q("品牌") + "','" +
        q("尺码") + "','" + q("颜色") + "','" + q("面料") + "','" + q("等级") + "','" + q("产地") +
        "'," + q("数量") + "," + q("零售价") + ",'" + q("折扣") + "'," + q("金额") + "," +
        q("BuyPrice") + ",'" + user.No + "','" + q("销售日期") + "'," + q("BuyPriceID") + ",'" +
        user.Name + "'," + g->Text(QStringLiteral("金额")) + ",'" +
        g->Text(QStringLiteral("GUID")) + "','" + g->Text(QStringLiteral("SellNo")) + "','" +
        DateText::Today() + "',2,'" + ui_->comResion->currentText() + "')");
}

void frmClientBack::SetSellReturned() {
    Session::Dbopt().Excute("Update Sell Set State=2 Where GUID='" +
                            ui_->VSFlexGrid->Text(QStringLiteral("GUID")) + "'");
}

void frmClientBack::RestoreStore() {
    Session::Dbopt().Excute("Update Store Set Quantity=Quantity+1 Where GUID='" +
                            ui_->VSFlexGrid->Text(QStringLiteral("StoreGUID")) + "'");
}

void frmClientBack::RestoreCostLayer() {
    Session::Dbopt().Excute("Update BuyPrice Set Quantity=Quantity+1 Where ID=" +
                            ui_->VSFlexGrid->Text(QStringLiteral("BuyPriceId")));
}

bool frmClientBack::eventFilter(QObject* o, QEvent* e) {
    QKeyEvent* k = KeyPress(e);
    if (!k || !IsEnter(k)) return false;
    if (o == ui_->txtSellNo || o == ui_->txtType || o == ui_->DT) {
        Guard::Run([this] { cmdQuery_Click(); });
        return true;
    }
    return false;
}
