#include "frmSell.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMenu>

#include "Convert.h"
#include "CostLayer.h"
#include "DateText.h"
#include "Guard.h"
#include "ModMain.h"
#include "MsgBox.h"
#include "On.h"
#include "Receipt.h"
#include "SaleRoutines.h"
#include "Session.h"
#include "SqlText.h"
#include "TextPrinter.h"
#include "VSGrid.h"
#include "ui_frmSell.h"

using Convert::IsNumeric;
using Convert::Val;

namespace {

// Lets the window see every key before the control that has the focus: the
// function keys and Del act wherever the clerk is.
class KeyPreview : public QObject {
public:
    explicit KeyPreview(frmSell* form) : QObject(form), form_(form) {}
    bool eventFilter(QObject* o, QEvent* e) override {
        if (e->type() == QEvent::KeyPress && o->isWidgetType()) {
            auto* w = static_cast<QWidget*>(o);
            QWidget* focus = form_->focusWidget() ? form_->focusWidget() : form_;
            // A key not taken by the control travels on to its parents; the
            // window sees it once, at the control it was meant for.
            if (w == focus && (w == form_ || form_->isAncestorOf(w))) {
                const int key = static_cast<QKeyEvent*>(e)->key();
                Guard::Run([&] { form_->Form_KeyDown(key); });
            }
        }
        return false;
    }

private:
    frmSell* form_;
};

bool IsEnter(const QKeyEvent* k) {
    return k->key() == Qt::Key_Return || k->key() == Qt::Key_Enter;
}

const QStringList kGoodsCells = {"货号", "种类", "品牌", "尺码", "颜色", "面料", "等级", "产地"};

}  // namespace

frmSell::frmSell(QWidget* parent) : Form(parent), ui_(std::make_unique<Ui::frmSell>()) {
    ui_->setupUi(this);

    Main_ = new QMenu(QStringLiteral("主菜单"), this);
    Main_->setObjectName(QStringLiteral("Main"));
    Cancel_ = Main_->addAction(QStringLiteral("取消"));
    Cancel_->setObjectName(QStringLiteral("Cancel"));
    On(Cancel_, &QAction::triggered, this, [this] { Cancel(); });
    ui_->VSSell->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(ui_->VSSell, &QWidget::customContextMenuRequested, this,
            [this](const QPoint& pos) { Main_->popup(ui_->VSSell->viewport()->mapToGlobal(pos)); });

    for (QWidget* w :
         {static_cast<QWidget*>(ui_->txtNo), static_cast<QWidget*>(ui_->txtIDCode),
          static_cast<QWidget*>(ui_->txtQuatity), static_cast<QWidget*>(ui_->txtAbate),
          static_cast<QWidget*>(ui_->txtChangePrice), static_cast<QWidget*>(ui_->txtReciveAmout)})
        w->installEventFilter(this);
    preview_ = new KeyPreview(this);
    qApp->installEventFilter(preview_);

    On(ui_->txtNo, &QLineEdit::textChanged, this, [this] { txtNo_Change(); });
    On(ui_->txtAbate, &QLineEdit::textChanged, this, [this] { txtAbate_Change(); });
    On(ui_->txtReciveAmout, &QLineEdit::textChanged, this, [this] { txtReciveAmout_Change(); });
    On(ui_->VSFlexGrid, &VSGrid::RowColChange, this, [this] {
        if (ui_->VSFlexGrid->Row() >= 1) ui_->txtPrice->setText(ui_->VSFlexGrid->Text("零售价"));
    });
    On(ui_->VSFlexGrid, &VSGrid::KeyDown, this,
       [this](int key, Qt::KeyboardModifiers, bool& handled) {
           if (key == Qt::Key_Return || key == Qt::Key_Enter) {
               handled = true;
               if (!GoodsEmpty()) ui_->txtQuatity->setFocus();
           }
       });
    On(ui_->VSSell, &VSGrid::KeyDown, this, [this](int key, Qt::KeyboardModifiers, bool& handled) {
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            handled = true;
            ui_->txtReciveAmout->setFocus();
        }
    });
    On(ui_->OptAbate, &QRadioButton::clicked, this, [this](bool on) {
        if (on) ui_->txtAbate->setFocus();
    });
    On(ui_->OptChangePrice, &QRadioButton::clicked, this, [this](bool on) {
        if (on) ui_->txtChangePrice->setFocus();
    });
    On(ui_->cmdAdd, &QPushButton::clicked, this, [this] { cmdAdd_Click(); });
    On(ui_->cmdCheckOut, &QPushButton::clicked, this, [this] { cmdCheckOut_Click(); });

    // Loading the window.
    Guard::Run([this] {
        LoadGoods();
        InitBasket();
        ui_->lbOpt->setText(Session::User().Name);
        ui_->lbNo->setText(NextSellNo());
        if (!GoodsEmpty()) ui_->txtPrice->setText(ui_->VSFlexGrid->Cell(1, "零售价"));
    });
}

frmSell::~frmSell() {
    qApp->removeEventFilter(preview_);
}

// ---- goods

QString frmSell::GoodsSelect() const {
    return QStringLiteral(
        "Select GUID,TypeNo as 货号,Name as 种类, Brand as 品牌,[Size] as 尺码,Colour as 颜色,"
        "Leather as 面料,Grade as 等级,ProductPlace as 产地,Quantity as 数量,Price as 零售价,"
        "IDCode as 条码 from Store ");
}

void frmSell::BindGoods(const QString& sql) {
    // A failed query leaves the grid bound to nothing, without a word.
    bool isErr = false;
    Recordset rs = Session::Dbopt().Excute(sql, isErr);
    ui_->VSFlexGrid->Bind(rs);
    ui_->VSFlexGrid->setColHidden(1, true);
    SetGridCols(ui_->VSFlexGrid, 1140);
}

void frmSell::LoadGoods() {
    BindGoods(GoodsSelect() + "Where ShopNo='" + Session::ShopNo + "' And Quantity>0");
}

bool frmSell::GoodsEmpty() const {
    return ui_->VSFlexGrid->Rows() <= 1;
}

void frmSell::txtNo_Change() {
    const QString text = ui_->txtNo->text();
    if (text.isEmpty()) {
        LoadGoods();
    } else {
        BindGoods(GoodsSelect() + "Where Typeno Like'%" + ReplaceQuote(text) + "%' And ShopNo='" +
                  Session::ShopNo + "' And Quantity>0");
    }
    if (!GoodsEmpty()) {
        ui_->VSFlexGrid->setRow(1);
        ui_->txtPrice->setText(ui_->VSFlexGrid->Cell(1, "零售价"));
    }
}

void frmSell::txtNo_Down() {
    VSGrid* g = ui_->VSFlexGrid;
    if (GoodsEmpty()) return;
    g->setFocus();
    if (g->Rows() > 2 && g->Row() < g->Rows() - 1) g->setRow(g->Row() + 1);
}

void frmSell::txtIDCode_Enter() {
    // The bar code goes in as scanned.
    BindGoods(GoodsSelect() + "Where ShopNo='" + Session::ShopNo + "' And Quantity>0 And IDCode='" +
              ui_->txtIDCode->text() + "'");
    if (!GoodsEmpty()) {
        ui_->VSFlexGrid->setRow(1);
        ui_->txtPrice->setText(ui_->VSFlexGrid->Cell(1, "零售价"));
        ui_->VSFlexGrid->setFocus();
    }
}

// ---- the pre-sale list

void frmSell::InitBasket() {
    VSGrid* g = ui_->VSSell;
    g->setCols(14);
    g->setRows(1);
    const QStringList heads = {"GUID", "货号", "种类",   "品牌", "尺码", "颜色",    "面料",
                               "等级", "产地", "零售价", "数量", "折扣", "应收金额"};
    for (int c = 1; c < 14; ++c) {
        g->setTextMatrix(0, c, heads[c - 1]);
        g->setColKey(c, heads[c - 1]);
    }
    g->setColHidden(1, true);
    SetGridCols(g, 960);
}

int16_t frmSell::CountInBasket(const QString& guid) const {
    int16_t n = 0;
    const VSGrid* g = ui_->VSSell;
    for (int r = 1; r < g->Rows(); ++r)
        if (g->TextMatrix(r, 1) == guid)
            n = Convert::CInt(double(n) + Convert::CDbl(g->Cell(r, "数量")));
    return n;
}

// Only the grid's figure counts: what the last query read, lowered by the
// sales made since.
bool frmSell::StockShort() const {
    const VSGrid* g = ui_->VSFlexGrid;
    const double q = Convert::CDbl(g->Text("数量"));
    const int16_t n = CountInBasket(g->TextMatrix(g->Row(), 1));
    return q - n < Val(ui_->txtQuatity->text());
}

void frmSell::AddToBasket(const QString& guid) {
    const int16_t n = Convert::CInt(Val(ui_->txtQuatity->text()));
    const bool abate = ui_->OptAbate->isChecked();
    VSGrid* goods = ui_->VSFlexGrid;
    VSGrid* g = ui_->VSSell;
    for (int i = 0; i < n; ++i) {
        // Every piece is charged in whole units.
        float amount;
        if (abate) {
            const QString a = ui_->txtAbate->text();
            const float f = a == QStringLiteral("全") ? 10.0f : Convert::CSng(a);
            amount = Convert::CInt(Val(ui_->txtPrice->text()) * double(f) / 10);
        } else {
            amount = Convert::CInt(ui_->txtChangePrice->text());
        }
        g->AddItem(QString());
        const int r = g->Rows() - 1;
        g->setTextMatrix(r, 1, guid);
        for (const QString& key : kGoodsCells) g->setCell(r, key, goods->Text(key));
        g->setCell(r, "零售价", ui_->txtPrice->text());
        g->setCell(r, "数量", QStringLiteral("1"));
        g->setCell(r, "折扣", abate ? ui_->txtAbate->text() : QStringLiteral("特价"));
        g->setCell(r, "应收金额", Convert::FloatText(amount));
        g->setRow(r);
        ui_->lbAmount->setText(Convert::DblText(Val(ui_->lbAmount->text()) + double(amount)));
    }
}

void frmSell::Cancel() {
    VSGrid* g = ui_->VSSell;
    if (g->Rows() <= 1) return;
    const double a = Val(g->Text("应收金额"));
    g->RemoveItem();
    ui_->lbAmount->setText(Convert::DblText(Val(ui_->lbAmount->text()) - a));
    if (ui_->lbAmount->text() == QStringLiteral("0")) {
        ui_->lbAmount->clear();
        ui_->VSFlexGrid->setFocus();
    }
}

// ---- the entry chain

// The quantity tests that the quantity box, the discount box and the special
// price box share, in their order; the boxes differ only in the icon.
bool frmSell::QuantityPasses(MsgBox::Icon icon) {
    const auto say = [icon](const char* text) { MsgBox::Show(QString::fromUtf8(text), icon); };
    if (!IsNumeric(ui_->txtQuatity->text())) {
        say("数量的数据类型不正确！");
        ui_->txtQuatity->setFocus();
        return false;
    }
    if (Val(ui_->txtQuatity->text()) <= 0) {
        say("数量的不能小于0！");
        ui_->txtQuatity->setFocus();
        return false;
    }
    if (StockShort()) {
        say("库存不足不能结帐，请通知管理员！");
        return false;
    }
    return true;
}

void frmSell::txtQuatity_Enter() {
    if (GoodsEmpty()) {
        MsgBox::Info(QStringLiteral("请选择一个商品！"));
        return;
    }
    if (!QuantityPasses(MsgBox::Icon::Information)) return;
    ui_->txtAbate->setFocus();
}

void frmSell::txtAbate_Change() {
    // A plain comparison of character codes: an empty box, "10" and anything
    // starting with 0 or 1 show full price again.
    if (QString::compare(ui_->txtAbate->text(), QStringLiteral("10")) <= 0)
        ui_->txtAbate->setText(QStringLiteral("全"));
}

void frmSell::txtAbate_Enter() {
    // The range test reads the discount as the amount does (strictly), so
    // that "8,5" is refused as 85 rather than passed as 8 and charged as 85.
    const QString a = ui_->txtAbate->text();
    if (IsNumeric(a) && (Convert::CDbl(a) > 9.9 || Convert::CDbl(a) < 0)) {
        MsgBox::Warn(QStringLiteral("请输入0.1-10的数字或小数！"));
        ui_->txtAbate->setFocus();
        return;
    }
    if (!IsNumeric(a) && a != QStringLiteral("全")) {
        MsgBox::Warn(QStringLiteral("数量的数据类型不正确！"));
        ui_->txtAbate->setFocus();
        return;
    }
    if (GoodsEmpty()) return;
    if (!QuantityPasses(MsgBox::Icon::Exclamation)) return;
    AddToBasket(ui_->VSFlexGrid->TextMatrix(ui_->VSFlexGrid->Row(), 1));
    ui_->txtReciveAmout->setFocus();
}

void frmSell::txtChangePrice_Enter() {
    if (GoodsEmpty()) {
        MsgBox::Warn(QStringLiteral("请选择一个商品！"));
        return;
    }
    if (!IsNumeric(ui_->txtChangePrice->text())) {
        MsgBox::Warn(QStringLiteral("请输入有效数字！"));
        return;
    }
    // The special price is read as the amount reads it: "1,000" is 1000.
    if (Val(ui_->txtPrice->text()) < Convert::CDbl(ui_->txtChangePrice->text())) {
        MsgBox::Warn(QStringLiteral("特价比零售价还要贵么？"));
        return;
    }
    if (!QuantityPasses(MsgBox::Icon::Exclamation)) return;
    AddToBasket(ui_->VSFlexGrid->TextMatrix(ui_->VSFlexGrid->Row(), 1));
    ui_->txtReciveAmout->setFocus();
}

void frmSell::cmdAdd_Click() {
    if (ui_->OptAbate->isChecked())
        txtAbate_Enter();
    else
        txtChangePrice_Enter();
}

// ---- payment

void frmSell::txtReciveAmout_Change() {
    const QString paid = ui_->txtReciveAmout->text();
    if (IsNumeric(paid) && Val(ui_->lbAmount->text()) <= Convert::CDbl(paid))
        ui_->lb->setText(Convert::DblText(Convert::CDbl(paid) - Val(ui_->lbAmount->text())));
    else
        ui_->lb->clear();
}

// Returns true when the key is taken here.
bool frmSell::txtReciveAmout_Key(QKeyEvent* k) {
    if (k->key() == Qt::Key_Up) {
        ui_->VSSell->setFocus();
        return true;
    }
    if (IsEnter(k)) {
        if (!ui_->txtReciveAmout->text().isEmpty() && !ui_->lbAmount->text().isEmpty())
            cmdCheckOut_Click();
        return true;
    }
    const bool typed =
        (!k->text().isEmpty() && k->key() != Qt::Key_Delete) || k->key() == Qt::Key_Backspace;
    if (!typed) return false;
    // Nothing can be typed before there is something to pay.
    if (ui_->lbAmount->text().isEmpty()) return true;
    if (k->text() == QStringLiteral("+")) {
        ui_->txtNo->setFocus();  // more goods for the same customer
        return true;
    }
    return false;
}

// ---- checkout

void frmSell::cmdCheckOut_Click() {
    VSGrid* basket = ui_->VSSell;
    VSGrid* goods = ui_->VSFlexGrid;
    if (basket->Rows() <= 1) return;
    if (Val(ui_->lbAmount->text()) > Val(ui_->txtReciveAmout->text())) {
        MsgBox::Warn(QStringLiteral("对不起所付金额不足，不能结帐！"));
        ui_->txtReciveAmout->setFocus();
        return;
    }
    if (!MsgBox::AskYes(QStringLiteral("确认要结帐吗？"), QStringLiteral("询问"))) return;

    clsDbopt& db = Session::Dbopt();
    const clsUser& user = Session::User();
    // One layer number for the whole checkout: a piece without a layer keeps
    // the number of the piece before it.
    int32_t ID = 0;
    for (int r = 1; r < basket->Rows(); ++r) {
        const QString StoreGUID = basket->TextMatrix(r, 1);
        db.Excute("Update Store Set Quantity=Quantity-1 Where GUID='" + StoreGUID + "'");
        const QString key = Session::NewGUID().GUID();
        const QString SellNo = ui_->lbNo->text();
        float Cost = 0;
        TakeCostLayer(StoreGUID, ID, Cost);
        auto q = [&](const QString& col) { return ReplaceQuote(basket->Cell(r, col)); };
        db.Excute("Insert Into Sell Values('" + key + "','" + StoreGUID + "','" + Session::ShopNo +
                  "','" + q("货号") + "','" + q("种类") + "','" + q("品牌") + "','" + q("尺码") +
                  "','" + q("颜色") + "','" + q("面料") + "','" + q("等级") + "','" + q("产地") +
                  "'," + q("数量") + "," + q("零售价") + ",'" + q("折扣") + "'," + q("应收金额") +
                  "," + Convert::FloatText(Cost) + ",'" + user.No + "','" + DateText::Today() +
                  "','" + SellNo + "','" + QString::number(ID) + "','" + user.Name + "',0," +
                  ui_->txtReciveAmout->text() + "," + ui_->lb->text() + ")");
        // Lower the grid's figure so that the stock test holds without a new query.
        for (int g = 1; g < goods->Rows(); ++g) {
            if (goods->TextMatrix(g, 1) == StoreGUID) {
                goods->setCell(
                    g, "数量",
                    Convert::DblText(Val(goods->Cell(g, "数量")) - Val(basket->Cell(r, "数量"))));
                break;
            }
        }
    }

    if (Session::SellRole().PrinterType != 0)
        PrintSmall();
    else
        PrintBig();

    ui_->txtReciveAmout->clear();
    ui_->txtQuatity->setText(QStringLiteral("1"));
    ui_->lbAmount->clear();
    RemoveVsRows(basket);
    ui_->txtNo->setFocus();
    ui_->lbNo->setText(NextSellNo());
    ui_->lb->clear();
}

// ---- receipts

ReceiptData frmSell::FirstPrintData() const {
    ReceiptData d;
    d.ShopName = Session::ShopName;
    d.Now = DateText::NowText();
    d.User = Session::User().Name;
    d.SellNo = ui_->lbNo->text();
    d.Paid = ui_->txtReciveAmout->text();
    d.Change = ui_->lb->text();
    const VSGrid* g = ui_->VSSell;
    for (int r = 1; r < g->Rows(); ++r)
        d.Rows.append({g->Cell(r, "货号"), g->Cell(r, "品牌"), g->Cell(r, "种类"),
                       g->Cell(r, "尺码"), g->Cell(r, "数量"), g->Cell(r, "零售价"),
                       g->Cell(r, "折扣"), g->Cell(r, "应收金额")});
    return d;
}

// The questions and the read ahead of a reprint; false when there is nothing
// to print (the box already shown).
bool frmSell::ReprintData(ReceiptData& d, bool small) {
    auto say = [small](const QString& text) {
        if (small)
            MsgBox::Info(text);
        else
            MsgBox::Warn(text);
    };
    if (!MsgBox::AskYes(QStringLiteral("确定要进行重复打印吗？"), QStringLiteral("提示")))
        return false;
    if (ui_->lbNo->text().right(4) == QStringLiteral("0001")) {
        say(QStringLiteral("对不起今天还没有销售，不能重新打印！"));
        return false;
    }
    d.ShopName = Session::ShopName;
    d.Now = DateText::NowText();
    d.User = Session::User().Name;
    d.SellNo = Convert::DblText(Val(ui_->lbNo->text()) - 1);
    Recordset rs = Session::Dbopt().Excute("Select * from Sell Where SellNo='" + d.SellNo +
                                           "' And ShopNo='" + Session::ShopNo + "' And State<2");
    if (rs.Eof()) {
        say(QStringLiteral("该次销售可能被退货或调换不能打印！"));
        return false;
    }
    if (small) {
        // The slip shows what the window holds now, not what was paid then.
        d.Paid = ui_->txtReciveAmout->text();
        d.Change = ui_->lb->text();
    } else {
        d.Paid = rs.Text("Money1");
        d.Change = rs.Text("Money2");
    }
    for (; !rs.Eof(); rs.MoveNext())
        d.Rows.append({rs.Text("TypeNo"), rs.Text("Brand"), rs.Text("Name"), rs.Text("Size"),
                       rs.Text("Quantity"), rs.Text("Price"), rs.Text("Abate"), rs.Text("Amount")});
    return true;
}

void frmSell::PrintBig() {
    if (!Session::SellRole().IsPrint) return;
    try {
        Receipt::Big(FirstPrintData(), TextPrinter::Current());
    } catch (...) {
        MsgBox::Warn(QStringLiteral("没有发现打印机！"));
    }
}

void frmSell::PrintSmall() {
    if (!Session::SellRole().IsPrint) return;
    try {
        Receipt::Small(FirstPrintData(), TextPrinter::Current());
    } catch (...) {
        MsgBox::Info(QStringLiteral("没有发现打印机！"));
    }
}

void frmSell::ReprintBig() {
    try {
        ReceiptData d;
        if (ReprintData(d, false)) Receipt::BigAgain(d, TextPrinter::Current());
    } catch (...) {
        MsgBox::Warn(QStringLiteral("没有发现打印机！"));
    }
}

void frmSell::ReprintSmall() {
    try {
        ReceiptData d;
        if (ReprintData(d, true)) Receipt::SmallAgain(d, TextPrinter::Current());
    } catch (...) {
        MsgBox::Info(QStringLiteral("没有发现打印机！"));
    }
}

// ---- keys

void frmSell::Form_KeyDown(int key) {
    switch (key) {
        case Qt::Key_F1:
            ui_->txtQuatity->setFocus();
            break;
        case Qt::Key_F2:
            ui_->txtAbate->setFocus();
            break;
        case Qt::Key_F3:
            ui_->txtChangePrice->setFocus();
            break;
        case Qt::Key_F4:
            ui_->txtReciveAmout->setFocus();
            break;
        case Qt::Key_F5:
            ui_->txtNo->setFocus();
            break;
        case Qt::Key_F6:
            ui_->VSFlexGrid->setFocus();
            break;
        case Qt::Key_F7:
            ui_->VSSell->setFocus();
            break;
        case Qt::Key_F8:
            if (Session::SellRole().PrinterType != 0)
                ReprintSmall();
            else
                ReprintBig();
            break;
        case Qt::Key_Delete:
            Cancel();
            break;
        default:
            break;
    }
}

bool frmSell::eventFilter(QObject* o, QEvent* e) {
    if (e->type() == QEvent::FocusIn) {
        if (o == ui_->txtQuatity) {
            ui_->txtQuatity->selectAll();
        } else if (o == ui_->txtAbate) {
            ui_->txtAbate->selectAll();
            ui_->OptAbate->setChecked(true);
        } else if (o == ui_->txtChangePrice) {
            ui_->txtChangePrice->selectAll();
            ui_->OptChangePrice->setChecked(true);
        }
        return false;
    }
    if (e->type() != QEvent::KeyPress) return false;
    auto* k = static_cast<QKeyEvent*>(e);
    bool taken = false;
    Guard::Run([&] {
        if (o == ui_->txtNo) {
            if (k->key() == Qt::Key_Down) {
                txtNo_Down();
                taken = true;
            } else if (IsEnter(k)) {
                taken = true;  // Enter does nothing here
            }
        } else if (o == ui_->txtIDCode) {
            if (IsEnter(k)) {
                txtIDCode_Enter();
                taken = true;
            }
        } else if (o == ui_->txtQuatity) {
            if (IsEnter(k)) {
                txtQuatity_Enter();
                taken = true;
            }
        } else if (o == ui_->txtAbate) {
            if (k->key() == Qt::Key_Down) {
                ui_->OptChangePrice->setChecked(true);
                ui_->txtChangePrice->setFocus();
                taken = true;
            } else if (IsEnter(k)) {
                txtAbate_Enter();
                taken = true;
            }
        } else if (o == ui_->txtChangePrice) {
            if (k->key() == Qt::Key_Up) {
                ui_->OptAbate->setChecked(true);
                ui_->txtAbate->setFocus();
                taken = true;
            } else if (IsEnter(k)) {
                txtChangePrice_Enter();
                taken = true;
            }
        } else if (o == ui_->txtReciveAmout) {
            taken = txtReciveAmout_Key(k);
        }
    });
    // A handler that failed has shown its error; the key is spent.
    return taken || (k->key() == Qt::Key_Return || k->key() == Qt::Key_Enter);
}
