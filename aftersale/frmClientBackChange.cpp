#include "frmClientBackChange.h"

#include <QMenu>

#include "Convert.h"
#include "CostLayer.h"
#include "DateText.h"
#include "Keys.h"
#include "ModMain.h"
#include "Modal.h"
#include "MsgBox.h"
#include "On.h"
#include "SaleLine.h"
#include "Session.h"
#include "SqlText.h"
#include "VSGrid.h"
#include "frmChange.h"
#include "frmDataDictionary.h"
#include "ui_frmClientBackChange.h"

using Convert::Val;

namespace {

const QString kResion = QStringLiteral("调换原因");
constexpr int kResionCol = 22;

QString SellSelect(const QString& condition) {
    return "Select GUID,StoreGUID,ShopNo,BuyPrice,BuyPriceId,SellNo,State,TypeNo as 货号, Name as "
           "种类 ,Brand as 品牌,[Size] as 尺码,Colour as 颜色,Leather as 面料,Grade as 等级,"
           "ProductPlace as 产地,Quantity as 数量,Price as 零售价,Abate as 折扣,Amount as 应收金额,"
           "SellerName as 销售员,DateTime as 销售日期 from Sell Where " +
           condition;
}

// The row whose column holds the text, from row 1; 0 when none does.
int FindRow(const VSGrid* g, const QString& key, const QString& text) {
    for (int r = 1; r < g->Rows(); ++r)
        if (g->Cell(r, key) == text) return r;
    return 0;
}

}  // namespace

frmClientBackChange::frmClientBackChange(QWidget* parent)
    : Form(parent), ui_(std::make_unique<Ui::frmClientBackChange>()) {
    ui_->setupUi(this);
    ui_->DT->setDate(QDate::currentDate());

    Main_ = new QMenu(QStringLiteral("主菜单"), this);
    Main_->setObjectName(QStringLiteral("Main"));
    Del_ = Main_->addAction(QStringLiteral("删除"));
    Del_->setObjectName(QStringLiteral("Del"));
    On(Del_, &QAction::triggered, this, [this] { RemoveChangeRow(); });
    ui_->VSChange->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(ui_->VSChange, &QWidget::customContextMenuRequested, this, [this](const QPoint& pos) {
        Main_->popup(ui_->VSChange->viewport()->mapToGlobal(pos));
    });

    // Enter in a search box runs the search, Down goes to the lines found.
    for (QWidget* w : {static_cast<QWidget*>(ui_->txtSellNo), static_cast<QWidget*>(ui_->txtType),
                       static_cast<QWidget*>(ui_->DT)})
        w->installEventFilter(this);
    for (QWidget* w : {static_cast<QWidget*>(ui_->chkNo), static_cast<QWidget*>(ui_->chkType),
                       static_cast<QWidget*>(ui_->chkDate), static_cast<QWidget*>(ui_->comResion)})
        EnterToTab(w);
    for (QPushButton* b : {ui_->cmdQuery, ui_->cmdChange, ui_->cmdOk}) EnterClicks(b);

    On(ui_->cmdQuery, &QPushButton::clicked, this, [this] { cmdQuery_Click(); });
    On(ui_->cmdChange, &QPushButton::clicked, this, [this] { cmdChange_Click(); });
    On(ui_->cmdOk, &QPushButton::clicked, this, [this] { cmdOk_Click(); });
    On(ui_->VSFlexGrid, &VSGrid::KeyDown, this,
       [this](int key, Qt::KeyboardModifiers, bool& handled) {
           if (key == Qt::Key_Return || key == Qt::Key_Enter) {
               handled = true;
               if (ui_->VSFlexGrid->Rows() > 1) cmdChange_Click();
           }
       });
    frmDataDictionary::AttachButton(ui_->cmdLeather, kResion, ui_->comResion, this);

    Guard::Run([this] {
        InitSellGrid();
        InitChangeGrid();
        FillCombo(kResion, ui_->comResion);
    });
}

frmClientBackChange::~frmClientBackChange() = default;

bool frmClientBackChange::IsMarked(int row) const {
    return ui_->VSFlexGrid->CellBackColor(row, 0) == MarkColor();
}

void frmClientBackChange::InitSellGrid() {
    VSGrid* g = ui_->VSFlexGrid;
    g->Bind(Session::Dbopt().Excute(SellSelect("GUID=''")));
    for (int c = 1; c <= 7; ++c) g->setColHidden(c, true);
    SetGridCols(g, 860);
}

void frmClientBackChange::InitChangeGrid() {
    static const QStringList keys = {"StoreGUID", "货号", "种类",     "品牌",     "尺码",
                                     "颜色",      "面料", "等级",     "产地",     "零售价",
                                     "数量",      "折扣", "应收金额", "SellGUID", "SellNo"};
    VSGrid* g = ui_->VSChange;
    g->setRows(1);
    g->setCols(16);
    for (int c = 1; c < 16; ++c) {
        g->setTextMatrix(0, c, keys[c - 1]);
        g->setColKey(c, keys[c - 1]);
    }
    for (int c : {1, 14, 15}) g->setColHidden(c, true);
    SetGridCols(g, 1000);
}

void frmClientBackChange::RemoveVsRowsAll(VSGrid* Vs) {
    for (int r = Vs->Rows() - 1; r >= 1; --r) Vs->RemoveItem(r);
}

void frmClientBackChange::cmdQuery_Click() {
    if (!ui_->chkNo->isChecked() && !ui_->chkType->isChecked() && !ui_->chkDate->isChecked()) {
        MsgBox::Info(QStringLiteral("请选择条件！"));
        return;
    }
    const QString condition =
        SaleCondition(ui_->chkDate->isChecked(), ui_->DT->date(), ui_->chkNo->isChecked(),
                      ui_->txtSellNo->text(), ui_->chkType->isChecked(), ui_->txtType->text());
    Recordset rs = Session::Dbopt().Excute(
        SellSelect(condition + " And ShopNo='" + Session::ShopNo + "' And State<2"));
    // A failed search has shown the engine's text; reading its result
    // raises the run-time error.
    if (rs.Eof()) {
        ui_->lbTip->setText(QStringLiteral("无记录！"));
        return;
    }
    // Binding afresh wipes the marks of pairs still waiting below.
    VSGrid* g = ui_->VSFlexGrid;
    g->Bind(rs);
    g->setCols(23);
    for (int c = 1; c <= 7; ++c) g->setColHidden(c, true);
    g->setColHidden(kResionCol, true);
    g->setTextMatrix(0, kResionCol, kResion);
    g->setColKey(kResionCol, kResion);
    SetGridCols(g, 860);
    g->setRow(1);
    ui_->lbTip->clear();
}

void frmClientBackChange::cmdChange_Click() {
    VSGrid* g = ui_->VSFlexGrid;
    if (g->Rows() <= 1) {
        MsgBox::Info(QStringLiteral("请选择被调换的商品"));
        ui_->txtSellNo->setFocus();
        return;
    }
    const QDate sold = SaleDate(ReplaceQuote(g->Text(QStringLiteral("销售日期"))));
    const QString abate = ReplaceQuote(g->Text(QStringLiteral("折扣")));
    const clsSellRole& rules = Session::SellRole();

    if (IsMarked(g->Row())) {
        MsgBox::Info(QStringLiteral("该商品已经被调换到下面的列表！"));
        ui_->txtSellNo->setFocus();
        return;
    }
    if (rules.ChangeOneTime && Val(g->Text(QStringLiteral("State"))) == 1) {
        MsgBox::Info(QStringLiteral("对不起，该商品已经调换过一次了，不能进行二次调换了！"));
        return;
    }
    const SaleKind kind = KindOf(abate);
    if (kind == SaleKind::Special && rules.SpecialCanNotChange) {
        MsgBox::Info(QStringLiteral("对不起！该商品是特价商品，您无法调换！"));
        return;
    }
    if (kind == SaleKind::Discount && rules.AbateCanNotChange) {
        MsgBox::Info(QStringLiteral("对不起！该商品是折扣商品，您无法调换！"));
        return;
    }
    if (PastDayLimit(sold, rules.ChangeDays)) {
        MsgBox::Info(QStringLiteral("很遗憾！该商品已经超过了规定的调货时间，您无法调换！"));
        return;
    }
    frmChange picker(this);
    picker.LoadIt(this, g->Text(QStringLiteral("GUID")), g->Text(QStringLiteral("SellNo")),
                  g->Text(QStringLiteral("货号")),
                  Convert::CSng(g->Text(QStringLiteral("零售价"))));
    Modal::Show(&picker);
}

void frmClientBackChange::RemoveChangeRow() {
    VSGrid* change = ui_->VSChange;
    VSGrid* g = ui_->VSFlexGrid;
    if (change->Rows() <= 1) return;
    // An old line no longer listed (a new search since) has no amount to take off.
    const int old = FindRow(g, QStringLiteral("GUID"), change->Text(QStringLiteral("SellGUID")));
    const double had = old > 0 ? Val(g->Cell(old, QStringLiteral("应收金额"))) : 0;
    ui_->lbHave->setText(Convert::DblText(Val(ui_->lbHave->text()) - had));
    ui_->lbAmount->setText(Convert::DblText(Val(ui_->lbAmount->text()) -
                                            Val(change->Text(QStringLiteral("应收金额")))));
    ui_->lbBackAdd->setText(
        Convert::DblText(Val(ui_->lbAmount->text()) - Val(ui_->lbHave->text())));
    if (old > 0) g->setCellBackColor(old, 0, g->palette().color(QPalette::Button));
    change->RemoveItem();
}

// What the customer adds for one pair: the replacement's amount less the old
// line's, negative when the replacement is cheaper.
float frmClientBackChange::AmountDifference(const QString& GUID) const {
    const VSGrid* g = ui_->VSFlexGrid;
    const VSGrid* change = ui_->VSChange;
    const int old = FindRow(g, QStringLiteral("GUID"), GUID);
    const int now = FindRow(change, QStringLiteral("SellGUID"), GUID);
    return Convert::ToSingle(Val(change->Cell(now, QStringLiteral("应收金额"))) -
                             Val(g->Cell(old, QStringLiteral("应收金额"))));
}

void frmClientBackChange::cmdOk_Click() {
    if (ui_->VSChange->Rows() <= 1) return;
    InsertSellChanges();
    MoveStock();
    RestoreCostLayers();
    RewriteSell();
    RemoveVsRowsAll(ui_->VSChange);
    RemoveChangedRows();
    MsgBox::Info(QStringLiteral("调换成功！"));
}

// The old goods of every marked line, with what the customer added.
void frmClientBackChange::InsertSellChanges() {
    const VSGrid* g = ui_->VSFlexGrid;
    const clsUser& user = Session::User();
    for (int i = 1; i < g->Rows(); ++i) {
        if (!IsMarked(i)) continue;
        auto q = [g, i](const char* key) {
            return ReplaceQuote(g->Cell(i, QString::fromUtf8(key)));
        };
        auto raw = [g, i](const char* key) { return g->Cell(i, QString::fromUtf8(key)); };
        // The reason goes in as it was typed.
        Session::Dbopt().Excute(
            "Insert Into SellChange Values('" + Session::NewGUID().GUID() + "','" +
            raw("StoreGUID") + "','" + Session::ShopNo + "','" + q("货号") + "','" + q("种类") +
            "','" + q("品牌") + "','" + q("尺码") + "','" + q("颜色") + "','" + q("面料") + "','" +
            q("等级") + "','" + q("产地") + "'," + q("数量") + "," + q("零售价") + ",'" +
            q("折扣") + "'," + q("应收金额") + "," + q("BuyPrice") + ",'" + user.No + "','" +
            q("销售日期") + "'," + q("BuyPriceID") + ",'" + user.Name + "'," +
            Convert::FloatText(AmountDifference(raw("GUID"))) + ",'" + raw("GUID") + "','" +
            raw("SellNo") + "','" + DateText::Today() + "',1,'" + raw("调换原因") + "')");
    }
}

void frmClientBackChange::MoveStock() {
    const VSGrid* g = ui_->VSFlexGrid;
    const VSGrid* change = ui_->VSChange;
    clsDbopt& db = Session::Dbopt();
    for (int i = 1; i < g->Rows(); ++i)
        if (IsMarked(i))
            db.Excute("Update Store Set Quantity=Quantity+1 Where GUID='" +
                      g->Cell(i, QStringLiteral("StoreGUID")) + "'");
    for (int r = 1; r < change->Rows(); ++r)
        db.Excute("Update Store Set Quantity=Quantity-1 Where GUID='" +
                  change->Cell(r, QStringLiteral("StoreGUID")) + "'");
}

// Each old piece goes back to the layer it was costed from.
void frmClientBackChange::RestoreCostLayers() {
    const VSGrid* g = ui_->VSFlexGrid;
    for (int i = 1; i < g->Rows(); ++i)
        if (IsMarked(i))
            Session::Dbopt().Excute("Update BuyPrice Set Quantity=Quantity+1 Where ID=" +
                                    g->Cell(i, QStringLiteral("BuyPriceId")));
}

// The sale line keeps its key, number, date, seller and payment; goods,
// price, amount and cost become the replacement's. A replacement without a
// layer left costs 0 and keeps the layer number of the row before it.
void frmClientBackChange::RewriteSell() {
    const VSGrid* change = ui_->VSChange;
    int32_t ID = 0;
    for (int r = 1; r < change->Rows(); ++r) {
        auto v = [change, r](const char* key) { return change->Cell(r, QString::fromUtf8(key)); };
        float Cost = 0;
        TakeCostLayer(v("StoreGUID"), ID, Cost);
        // Every value goes in as the row holds it.
        Session::Dbopt().Excute(
            "Update Sell Set StoreGUID='" + v("StoreGUID") + "', ShopNo='" + Session::ShopNo +
            "', TypeNo='" + v("货号") + "', Name='" + v("种类") + "', Brand='" + v("品牌") +
            "', [Size]='" + v("尺码") + "', Colour='" + v("颜色") + "', Leather='" + v("面料") +
            "', Grade='" + v("等级") + "', ProductPlace='" + v("产地") + "', Price=" + v("零售价") +
            ", Abate='" + v("折扣") + "', Amount=" + v("应收金额") +
            ", BuyPrice=" + Convert::FloatText(Cost) + ", BuyPriceID=" + QString::number(ID) +
            ", State=1 Where GUID='" + v("SellGUID") + "'");
    }
}

void frmClientBackChange::RemoveChangedRows() {
    VSGrid* g = ui_->VSFlexGrid;
    for (int i = g->Rows() - 1; i >= 1; --i)
        if (IsMarked(i)) g->RemoveItem(i);
}

bool frmClientBackChange::eventFilter(QObject* o, QEvent* e) {
    QKeyEvent* k = KeyPress(e);
    if (!k) return false;
    if (o != ui_->txtSellNo && o != ui_->txtType && o != ui_->DT) return false;
    if (IsEnter(k)) {
        Guard::Run([this] { cmdQuery_Click(); });
        return true;
    }
    if (k->key() == Qt::Key_Down && o != ui_->DT && ui_->VSFlexGrid->Rows() > 1) {
        ui_->VSFlexGrid->setFocus();
        return true;
    }
    return false;
}
