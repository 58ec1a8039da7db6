#include "frmChange.h"

#include "Convert.h"
#include "Keys.h"
#include "ModMain.h"
#include "MsgBox.h"
#include "On.h"
#include "Session.h"
#include "SqlText.h"
#include "VSGrid.h"
#include "frmClientBackChange.h"
#include "ui_frmChange.h"
#include "ui_frmClientBackChange.h"

using Convert::CDbl;
using Convert::IsNumeric;
using Convert::Val;

namespace {

const QString kFull = QStringLiteral("全");

const QStringList kGoodsCells = {"货号", "种类", "品牌", "尺码", "颜色", "面料", "等级", "产地"};

}  // namespace

frmChange::frmChange(QWidget* parent) : Form(parent), ui_(std::make_unique<Ui::frmChange>()) {
    ui_->setupUi(this);
    for (QWidget* w :
         {static_cast<QWidget*>(ui_->txtNo), static_cast<QWidget*>(ui_->OptAbate),
          static_cast<QWidget*>(ui_->txtAbate), static_cast<QWidget*>(ui_->txtChangePrice)})
        w->installEventFilter(this);
    EnterClicks(ui_->cmdOk);

    On(ui_->txtNo, &QLineEdit::textChanged, this, [this] { txtNo_Change(); });
    // "10" is the full price.
    On(ui_->txtAbate, &QLineEdit::textChanged, this, [this] {
        if (ui_->txtAbate->text() == QStringLiteral("10")) ui_->txtAbate->setText(kFull);
    });
    On(ui_->VSFlexGrid, &VSGrid::KeyDown, this,
       [this](int key, Qt::KeyboardModifiers, bool& handled) {
           if (key == Qt::Key_Return || key == Qt::Key_Enter) {
               handled = true;
               if (!GoodsEmpty()) ui_->txtAbate->setFocus();
           }
       });
    On(ui_->OptAbate, &QRadioButton::clicked, this, [this](bool on) {
        if (on) ui_->txtAbate->setFocus();
    });
    On(ui_->OptChangePrice, &QRadioButton::clicked, this, [this](bool on) {
        if (on) ui_->txtChangePrice->setFocus();
    });
    On(ui_->cmdOk, &QPushButton::clicked, this, [this] { cmdOk_Click(); });

    Guard::Run([this] {
        LoadGoods();
        FillCombo(QStringLiteral("折扣"), ui_->comAbate);
    });
}

frmChange::~frmChange() = default;

void frmChange::LoadIt(frmClientBackChange* Owner, const QString& GUID, const QString& SellNo,
                       const QString& TypeNo, float Price) {
    owner_ = Owner;
    GUID_ = GUID;
    SellNo_ = SellNo;
    TypeNo_ = TypeNo;
    Price_ = Convert::FloatText(Price);
}

bool frmChange::GoodsEmpty() const {
    return ui_->VSFlexGrid->Rows() <= 1;
}

void frmChange::LoadGoods() {
    VSGrid* g = ui_->VSFlexGrid;
    g->Bind(Session::Dbopt().Excute(
        "Select GUID,TypeNo as 货号,Name as 种类, Brand as 品牌,[Size] as 尺码,Colour as 颜色,"
        "Leather as 面料,Grade as 等级,ProductPlace as 产地,Quantity as 数量,Price as 零售价 from "
        "Store Where ShopNo='" +
        Session::ShopNo + "' And Quantity>0"));
    g->setColHidden(1, true);
    SetGridCols(g, 1000);
}

// Any stretch of the article number finds the goods.
void frmChange::txtNo_Change() {
    const QString text = ui_->txtNo->text();
    const QString select =
        "Select GUID,TypeNo as 货号,Name as 种类, Brand as 品牌,[Size] as 尺码,Colour as 颜色,"
        "Leather as 面料,Grade as 等级,ProductPlace as 产地,Quantity as 数量 ,Price as 零售价 "
        "from Store Where ";
    VSGrid* g = ui_->VSFlexGrid;
    if (text.isEmpty())
        g->Bind(
            Session::Dbopt().Excute(select + "ShopNo='" + Session::ShopNo + "' And Quantity>0"));
    else
        g->Bind(Session::Dbopt().Excute(select + "Typeno Like'%" + ReplaceQuote(text) +
                                        "%' And ShopNo='" + Session::ShopNo + "' And Quantity>0"));
    g->setColHidden(1, true);
    SetGridCols(g, 1000);
    if (!GoodsEmpty()) g->setRow(1);
}

// A check: the focus moves on to the button, nothing is confirmed.
void frmChange::txtAbate_Enter() {
    const QString a = ui_->txtAbate->text();
    if (IsNumeric(a)) {
        const double v = CDbl(a);
        if (v > 9.9 || v < 0) {
            MsgBox::Info(QStringLiteral("请输入0.1-10的数字或小数！"));
            ui_->txtAbate->setFocus();
            return;
        }
        ui_->cmdOk->setFocus();
    } else if (a == kFull) {
        ui_->cmdOk->setFocus();
    } else {
        MsgBox::Info(QStringLiteral("数量的数据类型不正确！"));
        ui_->txtAbate->setFocus();
    }
}

void frmChange::txtChangePrice_Enter() {
    const QString p = ui_->txtChangePrice->text();
    const VSGrid* g = ui_->VSFlexGrid;
    if (!IsNumeric(p)) {
        MsgBox::Info(QStringLiteral("请输入有效的数据！"));
        return;
    }
    const double v = CDbl(p);
    if (v <= 0) {
        MsgBox::Info(QStringLiteral("特价也不可能小于0的！"));
        return;
    }
    if (Val(g->Text(QStringLiteral("零售价"))) < v) {
        MsgBox::Info(QStringLiteral("特价比零售价还要贵么？"));
        ui_->txtAbate->setFocus();
        return;
    }
    if (Val(g->Text(QStringLiteral("数量"))) < 1) {
        MsgBox::Info(QStringLiteral("库存不足不能调换，请通知管理员！"));
        return;
    }
    ui_->cmdOk->setFocus();
}

void frmChange::cmdOk_Click() {
    if (!owner_) return;  // opened without an exchange window to write into
    const VSGrid* g = ui_->VSFlexGrid;
    const clsSellRole& rules = Session::SellRole();
    if (GoodsEmpty()) {
        MsgBox::Info(QStringLiteral("没有可以调换的商品！"));
        return;
    }
    if (rules.SameTypeChange && g->Text(QStringLiteral("货号")) != TypeNo_) {
        MsgBox::Info(QStringLiteral("对不起只有同类型的商品才可以调换！请你再选择其他的商品"));
        return;
    }
    // The prices are compared as texts, character by character: "100" is
    // below "99". An equal price passes.
    if (rules.DearGoodsChange &&
        QString::compare(g->Text(QStringLiteral("零售价")), Price_, Qt::CaseSensitive) < 0) {
        MsgBox::Info(QStringLiteral("对不起只能调换比此商品价格高的商品！"));
        return;
    }
    if (ui_->OptAbate->isChecked()) {
        const QString a = ui_->txtAbate->text();
        if (IsNumeric(a)) {
            const double v = CDbl(a);
            if (v < 0 || v > 9.9) {
                MsgBox::Info(QStringLiteral("请输入0.1-10的数字或小数！"));
                ui_->txtAbate->setFocus();
                return;
            }
        } else if (a != kFull) {
            MsgBox::Info(QStringLiteral("数量的数据类型不正确！"));
            ui_->txtAbate->setFocus();
            return;
        }
    }
    if (ui_->OptChangePrice->isChecked()) {
        const QString p = ui_->txtChangePrice->text();
        if (!IsNumeric(p)) {
            MsgBox::Info(QStringLiteral("请输入有效的数据！"));
            ui_->txtChangePrice->setFocus();
            return;
        }
        if (CDbl(p) > Val(g->Text(QStringLiteral("零售价")))) {
            MsgBox::Info(QStringLiteral("特价比零售价还要贵么？"));
            ui_->txtAbate->setFocus();
            return;
        }
    }
    if (!MsgBox::AskYes(QStringLiteral("确定要调换吗？"), QStringLiteral("提示"))) return;

    AddChangeRow(g->Text(QStringLiteral("GUID")));
    accept();
}

// The replacement's price is always a whole number, rounded half to even.
void frmChange::AddChangeRow(const QString& GUID) {
    const VSGrid* g = ui_->VSFlexGrid;
    Ui::frmClientBackChange* o = owner_->ui();
    VSGrid* old = o->VSFlexGrid;
    VSGrid* change = o->VSChange;

    float amount;
    QString abate;
    if (ui_->OptAbate->isChecked()) {
        const QString a = ui_->txtAbate->text();
        const float factor = a == kFull ? 10.0f : Convert::CSng(a);
        amount = Convert::CInt(Val(g->Text(QStringLiteral("零售价"))) * double(factor) / 10);
        abate = a;
    } else {
        amount = Convert::CInt(ui_->txtChangePrice->text());
        abate = QStringLiteral("特价");
    }

    const int oldRow = old->Row();
    old->setCellBackColor(oldRow, 0, frmClientBackChange::MarkColor());
    QStringList cells = {QString(), GUID};
    for (const QString& key : kGoodsCells) cells << g->Text(key);
    cells << g->Text(QStringLiteral("零售价")) << QStringLiteral("1") << abate
          << Convert::FloatText(amount) << GUID_ << SellNo_;
    change->AddItem(cells.join('\t'));
    change->setRow(change->Rows() - 1);
    o->lbAmount->setText(Convert::DblText(Val(o->lbAmount->text()) + double(amount)));
    o->lbHave->setText(Convert::DblText(Val(o->lbHave->text()) +
                                        Val(old->Cell(oldRow, QStringLiteral("应收金额")))));
    o->lbBackAdd->setText(Convert::DblText(Val(o->lbAmount->text()) - Val(o->lbHave->text())));
    old->setTextMatrix(oldRow, 22, o->comResion->currentText());
}

bool frmChange::eventFilter(QObject* o, QEvent* e) {
    if (e->type() == QEvent::FocusIn) {
        if (o == ui_->txtAbate) {
            ui_->txtAbate->selectAll();
            ui_->OptAbate->setChecked(true);
        } else if (o == ui_->txtChangePrice) {
            ui_->txtChangePrice->selectAll();
            ui_->OptChangePrice->setChecked(true);
        }
        return false;
    }
    QKeyEvent* k = KeyPress(e);
    if (!k) return false;
    bool taken = false;
    Guard::Run([&] {
        if (o == ui_->txtNo) {
            // Down or Enter in the search goes to the goods found.
            if ((IsEnter(k) || k->key() == Qt::Key_Down) && !GoodsEmpty()) {
                ui_->VSFlexGrid->setFocus();
                taken = true;
            }
        } else if (o == ui_->OptAbate) {
            if (k->key() == Qt::Key_Down && !GoodsEmpty()) {
                ui_->VSFlexGrid->setFocus();
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
        }
    });
    return taken;
}
